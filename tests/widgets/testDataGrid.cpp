// SPDX-License-Identifier: GPL-3.0-or-later
//
// A grid of records: keys and clicks in, the source out.
#include "support/lotGridScript.h"
#include "widgets/lotButtonEdit.h"
#include "widgets/lotChoiceEdit.h"
#include "widgets/lotGridHeader.h"
#include "widgets/lotPalette.h"

#include <QAccessible>
#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>

namespace {

TEST(DataGrid, EditsGoStraightIntoTheSource) {
    TGridScript script;
    TCosts& costs = script.Costs;
    script.Grid.SetFooter(5, ",0");
    EXPECT_EQ(script.Shown(1, 1), "12.346%");
    EXPECT_EQ(script.Shown(2, 0), "Click here to add new row");
    TypeInto(script.Grid, 0, 1, "1,250.50");
    EXPECT_EQ(costs.Cost(0).Amount, 1250.5);
    EXPECT_EQ(script.Shown(0, 1), "1,251");
    EXPECT_EQ(script.Grid.findChild<QLabel*>("lblFooter")->text(), "2,526");
    TypeInto(script.Grid, 2, 0, "Survey", Qt::Key_Tab);
    ASSERT_EQ(costs.List().size(), 3U);
    EXPECT_EQ(costs.Cost(2).Name, "Survey");
    EXPECT_EQ(script.Where(), "2,1") << "on in the record that was made";
    EXPECT_EQ(script.Shown(3, 0), "Click here to add new row");
    TypeInto(script.Grid, 3, 1, "0");
    EXPECT_EQ(costs.List().size(), 3U) << "nothing was typed, so nobody wants a record";
    script.Grid.FocusRecord(2, 2);
    script.Key(Qt::Key_Space);
    EXPECT_TRUE(costs.Cost(2).Percentage);
    EXPECT_FALSE(script.Grid.model()->setData(script.Grid.model()->index(0, 5), 5)) << "read-only";
}

TEST(DataGrid, OnlyWhatWasChangedIsAnEdit) {
    struct TCase {
        int Column;
        QString Typed;
        TCost After;
        bool Edit;
    };
    const TCost before{"Legal", 12.3456, false, "Odd", 500.5};
    for (const TCase& row : {
             TCase{0, "Legal", before, false},
             {0, "Lawyer", {"Lawyer", 12.3456, false, "Odd", 500.5}, true},
             {0, "", {"", 12.3456, false, "Odd", 500.5}, true},
             {1, "12", before, false},
             {1, "abc", before, false},
             {1, "7.25", {"Legal", 7.25, false, "Odd", 500.5}, true},
             {1, "", {"Legal", -1, false, "Odd", 500.5}, true}, // Nothing, not 0.
             {4, "12", {"Legal", 12.3456, false, "Odd", 12}, true},
             {4, "999", {"Legal", 12.3456, false, "Odd", 120}, true},
             {4, "-4", {"Legal", 12.3456, false, "Odd", 1}, true},
         }) {
        TGridScript script;
        script.Costs.Cost(0) = before;
        TypeInto(script.Grid, 0, row.Column, row.Typed);
        const TCost& after = script.Costs.Cost(0);
        const std::string what = std::to_string(row.Column) + " " + row.Typed.toStdString();
        EXPECT_EQ(after.Name, row.After.Name) << what;
        EXPECT_EQ(after.Amount, row.After.Amount) << what;
        EXPECT_EQ(after.Start, row.After.Start) << what;
        EXPECT_EQ(after.Kind, row.After.Kind) << what;
        EXPECT_EQ(script.Costs.TakeLog(), row.Edit ? "set change pass " : "") << what;
    }
    TGridScript script;
    script.Costs.Cost(0) = before;
    for (const int column : {0, 1, 3, 4}) {
        OpenEditor(script.Grid, 0, column);
        EXPECT_TRUE(script.Grid.IsEditing());
        script.Grid.Post();
        EXPECT_FALSE(script.Grid.IsEditing());
    }
    EXPECT_EQ(script.Costs.TakeLog(), "");
    EXPECT_EQ(script.Costs.Cost(0).Start, 500.5);
}

TEST(DataGrid, AListKeepsAnUnknownTextAndTellsWhenItCloses) {
    TGridScript script;
    script.Costs.Cost(0).Kind = "Odd";
    script.Grid.Bridge().ChangeColumn(3, [&](TGridColumn& column) {
        column.OnChosen = [&](int record, int choice) {
            script.Costs.Log += "chosen" + std::to_string(record) + std::to_string(choice) + " ";
            script.Costs.DataChanged();
        };
    });
    const auto open = [&](int row) {
        script.Grid.FocusRecord(row, 3);
        script.Key(Qt::Key_Down, Qt::AltModifier);
        return qobject_cast<TChoiceEdit*>(script.Grid.indexWidget(script.Grid.currentIndex()));
    };
    EXPECT_EQ(open(0)->currentText(), "Odd");
    QTest::keyClick(open(0)->view(), Qt::Key_Escape);
    script.Grid.Post();
    EXPECT_EQ(script.Costs.TakeLog(), "");
    const auto choose = [&](int row, int choice) {
        TChoiceEdit* const list = open(row);
        ASSERT_NE(list, nullptr);
        list->view()->setCurrentIndex(list->model()->index(choice, 0));
        QTest::keyClick(list->view(), Qt::Key_Return);
    };
    choose(0, 1);
    EXPECT_EQ(script.Costs.TakeLog(), "set chosen01 change pass ") << "the choice is part of the edit";
    EXPECT_EQ(script.Costs.Cost(0).Kind, "Works");
    EXPECT_FALSE(script.Grid.IsEditing());
    choose(0, 1);
    EXPECT_EQ(script.Costs.TakeLog(), "chosen01 ") << "the same again";
    script.Grid.Bridge().SetChoices(3, {"Zone A", "Zone B"});
    choose(1, 0);
    EXPECT_EQ(script.Costs.Cost(1).Kind, "Zone A");
    script.Costs.Log.clear();
    QApplication::clipboard()->setText("zone b\nelsewhere");
    script.Grid.FocusRecord(0, 3);
    script.Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(script.Costs.Cost(0).Kind, "Zone B");
    EXPECT_EQ(script.Costs.Cost(1).Kind, "Zone A") << "what isn't in the list is refused";
    EXPECT_EQ(script.Costs.TakeLog(), "set chosen01 change pass ");
}

TEST(DataGrid, KeysWalkAndNeverReachTheDialog) {
    QDialog dialog;
    QVBoxLayout layout(&dialog);
    TCosts costs;
    TDataGrid grid(costs, CostColumns(costs), PointLocale);
    QPushButton ok("OK");
    layout.addWidget(&grid);
    layout.addWidget(&ok);
    ok.setDefault(true);
    int pressed = 0;
    QObject::connect(&ok, &QPushButton::clicked, [&] { ++pressed; });
    QAction menu(&dialog);
    menu.setShortcuts({QKeySequence("Ctrl+C"), QKeySequence("F2"), QKeySequence("Del"), QKeySequence("Alt+Down")});
    QObject::connect(&menu, &QAction::triggered, [&] { ++pressed; });
    dialog.addAction(&menu);
    dialog.resize(600, 300);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    grid.setFocus();
    const auto after = [&](int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
        return std::to_string(grid.currentIndex().row()) + "," + std::to_string(grid.currentIndex().column());
    };
    EXPECT_EQ(after(Qt::Key_Return), "1,0");
    EXPECT_EQ(after(Qt::Key_Return), "1,0") << "nowhere to go";
    EXPECT_EQ(after(Qt::Key_Up), "0,0");
    EXPECT_EQ(after(Qt::Key_End), "0,4") << "the value takes no focus";
    EXPECT_EQ(after(Qt::Key_Right), "0,4");
    EXPECT_EQ(after(Qt::Key_Tab), "1,0");
    EXPECT_EQ(after(Qt::Key_Backtab, Qt::ShiftModifier), "0,4");
    EXPECT_EQ(after(Qt::Key_Home), "0,0");
    EXPECT_EQ(after(Qt::Key_X), "0,0") << "typing begins an edit";
    EXPECT_EQ(after(Qt::Key_Return), "1,0");
    EXPECT_EQ(costs.Cost(0).Name, "x");
    EXPECT_EQ(after(Qt::Key_F2), "1,0");
    EXPECT_EQ(after(Qt::Key_Y), "1,0");
    EXPECT_EQ(after(Qt::Key_Up), "0,0") << "an arrow posts too";
    EXPECT_EQ(costs.Cost(1).Name, "y");
    EXPECT_EQ(after(Qt::Key_C, Qt::ControlModifier), "0,0");
    EXPECT_EQ(after(Qt::Key_Delete), "0,0");
    EXPECT_EQ(after(Qt::Key_Down, Qt::AltModifier), "0,0");
    EXPECT_EQ(pressed, 0);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.visualRect(grid.model()->index(1, 5)).center());
    EXPECT_EQ(grid.FocusedRecord(), 1);
    EXPECT_EQ(grid.currentIndex().column(), 0);
    EXPECT_EQ(after(Qt::Key_End, Qt::ControlModifier), "1,4");
    QTest::keyClick(&grid, Qt::Key_Tab);
    EXPECT_TRUE(ok.hasFocus()) << "past the last cell Tab leaves";
}

