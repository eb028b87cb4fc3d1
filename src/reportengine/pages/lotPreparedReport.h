// SPDX-License-Identifier: GPL-3.0-or-later
//
// A finished report: pages of placed things, ready to be drawn, printed or exported. Nothing here asks the data again.
//
// Lengths are twips. Texts are broken into lines already, measured with the report's own fonts, so every renderer
// breaks and aligns alike.
#pragma once

#include "common/vipNumber.h"
#include "reportengine/pages/frxGradientView.h"
#include "reportengine/template/lotReportLook.h"

#include <QImage>
#include <QMarginsF>
#include <QRectF>
#include <QRgb>
#include <QSizeF>
#include <QString>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace report {

/// A text, broken into its lines.
struct TPreparedText {
    TTextLook Look;
    std::vector<QString> Lines;   ///< Without line ends.
    bool Elided = false;          ///< The line was too long for its place, and ends in an ellipsis.
    QString Whole;                ///< The text before it was broken into lines.
    std::optional<double> Number; ///< Where the text is one figure: the figure, a percentage as its percent figure.
    std::string Format;           ///< Of Number: a mask (",0.00", "0.000%") or a number format ("%2.2n").
    bool HoldsPageNumber = false;
};

/// From the top left to the bottom right of its rectangle.
struct TPreparedLine {
    QRgb Stroke = 0;  ///< Alpha 0: none.
    double Width = 0; ///< Twips.
};

/// A frame around its rectangle.
struct TPreparedBox {
    QRgb Stroke = 0;  ///< Alpha 0: none.
    double Width = 0; ///< Twips.
};

/// Drawn whole and undistorted at its place in the rectangle.
struct TPreparedPicture {
    std::shared_ptr<const QImage> Image; ///< Null for none.
    TAlign Align = TAlign::Centre;
    TVAlign VAlign = TVAlign::Centre;
};

/// The report's gradient.
struct TPreparedGradient {};

struct TChartSlice {
    QString Name;
    double Value = 0;
    QRgb Colour = 0;
};

/// A pie with its key.
struct TPreparedChart {
    std::vector<TChartSlice> Slices; ///< All above 0, in their order.
    double Total = 0;                ///< Of the slices; 0 where there is none, and nothing to draw.
    TTextLook Look;                  ///< Of the key.
};

using TPreparedContent =
    std::variant<TPreparedText, TPreparedLine, TPreparedBox, TPreparedPicture, TPreparedGradient, TPreparedChart>;

/// One placed thing.
struct TPreparedItem {
    QRectF Rect;   ///< From the top left corner of its band.
    QString Name;  ///< Of the template's object.
    QRgb Fill = 0; ///< Behind a text, in a box, in the table cell of a picture or chart; alpha 0: none.
    TPreparedContent Content;

    /// What it is if it is one of those, otherwise null.
    template <typename T> [[nodiscard]] const T* As() const noexcept { return std::get_if<T>(&Content); }
    template <typename T> [[nodiscard]] T* As() noexcept { return std::get_if<T>(&Content); }
    template <typename T> [[nodiscard]] bool Is() const noexcept { return std::holds_alternative<T>(Content); }
    /// On which side its content stands; left for what fills its rectangle.
    [[nodiscard]] TAlign Align() const noexcept;
};

/// One printing of a band.
struct TPreparedBand {
    TBandKind Kind = TBandKind::MasterData;
    QString Name;
    double Top = 0; ///< On the page, from the paper's edge.
    double Height = 0;
    bool Repeated = false;            ///< Printed again at the top of a page.
    std::vector<TPreparedItem> Items; ///< In drawing order.
};

struct TPreparedPage {
    QSizeF Size;                      ///< Of the paper.
    QMarginsF Margins;                ///< Bands begin at the left margin; their items may reach into it.
    bool PartStart = false;           ///< Begins a part of the document, not just where the page before was full.
    std::vector<TPreparedBand> Bands; ///< Page header and footer among them.
};

/// An entry of the outline: a place of the document with a name.
struct TOutlineEntry {
    QString Text;
    int Page = 0;   ///< From 0.
    double Top = 0; ///< On the page.
    int Level = 0;  ///< From 0.
};

inline TAlign TPreparedItem::Align() const noexcept {
    const auto* const text = As<TPreparedText>();
    const auto* const picture = As<TPreparedPicture>();
    const auto* const chart = As<TPreparedChart>();
    return text != nullptr      ? text->Look.Align
           : picture != nullptr ? picture->Align
           : chart != nullptr   ? chart->Look.Align
                                : TAlign::Left;
}

struct TPreparedReport {
    std::vector<TPreparedPage> Pages;
    std::vector<TOutlineEntry> Outline;
    TfrxGradientView Gradient; ///< Of all gradients.
    TNumberLocale Locale;      ///< Separates the figures in the texts.
};

} // namespace report
