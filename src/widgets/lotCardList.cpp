// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotCardList.h"

#include "widgets/lotAccessibleParts.h"
#include "widgets/lotHook.h"
#include "widgets/lotListAccessible.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <algorithm>

namespace {

constexpr int CardWidth = 250;
constexpr int Gap = 12;
constexpr int Padding = 10;
constexpr int Radius = 6;

} // namespace

TCardList::TCardList(QWidget* parent) : QAbstractScrollArea(parent) {
    InstallListAccessible();
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setBackgroundRole(QPalette::Base);
}

TCardList::~TCardList() {
    DropAccessible(*this);
}

void TCardList::SetCards(std::vector<TCard> cards) {
    const std::uintptr_t key = FCurrent >= 0 ? Card(FCurrent).Key : 0;
    const bool inView = FCurrent >= 0 && IsInView(FCurrent);
    FCards = std::move(cards);
    const auto same = key == 0 ? FCards.end() : std::ranges::find(FCards, key, &TCard::Key);
    if (same != FCards.end()) {
        FCurrent = static_cast<int>(same - FCards.begin());
    }
    FCurrent = std::clamp(FCurrent, std::min(0, Count() - 1), Count() - 1);
    FSearched.clear();
    UpdateScrollBar();
    if (inView && FCurrent >= 0) {
        BringIntoView(FCurrent);
    }
    viewport()->update();
    TellPartsRebuilt(*this);
    TellCurrentPart(*this);
}

void TCardList::SetCollapsed(bool collapsed) {
    FCollapsed = collapsed;
    UpdateScrollBar();
    SetCurrent(FCurrent);
}

int TCardList::LineHeight() const {
    return fontMetrics().height() + 4;
}

int TCardList::Columns() const {
    return std::max(1, (viewport()->width() - Gap) / (CardWidth + Gap));
}

/// All cards are as high as the one with the most lines, so that rows line up.
int TCardList::CardHeight() const {
    std::size_t lines = 0;
    for (const TCard& card : FCards) {
        lines = std::max(lines, card.Lines.size());
    }
    const int caption = LineHeight() + Padding;
    return FCollapsed ? caption : caption + static_cast<int>(lines) * LineHeight() + Padding;
}

QRect TCardList::CardRect(int card) const {
    const int row = card / Columns();
    const int column = card % Columns();
    return {Gap + column * (CardWidth + Gap), Gap + row * (CardHeight() + Gap) - verticalScrollBar()->value(),
            CardWidth, CardHeight()};
}

int TCardList::CardAt(const QPoint& position) const {
    for (int card = 0; card < Count(); ++card) {
        if (CardRect(card).contains(position)) {
            return card;
        }
    }
    return -1;
}

void TCardList::UpdateScrollBar() {
    const int rows = (Count() + Columns() - 1) / Columns();
    const int height = Gap + rows * (CardHeight() + Gap);
    verticalScrollBar()->setRange(0, std::max(0, height - viewport()->height()));
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setSingleStep(LineHeight());
}

void TCardList::SetCurrent(int card) {
    FCurrent = std::clamp(card, std::min(0, Count() - 1), Count() - 1);
    if (FCurrent >= 0) {
        BringIntoView(FCurrent);
    }
    viewport()->update();
    TellCurrentPart(*this);
}

bool TCardList::IsInView(int card) const {
    return viewport()->rect().intersects(CardRect(card));
}

void TCardList::BringIntoView(int card) {
    const QRect place = CardRect(card);
    const int lowest = viewport()->height() - Gap;
    if (place.top() < Gap) {
        verticalScrollBar()->setValue(verticalScrollBar()->value() + place.top() - Gap);
    } else if (place.bottom() > lowest) {
        verticalScrollBar()->setValue(verticalScrollBar()->value() + place.bottom() - lowest);
    }
}

void TCardList::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    if (FCards.empty()) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, EmptyText);
        return;
    }
    for (int card = 0; card < Count(); ++card) {
        const QRect place = CardRect(card);
        if (place.intersects(event->rect())) {
            PaintCard(painter, place, FCards[static_cast<std::size_t>(card)], card == FCurrent);
        }
    }
}

