// SPDX-License-Identifier: GPL-3.0-or-later
//
// Keys, mouse and the clipboard.
#include "widgets/lotAccessibleParts.h"
#include "widgets/lotClipboardText.h"
#include "widgets/lotHook.h"
#include "widgets/lotSpreadsheetView.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>

TSheetSelection TSpreadsheetView::Selection() const noexcept {
    if (FRow < 0 || FColumn < 0) {
        return {};
    }
    return {std::min(FAnchorColumn, FColumn), std::min(FAnchorRow, FRow), std::max(FAnchorColumn, FColumn),
            std::max(FAnchorRow, FRow)};
}

void TSpreadsheetView::Select(int anchorRow, int anchorColumn, int row, int column) {
    const int lastRow = FPage.RowCount() - 1;
    const int lastColumn = FPage.ColumnCount() - 1;
    if (lastRow < 0 || lastColumn < 0) {
        return;
    }
    EndEdit(true);
    const TSheetSelection before = Selection();
    FAnchorRow = std::clamp(anchorRow, 0, lastRow);
    FAnchorColumn = std::clamp(anchorColumn, 0, lastColumn);
    FRow = std::clamp(row, 0, lastRow);
    FColumn = std::clamp(column, 0, lastColumn);
    BringIntoView(FRow, FColumn);
    viewport()->update();
    TellCurrentPart(*this);
    if (Selection() != before) {
        RunHook(OnSelectionChange);
    }
}

void TSpreadsheetView::MoveTo(int row, int column, bool extend) {
    if (!EndEdit(true)) {
        return; // The user still has to do with this cell.
    }
    if (extend) {
        Select(FAnchorRow, FAnchorColumn, row, column);
    } else {
        Select(row, column);
    }
}

void TSpreadsheetView::BringIntoView(int row, int column) {
    if (row >= FrozenRows()) {
        const double room = viewport()->height() - FrozenHeight();
        int first = std::min(FirstScrolledRow(), row);
        while (first < row && FGeometry->Top(row + 1) - FGeometry->Top(first) > room) {
            ++first;
        }
        verticalScrollBar()->setValue(first - FrozenRows());
    }
    if (column >= FrozenColumns()) {
        const double room = viewport()->width() - FrozenWidth();
        int first = std::min(FirstScrolledColumn(), column);
        while (first < column && FGeometry->Left(column + 1) - FGeometry->Left(first) > room) {
            ++first;
        }
        horizontalScrollBar()->setValue(first - FrozenColumns());
    }
}

/// Where Ctrl with an arrow leads: the last cell before the next border between filled and empty ones.
TSpreadsheetView::TPlace TSpreadsheetView::Jump(int rowStep, int columnStep) const {
    const auto filled = [&](int row, int column) {
        return FPage.Cell(row, column).Kind != TSpreadsheetCell::TKind::Empty;
    };
    const auto inside = [&](int row, int column) {
        return row >= 0 && row < FPage.RowCount() && column >= 0 && column < FPage.ColumnCount();
    };
    int row = FRow;
    int column = FColumn;
    const bool within =
        inside(row + rowStep, column + columnStep) && filled(row, column) && filled(row + rowStep, column + columnStep);
    while (inside(row + rowStep, column + columnStep)) {
        if (within && !filled(row + rowStep, column + columnStep)) {
            break;
        }
        row += rowStep;
        column += columnStep;
        if (!within && filled(row, column)) {
            break;
        }
    }
    return {row, column};
}

bool TSpreadsheetView::MoveByKey(const QKeyEvent& event) {
    const bool extend = event.modifiers().testFlag(Qt::ShiftModifier);
    const bool jump = event.modifiers().testFlag(Qt::ControlModifier);
    if (event.modifiers().testFlag(Qt::AltModifier)) {
        return false;
    }
    const auto step = [&](int rowStep, int columnStep) {
        const TPlace place = jump ? Jump(rowStep, columnStep) : TPlace{FRow + rowStep, FColumn + columnStep};
        MoveTo(place.Row, place.Column, extend);
    };
    const int page = std::max(1, verticalScrollBar()->pageStep() - 1);
    switch (event.key()) {
    case Qt::Key_Left: step(0, -1); break;
    case Qt::Key_Right: step(0, 1); break;
    case Qt::Key_Up: step(-1, 0); break;
    case Qt::Key_Down: step(1, 0); break;
    case Qt::Key_Return:
    case Qt::Key_Enter: MoveTo(FRow + (extend ? -1 : 1), FColumn, false); break;
    case Qt::Key_PageUp: MoveTo(FRow - page, FColumn, extend); break;
    case Qt::Key_PageDown: MoveTo(FRow + page, FColumn, extend); break;
    case Qt::Key_Home: MoveTo(jump ? 0 : FRow, 0, extend); break;
    case Qt::Key_End: MoveTo(jump ? FPage.RowCount() - 1 : FRow, FPage.ColumnCount() - 1, extend); break;
    default: return false;
    }
    return true;
}

