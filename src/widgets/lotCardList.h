// SPDX-License-Identifier: GPL-3.0-or-later
//
// Records as cards, side by side and row after row as the width allows: a caption and lines of a label and a value.
// Draws only what is visible.
//
// Keys: arrows, Home, End, Page Up and Page Down walk; letters find the next card whose caption begins with them; Enter
// acts on the card and never reaches the window around, Delete asks the card's owner to delete it.
//
// Hooks run guarded: what one throws is told to the user.
#pragma once

#include <QAbstractScrollArea>
#include <QColor>
#include <QElapsedTimer>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

struct TCard {
    QString Caption;
    QColor Colour; ///< Of the caption's ground.
    std::vector<std::pair<QString, QString>> Lines;
    std::uintptr_t Key = 0; ///< Whose card it is, by a number of the owner's; 0: known by its place only.
};

class TCardList : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit TCardList(QWidget* parent = nullptr);
    ~TCardList() override;

    QString EmptyText; ///< Shown while there are no cards.

    std::function<void(int card)> OnActivate; ///< A double click or Enter.
    std::function<void(int card)> OnDelete;
    std::function<void(const QPoint& globalPosition)> OnContextMenu;

    /// The current card stays current if its key is among the new ones', wherever it stands now; if it isn't, or is 0,
    /// the card at its place is. The list stays scrolled as it was, but for a current card that would leave the view.
    void SetCards(std::vector<TCard> cards);
    [[nodiscard]] const TCard& Card(int card) const { return FCards.at(static_cast<std::size_t>(card)); }
    [[nodiscard]] int Count() const noexcept { return static_cast<int>(FCards.size()); }
    /// -1 if there are no cards.
    [[nodiscard]] int Current() const noexcept { return FCurrent; }
    void SetCurrent(int card);
    /// Captions only.
    void SetCollapsed(bool collapsed);
    /// The place of a card in the viewport.
    [[nodiscard]] QRect CardRect(int card) const;
    /// The card at a place of the viewport; -1: none.
    [[nodiscard]] int CardAt(const QPoint& position) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void PaintCard(QPainter& painter, const QRect& place, const TCard& card, bool current) const;
    void UpdateScrollBar();
    [[nodiscard]] int Columns() const;
    [[nodiscard]] int CardHeight() const;
    [[nodiscard]] int LineHeight() const;
    void BringIntoView(int card);
    [[nodiscard]] bool IsInView(int card) const;
    /// True if the key was taken as a letter to search by.
    bool SearchByKey(const QKeyEvent& event);

    std::vector<TCard> FCards;
    int FCurrent = -1;
    bool FCollapsed = false;
    QString FSearched; // The letters typed so far, while they come without a pause.
    QElapsedTimer FSearching;
};
