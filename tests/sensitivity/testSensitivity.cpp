// SPDX-License-Identifier: GPL-3.0-or-later
//
// The framework on a model that has nothing to do with property: two prices and their sum.
#include "common/vipErrors.h"
#include "sensitivity/SAMain.h"

#include <gtest/gtest.h>

#include <string_view>

namespace {

using TLabels = std::vector<std::string>;

struct TShop {
    TSADouble Bread{10, 0};
    TSADouble Milk{4, 0};
    double Sum = 0;
    double Limit = 1e9; ///< Beyond it the calculation fails.
    std::string Story;  ///< What happened, in order.
    std::string Shifts; ///< What was shifted, in order.
};

class TPrice final : public TSACategory {
public:
    TPrice(std::string name, int place, TShop& shop, TSADouble& price)
        : TSACategory(std::move(name), place), FShop(shop), FPrice(price) {}
    void Apply(int, const vip::TSAStep& step) override {
        FShop.Shifts += Name + ' ';
        FPrice.Apply(step);
    }
    void Save() override {
        FShop.Story += "save ";
        FPrice.Save();
    }
    void Restore() override {
        FShop.Story += "restore ";
        FPrice.Restore();
    }
    int Count() const override { return 1; }
    std::string ItemName(int) const override { return Name; }
    std::string ItemValue(int, const TNumberLocale& locale) const override {
        return vip::FormatMask("0.00", FPrice.Value, locale);
    }

private:
    TShop& FShop;
    TSADouble& FPrice;
};

class TAdd final : public TSACalc {
public:
    explicit TAdd(TShop& shop) : FShop(shop) {}
    void Start() override { FShop.Story += "start "; }
    void Finish() override { FShop.Story += "finish "; }
    void Calculate(const TSAAxis& columns, const TSAAxis& rows) override {
        ApplyPlaces(1, 2, columns, rows);
        ApplyPlaces(3, 9, columns, rows);
        FShop.Sum = FShop.Bread.Value + FShop.Milk.Value;
        if (FShop.Sum > FShop.Limit) {
            throw ELotError("too dear");
        }
    }

private:
    TShop& FShop;
};

class TSum final : public TSAResult {
public:
    TSum(std::string name, TSACalc& calc, TShop& shop, double factor)
        : TSAResult(std::move(name), calc, 1, false), FShop(shop), FFactor(factor) {}
    std::string Text(const TSAAxis&, const TSAAxis&, const TNumberLocale& locale) const override {
        return Format(FShop.Sum * FFactor, locale);
    }

private:
    TShop& FShop;
    double FFactor;
};

class TShopModel final : public TSAModel {
public:
    explicit TShopModel(TShop& shop) : TSAModel({}) {
        TSACalc& calc = Calcs.Add<TAdd>(shop);
        Results.Add<TSum>("Sum", calc, shop, 1);
        Results.Add<TSum>("Double", calc, shop, 2);
        TSACategory& bread = Categories.Add<TPrice>("Bread", 1, shop, shop.Bread);
        bread.Step = 1;
        bread.StepCount = 3;
        TSACategory& milk = Categories.Add<TPrice>("Milk", 2, shop, shop.Milk);
        milk.Step = 25;
        milk.PercentageStep = true;
        milk.StepCount = 2;
        SelectedCategories = {&bread, &milk};
        SelectedResults = {&Results[0]};
    }
};

class Sensitivity : public testing::Test {
protected:
    TSAPage Table() {
        TSAPage page;
        FModel.Refresh();
        FModel.Calculate(page);
        return page;
    }
    TShop FShop;
    TShopModel FModel{FShop};
};

TEST_F(Sensitivity, LabelsTellTheChangeAndAnEvenCountReachesFurtherUp) {
    struct TCase {
        int Count;
        double Step;
        bool Percentage;
        int Decimals;
        TLabels Labels;
    };
    TSACategory& bread = FModel.Categories[0];
    bread.Thousands = true;
    for (const TCase& c :
         {TCase{1, 5, false, 0, {"0"}}, TCase{3, 5, false, 0, {"-5", "0", "+5"}},
          TCase{4, 5, false, 0, {"-5", "0", "+5", "+10"}}, TCase{2, 1250.5, false, 2, {"0.00", "+1,250.50"}},
          TCase{3, 2.5, true, 0, {"-2.500%", "0.000%", "+2.500%"}}, TCase{2, 0, false, 0, {"0", "0"}},
          TCase{3, -1, false, 0, {"+1", "0", "-1"}}}) {
        bread.StepCount = c.Count;
        bread.Step = c.Step;
        bread.PercentageStep = c.Percentage;
        bread.Decimals = c.Decimals;
        EXPECT_EQ(Table().RowLabels, c.Labels);
    }
}

TEST_F(Sensitivity, TwoAxesGiveRowsForTheFirstAndSwapExchangesThem) {
    // Bread 9, 10, 11 down; milk 4 and 4 + 25 % across.
    const std::vector<TLabels> cells = {{"13.0", "14.0"}, {"14.0", "15.0"}, {"15.0", "16.0"}};
    TSAPage page = Table();
    EXPECT_EQ(page.Cells, cells);
    EXPECT_EQ(page.RowTitle + "/" + page.ColumnTitle + "/" + page.ResultTitle, "Bread/Milk/Sum");
    EXPECT_EQ(FShop.Story, "start save save restore restore finish ");
    FModel.SwapXY = true;
    FModel.SelectedResults.push_back(&FModel.Results[1]);
    page = Table();
    EXPECT_EQ(page.RowTitle, "Milk");
    EXPECT_EQ(page.RowCount(), 2);
    EXPECT_EQ(page.Cells[1][2], "16.0\r\n32.0");
    EXPECT_EQ(page.ResultTitle, "Sum, Double");
}

TEST_F(Sensitivity, PlacesTellWhatIsShiftedFirstWhicheverAxisItIsOn) {
    for (TSACategory* const category : FModel.SelectedCategories) {
        category->StepCount = 1;
    }
    Table();
    FModel.SwapXY = true;
    Table();
    EXPECT_EQ(FShop.Shifts, "Bread Milk Bread Milk ");
}

TEST_F(Sensitivity, ACategoryOnBothAxesIsShiftedOnceFromTheColumns) {
    TSACategory& bread = FModel.Categories[0];
    FModel.SelectedCategories = {&bread, &bread};
    const TLabels row = {"13.0", "14.0", "15.0"};
    EXPECT_EQ(Table().Cells, (std::vector<TLabels>{row, row, row}));
    EXPECT_EQ(FShop.Shifts.size(), 9 * std::string_view("Bread ").size());
    EXPECT_EQ(FShop.Bread.Value, 10);
}

TEST(SensitivityOrder, IsCheckedWhenAModelIsMade) {
    class TModel final : public TSAModel {
    public:
        TModel(TShop& shop, int bread, int milk, const std::vector<std::string_view>& told) : TSAModel({}) {
            Categories.Add<TPrice>("Milk", milk, shop, shop.Milk);
            Categories.Add<TPrice>("Bread", bread, shop, shop.Bread);
            CheckOrder(told);
        }
    };
    TShop shop;
    EXPECT_NO_THROW(TModel(shop, 1, 2, {"Bread", "Butter", "Milk"})) << "a model may lack a category";
    EXPECT_THROW(TModel(shop, 2, 1, {"Bread", "Milk"}), ELotError) << "told otherwise";
    EXPECT_THROW(TModel(shop, 2, 2, {"Bread", "Milk"}), ELotError) << "one place for two";
    EXPECT_THROW(TModel(shop, 1, 2, {"Bread"}), ELotError) << "not told";
}

TEST_F(Sensitivity, OneAxisGivesAColumnAResultAndSavesBeforeItStarts) {
    FModel.SelectedCategories.pop_back();
    FModel.SelectedResults.push_back(&FModel.Results[1]);
    TSAPage page = Table();
    EXPECT_EQ(page.Cells, (std::vector<TLabels>{{"13.0", "26.0"}, {"14.0", "28.0"}, {"15.0", "30.0"}}));
    EXPECT_EQ(page.ColumnLabels, (TLabels{"Sum", "Double"}));
    EXPECT_EQ(page.ResultTitle, "");
    EXPECT_EQ(FShop.Story, "save start restore finish ");
    FModel.Categories[0].Step = 0;
    FModel.Calculate(page);
    EXPECT_TRUE(page.RowsStepped) << "set and never cleared on a page with one axis";
    EXPECT_FALSE(Table().RowsStepped);
}

TEST_F(Sensitivity, AFailureInATableOrACellPutsTheModelBack) {
    FShop.Limit = 15.5;
    EXPECT_THROW(Table(), ELotError);
    EXPECT_EQ(FShop.Bread.Value, 10);
    EXPECT_EQ(FShop.Story, "start save save restore restore finish ");
    FShop.Limit = 1e9;
    double seen = 0;
    FModel.Scenario(2, 1, [&] { seen = FShop.Sum; });
    EXPECT_EQ(seen, 16);
    EXPECT_THROW(FModel.Scenario(0, 0, [] { throw ELotError("no printer"); }), ELotError);
    EXPECT_EQ(FShop.Bread.Value + FShop.Milk.Value, 14);
}

TEST_F(Sensitivity, WhatIsLeftOutIsNotShiftedAndIndicesAreChecked) {
    TSACategory& bread = FModel.Categories[0];
    EXPECT_TRUE(bread.Included(5)) << "items that were never set take part";
    EXPECT_THROW(bread.SetIncluded(0, false), ELotError);
    bread.ResetIncluded();
    bread.SetIncluded(0, false);
    EXPECT_EQ(Table().Cells[0][0], "14.0");
    bread.StepCount = 1'000'000'000;
    EXPECT_THROW(Table(), ELotError) << "a count out of a file must not fill the machine";
}

} // namespace
