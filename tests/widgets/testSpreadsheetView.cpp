// SPDX-License-Identifier: GPL-3.0-or-later
//
// The sheet on screen: keys and clicks in, selection, edits, clipboard and visible cells out.
#include "support/lotFiles.h"
#include "support/lotToldMessages.h"
#include "widgets/lotSheetPreview.h"
#include "widgets/lotSheetPrinter.h"
#include "widgets/lotSpreadsheetView.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDialog>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPdfWriter>
#include <QPointer>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>
#include <QTextDocument>
#include <QToolTip>
#include <set>
#include <stdexcept>

namespace {

/// A cashflow of 60 rows by 100 months: labels, and in each cell the place it stands at.
void Fill(TSpreadsheetPage& page, int rows = 60, int columns = 100) {
    const TSpreadsheetBatch batch(page);
    page.Clear();
    page.FrozenRows = 1;
    page.FrozenColumns = 1;
    page.SetColumnWidth(0, 120);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            if (column == 0) {
                page.SetText(row, 0, "Row " + std::to_string(row), 0);
            } else {
                page.SetNumber(row, column, 1000 * row + column,
                               page.Style({.Format = std::string(AccountingRedFormat)}));
            }
        }
    }
}

class SpreadsheetView : public testing::Test {
protected:
    SpreadsheetView() : FView(FPage, PointLocale) {
        Fill(FPage);
        FView.resize(600, 300);
        FView.show();
        FView.setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&FView));
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&FView, key, modifiers); }
    [[nodiscard]] std::string Place() const {
        const TSheetSelection s = FView.Selection();
        return std::to_string(s.Top) + "," + std::to_string(s.Left) + ":" + std::to_string(s.Bottom) + "," +
               std::to_string(s.Right);
    }
    void Click(int row, int column, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(FView.viewport(), Qt::LeftButton, modifiers, FView.CellRect(row, column).center());
    }

    /// The editor in the cell; null outside of an edit.
    [[nodiscard]] QLineEdit* Editor() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return FView.findChild<QLineEdit*>("edtCell");
    }
    void AllowEdits() {
        FView.OnEditing = [](int, int column) { return column > 0; };
        FView.OnEndEdit = [this](int row, int column, const std::string& text) {
            FLog += std::to_string(row) + "," + std::to_string(column) + "=" + text + "|";
        };
    }
    void Type(const char* text, Qt::Key end) {
        QTest::keyClicks(&FView, QString(text).left(1));
        ASSERT_NE(Editor(), nullptr);
        QTest::keyClicks(Editor(), QString(text).mid(1));
        if (end != Qt::Key()) {
            QTest::keyClick(Editor(), end);
        }
    }

    TSpreadsheetPage FPage;
    TSpreadsheetView FView;
    std::string FLog; ///< "row,column=text|" for each edit.
};

TEST_F(SpreadsheetView, KeysMoveAndExtendTheSelection) {
    struct TStep {
        Qt::Key Key;
        Qt::KeyboardModifiers Modifiers;
        const char* Place;
    };
    FView.Select(1, 1);
    for (const TStep& step : {TStep{Qt::Key_Right, {}, "1,2:1,2"},
                              {Qt::Key_Down, Qt::ShiftModifier, "1,2:2,2"},
                              {Qt::Key_Right, Qt::ShiftModifier, "1,2:2,3"},
                              {Qt::Key_Up, {}, "1,3:1,3"},
                              {Qt::Key_Home, {}, "1,0:1,0"},
                              {Qt::Key_Up, {}, "0,0:0,0"},
                              {Qt::Key_Up, {}, "0,0:0,0"},
                              {Qt::Key_End, Qt::ControlModifier, "59,99:59,99"},
                              {Qt::Key_Right, {}, "59,99:59,99"},
                              {Qt::Key_Left, Qt::ControlModifier, "59,0:59,0"},
                              {Qt::Key_Up, Qt::ControlModifier | Qt::ShiftModifier, "0,0:59,0"},
                              {Qt::Key_A, Qt::ControlModifier, "0,0:59,99"}}) {
        Press(step.Key, step.Modifiers);
        EXPECT_EQ(Place(), step.Place) << step.Key;
    }
}

