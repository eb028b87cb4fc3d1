// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/lotReportScript.h"

namespace {

/// What a text in the title prints, with two rows in the table: Ash, 10 and Birch, 32.5; the first is current.
class Expressions : public testing::Test {
protected:
    Expressions() {
        Script.AddTown("Ash", "North", 10);
        Script.AddTown("Birch", "South", 32.5);
        Script.Towns.Set("Since", 38354.0); // 2 January 2005
        Script.Towns.First();
        Script.Limit = 1234567.891;
    }

    std::string Print(const std::string& text) {
        return Script.Run("<ReportTitle><Text Width='100'><![CDATA[" + text + "]]></Text></ReportTitle>");
    }

    TReportScript Script;
};

TEST_F(Expressions, AreComputedInTheOrderOfTheField) {
    struct TCase {
        const char* Text;
        const char* Printed;
    };
    for (const TCase& each : {TCase{"[2 + 3 * 4 - 6 / 3]", "12"},
                              {"[(2 + 3) * -4]", "-20"},
                              {"[10 - 4 - 3]", "3"},
                              {"[1 / 0]", "0"},
                              {"[1 < 2 and not 2 < 1 or False]", "True"},
                              {"[If('ASH' = Towns.Name, 'yes', 'no')]", "yes"},
                              {"[If(Towns.Folk >= 10.5, 1, 2)]", "2"},
                              {"['it''s ' & 5]", "it's 5"},
                              {"[towns.name] of [TOWNS.LAND]", "Ash of North"},
                              {"[IsEmpty(Towns.Since)]", "True"},
                              {"[Towns.Since + 1]", "1"},
                              {"[Upper('ab') & Abs(-2)]", "AB2"},
                              {"[Contains('|a|b|', '|b|')]", "True"},
                              {"[[x] [']']", "[x] ]"},
                              {"[Limit|,0.00] [Limit|%2.1n] [Limit|0.0%]", "1,234,567.89 1,234,567.9 1234567.9%"},
                              {"[Limit|='%2.0m']", "1,234,568"},
                              {"[Sum(Towns.Folk)] [Sum(If(Towns.Land = 'South', Towns.Folk * 2, 0))]", "42.5 65"},
                              {"[Count(Towns.Since)] [Join(Towns.Name, ', ')]", "1 Ash, Birch"},
                              {"[Join(Towns.Name)]", "Ash Birch"}}) {
        EXPECT_EQ(Print(each.Text), each.Printed) << each.Text;
    }
}

TEST_F(Expressions, DatesPrintAsDaysOrMonths) {
    EXPECT_EQ(
        Script.Run(
            "<MasterData DataSet='Towns' Filter='not IsEmpty(Towns.Since)'>"
            "<Text Width='40'>[Towns.Since]</Text><Text Width='40' Left='50' Format='mmm yyyy'>[Towns.Since]</Text>"
            "</MasterData>"),
        "2 Jan 2005 Jan 2005");
}

TEST_F(Expressions, FaultsAreToldWithTheirPlace) {
    struct TCase {
        const char* Text;
        const char* Told;
    };
    for (const TCase& each : {TCase{"[Towns.Mayor]", "Mayor"},
                              {"[Villages.Name]", "There is no table Villages."},
                              {"[Height]", "There is no variable Height."},
                              {"[1 +]", "it ends too early"},
                              {"[(1]", "\")\" is missing"},
                              {"[1 2]", "unexpected \"2\""},
                              {"['x]", "A bracket in the text is not closed."},
                              {"[Round(1)]", "there is no function round"},
                              {"[If(1, 2)]", "the number of values that if takes is another"},
                              {"[Towns.Name * 2]", "\"Ash\" is no number."},
                              {"[Limit|%x]", "%x is no money or number format"},
                              {"[Sum(1)]", "A total needs a field of a table."}}) {
        try {
            Print(each.Text);
            ADD_FAILURE() << each.Text;
        } catch (const ELotError& error) {
            const std::string told = error.what();
            EXPECT_TRUE(told.find("t.fr3, line 1: ") != std::string::npos && told.find(each.Told) != std::string::npos)
                << each.Text << ": " << told;
        }
    }
    EXPECT_NE(Script.Failure("<ReportTitle><Text>[" + std::string(3000, '(') + "]</Text></ReportTitle>"), "");
    EXPECT_NE(Script.Failure("<ReportTitle><Text>[" + std::string(500, '-') + "1]</Text></ReportTitle>"), "");
}

} // namespace
