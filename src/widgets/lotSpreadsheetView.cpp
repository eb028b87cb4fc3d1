// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotSpreadsheetView.h"

#include "widgets/lotAccessibleParts.h"
#include "widgets/lotHook.h"
#include "widgets/lotSheetAccessible.h"
#include "widgets/lotToolTipText.h"

#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <cmath>

namespace {

QColor GridColour(const QPalette& palette) {
    QColor colour = palette.color(QPalette::Mid);
    colour.setAlpha(70);
    return colour;
}

} // namespace

TSpreadsheetView::TSpreadsheetView(TSpreadsheetPage& page, const TNumberLocale& locale, QWidget* parent)
    : QAbstractScrollArea(parent), FPage(page), FLocale(locale) {
    InstallSheetAccessible();
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setCursor(Qt::ArrowCursor);
    horizontalScrollBar()->setSingleStep(1);
    verticalScrollBar()->setSingleStep(3);
    FPage.OnChange = [this] { PageChanged(); };
    PageChanged();
}

TSpreadsheetView::~TSpreadsheetView() {
    FPage.OnChange = nullptr;
    DropEdit();
    DropAccessible(*this);
}

void TSpreadsheetView::PageChanged() {
    const TSheetSelection before = Selection();
    DropEdit(); // First: scrolling would post it, into a cell that may be another one by now.
    Relayout();
    const int lastRow = FPage.RowCount() - 1;
    const int lastColumn = FPage.ColumnCount() - 1;
    FRow = std::clamp(FRow, std::min(0, lastRow), lastRow);
    FColumn = std::clamp(FColumn, std::min(0, lastColumn), lastColumn);
    FAnchorRow = std::clamp(FAnchorRow, std::min(0, lastRow), lastRow);
    FAnchorColumn = std::clamp(FAnchorColumn, std::min(0, lastColumn), lastColumn);
    viewport()->update();
    TellPartsRebuilt(*this);
    if (Selection() != before) {
        RunHook(OnSelectionChange);
    }
}

void TSpreadsheetView::Relayout() {
    FFonts = std::make_unique<TSheetFonts>(FPage, viewport());
    FGeometry = std::make_unique<TSheetGeometry>(FPage, *FFonts, logicalDpiX() / 96.0);
    UpdateScrollBars();
    PlaceEditor();
}

QString TSpreadsheetView::CellText(int row, int column) const {
    return QString::fromStdString(FPage.Shown(row, column, FLocale).Text);
}

QString TSpreadsheetView::ColumnCaption(int column) const {
    const auto index = static_cast<std::size_t>(column);
    if (index < FPage.ColumnHeaders.size()) {
        return QString::fromStdString(FPage.ColumnHeaders[index]);
    }
    return FrozenRows() > 0 ? CellText(FrozenRows() - 1, column) : QString();
}

void TSpreadsheetView::UpdateScrollBars() {
    // The furthest that the sheet scrolls is where its last row and column are in view whole.
    const auto furthest = [](int frozen, int count, double room, const auto& edge) {
        int first = count;
        while (first > frozen && edge(count) - edge(first - 1) <= room) {
            --first;
        }
        return std::max(0, std::min(first, count - 1) - frozen);
    };
    const double width = viewport()->width() - FrozenWidth();
    const double height = viewport()->height() - FrozenHeight();
    const auto left = [this](int column) { return FGeometry->Left(column); };
    const auto top = [this](int row) { return FGeometry->Top(row); };
    horizontalScrollBar()->setRange(0, furthest(FrozenColumns(), FGeometry->Columns(), width, left));
    verticalScrollBar()->setRange(0, furthest(FrozenRows(), FGeometry->Rows(), height, top));
    horizontalScrollBar()->setPageStep(std::max(1, static_cast<int>(width / std::max(1, FPage.DefaultColumnWidth))));
    verticalScrollBar()->setPageStep(std::max(1, static_cast<int>(height / FFonts->RowHeight(0))));
}

int TSpreadsheetView::HeaderHeight() const {
    return FPage.ColumnHeaders.empty() ? 0 : static_cast<int>(FFonts->RowHeight(0)) + 4;
}

int TSpreadsheetView::FrozenRows() const {
    return std::min(FPage.FrozenRows, FPage.RowCount());
}

int TSpreadsheetView::FrozenColumns() const {
    return std::min(FPage.FrozenColumns, FPage.ColumnCount());
}

int TSpreadsheetView::FirstScrolledRow() const {
    return FrozenRows() + verticalScrollBar()->value();
}

int TSpreadsheetView::FirstScrolledColumn() const {
    return FrozenColumns() + horizontalScrollBar()->value();
}

double TSpreadsheetView::FrozenWidth() const {
    return FGeometry->Left(FrozenColumns());
}

double TSpreadsheetView::FrozenHeight() const {
    return HeaderHeight() + FGeometry->Top(FrozenRows());
}

