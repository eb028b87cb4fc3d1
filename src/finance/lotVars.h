// SPDX-License-Identifier: GPL-3.0-or-later
//
// The project's lines by name, for loans that follow them. Rebuilt at each calculation, into the memory of the one
// before.
#pragma once

#include "engine/lotCashflow.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

struct TlotVariable {
    std::string Name;
    const TlotCashflowItem* Line = nullptr; ///< Not owned.
};

/// Some variables and a factor: month by month, their sum, lines of income counted against it, times the factor.
class TlotSource {
public:
    double Factor = 0;
    std::vector<const TlotCashflowItem*> Lines; ///< Not owned.

    [[nodiscard]] double Value(int month) const;
};

class TlotVars {
public:
    void Clear() noexcept { FCount = 0; }
    /// Takes out the variables that stand for that line, since it is about to be deleted.
    void Forget(const TlotCashflowItem& line);

    /// Adds a variable at the end. Names needn't be unique: the first of a name is found.
    void Add(std::string_view name, const TlotCashflowItem& line);
    /// Adds `section` + "." + `name`.
    void Add(std::string_view section, std::string_view name, const TlotCashflowItem& line);

    /// The first variable of that name, without regard to case, or null.
    [[nodiscard]] const TlotVariable* Find(std::string_view name) const;

    /// In order of adding.
    [[nodiscard]] std::span<const TlotVariable> Items() const { return {FItems.data(), FCount}; }

    /// Fills `source` from names joined by "+". The pieces aren't trimmed, and a name that isn't known is dropped, so
    /// that a blank after a "+" drops the name behind it.
    void MakeSource(std::string_view text, double factor, TlotSource& source) const;

private:
    TlotVariable& Next(const TlotCashflowItem& line);

    std::vector<TlotVariable> FItems;
    std::size_t FCount = 0;
};
