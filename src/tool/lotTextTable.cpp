// SPDX-License-Identifier: GPL-3.0-or-later
#include "tool/lotTextTable.h"

#include "common/vipText.h"

#include <algorithm>

namespace {

std::size_t WidthOf(const std::string& text) {
    std::size_t width = 0;
    for (std::size_t position = 0; position < text.size(); ++width) {
        static_cast<void>(vip::NextCodePoint(text, position));
    }
    return width;
}

} // namespace

std::vector<std::size_t> TTextTable::Widths() const {
    std::vector<std::size_t> widths;
    for (const TRow& row : FRows) {
        widths.resize(std::max(widths.size(), row.Cells.size()));
        for (std::size_t i = 0; i < row.Cells.size(); ++i) {
            widths[i] = std::max(widths[i], WidthOf(row.Cells[i]));
        }
    }
    return widths;
}

std::string TTextTable::Text(std::size_t indent) const {
    const std::vector<std::size_t> widths = Widths();
    std::string text;
    for (const TRow& row : FRows) {
        std::string line(indent, ' ');
        for (std::size_t i = 0; i < widths.size(); ++i) {
            const bool figure = i >= FLeftColumns;
            std::string cell = i < row.Cells.size() ? row.Cells[i] : std::string();
            if (row.Rule && figure) {
                cell.assign(widths[i], '-');
            }
            const std::string padding(widths[i] - WidthOf(cell), ' ');
            line += i == 0 ? "" : "  ";
            line += figure ? padding + cell : cell + padding;
        }
        line.erase(line.find_last_not_of(' ') + 1);
        text += line + '\n';
    }
    return text;
}
