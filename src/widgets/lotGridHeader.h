// SPDX-License-Identifier: GPL-3.0-or-later
//
// The head of a grid: captions, and above them, where columns have bands, a line of their bands.
#pragma once

#include <QHeaderView>

class TGridHeader : public QHeaderView {
    Q_OBJECT

public:
    explicit TGridHeader(QWidget* parent = nullptr);

    /// The place in the viewport of the band over a column, over all its columns that are shown; none if it has no
    /// band.
    [[nodiscard]] QRect BandRect(int logicalIndex) const;
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override;

private:
    [[nodiscard]] QString BandOf(int logicalIndex) const;
    [[nodiscard]] bool HasBands() const;
};
