// SPDX-License-Identifier: GPL-3.0-or-later
#include "reporting/lotMoneyFormat.h"

#include "common/vipErrors.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace {

constexpr int MostDecimals = 20;

/// The decimals of "%W.Nm" or "%W.Nn"; nothing for any other text.
std::optional<int> MoneyDecimals(std::string_view format) {
    const std::size_t point = format.find('.');
    if (format.size() < 4 || format.front() != '%' || point == std::string_view::npos ||
        (format.back() != 'm' && format.back() != 'n') ||
        format.substr(1, point - 1).find_first_not_of("0123456789") != std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view digits = format.substr(point + 1, format.size() - point - 2);
    int decimals = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), decimals);
    if (error != std::errc() || end != digits.data() + digits.size()) {
        return std::nullopt;
    }
    return std::clamp(decimals, 0, MostDecimals);
}

std::string MoneyPicture(std::string_view format) {
    const std::optional<int> decimals = MoneyDecimals(format);
    if (!decimals) {
        throw ELotError(std::string(format) + " is no money or number format");
    }
    return *decimals > 0 ? ",0." + std::string(static_cast<std::size_t>(*decimals), '0') : ",0";
}

} // namespace

std::string PictureOf(std::string_view format) {
    return format.starts_with('%') ? MoneyPicture(format) : std::string(format);
}

std::string FormatMoney(std::string_view format, double value, const TNumberLocale& locale) {
    return vip::FormatMask(MoneyPicture(format), value, locale);
}

std::string FormatFigure(std::string_view format, double value, const TNumberLocale& locale) {
    return format.empty() ? vip::NumberToText(value, locale) : vip::FormatMask(PictureOf(format), value, locale);
}

std::string NumberFormat(int decimals) {
    return "%2." + std::to_string(decimals) + "n";
}
