// SPDX-License-Identifier: GPL-3.0-or-later
//
// The blackboard of the calculation: the aggregate lines that the project builds up, the measures, and the evaluator in
// which all of these are known by keyword. A keyword reads the figure where it lies, so it is always current; during
// the sections the profit keywords give the figures of the calculation before.
#pragma once

#include "common/vipEvaluator.h"
#include "engine/lotCashflow.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

/// The figures themselves, which can be copied.
struct TlotBaseFigures {
    TlotCashflowItem SiteValue; ///< Paid for the site: the input, or the residual answer.
    TlotCashflowItem Build;     ///< Build costs of all units.
    TlotCashflowItem GrossCap;  ///< Gross sale value of capitalised units; only its amount is used.
    TlotCashflowItem NetCap;    ///< Sales lines of capitalised units, net of purchaser's costs.
    TlotCashflowItem NonCap;    ///< Sales lines of the other units.
    TlotCashflowItem GrossRent; ///< ERV of capitalised units; only its amount is used.
    TlotCashflowItem NetRent;   ///< The same less ground rent; only its amount is used.
    TlotCashflowItem Section;   ///< The section being calculated, up to the item before the present one.
    TlotCashflowItem Group;     ///< The group of the section calculated last.

    double Profit = 0;       ///< Money: NDV less TDC.
    double ProfitOnCost = 0; ///< Percent, as the next four.
    double ProfitOnGDV = 0;
    double ProfitOnNDV = 0;
    double SiteValueOnGDV = 0;
    double RentalYield = 0;
    std::int32_t RentalCover = 0;   ///< Whole months.
    std::int32_t InterestCover = 0; ///< Whole months.
};

class TlotBaseValues : public TlotBaseFigures {
public:
    TlotBaseValues();

    TEvaluator Evaluator;

    /// The value of an expression over the keywords. Throws EEvaluatorError.
    [[nodiscard]] double Evaluate(std::string_view text) { return Evaluator.Evaluate(text); }

    /// Empties the nine lines and sets their amounts to 0; the measures stay as they are.
    void Clear();

    /// The keywords in the order in which they are known.
    [[nodiscard]] static std::span<const std::string_view> Keywords();
};
