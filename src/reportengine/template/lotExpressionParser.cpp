// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipErrors.h"
#include "common/vipText.h"
#include "reportengine/template/lotExpressionNode.h"

#include <array>
#include <cctype>
#include <charconv>
#include <initializer_list>
#include <utility>

namespace report::detail {

namespace {

constexpr int MostDepth = 64;
constexpr std::size_t MostLetters = 2000; // Bounds the depth of chains such as a + b + c, too.

struct TFunctionRow {
    const char* Name;
    std::size_t Least;
    std::size_t Most;
};

constexpr std::array<TFunctionRow, 8> Functions{{{"if", 3, 3},
                                                 {"isempty", 1, 1},
                                                 {"abs", 1, 1},
                                                 {"upper", 1, 1},
                                                 {"contains", 2, 2},
                                                 {"sum", 1, 1},
                                                 {"count", 1, 1},
                                                 {"join", 1, 2}}};

bool IsNameStart(char c) {
    return std::isalpha(static_cast<unsigned char>(c)) != 0 || c == '_';
}

bool IsNamePart(char c) {
    return IsNameStart(c) || std::isdigit(static_cast<unsigned char>(c)) != 0;
}

/// By recursive descent, a function for each binding strength.
class TParser {
public:
    explicit TParser(std::string_view text) : FText(text) {}

    TNode Parse() {
        TNode node = Or();
        SkipBlanks();
        if (FPosition < FText.size()) {
            Fail("unexpected \"" + std::string(FText.substr(FPosition)) + "\"");
        }
        return node;
    }

private:
    [[noreturn]] void Fail(const std::string& what) const {
        throw ELotError("In \"" + std::string(FText) + "\": " + what + ".");
    }

    void SkipBlanks() {
        while (FPosition < FText.size() && std::isspace(static_cast<unsigned char>(FText[FPosition])) != 0) {
            ++FPosition;
        }
    }

    bool TakeSign(std::string_view sign) {
        SkipBlanks();
        if (!FText.substr(FPosition).starts_with(sign)) {
            return false;
        }
        FPosition += sign.size();
        return true;
    }

    bool TakeWord(std::string_view word) {
        SkipBlanks();
        const std::string_view rest = FText.substr(FPosition);
        if (rest.size() < word.size() || !vip::SameText(rest.substr(0, word.size()), word) ||
            (rest.size() > word.size() && IsNamePart(rest[word.size()]))) {
            return false;
        }
        FPosition += word.size();
        return true;
    }

    void Need(std::string_view sign) {
        if (!TakeSign(sign)) {
            Fail("\"" + std::string(sign) + "\" is missing");
        }
    }

    static TNode Make(TNodeKind kind, std::initializer_list<TNode> parts, std::string text = {}) {
        TNode node;
        node.Kind = kind;
        node.Parts = parts;
        node.Text = std::move(text);
        return node;
    }

    TNode Or() {
        TNode left = And();
        while (TakeWord("or")) {
            left = Make(TNodeKind::Or, {std::move(left), And()});
        }
        return left;
    }

    TNode And() {
        TNode left = Not();
        while (TakeWord("and")) {
            left = Make(TNodeKind::And, {std::move(left), Not()});
        }
        return left;
    }

    TNode Not() {
        if (++FDepth > MostDepth) {
            Fail("it is nested too deep");
        }
        TNode node = TakeWord("not") ? Make(TNodeKind::Not, {Not()}) : Compare();
        --FDepth;
        return node;
    }

    TNode Compare() {
        TNode left = Add();
        for (const char* const sign : {"<>", "<=", ">=", "=", "<", ">"}) {
            if (TakeSign(sign)) {
                return Make(TNodeKind::Compare, {std::move(left), Add()}, sign);
            }
        }
        return left;
    }

    TNode Add() {
        TNode left = Multiply();
        for (;;) {
            if (TakeSign("+")) {
                left = Make(TNodeKind::Add, {std::move(left), Multiply()});
            } else if (TakeSign("-")) {
                left = Make(TNodeKind::Subtract, {std::move(left), Multiply()});
            } else if (TakeSign("&")) {
                left = Make(TNodeKind::Join, {std::move(left), Multiply()});
            } else {
                return left;
            }
        }
    }

