// SPDX-License-Identifier: GPL-3.0-or-later
//
// The valuer's tables as functions: amount of 1, present value of 1, and Years' Purchase. Rates are fractions a year
// (0.07 for 7 %), terms are years and may be fractions. Doubles in and out, extended precision between. A rate of 0
// gives a Years' Purchase of 0, and so does anything that has no finite answer.
#pragma once

namespace vip {

/// Term that stands for perpetuity where rent is paid in advance, in years.
inline constexpr double PerpetuityYears = 999;

/// base ^ exponent.
[[nodiscard]] double Pow(double base, double exponent) noexcept;

/// base ^ exponent for a whole exponent of 0 or above.
[[nodiscard]] long double IntegerPower(long double base, int exponent) noexcept;

/// The discount of one period of several in a year, (1 + rate)^(-1 / periodsPerYear); 0 for a rate of -1 or below. The
/// power function in double precision, then one Newton step in extended: as exact as the extended function in a
/// fraction of its time.
[[nodiscard]] long double PeriodDiscount(double rate, int periodsPerYear) noexcept;

/// What 1 grows to: (1 + rate) ^ years.
[[nodiscard]] double Amount(double rate, double years) noexcept;

/// Present value of 1 received after so many years: 1 / Amount; 0 where that has no finite value.
[[nodiscard]] double PV(double rate, double years) noexcept;

/// base ^ years, with the years capped at 300.
[[nodiscard]] double CappedPow(double years, double base) noexcept;

/// 1 / rate.
[[nodiscard]] double YPPerpetuity(double rate) noexcept;

/// Rent annually in arrears for a term, with an annual sinking fund at the yield: 1 / (i + i / ((1 + i)^n - 1)).
/// Above 500 years the perpetuity.
[[nodiscard]] double YPArrears(double rate, double years) noexcept;

/// The annual rate of a nominal one that is compounded m times a year: (1 + rate / m)^m - 1.
[[nodiscard]] double EffectiveRate(int m, double rate) noexcept;

/// Rent paid m times a year in advance for a term. `convert`: the rate is nominal and is made effective first.
[[nodiscard]] double YPAdvance(bool convert, int m, double rate, double years) noexcept;
[[nodiscard]] double YPAdvancePerpetuity(bool convert, int m, double rate) noexcept;

/// The same with four payments a year.
[[nodiscard]] double YPQuarterlyAdvance(bool convert, double rate, double years) noexcept;
[[nodiscard]] double YPQuarterlyAdvancePerpetuity(bool convert, double rate) noexcept;

} // namespace vip
