// SPDX-License-Identifier: GPL-3.0-or-later
#include "reporting/lotWorkbook.h"

#include "common/vipErrors.h"
#include "common/vipText.h"
#include "persistence/lotAtomicFile.h"

#include <algorithm>
#include <filesystem>

namespace {

std::string Extension(const std::string& fileName) {
    return std::filesystem::path(fileName).extension().string();
}

/// Quoted where the rules of the format ask for it.
void AppendField(std::string& csv, std::string_view text, char separator) {
    const bool quoted = text.find_first_of(std::string("\"\r\n") + separator) != std::string_view::npos;
    if (!quoted) {
        csv += text;
        return;
    }
    csv += '"';
    for (const char c : text) {
        csv.append(c == '"' ? 2 : 1, c);
    }
    csv += '"';
}

std::string CellText(const TSpreadsheetPage& page, int row, int column, const TNumberLocale& locale) {
    const TSpreadsheetCell& cell = page.Cell(row, column);
    if (cell.Kind == TSpreadsheetCell::TKind::Text) {
        return page.TextOf(cell);
    }
    if (cell.Kind == TSpreadsheetCell::TKind::Number && !page.StyleOf(cell).Format.ends_with('%')) {
        return vip::NumberToText(cell.Number, locale);
    }
    return page.Shown(row, column, locale).Text;
}

} // namespace

bool IsWorkbookName(const std::string& fileName) {
    const std::string extension = Extension(fileName);
    return vip::SameText(extension, ".xls") || vip::SameText(extension, ".xlsx") || vip::SameText(extension, ".csv");
}

std::string CsvText(const TSpreadsheetPage& page, const TNumberLocale& locale) {
    const char separator = locale.Decimal == U',' ? ';' : ',';
    std::string csv;
    for (int row = 0; row < page.RowCount(); ++row) {
        for (int column = 0; column < page.ColumnCount(); ++column) {
            if (column > 0) {
                csv += separator;
            }
            AppendField(csv, CellText(page, row, column, locale), separator);
        }
        csv += "\r\n";
    }
    return csv;
}

void SaveWorkbook(const TSpreadsheetPage& page, const std::string& fileName, const TNumberLocale& locale) {
    if (IsReadOnlyFile(fileName)) {
        throw EFileError(fileName + ": File is read-only.");
    }
    const std::string extension = Extension(fileName);
    if (vip::SameText(extension, ".xlsx")) {
        WriteFileAtomically(fileName, XlsxBytes(page));
    } else if (vip::SameText(extension, ".xls")) {
        WriteFileAtomically(fileName, XlsBytes(page));
    } else if (vip::SameText(extension, ".csv")) {
        WriteFileAtomically(fileName, CsvText(page, locale));
    } else {
        throw ELotError(fileName + ": Sheets are saved as .xls, .xlsx or .csv.");
    }
}

std::string WorkbookFormat(std::string_view format) {
    if (format.empty()) {
        return "General";
    }
    if (format.front() == ',') {
        return "#,##" + std::string(format.substr(1));
    }
    if (format.front() == '(') {
        return std::string(format.substr(1)); // "#,##0_);[Red](#,##0)"
    }
    return std::string(format);
}

double WorkbookNumber(std::string_view format, double value) {
    return format.ends_with('%') ? value / 100 : value;
}

double WorkbookWidth(int pixels) {
    constexpr double Padding = 5; // Pixels, and the width of a digit, of their standard font.
    constexpr double Digit = 7;
    return std::max(0.0, (pixels - Padding) / Digit);
}
