// SPDX-License-Identifier: GPL-3.0-or-later
//
// The records of binary workbooks with their fields, under the names that the published description of the format gives
// them, so that each can be looked up there. What a workbook of one sheet never changes has its value here.
//
// Lengths: rows in twips, columns in 256ths of a digit, margins in inches. Rows and columns count from 0.
#pragma once

#include "reporting/lotBiffRecords.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace biff {

// Colours by their index.
inline constexpr std::uint32_t IcvFirstOfPalette = 8;
inline constexpr std::uint32_t IcvForeground = 64; ///< Of the reader's windows.
inline constexpr std::uint32_t IcvBackground = 65;
inline constexpr std::uint32_t IcvFontAutomatic = 0x7FFF;

enum class TSubstream : std::uint16_t { Globals = 0x0005, Sheet = 0x0010 };

struct TBof {
    static constexpr TBiffId Id = TBiffId::Bof;
    TSubstream Dt;
    [[nodiscard]] TBiffData Data() const;
};

struct TEof {
    static constexpr TBiffId Id = TBiffId::Eof;
    [[nodiscard]] static TBiffData Data() { return {}; }
};

struct TCodePage {
    static constexpr TBiffId Id = TBiffId::CodePage;
    static constexpr std::uint32_t Utf16 = 1200;
    std::uint32_t Cv = Utf16;
    [[nodiscard]] TBiffData Data() const { return TBiffData().U16(Cv); }
};

/// The workbook's window.
struct TWindow1 {
    static constexpr TBiffId Id = TBiffId::Window1;
    enum TFlags : std::uint32_t { fDspHScroll = 0x0008, fDspVScroll = 0x0010, fBotAdornment = 0x0020 };
    std::uint32_t DxWn = 0x4000; ///< Twips.
    std::uint32_t DyWn = 0x2600;
    std::uint32_t Flags = fDspHScroll | fDspVScroll | fBotAdornment;
    std::uint32_t CtabSel = 1;
    std::uint32_t WTabRatio = 600; ///< Thousandths of the width that the sheets' tabs take.
    [[nodiscard]] TBiffData Data() const;
};

struct TFont {
    static constexpr TBiffId Id = TBiffId::Font;
    static constexpr std::uint32_t NotUsed = 4; ///< No font has that number: the fifth one is number 5.
    enum TFlags : std::uint32_t { fBold = 0x0001 };
    enum TBls : std::uint32_t { BlsNormal = 400, BlsBold = 700 };
    enum TFamily : std::uint32_t { FamilySwiss = 2 }; ///< Without serifs.
    std::uint32_t DyHeight = 0;                       ///< Twips.
    bool Bold = false;
    std::uint32_t Icv = IcvFontAutomatic;
    std::string_view FontName;
    [[nodiscard]] TBiffData Data() const;
};

/// A number format.
struct TFormat {
    static constexpr TBiffId Id = TBiffId::Format;
    static constexpr std::uint32_t FirstCustom = 164;
    std::uint32_t Ifmt = FirstCustom;
    std::string_view StFormat;
    [[nodiscard]] TBiffData Data() const { return TBiffData().U16(Ifmt).LongText(StFormat); }
};

/// How a cell looks, or a style.
struct TXF {
    static constexpr TBiffId Id = TBiffId::XF;
    static constexpr int StyleCount = 15; ///< Of the styles that come before all cells' looks.
    static constexpr std::uint32_t IxfDefaultCell = 15;
    static constexpr std::uint32_t NoParent = 0xFFF;
    enum TFlags : std::uint32_t { fLocked = 0x0001, fStyle = 0x0004 };
    enum TAlcV : std::uint32_t { AlcVBottom = 2 };
    /// What is a cell's own; of a style, what it leaves as it is.
    enum TAtr : std::uint32_t {
        fAtrNum = 0x04,
        fAtrFnt = 0x08,
        fAtrAlc = 0x10,
        fAtrBdr = 0x20,
        fAtrPat = 0x40,
        fAtrProt = 0x80
    };
    enum TFls : std::uint32_t { FlsNone = 0, FlsSolid = 1 };

    std::uint32_t Ifnt = 0;
    std::uint32_t Ifmt = 0;
    std::uint32_t Flags = fLocked;
    std::uint32_t IxfParent = 0;
    std::uint32_t Alc = 0; ///< General, left, centred, right.
    std::uint32_t AlcV = AlcVBottom;
    std::uint32_t Atr = 0;
    TFls Fls = FlsNone;
    std::uint32_t IcvFore = IcvForeground;
    std::uint32_t IcvBack = IcvBackground;
    [[nodiscard]] TBiffData Data() const;
};

