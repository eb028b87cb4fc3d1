// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/dialogs/frmReport4Preview.h"
#include "shell/dialogs/lotReportPrinter.h"
#include "shell/frmMain.h"
#include "support/lotDesktopScript.h"
#include "support/lotTestProject.h"
#include "widgets/lotReportPages.h"
#include "widgets/lotReportThumbnails.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QTest>
#include <QTreeWidget>

namespace {

/// The appraisal of an example, made by the program's own way, in a preview.
class ReportPreview : public testing::Test {
protected:
    ReportPreview() {
        EXPECT_TRUE(Script.Data.LoadProject(ExampleFile("housing.lot")));
        Script.Data.Recalculate();
        MakeReports4(Script.Reports).Find("Appraisal").Make();
    }

    template <typename TForm> TForm& Open(bool design = false) {
        auto form = std::make_unique<TForm>(TPreviewContext{Script.Report4.Prepared(),
                                                            {Script.Report4, design, "T", "A", "C"},
                                                            Script.Desktop.Services,
                                                            Script.User,
                                                            PointLocale});
        TForm& open = *form;
        Form = std::move(form);
        open.resize(1000, 700);
        open.show();
        return open;
    }
    [[nodiscard]] QAction& Action(const char* name) const { return *Form->findChild<QAction*>(name); }
    [[nodiscard]] TReportPages& Pages() const { return Form->Pages(); }
    void EnterZoom(const QString& text) const {
        auto& box = *Form->findChild<QComboBox*>("cmbZoom");
        box.setEditText(text);
        QTest::keyClick(box.lineEdit(), Qt::Key_Return);
    }
    [[nodiscard]] QString ZoomText() const { return Form->findChild<QComboBox*>("cmbZoom")->currentText(); }

