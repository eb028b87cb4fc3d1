// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/lotRows.h"
#include "support/lotTestProject.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

class Unit : public testing::Test {
protected:
    Unit() { FUnit.CalculateValue(nullptr); }

    TlotProject FProject{0};
    TlotUnit& FUnit = AddUnit(FProject, "Commercial", 100, 10, 8); // A rent of 1,000 at 8 %.
};

TEST_F(Unit, CapitalisesARentByItsPeriodPaymentAndTenure) {
    // Years' purchase at 8 % from the tables: 12.5 in perpetuity, 13.1190 quarterly and 13.0353 monthly in advance; for
    // 21 years 10.0168, 10.5128, and 10.4458 monthly in advance. Unknown numbers act as the first.
    using enum TlotRentalValues;
    using enum TlotYPFrequency;
    const std::tuple<TlotRentalValues, TlotYPFrequency, bool, double, double> cases[] = {
        {Annual, AnnuallyInArrears, false, 21, 12500},
        {HalfYearly, AnnuallyInArrears, false, 0, 25000},
        {Quarterly, AnnuallyInArrears, false, 0, 50000},
        {Monthly, AnnuallyInArrears, false, 0, 150000},
        {Annual, QuarterlyInAdvance, false, 0, 13119.0},
        {Annual, MonthlyInAdvance, false, 0, 13035.3},
        {Annual, AnnuallyInArrears, true, 21, 10016.8},
        {Annual, QuarterlyInAdvance, true, 21, 10512.8},
        {Annual, MonthlyInAdvance, true, 21, 10445.8},
        {Annual, AnnuallyInArrears, true, 0, 12500},
        {static_cast<TlotRentalValues>(9), static_cast<TlotYPFrequency>(9), false, 0, 12500},
    };
    for (const auto& [period, frequency, leasehold, term, value] : cases) {
        FUnit.YPFrequency = frequency;
        EXPECT_NEAR(FUnit.CapitalValue(leasehold, period, 1000, term), value, 0.05);
    }
    FUnit.Yield.Value = 0;
    EXPECT_EQ(FUnit.CapitalValue(false, Annual, 1000, 0), 0);
}

TEST_F(Unit, DefersForARentFreePeriodAndTakesOffPurchasersCosts) {
    FUnit.Yield.Value = 25;
    FUnit.RentFreePeriod = 24;
    FUnit.PurchCosts = 28;
    FProject.Calculate();
    ExpectClose(FUnit.GrossSale.Value, 4000 * 0.64); // 1.25^-2
    ExpectClose(FUnit.NetSale.Value, 2000);
    ExpectClose(FUnit.PurchCostsValue, 560);
    FUnit.RentFreePeriod = 0;
    FUnit.PurchCosts = -100;
    FProject.Calculate();
    EXPECT_EQ(FUnit.RentFreeFactor, 0);
    EXPECT_EQ(FUnit.GrossSale.Value, 4000);
    EXPECT_EQ(FUnit.NetSale.Value, 0);
}

TEST_F(Unit, FindsTheYieldOfACapitalValueAndStaysAsItWas) {
    FUnit.CalculateGroundRent(false, 0, 0);
    EXPECT_NEAR(FUnit.SolveRate(false, TlotRentalValues::Annual, 20000, 0), 5, 0.001);
    EXPECT_EQ(FUnit.Yield.Value, 8);
    EXPECT_EQ(FUnit.GrossSale.Value, 12500);
}

TEST_F(Unit, CountsRowsWithAnAreaAndFlexesThemBySales) {
    FUnit.Areas.Add().SetValue(777);
    FUnit.Areas.Add().SetValue(500);
    FUnit.Areas[2].SetArea(3); // A lump sum with an area counts.
    FUnit.BuildArea.Value = FUnit.BuildRate.Value = 10;
    FProject.Adjust.Sales.Value = 10;
    FProject.Adjust.Yield.Value = 50;
    FProject.Adjust.BuildCost.Value = -100;
    FProject.Calculate();
    ExpectClose(FUnit.ERV.Value, 1650);
    ExpectClose(FUnit.GrossSale.Value, 1650 * 12.5, "the yield adjustment is read by nothing");
    EXPECT_EQ(FProject.BaseValues.Build.Amount, 0);
}

TEST_F(Unit, OrderIsTypeThenNumberThenNameAndOtherwiseAsItWas) {
    FProject.Clear(0);
    const std::tuple<const char*, int, const char*> rows[] = {
        {"Residential", 2, "a"}, {"RESIDENTIAL", 1, "B"}, {"Residential", 1, "a"},
        {"Residential", 1, "A"}, {"Commercial", 9, "z"},  {"Hotel", 5, "m"},
    };
    for (const auto& [type, number, name] : rows) {
        TlotUnit& unit = AddUnit(FProject, type, 1, 1);
        unit.Number = number;
        unit.Name = name;
    }
    FProject.Calculate();
    std::string order;
    for (const auto& unit : FProject.Units) {
        order += unit->Name + std::to_string(unit->Number) + ' ';
    }
    EXPECT_EQ(order, "m5 z9 a1 A1 B1 a2 ") << "an unknown type first";
}

} // namespace
