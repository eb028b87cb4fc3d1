// SPDX-License-Identifier: GPL-3.0-or-later
#include "reportengine/exports/lotReportExports.h"
#include "reportengine/exports/lotReportGrid.h"
#include "reportengine/pages/lotReportPainter.h"

#include <QBuffer>
#include <QColor>
#include <algorithm>
#include <cmath>
#include <vector>

namespace report {

namespace {

constexpr double PictureScale = 200 / TwipsPerInch; // Pixels to the twip, of charts.
constexpr int CellPadding = 30;                     // Twips, on either side.
constexpr QRgb RuleColour = 0xFF12343B;

int Whole(double twips) {
    return static_cast<int>(std::lround(twips));
}

/// Text as the format writes it: in ASCII, other letters by their number in UTF-16.
QByteArray Escaped(const QString& text) {
    QByteArray bytes;
    for (const QChar c : text) {
        const char16_t code = c.unicode();
        if (c == u'\\' || c == u'{' || c == u'}') {
            bytes += '\\';
            bytes += static_cast<char>(code);
        } else if (c == u'\n') {
            bytes += "\\line ";
        } else if (code >= 0x20 && code < 0x80) {
            bytes += static_cast<char>(code);
        } else if (code >= 0x80) {
            bytes += "\\u" + QByteArray::number(static_cast<std::int16_t>(code)) + "?";
        }
    }
    return bytes;
}

class TRtfDocument {
public:
    TRtfDocument(const TPreparedReport& report, const TlotDocumentTexts& texts)
        : FReport(report), FTexts(texts), FGrid(BuildReportGrid(report)) {}

    [[nodiscard]] QByteArray Bytes();

private:
    [[nodiscard]] int ColourIndex(QRgb colour);
    [[nodiscard]] QByteArray Look(const TTextLook& look);
    [[nodiscard]] QByteArray Footer();
    [[nodiscard]] QByteArray Picture(const TPreparedItem& item) const;
    void AddRow(const TGridRow& row);
    void AddCellFrame(const TGridRow& row, int lastColumn, QRgb fill);
    void AddCellText(const TGridCell* cell);

