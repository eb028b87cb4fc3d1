// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipFormulae.h"

#include <algorithm>
#include <cmath>

namespace vip {

namespace {

double FiniteOrZero(long double value) noexcept {
    const auto result = static_cast<double>(value);
    return std::isfinite(result) ? result : 0;
}

/// Whole years, which most terms are, take a few multiplications; the power function of this precision is slow.
long double ExtendedPower(long double base, double exponent) noexcept {
    constexpr double mostWhole = 1024;
    const double whole = std::fabs(exponent);
    if (!(whole <= mostWhole) || whole != std::trunc(whole)) {
        return std::pow(base, static_cast<long double>(exponent));
    }
    const long double power = IntegerPower(base, static_cast<int>(whole));
    return exponent < 0 ? 1.0L / power : power;
}

} // namespace

long double IntegerPower(long double base, int exponent) noexcept {
    long double result = 1;
    for (; exponent > 0; exponent /= 2) {
        result = exponent % 2 == 1 ? result * base : result;
        base *= base;
    }
    return result;
}

long double PeriodDiscount(double rate, int periodsPerYear) noexcept {
    const double growth = 1 + rate;
    if (!(growth > 0)) {
        return 0;
    }
    const long double v = std::pow(growth, -1.0 / periodsPerYear);
    return v - v * (growth * IntegerPower(v, periodsPerYear) - 1) / periodsPerYear;
}

double Pow(double base, double exponent) noexcept {
    return static_cast<double>(ExtendedPower(base, exponent));
}

double Amount(double rate, double years) noexcept {
    return Pow(1 + rate, years);
}

double PV(double rate, double years) noexcept {
    return FiniteOrZero(1.0L / Amount(rate, years));
}

double CappedPow(double years, double base) noexcept {
    return Pow(base, std::min(years, 300.0));
}

double YPPerpetuity(double rate) noexcept {
    return rate == 0 ? 0 : FiniteOrZero(1.0L / rate);
}

double YPArrears(double rate, double years) noexcept {
    if (years > 500) {
        return YPPerpetuity(rate);
    }
    if (rate == 0) {
        return 0;
    }
    const double a = CappedPow(years, 1 + rate);
    // An overflow answers 0 here rather than the perpetuity that it tends to; valuations rely on it staying so.
    if (a == 1 || !std::isfinite(a)) {
        return 0;
    }
    const long double i = rate;
    return FiniteOrZero(1.0L / (i / (static_cast<long double>(a) - 1.0L) + i));
}

double EffectiveRate(int m, double rate) noexcept {
    return static_cast<double>(IntegerPower(static_cast<long double>(rate) / m + 1.0L, m) - 1.0L);
}

double YPAdvance(bool convert, int m, double rate, double years) noexcept {
    if (rate == 0) {
        return 0;
    }
    const long double r = convert ? EffectiveRate(m, rate) : rate;
    const long double paid = 1.0L - ExtendedPower(1.0L + r, -years);
    const long double period = (1.0L - std::pow(1.0L + r, -1.0L / m)) * m;
    return FiniteOrZero(paid / period);
}

double YPAdvancePerpetuity(bool convert, int m, double rate) noexcept {
    return YPAdvance(convert, m, rate, PerpetuityYears);
}

double YPQuarterlyAdvance(bool convert, double rate, double years) noexcept {
    return YPAdvance(convert, 4, rate, years);
}

double YPQuarterlyAdvancePerpetuity(bool convert, double rate) noexcept {
    return YPAdvancePerpetuity(convert, 4, rate);
}

} // namespace vip
