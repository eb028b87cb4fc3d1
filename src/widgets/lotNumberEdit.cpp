// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotNumberEdit.h"

#include <QKeyEvent>
#include <algorithm>
#include <utility>

TNumberEdit::TNumberEdit(std::string mask, const TNumberLocale& locale, QWidget* parent)
    : QLineEdit(parent), FMask(std::move(mask)), FLocale(locale) {
    setAlignment(Qt::AlignRight);
    ShowText();
}

void TNumberEdit::SetValue(double value) {
    FValue = value;
    ShowText();
}

void TNumberEdit::SetMask(std::string mask) {
    FMask = std::move(mask);
    ShowText();
}

/// By the mask without thousands and without its tail.
QString TNumberEdit::EditText() const {
    const std::size_t first = FMask.find('0');
    const std::size_t last = FMask.find_last_of('0');
    return QString::fromStdString(vip::FormatMask(FMask.substr(first, last - first + 1), FValue, FLocale));
}

void TNumberEdit::ShowText() {
    FBefore = FEditing ? EditText() : QString::fromStdString(vip::FormatMask(FMask, FValue, FLocale));
    setText(FBefore);
    if (FEditing) {
        selectAll();
    } else {
        setCursorPosition(0);
    }
}

bool TNumberEdit::Post() {
    const QString typed = text();
    if (typed == FBefore) {
        return false;
    }
    if (typed.trimmed().isEmpty()) {
        FValue = 0;
    } else if (std::ranges::any_of(typed, [](QChar c) { return c.isDigit(); })) {
        FValue = vip::StrToNumber(typed.toStdString(), FLocale);
    }
    ShowText();
    return true;
}

void TNumberEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (!FEditing) {
        FEditing = true;
        ShowText();
    }
}

void TNumberEdit::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    // A context menu, or another window in front, is no leaving.
    if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason) {
        return;
    }
    FEditing = false;
    const bool changed = Post();
    ShowText();
    emit Left(changed);
}

void TNumberEdit::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && text() != FBefore) {
        ShowText();
        return;
    }
    QLineEdit::keyPressEvent(event);
}
