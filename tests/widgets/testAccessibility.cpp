// SPDX-License-Identifier: GPL-3.0-or-later
//
// What assistive programs hear of the widgets that draw themselves.
#include "support/lotFiles.h"
#include "widgets/lotCardList.h"
#include "widgets/lotClickLabel.h"
#include "widgets/lotNavigationColumn.h"
#include "widgets/lotReportPages.h"
#include "widgets/lotSeriesCharts.h"
#include "widgets/lotSpinEdit.h"
#include "widgets/lotSpreadsheetView.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>
#include <memory>
#include <utility>

namespace {

QAccessibleInterface* Interface(QObject& object) {
    return QAccessible::queryAccessibleInterface(&object);
}

std::string Name(const QAccessibleInterface* interface) {
    return interface == nullptr ? "(none)" : interface->text(QAccessible::Name).toStdString();
}

/// Two labels, two months, a percentage.
void FillMonths(TSpreadsheetPage& page, bool headers) {
    const TSpreadsheetBatch batch(page);
    page.Clear();
    page.Title = "Timescale";
    page.FrozenColumns = 1;
    page.ColumnHeaders = headers ? std::vector<std::string>{"", "Jan-2026", "Feb-2026"} : std::vector<std::string>();
    page.FrozenRows = headers ? 0 : 1;
    int row = 0;
    if (!headers) {
        page.SetText(row, 1, "Jan-2026", 0);
        page.SetText(row++, 2, "Feb-2026", 0);
    }
    page.SetText(row, 0, "Build", 0);
    page.SetNumber(row, 1, -1234.5, page.Style({.Format = std::string(AccountingFormat)}));
    page.SetText(row + 1, 0, "Rate", 0);
    page.SetNumber(row + 1, 2, 7.5, page.Style({.Format = "0.000%"}));
}

TEST(Accessibility, ASheetIsATableOfWhatItShows) {
    for (const bool headers : {true, false}) {
        TSpreadsheetPage page;
        FillMonths(page, headers);
        TSpreadsheetView view(page, PointLocale);
        view.resize(500, 200);
        view.show();
        view.setFocus();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
        QAccessibleInterface* const sheet = Interface(view);
        ASSERT_NE(sheet, nullptr);
        EXPECT_EQ(sheet->role(), QAccessible::Table);
        EXPECT_EQ(Name(sheet), "Timescale");
        QAccessibleTableInterface* const table = sheet->tableInterface();
        ASSERT_NE(table, nullptr);
        const int build = headers ? 0 : 1;
        EXPECT_EQ(table->rowCount(), build + 2);
        EXPECT_EQ(table->columnCount(), 3);
        EXPECT_EQ(sheet->childCount(), 9);
        EXPECT_EQ(table->columnDescription(2), "Feb-2026");
        EXPECT_EQ(table->rowDescription(build), "Build");
        EXPECT_EQ(Name(table->cellAt(build, 1)), "(1,235)");
        EXPECT_EQ(Name(table->cellAt(build + 1, 2)), "7.500%");
        EXPECT_EQ(Name(table->cellAt(build, 2)), "");
        EXPECT_EQ(table->cellAt(7, 1), nullptr);

        QAccessibleInterface* const cell = table->cellAt(build + 1, 2);
        QAccessibleTableCellInterface* const place = cell->tableCellInterface();
        ASSERT_NE(place, nullptr);
        EXPECT_EQ(place->rowIndex(), build + 1);
        EXPECT_EQ(Name(place->rowHeaderCells().at(0)), "Rate");
        EXPECT_EQ(place->rowHeaderCells().at(0)->role(), QAccessible::RowHeader);
        EXPECT_EQ(Name(place->columnHeaderCells().at(0)), "Feb-2026");
        EXPECT_EQ(place->columnHeaderCells().at(0)->role(), QAccessible::ColumnHeader);
        EXPECT_EQ(sheet->child(sheet->indexOfChild(cell)), cell);
        EXPECT_EQ(cell->parent(), sheet);
        const QPoint middle = view.viewport()->mapToGlobal(view.CellRect(build + 1, 2).center());
        EXPECT_EQ(sheet->childAt(middle.x(), middle.y()), cell);
        EXPECT_TRUE(cell->rect().contains(middle));

        view.Select(build, 1);
        QTest::keyClick(&view, Qt::Key_Right);
        EXPECT_EQ(sheet->focusChild(), table->cellAt(build, 2));
        cell->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
        EXPECT_EQ(sheet->focusChild(), cell);
        EXPECT_TRUE(cell->state().focused);
        QTest::keyClick(&view, Qt::Key_Home, Qt::ShiftModifier);
        EXPECT_EQ(table->selectedCellCount(), 3);
        EXPECT_EQ(table->selectedRows(), QList{build + 1});
        EXPECT_TRUE(cell->state().selected);
        EXPECT_FALSE(cell->state().focused);
    }
}

TEST(Accessibility, NothingIsLeftOfARebuiltOrDeletedSheet) {
    TSpreadsheetPage page;
    FillMonths(page, true);
    auto view = std::make_unique<TSpreadsheetView>(page, PointLocale);
    const auto number = [&](int row, int column) {
        return QAccessible::uniqueId(Interface(*view)->tableInterface()->cellAt(row, column));
    };
    const QAccessible::Id before = number(1, 2);
    FillMonths(page, true);
    EXPECT_EQ(QAccessible::accessibleInterface(before), nullptr);
    const QAccessible::Id after = number(1, 2);
    EXPECT_EQ(Name(QAccessible::accessibleInterface(after)), "7.500%");
    page.BeginUpdate();
    page.Clear();
    EXPECT_FALSE(QAccessible::accessibleInterface(after)->isValid()) << "before the view hears of it";
    EXPECT_EQ(Name(QAccessible::accessibleInterface(after)), "");
    page.EndUpdate();
    EXPECT_EQ(Interface(*view)->childCount(), 0);
    FillMonths(page, true);
    const QAccessible::Id last = number(0, 1);
    view.reset();
    EXPECT_EQ(QAccessible::accessibleInterface(last), nullptr);
}

TEST(Accessibility, TheEditorIsNamedAfterItsCell) {
    TSpreadsheetPage page;
    FillMonths(page, true);
    TSpreadsheetView view(page, PointLocale);
    view.OnEditing = [](int, int) { return true; };
    view.show();
    view.setFocus();
    view.Select(0, 1);
    QTest::keyClick(&view, Qt::Key_F2);
    EXPECT_EQ(Name(Interface(*view.findChild<QLineEdit*>("edtCell"))), "Build, Jan-2026");
}

TEST(Accessibility, CardsAreAListOfCaptionsAndLines) {
    auto list = std::make_unique<TCardList>();
    list->setAccessibleName("Units");
    list->EmptyText = "No units yet.";
    list->resize(560, 200);
    list->show();
    list->setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(list.get()));
    EXPECT_EQ(Interface(*list)->text(QAccessible::Description), "No units yet.");
    list->SetCards({{"House", Qt::white, {{"Net", "1,000"}, {"Gross", "2,000"}}}, {"Shop", Qt::white, {}}});
    QAccessibleInterface* const cards = Interface(*list);
    EXPECT_EQ(cards->role(), QAccessible::List);
    EXPECT_EQ(Name(cards), "Units");
    ASSERT_EQ(cards->childCount(), 2);
    EXPECT_EQ(cards->child(0)->role(), QAccessible::ListItem);
    EXPECT_EQ(Name(cards->child(0)), "House");
    EXPECT_EQ(cards->child(0)->text(QAccessible::Description), "Net 1,000, Gross 2,000");
    QTest::keyClick(list.get(), Qt::Key_Right);
    EXPECT_EQ(cards->focusChild(), cards->child(1));
    EXPECT_TRUE(cards->child(1)->state().focused);
    const QAccessible::Id card = QAccessible::uniqueId(cards->child(0));
    list->SetCards({});
    EXPECT_EQ(QAccessible::accessibleInterface(card), nullptr);
    EXPECT_EQ(cards->focusChild(), nullptr);
    list->SetCards({{"Barn", Qt::white, {}}});
    const QAccessible::Id last = QAccessible::uniqueId(cards->child(0));
    list.reset();
    EXPECT_EQ(QAccessible::accessibleInterface(last), nullptr);
}

