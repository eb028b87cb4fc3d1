// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipErrors.h"
#include "reportengine/lotReportExports.h"
#include "reportengine/lotReportGrid.h"
#include "reporting/lotSpreadsheetPage.h"
#include "reporting/lotWorkbook.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>
#include <vector>

namespace report {

namespace {

constexpr double PixelsPerTwip = 96 / TwipsPerInch;
constexpr int MostColumnPixels = 400;
constexpr int DigitPixels = 7;
constexpr double GapOfARow = 3.5 * TwipsPerMm; // A space of that height is worth an empty row.

/// The mask of a number format: ",0.00" for "%2.2n" and "%2.2m"; masks stay as they are.
std::string MaskOf(const std::string& format) {
    if (!format.starts_with('%')) {
        return format;
    }
    int decimals = 0;
    const std::size_t point = format.find('.');
    if (point != std::string::npos) {
        std::from_chars(format.data() + point + 1, format.data() + format.size(), decimals);
    }
    return decimals > 0 ? ",0." + std::string(static_cast<std::size_t>(std::min(decimals, 20)), '0') : ",0";
}

class TSheetMaker {
public:
    TSheetMaker(const TReportGrid& grid, TSpreadsheetPage& page) : FGrid(grid), FPage(page) {}

    void Make() {
        const TSpreadsheetBatch batch(FPage);
        for (const double column : FGrid.Columns) {
            FWidths.push_back(static_cast<int>(std::lround(column * PixelsPerTwip)));
        }
        for (const TGridRow& row : FGrid.Rows) {
            if (FRow > 0 && (row.PartStart || row.GapAbove >= GapOfARow)) {
                FRow += row.PartStart ? 2 : 1;
            }
            if (AddRow(row)) {
                ++FRow;
            }
        }
        for (std::size_t i = 0; i < FWidths.size(); ++i) {
            FPage.SetColumnWidth(static_cast<int>(i), std::clamp(FWidths[i], 8, MostColumnPixels));
        }
    }

private:
    bool AddRow(const TGridRow& row) {
        bool any = false;
        for (const TGridCell& cell : row.Cells) {
            if (cell.Item->Kind == TItemKind::Text) {
                AddCell(cell);
                any = true;
            }
        }
        return any;
    }

    void AddCell(const TGridCell& cell) {
        const TPreparedItem& item = *cell.Item;
        const bool right = item.Look.Align == TAlign::Right;
        TSpreadsheetStyle style;
        style.Bold = item.Look.Bold;
        style.Alignment = right ? TlotAlignment::Right : TlotAlignment::Left;
        // Figures of one column end at one edge, whatever their widths are.
        const int column = right ? cell.Column + cell.Span - 1 : cell.Column;
        if (item.Number) {
            style.Format = MaskOf(item.Format);
            FPage.SetNumber(FRow, column, *item.Number, FPage.Style(style));
            // A text runs on over its neighbours; a figure without room shows as "###".
            int& width = FWidths[static_cast<std::size_t>(column)];
            width = std::max(width, static_cast<int>(item.Whole.size() + 2) * DigitPixels);
            return;
        }
        // One line in a cell: what was broken into several goes below each other.
        int row = FRow;
        for (const QString& line : item.Whole.trimmed().split(u'\n')) {
            FPage.SetText(row++, column, line.trimmed().toStdString(), FPage.Style(style));
        }
        FRow = std::max(FRow, row - 1);
    }

    const TReportGrid& FGrid;
    TSpreadsheetPage& FPage;
    std::vector<int> FWidths; // Pixels.
    int FRow = 0;
};

void MakeSheet(const TPreparedReport& report, const TlotDocumentTexts& texts, TSpreadsheetPage& page) {
    page.Title = texts.Title;
    page.FontSize = 9;
    TSheetMaker(BuildReportGrid(report), page).Make();
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