    TNode Multiply() {
        TNode left = Unary();
        for (;;) {
            if (TakeSign("*")) {
                left = Make(TNodeKind::Multiply, {std::move(left), Unary()});
            } else if (TakeSign("/")) {
                left = Make(TNodeKind::Divide, {std::move(left), Unary()});
            } else {
                return left;
            }
        }
    }

    TNode Unary() {
        if (++FDepth > MostDepth) {
            Fail("it is nested too deep");
        }
        TNode node = TakeSign("-") ? Make(TNodeKind::Negate, {Unary()}) : Primary();
        --FDepth;
        return node;
    }

    TNode Primary() {
        SkipBlanks();
        if (FPosition >= FText.size()) {
            Fail("it ends too early");
        }
        const char c = FText[FPosition];
        if (TakeSign("(")) {
            TNode node = Or();
            Need(")");
            return node;
        }
        if (c == '\'') {
            return TextLiteral();
        }
        if (std::isdigit(static_cast<unsigned char>(c)) != 0) {
            return NumberLiteral();
        }
        if (!IsNameStart(c)) {
            Fail("unexpected \"" + std::string(1, c) + "\"");
        }
        return Named();
    }

    TNode TextLiteral() {
        TNode node;
        std::string text;
        for (++FPosition; FPosition < FText.size(); ++FPosition) {
            if (FText[FPosition] == '\'') {
                if (!FText.substr(FPosition + 1).starts_with('\'')) {
                    ++FPosition;
                    node.Value.Content = text;
                    return node;
                }
                ++FPosition; // Two of them stand for one.
            }
            text += FText[FPosition];
        }
        Fail("a text has no end");
    }

    TNode NumberLiteral() {
        double number = 0;
        const char* const begin = FText.data() + FPosition;
        const auto [end, error] = std::from_chars(begin, FText.data() + FText.size(), number);
        if (error != std::errc()) {
            Fail("a number cannot be read");
        }
        FPosition += static_cast<std::size_t>(end - begin);
        TNode node;
        node.Value.Content = number;
        return node;
    }

    std::string Name() {
        const std::size_t begin = FPosition;
        while (FPosition < FText.size() && IsNamePart(FText[FPosition])) {
            ++FPosition;
        }
        return std::string(FText.substr(begin, FPosition - begin));
    }

    TNode Named() {
        TNode node;
        node.Text = Name();
        if (TakeSign("(")) {
            return Call(std::move(node));
        }
        if (TakeSign(".")) {
            node.Kind = TNodeKind::Field;
            node.Field = Name();
            if (node.Field.empty()) {
                Fail("a field's name is missing");
            }
        } else if (vip::SameText(node.Text, "True") || vip::SameText(node.Text, "False")) {
            node.Value.Content = vip::SameText(node.Text, "True");
        } else {
            node.Kind = TNodeKind::Variable;
        }
        return node;
    }

    TNode Call(TNode node) {
        node.Kind = TNodeKind::Function;
        for (char& c : node.Text) {
            c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        }
        if (!TakeSign(")")) {
            do {
                node.Parts.push_back(Or());
            } while (TakeSign(","));
            Need(")");
        }
        for (const TFunctionRow& row : Functions) {
            if (node.Text == row.Name) {
                if (node.Parts.size() < row.Least || node.Parts.size() > row.Most) {
                    Fail("the number of values that " + node.Text + " takes is another");
                }
                return node;
            }
        }
        Fail("there is no function " + node.Text);
    }

    std::string_view FText;
    std::size_t FPosition = 0;
    int FDepth = 0;
};

} // namespace

std::unique_ptr<TNode> ParseExpression(std::string_view text) {
    if (text.size() > MostLetters) {
        throw ELotError("An expression is longer than " + std::to_string(MostLetters) + " letters.");
    }
    return std::make_unique<TNode>(TParser(text).Parse());
}

} // namespace report::detail
