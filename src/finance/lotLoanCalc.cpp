// SPDX-License-Identifier: GPL-3.0-or-later
#include "finance/lotLoanCalc.h"

#include <algorithm>

void TlotLoanCalcStandardEnhanced::Calculate(const TlotCashflowItem& cashflow, double rateAdjustment) {
    Prepare(cashflow);
    RunMonths(rateAdjustment);
    ChargeFee();
    const auto in = FLoan.CashflowIn.Values.Span();
    const auto borrowing = FLoan.Borrowing.Values.Span();
    const auto repayment = FLoan.Repayment.Values.Span();
    const auto out = FLoan.CashflowOut.Values.Edit();
    for (std::size_t i = 0; i < out.size(); ++i) {
        out[i] = in[i] + borrowing[i] - repayment[i];
    }
    if (!out.empty()) {
        out[0] += FLoan.Fees.GetValue(0);
    }
}

void TlotLoanCalcStandardEnhanced::Prepare(const TlotCashflowItem& cashflow) {
    const int count = cashflow.Count();
    for (TlotCashflowItem* const row :
         {&FLoan.RolledOverDebt, &FLoan.CanBorrow, &FLoan.NeedToBorrow, &FLoan.Borrowing, &FLoan.CanRepay,
          &FLoan.Repayment, &FLoan.Debt, &FLoan.Interest, &FLoan.ExcessInterest, &FLoan.CashflowOut}) {
        row->Values.Zero(count);
    }
    FLoan.PrepareRates(count);
    FLoan.PreparePercentages(count);
    FLoan.TotalInterest = 0;
    FLoan.TotalBorrowed = 0;
    FLoan.MaximumDebt = 0;
    FLoan.CashflowIn.CopyValues(cashflow);
    FLoan.BorrowingSource.CopyValues(cashflow);
}

void TlotLoanCalcStandardEnhanced::RunMonths(double rateAdjustment) {
    const auto c = FLoan.CashflowIn.Values.Span();
    const auto rolledOver = FLoan.RolledOverDebt.Values.Edit();
    const auto canBorrow = FLoan.CanBorrow.Values.Edit();
    const auto need = FLoan.NeedToBorrow.Values.Edit();
    const auto borrowing = FLoan.Borrowing.Values.Edit();
    const auto canRepay = FLoan.CanRepay.Values.Edit();
    const auto repayment = FLoan.Repayment.Values.Edit();
    const auto debt = FLoan.Debt.Values.Edit();
    const auto interest = FLoan.Interest.Values.Edit();
    const auto excess = FLoan.ExcessInterest.Values.Edit();
    const double maximum = FLoan.Maximum;

    for (std::size_t i = 0; i < c.size(); ++i) {
        const int month = static_cast<int>(i);
        const bool variable = FLoan.VariablePercentage;
        const double borrowPercent = variable ? FLoan.BorrowPercentages.Get(month) : FLoan.BorrowPercentage;
        const double repayPercent = variable ? FLoan.RepayPercentages.Get(month) : FLoan.RepayPercentage;
        if (i > 0) {
            rolledOver[i] = debt[i - 1] + interest[i - 1];
        }
        if (rolledOver[i] + maximum > 0) {
            canBorrow[i] = rolledOver[i] + maximum;
        }
        if (c[i] < 0) {
            need[i] = -c[i] * (borrowPercent / 100);
        }
        borrowing[i] = maximum > 0 ? std::min(need[i], canBorrow[i]) : need[i];
        if (c[i] > 0) {
            canRepay[i] = c[i] * (repayPercent / 100);
            // What clears the debt is the most that is repaid: a Standard loan never holds a credit.
            repayment[i] = -rolledOver[i] > canRepay[i] ? canRepay[i] : -rolledOver[i];
        }
        debt[i] = rolledOver[i] - borrowing[i] + repayment[i];
        const double charge = debt[i] * FLoan.MonthFraction(month, rateAdjustment);
        // Strict: a debt that stands exactly at the facility is full, and its interest leaves as cash.
        if (maximum == 0 || debt[i] > -maximum) {
            interest[i] = charge;
        } else {
            excess[i] = charge;
        }
        FLoan.TotalInterest -= interest[i];
        FLoan.MaximumDebt = std::min(FLoan.MaximumDebt, debt[i]);
    }
}

void TlotLoanCalcStandardEnhanced::ChargeFee() {
    // The percentage is of the peak of the debt and not of the facility, though screens call it that: deliberate.
    const TlotLoanFees& fees = FLoan.LoanFees;
    FLoan.FeeLine.Amount = fees.Percentage ? fees.Amount / 100 * FLoan.MaximumDebt : -fees.Amount;
    FLoan.FeeLine.Spread();
    FLoan.Fees.Amount = FLoan.FeeLine.Amount;
    FLoan.Fees.SetValue(0, FLoan.FeeLine.Amount);
}

