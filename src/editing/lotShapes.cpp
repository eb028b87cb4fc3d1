// SPDX-License-Identifier: GPL-3.0-or-later
#include "editing/lotShapes.h"

#include "persistence/lotLimits.h"

#include <algorithm>
#include <numeric>

namespace {

double Weight(TlotShape shape, int month, int months, double retention) {
    const int half = months / 2;
    const int rising = month + 1;
    const int falling = months - month;
    switch (shape) {
    case TlotShape::SCurve: return month < half ? rising : falling;
    case TlotShape::InverseSCurve: return month < half ? falling : rising;
    case TlotShape::Increasing: return rising;
    case TlotShape::Decreasing: return falling;
    case TlotShape::Constant: return 1;
    case TlotShape::Retention: return month == months - 1 ? retention : (100 - retention) / (months - 1);
    }
    return 0;
}

} // namespace

void BuildShape(TlotShape shape, int months, double retention, std::vector<double>& weights) {
    constexpr int leastOfRetention = 3;
    if (shape == TlotShape::Retention && months < leastOfRetention) {
        return;
    }
    const int count = std::clamp(months, 0, lotLimits::Months);
    weights.resize(static_cast<std::size_t>(count));
    for (int month = 0; month < count; ++month) {
        weights[static_cast<std::size_t>(month)] = Weight(shape, month, count, retention);
    }
}

std::vector<double> Cumulative(std::span<const double> weights) {
    std::vector<double> sums(weights.size());
    std::partial_sum(weights.begin(), weights.end(), sums.begin());
    return sums;
}

void ApplyShape(TlotCashflowItem& line, int start, std::span<const double> weights) {
    line.ResetToLevel();
    line.Start = start;
    const int first = std::max(start, 0); // Where a calculation moves a straight line that starts before it.
    for (std::size_t i = 0; i < weights.size(); ++i) {
        line.SetPortion(first + static_cast<int>(i), weights[i]);
    }
}
