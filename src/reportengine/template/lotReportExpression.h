// SPDX-License-Identifier: GPL-3.0-or-later
//
// The small language of templates, inside the brackets of texts and in attributes such as Visible:
//
//   UnitData.Name            a field of a table's current row
//   GDV                      a variable
//   12.5  'text'  True       literals
//   + - * /  &               arithmetic; & joins texts
//   = <> < <= > >=           comparison, of texts ignoring case
//   and or not ( )
//   If(c, a, b)  IsEmpty(x)  Abs(x)  Upper(t)  Contains(t, part)
//   Sum(x)  Count(T.F)  Join(T.F, sep)
//
// The last three run over the rows that the place stands for: in a footer those of its band or group, elsewhere all of
// the table. Count counts the rows whose field isn't empty, Join puts their texts behind each other, on lines of their
// own without `sep`. An empty field counts as 0, "" or False, whichever the operator needs; dividing by 0 gives 0.
#pragma once

#include "reporting/lotTable.h"

#include <QString>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace report {

/// Empty, a text, a number or a truth value. A date is a number with IsDate set.
struct TValue {
    std::variant<std::monostate, std::string, double, bool> Content;
    bool IsDate = false;

    [[nodiscard]] bool IsEmpty() const noexcept { return Content.index() == 0; }
    [[nodiscard]] const double* Number() const noexcept { return std::get_if<double>(&Content); }
    [[nodiscard]] double AsNumber() const;    ///< Throws ELotError for a text.
    [[nodiscard]] bool AsBoolean() const;     ///< A number is true unless 0. Throws ELotError for a text.
    [[nodiscard]] std::string AsText() const; ///< Figures plain.
};

class TExpression;

/// Where the names of an expression get their values.
class TExpressionScope {
public:
    TExpressionScope() = default;
    TExpressionScope(const TExpressionScope&) = delete;
    TExpressionScope& operator=(const TExpressionScope&) = delete;
    virtual ~TExpressionScope() = default;

    /// The table of that name, null where there is none.
    [[nodiscard]] virtual const TlotTable* Table(std::string_view name) const = 0;
    /// Throws ELotError for a name that isn't known.
    [[nodiscard]] virtual TValue Variable(std::string_view name) const = 0;
    /// The rows that totals of this table run over.
    [[nodiscard]] virtual std::vector<int> RowsOf(const TlotTable& table) const = 0;
};

namespace detail {
struct TNode;
}

class TExpression {
public:
    /// Throws ELotError saying what is wrong with the text.
    explicit TExpression(const QString& text);
    TExpression(TExpression&&) noexcept;
    TExpression& operator=(TExpression&&) noexcept;
    ~TExpression();

    /// Throws ELotError for names that aren't known, and for what can't be computed.
    [[nodiscard]] TValue Evaluate(const TExpressionScope& scope) const;
    /// Throws as Evaluate where a table, field, function or variable isn't known.
    void CheckNames(const TExpressionScope& scope) const;
    /// Whether the variable is named anywhere in it, ignoring case.
    [[nodiscard]] bool Names(std::string_view variable) const;

private:
    std::unique_ptr<detail::TNode> FRoot;
};

} // namespace report
