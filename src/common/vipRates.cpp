// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipRates.h"

#include "common/vipBisect.h"
#include "common/vipFormulae.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <limits>

namespace vip {

namespace {

/// Number of factors that are carried side by side, so that no month waits for the one before it.
constexpr std::size_t Lanes = 8;

/// Sum of values[i] * v^(i + first), added in the order of the months. The powers of the one root are carried by
/// multiplication rather than raised anew each month: each lane starts from extended precision and steps by v^Lanes, so
/// that the months of a century keep 14 digits.
double OrderedSum(long double v, int first, std::span<const double> values) noexcept {
    std::array<double, Lanes> factors{};
    long double power = IntegerPower(v, first);
    for (double& factor : factors) {
        factor = static_cast<double>(power);
        power *= v;
    }
    const auto stride = static_cast<double>(IntegerPower(v, static_cast<int>(Lanes)));
    double sum = 0;
    std::size_t lane = 0;
    for (const double value : values) {
        sum += value * factors[lane];
        factors[lane] *= stride;
        lane = (lane + 1) % Lanes;
    }
    return sum;
}

/// Two lanes as one value, for which both compilers of ours emit vector instructions.
using TPair [[gnu::vector_size(2 * sizeof(double))]] = double;

[[gnu::always_inline]] inline TPair LoadPair(const double* from) noexcept {
    TPair pair;
    std::memcpy(&pair, from, sizeof pair);
    return pair;
}

/// About the sum that `DiscountedSum` gives at 12 periods a year, fast: double precision throughout, each lane added up
/// for itself, and no month whose discount factor is `negligible` or less.
double QuickSum(double rate, std::span<const double> values, double negligible) noexcept {
    const double v = std::pow(1 + rate, -1.0 / MonthsAYear);
    const double v2 = v * v;
    const double v4 = v2 * v2;
    const double stride = v4 * v4;
    TPair f0 = {v, v2};
    TPair f1 = f0 * v2;
    TPair f2 = f0 * v4;
    TPair f3 = f1 * v4;
    TPair s0{};
    TPair s1{};
    TPair s2{};
    TPair s3{};
    const double* month = values.data();
    const double* const end = month + values.size();
    for (; end - month >= static_cast<std::ptrdiff_t>(Lanes) && f0[0] > negligible; month += Lanes) {
        s0 += LoadPair(month) * f0;
        s1 += LoadPair(month + 2) * f1;
        s2 += LoadPair(month + 4) * f2;
        s3 += LoadPair(month + 6) * f3;
        f0 *= stride;
        f1 *= stride;
        f2 *= stride;
        f3 *= stride;
    }
    const TPair pair = (s0 + s1) + (s2 + s3);
    double sum = pair[0] + pair[1];
    double factor = f0[0];
    for (; month < end && factor > negligible; ++month, factor *= v) {
        sum += *month * factor;
    }
    return sum;
}

/// The sum of the flows without their signs, in any order.
double Magnitude(std::span<const double> flows) noexcept {
    std::array<double, Lanes> sums{};
    for (std::size_t i = 0; i < flows.size(); ++i) {
        sums[i % Lanes] += std::fabs(flows[i]);
    }
    double sum = 0;
    for (const double s : sums) {
        sum += s;
    }
    return sum;
}

} // namespace

double DiscountedSum(double rate, int periodsPerYear, std::span<const double> values) noexcept {
    const long double v = PeriodDiscount(rate, periodsPerYear);
    return v > 0 ? OrderedSum(v, 1, values) : 0;
}

double PresentValue(double rate, int periodsPerYear, std::span<const double> values) noexcept {
    const long double v = PeriodDiscount(rate, periodsPerYear);
    return v > 0 ? OrderedSum(v, 0, values) : 0;
}

double AnnualIRR(std::span<const double> flows) noexcept {
    VBisect solver;
    solver.Start(50, 0, 0, 1000);
    // Only a sum within the tolerance of 0 must be added in the order of the months. Further off its sign is all that
    // counts, and the quick sum has the right one: it errs by the months it skips and a few roundings a month, no more.
    const double magnitude = Magnitude(flows);
    const double rounding = 8 * static_cast<double>(flows.size() + Lanes) * std::numeric_limits<double>::epsilon();
    const double left = solver.Tolerance / 10;
    const double near = solver.Tolerance + left + rounding * magnitude;
    const double negligible = left / magnitude;
    double rate = 0;
    while (solver.Running()) {
        rate = solver.Middle();
        const double quick = QuickSum(rate, flows, negligible);
        solver.Step(std::fabs(quick) > near ? quick : DiscountedSum(rate, MonthsAYear, flows));
    }
    return solver.Found() ? rate : 0;
}

std::span<const double> TGrowthFactors::Months(double rate, int count) {
    if (rate != FRate || FFactors.empty()) {
        const double growth = 1 + rate / 100;
        FRate = rate;
        FMonth = growth > 0 ? std::pow(static_cast<long double>(growth), 1.0L / MonthsAYear) : 0.0L;
        FNext = 1;
        FFactors.clear();
    }
    while (FFactors.size() < static_cast<std::size_t>(count)) {
        FFactors.push_back(static_cast<double>(FNext));
        FNext *= FMonth;
    }
    return std::span(FFactors).first(static_cast<std::size_t>(count));
}

} // namespace vip
