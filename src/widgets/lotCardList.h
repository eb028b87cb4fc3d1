// SPDX-License-Identifier: GPL-3.0-or-later
//
// Records as cards, side by side and row after row as the width allows: a caption and lines of a label and a value.
// Draws only what is visible.
//
// Keys: arrows, Home, End, Page Up and Page Down walk; Enter acts on the card, Delete asks its owner to delete it.
#pragma once

#include <QAbstractScrollArea>
#include <QColor>
#include <functional>
#include <utility>
#include <vector>

struct TCard {
    QString Caption;
    QColor Colour; ///< Of the caption's ground.
    std::vector<std::pair<QString, QString>> Lines;
};

class TCardList : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit TCardList(QWidget* parent = nullptr);

    QString EmptyText; ///< Shown while there are no cards.

    std::function<void(int card)> OnActivate; ///< A double click or Enter.
    std::function<void(int card)> OnDelete;
    std::function<void(const QPoint& globalPosition)> OnContextMenu;

    void SetCards(std::vector<TCard> cards);
    [[nodiscard]] int Count() const noexcept { return static_cast<int>(FCards.size()); }
    /// -1 if there are no cards.
    [[nodiscard]] int Current() const noexcept { return FCurrent; }
    void SetCurrent(int card);
    /// Captions only.
    void SetCollapsed(bool collapsed);
    /// The place of a card in the viewport.
    [[nodiscard]] QRect CardRect(int card) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
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
    [[nodiscard]] int CardAt(const QPoint& position) const;

    std::vector<TCard> FCards;
    int FCurrent = -1;
    bool FCollapsed = false;
};
