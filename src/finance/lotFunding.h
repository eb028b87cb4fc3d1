// SPDX-License-Identifier: GPL-3.0-or-later
//
// Runs the project's loans in order over its net cashflow, adds up what they cost, and tells what they leave over.
#pragma once

#include "engine/lotAdjust.h"
#include "engine/lotCashflow.h"
#include "finance/lotLoan.h"
#include "finance/lotVars.h"

#include <string>

struct TlotFundingResults {
    double TotalInterest = 0; ///< Of the active loans; positive is a cost.
    /// Fees of the active loans as a cost. A Cash loan's fee counts against it, since it is already in its debt.
    double TotalFees = 0;
};

class TlotFunding : public TlotFundingResults {
public:
    TlotLoanList Loans;
    std::string EquitySource; ///< Name of the loan that takes the place of the equity; empty means equity.

    /// The first loan of the name EquitySource if it is active, or null.
    [[nodiscard]] TlotLoan* FindEquitySourceLoan();
    [[nodiscard]] const TlotLoan* FindEquitySourceLoan() const;

    /// Runs all loans over the project's net cashflow; `adjust` may be null. Throws ELotError("Unknown LoanType"), and
    /// ERangeError out of a Cash loan; the loans before it stay computed then, and those after it are empty.
    void FundingCalculate(const TlotCashflowItem& cashflow, const TlotVars& vars, const TlotAdjust* adjust);

    /// `target` := the net cashflow with what the active loans bring and take: the cash that no loan took care of.
    void FundingSum(const TlotCashflowItem& cashflow, TlotCashflowItem& target) const;

    void Clear();

private:
    void CalculateLoan(TlotLoan& loan, const TlotCashflowItem& cashflow, const TlotVars& vars, double rateAdjustment);

    TlotCashflowItem FInflow; ///< The positive months of the net cashflow, used up by the Linked loans.
};
