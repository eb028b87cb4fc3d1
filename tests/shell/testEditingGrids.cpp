// SPDX-License-Identifier: GPL-3.0-or-later
//
// The model's own lists in real grids, with the project's real pass behind them; and everything that shows the project
// after something of it was deleted, before the next pass. The sanitizers watch.
#include "app/lotFailures.h"
#include "editing/lotAccountCodeSources.h"
#include "editing/lotLoanSource.h"
#include "sensitivity/lotSAModel.h"
#include "shell/frmMain.h"
#include "support/lotDesktopScript.h"
#include "support/lotTestProject.h"
#include "widgets/lotMasterDetailGrid.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QLineEdit>
#include <QTest>
#include <functional>

namespace {

/// A grid's columns as a source tells them: figures by their masks, flags as check boxes.
template <class Source> std::vector<TGridColumn> ColumnsOf(Source& source) {
    std::vector<TGridColumn> columns;
    for (int i = 0; i < static_cast<int>(source.Columns().size()); ++i) {
        const auto& told = source.Columns()[static_cast<std::size_t>(i)];
        TGridColumn column{.Caption = QString::fromUtf8(told.Name.data(), static_cast<qsizetype>(told.Name.size())),
                           .Mask = std::string(told.Mask)};
        const bool flag = source.GetRecordCount() > 0 && std::holds_alternative<bool>(source.GetValue(0, i));
        column.Editor = told.Set == nullptr ? TlotEditor::ReadOnly
                        : flag              ? TlotEditor::CheckBox
                        : told.Mask.empty() ? TlotEditor::Text
                                            : TlotEditor::Number;
        columns.push_back(std::move(column));
    }
    return columns;
}

void Type(TDataGrid& grid, int row, int column, const QString& text) {
    grid.setFocus();
    grid.setCurrentIndex(grid.model()->index(row, column));
    QTest::keyClick(&grid, Qt::Key_F2);
    auto* const editor = qobject_cast<QLineEdit*>(grid.indexWidget(grid.currentIndex()));
    ASSERT_NE(editor, nullptr);
    editor->selectAll();
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
}

class EditingGrids : public testing::Test {
protected:
    EditingGrids() : FFailures(FScript.User) {}

    TlotProject& Project() { return FScript.Project(); }
    /// Paints twice, with what waits in between.
    std::string ToldAfterPainting(QWidget& widget) {
        for (int i = 0; i < 2; ++i) {
            widget.grab();
            QCoreApplication::processEvents();
        }
        return FScript.User.TakeTold();
    }

