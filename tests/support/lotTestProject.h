// SPDX-License-Identifier: GPL-3.0-or-later
//
// Projects for tests: the pieces of one by hand, and whole random ones.
#pragma once

#include "model/lotProject.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <random>

/// A unit of one area; with a yield it is capitalised.
inline TlotUnit& AddUnit(TlotProject& project, const char* type, double area, double rate, double yield = 0) {
    TlotUnit& unit = project.Units.Add();
    unit.UnitType = type;
    unit.Areas.Add().SetArea(area);
    unit.Areas[0].SetRate(rate);
    unit.IsCapitalised = yield != 0;
    unit.Yield.Value = yield;
    return unit;
}

inline void DeleteUnits(TlotProject& project) {
    while (!project.Units.IsEmpty()) {
        project.DeleteUnit(0);
    }
}

inline TlotSection& AddSection(TlotProject& project, const char* name, const char* group, bool income = false) {
    TlotSection& section = project.Sections.Add();
    section.Name = name;
    section.Group = group;
    section.Income = income;
    return section;
}

/// An item of a sum of money, or of a percentage where there is a formula.
inline TlotItem& AddItem(TlotSection& section, const char* name, double amount, const char* formula = nullptr) {
    TlotItem& item = section.Items.Add();
    item.Name = name;
    item.Amount.Value = amount;
    item.Percentage = formula != nullptr;
    item.BaseFormula = formula == nullptr ? "" : formula;
    return item;
}

/// Random figures that are the same on every machine.
class TRandom {
public:
    explicit TRandom(std::uint64_t seed) : FSource(seed) {}

    /// 0 to n - 1.
    int Below(int n) { return static_cast<int>(FSource() % static_cast<std::uint64_t>(n)); }
    bool Chance(int percent) { return Below(100) < percent; }
    /// Below `most`, with two decimals.
    double Money(int most) { return Below(most * 100) / 100.0; }
    template <class T, std::size_t N> T Of(const T (&list)[N]) { return list[Below(static_cast<int>(N))]; }

    /// Lays a line over up to two years: straight, or by weights with gaps.
    void Shape(TlotCashflowItem& line) {
        line.Start = Below(12);
        line.Period = 1 + Below(12);
        for (int month = Below(18); Chance(40) && month < 24; month += 1 + Below(3)) {
            line.SetPortion(month, 1 + Money(9));
        }
    }

private:
    std::mt19937_64 FSource;
};

/// A scheme of every kind of unit, item and loan, without what one pass hands on to the next.
inline void RandomProject(TRandom& random, TlotProject& project) {
    for (int i = 1 + random.Below(5); i-- > 0;) {
        TlotUnit& unit = AddUnit(project, random.Of({"Commercial", "Residential", "Hotel"}), 1000, 0);
        unit.Areas[0].SetRate(random.Money(300));
        unit.IsCapitalised = random.Chance(60);
        unit.Yield.Value = random.Below(9);
        unit.Number = random.Below(3);
        unit.BuildArea.Value = random.Money(2000);
        unit.BuildRate.Value = random.Money(100);
        unit.PurchCosts = random.Money(7);
        unit.RentAtERV = random.Chance(30);
        random.Shape(unit.BuildLine);
        random.Shape(unit.SalesLine);
        random.Shape(unit.RentLine);
    }
    for (int i = random.Below(15); i-- > 0;) {
        if (project.Sections.IsEmpty() || random.Chance(30)) {
            AddSection(project, random.Of({"S", "T"}), "Costs").Income = random.Chance(30);
        }
        TlotItem& item = AddItem(project.Sections[project.Sections.Count() - 1], random.Of({"I", "J", "#K"}), 0);
        item.Amount.Value = random.Money(9);
        item.BaseFormula = random.Of({"SITEVALUE + build", "SECTION", "NETCAP+NONCAP", "GROSSRENT", "BUILD*2"});
        item.Percentage = random.Chance(50);
        item.Link = random.Chance(30);
        random.Shape(item.Line);
    }
    for (int i = random.Below(4); i-- > 0;) {
        TlotLoan& loan = project.Funding.Loans.Add();
        loan.LoanType = random.Of({TlotLoanType::Standard, TlotLoanType::Cash, TlotLoanType::Linked});
        loan.LoanSource = static_cast<TlotLoanSource>(random.Below(2));
        loan.InterestRate.Value = random.Money(12);
        loan.BorrowPercentage = random.Below(101);
        loan.RepayPercentage = random.Below(101);
        loan.Maximum = random.Chance(50) ? random.Money(200'000) : 0;
        loan.Amount = random.Money(100'000);
        loan.Start = random.Below(10);
        loan.Period = 2 + random.Below(20);
        loan.Base = random.Of({"BUILD", "SITEVALUE+S.TOTAL", "BUILD+T.#K"});
        loan.LoanFees.Amount = random.Money(3);
        loan.LoanFees.Percentage = random.Chance(50);
    }
    project.BaseValues.SiteValue.Amount = random.Money(500'000);
    project.Equity.InterestRate.Value = random.Money(10);
    project.Equity.CreditInterestRate = random.Money(4);
}
