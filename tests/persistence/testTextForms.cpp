// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the texts of a file mean, told by how they are written again.
#include "support/lotFiles.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace {

/// As the program saves it, on one line and with single quotes.
std::string Compact(TlotProject& project) {
    TlotWriter writer(false, PointLocale);
    writer.Write(project);
    std::ostringstream text;
    writer.Document().save(text, "", pugi::format_raw);
    std::string result = text.str();
    std::ranges::replace(result, '"', '\'');
    return result;
}

/// Attributes of the project, or its children, each with what stands for them when they are saved.
using TForms = std::initializer_list<std::pair<std::string, std::string>>;

void ExpectForms(const TForms& forms) {
    for (const auto& [form, saved] : forms) {
        for (const TNumberLocale& locale : {PointLocale, CommaLocale}) {
            TlotProject project(1);
            project.Equity.InterestRates = TlotDoubles({1, 2}); // Of the scheme before: opening another leaves it.
            const bool children = form.starts_with('<');
            ASSERT_TRUE(OpenText(project, FileText(children ? "" : form, children ? form : ""), locale));
            EXPECT_NE(Compact(project).find(saved), std::string::npos) << form << " is not " << saved;
        }
    }
}

/// Texts of one attribute, each before a ">" and what stands for it.
void ExpectTexts(const std::string& attribute, const std::string& texts) {
    std::istringstream words(texts);
    for (std::string word; words >> word;) {
        const std::size_t bar = word.find('>');
        ExpectForms(
            {{attribute + "='" + word.substr(0, bar) + "'", " " + attribute + "='" + word.substr(bar + 1) + "'"}});
    }
}

TEST(TextForms, NumbersReadUnderEitherSeparatorAndBooleansAsWordsOrPlainNumbers) {
    ExpectTexts("LeaseTerm", "1234,5>1234.5 7.125>7.125 1.234.567>1234567 1,234.5>1234.5 1.234,5>1234.5 -0,25>-0.25 "
                             "12e3years>123 long>0 >0");
    ExpectTexts("UnitAreaDecPlaces", "7,9>7 -2.9>-2 3000000000>2147483647");
    ExpectTexts("RentalValues", "2,5>2 257>255"); // Not cut to a byte, which would make it half-yearly.
    ExpectTexts("Leasehold", "tRuE>TRUE -0.5>TRUE 0.0>FALSE yes>FALSE 1,5>FALSE");
    ExpectTexts("HideRatio", "True>TRUE 2>TRUE 0>FALSE false>FALSE");
    ExpectForms({{"<Unit IsCapitalised='TRUE'/>", "IsCapitalised='True'"}});
}

TEST(TextForms, StartDateIsTodayUnlessTheWholeTextIsADay) {
    ExpectTexts("StartDate", "2004-02-29>2004-02-29 31/12/2005>2005-12-31 31/02/2005>2023-03-15 "
                             "on2004-02-29>2023-03-15 >2023-03-15");
    ExpectForms({{"", "StartDate='2023-03-15'"}});
}

TEST(TextForms, DefaultsAreForAbsenceAndNotForEmptyText) {
    ExpectForms(
        {{"", "UnitAreaDecPlaces='2' PercentageCostDecPlaces='3' CostGroupPageBreak='' "
              "AppraisalReportFile='AppraisalGrouped' RatioBase='GDV' HideRatio='FALSE' "
              "AppraisalTitle='Development Appraisal' ResidualTitle='Residual Valuation' ShowProfitOnCost='FALSE'"},
         {"UnitAreaDecPlaces='' PercentageCostDecPlaces='' AppraisalReportFile='' RatioBase='' AppraisalTitle='' "
          "ResidualTitle=''",
          "UnitAreaDecPlaces='0' PercentageCostDecPlaces='0' CostGroupPageBreak='' "
          "AppraisalReportFile='' RatioBase='' HideRatio='FALSE' AppraisalTitle='' ResidualTitle=''"},
         // The limits of the search stay those of the scheme before.
         {"", "MinSiteValue='-10000000' MaxSiteValue='1000000000' CalcNegativeSiteValue='FALSE'"},
         {"MinSiteValue='' MaxSiteValue='5'", "MinSiteValue='0' MaxSiteValue='5'"},
         {"<Funding><Loan/></Funding>", "Active='TRUE'"},
         {"<Funding><Loan Active=''/></Funding>", "Active='FALSE'"},
         {"<Section><Item DisplayRatio='FALSE' PercentageOfGDV='TRUE'/></Section>", "DisplayRatio='FALSE'"},
         {"<Section><Item PercentageOfGDV='FALSE'/></Section>", "DisplayRatio='FALSE'"},
         {"<Section><Item/></Section>", "DisplayRatio='TRUE'"}});
}

