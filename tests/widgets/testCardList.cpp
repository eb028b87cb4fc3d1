// SPDX-License-Identifier: GPL-3.0-or-later
//
// Cards: which one stays current, what letters find, and hooks that fail.
#include "support/lotToldMessages.h"
#include "widgets/lotCardList.h"

#include <gtest/gtest.h>

#include <QContextMenuEvent>
#include <QDialog>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <stdexcept>

namespace {

/// Cards of these keys; the caption is "Unit " and the key.
std::vector<TCard> Cards(std::initializer_list<int> keys) {
    std::vector<TCard> cards;
    for (const int key : keys) {
        cards.push_back({QString("Unit %1").arg(key), Qt::lightGray, {}, static_cast<std::uintptr_t>(key)});
    }
    return cards;
}

TEST(CardList, TheCurrentCardStaysCurrentAmongOtherCards) {
    struct TCase {
        std::vector<TCard> Before;
        std::vector<TCard> After;
        int Current; // It was the third.
    };
    std::vector<TCard> nameless = Cards({1, 2, 3, 4});
    for (TCard& card : nameless) {
        card.Key = 0;
    }
    for (const TCase& row : {TCase{Cards({1, 2, 3, 4}), Cards({3, 2, 1, 4}), 0},
                             {Cards({1, 2, 3, 4}), Cards({1, 2, 5, 6, 3}), 4},
                             {Cards({1, 2, 3, 4}), Cards({1, 2, 4}), 2},
                             {Cards({1, 2, 3}), Cards({1, 2}), 1},
                             {Cards({1, 2, 3}), Cards({}), -1},
                             {nameless, Cards({3, 4, 5, 6}), 2},
                             {nameless, nameless, 2}}) {
        TCardList list;
        list.SetCards(row.Before);
        list.SetCurrent(2);
        list.SetCards(row.After);
        EXPECT_EQ(list.Current(), row.Current);
    }
}

TEST(CardList, StaysScrolledOverNewCards) {
    TCardList list;
    list.resize(300, 150); // One card beside the bar, three below each other.
    list.show();
    list.SetCards(Cards({1, 2, 3, 4, 5, 6, 7, 8}));
    list.SetCurrent(0);
    list.verticalScrollBar()->setValue(100);
    list.SetCards(Cards({1, 2, 3, 4, 5, 6, 7, 8, 9}));
    EXPECT_EQ(list.verticalScrollBar()->value(), 100) << "The current card was out of view and may stay so.";
    list.SetCurrent(4);
    list.SetCards(Cards({5, 1, 2, 3, 4, 6, 7, 8}));
    EXPECT_TRUE(list.viewport()->rect().contains(list.CardRect(0))) << "It was in view and stays so.";
}

TEST(CardList, ALongValueLeavesItsLabelAlone) {
    const auto label = [](const QString& value) {
        TCardList list;
        list.resize(300, 150);
        list.SetCards({{"Unit", Qt::lightGray, {{"Tenant", value}, {"Rent", "1,000"}}, 1}});
        const QRect card = list.CardRect(0);
        const int width = list.fontMetrics().horizontalAdvance("Tenant") + 10; // With the card's edge.
        return list.viewport()->grab(QRect(card.topLeft(), QSize(width, card.height()))).toImage();
    };
    EXPECT_EQ(label("W"), label(QString(80, 'W')));
}

TEST(CardList, LettersFindCards) {
    TCardList list;
    list.resize(300, 150);
    list.show();
    std::vector<TCard> cards;
    for (const char* caption : {"Barn", "flat 1", "Flat 2", "Shop", "Éclair Works"}) {
        cards.push_back({QString(caption), Qt::lightGray, {}});
    }
    list.SetCards(cards);
    list.setFocus();
    struct TCase {
        int From;
        QString Typed;
        int Found;
    };
    for (const TCase& row :
         {TCase{0, "f", 1}, {1, "f", 2}, {2, "f", 1}, {0, "flat 2", 2}, {2, "flat 2", 2}, {0, "é", 4}, {3, "x", 3}}) {
        list.SetCards(cards); // As a pause does, it begins the search afresh.
        list.SetCurrent(row.From);
        for (const QChar letter : row.Typed) {
            QKeyEvent press(QEvent::KeyPress, 0, {}, letter);
            QApplication::sendEvent(&list, &press);
        }
        EXPECT_EQ(list.Current(), row.Found) << row.Typed.toStdString() << " from " << row.From;
    }
    list.SetCards({});
    QTest::keyClicks(&list, "f");
}

TEST(CardList, HooksThatThrowAreToldOnceAndEnterIsTheCardsOwn) {
    TToldMessages told;
    QDialog dialog;
    auto* const list = new TCardList(&dialog);
    QPushButton ok("OK", &dialog);
    ok.setDefault(true);
    int pressed = 0;
    QObject::connect(&ok, &QPushButton::clicked, [&] { ++pressed; });
    dialog.show();
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Return);
    list->SetCards(Cards({1, 2}));
    QTest::keyClick(list, Qt::Key_Enter);
    EXPECT_EQ(told.Take(), "");
    list->OnActivate = [](int) { throw std::runtime_error("open"); };
    list->OnDelete = [](int) { throw std::runtime_error("delete"); };
    list->OnContextMenu = [](const QPoint&) { throw std::runtime_error("menu"); };
    QTest::keyClick(list, Qt::Key_Return);
    QTest::keyClick(list, Qt::Key_Delete);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, list->CardRect(0).center());
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(list->viewport(), &menu);
    EXPECT_EQ(told.Take(), "open|delete|open|menu|");
    EXPECT_EQ(list->Current(), 0);
    EXPECT_EQ(pressed, 0);
}

} // namespace
