// SPDX-License-Identifier: GPL-3.0-or-later
//
// How a column of a grid looks and is edited.
#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>
#include <limits>
#include <string>

enum class TlotEditor : std::uint8_t {
    ReadOnly,
    Text,
    Number,
    CheckBox,
    Choice,     ///< A text out of a list.
    TextButton, ///< A text with a button that opens an editor of its own.
    Spin,       ///< A whole number within bounds.
};

/// A hook that throws is told once; until something changes, its cells do with what there is without it. Where a hook
/// asks the data source, that works on the master's record of its row.
struct TGridColumn {
    QString Caption;
    QString Band = {}; ///< The head over this column and its neighbours of the same band.
    TlotEditor Editor = TlotEditor::Text;
    int Width = 100;       ///< Pixels; 0: what the others leave.
    std::string Mask = {}; ///< Of figures, by vip::FormatMask; "" for texts.
    QStringList Choices = {};
    bool ShowZero = true; ///< A figure of 0 shows as "0", or else as nothing.
    // Of a spin. What is typed or pasted is brought within them silently; what is there stays as it is until then.
    int Minimum = 0;
    int Maximum = std::numeric_limits<int>::max();
    bool TakesFocus = true;  ///< Keys and clicks stop here. Blocks to copy may reach over it either way.
    bool Clearable = true;   ///< The Delete key empties it.
    QString ButtonHint = {}; ///< What the button of a TextButton opens.
    /// Where the mask is the row's own.
    std::function<std::string(int record)> MaskOf = {};
    /// In place of Choices, where the list may change: asked whenever an editor opens.
    std::function<QStringList()> ChoicesOf = {};
    /// Opens the editor of a TextButton on the text so far; returns the text to take, or a null string for none.
    std::function<QString(const QString& text)> OnButton = {};
    /// A text has been chosen, by its place in the list, and written if it is another than before: the list has closed
    /// with a selection, be it the same again, or the text was pasted. Part of the edit: OnChange and Settle come after
    /// it.
    std::function<void(int record, int choice)> OnChosen = {};

    [[nodiscard]] bool IsFigure() const {
        return !Mask.empty() || MaskOf || Editor == TlotEditor::Number || Editor == TlotEditor::Spin;
    }
};

/// How a record looks.
struct TGridRowLook {
    bool Red = false;
    bool Bold = false;
    bool Banded = false;
};

/// How a cell looks, over its record's look.
struct TGridCellLook {
    bool Grey = false; ///< It doesn't apply to its record.
    bool Red = false;
    bool Tinted = false;
};
