// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipErrors.h"
#include "support/lotRows.h"
#include "support/lotTestProject.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

/// A shop let at 12,000 and worth 150,000, and flats at 50,000, built for 40,000 on a site of 60,000.
class Project : public testing::Test {
protected:
    Project() {
        FShop.BuildArea.Value = 400;
        FShop.BuildRate.Value = 100;
        FBase.SiteValue.Amount = 60'000;
        FShop.BuildLine.Start = 1;
        FShop.SalesLine.Start = FFlats.SalesLine.Start = 12;
    }

    TlotLoan& AddLoan(TlotLoanType type) {
        TlotLoan& loan = FProject.Funding.Loans.Add();
        loan.Name = "Bank";
        loan.LoanType = type;
        loan.InterestRate.Value = 12;
        loan.BorrowPercentage = loan.RepayPercentage = 100;
        return loan;
    }

    TlotProject FProject{0};
    TlotBaseValues& FBase = FProject.BaseValues;
    TlotUnit& FShop = AddUnit(FProject, "Commercial", 1000, 12, 8);
    TlotUnit& FFlats = AddUnit(FProject, "Residential", 1, 50'000);
};

TEST_F(Project, MeasuresAddUpByHand) {
    // Cost 60,000 + 40,000 + 4,000 of fees; value 200,000 + 1,000 of income. Nothing is borrowed at a rate.
    AddItem(AddSection(FProject, "Fees", "Costs"), "Architect", 10, "BUILD");
    AddItem(AddSection(FProject, "Grants", "Income", true), "Grant", 1000);
    FProject.Calculate();
    ExpectClose(FBase.ProfitOnCost, 97 / 1.04);
    ExpectClose(FBase.ProfitOnGDV, 48.5);
    ExpectClose(FBase.ProfitOnNDV, 97 / 2.01);
    ExpectClose(FBase.SiteValueOnGDV, 30);
    ExpectClose(FBase.RentalYield, 12 / 1.04);
    EXPECT_EQ(FBase.RentalCover, 97);
    EXPECT_EQ(FBase.InterestCover, 0);
    EXPECT_EQ(FProject.Cashflow.Items.size(), 7U) << "without a rent before sale there is no line of it";
    FBase.SiteValue.Amount += 144'600;
    FProject.Calculate();
    EXPECT_EQ(FBase.RentalCover, -47) << "-47.6 + 0.5, cut towards zero";
    FProject.Clear(0);
    FProject.Calculate();
    EXPECT_EQ(FProject.TDC + FBase.Profit + FBase.ProfitOnCost + FBase.RentalYield + FProject.SiteValuePerArea, 0);
}

TEST_F(Project, ABaseMayReadThePassBefore) {
    TlotItem& first = AddItem(AddSection(FProject, "A", "Costs"), "a", 100, "GROUP");
    AddItem(AddSection(FProject, "B", "Costs"), "b", 500);
    TlotItem& third = AddItem(AddSection(FProject, "C", "costs"), "c", 100, "GROUP");
    TlotItem& bonus = AddItem(AddSection(FProject, "D", "Costs"), "d", 10, "PROFIT");
    FProject.Calculate();
    EXPECT_EQ(first.Line.Amount, 0);
    EXPECT_EQ(third.Line.Amount, 500) << "\"costs\" is another group, but the last one was \"Costs\"";
    EXPECT_EQ(bonus.Line.Amount, 0);
    FProject.Calculate();
    EXPECT_EQ(first.Line.Amount, 500) << "the group of section D";
    EXPECT_EQ(third.Line.Amount, 1000);
    EXPECT_EQ(bonus.Line.Amount, 9900) << "a tenth of 200,000 - 100,000 - 1,000";
}

TEST_F(Project, GroundRentIsSharedOutFromTheSecondPassOn) {
    FProject.Leasehold = true; // Without a term it is valued in perpetuity.
    FProject.TotalGroundRent = 2000;
    FProject.Calculate();
    EXPECT_EQ(FShop.GrossSale.Value, 150'000);
    EXPECT_EQ(FBase.NetRent.Amount, 10'000) << "the rent itself is net at once";
    FProject.Calculate();
    EXPECT_EQ(FShop.GrossSale.Value, 125'000);
}

TEST_F(Project, InflationReachesItsTargetsInTheCashflowAndNoTotal) {
    TlotUnit& hotel = AddUnit(FProject, "Hotel", 1, 100);
    TlotUnit& parking = AddUnit(FProject, "Non-Capitalised", 1, 100);
    TlotCashflowItem* const lines[] = {&FBase.SiteValue,  &FShop.BuildLine,   &FShop.SalesLine,
                                       &FFlats.SalesLine, &parking.SalesLine, &hotel.SalesLine};
    for (std::size_t target = 0; target < InflationTargetCount; ++target) {
        FProject.Inflation.Targets.reset();
        FProject.Inflation.Targets.set(target);
        FProject.Inflation.Rate = 10 + static_cast<double>(target);
        for (TlotCashflowItem* const line : lines) {
            line->Start = 12;
        }
        FProject.Calculate();
        for (std::size_t i = 0; i < std::size(lines); ++i) {
            ExpectClose(lines[i]->Sum() / lines[i]->Amount, i == target ? 1 + FProject.Inflation.Rate / 100 : 1);
        }
        EXPECT_EQ(FBase.Profit, 200'200 - 100'000);
    }
}

TEST_F(Project, ALoanAsEquitySourceTakesTheEquitysPlace) {
    TlotLoan& loan = AddLoan(TlotLoanType::Standard);
    FProject.Equity.InterestRate.Value = 6;
    FProject.Calculate();
    const double equityNPV = FProject.NPV();
    FProject.Funding.EquitySource = "Bank";
    FProject.Calculate();
    // 60,000 for a year and 40,000 for eleven months at 1 % a month.
    const double interest = 60'000 * (std::pow(1.01, 12) - 1) + 40'000 * (std::pow(1.01, 11) - 1);
    ExpectClose(FProject.TDC, 100'000 + interest);
    ExpectClose(FProject.NPV(), 100'000 - interest, "flows with the interest of each month, undiscounted");
    ExpectClose(loan.NPVExcludingInterest, 100'000 - interest, "flows after drawings and the repayment");
    EXPECT_EQ(FProject.Equity.InterestRate.Value, 0) << "cleared, on purpose, where a loan stands in for the equity";
    EXPECT_EQ(FProject.Equity.Cashflow.Count(), 0);
    EXPECT_EQ(FProject.Equity.NPV, equityNPV) << "no longer computed";
    FProject.Funding.EquitySource = "bank";
    EXPECT_EQ(FProject.Funding.FindEquitySourceLoan(), nullptr) << "no loan of exactly that name";
    FProject.Funding.EquitySource = "Bank";
    loan.Active = false;
    FProject.NPVIRRSource = TlotNPVIRRSource::Project;
    FProject.Equity.DiscountRate = 21;
    FProject.Calculate();
    EXPECT_EQ(FProject.Equity.Cashflow.Count(), 13) << "an inactive loan takes no place";
    const double month = std::pow(1.21, 1.0 / 12);
    ExpectClose(FProject.NPV(), (-60'000 - 40'000 / month + 200'000 / 1.21) / month, "before finance, to month ends");
}

TEST_F(Project, AFailedPassLeavesTheProjectUsable) {
    FProject.Calculate();
    const double profit = FBase.Profit;
    TlotLoan& loan = AddLoan(static_cast<TlotLoanType>(7));
    try {
        FProject.Calculate();
        ADD_FAILURE();
    } catch (const ELotError& error) {
        EXPECT_STREQ(error.what(), "Unknown LoanType");
    }
    loan.LoanType = TlotLoanType::Cash;
    loan.Period = 1;
    EXPECT_THROW(FProject.Calculate(), ERangeError);
    loan.Period = 2;
    FProject.Calculate();
    EXPECT_EQ(FBase.Profit, profit) << "an advance of nothing";
}

} // namespace
