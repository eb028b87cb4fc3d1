// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotChoiceEdit.h"

#include "widgets/lotHook.h"

#include <QKeyEvent>
#include <QPointer>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <utility>

TChoiceEdit::TChoiceEdit(QWidget* parent) : QComboBox(parent) {
    setFocusPolicy(Qt::StrongFocus); // The wheel scrolls the page on which the field stands.
    connect(this, &QComboBox::activated, this, &TChoiceEdit::Activated);
}

void TChoiceEdit::SetChoices(const QStringList& choices) {
    const QString text = Text();
    const bool unknownNumber = currentIndex() < 0 && FUnknown != -1;
    FChoices = choices;
    if (unknownNumber) {
        SetIndex(FUnknown);
    } else {
        SetText(text);
    }
}

void TChoiceEdit::SetText(const QString& text) {
    Fill(text);
    Choose(findText(text));
    FUnknown = -1;
}

void TChoiceEdit::SetIndex(int index) {
    const bool known = index >= 0 && index < FChoices.size();
    Fill({});
    Choose(known ? index : -1);
    FUnknown = known ? -1 : index;
}

int TChoiceEdit::Index() const {
    const int index = currentIndex();
    return index < 0 ? FUnknown : index < FChoices.size() ? index : -1;
}

/// The choices, and behind them the text if it isn't one of them.
void TChoiceEdit::Fill(const QString& text) {
    const QSignalBlocker quiet(this);
    clear();
    addItems(FChoices);
    if (!text.isEmpty() && !FChoices.contains(text)) {
        addItem(text);
    }
}

void TChoiceEdit::Choose(int index) {
    const QSignalBlocker quiet(this);
    setCurrentIndex(index);
    FChosen = index;
    update();
}

void TChoiceEdit::Activated(int index) {
    const bool listClosing = std::exchange(FListClosing, false);
    const QPointer<TChoiceEdit> self(this);
    if (std::exchange(FChosen, index) != index) {
        FUnknown = -1;
        if (const int unknown = static_cast<int>(FChoices.size()); index < unknown && unknown < count()) {
            removeItem(unknown);
        }
        emit Chosen();
    }
    if (listClosing && self != nullptr) {
        RunHook(OnCloseUp);
    }
}

void TChoiceEdit::hidePopup() {
    // What is chosen in the list is told right behind this.
    FListClosing = true;
    QComboBox::hidePopup();
}

void TChoiceEdit::keyPressEvent(QKeyEvent* event) {
    FListClosing = false;
    QComboBox::keyPressEvent(event);
}

void TChoiceEdit::wheelEvent(QWheelEvent* event) {
    FListClosing = false;
    if (hasFocus()) {
        QComboBox::wheelEvent(event);
    } else {
        event->ignore();
    }
}
