// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotSheetPrinter.h"

#include "widgets/lotPalette.h"

#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <algorithm>

namespace {

/// The first index behind `first` that no longer fits, but at least the next one.
template <typename TEdge> int Fitting(int first, int count, double room, const TEdge& edge) {
    int end = first + 1;
    while (end < count && edge(end + 1) - edge(first) <= room) {
        ++end;
    }
    return end;
}

} // namespace

std::vector<TSheetPageRange> PaginateSheet(const TSheetGeometry& geometry, int frozenRows, int frozenColumns,
                                           double width, double height, const std::vector<bool>& headings) {
    std::vector<TSheetPageRange> pages;
    const double columnRoom = width - geometry.Left(frozenColumns);
    const double rowRoom = height - geometry.Top(frozenRows);
    const auto top = [&](int row) { return geometry.Top(row); };
    const auto left = [&](int column) { return geometry.Left(column); };
    for (int column = frozenColumns; column < geometry.Columns();) {
        const int nextColumn = Fitting(column, geometry.Columns(), columnRoom, left);
        for (int row = frozenRows; row < geometry.Rows();) {
            int nextRow = Fitting(row, geometry.Rows(), rowRoom, top);
            while (nextRow < geometry.Rows() && nextRow - 1 > row &&
                   headings.at(static_cast<std::size_t>(nextRow - 1))) {
                --nextRow;
            }
            pages.push_back({row, nextRow - 1, column, nextColumn - 1});
            row = nextRow;
        }
        column = nextColumn;
    }
    return pages;
}

TSheetPrinter::TSheetPrinter(const TSpreadsheetPage& page, const TNumberLocale& locale, const QPagedPaintDevice& device)
    : FPage(page),
      FLocale(locale),
      FScale(device.logicalDpiX() / 96.0),
      FFonts(page, &device),
      FGeometry(page, FFonts, FScale) {
    const QPageLayout layout = device.pageLayout();
    // The painter begins at the corner of the margins.
    FArea = QRectF(QPointF(0, 0), QSizeF(layout.paintRectPixels(device.logicalDpiX()).size()));
    FFootHeight = 2 * FFonts.RowHeight(0);
    std::vector<bool> headings;
    for (int row = 0; row < page.RowCount(); ++row) {
        headings.push_back(page.RowSizeDelta(row) > 0);
    }
    FPages = PaginateSheet(FGeometry, std::min(page.FrozenRows, page.RowCount()),
                           std::min(page.FrozenColumns, page.ColumnCount()), FArea.width(),
                           FArea.height() - FFootHeight, headings);
}

void TSheetPrinter::DrawCells(QPainter& painter, const TSheetPageRange& range) const {
    std::vector<int> rows;
    std::vector<int> columns;
    const auto fill = [](std::vector<int>& list, int frozen, int first, int last) {
        for (int i = 0; i < frozen; ++i) {
            list.push_back(i);
        }
        for (int i = first; i <= last; ++i) {
            list.push_back(i);
        }
    };
    fill(rows, FPage.FrozenRows, range.FirstRow, range.LastRow);
    fill(columns, FPage.FrozenColumns, range.FirstColumn, range.LastColumn);
    const TSheetPainter cells(FPage, FFonts, FLocale, FScale);
    double y = 0;
    for (const int row : rows) {
        QRectF cell(0, y, 0, FGeometry.Height(row));
        for (const int column : columns) {
            cell.setLeft(cell.right());
            cell.setWidth(FGeometry.Width(column));
            cells.Ground(painter, row, column, cell);
        }
        painter.fillRect(QRectF(0, cell.bottom(), cell.right(), FScale / 2), colour::Rule());
        cell.setRect(0, y, 0, FGeometry.Height(row));
        for (std::size_t i = 0; i < columns.size(); ++i) {
            cell.setLeft(cell.right());
            cell.setWidth(FGeometry.Width(columns[i]));
            QRectF room = cell;
            for (std::size_t next = i + 1; next < columns.size() && !cells.IsFilled(row, columns[next]); ++next) {
                room.setRight(room.right() + FGeometry.Width(columns[next]));
            }
            cells.Text(painter, row, columns[i], cell, room);
        }
        y += FGeometry.Height(row);
    }
}

void TSheetPrinter::DrawFoot(QPainter& painter, int page) const {
    const QRectF foot(FArea.left(), FArea.bottom() - FFonts.RowHeight(0), FArea.width(), FFonts.RowHeight(0));
    painter.setFont(FFonts.Font({}));
    painter.setPen(Qt::black);
    painter.drawText(foot, Qt::AlignLeft | Qt::AlignVCenter, QString::fromStdString(FPage.Title));
    painter.drawText(foot, Qt::AlignRight | Qt::AlignVCenter,
                     QString("Page %1 of %2").arg(page + 1).arg(std::max(1, PageCount())));
}

void TSheetPrinter::DrawPage(QPainter& painter, int page) const {
    painter.save();
    if (page < PageCount()) {
        painter.setClipRect(FArea);
        DrawCells(painter, FPages[static_cast<std::size_t>(page)]);
    }
    DrawFoot(painter, page);
    painter.restore();
}

void TSheetPrinter::Print(QPagedPaintDevice& device, int first, int last) const {
    QPainter painter(&device);
    for (int page = first; page <= last; ++page) {
        if (page > first) {
            device.newPage();
        }
        DrawPage(painter, page);
    }
}
