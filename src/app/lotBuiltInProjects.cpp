// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/lotBuiltInProjects.h"

#include "model/lotSectionRows.h"

#include <array>
#include <span>

namespace {

constexpr std::array DefaultSiteCosts = {
    TItemRow{"Stamp Duty", 4, true, "SITEVALUE", false},
    TItemRow{"Legal Fees", 1, true, "SITEVALUE", false},
    TItemRow{"Site Agency Fees", 1, true, "SITEVALUE", false},
    TItemRow{"Site Survey", 0, false, "", false},
    TItemRow{"Planning Fees", 0, false, "", false},
};

constexpr std::array DefaultConstruction = {
    TItemRow{"Demolitions", 0, false, "BUILD", false},
    TItemRow{"Insurance", 0, false, "BUILD", true},
    TItemRow{"Building Regulations", 0, false, "BUILD", true},
};

constexpr std::array DefaultFees = {
    TItemRow{"Architects", 4, true, "BUILD", true},
    TItemRow{"Quantity Surveyor", 2.5, true, "BUILD", true},
    TItemRow{"Structural Engineer", 2, true, "BUILD", true},
    TItemRow{"Services Engineer", 1.5, true, "BUILD", true},
    TItemRow{"Other Fees", 2, true, "BUILD", true},
    TItemRow{"Contingency", 3, true, "GROUP+SECTION+BUILD", true},
};

constexpr std::array DefaultSalesCosts = {
    TItemRow{"Letting Fees", 10, true, "GROSSRENT", true},
    TItemRow{"Legals on Lettings", 0.5, true, "GROSSRENT", true},
    TItemRow{"Investment Sale Fees", 1, true, "NETCAP", true},
    TItemRow{"Agents Sale Fees", 2, true, "NONCAP", true},
    TItemRow{"Agents Legal Fees", 0.5, true, "NONCAP", true},
    TItemRow{"Promotion", 0, false, "", true},
};

constexpr std::array DefaultIncome = {
    TItemRow{"Miscellaneous Income", 0, false, "", false},
};

constexpr std::array DefaultSections = {
    TSectionRow{"Site Costs", "Site Costs", "SITEVALUE", false, DefaultSiteCosts},
    TSectionRow{"Construction Costs", "Construction Costs", "BUILD", false, DefaultConstruction},
    TSectionRow{"Fees", "Construction Costs", "GROUP+BUILD", false, DefaultFees},
    TSectionRow{"Sales Costs", "Sales Costs", "GROSSRENT", false, DefaultSalesCosts},
    TSectionRow{"Income", "Income", "", true, DefaultIncome},
};

constexpr std::array TestSiteCosts = {
    TItemRow{"Stamp Duty", 4, true, "SITEVALUE", false},
    TItemRow{"Site Legal Fees", 0.5, true, "SITEVALUE", false},
    TItemRow{"Site Agency Fees", 1, true, "SITEVALUE", false},
    TItemRow{"Planning Fees", 20000, false, "SITEVALUE", true},
};

constexpr std::array TestConstruction = {
    TItemRow{"Demolitions", 10000, false, "BUILD", true},     TItemRow{"Insurance", 5000, false, "BUILD", true},
    TItemRow{"Project Management", 1, true, "BUILD", true},   TItemRow{"M & E Consultant", 1.5, true, "BUILD", true},
    TItemRow{"Continguency", 3, true, "SECTION+BUILD", true},
};

constexpr std::array TestFees = {
    TItemRow{"Architects Fees", 4.5, true, "GROUP+BUILD", true},
    TItemRow{"Quantity Surveyor", 2.4, true, "GROUP+BUILD", true},
    TItemRow{"Structural Engineers Fee", 1.75, true, "GROUP+BUILD", true},
    TItemRow{"Services Engineer", 1.5, true, "GROUP+BUILD", true},
    TItemRow{"Other Fees", 0.85, true, "GROUP+BUILD", true},
};

constexpr std::array TestSalesCosts = {
    TItemRow{"Letting Fees", 10, true, "GROSSRENT", true},
    TItemRow{"Legal Fees on Letting", 0.5, true, "GROSSRENT", true},
    TItemRow{"Investment Sale Fees", 1, true, "NETCAP", true},
    TItemRow{"Promotion", 10000, false, "", false},
};

constexpr std::array TestIncome = {
    TItemRow{"Miscellaneous Income", 0, false, "GROSSRENT", false},
};

constexpr std::array TestSections = {
    TSectionRow{"Site Costs", "Site Costs", "SITEVALUE", false, TestSiteCosts},
    TSectionRow{"Construction Costs", "Construction Costs", "BUILD", false, TestConstruction},
    TSectionRow{"Fees", "Construction Costs", "GROUP+BUILD", false, TestFees},
    TSectionRow{"Sales Costs", "Sales Costs", "GROSSRENT", false, TestSalesCosts},
    TSectionRow{"Income", "Income", "", true, TestIncome},
};

struct TAreaRow {
    const char* Description;
    double Area;
    double Rate;
};

struct TUnitRow {
    const char* Name;
    const char* UnitType;
    double BuildArea;
    double BuildRate;
    double Yield;
    double PurchCosts;
    std::array<TAreaRow, 2> Areas;
};

constexpr std::array TestUnits = {
    TUnitRow{"Office", "", 30000, 120, 7.5, 5.75, {{{"Ground", 15000, 35}, {"First", 15000, 35}}}},
    TUnitRow{"Retail", "", 40000, 150, 7.5, 5.75, {{{"Zone A", 14000, 50}, {"Zone B", 8000, 25}}}},
    TUnitRow{"Flats", "Residential", 5, 65000, 0, 0, {{{"Flat 2 bed", 2, 200000}, {"Flat 3 bed", 3, 300000}}}},
};

void AddTestUnit(TlotProject& project, const TUnitRow& row) {
    TlotUnit& unit = project.Units.Add();
    unit.Name = row.Name;
    unit.UnitType = row.UnitType;
    unit.BuildArea.Value = row.BuildArea;
    unit.BuildRate.Value = row.BuildRate;
    unit.Yield.Value = row.Yield;
    unit.PurchCosts = row.PurchCosts;
    unit.BuildLine.Start = 0;
    unit.BuildLine.Period = 6;
    unit.SalesLine.Start = 8;
    unit.SalesLine.Period = 5;
    for (const TAreaRow& areaRow : row.Areas) {
        TlotArea& area = unit.Areas.Add();
        area.SetDescription(areaRow.Description);
        area.SetArea(areaRow.Area);
        area.SetRate(areaRow.Rate);
    }
}

} // namespace

void FillDefaultProject(TlotProject& project, const TlotOptions& options) {
    project.Equity.InterestRate.Value = options.InterestRate;
    if (options.TargetProfit != 0) {
        project.ResidualTarget = TlotResidualTarget::ProfitOnCost;
        project.ResidualTargetValue = options.TargetProfit;
    }
    project.RentalValues = options.RentalValues;
    AddSections(project, DefaultSections);
}

void FillTestProject(TlotProject& project) {
    project.Name = "Test Project";
    project.BaseValues.SiteValue.Amount = 8624684;
    project.ResidualTarget = TlotResidualTarget::NoTarget;
    for (const TUnitRow& row : TestUnits) {
        AddTestUnit(project, row);
    }
    AddSections(project, TestSections);
    project.Finance.Rate = 6;
    project.Finance.RolledUp = true;
    project.Finance.Rows[0].Amount = 25;
}
