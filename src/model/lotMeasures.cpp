// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/lotMeasures.h"

#include "common/vipText.h"

#include <algorithm>
#include <array>

namespace {

using TProject = const TlotProject&;

constexpr std::string_view Money = ",0";
constexpr std::string_view Percent = "0.000%";
constexpr std::string_view WholeMonths;

constexpr std::array Table = {
    TlotMeasureInfo{.Measure = TlotMeasure::Profit,
                    .Keyword = "PROFIT",
                    .Caption = "Profit",
                    .Mask = Money,
                    .Figure = [](TProject p) { return p.BaseValues.Profit; },
                    .Search = TlotMeasureSearch::ByKeyword},
    TlotMeasureInfo{.Measure = TlotMeasure::ProfitOnCost,
                    .Keyword = "PROFITONCOST",
                    .Caption = "Profit On Cost",
                    .FormCaption = "Profit on Cost",
                    .PrintCaption = "Profit on cost",
                    .Mask = Percent,
                    .Figure = [](TProject p) { return p.BaseValues.ProfitOnCost; },
                    .Search = TlotMeasureSearch::ByKeyword,
                    .Target = TlotResidualTarget::ProfitOnCost,
                    .Show = &TlotProject::ShowProfitOnCost},
    TlotMeasureInfo{.Measure = TlotMeasure::ProfitOnGDV,
                    .Keyword = "PROFITONGDV",
                    .Caption = "Profit On GDV",
                    .FormCaption = "Profit on GDV",
                    .PrintCaption = "Profit on GDV",
                    .Mask = Percent,
                    .Figure = [](TProject p) { return p.BaseValues.ProfitOnGDV; },
                    .Search = TlotMeasureSearch::ByKeyword,
                    .Target = TlotResidualTarget::ProfitOnGDV,
                    .Show = &TlotProject::ShowProfitOnGDV},
    TlotMeasureInfo{.Measure = TlotMeasure::ProfitOnNDV,
                    .Keyword = "PROFITONNDV",
                    .Caption = "Profit On NDV",
                    .FormCaption = "Profit on NDV",
                    .PrintCaption = "Profit on NDV",
                    .Mask = Percent,
                    .Figure = [](TProject p) { return p.BaseValues.ProfitOnNDV; },
                    .Search = TlotMeasureSearch::ByKeyword,
                    .Target = TlotResidualTarget::ProfitOnNDV,
                    .Show = &TlotProject::ShowProfitOnNDV},
    TlotMeasureInfo{.Measure = TlotMeasure::SiteValueOnGDV,
                    .Caption = "Site Value on GDV",
                    .PrintCaption = "Site value on GDV",
                    .Mask = Percent,
                    .Figure = [](TProject p) { return p.BaseValues.SiteValueOnGDV; },
                    .Show = &TlotProject::ShowSiteValueOnGDV},
    TlotMeasureInfo{.Measure = TlotMeasure::RentalYield,
                    .Keyword = "RENTALYIELD",
                    .Caption = "Rental Yield",
                    .PrintCaption = "Rental yield",
                    .Mask = Percent,
                    .Figure = [](TProject p) { return p.BaseValues.RentalYield; },
                    .Search = TlotMeasureSearch::ByKeyword,
                    .Target = TlotResidualTarget::RentalYield,
                    .Show = &TlotProject::ShowRentalYield},
    TlotMeasureInfo{.Measure = TlotMeasure::NPV,
                    .Keyword = "NPV",
                    .Caption = "NPV",
                    .Mask = Money,
                    .Figure = [](TProject p) { return p.NPV(); },
                    .ScenarioFigure = [](TProject p) { return p.Equity.NPV; },
                    .Show = &TlotProject::ShowNPV},
    TlotMeasureInfo{.Measure = TlotMeasure::IRR,
                    .Keyword = "IRR",
                    .Caption = "IRR",
                    .Mask = Percent,
                    .Figure = [](TProject p) { return p.IRR(); },
                    .ScenarioFigure = [](TProject p) { return p.Equity.IRR; },
                    .Search = TlotMeasureSearch::EquityIRR,
                    .Show = &TlotProject::ShowIRR},
    TlotMeasureInfo{.Measure = TlotMeasure::RentalCover,
                    .Caption = "Rental Cover",
                    .PrintCaption = "Rental cover",
                    .Mask = WholeMonths,
                    .Figure = [](TProject p) { return static_cast<double>(p.BaseValues.RentalCover); },
                    .Show = &TlotProject::ShowRentalCover},
    TlotMeasureInfo{.Measure = TlotMeasure::InterestCover,
                    .Caption = "Interest Cover",
                    .PrintCaption = "Interest cover",
                    .Mask = WholeMonths,
                    .Figure = [](TProject p) { return static_cast<double>(p.BaseValues.InterestCover); },
                    .Show = &TlotProject::ShowInterestCover},
    TlotMeasureInfo{.Measure = TlotMeasure::SiteValue,
                    .Keyword = "SITEVALUE",
                    .Caption = "Site Value",
                    .PrintCaption = "Site value",
                    .Mask = Money,
                    .Figure = [](TProject p) { return p.BaseValues.SiteValue.Amount; }},
    TlotMeasureInfo{.Measure = TlotMeasure::GDV,
                    .Keyword = "GDV",
                    .Caption = "Gross development value",
                    .Mask = Money,
                    .Figure = [](TProject p) { return p.GDV; }},
    TlotMeasureInfo{.Measure = TlotMeasure::NDV,
                    .Keyword = "NDV",
                    .Caption = "Net development value",
                    .Mask = Money,
                    .Figure = [](TProject p) { return p.NDV; }},
    TlotMeasureInfo{.Measure = TlotMeasure::TDC,
                    .Keyword = "TDC",
                    .Caption = "Total development cost",
                    .Mask = Money,
                    .Figure = [](TProject p) { return p.TDC; }},
    TlotMeasureInfo{.Measure = TlotMeasure::TotalInterest,
                    .Caption = "Interest",
                    .Mask = Money,
                    .Figure = [](TProject p) { return p.TotalInterest; }},
};

constexpr bool InOrder() {
    for (std::size_t i = 0; i < Table.size(); ++i) {
        if (static_cast<std::size_t>(Table.at(i).Measure) != i) {
            return false;
        }
    }
    return true;
}
static_assert(InOrder(), "MeasureInfo takes a row by its measure's number");

constexpr auto TargetTexts = [] {
    std::array<std::string_view, 5> texts = {"(No Target)"};
    for (const TlotMeasureInfo& measure : Table) {
        if (measure.Target != TlotResidualTarget::NoTarget) {
            texts.at(static_cast<std::size_t>(measure.Target)) = measure.Caption;
        }
    }
    return texts;
}();

} // namespace

