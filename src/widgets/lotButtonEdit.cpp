// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotButtonEdit.h"

#include "widgets/lotHook.h"

#include <QAction>
#include <QEvent>
#include <QIcon>
#include <QKeyEvent>
#include <QPainter>
#include <QPalette>
#include <QPixmap>

namespace {

/// The face of a button that opens something more.
QIcon Dots(const QWidget& widget) {
    QPixmap pixmap(QSize(16, 16) * widget.devicePixelRatioF());
    pixmap.setDevicePixelRatio(widget.devicePixelRatioF());
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(widget.palette().color(QPalette::Text));
    for (const double x : {3.5, 8.0, 12.5}) {
        painter.drawEllipse(QPointF(x, 8), 1.4, 1.4);
    }
    return pixmap;
}

bool IsPressKey(const QKeyEvent& event) {
    return event.key() == Qt::Key_Down && (event.modifiers() & ~Qt::KeypadModifier) == Qt::AltModifier;
}

} // namespace

TButtonEdit::TButtonEdit(const QString& hint, QWidget* parent) : QLineEdit(parent) {
    auto* const action = new QAction("...", this);
    action->setIcon(Dots(*this));
    action->setToolTip(hint.isEmpty() ? "Alt+Down" : hint + " (Alt+Down)");
    addAction(action, QLineEdit::TrailingPosition);
    connect(action, &QAction::triggered, this, &TButtonEdit::Press);
}

void TButtonEdit::Press() const {
    RunHook(OnPress);
}

bool TButtonEdit::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && IsPressKey(static_cast<QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void TButtonEdit::keyPressEvent(QKeyEvent* event) {
    if (IsPressKey(*event)) {
        Press();
    } else {
        QLineEdit::keyPressEvent(event);
    }
}
