// SPDX-License-Identifier: GPL-3.0-or-later
#include "tool/lotAppraisalText.h"

#include "common/vipDate.h"
#include "common/vipText.h"
#include "model/lotMeasures.h"
#include "tool/lotTextTable.h"

#include <algorithm>
#include <array>
#include <initializer_list>

namespace {

constexpr std::size_t Indent = 2;

class TAppraisalPrinter {
public:
    TAppraisalPrinter(const TlotProject& project, const TNumberLocale& locale) : FProject(project), FLocale(locale) {}

    std::string Print() {
        PrintTitle();
        PrintMeasures();
        PrintUnits();
        PrintCosts();
        PrintIncome();
        PrintFinance();
        PrintYears();
        return FText;
    }

private:
    [[nodiscard]] std::string Money(double value) const { return vip::FormatMask(",0", value, FLocale); }
    [[nodiscard]] std::string Percent(double value) const { return vip::FormatMask("0.000%", value, FLocale); }
    [[nodiscard]] static std::string Months(std::int32_t months) {
        return std::to_string(months) + (months == 1 ? " month" : " months");
    }

    void Heading(std::string_view text) { FText += '\n' + std::string(text) + '\n'; }

    void PrintTitle();
    void PrintMeasures();
    void AddMeasures(TTextTable& table, std::initializer_list<TlotMeasure> measures) const;
    void PrintUnits();
    void AddUnitRow(TTextTable& table, const TlotUnit& unit) const;
    void PrintCosts();
    void PrintIncome();
    void AddSection(TTextTable& table, const TlotSection& section) const;
    [[nodiscard]] std::string Basis(const TlotItem& item) const;
    void PrintFinance();
    void PrintYears();

