// SPDX-License-Identifier: GPL-3.0-or-later
//
// One loan: its stored terms and the rows that a calculator (lotLoanCalc) fills month by month.
//
// Money is signed from the project's point of view: a debt is a negative balance, interest on a debt is negative, and a
// drawing is a positive figure in Borrowing, since it is cash into the project. Rates are percent a year; a month's
// interest is simple, rate / 100 / 12 of the month's closing balance, and first felt in the next month's opening debt.
#pragma once

#include "common/lotDoubles.h"
#include "common/vipSADouble.h"
#include "engine/lotCashflow.h"
#include "finance/lotVars.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

enum class TlotLoanType : std::uint8_t { Standard = 0, Cash = 1, Linked = 2 };

/// The cashflow that a loan works on; any other number acts as ProjectTotal.
enum class TlotLoanSource : std::uint8_t { ProjectTotal = 0, Above = 1 };

struct TlotLoanFees {
    double Amount = 0;       ///< Money, or percent.
    bool Percentage = false; ///< Amount is a percentage.
    TlotCashflowItem Line;   ///< The computed fee: negative for Standard and Linked loans, positive for Cash loans.
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

class TlotLoan : public TlotLoanRows {
public:
    TlotLoan();
    TlotLoan(const TlotLoan&) = delete;
    TlotLoan& operator=(const TlotLoan&) = delete;

    std::string Name;
    TlotLoanType LoanType = TlotLoanType::Standard;
    double Amount = 0; ///< Cash: the sum advanced at Start.
    bool Active = true;
    double BorrowPercentage = 0; ///< Of each month's outflow (Standard), of the Base (Linked).
    double RepayPercentage = 0;  ///< Of each month's inflow (Standard).
    bool VariablePercentage = false;
    TlotLoanSource LoanSource = TlotLoanSource::ProjectTotal;
    TlotDoubles BorrowPercentages; ///< Percent, one a month.
    TlotDoubles RepayPercentages;  ///< Percent, one a month.
    double Maximum = 0;            ///< Size of the facility, positive; 0 means no limit.
    std::string Base;              ///< Linked: names of variables joined by "+".
    int Start = 0;                 ///< Cash: month of the advance.
    int Period = 0;                ///< Cash: length in months; 0 or less means to the end of the cashflow.
    bool VariableRate = false;
    TlotLoanFees LoanFees;
    TlotDoubles InterestRates; ///< Percent a year, one a month.
    TlotDoubles StoredInterestRates;
    TlotSADouble InterestRate; ///< Percent a year.

    double TotalInterest = 0; ///< Positive for a debt.
    double TotalBorrowed = 0;
    double MaximumDebt = 0; ///< The most negative Debt, never above 0.
    double NPVExcludingInterest = 0;
    double NPVIncludingInterest = 0;
    double IRRExcludingInterest = 0; ///< Percent a year.
    double IRRIncludingInterest = 0;

    /// Every computed row but the fee's line.
    [[nodiscard]] std::array<TlotCashflowItem*, 15> Rows();

    /// Empties every row and the fee, and sets the totals but TotalBorrowed, which the calculators set, to 0.
    void ClearResults();
    /// With VariableRate: gives InterestRates at least `count` elements.
    void PrepareRates(int count);
    /// With VariablePercentage: gives both percentage arrays at least `count` elements.
    void PreparePercentages(int count);

    /// The share of a month's balance that is its interest, `adjustment` percentage points being added to the rate.
    [[nodiscard]] double MonthFraction(int month, double adjustment) const {
        const double rate = VariableRate ? InterestRates.Get(month) : InterestRate.Value;
        return (rate + adjustment) / 100 / 12;
    }

    /// As the equity source: the two cashflow rows and their rates of return.
    void ComputeCashflows();
    /// As the equity source: the present values of the two rows at `discountRate` percent a year, month 0 undiscounted.
    void ComputeNPV(double discountRate);

    /// For a table of scenarios: keep the fixed and the monthly rates, put them back, shift them from what was kept.
    void SaveRates();
    void RestoreRates();
    void ApplySensitivity(const vip::TSAStep& step);

    /// Scratch of the Linked calculator, kept for its memory.
    TlotSource Source;
};

/// The loans in order of priority, owned.
class TlotLoanList {
public:
    [[nodiscard]] int Count() const noexcept { return static_cast<int>(FLoans.size()); }
    [[nodiscard]] TlotLoan& operator[](int index) { return *FLoans.at(static_cast<std::size_t>(index)); }
    [[nodiscard]] const TlotLoan& operator[](int index) const { return *FLoans.at(static_cast<std::size_t>(index)); }

    TlotLoan& Add() { return *FLoans.emplace_back(std::make_unique<TlotLoan>()); }
    void Delete(int index) { FLoans.erase(FLoans.begin() + index); }
    void Clear() noexcept { FLoans.clear(); }

    /// Index of the first loan of exactly that name, or -1.
    [[nodiscard]] int IndexOf(std::string_view name) const;

    [[nodiscard]] auto begin() noexcept { return FLoans.begin(); }
    [[nodiscard]] auto end() noexcept { return FLoans.end(); }
    [[nodiscard]] auto begin() const noexcept { return FLoans.begin(); }
    [[nodiscard]] auto end() const noexcept { return FLoans.end(); }

private:
    std::vector<std::unique_ptr<TlotLoan>> FLoans;
};
