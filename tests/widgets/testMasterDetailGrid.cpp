// SPDX-License-Identifier: GPL-3.0-or-later
//
// Costs under their sections: one grid of two levels.
#include "support/lotGridScript.h"
#include "widgets/lotMasterDetailGrid.h"

#include <QLabel>
#include <QScrollBar>
#include <QToolButton>

namespace {

class MasterDetailGrid : public testing::Test {
protected:
    MasterDetailGrid() {
        FCosts.Detail = true;
        FGrid.SetFooter(5, ",0");
        FGrid.resize(600, 260);
        FGrid.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&FGrid));
    }
    [[nodiscard]] int Rows(int master) const { return FGrid.Detail(master).model()->rowCount(); }
    [[nodiscard]] QString Footer(int master) const {
        return FGrid.Detail(master).findChild<QLabel*>("lblFooter")->text();
    }
    [[nodiscard]] QToolButton* Label(int master) const {
        return FGrid.findChild<QToolButton*>(QString("btnMaster%1").arg(master));
    }
    /// "master,record" of the focus, after a key.
    std::string After(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
        return std::to_string(FGrid.FocusedMaster()) + "," + std::to_string(FGrid.FocusedRecord());
    }

    TToldMessages FTold;
    TCosts FCosts;
    TSections FSections{FCosts};
    TMasterDetailGrid FGrid{FSections, FCosts, CostColumns(FCosts), PointLocale, "Click here to add new row"};
};

TEST_F(MasterDetailGrid, EachMasterHasItsDetailsAndOneEditRefreshesAll) {
    ASSERT_EQ(FGrid.MasterCount(), 3);
    EXPECT_EQ(Rows(0), 3);
    EXPECT_EQ(Rows(1), 2);
    EXPECT_EQ(Rows(2), 1);
    EXPECT_EQ(Footer(1), "10,000");
    FCosts.OnChange = [&] { FCosts.Sections[1]->front()->Amount = 7000; }; // One section's figure hangs on another's.
    TypeInto(FGrid.Detail(0), 0, 1, "300");
    EXPECT_EQ(Footer(1), "14,000");
    EXPECT_EQ(FGrid.FocusedMaster(), 0);
    TypeInto(FGrid.Detail(2), 0, 0, "First of its section");
    EXPECT_EQ(FCosts.Sections[2]->size(), 1U);
    EXPECT_EQ(FCosts.Sections[0]->size(), 2U);
    EXPECT_EQ(FTold.Take(), "");
}

TEST_F(MasterDetailGrid, FoldingAndFocusFollowTheMasters) {
    FGrid.SetExpanded(1, false);
    FGrid.FocusRecord(0, 1, 1);
    const TDataGrid* const detail = &FGrid.Detail(0);
    QLineEdit* const editor = OpenEditor(FGrid.Detail(0), 1, 1);
    editor->setText("99");
    FSections.InsertRecord(0);
    EXPECT_FALSE(FGrid.Detail(0).IsEditing() || FGrid.Detail(1).IsEditing());
    EXPECT_EQ(FCosts.Sections[1]->at(1)->Amount, 12.3456) << "dropped, not posted";
    EXPECT_EQ(&FGrid.Detail(1), detail);
    EXPECT_EQ(Label(1)->text(), "Section 1");
    EXPECT_FALSE(FGrid.IsExpanded(2));
    EXPECT_TRUE(FGrid.IsExpanded(1));
    EXPECT_EQ(FGrid.FocusedMaster(), 1);
    EXPECT_EQ(FGrid.FocusedRecord(), 1);
    std::swap(FCosts.Sections[1], FCosts.Sections[2]);
    FSections.DataChanged();
    EXPECT_FALSE(FGrid.IsExpanded(1));
    EXPECT_EQ(FGrid.FocusedMaster(), 2);
    QCoreApplication::processEvents();
    EXPECT_LT(Label(1)->y(), Label(2)->y()) << "on screen too";
    EXPECT_LT(Label(2)->y(), FGrid.Detail(2).parentWidget()->y());
    FCosts.DataChanged();
    EXPECT_EQ(FGrid.FocusedRecord(), 1);
    FSections.DeleteRecord(2);
    EXPECT_EQ(FGrid.MasterCount(), 3);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    FGrid.grab();
    // The list of masters may be shorter before anybody says so.
    FCosts.Sections.pop_back();
    FCosts.DataChanged();
    EXPECT_EQ(FGrid.MasterCount(), 2);
    FGrid.grab();
    QCoreApplication::processEvents();
    EXPECT_EQ(FTold.Take(), "");
}

