// SPDX-License-Identifier: GPL-3.0-or-later
//
// The parsed form of a template's expression; see lotReportExpression.h for the language.
#pragma once

#include "reportengine/template/lotReportExpression.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace report::detail {

enum class TNodeKind : std::uint8_t {
    Literal,
    Field,
    Variable,
    Function,
    Compare,
    And,
    Or,
    Not,
    Negate,
    Add,
    Subtract,
    Multiply,
    Divide,
    Join,
};

struct TNode {
    TNodeKind Kind = TNodeKind::Literal;
    TValue Value;      ///< Of a literal.
    std::string Text;  ///< A table, a variable, a function in lower case, or the sign of a comparison.
    std::string Field; ///< Of a table.
    std::vector<TNode> Parts;
};

/// Throws ELotError saying what is wrong.
[[nodiscard]] std::unique_ptr<TNode> ParseExpression(std::string_view text);

} // namespace report::detail
