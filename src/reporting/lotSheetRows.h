// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the monthly sheets share: their columns, how many months they show, and the kinds of rows. Sheets are written
// from the top, a row after the other.
#pragma once

#include "common/lotDoubles.h"
#include "model/lotProject.h"
#include "reporting/lotSpreadsheetPage.h"

#include <cstdint>
#include <string>
#include <string_view>

/// Months that a sheet shows: up to the last one with money in any line of the project.
[[nodiscard]] int SheetPeriods(const TlotProject& project);

/// "Jan-2026": the month of the project's start advanced by `month`.
[[nodiscard]] std::string SheetMonth(double startDate, int month);

/// Gives the page the font, and the widths that go with its size (points).
void ApplySheetFont(TSpreadsheetPage& page, const std::string& fontName, int fontSize);

/// "Senior 7.500%": a name, and its rate (percent a year) where that is one rate for all months.
[[nodiscard]] std::string NameWithRate(const std::string& name, bool variableRate, double rate,
                                       const TNumberLocale& locale);

class TlotSheetRows {
public:
    /// Writes below what `page` holds; months begin at `firstColumn`.
    TlotSheetRows(TSpreadsheetPage& page, int textColumn, int firstColumn, int periods);

    [[nodiscard]] TSpreadsheetPage& Page() noexcept { return FPage; }
    [[nodiscard]] int Row() const noexcept { return FRow; } ///< That is written next.
    [[nodiscard]] int Periods() const noexcept { return FPeriods; }
    [[nodiscard]] int FirstColumn() const noexcept { return FFirstColumn; }
    void NextRow() noexcept { ++FRow; }

    /// A whole row: bold, two points larger, with a ground across the sheet.
    void Heading(std::string_view text);
    /// The label of the present row.
    void Label(std::string_view text, bool bold = false);
    /// A whole row of monthly percentages; a zero is an empty cell.
    void RateRow(std::string_view label, const TlotDoubles& rates);
    /// A whole row of one figure, in the first month.
    void SingleValue(std::string_view label, double value, std::string_view format);

private:
    TSpreadsheetPage& FPage;
    int FTextColumn;
    int FFirstColumn;
    int FPeriods;
    int FRow = 0;
    std::uint16_t FHeading;
    std::uint16_t FHeadingGround;
    std::uint16_t FLabel;
    std::uint16_t FBoldLabel;
    std::uint16_t FRate;
};
