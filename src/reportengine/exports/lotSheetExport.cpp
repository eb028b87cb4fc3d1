// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipNumber.h"
#include "reportengine/exports/lotReportExports.h"
#include "reportengine/exports/lotReportGrid.h"
#include "reporting/lotMoneyFormat.h"
#include "reporting/lotSpreadsheetPage.h"
#include "reporting/lotWorkbook.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace report {

namespace {

constexpr double PixelsPerTwip = 96 / TwipsPerInch;
constexpr int MostColumnPixels = 400;
constexpr int DigitPixels = 7;
constexpr double GapOfARow = 3.5 * TwipsPerMm; // A space of that height is worth an empty row.

struct TFigure {
    double Number = 0;
    std::string Mask;
};

/// What a text says that is nothing but a figure, as tables hold those that they have already formatted: "-1,034.50" or
/// "6.750%". Nothing for any other text, "007" among them.
std::optional<TFigure> FigureOf(const QString& text, const TNumberLocale& locale) {
    const bool percent = text.endsWith(u'%');
    const QString body = text.chopped(percent ? 1 : 0);
    TFigure figure;
    figure.Mask = body.contains(QString::fromUcs4(&locale.Thousand, 1)) ? ",0" : "0";
    if (const qsizetype point = body.indexOf(QString::fromUcs4(&locale.Decimal, 1)); point >= 0) {
        figure.Mask += "." + std::string(static_cast<std::size_t>(body.size() - point - 1), '0');
    }
    figure.Mask += percent ? "%" : "";
    figure.Number = vip::StrToNumber(body.toStdString(), locale);
    // It is one if the figure in that format is the text again.
    const bool same = vip::FormatMask(figure.Mask, figure.Number, locale) == text.toStdString();
    return same ? std::optional(figure) : std::nullopt;
}

class TSheetMaker {
public:
    TSheetMaker(const TReportGrid& grid, const TNumberLocale& locale, TSpreadsheetPage& page)
        : FGrid(grid), FLocale(locale), FPage(page) {}

    void Make() {
        const TSpreadsheetBatch batch(FPage);
        for (const double column : FGrid.Columns) {
            FWidths.push_back(static_cast<int>(std::lround(column * PixelsPerTwip)));
        }
        for (const TGridRow& row : FGrid.Rows) {
            if (FRow > 0 && (row.PartStart || row.GapAbove >= GapOfARow)) {
                FRow += row.PartStart ? 2 : 1;
            }
            FRow += AddRow(row);
        }
        for (std::size_t i = 0; i < FWidths.size(); ++i) {
            FPage.SetColumnWidth(static_cast<int>(i), std::clamp(FWidths[i], 8, MostColumnPixels));
        }
    }

private:
    /// The lines that the row takes.
    int AddRow(const TGridRow& row) {
        int lines = 0;
        for (const TGridCell& cell : row.Cells) {
            if (const auto* const text = cell.Item->As<TPreparedText>()) {
                lines = std::max(lines, AddCell(cell, *text));
            }
        }
        return lines;
    }

    /// The lines that the cell takes.
    int AddCell(const TGridCell& cell, const TPreparedText& text) {
        const bool right = text.Look.Align == TAlign::Right;
        // Figures of one column end at one edge, whatever their widths are.
        const int column = right ? cell.Column + cell.Span - 1 : cell.Column;
        if (text.Number) {
            AddNumber(FRow, column, text, {*text.Number, PictureOf(text.Format)}, text.Whole.size());
            return 1;
        }
        // One line in a cell: what was broken into several goes below each other.
        int row = FRow;
        for (const QString& each : text.Whole.trimmed().split(u'\n')) {
            const QString line = each.trimmed();
            if (const auto figure = right ? FigureOf(line, FLocale) : std::nullopt) {
                AddNumber(row, column, text, *figure, line.size());
            } else {
                FPage.SetText(row, column, line.toStdString(), Style(text, {}));
            }
            ++row;
        }
        return row - FRow;
    }

    void AddNumber(int row, int column, const TPreparedText& text, const TFigure& figure, qsizetype letters) {
        FPage.SetNumber(row, column, figure.Number, Style(text, figure.Mask));
        // A text runs on over its neighbours; a figure without room shows as "###".
        int& width = FWidths[static_cast<std::size_t>(column)];
        width = std::max(width, static_cast<int>(letters + 2) * DigitPixels);
    }

    std::uint16_t Style(const TPreparedText& text, const std::string& format) {
        TSpreadsheetStyle style;
        style.Bold = text.Look.Bold;
        style.Alignment = text.Look.Align == TAlign::Right ? TlotAlignment::Right : TlotAlignment::Left;
        style.Format = format;
        return FPage.Style(style);
    }

    const TReportGrid& FGrid;
    const TNumberLocale FLocale;
    TSpreadsheetPage& FPage;
    std::vector<int> FWidths; // Pixels.
    int FRow = 0;
};

void MakeSheet(const TPreparedReport& report, const TlotDocumentTexts& texts, TSpreadsheetPage& page) {
    page.Title = texts.Title;
    page.FontSize = 9;
    page.FitsPageWidth = true;
    TSheetMaker(BuildReportGrid(report), report.Locale, page).Make();
}

} // namespace

std::string XlsReportBytes(const TPreparedReport& report, const TlotDocumentTexts& texts) {
    TSpreadsheetPage page;
    MakeSheet(report, texts, page);
    return XlsBytes(page);
}

std::string XlsxReportBytes(const TPreparedReport& report, const TlotDocumentTexts& texts) {
    TSpreadsheetPage page;
    MakeSheet(report, texts, page);
    return XlsxBytes(page);
}

} // namespace report
