// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the rows of the timescale stand for: the registry that ties a row of its sheet to the model. A lookup beyond
// what was registered yields nothing. What was registered may be deleted at any time, by a screen that doesn't rebuild
// the sheet, or by New and Open: such an entry yields nothing either.
#pragma once

#include "common/lotLifetime.h"
#include "model/lotProject.h"

#include <cstddef>
#include <vector>

class TlotRows {
public:
    /// Before the sheet is written anew: forgets items and lines. Rates, loans and the equity stay until another takes
    /// their row, as the sheet has always had it.
    void Clear();

    void SetItem(int row, TlotItem& item) { Set(FItems, row, {item, item.Lifetime}); }
    /// A line that may be edited; `owner` is what it is deleted with.
    void SetLine(int row, TlotCashflowItem& line, const TlotLifetime& owner) { Set(FLines, row, {line, owner}); }
    /// A rate, or a share, a month.
    void SetRates(int row, TlotDoubles& rates, const TlotLifetime& owner) { Set(FRates, row, {rates, owner}); }
    void SetLoan(int row, TlotLoan& loan) { Set(FLoans, row, {loan, loan.Lifetime}); }
    void SetEquity(int row, TlotEquity& equity, const TlotLifetime& owner) { Set(FEquity, row, {equity, owner}); }

    [[nodiscard]] TlotItem* Item(int row) const noexcept { return Get(FItems, row); }
    [[nodiscard]] TlotCashflowItem* Line(int row) const noexcept { return Get(FLines, row); }
    [[nodiscard]] TlotDoubles* Rates(int row) const noexcept { return Get(FRates, row); }
    [[nodiscard]] TlotLoan* Loan(int row) const noexcept { return Get(FLoans, row); }
    [[nodiscard]] TlotEquity* Equity(int row) const noexcept { return Get(FEquity, row); }

    /// For whoever keeps a line beyond the present sheet, such as a month that was copied and is still to be pasted.
    [[nodiscard]] TlotWatch<TlotCashflowItem> WatchLine(int row) const;

private:
    template <class T> using TWatches = std::vector<TlotWatch<T>>;

    template <class T> static void Set(TWatches<T>& watches, int row, TlotWatch<T> watch) {
        const auto index = static_cast<std::size_t>(row);
        if (index >= watches.size()) {
            watches.resize(index + 1);
        }
        watches[index] = watch;
    }
    template <class T> static T* Get(const TWatches<T>& watches, int row) noexcept {
        const auto index = static_cast<std::size_t>(row);
        return row >= 0 && index < watches.size() ? watches[index].Get() : nullptr;
    }

    TWatches<TlotItem> FItems;
    TWatches<TlotCashflowItem> FLines;
    TWatches<TlotDoubles> FRates;
    TWatches<TlotLoan> FLoans;
    TWatches<TlotEquity> FEquity;
};