TEST_F(MasterDetailGrid, ArrowsAndEnterGoOnInTheNextDetail) {
    FGrid.FocusRecord(0, 1, 1);
    EXPECT_EQ(After(Qt::Key_Down), "0,-1") << "the row for new records";
    EXPECT_EQ(After(Qt::Key_Down), "1,0");
    EXPECT_EQ(FGrid.Detail(1).currentIndex().column(), 1);
    EXPECT_TRUE(FGrid.Detail(0).selectionModel()->selection().isEmpty()) << "one selection";
    EXPECT_EQ(After(Qt::Key_Up), "0,-1");
    FGrid.SetExpanded(1, false);
    EXPECT_EQ(After(Qt::Key_Return), "2,-1") << "past the one that is folded";
    EXPECT_EQ(After(Qt::Key_Down), "2,-1");
    EXPECT_EQ(After(Qt::Key_Up), "0,-1");
}

TEST_F(MasterDetailGrid, LabelsShowNamesLetterForLetter) {
    FSections.Caption = "Fees & \"Co.\" ";
    FSections.DataChanged();
    EXPECT_EQ(Label(0)->text(), "Fees && \"Co.\" 0") << "one alone would underline the letter behind it";
    EXPECT_EQ(FGrid.Detail(0).accessibleName(), "Fees & \"Co.\" 0");
}

TEST_F(MasterDetailGrid, LabelsFoldByKeysAndTakeTheFocusInTurn) {
    FGrid.FocusRecord(0, 0, 0);
    After(Qt::Key_Backtab, Qt::ShiftModifier);
    ASSERT_TRUE(Label(0)->hasFocus());
    After(Qt::Key_Left);
    EXPECT_FALSE(FGrid.IsExpanded(0));
    EXPECT_EQ(Label(0)->accessibleDescription(), "collapsed");
    After(Qt::Key_Down);
    EXPECT_TRUE(Label(1)->hasFocus());
    After(Qt::Key_Up);
    After(Qt::Key_Right);
    EXPECT_TRUE(FGrid.IsExpanded(0));
    EXPECT_EQ(After(Qt::Key_Down), "0,0");
    FGrid.SetExpanded(0, false);
    EXPECT_TRUE(Label(0)->hasFocus()) << "the focus stays in sight";
    After(Qt::Key_Return);
    EXPECT_TRUE(FGrid.IsExpanded(0));
}

TEST_F(MasterDetailGrid, ADetailMayGoInTheMiddleOfItsOwnKey) {
    FGrid.OnDelete = [&](int master, int) { FSections.DeleteRecord(master); };
    FGrid.FocusRecord(0, 1, 1);
    OpenEditor(FGrid.Detail(0), 1, 1)->setText("99");
    QTest::keyClick(&FGrid.Detail(0), Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(FGrid.MasterCount(), 2);
    EXPECT_EQ(FGrid.FocusedMaster(), 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    // A grid that goes with its editor open posts nothing.
    {
        TCosts costs;
        costs.Detail = true;
        TSections sections(costs);
        TMasterDetailGrid grid(sections, costs, CostColumns(costs), PointLocale, "New");
        grid.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&grid));
        OpenEditor(grid.Detail(1), 0, 1)->setText("99");
        EXPECT_TRUE(grid.Detail(1).IsEditing());
    }
    EXPECT_EQ(FTold.Take(), "");
}

TEST_F(MasterDetailGrid, ThePageScrollsWithTheFocusAndKeepsItsPlace) {
    for (int i = 0; i < 40; ++i) {
        FCosts.Sections[1]->push_back(std::make_unique<TCost>(TCost{"Cost", 1}));
    }
    FCosts.DataChanged();
    FGrid.FocusRecord(1, 30, 0);
    const TDataGrid& detail = FGrid.Detail(1);
    const QPoint cell = detail.viewport()->mapTo(FGrid.viewport(), detail.visualRect(detail.currentIndex()).center());
    EXPECT_TRUE(FGrid.viewport()->rect().contains(cell));
    const int scrolled = FGrid.verticalScrollBar()->value();
    EXPECT_GT(scrolled, 0);
    for (const int place : {scrolled, 0}) { // The focused cell may be out of sight.
        FGrid.verticalScrollBar()->setValue(place);
        FCosts.DataChanged();
        FSections.DataChanged();
        QCoreApplication::processEvents();
        EXPECT_EQ(FGrid.verticalScrollBar()->value(), place);
    }
    EXPECT_EQ(FGrid.FocusedRecord(), 30);
}

} // namespace
