// SPDX-License-Identifier: GPL-3.0-or-later
//
// The costs and other incomes of a project: items in named sections. An item is a fixed amount, or a percentage of a
// base formula. Sections are walked in list order, and within one its items, since a base may refer to what earlier
// lines have added up to.
#pragma once

#include "common/lotFields.h"
#include "common/lotLifetime.h"
#include "common/lotOwningList.h"
#include "common/vipSADouble.h"
#include "engine/lotBaseValues.h"
#include "engine/lotCashflow.h"
#include "engine/lotLineColours.h"

#include <memory>
#include <string>
#include <string_view>

/// What a user sets of an item, but for its months.
struct TlotItemTerms {
    std::string Name;        ///< A first letter "#" makes it a sub-heading.
    TSADouble Amount;        ///< Money, or percent where Percentage is set.
    bool Percentage = false; ///< The item is Amount percent of its base.
    std::string BaseFormula; ///< Read where Percentage or Link is set.
    bool Link = false;       ///< Takes its monthly shape from the lines of its base.
    bool DisplayRatio = false;
    std::string AccountCode;

    template <class Visitor> static void VisitFields(Visitor&& visit) {
        visit(TlotFieldInfo{"Name"}, &TlotItemTerms::Name);
        visit(TlotFieldInfo{"Amount"}, &TlotItemTerms::Amount);
        visit(TlotFieldInfo{"Percentage"}, &TlotItemTerms::Percentage);
        visit(TlotFieldInfo{"BaseFormula"}, &TlotItemTerms::BaseFormula);
        visit(TlotFieldInfo{"Link"}, &TlotItemTerms::Link);
        visit(TlotFieldInfo{"DisplayRatio"}, &TlotItemTerms::DisplayRatio, true);
        visit(TlotFieldInfo{"AccountCode"}, &TlotItemTerms::AccountCode);
    }

    friend bool operator==(const TlotItemTerms&, const TlotItemTerms&) = default;
};

/// What calculations leave behind in an item, but for its line.
struct TlotItemResults {
    double Base = 0;    ///< What BaseFormula was worth when it was last read.
    bool Error = false; ///< The formula was refused or failed, and the value is 0.
};

class TlotItem : public TlotItemTerms, public TlotItemResults {
public:
    TlotItem() { Line.Colour = LineColours::Costs.Index; }
    TlotItem(const TlotItem&) = delete;
    TlotItem& operator=(const TlotItem&) = delete;

    TlotLifetime Lifetime;
    TlotCashflowItem Line; ///< Its Amount is the item's value.

    /// Whether a text may be a base at all: "+" is the only operator of one, as every firm's templates have it.
    [[nodiscard]] static bool IsBaseFormula(std::string_view text) noexcept {
        return text.find_first_of("-/*") == std::string_view::npos;
    }
    [[nodiscard]] bool IsSubHeading() const noexcept { return !Name.empty() && Name.front() == '#'; }

    /// Sets the line's amount: a fixed amount, or Amount percent of the base. Fails quietly through Error.
    void Value(TlotBaseValues& baseValues);

    /// Gives the line the monthly shape of its base, by a reading of the formula of its own that knows only the
    /// keywords with months. `shape` is scratch.
    void ApplyLink(const TlotBaseValues& baseValues, TlotCashflowItem& shape);
};

/// Items in order. They are deleted by the project's operations, since the last calculation has listed their lines.
class TlotItemList : public TlotOwningList<TlotItem> {
    friend class TlotProject;
    using TlotOwningList::Clear;
    using TlotOwningList::Delete;
};

/// What a user sets of a section, but for its items.
struct TlotSectionTerms {
    std::string Name;
    std::string Group;
    bool Income = false;     ///< Money in: the total adds to NDV, otherwise to TDC.
    std::string DefaultBase; ///< Base of a new percentage item.

    template <class Visitor> static void VisitFields(Visitor&& visit) {
        visit(TlotFieldInfo{"Name"}, &TlotSectionTerms::Name);
        visit(TlotFieldInfo{"Group"}, &TlotSectionTerms::Group);
        visit(TlotFieldInfo{"Income"}, &TlotSectionTerms::Income);
        visit(TlotFieldInfo{"DefaultBase"}, &TlotSectionTerms::DefaultBase);
    }

    friend bool operator==(const TlotSectionTerms&, const TlotSectionTerms&) = default;
};

class TlotSection : public TlotSectionTerms {
public:
    TlotSection() = default;
    TlotSection(const TlotSection&) = delete;
    TlotSection& operator=(const TlotSection&) = delete;

    TlotItemList Items;
    TlotCashflowItem Total;

    /// Values, shapes, spreads and totals the items in order; SECTION follows along, so that it means the earlier items
    /// of this section and never the later ones. Sub-headings are valued but neither spread nor totalled.
    void Calculate(TlotBaseValues& baseValues);

private:
    TlotCashflowItem FShape;
};

/// Sections in order, deleted as items are.
class TlotSectionList : public TlotOwningList<TlotSection> {
    friend class TlotProject;
    using TlotOwningList::Clear;
    using TlotOwningList::Delete;
};

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
    explicit TlotSectionItemIterator(TlotSection& section) : FSection(section) {}

    void First() override;
    void Next() override;
    [[nodiscard]] bool IsDone() const override { return FPosition == -1; }
    [[nodiscard]] TlotItem& CurrentItem() const override;

private:
    TlotSection& FSection;
    int FPosition = -1;
};

/// Over every item of every section, empty sections skipped.
class TlotProjectItemIterator final : public TlotItemIterator {
public:
    explicit TlotProjectItemIterator(TlotSectionList& sections) : FSections(sections) {}

    void First() override;
    void Next() override;
    [[nodiscard]] bool IsDone() const override { return FPosition == -1; }
    [[nodiscard]] TlotItem& CurrentItem() const override;

private:
    void NextSection();

    TlotSectionList& FSections;
    int FPosition = -1;
    std::unique_ptr<TlotSectionItemIterator> FSectionIterator;
};
