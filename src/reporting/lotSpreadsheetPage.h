// SPDX-License-Identifier: GPL-3.0-or-later
//
// One sheet of cells as a plain object: values, formats, fonts, colours, column widths. The same object is drawn on
// screen, printed, saved as a workbook, and read by tests; nothing here knows a widget.
//
// A cell is empty, a number with a format, or a text. Rows and columns count from 0 and grow as cells are set. A
// percentage is held as its percent figure: 17.5 under "0.000%" shows "17.500%".
#pragma once

#include "common/vipNumber.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

enum class TlotAlignment : std::uint8_t { General, Left, Centre, Right }; ///< General: numbers right, texts left.

/// How a cell looks. Colours are indices of the sheet's palette (SheetColour); 0 means none.
struct TSpreadsheetStyle {
    std::string Format = {}; ///< "" (shortest text), ",0", "0.000%", or an accounting format as below.
    TlotAlignment Alignment = TlotAlignment::General;
    bool Bold = false;
    std::int8_t SizeDelta = 0; ///< Points on top of the page's font size.
    std::uint8_t Background = 0;
    std::uint8_t FontColour = 0;

    friend auto operator<=>(const TSpreadsheetStyle&, const TSpreadsheetStyle&) = default;
};

/// Positive plain, negative in brackets; the second one shows negatives in red. Digits line up with and without
/// brackets.
inline constexpr std::string_view AccountingFormat = "(#,##0_);(#,##0)";
inline constexpr std::string_view AccountingRedFormat = "(#,##0_);[Red](#,##0)";

/// The palette entries that sheets use besides LineColours.
namespace SheetPalette {
inline constexpr std::uint8_t Grey = 15;       ///< Figures that cannot be edited.
inline constexpr std::uint8_t Heading = 18;    ///< Behind a heading.
inline constexpr std::uint8_t OutOfRange = 56; ///< Months without money.
} // namespace SheetPalette

/// The RGB (0xRRGGBB) of a palette entry. Throws ELotError for one that the palette doesn't hold.
[[nodiscard]] std::uint32_t SheetColour(std::uint8_t index);

/// What is written in a cell.
struct TSpreadsheetText {
    std::string Text;
    bool Red = false; ///< By its format.
    /// An accounting format: leave the width of a ")" free behind a text that has none, so that digits line up.
    bool PadBracket = false;
};

/// A figure as a sheet's cell shows it.
[[nodiscard]] TSpreadsheetText FormatSheetNumber(std::string_view format, double value, const TNumberLocale& locale);

struct TSpreadsheetCell {
    enum class TKind : std::uint8_t { Empty, Number, Text };

    double Number = 0;
    std::int32_t TextIndex = -1; ///< Into the page's texts.
    std::uint16_t Style = 0;     ///< Into the page's styles; 0 is the plain one.
    TKind Kind = TKind::Empty;
};

class TSpreadsheetPage {
public:
    TSpreadsheetPage();
    TSpreadsheetPage(const TSpreadsheetPage&) = delete;
    TSpreadsheetPage& operator=(const TSpreadsheetPage&) = delete;

    std::string Title;
    std::string FontName = "Arial";
    int FontSize = 8;            ///< Points.
    int DefaultColumnWidth = 70; ///< Pixels at 96 to the inch, as all widths.
    int FrozenRows = 0;          ///< That stay in view, and are repeated on each printed page.
    int FrozenColumns = 0;
    bool FitsPageWidth = false; ///< Printed upright and as small as all columns need; otherwise across, at full size.
    std::vector<std::string> ColumnHeaders; ///< Shown above the cells where there are any.

    /// A batch: OnChange waits for the end of the outermost one.
    void BeginUpdate() noexcept { ++FUpdating; }
    void EndUpdate();
    std::function<void()> OnChange; ///< The cells have changed.

    /// Drops cells, styles and column widths; the other settings and the memory of the cells stay.
    void Clear();

    /// The number by which a style is set; the same style gives the same number until Clear.
    [[nodiscard]] std::uint16_t Style(const TSpreadsheetStyle& style);
    void SetNumber(int row, int column, double value, std::uint16_t style);
    void SetText(int row, int column, std::string_view text, std::uint16_t style);
    void SetEmpty(int row, int column, std::uint16_t style);
    void SetColumnWidth(int column, int width);

    [[nodiscard]] int RowCount() const noexcept { return FRowCount; }
    [[nodiscard]] int ColumnCount() const noexcept { return FColumnCount; } ///< Of the longest row.
    [[nodiscard]] int ColumnWidth(int column) const;
    /// By how many points the largest font of the row is larger than the page's, at least 0: what makes a row higher
    /// than others wherever the sheet is shown.
    [[nodiscard]] int RowSizeDelta(int row) const;

    /// An empty plain cell where none was set.
    [[nodiscard]] const TSpreadsheetCell& Cell(int row, int column) const noexcept;
    [[nodiscard]] const TSpreadsheetStyle& StyleOf(const TSpreadsheetCell& cell) const { return FStyles[cell.Style]; }
    /// The text of a text cell.
    [[nodiscard]] const std::string& TextOf(const TSpreadsheetCell& cell) const {
        return FTexts[static_cast<std::size_t>(cell.TextIndex)];
    }
    /// What the cell shows, by its format.
    [[nodiscard]] TSpreadsheetText Shown(int row, int column, const TNumberLocale& locale) const;
    [[nodiscard]] const std::vector<TSpreadsheetStyle>& Styles() const noexcept { return FStyles; }

private:
    /// The cell, made where it isn't there. Throws ERangeError for a negative place.
    [[nodiscard]] TSpreadsheetCell& Reach(int row, int column);

    // Rows keep their capacity from refresh to refresh; FRowCount says how many are in use.
    std::vector<std::vector<TSpreadsheetCell>> FRows;
    std::vector<std::string> FTexts;
    std::vector<TSpreadsheetStyle> FStyles;
    std::map<TSpreadsheetStyle, std::uint16_t> FStyleIndex;
    std::vector<int> FWidths; ///< 0: the default.
    int FRowCount = 0;
    int FColumnCount = 0;
    int FUpdating = 0;
};

/// A batch of changes for as long as it lives.
class TSpreadsheetBatch {
public:
    explicit TSpreadsheetBatch(TSpreadsheetPage& page) : FPage(page) { FPage.BeginUpdate(); }
    TSpreadsheetBatch(const TSpreadsheetBatch&) = delete;
    TSpreadsheetBatch& operator=(const TSpreadsheetBatch&) = delete;
    ~TSpreadsheetBatch() { FPage.EndUpdate(); }

private:
    TSpreadsheetPage& FPage;
};
