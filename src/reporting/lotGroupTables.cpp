// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a project's value is made of, by cost group: for totals and for the chart. A project without costs has none.
#include "reporting/lotTableFillers.h"

namespace {

void AddUnlessZero(TlotTable& table, const char* name, double value) {
    if (value != 0) {
        table.Append().Set("Name", name).Set("Value", value);
    }
}

/// A row for each group with a total. The group of the site shows the site value in place of its total;
/// `addConstruction` adds the rows of the construction group.
template <class TAddConstruction>
void AddGroups(TlotTable& table, const TlotReportSource& source, TAddConstruction addConstruction) {
    const TlotProject& project = source.Project;
    for (int i = 0; i < project.Groups.Count(); ++i) {
        const TlotGroup& group = project.Groups[i];
        if (group.Total.Amount == 0) {
            continue;
        }
        const bool site = group.Name == project.SiteGroup;
        const bool construction = group.Name == project.ConstructionGroup;
        if (site) {
            AddUnlessZero(table, "Site Value", source.SiteValue());
        }
        if (construction) {
            addConstruction(group);
        }
        if (!site && !construction) {
            table.Append().Set("Name", group.Name).Set("Value", group.Total.Amount);
        }
    }
}

void AddProfitAndFinance(TlotTable& table, const TlotProject& project) {
    AddUnlessZero(table, "Profit", project.BaseValues.Profit);
    AddUnlessZero(table, "Finance", project.TotalInterest);
}

} // namespace

void FillGroupData(TlotTable& table, const TlotReportSource& source) {
    if (source.Project.TDC == 0) {
        return;
    }
    AddGroups(table, source, [&](const TlotGroup& group) {
        table.Append().Set("Name", "Construction Costs").Set("Value", group.Total.Amount + source.BuildCost());
    });
    AddProfitAndFinance(table, source.Project);
}

void FillSectionGroupData(TlotTable& table, const TlotReportSource& source) {
    const TlotProject& project = source.Project;
    const double total = project.GroupValue(project.ConstructionGroup);
    if (project.TDC != 0 && total != 0) {
        table.Append().Set("Name", "Total " + project.ConstructionGroup).Set("Value", total + source.BuildCost());
    }
}

void FillChartData(TlotTable& table, const TlotReportSource& source) {
    if (source.Project.TDC == 0) {
        return;
    }
    AddGroups(table, source,
              [&](const TlotGroup& group) { table.Append().Set("Name", group.Name).Set("Value", group.Total.Amount); });
    AddUnlessZero(table, "Build Costs", source.BuildCost());
    AddProfitAndFinance(table, source.Project);
}
