// SPDX-License-Identifier: GPL-3.0-or-later
//
// Blocks of a grid's cells to the clipboard and back, and emptied. What is written goes through what typing goes
// through: refusals, bounds and parsing; a cell that may not be edited is passed over. All of a block is one edit.
#pragma once

#include "widgets/lotGridBridge.h"

#include <QString>
#include <vector>

struct TGridBlock {
    int Top = 0;
    int Bottom = -1;          ///< Included.
    std::vector<int> Columns; ///< As they are shown.
};

/// The cells as text for a spreadsheet; nothing for the row for new records.
[[nodiscard]] QString CopyBlock(const TGridBridge& bridge, const TGridBlock& block);

/// Writes the cells of `text` from the block's top left on; a single one into all of the block. `columns`: those shown
/// from the block's first on. Rows past the end become records where the grid has a row for new ones, and are dropped
/// where not.
void PasteBlock(TGridBridge& bridge, const TGridBlock& block, const std::vector<int>& columns, const QString& text);

/// Writes nothing to each cell, as far as its column may be emptied.
void ClearBlock(TGridBridge& bridge, const TGridBlock& block);
