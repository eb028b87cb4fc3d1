// SPDX-License-Identifier: GPL-3.0-or-later
//
// The cashflow sheet: which blocks and rows it has, how money is signed, and where the columns stand.
#include "reporting/lotCashflowSheet.h"
#include "support/lotFiles.h"
#include "support/lotTestProject.h"

namespace {

class CashflowSheet : public testing::Test {
protected:
    CashflowSheet() : FProject(TestToday) {
        TlotUnit& shop = AddUnit(FProject, "Commercial", 100, 50, 8);
        shop.Name = "Shop";
        shop.BuildArea.Value = 100;
        shop.BuildRate.Value = 120;
        shop.BuildLine.Period = 2;
        shop.SalesLine.Start = 3;
        shop.SalesLine.Period = 1;
        FProject.BaseValues.SiteValue.Amount = 1000;
    }

    void Build(TlotCashflowSheetOptions options = {}) {
        FProject.Calculate();
        BuildCashflowSheet(FPage, FProject, options, "Arial", 8, PointLocale);
    }
    [[nodiscard]] std::string Text(int row, int column) const { return FPage.Shown(row, column, PointLocale).Text; }
    /// The labels from top to bottom, "|" after each.
    [[nodiscard]] std::string Labels() const {
        std::string labels;
        for (int row = 1; row < FPage.RowCount(); ++row) {
            labels += Text(row, 0) + "|";
        }
        return labels;
    }
    /// The row of that label, the `which`th from the top.
    [[nodiscard]] int Find(const std::string& label, int which = 1) const {
        for (int row = 1; row < FPage.RowCount(); ++row) {
            if (Text(row, 0) == label && --which == 0) {
                return row;
            }
        }
        ADD_FAILURE() << "no row " << label;
        return 0;
    }
    TlotLoan& AddLoan(const char* name) {
        TlotLoan& loan = FProject.Funding.Loans.Add();
        loan.Name = name;
        loan.BorrowPercentage = 100;
        loan.RepayPercentage = 100;
        return loan;
    }

