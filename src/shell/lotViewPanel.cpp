// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/lotViewPanel.h"

#include "shell/lotLook.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

TViewPanel::TViewPanel(const QString& caption, QWidget* parent)
    : QWidget(parent), FTools(new QHBoxLayout), FBody(new QVBoxLayout) {
    auto* const label = new QLabel(caption, this);
    label->setFont(look::HeadingFont());
    label->setObjectName("lblPanelCaption");

    auto* const head = new QHBoxLayout;
    head->addWidget(label);
    head->addStretch();
    head->addLayout(FTools);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(look::Margin, look::Gap, look::Margin, look::Margin);
    layout->setSpacing(look::Gap);
    layout->addLayout(head);
    layout->addLayout(FBody, 1);
}
