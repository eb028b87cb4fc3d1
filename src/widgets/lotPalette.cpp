// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotPalette.h"

namespace colour {

QColor Missing() {
    return {0xC6, 0x28, 0x28};
}

QColor Accent() {
    return {0x0F, 0x5E, 0x6B};
}

QColor AccentTint() {
    return {0xE1, 0xEE, 0xF0};
}

QColor Subdued() {
    return {0x5B, 0x68, 0x70};
}

QColor Rule() {
    return {0xD8, 0xDE, 0xE1};
}

QColor Band() {
    return {0xF4, 0xF7, 0xF8};
}

QColor NotApplying() {
    return {0x80, 0x80, 0x80};
}

QColor Tinted() {
    return {0xFF, 0xF4, 0xD6};
}

} // namespace colour
