// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/base/lotViewPanel.h"

#include "shell/base/lotLook.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int StripHeight = 48; // high enough for a row of tool buttons, so that captions stand alike in every view

} // namespace

TViewPanel::TViewPanel(const QString& caption, QWidget* parent)
    : QWidget(parent),
      FCaption(new QLabel(caption, this)),
      FHint(new QLabel(this)),
      FTools(new QHBoxLayout),
      FBody(new QVBoxLayout) {
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);

    FCaption->setFont(look::HeadingFont());
    FCaption->setObjectName("lblPanelCaption");
    look::SetTextColour(*FCaption, look::Accent());
    FHint->setObjectName("lblPanelHint");
    FHint->setWordWrap(true);
    FHint->hide();
    look::SetTextColour(*FHint, look::Subdued());

    auto* const strip = new QHBoxLayout;
    strip->setContentsMargins(look::Margin, 0, look::Margin, 0);
    strip->setSpacing(look::WideGap);
    strip->addWidget(FCaption);
    strip->addWidget(FHint, 1);
    strip->addStretch();
    strip->addLayout(FTools);
    strip->addStrut(StripHeight);
    FTools->setSpacing(look::Gap);

    auto* const rule = new QFrame(this);
    rule->setFixedHeight(1);
    rule->setAutoFillBackground(true);
    rule->setBackgroundRole(QPalette::Window);
    QPalette palette = rule->palette();
    palette.setColor(QPalette::Window, look::Rule());
    rule->setPalette(palette);

    FBody->setContentsMargins(look::Margin, look::Margin, look::Margin, look::Margin);
    FBody->setSpacing(look::Gap);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(strip);
    layout->addWidget(rule);
    layout->addLayout(FBody, 1);
}

void TViewPanel::SetHint(const QString& text) {
    FHint->setText(text);
    FHint->setVisible(!text.isEmpty());
}

QString TViewPanel::Caption() const {
    return FCaption->text();
}
