// SPDX-License-Identifier: GPL-3.0-or-later
//
// A binary workbook of one sheet: first what belongs to the workbook (fonts, number formats, looks of cells, colours,
// texts), then the sheet's records. Sizes in the records are in twentieths of a point, 256ths of a digit and the like.
#include "common/vipErrors.h"
#include "reporting/lotBiffFields.h"
#include "reporting/lotBiffRecords.h"
#include "reporting/lotCompoundFile.h"
#include "reporting/lotWorkbook.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr int MostColumns = 256;
constexpr int MostRows = 65'536;
constexpr int TwipsPerPoint = 20;
constexpr int StandardSize = 10;                                       // Points.
constexpr std::uint32_t FirstCellLook = biff::TXF::IxfDefaultCell + 1; // After those of cells without a look.
constexpr std::uint32_t FirstOwnColour = 40;

/// What the looks of cells are put together from, each once.
class TLooks {
public:
    explicit TLooks(const TSpreadsheetPage& page) : FPage(page) {
        // Four fonts come before any of ours. The first one measures the columns.
        FFonts.assign(biff::TFont::NotUsed, TFont{StandardSize - page.FontSize});
        for (const TSpreadsheetStyle& style : page.Styles()) {
            FLooks.push_back({FontOf(style), FormatOf(style.Format), ColourOf(style.Background)});
        }
    }

    [[nodiscard]] static std::uint32_t LookOf(const TSpreadsheetCell& cell) { return FirstCellLook + cell.Style; }

    void WriteFonts(TBiffStream& stream) const;
    void WriteFormats(TBiffStream& stream) const;
    void WriteLooks(TBiffStream& stream) const;
    void WritePalette(TBiffStream& stream) const;

private:
    struct TFont {
        int SizeDelta = 0;
        bool Bold = false;
        std::uint32_t Colour = biff::IcvFontAutomatic;

        friend bool operator==(const TFont&, const TFont&) = default;
    };
    struct TLook {
        std::uint32_t Font;
        std::uint32_t Format;
        std::uint32_t Fill; ///< 0: none
    };

    std::uint32_t FontOf(const TSpreadsheetStyle& style);
    std::uint32_t FormatOf(const std::string& format);
    std::uint32_t ColourOf(std::uint8_t sheetColour);

    const TSpreadsheetPage& FPage;
    std::vector<TFont> FFonts;
    std::vector<std::string> FFormats;
    std::vector<std::uint8_t> FColours;
    std::vector<TLook> FLooks;
};

template <typename T> std::uint32_t IndexIn(std::vector<T>& list, const T& value) {
    const auto found = std::ranges::find(list, value);
    const auto index = static_cast<std::uint32_t>(found - list.begin());
    if (found == list.end()) {
        list.push_back(value);
    }
    return index;
}

std::uint32_t TLooks::FontOf(const TSpreadsheetStyle& style) {
    const std::uint32_t colour = style.FontColour == 0 ? biff::IcvFontAutomatic : ColourOf(style.FontColour);
    const std::uint32_t index = IndexIn(FFonts, TFont{style.SizeDelta, style.Bold, colour});
    return index < biff::TFont::NotUsed ? index : index + 1;
}

std::uint32_t TLooks::FormatOf(const std::string& format) {
    // The numbers of formats that every such program carries.
    static const std::map<std::string, std::uint32_t> builtIn{{"General", 0},
                                                              {"0", 1},
                                                              {"0.00", 2},
                                                              {"#,##0", 3},
                                                              {"#,##0.00", 4},
                                                              {"0%", 9},
                                                              {"0.00%", 10},
                                                              {"#,##0_);(#,##0)", 37},
                                                              {"#,##0_);[Red](#,##0)", 38}};
    const std::string name = WorkbookFormat(format);
    const auto found = builtIn.find(name);
    return found != builtIn.end() ? found->second : biff::TFormat::FirstCustom + IndexIn(FFormats, name);
}

std::uint32_t TLooks::ColourOf(std::uint8_t sheetColour) {
    return sheetColour == 0 ? 0 : FirstOwnColour + IndexIn(FColours, sheetColour);
}