TEST_F(SpreadsheetView, FrozenPartsStayWhileTheRestScrolls) {
    const QRect label = FView.CellRect(1, 0);
    FView.Select(40, 70);
    EXPECT_FALSE(FView.CellRect(40, 70).isEmpty()) << "brought into view";
    EXPECT_TRUE(FView.CellRect(1, 1).isEmpty()) << "scrolled away";
    EXPECT_EQ(FView.CellRect(40, 0).left(), label.left());
    EXPECT_EQ(FView.CellRect(40, 0).width(), label.width());
    EXPECT_EQ(FView.CellRect(0, 70).top(), 0);
    // A click finds the scrolled cell, and the frozen label of its row.
    Click(40, 0);
    EXPECT_EQ(Place(), "40,0:40,0");
    const QPoint beside = FView.CellRect(40, 70).center();
    EXPECT_EQ(FView.CellAt(beside).Column, 70);
}

TEST_F(SpreadsheetView, ATextThatIsCutIsToldLetterForLetter) {
    for (const std::string text : {"Fees & charges of the first phase", "Road <b>A</b> & all that lies behind it"}) {
        FPage.SetText(2, 0, text, 0);
        const QPoint place = FView.CellRect(2, 0).center();
        QHelpEvent event(QEvent::ToolTip, place, FView.viewport()->mapToGlobal(place));
        QApplication::sendEvent(FView.viewport(), &event);
        QTextDocument shown;
        Qt::mightBeRichText(QToolTip::text()) ? shown.setHtml(QToolTip::text()) : shown.setPlainText(QToolTip::text());
        EXPECT_EQ(shown.toPlainText().toStdString(), text);
    }
}

TEST_F(SpreadsheetView, DrawsOnlyWhatIsVisible) {
    FView.grab();
    const int small = FView.PaintedCells();
    EXPECT_GT(small, 30);
    EXPECT_LT(small, 400);
    Fill(FPage, 600, 1000);
    FView.grab();
    EXPECT_EQ(FView.PaintedCells(), small) << "A larger sheet costs no more.";
}

TEST_F(SpreadsheetView, MouseSelectsRectanglesAndCopyTakesThem) {
    Click(2, 1);
    Click(3, 2, Qt::ShiftModifier);
    EXPECT_EQ(Place(), "2,1:3,2");
    QTest::mousePress(FView.viewport(), Qt::LeftButton, {}, FView.CellRect(1, 0).center());
    QTest::mouseMove(FView.viewport(), FView.CellRect(2, 1).center());
    QTest::mouseRelease(FView.viewport(), Qt::LeftButton, {}, FView.CellRect(2, 1).center());
    EXPECT_EQ(Place(), "1,0:2,1");
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "Row 1\t1001\nRow 2\t2001");
    // For a spreadsheet: what is shown rounded is copied whole, percentages as they are written in csv.
    FPage.SetNumber(1, 1, -1234.5678, FPage.Style({.Format = std::string(AccountingFormat)}));
    FPage.SetNumber(2, 1, 17.51234, FPage.Style({.Format = "0.000%"}));
    FPage.SetText(1, 0, "5\" pipe", 0);
    FPage.SetEmpty(2, 0, 0);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "\"5\"\" pipe\"\t-1234.5678\n\t17.512%");
}

TEST_F(SpreadsheetView, EditsOnlyWhereTheOwnerAllowsIt) {
    Click(2, 2);
    QTest::keyClicks(&FView, "5");
    EXPECT_EQ(Editor(), nullptr);

    AllowEdits();
    Type("12", Qt::Key_Return);
    Type("34", Qt::Key_Tab);
    Type("56", Qt::Key_Escape);
    Type("78", Qt::Key_Down);
    Type("9", Qt::Key_Enter);
    EXPECT_EQ(FLog, "2,2=12|3,2=34|3,3=78|4,3=9|");
    EXPECT_EQ(Place(), "5,3:5,3");
    FView.Select(2, 0);
    Press(Qt::Key_F2);
    EXPECT_EQ(Editor(), nullptr) << "a label";
    TSheetSelection cleared;
    FView.OnClearCells = [&](const TSheetSelection& selection) { cleared = selection; };
    Press(Qt::Key_Delete);
    EXPECT_EQ(cleared, FView.Selection());
}

