// SPDX-License-Identifier: GPL-3.0-or-later
//
// A user at a grid of costs.
#pragma once

#include "support/lotCostLists.h"
#include "support/lotFiles.h"
#include "support/lotToldMessages.h"
#include "widgets/lotDataGrid.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTest>

/// The columns of TCosts: the amount's mask hangs on the record, "Kind" is a choice, "Start" a spin from 1 to 120.
inline std::vector<TGridColumn> CostColumns(TCosts& costs) {
    std::vector<TGridColumn> columns{
        {.Caption = "Name", .Band = "Basis", .Width = 0},
        {.Caption = "Amount", .Band = "Basis", .Editor = TlotEditor::Number, .Mask = ",0"},
        {.Caption = "%", .Band = "Basis", .Editor = TlotEditor::CheckBox, .Width = 40},
        {.Caption = "Kind", .Band = "Timing", .Editor = TlotEditor::Choice, .Choices = {"Fee", "Works"}},
        {.Caption = "Start", .Band = "Timing", .Editor = TlotEditor::Spin, .Width = 60, .Minimum = 1, .Maximum = 120},
        {.Caption = "Value", .Editor = TlotEditor::ReadOnly, .Mask = ",0", .TakesFocus = false},
    };
    columns[1].MaskOf = [&costs](int record) {
        costs.Reach("MaskOf");
        return costs.Cost(record).Percentage ? "0.000%" : ",0";
    };
    return columns;
}

inline QLineEdit* OpenEditor(TDataGrid& grid, int row, int column) {
    grid.setFocus();
    grid.setCurrentIndex(grid.model()->index(row, column));
    QTest::keyClick(&grid, Qt::Key_F2);
    QWidget* const editor = grid.indexWidget(grid.currentIndex());
    auto* const line = qobject_cast<QLineEdit*>(editor);
    return line != nullptr || editor == nullptr ? line : editor->findChild<QLineEdit*>();
}

/// Edits a cell and ends with a key.
inline void TypeInto(TDataGrid& grid, int row, int column, const QString& text, Qt::Key key = Qt::Key_Return) {
    QLineEdit* const editor = OpenEditor(grid, row, column);
    ASSERT_NE(editor, nullptr);
    editor->selectAll();
    if (text.isEmpty()) {
        QTest::keyClick(editor, Qt::Key_Delete);
    }
    QTest::keyClicks(editor, text);
    QTest::keyClick(grid.indexWidget(grid.currentIndex()), key);
}

/// A window with a grid of costs, whose model is checked all the time, and what its user was told.
struct TGridScript {
    explicit TGridScript(const QString& newRowText = "Click here to add new row")
        : Grid(Costs, CostColumns(Costs), PointLocale, newRowText) {
        Costs.OnChange = [this] {
            Costs.Log += "change ";
            Costs.Reach("OnChange");
        };
        Grid.resize(600, 300);
        Grid.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&Grid));
    }

    [[nodiscard]] QString Shown(int row, int column) const {
        return Grid.model()->index(row, column).data().toString();
    }
    void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&Grid, static_cast<Qt::Key>(key), modifiers);
    }
    /// "row,column" of the current cell.
    [[nodiscard]] std::string Where() const {
        return std::to_string(Grid.currentIndex().row()) + "," + std::to_string(Grid.currentIndex().column());
    }
    /// Paints, and lets pass what waits for the message loop.
    [[nodiscard]] std::string ToldAfterPainting() {
        Grid.grab();
        QCoreApplication::processEvents();
        Grid.grab();
        QCoreApplication::processEvents();
        return Told.Take();
    }

    TToldMessages Told;
    TCosts Costs;
    TDataGrid Grid;
    QAbstractItemModelTester Tester{&Grid.Bridge(), QAbstractItemModelTester::FailureReportingMode::Fatal};
};
