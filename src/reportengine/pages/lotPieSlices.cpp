// SPDX-License-Identifier: GPL-3.0-or-later
#include "reportengine/pages/lotPieSlices.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <numeric>

namespace {

constexpr std::size_t MostSlices = 9;
constexpr double SmallestShare = 0.01;

constexpr std::array<QRgb, 10> Colours{0xFF0F5E6B, 0xFF5AA9A3, 0xFFE0A458, 0xFF8FB356, 0xFFB5651D,
                                       0xFF7A6C9D, 0xFFC97B84, 0xFF4F8FC0, 0xFFC9B458, 0xFF6B7F8C};

double Sum(std::span<const TChartValue> values) {
    return std::accumulate(values.begin(), values.end(), 0.0,
                           [](double sum, const TChartValue& value) { return sum + value.Value; });
}

} // namespace

QRgb ChartRgb(std::size_t index) {
    return Colours[index % Colours.size()];
}

std::vector<TChartValue> PieSlices(std::span<const TChartValue> values, const QString& other) {
    std::vector<TChartValue> slices;
    std::ranges::copy_if(values, std::back_inserter(slices), [](const TChartValue& value) { return value.Value > 0; });
    const double total = Sum(slices);
    // The largest keep their slices; all stay in their order.
    std::vector<double> sizes;
    std::ranges::transform(slices, std::back_inserter(sizes), [](const TChartValue& value) { return value.Value; });
    std::ranges::sort(sizes, std::ranges::greater());
    const double tooMany = sizes.size() > MostSlices ? sizes[MostSlices - 1] : 0;
    const auto small = [&](const TChartValue& value) {
        return value.Value < total * SmallestShare || value.Value <= tooMany;
    };
    // One that stands alone says more by its own name.
    if (std::ranges::count_if(slices, small) < 2) {
        return slices;
    }
    TChartValue rest{other, 0};
    for (const TChartValue& value : slices) {
        rest.Value += small(value) ? value.Value : 0;
    }
    std::erase_if(slices, small);
    slices.push_back(rest);
    return slices;
}
