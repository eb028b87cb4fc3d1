// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/base/lotDialog.h"

#include "shell/base/lotGuardedSlot.h"
#include "shell/base/lotHelp.h"
#include "shell/base/lotLook.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

TDialogForm::TDialogForm(const TDialogTexts& texts, TDialogButtons buttons, QWidget* parent)
    : QDialog(parent), FTopic(texts.Topic), FBody(new QVBoxLayout), FButtons(new QDialogButtonBox(this)) {
    setObjectName(texts.Name);
    setWindowTitle(texts.Caption);
    const bool closes = buttons == TDialogButtons::Close;
    FDefault = FButtons->addButton(closes ? QDialogButtonBox::Close : QDialogButtonBox::Ok);
    FDefault->setDefault(true);
    if (!texts.Accept.isEmpty()) {
        FDefault->setText(texts.Accept);
    }
    if (!closes) {
        FButtons->addButton(QDialogButtonBox::Cancel);
    }
    // Close stands for OK here, though the toolkit has it reject.
    OnSignal(*FDefault, &QPushButton::clicked, *this, [this] { AcceptAll(); });
    if (!closes) {
        connect(FButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    }
    auto* const help = new QShortcut(QKeySequence(Qt::Key_F1), this);
    OnSignal(*help, &QShortcut::activated, *this, [this] { OpenHelp(*this, FTopic); });

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(look::Margin, look::Margin, look::Margin, look::Margin);
    layout->setSpacing(look::WideGap);
    layout->addLayout(FBody, 1);
    layout->addWidget(FButtons);
    FBody->setSpacing(look::Gap);
}

QFormLayout& TDialogForm::AddForm(QBoxLayout& layout) {
    auto* const form = new QFormLayout;
    form->setLabelAlignment(Qt::AlignLeft);
    form->setHorizontalSpacing(look::WideGap);
    form->setVerticalSpacing(look::Gap);
    layout.addLayout(form);
    return *form;
}

void TDialogForm::FixSize() {
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

void TDialogForm::AcceptAll() {
    const TFailureWatch watch;
    FDefault->setFocus(); // So that the field being edited acts first.
    bool stored = false;
    if (!watch.Failed() && Guarded([&] { stored = Store(); }) && stored) {
        accept();
    }
}
