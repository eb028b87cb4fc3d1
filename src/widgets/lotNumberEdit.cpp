// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotNumberEdit.h"

#include "widgets/lotGridValues.h"
#include "widgets/lotHook.h"

#include <QKeyEvent>
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

void TNumberEdit::SetReadOnly(bool readOnly) {
    setReadOnly(readOnly);
    QPalette look;
    if (readOnly) {
        look.setColor(QPalette::Base, palette().color(QPalette::Disabled, QPalette::Base));
    }
    setPalette(look);
    FEditing = FEditing && !readOnly;
    ShowText();
}

/// Where the mask shows a zero as nothing, a zero is typed over nothing too.
QString TNumberEdit::EditText() const {
    const bool hidden = FValue == 0 && vip::FormatMask(FMask, 0, FLocale).empty();
    return hidden ? QString() : QString::fromStdString(vip::FormatMask(vip::EditMask(FMask), FValue, FLocale));
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
    } else if (HasDigits(typed)) {
        FValue = vip::StrToNumber(typed.toStdString(), FLocale);
    }
    ShowText();
    return true;
}

void TNumberEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (!FEditing && !isReadOnly()) {
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
    RunHook(OnLeft, changed);
}

void TNumberEdit::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && text() != FBefore) {
        ShowText();
        return;
    }
    QLineEdit::keyPressEvent(event);
}
