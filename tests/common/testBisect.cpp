// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipBisect.h"

#include <gtest/gtest.h>

namespace {

struct TSearch {
    const char* What;
    double (*Function)(double);
    double Target;
    double Low;
    double High;
    double Tolerance;
    bool Found;
    bool SignedMode = false;
};

/// Below a cost of nothing the ratio of profit to cost turns negative, however good the scheme.
double ProfitOnCost(double site) {
    const double cost = 1000 + site;
    return (1100 - cost) / cost * 100;
}

// The second search for 0 hits it at the first middle, which is refused and moves no bound. 25 % on cost wants a site
// of -120; the middles below a cost of 0 read negative.
const TSearch Searches[] = {
    {"falling line", [](double x) { return 100 - x; }, 30, 0, 200, 0.001, true},
    {"answer at the low end", [](double x) { return 100 - x; }, 100, 0, 200, 0.001, true},
    {"answer at the high end", [](double x) { return 201 - x; }, 1, 0, 200, 0.001, true},
    {"target 0, from above", [](double x) { return 100 - x; }, 0, 0, 300, 0.5, true},
    {"target 0, hit exactly", [](double x) { return 100 - x; }, 0, 0, 200, 0.5, false},
    {"negative and near enough", [](double) { return -0.1; }, 0, 0, 200, 0.5, false},
    {"flat on the target", [](double) { return 5.0; }, 5, 0, 200, 0.001, true},
    {"flat beside the target", [](double) { return 5.0; }, 6, 0, 200, 0.001, false},
    {"rising", [](double x) { return x; }, 30, 0, 200, 0.001, false},
    {"target above all", [](double x) { return 100 - x; }, 500, 0, 200, 0.001, false},
    {"target below all", [](double x) { return 500 - x; }, 100, 0, 200, 0.001, false},
    {"a step over the target", [](double x) { return x < 70 ? 90.0 : 10.0; }, 30, 0, 200, 0.001, false},
    {"past a pole, signed", ProfitOnCost, 25, -10000, 0, 0.0001, true, true},
    {"past a pole, unsigned", ProfitOnCost, 25, -10000, 0, 0.0001, false},
};

TEST(Bisect, KeepsItsContractForEveryShapeOfFunction) {
    VBisect solver;
    for (const TSearch& s : Searches) {
        SCOPED_TRACE(s.What);
        solver.Tolerance = s.Tolerance;
        solver.SignedMode = s.SignedMode;
        solver.Start(50, s.Target, s.Low, s.High);
        int computations = 0;
        double value = 0;
        for (; solver.Running() && computations < 100; ++computations) {
            value = s.Function(solver.Middle());
            solver.Step(value);
        }
        EXPECT_EQ(solver.Status(), s.Found ? TBisectStatus::Found : TBisectStatus::GaveUp);
        if (s.Found) {
            EXPECT_NEAR(value, s.Target, s.Tolerance);
            EXPECT_EQ(value, s.Function(solver.Middle())) << "the middle stays on the answer";
            EXPECT_LE(computations, 51);
        } else {
            EXPECT_EQ(computations, 52) << "51 results move the bounds and the next one ends the search";
        }
        solver.Step(s.Found ? s.Target * 9 + 9 : s.Target);
        EXPECT_EQ(solver.Found(), s.Found) << "an ended search stays ended";
    }
}

} // namespace
