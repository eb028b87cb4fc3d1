// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotNumberEdit.h"

#include "widgets/lotHook.h"

#include <QKeyEvent>
#include <algorithm>
#include <string_view>
#include <utility>

namespace {

/// True if the mask's third section, the one for zero, writes nothing: "#" is a digit that zero doesn't have.
bool HidesZero(std::string_view mask) {
    const std::size_t second = mask.find(';');
    const std::size_t third = second == std::string_view::npos ? second : mask.find(';', second + 1);
    return third != std::string_view::npos && third + 1 < mask.size() &&
           mask.find_first_not_of("#,", third + 1) == std::string_view::npos;
}

} // namespace

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

/// By the first section of the mask, without thousands and whatever else it writes around the digits.
QString TNumberEdit::EditText() const {
    if (FValue == 0 && HidesZero(FMask)) {
        return {};
    }
    const std::string_view section = std::string_view(FMask).substr(0, FMask.find(';'));
    const std::size_t first = std::min(section.find_first_of("0."), section.size());
    const std::size_t last = section.find_first_not_of("0.", first);
    return QString::fromStdString(vip::FormatMask(section.substr(first, last - first), FValue, FLocale));
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
