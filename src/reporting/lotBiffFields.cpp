// SPDX-License-Identifier: GPL-3.0-or-later
#include "reporting/lotBiffFields.h"

namespace biff {

const std::array<std::uint32_t, TPalette::Ccv> DefaultPalette{
    0x000000, 0xFFFFFF, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFF00, 0xFF00FF, 0x00FFFF, 0x800000, 0x008000,
    0x000080, 0x808000, 0x800080, 0x008080, 0xC0C0C0, 0x808080, 0x9999FF, 0x993366, 0xFFFFCC, 0xCCFFFF,
    0x660066, 0xFF8080, 0x0066CC, 0xCCCCFF, 0x000080, 0xFF00FF, 0xFFFF00, 0x00FFFF, 0x800080, 0x800000,
    0x008080, 0x0000FF, 0x00CCFF, 0xCCFFFF, 0xCCFFCC, 0xFFFF99, 0x99CCFF, 0xFF99CC, 0xCC99FF, 0xFFCC99,
    0x3366FF, 0x33CCCC, 0x99CC00, 0xFFCC00, 0xFF9900, 0xFF6600, 0x666699, 0x969696, 0x003366, 0x339966,
    0x003300, 0x333300, 0x993300, 0x993366, 0x333399, 0x333333};

TBiffData TBof::Data() const {
    constexpr std::uint32_t vers = 0x0600;
    constexpr std::uint32_t rupBuild = 0x0DBB;
    constexpr std::uint32_t rupYear = 1996;
    constexpr std::uint32_t fWin = 0x01;
    constexpr std::uint32_t unused1 = 0x40; // Without a meaning of its own; such files always have it.
    constexpr std::uint32_t verLowestBiff = 6;
    return TBiffData()
        .U16(vers)
        .U16(static_cast<std::uint32_t>(Dt))
        .U16(rupBuild)
        .U16(rupYear)
        .U32(fWin | unused1)
        .U32(verLowestBiff);
}

TBiffData TWindow1::Data() const {
    constexpr std::uint32_t xWn = 0;
    constexpr std::uint32_t yWn = 0;
    constexpr std::uint32_t itabCur = 0;
    constexpr std::uint32_t itabFirst = 0;
    return TBiffData().U16(xWn).U16(yWn).U16(DxWn).U16(DyWn).U16(Flags).U16(itabCur).U16(itabFirst).U16(CtabSel).U16(
        WTabRatio);
}

TBiffData TFont::Data() const {
    constexpr std::uint32_t sss = 0; // Neither raised nor lowered,
    constexpr std::uint32_t uls = 0; // nor underlined.
    constexpr std::uint32_t bCharSet = 0;
    return TBiffData()
        .U16(DyHeight)
        .U16(Bold ? fBold : 0U)
        .U16(Icv)
        .U16(Bold ? BlsBold : BlsNormal)
        .U16(sss)
        .U8(uls)
        .U8(FamilySwiss)
        .U8(bCharSet)
        .U8(0)
        .ShortText(FontName);
}

TBiffData TXF::Data() const {
    constexpr std::uint32_t trot = 0;
    constexpr std::uint32_t indent = 0;
    constexpr std::uint32_t borders = 0;
    return TBiffData()
        .U16(Ifnt)
        .U16(Ifmt)
        .U16(Flags | IxfParent << 4)
        .U8(Alc | AlcV << 4)
        .U8(trot)
        .U8(indent)
        .U8(Atr)
        .U32(borders)
        .U32(borders | static_cast<std::uint32_t>(Fls) << 26)
        .U16(IcvFore | IcvBack << 7);
}

TBiffData TPalette::Data() const {
    TBiffData data;
    data.U16(static_cast<std::uint32_t>(Ccv));
    for (const std::uint32_t colour : RgColor) {
        data.U8(colour >> 16).U8(colour >> 8).U8(colour).U8(0);
    }
    return data;
}

TBiffData TLblPrintTitles::Data() const {
    const auto area = [](TBiffData& rgce, const TArea& cells) {
        constexpr std::uint32_t ixti = 0;
        rgce.U8(PtgArea3d).U16(ixti);
        rgce.U16(cells.RowFirst).U16(cells.RowLast).U16(cells.ColumnFirst).U16(cells.ColumnLast);
    };
    TBiffData operands;
    area(operands, Columns);
    area(operands, Rows);
    operands.U8(PtgUnion);
    TBiffData rgce;
    rgce.U8(PtgMemFunc).U16(static_cast<std::uint32_t>(operands.Bytes().size())).Append(operands);

    constexpr std::uint32_t chKey = 0;
    constexpr std::uint32_t cch = 1;
    TBiffData data;
    data.U16(fBuiltin).U8(chKey).U8(cch).U16(static_cast<std::uint32_t>(rgce.Bytes().size()));
    data.U16(0).U16(Itab).U32(0).U8(0).U8(PrintTitles); // The name is one narrow letter.
    return data.Append(rgce);
}

TBiffData TSetup::Data() const {
    constexpr std::uint32_t iPageStart = 1;
    constexpr std::uint32_t iCopies = 1;
    return TBiffData()
        .U16(PaperA4)
        .U16(IScale)
        .U16(iPageStart)
        .U16(IFitWidth)
        .U16(IFitHeight)
        .U16(Portrait ? fPortrait : 0U)
        .U16(DotsPerInch)
        .U16(DotsPerInch)
        .Real(FootMargin)
        .Real(FootMargin)
        .U16(iCopies);
}

TBiffData TRow::Data() const {
    constexpr std::uint32_t colMic = 0;
    return TBiffData().U16(Rw).U16(colMic).U16(ColMac).U16(MiyRw).U16(0).U16(0).U32(fReserved3 |
                                                                                    (Unsynced ? fUnsynced : 0U));
}

TBiffData TWindow2::Data() const {
    constexpr std::uint32_t shown =
        fDspGridRt | fDspRwColRt | fDspZerosRt | fDefaultHdr | fDspGuts | fSelected | fPaged;
    constexpr std::uint32_t rwTop = 0;
    constexpr std::uint32_t colLeft = 0;
    constexpr std::uint32_t wScale = 0; // The reader's own.
    return TBiffData()
        .U16(shown | (Frozen ? fFrozenRt | fFrozenNoSplit : 0U))
        .U16(rwTop)
        .U16(colLeft)
        .U32(IcvForeground)
        .U16(wScale)
        .U16(wScale)
        .U32(0);
}

TBiffData TPane::Data() const {
    const TPnn pnnAct = X > 0 && Y > 0 ? PnnLowerRight : Y > 0 ? PnnLowerLeft : PnnUpperRight;
    const std::uint32_t rwTop = Y;
    const std::uint32_t colLeft = X;
    return TBiffData().U16(X).U16(Y).U16(rwTop).U16(colLeft).U16(pnnAct);
}

} // namespace biff
