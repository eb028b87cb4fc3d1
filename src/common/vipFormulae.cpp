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

}  // namespace

double Pow(double base, double exponent) noexcept {
    return static_cast<double>(std::pow(static_cast<long double>(base), static_cast<long double>(exponent)));
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
    return static_cast<double>(std::pow(static_cast<long double>(rate) / m + 1.0L, static_cast<long double>(m)) - 1.0L);
}

double YPAdvance(bool convert, int m, double rate, double years) noexcept {
    if (rate == 0) {
        return 0;
    }
    const long double r = convert ? EffectiveRate(m, rate) : rate;
    const long double paid = 1.0L - std::pow(1.0L + r, -static_cast<long double>(years));
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

}  // namespace vip
