// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the expressions of a template see while its report is made: the tables at their current rows, the variables of
// the program, and the engine's own.
#pragma once

#include "app/lotReportEngine.h"
#include "reportengine/template/lotReportExpression.h"
#include "reportengine/template/lotReportTemplate.h"

#include <QString>
#include <functional>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace report {

/// Stand in texts for the number of the page and of all pages until these are known.
inline constexpr char16_t PageMark = 0xE000;
inline constexpr char16_t PageCountMark = 0xE001;

class TReportScope final : public TExpressionScope {
public:
    /// What is handed in must outlive it.
    explicit TReportScope(const TlotReportEngine& engine) : FEngine(engine) {}

    // The engine's own variables.
    bool Continued = false; ///< The band is printed again at the top of a page.
    QString RunningHead;
    int Row = 0; ///< Of the innermost data band, from 1.

    [[nodiscard]] const TlotTable* Table(std::string_view name) const override;
    [[nodiscard]] TlotTable* FindTable(std::string_view name) const;
    [[nodiscard]] TValue Variable(std::string_view name) const override;
    [[nodiscard]] std::vector<int> RowsOf(const TlotTable& table) const override;

    /// The rows that totals of that table run over until the matching Pop.
    void PushRows(const TlotTable& table, std::vector<int> rows) { FRows.emplace_back(&table, std::move(rows)); }
    void PopRows() { FRows.pop_back(); }

    // As the expression's own, with failures told at its place. `otherwise` stands for one that isn't there.
    [[nodiscard]] TValue Evaluate(const TPlacedExpression& expression) const;
    [[nodiscard]] bool IsTrue(const std::optional<TPlacedExpression>& expression, bool otherwise) const;
    [[nodiscard]] QString Text(const std::optional<TPlacedExpression>& expression) const;

private:
    const TlotReportEngine& FEngine;
    std::vector<std::pair<const TlotTable*, std::vector<int>>> FRows; // The innermost last.
};

} // namespace report