TEST_F(SpreadsheetView, AnEditIsATextThatWasTouched) {
    AllowEdits();
    struct TCase {
        const char* Typed; // After F2; nullptr: nothing.
        Qt::Key End;
        const char* Log;
    };
    for (const TCase& row : {TCase{nullptr, Qt::Key_Return, ""},
                             {nullptr, Qt::Key_Tab, ""},
                             {"3,003", Qt::Key_Return, ""},
                             {"3,004", Qt::Key_Return, "3,3=3,004|"},
                             {"", Qt::Key_Return, "3,3=|"},
                             {"3,004", Qt::Key_Escape, ""}}) {
        FLog.clear();
        FView.Select(3, 3);
        Press(Qt::Key_F2);
        ASSERT_NE(Editor(), nullptr);
        EXPECT_EQ(Editor()->text(), "3,003");
        if (row.Typed != nullptr) {
            QTest::keyClick(Editor(), Qt::Key_Delete);
            QTest::keyClicks(Editor(), row.Typed);
        }
        QTest::keyClick(Editor(), row.End);
        EXPECT_EQ(FLog, row.Log) << (row.Typed != nullptr ? row.Typed : "untouched");
        EXPECT_EQ(Editor(), nullptr);
    }
    // A text begun afresh is one, whatever stood there before.
    FView.Select(0, 7);
    Type("7", Qt::Key_Return);
    EXPECT_EQ(FLog, "0,7=7|");
}

TEST_F(SpreadsheetView, AnEditEndsBeforeAnythingElseHappens) {
    AllowEdits();
    FView.Select(2, 2);
    Type("1", {});
    FView.Post();
    FView.Post();
    EXPECT_EQ(FLog, "2,2=1|");
    EXPECT_EQ(Place(), "2,2:2,2");
    Type("2", {});
    FView.DropEdit();
    Type("3", {});
    FView.Select(4, 4); // By its owner.
    Type("4", {});
    FView.verticalScrollBar()->setValue(1);
    Type("5", {});
    QFocusEvent menu(QEvent::FocusOut, Qt::PopupFocusReason);
    QApplication::sendEvent(Editor(), &menu);
    EXPECT_NE(Editor(), nullptr) << "The editor's own menu ends no edit.";
    Click(5, 5);
    EXPECT_EQ(FLog, "2,2=1|2,2=3|4,4=4|4,4=5|");
    EXPECT_EQ(Place(), "5,5:5,5");
    // A command of the owner's, by its key.
    FView.OnKeyDown = [&](QKeyEvent& event) {
        FLog += event.key() == Qt::Key_D ? "command|" : "";
        return event.key() == Qt::Key_D;
    };
    Type("6", {});
    QTest::keyClick(Editor(), Qt::Key_Alt, Qt::AltModifier);
    QTest::keyClick(Editor(), Qt::Key_F9);
    ASSERT_NE(Editor(), nullptr);
    FLog.clear();
    QTest::keyClick(Editor(), Qt::Key_D, Qt::AltModifier);
    EXPECT_EQ(FLog, "5,5=6|command|");
}

TEST_F(SpreadsheetView, ANewPageDropsTheEditAndKeepsThePlace) {
    AllowEdits();
    FView.Select(39, 69, 40, 70);
    const int down = FView.verticalScrollBar()->value();
    const int across = FView.horizontalScrollBar()->value();
    Type("12", {});
    Fill(FPage);
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_EQ(FLog, "") << "nothing posted into a cell that may be another one";
    EXPECT_TRUE(FView.hasFocus());
    EXPECT_EQ(Place(), "39,69:40,70");
    EXPECT_EQ(FView.verticalScrollBar()->value(), down);
    EXPECT_EQ(FView.horizontalScrollBar()->value(), across);
    int selections = 0;
    FView.OnSelectionChange = [&] { ++selections; };
    Fill(FPage);
    EXPECT_EQ(selections, 0);
    Fill(FPage, 40, 70);
    EXPECT_EQ(Place(), "39,69:39,69");
    EXPECT_EQ(selections, 1);
    // Its owner rebuilds the page after each edit.
    FView.OnEndEdit = [&](int, int, const std::string&) { Fill(FPage, 40, 70); };
    FView.Select(3, 3);
    Type("12", Qt::Key_Return);
    EXPECT_EQ(Place(), "4,3:4,3");
}

