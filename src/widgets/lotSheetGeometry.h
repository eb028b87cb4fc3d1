// SPDX-License-Identifier: GPL-3.0-or-later
//
// Where the rows and columns of a sheet lie, in pixels of whatever it is drawn on, and how a cell is drawn there. The
// same for the screen and the printer.
#pragma once

#include "common/vipNumber.h"
#include "reporting/lotSpreadsheetPage.h"

#include <QFont>
#include <QRectF>
#include <map>
#include <utility>
#include <vector>

class QPaintDevice;
class QPainter;

/// The fonts of a page on a device.
class TSheetFonts {
public:
    TSheetFonts(const TSpreadsheetPage& page, const QPaintDevice* device);

    [[nodiscard]] const QFont& Font(const TSpreadsheetStyle& style) const;
    /// Of a row, for RowSizeDelta: its largest font and a little room above and below.
    [[nodiscard]] double RowHeight(int sizeDelta) const;

private:
    const TSpreadsheetPage& FPage;
    const QPaintDevice* FDevice;
    double FScale; ///< Device pixels to a pixel at 96 to the inch, where the device has no such pixels of its own.
    mutable std::map<std::pair<int, bool>, QFont> FFonts;
    mutable std::map<int, double> FHeights;
};

class TSheetGeometry {
public:
    /// `scale`: device pixels to a pixel of the page's widths.
    TSheetGeometry(const TSpreadsheetPage& page, const TSheetFonts& fonts, double scale);

    [[nodiscard]] int Rows() const { return static_cast<int>(FTops.size()) - 1; }
    [[nodiscard]] int Columns() const { return static_cast<int>(FLefts.size()) - 1; }
    // The edge behind the last one is known too.
    [[nodiscard]] double Top(int row) const { return FTops.at(static_cast<std::size_t>(row)); }
    [[nodiscard]] double Left(int column) const { return FLefts.at(static_cast<std::size_t>(column)); }
    [[nodiscard]] double Height(int row) const { return Top(row + 1) - Top(row); }
    [[nodiscard]] double Width(int column) const { return Left(column + 1) - Left(column); }
    /// The row or column at that place, clamped to those there are; -1 if there are none.
    [[nodiscard]] int RowAt(double y) const;
    [[nodiscard]] int ColumnAt(double x) const;

private:
    std::vector<double> FTops;
    std::vector<double> FLefts;
};

/// Draws cells.
class TSheetPainter {
public:
    TSheetPainter(const TSpreadsheetPage& page, const TSheetFonts& fonts, const TNumberLocale& locale, double scale)
        : FPage(page), FFonts(fonts), FLocale(locale), FScale(scale) {}

    /// The ground of a cell, if it has one.
    void Ground(QPainter& painter, int row, int column, const QRectF& cell) const;
    /// The text of a cell in `cell`. A text runs on into `room`, which is at least as wide; a figure that doesn't fit
    /// shows as "####".
    void Text(QPainter& painter, int row, int column, const QRectF& cell, const QRectF& room) const;
    /// True if the cell has something to draw.
    [[nodiscard]] bool IsFilled(int row, int column) const;
    /// True if the cell's text doesn't fit in that width.
    [[nodiscard]] bool IsCut(int row, int column, double width) const;

private:
    const TSpreadsheetPage& FPage;
    const TSheetFonts& FFonts;
    TNumberLocale FLocale;
    double FScale;
};
