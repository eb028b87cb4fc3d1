// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/lotProjectWriter.h"

#include "common/vipText.h"
#include "persistence/lotFieldForms.h"

#include <algorithm>

namespace {

void WriteSpread(TlotElementWriter e, TlotCashflowItem& line) {
    line.Simplify();
    // A line that was dragged before the first month and is not spread, since it has no money, begins at 0 all the
    // same.
    e.Integer("Start", std::max(line.Start, 0));
    e.Integer("Period", std::max(line.Period, 0));
    for (int month = 0; month < line.Portions.Count(); ++month) {
        if (const double weight = line.GetPortion(month); weight != 0) {
            TlotElementWriter value = e.AddChild("Values");
            value.Integer("Index", month);
            value.Number("SpreadValue", weight);
        }
    }
}

void WriteValueArray(TlotElementWriter e, const TlotDoubles& values) {
    e.Integer("Count", values.Count());
    for (const double value : values.Span()) {
        e.AddChild("Value").NumberText(value);
    }
}

void WriteFreeText(TlotElementWriter& parent, const char* name, const std::string& text) {
    if (const std::string_view trimmed = vip::Trim(text); !trimmed.empty()) {
        parent.AddChild(name).CData(trimmed);
    }
}

void WriteUnit(TlotElementWriter e, TlotUnit& unit) {
    WriteFields(e, unit);
    TlotUnit::VisitLines([&](const char* name, auto line) { WriteSpread(e.AddChild(name), unit.*line); });
    for (const auto& area : unit.Areas) {
        TlotElementWriter row = e.AddChild("Area");
        WriteFields(row, area->Terms());
    }
    e.Boolean("Zoning", unit.Areas.Zoning());
}

void WriteSection(TlotElementWriter e, TlotSection& section) {
    WriteFields(e, section);
    for (const auto& item : section.Items) {
        TlotElementWriter child = e.AddChild("Item");
        WriteFields(child, *item);
        child.Number("CalculatedValue", item->Line.Amount);
        WriteSpread(child.AddChild("Value"), item->Line);
    }
}

void WriteInflation(TlotElementWriter e, const TlotInflation& inflation) {
    WriteFields(e, inflation);
    TlotElementWriter targets = e.AddChild("Targets");
    TlotInflation::VisitTargets(
        [&](const char* name, TlotInflationTarget target) { targets.Boolean(name, inflation.Has(target)); });
}

void WriteLoan(TlotElementWriter e, const TlotLoan& loan) {
    WriteFields<TlotLoanTerms>(e, loan);
    TlotLoanTerms::VisitArrays([&](const char* name, auto array) { WriteValueArray(e.AddChild(name), loan.*array); });
    TlotElementWriter fees = e.AddChild("LoanFees");
    WriteFields(fees, loan.LoanFees);
}

void WriteEquity(TlotElementWriter e, const TlotEquity& equity) {
    WriteFields<TlotEquityTerms>(e, equity);
    TlotEquityTerms::VisitArrays(
        [&](const char* name, auto array) { WriteValueArray(e.AddChild(name), equity.*array); });
}

} // namespace

void WriteProject(TlotElementWriter e, TlotProject& project) {
    WriteFields(e, project);
    WriteSpread(e.AddChild("SiteValue"), project.BaseValues.SiteValue);
    for (const auto& type : project.UnitTypes) {
        TlotElementWriter child = e.AddChild("UnitType");
        WriteFields(child, *type);
    }
    for (const auto& unit : project.Units) {
        WriteUnit(e.AddChild("Unit"), *unit);
    }
    for (const auto& section : project.Sections) {
        WriteSection(e.AddChild("Section"), *section);
    }
    WriteInflation(e.AddChild("Inflation"), project.Inflation);
    TlotElementWriter funding = e.AddChild("Funding");
    for (const auto& loan : project.Funding.Loans) {
        WriteLoan(funding.AddChild("Loan"), *loan);
    }
    WriteEquity(e.AddChild("Equity"), project.Equity);
    TlotProjectTerms::VisitTexts([&](const char* name, auto text) { WriteFreeText(e, name, project.*text); });
    // For outside readers of the file only.
    e.Number("Profit", project.BaseValues.Profit);
    e.Number("ProfitOnCost", project.BaseValues.ProfitOnCost);
}