struct TStyle {
    static constexpr TBiffId Id = TBiffId::Style;
    static constexpr std::uint32_t fBuiltIn = 0x8000;
    static constexpr std::uint32_t IstyNormal = 0;
    static constexpr std::uint32_t NoLevel = 0xFF;
    std::uint32_t Ixfe = 0;
    [[nodiscard]] TBiffData Data() const { return TBiffData().U16(Ixfe | fBuiltIn).U8(IstyNormal).U8(NoLevel); }
};

struct TPalette {
    static constexpr TBiffId Id = TBiffId::Palette;
    static constexpr std::size_t Ccv = 56;
    std::span<const std::uint32_t, Ccv> RgColor; ///< 0xRRGGBB.
    [[nodiscard]] TBiffData Data() const;
};

/// The colours that such workbooks begin with, from IcvFirstOfPalette on; 0xRRGGBB.
extern const std::array<std::uint32_t, TPalette::Ccv> DefaultPalette;

struct TBoundSheet8 {
    static constexpr TBiffId Id = TBiffId::BoundSheet8;
    static constexpr std::uint32_t HsVisible = 0;
    static constexpr std::uint32_t DtWorksheet = 0;
    static constexpr std::size_t LongestName = 31; ///< Letters.
    std::uint32_t LbPlyPos = 0;                    ///< Where the sheet's BOF stands in the stream.
    std::string_view StName;
    [[nodiscard]] TBiffData Data() const {
        return TBiffData().U32(LbPlyPos).U8(HsVisible).U8(DtWorksheet).ShortText(StName, LongestName);
    }
};

/// Stands for this workbook itself in references to sheets.
struct TSupBook {
    static constexpr TBiffId Id = TBiffId::SupBook;
    static constexpr std::uint32_t CchSelf = 0x0401;
    std::uint32_t Ctab = 1;
    [[nodiscard]] TBiffData Data() const { return TBiffData().U16(Ctab).U16(CchSelf); }
};

/// The first sheet of the first TSupBook.
struct TExternSheet {
    static constexpr TBiffId Id = TBiffId::ExternSheet;
    std::uint32_t CXTI = 1;
    std::uint32_t ISupBook = 0;
    std::uint32_t ItabFirst = 0;
    std::uint32_t ItabLast = 0;
    [[nodiscard]] TBiffData Data() const { return TBiffData().U16(CXTI).U16(ISupBook).U16(ItabFirst).U16(ItabLast); }
};

/// A range of cells; both ends included.
struct TArea {
    std::uint32_t RowFirst = 0;
    std::uint32_t RowLast = 0;
    std::uint32_t ColumnFirst = 0;
    std::uint32_t ColumnLast = 0;
};

/// A name that the format itself gives: the rows and columns repeated on each printed page, as a union of two ranges.
struct TLblPrintTitles {
    static constexpr TBiffId Id = TBiffId::Lbl;
    enum TFlags : std::uint32_t { fBuiltin = 0x0020 };
    static constexpr std::uint32_t PrintTitles = 0x07;
    /// The parts of a formula.
    enum TPtg : std::uint32_t { PtgUnion = 0x10, PtgMemFunc = 0x29, PtgArea3d = 0x3B };
    std::uint32_t Itab = 1; ///< From 1.
    TArea Columns;
    TArea Rows;
    [[nodiscard]] TBiffData Data() const;
};

struct TDefaultRowHeight {
    static constexpr TBiffId Id = TBiffId::DefaultRowHeight;
    std::uint32_t MiyRw = 0;
    [[nodiscard]] TBiffData Data() const { return TBiffData().U16(0).U16(MiyRw); }
};

struct TWsBool {
    static constexpr TBiffId Id = TBiffId::WsBool;
    enum TFlags : std::uint32_t {
        fShowAutoBreaks = 0x0001,
        fRowSumsBelow = 0x0040,
        fColSumsRight = 0x0080,
        fFitToPage = 0x0100,
        fDspGuts = 0x0400
    };
    bool FitToPage = false;
    [[nodiscard]] TBiffData Data() const {
        return TBiffData().U16(fShowAutoBreaks | fRowSumsBelow | fColSumsRight | fDspGuts |
                               (FitToPage ? fFitToPage : 0U));
    }
};

struct TFooter {
    static constexpr TBiffId Id = TBiffId::Footer;
    std::string_view Text; ///< "&L", "&R": on the left, right; "&A": the sheet; "&P", "&N": page, pages.
    [[nodiscard]] TBiffData Data() const { return TBiffData().LongText(Text); }
};

