// SPDX-License-Identifier: GPL-3.0-or-later
#include "reportengine/template/lotTemplateAttributes.h"

#include "common/vipErrors.h"

#include <QColor>
#include <algorithm>
#include <cmath>

namespace report {

namespace {

constexpr double MostMm = 2000;

std::optional<QString> FindIn(const TTemplateElement& element, const QString& name) {
    for (const auto& [own, value] : element.Attributes) {
        if (own == name) {
            return value;
        }
    }
    return std::nullopt;
}

/// The first such sign of an expression that begins there, outside of quotes; -1 if there is none.
qsizetype FindSign(const QString& text, qsizetype begin, QChar sign) {
    bool quoted = false;
    for (qsizetype i = begin; i < text.size(); ++i) {
        if (text[i] == u'\'') {
            quoted = !quoted;
        } else if (text[i] == sign && !quoted) {
            return i;
        }
    }
    return -1;
}

} // namespace

TAttributes::TAttributes(const TTemplateElement& element, const TExpressionScope& scope, const TTemplateElement* style)
    : FElement(element), FScope(scope), FStyle(style) {}

std::optional<QString> TAttributes::Find(const QString& name) {
    FAsked.insert(name);
    if (std::optional<QString> own = FindIn(FElement, name)) {
        return own;
    }
    return FStyle != nullptr && name != "Name" ? FindIn(*FStyle, name) : std::nullopt;
}

QString TAttributes::Text(const QString& name, const QString& otherwise) {
    return Find(name).value_or(otherwise);
}

bool TAttributes::Boolean(const QString& name, bool otherwise) {
    return Choice<bool>(name, otherwise, {{"True", true}, {"False", false}, {"1", true}, {"0", false}});
}

double TAttributes::Number(const QString& name, double otherwise, double least, double most) {
    const std::optional<QString> text = Find(name);
    if (!text) {
        return otherwise;
    }
    bool good = false;
    const double number = text->toDouble(&good);
    if (!good || !(number >= least && number <= most)) {
        Refuse(name, *text);
    }
    return number;
}

double TAttributes::Length(const QString& name, double otherwiseMm, double leastMm) {
    return Number(name, otherwiseMm, leastMm, MostMm) * TwipsPerMm;
}

QRgb TAttributes::Colour(const QString& name, QRgb otherwise, std::optional<TPlacedExpression>* expression) {
    const std::optional<QString> text = Find(name);
    if (!text) {
        return otherwise;
    }
    if (text->isEmpty()) {
        return 0;
    }
    if (expression != nullptr && text->startsWith('[') && text->endsWith(']')) {
        *expression = MakeExpression(text->mid(1, text->size() - 2), FElement.Place, FScope);
        return 0;
    }
    const QColor colour(*text);
    if (text->size() != 7 || !text->startsWith('#') || !colour.isValid()) {
        Refuse(name, *text);
    }
    return colour.rgb();
}

std::optional<TPlacedExpression> TAttributes::Expression(const QString& name) {
    const std::optional<QString> text = Find(name);
    if (!text) {
        return std::nullopt;
    }
    return MakeExpression(*text, FElement.Place, FScope);
}

void TAttributes::Finish() const {
    for (const auto& [name, value] : FElement.Attributes) {
        if (!FAsked.contains(name)) {
            FailAt(FElement.Place, QString("<%1> has no attribute %2.").arg(FElement.Name, name));
        }
    }
}

void TAttributes::Refuse(const QString& name, const QString& value) const {
    FailAt(FElement.Place, QString("<%1 %2=\"%3\">: this value makes no sense.").arg(FElement.Name, name, value));
}

TPlacedExpression MakeExpression(const QString& text, const TTemplatePlace& place, const TExpressionScope& scope) {
    try {
        TExpression expression(text);
        expression.CheckNames(scope);
        return {std::move(expression), place};
    } catch (const ELotError& error) {
        FailAt(place, QString::fromUtf8(error.what()));
    }
}

std::vector<TTextPart> ParseText(const QString& text, const QString& format, const TTemplatePlace& place,
                                 const TExpressionScope& scope) {
    std::vector<TTextPart> parts;
    QString literal;
    const auto flush = [&] {
        if (!literal.isEmpty()) {
            parts.emplace_back().Literal = literal;
            literal.clear();
        }
    };
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != '[') {
            literal += text[i];
            continue;
        }
        if (i + 1 < text.size() && text[i + 1] == '[') {
            literal += text[i++];
            continue;
        }
        const qsizetype end = FindSign(text, i + 1, u']');
        if (end < 0) {
            FailAt(place, "A bracket in the text is not closed.");
        }
        flush();
        const QString inner = text.mid(i + 1, end - i - 1);
        const qsizetype bar = FindSign(inner, 0, u'|');
        TTextPart& part = parts.emplace_back();
        part.Expression = MakeExpression(bar < 0 ? inner : inner.left(bar), place, scope);
        part.Format = bar < 0 ? format : inner.mid(bar + 1).trimmed();
        if (part.Format.startsWith('=')) {
            part.FormatExpression = MakeExpression(part.Format.mid(1), place, scope);
        }
        i = end;
    }
    flush();
    return parts;
}

} // namespace report
