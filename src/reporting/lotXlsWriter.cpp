// SPDX-License-Identifier: GPL-3.0-or-later
//
// A binary workbook of one sheet: first what belongs to the workbook (fonts, number formats, looks of cells, colours,
// texts), then the sheet's records. Sizes in the records are in twentieths of a point, 256ths of a digit and the like.
#include "common/vipErrors.h"
#include "reporting/lotBiffRecords.h"
#include "reporting/lotCompoundFile.h"
#include "reporting/lotWorkbook.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <tuple>
#include <utility>
#include <vector>

namespace {

constexpr int MostColumns = 256;
constexpr int MostRows = 65'536;
constexpr int StandardSize = 10; // Points.
constexpr std::uint32_t FirstOwnFormat = 164;
constexpr std::uint32_t FirstCellLook = 16; // After those of the 15 styles and of cells without a look.
constexpr std::uint32_t FirstOwnColour = 40;
constexpr std::uint32_t AutomaticColour = 0x7FFF;

enum TRecord : std::uint16_t {
    Eof = 0x000A,
    FooterText = 0x0015,
    ExternSheet = 0x0017,
    DefinedName = 0x0018,
    CodePage = 0x0042,
    Font = 0x0031,
    Window1 = 0x003D,
    Pane = 0x0041,
    DefaultColumnWidth = 0x0055,
    ColumnInfo = 0x007D,
    SheetFlags = 0x0081,
    SheetName = 0x0085,
    PaletteColours = 0x0092,
    PageSetUp = 0x00A1,
    Look = 0x00E0,
    TextCell = 0x00FD,
    SupportBook = 0x01AE,
    Dimensions = 0x0200,
    BlankCell = 0x0201,
    NumberCell = 0x0203,
    RowInfo = 0x0208,
    DefaultRowHeight = 0x0225,
    Window2 = 0x023E,
    WholeNumberCell = 0x027E,
    StyleName = 0x0293,
    NumberFormat = 0x041E,
    Begin = 0x0809,
};

/// The 56 colours that such workbooks begin with.
constexpr std::array<std::uint32_t, 56> StandardPalette{
    0x000000, 0xFFFFFF, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFF00, 0xFF00FF, 0x00FFFF, 0x800000, 0x008000,
    0x000080, 0x808000, 0x800080, 0x008080, 0xC0C0C0, 0x808080, 0x9999FF, 0x993366, 0xFFFFCC, 0xCCFFFF,
    0x660066, 0xFF8080, 0x0066CC, 0xCCCCFF, 0x000080, 0xFF00FF, 0xFFFF00, 0x00FFFF, 0x800080, 0x800000,
    0x008080, 0x0000FF, 0x00CCFF, 0xCCFFFF, 0xCCFFCC, 0xFFFF99, 0x99CCFF, 0xFF99CC, 0xCC99FF, 0xFFCC99,
    0x3366FF, 0x33CCCC, 0x99CC00, 0xFFCC00, 0xFF9900, 0xFF6600, 0x666699, 0x969696, 0x003366, 0x339966,
    0x003300, 0x333300, 0x993300, 0x993366, 0x333399, 0x333333};

/// What the looks of cells are put together from, each once.
class TLooks {
public:
    explicit TLooks(const TSpreadsheetPage& page) : FPage(page) {
        // Four fonts come before any of ours, and the number 4 is never used. The first one measures the columns.
        FFonts.assign(4, TFont{StandardSize - page.FontSize});
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
        std::uint32_t Colour = AutomaticColour;

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
    const std::uint32_t colour = style.FontColour == 0 ? AutomaticColour : ColourOf(style.FontColour);
    const std::uint32_t index = IndexIn(FFonts, TFont{style.SizeDelta, style.Bold, colour});
    return index < 4 ? index : index + 1;
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
    return found != builtIn.end() ? found->second : FirstOwnFormat + IndexIn(FFormats, name);
}

std::uint32_t TLooks::ColourOf(std::uint8_t sheetColour) {
    return sheetColour == 0 ? 0 : FirstOwnColour + IndexIn(FColours, sheetColour);
}

void TLooks::WriteFonts(TBiffStream& stream) const {
    for (const TFont& font : FFonts) {
        TBiffData data;
        data.U16(static_cast<std::uint32_t>(20 * (FPage.FontSize + font.SizeDelta)));
        data.U16(font.Bold ? 1 : 0).U16(font.Colour).U16(font.Bold ? 700 : 400);
        data.U16(0).U8(0).U8(2).U8(0).U8(0).ShortText(FPage.FontName); // Sans serif, any letters.
        stream.Record(Font, data);
    }
}

void TLooks::WriteFormats(TBiffStream& stream) const {
    for (std::size_t i = 0; i < FFormats.size(); ++i) {
        stream.Record(NumberFormat,
                      TBiffData().U16(FirstOwnFormat + static_cast<std::uint32_t>(i)).LongText(FFormats[i]));
    }
}

void TLooks::WriteLooks(TBiffStream& stream) const {
    constexpr std::uint32_t bottom = 0x20;
    for (int style = 0; style < 15; ++style) {
        stream.Record(Look, TBiffData()
                                .U16(0)
                                .U16(0)
                                .U16(0xFFF5)
                                .U8(bottom)
                                .U8(0)
                                .U8(0)
                                .U8(style == 0 ? 0 : 0xF4)
                                .U32(0)
                                .U32(0)
                                .U16(0x20C0));
    }
    stream.Record(Look, TBiffData().U16(0).U16(0).U16(0x0001).U8(bottom).U8(0).U8(0).U8(0).U32(0).U32(0).U16(0x20C0));
    for (std::size_t i = 0; i < FLooks.size(); ++i) {
        const TLook& look = FLooks[i];
        const auto alignment = static_cast<std::uint32_t>(FPage.Styles()[i].Alignment);
        TBiffData data;
        data.U16(look.Font).U16(look.Format).U16(0x0001).U8(bottom | alignment).U8(0).U8(0);
        data.U8(0x04 | 0x08 | 0x10 | 0x40); // Its own format, font, alignment and fill count.
        data.U32(0).U32(look.Fill == 0 ? 0 : 1U << 26).U16(look.Fill == 0 ? 0x20C0 : look.Fill | 65U << 7);
        stream.Record(Look, data);
    }
}

void TLooks::WritePalette(TBiffStream& stream) const {
    std::array<std::uint32_t, 56> colours = StandardPalette;
    for (std::size_t i = 0; i < FColours.size(); ++i) {
        colours.at(FirstOwnColour - 8 + i) = SheetColour(FColours[i]);
    }
    TBiffData data;
    data.U16(static_cast<std::uint32_t>(colours.size()));
    for (const std::uint32_t colour : colours) {
        data.U8(colour >> 16).U8(colour >> 8).U8(colour).U8(0);
    }
    stream.Record(PaletteColours, data);
}

TBiffData BeginData(std::uint32_t kind) {
    return TBiffData().U16(0x0600).U16(kind).U16(0x0DBB).U16(0x07CC).U32(0x41).U32(0x06);
}

/// The rows and columns that are repeated on each printed page, as a name that every such program knows.
void WritePrintTitles(TBiffStream& stream, const TSpreadsheetPage& page) {
    if (page.FrozenRows == 0 || page.FrozenColumns == 0) {
        return;
    }
    stream.Record(SupportBook, TBiffData().U16(1).U16(0x0401));
    stream.Record(ExternSheet, TBiffData().U16(1).U16(0).U16(0).U16(0));
    const auto area = [](TBiffData& data, std::uint32_t lastRow, std::uint32_t lastColumn) {
        data.U8(0x3B).U16(0).U16(0).U16(lastRow).U16(0).U16(lastColumn);
    };
    TBiffData data;
    data.U16(0x0020).U8(0).U8(1).U16(26).U16(0).U16(1).U32(0); // Built in, one letter, 26 bytes, of sheet 1.
    data.U8(0).U8(0x07);                                       // "Print titles"
    data.U8(0x29).U16(23);
    area(data, MostRows - 1, static_cast<std::uint32_t>(page.FrozenColumns - 1));
    area(data, static_cast<std::uint32_t>(page.FrozenRows - 1), MostColumns - 1);
    data.U8(0x10);
    stream.Record(DefinedName, data);
}

void WriteSheetHead(TBiffStream& stream, const TSpreadsheetPage& page) {
    stream.Record(Begin, BeginData(0x0010));
    stream.Record(DefaultRowHeight, TBiffData().U16(0).U16(static_cast<std::uint32_t>(page.FontSize * 28)));
    stream.Record(SheetFlags, TBiffData().U16(page.FitsPageWidth ? 0x05C1 : 0x04C1));
    stream.Record(FooterText, TBiffData().LongText("&L&A&RPage &P of &N"));
    // A4, upright or across, as many pages down as it takes; margins of half an inch for head and foot.
    const unsigned pagesDown = page.FitsPageWidth ? 0 : 1;
    const unsigned upright = page.FitsPageWidth ? 2 : 0;
    stream.Record(
        PageSetUp,
        TBiffData().U16(9).U16(100).U16(1).U16(1).U16(pagesDown).U16(upright).U16(600).U16(600).Real(0.5).Real(0.5).U16(
            1));
    stream.Record(DefaultColumnWidth, TBiffData().U16(8));
    for (int column = 0; column < page.ColumnCount(); ++column) {
        const auto c = static_cast<std::uint32_t>(column);
        const double width = std::round(256 * WorkbookWidth(page.ColumnWidth(column)));
        stream.Record(ColumnInfo,
                      TBiffData().U16(c).U16(c).U16(static_cast<std::uint32_t>(width)).U16(15).U16(0).U16(0));
    }
    stream.Record(Dimensions, TBiffData()
                                  .U32(0)
                                  .U32(static_cast<std::uint32_t>(page.RowCount()))
                                  .U16(0)
                                  .U16(static_cast<std::uint32_t>(page.ColumnCount()))
                                  .U16(0));
}

/// A larger font needs a higher row; the others take the height of the sheet.
void WriteRow(TBiffStream& stream, const TSpreadsheetPage& page, int row) {
    int delta = 0;
    for (int column = 0; column < page.ColumnCount(); ++column) {
        delta = std::max<int>(delta, page.StyleOf(page.Cell(row, column)).SizeDelta);
    }
    const auto height = static_cast<std::uint32_t>((page.FontSize + delta) * 28);
    stream.Record(RowInfo, TBiffData()
                               .U16(static_cast<std::uint32_t>(row))
                               .U16(0)
                               .U16(static_cast<std::uint32_t>(page.ColumnCount()))
                               .U16(height)
                               .U16(0)
                               .U16(0)
                               .U32(delta > 0 ? 0x0140 : 0x0100));
}

void WriteCell(TBiffStream& stream, const TSpreadsheetPage& page, int row, int column, TBiffTexts& texts) {
    const TSpreadsheetCell& cell = page.Cell(row, column);
    TBiffData data;
    data.U16(static_cast<std::uint32_t>(row)).U16(static_cast<std::uint32_t>(column)).U16(TLooks::LookOf(cell));
    switch (cell.Kind) {
    case TSpreadsheetCell::TKind::Number: {
        constexpr double largest = (1 << 29) - 1;
        const double number = WorkbookNumber(page.StyleOf(cell).Format, cell.Number);
        if (number == std::trunc(number) && std::abs(number) <= largest) {
            const auto whole = static_cast<std::uint32_t>(static_cast<std::int32_t>(number));
            stream.Record(WholeNumberCell, data.U32(whole << 2 | 2));
        } else {
            stream.Record(NumberCell, data.Real(number));
        }
        break;
    }
    case TSpreadsheetCell::TKind::Text: stream.Record(TextCell, data.U32(texts.Index(page.TextOf(cell)))); break;
    case TSpreadsheetCell::TKind::Empty:
        if (cell.Style != 0) {
            stream.Record(BlankCell, data);
        }
        break;
    }
}

void WriteSheetTail(TBiffStream& stream, const TSpreadsheetPage& page) {
    const bool frozen = page.FrozenRows > 0 || page.FrozenColumns > 0;
    const auto rows = static_cast<std::uint32_t>(page.FrozenRows);
    const auto columns = static_cast<std::uint32_t>(page.FrozenColumns);
    // Grid, headers, zeros, automatic grid colour, selected, shown; frozen.
    stream.Record(Window2,
                  TBiffData().U16(0x06B6U | (frozen ? 0x0108U : 0U)).U16(0).U16(0).U32(64).U16(0).U16(0).U32(0));
    if (frozen) {
        const std::uint32_t active = rows > 0 && columns > 0 ? 0 : rows > 0 ? 2 : 1;
        stream.Record(Pane, TBiffData().U16(columns).U16(rows).U16(rows).U16(columns).U16(active));
    }
    stream.Record(Eof);
}

TBiffStream Sheet(const TSpreadsheetPage& page, TBiffTexts& texts) {
    TBiffStream stream;
    WriteSheetHead(stream, page);
    constexpr int block = 32; // Rows are told of in blocks, each before its cells.
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
    book.Record(Begin, BeginData(0x0005));
    book.Record(CodePage, TBiffData().U16(1200));
    book.Record(Window1, TBiffData().U16(0).U16(0).U16(0x4000).U16(0x2600).U16(0x0038).U16(0).U16(0).U16(1).U16(600));
    looks.WriteFonts(book);
    looks.WriteFormats(book);
    looks.WriteLooks(book);
    book.Record(StyleName, TBiffData().U16(0x8000).U8(0).U8(0xFF)); // "Normal"
    looks.WritePalette(book);
    const std::size_t sheetPlace = book.Size() + 4;
    book.Record(SheetName, TBiffData().U32(0).U16(0).ShortText(page.Title.empty() ? "Sheet1" : page.Title, 31));
    WritePrintTitles(book, page);
    texts.Write(book);
    book.Record(Eof);
    book.Patch32(sheetPlace, static_cast<std::uint32_t>(book.Size()));
    book.Append(sheet);
    return CompoundFile("Workbook", book.Take());
}
