// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/views/lotNotBuiltView.h"

#include "shell/base/lotLook.h"

#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int PictureSize = 48;

} // namespace

TNotBuiltView::TNotBuiltView(const QString& screen, QWidget* parent) : TViewForm(screen, {}, parent) {
    auto* const picture = new QLabel(this);
    picture->setPixmap(
        look::Icon("design").pixmap(QSize(PictureSize, PictureSize), devicePixelRatioF(), QIcon::Disabled));
    picture->setAlignment(Qt::AlignHCenter);
    auto* const text = new QLabel(QString("The screen \"%1\" is not built yet.").arg(screen), this);
    text->setObjectName("lblNotBuilt");
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    text->setAlignment(Qt::AlignHCenter);
    look::SetTextColour(*text, look::Subdued());

    Body().addStretch(2);
    Body().addWidget(picture);
    Body().addWidget(text);
    Body().addStretch(3);
}
