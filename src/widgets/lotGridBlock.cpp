// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotGridBlock.h"

#include "widgets/lotClipboardText.h"

#include <QRegularExpression>
#include <algorithm>
#include <string>

namespace {

/// As a line to type into, which has no room for another.
QString InOneLine(const std::string& text) {
    static const QRegularExpression lineEnd("\r\n|\r|\n");
    return QString::fromStdString(text).replace(lineEnd, " ");
}

void PasteOne(TGridBridge& bridge, const TGridBlock& block, const QString& text) {
    const int bottom = std::min(block.Bottom, bridge.RecordCount() - 1);
    // The row for new records is meant only where it alone is selected.
    for (int row = block.Top; row <= std::max(bottom, block.Top); ++row) {
        for (const int column : block.Columns) {
            bridge.Guard().Run([&] { bridge.PutText(row, column, text); });
        }
    }
}

void PasteRow(TGridBridge& bridge, int row, const std::vector<int>& columns, const std::vector<std::string>& cells) {
    for (std::size_t i = 0; i < std::min(columns.size(), cells.size()); ++i) {
        bridge.Guard().Run([&] { bridge.PutText(row, columns[i], InOneLine(cells[i])); });
    }
}

} // namespace

QString CopyBlock(const TGridBridge& bridge, const TGridBlock& block) {
    std::vector<TClipboardRow> rows;
    for (int row = block.Top; row <= std::min(block.Bottom, bridge.RecordCount() - 1); ++row) {
        TClipboardRow& cells = rows.emplace_back();
        for (const int column : block.Columns) {
            cells.push_back(bridge.Value(row, column));
        }
    }
    return QString::fromStdString(ClipboardText(rows, bridge.Locale()));
}

void PasteBlock(TGridBridge& bridge, const TGridBlock& block, const std::vector<int>& columns, const QString& text) {
    const std::vector<std::vector<std::string>> rows = ClipboardCells(text.toStdString());
    bridge.Link().Write([&] {
        if (rows.size() == 1 && rows.front().size() == 1) {
            PasteOne(bridge, block, InOneLine(rows.front().front()));
            return;
        }
        int row = block.Top;
        for (const std::vector<std::string>& cells : rows) {
            const bool inNewRow = bridge.IsNewRow(row);
            if (row >= bridge.rowCount()) {
                return;
            }
            PasteRow(bridge, row, columns, cells);
            // A row that was worth no record leaves its place to the next.
            row += inNewRow && bridge.IsNewRow(row) ? 0 : 1;
        }
    });
}

void ClearBlock(TGridBridge& bridge, const TGridBlock& block) {
    bridge.Link().Write([&] {
        for (int row = block.Top; row <= std::min(block.Bottom, bridge.RecordCount() - 1); ++row) {
            for (const int column : block.Columns) {
                if (bridge.Column(column).Clearable) {
                    bridge.Guard().Run([&] { bridge.Put(row, column, std::monostate()); });
                }
            }
        }
    });
}
