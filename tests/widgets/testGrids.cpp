// SPDX-License-Identifier: GPL-3.0-or-later
//
// Grids over data sources, and the other widgets of lists: keys and clicks in, the source out.
#include "support/lotFiles.h"
#include "widgets/lotCardList.h"
#include "widgets/lotMasterDetailGrid.h"
#include "widgets/lotNavigationColumn.h"
#include "widgets/lotNumberEdit.h"
#include "widgets/lotPieChart.h"
#include "widgets/lotSeriesCharts.h"

#include <QAbstractButton>
#include <QAbstractItemModelTester>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QTest>

namespace {

struct TCost {
    std::string Name;
    double Amount = 0;
    bool Percentage = false;
};

/// Costs in sections; without a master, those of the first.
class TCosts final : public TlotCustomDataSource {
public:
    std::vector<std::vector<TCost>> Sections{{{"Legal", 100}, {"Agent", 12.3456, true}}, {{"Roads", 5000}}, {}};

    int AppendRecord() override {
        List().emplace_back();
        DataChanged();
        return GetRecordCount() - 1;
    }
    void DeleteRecord(int record) override { List().erase(List().begin() + record); }
    int GetRecordCount() override { return MasterRecord < 0 && Detail ? 0 : static_cast<int>(List().size()); }
    TlotValue GetValue(int record, int column) override {
        const TCost& cost = List().at(static_cast<std::size_t>(record));
        switch (column) {
        case 0: return cost.Name;
        case 1: return cost.Amount;
        case 2: return cost.Percentage;
        default: return 2 * cost.Amount;
        }
    }
    void InsertRecord(int record) override { List().insert(List().begin() + record, TCost{}); }
    void SetValue(int record, int column, const TlotValue& value) override {
        TCost& cost = List().at(static_cast<std::size_t>(record));
        switch (column) {
        case 0: cost.Name = AsString(value); break;
        case 1: cost.Amount = AsDouble(value); break;
        default: cost.Percentage = AsBoolean(value);
        }
        if (OnChange) {
            OnChange();
        }
    }
    bool Detail = false;

private:
    std::vector<TCost>& List() { return Sections.at(static_cast<std::size_t>(std::max(0, MasterRecord))); }
};

class TSections final : public TlotCustomDataSource {
public:
    int AppendRecord() override { return 0; }
    void DeleteRecord(int) override {}
    int GetRecordCount() override { return 3; }
    TlotValue GetValue(int record, int) override { return "Section " + std::to_string(record); }
    void InsertRecord(int) override {}
    void SetValue(int, int, const TlotValue&) override {}
};

std::vector<TGridColumn> Columns(TCosts& costs) {
    std::vector<TGridColumn> columns{
        {.Caption = "Name", .Width = 0},
        {.Caption = "Amount", .Editor = TlotEditor::Number, .Mask = ",0"},
        {.Caption = "%", .Editor = TlotEditor::CheckBox, .Width = 40},
        {.Caption = "Value", .Editor = TlotEditor::ReadOnly, .Mask = ",0"},
    };
    columns[1].MaskOf = [&costs](int record) {
        return TlotCustomDataSource::AsBoolean(costs.GetValue(record, 2)) ? "0.000%" : ",0";
    };
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
    QCoreApplication::processEvents();
}

TEST(DataGrid, EditsGoStraightIntoTheSource) {
    TCosts costs;
    int changes = 0;
    costs.OnChange = [&] { ++changes; };
    TDataGrid grid(costs, Columns(costs), PointLocale, "Click here to add new row");
    const QAbstractItemModelTester tester(&grid.Bridge(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    grid.SetFooter(3, ",0");
    grid.resize(500, 300);
    grid.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&grid));
    const auto shown = [&](int row, int column) { return grid.model()->index(row, column).data().toString(); };
    EXPECT_EQ(shown(1, 1), "12.346%");
    EXPECT_EQ(shown(2, 0), "Click here to add new row");

    Type(grid, 0, 1, "1,250.50");
    EXPECT_EQ(costs.Sections[0][0].Amount, 1250.5);
    EXPECT_EQ(shown(0, 1), "1,251");
    EXPECT_EQ(grid.findChild<QLabel*>("lblFooter")->text(), "2,526");
    Type(grid, 1, 1, "12.346");
    EXPECT_EQ(costs.Sections[0][1].Amount, 12.3456) << "An untouched figure keeps its precision.";
    Type(grid, 2, 0, "Survey");
    ASSERT_EQ(costs.Sections[0].size(), 3U);
    EXPECT_EQ(costs.Sections[0][2].Name, "Survey");
    EXPECT_EQ(shown(3, 0), "Click here to add new row");
    EXPECT_TRUE(grid.model()->setData(grid.model()->index(2, 2), Qt::Checked, Qt::CheckStateRole));
    EXPECT_TRUE(costs.Sections[0][2].Percentage);
    EXPECT_FALSE(grid.model()->setData(grid.model()->index(0, 3), 5)) << "read-only";
    EXPECT_EQ(changes, 3);
}

TEST(DataGrid, KeysMoveRecordsAndNeverDeleteUnasked) {
    TCosts costs;
    TDataGrid grid(costs, Columns(costs), PointLocale);
    grid.show();
    grid.OnMove = [&](int record, int step) {
        auto& list = costs.Sections[0];
        const int to = record + step;
        if (to < 0 || to >= static_cast<int>(list.size())) {
            return false;
        }
        std::swap(list[static_cast<std::size_t>(record)], list[static_cast<std::size_t>(to)]);
        costs.DataChanged();
        return true;
    };
    grid.FocusRecord(1, 1);
    QTest::keyClick(&grid, Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(costs.Sections[0][0].Name, "Agent");
    EXPECT_EQ(grid.FocusedRecord(), 0);
    QTest::keyClick(&grid, Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(grid.FocusedRecord(), 0);
    QTest::keyClick(&grid, Qt::Key_Delete);
    EXPECT_EQ(costs.Sections[0].size(), 2U);
}

TEST(MasterDetailGrid, EachMasterHasItsDetailsAndOneEditRefreshesAll) {
    TSections sections;
    TCosts costs;
    costs.Detail = true;
    TMasterDetailGrid grid(sections, costs, Columns(costs), PointLocale, "Click here to add new row");
    grid.SetFooter(3, ",0");
    grid.resize(600, 500);
    grid.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&grid));
    ASSERT_EQ(grid.MasterCount(), 3);
    const auto rows = [&](int master) { return grid.Detail(master).model()->rowCount(); };
    EXPECT_EQ(rows(0), 3);
    EXPECT_EQ(rows(1), 2);
    EXPECT_EQ(rows(2), 1);
    const auto footer = [&](int master) { return grid.Detail(master).findChild<QLabel*>("lblFooter")->text(); };
    EXPECT_EQ(footer(1), "10,000");
    costs.OnChange = [&] { costs.Sections[1][0].Amount = 7000; }; // A figure of one section hangs on another's.
    Type(grid.Detail(0), 0, 1, "300");
    EXPECT_EQ(footer(1), "14,000");
    EXPECT_EQ(grid.FocusedMaster(), 0);
    Type(grid.Detail(2), 0, 0, "First of its section");
    EXPECT_EQ(costs.Sections[2].size(), 1U);
    EXPECT_EQ(costs.Sections[0].size(), 2U);
    grid.SetExpanded(1, false);
    EXPECT_FALSE(grid.Detail(1).isVisible());
    sections.DataChanged();
    EXPECT_FALSE(grid.Detail(1).isVisible()) << "stays folded";
    EXPECT_TRUE(grid.Detail(0).isVisible());
}

TEST(NumberEdit, TakesWhatIsTypedAndKeepsWhatIsNot) {
    struct TCase {
        const char* Mask;
        double Value;
        const char* Shown;
        const char* Editing;
        const char* Typed;
        double After;
    };
    for (const TCase& row : {TCase{",0", 1234567.89, "1,234,568", "1234568", nullptr, 1234567.89},
                             {",0", 1234567.89, "1,234,568", "1234568", "1,000", 1000},
                             {"0.000%", 12.34567, "12.346%", "12.346", nullptr, 12.34567},
                             {"0.000%", 12.34567, "12.346%", "12.346", "15%", 15},
                             {",0.00", 1.5, "1.50", "1.50", "-2.25", -2.25},
                             {",0", 7, "7", "7", "", 0},
                             {",0", 7, "7", "7", "abc", 7},
                             {",0", 7, "7", "7", "(1,200)", 1200}}) {
        QWidget window;
        TNumberEdit field(row.Mask, PointLocale, &window);
        QLineEdit other(&window);
        field.SetValue(row.Value);
        other.setFocus();
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        int left = 0;
        bool changed = false;
        QObject::connect(&field, &TNumberEdit::Left, [&](bool change) {
            ++left;
            changed = change;
        });
        EXPECT_EQ(field.text(), row.Shown);
        field.setFocus();
        EXPECT_EQ(field.text(), row.Editing);
        if (row.Typed != nullptr) {
            field.selectAll();
            QTest::keyClick(&field, Qt::Key_Delete);
            QTest::keyClicks(&field, row.Typed);
        }
        other.setFocus();
        EXPECT_EQ(field.Value(), row.After) << row.Mask << " " << (row.Typed != nullptr ? row.Typed : "untouched");
        EXPECT_EQ(left, 1);
        EXPECT_EQ(changed, row.Typed != nullptr);
    }
}

TEST(NavigationColumn, EntriesFollowTheirActions) {
    QWidget window;
    TNavigationColumn column(&window);
    QAction home("&Home");
    QAction costs("Costs");
    QAction residual("Residual...");
    for (QAction* const action : {&home, &costs, &residual}) {
        action->setObjectName(action->text().remove('&').remove("..."));
    }
    column.AddGroup("View");
    column.AddEntry(home);
    column.AddEntry(costs);
    column.AddGroup("Report");
    column.AddEntry(residual);
    column.resize(200, 400);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    std::string run;
    for (QAction* const action : {&home, &costs, &residual}) {
        QObject::connect(action, &QAction::triggered,
                         [&run, action] { run += action->objectName().toStdString() + " "; });
    }
    const auto entry = [&](const char* name) { return column.findChild<QAbstractButton*>(QString("nav") + name); };
    EXPECT_EQ(entry("Home")->text(), "Home");
    QTest::mouseClick(entry("Costs"), Qt::LeftButton);
    entry("Home")->setFocus();
    QTest::keyClick(entry("Home"), Qt::Key_Down);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down); // The next group's header,
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down); // and its entry.
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    EXPECT_EQ(run, "Costs Costs Residual ");
    costs.setVisible(false);
    home.setEnabled(false);
    EXPECT_TRUE(entry("Costs")->isHidden());
    QTest::mouseClick(entry("Home"), Qt::LeftButton);
    EXPECT_EQ(run, "Costs Costs Residual ");
}

