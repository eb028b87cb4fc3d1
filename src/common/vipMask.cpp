// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipMask.h"

#include <algorithm>

namespace {

bool TakeFront(std::string_view& text, char c) noexcept {
    const bool there = !text.empty() && text.front() == c;
    text.remove_prefix(there ? 1 : 0);
    return there;
}

bool TakeBack(std::string_view& text, char c) noexcept {
    const bool there = !text.empty() && text.back() == c;
    text.remove_suffix(there ? 1 : 0);
    return there;
}

/// `alone`: the mask has no other section.
TMaskSection ReadSection(std::string_view text, bool alone) noexcept {
    TMaskSection section;
    std::size_t digits = text.find('0');
    if (text == "#" || (digits == std::string_view::npos && !alone)) {
        section.Digits = false;
        section.Before = text == "#" ? std::string_view() : text;
        return section;
    }
    if (digits == std::string_view::npos) {
        digits = text.starts_with(',') ? 1 : 0;
    } else if (digits > 0 && text[digits - 1] == '.') {
        --digits;
    }
    section.Before = text.substr(0, digits);
    const bool first = TakeFront(section.Before, ',');
    const bool last = TakeBack(section.Before, ',');
    section.Grouped = first || last;
    text.remove_prefix(digits);
    TakeFront(text, '0');
    if (TakeFront(text, '.')) {
        while (TakeFront(text, '0')) {
            ++section.Places;
        }
    }
    section.After = text;
    return section;
}

} // namespace

bool TMask::IsPercentage() const noexcept {
    const TMaskSection& first = Sections.front();
    return first.Digits &&
           (first.Before.find('%') != std::string_view::npos || first.After.find('%') != std::string_view::npos);
}

namespace vip {

TMask ReadMask(std::string_view mask) noexcept {
    TMask result;
    const bool alone = mask.find(';') == std::string_view::npos;
    for (result.Count = 0; result.Count < result.Sections.size(); ++result.Count) {
        const std::size_t end = mask.find(';');
        result.Sections.at(result.Count) = ReadSection(mask.substr(0, end), alone);
        if (end == std::string_view::npos) {
            ++result.Count;
            break;
        }
        mask.remove_prefix(end + 1);
    }
    return result;
}

} // namespace vip
