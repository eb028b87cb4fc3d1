// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipDate.h"
#include "common/vipErrors.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

TEST(Date, FilesHoldDaysSince1899InTwoForms) {
    const std::pair<const char*, double> cases[] = {
        {"2000-01-01", 36526}, {"29/02/2012", 40968}, {"1900-03-01", 61}, {"31/02/2014", 0},
        {"12/31/2014", 0},     {"2014-1-1", 0},       {"2014-01-01 ", 0}, {"", 0},
    };
    for (const auto& [text, date] : cases) {
        EXPECT_EQ(vip::DateFromFile(text), date) << text;
    }
    for (const char* const text : {"2014-13-01", "2014-02-29", "2014-00-10", "0000-01-01"}) {
        EXPECT_THROW((void)vip::DateFromFile(text), EConvertError) << text;
    }
    EXPECT_EQ(vip::DateToFile(0.75), "") << "no whole day, no date";
}

TEST(Date, MonthsKeepTheDayUnlessTheMonthIsShorter) {
    const std::tuple<const char*, int, const char*> cases[] = {
        {"2015-01-31", 1, "2015-02-28"},  {"2016-01-31", 1, "2016-02-29"},  {"2015-01-31", 2, "2015-03-31"},
        {"2015-01-31", 0, "2015-01-31"},  {"2015-01-15", -1, "2014-12-15"}, {"2015-03-31", -13, "2014-02-28"},
        {"2012-02-29", 12, "2013-02-28"}, {"2015-11-30", 3, "2016-02-29"},  {"2015-06-01", 600, "2065-06-01"},
    };
    for (const auto& [from, months, to] : cases) {
        EXPECT_EQ(vip::DateToFile(vip::IncMonth(vip::DateFromFile(from), months)), to) << from << ' ' << months;
    }
    EXPECT_EQ(vip::MonthYearText(vip::IncMonth(40968, 12)), "Feb-2013");
}

} // namespace
