// SPDX-License-Identifier: GPL-3.0-or-later
//
// The one owning list of the model: objects in an order that means something, each at an address of its own that stays
// the same while others come, go and move. What is deleted is freed at once; whoever keeps references across a deletion
// asks the owner's own operation to do it (TlotProject::DeleteUnit and its sisters).
#pragma once

#include "common/vipErrors.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

template <class T> class TlotOwningList {
public:
    [[nodiscard]] int Count() const noexcept { return static_cast<int>(FItems.size()); }
    [[nodiscard]] bool IsEmpty() const noexcept { return FItems.empty(); }
    [[nodiscard]] bool Holds(int index) const noexcept { return index >= 0 && index < Count(); }

    /// Throws ERangeError outside the list, as do the operations below that take the index of an object.
    [[nodiscard]] T& operator[](int index) { return *FItems[Checked(index)]; }
    [[nodiscard]] const T& operator[](int index) const { return *FItems[Checked(index)]; }

    /// Makes an object at the end, of a kind derived from T if named so.
    template <class Kind = T, class... Arguments> Kind& Add(Arguments&&... arguments) {
        auto item = std::make_unique<Kind>(std::forward<Arguments>(arguments)...);
        Kind& added = *item;
        FItems.push_back(std::move(item));
        return added;
    }
    /// Makes an object in front of that one; beyond the ends, at the nearer end.
    template <class... Arguments> T& Insert(int index, Arguments&&... arguments) {
        const auto at = FItems.begin() + std::clamp(index, 0, Count());
        return **FItems.insert(at, std::make_unique<T>(std::forward<Arguments>(arguments)...));
    }
    void Delete(int index) { FItems.erase(FItems.begin() + static_cast<std::ptrdiff_t>(Checked(index))); }
    void Clear() noexcept { FItems.clear(); }

    /// Takes the object out and puts it back `step` places further on (down the list where positive). False, with
    /// nothing done, where there is no such place.
    bool Move(int index, int step) {
        const std::size_t from = Checked(index);
        if (step < -index || step >= Count() - index) {
            return false;
        }
        auto item = std::move(FItems[from]);
        FItems.erase(FItems.begin() + static_cast<std::ptrdiff_t>(from));
        FItems.insert(FItems.begin() + (index + step), std::move(item));
        return true;
    }

    /// The place of that very object, or -1.
    [[nodiscard]] int IndexOf(const T& object) const noexcept {
        return FindIf([&](const T& item) { return &item == &object; });
    }
    /// The place of the first object that fits, or -1.
    template <class Fits> [[nodiscard]] int FindIf(const Fits& fits) const {
        const auto found = std::ranges::find_if(FItems, [&](const auto& item) { return fits(*item); });
        return found == FItems.end() ? -1 : static_cast<int>(found - FItems.begin());
    }

    /// Puts the objects in order; those that are equal stay as they stand. A list in order costs no memory.
    template <class Before> void SortBy(const Before& before) {
        const auto pointers = [&](const auto& a, const auto& b) { return before(*a, *b); };
        if (!std::ranges::is_sorted(FItems, pointers)) {
            std::ranges::stable_sort(FItems, pointers);
        }
    }

    // A walk meets owners: `for (const auto& unit : Units) unit->...`.
    [[nodiscard]] auto begin() noexcept { return FItems.begin(); }
    [[nodiscard]] auto end() noexcept { return FItems.end(); }
    [[nodiscard]] auto begin() const noexcept { return FItems.begin(); }
    [[nodiscard]] auto end() const noexcept { return FItems.end(); }

private:
    [[nodiscard]] std::size_t Checked(int index) const {
        if (!Holds(index)) {
            throw ERangeError();
        }
        return static_cast<std::size_t>(index);
    }

    std::vector<std::unique_ptr<T>> FItems;
};
