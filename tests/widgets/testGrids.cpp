// SPDX-License-Identifier: GPL-3.0-or-later
//
// The navigation column, cards, charts and the number field: keys and clicks in, what they did out.
#include "support/lotFiles.h"
#include "widgets/lotCardList.h"
#include "widgets/lotNavigationColumn.h"
#include "widgets/lotNumberEdit.h"
#include "widgets/lotPieChart.h"
#include "widgets/lotSeriesCharts.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QTest>

namespace {

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
