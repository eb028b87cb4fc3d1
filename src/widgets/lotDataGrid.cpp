// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotDataGrid.h"

#include "widgets/lotChoiceEdit.h"
#include "widgets/lotGridHeader.h"

#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QScopeGuard>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <memory>
#include <utility>

namespace {

constexpr int RowPadding = 8;

/// A link of the grid's own, with its guard.
std::unique_ptr<TGridLink> OwnLink(TlotCustomDataSource& source) {
    auto guard = std::make_unique<THookGuard>();
    auto link = std::make_unique<TGridLink>(source, *guard);
    guard.release()->setParent(link.get());
    return link;
}

} // namespace

TDataGrid::TDataGrid(TlotCustomDataSource& source, std::vector<TGridColumn> columns, const TNumberLocale& locale,
                     const QString& newRowText, QWidget* parent)
    : QTableView(parent) {
    auto link = OwnLink(source);
    FBridge = new TGridBridge(*link, std::move(columns), locale, newRowText, -1, this);
    link.release()->setParent(FBridge);
    SetUp();
}

TDataGrid::TDataGrid(TGridLink& link, std::vector<TGridColumn> columns, const TNumberLocale& locale,
                     const QString& newRowText, int master, QWidget* parent)
    : QTableView(parent), FBridge(new TGridBridge(link, std::move(columns), locale, newRowText, master, this)) {
    SetUp();
}

TDataGrid::~TDataGrid() {
    // An editor that goes with the grid posts nothing.
    DropEditor();
}

void TDataGrid::SetUp() {
    // What the list keeps is noted before the view hears of its end, and given back after.
    connect(FBridge, &QAbstractItemModel::modelAboutToBeReset, this, &TDataGrid::Keep);
    setHorizontalHeader(new TGridHeader(this));
    setModel(FBridge);
    auto* const delegate = new TGridDelegate(Guard(), this);
    setItemDelegate(delegate);
    setSortingEnabled(false);
    setShowGrid(true);
    setGridStyle(Qt::SolidLine);
    setSelectionMode(ContiguousSelection);
    setEditTriggers(DoubleClicked | AnyKeyPressed | EditKeyPressed);
    setTabKeyNavigation(true);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerPixel);
    setWordWrap(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + RowPadding);
    SetUpColumns();
    connect(delegate, &TGridDelegate::Finished, this, &TDataGrid::Finish);
    connect(FBridge, &TGridBridge::Appended, this, [this](int record) { FAppended = record; });
    connect(FBridge, &QAbstractItemModel::modelReset, this, &TDataGrid::Restore);
    connect(FBridge, &QAbstractItemModel::modelReset, this, &TDataGrid::Follow);
    connect(FBridge, &QAbstractItemModel::dataChanged, this, &TDataGrid::Follow);
    connect(FBridge, &QAbstractItemModel::rowsInserted, this, &TDataGrid::Follow);
    connect(FBridge, &QAbstractItemModel::rowsRemoved, this, &TDataGrid::Follow);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, &TDataGrid::PlaceFooter);
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, &TDataGrid::PlaceFooter);
}

void TDataGrid::SetUpColumns() {
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setHighlightSections(false);
    for (int column = 0; column < FBridge->columnCount(); ++column) {
        const int width = FBridge->Column(column).Width;
        if (width > 0) {
            setColumnWidth(column, width);
        } else {
            horizontalHeader()->setSectionResizeMode(column, QHeaderView::Stretch);
        }
    }
}

int TDataGrid::FocusedRecord() const {
    const QModelIndex index = currentIndex();
    return index.isValid() && !FBridge->IsNewRow(index.row()) ? index.row() : -1;
}

void TDataGrid::FocusRecord(int record, int column) {
    FocusCell(FBridge->index(std::clamp(record, 0, std::max(0, FBridge->rowCount() - 1)), column));
}

bool TDataGrid::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    const bool done = QTableView::edit(index, trigger, event);
    QWidget* const editor = done ? indexWidget(index) : nullptr;
    if (editor != nullptr && editor != FEditor) {
        FEditor = editor;
        FAppended = -1;
        if (auto* const choice = qobject_cast<TChoiceEdit*>(editor); choice != nullptr && trigger == DoubleClicked) {
            choice->showPopup();
        }
    }
    return done;
}

void TDataGrid::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    // An editor may have been dropped while its edit was posted.
    if (editor == nullptr || editor != FEditor) {
        return;
    }
    const QModelIndex current = currentIndex();
    const bool stays = indexWidget(current) == editor;
    FEditor = nullptr;
    QTableView::closeEditor(editor, hint);
    const int appended = std::exchange(FAppended, -1);
    if (stays && appended >= 0) {
        // The editor stood in the row for new ones; what it made is where the user is now.
        FocusCell(FBridge->index(appended, current.column()));
    }
}

void TDataGrid::Finish(QWidget* editor, TGridStep step) {
    if (editor != FEditor) {
        return;
    }
    Guard().Run([this, step] {
        Post();
        if (!Step(step) && (step == TGridStep::Next || step == TGridStep::Previous)) {
            focusNextPrevChild(step == TGridStep::Next);
        }
    });
}

void TDataGrid::Post() {
    if (FEditor.isNull() || FPosting) {
        return;
    }
    Guard().Run([this] {
        FPosting = true;
        const auto done = qScopeGuard([this] { FPosting = false; });
        QWidget* const editor = FEditor;
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    });
}

void TDataGrid::DropEditor() {
    if (QWidget* const editor = FEditor) {
        // The delegate would post it as it loses the focus.
        editor->removeEventFilter(itemDelegate());
        closeEditor(editor, QAbstractItemDelegate::RevertModelCache);
    }
}

