// SPDX-License-Identifier: GPL-3.0-or-later
//
// Blocks of cells as the text by which spreadsheet programs exchange them: a tab between cells, a line for each row. A
// text with a tab, a line end or a quotation mark in it stands in quotation marks, those within it doubled.
#pragma once

#include "common/lotDataSource.h"
#include "common/vipNumber.h"

#include <string>
#include <string_view>
#include <vector>

using TClipboardRow = std::vector<TlotValue>;

/// The rows as text in UTF-8. Numbers are ungrouped and unrounded, in the locale's decimal separator: the shortest text
/// that reads back as the same number, never with an exponent, "0" for what is no number. Truth is "TRUE" or "FALSE",
/// nothing an empty cell. There is no line end after the last row unless the row would not be seen without it.
[[nodiscard]] std::string ClipboardText(const std::vector<TClipboardRow>& rows, const TNumberLocale& locale);

/// The cells of such a text, as they were typed or copied elsewhere: rows may differ in length, lines end in LF, CR LF
/// or CR, and a line end at the very end begins no row. A quotation mark counts at the beginning of a cell only, and
/// nowhere if it is never closed. No rows for an empty text.
[[nodiscard]] std::vector<std::vector<std::string>> ClipboardCells(std::string_view text);
