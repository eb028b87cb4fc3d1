// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipNumber.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <tuple>
#include <utility>
#include <vector>

namespace {

constexpr TNumberLocale English{U'.', U','};
constexpr TNumberLocale German{U',', U'.'};
constexpr TNumberLocale French{U',', U'\u00A0'};

TEST(Number, TypedTextReadsUnderEitherSeparatorConvention) {
    // Two separators of one kind group digits; one alone is the locale's own. A bracket is no minus.
    // Of "1,2,3.4.5" two decimal separators are left over, which makes it no number.
    const std::tuple<const char*, double, double> cases[] = {
        {"1,234.5", 1234.5, 1234.5},
        {"1.234,5", 1234.5, 1234.5},
        {"1,234,567", 1234567, 1234567},
        {"1.234.567,8", 1234567.8, 1234567.8},
        {".5,0", 0.5, 0.5},
        {"(,5)", 0.5, 0.5},
        {"5.", 5, 5},
        {"1234.5", 1234.5, 12345},
        {"1234,5", 12345, 1234.5},
        {"(1,000)", 1000, 1},
        {"- 1,5", -15, -1.5},
        {"-(-(-5", -5, -5},
        {"£1,250.5", 1250.5, 1250.5},
        {"1,2,3.4.5", 0, 0},
        {"1e5", 15, 15},
        {"", 0, 0},
        {".", 0, 0},
    };
    for (const auto& [text, english, german] : cases) {
        EXPECT_DOUBLE_EQ(vip::StrToNumber(text, English), english) << text;
        EXPECT_DOUBLE_EQ(vip::StrToNumber(text, German), german) << text;
    }
    EXPECT_DOUBLE_EQ(vip::StrToNumber("1\u00A0234,5", French), 1234.5);
    EXPECT_DOUBLE_EQ(vip::StrToNumber("1,234.5", French), 1.2345) << "a separator that the text lacks isn't ahead";
}

TEST(Number, ALoneSeparatorInAFileIsItsDecimalPointInEveryLocale) {
    const std::pair<const char*, double> cases[] = {
        {"1234,5", 1234.5}, {"7,125", 7.125}, {"1.234", 1.234}, {"-0,75", -0.75}, {",5", 0.5}, {"1.234,5", 1234.5},
    };
    for (const auto& [text, value] : cases) {
        EXPECT_DOUBLE_EQ(vip::FileNumber(text, English), value) << text;
        EXPECT_DOUBLE_EQ(vip::FileNumber(text, German), value) << text;
    }
    EXPECT_DOUBLE_EQ(vip::FileNumber("1234.5", French), 1234.5);
}

TEST(Number, WrittenFiguresArePlainAndShortest) {
    const std::pair<double, const char*> cases[] = {
        {-0.0, "0"},
        {-1234.5, "-1234.5"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3, "0.333333333333333"},
        {0.000002, "0.000002"},
        {1e20, "100000000000000000000"},
        {NAN, "0"},
        {123456789012345678.0, "123456789012346000"},
    };
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(vip::NumberToText(value, English), text);
    }
}

