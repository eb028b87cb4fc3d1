// SPDX-License-Identifier: GPL-3.0-or-later
//
// A label that acts like a button: by a click, and by Enter, Space or F2 while it has the focus. It takes all the width
// that it is given, so that an empty one can be clicked too.
#pragma once

#include <QLabel>

class TClickLabel : public QLabel {
    Q_OBJECT

public:
    explicit TClickLabel(QWidget* parent = nullptr);

signals:
    void Clicked();

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool FHovered = false;
};
