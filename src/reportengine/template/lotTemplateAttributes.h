// SPDX-License-Identifier: GPL-3.0-or-later
//
// The attributes of one template element, taken one by one under their names; what nobody asked for is refused at the
// end, so that a misspelt attribute doesn't pass unseen.
#pragma once

#include "reportengine/template/lotReportTemplate.h"

#include <QSet>
#include <initializer_list>
#include <optional>
#include <utility>

namespace report {

class TAttributes {
public:
    /// The element must outlive it. `style` gives what the element itself doesn't say; it may be null.
    TAttributes(const TTemplateElement& element, const TExpressionScope& scope,
                const TTemplateElement* style = nullptr);

    [[nodiscard]] std::optional<QString> Find(const QString& name);
    [[nodiscard]] QString Text(const QString& name, const QString& otherwise = {});
    [[nodiscard]] bool Boolean(const QString& name, bool otherwise);
    /// A plain number within the bounds.
    [[nodiscard]] double Number(const QString& name, double otherwise, double least, double most);
    /// Millimetres in the file, twips here.
    [[nodiscard]] double Length(const QString& name, double otherwiseMm, double leastMm = 0);
    /// "#RRGGBB", or "" for none; an expression in brackets goes to `expression`.
    [[nodiscard]] QRgb Colour(const QString& name, QRgb otherwise,
                              std::optional<TPlacedExpression>* expression = nullptr);
    [[nodiscard]] std::optional<TPlacedExpression> Expression(const QString& name);

    template <typename T>
    [[nodiscard]] T Choice(const QString& name, T otherwise, std::initializer_list<std::pair<const char*, T>> words) {
        const std::optional<QString> text = Find(name);
        if (!text) {
            return otherwise;
        }
        for (const auto& [word, value] : words) {
            if (text->compare(QLatin1String(word), Qt::CaseInsensitive) == 0) {
                return value;
            }
        }
        Refuse(name, *text);
    }

    /// Throws for an attribute that nobody asked for.
    void Finish() const;
    [[noreturn]] void Refuse(const QString& name, const QString& value) const;

private:
    const TTemplateElement& FElement;
    const TExpressionScope& FScope;
    const TTemplateElement* FStyle; // Not owned.
    QSet<QString> FAsked;
};

/// Parses and checks an expression at its place. Throws ELotError that names the place.
[[nodiscard]] TPlacedExpression MakeExpression(const QString& text, const TTemplatePlace& place,
                                               const TExpressionScope& scope);

/// A text with expressions in brackets; "[[" stands for one bracket.
[[nodiscard]] std::vector<TTextPart> ParseText(const QString& text, const QString& format, const TTemplatePlace& place,
                                               const TExpressionScope& scope);

} // namespace report
