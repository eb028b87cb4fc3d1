// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipErrors.h"
#include "finance/lotFunding.h"
#include "support/lotRows.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

using enum TlotLoanType;
constexpr auto Total = TlotLoanSource::ProjectTotal;
constexpr auto Above = TlotLoanSource::Above;

/// Two months of cost, all of it build, and a sale; loans at 1 % a month.
class Funding : public testing::Test {
protected:
    TlotLoan& Add(TlotLoanType type, TlotLoanSource source = Total, double share = 100, double fee = 0) {
        TlotLoan& loan = FFunding.Loans.Add();
        loan.LoanType = type;
        loan.LoanSource = source;
        loan.InterestRate.Value = 12;
        loan.BorrowPercentage = share;
        loan.RepayPercentage = share;
        loan.Amount = 500;
        loan.Base = "BUILD";
        loan.LoanFees.Amount = fee;
        return loan;
    }

    void Calculate() {
        FVars.Clear();
        FVars.Add("BUILD", FBuild);
        FFunding.FundingCalculate(FNet, FVars, nullptr);
        FFunding.FundingSum(FNet, FLeft);
    }

    const TlotCashflowItem FNet = RowOf({-1000, -1000, 3000}, true);
    const TlotCashflowItem FBuild = RowOf({1000, 1000, 0});
    TlotVars FVars;
    TlotFunding FFunding;
    TlotCashflowItem FLeft;
};

TEST_F(Funding, ALoanAboveAnotherWorksOnWhatThatLeaves) {
    Add(Standard, Above, 60);
    Add(Standard, Above, 100).Active = false;
    TlotLoan& mezzanine = Add(Standard, Above, 50);
    Calculate();
    // The senior loan draws 600 and 600, owes 606 + 600 = 1206 x 1.01 = 1218.06 and repays it out of 1800.
    ExpectMonths(mezzanine.CashflowIn, {-400, -400, 1781.94});
    // The other draws 200 and 200 and repays (200 x 1.01 + 200) x 1.01 = 406.02.
    ExpectMonths(FLeft, {-200, -200, 1375.92});
    ExpectClose(FFunding.TotalInterest, 6 + 12.06 + 2 + 4.02);
}

TEST_F(Funding, ALoanAboveACashOrLinkedLoanFindsNothing) {
    for (const TlotLoanType type : {Cash, Linked}) {
        FFunding.Loans.Clear();
        Add(type);
        const TlotLoan& above = Add(Standard, Above, 100, 30);
        const TlotLoan& onTotal = Add(Standard);
        Calculate();
        ExpectMonths(above.Borrowing, {});
        ExpectMonths(above.Fees, {-30}, "a fixed fee is charged all the same");
        ExpectMonths(onTotal.Borrowing, {1000, 1000, 0});
    }
}

TEST_F(Funding, FeesFollowTheTypeOfLoan) {
    // The Standard loan's peak is 1010 + 1000; a Cash loan's fee is in its debt already and counts against the total.
    const std::tuple<const char*, TlotLoanType, double, bool, double, double> cases[] = {
        {"Standard, a sum, never drawn", Standard, 30, false, 0, 30},
        {"Standard, percent of the peak", Standard, 2, true, 100, 40.2},
        {"Standard, percent, never drawn", Standard, 2, true, 0, 0},
        {"Cash, a sum", Cash, 30, false, 100, -30},
        {"Cash, percent of the advance", Cash, 2, true, 100, -10},
        {"Linked, never drawn", Linked, 30, false, 0, 0},
        {"Linked, a sum called percent", Linked, 2, true, 100, 2},
    };
    for (const auto& [what, type, fee, percentage, share, total] : cases) {
        FFunding.Loans.Clear();
        Add(type, Total, share, fee).LoanFees.Percentage = percentage;
        for (int pass = 1; pass <= 2; ++pass) {
            Calculate();
            ExpectClose(FFunding.TotalFees, total, what);
        }
    }
    FFunding.Loans[0].BorrowPercentage = 0;
    Calculate();
    EXPECT_EQ(FFunding.TotalFees, 0) << "nothing is left of the pass before";
}

TEST_F(Funding, WhatIsLeftOverIsTheCashThatNoLoanTookCareOf) {
    Calculate();
    ExpectMonths(FLeft, {-1000, -1000, 3000}, "no loans");
    Add(Standard, Total, 100, 30).Maximum = 1000;
    TlotLoan& cash = Add(Cash);
    cash.Start = 1;
    cash.Period = 9;
    // 1000 in month 0 fills the Standard loan, which pays 10 of interest in cash twice and repays 1000. The Cash loan's
    // repayment falls after the project.
    Calculate();
    ExpectMonths(FLeft, {-1000 + 1000 - 10 - 30, -1000 - 10 + 500, 3000 - 1000});
    FFunding.Loans.Clear();
    Add(Linked);
    Calculate();
    ExpectMonths(FLeft, {0, 0, 3000 - 2030.1}, "1010 + 1000, and its interest");
}

TEST_F(Funding, AnUnknownTypeEndsTheCalculationAndLeavesTheLoansBehindItEmpty) {
    const TlotLoan& before = Add(Standard);
    TlotLoan& bad = Add(static_cast<TlotLoanType>(7));
    const TlotLoan& behind = Add(Standard);
    bad.Active = false;
    Calculate();
    EXPECT_EQ(behind.Debt.Count(), 3) << "an inactive loan is passed over";
    bad.Active = true;
    EXPECT_THROW(Calculate(), ELotError);
    EXPECT_EQ(before.Debt.Count(), 3);
    EXPECT_EQ(behind.Debt.Count(), 0);
}

} // namespace
