// SPDX-License-Identifier: GPL-3.0-or-later
//
// The expression evaluator: comparisons, sums, products, signs, brackets, numbers and named reals, read from left to
// right in one pass with a lookahead of one token and computed as they are read. Text after a complete expression is
// ignored. Every failure is an EEvaluatorError with the text given at its place.
#pragma once

#include "common/vipHashMap.h"

#include <string_view>

/// The parser and its lexer; what a name is worth is left to the derived class.
class TEasyEvaluator {
public:
    TEasyEvaluator() = default;
    TEasyEvaluator(const TEasyEvaluator&) = delete;
    TEasyEvaluator& operator=(const TEasyEvaluator&) = delete;
    virtual ~TEasyEvaluator() = default;

    /// The decimal separator of the user's locale. "." is read as one too, but then the conversion refuses it where
    /// the locale's is another.
    char32_t DecimalSeparator = U'.';

    /// The value of the expression. Not reentrant.
    [[nodiscard]] double Evaluate(std::string_view text);

protected:
    /// The value of a name; null if there is none of that name.
    [[nodiscard]] virtual const double* FindSymbol(std::string_view name) = 0;

private:
    enum class TToken : char { End, Number, Identifier, LessOrEqual, NotEqual, GreaterOrEqual, Character };

    void NextToken();
    void ReadNumber();
    [[nodiscard]] std::size_t SeparatorLength(std::size_t at) const noexcept;
    [[nodiscard]] double ConvertNumber(std::string_view text) const;
    [[nodiscard]] bool IsCharacter(char c) const noexcept { return FToken == TToken::Character && FCharacter == c; }
    double Comparison();
    double Sum();
    double Product();
    double Signed();
    double Factor();

    std::string_view FText;
    std::size_t FPosition = 0;
    TToken FToken = TToken::End;
    char FCharacter = 0;
    std::string_view FLexeme;
    int FDepth = 0;
};

/// The evaluator over named variables, each bound to a real held elsewhere that must outlive it. Names without regard
/// to case.
class TEvaluator final : public TEasyEvaluator {
public:
    void AddVar(std::string_view name, const double& variable) { FSymbols.Set(name, &variable); }

    /// The variable of that name, or null.
    [[nodiscard]] const double* FindVar(std::string_view name) { return FindSymbol(name); }

protected:
    [[nodiscard]] const double* FindSymbol(std::string_view name) override;

private:
    TStringHashMap<const double*> FSymbols;
};
