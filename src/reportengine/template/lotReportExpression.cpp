// SPDX-License-Identifier: GPL-3.0-or-later
#include "reportengine/template/lotReportExpression.h"

#include "common/vipErrors.h"
#include "common/vipNumber.h"
#include "common/vipText.h"
#include "reportengine/template/lotExpressionNode.h"

#include <cmath>
#include <functional>
#include <limits>
#include <optional>

namespace report {

using detail::TNode;
using detail::TNodeKind;

namespace {

/// While a total runs over the rows of a table: the row that counts in place of its current one.
struct TRowOverride {
    const TlotTable* Table = nullptr;
    int Row = 0;
};

const TlotTable& FindTable(const TNode& node, const TExpressionScope& scope) {
    const TlotTable* const table = scope.Table(node.Text);
    if (table == nullptr) {
        throw ELotError("There is no table " + node.Text + ".");
    }
    return *table;
}

class TComputation {
public:
    explicit TComputation(const TExpressionScope& scope) : FScope(scope) {}

    TValue Value(const TNode& node) const;

private:
    TValue Field(const TNode& node) const;
    TValue Compare(const TNode& node) const;
    TValue Function(const TNode& node) const;
    TValue Total(const TNode& node) const;
    void EachRow(const TNode& argument, const std::function<void(const TValue&)>& visit) const;

