// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotDataGrid.h"

#include "widgets/lotGridDelegate.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

namespace {

constexpr int RowPadding = 8;

} // namespace

TDataGrid::TDataGrid(TlotCustomDataSource& source, std::vector<TGridColumn> columns, const TNumberLocale& locale,
                     const QString& newRowText, int master, QWidget* parent)
    : QTableView(parent), FBridge(new TGridBridge(source, std::move(columns), locale, newRowText, master, this)) {
    setModel(FBridge);
    setItemDelegate(new TGridDelegate(this));
    setSortingEnabled(false);
    setShowGrid(true);
    setGridStyle(Qt::SolidLine);
    setSelectionMode(SingleSelection);
    setEditTriggers(DoubleClicked | AnyKeyPressed | EditKeyPressed);
    setTabKeyNavigation(true);
    setHorizontalScrollMode(ScrollPerPixel);
    setWordWrap(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + RowPadding);
    horizontalHeader()->setHighlightSections(false);
    for (int column = 0; column < FBridge->columnCount(); ++column) {
        const int width = FBridge->Column(column).Width;
        if (width > 0) {
            setColumnWidth(column, width);
        } else {
            horizontalHeader()->setSectionResizeMode(column, QHeaderView::Stretch);
        }
    }
    connect(FBridge, &QAbstractItemModel::modelReset, this, &TDataGrid::Follow);
    connect(FBridge, &QAbstractItemModel::dataChanged, this, &TDataGrid::Follow);
    connect(FBridge, &QAbstractItemModel::rowsInserted, this, &TDataGrid::Follow);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, &TDataGrid::PlaceFooter);
}

int TDataGrid::FocusedRecord() const {
    const QModelIndex index = currentIndex();
    return index.isValid() && !FBridge->IsNewRow(index.row()) ? index.row() : -1;
}

void TDataGrid::FocusRecord(int record, int column) {
    setCurrentIndex(FBridge->index(std::clamp(record, 0, std::max(0, FBridge->rowCount() - 1)), column));
}

void TDataGrid::Post() {
    if (QWidget* const editor = state() == EditingState ? indexWidget(currentIndex()) : nullptr) {
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
}

void TDataGrid::SetFooter(int column, const std::string& mask) {
    FFooterColumn = column;
    FFooterMask = mask;
    FFooter = new QLabel(this);
    FFooter->setObjectName("lblFooter");
    FFooter->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    FFooter->setContentsMargins(0, 0, 4, 0);
    QFont bold = FFooter->font();
    bold.setBold(true);
    FFooter->setFont(bold);
    setViewportMargins(0, horizontalHeader()->isHidden() ? 0 : horizontalHeader()->sizeHint().height(), 0,
                       verticalHeader()->defaultSectionSize());
    Follow();
}

void TDataGrid::SetGrowing(bool growing) {
    FGrowing = growing;
    setVerticalScrollBarPolicy(growing ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
    setSizePolicy(QSizePolicy::Expanding, growing ? QSizePolicy::Fixed : QSizePolicy::Expanding);
    updateGeometry();
}

void TDataGrid::Follow() {
    if (FFooter != nullptr) {
        const std::string sum = vip::FormatMask(FFooterMask, FBridge->Sum(FFooterColumn), FBridge->Locale());
        FFooter->setText(QString::fromStdString(sum));
        PlaceFooter();
    }
    updateGeometry();
}

void TDataGrid::PlaceFooter() {
    if (FFooter != nullptr) {
        const int height = verticalHeader()->defaultSectionSize();
        const QRect area = viewport()->geometry();
        FFooter->setGeometry(area.left() + columnViewportPosition(FFooterColumn), area.bottom() + 1,
                             columnWidth(FFooterColumn), height);
    }
}

int TDataGrid::RowsHeight() const {
    const int header = horizontalHeader()->isHidden() ? 0 : horizontalHeader()->sizeHint().height();
    const int footer = FFooter != nullptr ? verticalHeader()->defaultSectionSize() : 0;
    return header + footer + FBridge->rowCount() * verticalHeader()->defaultSectionSize() + 2 * frameWidth();
}

QSize TDataGrid::sizeHint() const {
    return FGrowing ? QSize(QTableView::sizeHint().width(), RowsHeight()) : QTableView::sizeHint();
}

QSize TDataGrid::minimumSizeHint() const {
    return FGrowing ? QSize(QTableView::minimumSizeHint().width(), RowsHeight()) : QTableView::minimumSizeHint();
}

void TDataGrid::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    PlaceFooter();
}

void TDataGrid::wheelEvent(QWheelEvent* event) {
    // The page around a growing grid is what scrolls.
    if (FGrowing && event->angleDelta().x() == 0) {
        event->ignore();
    } else {
        QTableView::wheelEvent(event);
    }
}

void TDataGrid::keyPressEvent(QKeyEvent* event) {
    const int record = FocusedRecord();
    const bool up = event->key() == Qt::Key_Up;
    if ((up || event->key() == Qt::Key_Down) && event->modifiers() == Qt::ControlModifier && OnMove) {
        const int column = std::max(0, currentIndex().column());
        const int step = up ? -1 : 1;
        // The key is used up also where there is nowhere to go.
        if (record >= 0 && OnMove(record, step)) {
            FocusRecord(record + step, column);
        }
        return;
    }
    if (event->key() == Qt::Key_Delete && event->modifiers() == Qt::NoModifier) {
        if (OnDelete && record >= 0) {
            OnDelete(record);
        }
        return;
    }
    QTableView::keyPressEvent(event);
}

void TDataGrid::contextMenuEvent(QContextMenuEvent* event) {
    if (!OnContextMenu) {
        return;
    }
    if (event->reason() == QContextMenuEvent::Keyboard) {
        OnContextMenu(viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft()));
        return;
    }
    if (const QModelIndex index = indexAt(viewport()->mapFromGlobal(event->globalPos())); index.isValid()) {
        setCurrentIndex(index);
    }
    OnContextMenu(event->globalPos());
}

void TDataGrid::Refresh() {
    viewport()->update();
    Follow();
}
