// SPDX-License-Identifier: GPL-3.0-or-later
//
// What assistive programs hear of the widgets that draw themselves.
#include "support/lotFiles.h"
#include "widgets/lotSpreadsheetView.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <memory>

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

} // namespace