    TDesktopScript Script;
    std::unique_ptr<TReportPreviewForm> Form;
};

TEST_F(ReportPreview, ZoomFollowsItsRules) {
    Open<TReport4PreviewForm>();
    EXPECT_EQ(ZoomText(), "100%");
    struct TCase {
        const char* Entry; // Or the name of a command.
        const char* Shown;
        double Zoom;
    };
    for (const TCase& each : {TCase{"actZoomIn", "125%", 1.25},
                              {"37.5%", "38%", 0.375},
                              {"actZoomOut", "13%", 0.125},
                              {"actZoomOut", "13%", 0.125},
                              {"25%", "25%", 0.25},
                              {"actZoomOut", "25%", 0.25},
                              {"0%", "25%", 0.25},
                              {"-50%", "25%", 0.25},
                              {"nonsense%", "25%", 0.25},
                              {"300", "25%", 0.25},
                              {" 1,600 %", "1600%", 16},
                              {"actZoomIn", "1625%", 16.25},
                              {"100000000%", "100000000%", 1e6},
                              {"100%", "100%", 1}}) {
        if (std::string_view(each.Entry).starts_with("act")) {
            Action(each.Entry).trigger();
        } else {
            EnterZoom(each.Entry);
        }
        EXPECT_DOUBLE_EQ(Pages().Zoom(), each.Zoom) << each.Entry;
        EXPECT_EQ(ZoomText(), each.Shown) << each.Entry;
        Form->grab(); // Drawn at whatever zoom.
    }
    EnterZoom(QString(300, '9') + "%");
    EXPECT_DOUBLE_EQ(Pages().Zoom(), 1e6) << "far beyond any page, and still drawn";
    Form->grab();
    EnterZoom("page width");
    EXPECT_EQ(ZoomText(), "Page Width");
    const double wide = Pages().Zoom();
    Form->resize(700, 700);
    EXPECT_LT(Pages().Zoom(), wide) << "the fit is kept";
    EnterZoom("WHOLE PAGE");
    EXPECT_LT(Pages().Zoom() * 1123, 700) << "an A4 page of 1123 pixels is seen whole";
}

TEST_F(ReportPreview, KeysLeadThroughThePages) {
    Open<TPreviewForm>();
    ASSERT_EQ(Pages().PageCount(), 3);
    const auto press = [&](Qt::Key key) {
        QTest::keyClick(&Pages(), key);
        return Form->findChild<QSpinBox*>("edtPage")->value();
    };
    EXPECT_EQ(press(Qt::Key_PageDown), 2);
    EXPECT_EQ(press(Qt::Key_PageUp), 1);
    EXPECT_EQ(press(Qt::Key_End), 3);
    EXPECT_EQ(press(Qt::Key_PageDown), 3);
    EXPECT_EQ(press(Qt::Key_Home), 1);
    EXPECT_EQ(Form->findChild<QAction*>("actOutline"), nullptr) << "the newer engine's alone";
    QTest::keyClick(&Pages(), Qt::Key_Escape);
    EXPECT_FALSE(Form->isVisible());
}

TEST_F(ReportPreview, SavesAskWithTheirFiltersAndWriteTheFormat) {
    Open<TReport4PreviewForm>();
    struct TCase {
        const char* Action;
        const char* File;
        const char* Extension;
        const char* Filter;
        const char* Begins;
    };
    for (const TCase& each : {TCase{"actPdf", "a.pdf", "pdf", "Adobe PDF Files (*.pdf)|*.pdf", "%PDF-"},
                              {"actHtml", "a.htm", "html", "HTML Files (*.htm)|*.htm", "<!DOCTYPE html>"},
                              {"actRtf", "a.rtf", "html", "RTF Files (*.rtf)|*.rtf", "{\\rtf1"},
                              {"actExcel", "a.xls", "xls", "Excel Files (*.xls)|*.xls", "\xD0\xCF\x11\xE0"},
                              {"actExcel", "a.xlsx", "xls", "Excel Files (*.xls)|*.xls", "PK"}}) {
        Script.User.FileNames = {Script.Folder.File(each.File)};
        Action(each.Action).trigger();
        EXPECT_EQ(Script.User.LastFileQuestion.Filter, each.Filter);
        EXPECT_EQ(Script.User.LastFileQuestion.DefaultExtension, each.Extension);
        EXPECT_TRUE(ReadBytes(Script.Folder.File(each.File)).starts_with(each.Begins)) << each.File;
    }
    Script.User.FileNames = {std::nullopt, Script.Folder.File("none/a.pdf")};
    Action("actPdf").trigger();
    EXPECT_EQ(Script.User.TakeTold(), "");
    Action("actPdf").trigger(); // Told by the general handler, which isn't the window's affair.
    EXPECT_EQ(Script.User.BusyNow, 0);
    EXPECT_TRUE(Form->isVisible());
}

TEST_F(ReportPreview, FindMarksWrapsAndSaysWhereItIs) {
    Open<TReport4PreviewForm>();
    Action("actFind").trigger();
    auto& box = *Form->findChild<QLineEdit*>("edtFind");
    auto& told = *Form->findChild<QLabel*>("lblFound");
    const auto find = [&](const char* words) {
        box.clear();
        QTest::keyClicks(&box, words);
        QTest::keyClick(&box, Qt::Key_Return);
    };
    find("PROFESSIONAL");
    EXPECT_EQ(told.text(), "Page 2");
    EXPECT_EQ(Pages().CurrentPage(), 1);
    ASSERT_TRUE(Pages().Found());
    const QRectF place = Pages().Found()->Rect;
    Action("actFindNext").trigger();
    EXPECT_EQ(told.text(), "Page 2, from the beginning again");
    EXPECT_EQ(Pages().Found()->Rect, place);
    find("helicopter");
    EXPECT_EQ(told.text(), "\"helicopter\" was not found.");
    EXPECT_FALSE(Pages().Found());
    QTest::keyClick(&box, Qt::Key_Escape);
    EXPECT_TRUE(Form->isVisible()) << "the bar goes first";
}

TEST_F(ReportPreview, OutlineAndThumbnailsLeadToTheirPlaces) {
    Open<TReport4PreviewForm>();
    auto& outline = *Form->findChild<QTreeWidget*>("Outline");
    ASSERT_TRUE(outline.isVisible()) << "three pages are worth one";
    const auto entries = outline.findItems("Finance", Qt::MatchExactly);
    ASSERT_EQ(entries.size(), 1);
    outline.setCurrentItem(entries.front());
    EXPECT_EQ(Pages().CurrentPage(), 2);
    const auto groups = outline.findItems("Construction Costs", Qt::MatchExactly);
    ASSERT_EQ(groups.size(), 1);
    EXPECT_EQ(groups.front()->child(0)->text(0), "Build Costs");

    auto& thumbnails = *Form->findChild<TReportThumbnails*>("Thumbnails");
    EXPECT_FALSE(thumbnails.isVisible());
    Action("actThumbnails").trigger();
    EXPECT_TRUE(thumbnails.isVisible());
    EXPECT_EQ(thumbnails.currentRow(), 2) << "the page in view is marked";
    thumbnails.setCurrentRow(0);
    EXPECT_EQ(Pages().CurrentPage(), 0);
    Action("actOutline").trigger();
    EXPECT_FALSE(outline.isVisible());
}

TEST_F(ReportPreview, DesignIsOfferedOnlyWhereTheFirmAllowsIt) {
    Open<TReport4PreviewForm>();
    EXPECT_FALSE(Action("actDesign").isVisible());
    Open<TReport4PreviewForm>(true);
    EXPECT_TRUE(Action("actDesign").isVisible());
}

TEST_F(ReportPreview, PrintingTakesTheRangeAndThePaper) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(Script.Folder.File("p.pdf")));
    printer.setPageSize(QPageSize(QPageSize::A6));
    printer.setPrintRange(QPrinter::PageRange);
    printer.setFromTo(2, 3);
    PrintReport(printer, Script.Report4.Prepared());
    EXPECT_EQ(printer.pageLayout().pageSize().id(), QPageSize::A4);
    const std::string pdf = ReadBytes(Script.Folder.File("p.pdf"));
    EXPECT_NE(pdf.find("/Count 2"), std::string::npos) << "two pages";
}