TEST_F(SpreadsheetView, AHookThatThrowsIsToldOnceAndLeavesTheSheetAsItWas) {
    TToldMessages told;
    const auto fail = [] { throw std::runtime_error("no"); };
    FView.OnEditing = [&](int, int) -> bool {
        fail();
        return true;
    };
    FView.Select(3, 3);
    Press(Qt::Key_F2);
    EXPECT_EQ(told.Take(), "no|");
    EXPECT_EQ(Editor(), nullptr);

    AllowEdits();
    FView.OnEndEdit = [&](int, int, const std::string&) { fail(); };
    for (const Qt::Key end : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Down}) {
        Type("5", end);
        EXPECT_EQ(told.Take(), "no|");
        EXPECT_EQ(Editor(), nullptr);
        EXPECT_EQ(Place(), "3,3:3,3");
        EXPECT_TRUE(FView.hasFocus());
    }
    FView.OnClearCells = [&](const TSheetSelection&) { fail(); };
    Press(Qt::Key_Delete);
    EXPECT_EQ(told.Take(), "no|");
    FView.OnSelectionChange = fail;
    Press(Qt::Key_Down);
    EXPECT_EQ(told.Take(), "no|");
    FView.OnSelectionChange = nullptr;
    EXPECT_EQ(Place(), "4,3:4,3");
    FView.OnContextMenu = [&](const QPoint&) { fail(); };
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(FView.viewport(), &menu);
    EXPECT_EQ(told.Take(), "no|");
    FView.OnKeyDown = [&](QKeyEvent&) -> bool {
        fail();
        return false;
    };
    Press(Qt::Key_Down);
    EXPECT_EQ(told.Take(), "no|");
    EXPECT_EQ(Place(), "4,3:4,3") << "A key whose hook failed does nothing.";
}

TEST(SpreadsheetViewInDialog, EnterIsTheSheetsOwn) {
    TSpreadsheetPage page;
    Fill(page, 3, 3);
    QDialog dialog;
    auto* const view = new TSpreadsheetView(page, PointLocale, &dialog);
    QPushButton ok("OK", &dialog);
    ok.setDefault(true);
    int pressed = 0;
    QObject::connect(&ok, &QPushButton::clicked, [&] { ++pressed; });
    dialog.show();
    view->setFocus();
    view->OnEditing = [](int, int) { return true; };
    view->Select(0, 1);
    QTest::keyClick(view, Qt::Key_Return);
    QTest::keyClicks(view, "5");
    QTest::keyClick(view->findChild<QLineEdit*>("edtCell"), Qt::Key_Enter);
    QTest::keyClick(view, Qt::Key_Enter); // The last row.
    EXPECT_EQ(view->CurrentRow(), 2);
    QTest::keyClick(view, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(view->CurrentRow(), 1);
    // One that vanishes in its own hook, with its dialog's contents.
    view->OnEndEdit = [view](int, int, const std::string&) { delete view; };
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QTest::keyClicks(view, "5");
    const QPointer<TSpreadsheetView> alive(view);
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, {});
    QApplication::sendEvent(view->findChild<QLineEdit*>("edtCell"), &enter);
    EXPECT_EQ(alive, nullptr);
    EXPECT_EQ(pressed, 0);
}

TEST_F(SpreadsheetView, ASmallerSheetKeepsSelectionAndScrollWithinIt) {
    FView.Select(59, 99);
    Fill(FPage, 3, 4);
    EXPECT_EQ(Place(), "2,3:2,3");
    EXPECT_EQ(FView.horizontalScrollBar()->value(), 0);
    FPage.Clear();
    EXPECT_TRUE(FView.Selection().IsEmpty());
    FView.grab();
    Press(Qt::Key_Down);
    Press(Qt::Key_C, Qt::ControlModifier);
}

