// SPDX-License-Identifier: GPL-3.0-or-later
#include "reporting/lotSheetRows.h"

#include "common/vipDate.h"

#include <algorithm>

namespace {

constexpr int LabelWidth = 120; // Pixels.

} // namespace

int SheetPeriods(const TlotProject& project) {
    return project.Cashflow.LastMonth();
}

std::string SheetMonth(double startDate, int month) {
    return vip::MonthYearText(vip::IncMonth(startDate, month));
}

void ApplySheetFont(TSpreadsheetPage& page, const std::string& fontName, int fontSize) {
    page.FontName = fontName;
    page.FontSize = fontSize;
    page.DefaultColumnWidth = fontSize == 8 ? 70 : fontSize == 9 ? 78 : 85;
}

std::string NameWithRate(const std::string& name, bool variableRate, double rate, const TNumberLocale& locale) {
    return variableRate ? name : name + " " + vip::FormatMask("0.000%", rate, locale);
}

TlotSheetRows::TlotSheetRows(TSpreadsheetPage& page, int textColumn, int firstColumn, int periods)
    : FPage(page),
      FTextColumn(textColumn),
      FFirstColumn(firstColumn),
      FPeriods(periods),
      FRow(page.RowCount()),
      FHeading(page.Style(
          {.Alignment = TlotAlignment::Left, .Bold = true, .SizeDelta = 2, .Background = SheetPalette::Heading})),
      FHeadingGround(page.Style({.Background = SheetPalette::Heading})),
      FLabel(page.Style({.Alignment = TlotAlignment::Left})),
      FBoldLabel(page.Style({.Alignment = TlotAlignment::Left, .Bold = true})),
      FRate(page.Style({.Format = "0.000%", .Alignment = TlotAlignment::Right})) {
    page.SetColumnWidth(textColumn, LabelWidth);
}

void TlotSheetRows::Heading(std::string_view text) {
    FPage.SetText(FRow, FTextColumn, text, FHeading);
    for (int column = FTextColumn + 1; column < FFirstColumn + FPeriods; ++column) {
        FPage.SetEmpty(FRow, column, FHeadingGround);
    }
    NextRow();
}

void TlotSheetRows::Label(std::string_view text, bool bold) {
    FPage.SetText(FRow, FTextColumn, text, bold ? FBoldLabel : FLabel);
}

void TlotSheetRows::RateRow(std::string_view label, const TlotDoubles& rates) {
    Label(label);
    for (int month = 0; month < std::min(FPeriods, rates.Count()); ++month) {
        if (const double rate = rates.Get(month); rate != 0) {
            FPage.SetNumber(FRow, FFirstColumn + month, rate, FRate);
        }
    }
    NextRow();
}

void TlotSheetRows::SingleValue(std::string_view label, double value, std::string_view format) {
    Label(label);
    FPage.SetNumber(FRow, FFirstColumn, value,
                    FPage.Style({.Format = std::string(format), .Alignment = TlotAlignment::Right}));
    NextRow();
}
