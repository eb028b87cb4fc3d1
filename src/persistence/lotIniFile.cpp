// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/lotIniFile.h"

#include "common/vipErrors.h"
#include "common/vipText.h"
#include "persistence/lotAtomicFile.h"
#include "persistence/lotTextFile.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

/// Blank, or a comment.
bool IsIdle(std::string_view line) {
    const std::string_view text = vip::Trim(line);
    return text.empty() || text.front() == ';';
}

/// The name if the line begins a section. A missing bracket at its end is forgiven, or the keys below would count to
/// the section above.
std::optional<std::string_view> SectionName(std::string_view line) {
    const std::string_view text = vip::Trim(line);
    if (text.empty() || text.front() != '[') {
        return std::nullopt;
    }
    return vip::Trim(text.substr(1, text.find(']') - 1));
}

std::optional<std::int32_t> ParseInteger(std::string_view text) {
    const bool dollar = text.starts_with("$");
    const bool hexadecimal = dollar || text.starts_with("0x") || text.starts_with("0X");
    text.remove_prefix(dollar ? 1 : hexadecimal ? 2 : text.starts_with("+") ? 1 : 0);
    std::int32_t value = 0;
    std::uint32_t bits = 0;
    const char* const last = text.data() + text.size();
    const auto [end, error] =
        hexadecimal ? std::from_chars(text.data(), last, bits, 16) : std::from_chars(text.data(), last, value);
    if (error != std::errc() || end != last) {
        return std::nullopt;
    }
    return hexadecimal ? static_cast<std::int32_t>(bits) : value;
}

std::optional<double> ParseNumber(std::string_view text, const TNumberLocale& locale) {
    std::string plain;
    int separators = 0;
    for (std::size_t position = 0; position < text.size();) {
        const char32_t c = vip::NextCodePoint(text, position);
        const bool separator = c == U'.' || c == U',' || c == locale.Decimal;
        separators += separator ? 1 : 0;
        vip::AppendCodePoint(plain, separator ? U'.' : c);
    }
    const std::optional<double> number = separators <= 1 ? vip::PlainNumber(plain) : std::nullopt;
    return number && std::isfinite(*number) ? number : std::nullopt;
}

/// As it is written: on one line, and in quotes where blanks or quotes round it would be lost otherwise.
std::string EncodeValue(std::string_view value) {
    std::string text(value);
    std::ranges::replace_if(
        text, [](char c) { return c == '\r' || c == '\n' || c == '\0'; }, ' ');
    const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
    return quoted || vip::Trim(text).size() != text.size() ? '"' + text + '"' : text;
}

} // namespace

TlotIniFile::TlotIniFile(std::string fileName) : FFileName(std::move(fileName)) {
    try {
        const std::string content = ReadTextFile(FFileName);
        const std::size_t mark = ByteOrderMarkSize(content);
        FByteOrderMark = content.substr(0, mark);
        FLines = SplitLines(std::string_view(content).substr(mark));
    } catch (const EFileError& error) {
        FReadFailure = error.what();
    }
    FLineEnd = !FLines.empty() && FLines.front().ends_with('\r') ? "\r" : "";
}

std::optional<TlotIniFile::TKeyLine> TlotIniFile::ParseKey(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos || IsIdle(line)) {
        return std::nullopt;
    }
    return TKeyLine{vip::Trim(line.substr(0, equals)), equals + 1};
}

/// Indices of the lines below each heading of that name.
std::vector<std::size_t> TlotIniFile::SectionLines(std::string_view section) const {
    std::vector<std::size_t> indices;
    bool inside = false;
    for (std::size_t i = 0; i < FLines.size(); ++i) {
        if (const auto name = SectionName(FLines[i])) {
            inside = vip::SameText(*name, section);
        } else if (inside) {
            indices.push_back(i);
        }
    }
    return indices;
}

std::string TlotIniFile::ValueOf(std::size_t line, std::size_t valueAt) const {
    std::string_view value = vip::Trim(std::string_view(FLines[line]).substr(valueAt));
    if (value.size() >= 2 && value.front() == '"' && value.back() == '"') {
        value = value.substr(1, value.size() - 2);
    }
    return SoundText(value);
}

std::optional<std::pair<std::size_t, std::size_t>> TlotIniFile::FindKey(std::string_view section,
                                                                        std::string_view key) const {
    for (const std::size_t i : SectionLines(section)) {
        if (const auto line = ParseKey(FLines[i]); line && vip::SameText(line->Key, key)) {
            return std::pair(i, line->ValueAt);
        }
    }
    return std::nullopt;
}

std::optional<std::string> TlotIniFile::Find(std::string_view section, std::string_view key) const {
    const auto found = FindKey(section, key);
    return found ? std::optional(ValueOf(found->first, found->second)) : std::nullopt;
}

