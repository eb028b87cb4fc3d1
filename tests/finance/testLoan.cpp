// SPDX-License-Identifier: GPL-3.0-or-later
//
// Loans at 12 % a year, 1 % of the closing balance a month, each worked month by month.
#include "common/vipErrors.h"
#include "finance/lotLoanCalc.h"
#include "support/lotRows.h"

#include <gtest/gtest.h>

namespace {

class Loan : public testing::Test {
protected:
    Loan() { FLoan.InterestRate.Value = 12; }

    void Standard(const TlotCashflowItem& cashflow, double borrow, double repay, double adjustment = 0) {
        FLoan.BorrowPercentage = borrow;
        FLoan.RepayPercentage = repay;
        TlotLoanCalcStandardEnhanced(FLoan).Calculate(cashflow, adjustment);
    }

    void Cash(int count, int start, int period) {
        FLoan.Amount = 1000;
        FLoan.Start = start;
        FLoan.Period = period;
        TlotLoanCalcCash(FLoan).Calculate(count, 0);
    }

    void Linked(TlotLoan& loan, const TlotCashflowItem& build, TlotCashflowItem& inflow) {
        TlotVars vars;
        vars.Add("BUILD", build);
        loan.Base = "BUILD";
        loan.BorrowPercentage = 50;
        TlotLoanCalcLinked(loan).Calculate(inflow, vars, 0);
    }

