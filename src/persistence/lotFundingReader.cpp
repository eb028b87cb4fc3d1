// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/lotFundingReader.h"

#include "common/vipErrors.h"
#include "persistence/lotFieldForms.h"
#include "persistence/lotLimits.h"

#include <algorithm>

namespace {

/// An element with `Count` and that many `Value` children: missing ones count as 0, further ones are ignored. A count
/// of zero or less leaves the array as it was.
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
    ReadFields<TlotLoanTerms>(FContext, e, loan);
    ReadOldShare(e, loan);
    for (const pugi::xml_node node : e.Node().children()) {
        if (node.type() == pugi::node_element) {
            ReadLoanChild(FContext.Element(node), loan);
        }
    }
    FContext.CountLoan(e, loan);
}

/// What a loan took of the cashflow, in the forms before borrowing and repayment had a share each.
void TlotFundingReader::ReadOldShare(const TlotElement& e, TlotLoan& loan) const {
    if (FContext.Version >= 11) {
        return;
    }
    if (FContext.Version >= 4) {
        loan.BorrowPercentage = e.Number("Percentage");
    } else if (e.Boolean("Percentage")) {
        loan.LoanType = TlotLoanType::Standard;
        loan.BorrowPercentage = e.Number("Borrowing");
    } else {
        loan.LoanType = TlotLoanType::Cash;
        loan.Amount = e.Number("Borrowing");
    }
    loan.RepayPercentage = loan.BorrowPercentage;
}

void TlotFundingReader::ReadLoanChild(const TlotElement& e, TlotLoan& loan) {
    TlotLoanTerms::VisitArrays([&](const char* name, auto array) {
        if (e.Is(name)) {
            ReadValueArray(e, loan.*array);
        }
    });
    if (e.Is("LoanFees")) {
        ReadFields(FContext, e, loan.LoanFees);
    } else if (e.Is("Borrowing")) {
        FContext.ReadSpread(e, loan.Borrowing);
    }
}

void TlotFundingReader::ReadEquity(const TlotElement& e, TlotEquity& equity) {
    ReadFields<TlotEquityTerms>(FContext, e, equity);
    TlotEquityTerms::VisitArrays([&](const char* name, auto array) {
        if (const pugi::xml_node values = e.Node().child(name)) {
            ReadValueArray(FContext.Element(values), equity.*array);
        }
    });
}
