// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/lotBaseValues.h"

#include "engine/lotLineColours.h"

namespace {

constexpr std::array<std::string_view, 14> KeywordNames = {
    "SITEVALUE", "GROSSRENT", "NETRENT", "NETCAP",       "GROSSCAP",    "NONCAP",      "BUILD",
    "SECTION",   "GROUP",     "PROFIT",  "PROFITONCOST", "PROFITONGDV", "PROFITONNDV", "RENTALYIELD"};

} // namespace

TlotBaseValues::TlotBaseValues() {
    SiteValue.Colour = LineColours::Costs.Index;
    const std::array<const double*, KeywordNames.size()> figures = {
        &SiteValue.Amount, &GrossRent.Amount, &NetRent.Amount, &NetCap.Amount, &GrossCap.Amount,
        &NonCap.Amount,    &Build.Amount,     &Section.Amount, &Group.Amount,  &Profit,
        &ProfitOnCost,     &ProfitOnGDV,      &ProfitOnNDV,    &RentalYield};
    for (std::size_t i = 0; i < KeywordNames.size(); ++i) {
        Evaluator.AddVar(KeywordNames[i], *figures[i]);
    }
}

void TlotBaseValues::Clear() {
    for (TlotCashflowItem* const line :
         {&SiteValue, &Build, &GrossCap, &NetCap, &NonCap, &GrossRent, &NetRent, &Section, &Group}) {
        line->ClearAll();
    }
}

std::span<const std::string_view> TlotBaseValues::Keywords() {
    return KeywordNames;
}
