// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/lotRows.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

TEST(Cashflow, TotalIsIncomeLessCostsAsLongAsTheLongestLine) {
    TlotCashflowItem sales = RowOf({0, 0, 500, 300, 0, 0}, true);
    TlotCashflowItem build = RowOf({100, 200, 0});
    TlotCashflow cashflow;
    cashflow.Items = {&sales, &build};
    EXPECT_EQ(cashflow.LastMonth(), 4) << "a line ends after its last month with money";
    for (int pass = 1; pass <= 2; ++pass) {
        cashflow.Sum();
        ExpectMonths(cashflow.Total, {-100, -200, 500, 300, 0, 0});
        EXPECT_EQ(cashflow.Total.Amount, 500);
    }
    TlotCashflowItem waiting;
    waiting.Start = waiting.Period = 4;
    cashflow.Items.push_back(&waiting);
    EXPECT_EQ(cashflow.LastMonth(), 8) << "not spread yet";
}

TEST(Cashflow, ReturnOfALoanSeesTheFirst120Months) {
    TlotCashflowItem line = RowOf({-100, 110});
    const double annual = (std::pow(1.1, 12) - 1) * 100;
    ExpectClose(line.IRR120(), annual);
    line.SetValue(120, 1e6);
    ExpectClose(line.IRR120(), annual);
    line.SetValue(119, 1e6);
    EXPECT_GT(line.IRR120(), annual + 1);
    EXPECT_EQ(RowOf({-1, 5, -4}).IRR120(), 0) << "300 % a month would do, but the flows sum to exactly 0";
}

} // namespace
