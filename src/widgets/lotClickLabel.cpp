// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotClickLabel.h"

#include "widgets/lotFieldAccessible.h"
#include "widgets/lotToolTipText.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

TClickLabel::TClickLabel(QWidget* parent) : QLabel(parent) {
    InstallFieldAccessible();
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
    setTextFormat(Qt::PlainText);
    setMinimumHeight(fontMetrics().height() + 6);
}

void TClickLabel::enterEvent(QEnterEvent* event) {
    FHovered = true;
    update();
    QLabel::enterEvent(event);
}

void TClickLabel::leaveEvent(QEvent* event) {
    FHovered = false;
    update();
    QLabel::leaveEvent(event);
}

void TClickLabel::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
        emit Clicked();
    }
}

void TClickLabel::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
    case Qt::Key_F2: emit Clicked(); break;
    default: QLabel::keyPressEvent(event);
    }
}

void TClickLabel::paintEvent(QPaintEvent* event) {
    if (FHovered || hasFocus()) {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QColor colour = palette().color(QPalette::Highlight);
        painter.setPen(hasFocus() ? QPen(colour, 1) : QPen(Qt::NoPen));
        colour.setAlpha(FHovered ? 28 : 12);
        painter.setBrush(colour);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    }
    // A text too long for its place ends in dots; the whole of it is in the tool tip.
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
    if (shown == text()) {
        QLabel::paintEvent(event);
    } else {
        QPainter painter(this);
        painter.setPen(palette().color(foregroundRole()));
        painter.drawText(rect(), static_cast<int>(alignment()) | Qt::TextSingleLine, shown);
    }
    setToolTip(shown == text() ? QString() : ToolTipText(text()));
}