TEST(ReportCommands, EachEntryOfTheMenuShowsItsReport) {
    TDesktopScript script;
    TMainForm form(script.Desktop);
    form.FormCreate();
    form.Files().OpenProject(ExampleFile("mixed-use.lot"));
    using enum TlotAction;
    for (const TlotAction action :
         {ReportAppraisal, ReportResidual, ReportOccDetails, ReportAddendum, ReportFrontPage, ReportPicture}) {
        form.Action(action).trigger();
    }
    EXPECT_EQ(script.User.Read,
              "4: AppraisalGrouped.fr3, 4|4: AppraisalSummary.fr3, 4|4: OccDetails.fr3, 1|4: Addendum.fr3, 2|"
              "4: FrontPage.fr3, 1|4: Picture.fr3, 1|");
    EXPECT_EQ(script.User.BusyNow, 0);

    script.User.Read.clear();
    script.Project().AppraisalReportFile = "AppraisalUngrouped";
    form.Action(ReportAppraisal).trigger();
    form.Action(DebugUseFR2).trigger();
    form.Action(ReportAppraisal).trigger();
    form.Action(DebugUseFR4).trigger();
    form.Action(ReportAppraisal).trigger();
    EXPECT_EQ(script.User.Read, "4: AppraisalUngrouped.fr3, 3|2: Appraisal.frf, 4|4: AppraisalUngrouped.fr3, 3|");

    script.User.Read.clear();
    DeleteUnits(script.Project());
    form.Action(ReportAppraisal).trigger();
    EXPECT_EQ(script.User.Read, "") << "nothing to report";
    EXPECT_NE(script.User.TakeTold(), "");
}

} // namespace
