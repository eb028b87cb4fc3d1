// SPDX-License-Identifier: GPL-3.0-or-later
#include "reporting/lotBiffRecords.h"

#include "common/vipErrors.h"
#include "common/vipText.h"

#include <algorithm>
#include <bit>

namespace {

constexpr std::size_t LargestRecord = 8224;
constexpr std::size_t LongestText = 32'767; // Letters of a cell.
constexpr std::uint16_t SharedTexts = 0x00FC;
constexpr std::uint16_t Continue = 0x003C;

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

void PutLetter(std::string& bytes, char16_t letter, bool narrow) {
    bytes += static_cast<char>(letter & 0xFF);
    if (!narrow) {
        bytes += static_cast<char>(letter >> 8);
    }
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

TBiffData& TBiffData::Zeros(std::size_t count) {
    FBytes.append(count, '\0');
    return *this;
}

void TBiffData::Letters(const std::u16string& text) {
    const bool narrow = IsNarrow(text);
    U8(narrow ? 0 : 1);
    for (const char16_t c : text) {
        PutLetter(FBytes, c, narrow);
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

void TBiffStream::Record(std::uint16_t number, const TBiffData& data) {
    if (data.Bytes().size() > LargestRecord) {
        throw ELotError("A record of the workbook grew too large.");
    }
    FBytes += TBiffData().U16(number).U16(static_cast<std::uint32_t>(data.Bytes().size())).Bytes();
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
    std::uint16_t number = SharedTexts;
    std::string record = TBiffData().U32(FUses).U32(static_cast<std::uint32_t>(FTexts.size())).Bytes();
    const auto flush = [&] {
        stream.FBytes += TBiffData().U16(number).U16(static_cast<std::uint32_t>(record.size())).Bytes();
        stream.FBytes += record;
        record.clear();
        number = Continue;
    };
    for (const std::u16string& text : FTexts) {
        const bool narrow = IsNarrow(text);
        // The head of a text stays in one record, with at least one letter.
        if (record.size() + 5 > LargestRecord) {
            flush();
        }
        record += TBiffData().U16(static_cast<std::uint32_t>(text.size())).U8(narrow ? 0 : 1).Bytes();
        for (const char16_t c : text) {
            if (record.size() + (narrow ? 1 : 2) > LargestRecord) {
                flush();
                record += narrow ? '\0' : '\1'; // Each record says anew how its letters are written.
            }
            PutLetter(record, c, narrow);
        }
    }
    flush();
}
