// SPDX-License-Identifier: GPL-3.0-or-later
//
// The measures of the project: all of them in one row, and those that the project shows, as printed lines.
#include "model/lotMeasures.h"
#include "reporting/lotTableFillers.h"

#include <array>
#include <utility>

namespace {

std::string CoverText(std::int32_t months) {
    return std::to_string(months / 12) + " years " + std::to_string(months % 12) + " months";
}

std::string Text(const TlotReportSource& source, const TlotMeasureInfo& measure) {
    const double figure = measure.Figure(source.Project);
    return measure.IsCover() ? CoverText(static_cast<std::int32_t>(figure)) : source.Picture(measure.Mask, figure);
}

/// The figures of SummaryData that are measures; GDV stays empty: a report asks for it as a variable.
constexpr std::array<std::pair<const char*, TlotMeasure>, 14> SummaryFigures = {{
    {"Profit", TlotMeasure::Profit},
    {"ProfitOnCost", TlotMeasure::ProfitOnCost},
    {"ProfitOnGDV", TlotMeasure::ProfitOnGDV},
    {"ProfitOnNDV", TlotMeasure::ProfitOnNDV},
    {"SiteValueOnGDV", TlotMeasure::SiteValueOnGDV},
    {"IRR", TlotMeasure::IRR},
    {"TDC", TlotMeasure::TDC},
    {"SV", TlotMeasure::SiteValue},
    {"SiteValue", TlotMeasure::SiteValue},
    {"RY", TlotMeasure::RentalYield},
    {"NDV", TlotMeasure::NDV},
    {"SaleValue", TlotMeasure::NDV},
    {"NPV", TlotMeasure::NPV},
    {"TotalInterest", TlotMeasure::TotalInterest},
}};

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
    table.Append();
    for (const auto& [field, measure] : SummaryFigures) {
        table.Set(field, MeasureInfo(measure).Figure(project));
    }
    table.Set("RentalCover", Text(source, MeasureInfo(TlotMeasure::RentalCover)))
        .Set("InterestCover", Text(source, MeasureInfo(TlotMeasure::InterestCover)))
        .Set("Notes", project.Notes)
        .Set("SiteCosts", project.GroupValue(project.SiteGroup))
        .Set("ConstructionCosts", project.GroupValue(project.ConstructionGroup) + source.BuildCost())
        .Set("SalesCosts", project.GroupValue("Sales Costs"));
    SetDebtAndEquity(table, project);
}

void FillDynamicSummaryData(TlotTable& table, const TlotReportSource& source) {
    const TlotProject& project = source.Project;
    if (project.BaseValues.Profit == 0) {
        return;
    }
    for (const TlotMeasureInfo& measure : Measures()) {
        if (measure.Show != nullptr && project.*measure.Show) {
            table.Append().Set("Description", std::string(measure.Caption)).Set("Value", Text(source, measure));
        }
    }
}