void TlotLoanCalcCash::Calculate(int count, double rateAdjustment) {
    TlotCashflowItem& debt = FLoan.Debt;
    TlotCashflowItem& interest = FLoan.Interest;
    TlotCashflowItem& borrowing = FLoan.Borrowing;
    const TlotLoanFees& fees = FLoan.LoanFees;
    const int start = FLoan.Start;

    debt.Values.Zero(count);
    interest.Values.Zero(count);
    FLoan.PrepareRates(count);
    FLoan.FeeLine.Amount = fees.Percentage ? fees.Amount / 100 * FLoan.Amount : fees.Amount;
    FLoan.FeeLine.SetPortion(start, 1.0);
    FLoan.FeeLine.Spread();
    const int end = start + (FLoan.Period > 0 ? FLoan.Period : count - start);
    borrowing.SetValue(start, FLoan.Amount);
    FLoan.TotalBorrowed = FLoan.Amount;
    FLoan.TotalInterest = 0;

    for (int i = start; i < end; ++i) {
        double balance = -borrowing.GetValue(i);
        if (i > 0) {
            balance = balance + debt.GetValue(i - 1) + interest.GetValue(i - 1);
        }
        balance -= FLoan.FeeLine.GetValue(i);
        if (i == end - 1) {
            // The last month repays all. It overwrites the advance of a loan of one month, and in month 0 it reads a
            // month before the first, which is a range error.
            borrowing.SetValue(i, debt.GetValue(i - 1) + interest.GetValue(i - 1));
            balance = 0;
        }
        debt.SetValue(i, balance);
        if (balance < 0) {
            const double charge = balance * FLoan.MonthFraction(i, rateAdjustment);
            interest.SetValue(i, charge);
            FLoan.TotalInterest -= charge;
        }
    }
}

void TlotLoanCalcLinked::Calculate(TlotCashflowItem& inflow, const TlotVars& vars, double rateAdjustment) {
    const int count = inflow.Count();
    FLoan.Debt.Values.Zero(count);
    FLoan.Interest.Values.Zero(count);
    FLoan.BorrowingSource.Values.Zero(count);
    FLoan.PrepareRates(count);
    vars.MakeSource(FLoan.Base, FLoan.BorrowPercentage / 100, FLoan.Source);
    for (int i = 0; i < count; ++i) {
        FLoan.BorrowingSource.SetValue(i, FLoan.Source.Value(i));
    }
    FLoan.TotalBorrowed = 0;
    FLoan.TotalInterest = 0;
    RunMonths(inflow, rateAdjustment);
}

void TlotLoanCalcLinked::RunMonths(TlotCashflowItem& inflow, double rateAdjustment) {
    bool feeCharged = false;
    for (int i = 0; i < inflow.Count(); ++i) {
        const double drawn = FLoan.BorrowingSource.GetValue(i);
        const double income = inflow.GetValue(i);
        double balance = 0;
        if (i > 0) {
            balance = FLoan.Interest.GetValue(i - 1) + FLoan.Debt.GetValue(i - 1);
            FLoan.RolledOverDebt.SetValue(i, balance);
        }
        if (balance < 0 && income > 0) {
            const bool finished = -balance <= income;
            const double payment = finished ? balance : -income;
            FLoan.Repayment.SetValue(i, -payment);
            inflow.SetValue(i, income + payment);
            if (finished) {
                return;
            }
            balance -= payment;
        } else {
            FLoan.Borrowing.SetValue(i, drawn);
            FLoan.TotalBorrowed += drawn;
        }
        // In a month of part repayment too: the source joins the debt there without being shown as drawn or counted as
        // borrowed. Deliberate.
        balance -= drawn;
        if (balance < 0 && !feeCharged) {
            balance = ChargeFee(i, balance);
            feeCharged = true;
        }
        FLoan.Debt.SetValue(i, balance);
        if (balance < 0) {
            const double charge = balance * FLoan.MonthFraction(i, rateAdjustment);
            FLoan.Interest.SetValue(i, charge);
            FLoan.TotalInterest -= charge;
        }
        FLoan.MaximumDebt = std::min(FLoan.MaximumDebt, balance);
    }
}

double TlotLoanCalcLinked::ChargeFee(int month, double balance) {
    // A Linked loan's fee is a sum of money whatever Percentage says.
    const TlotLoanFees& fees = FLoan.LoanFees;
    FLoan.FeeLine.Amount = -fees.Amount;
    FLoan.FeeLine.SetPortion(month, 1.0);
    FLoan.FeeLine.Spread();
    return balance - fees.Amount;
}
