// SPDX-License-Identifier: GPL-3.0-or-later
//
// A finished report as one long table, for formats that know rows and cells but no places on paper. The left and right
// edges of all texts become the columns; what stands at one height becomes a row. Page headers and repeated heads are
// left out, page footers but the last too, and what counts pages.
#pragma once

#include "reportengine/lotPreparedReport.h"

#include <vector>

namespace report {

struct TGridCell {
    const TPreparedItem* Item = nullptr; ///< A text, picture or chart; never null.
    int Column = 0;
    int Span = 1; ///< Columns, at least 1.
};

struct TGridRow {
    TBandKind Band = TBandKind::MasterData;
    double Height = 0;            ///< Twips.
    std::vector<TGridCell> Cells; ///< By column, none overlapping.
    QRgb Fill = 0;                ///< Of a box or gradient behind the row; alpha 0: none.
    bool Gradient = false;        ///< Fill stands for the report's gradient.
    bool RuleAbove = false;       ///< A line along the row's upper edge, or what is nearest to it.
    bool RuleBelow = false;
    bool PageBreakBefore = false; ///< The row begins a page that the template asked for: another document or part.
};

struct TReportGrid {
    std::vector<double> Columns; ///< Widths, twips.
    std::vector<TGridRow> Rows;
};

/// The items stay the report's, which must outlive the grid.
[[nodiscard]] TReportGrid BuildReportGrid(const TPreparedReport& report);

} // namespace report
