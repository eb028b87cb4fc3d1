// SPDX-License-Identifier: GPL-3.0-or-later
//
// The editor of a cell whose text may come from an editor of its own.
#pragma once

#include <QLineEdit>
#include <functional>

/// A text with a button at its end, which Alt+Down presses too.
class TButtonEdit : public QLineEdit {
    Q_OBJECT

public:
    /// `hint`: what the button opens.
    explicit TButtonEdit(const QString& hint, QWidget* parent = nullptr);

    /// Guarded. It may take long, and the editor be gone at its end.
    std::function<void()> OnPress;

    void Press() const;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};
