// SPDX-License-Identifier: GPL-3.0-or-later
//
// An initialisation file, kept as its lines so that people and other programs may share it: writing changes the values
// that were set and nothing besides. Names of sections and keys are compared without regard to case, and the first of a
// name holds. A line that makes no sense is passed over and stays in the file.
#pragma once

#include "common/vipNumber.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class TlotIniFile {
public:
    using TKeyValues = std::vector<std::pair<std::string, std::string>>;

    /// Reads the file; one that is missing or cannot be read is empty.
    explicit TlotIniFile(std::string fileName);

    /// The value, in UTF-8, without the blanks round it and then without one pair of double quotes round it; nothing
    /// if there is no such key. An empty value is a value.
    [[nodiscard]] std::optional<std::string> Find(std::string_view section, std::string_view key) const;

    /// Each gives `absent` where there is no such key, or its value is nothing of the kind.
    [[nodiscard]] std::string Text(std::string_view section, std::string_view key, std::string_view absent) const;
    /// Decimal, or hexadecimal after "$" or "0x", within 32 bits.
    [[nodiscard]] std::int32_t Integer(std::string_view section, std::string_view key, std::int32_t absent) const;
    /// Plain digits with at most one separator, which is the decimal one: ".", "," or the locale's. Files are shared by
    /// users of different locales, and no writer groups digits.
    [[nodiscard]] double Number(std::string_view section, std::string_view key, double absent,
                                const TNumberLocale& locale) const;
    /// An integer that is 0 or not, or "true" or "false".
    [[nodiscard]] bool Boolean(std::string_view section, std::string_view key, bool absent) const;

    /// All lines of a section that have a "=", in their order: key, which may be empty or stand twice, and value.
    [[nodiscard]] TKeyValues Lines(std::string_view section) const;

    /// Each changes the key where it stands, or adds it behind the last of its section, made at the end if need be.
    /// Line breaks in a text become blanks.
    void SetText(std::string_view section, std::string_view key, std::string_view value);
    void SetInteger(std::string_view section, std::string_view key, std::int32_t value);
    void SetNumber(std::string_view section, std::string_view key, double value, const TNumberLocale& locale);
    void SetBoolean(std::string_view section, std::string_view key, bool value); ///< As 1 or 0.

    /// Puts these lines in the place of all lines of the section but comments and blank ones.
    void ReplaceSection(std::string_view section, const TKeyValues& lines);

    /// Writes the file in one step. Throws EFileError where it cannot be written, or could not be read and would be
    /// lost.
    void Save() const;

private:
    struct TKeyLine {
        std::string_view Key;
        std::size_t ValueAt = 0; ///< Within the line.
    };

    [[nodiscard]] static std::optional<TKeyLine> ParseKey(std::string_view line);
    [[nodiscard]] std::vector<std::size_t> SectionLines(std::string_view section) const;
    [[nodiscard]] std::string ValueOf(std::size_t line, std::size_t valueAt) const;
    [[nodiscard]] std::optional<std::pair<std::size_t, std::size_t>> FindKey(std::string_view section,
                                                                             std::string_view key) const;
    [[nodiscard]] std::size_t EndOfKeys(std::string_view section);
    void InsertLine(std::size_t at, std::string line);

    std::string FFileName;
    std::string FReadFailure;
    std::string FByteOrderMark;
    std::string FLineEnd; ///< "\r" in a file whose lines end in CR LF; each line holds its own.
    std::vector<std::string> FLines;
};