std::int32_t TlotMeasureInfo::Decimals() const noexcept {
    const std::size_t point = Mask.find('.');
    return point == std::string_view::npos ? 0 : static_cast<std::int32_t>(std::ranges::count(Mask.substr(point), '0'));
}

std::span<const TlotMeasureInfo> Measures() noexcept {
    return Table;
}

const TlotMeasureInfo& MeasureInfo(TlotMeasure measure) noexcept {
    return Table[static_cast<std::size_t>(measure)];
}

const TlotMeasureInfo* FindMeasure(std::string_view keyword) noexcept {
    const auto found = std::ranges::find_if(Table, [&](const TlotMeasureInfo& measure) {
        return !measure.Keyword.empty() && vip::SameText(measure.Keyword, keyword);
    });
    return found == Table.end() ? nullptr : &*found;
}

const TlotMeasureInfo* MeasureOf(TlotResidualTarget target) noexcept {
    const auto found = std::ranges::find(Table, target, &TlotMeasureInfo::Target);
    return target == TlotResidualTarget::NoTarget || found == Table.end() ? nullptr : &*found;
}

std::string_view ResidualKeyword(TlotResidualTarget target) noexcept {
    const TlotMeasureInfo* const measure = MeasureOf(target);
    return measure == nullptr ? std::string_view() : measure->Keyword;
}

std::span<const std::string_view> ResidualTargetTexts() noexcept {
    return TargetTexts;
}
