// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the program is, its version and its licence: a box that the user asks for, and the splash at start.
#pragma once

#include <QDialog>
#include <chrono>

class QPushButton;
class QTimer;

class TAboutForm : public QDialog {
public:
    explicit TAboutForm(QWidget* parent = nullptr);

    /// Shows the box without a frame, in the middle of the parent or the screen, and returns at once. It takes no focus
    /// and closes itself when its time is up, and before that at any click or key in the program, which does its work
    /// none the less. It deletes itself when closed.
    static TAboutForm& ShowSplash(QWidget* parent = nullptr,
                                  std::chrono::milliseconds duration = std::chrono::milliseconds(2000));

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void BecomeSplash(std::chrono::milliseconds duration);

    QPushButton* FClose; // Both owned by this widget.
    QTimer* FTimer;
};