    const TlotProject& FProject;
    const TNumberLocale& FLocale;
    std::string FText;
};

void TAppraisalPrinter::PrintTitle() {
    const bool residual = FProject.ResidualTarget != TlotResidualTarget::NoTarget;
    const std::string title = residual ? FProject.ResidualTitle : FProject.AppraisalTitle;
    FText += (FProject.Name.empty() ? std::string("Untitled project") : FProject.Name) + '\n' + title + ", starting " +
             vip::DayMonthYearText(FProject.StartDate) + '\n';
}

void TAppraisalPrinter::AddMeasures(TTextTable& table, std::initializer_list<TlotMeasure> measures) const {
    for (const TlotMeasure measure : measures) {
        const TlotMeasureInfo& info = MeasureInfo(measure);
        const double figure = info.Figure(FProject);
        table.Add({std::string(info.PrintCaption), info.IsCover() ? Months(static_cast<std::int32_t>(figure))
                                                                  : vip::FormatMask(info.Mask, figure, FLocale)});
    }
}

void TAppraisalPrinter::PrintMeasures() {
    using enum TlotMeasure;
    Heading("MEASURES");
    TTextTable table(1);
    AddMeasures(
        table, {GDV, NDV, TDC, Profit, ProfitOnCost, ProfitOnGDV, ProfitOnNDV, RentalYield, SiteValue, SiteValueOnGDV});
    if (FProject.NetSiteArea != 0) {
        const bool hectares = FProject.SiteAreaUnits == TlotSiteAreaUnits::Hectares;
        table.Add({hectares ? "Site value a hectare" : "Site value an acre", Money(FProject.SiteValuePerArea)});
    }
    AddMeasures(table, {NPV, IRR, RentalCover, InterestCover});
    FText += table.Text(Indent);
}

void TAppraisalPrinter::PrintUnits() {
    if (FProject.Units.Count() == 0) {
        return;
    }
    Heading("UNITS");
    TTextTable table(2);
    table.Add({"Unit", "Type", "Area", "Build cost", "Rent", "Yield", "YP", "Gross value", "Net value"});
    for (const auto& unit : FProject.Units) {
        AddUnitRow(table, *unit);
    }
    const TlotBaseValues& b = FProject.BaseValues;
    table.AddRule();
    table.Add({"Total", "", "", Money(b.Build.Amount), Money(FProject.TotalRent), "", "", Money(FProject.GDV),
               Money(b.NetCap.Amount + b.NonCap.Amount)});
    FText += table.Text(Indent);
}

void TAppraisalPrinter::AddUnitRow(TTextTable& table, const TlotUnit& unit) const {
    const std::string area = Money(unit.TotalArea) + ' ' + std::string(DimensionsShortText(unit.Dimensions));
    if (unit.IsCapitalised) {
        table.Add({unit.Name, unit.UnitType, area, Money(unit.BuildLine.Amount), Money(unit.ERV.Value),
                   Percent(unit.Yield.Value), vip::FormatMask("0.0000", unit.YearsPurchase, FLocale),
                   Money(unit.GrossSale.Value), Money(unit.NetSale.Value)});
    } else {
        table.Add({unit.Name, unit.UnitType, area, Money(unit.BuildLine.Amount), "", "", "",
                   Money(unit.GrossSale.Value), Money(unit.NetSale.Value)});
    }
}

std::string TAppraisalPrinter::Basis(const TlotItem& item) const {
    std::string basis;
    if (item.Error) {
        basis = "formula in error: " + item.BaseFormula;
    } else if (item.Percentage) {
        basis = Percent(item.Amount.Value) + (item.BaseFormula.empty() ? "" : " of " + item.BaseFormula);
    }
    return basis;
}

void TAppraisalPrinter::AddSection(TTextTable& table, const TlotSection& section) const {
    table.Add({"  " + section.Name, "", ""});
    for (const auto& item : section.Items) {
        if (item->IsSubHeading()) {
            table.Add({"    " + item->Name.substr(1), "", ""});
        } else if (item->Line.Amount != 0 || item->Error) {
            table.Add({"    " + item->Name, Basis(*item), Money(item->Line.Amount)});
        }
    }
    table.Add({"    Total", "", Money(section.Total.Amount)});
}

void TAppraisalPrinter::PrintCosts() {
    Heading("COSTS");
    TTextTable table(2);
    table.Add({"Site value", "", Money(FProject.BaseValues.SiteValue.Amount)});
    table.Add({"Build costs", "", Money(FProject.BaseValues.Build.Amount)});
    for (int i = 0; i < FProject.Groups.Count(); ++i) {
        const TlotGroup& group = FProject.Groups[i];
        double costs = 0;
        bool named = false;
        for (const auto& section : FProject.Sections) {
            if (section->Group == group.Name && !section->Income && section->Total.Amount != 0) {
                if (!named) {
                    table.Add({group.Name, "", ""});
                    named = true;
                }
                AddSection(table, *section);
                costs += section->Total.Amount;
            }
        }
        if (named) {
            table.Add({"  " + group.Name + " in all", "", Money(costs)});
        }
    }
    table.Add({"Interest", "", Money(FProject.TotalInterest)});
    table.Add({"Loan fees", "", Money(FProject.Funding.TotalFees)});
    table.AddRule();
    table.Add({"Total development cost", "", Money(FProject.TDC)});
    FText += table.Text(Indent);
}

void TAppraisalPrinter::PrintIncome() {
    TTextTable table(2);
    bool any = false;
    for (const auto& section : FProject.Sections) {
        if (section->Income && section->Total.Amount != 0) {
            AddSection(table, *section);
            any = true;
        }
    }
    if (any) {
        Heading("OTHER INCOME");
        FText += table.Text(0);
    }
}

void TAppraisalPrinter::PrintFinance() {
    Heading("FINANCE");
    constexpr std::array<const char*, 3> types = {"Standard", "Cash", "Linked"};
    TTextTable table(2);
    table.Add({"Source", "Type", "Rate", "Peak debt", "Interest", "Fees"});
    for (const auto& loan : FProject.Funding.Loans) {
        if (!loan->Active) {
            table.Add({loan->Name, "inactive"});
            continue;
        }
        const auto debt = loan->Debt.Values.Span();
        const double peak = debt.empty() ? 0 : std::min(0.0, std::ranges::min(debt));
        const auto type = static_cast<std::size_t>(loan->LoanType);
        table.Add({loan->Name, type < types.size() ? types.at(type) : "",
                   loan->VariableRate ? "variable" : Percent(loan->InterestRate.Value), Money(-peak),
                   Money(loan->TotalInterest), Money(-loan->FeeLine.Amount)});
    }
    const TlotEquity& equity = FProject.Equity;
    if (FProject.Funding.FindEquitySourceLoan() == nullptr) {
        const auto balance = equity.Balance.Values.Span().first(static_cast<std::size_t>(equity.Cashflow.Count()));
        const double peak = balance.empty() ? 0 : std::min(0.0, std::ranges::min(balance));
        table.Add({"Equity", "", equity.VariableRate ? "variable" : Percent(equity.InterestRate.Value), Money(-peak),
                   Money(equity.TotalInterest), ""});
    }
    table.AddRule();
    table.Add({"Total", "", "", "", Money(FProject.TotalInterest), Money(FProject.Funding.TotalFees)});
    FText += table.Text(Indent);
}

/// What falls in some months of a line.
double MonthsSum(const TlotCashflowItem& line, int first, int end) {
    double sum = 0;
    for (int month = first; month < end; ++month) {
        sum += line.GetValue(month);
    }
    return sum;
}

void TAppraisalPrinter::PrintYears() {
    const int last = std::max(FProject.Cashflow.LastMonth(), 0);
    if (last == 0) {
        return;
    }
    Heading("CASHFLOW BY YEAR");
    TTextTable table(2);
    table.Add({"Year", "from", "Income", "Costs", "Net", "Loans", "Equity", "Equity balance"});
    for (int first = 0; first < last; first += 12) {
        const int end = std::min(first + 12, last);
        double income = 0;
        double costs = 0;
        for (const TlotCashflowItem* const line : FProject.Cashflow.Items) {
            (line->Income ? income : costs) += MonthsSum(*line, first, end);
        }
        const double net = MonthsSum(FProject.Cashflow.Total, first, end);
        const double equity = MonthsSum(FProject.Equity.Cashflow, first, end);
        const bool held = FProject.Equity.Cashflow.Count() > 0;
        table.Add({std::to_string(first / 12 + 1), vip::MonthYearText(vip::IncMonth(FProject.StartDate, first)),
                   Money(income), Money(-costs), Money(net), held ? Money(equity - net) : "", held ? Money(equity) : "",
                   held ? Money(FProject.Equity.Balance.GetValue(end - 1)) : ""});
    }
    FText += table.Text(Indent);
}

} // namespace

std::string AppraisalText(const TlotProject& project, const TNumberLocale& locale) {
    return TAppraisalPrinter(project, locale).Print();
}
