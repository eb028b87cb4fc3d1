// SPDX-License-Identifier: GPL-3.0-or-later
#include "sensitivity/lotSAModel.h"

#include "sensitivity/lotSACategories.h"

#include <array>
#include <initializer_list>
#include <string_view>
#include <utility>

namespace {

/// The names of the categories in the order of their places.
constexpr std::array<std::string_view, 10> ToldOrder = {"ERV",        "ERV Rate",      "Yield",      "Sale Value",
                                                        "Build Rate", "Costs",         "Build Area", "Interest Rate",
                                                        "Site Value", "Profit On Cost"};

void SetLabel(TSACategory& category, std::int32_t decimals, bool thousands) {
    category.Decimals = decimals;
    category.Thousands = thousands;
}

void AddUnitCategories(TSAModel& model, TlotProject& project) {
    auto& list = model.Categories;
    const auto add = [&](const char* name, TlotSAPlace place, TlotSADouble TlotUnit::*figure,
                         const char* mask) -> TSACategory& {
        return list.Add<TlotSAUnitFigureCategory>(name, place, project, figure, mask);
    };
    TSACategory& buildRate = add("Build Rate", TlotSAPlace::BuildRate, &TlotUnit::BuildRate, "0.00");
    SetLabel(buildRate, 2, false);
    buildRate.Step = 5;
    SetLabel(add("Build Area", TlotSAPlace::BuildArea, &TlotUnit::BuildArea, ",0"), 0, true);
    SetLabel(add("Sale Value", TlotSAPlace::SaleValue, &TlotUnit::NetSale, ",0"), 0, true);
    SetLabel(add("ERV", TlotSAPlace::ERV, &TlotUnit::ERV, ",0"), 0, true);
    SetLabel(list.Add<TlotSAERVRateCategory>("ERV Rate", TlotSAPlace::ERVRate, project), 2, false);
    TSACategory& yield = add("Yield", TlotSAPlace::Yield, &TlotUnit::Yield, "0.000%");
    SetLabel(yield, 3, false);
    yield.Modes = TSAModes::Amounts;
    yield.Step = 0.1;
    TSACategory& interest = list.Add<TlotSAInterestRateCategory>("Interest Rate", TlotSAPlace::InterestRate, project);
    SetLabel(interest, 3, false);
    interest.Modes = TSAModes::Amounts;
}

void AddCosts(TSAModel& model, TlotProject& project) {
    TSACategory& costs = model.Categories.Add<TlotSACostCategory>("Costs", TlotSAPlace::Costs, project);
    SetLabel(costs, 3, false);
    costs.Modes = TSAModes::Percentage;
    costs.PercentageStep = true;
}

void AddSiteCategories(TSAModel& model, TlotProject& project, TlotSAProfitOnCostCategory::TSearch search) {
    auto& list = model.Categories;
    SetLabel(list.Add<TlotSASiteValueCategory>("Site Value", TlotSAPlace::SiteValue, project), 0, true);
    TSACategory& profit =
        list.Add<TlotSAProfitOnCostCategory>("Profit On Cost", TlotSAPlace::ProfitOnCost, project, search);
    SetLabel(profit, 3, false);
    profit.Modes = TSAModes::Amounts;
}

void AddResults(TSAModel& model, TSACalc& calc, const TlotProject& project,
                std::initializer_list<TlotMeasure> measures) {
    for (const TlotMeasure measure : measures) {
        const TlotMeasureInfo& info = MeasureInfo(measure);
        // Files know this one by another name than reports.
        const std::string_view name = measure == TlotMeasure::Profit ? "Net Profit" : info.Caption;
        model.Results.Add<TlotSAResultProject>(std::string(name), calc, project, info);
    }
}

void SelectDefaults(TSAModel& model) {
    for (const char* const name : {"Build Rate", "Yield"}) {
        model.SelectedCategories.push_back(&model.Categories[model.Categories.IndexOf(name)]);
    }
    model.SelectedResults.push_back(&model.Results[model.Results.IndexOf("Profit On Cost")]);
}

} // namespace

void TlotSAProjectCalc::Calculate(const TSAAxis& columns, const TSAAxis& rows) {
    const auto apply = [&](TlotSAPlace first, TlotSAPlace last) {
        ApplyPlaces(static_cast<int>(first), static_cast<int>(last), columns, rows);
    };
    FProject.CalculateUnitAreas();
    apply(TlotSAPlace::ERV, TlotSAPlace::Yield);
    FProject.CalculateUnitSales();
    apply(TlotSAPlace::SaleValue, TlotSAPlace::SiteValue);
    FProject.CalculateFromClearing();
    apply(TlotSAPlace::ProfitOnCost, TlotSAPlace::ProfitOnCost);
}

void TlotSAProjectCalc::Start() {
    FState = std::make_unique<TlotProjectState>(FProject);
    FSiteValue = FProject.BaseValues.SiteValue.Amount;
    FProject.Calculate();
    FProfitOnCost = FProject.BaseValues.ProfitOnCost;
}

void TlotSAProjectCalc::Finish() {
    FProject.BaseValues.SiteValue.Amount = FSiteValue;
    const std::unique_ptr<TlotProjectState> state = std::move(FState);
    try {
        FProject.Calculate();
    } catch (...) {
        state->Restore();
        throw;
    }
    // That pass has read some figures that the last scenario left, such as the last group, so what it computed may
    // differ from what stood before the table.
    state->Restore();
}

TlotSAResultProject::TlotSAResultProject(std::string name, TSACalc& calc, const TlotProject& project,
                                         const TlotMeasureInfo& measure)
    : TSAResult(std::move(name), calc, measure.Decimals(), measure.IsPercentage()),
      FProject(project),
      FMeasure(measure) {}

std::string TlotSAResultProject::Text(const TSAAxis& /*columns*/, const TSAAxis& /*rows*/,
                                      const TNumberLocale& locale) const {
    return Format(FMeasure.ScenarioFigure(FProject), locale);
}

TlotSAModelNew::TlotSAModelNew(TlotProject& project, const TNumberLocale& locale) : TSAModel(locale) {
    using enum TlotMeasure;
    Description = "Right-click cells to view reports for each scenario";
    AddUnitCategories(*this, project);
    AddCosts(*this, project);
    AddSiteCategories(*this, project, TlotSAProfitOnCostCategory::TSearch::AsProject);
    CheckOrder(ToldOrder);
    AddResults(*this, Calcs.Add<TlotSAProjectCalc>(project), project,
               {ProfitOnCost, ProfitOnGDV, ProfitOnNDV, RentalYield, Profit, NPV, IRR, SiteValue});
    SelectDefaults(*this);
}

TlotSAModelOld::TlotSAModelOld(TlotProject& project, const TNumberLocale& locale) : TSAModel(locale) {
    using enum TlotMeasure;
    AddUnitCategories(*this, project);
    AddSiteCategories(*this, project, TlotSAProfitOnCostCategory::TSearch::FixedRange);
    CheckOrder(ToldOrder);
    AddResults(*this, Calcs.Add<TlotSAProjectCalc>(project), project,
               {ProfitOnCost, ProfitOnGDV, ProfitOnNDV, RentalYield, Profit, SiteValue});
    SelectDefaults(*this);
}

void TlotSAModelOld::Clear() {
    for (int i = 0; i < Categories.Count(); ++i) {
        Categories[i].ResetIncluded();
    }
}
