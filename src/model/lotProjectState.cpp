// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/lotProjectState.h"

namespace {

/// Shows every computed figure and row of a project to `visit`, which takes a double, an int, a bool or a TlotDoubles
/// by reference; always in the same order.
template <class Visit> class TStateWalk {
public:
    TStateWalk(TlotProject& project, Visit& visit) : FProject(project), FVisit(visit) {}

    void Walk() {
        for (const auto& unit : FProject.Units) {
            WalkUnit(*unit);
        }
        for (const auto& section : FProject.Sections) {
            WalkLine(section->Total);
            for (const auto& item : section->Items) {
                WalkLine(item->Line);
                FVisit(item->Amount.Value);
                FVisit(item->Base);
                FVisit(item->Error);
            }
        }
        for (int i = 0; i < FProject.Groups.Count(); ++i) {
            WalkLine(FProject.Groups[i].Total);
        }
        for (const auto& loan : FProject.Funding.Loans) {
            WalkLoan(*loan);
        }
        WalkEquity(FProject.Equity);
        WalkBaseValues(FProject.BaseValues);
        WalkTotals();
    }

private:
    void WalkLine(TlotCashflowItem& line) {
        FVisit(line.Start);
        FVisit(line.Period);
        FVisit(line.ReadOnly);
        FVisit(line.Income);
        FVisit(line.Amount);
        FVisit(line.Values);
        FVisit(line.Portions);
    }

    void WalkUnit(TlotUnit& unit) {
        for (TlotCashflowItem* const line : {&unit.BuildLine, &unit.RentLine, &unit.SalesLine}) {
            WalkLine(*line);
        }
        for (TlotSADouble* const figure :
             {&unit.BuildRate, &unit.BuildArea, &unit.ERV, &unit.Yield, &unit.GrossSale, &unit.NetSale}) {
            FVisit(figure->Value);
        }
        for (double* const figure : {&unit.YearsPurchase, &unit.RentFreeFactor, &unit.TotalArea, &unit.TotalValue,
                                     &unit.GroundRent, &unit.NetRent, &unit.PurchCostsValue}) {
            FVisit(*figure);
        }
    }

    void WalkLoan(TlotLoan& loan) {
        for (TlotCashflowItem* const row : loan.Rows()) {
            WalkLine(*row);
        }
        WalkLine(loan.LoanFees.Line);
        FVisit(loan.InterestRates);
        FVisit(loan.BorrowPercentages);
        FVisit(loan.RepayPercentages);
        for (double* const figure : {&loan.InterestRate.Value, &loan.TotalInterest, &loan.TotalBorrowed,
                                     &loan.MaximumDebt, &loan.NPVExcludingInterest, &loan.NPVIncludingInterest,
                                     &loan.IRRExcludingInterest, &loan.IRRIncludingInterest}) {
            FVisit(*figure);
        }
    }

    void WalkEquity(TlotEquity& equity) {
        for (TlotCashflowItem* const row :
             {&equity.Cashflow, &equity.Balance, &equity.Interest, &equity.CashflowIncludingInterest}) {
            WalkLine(*row);
        }
        FVisit(equity.InterestRates);
        for (double* const figure :
             {&equity.InterestRate.Value, &equity.NPV, &equity.IRR, &equity.TotalInterest, &equity.TotalCash}) {
            FVisit(*figure);
        }
    }

    void WalkBaseValues(TlotBaseValues& b) {
        for (TlotCashflowItem* const line : {&b.SiteValue, &b.Build, &b.GrossCap, &b.NetCap, &b.NonCap, &b.GrossRent,
                                             &b.NetRent, &b.Section, &b.Group}) {
            WalkLine(*line);
        }
        for (double* const figure :
             {&b.Profit, &b.ProfitOnCost, &b.ProfitOnGDV, &b.ProfitOnNDV, &b.SiteValueOnGDV, &b.RentalYield}) {
            FVisit(*figure);
        }
        FVisit(b.RentalCover);
        FVisit(b.InterestCover);
    }

    void WalkTotals() {
        WalkLine(FProject.Cashflow.Total);
        for (double* const figure : {&FProject.Cashflow.NPV, &FProject.Cashflow.IRR, &FProject.Funding.TotalInterest,
                                     &FProject.Funding.TotalFees, &FProject.TotalRent, &FProject.TotalInterest,
                                     &FProject.SiteValuePerArea, &FProject.TDC, &FProject.GDV, &FProject.NDV}) {
            FVisit(*figure);
        }
    }

    TlotProject& FProject;
    Visit& FVisit;
};

struct TKeep {
    std::vector<double>& Figures;
    std::vector<TlotDoubles>& Rows;

    template <class Figure> void operator()(Figure& figure) { Figures.push_back(static_cast<double>(figure)); }
    void operator()(TlotDoubles& row) { Rows.push_back(row); }
};

struct TPutBack {
    const std::vector<double>& Figures;
    const std::vector<TlotDoubles>& Rows;
    std::size_t Figure = 0;
    std::size_t Row = 0;

    template <class T> void operator()(T& figure) { figure = static_cast<T>(Figures.at(Figure++)); }
    void operator()(bool& flag) { flag = Figures.at(Figure++) != 0; }
    void operator()(TlotDoubles& row) { row = Rows.at(Row++); }
};

} // namespace

TlotProjectState::TlotProjectState(TlotProject& project) : FProject(project) {
    TKeep keep{FFigures, FRows};
    TStateWalk(project, keep).Walk();
}

void TlotProjectState::Restore() {
    TPutBack put{FFigures, FRows};
    TStateWalk(FProject, put).Walk();
}
