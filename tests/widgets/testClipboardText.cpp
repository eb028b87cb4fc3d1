// SPDX-License-Identifier: GPL-3.0-or-later
//
// Cells as spreadsheet programs put them on the clipboard, and back.
#include "widgets/lotClipboardText.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr TNumberLocale Point{U'.', U','};
constexpr TNumberLocale Comma{U',', U'.'};

TEST(ClipboardText, WritesCellsAsSpreadsheetsReadThem) {
    struct TCase {
        std::vector<TClipboardRow> Rows;
        TNumberLocale Locale;
        const char* Text;
    };
    const TlotValue nothing;
    const auto text = [](const char* value) { return TlotValue(std::string(value)); };
    const std::int64_t large = 9'007'199'254'740'993; // More than a real can hold.
    for (const TCase& row :
         {TCase{{}, Point, ""},
          {{{text("Build"), 1234567.891, true}, {nothing, -0.5, false}},
           Point,
           "Build\t1234567.891\tTRUE\n\t-0.5\tFALSE"},
          {{{0.1 + 0.2, 1e21, 1e-7}}, Comma, "0,30000000000000004\t1000000000000000000000\t0,0000001"},
          {{{-0.0, std::numeric_limits<double>::quiet_NaN(), large}}, Point, "0\t0\t9007199254740993"},
          {{{text("5\" pipe"), text("a\tb"), text("two\nlines"), text("it's, so")}},
           Point,
           "\"5\"\" pipe\"\t\"a\tb\"\t\"two\nlines\"\tit's, so"},
          {{{text("a")}, {nothing}}, Point, "a\n\n"},
          {{{nothing}}, Point, "\n"},
          {{{nothing, nothing}}, Point, "\t"}}) {
        EXPECT_EQ(ClipboardText(row.Rows, row.Locale), row.Text);
    }
}

TEST(ClipboardText, ReadsWhatOtherProgramsWrite) {
    using TCells = std::vector<std::vector<std::string>>;
    struct TCase {
        std::string Text;
        TCells Cells;
    };
    for (const TCase& row : {TCase{"", {}},
                             {"\n", {{""}}},
                             {"7", {{"7"}}},
                             {"a\tb\r\nc\r\n", {{"a", "b"}, {"c"}}},
                             {"a\rb\n\nc", {{"a"}, {"b"}, {""}, {"c"}}},
                             {"\t\n", {{"", ""}}},
                             {"\"a\tb\"\t\"two\r\nlines\"\t\"5\"\" pipe\"", {{"a\tb", "two\r\nlines", "5\" pipe"}}},
                             {"5\" pipe\t6\"", {{"5\" pipe", "6\""}}},
                             {"\"\"\tx", {{"", "x"}}},
                             {"\"a\"b\tc", {{"ab", "c"}}},
                             {"\"never closed\tb\n\"\"c", {{"\"never closed", "b"}, {"\"\"c"}}}}) {
        EXPECT_EQ(ClipboardCells(row.Text), row.Cells) << row.Text;
    }
    // One mark after another that nothing closes is read in one go.
    std::string hostile = "\"";
    for (int i = 0; i < 200'000; ++i) {
        hostile += "\t\"\"";
    }
    EXPECT_EQ(ClipboardCells(hostile).front().size(), 200'001U);
}

TEST(ClipboardText, WhatIsWrittenIsReadBack) {
    const std::vector<TClipboardRow> rows{{std::string("\"quoted\""), std::string("a\r\nb")},
                                          {std::string(), std::string("\t")},
                                          {std::string(" kept "), std::string("\"")},
                                          {std::string(), std::string()}};
    const auto cells = ClipboardCells(ClipboardText(rows, Point));
    ASSERT_EQ(cells.size(), rows.size());
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (std::size_t column = 0; column < rows[row].size(); ++column) {
            EXPECT_EQ(cells[row].at(column), std::get<std::string>(rows[row][column]));
        }
    }
}

} // namespace