    const TExpressionScope& FScope;
    mutable std::optional<TRowOverride> FOverride;
};

TValue TComputation::Field(const TNode& node) const {
    const TlotTable& table = FindTable(node, FScope);
    const TlotRow row = FOverride && FOverride->Table == &table ? table.Row(FOverride->Row) : table.Current();
    const bool isDate = table.Fields()[table.FieldIndex(node.Field)].Kind == TlotFieldKind::Date;
    const TlotCell& cell = row.Cell(node.Field);
    TValue value;
    if (const auto* const text = std::get_if<std::string>(&cell)) {
        value.Content = *text;
    } else if (const auto* const number = std::get_if<double>(&cell)) {
        value.Content = *number;
        value.IsDate = isDate;
    } else if (const auto* const integer = std::get_if<std::int32_t>(&cell)) {
        value.Content = static_cast<double>(*integer);
    } else if (const auto* const truth = std::get_if<bool>(&cell)) {
        value.Content = *truth;
    }
    return value;
}

TValue TComputation::Compare(const TNode& node) const {
    const TValue left = Value(node.Parts[0]);
    const TValue right = Value(node.Parts[1]);
    int order = 0;
    if (std::holds_alternative<std::string>(left.Content) || std::holds_alternative<std::string>(right.Content)) {
        order = vip::CompareText(left.AsText(), right.AsText());
    } else {
        const double a = left.AsNumber();
        const double b = right.AsNumber();
        order = a < b ? -1 : a > b ? 1 : 0;
    }
    const std::string& sign = node.Text;
    return {sign == "="    ? order == 0
            : sign == "<>" ? order != 0
            : sign == "<"  ? order < 0
            : sign == "<=" ? order <= 0
            : sign == ">"  ? order > 0
                           : order >= 0};
}

/// The first field in it: the table that a total runs over.
const TNode* FirstField(const TNode& node) {
    if (node.Kind == TNodeKind::Field) {
        return &node;
    }
    for (const TNode& part : node.Parts) {
        if (const TNode* const field = FirstField(part)) {
            return field;
        }
    }
    return nullptr;
}

void TComputation::EachRow(const TNode& argument, const std::function<void(const TValue&)>& visit) const {
    const TNode* const field = FirstField(argument);
    if (field == nullptr) {
        throw ELotError("A total needs a field of a table.");
    }
    const TlotTable& table = FindTable(*field, FScope);
    const std::optional<TRowOverride> outer = FOverride;
    for (const int row : FScope.RowsOf(table)) {
        FOverride = {&table, row};
        visit(Value(argument));
    }
    FOverride = outer;
}

TValue TComputation::Total(const TNode& node) const {
    if (node.Text == "join") {
        const std::string separator = node.Parts.size() > 1 ? Value(node.Parts[1]).AsText() : "\n";
        std::string text;
        EachRow(node.Parts[0], [&](const TValue& value) {
            if (!value.IsEmpty()) {
                text += (text.empty() ? "" : separator) + value.AsText();
            }
        });
        return {text};
    }
    double total = 0;
    const bool count = node.Text == "count";
    EachRow(node.Parts[0], [&](const TValue& value) { total += count ? !value.IsEmpty() : value.AsNumber(); });
    return {total};
}

TValue TComputation::Function(const TNode& node) const {
    if (node.Text == "if") {
        return Value(node.Parts[Value(node.Parts[0]).AsBoolean() ? 1 : 2]);
    }
    if (node.Text == "isempty") {
        const TValue value = Value(node.Parts[0]);
        return {value.IsEmpty() || value.Content == TValue{std::string()}.Content};
    }
    if (node.Text == "abs") {
        return {std::abs(Value(node.Parts[0]).AsNumber())};
    }
    if (node.Text == "contains") {
        return {Value(node.Parts[0]).AsText().find(Value(node.Parts[1]).AsText()) != std::string::npos};
    }
    if (node.Text == "upper") {
        return {QString::fromStdString(Value(node.Parts[0]).AsText()).toUpper().toStdString()};
    }
    return Total(node);
}

TValue TComputation::Value(const TNode& node) const {
    const auto number = [&](std::size_t part) { return Value(node.Parts[part]).AsNumber(); };
    switch (node.Kind) {
    case TNodeKind::Literal: return node.Value;
    case TNodeKind::Field: return Field(node);
    case TNodeKind::Variable: return FScope.Variable(node.Text);
    case TNodeKind::Function: return Function(node);
    case TNodeKind::Compare: return Compare(node);
    case TNodeKind::And: return {Value(node.Parts[0]).AsBoolean() && Value(node.Parts[1]).AsBoolean()};
    case TNodeKind::Or: return {Value(node.Parts[0]).AsBoolean() || Value(node.Parts[1]).AsBoolean()};
    case TNodeKind::Not: return {!Value(node.Parts[0]).AsBoolean()};
    case TNodeKind::Negate: return {-number(0)};
    case TNodeKind::Add: return {number(0) + number(1)};
    case TNodeKind::Subtract: return {number(0) - number(1)};
    case TNodeKind::Multiply: return {number(0) * number(1)};
    case TNodeKind::Divide: {
        const double divisor = number(1);
        return {divisor == 0 ? 0 : number(0) / divisor};
    }
    case TNodeKind::Join: return {Value(node.Parts[0]).AsText() + Value(node.Parts[1]).AsText()};
    }
    return {};
}

void CheckNode(const TNode& node, const TExpressionScope& scope) {
    if (node.Kind == TNodeKind::Field) {
        std::ignore = FindTable(node, scope).FieldIndex(node.Field);
    } else if (node.Kind == TNodeKind::Variable) {
        std::ignore = scope.Variable(node.Text);
    }
    for (const TNode& part : node.Parts) {
        CheckNode(part, scope);
    }
}

bool NodeNames(const TNode& node, std::string_view variable) {
    return (node.Kind == TNodeKind::Variable && vip::SameText(node.Text, variable)) ||
           std::ranges::any_of(node.Parts, [&](const TNode& part) { return NodeNames(part, variable); });
}

} // namespace

double TValue::AsNumber() const {
    if (const auto* const number = std::get_if<double>(&Content)) {
        return *number;
    }
    if (const auto* const truth = std::get_if<bool>(&Content)) {
        return *truth ? 1 : 0;
    }
    if (const auto* const text = std::get_if<std::string>(&Content)) {
        throw ELotError("\"" + *text + "\" is no number.");
    }
    return 0;
}

bool TValue::AsBoolean() const {
    return AsNumber() != 0;
}

std::string TValue::AsText() const {
    if (const auto* const text = std::get_if<std::string>(&Content)) {
        return *text;
    }
    if (const auto* const truth = std::get_if<bool>(&Content)) {
        return *truth ? "True" : "False";
    }
    const double* const number = Number();
    return number != nullptr ? vip::NumberToText(*number, TNumberLocale{}) : std::string();
}

TExpression::TExpression(const QString& text) : FRoot(detail::ParseExpression(text.toStdString())) {}
TExpression::TExpression(TExpression&&) noexcept = default;
TExpression& TExpression::operator=(TExpression&&) noexcept = default;
TExpression::~TExpression() = default;

TValue TExpression::Evaluate(const TExpressionScope& scope) const {
    return TComputation(scope).Value(*FRoot);
}

void TExpression::CheckNames(const TExpressionScope& scope) const {
    CheckNode(*FRoot, scope);
}

bool TExpression::Names(std::string_view variable) const {
    return NodeNames(*FRoot, variable);
}

} // namespace report
