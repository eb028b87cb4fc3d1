// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotGridHeader.h"

#include "widgets/lotGridBridge.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionHeader>
#include <algorithm>

TGridHeader::TGridHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    // A band reaches over sections that the toolkit has no reason to draw again.
    connect(this, &QHeaderView::sectionResized, this, [this] { viewport()->update(); });
}

QString TGridHeader::BandOf(int logicalIndex) const {
    return model()->headerData(logicalIndex, Qt::Horizontal, TGridBridge::BandRole).toString();
}

bool TGridHeader::HasBands() const {
    for (int i = 0; model() != nullptr && i < count(); ++i) {
        if (!BandOf(i).isEmpty()) {
            return true;
        }
    }
    return false;
}

QSize TGridHeader::sizeHint() const {
    const QSize line = QHeaderView::sizeHint();
    return HasBands() ? QSize(line.width(), 2 * line.height()) : line;
}

QRect TGridHeader::BandRect(int logicalIndex) const {
    const QString band = BandOf(logicalIndex);
    if (band.isEmpty()) {
        return {};
    }
    int left = sectionViewportPosition(logicalIndex);
    int right = left + sectionSize(logicalIndex);
    const auto widen = [&](int step) {
        for (int visual = visualIndex(logicalIndex) + step; visual >= 0 && visual < count(); visual += step) {
            const int other = this->logicalIndex(visual);
            if (BandOf(other) != band) {
                return;
            }
            if (!isSectionHidden(other)) {
                left = std::min(left, sectionViewportPosition(other));
                right = std::max(right, sectionViewportPosition(other) + sectionSize(other));
            }
        }
    };
    widen(-1);
    widen(1);
    return {left, 0, right - left, height() / 2};
}

void TGridHeader::paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const {
    const QRect band = BandRect(logicalIndex);
    if (band.isEmpty()) {
        QHeaderView::paintSection(painter, rect, logicalIndex);
        return;
    }
    QHeaderView::paintSection(painter, rect.adjusted(0, band.height(), 0, 0), logicalIndex);
    painter->save();
    painter->setClipRect(QRect(rect.topLeft(), QSize(rect.width(), band.height())));
    QStyleOptionHeader option;
    initStyleOption(&option);
    option.rect = band;
    option.text = fontMetrics().elidedText(BandOf(logicalIndex), Qt::ElideRight, band.width() - 8);
    option.textAlignment = Qt::AlignCenter;
    option.section = logicalIndex;
    option.position = QStyleOptionHeader::Middle;
    style()->drawControl(QStyle::CE_Header, &option, painter, this);
    painter->restore();
}
