// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a text that is typed or pasted means to a cell or field.
#pragma once

#include "common/lotDataSource.h"
#include "common/vipNumber.h"
#include "widgets/lotGridColumn.h"

#include <QString>
#include <QStringList>
#include <optional>

/// Whether a text says a number at all: by the digits that figures are written in, of no other script.
[[nodiscard]] bool HasDigits(const QString& text);

/// The value; "" for a figure is nothing. Nothing at all where the cell refuses the text: a figure without digits, a
/// check box other than TRUE, FALSE or a number.
[[nodiscard]] std::optional<TlotValue> ParseCell(const TGridColumn& column, const QString& text,
                                                 const TNumberLocale& locale);

/// A value as the column takes it: a spin's is a whole number within its bounds, and nothing if 0 is.
[[nodiscard]] TlotValue WithinBounds(const TGridColumn& column, const TlotValue& value);

/// The place of a text in a list, whatever its case, an exact one first; -1 if it isn't there.
[[nodiscard]] int FindChoice(const QStringList& choices, const QString& text);
