// SPDX-License-Identifier: GPL-3.0-or-later
//
// Rates of return and present values of monthly series. Two discounting conventions stand side by side on purpose:
// `DiscountedSum` discounts each month to its own end (month 0 has one month of discount), `PresentValue` leaves month
// 0 undiscounted.
#pragma once

#include <span>
#include <vector>

namespace vip {

inline constexpr int MonthsAYear = 12;

/// Sum of values[i] / (1 + rate)^((i + 1) / periodsPerYear); `rate` is a fraction a year. 0 for a rate of -1 or below.
[[nodiscard]] double DiscountedSum(double rate, int periodsPerYear, std::span<const double> values) noexcept;

/// Sum of values[i] / (1 + rate)^(i / periodsPerYear); `rate` is a fraction a year. 0 for a rate of -1 or below.
[[nodiscard]] double PresentValue(double rate, int periodsPerYear, std::span<const double> values) noexcept;

/// Annual internal rate of return of monthly flows, as a fraction: a bisection of `DiscountedSum` to 0 with 51 steps
/// between 0 and 1000 and a tolerance of 0.5 in money. A rate below 0 is never found; 0 if there is none.
[[nodiscard]] double AnnualIRR(std::span<const double> flows) noexcept;

/// Monthly internal rate of return (a fraction a month, above -1) nearest to `guess`: the r at which the sum of
/// flows[i] / (1 + r)^i changes sign. False if there is none.
[[nodiscard]] bool NearestMonthlyIRR(std::span<const double> flows, double guess, double& rate);

/// What prices grow by: the factor (1 + rate / 100)^(month / 12) of each month, made once for all lines that grow
/// alike.
class TGrowthFactors {
public:
    /// The factors of the first `count` months at `rate` percent a year; valid until the next call. At -100 % or below
    /// all but month 0 are 0.
    [[nodiscard]] std::span<const double> Months(double rate, int count);

private:
    double FRate = 0;
    long double FMonth = 1;
    long double FNext = 1;
    std::vector<double> FFactors;
};

} // namespace vip
