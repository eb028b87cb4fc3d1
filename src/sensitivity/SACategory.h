// SPDX-License-Identifier: GPL-3.0-or-later
//
// What can be varied in a sensitivity table, and one axis of such a table. Nothing here knows what is appraised: a
// category is a list of items, each with a value that can be kept, shifted and put back.
#pragma once

#include "common/vipNumber.h"
#include "common/vipSADouble.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// Whether a step may be an amount, a percentage of each value, or either.
enum class TSAModes : std::uint8_t { Amounts = 1, Percentage = 2, Both = 3 };

class TSACategory {
public:
    explicit TSACategory(std::string name) : Name(std::move(name)) {}
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
    bool SecondWhole = false; ///< The same.
    const std::string Name;   ///< The key by which a calculation knows it.

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

    /// Whether the item takes part; so does every item beyond those that were told.
    [[nodiscard]] bool Included(int item) const noexcept;
    /// Throws ELotError past the end.
    void SetIncluded(int item, bool included);
    /// One element an item, all of them taking part.
    void ResetIncluded();

    /// The step at that place of the axis.
    [[nodiscard]] vip::TSAStep StepAt(int index) const noexcept { return {index, StepCount, PercentageStep, Step}; }
    /// The change that this place of the axis stands for, signed: "-5", "0", "+2.5", "+10.000%".
    [[nodiscard]] std::string Label(int index, const TNumberLocale& locale) const;

private:
    std::vector<bool> FIncluded;
};

/// Categories in order, owned.
class TSACategoryList {
public:
    template <class T, class... Args> T& Add(Args&&... args) {
        auto category = std::make_unique<T>(std::forward<Args>(args)...);
        T& result = *category;
        FItems.push_back(std::move(category));
        return result;
    }
    [[nodiscard]] int Count() const noexcept { return static_cast<int>(FItems.size()); }
    [[nodiscard]] TSACategory& operator[](int index) const { return *FItems.at(static_cast<std::size_t>(index)); }
    /// Index of that name without regard to case, or -1.
    [[nodiscard]] int IndexOf(std::string_view name) const noexcept;

private:
    std::vector<std::unique_ptr<TSACategory>> FItems;
};

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

    /// True if it has the category of that name.
    [[nodiscard]] bool Has(std::string_view name) const noexcept {
        return FCategory != nullptr && FCategory->Name == name;
    }
    /// Shifts what takes part to the present place.
    void Apply() const;

private:
    TSACategory* FCategory = nullptr; ///< Not owned.
    int FIndex = 0;
};
