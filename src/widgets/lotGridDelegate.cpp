// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotGridDelegate.h"

#include "widgets/lotGridBridge.h"
#include "widgets/lotNumberEdit.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QPainter>
#include <memory>

namespace {

constexpr int RowPadding = 8;

const TGridBridge& Bridge(const QModelIndex& index) {
    return dynamic_cast<const TGridBridge&>(*index.model());
}

/// The face of a button that opens something more.
QIcon Dots(const QWidget& widget) {
    QPixmap pixmap(QSize(16, 16) * widget.devicePixelRatioF());
    pixmap.setDevicePixelRatio(widget.devicePixelRatioF());
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(widget.palette().color(QPalette::Text));
    for (const double x : {3.5, 8.0, 12.5}) {
        painter.drawEllipse(QPointF(x, 8), 1.4, 1.4);
    }
    return pixmap;
}

/// A text with a button at its end.
std::unique_ptr<QLineEdit> ButtonEditor(const TGridColumn& column, QWidget* parent) {
    auto editor = std::make_unique<QLineEdit>(parent);
    auto* const action = new QAction("...", editor.get());
    action->setIcon(Dots(*parent));
    action->setToolTip("Expression Builder (F4)");
    action->setShortcut(Qt::Key_F4);
    editor->addAction(action, QLineEdit::TrailingPosition);
    QObject::connect(action, &QAction::triggered, editor.get(), [edit = editor.get(), open = column.OnButton] {
        if (const QString text = open ? open(edit->text()) : QString(); !text.isNull()) {
            edit->setText(text);
        }
    });
    return editor;
}

} // namespace

QWidget* TGridDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                     const QModelIndex& index) const {
    const TGridBridge& bridge = Bridge(index);
    const TGridColumn& column = bridge.Column(index.column());
    switch (column.Editor) {
    case TlotEditor::Number: {
        const std::string mask = bridge.IsNewRow(index.row()) ? column.Mask : column.MaskFor(index.row());
        auto editor = std::make_unique<TNumberEdit>(mask.empty() ? ",0" : mask, bridge.Locale(), parent);
        editor->setFrame(false);
        return editor.release();
    }
    case TlotEditor::Choice: {
        auto editor = std::make_unique<QComboBox>(parent);
        editor->addItems(column.Choices);
        return editor.release();
    }
    case TlotEditor::TextButton: return ButtonEditor(column, parent).release();
    case TlotEditor::Text: break;
    case TlotEditor::ReadOnly:
    case TlotEditor::CheckBox: return nullptr;
    }
    return QStyledItemDelegate::createEditor(parent, option, index);
}

void TGridDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    const QVariant value = index.data(Qt::EditRole);
    if (auto* const number = qobject_cast<TNumberEdit*>(editor)) {
        number->SetValue(value.toDouble());
    } else if (auto* const choice = qobject_cast<QComboBox*>(editor)) {
        choice->setCurrentIndex(choice->findText(value.toString(), Qt::MatchFixedString));
    } else if (auto* const text = qobject_cast<QLineEdit*>(editor)) {
        text->setText(value.toString());
    }
}

void TGridDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const {
    if (auto* const number = qobject_cast<TNumberEdit*>(editor)) {
        // A field that wasn't touched must not round what it shows.
        if (number->Post()) {
            model->setData(index, number->Value());
        }
    } else if (auto* const choice = qobject_cast<QComboBox*>(editor)) {
        model->setData(index, choice->currentText());
    } else if (auto* const text = qobject_cast<QLineEdit*>(editor)) {
        model->setData(index, text->text());
    }
}

QSize TGridDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    return {size.width(), option.fontMetrics.height() + RowPadding};
}
