// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipText.h"

#include <array>
#include <charconv>
#include <cmath>

namespace vip {

namespace {

/// Length of the UTF-8 sequence at `position`, 0 if it is not well-formed there.
std::size_t SequenceLength(std::string_view text, std::size_t position) noexcept {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(position);
    std::size_t length = 0;
    unsigned char lowest = 0x80;
    unsigned char highest = 0xBF;
    if (lead < 0x80) {
        return 1;
    }
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        lowest = lead == 0xE0 ? 0xA0 : 0x80;
        highest = lead == 0xED ? 0x9F : 0xBF;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        lowest = lead == 0xF0 ? 0x90 : 0x80;
        highest = lead == 0xF4 ? 0x8F : 0xBF;
    }
    if (length == 0 || position + length > text.size() || byte(position + 1) < lowest || byte(position + 1) > highest) {
        return 0;
    }
    for (std::size_t i = position + 2; i < position + length; ++i) {
        if (byte(i) < 0x80 || byte(i) > 0xBF) {
            return 0;
        }
    }
    return length;
}

} // namespace

std::string_view Trim(std::string_view text) noexcept {
    const auto blank = [](char c) { return static_cast<unsigned char>(c) <= 32; };
    while (!text.empty() && blank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && blank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

char32_t NextCodePoint(std::string_view text, std::size_t& position) noexcept {
    const auto byte = [&](std::size_t i) { return static_cast<char32_t>(static_cast<unsigned char>(text[i])); };
    const std::size_t length = SequenceLength(text, position);
    if (length <= 1) {
        return byte(position++);
    }
    constexpr std::array<char32_t, 5> leadBits = {0, 0, 0x1F, 0x0F, 0x07};
    char32_t result = byte(position) & leadBits.at(length);
    for (std::size_t i = 1; i < length; ++i) {
        result = (result << 6) | (byte(position + i) & 0x3F);
    }
    position += length;
    return result;
}

char32_t LowerCodePoint(char32_t c) noexcept {
    if (c < 0x80) {
        return c >= U'A' && c <= U'Z' ? c + 32 : c;
    }
    if ((c >= 0xC0 && c <= 0xDE && c != 0xD7) || (c >= 0x391 && c <= 0x3A9 && c != 0x3A2) ||
        (c >= 0x410 && c <= 0x42F)) {
        return c + 32;
    }
    if (c >= 0x400 && c <= 0x40F) {
        return c + 80;
    }
    const bool evenIsUpper = (c >= 0x100 && c <= 0x137 && c != 0x130 && c != 0x131) || (c >= 0x14A && c <= 0x177) ||
                             (c >= 0x460 && c <= 0x481) || (c >= 0x48A && c <= 0x4BF) || (c >= 0x4D0 && c <= 0x52F);
    if (evenIsUpper) {
        return c | 1U;
    }
    const bool oddIsUpper = (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E) || (c >= 0x4C1 && c <= 0x4CE);
    if (oddIsUpper) {
        return (c & 1U) != 0 ? c + 1 : c;
    }
    return c == 0x178 ? U'\xFF' : c;
}

int CompareText(std::string_view a, std::string_view b) noexcept {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < a.size() && j < b.size()) {
        const char32_t left = LowerCodePoint(NextCodePoint(a, i));
        const char32_t right = LowerCodePoint(NextCodePoint(b, j));
        if (left != right) {
            return left < right ? -1 : 1;
        }
    }
    if (i < a.size()) {
        return 1;
    }
    return j < b.size() ? -1 : 0;
}

bool SameText(std::string_view a, std::string_view b) noexcept {
    // A letter and its lower case take as many bytes, so texts of different lengths are different.
    if (a.size() != b.size()) {
        return false;
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        const auto left = static_cast<unsigned char>(a[i]);
        const auto right = static_cast<unsigned char>(b[i]);
        if (left >= 0x80 && right >= 0x80) {
            return CompareText(a.substr(i), b.substr(i)) == 0;
        }
        if (left != right && LowerCodePoint(left) != LowerCodePoint(right)) {
            return false;
        }
    }
    return true;
}

void AppendCodePoint(std::string& text, char32_t c) {
    const auto add = [&](char32_t byte) { text.push_back(static_cast<char>(static_cast<unsigned char>(byte))); };
    if (c < 0x80) {
        add(c);
    } else if (c < 0x800) {
        add(0xC0 | (c >> 6));
        add(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        add(0xE0 | (c >> 12));
        add(0x80 | ((c >> 6) & 0x3F));
        add(0x80 | (c & 0x3F));
    } else {
        add(0xF0 | (c >> 18));
        add(0x80 | ((c >> 12) & 0x3F));
        add(0x80 | ((c >> 6) & 0x3F));
        add(0x80 | (c & 0x3F));
    }
}

bool IsValidUtf8(std::string_view text) noexcept {
    std::size_t position = 0;
    while (position < text.size()) {
        const std::size_t length = SequenceLength(text, position);
        if (length == 0 || text[position] == '\0') {
            return false;
        }
        position += length;
    }
    return true;
}

std::string NormaliseLineBreaks(std::string_view text) {
    std::string result;
    result.reserve(text.size() + 16);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '\r' || c == '\n') {
            result += "\r\n";
            if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
                ++i;
            }
        } else {
            result += c;
        }
    }
    return result;
}

std::optional<double> PlainNumber(std::string_view text) noexcept {
    std::string_view digits = text;
    if (!digits.empty() && digits.front() == '+') {
        digits.remove_prefix(1);
        if (!digits.empty() && digits.front() == '-') {
            return std::nullopt;
        }
    }
    double value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc() || end != digits.data() + digits.size() || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value;
}

} // namespace vip
