// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the project's models do with their axes and with a project that is edited between tables.
#include "sensitivity/lotSAModel.h"
#include "support/lotTestProject.h"

#include <gtest/gtest.h>

namespace {

using TCells = std::vector<std::vector<std::string>>;

TCells Table(TSAModel& model, const std::vector<TSACategory*>& categories) {
    model.SelectedCategories = categories;
    model.Refresh();
    TSAPage page;
    model.Calculate(page);
    return page.Cells;
}

TSACategory& Category(TSAModel& model, const char* name, double step) {
    TSACategory& category = model.Categories[model.Categories.IndexOf(name)];
    category.Step = step;
    category.StepCount = 3;
    return category;
}

template <class Model> void ExpectEachRowToBeTheTableOfOneAxis(std::uint64_t seed) {
    TRandom random(seed);
    TlotProject project{0};
    RandomProject(random, project);
    project.Calculate();
    Model model(project, {});
    for (int i = 0; i < model.Categories.Count(); ++i) {
        TSACategory& category = model.Categories[i];
        SCOPED_TRACE(category.Name);
        category.Step = 2;
        category.StepCount = 3;
        const TCells alone = Table(model, {&category});
        const TCells twice = Table(model, {&category, &category});
        ASSERT_EQ(twice.size(), 3U);
        for (const std::vector<std::string>& row : twice) {
            EXPECT_EQ(row, (std::vector<std::string>{alone[0][0], alone[1][0], alone[2][0]}));
        }
    }
}

TEST(SensitivityModels, ACategoryOnBothAxesVariesAlongTheColumnsOnly) {
    for (const std::uint64_t seed : {2U, 5U, 11U}) {
        ExpectEachRowToBeTheTableOfOneAxis<TlotSAModelNew>(seed);
        ExpectEachRowToBeTheTableOfOneAxis<TlotSAModelOld>(seed);
    }
}

TEST(SensitivityModels, AreasGoBackToTheirUnitsInWhateverOrderThoseStand) {
    // Not calculated yet, so the table's own passes sort the two.
    TlotProject project{0};
    TlotUnit& second = AddUnit(project, "Commercial", 10, 100, 8);
    second.Number = 2;
    TlotUnit& first = AddUnit(project, "Commercial", 20, 7, 8);
    first.Number = 1;
    first.Areas.Add().SetValue(55);
    TlotSAModelNew model(project, {});
    static_cast<void>(Table(model, {&Category(model, "ERV Rate", 1)}));
    EXPECT_EQ(&project.Units[0], &first);
    EXPECT_EQ(second.Areas[0].Rate(), 100);
    EXPECT_EQ(first.Areas[0].Value(), 140);
    EXPECT_EQ(first.Areas[1].Value(), 55);
}

TEST(SensitivityModels, RatesAreShiftedAfterTheRentsThatTheyReplace) {
    // A rent of 10 x 100 at 8 %: a rate of 1 more or less moves the rent by 10 and the value by 125, whatever else the
    // rent was shifted to.
    TlotProject project{0};
    TlotUnit& shop = AddUnit(project, "Commercial", 10, 100, 8);
    shop.BuildArea.Value = 1;
    shop.BuildRate.Value = 500;
    project.Calculate();
    TlotSAModelNew model(project, {});
    TSACategory& rent = Category(model, "ERV", 300);
    TSACategory& rate = Category(model, "ERV Rate", 1);
    model.SelectedResults = {&model.Results[model.Results.IndexOf("net profit")]};
    const TCells alone = Table(model, {&rate});
    EXPECT_NE(alone[0][0], alone[1][0]);
    const std::vector<std::string> rates = {alone[0][0], alone[1][0], alone[2][0]};
    EXPECT_EQ(Table(model, {&rent, &rate}), (TCells{rates, rates, rates}));
    model.SwapXY = true;
    for (std::size_t row = 0; row < 3; ++row) {
        EXPECT_EQ(Table(model, {&rent, &rate})[row], std::vector<std::string>(3, rates[row]));
    }
}

TEST(SensitivityModels, CostsOutliveAnItemThatWasDeletedSinceTheyWereListed) {
    TlotProject project{0};
    TlotSection& works = AddSection(project, "Works", "Costs");
    TlotSection& fees = AddSection(project, "Fees", "Costs");
    AddItem(works, "Walls", 100);
    AddItem(works, "#Heading", 0);
    AddItem(works, "Roof", 200);
    AddItem(fees, "Architect", 5, "SECTION");
    TlotSAModelNew model(project, {});
    TSACategory& costs = Category(model, "Costs", 10);
    const auto items = [&] {
        std::string text;
        for (int i = 0; i < costs.Count(); ++i) {
            text += costs.ItemName(i) + ' ' + costs.ItemValue(i, {}) + '|';
        }
        return text;
    };
    model.SelectedCategories = {&costs};
    model.Refresh();
    EXPECT_EQ(items(), "Walls 100|Roof 200|Architect 5.000%|");

    project.DeleteItem(works, 0);
    project.DeleteItem(works, 0);
    AddItem(works, "Windows", 300);
    EXPECT_EQ(items(), " |Roof 200|Architect 5.000%|") << "a new item is listed next time, wherever it lies";
    costs.Save();
    for (int i = 0; i < costs.Count(); ++i) {
        costs.Apply(i, {2, 3, false, 10});
    }
    EXPECT_EQ(items(), " |Roof 220|Architect 15.000%|");
    costs.Restore();
    EXPECT_EQ(items(), " |Roof 200|Architect 5.000%|");
    project.Calculate();
    TSAPage page;
    EXPECT_NO_THROW(model.Calculate(page));
    EXPECT_EQ(page.Cells.size(), 3U);

    project.DeleteSection(1);
    EXPECT_EQ(items(), " |Roof 200| |");
    costs.Save();
    project.Clear(0);
    costs.Restore();
    EXPECT_EQ(items(), " | | |");
    model.Refresh();
    EXPECT_EQ(costs.Count(), 0);
}

} // namespace
