// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipText.h"

#include <unicode/uchar.h>

#include <algorithm>
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

constexpr bool IsAscii(char c) noexcept {
    return static_cast<unsigned char>(c) < 0x80;
}

constexpr char32_t LowerAscii(char32_t c) noexcept {
    return c >= U'A' && c <= U'Z' ? c + 32 : c;
}

/// The next code point, folded; `position` is moved past it.
char32_t NextFolded(std::string_view text, std::size_t& position) noexcept {
    const char c = text[position];
    if (IsAscii(c)) {
        ++position;
        return LowerAscii(static_cast<char32_t>(c));
    }
    return LowerCodePoint(NextCodePoint(text, position));
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
        return LowerAscii(c);
    }
    return static_cast<char32_t>(u_foldCase(static_cast<UChar32>(c), U_FOLD_CASE_DEFAULT));
}

int CompareText(std::string_view a, std::string_view b) noexcept {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < a.size() && j < b.size()) {
        const char32_t left = NextFolded(a, i);
        const char32_t right = NextFolded(b, j);
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
    // Their lengths tell nothing, since the Kelvin sign takes three bytes and its "k" one. Their ends do: names in a
    // list differ there sooner than where they begin.
    if (!a.empty() && !b.empty() && IsAscii(a.back()) && IsAscii(b.back()) &&
        LowerAscii(static_cast<char32_t>(a.back())) != LowerAscii(static_cast<char32_t>(b.back()))) {
        return false;
    }
    const std::size_t shorter = std::min(a.size(), b.size());
    std::size_t i = 0;
    for (; i < shorter; ++i) {
        const auto left = static_cast<unsigned char>(a[i]);
        const auto right = static_cast<unsigned char>(b[i]);
        if ((left | right) >= 0x80) {
            break;
        }
        if (left != right && LowerAscii(left) != LowerAscii(right)) {
            return false;
        }
    }
    return i == shorter ? a.size() == b.size() : CompareText(a.substr(i), b.substr(i)) == 0;
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