TEST(TextForms, SpreadsAreSparseAndPlainShapesBecomeStartAndPeriod) {
    ExpectForms(
        {{"<SiteValue Start='2' Period='5'><Values Index='1' SpreadValue='1'/><Values Index='3' SpreadValue='2,5'/>"
          "</SiteValue>",
          "<SiteValue Start='2' Period='5'><Values Index='1' SpreadValue='1'/><Values Index='3' SpreadValue='2.5'/></"},
         // Equal months side by side, or one alone after month 0, are saved as a straight line.
         {"<SiteValue Start='9'><Values Index='4' SpreadValue='2'/><Values Index='3' SpreadValue='2'/></SiteValue>",
          "<SiteValue Start='3' Period='2'/>"},
         {"<SiteValue Start='9'><Values Index='6' SpreadValue='0.4'/></SiteValue>",
          "<SiteValue Start='6' Period='1'/>"},
         {"<SiteValue Start='9'><Values Index='0' SpreadValue='0.4'/></SiteValue>",
          "<SiteValue Start='0' Period='1'><Values Index='0' SpreadValue='0.4'/></"},
         {"<SiteValue Start='4' Period='2'><Values Index='5' SpreadValue='0'/></SiteValue>",
          "<SiteValue Start='4' Period='2'/>"},
         {"<SiteValue Start='0' Period='12000'/>", "<SiteValue Start='0' Period='12000'/>"}});
    // The reader simplifies a line that it reads; the writer simplifies one that was changed since.
    TlotProject project(TestToday);
    TlotCashflowItem& site = project.BaseValues.SiteValue;
    ASSERT_TRUE(OpenText(project, FileText("", "<SiteValue><Values Index='4' SpreadValue='2'/></SiteValue>")));
    EXPECT_TRUE(site.Portions.IsEmpty() && site.Start == 4 && site.Period == 1);
    site.Portions = TlotDoubles({0, 0, 0.5, 0.5});
    EXPECT_NE(Compact(project).find("<SiteValue Start='2' Period='2'/>"), std::string::npos);
}

TEST(TextForms, ValueArraysAreAsLongAsTheirCount) {
    const std::string before = "<InterestRates Count='2'><Value>1</Value><Value>2</Value></InterestRates></Equity>";
    ExpectForms(
        {{"<Equity><InterestRates Count='3'><Value> 5,5\n</Value><Other/><Value>6</Value></InterestRates></Equity>",
          "<InterestRates Count='3'><Value>5.5</Value><Value>6</Value><Value>0</Value></InterestRates></Equity>"},
         {"<Equity><InterestRates Count='1'><Value><![CDATA[5]]></Value><Value>6</Value></InterestRates></Equity>",
          "<InterestRates Count='1'><Value>5</Value></InterestRates></Equity>"},
         {"<Equity><InterestRates Count='0'><Value>5</Value></InterestRates></Equity>", before},
         {"<Equity><InterestRates><Value>5</Value></InterestRates></Equity>", before}});
}

TEST(TextForms, ElementsAreKnownInAnyCaseButTargetsAndTheEquitysRatesInTheirOwn) {
    ExpectForms(
        {{"<uNiTtYpE Name='Shops'/><UNIT UnitType='Shops'><BUILD Start='3'/></UNIT>", "<Build Start='3'"},
         {"<uNiTtYpE Name='Shops'/>", "<UnitType Name='Shops'/>"},
         {"<FUNDING><LOAN><REPAY Count='1'><VALUE>5</VALUE></REPAY></LOAN></FUNDING>", "<Value>5</Value></Repay>"},
         {"<INFLATION Rate='2'><TARGETS SiteValue='TRUE'/></INFLATION>", "'2'><Targets SiteValue='FALSE'"},
         {"<EQUITY InterestRate='4'><INTERESTRATES Count='1'/></EQUITY>", "<InterestRates Count='2'>"},
         {"<Surprise><Unit/></Surprise>", "Period='0'/><Inflation"}});
}

TEST(TextForms, NotesComeBackTrimmedWithTheirLineBreaksAndBrackets) {
    const std::pair<std::string, std::string> cases[] = {{"One\r\nTwo\nThree\rFour", "One\r\nTwo\r\nThree\r\nFour"},
                                                         {"  \r\n indented ]]> & <b>]]>\r\n ", "indented ]]> & <b>]]>"},
                                                         {" \r\n\t", ""}};
    for (const auto& [before, after] : cases) {
        TlotProject project(TestToday);
        project.Notes = project.AppraisalNotes = project.Address = before;
        const std::string text = SavedText(project);
        EXPECT_EQ(text.find("<Notes>") == std::string::npos, after.empty()) << before;
        ASSERT_TRUE(OpenText(project, text));
        EXPECT_EQ(project.Notes, after);
        EXPECT_EQ(project.AppraisalNotes + project.Address, after + after);
    }
}

} // namespace
