// SPDX-License-Identifier: GPL-3.0-or-later
//
// The calculation of a scenario, and the figures that can be read after it.
#pragma once

#include "common/vipNumber.h"
#include "sensitivity/SACategory.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class TSACalc {
public:
    TSACalc() = default;
    TSACalc(const TSACalc&) = delete;
    TSACalc& operator=(const TSACalc&) = delete;
    virtual ~TSACalc() = default;

    /// Computes the scenario at which the two axes stand; an axis may have no category.
    virtual void Calculate(const TSAAxis& axis1, const TSAAxis& axis2) = 0;
    /// Before a table, and after it, whatever happened in it.
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
    [[nodiscard]] virtual std::string Text(const TSAAxis& axis1, const TSAAxis& axis2,
                                           const TNumberLocale& locale) const = 0;
    virtual void Compute(const TSAAxis& /*axis1*/, const TSAAxis& /*axis2*/) {}

protected:
    /// A figure by the result's decimals.
    [[nodiscard]] std::string Format(double value, const TNumberLocale& locale) const;

private:
    TSACalc& FCalc;
};

/// Results in order, not owned.
using TSASelectedResults = std::vector<TSAResult*>;

/// Results in order, owned.
class TSAResultList {
public:
    template <class T, class... Args> T& Add(Args&&... args) {
        auto result = std::make_unique<T>(std::forward<Args>(args)...);
        T& added = *result;
        FItems.push_back(std::move(result));
        return added;
    }
    [[nodiscard]] int Count() const noexcept { return static_cast<int>(FItems.size()); }
    [[nodiscard]] TSAResult& operator[](int index) const { return *FItems.at(static_cast<std::size_t>(index)); }
    /// Index of that name without regard to case, or -1.
    [[nodiscard]] int IndexOf(std::string_view name) const noexcept;

private:
    std::vector<std::unique_ptr<TSAResult>> FItems;
};
