// SPDX-License-Identifier: GPL-3.0-or-later
//
// The costs and other incomes of a project: items in named sections. An item is a fixed amount, or a percentage of a
// base formula. Sections are walked in list order, and within one its items, since a base may refer to what earlier
// lines have added up to.
#pragma once

#include "common/vipSADouble.h"
#include "engine/lotBaseValues.h"
#include "engine/lotCashflow.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

class TlotItem {
public:
    TlotItem() { Line.Colour = 19; }
    TlotItem(const TlotItem&) = delete;
    TlotItem& operator=(const TlotItem&) = delete;

    TlotCashflowItem Line;   ///< Its Amount is the item's value.
    TSADouble Amount;        ///< Money, or percent where Percentage is set.
    std::string Name;        ///< A first letter "#" makes it a sub-heading.
    std::string BaseFormula; ///< Read where Percentage or Link is set.
    bool Link = false;       ///< Takes its monthly shape from the lines of its base.
    std::string AccountCode;
    double Base = 0;    ///< Calculated: what BaseFormula was worth when it was last read.
    bool Error = false; ///< Calculated: the formula was refused or failed, and the value is 0.
    bool Percentage = false;
    bool DisplayRatio = false;

    [[nodiscard]] bool IsSubHeading() const noexcept { return !Name.empty() && Name.front() == '#'; }

    /// Sets the line's amount: a fixed amount, or Amount percent of the base. Fails quietly through Error.
    void Value(TlotBaseValues& baseValues);

    /// Gives the line the monthly shape of its base, by a reading of the formula of its own that knows only the
    /// keywords with months. `shape` is scratch.
    void ApplyLink(const TlotBaseValues& baseValues, TlotCashflowItem& shape);
};

/// Items in order, owned.
using TlotItemList = std::vector<std::unique_ptr<TlotItem>>;

class TlotSection {
public:
    TlotSection() = default;
    TlotSection(const TlotSection&) = delete;
    TlotSection& operator=(const TlotSection&) = delete;

    TlotItemList Items;
    TlotCashflowItem Total;
    std::string Name;
    std::string Group;
    std::string DefaultBase; ///< Base of a new percentage item.
    bool Income = false;     ///< Money in: the total adds to NDV, otherwise to TDC.

    TlotItem& AddItem() { return *Items.emplace_back(std::make_unique<TlotItem>()); }

    /// Values, shapes, spreads and totals the items in order; SECTION follows along, so that it means the earlier items
    /// of this section and never the later ones. Sub-headings are valued but neither spread nor totalled.
    void Calculate(TlotBaseValues& baseValues);

private:
    TlotCashflowItem FShape;
};

/// Sections in order, owned.
using TlotSectionList = std::vector<std::unique_ptr<TlotSection>>;

/// A walk over items.
class TlotItemIterator {
public:
    TlotItemIterator() = default;
    TlotItemIterator(const TlotItemIterator&) = delete;
    TlotItemIterator& operator=(const TlotItemIterator&) = delete;
    virtual ~TlotItemIterator() = default;

    virtual void First() = 0;
    virtual void Next() = 0;
    [[nodiscard]] virtual bool IsDone() const = 0;
    /// Throws ELotError past the end.
    [[nodiscard]] virtual TlotItem& CurrentItem() const = 0;
};

/// Over one section, which must outlive it.
class TlotSectionItemIterator final : public TlotItemIterator {
public:
    explicit TlotSectionItemIterator(const TlotSection& section) : FSection(section) {}

    void First() override;
    void Next() override;
    [[nodiscard]] bool IsDone() const override { return FPosition == -1; }
    [[nodiscard]] TlotItem& CurrentItem() const override;

private:
    const TlotSection& FSection;
    int FPosition = -1;
};

/// Over every item of every section, empty sections skipped.
class TlotProjectItemIterator final : public TlotItemIterator {
public:
    explicit TlotProjectItemIterator(const TlotSectionList& sections) : FSections(sections) {}

    void First() override;
    void Next() override;
    [[nodiscard]] bool IsDone() const override { return FPosition == -1; }
    [[nodiscard]] TlotItem& CurrentItem() const override;

private:
    void NextSection();

    const TlotSectionList& FSections;
    int FPosition = -1;
    std::unique_ptr<TlotSectionItemIterator> FSectionIterator;
};