    TlotLoan FLoan;
};

TEST_F(Loan, StandardBorrowsItsShareOfDeficitsAndRepaysFromItsShareOfSurpluses) {
    // Borrows 80 %, repays out of 50 %.
    // month  flow  opening        drawn  repaid         closing       interest
    // 0     -1000     0            800      0           -800           -8
    // 1      -500  -808            400      0          -1208          -12.08
    // 2       200 -1220.08           0    100          -1120.08       -11.2008
    // 3      -300 -1131.2808       240      0          -1371.2808     -13.712808
    // 4      3000 -1384.993608       0   1384.993608       0            0
    // 5       100     0              0      0              0            0
    FLoan.LoanFees.Amount = 50;
    Standard(RowOf({-1000, -500, 200, -300, 3000, 100}), 80, 50);
    ExpectMonths(FLoan.Borrowing, {800, 400, 0, 240, 0, 0});
    ExpectMonths(FLoan.CanRepay, {0, 0, 100, 0, 1500, 50});
    ExpectMonths(FLoan.Repayment, {0, 0, 100, 0, 1384.993608, 0});
    ExpectMonths(FLoan.Debt, {-800, -1208, -1120.08, -1371.2808, 0, 0}, "never a credit");
    ExpectMonths(FLoan.CashflowOut, {-250, -100, 100, -60, 1615.006392, 100}, "the fee leaves in month 0");
    ExpectClose(FLoan.TotalInterest, 44.993608);
    ExpectClose(FLoan.MaximumDebt, -1371.2808);
}

TEST_F(Loan, StandardPaysInterestInCashOnceItsFacilityIsFull) {
    // 600, then 394 of the 600 wanted: 606 + 394 is the facility to the penny, and that counts as full.
    FLoan.Maximum = 1000;
    Standard(RowOf({-600, -600, -600, 500}), 100, 100);
    ExpectMonths(FLoan.CanBorrow, {1000, 394, 0, 0});
    ExpectMonths(FLoan.Debt, {-600, -1000, -1000, -500});
    ExpectMonths(FLoan.Interest, {-6, 0, 0, -5});
    ExpectMonths(FLoan.ExcessInterest, {0, -10, -10, 0});
    ExpectMonths(FLoan.CashflowOut, {0, -206, -600, 0}, "which the excess is not charged to");
    ExpectClose(FLoan.TotalInterest, 11, "nor the total");
}

TEST_F(Loan, StandardTakesPercentagesAndRatesByMonth) {
    // 2 % in month 0 and 3 % from month 1, the adjustment included; the last figure of an array goes on, an empty one
    // takes the fixed figure.
    FLoan.VariablePercentage = FLoan.VariableRate = true;
    FLoan.BorrowPercentages = TlotDoubles({50, 100});
    FLoan.InterestRates = TlotDoubles({12, 24});
    Standard(RowOf({-1000, -1000, -1000, 100}), 1, 25, 12);
    ExpectMonths(FLoan.Borrowing, {500, 1000, 1000, 0});
    ExpectMonths(FLoan.Interest, {-10, -45.3, -76.659, -78.20877});
    ExpectMonths(FLoan.CanRepay, {0, 0, 0, 25});
}

TEST_F(Loan, CashRollsUpItsAdvanceAndFeeAndRepaysAllInItsLastMonth) {
    // Advance 1000 with a fee of 2 % in the debt: 1020, and 1020 x 1.01^5 = 1072.030251102 in the sixth month.
    FLoan.LoanFees = {2, true};
    Cash(6, 0, 0);
    ExpectMonths(FLoan.Debt, {-1020, -1030.2, -1040.502, -1050.90702, -1061.4160902, 0});
    ExpectMonths(FLoan.Borrowing, {1000, 0, 0, 0, 0, -1072.030251102});
    ExpectClose(FLoan.TotalInterest, 52.030251102);
}

TEST_F(Loan, CashMayOutlastTheProjectButNeedsTwoMonths) {
    FLoan.VariableRate = true;
    FLoan.InterestRates = TlotDoubles({12});
    FLoan.LoanFees.Amount = 10;
    Cash(3, 1, 4); // Rates are there for the three months of the project: month 3 bears nothing.
    ExpectMonths(FLoan.Debt, {0, -1010, -1020.1, -1030.301, 0});
    ExpectMonths(FLoan.Borrowing, {0, 1000, 0, 0, -1030.301});
    FLoan.ClearResults();
    Cash(4, 2, 1);
    ExpectMonths(FLoan.Borrowing, {0, 0, 0}, "nothing is advanced in the month of repayment");
    EXPECT_THROW(Cash(4, 0, 1), ERangeError) << "there is no month before the first";
    EXPECT_THROW(Cash(4, -1, 3), ERangeError);
}

TEST_F(Loan, LinkedLoanStopsForGoodOnceRepaid) {
    // Half the build cost; a fee of 10 in money, though it says percent, in the first month of debt.
    // month  opening        drawn  repaid          closing        interest
    // 0         0              0      0               0             0
    // 1         0            500      0            -510            -5.1
    // 2      -515.1          500      0           -1015.1         -10.151
    // 3     -1025.251       (250)   300            -975.251        -9.75251
    // 4      -985.00351        0    985.00351         0             0
    // 5       repaid: the 100 are not drawn
    // The 250 of month 3, a month of part repayment, join the debt without showing as a drawing.
    FLoan.LoanFees = {10, true};
    TlotCashflowItem inflow = RowOf({50, 0, 0, 300, 2000, 0});
    Linked(FLoan, RowOf({0, 1000, 1000, 500, 0, 200}), inflow);
    ExpectMonths(FLoan.BorrowingSource, {0, 500, 500, 250, 0, 100});
    ExpectMonths(FLoan.RolledOverDebt, {0, 0, -515.1, -1025.251, -985.00351});
    ExpectMonths(FLoan.Borrowing, {0, 500, 500});
    ExpectMonths(FLoan.Repayment, {0, 0, 0, 300, 985.00351});
    ExpectMonths(FLoan.Debt, {0, -510, -1015.1, -975.251, 0, 0});
    ExpectMonths(inflow, {50, 0, 0, 0, 1014.99649, 0});
    ExpectClose(FLoan.TotalInterest, 25.00351);
    EXPECT_EQ(FLoan.TotalBorrowed, 1000);
}

TEST_F(Loan, TheFirstLinkedLoanOfTheListIsRepaidFirst) {
    TlotLoan second;
    TlotCashflowItem inflow = RowOf({0, 605, 400, 0});
    Linked(FLoan, RowOf({1000}), inflow);
    Linked(second, RowOf({1000, 0, 0, 1000}), inflow); // At no interest.
    ExpectMonths(FLoan.Repayment, {0, 505});
    ExpectMonths(second.Repayment, {0, 100, 400});
    ExpectMonths(second.Debt, {-500, -400, 0, 0}, "repaid to the penny is repaid for good");
}

TEST_F(Loan, LinkedBaseIsReadPieceByPiece) {
    // Income counts against the source. A blank belongs to the name behind it. The first of a name is found.
    const TlotCashflowItem build = RowOf({0, 1000});
    const TlotCashflowItem grant = RowOf({0, 100}, true);
    TlotVars vars;
    vars.Add("BUILD", build);
    vars.Add("Other Income", "Grant", grant);
    vars.Add("Build", grant);
    const std::pair<const char*, double> cases[] = {
        {"BUILD", 500},        {"build+Other Income.GRANT", 450}, {"BUILD+ Other Income.Grant", 500},
        {"BUILD+BUILD", 1000}, {"Demolition+BUILD", 500},         {" ", 0},
    };
    for (const auto& [base, month1] : cases) {
        TlotSource source;
        vars.MakeSource(base, 0.5, source);
        EXPECT_EQ(source.Value(1), month1) << base;
    }
}

} // namespace
