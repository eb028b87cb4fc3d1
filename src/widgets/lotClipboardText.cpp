// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotClipboardText.h"

#include "common/vipNumber.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace {

std::string Quoted(const std::string& text) {
    if (text.find_first_of("\t\r\n\"") == std::string::npos) {
        return text;
    }
    std::string quoted = "\"";
    for (const char c : text) {
        quoted.append(c == '"' ? 2 : 1, c);
    }
    return quoted + '"';
}

std::string CellText(const TlotValue& value, const TNumberLocale& locale) {
    return std::visit(
        [&]<typename T>(const T& held) -> std::string {
            if constexpr (std::is_same_v<T, bool>) {
                return held ? "TRUE" : "FALSE";
            } else if constexpr (std::is_same_v<T, std::int64_t>) {
                return std::to_string(held);
            } else if constexpr (std::is_same_v<T, double>) {
                return vip::NumberToFullText(held, locale);
            } else if constexpr (std::is_same_v<T, std::string>) {
                return Quoted(held);
            } else {
                return {};
            }
        },
        value);
}

/// Walks over a text cell by cell.
class TCellReader {
public:
    explicit TCellReader(std::string_view text) : FText(text) {}

    [[nodiscard]] bool AtEnd() const { return FAt == FText.size(); }

    [[nodiscard]] std::string Cell() {
        std::string cell;
        if (!AtEnd() && FText[FAt] == '"' && FQuotes) {
            cell = QuotedPart();
        }
        const std::size_t end = std::min(FText.find_first_of("\t\r\n", FAt), FText.size());
        cell += FText.substr(FAt, end - FAt);
        FAt = end;
        return cell;
    }

    /// Behind a cell: true past a tab.
    [[nodiscard]] bool SkipTab() {
        const bool tab = !AtEnd() && FText[FAt] == '\t';
        FAt += tab ? 1 : 0;
        return tab;
    }

    void SkipLineEnd() {
        if (!AtEnd()) {
            FAt += FText.substr(FAt).starts_with("\r\n") ? 2 : 1;
        }
    }

private:
    /// What stands between the marks; nothing, and no step further, if the second one is missing.
    std::string QuotedPart() {
        std::string part;
        for (std::size_t at = FAt + 1; at < FText.size(); ++at) {
            if (FText[at] == '"') {
                if (at + 1 == FText.size() || FText[at + 1] != '"') {
                    FAt = at + 1;
                    return part;
                }
                ++at;
            }
            part += FText[at];
        }
        // No mark behind this one closes anything either, so the rest need not be searched for one again.
        FQuotes = false;
        return {};
    }

    std::string_view FText;
    std::size_t FAt = 0;
    bool FQuotes = true;
};

} // namespace

std::string ClipboardText(const std::vector<TClipboardRow>& rows, const TNumberLocale& locale) {
    std::string text;
    std::string line;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        line.clear();
        for (std::size_t column = 0; column < rows[row].size(); ++column) {
            line += column > 0 ? "\t" : "";
            line += CellText(rows[row][column], locale);
        }
        text += line;
        text += row + 1 < rows.size() || line.empty() ? "\n" : "";
    }
    return text;
}

std::vector<std::vector<std::string>> ClipboardCells(std::string_view text) {
    std::vector<std::vector<std::string>> rows;
    TCellReader reader(text);
    while (!reader.AtEnd()) {
        std::vector<std::string>& row = rows.emplace_back();
        do {
            row.push_back(reader.Cell());
        } while (reader.SkipTab());
        reader.SkipLineEnd();
    }
    return rows;
}
