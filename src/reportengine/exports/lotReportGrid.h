// SPDX-License-Identifier: GPL-3.0-or-later
//
// A finished report as one long table, for formats that know rows and cells but no places on paper. Texts that begin or
// end at one place make a column; what stands at one height becomes a row. Left out are page headers but the first,
// repeated heads, page footers but the last, and page numbers.
#pragma once

#include "reportengine/pages/lotPreparedReport.h"

#include <vector>

namespace report {

struct TGridCell {
    const TPreparedItem* Item = nullptr; ///< A text, picture or chart; never null.
    int Column = 0;
    int Span = 1; ///< Columns, at least 1.
};

struct TGridRow {
    TBandKind Band = TBandKind::MasterData;
    double GapAbove = 0;          ///< Twips between it and the row before.
    double Height = 0;            ///< Twips.
    std::vector<TGridCell> Cells; ///< By column, none overlapping.
    QRgb Fill = 0;                ///< Of a box behind the row; alpha 0: none.
    bool Gradient = false;        ///< The report's gradient is behind the row.
    bool RuleAbove = false;       ///< A line over its whole width.
    bool RuleBelow = false;
    bool PartStart = false; ///< Begins a part of the document that has pages of its own.
};

struct TReportGrid {
    std::vector<double> Columns; ///< Widths, twips; at least one.
    std::vector<TGridRow> Rows;
};

/// The items stay the report's, which must outlive the grid.
[[nodiscard]] TReportGrid BuildReportGrid(const TPreparedReport& report);

} // namespace report