TEST(CardList, WalksAndActsOnCards) {
    TCardList list;
    list.resize(560, 300); // Two cards side by side.
    list.show();
    std::vector<TCard> cards;
    for (int i = 0; i < 7; ++i) {
        cards.push_back({QString("Unit %1").arg(i), Qt::lightGray, {{"Net", "1"}, {"Gross", "2"}}});
    }
    list.SetCards(cards);
    std::string log;
    list.OnActivate = [&](int card) { log += "open " + std::to_string(card) + " "; };
    list.OnDelete = [&](int card) { log += "delete " + std::to_string(card) + " "; };
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Right);
    QTest::keyClick(&list, Qt::Key_Return);
    QTest::keyClick(&list, Qt::Key_End);
    QTest::keyClick(&list, Qt::Key_Delete);
    EXPECT_TRUE(list.viewport()->rect().contains(list.CardRect(6))) << "brought into view";
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, list.CardRect(4).center());
    EXPECT_EQ(log, "open 3 delete 6 open 4 ");
    list.SetCards({});
    EXPECT_EQ(list.Current(), -1);
    QTest::keyClick(&list, Qt::Key_Return);
    list.grab();
}

TEST(Charts, PieGathersWhatIsTooSmallOrTooMuch) {
    struct TCase {
        std::vector<double> Values;
        std::string Slices;
    };
    std::vector<double> many(12, 10.0);
    many[3] = 50;
    for (const TCase& row : {TCase{{}, ""},
                             {{-5, 0}, ""},
                             {{60, -5, 40}, "0=60 2=40 "},
                             {{990, 5, 5}, "0=990 Other=10 "},
                             {{995, 5}, "0=995 1=5 "},
                             {many, "3=50 Other=110 "}}) {
        std::vector<TChartValue> values;
        for (std::size_t i = 0; i < row.Values.size(); ++i) {
            values.push_back({QString::number(i), row.Values[i]});
        }
        std::string slices;
        for (const TChartValue& slice : PieSlices(values, "Other")) {
            slices += slice.Name.toStdString() + "=" + std::to_string(static_cast<int>(slice.Value)) + " ";
        }
        EXPECT_EQ(slices, row.Slices);
    }
}

TEST(Charts, RedrawWithOtherFiguresAndWithNone) {
    TBarChart bars;
    bars.resize(400, 300);
    const std::vector<TChartValue> months{{"Jan", 5}, {"Jan", -3}, {"Mar", 0}};
    bars.SetBars(months);
    const QImage before = bars.grab().toImage();
    bars.SetBars({});
    EXPECT_NE(bars.grab().toImage(), before);
    TLineChart lines;
    lines.resize(400, 300);
    const std::vector<QString> names{"1", "2"};
    const std::vector<TChartLine> values{{"A", {1, 2}}, {"B", {0, 0}}};
    lines.SetLines(names, values);
    lines.SetLines(names, values);
    EXPECT_FALSE(lines.grab().isNull());
}

} // namespace
