// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the timescale does to the model: each action on a selection of its sheet, by the registry of its rows. Nothing
// here recalculates or draws; whoever calls it does, once an action that changed something. Rows whose line, loan or
// item has been deleted are rows without one.
#pragma once

#include "common/lotLifetime.h"
#include "common/vipNumber.h"
#include "reporting/lotRows.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// A block of cells in coordinates of the sheet, both ends included.
struct TlotSheetBlock {
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;
};

/// What became of an action: a change, or a refusal with or without a word.
struct TlotActionResult {
    bool Changed = false;
    std::string Message = {}; ///< To be told; empty: nothing is.
};

/// The context menu that a row has.
enum class TlotRowMenu : std::uint8_t { None, Item, Rate };

class TlotTimescaleEditor {
public:
    /// The column of month 0; labels stand before it.
    static constexpr int FirstColumn = 1;

    /// `rows` outlives the editor and is refilled as the sheet is.
    explicit TlotTimescaleEditor(TlotRows& rows) : FRows(rows) {}

    /// Whether a cell may be edited; Changed means that it may.
    [[nodiscard]] TlotActionResult MayEdit(int row, int column) const;

    /// What a text typed into a cell does. `Shown`: what the cell is to show where nothing was changed.
    struct TEdit {
        bool Changed = false;
        std::optional<double> Shown = {};
    };
    /// Stores what was typed as the month's weight, not as its money, or as its rate. A figure whose whole number is
    /// the one that stood there changes nothing.
    TEdit EndEdit(int row, int column, std::string_view text, const TNumberLocale& locale);

    TlotActionResult ClearCells(const TlotSheetBlock& block);
    TlotActionResult NudgeLeft(const TlotSheetBlock& block);
    TlotActionResult NudgeRight(const TlotSheetBlock& block);
    TlotActionResult AlignLeft(const TlotSheetBlock& block);
    TlotActionResult AlignRight(const TlotSheetBlock& block);
    TlotActionResult Spread(const TlotSheetBlock& block);
    TlotActionResult Link(const TlotSheetBlock& block, bool link);

    /// The line that shares of its total can be given in, or a shape laid over; null where there is none.
    [[nodiscard]] TlotCashflowItem* ShapedLine(int row, const TlotSheetBlock& block) const;
    /// Gives the block's months `percent` of the total of that row's line. Throws what the line throws.
    TlotActionResult AllocatePortion(int row, const TlotSheetBlock& block, double percent);

    /// The question before the rates of a row are reset; empty where there are none.
    [[nodiscard]] std::string ResetQuestion(int row, const TNumberLocale& locale) const;
    TlotActionResult ResetVariableRate(int row);

    /// Copy and Paste exchange the weights of two months of one line.
    TlotActionResult Copy(const TlotSheetBlock& block);
    TlotActionResult Paste(const TlotSheetBlock& block);
    [[nodiscard]] bool HasCopied() const noexcept { return FCopied.has_value(); }

    [[nodiscard]] TlotRowMenu MenuOf(int row) const noexcept;
    /// Whether the rate menu's reset is open in that row.
    [[nodiscard]] bool MayResetRate(int row) const noexcept;

private:
    /// The month that was copied.
    struct TCellSelection {
        int Row = 0;
        int Column = 0;
        TlotWatch<TlotCashflowItem> Line = {};
    };

    [[nodiscard]] TlotInterestTerms* RatesOf(int row) const noexcept;
    template <class Change> TlotActionResult EachLine(const TlotSheetBlock& block, const Change& change);

    TlotRows& FRows;
    std::optional<TCellSelection> FCopied;
};