/// The printed page.
struct TSetup {
    static constexpr TBiffId Id = TBiffId::Setup;
    enum TPaper : std::uint32_t { PaperA4 = 9 };
    enum TFlags : std::uint32_t { fPortrait = 0x0002 };
    static constexpr std::uint32_t DotsPerInch = 600;
    static constexpr double FootMargin = 0.5;
    std::uint32_t IScale = 100;   ///< Percent.
    std::uint32_t IFitWidth = 1;  ///< Pages across; counts where TWsBool says so.
    std::uint32_t IFitHeight = 1; ///< Pages down; 0: as many as it takes.
    bool Portrait = false;
    [[nodiscard]] TBiffData Data() const;
};

struct TDefColWidth {
    static constexpr TBiffId Id = TBiffId::DefColWidth;
    std::uint32_t Cchdef = 8; ///< Digits.
    [[nodiscard]] TBiffData Data() const { return TBiffData().U16(Cchdef); }
};

struct TColInfo {
    static constexpr TBiffId Id = TBiffId::ColInfo;
    std::uint32_t Column = 0;
    std::uint32_t Coldx = 0;
    [[nodiscard]] TBiffData Data() const {
        return TBiffData().U16(Column).U16(Column).U16(Coldx).U16(TXF::IxfDefaultCell).U16(0).U16(0);
    }
};

struct TDimensions {
    static constexpr TBiffId Id = TBiffId::Dimensions;
    std::uint32_t RwMac = 0; ///< The row and column behind the last.
    std::uint32_t ColMac = 0;
    [[nodiscard]] TBiffData Data() const { return TBiffData().U32(0).U32(RwMac).U16(0).U16(ColMac).U16(0); }
};

struct TRow {
    static constexpr TBiffId Id = TBiffId::Row;
    enum TFlags : std::uint32_t { fUnsynced = 0x0040, fReserved3 = 0x0100 }; ///< The latter is always set.
    static constexpr int BlockRows = 32; ///< Rows are told of in blocks of as many, each block before its cells.
    std::uint32_t Rw = 0;
    std::uint32_t ColMac = 0;
    std::uint32_t MiyRw = 0;
    bool Unsynced = false; ///< The height isn't that of its fonts.
    [[nodiscard]] TBiffData Data() const;
};

/// What all cells begin with.
struct TCell {
    std::uint32_t Rw = 0;
    std::uint32_t Col = 0;
    std::uint32_t Ixfe = 0;
    [[nodiscard]] TBiffData Data() const { return TBiffData().U16(Rw).U16(Col).U16(Ixfe); }
};

struct TBlank {
    static constexpr TBiffId Id = TBiffId::Blank;
    TCell Cell;
    [[nodiscard]] TBiffData Data() const { return Cell.Data(); }
};

struct TLabelSst {
    static constexpr TBiffId Id = TBiffId::LabelSst;
    TCell Cell;
    std::uint32_t Isst = 0; ///< Of TBiffTexts.
    [[nodiscard]] TBiffData Data() const { return Cell.Data().U32(Isst); }
};

struct TNumber {
    static constexpr TBiffId Id = TBiffId::Number;
    TCell Cell;
    double Num = 0;
    [[nodiscard]] TBiffData Data() const { return Cell.Data().Real(Num); }
};

/// A whole number in 30 bits.
struct TRk {
    static constexpr TBiffId Id = TBiffId::Rk;
    enum TFlags : std::uint32_t { fInt = 0x2 };
    static constexpr std::uint32_t FlagBits = 2;
    static constexpr std::int32_t Largest = (1 << 29) - 1;
    TCell Cell;
    std::int32_t Num = 0;
    [[nodiscard]] TBiffData Data() const { return Cell.Data().U32(static_cast<std::uint32_t>(Num) << FlagBits | fInt); }
};

/// The sheet's window.
struct TWindow2 {
    static constexpr TBiffId Id = TBiffId::Window2;
    enum TFlags : std::uint32_t {
        fDspGridRt = 0x0002,
        fDspRwColRt = 0x0004,
        fFrozenRt = 0x0008,
        fDspZerosRt = 0x0010,
        fDefaultHdr = 0x0020,
        fDspGuts = 0x0080,
        fFrozenNoSplit = 0x0100,
        fSelected = 0x0200,
        fPaged = 0x0400
    };
    bool Frozen = false;
    [[nodiscard]] TBiffData Data() const;
};

/// The frozen rows and columns.
struct TPane {
    static constexpr TBiffId Id = TBiffId::Pane;
    enum TPnn : std::uint32_t { PnnLowerRight = 0, PnnUpperRight = 1, PnnLowerLeft = 2 };
    std::uint32_t X = 0; ///< Columns.
    std::uint32_t Y = 0; ///< Rows.
    [[nodiscard]] TBiffData Data() const;
};

} // namespace biff
