// SPDX-License-Identifier: GPL-3.0-or-later
//
// Tables over random projects: whatever is varied, the project comes out as it went in, to the last bit.
#include "sensitivity/lotSAModel.h"
#include "support/lotTestProject.h"
#include "tool/lotJson.h"

#include <gtest/gtest.h>

namespace {

/// Everything computed and everything that a table may shift, as text that no two states share.
std::string StateOf(const TlotProject& project) {
    std::string text = JsonText(ProjectJson(project));
    for (const auto& loan : project.Funding.Loans) {
        text += std::to_string(loan->InterestRate.Value);
        for (const double rate : loan->InterestRates.Span()) {
            text += ' ' + std::to_string(rate);
        }
    }
    return text;
}

template <class Model> void ExpectTablesLeaveTheProject(int projects) {
    for (std::uint64_t seed = 1; seed <= static_cast<std::uint64_t>(projects); ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        TRandom random(seed);
        TlotProject project{0};
        RandomProject(random, project);
        project.Calculate();
        const std::string before = StateOf(project);
        Model model(project, {});
        model.SelectedCategories.clear();
        for (int axis = 0; axis < 1 + random.Below(2); ++axis) {
            TSACategory& category = model.Categories[random.Below(model.Categories.Count())];
            category.Step = 1;
            category.StepCount = 1 + random.Below(3);
            model.SelectedCategories.push_back(&category);
        }
        model.Refresh();
        TSAPage page;
        model.Calculate(page);
        EXPECT_EQ(StateOf(project), before);
    }
}

TEST(SensitivityTables, LeaveEveryProjectAsItWas) {
    ExpectTablesLeaveTheProject<TlotSAModelNew>(120);
    ExpectTablesLeaveTheProject<TlotSAModelOld>(40);
}

TEST(SensitivityTables, AnErrorInAScenarioLeavesTheProjectAsItWas) {
    TlotProject project{0};
    AddUnit(project, "Residential", 10, 100).BuildArea.Value = 5;
    TlotLoan& loan = project.Funding.Loans.Add();
    loan.Name = "Bank";
    project.Calculate();
    loan.LoanType = static_cast<TlotLoanType>(9);
    const std::string before = StateOf(project);
    TlotSAModelNew model(project, {});
    model.Refresh();
    TSAPage page;
    EXPECT_THROW(model.Calculate(page), ELotError);
    EXPECT_EQ(StateOf(project), before);
}

TEST(SensitivityTables, ShiftWhatTheyName) {
    // 10 units at 100 sell for 1,000; building 5 at 60 costs 300: a profit of 700 on 300.
    TlotProject project{0};
    TlotUnit& unit = AddUnit(project, "Residential", 10, 100);
    unit.BuildArea.Value = 5;
    unit.BuildRate.Value = 60;
    project.Calculate();
    TlotSAModelNew model(project, {});
    const auto cells = [&](const char* name, double step, bool percentage) {
        TSACategory& category = model.Categories[model.Categories.IndexOf(name)];
        category.Step = step;
        category.PercentageStep = percentage;
        category.StepCount = 3;
        model.SelectedCategories = {&category};
        model.SelectedResults = {&model.Results[model.Results.IndexOf("Net Profit")]};
        model.Refresh();
        TSAPage page;
        model.Calculate(page);
        return page.Cells;
    };
    using TCells = std::vector<std::vector<std::string>>;
    EXPECT_EQ(cells("Sale Value", 10, true), (TCells{{"600"}, {"700"}, {"800"}}));
    EXPECT_EQ(cells("Build Rate", 20, false), (TCells{{"800"}, {"700"}, {"600"}}));
    EXPECT_EQ(cells("ERV Rate", 1, false), (TCells{{"690"}, {"700"}, {"710"}}));
    EXPECT_EQ(cells("Site Value", 50, false), (TCells{{"750"}, {"700"}, {"650"}}));
    // A profit of 100 % less on cost leaves 133.333 %: a site value of 128.571, so that 428.571 earn 571.429. More than
    // now is out of reach, and its site value of 0 is computed.
    EXPECT_EQ(cells("Profit On Cost", 100, false), (TCells{{"571"}, {"700"}, {"700"}}));
}

} // namespace