TEST(Number, WhatIsWrittenReadsBackInEveryCountryAndIsWrittenAlike) {
    std::mt19937_64 random(20240229);
    for (int i = 0; i < 2000; ++i) {
        const double digits = static_cast<double>(random() % 2'000'000'000'000'000) - 1e15;
        const double value = digits * std::pow(10.0, static_cast<double>(random() % 25) - 20);
        for (const TNumberLocale& locale : {English, German, French}) {
            const std::string text = vip::NumberToText(value, locale);
            const double read = vip::FileNumber(text, English);
            ASSERT_NEAR(read, value, std::fabs(value) * 1e-14) << text;
            ASSERT_EQ(vip::FileNumber(text, French), read);
            ASSERT_EQ(vip::NumberToText(read, locale), text);
        }
    }
}

TEST(Number, MasksRoundHalfAwayFromZeroOnTheDecimalForm) {
    // 1.005 lies below the half in binary. A figure that rounds to zero has no sign.
    const std::tuple<const char*, double, const char*> cases[] = {
        {",0", 1234567, "1,234,567"}, {",0", 999.5, "1,000"},
        {",0", -2.5, "-3"},           {",0", -0.4, "0"},
        {"0.00", 1.005, "1.01"},      {"0.0", 0.05, "0.1"},
        {"0.000%", 17.5, "17.500%"},  {"0.000%", -0.0004, "0.000%"},
        {"0.00", 999.995, "1000.00"},
    };
    for (const auto& [mask, value, text] : cases) {
        EXPECT_EQ(vip::FormatMask(mask, value, English), text) << mask << ' ' << value;
    }
    EXPECT_EQ(vip::FormatMask(",0.00", -1234567.891, German), "-1.234.567,89");
}

TEST(Number, ASectionOfItsOwnSaysHowBelowZeroAndZeroShow) {
    const std::tuple<const char*, double, const char*> cases[] = {
        {"£,0;-£,0", 1234567.5, "£1,234,568"},
        {"£,0;-£,0", -1234.5, "-£1,235"},
        {"£,0;-£,0", -0.4, "£0"}, // what rounds to zero is one
        {"£,0", -1234, "-£1,234"},
        {",0.00;,-0.00;#", 1234.5, "1,234.50"},
        {",0.00;,-0.00;#", -1234.5, "-1,234.50"},
        {",0.00;,-0.00;#", 0, ""},
        {",0.00;,-0.00;#", 0.004, ""},
        {",0.00;,-0.00;#", -0.004, ""},
        {",0.00;,-0.00;#", -0.005, "-0.01"},
        {",0.000;-,0.000", -1234.5678, "-1,234.568"},
        {"0.00%;,-0.00%;#", 7.5, "7.50%"},
        {"0.00%;,-0.00%;#", -1007.5, "-1,007.50%"},
        {",0;(,0);-", -1034.5, "(1,035)"},
        {",0;(,0);-", 0.3, "-"},
        {"0.0;(0)", -0.4, "0.0"}, // rounded as its own section rounds, shown as zero is
        {"0 a year;0 lost;nil", 12, "12 a year"},
        {"0 a year;0 lost;nil", 0, "nil"},
        {"0;;", -5, ""},
        {"0;-0;0.0;x", 0, "0.0"},
        {"", -4.5, "-5"},
        {".00", 4.5, "4.50"},
        {"#", 4, ""},
        {"0.00;-0.00;#", NAN, ""},
        {"0;(0)", -INFINITY, "0"},
    };
    for (const auto& [mask, value, text] : cases) {
        EXPECT_EQ(vip::FormatMask(mask, value, English), text) << mask << ' ' << value;
    }
    EXPECT_EQ(vip::FormatMask("£,0.0;-£,0.0", -1234.56, French), "-£1\u00A0234,6");
}

TEST(Number, AMaskIsEditedAsItsDigitsAlone) {
    const std::pair<const char*, const char*> cases[] = {
        {",0", "0"},          {",0.00", "0.00"}, {"0.000%", "0.000"}, {",0.00;,-0.00;#", "0.00"},
        {"£,0;-£,0.00", "0"}, {"(0.0)", "0.0"},  {"", "0"},           {"#;0.00", "0"},
    };
    for (const auto& [mask, text] : cases) {
        EXPECT_EQ(vip::EditMask(mask), text) << mask;
    }
}

TEST(Number, FullTextReadsBackToTheBitInEveryCountry) {
    const std::pair<double, const char*> cases[] = {
        {0.1 + 0.2, "0.30000000000000004"},
        {-1234567.875, "-1234567.875"},
        {1e15, "1000000000000000"},
        {5e-7, "0.0000005"},
        {-0.0, "0"},
        {INFINITY, "0"},
    };
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(vip::NumberToFullText(value, English), text);
    }
    EXPECT_EQ(vip::NumberToFullText(-1234.5, French), "-1234,5");
    std::mt19937_64 random(20240301);
    std::vector<double> values = {std::numeric_limits<double>::max(), std::numeric_limits<double>::min(),
                                  std::numeric_limits<double>::denorm_min(), std::nextafter(1.0, 2.0)};
    while (values.size() < 2000) {
        const double value = std::bit_cast<double>(random());
        if (std::isfinite(value)) {
            values.push_back(value);
        }
    }
    for (const double value : values) {
        for (const TNumberLocale& locale : {English, German, French}) {
            ASSERT_EQ(vip::StrToNumber(vip::NumberToFullText(value, locale), locale), value);
        }
    }
}

} // namespace
