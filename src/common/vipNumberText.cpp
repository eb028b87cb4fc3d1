// SPDX-License-Identifier: GPL-3.0-or-later
//
// Numbers into texts, all by way of their decimal digits: a figure is rounded as it reads, not as it is held.
#include "common/vipMask.h"
#include "common/vipNumber.h"
#include "common/vipText.h"

#include <array>
#include <charconv>
#include <cmath>

namespace vip {

namespace {

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

/// Digits and decimal separator, without a sign and in full.
void AppendPlain(std::string& text, const TDecimal& figure, const TNumberLocale& locale) {
    AppendWhole(text, figure, false, locale.Thousand);
    const int count = static_cast<int>(figure.Digits.size());
    if (count > figure.Exponent) {
        AppendCodePoint(text, locale.Decimal);
        for (int i = figure.Exponent; i < count; ++i) {
            text.push_back(DigitAt(figure, i));
        }
    }
}

/// By a section that shows digits; its figure is rounded to its places.
void AppendSection(std::string& text, const TMaskSection& section, const TDecimal& figure,
                   const TNumberLocale& locale) {
    text += section.Before;
    AppendWhole(text, figure, section.Grouped, locale.Thousand);
    if (section.Places > 0) {
        AppendCodePoint(text, locale.Decimal);
        for (int i = 0; i < section.Places; ++i) {
            text.push_back(DigitAt(figure, figure.Exponent + i));
        }
    }
    text += section.After;
}

} // namespace

std::string NumberToText(double value, const TNumberLocale& locale) {
    if (value == 0 || !std::isfinite(value)) {
        return "0";
    }
    std::string text = value < 0 ? "-" : "";
    AppendPlain(text, DecimalOf15(std::fabs(value)), locale);
    return text;
}

std::string NumberToFullText(double value, const TNumberLocale& locale) {
    if (value == 0 || !std::isfinite(value)) {
        return "0";
    }
    std::string text = value < 0 ? "-" : "";
    AppendPlain(text, ShortestDecimal(std::fabs(value)), locale);
    return text;
}

std::string FormatMask(std::string_view mask, double value, const TNumberLocale& locale) {
    const TMask parts = ReadMask(mask);
    const bool negative = value < 0;
    const TMaskSection* section = negative ? &parts.Negative() : &parts.Sections.front();
    TDecimal figure;
    if (value != 0 && std::isfinite(value)) {
        figure = ShortestDecimal(std::fabs(value));
        RoundDecimal(figure, section->Places);
    }
    const bool zero = figure.Digits.find_first_not_of('0') == std::string::npos;
    if (zero) {
        figure = {};
        section = &parts.Zero();
    }
    // A section for what is below zero says by its literals how that shows.
    std::string text = negative && !zero && parts.Count == 1 ? "-" : "";
    if (section->Digits) {
        AppendSection(text, *section, figure, locale);
    } else {
        text += section->Before;
    }
    return text;
}

std::string EditMask(std::string_view mask) {
    std::string result = "0";
    if (const int places = ReadMask(mask).Sections.front().Places; places > 0) {
        result += '.';
        result.append(static_cast<std::size_t>(places), '0');
    }
    return result;
}

} // namespace vip