TEST(Accessibility, ChartsTellTheirFigures) {
    const std::vector<TChartValue> values{{"Build", 75}, {"Fees", 25}};
    TPieChart pie;
    EXPECT_EQ(Interface(pie)->role(), QAccessible::Chart);
    EXPECT_EQ(Interface(pie)->text(QAccessible::Description), "There are no figures to show yet.");
    pie.SetSlices(values);
    EXPECT_EQ(Interface(pie)->text(QAccessible::Description), "Build: 75 (75.0%); Fees: 25 (25.0%)");
    TBarChart bars;
    bars.SetBars(values);
    EXPECT_EQ(Interface(bars)->role(), QAccessible::Chart);
    EXPECT_EQ(Interface(bars)->text(QAccessible::Description), "Build: 75; Fees: 25");
    bars.SetBars({});
    EXPECT_EQ(Interface(bars)->text(QAccessible::Description), "There are no figures to show yet.");
    TLineChart lines;
    lines.SetLines(std::vector<QString>{"Jan", "Feb"}, std::vector<TChartLine>{{"Debt", {1, 2}}});
    EXPECT_EQ(Interface(lines)->text(QAccessible::Description), "Debt, Jan: 1; Debt, Feb: 2");
}

TEST(Accessibility, PagesTellTheirNumberAndText) {
    report::TPreparedReport report;
    for (const char* heading : {"Costs", "Sales"}) {
        report::TPreparedPage& page = report.Pages.emplace_back();
        page.Size = {12000, 16000};
        const auto text = [](std::vector<QString> lines, const QString& whole) {
            report::TPreparedText words;
            words.Lines = std::move(lines);
            words.Elided = !whole.isEmpty();
            words.Whole = whole;
            report::TPreparedItem item;
            item.Content = std::move(words);
            return item;
        };
        page.Bands.resize(2);
        page.Bands[0].Top = 15000;
        page.Bands[0].Items = {text({"Footer"}, {})};
        page.Bands[1].Top = 500;
        page.Bands[1].Items = {text({heading, "in full"}, {}), text({"Too..."}, "Too long")};
    }
    TReportPages pages;
    pages.resize(400, 300);
    pages.show();
    pages.setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&pages));
    EXPECT_EQ(Interface(pages)->childCount(), 0);
    pages.SetReport(&report);
    QAccessibleInterface* const document = Interface(pages);
    EXPECT_EQ(document->role(), QAccessible::Document);
    ASSERT_EQ(document->childCount(), 2);
    EXPECT_EQ(Name(document->child(1)), "Page 2 of 2");
    EXPECT_EQ(document->child(1)->text(QAccessible::Description), "Sales in full Too long\nFooter");
    EXPECT_EQ(document->focusChild(), document->child(0));
    QTest::keyClick(&pages, Qt::Key_End);
    EXPECT_EQ(document->focusChild(), document->child(1));
    const QAccessible::Id page = QAccessible::uniqueId(document->child(1));
    pages.SetReport(nullptr);
    EXPECT_EQ(QAccessible::accessibleInterface(page), nullptr);
}

