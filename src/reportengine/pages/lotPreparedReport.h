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
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace report {

enum class TItemKind : std::uint8_t { Text, Line, Box, Picture, Gradient, Chart };

struct TChartSlice {
    QString Name;
    double Value = 0;
    QRgb Colour = 0;
};

/// A pie with its key.
struct TPreparedChart {
    std::vector<TChartSlice> Slices; ///< All above 0, in their order.
    double Total = 0;
    TTextLook Look; ///< Of the key.
};

/// One placed thing. Which fields count depends on its kind.
struct TPreparedItem {
    TItemKind Kind = TItemKind::Text;
    QRectF Rect;  ///< From the top left corner of its band. A line goes from the top left to the bottom right.
    QString Name; ///< Of the template's object.

    // Text
    TTextLook Look;
    std::vector<QString> Lines;   ///< Without line ends.
    bool Elided = false;          ///< The line was too long for its place, and ends in an ellipsis.
    QString Whole;                ///< The text before it was broken into lines.
    std::optional<double> Number; ///< Where the text is one figure: the figure, a percentage as its percent figure.
    std::string Format;           ///< Of Number: a mask (",0.00", "0.000%") or a number format ("%2.2n").
    bool HoldsPageNumber = false;

    // Line, box
    QRgb Stroke = 0;        ///< Alpha 0: none.
    double StrokeWidth = 0; ///< Twips.
    QRgb Fill = 0;          ///< Of a box, and behind a text; alpha 0: none.

    // Picture. Drawn whole and undistorted in the middle (or at the side that Look.Align tells) of the rectangle.
    std::shared_ptr<const QImage> Picture;

    std::shared_ptr<const TPreparedChart> Chart;
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

struct TPreparedReport {
    std::vector<TPreparedPage> Pages;
    std::vector<TOutlineEntry> Outline;
    TfrxGradientView Gradient; ///< Of all gradients.
    TNumberLocale Locale;      ///< Separates the figures in the texts.
};

} // namespace report
