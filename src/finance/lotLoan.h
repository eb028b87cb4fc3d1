// SPDX-License-Identifier: GPL-3.0-or-later
//
// One loan: its stored terms and the rows that a calculator (lotLoanCalc) fills month by month.
//
// Money is signed from the project's point of view: a debt is a negative balance, interest on a debt is negative, and a
// drawing is a positive figure in Borrowing, since it is cash into the project. Rates are percent a year; a month's
// interest is simple, rate / 100 / 12 of the month's closing balance, and first felt in the next month's opening debt.
#pragma once

#include "common/lotDoubles.h"
#include "common/lotFields.h"
#include "common/lotLifetime.h"
#include "common/lotOwningList.h"
#include "engine/lotCashflow.h"
#include "finance/lotInterestTerms.h"
#include "finance/lotVars.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

enum class TlotLoanType : std::uint8_t { Standard = 0, Cash = 1, Linked = 2 };

/// The cashflow that a loan works on; any other number acts as ProjectTotal.
enum class TlotLoanSource : std::uint8_t { ProjectTotal = 0, Above = 1 };

struct TlotLoanFees {
    double Amount = 0;       ///< Money, or percent.
    bool Percentage = false; ///< Amount is a percentage.

    template <class Visitor> static void VisitFields(Visitor&& visit) {
        visit(TlotFieldInfo{"Amount"}, &TlotLoanFees::Amount);
        visit(TlotFieldInfo{"Percentage"}, &TlotLoanFees::Percentage);
    }

    friend bool operator==(const TlotLoanFees&, const TlotLoanFees&) = default;
};

/// What a user sets of a loan.
struct TlotLoanTerms : TlotInterestTerms {
    std::string Name;
    TlotLoanType LoanType = TlotLoanType::Standard;
    bool Active = true;
    double BorrowPercentage = 0; ///< Of each month's outflow (Standard), of the Base (Linked).
    double RepayPercentage = 0;  ///< Of each month's inflow (Standard).
    bool VariablePercentage = false;
    TlotLoanSource LoanSource = TlotLoanSource::ProjectTotal;
    double Amount = 0;             ///< Cash: the sum advanced at Start.
    double Maximum = 0;            ///< Size of the facility, positive; 0 means no limit.
    std::string Base;              ///< Linked: names of variables joined by "+".
    int Start = 0;                 ///< Cash: month of the advance.
    int Period = 0;                ///< Cash: length in months; 0 or less means to the end of the cashflow.
    TlotDoubles BorrowPercentages; ///< Percent, one a month.
    TlotDoubles RepayPercentages;  ///< Percent, one a month.
    TlotLoanFees LoanFees;

    template <class Visitor> static void VisitFields(Visitor&& visit) {
        using T = TlotLoanTerms;
        visit(TlotFieldInfo{"Name"}, &T::Name);
        visit(TlotFieldInfo{.Name = "LoanType", .Since = 4}, &T::LoanType);
        visit(TlotFieldInfo{"Active"}, &T::Active, true);
        visit(TlotFieldInfo{"InterestRate"}, &T::InterestRate);
        visit(TlotFieldInfo{.Name = "BorrowPercentage", .Since = 11}, &T::BorrowPercentage);
        visit(TlotFieldInfo{.Name = "RepayPercentage", .Since = 11}, &T::RepayPercentage);
        visit(TlotFieldInfo{.Name = "VariablePercentage", .Since = 11}, &T::VariablePercentage);
        visit(TlotFieldInfo{"LoanSource"}, &T::LoanSource);
        visit(TlotFieldInfo{.Name = "Amount", .Since = 4}, &T::Amount);
        visit(TlotFieldInfo{.Name = "Maximum", .Since = 4}, &T::Maximum);
        visit(TlotFieldInfo{.Name = "Base", .Since = 4}, &T::Base);
        visit(TlotFieldInfo{.Name = "Start", .Since = 4, .Form = TlotFieldForm::LoanMonth}, &T::Start);
        visit(TlotFieldInfo{.Name = "Period", .Since = 4, .Form = TlotFieldForm::LoanMonth}, &T::Period);
        visit(TlotFieldInfo{"VariableRate"}, &T::VariableRate);
    }
    /// Its arrays of months.
    template <class Visitor> static void VisitArrays(Visitor&& visit) {
        visit("InterestRates", &TlotLoanTerms::InterestRates);
        visit("Borrow", &TlotLoanTerms::BorrowPercentages);
        visit("Repay", &TlotLoanTerms::RepayPercentages);
    }

