// SPDX-License-Identifier: GPL-3.0-or-later
//
// Sheets as files of other programs: .xlsx and .xls workbooks, and .csv. A file is made whole in memory and then put in
// place in one step, so what stood there before is lost only to its complete successor.
#pragma once

#include "reporting/lotSpreadsheetPage.h"

#include <string>
#include <string_view>

/// True for the extensions that SaveWorkbook knows, in any letter case.
[[nodiscard]] bool IsWorkbookName(const std::string& fileName);

/// Saves the page in the format that the extension names. `locale` separates the figures of a .csv. Throws ELotError
/// for another extension, for a sheet that is too large for the format, and (EFileError) for a file that cannot be
/// written.
void SaveWorkbook(const TSpreadsheetPage& page, const std::string& fileName, const TNumberLocale& locale);

// The formats, as bytes.

/// Comma-separated values in UTF-8: figures unrounded and ungrouped, percentages as shown. Fields are separated by ";"
/// where "," is the decimal separator.
[[nodiscard]] std::string CsvText(const TSpreadsheetPage& page, const TNumberLocale& locale);
/// An Office Open XML workbook. Throws ELotError where it has no room for the sheet.
[[nodiscard]] std::string XlsxBytes(const TSpreadsheetPage& page);
/// A workbook in the binary format of old, readable everywhere. Throws ELotError beyond 256 columns or 65,536 rows.
[[nodiscard]] std::string XlsBytes(const TSpreadsheetPage& page);

// What both workbook formats are told of a cell.

/// The number format as spreadsheet programs write it: "#,##0" for ",0", section by section.
[[nodiscard]] std::string WorkbookFormat(std::string_view format);
/// The number of a cell as they hold it: percentages as ratios.
[[nodiscard]] double WorkbookNumber(std::string_view format, double value);
/// The height of a row in points, for RowSizeDelta.
[[nodiscard]] double WorkbookRowHeight(const TSpreadsheetPage& page, int sizeDelta);
/// A width in pixels as they hold it: in digits.
[[nodiscard]] double WorkbookWidth(int pixels);
