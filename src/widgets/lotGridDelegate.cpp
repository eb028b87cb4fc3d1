// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotGridDelegate.h"

#include "widgets/lotButtonEdit.h"
#include "widgets/lotChoiceEdit.h"
#include "widgets/lotGridBridge.h"
#include "widgets/lotNumberEdit.h"
#include "widgets/lotSpinEdit.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPointer>
#include <memory>
#include <optional>

namespace {

constexpr int RowPadding = 8;

/// The text that an editor opened with; also tells that it has its value.
constexpr auto LoadedText = "LoadedText";
/// A list has closed with a selection, be it the same as before.
constexpr auto ListClosed = "ListClosed";

const TGridBridge& Bridge(const QModelIndex& index) {
    return dynamic_cast<const TGridBridge&>(*index.model());
}

template <typename TField> std::unique_ptr<QWidget> Frameless(std::unique_ptr<TField> field) {
    field->setFrame(false);
    field->setAutoFillBackground(true); // Or else the cell behind it shows through.
    return field;
}

std::unique_ptr<QWidget> ButtonEditor(const TGridBridge& bridge, int column, QWidget* parent) {
    auto editor = std::make_unique<TButtonEdit>(bridge.Column(column).ButtonHint, parent);
    editor->OnPress = [&bridge, column, edit = QPointer<TButtonEdit>(editor.get())] {
        // The grid may have dropped the editor while the other one was open.
        if (const QString text = bridge.PressButton(column, edit->text()); edit && !text.isNull()) {
            edit->setText(text);
        }
    };
    return editor;
}

/// The step after the editor that a key means.
std::optional<TGridStep> StepOf(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: return event.modifiers() & Qt::ShiftModifier ? TGridStep::Up : TGridStep::Down;
    case Qt::Key_Tab: return TGridStep::Next;
    case Qt::Key_Backtab: return TGridStep::Previous;
    default: return std::nullopt;
    }
}

} // namespace

TGridDelegate::TGridDelegate(THookGuard& guard, QObject* parent) : QStyledItemDelegate(parent), FGuard(guard) {}

QWidget* TGridDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                     const QModelIndex& index) const {
    const TGridBridge& bridge = Bridge(index);
    const TGridColumn& column = bridge.Column(index.column());
    std::unique_ptr<QWidget> editor;
    switch (column.Editor) {
    case TlotEditor::Number:
        editor = Frameless(
            std::make_unique<TNumberEdit>(bridge.MaskFor(index.row(), index.column()), bridge.Locale(), parent));
        break;
    case TlotEditor::Spin:
        editor = Frameless(std::make_unique<TSpinEdit>(column.Minimum, column.Maximum, parent, bridge.Locale()));
        break;
    case TlotEditor::Choice: editor = ChoiceEditor(parent); break;
    case TlotEditor::TextButton: editor = ButtonEditor(bridge, index.column(), parent); break;
    case TlotEditor::Text: editor.reset(QStyledItemDelegate::createEditor(parent, option, index)); break;
    case TlotEditor::ReadOnly:
    case TlotEditor::CheckBox: return nullptr;
    }
    editor->setAccessibleName(column.Caption);
    return editor.release();
}

std::unique_ptr<QWidget> TGridDelegate::ChoiceEditor(QWidget* parent) const {
    auto choice = std::make_unique<TChoiceEdit>(parent);
    choice->OnCloseUp = [this, edit = choice.get()] {
        edit->setProperty(ListClosed, true);
        emit Finished(edit, TGridStep::Stay);
    };
    return choice;
}

void TGridDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    // News of the model must not run over what is being typed.
    if (editor->property(LoadedText).isValid()) {
        return;
    }
    const QVariant value = index.data(Qt::EditRole);
    if (auto* const number = qobject_cast<TNumberEdit*>(editor)) {
        number->SetValue(value.toDouble());
    } else if (auto* const spin = qobject_cast<TSpinEdit*>(editor)) {
        spin->SetValue(value.toDouble());
    } else if (auto* const choice = qobject_cast<TChoiceEdit*>(editor)) {
        choice->SetChoices(Bridge(index).ChoicesFor(index.column()));
        choice->SetText(value.toString());
    } else if (auto* const text = qobject_cast<QLineEdit*>(editor)) {
        text->setText(value.toString());
        editor->setProperty(LoadedText, text->text());
        return;
    }
    editor->setProperty(LoadedText, value.toString());
}

void TGridDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const {
    const QString loaded = editor->property(LoadedText).toString();
    if (auto* const number = qobject_cast<TNumberEdit*>(editor)) {
        const bool emptied = number->text().trimmed().isEmpty();
        const double before = number->Value();
        // A field that wasn't touched must not round what it shows, and a text that means no number changes none.
        if (number->Post() && (emptied || number->Value() != before)) {
            model->setData(index, emptied ? QVariant() : QVariant(number->Value()));
        }
    } else if (auto* const spin = qobject_cast<TSpinEdit*>(editor)) {
        const double before = spin->Value();
        if (spin->Post() && spin->Value() != before) {
            model->setData(index, spin->Value());
        }
    } else if (auto* const choice = qobject_cast<TChoiceEdit*>(editor)) {
        const bool chosen = choice->Text() != loaded || editor->property(ListClosed).toBool();
        if (chosen && choice->Index() >= 0) {
            dynamic_cast<TGridBridge&>(*model).Choose(index, choice->Index());
        }
    } else if (auto* const text = qobject_cast<QLineEdit*>(editor)) {
        if (text->text() != loaded) {
            model->setData(index, text->text());
        }
    }
}

bool TGridDelegate::eventFilter(QObject* watched, QEvent* event) {
    auto* const editor = qobject_cast<QWidget*>(watched);
    if (editor != nullptr && event->type() == QEvent::KeyPress) {
        // The toolkit would post only after the key had reached a dialog's default button.
        if (const auto step = StepOf(static_cast<QKeyEvent&>(*event))) {
            emit Finished(editor, *step);
            return true;
        }
    }
    return event->type() == QEvent::FocusOut ? LeaveByFocus(*watched, *event)
                                             : QStyledItemDelegate::eventFilter(watched, event);
}

bool TGridDelegate::LeaveByFocus(QObject& watched, QEvent& event) {
    switch (static_cast<QFocusEvent&>(event).reason()) {
    // A list, a menu, or another window in front, such as the one behind the cell's button, is no leaving.
    case Qt::PopupFocusReason:
    case Qt::MenuBarFocusReason:
    case Qt::ActiveWindowFocusReason: return false;
    default: break;
    }
    bool handled = false;
    FGuard.RunLater([&] { handled = QStyledItemDelegate::eventFilter(&watched, &event); });
    return handled;
}

void TGridDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    const TGridBridge& bridge = Bridge(index);
    if (bridge.Column(index.column()).Editor == TlotEditor::CheckBox && !bridge.MayEdit(index.row(), index.column())) {
        option->state &= ~QStyle::State_Enabled;
    }
}

QSize TGridDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    return {size.width(), option.fontMetrics.height() + RowPadding};
}
