// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipFormulae.h"

#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

namespace {

TEST(Formulae, AgreeWithThePrintedTablesToFourPlaces) {
    // 8 % nominal is 2 % a quarter: (1 - 1.02^-40) / (4 (1 - 1 / 1.02)) = 0.547110 / 0.078431. Without a finite answer
    // there is no years' purchase: no rate; 1 + rate is 1; 101^300 overflows.
    const std::tuple<const char*, double, double> cases[] = {
        {"amount of 1, 5 %, 20 years", vip::Amount(0.05, 20), 2.6533},
        {"present value, 6 %, 10 years", vip::PV(0.06, 10), 0.5584},
        {"years' purchase, 10 %, 5 years", vip::YPArrears(0.10, 5), 3.7908},
        {"years' purchase, 7 %, 25 years", vip::YPArrears(0.07, 25), 11.6536},
        {"in perpetuity, 8 %", vip::YPPerpetuity(0.08), 12.5},
        {"quarterly in advance, 8 %, 21 years", vip::YPQuarterlyAdvance(false, 0.08, 21), 10.5128},
        {"quarterly in advance in perpetuity, 7 %", vip::YPQuarterlyAdvancePerpetuity(false, 0.07), 14.9054},
        {"monthly in advance, 6 %, 10 years", vip::YPAdvance(false, 12, 0.06, 10), 7.5972},
        {"monthly in advance in perpetuity, 8 %", vip::YPAdvancePerpetuity(false, 12, 0.08), 13.0353},
        {"effective rate of 12 % monthly", vip::EffectiveRate(12, 0.12), 0.1268},
        {"quarterly in advance, 8 % nominal, 10 years", vip::YPQuarterlyAdvance(true, 0.08, 10), 6.9756},
        {"no rate", vip::YPPerpetuity(0) + vip::YPArrears(0, 10) + vip::YPAdvance(true, 12, 0, 10), 0},
        {"a rate too small", vip::YPArrears(1e-20, 10), 0},
        {"a rate too large", vip::YPArrears(100, 300), 0},
    };
    for (const auto& [what, actual, printed] : cases) {
        EXPECT_NEAR(actual, printed, 0.00005) << what;
    }
}

TEST(Formulae, LongTermsEndInArrearsAt300YearsAndInAdvanceAt999) {
    EXPECT_EQ(vip::YPArrears(0.05, 600), 20) << "above 500 the perpetuity";
    EXPECT_NEAR(vip::YPArrears(0.05, 500), 20 - 20 * std::pow(1.05, -300), 1e-12);
    EXPECT_NEAR(vip::YPAdvancePerpetuity(false, 1, 0.0005), (1 - std::pow(1.0005, -999)) / (1 - 1 / 1.0005), 1e-8);
}

} // namespace
