// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipNumber.h"

#include "common/vipText.h"

#include <array>
#include <charconv>
#include <cmath>
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

/// The decimal digits of a finite, positive figure: 0.d1d2d3... times ten to the exponent.
struct TDecimal {
    std::string Digits;
    int Exponent = 0;
};

/// From a scientific form "d.ddde+xx".
TDecimal FromScientific(std::string_view text) {
    TDecimal result;
    const std::size_t e = text.find('e');
    for (const char c : text.substr(0, e)) {
        if (c != '.') {
            result.Digits.push_back(c);
        }
    }
    std::string_view exponent = text.substr(e + 1);
    if (exponent.front() == '+') {
        exponent.remove_prefix(1);
    }
    int power = 0;
    std::from_chars(exponent.data(), exponent.data() + exponent.size(), power);
    result.Exponent = power + 1;
    return result;
}

TDecimal ShortestDecimal(double value) {
    std::array<char, 64> buffer{};
    const auto [end, error] =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::scientific);
    return FromScientific({buffer.data(), end});
}

TDecimal DecimalOf15(double value) {
    std::array<char, 64> buffer{};
    const auto [end, error] =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::scientific, 14);
    TDecimal result = FromScientific({buffer.data(), end});
    while (result.Digits.size() > 1 && result.Digits.back() == '0') {
        result.Digits.pop_back();
    }
    return result;
}

/// Keeps `places` decimals, rounding half away from zero on the decimal digits.
void RoundDecimal(TDecimal& figure, int places) {
    const int keep = figure.Exponent + places;
    if (keep < 0) {
        figure.Digits.clear();
        return;
    }
    const auto count = static_cast<std::size_t>(keep);
    if (count >= figure.Digits.size()) {
        return;
    }
    bool carry = figure.Digits[count] >= '5';
    figure.Digits.resize(count);
    for (std::size_t i = count; carry && i-- > 0;) {
        carry = figure.Digits[i] == '9';
        figure.Digits[i] = carry ? '0' : static_cast<char>(figure.Digits[i] + 1);
    }
    if (carry) {
        figure.Digits.insert(figure.Digits.begin(), '1');
        ++figure.Exponent;
    }
}

char DigitAt(const TDecimal& figure, int index) {
    return index >= 0 && index < static_cast<int>(figure.Digits.size()) ? figure.Digits[static_cast<std::size_t>(index)]
                                                                        : '0';
}

void AppendWhole(std::string& text, const TDecimal& figure, bool grouped, char32_t thousand) {
    if (figure.Exponent <= 0) {
        text.push_back('0');
        return;
    }
    for (int i = 0; i < figure.Exponent; ++i) {
        if (grouped && i > 0 && (figure.Exponent - i) % 3 == 0) {
            AppendCodePoint(text, thousand);
        }
        text.push_back(DigitAt(figure, i));
    }
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

std::string NumberToText(double value, const TNumberLocale& locale) {
    if (value == 0 || !std::isfinite(value)) {
        return "0";
    }
    const TDecimal figure = DecimalOf15(std::fabs(value));
    std::string text = value < 0 ? "-" : "";
    AppendWhole(text, figure, false, locale.Thousand);
    const int count = static_cast<int>(figure.Digits.size());
    if (count > figure.Exponent) {
        AppendCodePoint(text, locale.Decimal);
        for (int i = figure.Exponent; i < count; ++i) {
            text.push_back(DigitAt(figure, i));
        }
    }
    return text;
}

std::string FormatMask(std::string_view mask, double value, const TNumberLocale& locale) {
    const bool grouped = !mask.empty() && mask.front() == ',';
    mask.remove_prefix(grouped ? 1 : 0);
    mask.remove_prefix(!mask.empty() && mask.front() == '0' ? 1 : 0);
    int places = 0;
    if (!mask.empty() && mask.front() == '.') {
        mask.remove_prefix(1);
        while (!mask.empty() && mask.front() == '0') {
            mask.remove_prefix(1);
            ++places;
        }
    }
    TDecimal figure;
    if (value != 0 && std::isfinite(value)) {
        figure = ShortestDecimal(std::fabs(value));
        RoundDecimal(figure, places);
    }
    const bool zero = figure.Digits.find_first_not_of('0') == std::string::npos;
    if (zero) {
        figure = {};
    }
    std::string text = value < 0 && !zero ? "-" : "";
    AppendWhole(text, figure, grouped, locale.Thousand);
    if (places > 0) {
        AppendCodePoint(text, locale.Decimal);
        for (int i = 0; i < places; ++i) {
            text.push_back(DigitAt(figure, figure.Exponent + i));
        }
    }
    text += mask;
    return text;
}

} // namespace vip
