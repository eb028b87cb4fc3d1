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

/// The records that a workbook of one sheet needs, by the names that the published description of the format gives
/// them.
enum class TBiffId : std::uint16_t {
    Eof = 0x000A,
    Footer = 0x0015,
    ExternSheet = 0x0017,
    Lbl = 0x0018,
    Font = 0x0031,
    Continue = 0x003C,
    Window1 = 0x003D,
    Pane = 0x0041,
    CodePage = 0x0042,
    DefColWidth = 0x0055,
    ColInfo = 0x007D,
    WsBool = 0x0081,
    BoundSheet8 = 0x0085,
    Palette = 0x0092,
    Setup = 0x00A1,
    XF = 0x00E0,
    Sst = 0x00FC,
    LabelSst = 0x00FD,
    SupBook = 0x01AE,
    Dimensions = 0x0200,
    Blank = 0x0201,
    Number = 0x0203,
    Row = 0x0208,
    DefaultRowHeight = 0x0225,
    Window2 = 0x023E,
    Rk = 0x027E,
    Style = 0x0293,
    Format = 0x041E,
    Bof = 0x0809,
};

/// The contents of one record.
class TBiffData {
public:
    TBiffData& U8(std::uint32_t value);
    TBiffData& U16(std::uint32_t value);
    TBiffData& U32(std::uint32_t value);
    TBiffData& Real(double value);
    /// One letter of a text, in one byte or two.
    TBiffData& Letter(char16_t letter, bool narrow);
    TBiffData& Append(const TBiffData& other);
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
    static constexpr std::size_t HeadSize = 4; ///< Of a record, before its contents.

    /// Throws ELotError for contents beyond what one record holds.
    void Record(TBiffId id, const TBiffData& data);
    /// A record with named fields.
    template <typename T> void Record(const T& record) { Record(T::Id, record.Data()); }
    /// Fills in the 32 bits at that place later.
    void Patch32(std::size_t place, std::uint32_t value);
    void Append(const TBiffStream& other) { FBytes += other.FBytes; }

    [[nodiscard]] std::size_t Size() const noexcept { return FBytes.size(); }
    [[nodiscard]] std::string Take() { return std::move(FBytes); }

private:
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