TEST(SheetPrinter, EveryCellIsPrintedOnceUnderItsLabels) {
    TSpreadsheetPage page;
    Fill(page, 90, 40);
    const std::uint16_t heading = page.Style({.Bold = true, .SizeDelta = 2});
    for (int row = 1; row < 90; row += 7) {
        page.SetText(row, 0, "Heading", heading);
    }
    TTempFolder folder;
    QPdfWriter writer(QString::fromStdString(folder.File("a.pdf")));
    writer.setResolution(96);
    const TSheetFonts fonts(page, &writer);
    const TSheetGeometry geometry(page, fonts, 1);
    struct TCase {
        double Width;
        double Height;
    };
    for (const TCase& paper : {TCase{900, 500}, {400, 1200}, {130, 30}}) {
        std::vector<bool> headings;
        for (int row = 0; row < 90; ++row) {
            headings.push_back(page.StyleOf(page.Cell(row, 0)).SizeDelta > 0);
        }
        std::set<std::pair<int, int>> printed;
        std::size_t cells = 0;
        for (const TSheetPageRange& range : PaginateSheet(geometry, 1, 1, paper.Width, paper.Height, headings)) {
            for (int row = range.FirstRow; row <= range.LastRow; ++row) {
                for (int column = range.FirstColumn; column <= range.LastColumn; ++column) {
                    printed.emplace(row, column);
                    ++cells;
                }
            }
            const bool several = range.LastRow > range.FirstRow;
            EXPECT_FALSE(several && headings[static_cast<std::size_t>(range.LastRow)]) << "a heading left alone";
        }
        EXPECT_EQ(cells, 89U * 39U);
        EXPECT_EQ(printed.size(), cells);
    }
}

TEST(SheetPreview, SavesAllPagesOrTellsWhyNot) {
    TSpreadsheetPage page;
    page.Title = "Cashflow";
    Fill(page, 90, 40);
    TTempFolder folder;
    TSheetPreview preview(page, "Cashflow", PointLocale, [](const QString&) { return QIcon(); });
    preview.show();
    EXPECT_GT(preview.PageCount(), 3);
    const std::string name = folder.File("a.pdf");
    preview.AskPdfName = [&] { return QString::fromStdString(name); };
    preview.findChild<QAction*>("actPdf")->trigger();
    const std::string pdf = ReadBytes(name);
    EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
    std::size_t pages = 0;
    for (std::size_t at = pdf.find("/Type /Page\n"); at != std::string::npos; at = pdf.find("/Type /Page\n", at + 1)) {
        ++pages;
    }
    EXPECT_EQ(static_cast<int>(pages), preview.PageCount());
    EXPECT_THROW(preview.SavePdf(folder.File("none/a.pdf")), std::runtime_error);
}

TEST(SheetPreview, ItsBarLeadsThroughThePagesAndZooms) {
    TSpreadsheetPage page;
    Fill(page, 90, 40);
    TSheetPreview preview(page, "Cashflow", PointLocale, [](const QString&) { return QIcon(); });
    preview.show();
    auto& pages = *preview.findChild<QPrintPreviewWidget*>();
    auto& number = *preview.findChild<QSpinBox*>("edtPage");
    auto& zoom = *preview.findChild<QComboBox*>("cmbZoom");
    const auto press = [&](const char* name) { preview.findChild<QAction*>(name)->trigger(); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return number.maximum() == preview.PageCount(); }));
    EXPECT_EQ(zoom.currentText(), "Page Width");
    const double wide = pages.zoomFactor();
    press("actZoomOut");
    EXPECT_NEAR(pages.zoomFactor(), wide - 0.25, 1e-6);
    press("actFitPage");
    EXPECT_EQ(zoom.currentText(), "Whole Page");
    zoom.setEditText("50%");
    QTest::keyClick(zoom.lineEdit(), Qt::Key_Return);
    EXPECT_NEAR(pages.zoomFactor(), 0.5, 1e-6);
    EXPECT_TRUE(preview.isVisible()) << "Enter is the box's";

    press("actLast");
    EXPECT_EQ(pages.currentPage(), preview.PageCount());
    EXPECT_EQ(number.value(), preview.PageCount());
    press("actNext");
    EXPECT_EQ(pages.currentPage(), preview.PageCount()) << "there is no next one";
    number.setValue(2);
    EXPECT_EQ(pages.currentPage(), 2);
    press("actPrevious");
    press("actPrevious");
    EXPECT_EQ(number.value(), 1);
}

} // namespace