void TCardList::PaintCard(QPainter& painter, const QRect& place, const TCard& card, bool current) const {
    QPainterPath outline;
    outline.addRoundedRect(QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5), Radius, Radius);
    painter.fillPath(outline, palette().color(QPalette::Base));
    const int captionHeight = LineHeight() + Padding;
    painter.save();
    painter.setClipPath(outline);
    painter.fillRect(QRect(place.topLeft(), QSize(place.width(), captionHeight)), card.Colour);
    painter.restore();
    const QColor line = current ? palette().color(QPalette::Highlight) : palette().color(QPalette::Mid);
    painter.setPen(QPen(line, current && hasFocus() ? 2 : 1));
    painter.drawPath(outline);

    const QRect text = place.adjusted(Padding, 0, -Padding, 0);
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(palette().color(QPalette::Text));
    const QRect caption(text.left(), text.top(), text.width(), captionHeight);
    painter.drawText(caption, Qt::AlignVCenter | Qt::TextSingleLine,
                     QFontMetrics(bold).elidedText(card.Caption, Qt::ElideRight, text.width()));
    painter.setFont(font());
    int y = text.top() + captionHeight + Padding / 2;
    for (const auto& [label, value] : card.Lines) {
        if (FCollapsed) {
            break;
        }
        const QRect row(text.left(), y, text.width(), LineHeight());
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(row, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, label);
        painter.setPen(palette().color(QPalette::Text));
        // The value has the room that its label leaves.
        const int room = row.width() - fontMetrics().horizontalAdvance(label) - Padding;
        painter.drawText(row, Qt::AlignVCenter | Qt::AlignRight | Qt::TextSingleLine,
                         fontMetrics().elidedText(value, Qt::ElideRight, room));
        y += LineHeight();
    }
}

void TCardList::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    UpdateScrollBar();
}

void TCardList::keyPressEvent(QKeyEvent* event) {
    const int rows = std::max(1, viewport()->height() / (CardHeight() + Gap));
    switch (event->key()) {
    case Qt::Key_Left: SetCurrent(FCurrent - 1); break;
    case Qt::Key_Right: SetCurrent(FCurrent + 1); break;
    case Qt::Key_Up: SetCurrent(FCurrent >= Columns() ? FCurrent - Columns() : FCurrent); break;
    case Qt::Key_Down: SetCurrent(FCurrent + Columns() < Count() ? FCurrent + Columns() : FCurrent); break;
    case Qt::Key_PageUp: SetCurrent(FCurrent - rows * Columns()); break;
    case Qt::Key_PageDown: SetCurrent(FCurrent + rows * Columns()); break;
    case Qt::Key_Home: SetCurrent(0); break;
    case Qt::Key_End: SetCurrent(Count() - 1); break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (FCurrent >= 0) {
            RunHook(OnActivate, FCurrent);
        }
        break;
    case Qt::Key_Delete:
        if (FCurrent >= 0) {
            RunHook(OnDelete, FCurrent);
        }
        break;
    default:
        if (!SearchByKey(*event)) {
            QAbstractScrollArea::keyPressEvent(event);
        }
    }
}

bool TCardList::SearchByKey(const QKeyEvent& event) {
    const bool pause = !FSearching.isValid() || FSearching.elapsed() > QApplication::keyboardInputInterval();
    const QString before = pause ? QString() : FSearched;
    const QString typed = event.text();
    const bool letter = !typed.isEmpty() && typed.front().isPrint() && !(typed == " " && before.isEmpty());
    if (!letter || FCards.empty() || event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) {
        return false;
    }
    FSearched = before + typed;
    FSearching.start();
    // A first letter goes on to the next card; those behind it may find the card that they stand on.
    const int first = before.isEmpty() ? FCurrent + 1 : FCurrent;
    for (int step = 0; step < Count(); ++step) {
        const int card = (first + step) % Count();
        if (Card(card).Caption.startsWith(FSearched, Qt::CaseInsensitive)) {
            SetCurrent(card);
            break;
        }
    }
    return true;
}

void TCardList::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    TellCurrentPart(*this);
}

void TCardList::mousePressEvent(QMouseEvent* event) {
    if (const int card = CardAt(event->position().toPoint()); card >= 0) {
        SetCurrent(card);
    }
}

void TCardList::mouseDoubleClickEvent(QMouseEvent* event) {
    const int card = CardAt(event->position().toPoint());
    if (card >= 0 && event->button() == Qt::LeftButton) {
        RunHook(OnActivate, card);
    }
}

void TCardList::contextMenuEvent(QContextMenuEvent* event) {
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard && FCurrent >= 0;
    RunHook(OnContextMenu, byKey ? viewport()->mapToGlobal(CardRect(FCurrent).center()) : event->globalPos());
}
