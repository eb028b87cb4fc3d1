// SPDX-License-Identifier: GPL-3.0-or-later
#include "reporting/lotSpreadsheetPage.h"

#include "common/vipErrors.h"
#include "engine/lotLineColours.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace {

constexpr TSpreadsheetCell EmptyCell;

constexpr std::array Palette{
    TlotLineColour{SheetPalette::Grey, 0x8A949D},
    TlotLineColour{SheetPalette::Heading, 0xDCE6EC},
    LineColours::Costs,
    LineColours::Rent,
    LineColours::Sales,
    LineColours::Build,
    TlotLineColour{SheetPalette::OutOfRange, 0xF3F5F7},
};

} // namespace

std::uint32_t SheetColour(std::uint8_t index) {
    const auto entry = std::ranges::find(Palette, index, &TlotLineColour::Index);
    if (entry == Palette.end()) {
        throw ELotError("The sheet has no colour " + std::to_string(index) + ".");
    }
    return entry->Rgb;
}

TSpreadsheetText FormatSheetNumber(std::string_view format, double value, const TNumberLocale& locale) {
    const bool red = format == AccountingRedFormat;
    if (format.empty()) {
        return {vip::NumberToText(value, locale)};
    }
    if (!red && format != AccountingFormat) {
        return {vip::FormatMask(format, value, locale)};
    }
    std::string text = vip::FormatMask(",0", std::abs(value), locale);
    if (!(value < 0) || text == "0") {
        return {std::move(text), false, true};
    }
    return {"(" + text + ")", red, false};
}

TSpreadsheetPage::TSpreadsheetPage() {
    Clear();
}

void TSpreadsheetPage::EndUpdate() {
    if (--FUpdating == 0 && OnChange) {
        OnChange();
    }
}

void TSpreadsheetPage::Clear() {
    BeginUpdate();
    for (int row = 0; row < FRowCount; ++row) {
        FRows[static_cast<std::size_t>(row)].clear();
    }
    FRowCount = 0;
    FColumnCount = 0;
    FTexts.clear();
    FWidths.clear();
    FStyleIndex.clear();
    FStyles.assign(1, {});
    FStyleIndex.emplace(FStyles.front(), 0);
    EndUpdate();
}

std::uint16_t TSpreadsheetPage::Style(const TSpreadsheetStyle& style) {
    const auto [entry, added] = FStyleIndex.try_emplace(style, static_cast<std::uint16_t>(FStyles.size()));
    if (added) {
        FStyles.push_back(style);
    }
    return entry->second;
}

TSpreadsheetCell& TSpreadsheetPage::Reach(int row, int column) {
    if (row < 0 || column < 0) {
        throw ERangeError();
    }
    const auto rowIndex = static_cast<std::size_t>(row);
    const auto columnIndex = static_cast<std::size_t>(column);
    if (rowIndex >= FRows.size()) {
        FRows.resize(rowIndex + 1);
    }
    FRowCount = std::max(FRowCount, row + 1);
    FColumnCount = std::max(FColumnCount, column + 1);
    std::vector<TSpreadsheetCell>& cells = FRows[rowIndex];
    if (columnIndex >= cells.size()) {
        cells.resize(columnIndex + 1);
    }
    return cells[columnIndex];
}

void TSpreadsheetPage::SetNumber(int row, int column, double value, std::uint16_t style) {
    Reach(row, column) = {value, -1, style, TSpreadsheetCell::TKind::Number};
    BeginUpdate();
    EndUpdate();
}

void TSpreadsheetPage::SetText(int row, int column, std::string_view text, std::uint16_t style) {
    TSpreadsheetCell& cell = Reach(row, column);
    cell = {0, static_cast<std::int32_t>(FTexts.size()), style, TSpreadsheetCell::TKind::Text};
    FTexts.emplace_back(text);
    BeginUpdate();
    EndUpdate();
}

void TSpreadsheetPage::SetEmpty(int row, int column, std::uint16_t style) {
    Reach(row, column) = {0, -1, style, TSpreadsheetCell::TKind::Empty};
    BeginUpdate();
    EndUpdate();
}

void TSpreadsheetPage::SetColumnWidth(int column, int width) {
    const auto index = static_cast<std::size_t>(column);
    if (index >= FWidths.size()) {
        FWidths.resize(index + 1);
    }
    FWidths[index] = width;
}

int TSpreadsheetPage::ColumnWidth(int column) const {
    const auto index = static_cast<std::size_t>(column);
    const int width = index < FWidths.size() ? FWidths[index] : 0;
    return width > 0 ? width : DefaultColumnWidth;
}

int TSpreadsheetPage::RowSizeDelta(int row) const {
    int delta = 0;
    std::uint16_t seen = 0;
    for (const TSpreadsheetCell& cell : FRows.at(static_cast<std::size_t>(row))) {
        if (cell.Style != seen) { // Neighbours mostly look alike.
            seen = cell.Style;
            delta = std::max<int>(delta, FStyles[seen].SizeDelta);
        }
    }
    return delta;
}

const TSpreadsheetCell& TSpreadsheetPage::Cell(int row, int column) const noexcept {
    if (row < 0 || row >= FRowCount || column < 0) {
        return EmptyCell;
    }
    const std::vector<TSpreadsheetCell>& cells = FRows[static_cast<std::size_t>(row)];
    const auto index = static_cast<std::size_t>(column);
    return index < cells.size() ? cells[index] : EmptyCell;
}

TSpreadsheetText TSpreadsheetPage::Shown(int row, int column, const TNumberLocale& locale) const {
    const TSpreadsheetCell& cell = Cell(row, column);
    switch (cell.Kind) {
    case TSpreadsheetCell::TKind::Number: return FormatSheetNumber(StyleOf(cell).Format, cell.Number, locale);
    case TSpreadsheetCell::TKind::Text: return {TextOf(cell)};
    case TSpreadsheetCell::TKind::Empty: break;
    }
    return {};
}
