// SPDX-License-Identifier: GPL-3.0-or-later
//
// The one delegate of all grids: the editor that a column's kind of value gets.
#pragma once

#include "widgets/lotHookGuard.h"

#include <QStyledItemDelegate>
#include <cstdint>
#include <memory>

/// Where the current cell goes. Next and Previous go through the rows like a text.
enum class TGridStep : std::uint8_t { Stay, Up, Down, Next, Previous };

class TGridDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    TGridDelegate(THookGuard& guard, QObject* parent);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    /// Writes what the user has changed since the editor opened, if anything.
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

signals:
    /// The edit is to be posted, and the current cell to move on.
    void Finished(QWidget* editor, TGridStep step) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    [[nodiscard]] std::unique_ptr<QWidget> ChoiceEditor(QWidget* parent) const;
    bool LeaveByFocus(QObject& watched, QEvent& event);

    THookGuard& FGuard;
};
