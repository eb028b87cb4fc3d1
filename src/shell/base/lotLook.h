// SPDX-License-Identifier: GPL-3.0-or-later
//
// The one place from which screens take colours, fonts, spacing and icons; they set none of their own.
#pragma once

#include "widgets/lotPalette.h"

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QString>

class QApplication;
class QFrame;
class QWidget;

namespace look {

// Lengths in logical pixels.
inline constexpr int SmallGap = 4;  ///< Between a field and what hangs on it, such as its button.
inline constexpr int Gap = 8;       ///< Between fields that belong together.
inline constexpr int WideGap = 16;  ///< Between groups of fields.
inline constexpr int Margin = 16;   ///< Around the contents of a panel or dialog.
inline constexpr int IconSize = 20; ///< On buttons and in the navigation column.

// Colours with a meaning, as widgets have them. All others are roles of the palette.
using colour::Accent;
using colour::AccentTint;
using colour::Band;
using colour::Missing;
using colour::NotApplying;
using colour::Rule;
using colour::Subdued;
using colour::Tinted;

[[nodiscard]] QFont TextFont();
[[nodiscard]] QFont HeadingFont(); ///< Of a panel's caption.
[[nodiscard]] QFont FigureFont();  ///< Tabular digits.

/// The icon of an action or view by the name of its file in share/icons, without the extension; drawn in the colour of
/// the text, paler when disabled, in the accent under the mouse and when checked, crisp at any scale. A name that isn't
/// there throws ELotError.
[[nodiscard]] QIcon Icon(const QString& name);
/// The program's own icon, in all its sizes.
[[nodiscard]] QIcon ProgramIcon();

/// Gives a label its colour, whatever ground it stands on.
void SetTextColour(QWidget& widget, const QColor& colour);
/// Gives a frame the outline of a card: a white area with a hair line and round corners; tinted, a pale one.
void MakeCard(QFrame& frame, bool tinted = false);

/// Gives the application its style, palette, fonts and style sheet. Once, before any window.
void Apply(QApplication& application);

} // namespace look
