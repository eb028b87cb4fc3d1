// SPDX-License-Identifier: GPL-3.0-or-later
//
// Dates and months. A date is whole days since 30 December 1899, as a double; 0 stands for no date. The model counts
// months from the project's start and holds no other date.
#pragma once

#include <string>
#include <string_view>

namespace vip {

/// Day, month and year as a date. Throws EConvertError if there is no such day in the years 1 to 9999.
[[nodiscard]] double EncodeDate(int year, int month, int day);

/// The same day `n` months on (or back), or the last day of that month if it is shorter.
[[nodiscard]] double IncMonth(double date, int n);

/// "yyyy-mm-dd"; empty if the whole-day part is 0.
[[nodiscard]] std::string DateToFile(double date);

/// "dd/mm/yyyy", where an impossible date gives 0, or "yyyy-mm-dd", where it throws EConvertError; the whole text must
/// be the date, and any other text gives 0.
[[nodiscard]] double DateFromFile(std::string_view text);

/// "mmm-yyyy", the header of a month column, in English.
[[nodiscard]] std::string MonthYearText(double date);

/// "d mmm yyyy", in English.
[[nodiscard]] std::string DayMonthYearText(double date);

} // namespace vip
