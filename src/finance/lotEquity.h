// SPDX-License-Identifier: GPL-3.0-or-later
//
// The account that takes whatever the loans leave over: charged interest on what the project owes it, paid interest on
// what it holds, and the source of the project's NPV and IRR.
#pragma once

#include "common/lotDoubles.h"
#include "common/vipSADouble.h"
#include "engine/lotAdjust.h"
#include "engine/lotCashflow.h"

class TlotEquity {
public:
    TlotEquity();

    TlotSADouble InterestRate;     ///< Debit rate, percent a year.
    double CreditInterestRate = 0; ///< Rate on a positive balance, percent a year.
    bool VariableRate = false;     ///< Debit rates come from InterestRates.
    TlotDoubles InterestRates;     ///< Percent a year, one a month.
    TlotDoubles StoredInterestRates;
    double DiscountRate = 0; ///< Percent a year.
    bool NPVIRRIncludesInterest = true;

    TlotCashflowItem Cashflow;                  ///< Cash to (negative) or from equity.
    TlotCashflowItem Balance;                   ///< Running balance. Never emptied: each month is overwritten.
    TlotCashflowItem Interest;                  ///< Of the closing balance, felt in the next month.
    TlotCashflowItem CashflowIncludingInterest; ///< Cashflow + Interest.
    double NPV = 0;
    double IRR = 0;           ///< Percent a year.
    double TotalInterest = 0; ///< A cost; credit interest takes it down.
    double TotalCash = 0;     ///< The negative months of Cashflow, as a positive figure.

    /// Fills everything from Cashflow; `adjust` may be null. Its rate is not added to the credit rate.
    void Calculate(const TlotAdjust* adjust);

    /// Sets the debit rate to 0 and empties Interest, CashflowIncludingInterest and Cashflow. The rest stands still, so
    /// a project with an equity source loses its debit rate at its first calculation: deliberate.
    void ClearResults();

    /// For a table of scenarios: keep the fixed and the monthly rates, put them back, shift them from what was kept.
    void SaveRates();
    void RestoreRates();
    void ApplySensitivity(const vip::TSAStep& step);

private:
    void RunMonths(double rateAdjustment);
    void CalculateReturns();
};
