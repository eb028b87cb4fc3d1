// SPDX-License-Identifier: GPL-3.0-or-later
//
// What data sources and hooks of grids throw: told once, with everything that has to happen all the same.
#include "support/lotGridScript.h"
#include "widgets/lotMasterDetailGrid.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPointer>
#include <optional>
#include <stdexcept>

namespace {

TEST(GridHooks, EachIsToldOnceAndLeavesTheGridUsable) {
    struct TCase {
        const char* Hook;
        std::function<void(TGridScript&)> Act;
        double Amount = 100; ///< Of the first record, afterwards.
    };
    const auto type = [](TGridScript& script) { TypeInto(script.Grid, 0, 1, "250"); };
    const auto reload = [](TGridScript& script) { script.Costs.DataChanged(); };
    const auto press = [](int key, Qt::KeyboardModifiers modifiers) {
        return [key, modifiers](TGridScript& script) {
            script.Grid.FocusRecord(0, 3);
            script.Key(key, modifiers);
        };
    };
    for (const TCase& row : {
             TCase{"GetValue", reload},
             {"GetRecordCount", reload},
             {"RecordKey", reload},
             {"MaskOf", reload},
             {"OnLook", reload},
             {"OnCellLook", reload},
             {"OnEditing", reload},
             {"ChoicesOf", press(Qt::Key_F2, {})},
             {"SetValue", type},
             {"OnChange", type, 250},
             {"Settle", type, 250},
             {"AppendRecord", [](TGridScript& script) { TypeInto(script.Grid, 2, 0, "Survey"); }},
             {"OnChosen",
              [](TGridScript& script) { script.Grid.Bridge().Choose(script.Grid.model()->index(0, 3), 0); }},
             {"OnMove", press(Qt::Key_Down, Qt::ControlModifier)},
             {"OnDelete", press(Qt::Key_Delete, Qt::ControlModifier)},
             {"OnContextMenu",
              [](TGridScript& script) {
                  QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
                  QApplication::sendEvent(&script.Grid, &event);
              }},
             {"OnButton",
              [](TGridScript& script) {
                  script.Grid.FocusRecord(0, 0);
                  script.Key(Qt::Key_Down, Qt::AltModifier);
              }},
         }) {
        TGridScript script;
        TCosts& costs = script.Costs;
        TGridBridge& bridge = script.Grid.Bridge();
        bridge.OnLook = [&](int) { return costs.Reach("OnLook"), TGridRowLook{}; };
        bridge.OnCellLook = [&](int, int) { return costs.Reach("OnCellLook"), TGridCellLook{}; };
        bridge.OnEditing = [&](int, int) { return costs.Reach("OnEditing"), true; };
        bridge.ChangeColumn(0, [&](TGridColumn& column) {
            column.Editor = TlotEditor::TextButton;
            column.OnButton = [&](const QString& text) { return costs.Reach("OnButton"), text; };
        });
        bridge.ChangeColumn(3, [&](TGridColumn& column) {
            column.ChoicesOf = [&] { return costs.Reach("ChoicesOf"), QStringList{"Fee"}; };
            column.OnChosen = [&](int, int) { costs.Reach("OnChosen"); };
        });
        script.Grid.OnMove = [&](int, int) { return costs.Reach("OnMove"), true; };
        script.Grid.OnDelete = [&](int) { costs.Reach("OnDelete"); };
        script.Grid.OnContextMenu = [&](const QPoint&) { costs.Reach("OnContextMenu"); };
        EXPECT_EQ(script.ToldAfterPainting(), "");

        costs.Failing = {row.Hook};
        row.Act(script);
        EXPECT_EQ(script.ToldAfterPainting(), row.Hook + std::string("|"));
        EXPECT_EQ(costs.Cost(0).Amount, row.Amount) << row.Hook;
        EXPECT_EQ(costs.List().size(), 2U) << row.Hook;
        costs.Failing.clear();
        script.Grid.Post();
        costs.DataChanged();
        TypeInto(script.Grid, 0, 1, "7");
        EXPECT_EQ(costs.Cost(0).Amount, 7) << row.Hook;
        EXPECT_EQ(script.ToldAfterPainting(), "") << row.Hook;
    }
}

TEST(GridHooks, APassThatFailsAfterEachEditKeepsTheEditsAndIsToldLast) {
    TGridScript script;
    TCosts& costs = script.Costs;
    costs.Failing = {"Settle"};
    std::string toldAt;
    QObject::connect(&script.Grid.Bridge(), &QAbstractItemModel::dataChanged,
                     [&] { toldAt += script.Told.Take() + "view "; });
    const auto painted = [&] {
        script.Grid.grab();
        return costs.TakeLog();
    };
    TypeInto(script.Grid, 0, 1, "250");
    EXPECT_EQ(painted(), "set change pass ") << "and painting runs no pass";
    EXPECT_EQ(toldAt, "view ") << "the box comes after the view";
    EXPECT_EQ(script.ToldAfterPainting(), "Settle|");
    EXPECT_EQ(script.Shown(0, 1), "250");
    EXPECT_EQ(script.Shown(0, 5), "200") << "the figure of the last pass";

    TypeInto(script.Grid, 2, 0, "Survey");
    EXPECT_EQ(painted(), "append set change pass ");
    EXPECT_EQ(script.ToldAfterPainting(), "Settle|");
    EXPECT_EQ(costs.List().size(), 3U);

    QApplication::clipboard()->setText("A\t1\nB\t2\nC\t3\nD\t4");
    script.Grid.FocusRecord(0, 0);
    script.Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(painted(), "set set set set set set append set set change pass ") << "one change, one pass";
    EXPECT_EQ(script.ToldAfterPainting(), "Settle|");

    OpenEditor(script.Grid, 1, 1)->setText("77");
    script.Grid.Post();
    EXPECT_FALSE(script.Grid.IsEditing());
    EXPECT_EQ(script.ToldAfterPainting(), "Settle|");
    costs.Failing.clear();
    TypeInto(script.Grid, 0, 1, "5");
    EXPECT_EQ(script.Shown(1, 5), "154") << "mended";
    EXPECT_EQ(script.ToldAfterPainting(), "");
}

TEST(GridHooks, WhatIsRefusedInABlockLeavesTheRestAndIsToldOnce) {
    TGridScript script;
    script.Costs.Failing = {"SetValue"};
    QApplication::clipboard()->setText("A\t1\nB\t2\nC\t3");
    script.Grid.FocusRecord(0, 0);
    script.Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(script.ToldAfterPainting(), "SetValue|");
    EXPECT_EQ(script.Costs.List().size(), 2U) << "no bare record";
    EXPECT_EQ(script.Shown(0, 0), "Legal");
    // Losing the focus posts too; no box opens while the focus is on its way.
    QLineEdit elsewhere;
    elsewhere.show();
    OpenEditor(script.Grid, 0, 0)->setText("Lawyer");
    script.Grid.indexWidget(script.Grid.currentIndex())->clearFocus();
    EXPECT_FALSE(script.Grid.IsEditing());
    EXPECT_EQ(script.Told.Take(), "");
    EXPECT_EQ(script.ToldAfterPainting(), "SetValue|");
}

TEST(GridHooks, ManyDetailsTellOneFailureOnce) {
    TToldMessages told;
    TCosts costs;
    costs.Detail = true;
    TSections sections(costs);
    TMasterDetailGrid grid(sections, costs, CostColumns(costs), PointLocale, "New");
    grid.SetFooter(5, ",0");
    grid.resize(600, 400);
    grid.show();
    grid.OnLook = [&](int, int) { return costs.Reach("OnLook"), TGridRowLook{}; };
    for (const char* const failing : {"GetValue", "GetRecordCount", "OnLook", "MaskOf"}) {
        costs.Failing = {failing};
        costs.DataChanged();
        grid.grab();
        QCoreApplication::processEvents();
        grid.grab();
        QCoreApplication::processEvents();
        EXPECT_EQ(told.Take(), failing + std::string("|"));
        costs.Failing.clear();
        costs.DataChanged();
        EXPECT_EQ(grid.Detail(0).model()->rowCount(), 3) << failing;
    }
}

TEST(GridHooks, AHookMayDeleteItsGrid) {
    TToldMessages told;
    const auto press = [](int key, Qt::KeyboardModifiers modifiers) {
        return [key, modifiers](TDataGrid& grid) {
            QKeyEvent event(QEvent::KeyPress, key, modifiers);
            QApplication::sendEvent(&grid, &event);
        };
    };
    const auto menu = [](TDataGrid& grid) {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
        QApplication::sendEvent(&grid, &event);
    };
    for (const auto& act : {std::function<void(TDataGrid&)>(press(Qt::Key_Down, Qt::ControlModifier)),
                            {press(Qt::Key_Delete, Qt::ControlModifier)},
                            {press(Qt::Key_Up, {})},
                            {menu}}) {
        for (const bool fails : {false, true}) {
            TCosts costs;
            auto* const grid = new TDataGrid(costs, CostColumns(costs), PointLocale);
            const QPointer<TDataGrid> life = grid;
            // What a hook holds is its own until it ends.
            const auto away = [grid, fails, said = std::string("gone")] {
                delete grid;
                return fails ? throw std::runtime_error(said) : said == "gone";
            };
            grid->OnMove = [=](int, int) { return away(); };
            grid->OnDelete = [=](int) { away(); };
            grid->OnEdge = [=](TGridStep, int) { return away(); };
            grid->OnContextMenu = [=](const QPoint&) { away(); };
            grid->show();
            grid->FocusRecord(0, 0);
            act(*grid);
            QCoreApplication::processEvents();
            EXPECT_TRUE(life.isNull());
            EXPECT_EQ(told.Take(), fails ? "gone|" : "");
        }
    }
}

TEST(GridHooks, AGridOutlivesItsSource) {
    TToldMessages told;
    std::optional<TCosts> costs;
    costs.emplace();
    costs->Detail = true;
    std::optional<TSections> sections;
    sections.emplace(*costs);
    TDataGrid grid(*costs, CostColumns(*costs), PointLocale, "New");
    grid.resize(600, 300);
    grid.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&grid));
    OpenEditor(grid, 0, 0)->setText("Lawyer");
    sections.reset();
    costs.reset();
    EXPECT_FALSE(grid.IsEditing()) << "what was typed has nowhere to go";
    EXPECT_EQ(grid.Bridge().RecordCount(), 0);
    grid.Refresh();
    QTest::keyClicks(&grid, "x");
    grid.Paste();
    grid.grab();
    QCoreApplication::processEvents();
    EXPECT_EQ(told.Take(), "");

    costs.emplace();
    costs->Detail = true;
    sections.emplace(*costs);
    TMasterDetailGrid master(*sections, *costs, CostColumns(*costs), PointLocale, "New");
    master.show();
    sections.reset();
    EXPECT_EQ(master.MasterCount(), 0);
    costs->DataChanged();
    costs.reset();
    master.grab();
    QCoreApplication::processEvents();
    EXPECT_EQ(told.Take(), "");
}

} // namespace
