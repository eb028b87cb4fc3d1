// SPDX-License-Identifier: GPL-3.0-or-later
//
// The terms of interest that loans and the equity have alike: a fixed rate, or a rate a month.
#pragma once

#include "common/lotDoubles.h"
#include "common/vipSADouble.h"

struct TlotInterestTerms {
    TlotSADouble InterestRate;       ///< The fixed rate, percent a year.
    bool VariableRate = false;       ///< The rate of each month is that of InterestRates.
    TlotDoubles InterestRates;       ///< Percent a year, one a month.
    TlotDoubles StoredInterestRates; ///< While a table is computed: the rates as the user left them.

    /// The rate of a month, percent a year.
    [[nodiscard]] double RateOf(int month) const {
        return VariableRate ? InterestRates.Get(month) : InterestRate.Value;
    }
    /// With VariableRate: gives InterestRates at least `count` elements.
    void PrepareRates(int count);

    /// For a table of scenarios: keep the fixed and the monthly rates, put them back, shift them from what was kept.
    void SaveRates();
    void RestoreRates();
    void ApplySensitivity(const vip::TSAStep& step);

    /// By what a user sets; what a table has stored is no part of it.
    friend bool operator==(const TlotInterestTerms& a, const TlotInterestTerms& b) {
        return a.InterestRate == b.InterestRate && a.VariableRate == b.VariableRate &&
               a.InterestRates == b.InterestRates;
    }
};
