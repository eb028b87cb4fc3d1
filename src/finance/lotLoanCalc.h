// SPDX-License-Identifier: GPL-3.0-or-later
//
// The three calculators of a loan's rows. Each lives for one call on a loan whose results have been cleared, is a plain
// pass over the months, and leaves its figures in the loan. `rateAdjustment` is in percentage points.
#pragma once

#include "finance/lotLoan.h"
#include "finance/lotVars.h"

/// Borrows a share of each month's outflow up to the facility and repays from a share of each month's inflow. Its fee
/// leaves as cash in month 0 and never enters the debt.
class TlotLoanCalcStandardEnhanced {
public:
    explicit TlotLoanCalcStandardEnhanced(TlotLoan& loan) : FLoan(loan) {}
    /// `cashflow` must be no row of this loan.
    void Calculate(const TlotCashflowItem& cashflow, double rateAdjustment);

private:
    void Prepare(const TlotCashflowItem& cashflow);
    void RunMonths(double rateAdjustment);
    void ChargeFee();
    TlotLoan& FLoan;
};

/// A single advance, rolled up and repaid at its end; of the project's cashflow it uses only the length. Its fee enters
/// the debt at the start. Throws ERangeError where it would need a month before the first.
class TlotLoanCalcCash {
public:
    explicit TlotLoanCalcCash(TlotLoan& loan) : FLoan(loan) {}
    void Calculate(int count, double rateAdjustment);

private:
    TlotLoan& FLoan;
};

/// Draws a percentage of named costs as they arise and is repaid out of surplus income ahead of all else; once repaid
/// it stops for good. Takes what it is repaid out of `inflow`, so that the next Linked loan finds only what is left.
/// Its fee enters the debt in the first month of debt.
class TlotLoanCalcLinked {
public:
    explicit TlotLoanCalcLinked(TlotLoan& loan) : FLoan(loan) {}
    void Calculate(TlotCashflowItem& inflow, const TlotVars& vars, double rateAdjustment);

private:
    void RunMonths(TlotCashflowItem& inflow, double rateAdjustment);
    double ChargeFee(int month, double balance);
    TlotLoan& FLoan;
};
