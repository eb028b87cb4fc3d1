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
#include "model/lotProjectTerms.h"
#include "model/lotUnit.h"

#include <memory>
#include <string_view>

/// The keyword of a target's measure; empty for NoTarget.
[[nodiscard]] std::string_view ResidualKeyword(TlotResidualTarget target) noexcept;

/// How much of the pass the trials of a search run.
enum class TlotPassScope : std::uint8_t {
    Full,
    FromClearing, ///< Without the units' two stages, which would undo what a scenario shifted in them.
};

struct TlotProjectResults {
    double TotalRent = 0;        ///< ERV of the capitalised units.
    double TotalInterest = 0;    ///< Finance cost.
    double SiteValuePerArea = 0; ///< By NetSiteArea.
    double TDC = 0;              ///< Total development cost.
    double GDV = 0;              ///< Gross development value.
    double NDV = 0;              ///< Net development value.
};

class TlotProject : public TlotProjectTerms, public TlotProjectResults {
public:
    /// `today`: a date (vipDate), the project's first StartDate.
    explicit TlotProject(double today);
    TlotProject(const TlotProject&) = delete;
    TlotProject& operator=(const TlotProject&) = delete;

    TlotLifetime Lifetime; ///< Of the project itself, and so of its equity and its site value.
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

    /// All fields that are attributes of the project, in their order in files.
    template <class Visitor> static void VisitFields(Visitor&& visit) {
        VisitGeneral(visit);
        visit(
            TlotFieldInfo{"SiteValue"}, [](auto& p) -> auto& { return p.BaseValues.SiteValue.Amount; });
        visit(
            TlotFieldInfo{"SiteValueAccountCode"}, [](auto& p) -> auto& { return p.BaseValues.SiteValue.AccountCode; });
        VisitResidual(visit);
        visit(
            TlotFieldInfo{"EquitySource"}, [](auto& p) -> auto& { return p.Funding.EquitySource; });
        VisitReports(visit);
    }

    /// Empties units, costs, loans and the terms marked as Cleared, for another project. The other settings (targets,
    /// bounds, what reports show, inflation) stay as they are, deliberately.
    void Clear(double today);

    /// The same project once more, with all that calculations have left in it and what the next pass reads of it: the
    /// same pass over both leaves the same figures, to the bit. The evaluator of the copy reads the copy's figures.
    [[nodiscard]] std::unique_ptr<TlotProject> Copy() const;

    // Deletion. The last calculation has listed the lines of units and items by reference, which are taken out of its
    // lists; its totals stand until the next one. All throw ERangeError where there is nothing at the index.
    void DeleteUnit(int index);
    /// With its items.
    void DeleteSection(int index);
    void DeleteItem(TlotSection& section, int index);
    void DeleteLoan(int index);

    /// One full pass at the present site value. Throws what a loan throws; the project stays editable then.
    void Calculate();
    void Calculate(TlotPassScope scope);

    /// The two stages below for one unit alone, as an edit of it shows at once: its rents and its value. The project's
    /// totals wait for the next pass.
    void CalculateUnit(TlotUnit& unit);

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
    [[nodiscard]] TlotProjectItemIterator NewItemIterator() { return TlotProjectItemIterator(Sections); }
    /// Fewer than 2 units, and percentage items only.
    [[nodiscard]] bool FitsHandheld() const;

    /// The NPV and IRR (percent) that are shown, by NPVIRRSource and the equity source.
    [[nodiscard]] double NPV() const;
    [[nodiscard]] double IRR() const;

private:
    void Forget(const TlotCashflowItem& line);
    void CalculateUnitSale(TlotUnit& unit);
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
