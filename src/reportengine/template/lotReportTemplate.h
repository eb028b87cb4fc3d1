// SPDX-License-Identifier: GPL-3.0-or-later
//
// A report template as plain objects: pages of bands, bands of objects. What docs/report-templates.md says of each
// element and attribute is what these fields mean. Lengths are twips.
#pragma once

#include "reportengine/template/lotReportExpression.h"
#include "reportengine/template/lotReportLook.h"
#include "reportengine/template/lotTemplateXml.h"

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
#include <variant>
#include <vector>

namespace report {

/// An expression with the place where it stands.
struct TPlacedExpression {
    TExpression Expression;
    TTemplatePlace Place;
};

/// A text between brackets and around them.
struct TTextPart {
    QString Literal;
    std::optional<TPlacedExpression> Expression; ///< In place of the literal.
    QString Format;                              ///< Of it, behind a "|"; one in brackets is an expression in turn.
    std::optional<TPlacedExpression> FormatExpression;
};

enum class TAnchor : std::uint8_t {
    Top,     ///< Keeps its distance from the band's upper edge, pushed down by what grows above it.
    Bottom,  ///< Keeps its distance from the lower edge.
    Stretch, ///< Keeps both.
};

struct TTemplateText {
    std::vector<TTextPart> Parts;
    TTextLook Look;
    bool Wrap = true; ///< Breaks into lines, and grows with them; otherwise one line, set smaller where it must be.
};

struct TTemplateLine {
    QRgb Stroke = 0;
    double Width = 0;
};

struct TTemplateBox {
    QRgb Stroke = 0;
    double Width = 0;
};

struct TTemplatePicture {
    std::shared_ptr<const QImage> Image; ///< Null until one is set.
    TAlign Align = TAlign::Centre;
    TVAlign VAlign = TVAlign::Centre;
};

struct TTemplateGradient {};

/// A pie of the figures of a table.
struct TTemplateChart {
    TTextLook Look; ///< Of its key.
    std::string DataSet;
    std::string NameField;
    std::string ValueField;
    std::optional<TPlacedExpression> Filter; ///< Which rows it shows.
};

using TTemplateContent =
    std::variant<TTemplateText, TTemplateLine, TTemplateBox, TTemplatePicture, TTemplateGradient, TTemplateChart>;

struct TTemplateObject {
    QString Name;
    TTemplatePlace Place;
    QRectF Rect; ///< In its band.
    TAnchor Anchor = TAnchor::Top;
    std::optional<TPlacedExpression> Visible;
    QRgb Fill = 0;
    std::optional<TPlacedExpression> FillExpression; ///< A number 0xRRGGBB.
    bool Collapse = false;                           ///< Takes no room when it isn't visible or its text is empty.
    std::string Across; ///< A table: it is repeated from left to right for each row of it, sharing the width.
    double Pitch = 0;   ///< The most that one of them gets; 0 is no limit.
    TTemplateContent Content;
};

enum class TOnPages : std::uint8_t { All, First, NotFirst };

struct TTemplateBand {
    TBandKind Kind = TBandKind::MasterData;
    QString Name;
    TTemplatePlace Place;
    double Height = 0;
    std::vector<TTemplateObject> Objects;
    std::optional<TPlacedExpression> Visible;
    std::optional<TPlacedExpression> Bookmark; ///< A text; empty gives none.
    int BookmarkLevel = 0;
    std::optional<TPlacedExpression> RunningHead; ///< What page headers may tell of the place.
    std::optional<TPlacedExpression> NewPage;     ///< Begins a page.
    std::optional<TPlacedExpression> PageBreakAfter;
    bool KeepWithNext = false;
    bool KeepWithPrevious = false;
    bool Repeat = false; ///< Again at the top of each page that its rows go on.
    TOnPages Pages = TOnPages::All;

    // Master and detail data
    std::string DataSet;
    std::optional<TPlacedExpression> Filter;
    bool KeepTogether = false; ///< A row and its details.
    bool Gather = false;       ///< Rows of one group come together, where the first of them stands.
    std::vector<TTemplateBand> Headers;
    std::vector<TTemplateBand> Footers;
    std::vector<TTemplateBand> GroupHeaders; ///< From the outermost in.
    std::vector<TTemplateBand> GroupFooters;
    std::vector<TTemplateBand> Details;

    // Groups
    std::optional<TPlacedExpression> On; ///< Of a header: a new group begins where it changes.
    QString Group;                       ///< Of a footer: the name of its header.
};

struct TTemplatePage {
    QString Name;
    QSizeF Size;
    QMarginsF Margins;
    bool OnPreviousPage = false; ///< Goes on below what an earlier template left, where the paper is the same.
    std::vector<TTemplateBand> Bands;
};

struct TReportTemplate {
    std::string File;
    std::vector<TTemplatePage> Pages;
};

/// Reads a template. Throws ELotError that names file and line for what is wrong in it: XML, elements, attributes,
/// values, expressions. Names of tables and variables are checked against `scope`.
[[nodiscard]] TReportTemplate ReadTemplate(const std::string& fileName, const TExpressionScope& scope);

/// Visits every object of a band and of the bands in it.
template <typename TBand, typename TVisit> void EachObject(TBand& band, const TVisit& visit) {
    for (auto& object : band.Objects) {
        visit(object);
    }
    for (auto* const bands : {&band.Headers, &band.Footers, &band.GroupHeaders, &band.GroupFooters, &band.Details}) {
        for (auto& inner : *bands) {
            EachObject(inner, visit);
        }
    }
}

} // namespace report
