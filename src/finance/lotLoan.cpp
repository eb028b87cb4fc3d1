// SPDX-License-Identifier: GPL-3.0-or-later
#include "finance/lotLoan.h"

#include <array>

std::array<TlotCashflowItem*, 15> TlotLoan::Rows() {
    return {&CashflowIn,
            &BorrowingSource,
            &RolledOverDebt,
            &CanBorrow,
            &NeedToBorrow,
            &Borrowing,
            &CanRepay,
            &Repayment,
            &Debt,
            &Interest,
            &ExcessInterest,
            &Fees,
            &CashflowOut,
            &CashflowExcludingInterest,
            &CashflowIncludingInterest};
}

TlotLoan::TlotLoan() {
    for (TlotCashflowItem* const row : Rows()) {
        row->Income = true;
        row->NoTotal = true;
    }
}

void TlotLoan::ClearResults() {
    for (TlotCashflowItem* const row : Rows()) {
        row->ClearValues();
    }
    FeeLine.ClearAll();
    TotalInterest = 0;
    MaximumDebt = 0;
    NPVExcludingInterest = 0;
    NPVIncludingInterest = 0;
    IRRExcludingInterest = 0;
    IRRIncludingInterest = 0;
}

void TlotLoan::PreparePercentages(int count) {
    if (VariablePercentage) {
        RepayPercentages.Reach(count, RepayPercentage);
        BorrowPercentages.Reach(count, BorrowPercentage);
    }
}

void TlotLoan::ComputeCashflows() {
    const int count = CashflowIn.Count();
    CashflowExcludingInterest.Values.Zero(count);
    CashflowIncludingInterest.Values.Zero(count);
    for (int i = 0; i < count; ++i) {
        const double cash = CashflowIn.GetValue(i);
        CashflowExcludingInterest.SetValue(i, cash + Borrowing.GetValue(i) - Repayment.GetValue(i));
        CashflowIncludingInterest.SetValue(i, cash + Interest.GetValue(i));
    }
    IRRExcludingInterest = CashflowExcludingInterest.IRR120();
    IRRIncludingInterest = CashflowIncludingInterest.IRR120();
}

void TlotLoan::ComputeNPV(double discountRate) {
    NPVExcludingInterest = CashflowExcludingInterest.NPVAt(discountRate);
    NPVIncludingInterest = CashflowIncludingInterest.NPVAt(discountRate);
}

int TlotLoanList::IndexOf(std::string_view name) const {
    return FindIf([&](const TlotLoan& loan) { return loan.Name == name; });
}
