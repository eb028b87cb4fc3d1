// SPDX-License-Identifier: GPL-3.0-or-later
//
// The measures of the project: all of them in one row, and those that the project shows, as printed lines.
#include "reporting/lotTableFillers.h"

namespace {

std::string CoverText(std::int32_t months) {
    return std::to_string(months / 12) + " years " + std::to_string(months % 12) + " months";
}

void SetDebtAndEquity(TlotTable& table, const TlotProject& project) {
    double debt = 0;
    for (const auto& loan : project.Funding.Loans) {
        debt += loan->TotalBorrowed;
    }
    const double equity = project.Equity.TotalCash;
    const double all = debt + equity;
    table.Set("Debt", debt).Set("Equity", equity);
    if (all != 0) {
        table.Set("DebtPerc", debt / all * 100).Set("EquityPerc", equity / all * 100);
    }
}

} // namespace

void FillSummaryData(TlotTable& table, const TlotReportSource& source) {
    const TlotProject& project = source.Project;
    if (project.TDC == 0) {
        return;
    }
    // GDV stays empty: a report asks for it as a variable.
    const TlotBaseValues& measures = project.BaseValues;
    table.Append()
        .Set("Profit", measures.Profit)
        .Set("ProfitOnCost", measures.ProfitOnCost)
        .Set("ProfitOnGDV", measures.ProfitOnGDV)
        .Set("ProfitOnNDV", measures.ProfitOnNDV)
        .Set("SiteValueOnGDV", measures.SiteValueOnGDV)
        .Set("IRR", project.IRR())
        .Set("TDC", project.TDC)
        .Set("SV", source.SiteValue())
        .Set("RY", measures.RentalYield)
        .Set("NDV", project.NDV)
        .Set("NPV", project.NPV())
        .Set("RentalCover", CoverText(measures.RentalCover))
        .Set("InterestCover", CoverText(measures.InterestCover))
        .Set("Notes", project.Notes)
        .Set("SiteValue", source.SiteValue())
        .Set("SiteCosts", project.GroupValue(project.SiteGroup))
        .Set("ConstructionCosts", project.GroupValue(project.ConstructionGroup) + source.BuildCost())
        .Set("SalesCosts", project.GroupValue("Sales Costs"))
        .Set("SaleValue", project.NDV)
        .Set("TotalInterest", project.TotalInterest);
    SetDebtAndEquity(table, project);
}

void FillDynamicSummaryData(TlotTable& table, const TlotReportSource& source) {
    const TlotProject& project = source.Project;
    const TlotBaseValues& measures = project.BaseValues;
    if (measures.Profit == 0) {
        return;
    }
    const auto add = [&](bool shown, const char* description, std::string value) {
        if (shown) {
            table.Append().Set("Description", description).Set("Value", std::move(value));
        }
    };
    add(project.ShowProfitOnCost, "Profit On Cost", source.Percent(measures.ProfitOnCost));
    add(project.ShowProfitOnGDV, "Profit On GDV", source.Percent(measures.ProfitOnGDV));
    add(project.ShowProfitOnNDV, "Profit On NDV", source.Percent(measures.ProfitOnNDV));
    add(project.ShowSiteValueOnGDV, "Site Value on GDV", source.Percent(measures.SiteValueOnGDV));
    add(project.ShowRentalYield, "Rental Yield", source.Percent(measures.RentalYield));
    add(project.ShowNPV, "NPV", source.Picture(",0", project.NPV()));
    add(project.ShowIRR, "IRR", source.Percent(project.IRR()));
    add(project.ShowRentalCover, "Rental Cover", CoverText(measures.RentalCover));
    add(project.ShowInterestCover, "Interest Cover", CoverText(measures.InterestCover));
}
