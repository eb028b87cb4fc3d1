// SPDX-License-Identifier: GPL-3.0-or-later
//
// Monthly rows for tests: made from a list, and compared with one, length included.
#pragma once

#include "engine/lotCashflow.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <string_view>
#include <vector>

/// A line that holds these months and their sum.
inline TlotCashflowItem RowOf(std::initializer_list<double> months, bool income = false) {
    TlotCashflowItem row;
    row.Values = TlotDoubles(std::vector<double>(months));
    row.Amount = row.Sum();
    row.Income = income;
    return row;
}

/// As close as two roads to one figure come: 1e-9 of it, and of 1 for small figures.
inline void ExpectClose(double actual, double expected, std::string_view what = {}) {
    EXPECT_NEAR(actual, expected, 1e-9 * std::fmax(1, std::fabs(expected))) << what;
}

inline void ExpectMonths(const TlotDoubles& actual, const std::vector<double>& expected, std::string_view what = {}) {
    ASSERT_EQ(actual.Count(), static_cast<int>(expected.size())) << what;
    for (int i = 0; i < actual.Count(); ++i) {
        SCOPED_TRACE(testing::Message() << "month " << i);
        ExpectClose(actual.Get(i), expected[static_cast<std::size_t>(i)], what);
    }
}

inline void ExpectMonths(const TlotCashflowItem& row, const std::vector<double>& expected, std::string_view what = {}) {
    ExpectMonths(row.Values, expected, what);
}