    TlotProject FProject;
    TSpreadsheetPage FPage;
};

TEST_F(CashflowSheet, BlocksFollowTheProject) {
    Build();
    EXPECT_EQ(Labels(), "Sales|Shop|Total Sales|Build|Shop|Total Build|Site Value|Site Value|Summary|Total|NPV|IRR|"
                        "Equity 0.000%|Total|Cashflow|NPV|IRR|");
    FProject.Units[0].PreSalesRent = 2400;
    AddItem(AddSection(FProject, "Fees", "Construction Costs"), "Architects", 10, "BUILD");
    AddSection(FProject, "Empty", "Site Costs");
    AddLoan("Idle").Active = false;
    FProject.Equity.InterestRate.Value = 6;
    FProject.Equity.DiscountRate = 8;
    Build();
    EXPECT_EQ(Labels(), "Sales|Shop|Total Sales|Rent|Shop|Build|Shop|Total Build|Site Value|Site Value|"
                        "Fees|Architects|Total Fees|Empty|Summary|Total|NPV|IRR|"
                        "Equity 6.000%|Total|Balance|Interest|Total Interest|Cashflow|Discount Rate|NPV|IRR|");
    EXPECT_TRUE(FPage.StyleOf(FPage.Cell(Find("Total Fees"), 1)).Bold);
    EXPECT_FALSE(FPage.StyleOf(FPage.Cell(Find("Total Build"), 1)).Bold);
}

TEST_F(CashflowSheet, CostsAreNegativeAndShownInRedBrackets) {
    Build();
    const int build = Find("Shop", 2);
    EXPECT_EQ(Text(build, 1), "(6,000)");
    EXPECT_TRUE(FPage.Shown(build, 1, PointLocale).Red);
    EXPECT_EQ(Text(build, 3), "0");
    EXPECT_EQ(Text(Find("Shop"), 4), "62,500"); // 5,000 at 8 % in perpetuity.
    EXPECT_EQ(Text(Find("Site Value", 2), 1), "(1,000)");
    EXPECT_EQ(FPage.ColumnCount(), 5);
    EXPECT_EQ(Text(0, 1), "Mar-2023");
}

TEST_F(CashflowSheet, LessThanHalfAUnitShowsAsZeroButCountsInTheTotal) {
    TlotSection& section = AddSection(FProject, "Small", "Site Costs");
    TlotItem& item = AddItem(section, "Stamps", 0.8);
    item.Line.Period = 2;
    AddItem(section, "Half", 0.5).Line.Period = 1;
    Build({.ShowTotals = true});
    const int row = Find("Stamps");
    EXPECT_EQ(FPage.Cell(row, 1).Number, -0.8);
    EXPECT_EQ(FPage.Cell(row, 2).Number, 0);
    EXPECT_EQ(FPage.Cell(Find("Half"), 2).Number, -0.5);
    EXPECT_EQ(FPage.Cell(Find("Total Small"), 2).Number, -0.9) << "The total adds what the months hold.";
}

TEST_F(CashflowSheet, ColumnsThatAreNotShownTakeNoRoom) {
    FProject.Units[0].SalesAccountCode = "S1";
    struct TCase {
        bool Accounts;
        bool Totals;
        std::string Header;
        std::string Row;
    };
    for (const TCase& row : {TCase{false, false, "|Mar-2023|Apr-2023|May-2023", "Shop|0|0|0"},
                             {true, false, "|Account|Mar-2023|Apr-2023", "Shop|S1|0|0"},
                             {false, true, "|Total|Mar-2023|Apr-2023", "Shop|62,500|0|0"},
                             {true, true, "|Account|Total|Mar-2023", "Shop|S1|62,500|0"}}) {
        Build({row.Accounts, row.Totals});
        const auto first = [&](int line) {
            return Text(line, 0) + "|" + Text(line, 1) + "|" + Text(line, 2) + "|" + Text(line, 3);
        };
        EXPECT_EQ(first(0), row.Header);
        EXPECT_EQ(first(Find("Shop")), row.Row);
        EXPECT_EQ(FPage.FrozenColumns, 1 + (row.Accounts ? 1 : 0) + (row.Totals ? 1 : 0));
    }
    EXPECT_EQ(Text(Find("Total"), 2), "") << "The project's own line has no total.";
}

TEST_F(CashflowSheet, LoanRowsFollowItsTerms) {
    TlotLoan& loan = AddLoan("Senior");
    loan.InterestRate.Value = 12;
    loan.LoanFees.Amount = 100;
    Build();
    const std::string all = Labels();
    const std::string senior = all.substr(all.find("Senior"), all.find("Equity") - all.find("Senior"));
    EXPECT_EQ(senior, "Senior 12.000%|Borrowing|Repayment|Fees|Debt|Interest|Fees|Total Interest|Maximum Debt|");
    EXPECT_EQ(Text(Find("Borrowing"), 1), "7,000");
    EXPECT_EQ(Text(Find("Debt"), 1), "(7,000)");
    EXPECT_EQ(Text(Find("Interest"), 1), "(70)");

    loan.VariableRate = true;
    loan.VariablePercentage = true;
    loan.InterestRates.Set(0, 6);
    loan.InterestRates.Set(1, 0);
    FProject.IncludeExtraLoanDetail = true;
    FProject.Funding.EquitySource = "Senior";
    Build();
    EXPECT_EQ(Labels().substr(all.find("Senior")),
              "Senior|Cashflow In|Borrowing Source|Borrow Percentage|Repay Percentage|Rolled Over Debt|Need to Borrow|"
              "Borrowing|Can Repay|Repayment|Fees|Debt|Variable Rate|Interest|Fees|Total Interest|Maximum Debt|"
              "Cashflow|NPV|IRR|Cashflow Out|");
    EXPECT_EQ(Text(Find("Variable Rate"), 1), "6.000%");
    EXPECT_EQ(Text(Find("Variable Rate"), 2), "");
    EXPECT_EQ(Text(Find("Borrow Percentage"), 1), "100.000%");
}

} // namespace
