// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotGridValues.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace {

std::optional<TlotValue> ParseFigure(const QString& text, const TNumberLocale& locale) {
    if (text.trimmed().isEmpty()) {
        return std::monostate();
    }
    if (!HasDigits(text)) {
        return std::nullopt;
    }
    return vip::StrToNumber(text.toStdString(), locale);
}

std::optional<TlotValue> ParseCheck(const QString& text, const TNumberLocale& locale) {
    const QString word = text.trimmed();
    if (word.compare("true", Qt::CaseInsensitive) == 0) {
        return true;
    }
    if (word.isEmpty() || word.compare("false", Qt::CaseInsensitive) == 0) {
        return false;
    }
    if (!HasDigits(word)) {
        return std::nullopt;
    }
    return vip::StrToNumber(word.toStdString(), locale) != 0;
}

} // namespace

bool HasDigits(const QString& text) {
    return std::ranges::any_of(text, [](QChar c) { return c >= '0' && c <= '9'; });
}

int FindChoice(const QStringList& choices, const QString& text) {
    const qsizetype exact = choices.indexOf(text);
    if (exact >= 0) {
        return static_cast<int>(exact);
    }
    const auto found = std::ranges::find_if(
        choices, [&text](const QString& choice) { return choice.compare(text, Qt::CaseInsensitive) == 0; });
    return found == choices.end() ? -1 : static_cast<int>(found - choices.begin());
}

TlotValue WithinBounds(const TGridColumn& column, const TlotValue& value) {
    const bool nothing = std::holds_alternative<std::monostate>(value);
    if (column.Editor != TlotEditor::Spin || (nothing && column.Minimum <= 0 && column.Maximum >= 0)) {
        return value;
    }
    // A spin that can't be 0 can't be emptied either.
    const double whole = std::round(TlotCustomDataSource::AsDouble(value));
    return static_cast<std::int64_t>(
        std::fmin(std::fmax(whole, static_cast<double>(column.Minimum)), static_cast<double>(column.Maximum)));
}

std::optional<TlotValue> ParseCell(const TGridColumn& column, const QString& text, const TNumberLocale& locale) {
    if (column.Editor == TlotEditor::CheckBox) {
        return ParseCheck(text, locale);
    }
    if (column.IsFigure()) {
        return ParseFigure(text, locale);
    }
    return text.toStdString();
}
