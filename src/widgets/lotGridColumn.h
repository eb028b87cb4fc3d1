// SPDX-License-Identifier: GPL-3.0-or-later
//
// How a column of a grid looks and is edited.
#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>
#include <string>

enum class TlotEditor : std::uint8_t {
    ReadOnly,
    Text,
    Number,
    CheckBox,
    Choice,     ///< A text out of a list.
    TextButton, ///< A text with a button that opens an editor of its own.
};

struct TGridColumn {
    QString Caption;
    TlotEditor Editor = TlotEditor::Text;
    int Width = 100;       ///< Pixels; 0: what the others leave.
    std::string Mask = {}; ///< Of figures, by vip::FormatMask; "" for texts.
    QStringList Choices = {};
    bool ShowZero = true; ///< A figure of 0 shows as "0", or else as nothing.
    /// Where the mask is the row's own.
    std::function<std::string(int record)> MaskOf = {};
    /// Opens the editor of a TextButton on the text so far; returns the text to take, or a null string for none.
    std::function<QString(const QString& text)> OnButton = {};

    [[nodiscard]] std::string MaskFor(int record) const { return MaskOf ? MaskOf(record) : Mask; }
    [[nodiscard]] bool IsFigure() const { return !Mask.empty() || MaskOf; }
};

/// How a record looks.
struct TGridRowLook {
    bool Red = false;
    bool Bold = false;
    bool Banded = false;
};