void TSpreadsheetView::keyPressEvent(QKeyEvent* event) {
    if (FEditor != nullptr) {
        // The editor has no use for it. A command's key ends the edit first, any other one belongs to the window.
        if (!IsCommandKey(*event)) {
            QAbstractScrollArea::keyPressEvent(event);
            return;
        }
        if (!EndEdit(true)) {
            return;
        }
    }
    if ((OnKeyDown && AskHook(OnKeyDown, true, *event)) || MoveByKey(*event)) {
        return;
    }
    const QString typed = event->text();
    if (event->matches(QKeySequence::Copy)) {
        QApplication::clipboard()->setText(SelectedText());
    } else if (event->matches(QKeySequence::SelectAll)) {
        Select(FPage.RowCount() - 1, FPage.ColumnCount() - 1, 0, 0);
    } else if (event->key() == Qt::Key_Delete && OnClearCells) {
        RunHook(OnClearCells, Selection());
    } else if (event->key() == Qt::Key_F2) {
        BeginEdit();
    } else if (!typed.isEmpty() && typed.front().isPrint() &&
               !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))) {
        BeginEdit(typed);
    } else {
        QAbstractScrollArea::keyPressEvent(event);
    }
}

QString TSpreadsheetView::SelectedText() const {
    const TSheetSelection selected = Selection();
    const auto value = [this](int row, int column) -> TlotValue {
        const TSpreadsheetCell& cell = FPage.Cell(row, column);
        if (cell.Kind == TSpreadsheetCell::TKind::Empty) {
            return {};
        }
        if (cell.Kind == TSpreadsheetCell::TKind::Number && !FPage.StyleOf(cell).Format.ends_with('%')) {
            return cell.Number;
        }
        return FPage.Shown(row, column, FLocale).Text;
    };
    std::vector<TClipboardRow> rows;
    for (int row = selected.Top; row <= selected.Bottom && !selected.IsEmpty(); ++row) {
        TClipboardRow& cells = rows.emplace_back();
        for (int column = selected.Left; column <= selected.Right; ++column) {
            cells.push_back(value(row, column));
        }
    }
    return QString::fromStdString(ClipboardText(rows, FLocale));
}

void TSpreadsheetView::mousePressEvent(QMouseEvent* event) {
    const TPlace place = CellAt(event->position().toPoint());
    if (place.Row < 0) {
        return;
    }
    const bool extend = event->modifiers().testFlag(Qt::ShiftModifier);
    // A right click within the selection is about the selection.
    if (event->button() == Qt::LeftButton || !Selection().Holds(place.Row, place.Column)) {
        MoveTo(place.Row, place.Column, extend);
    }
}

void TSpreadsheetView::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons().testFlag(Qt::LeftButton) && FRow >= 0) {
        const QRect inside = viewport()->rect().adjusted(0, 0, -1, -1);
        const QPoint position = event->position().toPoint();
        TPlace place = CellAt({std::clamp(position.x(), inside.left(), inside.right()),
                               std::clamp(position.y(), inside.top(), inside.bottom())});
        if (place.Row < 0) {
            return;
        }
        // Dragging past an edge scrolls: the selection reaches one cell beyond what is in view.
        place.Row += position.y() > inside.bottom() ? 1 : position.y() < inside.top() ? -1 : 0;
        place.Column += position.x() > inside.right() ? 1 : position.x() < inside.left() ? -1 : 0;
        Select(FAnchorRow, FAnchorColumn, place.Row, place.Column);
    }
}

void TSpreadsheetView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && CellAt(event->position().toPoint()).Row >= 0) {
        BeginEdit();
    }
}

void TSpreadsheetView::contextMenuEvent(QContextMenuEvent* event) {
    if (OnContextMenu) {
        const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
        RunHook(OnContextMenu,
                byKey ? viewport()->mapToGlobal(CellRect(FRow, FColumn).bottomLeft()) : event->globalPos());
    }
}

void TSpreadsheetView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
    TellCurrentPart(*this);
}

void TSpreadsheetView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}
