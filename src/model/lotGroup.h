// SPDX-License-Identifier: GPL-3.0-or-later
//
// Cost groups. A group exists only by name: sections name theirs, and the list is rebuilt from those names at each
// calculation, into the memory of the one before.
#pragma once

#include "engine/lotCashflow.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

class TlotGroup {
public:
    TlotCashflowItem Total;
    std::string Name;
};

class TlotGroupList {
public:
    [[nodiscard]] int Count() const noexcept { return static_cast<int>(FCount); }
    [[nodiscard]] TlotGroup& operator[](int index) { return *FGroups.at(Checked(index)); }
    [[nodiscard]] const TlotGroup& operator[](int index) const { return *FGroups.at(Checked(index)); }

    void Clear() noexcept { FCount = 0; }
    /// An empty group of that name at the end.
    TlotGroup& Add(std::string_view name);
    /// The first group of exactly that name, or null.
    [[nodiscard]] TlotGroup* Find(std::string_view name) const noexcept;

private:
    [[nodiscard]] std::size_t Checked(int index) const;

    std::vector<std::unique_ptr<TlotGroup>> FGroups;
    std::size_t FCount = 0;
};
