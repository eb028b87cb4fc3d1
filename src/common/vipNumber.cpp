// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipNumber.h"

#include "common/vipText.h"

#include <charconv>
#include <utility>

namespace vip {

namespace {

bool IsDigit(char32_t c) noexcept {
    return c >= U'0' && c <= U'9';
}

std::u32string CodePoints(std::string_view text) {
    std::u32string result;
    result.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        result.push_back(NextCodePoint(text, position));
    }
    return result;
}

/// Digits with at most one decimal separator, as a number; 0 if it holds two, or is too large for a real.
double ConvertDigits(std::u32string_view digits, char32_t decimal) {
    std::string plain;
    plain.reserve(digits.size() + 2);
    bool seen = false;
    for (const char32_t c : digits) {
        if (c == decimal) {
            if (std::exchange(seen, true)) {
                return 0;
            }
            plain.push_back('.');
        } else {
            plain.push_back(static_cast<char>(c));
        }
    }
    if (plain.empty()) {
        return 0;
    }
    if (plain.front() == '.') {
        plain.insert(plain.begin(), '0');
    }
    if (plain.back() == '.') {
        plain.push_back('0');
    }
    double value = 0;
    const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    return error == std::errc() ? value : 0;
}

double ParseNumber(std::u32string text, char32_t decimal, char32_t thousand) {
    bool negative = false;
    std::size_t first = 0;
    for (; first < text.size(); ++first) {
        const char32_t c = text[first];
        if (c == U'-') {
            negative = !negative;
        } else if (c != U' ' && c != U'(' && c != U'+') {
            break;
        }
    }
    bool swapped = first < text.size() && text[first] == thousand;
    if (!swapped) {
        const std::size_t decimalAt = text.find(decimal);
        if (decimalAt != std::u32string::npos && decimalAt > first) {
            const std::size_t thousandAt = text.find(thousand);
            swapped = text.find(decimal, decimalAt + 1) != std::u32string::npos ||
                      (thousandAt != std::u32string::npos && decimalAt < thousandAt);
        }
    }
    std::u32string kept;
    kept.reserve(text.size());
    for (char32_t c : text) {
        if (swapped && (c == decimal || c == thousand)) {
            c = c == decimal ? thousand : decimal;
        }
        if (IsDigit(c) || c == decimal) {
            kept.push_back(c);
        }
    }
    const double value = ConvertDigits(kept, decimal);
    return negative ? -value : value;
}

} // namespace

double StrToNumber(std::string_view text, const TNumberLocale& locale) {
    return ParseNumber(CodePoints(text), locale.Decimal, locale.Thousand);
}

double FileNumber(std::string_view text, const TNumberLocale& locale) {
    std::u32string points = CodePoints(text);
    char32_t separator = 0;
    int count = 0;
    for (const char32_t c : points) {
        if (c == U'.' || c == U',' || c == locale.Decimal || c == locale.Thousand) {
            separator = c;
            ++count;
        }
    }
    if (count == 1) {
        // A blank as the locale's thousand separator would be skipped at the front of the text, so the other separator
        // is taken as absent: no text holds code point 0.
        return ParseNumber(std::move(points), separator, U'\0');
    }
    return ParseNumber(std::move(points), locale.Decimal, locale.Thousand);
}

} // namespace vip
