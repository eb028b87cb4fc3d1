// SPDX-License-Identifier: GPL-3.0-or-later
//
// The records that binary workbooks consist of: a number, a length, and contents with the low byte first. Texts are
// UTF-16 or, where all letters allow it, one byte a letter.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// The contents of one record.
class TBiffData {
public:
    TBiffData& U8(std::uint32_t value);
    TBiffData& U16(std::uint32_t value);
    TBiffData& U32(std::uint32_t value);
    TBiffData& Real(double value);
    TBiffData& Zeros(std::size_t count);
    /// A text with its length in one byte; cut to `longest` letters.
    TBiffData& ShortText(std::string_view utf8, std::size_t longest = 255);
    /// A text with its length in two bytes.
    TBiffData& LongText(std::string_view utf8);

    [[nodiscard]] const std::string& Bytes() const noexcept { return FBytes; }

private:
    void Letters(const std::u16string& text);

    std::string FBytes;
};

/// A stream of records.
class TBiffStream {
public:
    /// Throws ELotError for contents beyond what one record holds.
    void Record(std::uint16_t number, const TBiffData& data = {});
    /// Fills in the 32 bits at that place later.
    void Patch32(std::size_t place, std::uint32_t value);
    void Append(const TBiffStream& other) { FBytes += other.FBytes; }

    [[nodiscard]] std::size_t Size() const noexcept { return FBytes.size(); }
    [[nodiscard]] std::string Take() { return std::move(FBytes); }

private:
    friend class TBiffTexts;

    std::string FBytes;
};

/// The texts of all cells, each once.
class TBiffTexts {
public:
    /// The number of the text; the same text gives the same number.
    [[nodiscard]] std::uint32_t Index(const std::string& utf8);
    /// Writes the table, over as many records as it takes.
    void Write(TBiffStream& stream) const;

private:
    std::unordered_map<std::string, std::uint32_t> FIndex;
    std::vector<std::u16string> FTexts;
    std::uint32_t FUses = 0;
};
