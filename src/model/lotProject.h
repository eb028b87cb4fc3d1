// SPDX-License-Identifier: GPL-3.0-or-later
//
// The project: one development appraisal, the root of the model. It owns every list of inputs and every calculated
// store, and holds the one calculation. There is one of it in a process, refilled by New and Open and never replaced.
//
// Money is one unnamed currency; percentages are percent figures (17.5 means 17.5 %); months count from 0, the month of
// StartDate. Measures are valid after Calculate.
#pragma once

#include "engine/lotAdjust.h"
#include "engine/lotBaseValues.h"
#include "engine/lotCashflow.h"
#include "finance/lotEquity.h"
#include "finance/lotFinance.h"
#include "finance/lotFunding.h"
#include "finance/lotInflation.h"
#include "finance/lotVars.h"
#include "model/lotGroup.h"
#include "model/lotItem.h"
#include "model/lotUnit.h"

#include <cstdint>
#include <string>
#include <string_view>

/// Where the NPV and IRR that are shown come from; any other number acts as Equity.
enum class TlotNPVIRRSource : std::uint8_t { Equity = 0, Project = 1 };

enum class TlotSiteAreaUnits : std::uint8_t { Acres = 0, Hectares = 1 };

/// The measure that a residual site value is solved for; any other number acts as NoTarget.
enum class TlotResidualTarget : std::uint8_t {
    NoTarget = 0,
    ProfitOnCost = 1,
    ProfitOnGDV = 2,
    ProfitOnNDV = 3,
    RentalYield = 4,
};

/// The keyword of a target's measure; empty for NoTarget.
[[nodiscard]] std::string_view ResidualKeyword(TlotResidualTarget target) noexcept;

/// How much of the pass the trials of a search run.
enum class TlotPassScope : std::uint8_t {
    Full,
    FromClearing, ///< Without the units' two stages, which would undo what a scenario shifted in them.
};

class TlotProject {
public:
    /// `today`: a date (vipDate), the project's first StartDate.
    explicit TlotProject(double today);
    TlotProject(const TlotProject&) = delete;
    TlotProject& operator=(const TlotProject&) = delete;

    TlotUnitTypeList UnitTypes;
    TlotUnitList Units;
    TlotGroupList Groups; ///< Calculated from the names that sections give.
    TlotSectionList Sections;
    TlotFinance Finance;
    TlotFunding Funding;
    TlotInflation Inflation;
    TlotCashflow Cashflow; ///< Calculated.
    TlotEquity Equity;
    TlotBaseValues BaseValues;
    TlotAdjust Adjust; ///< Not stored.
    TlotVars Vars;     ///< Calculated.

    std::string Address;
    std::string PictureFileName;
    TlotNPVIRRSource NPVIRRSource = TlotNPVIRRSource::Equity;
    double MinSiteValue = -10'000'000; ///< Edited and stored; no search reads it.
    double MaxSiteValue = 1'000'000'000;
    bool CalcNegativeSiteValue = false;
    std::string CostGroupPageBreak = "Sales Costs";
    std::string AppraisalReportFile = "AppraisalGrouped";
    bool HideRatio = false;
    std::string RatioBase = "GDV";
    std::int32_t UnitAreaDecPlaces = 0;
    std::int32_t PercentageCostDecPlaces = 0;
    bool ShowProfitOnCost = false;
    bool ShowProfitOnGDV = false;
    bool ShowProfitOnNDV = false;
    bool ShowSiteValueOnGDV = false;
    bool ShowRentalYield = false;
    bool ShowNPV = false;
    bool ShowIRR = false;
    bool ShowRentalCover = false;
    bool ShowInterestCover = false;
    bool IncludeExtraLoanDetail = false;
    std::string AppraisalTitle = "Development Appraisal";
    std::string ResidualTitle = "Residual Valuation";
    std::string Name;
    std::string Recipient;
    std::string Notes; ///< Lines end in CR LF, here and in the other texts of many lines.
    TlotRentalValues RentalValues = TlotRentalValues::Annual;
    std::string AppraisalNotes;
    double StartDate = 0;
    std::string SiteGroup;
    std::string ConstructionGroup;
    double TotalRent = 0;       ///< Calculated: ERV of the capitalised units.
    double TotalGroundRent = 0; ///< A year's ground rent.
    bool Leasehold = false;
    double LeaseTerm = 0;     ///< Years.
    double TotalInterest = 0; ///< Calculated: finance cost.
    double NetSiteArea = 0;
    TlotSiteAreaUnits SiteAreaUnits = TlotSiteAreaUnits::Acres;
    double SiteValuePerArea = 0;    ///< Calculated.
    double TDC = 0;                 ///< Calculated: total development cost.
    double GDV = 0;                 ///< Calculated: gross development value.
    double NDV = 0;                 ///< Calculated: net development value.
    double ResidualTargetValue = 0; ///< Percent.
    TlotResidualTarget ResidualTarget = TlotResidualTarget::NoTarget;

    /// Empties the inputs for another project and leaves the settings that outlive one: deliberately a part of them.
    void Clear(double today);

    /// One full pass at the present site value. Throws what a loan throws; the project stays editable then.
    void Calculate();
    void Calculate(TlotPassScope scope);

    /// The two stages of the units, and the rest of the pass from its clearing on: a scenario shifts figures between
    /// them. Calculate is the three in order.
    void CalculateUnitAreas();
    void CalculateUnitSales();
    void CalculateFromClearing();

    /// Searches for the site value at which the measure `keyword` is `target`: between 0 and MaxSiteValue, then, where
    /// CalcNegativeSiteValue and nothing was found, below (or far above) 0. Tolerance 0.0001 of the measure, 51 steps
    /// each. Returns the answer or 0 and leaves the model as calculated at the last trial, its site value included.
    /// Throws EEvaluatorError for a word that is no keyword.
    double SolveSiteValue(std::string_view keyword, double target, TlotPassScope scope = TlotPassScope::Full);

    /// As its first stage, with a bound of its own and no second one.
    double SolveSiteValueWithin(std::string_view keyword, double target, double highest, TlotPassScope scope);

    /// The same for the IRR of the equity (percent), in the first range only.
    double SolveEquityIRR(double target);

    /// Amount of the group of exactly that name, or 0.
    [[nodiscard]] double GroupValue(std::string_view name) const;
    /// The group of exactly that name, or null.
    [[nodiscard]] TlotGroup* FindGroup(std::string_view name) { return Groups.Find(name); }
    /// GDV, NDV or TDC by RatioBase without regard to case; 0 for any other text.
    [[nodiscard]] double RatioBaseValue() const;
    [[nodiscard]] TlotProjectItemIterator NewItemIterator() const { return TlotProjectItemIterator(Sections); }
    /// Fewer than 2 units, and percentage items only.
    [[nodiscard]] bool FitsHandheld() const;

    /// The NPV and IRR (percent) that are shown, by NPVIRRSource and the equity source.
    [[nodiscard]] double NPV() const;
    [[nodiscard]] double IRR() const;

private:
    void CalculateBaseValues();
    void ClearBaseLines();
    void OrderUnits();
    void CalculateBuildLines();
    void CalculateRents();
    void CalculateSalesLines();
    void CalculateOtherSales(TlotUnit& unit);
    void CalculateCapitalisedSales(TlotUnit& unit);
    void CalculateSiteValue();
    void CalculateSections();
    void AddSectionToGroup(const TlotSection& section);
    void CalculateCashflow();
    void PublishVariables();
    void CalculateFunding();
    void CalculateMeasures();
    [[nodiscard]] bool Inflates(TlotInflationTarget target) const { return Inflation.Has(target); }
};
