// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/lotRows.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

constexpr auto Repeat = TlotSpreadKind::Repeat;

TlotCashflowItem Line(double amount, int start, int period, std::vector<double> portions = {},
                      TlotSpreadKind kind = TlotSpreadKind::Spread) {
    TlotCashflowItem line = RowOf({777, 777, 777, 777, 777, 777, 777}); // Left by the pass before.
    line.Amount = amount;
    line.Start = start;
    line.Period = period;
    line.Portions = TlotDoubles(std::move(portions));
    line.SpreadKind = kind;
    return line;
}

TEST(Spread, PlacesAnAmountByItsKind) {
    std::tuple<const char*, TlotCashflowItem, std::vector<double>> cases[] = {
        {"level", Line(1200, 2, 4), {0, 0, 300, 300, 300, 300}},
        {"no period counts as one month", Line(90, 1, 0), {0, 90}},
        {"a start before the project counts as month 0", Line(90, -3, 2), {45, 45}},
        {"weighted", Line(100, 9, 9, {0, 1, 3}), {0, 25, 75}},
        {"weights of nothing", Line(100, 0, 2, {0, 0, 0}), {0, 0, 0}},
        {"weights that cancel", Line(100, 0, 2, {1, -1}), {0, 0}},
        {"no amount, straight", Line(0, 2, 4), {}},
        {"no amount, weighted", Line(0, 2, 4, {1, 2}), {0, 0}},
        {"repeated", Line(100, 1, 3, {}, Repeat), {0, 100, 100, 100}},
        {"repeated, a full and a half month", Line(100, 0, 0, {1, 0.5}, Repeat), {100, 50}},
        {"repeated, weights that cancel", Line(100, 0, 0, {1, -1}, Repeat), {100, -100}},
    };
    for (auto& [what, line, months] : cases) {
        line.Spread();
        ExpectMonths(line, months, what);
    }
    EXPECT_EQ(std::get<1>(cases[1]).Period, 1) << "mended for good";
    EXPECT_EQ(std::get<1>(cases[2]).Start, 0);
}

TEST(Spread, LinkedKindTakesAPercentageOfEachMonth) {
    const TlotCashflowItem followed = RowOf({1000, 0, -400});
    TlotCashflowItem line = Line(2.5, 7, 7, {1, 1}, TlotSpreadKind::Linked);
    line.LinkedValues = &followed;
    line.Spread();
    ExpectMonths(line, {25, 0, -10});
    line.LinkedValues = nullptr;
    line.Spread();
    ExpectMonths(line, {1.25, 1.25}, "with nothing to follow it is spread");
}

TEST(Simplify, StoresAPlainShapeAsStartAndPeriod) {
    // A line from month 5 over 6 months, with portions: the start, the period and the portions that are left.
    const std::tuple<const char*, std::vector<double>, int, int, std::vector<double>> cases[] = {
        {"straight line", {}, 5, 6, {}},
        {"a single month keeps its weight", {0.5}, 0, 1, {0.5}},
        {"a single month of nothing", {0}, 0, 1, {0}},
        {"nothing", {0, 0, 0}, 5, 6, {}},
        {"one month with weight", {0, 0, 0.7}, 2, 1, {}},
        {"level", {0, 3, 3, 3, 0}, 1, 3, {}},
        {"a gap", {1, 0, 1}, 5, 6, {1, 0, 1}},
        {"uneven", {0, 1, 1.0000001}, 5, 6, {0, 1, 1.0000001}},
    };
    for (const auto& [what, portions, start, period, left] : cases) {
        TlotCashflowItem line = Line(100, 5, 6, portions);
        line.Simplify();
        EXPECT_EQ(std::pair(line.Start, line.Period), std::pair(start, period)) << what;
        ExpectMonths(line.Portions, left, what);
    }
}

TEST(Inflation, GrowsByTwelfthsOfAYearAndLeavesTheAmount) {
    for (const auto& [rate, halfYear] : {std::pair(21.0, 110.0), {-19.0, 90.0}, {0.0, 100.0}}) {
        TlotCashflowItem line = Line(700, 0, 7);
        line.Spread();
        line.Inflate(rate);
        EXPECT_EQ(line.GetValue(0), 100);
        ExpectClose(line.GetValue(6), halfYear); // 1.21^(1/2), 0.81^(1/2)
        EXPECT_EQ(line.Amount, 700);
    }
}

} // namespace
