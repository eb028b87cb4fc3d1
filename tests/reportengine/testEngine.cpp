// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/lotReportScript.h"

#include <QImage>
#include <algorithm>

using namespace report;

namespace {

/// A line of text 10 mm high in a band of that height.
std::string Line(const std::string& text, const std::string& attributes = {}) {
    return "<Text Width='100' Height='10' " + attributes + ">" + text + "</Text>";
}

class Engine : public testing::Test {
protected:
    void AddTowns() {
        Script.AddTown("Ash", "North", 10);
        Script.AddTown("Birch", "North", 32.5);
        Script.AddTown("Cedar", "South", 5);
    }
    [[nodiscard]] const TPreparedBand& Band(std::size_t page, std::size_t band) const {
        return Script.Report.Prepared().Pages.at(page).Bands.at(band);
    }
    /// The content of an item; std::get throws where it is another.
    template <typename T> [[nodiscard]] const T& Item(std::size_t page, std::size_t band, std::size_t item) const {
        return std::get<T>(Band(page, band).Items.at(item).Content);
    }

    TReportScript Script;
};

TEST_F(Engine, GroupsHaveHeadsFootersAndTotalsOfTheirOwn) {
    AddTowns();
    EXPECT_EQ(Script.Run("<ReportTitle Height='1'>" + Line("title") +
                         "</ReportTitle>"
                         "<MasterData DataSet='Towns' Height='1'>"
                         "<Header>" +
                         Line("head") +
                         "</Header>"
                         "<GroupHeader Name='g' On='Towns.Land'>" +
                         Line("[Towns.Land]") + "</GroupHeader>" + Line("[Row] [Towns.Name]") +
                         "<GroupFooter Group='g'>" + Line("=[Sum(Towns.Folk)]") +
                         "</GroupFooter>"
                         "<Footer>" +
                         Line("all [Sum(Towns.Folk)]") +
                         "</Footer></MasterData>"
                         "<Summary>" +
                         Line("end [Towns.Name]") + "</Summary>"),
              "title|head|North|1 Ash|2 Birch|=42.5|South|3 Cedar|=5|all 47.5 / end Ash");
}

TEST_F(Engine, ScatteredGroupsCanBeGathered) {
    AddTowns();
    Script.AddTown("Dale", "North", 2);
    Script.AddStreet(4, "Low Road");
    const std::string bands = "<GroupHeader Name='g' On='Towns.Land'>" + Line("[Towns.Land]") + "</GroupHeader>" +
                              Line("[Towns.Name]") + "<DetailData DataSet='Streets'>" + Line("[Streets.Street]") +
                              "</DetailData><GroupFooter Group='g'>" + Line("[Sum(Towns.Folk)]") +
                              "</GroupFooter></MasterData>";
    EXPECT_EQ(Script.Run("<MasterData DataSet='Towns' Filter=\"Towns.Name &lt;> 'Birch'\">" + bands),
              "North|Ash|10|South|Cedar|5|North|Dale|Low Road|2");
    EXPECT_EQ(Script.Run("<MasterData DataSet='Towns' Gather='True'>" + bands),
              "North|Ash|Birch|Dale|Low Road|44.5|South|Cedar|5");
}

TEST_F(Engine, DetailsFollowTheirMasterAndFiltersTheirExpression) {
    AddTowns();
    Script.AddStreet(1, "Mill Lane");
    Script.AddStreet(2, "High Street");
    Script.AddStreet(1, "Park Row");
    Script.Limit = 8;
    const std::string bands =
        "<MasterData DataSet='Towns' Filter='Towns.Folk > Limit' Visible=\"Towns.Name &lt;> 'Birch'\">" +
        Line("[Towns.Name] [Row]") + "<DetailData DataSet='Streets'>" + Line("- [Streets.Street]") + "<Footer>" +
        Line("[Count(Streets.Street)]") + "</Footer></DetailData></MasterData>";
    EXPECT_EQ(Script.Run(bands), "Ash 1|- Mill Lane|- Park Row|2|- High Street|1") << "a hidden row keeps its details";
    Script.Towns.Clear();
    EXPECT_EQ(Script.Run(bands), "") << "no rows: neither heads nor footers, but a page";
    EXPECT_EQ(Script.Report.PageCount(), 1);
}

TEST_F(Engine, TextsBreakIntoLinesAndTheBandGrows) {
    Script.Run(
        "<ReportTitle Height='10'>"
        "<Text Left='0' Top='0' Width='30' Height='4' Size='10'>one two three four five six seven eight nine ten</Text>"
        "<Text Left='0' Top='5' Width='30' Height='5'>below</Text>"
        "<Text Left='40' Top='5' Width='30' Height='5'>beside</Text>"
        "<Line Left='0' Top='9' Width='90' Anchor='Bottom'/>"
        "<Box Left='0' Top='0' Width='90' Height='10' Anchor='Stretch'/>"
        "</ReportTitle>");
    const TPreparedBand& band = Band(0, 0);
    const auto& items = band.Items;
    ASSERT_EQ(items.size(), 5U);
    const auto& lines = Item<TPreparedText>(0, 0, 0).Lines;
    ASSERT_GE(lines.size(), 2U);
    EXPECT_EQ(lines[0].left(7), "one two");
    const double grown = items[0].Rect.height() - 4 * TwipsPerMm;
    EXPECT_GT(grown, 0);
    const auto top = [&](const char* text) {
        const auto says = [&](const TPreparedItem& item) {
            return item.Is<TPreparedText>() && item.As<TPreparedText>()->Whole == text;
        };
        return std::ranges::find_if(items, says)->Rect.top();
    };
    EXPECT_DOUBLE_EQ(top("below"), 5 * TwipsPerMm + grown);
    EXPECT_DOUBLE_EQ(top("beside"), 5 * TwipsPerMm) << "what isn't below it stays";
    EXPECT_DOUBLE_EQ(band.Height, 10 * TwipsPerMm + grown);
    for (const TPreparedItem& item : items) {
        if (item.Is<TPreparedLine>()) {
            EXPECT_DOUBLE_EQ(item.Rect.top(), 9 * TwipsPerMm + grown);
        } else if (item.Is<TPreparedBox>()) {
            EXPECT_DOUBLE_EQ(item.Rect.height(), band.Height);
        }
    }
}

TEST_F(Engine, EmptyTextsMayCollapseAndLongLinesShrinkBeforeTheyAreCut) {
    Script.Run("<ReportTitle Height='15'>"
               "<Text Top='0' Width='90' Height='5'>a</Text><Text Top='5' Width='90' Height='5' Collapse='True'></Text>"
               "<Text Top='10' Width='90' Height='5'>b</Text></ReportTitle>"
               "<Summary Height='5'><Text Width='20' Size='10' Wrap='False'>1,234,567,890</Text></Summary>"
               "<Summary Height='5'><Text Width='20' Size='10' Wrap='False'>a name that no column of this width "
               "holds</Text></Summary>");
    EXPECT_DOUBLE_EQ(Band(0, 0).Height, 10 * TwipsPerMm);
    const auto& figure = Item<TPreparedText>(0, 1, 0);
    EXPECT_EQ(figure.Lines[0], "1,234,567,890");
    EXPECT_LT(figure.Look.Size, 10);
    const auto& name = Item<TPreparedText>(0, 2, 0);
    EXPECT_TRUE(name.Elided);
    EXPECT_DOUBLE_EQ(name.Look.Size, 7);
    EXPECT_EQ(name.Whole, "a name that no column of this width holds");
}

TEST_F(Engine, PagesHaveHeadersFootersNumbersAndRepeatedHeads) {
    for (int i = 1; i <= 12; ++i) {
        Script.AddTown("t" + std::to_string(i), "North", i);
    }
    EXPECT_EQ(Script.Run("<PageHeader Height='10' Pages='NotFirst'>" + Line("[RunningHead]") +
                         "</PageHeader>"
                         "<PageFooter Height='10'>" +
                         Line("[Page] of [PageCount]") +
                         "</PageFooter>"
                         "<MasterData DataSet='Towns'>"
                         "<Header Repeat='True' RunningHead=\"'run'\">" +
                         Line("head[If(Continued, '+', '')]") + "</Header>" + Line("[Towns.Name]") + "</MasterData>"),
              "1 of 2|head|t1|t2|t3|t4|t5|t6|t7|t8 / run|2 of 2|head+|t9|t10|t11|t12");
}

TEST_F(Engine, WhatBelongsTogetherIsNotTornApart) {
    for (int i = 1; i <= 9; ++i) {
        Script.AddTown("t" + std::to_string(i), i < 8 ? "North" : "South", i);
        Script.AddStreet(i, "s");
    }
    const std::string heads = "<GroupHeader Name='g' On='Towns.Land'>" + Line("[Towns.Land]") + "</GroupHeader>";
    EXPECT_EQ(Script.Run("<ReportTitle>" + Line("title") + "</ReportTitle><MasterData DataSet='Towns'>" + heads +
                         Line("[Towns.Name]") + "</MasterData>"),
              "title|North|t1|t2|t3|t4|t5|t6|t7 / South|t8|t9")
        << "no heading at the foot of a page";
    EXPECT_EQ(Script.Run("<MasterData DataSet='Towns' KeepTogether='True' Filter=\"Towns.Folk > 3\">" +
                         Line("[Towns.Name]") + "<DetailData DataSet='Streets'>" + Line("-") + Line("-", "Top='10'") +
                         "</DetailData></MasterData>"),
              "t4|- -|t5|- -|t6|- - / t7|- -|t8|- -|t9|- -")
        << "three rows of 30 mm: the tenth line stays empty";
    EXPECT_EQ(Script.Run("<MasterData DataSet='Towns'>" + Line("[Towns.Name]") + "<Footer>" + Line("f1") +
                         "</Footer><Footer>" + Line("f2") + "</Footer></MasterData>"),
              "t1|t2|t3|t4|t5|t6|t7|t8 / t9|f1|f2")
        << "no total alone at the top of a page";
}

TEST_F(Engine, BreaksComeAfterTheNamedGroupAndOnlyIfSomethingFollows) {
    AddTowns();
    const std::string bands = "<MasterData DataSet='Towns'><GroupHeader Name='g' On='Towns.Land'/>" +
                              Line("[Towns.Name]") + "<GroupFooter Group='g' Height='1' PageBreakAfter=\"Towns.Land = ";
    EXPECT_EQ(Script.Run(bands + "'north'\"/></MasterData>"), "|Ash|Birch| / |Cedar|");
    EXPECT_EQ(Script.Run(bands + "'South'\"/></MasterData>"), "|Ash|Birch||" + std::string("|Cedar|"));
    EXPECT_EQ(Script.Run("<MasterData DataSet='Towns' NewPage=\"Towns.Name = 'Birch'\">" + Line("[Towns.Name]") +
                         "</MasterData>"),
              "Ash / Birch|Cedar");
    EXPECT_TRUE(Script.Report.Prepared().Pages[1].PartStart);
}

TEST_F(Engine, LongTextsGoOnOnTheNextPage) {
    std::string text;
    for (int i = 1; i <= 40; ++i) {
        text += "line " + std::to_string(i) + "&#10;";
    }
    Script.Run("<ReportTitle>" + Line("title") +
               "</ReportTitle><Summary><Text Width='100' Size='10' LineSpacing='1.4'>" + text + "end</Text></Summary>");
    ASSERT_EQ(Script.Report.PageCount(), 3);
    std::vector<QString> lines;
    for (const TPreparedPage& page : Script.Report.Prepared().Pages) {
        double used = 0;
        for (const TPreparedBand& band : page.Bands) {
            used += band.Height;
            for (const TPreparedItem& item : band.Items) {
                EXPECT_LE(band.Top + item.Rect.bottom(), page.Size.height() - page.Margins.bottom() + 1);
                const auto& shown = std::get<TPreparedText>(item.Content);
                lines.insert(lines.end(), shown.Lines.begin(), shown.Lines.end());
            }
        }
        EXPECT_LE(used, 100 * TwipsPerMm + 1);
    }
    ASSERT_EQ(lines.size(), 42U);
    EXPECT_EQ(lines[20], "line 20");
    EXPECT_EQ(lines.back(), "end");

    Script.AddTown("Ash", "North", 1);
    Script.Run("<ReportTitle Height='60'/><MasterData DataSet='Towns'><Header>" + Line("head") +
               "</Header><Text Width='100' Size='10' LineSpacing='1.4'>" + text + "</Text></MasterData>");
    EXPECT_EQ(Item<TPreparedText>(0, 1, 0).Lines[0], "head")
        << "a heading and the beginning of its text use the room there is";
    EXPECT_GE(Item<TPreparedText>(0, 2, 0).Lines.size(), 2U);
    EXPECT_EQ(Script.Report.PageCount(), 3);
}

TEST_F(Engine, TemplatesAppendToTheDocument) {
    EXPECT_EQ(Script.Run("<PageFooter Height='10'>" + Line("[Page]/[PageCount]") + "</PageFooter><ReportTitle>" +
                         Line("a") + "</ReportTitle>"),
              "1/1|a");
    EXPECT_EQ(Script.Run("<PageFooter Height='10'>" + Line("[Page]/[PageCount]") + "</PageFooter><ReportTitle>" +
                             Line("b") + "</ReportTitle>",
                         true),
              "1/2|a / 2/2|b");
    Script.Load(TReportScript::Page("<ReportTitle>" + Line("c") + "</ReportTitle>", "OnPreviousPage='True'"));
    Script.Report.Prepare(true);
    EXPECT_EQ(Script.Text(), "1/2|a / 2/2|b|c");
    Script.Load(
        TReportScript::Page("<ReportTitle Height='85'>" + Line("d") + "</ReportTitle>", "OnPreviousPage='True'"));
    Script.Report.Prepare(true);
    EXPECT_EQ(Script.Text(), "1/3|a / 2/3|b|c / d") << "no room left there";
    Script.Report.Prepare(false);
    EXPECT_EQ(Script.Text(), "d");
    Script.Report.Clear();
    EXPECT_EQ(Script.Report.PageCount(), 0);
}

TEST_F(Engine, OutlineTellsWhereThingsAre) {
    AddTowns();
    Script.Run(
        "<MasterData DataSet='Towns' Height='40' Bookmark='Towns.Name' BookmarkLevel='1'>"
        "<GroupHeader Name='g' On='Towns.Land' Height='10' Repeat='True' Bookmark=\"If(Continued, '', Towns.Land)\"/>"
        "</MasterData>");
    std::string text;
    for (const TOutlineEntry& entry : Script.Report.Prepared().Outline) {
        text += std::string(static_cast<std::size_t>(entry.Level), '-') + entry.Text.toStdString() + " " +
                std::to_string(entry.Page) + "|";
    }
    EXPECT_EQ(text, "North 0|-Ash 0|-Birch 0|South 1|-Cedar 1|");
}

TEST_F(Engine, PicturesAndGradientsAreSetFromOutside) {
    QImage picture(80, 40, QImage::Format_RGB32);
    picture.fill(Qt::red);
    const std::string file = Script.Folder.File("logo.png");
    ASSERT_TRUE(picture.save(QString::fromStdString(file)));
    Script.Load(TReportScript::Page(
        "<ReportTitle Height='20'><Picture Name='Logo' Width='50' Height='15'/><Gradient Width='10' "
        "Height='10'/></ReportTitle>"));
    EXPECT_TRUE(Script.Report.FindObject("LOGO"));
    EXPECT_FALSE(Script.Report.FindObject("Picture"));
    Script.Report.SetPicture("logo", file, false);
    Script.Report.SetGradientColours(0x112233, 0x445566);
    Script.Report.Prepare(false);
    ASSERT_NE(Item<TPreparedPicture>(0, 0, 0).Image, nullptr);
    EXPECT_EQ(Band(0, 0).Items[0].Rect.size(), QSizeF(50, 15) * TwipsPerMm);
    EXPECT_EQ(Script.Report.Prepared().Gradient.StartColour, 0xFF112233U);
    Script.Report.SetGradientColours(1, 2);
    EXPECT_EQ(Script.Report.Prepared().Gradient.EndColour, 0xFF000002U) << "also on pages that are made already";

    Script.Report.SetPicture("Logo", file, true);
    Script.Report.Prepare(false);
    const QSizeF size = Band(0, 0).Items[0].Rect.size();
    EXPECT_NEAR(size.width(), 2 * size.height(), 1);
    EXPECT_THROW(Script.Report.SetPicture("Logo", Script.Folder.Write("bad.png", "no picture"), false), ELotError);
}

TEST_F(Engine, ChartsTakeTheirTable) {
    AddTowns();
    Script.AddTown("Debt", "South", -4);
    Script.Run("<Summary Height='40'><Chart Width='90' Height='40' DataSet='Towns' NameField='Name' "
               "ValueField='Folk'/></Summary>");
    const auto& chart = Item<TPreparedChart>(0, 0, 0);
    ASSERT_EQ(chart.Slices.size(), 3U) << "a pie has no negative slice";
    EXPECT_EQ(chart.Slices[1].Name, "Birch");
    EXPECT_DOUBLE_EQ(chart.Total, 47.5);
    // A pie over the rows of the band that holds it leaves the band on its row.
    EXPECT_EQ(Script.Run("<MasterData DataSet='Towns' Height='40'><Chart Width='90' Height='40' DataSet='Towns' "
                         "ValueField='Folk' Filter=\"Towns.Name = 'Birch'\"/><Text Left='90' Width='30'>[Towns.Name]"
                         "</Text></MasterData>"),
              "Ash|Birch / Cedar|Debt");
    EXPECT_EQ(Item<TPreparedChart>(0, 0, 0).Slices.size(), 1U);
}

TEST_F(Engine, BrokenTemplatesAreRefusedWithOneMessage) {
    struct TCase {
        const char* Bands;
        const char* Told;
    };
    for (const TCase& each :
         {TCase{"<ReportTitle><Text Widht='3'/></ReportTitle>", "FILE, line 1: <Text> has no attribute Widht."},
          {"<ReportTitle>\n<Text Width='wide'/></ReportTitle>",
           "FILE, line 2: <Text Width=\"wide\">: this value makes no sense."},
          {"<ReportTitle Height='-3'/>", "FILE, line 1: <ReportTitle Height=\"-3\">: this value makes no sense."},
          {"<Oops/>", "FILE, line 1: <Oops> has no place in <Page>."},
          {"<ReportTitle><Footer/></ReportTitle>", "FILE, line 1: <Footer> has no place in <ReportTitle>."},
          {"<MasterData DataSet='Nowhere'/>", "FILE, line 1: There is no table \"Nowhere\"."},
          {"<MasterData DataSet='Towns'><GroupHeader/></MasterData>",
           "FILE, line 1: <GroupHeader> needs the attribute On."},
          {"<MasterData DataSet='Towns'><GroupFooter Group='x'/></MasterData>",
           "FILE, line 1: There is no <GroupHeader Name=\"x\"> in this <MasterData>."},
          {"<ReportTitle><Text Style='grand'/></ReportTitle>", "FILE, line 1: There is no <Style Name=\"grand\">."},
          {"<ReportTitle><Text Fill='red'/></ReportTitle>",
           "FILE, line 1: <Text Fill=\"red\">: this value makes no sense."},
          {"<ReportTitle><Chart DataSet='Towns'/></ReportTitle>", "FILE, line 1: Table Towns has no field Value"},
          {"<Include File='t.fr3'/>", "FILE, line 1: Templates include each other too deep."},
          {"<ReportTitle>", "FILE, line 1: "}}) {
        const std::string told = Script.Failure(each.Bands);
        EXPECT_TRUE(told.starts_with(each.Told)) << each.Bands << ": " << told;
    }
    const auto failure = [&](const std::string& content) {
        try {
            Script.Report.LoadFromFile(Script.Folder.Write("u.fr3", content));
        } catch (const ELotError& error) {
            return std::string(error.what());
        }
        return std::string();
    };
    EXPECT_NE(failure(""), "");
    EXPECT_NE(failure("<Report/>").find("The template has no page."), std::string::npos);
    EXPECT_NE(failure("<Page/>").find("its root is no <Report>"), std::string::npos);
    EXPECT_NE(failure("<Report><Include File='none.xml'/></Report>").find("u.fr3, line 1: The template cannot be read"),
              std::string::npos);
    std::string deep;
    for (int i = 0; i < 100'000; ++i) {
        deep += "<a>";
    }
    EXPECT_NE(failure("<Report>" + deep).find("Elements are nested too deep."), std::string::npos);
    EXPECT_THROW(Script.Report.LoadFromFile(Script.Folder.File("absent.fr3")), ELotError);
    EXPECT_THROW(Script.Report.LoadFromFile("/"), ELotError);
}

TEST_F(Engine, FailedWorkLeavesWhatWasThere) {
    AddTowns();
    ASSERT_EQ(Script.Run("<ReportTitle>" + Line("good") + "</ReportTitle>"), "good");
    Script.Load(TReportScript::Page("<MasterData DataSet='Towns'>" + Line("[If(Row = 3, Towns.Name * 1, 1)]") +
                                    "</MasterData>"));
    EXPECT_THROW(Script.Report.Prepare(false), ELotError);
    EXPECT_EQ(Script.Text(), "good");

    const std::string file = Script.Folder.Write("old.pdf", "old");
    EXPECT_THROW(Script.Report.Export(TlotExportFormat::Pdf, Script.Folder.File("none/x.pdf"), {}), ELotError);
    Script.Report.Clear();
    EXPECT_THROW(Script.Report.Export(TlotExportFormat::Pdf, file, {}), ELotError);
    EXPECT_EQ(ReadBytes(file), "old");
}

} // namespace
