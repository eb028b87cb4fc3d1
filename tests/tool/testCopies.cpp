// SPDX-License-Identifier: GPL-3.0-or-later
//
// A copy of a project computes as the project does, to the bit, also what one pass hands on to the next; and leaves the
// project alone.
#include "support/lotTestProject.h"
#include "tool/lotJson.h"

#include <gtest/gtest.h>

namespace {

std::string Figures(const TlotProject& project) {
    return JsonText(ProjectJson(project));
}

/// A random scheme in which a pass reads the pass before: a leasehold let by the quarter, a first section on the group
/// before it, a cost on the profit, variable rates.
void MakeOdd(TRandom& random, TlotProject& project) {
    RandomProject(random, project);
    project.Leasehold = random.Chance(70);
    project.TotalGroundRent = random.Money(900);
    project.LeaseTerm = random.Below(120);
    project.RentalValues = TlotRentalValues::Quarterly;
    TlotSection& section = project.Sections.Insert(0);
    section.Name = "First \"1.2\"";
    section.Group = "Costs";
    AddItem(section, "On the group before", 3, "GROUP");
    AddItem(section, "Fee", 2, "PROFIT+1,5");
    AddItem(section, "Unknown", 2, "PROFITS");
    for (const auto& loan : project.Funding.Loans) {
        loan->Name = "Bank";
        loan->VariableRate = random.Chance(50);
        loan->VariablePercentage = random.Chance(50);
    }
    project.Funding.EquitySource = random.Chance(30) ? "Bank" : "";
    project.Equity.VariableRate = random.Chance(50);
    project.Inflation.Rate = random.Money(5);
    project.Inflation.Targets.set();
    project.Adjust.Sales.Value = random.Below(3);
    project.BaseValues.Evaluator.DecimalSeparator = U',';
}

TEST(ProjectCopies, ComputeWhatTheProjectComputesToTheBit) {
    for (std::uint64_t seed = 1; seed <= 120; ++seed) {
        TRandom random(seed);
        TlotProject project{100};
        MakeOdd(random, project);
        for (int passes = random.Below(3); passes-- > 0;) {
            project.Calculate();
        }
        const auto copy = project.Copy();
        ASSERT_EQ(Figures(*copy), Figures(project)) << seed;
        const std::string before = Figures(project);
        for (int pass = 0; pass < 3; ++pass) {
            copy->Calculate();
        }
        ASSERT_EQ(Figures(project), before) << "the project is left alone, seed " << seed;
        for (int pass = 0; pass < 3; ++pass) {
            project.Calculate();
        }
        ASSERT_EQ(Figures(*copy), Figures(project)) << seed;
        ASSERT_EQ(copy->SolveSiteValue("PROFITONCOST", 15), project.SolveSiteValue("PROFITONCOST", 15)) << seed;
    }
}

TEST(ProjectCopies, OutliveTheProject) {
    std::unique_ptr<TlotProject> copy;
    {
        TRandom random(7);
        TlotProject project{100};
        MakeOdd(random, project);
        project.Calculate();
        copy = project.Copy();
    }
    copy->Calculate();
    EXPECT_EQ(copy->Vars.Items().size(), copy->Copy()->Vars.Items().size());
    EXPECT_EQ(copy->BaseValues.Evaluate("SITEVALUE"), copy->BaseValues.SiteValue.Amount);
}

TEST(UnitSnapshots, PutAUnitBackToTheBit) {
    TlotUnit unit;
    unit.Name = "A \"dotted\" v1.2";
    unit.Areas.Add().SetDescription("Zone A");
    unit.Areas.Add(); // An empty row, which a copy between units would drop.
    unit.Areas[0].SetZoning(100);
    unit.Areas[0].SetValue(77);
    unit.BuildLine.SetPortion(3, 0.25);
    unit.IsCapitalised = true;
    unit.CalculateValue(nullptr);
    const TlotUnitSnapshot kept = unit.Snapshot();
    TlotUnit same;
    same.Restore(kept);
    EXPECT_TRUE(same.SameInputs(unit));
    unit.Areas[1].SetArea(5);
    EXPECT_FALSE(same.SameInputs(unit));
    unit.Areas.Clear();
    unit.Yield.Value = 7;
    unit.BuildLine.ResetToLevel();
    unit.CalculateValue(nullptr);
    unit.Restore(kept);
    EXPECT_TRUE(same.SameInputs(unit));
    EXPECT_EQ(unit.TotalValue, same.TotalValue);
    EXPECT_EQ(unit.Areas.Count(), 2);
}

} // namespace
