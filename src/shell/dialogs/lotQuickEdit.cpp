// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/dialogs/lotQuickEdit.h"

#include "widgets/lotNumberEdit.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QScreen>
#include <algorithm>

namespace {

constexpr int BoxWidth = 286;
constexpr int BoxHeight = 28; // At least; a larger font needs more.

} // namespace

TEditForm::TEditForm(const QWidget& label) : QDialog(label.window(), Qt::Popup | Qt::FramelessWindowHint) {
    setModal(true);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    const QPoint corner = label.mapToGlobal(QPoint(0, 0));
    const QRect screen = label.screen()->availableGeometry();
    const int height = std::max(BoxHeight, fontMetrics().height() + 10);
    setFixedSize(BoxWidth, height);
    move(std::clamp(corner.x(), screen.left(), std::max(screen.left(), screen.right() - BoxWidth)),
         std::clamp(corner.y(), screen.top(), std::max(screen.top(), screen.bottom() - height)));
}

void TEditForm::SetField(QLineEdit& field, const QWidget& label) {
    field.setObjectName("edtValue");
    field.setAccessibleName(label.accessibleName());
    field.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    layout()->addWidget(&field);
    field.setFocus();
    field.selectAll();
    connect(&field, &QLineEdit::returnPressed, this, &QDialog::accept);
}

TEditTextForm::TEditTextForm(const QWidget& label, const QString& text)
    : TEditForm(label), FEdit(new QLineEdit(text, this)) {
    setObjectName("EditTextForm");
    SetField(*FEdit, label);
}

QString TEditTextForm::Text() const {
    return FEdit->text();
}

TEditValueForm::TEditValueForm(const QWidget& label, double value, const std::string& mask, const TNumberLocale& locale)
    : TEditForm(label), FEdit(new TNumberEdit(mask, locale, this)) {
    setObjectName("EditValueForm");
    FEdit->SetValue(value);
    SetField(*FEdit, label);
}

double TEditValueForm::Value() const {
    FEdit->Post();
    return FEdit->Value();
}

bool TcdTextEdit::Execute() {
    TEditTextForm form(FLabel, Value);
    if (form.exec() != QDialog::Accepted) {
        return false;
    }
    Value = form.Text();
    return true;
}

bool TcdValueEdit::Execute() {
    TEditValueForm form(FLabel, Value, Format, FLocale);
    if (form.exec() != QDialog::Accepted) {
        return false;
    }
    Value = form.Value();
    return true;
}
