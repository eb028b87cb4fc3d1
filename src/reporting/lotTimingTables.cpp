// SPDX-License-Identifier: GPL-3.0-or-later
//
// When things happen: every timed line with its dates, and the milestones of the project.
#include "reporting/lotTableFillers.h"

#include <algorithm>
#include <limits>

namespace {

/// A row for a line; `linkedTo`: the base whose months it takes, or null.
TlotTable& AddSpread(TlotTable& table, const TlotReportSource& source, const std::string& name,
                     const TlotCashflowItem& line, const std::string* linkedTo = nullptr) {
    std::string spread = line.Portions.IsEmpty() ? "Normal" : "Manual";
    if (linkedTo != nullptr) {
        spread = "Linked to " + *linkedTo;
    }
    return table.Append()
        .Set("Name", name)
        .Set("StartDate", source.MonthDate(line.FirstMonth()))
        .Set("EndDate", source.MonthDate(line.EndMonth() - 1))
        .Set("Spread", spread)
        .Set("Value", line.Amount);
}

void AddItems(TlotTable& table, const TlotReportSource& source, const TlotSection& section) {
    for (const auto& item : section.Items) {
        if (item->Amount.Value == 0) {
            continue;
        }
        AddSpread(table, source, item->Name, item->Line, item->Link ? &item->BaseFormula : nullptr)
            .Set("Group", section.Group)
            .Set("Error", item->Error);
        if (item->Percentage) {
            table.Set("Percentage", item->Amount.Value);
        }
    }
}

/// The first and last month of one line of each unit.
void SetSpan(TlotTable& table, const TlotReportSource& source, TlotCashflowItem TlotUnit::*line, const char* startField,
             const char* endField) {
    int first = std::numeric_limits<int>::max();
    int end = std::numeric_limits<int>::min();
    for (const auto& unit : source.Project.Units) {
        const TlotCashflowItem& spread = (*unit).*line;
        first = std::min(first, spread.FirstMonth());
        end = std::max(end, spread.EndMonth());
    }
    if (source.Project.Units.Count() > 0) {
        table.Set(startField, source.MonthDate(first)).Set(endField, source.MonthDate(end - 1));
    }
}

} // namespace

void FillTimescaleData(TlotTable& table, const TlotReportSource& source) {
    const TlotProject& project = source.Project;
    for (const auto& unit : project.Units) {
        AddSpread(table, source, unit->Name, unit->BuildLine).Set("Group", "Construction");
    }
    for (const auto& unit : project.Units) {
        AddSpread(table, source, unit->Name, unit->SalesLine).Set("Group", "Sales");
    }
    for (const auto& section : project.Sections) {
        if (section->Group == project.SiteGroup) {
            AddSpread(table, source, "Site Value", project.BaseValues.SiteValue).Set("Group", section->Group);
        }
        AddItems(table, source, *section);
    }
}

void FillTimingData(TlotTable& table, const TlotReportSource& source) {
    const TlotProject& project = source.Project;
    table.Append()
        .Set("StartDate", project.StartDate)
        .Set("SitePurchaseDate", source.MonthDate(project.BaseValues.SiteValue.FirstMonth()))
        .Set("CompletionDate", source.MonthDate(project.Cashflow.LastMonth() - 1));
    SetSpan(table, source, &TlotUnit::BuildLine, "BuildStartDate", "BuildEndDate");
    SetSpan(table, source, &TlotUnit::SalesLine, "SalesStartDate", "SalesEndDate");
}
