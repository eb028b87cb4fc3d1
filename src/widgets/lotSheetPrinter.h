// SPDX-License-Identifier: GPL-3.0-or-later
//
// A sheet on paper: which cells go on which page, and how a page is drawn. The frozen rows and columns of the sheet,
// which are its months and labels, stand on every page; its title and the number of the page at the foot.
#pragma once

#include "widgets/lotSheetGeometry.h"

#include <QRectF>
#include <vector>

class QPagedPaintDevice;
class QPainter;

/// The cells of one page, apart from those that are repeated; both ends included.
struct TSheetPageRange {
    int FirstRow = 0;
    int LastRow = -1;
    int FirstColumn = 0;
    int LastColumn = -1;
};

/// The pages of a sheet of that geometry in `width` by `height`: down, then to the right. A row or column too large for
/// a page gets one all the same, and `heading` rows never stand last on a page. None for a sheet without cells.
[[nodiscard]] std::vector<TSheetPageRange> PaginateSheet(const TSheetGeometry& geometry, int frozenRows,
                                                         int frozenColumns, double width, double height,
                                                         const std::vector<bool>& headings);

class TSheetPrinter {
public:
    /// For a device whose page is set up. Both outlive the printer.
    TSheetPrinter(const TSpreadsheetPage& page, const TNumberLocale& locale, const QPagedPaintDevice& device);

    [[nodiscard]] int PageCount() const { return static_cast<int>(FPages.size()); }
    /// Draws a page, counted from 0.
    void DrawPage(QPainter& painter, int page) const;
    /// Draws all pages on a device, or those from `first` to `last`, counted from 0.
    void Print(QPagedPaintDevice& device, int first, int last) const;

private:
    void DrawCells(QPainter& painter, const TSheetPageRange& range) const;
    void DrawFoot(QPainter& painter, int page) const;

    const TSpreadsheetPage& FPage;
    TNumberLocale FLocale;
    double FScale;
    TSheetFonts FFonts;
    TSheetGeometry FGeometry;
    QRectF FArea; ///< Within the margins, in pixels of the device.
    double FFootHeight = 0;
    std::vector<TSheetPageRange> FPages;
};
