// SPDX-License-Identifier: GPL-3.0-or-later
//
// The editor in a cell of the sheet.
#include "widgets/lotHook.h"
#include "widgets/lotSpreadsheetView.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <utility>

void TSpreadsheetView::BeginEdit(const std::optional<QString>& typed) {
    if (FRow < 0 || FEditor != nullptr) {
        return;
    }
    const QPointer<TSpreadsheetView> self(this);
    const bool may = AskHook(OnEditing, false, FRow, FColumn);
    if (!may || self == nullptr || FRow < 0 || FEditor != nullptr) {
        return;
    }
    BringIntoView(FRow, FColumn);
    FShownText = typed ? std::nullopt : std::optional(CellText(FRow, FColumn));
    FEditor = new QLineEdit(typed ? *typed : *FShownText, viewport());
    FEditor->setObjectName("edtCell");
    FEditor->setAccessibleName(RowCaption(FRow) + ", " + ColumnCaption(FColumn));
    FEditor->setFrame(false);
    FEditor->setAlignment(Qt::AlignRight);
    PlaceEditor();
    FEditor->installEventFilter(this);
    FEditor->show();
    FEditor->setFocus();
    if (!typed) {
        FEditor->selectAll();
    }
}

void TSpreadsheetView::PlaceEditor() {
    if (FEditor != nullptr) {
        FEditor->setFont(FFonts->Font({}));
        FEditor->setGeometry(CellRect(FRow, FColumn).adjusted(1, 1, -2, -2));
    }
}

bool TSpreadsheetView::EndEdit(bool keep) {
    if (FEditor == nullptr) {
        return true;
    }
    QLineEdit* const editor = std::exchange(FEditor, nullptr);
    const QString text = editor->text();
    const bool focused = window()->focusWidget() == editor; // Also while another window is in front.
    editor->removeEventFilter(this);
    editor->hide();
    editor->deleteLater();
    if (focused) {
        setFocus();
    }
    if (!keep || text == FShownText) {
        return true;
    }
    const QPointer<TSpreadsheetView> self(this);
    const bool taken = RunHook(OnEndEdit, FRow, FColumn, text.toStdString());
    return taken && self != nullptr;
}

bool TSpreadsheetView::IsCommandKey(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: return true;
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Meta:
    case Qt::Key_Alt:
    case Qt::Key_AltGr: return false;
    default: return event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    }
}

bool TSpreadsheetView::EditorKey(QKeyEvent& event) {
    if (OnKeyDown && IsCommandKey(event) && !event.modifiers().testFlag(Qt::ControlModifier)) {
        keyPressEvent(&event); // Left to the editor, Alt with a letter would type the letter.
        return true;
    }
    const bool back = event.modifiers().testFlag(Qt::ShiftModifier);
    switch (event.key()) {
    case Qt::Key_Escape: DropEdit(); return true;
    case Qt::Key_Return:
    case Qt::Key_Enter: MoveTo(FRow + (back ? -1 : 1), FColumn, false); return true;
    case Qt::Key_Tab: MoveTo(FRow, FColumn + 1, false); return true;
    case Qt::Key_Backtab: MoveTo(FRow, FColumn - 1, false); return true;
    case Qt::Key_Up: MoveTo(FRow - 1, FColumn, false); return true;
    case Qt::Key_Down: MoveTo(FRow + 1, FColumn, false); return true;
    default: return false;
    }
}

bool TSpreadsheetView::eventFilter(QObject* watched, QEvent* event) {
    if (FEditor == nullptr || watched != FEditor) {
        return QAbstractScrollArea::eventFilter(watched, event);
    }
    if (event->type() == QEvent::FocusOut) {
        // The editor's own menu, or another window in front, ends no edit.
        const Qt::FocusReason reason = dynamic_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) {
            Post();
        }
        return false;
    }
    return event->type() == QEvent::KeyPress && EditorKey(*dynamic_cast<QKeyEvent*>(event));
}
