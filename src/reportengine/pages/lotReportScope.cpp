// SPDX-License-Identifier: GPL-3.0-or-later
#include "reportengine/pages/lotReportScope.h"

#include "common/vipErrors.h"
#include "common/vipText.h"

#include <algorithm>
#include <numeric>
#include <ranges>

namespace report {

namespace {

/// Carries failures of an expression to its place in the template.
template <typename TWork> auto AtPlace(const TPlacedExpression& expression, const TWork& work) {
    try {
        return work(expression.Expression);
    } catch (const ELotError& error) {
        FailAt(expression.Place, QString::fromUtf8(error.what()));
    }
}

} // namespace

TlotTable* TReportScope::FindTable(std::string_view name) const {
    const auto found = std::ranges::find_if(FEngine.DataSets,
                                            [&](const TlotTable* table) { return vip::SameText(table->Name(), name); });
    return found == FEngine.DataSets.end() ? nullptr : *found;
}

const TlotTable* TReportScope::Table(std::string_view name) const {
    return FindTable(name);
}

TValue TReportScope::Variable(std::string_view name) const {
    if (FEngine.OnGetValue) {
        if (const std::optional<TlotReportValue> value = FEngine.OnGetValue(name)) {
            return std::visit([](const auto& content) { return TValue{content}; }, *value);
        }
    }
    if (vip::SameText(name, "Page")) {
        return {QString(QChar(PageMark)).toStdString()};
    }
    if (vip::SameText(name, "PageCount")) {
        return {QString(QChar(PageCountMark)).toStdString()};
    }
    if (vip::SameText(name, "Continued")) {
        return {Continued};
    }
    if (vip::SameText(name, "RunningHead")) {
        return {RunningHead.toStdString()};
    }
    if (vip::SameText(name, "Row")) {
        return {static_cast<double>(Row)};
    }
    throw ELotError("There is no variable " + std::string(name) + ".");
}

std::vector<int> TReportScope::RowsOf(const TlotTable& table) const {
    for (const auto& [own, rows] : std::views::reverse(FRows)) {
        if (own == &table) {
            return rows;
        }
    }
    std::vector<int> all(static_cast<std::size_t>(table.RowCount()));
    std::iota(all.begin(), all.end(), 0);
    return all;
}

TValue TReportScope::Evaluate(const TPlacedExpression& expression) const {
    return AtPlace(expression, [&](const TExpression& inner) { return inner.Evaluate(*this); });
}

bool TReportScope::IsTrue(const std::optional<TPlacedExpression>& expression, bool otherwise) const {
    if (!expression) {
        return otherwise;
    }
    return AtPlace(*expression, [&](const TExpression& inner) { return inner.Evaluate(*this).AsBoolean(); });
}

QString TReportScope::Text(const std::optional<TPlacedExpression>& expression) const {
    return expression ? QString::fromStdString(Evaluate(*expression).AsText()) : QString();
}

} // namespace report
