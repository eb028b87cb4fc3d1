// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/lotRows.h"
#include "support/lotTestProject.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

class Items : public testing::Test {
protected:
    Items() {
        FBase.SiteValue = RowOf({1000});
        FBase.Build = RowOf({1000, 1000});
        FBase.NetCap = RowOf({0, 0, 400, 600});
        FBase.GrossRent.Amount = 80;
        FBase.Profit = 70;
    }

    TlotProject FProject{0};
    TlotBaseValues& FBase = FProject.BaseValues;
    TlotSection& FSection = AddSection(FProject, "Fees", "Costs");
};

TEST_F(Items, ArePercentagesOfASumOfKeywords) {
    // Only "+" joins a base; brackets and comparisons do no harm, and what follows a whole expression is not read.
    const std::tuple<const char*, double, bool> cases[] = {
        {" build + SITEVALUE ", 300, false},
        {"NETCAP+10", 101, false},
        {"(BUILD+NETCAP)", 300, false},
        {"PROFIT", 7, false},
        {"BUILD>1", 0.1, false},
        {"BUILD SITEVALUE", 200, false},
        {"SECTION", 0, false},
        {" ", 0, false},
        {"NETCAP-10", 0, true},
        {"BUILD*2", 0, true},
        {"BUILD/2", 0, true},
        {"BUILD+", 0, true},
        {"GDV", 0, true},
        {"site value", 0, true},
        {"(BUILD", 0, true},
    };
    TlotItem& item = AddItem(FSection, "Architect", 10, "");
    for (const auto& [formula, value, error] : cases) {
        item.BaseFormula = formula;
        FSection.Calculate(FBase);
        ExpectClose(item.Line.Amount, value, formula);
        EXPECT_EQ(item.Error, error) << formula;
    }
    item.BaseFormula = " 2*";
    item.Amount.Value = 0;
    FSection.Calculate(FBase);
    EXPECT_FALSE(item.Error) << "nothing percent asks for no base";
    EXPECT_EQ(item.BaseFormula, " 2*");
}

TEST_F(Items, SeeTheEarlierOnesOfTheirSectionButNoSubHeading) {
    AddItem(FSection, "Roads", 100);
    TlotItem& heading = AddItem(FSection, "#Fees", 50, "BUILD");
    TlotItem& fee = AddItem(FSection, "Engineer", 10, "SECTION");
    AddItem(FSection, "Planning", 10, "SECTION");
    for (int pass = 1; pass <= 2; ++pass) {
        FSection.Calculate(FBase);
        ExpectMonths(FSection.Total, {121});
        EXPECT_EQ(fee.Base, 100);
        EXPECT_EQ(heading.Line.Amount, 1000) << "valued";
        ExpectMonths(heading.Line, {}, "but not spread");
    }
}

TEST_F(Items, LinkedTakeTheMonthsOfTheirBase) {
    // A cost on the rent falls with the capitalised sales. GROSSCAP, measures and unknown words have no months.
    const std::pair<const char*, std::vector<double>> cases[] = {
        {" GROSSRENT", {0, 0, 0.4, 0.6}},
        {"build+ NetCap", {1.0 / 3, 1.0 / 3, 0.4 / 3, 0.6 / 3}},
        {"BUILD+X", {0.5, 0.5}},
        {"SECTION", {0, 1}},
        {"SITEVALUE", {1}},
        {"GROSSCAP+PROFIT+(BUILD)", {}},
    };
    AddItem(FSection, "Survey", 40).Line.Start = 1;
    TlotItem& item = AddItem(FSection, "Agent", 600); // A sum of money, which may be linked too.
    item.Link = true;
    for (const auto& [formula, shares] : cases) {
        item.BaseFormula = formula;
        FSection.Calculate(FBase);
        ExpectMonths(item.Line.Portions, shares, formula);
        EXPECT_TRUE(item.Line.ReadOnly);
    }
    item.Line.Start = 2;
    FSection.Calculate(FBase);
    ExpectMonths(item.Line, {0, 0, 600}, "without a shape, by start and period");
}

} // namespace
