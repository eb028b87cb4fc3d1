// SPDX-License-Identifier: GPL-3.0-or-later
//
// The calculation of a scenario, and the figures that can be read after it.
#pragma once

#include "common/vipNumber.h"
#include "sensitivity/SACategory.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

class TSACalc {
public:
    TSACalc() = default;
    TSACalc(const TSACalc&) = delete;
    TSACalc& operator=(const TSACalc&) = delete;
    virtual ~TSACalc() = default;

    /// Computes the scenario at which the two axes stand. An axis may have no category; a table of one axis has rows
    /// only.
    virtual void Calculate(const TSAAxis& columns, const TSAAxis& rows) = 0;
    /// Before a table, and after it, whether it was finished or failed.
    virtual void Start() = 0;
    virtual void Finish() = 0;
};

class TSAResult {
public:
    TSAResult(std::string name, TSACalc& calc, std::int32_t decimals, bool percentage)
        : Name(std::move(name)), Decimals(decimals), Percentage(percentage), FCalc(calc) {}
    TSAResult(const TSAResult&) = delete;
    TSAResult& operator=(const TSAResult&) = delete;
    virtual ~TSAResult() = default;

    const std::string Name;
    std::int32_t Decimals = 0;
    bool Percentage = false;

    [[nodiscard]] TSACalc& Calc() const noexcept { return FCalc; }

    /// The figure as text.
    [[nodiscard]] virtual std::string Text(const TSAAxis& columns, const TSAAxis& rows,
                                           const TNumberLocale& locale) const = 0;
    virtual void Compute(const TSAAxis& /*columns*/, const TSAAxis& /*rows*/) {}

protected:
    /// A figure by the result's decimals.
    [[nodiscard]] std::string Format(double value, const TNumberLocale& locale) const;

private:
    TSACalc& FCalc;
};

/// Results in order, not owned.
using TSASelectedResults = std::vector<TSAResult*>;

using TSAResultList = TSANamedList<TSAResult>;
