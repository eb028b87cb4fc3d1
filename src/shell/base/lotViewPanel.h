// SPDX-License-Identifier: GPL-3.0-or-later
//
// The panel that most views are: a heading strip with a caption and tools beside it, and a body below.
#pragma once

#include <QWidget>

class QHBoxLayout;
class QLabel;
class QVBoxLayout;

class TViewPanel : public QWidget {
public:
    explicit TViewPanel(const QString& caption, QWidget* parent = nullptr);

    [[nodiscard]] QHBoxLayout& Tools() const { return *FTools; } ///< Right of the caption.
    [[nodiscard]] QVBoxLayout& Body() const { return *FBody; }

    /// A line beside the caption that tells how the view is used; rich text. Empty takes it away.
    void SetHint(const QString& text);
    [[nodiscard]] QString Caption() const;

private:
    QLabel* FCaption; // All owned by this widget.
    QLabel* FHint;
    QHBoxLayout* FTools;
    QVBoxLayout* FBody;
};
