// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/lotMeasures.h"
#include "support/lotTestProject.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string_view>
#include <utility>

namespace {

TEST(Measures, ReadTheFiguresThatFormulaeRead) {
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
        TRandom random(seed);
        TlotProject project{0};
        RandomProject(random, project);
        project.Calculate();
        for (const TlotMeasureInfo& measure : Measures()) {
            SCOPED_TRACE(testing::Message() << seed << ' ' << measure.Caption);
            const double* const known = project.BaseValues.Evaluator.FindVar(measure.Keyword);
            EXPECT_EQ(known != nullptr,
                      measure.Search == TlotMeasureSearch::ByKeyword || measure.Measure == TlotMeasure::SiteValue);
            if (known != nullptr) {
                EXPECT_EQ(measure.Figure(project), *known);
                EXPECT_EQ(measure.ScenarioFigure(project), *known);
            }
        }
    }
}

TEST(Measures, NPVAndIRRAreShownByTheirSourceAndSearchedInTheEquity) {
    TlotProject project{0};
    TlotLoan& loan = project.Funding.Loans.Add();
    project.Cashflow.NPV = 1;
    project.Cashflow.IRR = 2;
    project.Equity.NPV = 3;
    project.Equity.IRR = 4;
    loan.NPVIncludingInterest = 5;
    loan.IRRIncludingInterest = 6;
    const TlotMeasureInfo& npv = MeasureInfo(TlotMeasure::NPV);
    const TlotMeasureInfo& irr = MeasureInfo(TlotMeasure::IRR);
    EXPECT_EQ(npv.Figure(project), 3);
    EXPECT_EQ(irr.Figure(project), 4);
    project.NPVIRRSource = TlotNPVIRRSource::Project;
    EXPECT_EQ(npv.Figure(project), 1);
    EXPECT_EQ(irr.Figure(project), 2);
    EXPECT_EQ(npv.ScenarioFigure(project), 3);
    EXPECT_EQ(irr.ScenarioFigure(project), 4);
}

TEST(Measures, TargetsAskForTheirOwnKeywordAndText) {
    const std::pair<std::string_view, std::string_view> told[] = {{"", "(No Target)"},
                                                                  {"PROFITONCOST", "Profit On Cost"},
                                                                  {"PROFITONGDV", "Profit On GDV"},
                                                                  {"PROFITONNDV", "Profit On NDV"},
                                                                  {"RENTALYIELD", "Rental Yield"}};
    ASSERT_EQ(ResidualTargetTexts().size(), std::size(told));
    for (std::size_t i = 0; i < std::size(told); ++i) {
        EXPECT_EQ(ResidualKeyword(static_cast<TlotResidualTarget>(i)), told[i].first);
        EXPECT_EQ(ResidualTargetTexts()[i], told[i].second);
    }
    EXPECT_EQ(ResidualKeyword(static_cast<TlotResidualTarget>(9)), "") << "any other number out of a file is no target";
    EXPECT_EQ(FindMeasure("profitongdv"), MeasureOf(TlotResidualTarget::ProfitOnGDV));
    EXPECT_EQ(FindMeasure(""), nullptr);
}

} // namespace
