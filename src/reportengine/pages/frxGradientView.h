// SPDX-License-Identifier: GPL-3.0-or-later
//
// The gradient of reports: from its first colour on the left to its second on the right. Both come from the firm's
// options and not from a template, so that a report's colour scheme changes in one place.
#pragma once

#include <QRectF>
#include <QRgb>

class QPainter;

struct TfrxGradientView {
    QRgb StartColour = 0xFFFFFFFF;
    QRgb EndColour = 0xFFC0DCC0;

    void Paint(QPainter& painter, const QRectF& rect) const;
};