void TDataGrid::Keep() {
    FReloading = true;
    FAppended = -1;
    DropEditor();
    const QModelIndex current = currentIndex();
    FKept = {current.row(), current.column(), current.isValid() && FBridge->IsNewRow(current.row()),
             horizontalScrollBar()->value(), verticalScrollBar()->value()};
}

void TDataGrid::Restore() {
    const int count = FBridge->RecordCount();
    int row = FKept.Row;
    if (FKept.NewRow && FBridge->HasNewRow()) {
        row = count;
    } else if (FCurrentKey != nullptr && row >= 0 && (row >= count || FBridge->Key(row) != FCurrentKey)) {
        for (int record = 0; record < count; ++record) {
            if (FBridge->Key(record) == FCurrentKey) {
                row = record;
                break;
            }
        }
    }
    row = std::min(row, FBridge->rowCount() - 1);
    if (row >= 0) {
        const QModelIndex index = FBridge->index(row, FKept.Column);
        FAnchor = index;
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    }
    executeDelayedItemsLayout();
    horizontalScrollBar()->setValue(FKept.Across);
    verticalScrollBar()->setValue(FKept.Down);
    FReloading = false;
}

void TDataGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    const bool record = current.isValid() && current.row() < FBridge->RecordCount();
    FCurrentKey = record ? FBridge->Key(current.row()) : nullptr;
}

void TDataGrid::SetFooter(int column, const std::string& mask) {
    FFooterColumn = column;
    FFooterMask = mask;
    if (FFooter == nullptr) {
        FFooterPlace = new QWidget(this);
        FFooter = new QLabel(FFooterPlace);
        FFooter->setObjectName("lblFooter");
        FFooter->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        FFooter->setContentsMargins(0, 0, 4, 0);
        QFont bold = FFooter->font();
        bold.setBold(true);
        FFooter->setFont(bold);
        FFooterPlace->show();
    }
    FFooter->setAccessibleDescription("Total of " + FBridge->Column(column).Caption);
    updateGeometries();
    Follow();
}

void TDataGrid::updateGeometries() {
    if (FFooter == nullptr) {
        QTableView::updateGeometries();
        return;
    }
    if (std::exchange(FPlacing, true)) {
        return;
    }
    // The toolkit keeps no room below its cells, and gives up any at each turn; so the footer takes its own again, and
    // the scroll bar learns of it. A second turn follows where a scroll bar has come or gone.
    const int scrolled = verticalScrollBar()->value();
    QSize size;
    for (int turn = 0; turn < 2 && size != viewport()->size(); ++turn) {
        QTableView::updateGeometries();
        QMargins margins = viewportMargins();
        margins.setBottom(verticalHeader()->defaultSectionSize());
        setViewportMargins(margins);
        size = viewport()->size();
        verticalScrollBar()->setPageStep(size.height());
        verticalScrollBar()->setRange(0, std::max(0, verticalHeader()->length() - size.height()));
    }
    verticalScrollBar()->setValue(scrolled);
    FPlacing = false;
    PlaceFooter();
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
        FFooterPlace->setGeometry(area.left(), area.bottom() + 1, area.width(), height);
        FFooter->setGeometry(columnViewportPosition(FFooterColumn), 0, columnWidth(FFooterColumn), height);
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

void TDataGrid::mousePressEvent(QMouseEvent* event) {
    Guard().Run([this, event] {
        const QModelIndex index = indexAt(event->position().toPoint());
        const bool left = event->button() == Qt::LeftButton && index.isValid();
        if (left && event->modifiers() == Qt::ShiftModifier) {
            Post();
            MarkTo(index);
            return;
        }
        if (left && !FBridge->Column(index.column()).TakesFocus) {
            // The record gets the focus, in the column where the focus is.
            const int column = currentIndex().isValid() ? currentIndex().column() : NextColumn(-1, 1);
            FocusCell(FBridge->index(index.row(), column));
            return;
        }
        QTableView::mousePressEvent(event);
        FAnchor = currentIndex();
    });
}

void TDataGrid::mouseReleaseEvent(QMouseEvent* event) {
    Guard().Run([this, event] { QTableView::mouseReleaseEvent(event); });
}

void TDataGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    Guard().Run([this, event] { QTableView::mouseDoubleClickEvent(event); });
}

void TDataGrid::focusInEvent(QFocusEvent* event) {
    const bool anywhere = currentIndex().isValid();
    QTableView::focusInEvent(event);
    if (!anywhere && event->reason() != Qt::MouseFocusReason && FBridge->rowCount() > 0) {
        FocusCell(FBridge->index(0, NextColumn(-1, 1)));
    } else if (anywhere && selectionModel()->selection().isEmpty()) {
        FocusCell(currentIndex());
    }
}

void TDataGrid::contextMenuEvent(QContextMenuEvent* event) {
    if (!OnContextMenu) {
        return;
    }
    Guard().Run([this, event] {
        Post();
        const auto showMenu = OnContextMenu; // Held while it runs: it may go with the grid.
        if (event->reason() == QContextMenuEvent::Keyboard) {
            showMenu(viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft()));
            return;
        }
        const QModelIndex index = indexAt(viewport()->mapFromGlobal(event->globalPos()));
        if (index.isValid() && !selectionModel()->isSelected(index)) {
            FocusCell(index);
        }
        showMenu(event->globalPos());
    });
}

void TDataGrid::Refresh() {
    FBridge->Link().Refresh();
}
