// SPDX-License-Identifier: GPL-3.0-or-later
//
// The column of commands at the side of a window, in groups that fold. An entry is the face of an action: it shows its
// icon and text, follows its being enabled, visible and checked, and triggers it. Up and Down walk over all groups.
#pragma once

#include <QScrollArea>
#include <vector>

class QAction;
class QToolButton;
class QVBoxLayout;

class TNavigationColumn : public QScrollArea {
    Q_OBJECT

public:
    explicit TNavigationColumn(QWidget* parent = nullptr);

    void AddGroup(const QString& caption);
    /// To the last group. The action outlives the column.
    void AddEntry(QAction& action);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Fold(QToolButton* header, QWidget* entries);
    [[nodiscard]] std::vector<QWidget*> Stops() const;

    QVBoxLayout* FLayout; // Owned by the column's contents, as all of these.
    QWidget* FEntries = nullptr;
    std::vector<QWidget*> FButtons;
};
