// SPDX-License-Identifier: GPL-3.0-or-later
//
// Whatever tells measures tells the figures of their one table. The project's cashflow and its equity differ, so that
// an NPV or IRR out of the wrong one shows.
#include "model/lotMeasures.h"
#include "reporting/lotReportTables.h"
#include "sensitivity/lotSAModel.h"
#include "support/lotTestProject.h"
#include "tool/lotAppraisalText.h"
#include "tool/lotJson.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

class MeasureReaders : public testing::Test {
protected:
    MeasureReaders() {
        TRandom random(3);
        RandomProject(random, FProject);
        FProject.NPVIRRSource = TlotNPVIRRSource::Project;
        FProject.Calculate();
    }
    [[nodiscard]] std::string Figure(const TlotMeasureInfo& measure, double figure) const {
        return vip::FormatMask(measure.Mask, figure, FLocale);
    }

    TlotProject FProject{0};
    TNumberLocale FLocale;
};

TEST_F(MeasureReaders, SummaryTables) {
    std::vector<const TlotMeasureInfo*> shown;
    for (const TlotMeasureInfo& measure : Measures()) {
        if (measure.Show != nullptr) {
            FProject.*measure.Show = true;
            shown.push_back(&measure);
        }
    }
    TlotReportTables tables;
    tables.BuildReportTables(TlotReportKind::Appraisal, FProject, FLocale, {});
    ASSERT_EQ(tables.DynamicSummaryData.RowCount(), static_cast<int>(shown.size()));
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const TlotRow row = tables.DynamicSummaryData.Row(static_cast<int>(i));
        EXPECT_EQ(row.Text("Description"), shown[i]->Caption);
        if (!shown[i]->IsCover()) {
            EXPECT_EQ(row.Text("Value"), Figure(*shown[i], shown[i]->Figure(FProject))) << shown[i]->Caption;
        }
    }
    EXPECT_EQ(tables.SummaryData.Row(0).Number("NPV"), FProject.Cashflow.NPV);
    EXPECT_EQ(tables.SummaryData.Row(0).Number("TDC"), FProject.TDC);
}

TEST_F(MeasureReaders, PrintedText) {
    std::istringstream lines(AppraisalText(FProject, FLocale));
    std::string measures = "\n";
    for (std::string line; std::getline(lines, line) && line != "UNITS";) {
        measures += line + '\n';
    }
    for (const TlotMeasureInfo& measure : Measures()) {
        if (measure.Measure == TlotMeasure::TotalInterest) {
            continue; // Told among the costs.
        }
        const std::size_t at = measures.find("\n  " + std::string(measure.PrintCaption) + "  ");
        ASSERT_NE(at, std::string::npos) << measure.PrintCaption;
        const std::string line = measures.substr(at + 1, measures.find('\n', at + 1) - at - 1);
        const std::string figure = measure.IsCover() ? " months" : " " + Figure(measure, measure.Figure(FProject));
        EXPECT_TRUE(line.ends_with(figure)) << line << ", not" << figure;
    }
}

TEST_F(MeasureReaders, Json) {
    const nlohmann::ordered_json json = ProjectJson(FProject);
    for (const TlotMeasureInfo& measure : Measures()) {
        if (measure.Search == TlotMeasureSearch::ByKeyword) {
            EXPECT_EQ(json["baseValues"][std::string(measure.Keyword)], measure.Figure(FProject));
        }
    }
}

TEST_F(MeasureReaders, ScenariosTakeTheEquitysFigures) {
    const TlotSAModelNew model(FProject, FLocale);
    const TSAAxis none(nullptr);
    ASSERT_NE(FProject.NPV(), FProject.Equity.NPV);
    for (int i = 0; i < model.Results.Count(); ++i) {
        const TSAResult& result = model.Results[i];
        const std::string_view caption = result.Name == "Net Profit" ? "Profit" : std::string_view(result.Name);
        const auto measure = std::ranges::find(Measures(), caption, &TlotMeasureInfo::Caption);
        ASSERT_NE(measure, Measures().end()) << caption;
        EXPECT_EQ(result.Text(none, none, FLocale), Figure(*measure, measure->ScenarioFigure(FProject))) << caption;
    }
}

} // namespace
