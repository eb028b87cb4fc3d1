// SPDX-License-Identifier: GPL-3.0-or-later
//
// The keys of TDataGrid: walking, marking blocks, and what is done with them.
#include "widgets/lotButtonEdit.h"
#include "widgets/lotChoiceEdit.h"
#include "widgets/lotDataGrid.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QItemSelection>
#include <QKeyEvent>
#include <QPointer>
#include <algorithm>

namespace {

Qt::KeyboardModifiers Modifiers(const QKeyEvent& event) {
    return event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
}

bool IsEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

bool IsUpOrDown(const QKeyEvent& event) {
    return event.key() == Qt::Key_Up || event.key() == Qt::Key_Down;
}

bool IsDelete(const QKeyEvent& event, Qt::KeyboardModifiers modifiers) {
    return event.key() == Qt::Key_Delete && Modifiers(event) == modifiers;
}

} // namespace

bool TDataGrid::event(QEvent* event) {
    // Its keys are the grid's, whatever a menu of the window has them for.
    if (event->type() == QEvent::ShortcutOverride && IsOwnKey(static_cast<QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    return QTableView::event(event);
}

bool TDataGrid::IsOwnKey(const QKeyEvent& event) const {
    const Qt::KeyboardModifiers modifiers = Modifiers(event);
    return event.matches(QKeySequence::Copy) || event.matches(QKeySequence::Cut) ||
           event.matches(QKeySequence::Paste) || IsEnter(event) || IsDelete(event, Qt::NoModifier) ||
           (OnDelete && IsDelete(event, Qt::ControlModifier)) ||
           (event.key() == Qt::Key_F2 && modifiers == Qt::NoModifier) ||
           (OnMove && IsUpOrDown(event) && modifiers == Qt::ControlModifier) ||
           (event.key() == Qt::Key_Down && modifiers == Qt::AltModifier);
}

void TDataGrid::keyPressEvent(QKeyEvent* event) {
    Guard().Run([this, event] {
        if (!RecordKeyPress(*event) && !BlockKeyPress(*event) && !OpenKeyPress(*event) && !StepKeyPress(*event) &&
            !WalkKeyPress(*event)) {
            QTableView::keyPressEvent(event);
        }
    });
}

void TDataGrid::keyboardSearch(const QString& /*search*/) {
    // Typing into a cell that may not be edited leads nowhere else.
}

bool TDataGrid::RecordKeyPress(const QKeyEvent& event) {
    const bool moves = OnMove && IsUpOrDown(event) && Modifiers(event) == Qt::ControlModifier;
    if (!moves && !(OnDelete && IsDelete(event, Qt::ControlModifier))) {
        return false;
    }
    Post();
    const int record = FocusedRecord();
    const int column = std::max(0, currentIndex().column());
    if (record < 0) {
        return true;
    }
    // Held while they run: they may go with the grid.
    if (!moves) {
        const auto toDelete = OnDelete;
        toDelete(record);
        return true;
    }
    const auto toMove = OnMove;
    const QPointer<TDataGrid> self(this);
    const int step = event.key() == Qt::Key_Up ? -1 : 1;
    // The key is used up also where there is nowhere to go.
    if (toMove(record, step) && !self.isNull()) {
        FocusRecord(record + step, column);
    }
    return true;
}

bool TDataGrid::BlockKeyPress(const QKeyEvent& event) {
    if (IsEditing()) {
        return false;
    }
    if (event.matches(QKeySequence::Copy)) {
        Copy();
    } else if (event.matches(QKeySequence::Cut)) {
        Copy();
        Clear();
    } else if (event.matches(QKeySequence::Paste)) {
        Paste();
    } else if (IsDelete(event, Qt::NoModifier)) {
        Clear();
    } else {
        return false;
    }
    return true;
}

bool TDataGrid::OpenKeyPress(const QKeyEvent& event) {
    if (event.key() != Qt::Key_Down || Modifiers(event) != Qt::AltModifier) {
        return false;
    }
    const QModelIndex current = currentIndex();
    const TlotEditor editor = current.isValid() ? FBridge->Column(current.column()).Editor : TlotEditor::ReadOnly;
    if (!IsEditing() && (editor == TlotEditor::Choice || editor == TlotEditor::TextButton)) {
        edit(current, AllEditTriggers, nullptr);
        if (auto* const choice = qobject_cast<TChoiceEdit*>(FEditor)) {
            choice->showPopup();
        } else if (auto* const button = qobject_cast<TButtonEdit*>(FEditor)) {
            button->Press();
        }
    }
    return true;
}

bool TDataGrid::StepKeyPress(QKeyEvent& event) {
    const bool backwards = (event.modifiers() & Qt::ShiftModifier) != 0;
    if (IsEnter(event)) {
        Post();
        Step(backwards ? TGridStep::Up : TGridStep::Down);
        return true;
    }
    if (IsUpOrDown(event) && Modifiers(event) == Qt::NoModifier) {
        Post();
        Step(event.key() == Qt::Key_Up ? TGridStep::Up : TGridStep::Down);
        return true;
    }
    if ((event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab) && !(event.modifiers() & Qt::ControlModifier)) {
        Post();
        // At the end the focus leaves the grid.
        event.setAccepted(Step(event.key() == Qt::Key_Tab ? TGridStep::Next : TGridStep::Previous));
        return true;
    }
    return false;
}

bool TDataGrid::Step(TGridStep step) {
    if (!currentIndex().isValid()) {
        return false;
    }
    switch (step) {
    case TGridStep::Up: return StepDown(-1);
    case TGridStep::Down: return StepDown(1);
    case TGridStep::Next: return StepRight(1);
    case TGridStep::Previous: return StepRight(-1);
    case TGridStep::Stay: break;
    }
    return true;
}

bool TDataGrid::StepDown(int rows) {
    const QModelIndex to = currentIndex().siblingAtRow(currentIndex().row() + rows);
    if (to.isValid()) {
        FocusCell(to);
        return true;
    }
    const auto leave = OnEdge; // Held while it runs: it may go with the grid.
    return leave && leave(rows < 0 ? TGridStep::Up : TGridStep::Down, currentIndex().column());
}

bool TDataGrid::StepRight(int step) {
    int row = currentIndex().row();
    int column = NextColumn(currentIndex().column(), step);
    if (column < 0) {
        row += step;
        column = NextColumn(step > 0 ? -1 : FBridge->columnCount(), step);
    }
    const QModelIndex to = FBridge->index(row, column);
    if (to.isValid()) {
        FocusCell(to);
    }
    return to.isValid();
}

int TDataGrid::NextColumn(int column, int step, bool marking) const {
    for (column += step; column >= 0 && column < FBridge->columnCount(); column += step) {
        if (!isColumnHidden(column) && (marking || FBridge->Column(column).TakesFocus)) {
            return column;
        }
    }
    return -1;
}

bool TDataGrid::WalkKeyPress(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = Modifiers(event);
    const bool marking = (modifiers & Qt::ShiftModifier) != 0;
    if (!currentIndex().isValid() || (modifiers & (Qt::AltModifier | Qt::MetaModifier)) != 0) {
        return false;
    }
    switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
        if ((modifiers & Qt::ControlModifier) != 0) {
            return false;
        }
        break;
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: break;
    default: return false;
    }
    Post();
    if (const QModelIndex to = WalkedTo(event, marking); to.isValid()) {
        if (marking) {
            MarkTo(to);
        } else {
            FocusCell(to);
        }
    }
    return true;
}

QModelIndex TDataGrid::WalkedTo(const QKeyEvent& event, bool marking) const {
    const QModelIndex from = currentIndex();
    const int last = FBridge->rowCount() - 1;
    const bool whole = (event.modifiers() & Qt::ControlModifier) != 0;
    const int page = std::max(1, viewport()->height() / verticalHeader()->defaultSectionSize() - 1);
    switch (event.key()) {
    case Qt::Key_Left: return from.siblingAtColumn(NextColumn(from.column(), -1, marking));
    case Qt::Key_Right: return from.siblingAtColumn(NextColumn(from.column(), 1, marking));
    case Qt::Key_Up: return from.siblingAtRow(from.row() - 1);
    case Qt::Key_Down: return from.siblingAtRow(from.row() + 1);
    case Qt::Key_PageUp: return from.siblingAtRow(std::max(0, from.row() - page));
    case Qt::Key_PageDown: return from.siblingAtRow(std::min(last, from.row() + page));
    case Qt::Key_Home: return FBridge->index(whole ? 0 : from.row(), NextColumn(-1, 1, marking));
    case Qt::Key_End: return FBridge->index(whole ? last : from.row(), NextColumn(FBridge->columnCount(), -1, marking));
    default: return {};
    }
}

void TDataGrid::FocusCell(const QModelIndex& index) {
    if (!index.isValid()) {
        return;
    }
    // The toolkit's own way looks at the keys that are down, and would mark a block where Shift is.
    FAnchor = index;
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    scrollTo(index);
}

void TDataGrid::MarkTo(const QModelIndex& index) {
    const QModelIndex anchor = FAnchor.isValid() ? QModelIndex(FAnchor) : currentIndex();
    if (!anchor.isValid()) {
        FocusCell(index);
        return;
    }
    const QModelIndex first =
        FBridge->index(std::min(anchor.row(), index.row()), std::min(anchor.column(), index.column()));
    const QModelIndex last =
        FBridge->index(std::max(anchor.row(), index.row()), std::max(anchor.column(), index.column()));
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    selectionModel()->select(QItemSelection(first, last), QItemSelectionModel::ClearAndSelect);
    scrollTo(index);
}

std::vector<int> TDataGrid::ColumnsFrom(int first, int last) const {
    std::vector<int> columns;
    for (int column = NextColumn(first - 1, 1, true); column >= 0 && column <= last;
         column = NextColumn(column, 1, true)) {
        columns.push_back(column);
    }
    return columns;
}

TGridBlock TDataGrid::Marked() const {
    QItemSelection selection = selectionModel()->selection();
    if (selection.isEmpty()) {
        if (!currentIndex().isValid()) {
            return {};
        }
        selection.select(currentIndex(), currentIndex());
    }
    int top = FBridge->rowCount();
    int bottom = -1;
    int left = FBridge->columnCount();
    int right = -1;
    for (const QItemSelectionRange& range : selection) {
        top = std::min(top, range.top());
        bottom = std::max(bottom, range.bottom());
        left = std::min(left, range.left());
        right = std::max(right, range.right());
    }
    return {top, bottom, ColumnsFrom(left, right)};
}

void TDataGrid::Copy() const {
    // The row for new records alone is nothing to copy, and leaves the clipboard as it is.
    if (const QString text = CopyBlock(*FBridge, Marked()); !text.isEmpty()) {
        QApplication::clipboard()->setText(text);
    }
}

void TDataGrid::Paste() {
    Post();
    if (const TGridBlock block = Marked(); !block.Columns.empty()) {
        const std::vector<int> columns = ColumnsFrom(block.Columns.front(), FBridge->columnCount() - 1);
        PasteBlock(*FBridge, block, columns, QApplication::clipboard()->text());
    }
}

void TDataGrid::Clear() {
    if (const TGridBlock block = Marked(); FDeleteClears && !block.Columns.empty()) {
        Post();
        ClearBlock(*FBridge, block);
    }
}