    TDesktopScript FScript;
    TFailureMessages FFailures;
};

TEST_F(EditingGrids, ALoanWhosePassThrowsIsToldOnceAndMendedStepByStep) {
    FScript.Data.BuildTestProject();
    DeleteUnits(Project());
    while (Project().Funding.Loans.Count() > 0) {
        Project().DeleteLoan(0);
    }
    AddUnit(Project(), "Residential", 1, 50'000).SalesLine.Period = 6;
    TlotLoan& loan = Project().Funding.Loans.Add();
    loan.LoanType = TlotLoanType::Cash;
    loan.Period = 2;
    TlotLoanDataSource source(FScript.Data);
    TDataGrid grid(source, ColumnsOf(source), PointLocale);
    const QAbstractItemModelTester tester(&grid.Bridge(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    grid.resize(900, 200);
    grid.show();
    EXPECT_EQ(ToldAfterPainting(grid), "");
    const int period = static_cast<int>(TlotLoanField::Period);
    Type(grid, 0, period, "1"); // A loan of one month that begins in the first has no month before it.
    EXPECT_EQ(ToldAfterPainting(grid), "E: Range check error|");
    EXPECT_EQ(loan.Period, 1) << "the edit stays";
    EXPECT_EQ(grid.model()->index(0, period).data().toString(), "1");
    EXPECT_EQ(ToldAfterPainting(grid), "") << "painting doesn't ask again";
    Type(grid, 0, static_cast<int>(TlotLoanField::Amount), "1000");
    EXPECT_EQ(ToldAfterPainting(grid), "E: Range check error|") << "each edit computes, and says so";
    EXPECT_EQ(loan.Amount, 1000);
    Type(grid, 0, static_cast<int>(TlotLoanField::Start), "2");
    EXPECT_EQ(ToldAfterPainting(grid), "");
    EXPECT_EQ(loan.Start, 1);
}

TEST_F(EditingGrids, CostsFollowWhatIsTypedInAnyOfThem) {
    FScript.Data.ClearProject();
    AddUnit(Project(), "Residential", 1, 50'000);
    TlotSection& fees = AddSection(Project(), "Fees v1.2", "Costs");
    AddItem(fees, "Works", 1000);
    AddItem(AddSection(Project(), "\"Sales\"", "Costs"), "Agent", 10, "GROUP");
    FScript.Data.Recalculate();
    TlotSectionDataSource sections(FScript.Data);
    TlotItemDataSource items(FScript.Data);
    int changes = 0;
    items.OnChange = [&] { ++changes; };
    items.MasterRecord = 0;
    TMasterDetailGrid grid(sections, items, ColumnsOf(items), PointLocale, "Click here to add new row");
    grid.SetFooter(TlotItemDataSource::Value, ",0");
    grid.SetDeleteClears(false);
    grid.resize(700, 400);
    grid.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&grid));
    Type(grid.Detail(0), 0, TlotItemDataSource::Amount, "2500");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(grid.Detail(1).model()->index(0, TlotItemDataSource::Value).data().toString(), "250")
        << "a cost of another section hangs on it";
    QTest::keyClick(&grid.Detail(0), Qt::Key_Delete);
    EXPECT_EQ(fees.Items[0].Amount.Value, 2500) << "costs aren't emptied by the key";
    Project().DeleteSection(0);
    sections.DataChanged();
    items.DataChanged();
    EXPECT_EQ(grid.MasterCount(), 1);
    EXPECT_EQ(ToldAfterPainting(grid), "");
}

TEST_F(EditingGrids, DeletionLeavesEveryViewAndSheetReadable) {
    const std::function<void(TlotProject&)> deletions[] = {
        [](TlotProject& p) { p.DeleteUnit(0); },
        [](TlotProject& p) { p.DeleteSection(0); },
        [](TlotProject& p) { p.DeleteItem(p.Sections[0], 0); },
        [](TlotProject& p) { p.DeleteLoan(0); },
        [](TlotProject& p) { p.Units[0].Areas.Clear(); },
        [](TlotProject& p) { p.UnitTypes.Delete(0); },
        [](TlotProject& p) { p.Clear(TestToday); },
    };
    TMainForm form(FScript.Desktop);
    form.FormCreate();
    form.show();
    for (const auto& deletion : deletions) {
        TRandom random(3);
        FScript.Data.ClearProject();
        RandomProject(random, Project());
        AddItem(AddSection(Project(), "Fees v1.2", "Costs"), "Architect", 10, "BUILD");
        Project().Sections[0].Items.Add().Name = "Last";
        Project().Funding.Loans.Add().Name = "\"Bank\"";
        TlotSectionDataSource sections(FScript.Data);
        TlotItemDataSource items(FScript.Data);
        TlotUnitDataSource units(FScript.Data);
        TlotLoanDataSource loans(FScript.Data);
        TlotUnitAccountCodeDataSource codes(FScript.Data);
        items.MasterRecord = 0;
        TMasterDetailGrid costs(sections, items, ColumnsOf(items), PointLocale, {});
        TDataGrid unitGrid(units, ColumnsOf(units), PointLocale);
        TDataGrid loanGrid(loans, ColumnsOf(loans), PointLocale);
        TDataGrid codeGrid(codes, ColumnsOf(codes), PointLocale);
        form.RefreshAll();
        const int costCategory = FScript.Data.SAModelNew().Categories.IndexOf("Costs");
        FScript.Data.SAModelNew().Categories[costCategory].Prepare();

        deletion(Project());
        // What a screen does that deletes without recalculating: everything in sight is read as it stands.
        for (TlotCustomDataSource* const source :
             std::initializer_list<TlotCustomDataSource*>{&sections, &items, &units, &loans, &codes}) {
            source->DataChanged();
        }
        for (TViewForm* const view : form.Views().Views()) {
            view->Refresh();
        }
        FScript.Data.BuildReportTables(TlotReportKind::Appraisal);
        const TSACategory& category = FScript.Data.SAModelNew().Categories[costCategory];
        for (int i = 0; i < category.Count(); ++i) {
            static_cast<void>(category.ItemName(i) + category.ItemValue(i, PointLocale));
        }
        for (QWidget* const grid : std::initializer_list<QWidget*>{&costs, &unitGrid, &loanGrid, &codeGrid}) {
            EXPECT_EQ(ToldAfterPainting(*grid), "");
        }
        EXPECT_EQ(ToldAfterPainting(form), "");
        form.Action(TlotAction::ViewCashflow).trigger();
        EXPECT_EQ(ToldAfterPainting(form), "");
    }
}

} // namespace