double TSpreadsheetView::X(int column) const {
    return column < FrozenColumns() ? FGeometry->Left(column)
                                    : FrozenWidth() + FGeometry->Left(column) - FGeometry->Left(FirstScrolledColumn());
}

double TSpreadsheetView::Y(int row) const {
    return row < FrozenRows() ? HeaderHeight() + FGeometry->Top(row)
                              : FrozenHeight() + FGeometry->Top(row) - FGeometry->Top(FirstScrolledRow());
}

QRect TSpreadsheetView::CellRect(int row, int column) const {
    if (row < 0 || row >= FGeometry->Rows() || column < 0 || column >= FGeometry->Columns() ||
        (row >= FrozenRows() && row < FirstScrolledRow()) ||
        (column >= FrozenColumns() && column < FirstScrolledColumn())) {
        return {};
    }
    const QRectF cell(X(column), Y(row), FGeometry->Width(column), FGeometry->Height(row));
    return cell.toRect() & viewport()->rect();
}

QRect TSpreadsheetView::HeaderRect(int column) const {
    if (column < 0 || column >= FGeometry->Columns() || (column >= FrozenColumns() && column < FirstScrolledColumn())) {
        return {};
    }
    return QRectF(X(column), 0, FGeometry->Width(column), HeaderHeight()).toRect() & viewport()->rect();
}

TSpreadsheetView::TPlace TSpreadsheetView::CellAt(const QPoint& position) const {
    if (FGeometry->Rows() == 0 || FGeometry->Columns() == 0 || !viewport()->rect().contains(position)) {
        return {};
    }
    const double x = position.x() < FrozenWidth()
                         ? position.x()
                         : position.x() - FrozenWidth() + FGeometry->Left(FirstScrolledColumn());
    const double y = position.y() < FrozenHeight() ? position.y() - HeaderHeight()
                                                   : position.y() - FrozenHeight() + FGeometry->Top(FirstScrolledRow());
    if (y < 0 || x >= FGeometry->Left(FGeometry->Columns()) || y >= FGeometry->Top(FGeometry->Rows())) {
        return {};
    }
    return {FGeometry->RowAt(y), FGeometry->ColumnAt(x)};
}

std::vector<TSpreadsheetView::TRegion> TSpreadsheetView::Regions() const {
    if (FGeometry->Rows() == 0 || FGeometry->Columns() == 0) {
        return {};
    }
    const int width = viewport()->width();
    const int height = viewport()->height();
    const int fx = static_cast<int>(FrozenWidth());
    const int fy = static_cast<int>(FrozenHeight());
    const int header = HeaderHeight();
    const int row = FirstScrolledRow();
    const int column = FirstScrolledColumn();
    const int lastRow = FGeometry->RowAt(FGeometry->Top(std::min(row, FGeometry->Rows())) + height - fy);
    const int lastColumn = FGeometry->ColumnAt(FGeometry->Left(std::min(column, FGeometry->Columns())) + width - fx);
    return {{QRect(fx, fy, width - fx, height - fy), row, lastRow, column, lastColumn},
            {QRect(0, fy, fx, height - fy), row, lastRow, 0, FrozenColumns() - 1},
            {QRect(fx, header, width - fx, fy - header), 0, FrozenRows() - 1, column, lastColumn},
            {QRect(0, header, fx, fy - header), 0, FrozenRows() - 1, 0, FrozenColumns() - 1}};
}

void TSpreadsheetView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    FPaintedCells = 0;
    const TSheetPainter cells(FPage, *FFonts, FLocale, logicalDpiX() / 96.0);
    for (TRegion region : Regions()) {
        region.Clip &= event->rect();
        if (!region.Clip.isEmpty()) {
            painter.setClipRect(region.Clip);
            PaintRegion(painter, region, cells);
        }
    }
    painter.setClipping(false);
    PaintHeader(painter);
    PaintEdges(painter);
}

void TSpreadsheetView::PaintRegion(QPainter& painter, const TRegion& region, const TSheetPainter& cells) {
    const QColor grid = GridColour(palette());
    const bool frozen = region.FirstRow < FrozenRows();
    if (frozen) {
        painter.fillRect(region.Clip, palette().color(QPalette::AlternateBase));
    }
    for (int row = region.FirstRow; row <= region.LastRow; ++row) {
        for (int column = region.FirstColumn; column <= region.LastColumn; ++column) {
            const QRectF cell(X(column), Y(row), FGeometry->Width(column), FGeometry->Height(row));
            cells.Ground(painter, row, column, cell);
            painter.fillRect(QRectF(cell.left(), cell.bottom() - 1, cell.width(), 1), grid);
            if (!frozen && FPage.StyleOf(FPage.Cell(row, column)).Background != SheetPalette::Heading) {
                painter.fillRect(QRectF(cell.right() - 1, cell.top(), 1, cell.height()), grid);
            }
        }
    }
    PaintSelection(painter, region);
    for (int row = region.FirstRow; row <= region.LastRow; ++row) {
        for (int column = region.FirstColumn; column <= region.LastColumn; ++column) {
            PaintText(painter, region, cells, row, column);
        }
    }
    FPaintedCells += (region.LastRow - region.FirstRow + 1) * (region.LastColumn - region.FirstColumn + 1);
}

