// SPDX-License-Identifier: GPL-3.0-or-later
#include "reporting/lotWorkbook.h"

#include "common/vipErrors.h"
#include "common/vipMask.h"
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
    if (cell.Kind == TSpreadsheetCell::TKind::Number && !vip::ReadMask(page.StyleOf(cell).Format).IsPercentage()) {
        return vip::NumberToText(cell.Number, locale);
    }
    return page.Shown(row, column, locale).Text;
}

/// What could be taken for a code of number formats, such as the "m" of months, in quotes.
void AppendLiteral(std::string& format, std::string_view text) {
    bool quoted = false;
    for (const char c : text) {
        const bool quote = std::string_view("%-+()$ ").find(c) == std::string_view::npos;
        if (quote != quoted) {
            format += '"';
            quoted = quote;
        }
        format += c == '"' ? '\'' : c; // Within quotes there is no way to write one.
    }
    format.append(quoted ? 1 : 0, '"');
}

void AppendSection(std::string& format, const TMaskSection& section) {
    if (!section.Digits && section.Before.empty()) {
        format += "\"\"";
        return;
    }
    AppendLiteral(format, section.Before);
    if (section.Digits) {
        format += section.Grouped ? "#,##0" : "0";
        if (section.Places > 0) {
            format += '.' + std::string(static_cast<std::size_t>(section.Places), '0');
        }
        AppendLiteral(format, section.After);
    }
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
    if (format == AccountingFormat || format == AccountingRedFormat) {
        return std::string(format.substr(1)); // "#,##0_);[Red](#,##0)"
    }
    const TMask mask = vip::ReadMask(format);
    std::string result;
    for (std::size_t i = 0; i < mask.Count; ++i) {
        result += i > 0 ? ";" : "";
        AppendSection(result, mask.Sections.at(i));
    }
    return result;
}

double WorkbookNumber(std::string_view format, double value) {
    return vip::ReadMask(format).IsPercentage() ? value / 100 : value;
}

double WorkbookRowHeight(const TSpreadsheetPage& page, int sizeDelta) {
    constexpr double lineHeight = 1.4; // In sizes of the font.
    return lineHeight * (page.FontSize + sizeDelta);
}

double WorkbookWidth(int pixels) {
    constexpr double Padding = 5; // Pixels, and the width of a digit, of their standard font.
    constexpr double Digit = 7;
    return std::max(0.0, (pixels - Padding) / Digit);
}
