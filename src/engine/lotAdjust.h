// SPDX-License-Identifier: GPL-3.0-or-later
//
// Four percentage flexes that lie on top of a project's inputs during a calculation. They aren't stored and start at 0.
#pragma once

#include <array>
#include <string>

struct TlotAdjustField {
    std::string Name;
    double Value = 0; ///< Percent; percentage points for the interest rate.
};

/// The fields in order, not owned.
using TlotAdjustFieldList = std::array<TlotAdjustField*, 4>;

class TlotAdjust {
public:
    TlotAdjust() = default;
    TlotAdjust(const TlotAdjust&) = delete;
    TlotAdjust& operator=(const TlotAdjust&) = delete;

    TlotAdjustField BuildCost{"Build Cost", 0};
    TlotAdjustField Yield{"Yield", 0}; ///< Nothing reads it: scenarios shift each unit's yield itself.
    TlotAdjustField Sales{"Sales", 0};
    TlotAdjustField InterestRate{"Interest Rate", 0};
    const TlotAdjustFieldList Fields{&BuildCost, &Yield, &Sales, &InterestRate};
};
