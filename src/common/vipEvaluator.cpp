// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipEvaluator.h"

#include "common/vipErrors.h"

#include <charconv>
#include <cmath>
#include <string>

namespace {

/// Nested brackets beyond this are no formula of a person, and would only exhaust the stack.
constexpr int MaximumDepth = 250;

bool IsDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}

bool IsLetter(char c) noexcept {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

} // namespace

double TEasyEvaluator::Evaluate(std::string_view text) {
    FText = text;
    FPosition = 0;
    FDepth = 0;
    NextToken();
    const double result = Comparison();
    if (!std::isfinite(result)) {
        throw EEvaluatorError("Floating point overflow");
    }
    return result;
}

void TEasyEvaluator::NextToken() {
    while (FPosition < FText.size() && FText[FPosition] >= 1 && FText[FPosition] <= 32) {
        ++FPosition;
    }
    if (FPosition >= FText.size() || FText[FPosition] == '\0') {
        FToken = TToken::End;
        return;
    }
    const std::size_t start = FPosition;
    const char c = FText[FPosition];
    if (IsDigit(c)) {
        ReadNumber();
    } else if (IsLetter(c)) {
        while (FPosition < FText.size() && (IsLetter(FText[FPosition]) || IsDigit(FText[FPosition]))) {
            ++FPosition;
        }
        FToken = TToken::Identifier;
    } else {
        const std::string_view two = FText.substr(FPosition, 2);
        FToken = two == "<="   ? TToken::LessOrEqual
                 : two == "<>" ? TToken::NotEqual
                 : two == ">=" ? TToken::GreaterOrEqual
                               : TToken::Character;
        FCharacter = c;
        FPosition += FToken == TToken::Character ? 1 : 2;
    }
    FLexeme = FText.substr(start, FPosition - start);
}

std::size_t TEasyEvaluator::SeparatorLength(std::size_t at) const noexcept {
    if (at >= FText.size()) {
        return 0;
    }
    std::size_t end = at;
    const char32_t c = vip::NextCodePoint(FText, end);
    return c == U'.' || c == DecimalSeparator ? end - at : 0;
}

void TEasyEvaluator::ReadNumber() {
    const auto digits = [&] {
        while (FPosition < FText.size() && IsDigit(FText[FPosition])) {
            ++FPosition;
        }
    };
    digits();
    if (const std::size_t length = SeparatorLength(FPosition); length > 0) {
        FPosition += length;
        digits();
    }
    if (FPosition < FText.size() && (FText[FPosition] == 'E' || FText[FPosition] == 'e')) {
        ++FPosition;
        if (FPosition < FText.size() && (FText[FPosition] == '+' || FText[FPosition] == '-')) {
            ++FPosition;
        }
        digits();
    }
    FToken = TToken::Number;
}

double TEasyEvaluator::ConvertNumber(std::string_view text) const {
    std::string plain;
    bool refused = false;
    for (std::size_t position = 0; position < text.size();) {
        const char32_t c = vip::NextCodePoint(text, position);
        if (c == DecimalSeparator) {
            plain.push_back('.');
        } else {
            refused = refused || c == U'.';
            // An exponent's "+" is dropped: the conversion knows only "-".
            if (c != U'+') {
                plain.push_back(static_cast<char>(c));
            }
        }
    }
    double value = 0;
    const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (refused || error != std::errc() || end != plain.data() + plain.size()) {
        throw EEvaluatorError("'" + std::string(text) + "' is not a valid floating point value");
    }
    return value;
}

double TEasyEvaluator::Comparison() {
    double left = Sum();
    while (true) {
        const TToken token = FToken;
        const char c = token == TToken::Character ? FCharacter : '\0';
        const bool compound =
            token == TToken::NotEqual || token == TToken::LessOrEqual || token == TToken::GreaterOrEqual;
        if (!compound && c != '<' && c != '=' && c != '>') {
            return left;
        }
        NextToken();
        const double right = Sum();
        bool truth = false;
        switch (token) {
        case TToken::NotEqual: truth = left != right; break;
        case TToken::LessOrEqual: truth = left <= right; break;
        case TToken::GreaterOrEqual: truth = left >= right; break;
        default: truth = c == '<' ? left < right : (c == '=' ? left == right : left > right); break;
        }
        left = truth ? 1 : 0;
    }
}

double TEasyEvaluator::Sum() {
    double left = Product();
    while (IsCharacter('+') || IsCharacter('-')) {
        const bool plus = IsCharacter('+');
        NextToken();
        const double right = Product();
        left = plus ? left + right : left - right;
    }
    return left;
}

double TEasyEvaluator::Product() {
    double left = Signed();
    while (IsCharacter('*') || IsCharacter('/')) {
        const bool times = IsCharacter('*');
        NextToken();
        const double right = Signed();
        if (!times && right == 0) {
            throw EEvaluatorError("Floating point division by zero");
        }
        left = times ? left * right : left / right;
    }
    return left;
}

double TEasyEvaluator::Signed() {
    bool negative = false;
    while (IsCharacter('+') || IsCharacter('-')) {
        negative = negative != IsCharacter('-');
        NextToken();
    }
    const double value = Factor();
    return negative ? -value : value;
}

double TEasyEvaluator::Factor() {
    if (FToken == TToken::Number) {
        const double value = ConvertNumber(FLexeme);
        NextToken();
        return value;
    }
    if (FToken == TToken::Identifier) {
        const double* const variable = FindSymbol(FLexeme);
        if (variable == nullptr) {
            throw EEvaluatorError("Parse error: Unknown symbol: '" + std::string(FLexeme) + "'");
        }
        NextToken();
        return *variable;
    }
    if (!IsCharacter('(')) {
        throw EEvaluatorError("Parse error: Factor expected");
    }
    if (++FDepth > MaximumDepth) {
        throw EEvaluatorError("Parse error: Too many brackets");
    }
    NextToken();
    const double value = Comparison();
    --FDepth;
    if (!IsCharacter(')')) {
        throw EEvaluatorError("Parse error: ')' expected");
    }
    NextToken();
    return value;
}

const double* TEvaluator::FindSymbol(std::string_view name) {
    const double* const* const variable = FSymbols.Find(name);
    return variable == nullptr ? nullptr : *variable;
}