void TSpreadsheetView::PaintText(QPainter& painter, const TRegion& region, const TSheetPainter& cells, int row,
                                 int column) const {
    if (!cells.IsFilled(row, column)) {
        return;
    }
    const QRectF cell(X(column), Y(row), FGeometry->Width(column), FGeometry->Height(row));
    QRectF room = cell;
    for (int next = column + 1; next <= region.LastColumn && !cells.IsFilled(row, next); ++next) {
        room.setRight(room.right() + FGeometry->Width(next));
    }
    cells.Text(painter, row, column, cell, room);
}

void TSpreadsheetView::PaintSelection(QPainter& painter, const TRegion& region) const {
    const TSheetSelection selected = Selection();
    const int top = std::max(selected.Top, region.FirstRow);
    const int bottom = std::min(selected.Bottom, region.LastRow);
    const int left = std::max(selected.Left, region.FirstColumn);
    const int right = std::min(selected.Right, region.LastColumn);
    if (selected.IsEmpty() || top > bottom || left > right) {
        return;
    }
    const QRectF place(QPointF(X(left), Y(top)),
                       QPointF(X(right) + FGeometry->Width(right), Y(bottom) + FGeometry->Height(bottom)));
    QColor colour = palette().color(QPalette::Highlight);
    const QColor line = colour;
    colour.setAlpha(top == bottom && left == right ? 0 : 36);
    painter.fillRect(place, colour);
    if (hasFocus() || FEditor != nullptr) {
        painter.setPen(QPen(line, 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(place.adjusted(0.5, 0.5, -1.5, -1.5));
        if (region.FirstRow <= FRow && FRow <= region.LastRow && region.FirstColumn <= FColumn &&
            FColumn <= region.LastColumn) {
            painter.setPen(QPen(line, 2));
            painter.drawRect(
                QRectF(X(FColumn), Y(FRow), FGeometry->Width(FColumn), FGeometry->Height(FRow)).adjusted(1, 1, -2, -2));
        }
    }
}

void TSpreadsheetView::PaintHeader(QPainter& painter) const {
    const int height = HeaderHeight();
    if (height == 0) {
        return;
    }
    painter.fillRect(QRect(0, 0, viewport()->width(), height), palette().color(QPalette::AlternateBase));
    TSpreadsheetStyle bold;
    bold.Bold = true;
    painter.setFont(FFonts->Font(bold));
    painter.setPen(palette().color(QPalette::Text));
    for (int column = FirstScrolledColumn(); column < FGeometry->Columns() && X(column) < viewport()->width();
         ++column) {
        const auto index = static_cast<std::size_t>(column);
        if (index < FPage.ColumnHeaders.size()) {
            const QRectF place(X(column), 0, FGeometry->Width(column), height);
            painter.drawText(place.adjusted(4, 0, -4, 0), Qt::AlignRight | Qt::AlignVCenter,
                             QString::fromStdString(FPage.ColumnHeaders[index]));
        }
    }
}

/// Fine rules where the part begins that scrolls.
void TSpreadsheetView::PaintEdges(QPainter& painter) const {
    const QColor rule = palette().color(QPalette::Mid);
    if (FrozenColumns() > 0) {
        painter.fillRect(QRectF(FrozenWidth() - 1, 0, 1, viewport()->height()), rule);
    }
    if (FrozenHeight() > 0) {
        painter.fillRect(QRectF(0, FrozenHeight() - 1, viewport()->width(), 1), rule);
    }
}

void TSpreadsheetView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    UpdateScrollBars();
}

void TSpreadsheetView::scrollContentsBy(int /*dx*/, int /*dy*/) {
    EndEdit(true);
    viewport()->update();
}

void TSpreadsheetView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange) {
        Relayout();
        viewport()->update();
    }
}

bool TSpreadsheetView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return QAbstractScrollArea::viewportEvent(event);
    }
    const auto* const help = dynamic_cast<QHelpEvent*>(event);
    const TPlace place = CellAt(help->pos());
    const TSheetPainter cells(FPage, *FFonts, FLocale, logicalDpiX() / 96.0);
    if (place.Row >= 0 && cells.IsFilled(place.Row, place.Column) &&
        cells.IsCut(place.Row, place.Column, FGeometry->Width(place.Column))) {
        QToolTip::showText(help->globalPos(), ToolTipText(CellText(place.Row, place.Column)), viewport(),
                           CellRect(place.Row, place.Column));
    } else {
        QToolTip::hideText();
    }
    return true;
}