void TLooks::WriteFonts(TBiffStream& stream) const {
    for (const TFont& font : FFonts) {
        stream.Record(
            biff::TFont{.DyHeight = static_cast<std::uint32_t>(TwipsPerPoint * (FPage.FontSize + font.SizeDelta)),
                        .Bold = font.Bold,
                        .Icv = font.Colour,
                        .FontName = FPage.FontName});
    }
}

void TLooks::WriteFormats(TBiffStream& stream) const {
    std::uint32_t ifmt = biff::TFormat::FirstCustom;
    for (const std::string& format : FFormats) {
        stream.Record(biff::TFormat{.Ifmt = ifmt++, .StFormat = format});
    }
}

void TLooks::WriteLooks(TBiffStream& stream) const {
    using biff::TXF;
    TXF style{.Flags = TXF::fLocked | TXF::fStyle, .IxfParent = TXF::NoParent};
    for (int i = 0; i < TXF::StyleCount; ++i) {
        stream.Record(style);
        style.Atr = TXF::fAtrNum | TXF::fAtrAlc | TXF::fAtrBdr | TXF::fAtrPat | TXF::fAtrProt;
    }
    stream.Record(TXF{});
    for (std::size_t i = 0; i < FLooks.size(); ++i) {
        const TLook& look = FLooks[i];
        TXF cell{.Ifnt = look.Font,
                 .Ifmt = look.Format,
                 .Alc = static_cast<std::uint32_t>(FPage.Styles()[i].Alignment),
                 .Atr = TXF::fAtrNum | TXF::fAtrFnt | TXF::fAtrAlc | TXF::fAtrPat};
        if (look.Fill != 0) {
            cell.Fls = TXF::FlsSolid;
            cell.IcvFore = look.Fill;
        }
        stream.Record(cell);
    }
}

void TLooks::WritePalette(TBiffStream& stream) const {
    auto colours = biff::DefaultPalette;
    for (std::size_t i = 0; i < FColours.size(); ++i) {
        colours.at(FirstOwnColour - biff::IcvFirstOfPalette + i) = SheetColour(FColours[i]);
    }
    stream.Record(biff::TPalette{.RgColor = colours});
}

/// The rows and columns that are repeated on each printed page.
void WritePrintTitles(TBiffStream& stream, const TSpreadsheetPage& page) {
    if (page.FrozenRows == 0 || page.FrozenColumns == 0) {
        return;
    }
    stream.Record(biff::TSupBook{});
    stream.Record(biff::TExternSheet{});
    const auto lastRow = static_cast<std::uint32_t>(page.FrozenRows - 1);
    const auto lastColumn = static_cast<std::uint32_t>(page.FrozenColumns - 1);
    stream.Record(biff::TLblPrintTitles{.Columns = {.RowLast = MostRows - 1, .ColumnLast = lastColumn},
                                        .Rows = {.RowLast = lastRow, .ColumnLast = MostColumns - 1}});
}

std::uint32_t RowTwips(const TSpreadsheetPage& page, int sizeDelta) {
    return static_cast<std::uint32_t>(std::lround(TwipsPerPoint * WorkbookRowHeight(page, sizeDelta)));
}

void WriteSheetHead(TBiffStream& stream, const TSpreadsheetPage& page) {
    stream.Record(biff::TBof{biff::TSubstream::Sheet});
    stream.Record(biff::TDefaultRowHeight{RowTwips(page, 0)});
    stream.Record(biff::TWsBool{page.FitsPageWidth});
    stream.Record(biff::TFooter{"&L&A&RPage &P of &N"});
    stream.Record(biff::TSetup{.IFitHeight = page.FitsPageWidth ? 0U : 1U, .Portrait = page.FitsPageWidth});
    stream.Record(biff::TDefColWidth{});
    for (int column = 0; column < page.ColumnCount(); ++column) {
        const double width = std::round(256 * WorkbookWidth(page.ColumnWidth(column)));
        stream.Record(biff::TColInfo{static_cast<std::uint32_t>(column), static_cast<std::uint32_t>(width)});
    }
    stream.Record(
        biff::TDimensions{static_cast<std::uint32_t>(page.RowCount()), static_cast<std::uint32_t>(page.ColumnCount())});
}

