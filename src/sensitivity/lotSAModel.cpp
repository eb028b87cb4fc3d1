// SPDX-License-Identifier: GPL-3.0-or-later
#include "sensitivity/lotSAModel.h"

#include "sensitivity/lotSACategories.h"

#include <array>

namespace {

constexpr std::array<std::string_view, 3> BeforeCapitalisation = {"ERV", "ERV Rate", "Yield"};
constexpr std::array<std::string_view, 6> BeforeThePass = {"Sale Value", "Build Rate",    "Costs",
                                                           "Build Area", "Interest Rate", "Site Value"};

/// Applies the first of the two axes that has the category of that name.
void ApplyNamed(std::string_view name, const TSAAxis& axis1, const TSAAxis& axis2) {
    if (axis1.Has(name)) {
        axis1.Apply();
    } else if (axis2.Has(name)) {
        axis2.Apply();
    }
}

void SetLabel(TSACategory& category, std::int32_t decimals, bool thousands) {
    category.Decimals = decimals;
    category.Thousands = thousands;
}

void AddUnitCategories(TSAModel& model, TlotProject& project) {
    auto& list = model.Categories;
    const auto add = [&](const char* name, TlotSADouble TlotUnit::*figure, const char* mask) -> TSACategory& {
        return list.Add<TlotSAUnitFigureCategory>(name, project, figure, mask);
    };
    TSACategory& buildRate = add("Build Rate", &TlotUnit::BuildRate, "0.00");
    SetLabel(buildRate, 2, false);
    buildRate.Step = 5;
    SetLabel(add("Build Area", &TlotUnit::BuildArea, ",0"), 0, true);
    SetLabel(add("Sale Value", &TlotUnit::NetSale, ",0"), 0, true);
    SetLabel(add("ERV", &TlotUnit::ERV, ",0"), 0, true);
    SetLabel(list.Add<TlotSAERVRateCategory>("ERV Rate", project), 2, false);
    TSACategory& yield = add("Yield", &TlotUnit::Yield, "0.000%");
    SetLabel(yield, 3, false);
    yield.Modes = TSAModes::Amounts;
    yield.Step = 0.1;
    TSACategory& interest = list.Add<TlotSAInterestRateCategory>("Interest Rate", project);
    SetLabel(interest, 3, false);
    interest.Modes = TSAModes::Amounts;
}

void AddSiteCategories(TSAModel& model, TlotProject& project, TlotSAProfitOnCostCategory::TSearch search) {
    SetLabel(model.Categories.Add<TlotSASiteValueCategory>("Site Value", project), 0, true);
    TSACategory& profit = model.Categories.Add<TlotSAProfitOnCostCategory>("Profit On Cost", project, search);
    SetLabel(profit, 3, false);
    profit.Modes = TSAModes::Amounts;
}

void AddProfitResults(TSAModel& model, TlotProject& project, TSACalc& calc) {
    const TlotBaseValues& b = project.BaseValues;
    const auto percent = [&](const char* name, const double& figure) {
        model.Results.Add<TlotSAResultProject>(name, calc, 3, true, figure);
    };
    percent("Profit On Cost", b.ProfitOnCost);
    percent("Profit On GDV", b.ProfitOnGDV);
    percent("Profit On NDV", b.ProfitOnNDV);
    percent("Rental Yield", b.RentalYield);
    model.Results.Add<TlotSAResultProject>("Net Profit", calc, 0, false, b.Profit);
}

void SelectDefaults(TSAModel& model) {
    for (const char* const name : {"Build Rate", "Yield"}) {
        model.SelectedCategories.push_back(&model.Categories[model.Categories.IndexOf(name)]);
    }
    model.SelectedResults.push_back(&model.Results[model.Results.IndexOf("Profit On Cost")]);
}

} // namespace

void TlotSAProjectCalc::Calculate(const TSAAxis& axis1, const TSAAxis& axis2) {
    FProject.CalculateUnitAreas();
    for (const std::string_view name : BeforeCapitalisation) {
        ApplyNamed(name, axis1, axis2);
    }
    FProject.CalculateUnitSales();
    for (const std::string_view name : BeforeThePass) {
        ApplyNamed(name, axis1, axis2);
    }
    FProject.CalculateFromClearing();
    ApplyNamed("Profit On Cost", axis1, axis2);
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
    // The pass carries figures over from the scenario before it, so that it alone would not give back what stood.
    state->Restore();
}

std::string TlotSAResultProject::Text(const TSAAxis& /*axis1*/, const TSAAxis& /*axis2*/,
                                      const TNumberLocale& locale) const {
    return Format(FFigure, locale);
}

TlotSAModelNew::TlotSAModelNew(TlotProject& project, const TNumberLocale& locale) : TSAModel(locale) {
    Description = "Right-click cells to view reports for each scenario";
    TSACalc& calc = *Calcs.emplace_back(std::make_unique<TlotSAProjectCalc>(project));
    AddUnitCategories(*this, project);
    TSACategory& costs = Categories.Add<TlotSACostCategory>("Costs", project);
    SetLabel(costs, 3, false);
    costs.Modes = TSAModes::Percentage;
    costs.PercentageStep = true;
    AddSiteCategories(*this, project, TlotSAProfitOnCostCategory::TSearch::AsProject);
    AddProfitResults(*this, project, calc);
    Results.Add<TlotSAResultProject>("NPV", calc, 0, false, project.Equity.NPV);
    Results.Add<TlotSAResultProject>("IRR", calc, 3, true, project.Equity.IRR);
    Results.Add<TlotSAResultProject>("Site Value", calc, 0, false, project.BaseValues.SiteValue.Amount);
    SelectDefaults(*this);
}

TlotSAModelOld::TlotSAModelOld(TlotProject& project, const TNumberLocale& locale) : TSAModel(locale) {
    TSACalc& calc = *Calcs.emplace_back(std::make_unique<TlotSAProjectCalc>(project));
    AddUnitCategories(*this, project);
    AddSiteCategories(*this, project, TlotSAProfitOnCostCategory::TSearch::FixedRange);
    AddProfitResults(*this, project, calc);
    Results.Add<TlotSAResultProject>("Site Value", calc, 0, false, project.BaseValues.SiteValue.Amount);
    SelectDefaults(*this);
}

void TlotSAModelOld::Clear() {
    for (int i = 0; i < Categories.Count(); ++i) {
        Categories[i].ResetIncluded();
    }
}
