// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipBisect.h"
#include "common/vipRates.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <tuple>
#include <vector>

namespace {

/// Money out in month 0, and back.
std::vector<double> Flows(double out, std::size_t month, double back) {
    std::vector<double> flows(month + 1, 0.0);
    flows.front() -= out;
    flows.back() += back;
    return flows;
}

TEST(Rates, TheTwoDiscountingConventionsDifferByOneMonth) {
    // 1,210 two years off at 10 % is worth 1,000; month 23 ends two years after the start of month 0.
    EXPECT_NEAR(vip::DiscountedSum(0.10, 12, Flows(0, 23, 1210)), 1000, 1e-9);
    EXPECT_NEAR(vip::PresentValue(0.10, 12, Flows(500, 24, 1210)), 500, 1e-9);
    // 1 at each month's end for 50 years at 1 % a month: (1 - 1.01^-600) / 0.01.
    const double annuity = vip::DiscountedSum(std::pow(1.01, 12) - 1, 12, std::vector<double>(600, 1.0));
    EXPECT_NEAR(annuity, (1 - std::pow(1.01, -600)) / 0.01, 1e-10);
}

TEST(Rates, AnnualRateOfReturnStopsWithinHalfAUnitOfMoney) {
    // The rate is (back / out)^(12 / month) - 1.
    for (const auto& [month, back, rate] : {std::tuple(12U, 1.2e6, 0.2), {24U, 1.44e6, 0.2}, {6U, 2e6, 3.0}}) {
        const std::vector<double> flows = Flows(1e6, month, back);
        const double found = vip::AnnualIRR(flows);
        EXPECT_NEAR(found, rate, 1e-5);
        EXPECT_LT(found, rate) << "what is left over is above 0, so the rate lies below";
        EXPECT_LE(vip::DiscountedSum(found, 12, flows), 0.5);
    }
    EXPECT_EQ(vip::AnnualIRR(Flows(100000, 12, 90000)), 0) << "a loss: its negative rate isn't sought";
}

TEST(Rates, AnnualRateOfReturnIsThatOfTheExactSumInEveryStep) {
    std::mt19937 random(7);
    for (int i = 0; i < 500; ++i) {
        std::vector<double> flows(1 + random() % 100);
        for (double& flow : flows) {
            flow = static_cast<double>(random() % 2001) - (&flow < &flows[flows.size() / 2] ? 1200 : 800);
        }
        VBisect solver;
        solver.Start(50, 0, 0, 1000);
        while (solver.Running()) {
            solver.Step(vip::DiscountedSum(solver.Middle(), 12, flows));
        }
        ASSERT_EQ(vip::AnnualIRR(flows), solver.Found() ? solver.Middle() : 0);
    }
}

TEST(Rates, MonthlyRateOfReturnIsTheRootNearestToTheGuess) {
    // With g = 1 + rate: g^2 - 5.1 g + 4.4 = (g - 1.1)(g - 4), and g^2 - g + 1 has no real root.
    const std::tuple<std::vector<double>, double, bool, double> cases[] = {
        {{-100, 110}, 4, true, 0.1},          {{-100, 0, 81}, 4, true, -0.1}, {{-1000, 5100, -4400}, 4, true, 3},
        {{-1000, 5100, -4400}, 0, true, 0.1}, {{1, -1, 1}, 4, false, 0},      {{5, 0, 5}, 4, false, 0},
    };
    for (const auto& [flows, guess, found, expected] : cases) {
        double rate = 0;
        EXPECT_EQ(vip::NearestMonthlyIRR(flows, guess, rate), found);
        EXPECT_NEAR(rate, expected, 1e-9);
    }
}

} // namespace
