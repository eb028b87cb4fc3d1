// SPDX-License-Identifier: GPL-3.0-or-later
//
// Whatever is deleted, what the last calculation listed refers to living lines only. The sanitizers watch.
#include "common/vipErrors.h"
#include "support/lotTestProject.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace {

/// Reads every line that the last calculation listed, as sheets, tables and dialogs do between two passes.
std::string ReadLists(const TlotProject& project) {
    std::string names;
    double sum = project.Cashflow.LastMonth();
    for (const TlotCashflowItem* const line : project.Cashflow.Items) {
        sum += line->Sum();
    }
    for (const TlotVariable& variable : project.Vars.Items()) {
        names += variable.Name + " " + variable.Line->AccountCode + ";";
        sum += variable.Line->Amount;
    }
    return names + std::to_string(sum);
}

TEST(Deletion, LeavesNoReferenceToWhatIsGone) {
    const std::function<void(TlotProject&)> deletions[] = {
        [](TlotProject& p) { p.DeleteUnit(p.Units.Count() - 1); },
        [](TlotProject& p) { p.DeleteSection(0); },
        [](TlotProject& p) { p.DeleteItem(p.Sections[0], p.Sections[0].Items.Count() - 1); },
        [](TlotProject& p) { p.DeleteLoan(0); },
        [](TlotProject& p) { p.Clear(0); },
    };
    for (const auto& deletion : deletions) {
        for (std::uint64_t seed = 1; seed <= 40; ++seed) {
            TRandom random(seed);
            TlotProject project{0};
            RandomProject(random, project);
            AddItem(AddSection(project, "Fees \"1.2\"", "Costs"), "Architect", 10, "BUILD");
            project.Sections[0].Items.Add();
            project.Funding.Loans.Add().Base = "BUILD";
            project.Calculate();
            deletion(project);
            const std::string before = ReadLists(project);
            ASSERT_EQ(ReadLists(project), before);
            project.Calculate();
            ASSERT_FALSE(ReadLists(project).empty());
        }
    }
}

TEST(Deletion, TakesOutTheLinesOfWhatIsDeletedAndNoOther) {
    TlotProject project{0};
    AddUnit(project, "Residential", 1, 100).BuildLine.Period = 1;
    AddUnit(project, "Residential", 1, 200);
    TlotSection& fees = AddSection(project, "Fees", "Costs");
    AddItem(fees, "Architect", 10);
    AddItem(fees, "Engineer", 20);
    AddItem(AddSection(project, "Sales", "Costs"), "Agent", 30);
    project.Calculate();
    const std::size_t all = project.Cashflow.Items.size();
    project.DeleteItem(fees, 0);
    EXPECT_EQ(project.Cashflow.Items.size(), all - 1);
    EXPECT_EQ(project.Vars.Find("Fees.Architect"), nullptr);
    EXPECT_NE(project.Vars.Find("Fees.Engineer"), nullptr);
    project.DeleteSection(0);
    EXPECT_EQ(project.Cashflow.Items.size(), all - 2);
    EXPECT_EQ(project.Vars.Find("Fees.TOTAL"), nullptr);
    EXPECT_EQ(project.Vars.Find("Sales.Agent")->Line->Amount, 30);
    project.DeleteUnit(1);
    EXPECT_EQ(project.Cashflow.Items.size(), all - 4) << "a unit's build and its sales";
    EXPECT_EQ(project.Cashflow.Total.Amount, 240) << "totals stand until the next pass";
    EXPECT_THROW(project.DeleteUnit(1), ERangeError);
    EXPECT_THROW(project.DeleteLoan(0), ERangeError);
}

} // namespace
