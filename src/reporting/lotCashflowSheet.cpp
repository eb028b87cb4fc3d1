// SPDX-License-Identifier: GPL-3.0-or-later
#include "reporting/lotCashflowSheet.h"

#include "reporting/lotSheetRows.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double ShownAsZero = 0.5; // Less than half a unit of money.

/// The columns of the sheet; one that isn't shown takes no room.
struct TColumns {
    explicit TColumns(const TlotCashflowSheetOptions& options)
        : Accounts(options.ShowAccountCodes ? 1 : -1),
          Totals(options.ShowTotals ? 1 + (options.ShowAccountCodes ? 1 : 0) : -1),
          First(1 + (options.ShowAccountCodes ? 1 : 0) + (options.ShowTotals ? 1 : 0)) {}

    int Accounts;
    int Totals;
    int First; ///< Of the first month.
};

class TCashflowSheet {
public:
    TCashflowSheet(TSpreadsheetPage& page, const TlotProject& project, const TlotCashflowSheetOptions& options,
                   const TNumberLocale& locale)
        : FPage(page),
          FProject(project),
          FLocale(locale),
          FColumns(options),
          FRows(page, 0, FColumns.First, SheetPeriods(project)),
          FMoney(page.Style({.Format = std::string(AccountingRedFormat)})),
          FBoldMoney(page.Style({.Format = std::string(AccountingRedFormat), .Bold = true})),
          FCode(page.Style({.Alignment = TlotAlignment::Left})) {}

    void Build() {
        Header();
        Units();
        Sections();
        Summary();
        for (const auto& loan : FProject.Funding.Loans) {
            if (loan->Active) {
                Loan(*loan);
            }
        }
        if (FProject.Funding.FindEquitySourceLoan() == nullptr) {
            Equity();
        }
    }

private:
    void Header();
    void Units();
    void Sections();
    void Summary();
    void Loan(const TlotLoan& loan);
    void LoanDetail(const TlotLoan& loan);
    void LoanInterest(const TlotLoan& loan);
    void Equity();

    void Money(const std::string& label, const TlotCashflowItem& line, bool bold = false);
    /// The row only if the line has money.
    void MoneyIfAny(const std::string& label, const TlotCashflowItem& line) {
        if (line.Sum() != 0) {
            Money(label, line);
        }
    }

    TSpreadsheetPage& FPage;
    const TlotProject& FProject;
    const TNumberLocale FLocale;
    const TColumns FColumns;
    TlotSheetRows FRows;
    std::uint16_t FMoney;
    std::uint16_t FBoldMoney;
    std::uint16_t FCode;
};

void TCashflowSheet::Header() {
    if (FColumns.Accounts >= 0) {
        FPage.SetText(0, FColumns.Accounts, "Account", FPage.Style({.Alignment = TlotAlignment::Left, .Bold = true}));
    }
    if (FColumns.Totals >= 0) {
        FPage.SetText(0, FColumns.Totals, "Total", FPage.Style({.Alignment = TlotAlignment::Centre, .Bold = true}));
    }
    const std::uint16_t month = FPage.Style({.Alignment = TlotAlignment::Right, .Bold = true});
    for (int i = 0; i < FRows.Periods(); ++i) {
        FPage.SetText(0, FColumns.First + i, SheetMonth(FProject.StartDate, i), month);
    }
    FRows.NextRow();
}

void TCashflowSheet::Money(const std::string& label, const TlotCashflowItem& line, bool bold) {
    const int row = FRows.Row();
    const std::uint16_t style = bold ? FBoldMoney : FMoney;
    FRows.Label(label, bold);
    if (FColumns.Accounts >= 0 && !line.AccountCode.empty()) {
        FPage.SetText(row, FColumns.Accounts, line.AccountCode, FCode);
    }
    const double sign = line.Income ? 1 : -1;
    if (FColumns.Totals >= 0 && !line.NoTotal) {
        FPage.SetNumber(row, FColumns.Totals, sign * line.Amount, style);
    }
    for (int month = 0; month < FRows.Periods(); ++month) {
        const double value = sign * line.GetValue(month);
        FPage.SetNumber(row, FColumns.First + month, std::abs(value) < ShownAsZero ? 0 : value, style);
    }
    FRows.NextRow();
}

void TCashflowSheet::Units() {
    TlotCashflowItem sales;
    sales.Income = true;
    FRows.Heading("Sales");
    for (const auto& unit : FProject.Units) {
        Money(unit->Name, unit->SalesLine);
        sales.Add(unit->SalesLine);
    }
    Money("Total Sales", sales);

    const auto hasRent = [](const auto& unit) { return unit->RentLine.Amount != 0; };
    if (std::ranges::any_of(FProject.Units, hasRent)) {
        FRows.Heading("Rent");
        for (const auto& unit : FProject.Units) {
            if (hasRent(unit)) {
                Money(unit->Name, unit->RentLine);
            }
        }
    }

    TlotCashflowItem build;
    FRows.Heading("Build");
    for (const auto& unit : FProject.Units) {
        Money(unit->Name, unit->BuildLine);
        build.Add(unit->BuildLine);
    }
    Money("Total Build", build);
    FRows.Heading("Site Value");
    Money("Site Value", FProject.BaseValues.SiteValue);
}