std::string TlotIniFile::Text(std::string_view section, std::string_view key, std::string_view absent) const {
    return Find(section, key).value_or(std::string(absent));
}

std::int32_t TlotIniFile::Integer(std::string_view section, std::string_view key, std::int32_t absent) const {
    return ParseInteger(Text(section, key, "")).value_or(absent);
}

double TlotIniFile::Number(std::string_view section, std::string_view key, double absent,
                           const TNumberLocale& locale) const {
    return ParseNumber(Text(section, key, ""), locale).value_or(absent);
}

bool TlotIniFile::Boolean(std::string_view section, std::string_view key, bool absent) const {
    const std::string text = Text(section, key, "");
    if (vip::SameText(text, "true") || vip::SameText(text, "false")) {
        return vip::SameText(text, "true");
    }
    const std::optional<std::int32_t> number = ParseInteger(text);
    return number ? *number != 0 : absent;
}

TlotIniFile::TKeyValues TlotIniFile::Lines(std::string_view section) const {
    TKeyValues lines;
    for (const std::size_t i : SectionLines(section)) {
        if (const auto line = ParseKey(FLines[i])) {
            lines.emplace_back(SoundText(line->Key), ValueOf(i, line->ValueAt));
        }
    }
    return lines;
}

void TlotIniFile::SetText(std::string_view section, std::string_view key, std::string_view value) {
    const auto found = FindKey(section, key);
    if (!found) {
        InsertLine(EndOfKeys(section), std::string(key) + '=' + EncodeValue(value));
        return;
    }
    std::string& line = FLines[found->first];
    const std::string ending = line.ends_with('\r') ? "\r" : "";
    line.resize(line.size() - ending.size());
    // Blanks that someone set behind the "=" stay.
    line.resize(std::min(line.find_first_not_of(" \t", found->second), line.size()));
    line += EncodeValue(value) + ending;
}

void TlotIniFile::SetInteger(std::string_view section, std::string_view key, std::int32_t value) {
    SetText(section, key, std::to_string(value));
}

void TlotIniFile::SetNumber(std::string_view section, std::string_view key, double value, const TNumberLocale& locale) {
    SetText(section, key, vip::NumberToText(value, locale));
}

void TlotIniFile::SetBoolean(std::string_view section, std::string_view key, bool value) {
    SetText(section, key, value ? "1" : "0");
}

void TlotIniFile::ReplaceSection(std::string_view section, const TKeyValues& lines) {
    std::size_t at = EndOfKeys(section);
    std::vector<std::size_t> old = SectionLines(section);
    std::erase_if(old, [&](std::size_t i) { return IsIdle(FLines[i]); });
    if (!old.empty()) {
        at = old.front();
    }
    std::vector<std::string> kept;
    auto dropped = old.begin();
    for (std::size_t i = 0; i <= FLines.size(); ++i) {
        if (i == at) {
            for (const auto& [key, value] : lines) {
                kept.push_back(key + '=' + EncodeValue(value) + FLineEnd);
            }
        }
        if (dropped != old.end() && *dropped == i) {
            ++dropped;
        } else if (i < FLines.size()) {
            kept.push_back(std::move(FLines[i]));
        }
    }
    FLines = std::move(kept);
}

/// The place behind the last line with content of the first section of that name, which is made if there is none.
std::size_t TlotIniFile::EndOfKeys(std::string_view section) {
    const auto isHeading = [](const std::string& line) { return SectionName(line).has_value(); };
    const auto heading = std::ranges::find_if(
        FLines, [&](const std::string& line) { return isHeading(line) && vip::SameText(*SectionName(line), section); });
    if (heading == FLines.end()) {
        if (!FLines.empty() && !vip::Trim(FLines.back()).empty()) {
            InsertLine(FLines.size(), "");
        }
        InsertLine(FLines.size(), '[' + std::string(section) + ']');
        return FLines.size();
    }
    auto last = std::find_if(heading + 1, FLines.end(), isHeading);
    while (last != heading + 1 && IsIdle(*(last - 1))) {
        --last;
    }
    return static_cast<std::size_t>(last - FLines.begin());
}

void TlotIniFile::InsertLine(std::size_t at, std::string line) {
    FLines.insert(FLines.begin() + static_cast<std::ptrdiff_t>(at), std::move(line) + FLineEnd);
}

void TlotIniFile::Save() const {
    if (!FReadFailure.empty()) {
        throw EFileError(FReadFailure);
    }
    std::string content = FByteOrderMark;
    for (const std::string& line : FLines) {
        content += line + '\n';
    }
    WriteFileAtomically(FFileName, content);
}
