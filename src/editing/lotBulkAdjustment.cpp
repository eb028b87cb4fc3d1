// SPDX-License-Identifier: GPL-3.0-or-later
#include "editing/lotBulkAdjustment.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace {

constexpr double Parts = 10'000;

/// A whole number of ten-thousandths, halves to even, within 64 bits.
std::int64_t Rounded(double parts) {
    constexpr double most = 9.2e18;
    return std::isnan(parts) ? 0 : static_cast<std::int64_t>(std::nearbyint(std::clamp(parts, -most, most)));
}

} // namespace

double AdjustedRate(double rate, const TlotBulkAdjustment& adjustment, bool up) {
    const auto parts = static_cast<double>(Rounded(rate * Parts));
    double adjusted = 0;
    if (adjustment.Kind == TlotBulkKind::Percentage) {
        const double factor = 1 + adjustment.Value / 100;
        adjusted = up ? parts * factor : (factor == 0 ? 0 : parts / factor);
    } else {
        const double step = adjustment.Value * Parts;
        adjusted = up ? parts + step : parts - step;
    }
    return static_cast<double>(Rounded(adjusted)) / Parts;
}

bool Adjust(TlotProject& project, const TlotBulkAdjustment& adjustment, bool up) {
    if (adjustment.Value == 0) {
        return false;
    }
    for (const auto& unit : project.Units) {
        if (!adjustment.UnitType.empty() && unit->UnitType != adjustment.UnitType) {
            continue;
        }
        if (adjustment.Column == TlotBulkColumn::BuildRate) {
            unit->BuildRate.Value = AdjustedRate(unit->BuildRate.Value, adjustment, up);
        } else {
            TlotArea& area = unit->Areas[0];
            area.SetRate(AdjustedRate(area.Rate(), adjustment, up));
        }
    }
    return true;
}
