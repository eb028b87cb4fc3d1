// SPDX-License-Identifier: GPL-3.0-or-later
//
// The account that takes whatever the loans leave over: charged interest on what the project owes it, paid interest on
// what it holds, and the source of the project's NPV and IRR.
#pragma once

#include "common/lotFields.h"
#include "engine/lotAdjust.h"
#include "engine/lotCashflow.h"
#include "finance/lotInterestTerms.h"

struct TlotEquityTerms : TlotInterestTerms {
    double CreditInterestRate = 0; ///< Rate on a positive balance, percent a year.
    double DiscountRate = 0;       ///< Percent a year.
    bool NPVIRRIncludesInterest = true;

    template <class Visitor> static void VisitFields(Visitor&& visit) {
        visit(TlotFieldInfo{"DiscountRate"}, &TlotEquityTerms::DiscountRate);
        visit(TlotFieldInfo{"InterestRate"}, &TlotEquityTerms::InterestRate);
        visit(TlotFieldInfo{"CreditInterestRate"}, &TlotEquityTerms::CreditInterestRate);
        visit(TlotFieldInfo{"VariableRate"}, &TlotEquityTerms::VariableRate);
        visit(TlotFieldInfo{.Name = "NPVIRRIncludesInterest", .Since = 2}, &TlotEquityTerms::NPVIRRIncludesInterest);
    }
    /// Its arrays of months.
    template <class Visitor> static void VisitArrays(Visitor&& visit) {
        visit("InterestRates", &TlotEquityTerms::InterestRates);
    }

    friend bool operator==(const TlotEquityTerms&, const TlotEquityTerms&) = default;
};

struct TlotEquityResults {
    TlotCashflowItem Cashflow;                  ///< Cash to (negative) or from equity.
    TlotCashflowItem Balance;                   ///< Running balance. Never emptied: each month is overwritten.
    TlotCashflowItem Interest;                  ///< Of the closing balance, felt in the next month.
    TlotCashflowItem CashflowIncludingInterest; ///< Cashflow + Interest.
    double NPV = 0;
    double IRR = 0;           ///< Percent a year.
    double TotalInterest = 0; ///< A cost; credit interest takes it down.
    double TotalCash = 0;     ///< The negative months of Cashflow, as a positive figure.
};

class TlotEquity : public TlotEquityTerms, public TlotEquityResults {
public:
    TlotEquity();

    /// Fills everything from Cashflow; `adjust` may be null. Its rate is not added to the credit rate.
    void Calculate(const TlotAdjust* adjust);

    /// Sets the debit rate to 0 and empties Interest, CashflowIncludingInterest and Cashflow. Balance, NPV, IRR and the
    /// totals keep their figures. So a project with an equity source loses its debit rate at its first calculation:
    /// deliberate.
    void ClearResults();

private:
    void RunMonths(double rateAdjustment);
    void CalculateReturns();
};