TEST(Accessibility, FieldsAndCommandsSayWhatTheyAre) {
    TSpinEdit spin(1, 120);
    spin.SetValue(500);
    QAccessibleInterface* const field = Interface(spin);
    EXPECT_EQ(field->role(), QAccessible::SpinBox);
    EXPECT_EQ(field->text(QAccessible::Value), "500");
    ASSERT_NE(field->valueInterface(), nullptr);
    EXPECT_EQ(field->valueInterface()->currentValue().toDouble(), 500);
    EXPECT_EQ(field->valueInterface()->maximumValue().toInt(), 120);
    field->valueInterface()->setCurrentValue(700);
    EXPECT_EQ(field->text(QAccessible::Value), "120");
    ASSERT_NE(field->textInterface(), nullptr);
    EXPECT_EQ(field->textInterface()->text(0, 3), "120");

    TClickLabel label;
    label.setText("Orchard");
    label.setAccessibleName("Project");
    int clicked = 0;
    QObject::connect(&label, &TClickLabel::Clicked, [&] { ++clicked; });
    EXPECT_EQ(Interface(label)->role(), QAccessible::Button);
    EXPECT_EQ(Name(Interface(label)), "Project Orchard");
    Interface(label)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(clicked, 1);

    TNavigationColumn column;
    QAction costs("&Costs");
    costs.setObjectName("Costs");
    costs.setCheckable(true);
    column.AddGroup("View");
    column.AddEntry(costs);
    auto* const entry = column.findChild<QAbstractButton*>("navCosts");
    EXPECT_EQ(Name(Interface(*entry)), "Costs");
    entry->click();
    EXPECT_TRUE(costs.isChecked());
    EXPECT_TRUE(Interface(*entry)->state().checked);
    costs.setChecked(false);
    EXPECT_FALSE(Interface(*entry)->state().checked);
    auto* const header = column.findChild<QToolButton*>();
    EXPECT_EQ(Interface(*header)->text(QAccessible::Description), "Expanded");
    header->click();
    EXPECT_EQ(Name(Interface(*header)), "View");
    EXPECT_EQ(Interface(*header)->text(QAccessible::Description), "Collapsed");
}

} // namespace
