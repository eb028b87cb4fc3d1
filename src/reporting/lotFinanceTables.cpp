// SPDX-License-Identifier: GPL-3.0-or-later
//
// The loans, what they cost, and the equity.
#include "reporting/lotTableFillers.h"

namespace {

/// What the loan lends on. Unknown types never get here: a calculation refuses them.
std::string LoanTypeText(const TlotReportSource& source, const TlotLoan& loan) {
    switch (loan.LoanType) {
    case TlotLoanType::Standard: return source.Percent(loan.BorrowPercentage) + " of project";
    case TlotLoanType::Cash: return source.Picture(",0", loan.Amount);
    case TlotLoanType::Linked: return source.Percent(loan.BorrowPercentage) + " of " + loan.Base;
    }
    return {};
}

std::string RateText(const TlotReportSource& source, bool variable, double rate) {
    return variable ? "Variable Rate" : source.Percent(rate);
}

void AddFees(TlotTable& table, const TlotReportSource& source, const TlotLoan& loan) {
    const TlotLoanFees& fees = loan.LoanFees;
    table.Append()
        .Set("Name", "Funding Fees")
        .Set("LoanType", fees.Percentage ? "Percentage of facility" : "Fixed")
        .Set("InterestRate", fees.Percentage ? source.Percent(fees.Amount) : source.Picture(",0", fees.Amount))
        .Set("TotalInterest", loan.FeeLine.Amount);
}

} // namespace

void FillFinanceData(TlotTable& table, const TlotReportSource& source) {
    const TlotProject& project = source.Project;
    const std::int64_t length = project.Cashflow.LastMonth();
    for (const auto& loan : project.Funding.Loans) {
        const bool limited = loan->LoanType == TlotLoanType::Cash && loan->Period > 0;
        table.Append()
            .Set("Name", loan->Name)
            .Set("LoanType", LoanTypeText(source, *loan))
            .Set("InterestRate", RateText(source, loan->VariableRate, loan->InterestRate.Value))
            .Set("TotalInterest", loan->TotalInterest)
            .Set("Term", std::to_string(limited ? loan->Period : length - loan->Start) + " mths");
        if (loan->LoanFees.Amount != 0) {
            AddFees(table, source, *loan);
        }
    }
    const TlotEquity& equity = project.Equity;
    table.Append()
        .Set("Name", "Equity")
        .Set("InterestRate", RateText(source, equity.VariableRate, equity.InterestRate.Value))
        .Set("TotalInterest", equity.TotalInterest);
}
