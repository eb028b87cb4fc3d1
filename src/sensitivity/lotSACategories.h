// SPDX-License-Identifier: GPL-3.0-or-later
//
// What can be varied of a project. Each category works on the live project, which must outlive it; Save and Restore run
// over all its items, whether they take part or not.
#pragma once

#include "model/lotProject.h"
#include "sensitivity/SACategory.h"

#include <vector>

/// A figure of each unit.
class TlotSAUnitCategory : public TSACategory {
public:
    TlotSAUnitCategory(std::string name, TlotProject& project) : TSACategory(std::move(name)), FProject(project) {}

    [[nodiscard]] int Count() const override { return FProject.Units.Count(); }
    [[nodiscard]] std::string ItemName(int item) const override { return FProject.Units[item].Name; }

protected:
    [[nodiscard]] TlotProject& Project() const noexcept { return FProject; }

private:
    TlotProject& FProject;
};

/// One of a unit's figures that stand for themselves: build rate, build area, sale value, ERV, yield.
class TlotSAUnitFigureCategory final : public TlotSAUnitCategory {
public:
    TlotSAUnitFigureCategory(std::string name, TlotProject& project, TlotSADouble TlotUnit::*figure, std::string mask)
        : TlotSAUnitCategory(std::move(name), project), FFigure(figure), FMask(std::move(mask)) {}

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
    std::vector<std::vector<double>> FValues; ///< Of each area of each unit.
};

/// The equity's debit rate, then each loan's, fixed and by month.
class TlotSAInterestRateCategory final : public TSACategory {
public:
    TlotSAInterestRateCategory(std::string name, TlotProject& project)
        : TSACategory(std::move(name)), FProject(project) {}

    void Apply(int item, const vip::TSAStep& step) override;
    void Save() override;
    void Restore() override;
    [[nodiscard]] int Count() const override { return FProject.Funding.Loans.Count() + 1; }
    [[nodiscard]] std::string ItemName(int item) const override;
    [[nodiscard]] std::string ItemValue(int item, const TNumberLocale& locale) const override;

private:
    TlotProject& FProject;
};

/// The cost and income items that have an amount. The step of a percentage item is an amount (of percentage points), of
/// any other a percentage, whatever the category's own flag.
class TlotSACostCategory final : public TSACategory {
public:
    TlotSACostCategory(std::string name, TlotProject& project) : TSACategory(std::move(name)), FProject(project) {}

    void Apply(int item, const vip::TSAStep& step) override;
    void Prepare() override;
    void Save() override;
    void Restore() override;
    [[nodiscard]] int Count() const override { return static_cast<int>(FItems.size()); }
    [[nodiscard]] std::string ItemName(int item) const override { return Item(item).Name; }
    [[nodiscard]] std::string ItemValue(int item, const TNumberLocale& locale) const override;

private:
    [[nodiscard]] TlotItem& Item(int item) const { return *FItems.at(static_cast<std::size_t>(item)); }

    TlotProject& FProject;
    std::vector<TlotItem*> FItems; ///< Not owned; of the last Prepare.
};

class TlotSASiteValueCategory final : public TSACategory {
public:
    TlotSASiteValueCategory(std::string name, TlotProject& project) : TSACategory(std::move(name)), FProject(project) {}

    void Apply(int item, const vip::TSAStep& step) override;
    void Save() override;
    void Restore() override;
    [[nodiscard]] int Count() const override { return 1; }
    [[nodiscard]] std::string ItemName(int /*item*/) const override { return "Site Value"; }
    [[nodiscard]] std::string ItemValue(int item, const TNumberLocale& locale) const override;

private:
    TlotProject& FProject;
    TSADouble FSiteValue;
};

/// Turns the table round: a wanted profit on cost, from which each scenario solves its site value. A search that finds
/// nothing leaves a site value of 0, computed.
class TlotSAProfitOnCostCategory final : public TSACategory {
public:
    /// Where a search looks: as the project's own does, or up to a fixed bound with no second stage.
    enum class TSearch : bool { AsProject, FixedRange };

    TlotSAProfitOnCostCategory(std::string name, TlotProject& project, TSearch search)
        : TSACategory(std::move(name)), FProject(project), FSearch(search) {}

    void Apply(int item, const vip::TSAStep& step) override;
    void Save() override;
    void Restore() override;
    [[nodiscard]] int Count() const override { return 1; }
    [[nodiscard]] std::string ItemName(int /*item*/) const override { return "Profit On Cost"; }
    [[nodiscard]] std::string ItemValue(int item, const TNumberLocale& locale) const override;

private:
    TlotProject& FProject;
    TSearch FSearch;
    double FProfitOnCost = 0; ///< Percent, to three places.
    double FSiteValue = 0;
};
