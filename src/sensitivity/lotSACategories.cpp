// SPDX-License-Identifier: GPL-3.0-or-later
#include "sensitivity/lotSACategories.h"

#include <algorithm>

void TlotSAUnitFigureCategory::Save() {
    for (const auto& unit : Project().Units) {
        ((*unit).*FFigure).Save();
    }
}

void TlotSAUnitFigureCategory::Restore() {
    for (const auto& unit : Project().Units) {
        ((*unit).*FFigure).Restore();
    }
}

std::string TlotSAUnitFigureCategory::ItemValue(int item, const TNumberLocale& locale) const {
    return vip::FormatMask(FMask, (Project().Units[item].*FFigure).Value, locale);
}

void TlotSAERVRateCategory::Apply(int item, const vip::TSAStep& step) {
    TlotUnit& unit = Project().Units[item];
    if (unit.Areas.Count() == 0) {
        return;
    }
    const TlotArea* const zoneA = unit.Areas.ZoneA();
    for (const auto& area : unit.Areas) {
        if (!unit.Areas.Zoning() || area.get() == zoneA) {
            area->RateObject().Apply(step);
            area->SetRate(area->Rate());
        }
    }
    unit.CalculateValue(&Project().Adjust);
    unit.CalculateSale(Project().Leasehold, Project().RentalValues, Project().LeaseTerm);
}

void TlotSAERVRateCategory::Save() {
    FValues.clear();
    for (const auto& unit : Project().Units) {
        std::vector<double>& values = FValues.emplace_back();
        for (const auto& area : unit->Areas) {
            area->RateObject().Save();
            values.push_back(area->Value());
        }
    }
}

void TlotSAERVRateCategory::Restore() {
    for (std::size_t u = 0; u < FValues.size(); ++u) {
        TlotAreaSchedule& areas = Project().Units[static_cast<int>(u)].Areas;
        // Locked, since each figure goes back as it was and none is to follow another.
        areas.Lock();
        for (std::size_t a = 0; a < FValues[u].size(); ++a) {
            TlotArea& area = areas[static_cast<int>(a)];
            area.RateObject().Restore();
            area.SetValue(FValues[u][a]);
        }
        areas.Unlock();
    }
}

std::string TlotSAERVRateCategory::ItemValue(int item, const TNumberLocale& locale) const {
    const TlotAreaSchedule& areas = Project().Units[item].Areas;
    return areas.Count() == 0 ? "N/A" : vip::FormatMask("0.00", areas[0].Rate(), locale);
}

void TlotSAInterestRateCategory::Apply(int item, const vip::TSAStep& step) {
    if (item == 0) {
        FProject.Equity.ApplySensitivity(step);
    } else {
        FProject.Funding.Loans[item - 1].ApplySensitivity(step);
    }
}

void TlotSAInterestRateCategory::Save() {
    FProject.Equity.SaveRates();
    for (const auto& loan : FProject.Funding.Loans) {
        loan->SaveRates();
    }
}

void TlotSAInterestRateCategory::Restore() {
    FProject.Equity.RestoreRates();
    for (const auto& loan : FProject.Funding.Loans) {
        loan->RestoreRates();
    }
}

std::string TlotSAInterestRateCategory::ItemName(int item) const {
    return item == 0 ? "Equity" : FProject.Funding.Loans[item - 1].Name;
}

std::string TlotSAInterestRateCategory::ItemValue(int item, const TNumberLocale& locale) const {
    const double rate =
        item == 0 ? FProject.Equity.InterestRate.Value : FProject.Funding.Loans[item - 1].InterestRate.Value;
    const bool variable = item == 0 ? FProject.Equity.VariableRate : FProject.Funding.Loans[item - 1].VariableRate;
    return vip::FormatMask("0.000%", rate, locale) + (variable ? " variable" : "");
}

void TlotSACostCategory::Apply(int item, const vip::TSAStep& step) {
    TlotItem& cost = Item(item);
    vip::TSAStep own = step;
    own.Percentage = !cost.Percentage;
    cost.Amount.Apply(own);
}

void TlotSACostCategory::Prepare() {
    FItems.clear();
    TlotProjectItemIterator items = FProject.NewItemIterator();
    for (items.First(); !items.IsDone(); items.Next()) {
        if (items.CurrentItem().Amount.Value != 0) {
            FItems.push_back(&items.CurrentItem());
        }
    }
}

void TlotSACostCategory::Save() {
    for (TlotItem* const item : FItems) {
        item->Amount.Save();
    }
}

void TlotSACostCategory::Restore() {
    for (TlotItem* const item : FItems) {
        item->Amount.Restore();
    }
}

std::string TlotSACostCategory::ItemValue(int item, const TNumberLocale& locale) const {
    return vip::FormatMask(Item(item).Percentage ? "0.000%" : ",0", Item(item).Amount.Value, locale);
}

void TlotSASiteValueCategory::Apply(int /*item*/, const vip::TSAStep& step) {
    FSiteValue.Apply(step);
    FProject.BaseValues.SiteValue.Amount = FSiteValue.Value;
}

void TlotSASiteValueCategory::Save() {
    FSiteValue.Value = FProject.BaseValues.SiteValue.Amount;
    FSiteValue.Save();
}

void TlotSASiteValueCategory::Restore() {
    FProject.BaseValues.SiteValue.Amount = FSiteValue.Stored;
}

std::string TlotSASiteValueCategory::ItemValue(int /*item*/, const TNumberLocale& locale) const {
    return vip::FormatMask(",0", FProject.BaseValues.SiteValue.Amount, locale);
}

void TlotSAProfitOnCostCategory::Apply(int /*item*/, const vip::TSAStep& step) {
    constexpr double fixedRange = 1'000'000'000;
    constexpr auto scope = TlotPassScope::FromClearing;
    const double target = step.ValueAt(FProfitOnCost);
    const double answer = FSearch == TSearch::AsProject
                              ? FProject.SolveSiteValue("PROFITONCOST", target, scope)
                              : FProject.SolveSiteValueWithin("PROFITONCOST", target, fixedRange, scope);
    FProject.BaseValues.SiteValue.Amount = answer;
    if (answer == 0) {
        FProject.CalculateFromClearing();
    }
}

void TlotSAProfitOnCostCategory::Save() {
    const TNumberLocale plain;
    FProfitOnCost = vip::StrToNumber(vip::FormatMask("0.000", FProject.BaseValues.ProfitOnCost, plain), plain);
    FSiteValue = FProject.BaseValues.SiteValue.Amount;
}

void TlotSAProfitOnCostCategory::Restore() {
    FProject.BaseValues.SiteValue.Amount = FSiteValue;
}

std::string TlotSAProfitOnCostCategory::ItemValue(int /*item*/, const TNumberLocale& locale) const {
    return vip::FormatMask("0.000%", FProject.BaseValues.ProfitOnCost, locale);
}