/// A larger font needs a higher row; the others take the height of the sheet.
void WriteRow(TBiffStream& stream, const TSpreadsheetPage& page, int row) {
    const int delta = page.RowSizeDelta(row);
    stream.Record(biff::TRow{.Rw = static_cast<std::uint32_t>(row),
                             .ColMac = static_cast<std::uint32_t>(page.ColumnCount()),
                             .MiyRw = RowTwips(page, delta),
                             .Unsynced = delta > 0});
}

void WriteCell(TBiffStream& stream, const TSpreadsheetPage& page, int row, int column, TBiffTexts& texts) {
    const TSpreadsheetCell& cell = page.Cell(row, column);
    const biff::TCell place{static_cast<std::uint32_t>(row), static_cast<std::uint32_t>(column), TLooks::LookOf(cell)};
    switch (cell.Kind) {
    case TSpreadsheetCell::TKind::Number: {
        const double number = WorkbookNumber(page.StyleOf(cell).Format, cell.Number);
        if (number == std::trunc(number) && std::abs(number) <= biff::TRk::Largest) {
            stream.Record(biff::TRk{place, static_cast<std::int32_t>(number)});
        } else {
            stream.Record(biff::TNumber{place, number});
        }
        break;
    }
    case TSpreadsheetCell::TKind::Text: stream.Record(biff::TLabelSst{place, texts.Index(page.TextOf(cell))}); break;
    case TSpreadsheetCell::TKind::Empty:
        if (cell.Style != 0) {
            stream.Record(biff::TBlank{place});
        }
        break;
    }
}

void WriteSheetTail(TBiffStream& stream, const TSpreadsheetPage& page) {
    const bool frozen = page.FrozenRows > 0 || page.FrozenColumns > 0;
    stream.Record(biff::TWindow2{frozen});
    if (frozen) {
        stream.Record(
            biff::TPane{static_cast<std::uint32_t>(page.FrozenColumns), static_cast<std::uint32_t>(page.FrozenRows)});
    }
    stream.Record(biff::TEof{});
}

TBiffStream Sheet(const TSpreadsheetPage& page, TBiffTexts& texts) {
    TBiffStream stream;
    WriteSheetHead(stream, page);
    constexpr int block = biff::TRow::BlockRows;
    for (int first = 0; first < page.RowCount(); first += block) {
        const int last = std::min(first + block, page.RowCount());
        for (int row = first; row < last; ++row) {
            WriteRow(stream, page, row);
        }
        for (int row = first; row < last; ++row) {
            for (int column = 0; column < page.ColumnCount(); ++column) {
                WriteCell(stream, page, row, column, texts);
            }
        }
    }
    WriteSheetTail(stream, page);
    return stream;
}

} // namespace

std::string XlsBytes(const TSpreadsheetPage& page) {
    if (page.ColumnCount() > MostColumns) {
        throw ELotError("An .xls workbook has at most 256 columns; save as .xlsx instead.");
    }
    if (page.RowCount() > MostRows) {
        throw ELotError("An .xls workbook has at most 65,536 rows; save as .xlsx instead.");
    }
    TBiffTexts texts;
    const TBiffStream sheet = Sheet(page, texts);
    const TLooks looks(page);

    TBiffStream book;
    book.Record(biff::TBof{biff::TSubstream::Globals});
    book.Record(biff::TCodePage{});
    book.Record(biff::TWindow1{});
    looks.WriteFonts(book);
    looks.WriteFormats(book);
    looks.WriteLooks(book);
    book.Record(biff::TStyle{});
    looks.WritePalette(book);
    const std::size_t sheetPlace = book.Size() + TBiffStream::HeadSize; // Of LbPlyPos, the first field.
    book.Record(biff::TBoundSheet8{.StName = page.Title.empty() ? "Sheet1" : std::string_view(page.Title)});
    WritePrintTitles(book, page);
    texts.Write(book);
    book.Record(biff::TEof{});
    book.Patch32(sheetPlace, static_cast<std::uint32_t>(book.Size()));
    book.Append(sheet);
    return CompoundFile("Workbook", book.Take());
}