    friend bool operator==(const TlotLoanTerms&, const TlotLoanTerms&) = default;
};

/// The months of one calculation, all computed rows of a loan. Rows are as long as the loan's type needs them.
struct TlotLoanRows {
    TlotCashflowItem CashflowIn;      ///< The cashflow that the loan received.
    TlotCashflowItem BorrowingSource; ///< The same cashflow (Standard); the source of drawings (Linked).
    TlotCashflowItem RolledOverDebt;  ///< Opening debt: last month's Debt and Interest.
    TlotCashflowItem CanBorrow;       ///< Room left under Maximum.
    TlotCashflowItem NeedToBorrow;
    TlotCashflowItem Borrowing;
    TlotCashflowItem CanRepay;
    TlotCashflowItem Repayment;
    TlotCashflowItem Debt;           ///< Closing balance.
    TlotCashflowItem Interest;       ///< Charged on the closing balance and rolled into next month.
    TlotCashflowItem ExcessInterest; ///< Cannot be rolled up because the facility is full; leaves as cash.
    TlotCashflowItem Fees;           ///< The fee as cash, all of it in month 0.
    TlotCashflowItem CashflowOut;    ///< The cashflow after this loan.
    TlotCashflowItem CashflowExcludingInterest;
    TlotCashflowItem CashflowIncludingInterest;
};

/// Everything that a calculation leaves behind in a loan.
struct TlotLoanResults : TlotLoanRows {
    TlotCashflowItem FeeLine; ///< The fee: negative for Standard and Linked loans, positive for Cash loans.
    double TotalInterest = 0; ///< Positive for a debt.
    double TotalBorrowed = 0;
    double MaximumDebt = 0; ///< The most negative Debt, never above 0.
    double NPVExcludingInterest = 0;
    double NPVIncludingInterest = 0;
    double IRRExcludingInterest = 0; ///< Percent a year.
    double IRRIncludingInterest = 0;
};

class TlotLoan : public TlotLoanTerms, public TlotLoanResults {
public:
    TlotLoan();
    TlotLoan(const TlotLoan&) = delete;
    TlotLoan& operator=(const TlotLoan&) = delete;

    TlotLifetime Lifetime;

    /// Every computed row but the fee's line.
    [[nodiscard]] std::array<TlotCashflowItem*, 15> Rows();

    /// Empties every row and the fee, and sets the totals but TotalBorrowed, which the calculators set, to 0.
    void ClearResults();
    /// With VariablePercentage: gives both percentage arrays at least `count` elements.
    void PreparePercentages(int count);

    /// The share of a month's balance that is its interest, `adjustment` percentage points being added to the rate.
    [[nodiscard]] double MonthFraction(int month, double adjustment) const {
        return (RateOf(month) + adjustment) / 100 / 12;
    }

    /// As the equity source: the two cashflow rows and their rates of return.
    void ComputeCashflows();
    /// As the equity source: the present values of the two rows at `discountRate` percent a year, month 0 undiscounted.
    void ComputeNPV(double discountRate);

    /// Scratch of the Linked calculator, kept for its memory.
    TlotSource Source;
};

/// The loans in order of priority, owned.
class TlotLoanList : public TlotOwningList<TlotLoan> {
public:
    using TlotOwningList<TlotLoan>::IndexOf;
    /// Index of the first loan of exactly that name, or -1.
    [[nodiscard]] int IndexOf(std::string_view name) const;
};
