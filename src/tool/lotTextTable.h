// SPDX-License-Identifier: GPL-3.0-or-later
//
// A table in plain text: columns as wide as their content, the first ones left-aligned, figures right-aligned.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

class TTextTable {
public:
    /// The first `leftColumns` columns are texts, the rest figures.
    explicit TTextTable(std::size_t leftColumns) : FLeftColumns(leftColumns) {}

    void Add(std::vector<std::string> cells) { FRows.push_back({std::move(cells), false}); }
    /// A rule across the figures, above a total.
    void AddRule() { FRows.push_back({{}, true}); }

    /// All rows, each behind `indent` blanks, with no trailing blanks.
    [[nodiscard]] std::string Text(std::size_t indent) const;

private:
    struct TRow {
        std::vector<std::string> Cells;
        bool Rule = false;
    };

    [[nodiscard]] std::vector<std::size_t> Widths() const;

    std::size_t FLeftColumns = 0;
    std::vector<TRow> FRows;
};
