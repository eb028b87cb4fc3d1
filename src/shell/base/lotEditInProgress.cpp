// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/base/lotEditInProgress.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QWidget>

namespace {

/// The widget of `area` that has the focus, or gets it as soon as the window is the active one.
QWidget* FocusedIn(QWidget& area) {
    QWidget* const focused = area.window()->focusWidget();
    return focused != nullptr && area.isAncestorOf(focused) ? focused : nullptr;
}

} // namespace

void EndEditIn(QWidget& area) {
    const QPointer<QWidget> field = FocusedIn(area);
    if (field.isNull()) {
        return;
    }
    if (!field->hasFocus()) {
        // Another window is the active one, which fields don't take for leaving.
        QFocusEvent left(QEvent::FocusOut, Qt::OtherFocusReason);
        QCoreApplication::sendEvent(field, &left);
        return;
    }
    const QPointer<QWidget> holder = field->parentWidget();
    field->clearFocus();
    // A cell's editor has gone by now; its grid takes the focus.
    QWidget* next = field.isNull() || !field->isVisible() ? holder.data() : field.data();
    while (next != nullptr && next != &area && (next->focusPolicy() == Qt::NoFocus || !next->isEnabled())) {
        next = next->parentWidget();
    }
    if (next != nullptr && next != &area && area.window()->focusWidget() == nullptr) {
        next->setFocus(Qt::OtherFocusReason);
    }
}

void DropEditIn(QWidget& area) {
    if (QWidget* const field = FocusedIn(area)) {
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(field, &escape);
    }
}
