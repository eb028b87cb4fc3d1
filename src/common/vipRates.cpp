// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipRates.h"

#include "common/vipBisect.h"

#include <array>
#include <cmath>

namespace vip {

namespace {

/// Number of factors that are carried side by side, so that no month waits for the one before it.
constexpr std::size_t Lanes = 8;

/// Sum of values[i] * v^(i + first). The factors are powers of one root, carried by multiplication rather than raised
/// anew each month: as exact as a call to the power function (each lane starts from extended precision) and many times
/// as fast. The terms are added in the order of the months.
double PowerSum(long double v, int first, std::span<const double> values) noexcept {
    std::array<double, Lanes> factor{};
    long double power = std::pow(v, static_cast<long double>(first));
    for (double& f : factor) {
        f = static_cast<double>(power);
        power *= v;
    }
    const auto stride = static_cast<double>(std::pow(v, static_cast<long double>(Lanes)));
    double sum = 0;
    std::size_t i = 0;
    for (; i + Lanes <= values.size(); i += Lanes) {
        std::array<double, Lanes> term{};
        for (std::size_t k = 0; k < Lanes; ++k) {
            term[k] = values[i + k] * factor[k];
            factor[k] *= stride;
        }
        for (const double t : term) {
            sum += t;
        }
    }
    for (std::size_t k = 0; i < values.size(); ++i, ++k) {
        sum += values[i] * factor[k];
    }
    return sum;
}

/// The discount of one period at `rate` a year; 0 where there is none.
long double PeriodDiscount(double rate, int periodsPerYear) noexcept {
    const double growth = 1 + rate;
    return growth > 0 ? std::pow(static_cast<long double>(growth), -1.0L / periodsPerYear) : 0.0L;
}

}  // namespace

double DiscountedSum(double rate, int periodsPerYear, std::span<const double> values) noexcept {
    const long double v = PeriodDiscount(rate, periodsPerYear);
    return v > 0 ? PowerSum(v, 1, values) : 0;
}

double PresentValue(double rate, int periodsPerYear, std::span<const double> values) noexcept {
    const long double v = PeriodDiscount(rate, periodsPerYear);
    return v > 0 ? PowerSum(v, 0, values) : 0;
}

double AnnualIRR(std::span<const double> flows) noexcept {
    VBisect solver;
    solver.Start(50, 0, 0, 1000);
    double rate = 0;
    while (solver.Running()) {
        rate = solver.Middle();
        solver.Step(DiscountedSum(rate, MonthsAYear, flows));
    }
    return solver.Found() ? rate : 0;
}

void InflateMonths(std::span<double> values, double rate) noexcept {
    const double growth = 1 + rate / 100;
    const long double month = growth > 0 ? std::pow(static_cast<long double>(growth), 1.0L / MonthsAYear) : 0.0L;
    long double factor = 1;
    for (double& value : values) {
        value = value * static_cast<double>(factor);
        factor *= month;
    }
}

}  // namespace vip
