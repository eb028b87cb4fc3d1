// SPDX-License-Identifier: GPL-3.0-or-later
//
// The measures of an appraisal, a row each: by what word a formula or a script asks for it, what it is called, where
// its figure lies, how it is written, and whether a site value can be solved for it. Whatever shows, prints or solves
// measures reads them here.
#pragma once

#include "model/lotProject.h"

#include <cstdint>
#include <span>
#include <string_view>

/// In the order in which reports tell them.
enum class TlotMeasure : std::uint8_t {
    Profit,
    ProfitOnCost,
    ProfitOnGDV,
    ProfitOnNDV,
    SiteValueOnGDV,
    RentalYield,
    NPV,
    IRR,
    RentalCover,
    InterestCover,
    SiteValue,
    GDV,
    NDV,
    TDC,
    TotalInterest,
};

/// How the site value that leaves a measure is searched for.
enum class TlotMeasureSearch : std::uint8_t {
    None,
    ByKeyword, ///< As TlotProject::SolveSiteValue.
    EquityIRR, ///< As TlotProject::SolveEquityIRR: in the first range only.
};

struct TlotMeasureInfo {
    using TFigure = double (*)(const TlotProject& project);

    TlotMeasure Measure = TlotMeasure::Profit;
    std::string_view Keyword = {};           ///< By which formulae, scripts or settings name it; empty without one.
    std::string_view Caption = {};           ///< In reports, tables and lists.
    std::string_view FormCaption = Caption;  ///< Before a figure on the screen, without its colon.
    std::string_view PrintCaption = Caption; ///< In the appraisal that is printed as text.
    std::string_view Mask = {};              ///< Empty for a cover, whose figure is whole months.
    /// Of the project as it was calculated: money, percent or months. NPV and IRR are those shown (NPVIRRSource).
    TFigure Figure = nullptr;
    /// What a search looks at and a scenario tells. NPV and IRR are the equity's, whatever is shown.
    TFigure ScenarioFigure = Figure;
    TlotMeasureSearch Search = TlotMeasureSearch::None;
    TlotResidualTarget Target = TlotResidualTarget::NoTarget; ///< The target that asks for it.
    bool TlotProject::*Show = nullptr;                        ///< The flag that puts it on reports; null without one.

    [[nodiscard]] bool IsCover() const noexcept { return Mask.empty(); }
    [[nodiscard]] bool IsPercentage() const noexcept { return Mask.ends_with('%'); }
    /// That the mask shows.
    [[nodiscard]] std::int32_t Decimals() const noexcept;
};

/// All of them, in the order of TlotMeasure.
[[nodiscard]] std::span<const TlotMeasureInfo> Measures() noexcept;
[[nodiscard]] const TlotMeasureInfo& MeasureInfo(TlotMeasure measure) noexcept;
/// The measure of that keyword without regard to case, or null.
[[nodiscard]] const TlotMeasureInfo* FindMeasure(std::string_view keyword) noexcept;
/// The measure that a target asks for; null for NoTarget and for any number that acts as it.
[[nodiscard]] const TlotMeasureInfo* MeasureOf(TlotResidualTarget target) noexcept;

/// What a choice of residual targets offers, by the number of the target: "(No Target)", then captions.
[[nodiscard]] std::span<const std::string_view> ResidualTargetTexts() noexcept;

/// What a search for a site value came to.
struct TlotSolution {
    double SiteValue = 0; ///< 0 where nothing was found.
    bool Found = false;   ///< Tells a site value of 0 from none.
};

/// Searches for the site value that leaves the measure at `target` (money or percent), and leaves the project as the
/// search named in the table does. Throws ELotError for a measure without a search.
TlotSolution SolveFor(TlotProject& project, TlotMeasure measure, double target);
