// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotSpinEdit.h"

#include "widgets/lotFieldAccessible.h"
#include "widgets/lotGridValues.h"
#include "widgets/lotHook.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionSpinBox>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

TSpinEdit::TSpinEdit(int minimum, int maximum, QWidget* parent, const TNumberLocale& locale)
    : QAbstractSpinBox(parent), FMinimum(minimum), FMaximum(std::max(minimum, maximum)), FLocale(locale) {
    InstallFieldAccessible();
    lineEdit()->setObjectName("edtNumber"); // Under its own name the toolkit hides it from assistive programs.
    setAlignment(Qt::AlignRight);
    setAccelerated(true);
    setFocusPolicy(Qt::StrongFocus); // The wheel scrolls the page on which the field stands.
    FValue = Clamped(0);
    ShowText();
}

void TSpinEdit::SetValue(double value) {
    FValue = value;
    ShowText();
}

void TSpinEdit::SetRange(int minimum, int maximum) {
    FMinimum = minimum;
    FMaximum = std::max(minimum, maximum);
    updateGeometry();
    update();
}

void TSpinEdit::ShowText() {
    FBefore = QString::fromStdString(vip::NumberToText(FValue, FLocale));
    lineEdit()->setText(FBefore);
}

double TSpinEdit::Clamped(double value) const {
    return std::clamp<double>(value, FMinimum, FMaximum);
}

double TSpinEdit::Typed() const {
    const QString typed = text();
    return typed != FBefore && HasDigits(typed) ? Clamped(std::round(vip::StrToNumber(typed.toStdString(), FLocale)))
                                                : FValue;
}

bool TSpinEdit::Post() {
    const bool changed = text() != FBefore;
    FValue = Typed();
    ShowText();
    return changed;
}

void TSpinEdit::stepBy(int steps) {
    const double typed = Typed();
    Type((steps > 0 ? std::floor(typed) : std::ceil(typed)) + steps);
}

void TSpinEdit::Type(double value) {
    lineEdit()->setText(QString::fromStdString(vip::NumberToText(Clamped(std::round(value)), FLocale)));
    selectAll();
}

QAbstractSpinBox::StepEnabled TSpinEdit::stepEnabled() const {
    if (isReadOnly()) {
        return StepNone;
    }
    const double typed = Typed();
    return (typed < FMaximum ? StepUpEnabled : StepNone) | (typed > FMinimum ? StepDownEnabled : StepNone);
}

QValidator::State TSpinEdit::validate(QString& /*text*/, int& /*position*/) const {
    return QValidator::Acceptable; // Any text may stand there until the field is left.
}

QSize TSpinEdit::sizeHint() const {
    ensurePolished();
    const QFontMetrics metrics(fontMetrics());
    const int text = std::max(metrics.horizontalAdvance(QString::number(FMinimum)),
                              metrics.horizontalAdvance(QString::number(FMaximum)));
    const int cursor = metrics.horizontalAdvance("00");
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    return style()->sizeFromContents(QStyle::CT_SpinBox, &option, {text + cursor, lineEdit()->sizeHint().height()},
                                     this);
}

void TSpinEdit::focusOutEvent(QFocusEvent* event) {
    QAbstractSpinBox::focusOutEvent(event);
    // A context menu, or another window in front, is no leaving.
    if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason) {
        return;
    }
    const bool changed = Post();
    emit Left(changed);
    RunHook(OnLeft, changed);
}

void TSpinEdit::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && text() != FBefore) {
        lineEdit()->setText(FBefore);
        selectAll();
        return;
    }
    QAbstractSpinBox::keyPressEvent(event);
}

void TSpinEdit::wheelEvent(QWheelEvent* event) {
    if (hasFocus()) {
        QAbstractSpinBox::wheelEvent(event);
    } else {
        event->ignore();
    }
}
