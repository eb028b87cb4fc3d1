// SPDX-License-Identifier: GPL-3.0-or-later
//
// The colours that mean something, wherever they appear. All others are roles of the toolkit's palette.
#pragma once

#include <QColor>

namespace colour {

[[nodiscard]] QColor Missing();     ///< What is missing or negative: red.
[[nodiscard]] QColor Accent();      ///< The firm colour of headings, the selection and the navigation column's mark.
[[nodiscard]] QColor AccentTint();  ///< Behind what the mouse is over, and behind the current view's entry.
[[nodiscard]] QColor Subdued();     ///< Captions beside figures, hints.
[[nodiscard]] QColor Rule();        ///< Hair lines between areas.
[[nodiscard]] QColor Band();        ///< Every second row of a list.
[[nodiscard]] QColor NotApplying(); ///< The text of a cell that doesn't apply to its row: grey.
[[nodiscard]] QColor Tinted();      ///< Behind a cell whose figure follows from another row, such as a zoned rate.

} // namespace colour
