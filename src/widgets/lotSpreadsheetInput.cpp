// SPDX-License-Identifier: GPL-3.0-or-later
//
// Keys, mouse and the editor in the cell.
#include "widgets/lotSpreadsheetView.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>
#include <utility>

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
    const TSheetSelection before = Selection();
    FAnchorRow = std::clamp(anchorRow, 0, lastRow);
    FAnchorColumn = std::clamp(anchorColumn, 0, lastColumn);
    FRow = std::clamp(row, 0, lastRow);
    FColumn = std::clamp(column, 0, lastColumn);
    BringIntoView(FRow, FColumn);
    viewport()->update();
    if (Selection() != before && OnSelectionChange) {
        OnSelectionChange();
    }
}

void TSpreadsheetView::MoveTo(int row, int column, bool extend) {
    EndEdit(true);
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
    case Qt::Key_PageUp: MoveTo(FRow - page, FColumn, extend); break;
    case Qt::Key_PageDown: MoveTo(FRow + page, FColumn, extend); break;
    case Qt::Key_Home: MoveTo(jump ? 0 : FRow, 0, extend); break;
    case Qt::Key_End: MoveTo(jump ? FPage.RowCount() - 1 : FRow, FPage.ColumnCount() - 1, extend); break;
    default: return false;
    }
    return true;
}

void TSpreadsheetView::keyPressEvent(QKeyEvent* event) {
    if ((OnKeyDown && OnKeyDown(*event)) || MoveByKey(*event)) {
        return;
    }
    if (event->matches(QKeySequence::Copy)) {
        QApplication::clipboard()->setText(SelectedText());
    } else if (event->matches(QKeySequence::SelectAll)) {
        Select(FPage.RowCount() - 1, FPage.ColumnCount() - 1, 0, 0);
    } else if (event->key() == Qt::Key_Delete && OnClearCells) {
        OnClearCells(Selection());
    } else if (event->key() == Qt::Key_F2) {
        BeginEdit(EditText(), true);
    } else if (const QString typed = event->text();
               !typed.isEmpty() && typed.front().isPrint() &&
               !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))) {
        BeginEdit(typed, false);
    } else {
        QAbstractScrollArea::keyPressEvent(event);
    }
}

QString TSpreadsheetView::SelectedText() const {
    const TSheetSelection selected = Selection();
    QString text;
    for (int row = selected.Top; row <= selected.Bottom && !selected.IsEmpty(); ++row) {
        for (int column = selected.Left; column <= selected.Right; ++column) {
            text +=
                (column > selected.Left ? "\t" : "") + QString::fromStdString(FPage.Shown(row, column, FLocale).Text);
        }
        text += row < selected.Bottom ? "\n" : "";
    }
    return text;
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
        // Beyond the edge the sheet follows.
        place.Row += position.y() > inside.bottom() ? 1 : position.y() < inside.top() ? -1 : 0;
        place.Column += position.x() > inside.right() ? 1 : position.x() < inside.left() ? -1 : 0;
        Select(FAnchorRow, FAnchorColumn, place.Row, place.Column);
    }
}

void TSpreadsheetView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && CellAt(event->position().toPoint()).Row >= 0) {
        BeginEdit(EditText(), true);
    }
}

void TSpreadsheetView::contextMenuEvent(QContextMenuEvent* event) {
    if (OnContextMenu) {
        const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
        OnContextMenu(byKey ? viewport()->mapToGlobal(CellRect(FRow, FColumn).bottomLeft()) : event->globalPos());
    }
}

void TSpreadsheetView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void TSpreadsheetView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

QString TSpreadsheetView::EditText() const {
    return QString::fromStdString(FPage.Shown(FRow, FColumn, FLocale).Text);
}

void TSpreadsheetView::BeginEdit(const QString& text, bool selectAll) {
    if (FRow < 0 || FEditor != nullptr || !OnEditing || !OnEditing(FRow, FColumn)) {
        return;
    }
    BringIntoView(FRow, FColumn);
    FEditor = new QLineEdit(text, viewport());
    FEditor->setObjectName("edtCell");
    FEditor->setFrame(false);
    FEditor->setFont(FFonts->Font({}));
    FEditor->setAlignment(Qt::AlignRight);
    FEditor->setGeometry(CellRect(FRow, FColumn).adjusted(1, 1, -2, -2));
    FEditor->installEventFilter(this);
    FEditor->show();
    FEditor->setFocus();
    if (selectAll) {
        FEditor->selectAll();
    }
}

void TSpreadsheetView::EndEdit(bool keep) {
    if (FEditor == nullptr) {
        return;
    }
    QLineEdit* const editor = std::exchange(FEditor, nullptr);
    const std::string text = editor->text().toStdString();
    const bool focused = editor->hasFocus();
    editor->removeEventFilter(this);
    editor->hide();
    editor->deleteLater();
    if (focused) {
        setFocus();
    }
    if (keep && OnEndEdit) {
        OnEndEdit(FRow, FColumn, text);
    }
}

bool TSpreadsheetView::eventFilter(QObject* watched, QEvent* event) {
    if (watched != FEditor || FEditor == nullptr) {
        return QAbstractScrollArea::eventFilter(watched, event);
    }
    if (event->type() == QEvent::FocusOut) {
        EndEdit(true);
        return false;
    }
    if (event->type() != QEvent::KeyPress) {
        return false;
    }
    const int row = FRow;
    const int column = FColumn;
    switch (dynamic_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Escape: EndEdit(false); return true;
    case Qt::Key_Return:
    case Qt::Key_Enter: EndEdit(true); return true;
    case Qt::Key_Tab: MoveTo(row, column + 1, false); return true;
    case Qt::Key_Backtab: MoveTo(row, column - 1, false); return true;
    case Qt::Key_Up: MoveTo(row - 1, column, false); return true;
    case Qt::Key_Down: MoveTo(row + 1, column, false); return true;
    default: return false;
    }
}
