// SPDX-License-Identifier: GPL-3.0-or-later
//
// One rate of inflation for the whole project, acting on the finished monthly rows of up to five families of values.
// Totals stay as they are: inflation shows in the cashflow, not in the appraisal.
#pragma once

#include "common/lotFields.h"
#include "common/vipRates.h"
#include "engine/lotCashflow.h"

#include <bitset>
#include <cstdint>

enum class TlotInflationTarget : std::uint8_t {
    SiteValue = 0,
    BuildCosts = 1,
    CommercialSales = 2,
    ResidentialSales = 3,
    NonCapitalisedSales = 4,
};

inline constexpr std::size_t InflationTargetCount = 5;

struct TlotInflationTerms {
    std::bitset<InflationTargetCount> Targets; ///< By the number of TlotInflationTarget.
    double Rate = 0;                           ///< Percent a year.

    [[nodiscard]] bool Has(TlotInflationTarget target) const { return Targets.test(static_cast<std::size_t>(target)); }
    void Set(TlotInflationTarget target, bool on) { Targets.set(static_cast<std::size_t>(target), on); }

    template <class Visitor> static void VisitFields(Visitor&& visit) {
        visit(TlotFieldInfo{"Rate"}, &TlotInflationTerms::Rate);
    }
    /// The targets by their names in files.
    template <class Visitor> static void VisitTargets(Visitor&& visit) {
        visit("SiteValue", TlotInflationTarget::SiteValue);
        visit("BuildCosts", TlotInflationTarget::BuildCosts);
        visit("CommercialSales", TlotInflationTarget::CommercialSales);
        visit("ResidentialSales", TlotInflationTarget::ResidentialSales);
        visit("NonCapitalisedSales", TlotInflationTarget::NonCapitalisedSales);
    }

    friend bool operator==(const TlotInflationTerms&, const TlotInflationTerms&) = default;
};

class TlotInflation : public TlotInflationTerms {
public:
    /// Inflates the months of `item` at Rate. Makes each month's factor once for all items.
    void Inflate(TlotCashflowItem& item) { item.MultiplyMonths(FGrowth.Months(Rate, item.Count())); }

private:
    vip::TGrowthFactors FGrowth;
};
