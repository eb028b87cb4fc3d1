// SPDX-License-Identifier: GPL-3.0-or-later
//
// Files that are damaged, or made to harm: each has its outcome, and the open project stays as it was.
#include "common/vipErrors.h"
#include "support/lotFiles.h"

#include <sys/resource.h>

namespace {

std::string Repeated(const std::string& text, int count) {
    std::string result;
    for (int i = 0; i < count; ++i) {
        result += text;
    }
    return result;
}

class HostileFiles : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(OpenText(FProject, ReadBytes(DataFile("version-12.lot"))));
        FProject.Calculate();
        FBefore = SavedText(FProject);
    }

    /// The message with which the content is refused; the open project must not show a trace of it.
    std::string Refusal(const std::string& content) {
        try {
            OpenText(FProject, content);
        } catch (const EFileError& error) {
            EXPECT_EQ(SavedText(FProject), FBefore);
            return error.what();
        }
        ADD_FAILURE() << "read: " << content.substr(0, 200);
        FProject.Clear(TestToday);
        return {};
    }

    TlotProject FProject{TestToday};
    std::string FBefore;
};

TEST_F(HostileFiles, WhatIsNoSoundXmlDoesNotLoad) {
    TlotReader reader(false, PointLocale, TestToday);
    for (const char* const file : {"truncated.lot", "binary.lot", "nul.lot", "bad-tags.lot", "two-roots.lot",
                                   "latin-1-unsaid.lot", "", "not-there.lot"}) {
        EXPECT_FALSE(reader.LoadFromFile(DataFile("hostile/" + std::string(file)))) << file;
    }
    const std::string deep = Repeated("<A>", 100'000) + Repeated("</A>", 100'000);
    for (const std::string& text : {std::string(), std::string("Lotmaster"), std::string("<!-- -->"), deep}) {
        EXPECT_FALSE(reader.LoadFromMemory(text, "scheme.lot")) << text.substr(0, 80);
    }
}

TEST_F(HostileFiles, EncodingsThatNameThemselvesAreReadAndEntitiesNeverExpanded) {
    const std::pair<const char*, const char*> cases[] = {{"utf-16le.lot", "M\u00F6we \u2014 \u6D77"},
                                                         {"utf-16be.lot", "M\u00F6we \u2014 \u6D77"},
                                                         {"latin-1-said.lot", "M\u00F6we"},
                                                         {"entities.lot", "&c;&f;"}};
    for (const auto& [file, name] : cases) {
        TlotProject project(TestToday);
        ASSERT_TRUE(OpenText(project, ReadBytes(DataFile("hostile/" + std::string(file))))) << file;
        EXPECT_EQ(project.Name, name);
    }
}

TEST_F(HostileFiles, ImpossibleFiguresAreRefusedNamingFileAndElement) {
    std::string sound = ReadBytes(DataFile("version-10.lot"));
    const auto spread = [](const char* attributes, const char* months = "") {
        return FileText("", "<SiteValue " + std::string(attributes) + ">" + months + "</SiteValue>");
    };
    const std::pair<std::string, const char*> cases[] = {
        {spread("Start=\"-1\""), "Project/SiteValue, Start: "},
        {spread("Start=\"12001\""), "Project/SiteValue, Start: "},
        {spread("Period=\"-3\""), "Project/SiteValue, Period: "},
        {spread("Start=\"6000\" Period=\"6001\""), "Project/SiteValue"},
        {spread("", R"(<Values Index="0" SpreadValue="1"/><Values Index="99999999999" SpreadValue="1"/>)"),
         "Project/SiteValue/Values 2, Index: "},
        {spread("", R"(<Values Index="-1" SpreadValue="1"/>)"), "Project/SiteValue/Values, Index: "},
        {FileText("", R"(<Unit/><Unit><Build Start="20000"/></Unit>)"), "Project/Unit 2/Build, Start: "},
        {FileText("", R"(<Section><Item><Value Period="20000"/></Item></Section>)"),
         "Project/Section/Item/Value, Period: "},
        {FileText("", R"(<Equity><InterestRates Count="12001"/></Equity>)"), "Project/Equity/InterestRates, Count: "},
        {FileText("", R"(<Funding><Loan/><Loan><Repay Count="2147483648"/></Loan></Funding>)"),
         "Project/Funding/Loan 2/Repay, Count: "},
        {FileText("", R"(<Funding><Loan Start="12001"/></Funding>)"), "Project/Funding/Loan, Start: "},
        {FileText("", R"(<Funding><Loan Period="12001"/></Funding>)"), "Project/Funding/Loan, Period: "},
        {FileText("StartDate=\"2005-02-30\""), "Project, StartDate: "},
        {FileText("StartDate=\"2005-13-01\""), "Project, StartDate: "},
        {FileText("StartDate=\"0000-01-01\""), "Project, StartDate: "},
        {FileText("HideRatio='perhaps'"), "Project, HideRatio: "},
        {FileText("HideRatio=''"), "Project, HideRatio: "},
        {sound.insert(sound.find("</Project>"), "<Unit><Rent Period=\"-1\"/></Unit>"), "Project/Unit 3/Rent, Period: "},
        {FileText("", Repeated("<UnitType/>", 100'001)), "Project/UnitType 100001"},
        {FileText("", "<Unit>" + Repeated("<Area/>", 100'000) + "</Unit>"), "Project/Unit/Area 100000"}};
    for (const auto& [content, place] : cases) {
        SCOPED_TRACE(content.substr(0, 160));
        const std::string message = Refusal(content);
        EXPECT_EQ(message.rfind("scheme.lot: " + std::string(place), 0), 0U) << message;
        EXPECT_EQ(message.find_first_of("\r\n"), std::string::npos) << message;
    }
}

/// The most memory that this process ever held, in bytes.
double PeakMemory() {
    struct rusage usage {};
    ::getrusage(RUSAGE_SELF, &usage);
    return 1024.0 * static_cast<double>(usage.ru_maxrss);
}

TEST_F(HostileFiles, ManyLongLinesAreRefusedBeforeTheyFillTheMachine) {
    // Unbounded, each of these would hold a gigabyte.
    const std::string item = R"(<Item><Value><Values Index="12000" SpreadValue="1"/></Value></Item>)";
    const std::string loan = R"(<Loan><Borrow Count="12000"/><Repay Count="12000"/></Loan>)";
    for (const std::string& content : {FileText("", "<Section>" + Repeated(item, 12'000) + "</Section>"),
                                       FileText("", "<Funding>" + Repeated(loan, 6'000) + "</Funding>")}) {
        const double before = PeakMemory();
        const std::string message = Refusal(content);
        EXPECT_EQ(message.rfind("scheme.lot: Project", 0), 0U) << message;
        EXPECT_LT(PeakMemory() - before, 600e6) << message;
    }
}

} // namespace