    const TPreparedReport& FReport;
    const TlotDocumentTexts& FTexts;
    const TReportGrid FGrid;
    std::vector<QRgb> FColours;
    QByteArray FBody;
};

int TRtfDocument::ColourIndex(QRgb colour) {
    auto found = std::ranges::find(FColours, colour | 0xFF000000U);
    if (found == FColours.end()) {
        FColours.push_back(colour | 0xFF000000U);
        found = FColours.end() - 1;
    }
    return static_cast<int>(found - FColours.begin()) + 1; // 0 is the default colour of the reader's program.
}

QByteArray TRtfDocument::Look(const TTextLook& look) {
    return QByteArray(look.Align == TAlign::Right    ? "\\qr"
                      : look.Align == TAlign::Centre ? "\\qc"
                                                     : "\\ql") +
           "\\f0\\fs" + QByteArray::number(static_cast<int>(std::lround(look.Size * 2))) + "\\cf" +
           QByteArray::number(ColourIndex(look.Colour)) + (look.Bold ? "\\b" : "\\b0") +
           (look.Italic ? "\\i" : "\\i0") + " ";
}

QByteArray TRtfDocument::Picture(const TPreparedItem& item) const {
    const auto* const picture = item.As<TPreparedPicture>();
    const QImage image = picture != nullptr ? *picture->Image : ItemPicture(FReport, item, PictureScale);
    // What is wider than the cell within its padding would be cut.
    const QSizeF room(std::max(1.0, item.Rect.width() - 2 * CellPadding), item.Rect.height());
    const QSizeF size = QSizeF(image.size()).scaled(room, Qt::KeepAspectRatio);
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return "{\\pict\\pngblip\\picw" + QByteArray::number(image.width()) + "\\pich" +
           QByteArray::number(image.height()) + "\\picwgoal" + QByteArray::number(Whole(size.width())) + "\\pichgoal" +
           QByteArray::number(Whole(size.height())) + "\n" + png.toHex() + "}";
}

/// The foot of every page: what the report's own says, and the numbers that the reader's program counts.
QByteArray TRtfDocument::Footer() {
    QByteArray left;
    const TPreparedPage& page = FReport.Pages.back();
    for (const TPreparedBand& band : page.Bands) {
        for (const TPreparedItem& item : band.Items) {
            const auto* const text = item.As<TPreparedText>();
            if (band.Kind == TBandKind::PageFooter && text != nullptr && !text->HoldsPageNumber) {
                left += Escaped(text->Whole) + " ";
            }
        }
    }
    const double width = page.Size.width() - page.Margins.left() - page.Margins.right();
    TTextLook look;
    look.Size = 7;
    look.Colour = 0xFF5B6B70;
    const auto field = [](const char* name) {
        return QByteArray("{\\field{\\*\\fldinst {\\f0\\fs14 ") + name + "}}{\\fldrslt {\\f0\\fs14 1}}}";
    };
    return "{\\footer\\pard\\tqr\\tx" + QByteArray::number(Whole(width)) + Look(look) + left + "\\tab Page " +
           field("PAGE") + " of " + field("NUMPAGES") + "\\par}\n";
}

/// What a cell is framed with and where it ends.
void TRtfDocument::AddCellFrame(const TGridRow& row, int lastColumn, QRgb fill) {
    if (row.RuleAbove) {
        FBody += "\\clbrdrt\\brdrs\\brdrw10\\brdrcf" + QByteArray::number(ColourIndex(RuleColour));
    }
    if (row.RuleBelow) {
        FBody += "\\clbrdrb\\brdrs\\brdrw10\\brdrcf" + QByteArray::number(ColourIndex(RuleColour));
    }
    if (qAlpha(fill) != 0) {
        FBody += "\\clcbpat" + QByteArray::number(ColourIndex(fill));
    }
    double edge = 0;
    for (int i = 0; i <= lastColumn; ++i) {
        edge += FGrid.Columns[static_cast<std::size_t>(i)];
    }
    FBody += "\\cellx" + QByteArray::number(Whole(edge));
}

void TRtfDocument::AddCellText(const TGridCell* cell) {
    FBody += "\\pard\\intbl";
    if (cell == nullptr) {
        FBody += "\\fs2 ";
    } else if (const auto* const text = cell->Item->As<TPreparedText>()) {
        FBody += Look(text->Look) + Escaped(text->Whole);
    } else {
        FBody += (cell->Item->Align() == TAlign::Right ? "\\qr " : "\\ql ") + Picture(*cell->Item);
    }
    FBody += "\\cell\n";
}

void TRtfDocument::AddRow(const TGridRow& row) {
    if (row.GapAbove > TwipsPerMm && !row.PartStart) {
        FBody += "\\trowd\\trgaph0\\trrh-" + QByteArray::number(Whole(row.GapAbove)) + "\\cellx" +
                 QByteArray::number(Whole(FGrid.Columns.front())) + "\\pard\\intbl\\fs2\\cell\\row\n";
    }
    const bool heading = row.Band == TBandKind::Header || row.Band == TBandKind::GroupHeader;
    const QRgb ground = row.Gradient ? FReport.Gradient.EndColour : row.Fill;
    FBody += "\\trowd\\trgaph" + QByteArray::number(CellPadding) + "\\trleft0\\trrh" +
             QByteArray::number(Whole(row.Height)) + "\\trkeep" + (heading ? "\\trkeepfollow\n" : "\n");
    struct TPiece {
        const TGridCell* Cell; // Null where nothing stands.
        int Last;
    };
    std::vector<TPiece> pieces;
    int column = 0;
    for (const TGridCell& cell : row.Cells) {
        if (cell.Column > column) {
            pieces.push_back({nullptr, cell.Column - 1});
        }
        pieces.push_back({&cell, cell.Column + cell.Span - 1});
        column = cell.Column + cell.Span;
    }
    const int count = static_cast<int>(FGrid.Columns.size());
    if (column < count) {
        pieces.push_back({nullptr, count - 1});
    }
    for (const TPiece& piece : pieces) {
        const QRgb own = piece.Cell != nullptr ? piece.Cell->Item->Fill : 0;
        AddCellFrame(row, piece.Last, qAlpha(own) != 0 ? own : ground);
    }
    FBody += '\n';
    for (const TPiece& piece : pieces) {
        AddCellText(piece.Cell);
    }
    FBody += "\\row\n";
}

QByteArray TRtfDocument::Bytes() {
    const QByteArray footer = Footer();
    for (const TGridRow& row : FGrid.Rows) {
        if (row.Band == TBandKind::PageFooter) {
            continue; // The foot of every page says it.
        }
        if (row.PartStart) {
            FBody += "\\pard\\page\\par\n";
        }
        AddRow(row);
    }
    const TPreparedPage& page = FReport.Pages.front();
    QByteArray head =
        "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1\n{\\fonttbl{\\f0\\fswiss\\fcharset0 Open Sans;}}\n{\\colortbl;";
    for (const QRgb colour : FColours) {
        head += "\\red" + QByteArray::number(qRed(colour)) + "\\green" + QByteArray::number(qGreen(colour)) + "\\blue" +
                QByteArray::number(qBlue(colour)) + ";";
    }
    const auto info = [](const char* word, const std::string& text) {
        return QByteArray("{\\") + word + " " + Escaped(QString::fromStdString(text)) + "}";
    };
    head += "}\n{\\info" + info("title", FTexts.Title) + info("author", FTexts.Author) +
            info("doccomm", FTexts.Creator) + "}\n";
    head +=
        "\\paperw" + QByteArray::number(Whole(page.Size.width())) + "\\paperh" +
        QByteArray::number(Whole(page.Size.height())) + (page.Size.width() > page.Size.height() ? "\\landscape" : "") +
        "\\margl" + QByteArray::number(Whole(page.Margins.left())) + "\\margr" +
        QByteArray::number(Whole(page.Margins.right())) + "\\margt" + QByteArray::number(Whole(page.Margins.top())) +
        "\\margb" + QByteArray::number(Whole(page.Margins.bottom() + 10 * TwipsPerMm)) + "\n";
    return head + footer + FBody + "\\pard\\fs2\\par\n}\n";
}

} // namespace

QByteArray RtfBytes(const TPreparedReport& report, const TlotDocumentTexts& texts) {
    return TRtfDocument(report, texts).Bytes();
}

} // namespace report
