// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipErrors.h"
#include "common/vipEvaluator.h"

#include <gtest/gtest.h>

namespace {

class Evaluator : public testing::Test {
protected:
    Evaluator() {
        FEvaluator.AddVar("BUILD", FBuild);
        FEvaluator.AddVar("site_2", FBuild);
    }

    const double FBuild = 1000;
    TEvaluator FEvaluator;
};

TEST_F(Evaluator, ReadsFromLeftToRightByLevels) {
    // A comparison's 1 or 0 is the left side of the next. What follows a complete expression is ignored.
    const std::pair<const char*, double> cases[] = {
        {"1+2*3", 7},  {"(1+2)*3", 9}, {"10-4-3", 3},          {"12/4/3", 1},
        {"2*-3", -6},  {"--5-+-3", 8}, {"\t1 +\n2", 3},        {"1.5E2", 150},
        {"2e-1", 0.2}, {"1e+2", 100},  {"build", 1000},        {"Build+SITE_2*2", 3000},
        {"2<3", 1},    {"3>2>1", 0},   {"2=2=1", 1},           {"1+1<>2", 0},
        {"3>=3", 1},   {"4<=3", 0},    {"-(BUILD>999)*7", -7}, {"5 of them", 5},
        {"5)", 5},
    };
    for (const auto& [text, value] : cases) {
        EXPECT_DOUBLE_EQ(FEvaluator.Evaluate(text), value) << text;
    }
}

TEST_F(Evaluator, NamesAFailureByItsKind) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "Parse error: Factor expected"},   {"1+", "Parse error: Factor expected"},
        {".5", "Parse error: Factor expected"}, {"BUILD+Shops", "Parse error: Unknown symbol: 'Shops'"},
        {"(1+2", "Parse error: ')' expected"},  {"(1 2)", "Parse error: ')' expected"},
    };
    for (const auto& [text, message] : cases) {
        try {
            ADD_FAILURE() << text << FEvaluator.Evaluate(text);
        } catch (const EEvaluatorError& error) {
            EXPECT_STREQ(error.what(), message) << text;
        }
    }
    EXPECT_THROW((void)FEvaluator.Evaluate("1/(BUILD-1000)"), EEvaluatorError);
    EXPECT_THROW((void)FEvaluator.Evaluate(std::string(100000, '(')), EEvaluatorError) << "nesting is bounded";
}

TEST_F(Evaluator, RefusesAPointWhereTheSeparatorIsAComma) {
    FEvaluator.DecimalSeparator = U',';
    EXPECT_DOUBLE_EQ(FEvaluator.Evaluate("1,5+1"), 2.5);
    EXPECT_THROW((void)FEvaluator.Evaluate("1.5+1"), EEvaluatorError);
}

} // namespace
