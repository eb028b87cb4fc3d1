// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/views/lotNotBuiltView.h"

#include "shell/base/lotLook.h"
#include "shell/base/lotViewPanel.h"

#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int PictureSize = 48;

} // namespace

TNotBuiltView::TNotBuiltView(const QString& screen, QWidget* parent) : TViewForm(parent) {
    auto* const panel = new TViewPanel(screen, this);

    auto* const picture = new QLabel(panel);
    picture->setPixmap(
        look::Icon("design").pixmap(QSize(PictureSize, PictureSize), devicePixelRatioF(), QIcon::Disabled));
    picture->setAlignment(Qt::AlignHCenter);
    auto* const text = new QLabel(QString("The screen \"%1\" is not built yet.").arg(screen), panel);
    text->setObjectName("lblNotBuilt");
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    text->setAlignment(Qt::AlignHCenter);
    look::SetTextColour(*text, look::Subdued());

    panel->Body().addStretch(2);
    panel->Body().addWidget(picture);
    panel->Body().addWidget(text);
    panel->Body().addStretch(3);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(panel);
}
