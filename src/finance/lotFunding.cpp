// SPDX-License-Identifier: GPL-3.0-or-later
#include "finance/lotFunding.h"

#include "common/vipErrors.h"
#include "finance/lotLoanCalc.h"

#include <algorithm>

namespace {

/// target[i] := target[i] + sign * row[i], over the months of target.
void AddRow(TlotCashflowItem& target, const TlotCashflowItem& row, double sign) {
    const auto to = target.Values.Edit();
    const auto from = row.Values.Span();
    const std::size_t count = std::min(to.size(), from.size());
    for (std::size_t i = 0; i < count; ++i) {
        to[i] += sign * from[i];
    }
}

} // namespace

const TlotLoan* TlotFunding::FindEquitySourceLoan() const {
    if (EquitySource.empty()) {
        return nullptr;
    }
    const int index = Loans.IndexOf(EquitySource);
    return index >= 0 && Loans[index].Active ? &Loans[index] : nullptr;
}

TlotLoan* TlotFunding::FindEquitySourceLoan() {
    return const_cast<TlotLoan*>(static_cast<const TlotFunding&>(*this).FindEquitySourceLoan());
}

void TlotFunding::FundingCalculate(const TlotCashflowItem& cashflow, const TlotVars& vars, const TlotAdjust* adjust) {
    const double rateAdjustment = adjust == nullptr ? 0 : adjust->InterestRate.Value;
    FInflow.CopyValues(cashflow);
    for (double& month : FInflow.Values.Edit()) {
        month = month > 0 ? month : 0;
    }
    TotalInterest = 0;
    TotalFees = 0;
    const TlotCashflowItem* running = &cashflow;
    // All of them first, so that an error in one leaves the loans behind it empty.
    for (const auto& loan : Loans) {
        loan->ClearResults();
    }
    for (const auto& loan : Loans) {
        if (!loan->Active) {
            continue;
        }
        CalculateLoan(*loan, loan->LoanSource == TlotLoanSource::Above ? *running : cashflow, vars, rateAdjustment);
        TotalInterest += loan->TotalInterest;
        TotalFees -= loan->FeeLine.Amount;
        // Cash and Linked loans have no cashflow out: a loan "Above" behind one finds nothing to work on, deliberately.
        running = &loan->CashflowOut;
    }
}

void TlotFunding::CalculateLoan(TlotLoan& loan, const TlotCashflowItem& cashflow, const TlotVars& vars,
                                double rateAdjustment) {
    switch (loan.LoanType) {
    case TlotLoanType::Standard: TlotLoanCalcStandardEnhanced(loan).Calculate(cashflow, rateAdjustment); return;
    case TlotLoanType::Cash: TlotLoanCalcCash(loan).Calculate(cashflow.Count(), rateAdjustment); return;
    case TlotLoanType::Linked: TlotLoanCalcLinked(loan).Calculate(FInflow, vars, rateAdjustment); return;
    }
    throw ELotError("Unknown LoanType");
}

void TlotFunding::FundingSum(const TlotCashflowItem& cashflow, TlotCashflowItem& target) const {
    target.CopyValues(cashflow);
    for (const auto& loan : Loans) {
        if (loan->Active) {
            AddRow(target, loan->Borrowing, 1);
            AddRow(target, loan->Repayment, -1);
            AddRow(target, loan->ExcessInterest, 1);
            AddRow(target, loan->Fees, 1);
        }
    }
}

void TlotFunding::Clear() {
    Loans.Clear();
    EquitySource.clear();
}