TEST(DataGrid, KeysMoveRecordsAndAskBeforeTheyDelete) {
    TGridScript script("");
    std::string asked;
    script.Grid.OnMove = [&](int record, int step) {
        const int to = record + step;
        if (to < 0 || to >= script.Grid.Bridge().RecordCount()) {
            return false;
        }
        script.Costs.Swap(record, to);
        script.Costs.DataChanged();
        return true;
    };
    script.Grid.OnDelete = [&](int record) { asked += std::to_string(record); };
    script.Grid.FocusRecord(1, 1);
    script.Key(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(script.Costs.Cost(0).Name, "Agent");
    EXPECT_EQ(script.Where(), "0,1");
    script.Key(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(script.Where(), "0,1");
    script.Key(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(asked, "0");
}

TEST(DataGrid, BlocksGoToASpreadsheetAndBack) {
    TGridScript script;
    TCosts& costs = script.Costs;
    costs.Cost(0) = {"a \"b\"", 0.1 + 0.2, true, "Fee", 3, 1e21};
    script.Grid.FocusRecord(0, 0);
    script.Key(Qt::Key_End, Qt::ShiftModifier);
    script.Key(Qt::Key_Down, Qt::ShiftModifier);
    script.Key(Qt::Key_Down, Qt::ShiftModifier);
    script.Key(Qt::Key_C, Qt::ControlModifier);
    const QString copied = "\"a \"\"b\"\"\"\t0.30000000000000004\tTRUE\tFee\t3\t1000000000000000000000\n"
                           "Agent\t12.3456\tTRUE\t\t1\t24.6912";
    EXPECT_EQ(QApplication::clipboard()->text(), copied);
    script.Grid.FocusRecord(2, 0);
    script.Key(Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(costs.List().size(), 4U);
    EXPECT_EQ(costs.Cost(2).Name, "a \"b\"");
    EXPECT_EQ(costs.Cost(2).Amount, 0.1 + 0.2);
    EXPECT_TRUE(costs.Cost(2).Percentage);
    EXPECT_EQ(costs.Cost(3).Amount, 12.3456);
    EXPECT_EQ(script.Shown(2, 5), "1") << "the value is computed, not pasted";

    script.Grid.Bridge().OnEditing = [](int record, int column) { return record != 1 || column != 1; };
    costs.Log.clear();
    script.Grid.FocusRecord(0, 1);
    script.Key(Qt::Key_Down, Qt::ShiftModifier);
    script.Key(Qt::Key_Down, Qt::ShiftModifier);
    QApplication::clipboard()->setText("1,000\r\n");
    script.Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(costs.Cost(0).Amount, 1000);
    EXPECT_EQ(costs.Cost(1).Amount, 12.3456) << "may not be edited";
    EXPECT_EQ(costs.Cost(2).Amount, 1000) << "a lone value fills the block";
    EXPECT_EQ(costs.TakeLog(), "set set change pass ");
    QApplication::clipboard()->setText("many\t2\tWorks\t999");
    script.Key(Qt::Key_Home, Qt::ControlModifier);
    script.Key(Qt::Key_Right);
    script.Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(costs.Cost(0).Amount, 1000) << "no digits";
    EXPECT_TRUE(costs.Cost(0).Percentage);
    EXPECT_EQ(costs.Cost(0).Start, 120) << "within its bounds, as when typed";
}

TEST(DataGrid, DeleteWritesNothingRatherThanZero) {
    TGridScript script;
    TCosts& costs = script.Costs;
    costs.Cost(0).Start = 7;
    script.Grid.Bridge().ChangeColumn(3, [](TGridColumn& column) { column.Clearable = false; });
    costs.Cost(0).Kind = "Fee";
    script.Grid.Bridge().OnEditing = [](int record, int column) { return record != 1 || column != 0; };
    script.Grid.FocusRecord(0, 0);
    script.Key(Qt::Key_End, Qt::ControlModifier | Qt::ShiftModifier);
    script.Key(Qt::Key_Delete);
    EXPECT_EQ(costs.TakeLog(), "set set set set set set set change pass ");
    EXPECT_EQ(costs.Cost(0).Name, "");
    EXPECT_EQ(costs.Cost(0).Amount, -1) << "the source was handed nothing";
    EXPECT_EQ(costs.Cost(0).Kind, "Fee");
    EXPECT_EQ(costs.Cost(0).Start, 1) << "a spin stays within its bounds";
    EXPECT_EQ(costs.Cost(1).Name, "Agent") << "may not be edited";
    EXPECT_EQ(costs.List().size(), 2U);
    script.Grid.SetDeleteClears(false);
    script.Key(Qt::Key_Delete);
    EXPECT_EQ(costs.TakeLog(), "");
}

TEST(DataGrid, DataChangedKeepsThePlaceAndDropsTheEditor) {
    TGridScript script;
    TCosts& costs = script.Costs;
    for (int i = 0; i < 60; ++i) {
        costs.List().push_back(std::make_unique<TCost>(TCost{"Cost " + std::to_string(i)}));
    }
    costs.DataChanged();
    script.Grid.FocusRecord(40, 1);
    const int scrolled = script.Grid.verticalScrollBar()->value() - 30;
    script.Grid.verticalScrollBar()->setValue(scrolled);
    OpenEditor(script.Grid, 40, 1)->setText("99");
    costs.InsertRecord(10);
    EXPECT_EQ(script.Where(), "41,1") << "the record's place has moved";
    EXPECT_EQ(script.Grid.verticalScrollBar()->value(), scrolled);
    EXPECT_FALSE(script.Grid.IsEditing());
    EXPECT_TRUE(script.Grid.hasFocus());
    EXPECT_EQ(costs.Cost(41).Amount, 0);
    EXPECT_EQ(costs.TakeLog(), "");
    costs.DeleteRecord(41);
    EXPECT_EQ(script.Where(), "41,1");
    script.Grid.FocusRecord(script.Grid.model()->rowCount() - 1, 0);
    costs.List().resize(5);
    costs.DataChanged();
    EXPECT_EQ(script.Where(), "5,0") << "the row for new records";
    // The owner may read the list afresh in the middle of an edit.
    costs.OnChange = [&] { costs.DataChanged(); };
    TypeInto(script.Grid, 2, 1, "8");
    EXPECT_EQ(costs.Cost(2).Amount, 8);
    EXPECT_EQ(script.Where(), "3,1");
    TypeInto(script.Grid, 5, 0, "New", Qt::Key_Tab);
    EXPECT_EQ(costs.Cost(5).Name, "New");
    QApplication::clipboard()->setText("1\n2");
    script.Grid.FocusRecord(0, 1);
    script.Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(costs.Cost(1).Amount, 2);
}

TEST(DataGrid, TheFooterHidesNoRow) {
    TGridScript script;
    for (int i = 0; i < 60; ++i) {
        script.Costs.List().push_back(std::make_unique<TCost>(TCost{"Cost", 1}));
    }
    script.Costs.DataChanged();
    script.Grid.SetFooter(5, ",0");
    for (const QSize& size : {QSize(600, 300), QSize(300, 200), QSize(600, 2000), QSize(600, 150)}) {
        script.Grid.resize(size);
        QCoreApplication::processEvents();
        script.Grid.FocusRecord(62, 0);
        script.Costs.DataChanged();
        QCoreApplication::processEvents();
        const QRect cell = script.Grid.visualRect(script.Grid.currentIndex());
        EXPECT_TRUE(script.Grid.viewport()->rect().contains(cell.bottomLeft())) << size.height();
        const QWidget* const footer = script.Grid.findChild<QLabel*>("lblFooter")->parentWidget();
        EXPECT_TRUE(script.Grid.rect().contains(footer->geometry()));
        EXPECT_FALSE(script.Grid.viewport()->geometry().intersects(footer->geometry()));
    }
}

TEST(DataGrid, AButtonsEditorMayOpenADialog) {
    TGridScript script;
    script.Grid.Bridge().ChangeColumn(0, [&](TGridColumn& column) {
        column.Editor = TlotEditor::TextButton;
        column.ButtonHint = "Expression Builder";
        column.OnButton = [&](const QString& text) {
            QDialog dialog(&script.Grid);
            QLineEdit field(&dialog);
            QTimer::singleShot(0, &dialog, &QDialog::accept);
            return dialog.exec() == QDialog::Accepted ? text + "+SITEVALUE" : QString();
        };
    });
    OpenEditor(script.Grid, 0, 0);
    auto* const editor = qobject_cast<TButtonEdit*>(script.Grid.indexWidget(script.Grid.currentIndex()));
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->actions().first()->toolTip(), "Expression Builder (Alt+Down)");
    QTest::keyClick(editor, Qt::Key_Down, Qt::AltModifier);
    EXPECT_TRUE(script.Grid.IsEditing()) << "still open, with the new text";
    EXPECT_EQ(script.Costs.Cost(0).Name, "Legal");
    QTest::keyClick(editor, Qt::Key_Return);
    EXPECT_EQ(script.Costs.Cost(0).Name, "Legal+SITEVALUE");
    // The list may change behind that dialog, whose loop is long enough for the editor to go.
    script.Grid.Bridge().ChangeColumn(0, [&](TGridColumn& column) {
        column.OnButton = [&](const QString& text) {
            script.Costs.DataChanged();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            return text + "+PROFIT";
        };
    });
    const QPointer<QLineEdit> dropped = OpenEditor(script.Grid, 0, 0);
    dropped->actions().first()->trigger();
    EXPECT_TRUE(dropped.isNull());
    EXPECT_FALSE(script.Grid.IsEditing());
    EXPECT_EQ(script.Costs.Cost(0).Name, "Legal+SITEVALUE");
}

TEST(DataGrid, CellsShowWhatDoesNotApplyAndRefuseIt) {
    TGridScript script;
    TGridBridge& bridge = script.Grid.Bridge();
    bridge.OnLook = [](int record) { return TGridRowLook{.Red = record == 0}; };
    bridge.OnCellLook = [](int record, int column) {
        return TGridCellLook{.Grey = column == 1, .Tinted = record == 1 && column == 0};
    };
    bridge.OnEditing = [](int, int column) { return column != 1 && column != 2; };
    const auto colour = [&](int row, int column, int role) {
        return bridge.index(row, column).data(role).value<QBrush>().color();
    };
    EXPECT_EQ(colour(0, 0, Qt::ForegroundRole), colour::Missing());
    EXPECT_EQ(colour(0, 1, Qt::ForegroundRole), colour::NotApplying()) << "a cell's look is over its record's";
    EXPECT_EQ(colour(1, 0, Qt::BackgroundRole), colour::Tinted());
    script.Grid.FocusRecord(0, 1);
    for (const Qt::Key key : {Qt::Key_5, Qt::Key_F2, Qt::Key_Delete}) {
        script.Key(key);
        EXPECT_FALSE(script.Grid.IsEditing());
    }
    script.Grid.FocusRecord(0, 2);
    script.Key(Qt::Key_Space);
    EXPECT_EQ(script.Costs.TakeLog(), "");
    EXPECT_EQ(script.Where(), "0,2") << "a refused key leads nowhere";
}

TEST(DataGrid, BandsFollowTheirColumns) {
    TGridScript script;
    const auto& header = dynamic_cast<const TGridHeader&>(*script.Grid.horizontalHeader());
    EXPECT_EQ(header.BandRect(0), header.BandRect(2));
    EXPECT_TRUE(header.BandRect(5).isEmpty());
    const QRect before = header.BandRect(3);
    script.Grid.setColumnWidth(4, 90);
    EXPECT_EQ(header.BandRect(3).width(), before.width() + 30);
    script.Grid.setColumnHidden(3, true);
    EXPECT_EQ(header.BandRect(4).width(), 90);
    EXPECT_EQ(header.height(), 2 * header.BandRect(0).height());
}

TEST(DataGrid, AnswersAccessibility) {
    TGridScript script;
    script.Costs.Cost(0).Percentage = false;
    QAccessibleInterface* const grid = QAccessible::queryAccessibleInterface(&script.Grid);
    QAccessibleTableInterface* const table = grid->tableInterface();
    ASSERT_NE(table, nullptr);
    QString heads;
    for (int i = 0; i < grid->childCount(); ++i) {
        if (grid->child(i)->role() == QAccessible::ColumnHeader) {
            heads += grid->child(i)->text(QAccessible::Name) + "|";
        }
    }
    EXPECT_EQ(heads, "Basis: Name|Basis: Amount|Basis: %|Timing: Kind|Timing: Start|Value|");
    EXPECT_EQ(table->rowCount(), 3);
    EXPECT_EQ(table->cellAt(0, 1)->text(QAccessible::Name), "100");
    EXPECT_EQ(table->cellAt(0, 2)->state().checked, 0U);
    EXPECT_EQ(table->cellAt(1, 2)->state().checked, 1U);
    EXPECT_EQ(table->cellAt(2, 3)->text(QAccessible::Name), "Click here to add new row");
    EXPECT_EQ(OpenEditor(script.Grid, 0, 1)->accessibleName(), "Amount");
}

} // namespace
