// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/lotFundingReader.h"

#include "common/vipErrors.h"
#include "persistence/lotLimits.h"

#include <algorithm>

namespace {

/// An element with `Count` and that many `Value` children: what is missing is 0, what is too much is left. A count of
/// zero or less leaves the array as it was.
void ReadValueArray(const TlotElement& e, TlotDoubles& values) {
    const std::int32_t count = e.Integer("Count");
    if (count <= 0) {
        return;
    }
    if (count > lotLimits::Months) {
        throw EFileError(e.Place() + ", Count: " + std::to_string(count) + " is more than " +
                         std::to_string(lotLimits::Months) + " months");
    }
    values.Zero(count);
    int month = 0;
    for (const pugi::xml_node child : e.Node().children()) {
        const TlotElement value(child, e.Locale());
        if (month < count && child.type() == pugi::node_element && value.Is("Value")) {
            values.Set(month++, value.NumberText());
        }
    }
}

} // namespace

void TlotFundingReader::ReadFunding(const TlotElement& e, TlotFunding& funding) {
    for (const pugi::xml_node child : e.Node().children()) {
        if (child.type() == pugi::node_element && FContext.Element(child).Is("Loan")) {
            ReadLoan(FContext.Element(child), funding);
        }
    }
}

void TlotFundingReader::ReadLoan(const TlotElement& e, TlotFunding& funding) {
    TlotLoan& loan = funding.Loans.Add();
    loan.Name = e.Text("Name");
    loan.Active = e.Boolean("Active", true);
    loan.InterestRate.Value = e.Number("InterestRate");
    ReadLoanTerms(e, loan);
    loan.LoanSource = e.Enumeration<TlotLoanSource>("LoanSource");
    loan.VariableRate = e.Boolean("VariableRate");
    for (const pugi::xml_node node : e.Node().children()) {
        if (node.type() != pugi::node_element) {
            continue;
        }
        const TlotElement child = FContext.Element(node);
        if (child.Is("InterestRates")) {
            ReadValueArray(child, loan.InterestRates);
        } else if (child.Is("Borrow")) {
            ReadValueArray(child, loan.BorrowPercentages);
        } else if (child.Is("Repay")) {
            ReadValueArray(child, loan.RepayPercentages);
        } else if (child.Is("LoanFees")) {
            loan.LoanFees.Amount = child.Number("Amount");
            loan.LoanFees.Percentage = child.Boolean("Percentage");
        } else if (child.Is("Borrowing")) {
            FContext.ReadSpread(child, loan.Borrowing);
        }
    }
    FContext.CountLoan(e, loan);
}

void TlotFundingReader::ReadLoanTerms(const TlotElement& e, TlotLoan& loan) const {
    if (FContext.Version < 4) {
        const double borrowing = e.Number("Borrowing");
        if (e.Boolean("Percentage")) {
            loan.LoanType = TlotLoanType::Standard;
            loan.BorrowPercentage = borrowing;
            loan.RepayPercentage = borrowing;
        } else {
            loan.LoanType = TlotLoanType::Cash;
            loan.Amount = borrowing;
        }
        return;
    }
    if (FContext.Version < 11) {
        loan.BorrowPercentage = e.Number("Percentage");
        loan.RepayPercentage = loan.BorrowPercentage;
    } else {
        loan.BorrowPercentage = e.Number("BorrowPercentage");
        loan.RepayPercentage = e.Number("RepayPercentage");
        loan.VariablePercentage = e.Boolean("VariablePercentage");
    }
    loan.LoanType = e.Enumeration<TlotLoanType>("LoanType");
    loan.Amount = e.Number("Amount");
    loan.Maximum = e.Number("Maximum");
    loan.Base = e.Text("Base");
    loan.Start = FContext.LoanMonth(e, "Start");
    loan.Period = FContext.LoanMonth(e, "Period");
}

void TlotFundingReader::ReadEquity(const TlotElement& e, TlotEquity& equity) {
    equity.DiscountRate = e.Number("DiscountRate");
    equity.InterestRate.Value = e.Number("InterestRate");
    equity.CreditInterestRate = e.Number("CreditInterestRate");
    equity.VariableRate = e.Boolean("VariableRate");
    if (FContext.Version >= 2) {
        equity.NPVIRRIncludesInterest = e.Boolean("NPVIRRIncludesInterest");
    }
    if (const pugi::xml_node rates = e.Node().child("InterestRates")) {
        ReadValueArray(FContext.Element(rates), equity.InterestRates);
    }
}
