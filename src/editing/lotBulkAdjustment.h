// SPDX-License-Identifier: GPL-3.0-or-later
//
// Raising or lowering a rate of many units at once.
#pragma once

#include "model/lotProject.h"

#include <cstdint>
#include <string>

enum class TlotBulkColumn : std::uint8_t { BuildRate, DisposalRate };
enum class TlotBulkKind : std::uint8_t { Amount, Percentage };

struct TlotBulkAdjustment {
    std::string UnitType = {}; ///< The units of that very type; empty: all units.
    TlotBulkColumn Column = TlotBulkColumn::BuildRate;
    TlotBulkKind Kind = TlotBulkKind::Amount;
    double Value = 0; ///< Money, or percent.
};

/// The rate one step up or down, worked out in ten-thousandths. A percentage down divides where one up multiplies, so
/// that the one undoes the other.
[[nodiscard]] double AdjustedRate(double rate, const TlotBulkAdjustment& adjustment, bool up);

/// Adjusts the units' rates; false where there is nothing to do. Throws ERangeError at a unit without an area whose
/// disposal rate is asked for; the units before it stay adjusted then. Nothing is recalculated.
bool Adjust(TlotProject& project, const TlotBulkAdjustment& adjustment, bool up);
