// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipDate.h"

#include "common/vipErrors.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>

namespace vip {

namespace {

using namespace std::chrono;

constexpr sys_days Epoch = year{1899} / December / 30;
constexpr std::array<const char*, 12> MonthNames = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                    "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

/// Days that the calendar type can count, both ways; a date beyond them could not have come from a file.
constexpr double MaximumDays = 11'000'000;

year_month_day Decode(double date) {
    const double whole = std::isfinite(date) ? std::clamp(std::trunc(date), -MaximumDays, MaximumDays) : 0;
    return year_month_day{Epoch + days{static_cast<int>(whole)}};
}

double Encode(const year_month_day& date) {
    return static_cast<double>((sys_days{date} - Epoch).count());
}

bool MatchesPattern(std::string_view text, std::string_view pattern) {
    return text.size() == pattern.size() &&
           std::ranges::equal(text, pattern, [](char c, char p) { return p == 'd' ? c >= '0' && c <= '9' : c == p; });
}

int Digits(std::string_view text, std::size_t from, std::size_t count) {
    int value = 0;
    for (const char c : text.substr(from, count)) {
        value = value * 10 + (c - '0');
    }
    return value;
}

/// A valid day of the years 1 to 9999, or not ok().
year_month_day Compose(int y, int m, int d) {
    const year_month_day date{year{y}, month{static_cast<unsigned>(m)}, day{static_cast<unsigned>(d)}};
    return y >= 1 && y <= 9999 ? date : year_month_day{year{1}, month{0}, day{0}};
}

} // namespace

double EncodeDate(int y, int m, int d) {
    const year_month_day date = Compose(y, m, d);
    if (!date.ok()) {
        throw EConvertError("there is no such date");
    }
    return Encode(date);
}

double IncMonth(double date, int n) {
    const year_month_day from = Decode(date);
    const year_month target = year_month{from.year(), from.month()} + months{n};
    const day last = year_month_day_last{target.year(), month_day_last{target.month()}}.day();
    return Encode(target / std::min(from.day(), last));
}

std::string DateToFile(double date) {
    if (std::trunc(date) == 0) {
        return {};
    }
    const year_month_day d = Decode(date);
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02u", static_cast<int>(d.year()),
                  static_cast<unsigned>(d.month()), static_cast<unsigned>(d.day()));
    return text.data();
}

double DateFromFile(std::string_view text) {
    if (MatchesPattern(text, "dd/dd/dddd")) {
        const year_month_day date = Compose(Digits(text, 6, 4), Digits(text, 3, 2), Digits(text, 0, 2));
        return date.ok() ? Encode(date) : 0;
    }
    if (MatchesPattern(text, "dddd-dd-dd")) {
        return EncodeDate(Digits(text, 0, 4), Digits(text, 5, 2), Digits(text, 8, 2));
    }
    return 0;
}

std::string MonthYearText(double date) {
    const year_month_day d = Decode(date);
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%s-%04d", MonthNames.at(static_cast<unsigned>(d.month()) - 1),
                  static_cast<int>(d.year()));
    return text.data();
}

std::string DayMonthYearText(double date) {
    const year_month_day d = Decode(date);
    return std::to_string(static_cast<unsigned>(d.day())) + ' ' + MonthNames.at(static_cast<unsigned>(d.month()) - 1) +
           ' ' + std::to_string(static_cast<int>(d.year()));
}

} // namespace vip
