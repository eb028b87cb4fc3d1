// SPDX-License-Identifier: GPL-3.0-or-later
#include "finance/lotEquity.h"

#include "common/vipRates.h"

TlotEquity::TlotEquity() {
    for (TlotCashflowItem* const row : {&Cashflow, &Balance, &Interest, &CashflowIncludingInterest}) {
        row->Income = true;
        row->NoTotal = true;
    }
}

void TlotEquity::ClearResults() {
    InterestRate.Value = 0;
    Interest.ClearValues();
    CashflowIncludingInterest.ClearValues();
    Cashflow.ClearValues();
}

void TlotEquity::Calculate(const TlotAdjust* adjust) {
    const int count = Cashflow.Count();
    Interest.Values.Zero(count);
    CashflowIncludingInterest.Values.Zero(count);
    PrepareRates(count);
    RunMonths(adjust == nullptr ? 0 : adjust->InterestRate.Value);
    CalculateReturns();
}

void TlotEquity::RunMonths(double rateAdjustment) {
    TotalInterest = 0;
    TotalCash = 0;
    const int count = Cashflow.Count();
    for (int i = 0; i < count; ++i) {
        const double cash = Cashflow.GetValue(i);
        const double balance = i == 0 ? cash : Balance.GetValue(i - 1) + cash + Interest.GetValue(i - 1);
        Balance.SetValue(i, balance);
        if (cash < 0) {
            TotalCash -= cash;
        }
        double interest = 0;
        if (balance < 0) {
            interest = balance * ((RateOf(i) + rateAdjustment) / 100 / 12);
        } else {
            interest = balance * (CreditInterestRate / 100 / 12);
        }
        Interest.SetValue(i, interest);
        CashflowIncludingInterest.SetValue(i, cash + interest);
        TotalInterest -= interest;
    }
}

void TlotEquity::CalculateReturns() {
    const TlotCashflowItem& flows = NPVIRRIncludesInterest ? CashflowIncludingInterest : Cashflow;
    IRR = vip::AnnualIRR(flows.Values.Span()) * 100;
    // Month 0 is not discounted here, where the rate of return discounts it by a month: both conventions are wanted.
    NPV = vip::PresentValue(DiscountRate / 100, vip::MonthsAYear, flows.Values.Span());
}
