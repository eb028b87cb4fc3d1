// SPDX-License-Identifier: GPL-3.0-or-later
#include "sensitivity/lotSACategories.h"

#include <string_view>

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
    FKept.clear();
    for (const auto& unit : Project().Units) {
        for (const auto& area : unit->Areas) {
            area->RateObject().Save();
        }
        FKept.push_back({{*unit, unit->Lifetime}, unit->Areas.Terms()});
    }
}

void TlotSAERVRateCategory::Restore() {
    // By the units themselves: the passes of a table may have put them in another order.
    for (const TKept& kept : FKept) {
        if (TlotUnit* const unit = kept.Unit.Get()) {
            unit->Areas.SetTerms(kept.Areas);
        }
    }
}

std::string TlotSAERVRateCategory::ItemValue(int item, const TNumberLocale& locale) const {
    const TlotAreaSchedule& areas = Project().Units[item].Areas;
    return areas.Count() == 0 ? "N/A" : vip::FormatMask("0.00", areas[0].Rate(), locale);
}

void TlotSAInterestRateCategory::Apply(int item, const vip::TSAStep& step) {
    if (item == 0) {
        Project().Equity.ApplySensitivity(step);
    } else {
        Project().Funding.Loans[item - 1].ApplySensitivity(step);
    }
}

void TlotSAInterestRateCategory::Save() {
    Project().Equity.SaveRates();
    for (const auto& loan : Project().Funding.Loans) {
        loan->SaveRates();
    }
}

void TlotSAInterestRateCategory::Restore() {
    Project().Equity.RestoreRates();
    for (const auto& loan : Project().Funding.Loans) {
        loan->RestoreRates();
    }
}

std::string TlotSAInterestRateCategory::ItemName(int item) const {
    return item == 0 ? "Equity" : Project().Funding.Loans[item - 1].Name;
}

std::string TlotSAInterestRateCategory::ItemValue(int item, const TNumberLocale& locale) const {
    const double rate =
        item == 0 ? Project().Equity.InterestRate.Value : Project().Funding.Loans[item - 1].InterestRate.Value;
    const bool variable = item == 0 ? Project().Equity.VariableRate : Project().Funding.Loans[item - 1].VariableRate;
    return vip::FormatMask("0.000%", rate, locale) + (variable ? " variable" : "");
}

void TlotSACostCategory::Apply(int item, const vip::TSAStep& step) {
    if (TlotItem* const cost = Living(item)) {
        vip::TSAStep own = step;
        own.Percentage = !cost->Percentage;
        cost->Amount.Apply(own);
    }
}

void TlotSACostCategory::Prepare() {
    FItems.clear();
    TlotProjectItemIterator items = Project().NewItemIterator();
    for (items.First(); !items.IsDone(); items.Next()) {
        TlotItem& item = items.CurrentItem();
        if (item.Amount.Value != 0) {
            FItems.emplace_back(item, item.Lifetime);
        }
    }
}

void TlotSACostCategory::Save() {
    for (const TlotWatch<TlotItem>& watched : FItems) {
        if (TlotItem* const item = watched.Get()) {
            item->Amount.Save();
        }
    }
}

void TlotSACostCategory::Restore() {
    for (const TlotWatch<TlotItem>& watched : FItems) {
        if (TlotItem* const item = watched.Get()) {
            item->Amount.Restore();
        }
    }
}

std::string TlotSACostCategory::ItemName(int item) const {
    const TlotItem* const cost = Living(item);
    return cost == nullptr ? std::string() : cost->Name;
}

std::string TlotSACostCategory::ItemValue(int item, const TNumberLocale& locale) const {
    const TlotItem* const cost = Living(item);
    return cost == nullptr ? std::string()
                           : vip::FormatMask(cost->Percentage ? "0.000%" : ",0", cost->Amount.Value, locale);
}

void TlotSASiteValueCategory::Apply(int /*item*/, const vip::TSAStep& step) {
    FSiteValue.Apply(step);
    Project().BaseValues.SiteValue.Amount = FSiteValue.Value;
}

void TlotSASiteValueCategory::Save() {
    FSiteValue.Value = Project().BaseValues.SiteValue.Amount;
    FSiteValue.Save();
}

void TlotSASiteValueCategory::Restore() {
    Project().BaseValues.SiteValue.Amount = FSiteValue.Stored;
}

std::string TlotSASiteValueCategory::ItemValue(int /*item*/, const TNumberLocale& locale) const {
    return vip::FormatMask(",0", Project().BaseValues.SiteValue.Amount, locale);
}

void TlotSAProfitOnCostCategory::Apply(int /*item*/, const vip::TSAStep& step) {
    constexpr double fixedRange = 1'000'000'000;
    const std::string_view keyword = MeasureInfo(TlotMeasure::ProfitOnCost).Keyword;
    constexpr auto scope = TlotPassScope::FromClearing;
    const double target = step.ValueAt(FProfitOnCost);
    const double answer = FSearch == TSearch::AsProject
                              ? Project().SolveSiteValue(keyword, target, scope)
                              : Project().SolveSiteValueWithin(keyword, target, fixedRange, scope);
    Project().BaseValues.SiteValue.Amount = answer;
    if (answer == 0) {
        Project().CalculateFromClearing();
    }
}

void TlotSAProfitOnCostCategory::Save() {
    const TNumberLocale plain;
    FProfitOnCost = vip::StrToNumber(vip::FormatMask("0.000", Project().BaseValues.ProfitOnCost, plain), plain);
    FSiteValue = Project().BaseValues.SiteValue.Amount;
}

void TlotSAProfitOnCostCategory::Restore() {
    Project().BaseValues.SiteValue.Amount = FSiteValue;
}

std::string TlotSAProfitOnCostCategory::ItemValue(int /*item*/, const TNumberLocale& locale) const {
    return vip::FormatMask("0.000%", Project().BaseValues.ProfitOnCost, locale);
}
