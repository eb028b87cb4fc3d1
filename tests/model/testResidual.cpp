// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipErrors.h"
#include "model/lotMeasures.h"
#include "support/lotRows.h"
#include "support/lotTestProject.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

/// Flats worth `value`, built for 1,000, with no finance: profit on cost is 100 (value / (site + 1000) - 1).
void Fill(TlotProject& project, double value) {
    TlotUnit& flats = AddUnit(project, "Residential", 1, value);
    flats.BuildArea.Value = 10;
    flats.BuildRate.Value = 100;
    flats.SalesLine.Start = 12;
}

TEST(Residual, AnswerPutBackGivesTheTarget) {
    // With finance in between, at 1 % a month on all but the sale.
    for (const auto& [keyword, target] : {std::pair("PROFITONCOST", 20.0), {"PROFITONGDV", 15.0}, {"PROFIT", 500.0}}) {
        TlotProject solved{0};
        TlotProject again{0};
        for (TlotProject* const project : {&solved, &again}) {
            Fill(*project, 3000);
            project->Equity.InterestRate.Value = 12;
        }
        const double site = solved.SolveSiteValue(keyword, target);
        EXPECT_GT(site, 500);
        EXPECT_EQ(solved.BaseValues.SiteValue.Amount, site);
        again.BaseValues.SiteValue.Amount = site;
        again.Calculate();
        EXPECT_NEAR(again.BaseValues.Evaluate(keyword), target, 0.0001);
        EXPECT_EQ(again.TDC, solved.TDC) << "the model stands as at the answer";
    }
}

TEST(Residual, SecondStageLooksBelowNothingAndFarAboveTheMaximum) {
    // The site is value / (1 + target) - 1000. Value, maximum, target, with and without the second stage.
    const std::tuple<const char*, double, double, double, double, double> cases[] = {
        {"the first stage answers", 2400, 1e9, 20, 1000, 1000},
        {"short of the target at 0", 1100, 1e9, 25, -120, 0},
        {"a loss at 0", 900, 1e9, 20, -250, 0},
        {"beyond the maximum", 2400, 100, 20, 1000, 0},
        {"beyond a hundred times the loss", 999, 1e9, 1500, 0, 0},
        {"no income", 0, 1e9, 20, 0, 0},
    };
    for (const auto& [what, value, maximum, target, negative, plain] : cases) {
        TlotProject project{0};
        Fill(project, value);
        project.MaxSiteValue = maximum;
        EXPECT_NEAR(project.SolveSiteValue("PROFITONCOST", target), plain, 0.01) << what;
        project.CalcNegativeSiteValue = true;
        EXPECT_NEAR(project.SolveSiteValue("PROFITONCOST", target), negative, 0.01) << what;
    }
}

TEST(Residual, FailedSearchAnswersNothingAndLeavesTheLastCandidatesCashflow) {
    TlotProject project{0};
    Fill(project, 1100);
    project.MaxSiteValue = 1e6;
    EXPECT_EQ(project.SolveSiteValue("PROFITONCOST", -150), 0) << "less than all that was paid can't be lost";
    ExpectClose(project.BaseValues.SiteValue.Amount, 1e6);
    ExpectMonths(project.BaseValues.SiteValue, {1e6});
    ExpectClose(project.Cashflow.Total.GetValue(0), -1e6 - 1000);
    EXPECT_EQ(project.SolveSiteValue("RENTALYIELD", 0), 0) << "a measure of 0 is never found";
    EXPECT_THROW(project.SolveSiteValue("IRR", 5), EEvaluatorError);
}

TEST(Residual, EquityReturnIsSolvedToo) {
    TlotProject project{0};
    Fill(project, 1.2e6);
    project.Equity.NPVIRRIncludesInterest = false;
    // Site and build in month 0, sold in month 12: 1,200,000 / 1.25.
    EXPECT_NEAR(project.SolveEquityIRR(25), 960'000 - 1000, 2);
}

TEST(Residual, SolveTellsASiteValueOfNothingFromNoSiteValue) {
    struct TCase {
        const char* What;
        double Value;
        double Maximum;
        bool Negative;
        double Target;
        bool Found;
    };
    for (const TCase& c : {TCase{"25 % at 0, where the search may only look", 1250, 0, false, 25, true},
                           TCase{"more than can be had", 1250, 0, false, 30, false},
                           TCase{"25 % at 0, which both stages find", 1250, 0, true, 25, true},
                           TCase{"out of reach below 0 too", 999, 1e9, true, 1500, false},
                           TCase{"no income", 0, 1e9, true, 20, false}}) {
        TlotProject project{0};
        Fill(project, c.Value);
        project.MaxSiteValue = c.Maximum;
        project.CalcNegativeSiteValue = c.Negative;
        const TlotSolution solution = SolveFor(project, TlotMeasure::ProfitOnCost, c.Target);
        EXPECT_EQ(solution.Found, c.Found) << c.What;
        EXPECT_NEAR(solution.SiteValue, 0, 0.01) << c.What;
    }
}

TEST(Residual, SolveIsTheProjectsOwnSearch) {
    for (const TlotMeasureInfo& measure : Measures()) {
        SCOPED_TRACE(measure.Caption);
        TlotProject project{0};
        TlotProject own{0};
        for (TlotProject* const each : {&project, &own}) {
            Fill(*each, 1.2e6);
            each->Equity.InterestRate.Value = 7.25;
            each->NPVIRRSource = TlotNPVIRRSource::Project;
        }
        if (measure.Search == TlotMeasureSearch::None) {
            EXPECT_THROW(SolveFor(project, measure.Measure, 20), ELotError);
            continue;
        }
        const TlotSolution solution = SolveFor(project, measure.Measure, 20);
        const double answer =
            measure.Measure == TlotMeasure::IRR ? own.SolveEquityIRR(20) : own.SolveSiteValue(measure.Keyword, 20);
        EXPECT_EQ(solution.SiteValue, answer);
        EXPECT_EQ(solution.Found, measure.Measure != TlotMeasure::RentalYield) << "there are no rents";
        if (solution.Found) {
            EXPECT_NEAR(measure.ScenarioFigure(project), 20, 0.0001);
        }
    }
}

} // namespace
