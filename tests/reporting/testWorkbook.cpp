// SPDX-License-Identifier: GPL-3.0-or-later
//
// Sheets as files. The binary workbook is read back here by what its format says, record by record.
#include "common/vipErrors.h"
#include "reporting/lotWorkbook.h"
#include "support/lotFiles.h"

#include <bit>
#include <cstdint>
#include <map>
#include <tuple>
#include <vector>

namespace {

std::uint32_t Number(const std::string& bytes, std::size_t at, int size) {
    std::uint32_t value = 0;
    for (int i = size - 1; i >= 0; --i) {
        value = value << 8 | static_cast<unsigned char>(bytes.at(at + static_cast<std::size_t>(i)));
    }
    return value;
}

/// The workbook stream out of its container, by following its chains.
std::string Stream(const std::string& file) {
    EXPECT_EQ(file.substr(0, 8), "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
    EXPECT_EQ(file.size() % 512, 0U);
    const auto sector = [&](std::uint32_t index) { return file.substr((index + 1ULL) * 512, 512); };
    std::string fat;
    std::uint32_t chained = Number(file, 0x2C, 4);
    for (std::uint32_t i = 0; i < std::min(chained, 109U); ++i) {
        fat += sector(Number(file, 0x4C + 4ULL * i, 4));
    }
    for (std::uint32_t more = Number(file, 0x44, 4), left = chained - std::min(chained, 109U); left > 0;) {
        const std::string list = sector(more);
        for (std::size_t i = 0; i < 127 && left > 0; ++i, --left) {
            fat += sector(Number(list, 4 * i, 4));
        }
        more = Number(list, 508, 4);
    }
    const std::string entry = sector(Number(file, 0x30, 4)).substr(128, 128);
    std::string stream;
    for (std::uint32_t at = Number(entry, 0x74, 4); at < 0xFFFFFFF0; at = Number(fat, 4ULL * at, 4)) {
        stream += sector(at);
    }
    EXPECT_GE(stream.size(), Number(entry, 0x78, 4));
    return stream;
}

/// What a reader of such workbooks finds in the cells.
struct TBook {
    std::map<std::pair<int, int>, double> Numbers;
    std::map<std::pair<int, int>, std::u16string> Texts;
    std::vector<std::u16string> Shared;
    std::map<std::pair<int, int>, std::uint32_t> Looks;
    std::vector<std::pair<std::uint32_t, std::uint32_t>> LookParts; ///< Font and format.
    std::vector<std::uint32_t> Weights;
    std::string Order;

    explicit TBook(const std::string& stream) {
        std::size_t at = 0;
        for (int sheets = 0; sheets < 2;) {
            const std::uint32_t kind = Number(stream, at, 2);
            const std::string data = stream.substr(at + 4, Number(stream, at + 2, 2));
            at += 4 + data.size();
            if (kind == 0x00FC) {
                std::vector<std::string> parts{data};
                while (Number(stream, at, 2) == 0x3C) {
                    parts.push_back(stream.substr(at + 4, Number(stream, at + 2, 2)));
                    at += 4 + parts.back().size();
                }
                ReadTexts(parts);
            }
            Read(kind, data);
            sheets += kind == 0x000A ? 1 : 0;
        }
    }

private:
    void Read(std::uint32_t kind, const std::string& data) {
        const auto place = [&] {
            const std::pair<int, int> cell(Number(data, 0, 2), Number(data, 2, 2));
            Looks[cell] = Number(data, 4, 2);
            return cell;
        };
        switch (kind) {
        case 0x0031: Weights.push_back(Number(data, 6, 2)); break;
        case 0x00E0: LookParts.emplace_back(Number(data, 0, 2), Number(data, 2, 2)); break;
        case 0x0203: {
            const std::uint64_t bits = Number(data, 6, 4) | static_cast<std::uint64_t>(Number(data, 10, 4)) << 32;
            Numbers[place()] = std::bit_cast<double>(bits);
            break;
        }
        case 0x027E: Numbers[place()] = static_cast<std::int32_t>(Number(data, 6, 4)) >> 2; break;
        case 0x00FD: Texts[place()] = Shared.at(Number(data, 6, 4)); break;
        default: break;
        }
    }
    void ReadTexts(const std::vector<std::string>& parts) {
        std::size_t part = 0;
        std::size_t at = 8;
        for (std::uint32_t left = Number(parts[0], 4, 4); left > 0; --left) {
            if (at == parts[part].size()) {
                ++part;
                at = 0;
            }
            std::uint32_t letters = Number(parts[part], at, 2);
            bool wide = parts[part].at(at + 2) != 0;
            at += 3;
            std::u16string text;
            for (; letters > 0; --letters) {
                if (at == parts[part].size()) {
                    ++part;
                    wide = parts[part].at(0) != 0;
                    at = 1;
                }
                text += static_cast<char16_t>(Number(parts[part], at, wide ? 2 : 1));
                at += wide ? 2 : 1;
            }
            Shared.push_back(text);
        }
    }
};

void Fill(TSpreadsheetPage& page) {
    page.Title = "Cashflow";
    page.FrozenRows = 1;
    page.FrozenColumns = 1;
    page.SetText(0, 0, "Größe \"x\", €", page.Style({.Alignment = TlotAlignment::Left, .Bold = true, .SizeDelta = 2}));
    page.SetText(0, 1, "=1+1", 0);
    const std::uint16_t money = page.Style({.Format = std::string(AccountingRedFormat)});
    page.SetNumber(1, 0, -1234.5, money);
    page.SetNumber(1, 1, 600'000'000, money); // Just beyond what the short form of whole numbers holds.
    page.SetNumber(1, 2, -536'870'911, money);
    page.SetNumber(2, 0, 12.5, page.Style({.Format = "0.000%"}));
    page.SetEmpty(2, 1, page.Style({.Background = SheetPalette::Heading}));
}

TEST(Workbook, BinaryHoldsWhatTheSheetHolds) {
    TSpreadsheetPage page;
    Fill(page);
    const TBook book(Stream(XlsBytes(page)));
    EXPECT_EQ(book.Texts.at({0, 0}), u"Größe \"x\", €");
    EXPECT_EQ(book.Texts.at({0, 1}), u"=1+1");
    EXPECT_EQ(book.Numbers.at({1, 0}), -1234.5);
    EXPECT_EQ(book.Numbers.at({1, 1}), 600'000'000);
    EXPECT_EQ(book.Numbers.at({1, 2}), -536'870'911);
    EXPECT_EQ(book.Numbers.at({2, 0}), 0.125);
    EXPECT_EQ(book.LookParts.at(book.Looks.at({1, 0})).second, 38U) << "negatives in red brackets";
    const std::uint32_t font = book.LookParts.at(book.Looks.at({0, 0})).first;
    EXPECT_EQ(book.Weights.at(font - (font > 4 ? 1 : 0)), 700U);
}

TEST(Workbook, BinaryCarriesLongTextTablesAndLargeSheets) {
    TSpreadsheetPage page;
    // Texts of many lengths, so that records break at every kind of place; wide and narrow ones in turn.
    for (int row = 0; row < 2000; ++row) {
        std::string text(static_cast<std::size_t>(row % 90 + 1), 'a');
        page.SetText(row, 0, text + (row % 3 == 0 ? "ψ" : "") + std::to_string(row), 0);
        for (int column = 1; column < 256; ++column) {
            page.SetNumber(row, column, row + column / 8.0, 0);
        }
    }
    const TBook book(Stream(XlsBytes(page))); // Some 8 MB: the chains outgrow the header.
    EXPECT_EQ(book.Shared.size(), 2000U);
    EXPECT_EQ(book.Texts.at({1998, 0}), std::u16string(19, u'a') + u"ψ1998");
    EXPECT_EQ(book.Numbers.at({1999, 255}), 1999 + 255 / 8.0);
}

TEST(Workbook, BinaryRefusesWhatItHasNoRoomFor) {
    TTempFolder folder;
    const std::string name = folder.Write("old.xls", "before");
    TSpreadsheetPage page;
    page.SetNumber(0, 256, 1, 0);
    try {
        SaveWorkbook(page, name, PointLocale);
        FAIL();
    } catch (const ELotError& error) {
        EXPECT_STREQ(error.what(), "An .xls workbook has at most 256 columns; save as .xlsx instead.");
    }
    EXPECT_EQ(ReadBytes(name), "before");
    page.Clear();
    page.SetNumber(65'536, 0, 1, 0);
    EXPECT_THROW(static_cast<void>(XlsBytes(page)), ELotError);
}

TEST(Workbook, MasksAreTheFormatsOfSpreadsheets) {
    const std::tuple<const char*, const char*, double> cases[] = {
        {"", "General", 1},
        {",0.00", "#,##0.00", 1},
        {"0.000%", "0.000%", 100},
        {"£,0;-£,0", "\"£\"#,##0;-\"£\"#,##0", 1},
        {"0.00%;,-0.00%;#", "0.00%;-#,##0.00%;\"\"", 100},
        {",0;(,0);nil", "#,##0;(#,##0);\"nil\"", 1},
        {"0 m", "0 \"m\"", 1}, // no months
        {"(#,##0_);[Red](#,##0)", "#,##0_);[Red](#,##0)", 1},
    };
    for (const auto& [mask, format, unit] : cases) {
        EXPECT_EQ(WorkbookFormat(mask), format);
        EXPECT_EQ(WorkbookNumber(mask, unit), 1) << mask;
    }
}

TEST(Workbook, TextsAreSeparatedByTheUsersRules) {
    TSpreadsheetPage page;
    Fill(page);
    EXPECT_EQ(CsvText(page, PointLocale),
              "\"Größe \"\"x\"\", €\",=1+1,\r\n-1234.5,600000000,-536870911\r\n12.500%,,\r\n");
    EXPECT_EQ(CsvText(page, CommaLocale),
              "\"Größe \"\"x\"\", €\";=1+1;\r\n-1234,5;600000000;-536870911\r\n12,500%;;\r\n");
}

TEST(Workbook, FilesAreReplacedWholeOrNotAtAll) {
    TTempFolder folder;
    TSpreadsheetPage page;
    Fill(page);
    for (const char* const name : {"a.csv", "a.XLS", "a.xlsx"}) {
        SaveWorkbook(page, folder.File(name), PointLocale);
        EXPECT_EQ(ReadBytes(folder.File(name)).empty(), false);
    }
    EXPECT_EQ(ReadBytes(folder.File("a.xlsx")).substr(0, 2), "PK");
    EXPECT_EQ(folder.Count(), 3);
    EXPECT_THROW(SaveWorkbook(page, folder.File("a.pdf"), PointLocale), ELotError);
    EXPECT_THROW(SaveWorkbook(page, folder.File("none/a.xlsx"), PointLocale), EFileError);
    const std::string locked = folder.Write("locked.csv", "before");
    std::filesystem::permissions(locked, std::filesystem::perms::owner_read);
    EXPECT_THROW(SaveWorkbook(page, locked, PointLocale), EFileError);
    EXPECT_EQ(ReadBytes(locked), "before");
}

} // namespace
