// SPDX-License-Identifier: GPL-3.0-or-later
//
// What can be varied of a project. Each category works on the live project; Save and Restore run over all its items,
// whether they take part or not.
#pragma once

#include "common/lotLifetime.h"
#include "model/lotMeasures.h"
#include "sensitivity/SACategory.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

/// The order in which a scenario applies categories: each stage of the calculation reads what was shifted before it,
/// and of two shifts of one figure, as of ERV by itself and by ERV Rate, the later one holds.
enum class TlotSAPlace : int {
    // Between the units' rents and their capital values.
    ERV,
    ERVRate,
    Yield,
    // Between the capital values and the rest of the pass.
    SaleValue,
    BuildRate,
    Costs,
    BuildArea,
    InterestRate,
    SiteValue,
    // After the pass.
    ProfitOnCost,
};

/// A category of a project, which must outlive it.
class TlotSAProjectCategory : public TSACategory {
public:
    TlotSAProjectCategory(std::string name, TlotSAPlace place, TlotProject& project)
        : TSACategory(std::move(name), static_cast<int>(place)), FProject(project) {}

protected:
    [[nodiscard]] TlotProject& Project() const noexcept { return FProject; }

private:
    TlotProject& FProject;
};

/// A figure of each unit.
class TlotSAUnitCategory : public TlotSAProjectCategory {
public:
    using TlotSAProjectCategory::TlotSAProjectCategory;

    [[nodiscard]] int Count() const override { return Project().Units.Count(); }
    [[nodiscard]] std::string ItemName(int item) const override { return Project().Units[item].Name; }
};

/// One of a unit's figures that stand for themselves: build rate, build area, sale value, ERV, yield.
class TlotSAUnitFigureCategory final : public TlotSAUnitCategory {
public:
    TlotSAUnitFigureCategory(std::string name, TlotSAPlace place, TlotProject& project, TlotSADouble TlotUnit::*figure,
                             std::string mask)
        : TlotSAUnitCategory(std::move(name), place, project), FFigure(figure), FMask(std::move(mask)) {}

    void Apply(int item, const vip::TSAStep& step) override { (Project().Units[item].*FFigure).Apply(step); }
    void Save() override;
    void Restore() override;
    [[nodiscard]] std::string ItemValue(int item, const TNumberLocale& locale) const override;

private:
    TlotSADouble TlotUnit::*FFigure;
    std::string FMask;
};

/// The rates of a unit's areas; of a zoned schedule only the Zone A rate, which the others follow.
class TlotSAERVRateCategory final : public TlotSAUnitCategory {
public:
    using TlotSAUnitCategory::TlotSAUnitCategory;

    void Apply(int item, const vip::TSAStep& step) override;
    void Save() override;
    void Restore() override;
    [[nodiscard]] std::string ItemValue(int item, const TNumberLocale& locale) const override;

private:
    struct TKept {
        TlotWatch<TlotUnit> Unit;
        TlotAreaScheduleTerms Areas;
    };
    std::vector<TKept> FKept;
};

/// The equity's debit rate, then each loan's, fixed and by month.
class TlotSAInterestRateCategory final : public TlotSAProjectCategory {
public:
    using TlotSAProjectCategory::TlotSAProjectCategory;

    void Apply(int item, const vip::TSAStep& step) override;
    void Save() override;
    void Restore() override;
    [[nodiscard]] int Count() const override { return Project().Funding.Loans.Count() + 1; }
    [[nodiscard]] std::string ItemName(int item) const override;
    [[nodiscard]] std::string ItemValue(int item, const TNumberLocale& locale) const override;
};

/// The cost and income items that have an amount. The step of a percentage item is an amount (of percentage points), of
/// any other a percentage, whatever the category's own flag.
///
/// The list of items is that of the last Prepare, so that the numbers of items keep their meaning. An item that has
/// been deleted since then has neither name nor value, and nothing happens to it.
class TlotSACostCategory final : public TlotSAProjectCategory {
public:
    using TlotSAProjectCategory::TlotSAProjectCategory;

    void Apply(int item, const vip::TSAStep& step) override;
    void Prepare() override;
    void Save() override;
    void Restore() override;
    [[nodiscard]] int Count() const override { return static_cast<int>(FItems.size()); }
    [[nodiscard]] std::string ItemName(int item) const override;
    [[nodiscard]] std::string ItemValue(int item, const TNumberLocale& locale) const override;

private:
    /// The item, or null if it is gone.
    [[nodiscard]] TlotItem* Living(int item) const { return FItems.at(static_cast<std::size_t>(item)).Get(); }

    std::vector<TlotWatch<TlotItem>> FItems;
};

class TlotSASiteValueCategory final : public TlotSAProjectCategory {
public:
    using TlotSAProjectCategory::TlotSAProjectCategory;

    void Apply(int item, const vip::TSAStep& step) override;
    void Save() override;
    void Restore() override;
    [[nodiscard]] int Count() const override { return 1; }
    [[nodiscard]] std::string ItemName(int /*item*/) const override {
        return std::string(MeasureInfo(TlotMeasure::SiteValue).Caption);
    }
    [[nodiscard]] std::string ItemValue(int item, const TNumberLocale& locale) const override;

private:
    TSADouble FSiteValue;
};

/// Inverts the table: what is stepped is the profit on cost that is wanted, and each scenario solves the site value
/// that leaves it. Where a search finds none, the scenario is computed with a site value of 0.
class TlotSAProfitOnCostCategory final : public TlotSAProjectCategory {
public:
    /// In which range a search looks: the project's own ranges, or from 0 to a fixed bound and nowhere else.
    enum class TSearch : bool { AsProject, FixedRange };

    TlotSAProfitOnCostCategory(std::string name, TlotSAPlace place, TlotProject& project, TSearch search)
        : TlotSAProjectCategory(std::move(name), place, project), FSearch(search) {}

    void Apply(int item, const vip::TSAStep& step) override;
    void Save() override;
    void Restore() override;
    [[nodiscard]] int Count() const override { return 1; }
    [[nodiscard]] std::string ItemName(int /*item*/) const override {
        return std::string(MeasureInfo(TlotMeasure::ProfitOnCost).Caption);
    }
    [[nodiscard]] std::string ItemValue(int item, const TNumberLocale& locale) const override;

private:
    TSearch FSearch;
    double FProfitOnCost = 0; ///< Percent, to three places.
    double FSiteValue = 0;
};
