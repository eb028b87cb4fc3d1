// SPDX-License-Identifier: GPL-3.0-or-later
#include "reporting/lotBiffRecords.h"

#include "common/vipErrors.h"
#include "common/vipText.h"

#include <algorithm>
#include <bit>

namespace {

constexpr std::size_t LargestRecord = 8224;
constexpr std::size_t LongestText = 32'767; // Letters of a cell.
constexpr std::uint32_t fHighByte = 1;      // Letters of two bytes.

std::u16string Utf16(std::string_view utf8) {
    std::u16string text;
    for (std::size_t i = 0; i < utf8.size();) {
        const char32_t c = vip::NextCodePoint(utf8, i);
        if (c < 0x10000) {
            text += static_cast<char16_t>(c);
        } else {
            text += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
            text += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
        }
    }
    return text;
}

bool IsNarrow(const std::u16string& text) {
    return std::ranges::all_of(text, [](char16_t c) { return c < 0x100; });
}

} // namespace

TBiffData& TBiffData::U8(std::uint32_t value) {
    FBytes += static_cast<char>(value & 0xFF);
    return *this;
}

TBiffData& TBiffData::U16(std::uint32_t value) {
    return U8(value).U8(value >> 8);
}

TBiffData& TBiffData::U32(std::uint32_t value) {
    return U16(value).U16(value >> 16);
}

TBiffData& TBiffData::Real(double value) {
    const auto bits = std::bit_cast<std::uint64_t>(value);
    return U32(static_cast<std::uint32_t>(bits)).U32(static_cast<std::uint32_t>(bits >> 32));
}

TBiffData& TBiffData::Append(const TBiffData& other) {
    FBytes += other.FBytes;
    return *this;
}

TBiffData& TBiffData::Letter(char16_t letter, bool narrow) {
    return narrow ? U8(letter) : U16(letter);
}

void TBiffData::Letters(const std::u16string& text) {
    const bool narrow = IsNarrow(text);
    U8(narrow ? 0 : fHighByte);
    for (const char16_t c : text) {
        Letter(c, narrow);
    }
}

TBiffData& TBiffData::ShortText(std::string_view utf8, std::size_t longest) {
    std::u16string text = Utf16(utf8);
    text.resize(std::min(text.size(), longest));
    U8(static_cast<std::uint32_t>(text.size()));
    Letters(text);
    return *this;
}

TBiffData& TBiffData::LongText(std::string_view utf8) {
    const std::u16string text = Utf16(utf8);
    U16(static_cast<std::uint32_t>(text.size()));
    Letters(text);
    return *this;
}

void TBiffStream::Record(TBiffId id, const TBiffData& data) {
    if (data.Bytes().size() > LargestRecord) {
        throw ELotError("A record of the workbook grew too large.");
    }
    const auto size = static_cast<std::uint32_t>(data.Bytes().size());
    FBytes += TBiffData().U16(static_cast<std::uint32_t>(id)).U16(size).Bytes();
    FBytes += data.Bytes();
}

void TBiffStream::Patch32(std::size_t place, std::uint32_t value) {
    FBytes.replace(place, 4, TBiffData().U32(value).Bytes());
}

std::uint32_t TBiffTexts::Index(const std::string& utf8) {
    ++FUses;
    const auto [entry, added] = FIndex.try_emplace(utf8, static_cast<std::uint32_t>(FTexts.size()));
    if (added) {
        FTexts.push_back(Utf16(utf8).substr(0, LongestText));
    }
    return entry->second;
}

void TBiffTexts::Write(TBiffStream& stream) const {
    TBiffId id = TBiffId::Sst;
    const auto cstUnique = static_cast<std::uint32_t>(FTexts.size());
    TBiffData record;
    record.U32(FUses).U32(cstUnique);
    const auto flush = [&] {
        stream.Record(id, record);
        record = {};
        id = TBiffId::Continue;
    };
    for (const std::u16string& text : FTexts) {
        const bool narrow = IsNarrow(text);
        // The head of a text stays in one record, with at least one letter.
        if (record.Bytes().size() + 5 > LargestRecord) {
            flush();
        }
        record.U16(static_cast<std::uint32_t>(text.size())).U8(narrow ? 0 : fHighByte);
        for (const char16_t c : text) {
            if (record.Bytes().size() + (narrow ? 1 : 2) > LargestRecord) {
                flush();
                record.U8(narrow ? 0 : fHighByte); // Each record says anew how its letters are written.
            }
            record.Letter(c, narrow);
        }
    }
    flush();
}
