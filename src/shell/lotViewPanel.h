// SPDX-License-Identifier: GPL-3.0-or-later
//
// The panel that most views are: a caption, tools beside it, and a body below.
#pragma once

#include <QWidget>

class QHBoxLayout;
class QVBoxLayout;

class TViewPanel : public QWidget {
public:
    explicit TViewPanel(const QString& caption, QWidget* parent = nullptr);

    [[nodiscard]] QHBoxLayout& Tools() const { return *FTools; } ///< Right of the caption.
    [[nodiscard]] QVBoxLayout& Body() const { return *FBody; }

private:
    QHBoxLayout* FTools; // Both owned by this widget.
    QVBoxLayout* FBody;
};
