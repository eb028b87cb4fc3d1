// SPDX-License-Identifier: GPL-3.0-or-later
#include "reportengine/pages/frxGradientView.h"

#include <QLinearGradient>
#include <QPainter>

void TfrxGradientView::Paint(QPainter& painter, const QRectF& rect) const {
    QLinearGradient gradient(rect.topLeft(), rect.topRight());
    gradient.setColorAt(0, QColor::fromRgb(StartColour));
    gradient.setColorAt(1, QColor::fromRgb(EndColour));
    painter.fillRect(rect, gradient);
}