void TCashflowSheet::Sections() {
    for (const auto& section : FProject.Sections) {
        FRows.Heading(section->Name);
        TlotCashflowItem total;
        total.Income = section->Income;
        for (const auto& item : section->Items) {
            Money(item->Name, item->Line);
            total.Add(item->Line);
        }
        if (!section->Items.IsEmpty()) {
            Money("Total " + section->Name, total, true);
        }
    }
}

void TCashflowSheet::Summary() {
    FRows.Heading("Summary");
    Money("Total", FProject.Cashflow.Total);
    FRows.SingleValue("NPV", FProject.Cashflow.NPV, AccountingRedFormat);
    FRows.SingleValue("IRR", FProject.Cashflow.IRR, "0.000%");
}

void TCashflowSheet::Loan(const TlotLoan& loan) {
    const bool extra = FProject.IncludeExtraLoanDetail;
    FRows.Heading(NameWithRate(loan.Name, loan.VariableRate, loan.InterestRate.Value, FLocale));
    LoanDetail(loan);
    Money("Borrowing", loan.Borrowing);
    if (extra) {
        MoneyIfAny("Can Repay", loan.CanRepay);
    }
    MoneyIfAny("Repayment", loan.Repayment);
    if (loan.FeeLine.Amount != 0) {
        Money("Fees", loan.FeeLine);
    }
    Money("Debt", loan.Debt);
    LoanInterest(loan);
    if (&loan == FProject.Funding.FindEquitySourceLoan()) {
        Money("Cashflow", loan.CashflowIncludingInterest);
        FRows.SingleValue("NPV", loan.NPVIncludingInterest, AccountingRedFormat);
        FRows.SingleValue("IRR", loan.IRRIncludingInterest, "0.000%");
    }
    if (extra) {
        MoneyIfAny("Cashflow Out", loan.CashflowOut);
    }
}

void TCashflowSheet::LoanDetail(const TlotLoan& loan) {
    const bool extra = FProject.IncludeExtraLoanDetail;
    if (extra) {
        MoneyIfAny("Cashflow In", loan.CashflowIn);
        Money("Borrowing Source", loan.BorrowingSource);
    }
    if (loan.VariablePercentage) {
        FRows.RateRow("Borrow Percentage", loan.BorrowPercentages);
        FRows.RateRow("Repay Percentage", loan.RepayPercentages);
    }
    if (extra) {
        Money("Rolled Over Debt", loan.RolledOverDebt);
        MoneyIfAny("Can Borrow", loan.CanBorrow);
        MoneyIfAny("Need to Borrow", loan.NeedToBorrow);
    }
}

void TCashflowSheet::LoanInterest(const TlotLoan& loan) {
    if (loan.VariableRate) {
        FRows.RateRow("Variable Rate", loan.InterestRates);
    }
    // By the fixed rate alone, deliberately, also where the rate is variable.
    if (loan.InterestRate.Value != 0) {
        Money("Interest", loan.Interest);
        MoneyIfAny("Excess Interest", loan.ExcessInterest);
    }
    if (loan.Fees.Amount != 0) {
        Money("Fees", loan.Fees);
    }
    FRows.SingleValue("Total Interest", -loan.TotalInterest, AccountingRedFormat);
    FRows.SingleValue("Maximum Debt", loan.MaximumDebt, AccountingRedFormat);
}

void TCashflowSheet::Equity() {
    const TlotEquity& equity = FProject.Equity;
    FRows.Heading(NameWithRate("Equity", equity.VariableRate, equity.InterestRate.Value, FLocale));
    Money("Total", equity.Cashflow);
    // Unlike a loan's, none of these where the fixed rate is 0, deliberately.
    if (equity.InterestRate.Value != 0) {
        Money("Balance", equity.Balance);
        if (equity.VariableRate) {
            FRows.RateRow("Variable Rate", equity.InterestRates);
        }
        Money("Interest", equity.Interest);
        FRows.SingleValue("Total Interest", -equity.TotalInterest, AccountingRedFormat);
    }
    Money("Cashflow", equity.CashflowIncludingInterest);
    if (equity.DiscountRate != 0) {
        FRows.SingleValue("Discount Rate", equity.DiscountRate, "0.000%");
    }
    FRows.SingleValue("NPV", equity.NPV, AccountingRedFormat);
    FRows.SingleValue("IRR", equity.IRR, "0.000%");
}

} // namespace

void BuildCashflowSheet(TSpreadsheetPage& page, const TlotProject& project, const TlotCashflowSheetOptions& options,
                        const std::string& fontName, int fontSize, const TNumberLocale& locale) {
    const TSpreadsheetBatch batch(page);
    page.Clear();
    page.Title = "Cashflow";
    page.FrozenRows = 1;
    page.FrozenColumns = TColumns(options).First;
    ApplySheetFont(page, fontName, fontSize);
    TCashflowSheet(page, project, options, locale).Build();
}
