// SPDX-License-Identifier: GPL-3.0-or-later
#include "finance/lotEquity.h"
#include "support/lotRows.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

TEST(Equity, AnAccountThatChangesSignPaysAndEarnsByTheMonth) {
    // 1 % a month on what is owed, 0.5 % on what is held:
    // month  flow   balance                              interest
    // 0     -1000  -1000                                 -10
    // 1      3000  -1000 + 3000 - 10       = 1990          9.95
    // 2     -2500   1990 - 2500 + 9.95     = -500.05      -5.0005
    // 3      1000  -500.05 + 1000 - 5.0005 = 494.9495      2.4747475
    TlotEquity equity;
    equity.InterestRate.Value = 12;
    equity.CreditInterestRate = 6;
    equity.Cashflow = RowOf({-1000, 3000, -2500, 1000});
    equity.Calculate(nullptr);
    ExpectMonths(equity.Balance, {-1000, 1990, -500.05, 494.9495});
    ExpectMonths(equity.CashflowIncludingInterest, {-1010, 3009.95, -2505.0005, 1002.4747475});
    ExpectClose(equity.TotalInterest, 10 - 9.95 + 5.0005 - 2.4747475);
    EXPECT_EQ(equity.TotalCash, 3500);
    ExpectClose(equity.NPV, 500 - equity.TotalInterest, "no discount rate, no discount");
    // Debit 1 % in month 0 and 3 % from month 1, the adjustment included; the credit rate stays as it is.
    TlotAdjust adjust;
    adjust.InterestRate.Value = 12;
    equity.VariableRate = true;
    equity.InterestRates = TlotDoubles({0, 24});
    equity.Calculate(&adjust);
    ExpectMonths(equity.Interest, {-10, 9.95, -15.0015, 2.4247425});
}

TEST(Equity, ReturnsMayLeaveOutTheInterestThatStaysACost) {
    TlotEquity equity;
    equity.InterestRate.Value = 12;
    equity.DiscountRate = 21;
    equity.NPVIRRIncludesInterest = false;
    equity.Cashflow.Values = TlotDoubles({-1e6, 0, 0, 0, 0, 0, 1.1e6}); // 1.1 is 1.21^(1/2).
    equity.Calculate(nullptr);
    EXPECT_NEAR(equity.NPV, 0, 1e-6) << "month 0 undiscounted";
    EXPECT_NEAR(equity.IRR, 21, 0.001);
    ExpectClose(equity.TotalInterest, 1e6 * (std::pow(1.01, 6) - 1));
    equity.NPVIRRIncludesInterest = true;
    equity.Calculate(nullptr);
    EXPECT_LT(equity.NPV, -50000);
    EXPECT_LT(equity.IRR, 15);
}

} // namespace
