// SPDX-License-Identifier: GPL-3.0-or-later
//
// What can be varied in a sensitivity table, and one axis of such a table. Nothing here knows what is appraised: a
// category is a list of items, each with a value that can be kept, shifted and put back.
#pragma once

#include "common/lotOwningList.h"
#include "common/vipNumber.h"
#include "common/vipSADouble.h"
#include "common/vipText.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Whether a step may be an amount, a percentage of each value, or either.
enum class TSAModes : std::uint8_t { Amounts = 1, Percentage = 2, Both = 3 };

class TSACategory {
public:
    /// `place`: where it stands in the order in which a calculation applies categories; no two of a model share one.
    TSACategory(std::string name, int place) : Name(std::move(name)), Place(place) {}
    TSACategory(const TSACategory&) = delete;
    TSACategory& operator=(const TSACategory&) = delete;
    virtual ~TSACategory() = default;

    std::int32_t Decimals = 0; ///< Of an axis label.
    bool Thousands = false;    ///< An axis label has thousand separators.
    double Step = 0;           ///< One step: an amount, or percent.
    std::int32_t StepCount = 5;
    bool PercentageStep = false; ///< Step is a percentage of each value.
    TSAModes Modes = TSAModes::Both;
    bool Whole = false;       ///< Shifted as a whole by ApplyAll, not item by item.
    bool SecondWhole = false; ///< Has the effect of Whole.
    const std::string Name;   ///< By which a person, a file and a script name it.
    const int Place;

    /// Shifts one item to a step of its own stored value.
    virtual void Apply(int item, const vip::TSAStep& step) = 0;
    /// Shifts the whole category.
    virtual void ApplyAll(const vip::TSAStep& /*step*/) {}
    /// Makes the list of items anew.
    virtual void Prepare() {}
    /// Keeps each item's value, and puts it back.
    virtual void Save() = 0;
    virtual void Restore() = 0;
    [[nodiscard]] virtual int Count() const = 0;
    [[nodiscard]] virtual std::string ItemName(int item) const = 0;
    /// The item's present value as text.
    [[nodiscard]] virtual std::string ItemValue(int item, const TNumberLocale& locale) const = 0;

    /// Whether the item takes part, as does every item for which nothing was set.
    [[nodiscard]] bool Included(int item) const noexcept;
    /// Throws ELotError past the end.
    void SetIncluded(int item, bool included);
    /// Makes room for a setting for each item, and has all of them take part.
    void ResetIncluded();

    /// The step at that place of the axis.
    [[nodiscard]] vip::TSAStep StepAt(int index) const noexcept { return {index, StepCount, PercentageStep, Step}; }
    /// The change that this place of the axis stands for, signed: "-5", "0", "+2.5", "+10.000%".
    [[nodiscard]] std::string Label(int index, const TNumberLocale& locale) const;

private:
    std::vector<bool> FIncluded;
};

/// Objects with a Name, in order, owned.
template <class T> class TSANamedList : public TlotOwningList<T> {
public:
    using TlotOwningList<T>::IndexOf;
    /// Index of that name without regard to case, or -1.
    [[nodiscard]] int IndexOf(std::string_view name) const {
        return this->FindIf([&](const T& object) { return vip::SameText(object.Name, name); });
    }
};

using TSACategoryList = TSANamedList<TSACategory>;

/// A walk along one axis; it may have no category.
class TSAAxis {
public:
    explicit TSAAxis(TSACategory* category) : FCategory(category) {}

    [[nodiscard]] TSACategory* Category() const noexcept { return FCategory; }
    [[nodiscard]] int Index() const noexcept { return FIndex; }
    void Reset() noexcept { FIndex = 0; }
    void MoveTo(int index) noexcept { FIndex = index; }
    [[nodiscard]] bool More() const noexcept { return FCategory != nullptr && FIndex < FCategory->StepCount; }
    void Next() noexcept { ++FIndex; }

    /// Whether it has a category that stands at one of those places, both ends included.
    [[nodiscard]] bool StandsIn(int first, int last) const noexcept {
        return FCategory != nullptr && FCategory->Place >= first && FCategory->Place <= last;
    }
    /// Shifts the items that take part to the step at which the walk is.
    void Apply() const;

private:
    TSACategory* FCategory = nullptr; ///< Not owned.
    int FIndex = 0;
};

/// Applies those of the two axes whose categories stand at the places from `first` to `last`, in the order of their
/// places. A category that is on both axes is applied once, from the columns.
void ApplyPlaces(int first, int last, const TSAAxis& columns, const TSAAxis& rows);
