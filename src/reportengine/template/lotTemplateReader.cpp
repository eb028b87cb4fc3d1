// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipErrors.h"
#include "reportengine/template/lotPicture.h"
#include "reportengine/template/lotReportTemplate.h"
#include "reportengine/template/lotTemplateAttributes.h"

#include <QFile>
#include <QPageSize>
#include <algorithm>
#include <filesystem>
#include <map>
#include <span>
#include <tuple>
#include <utility>
#include <variant>

namespace report {

namespace {

constexpr double MostPoints = 200;

/// An object's element as it is read.
struct TSource {
    const TTemplateElement& Element;
    TAttributes& Attributes;
    TAlign Align = TAlign::Left;
    TVAlign VAlign = TVAlign::Top;
};

class TReader {
public:
    explicit TReader(const TExpressionScope& scope) : FScope(scope) {}

    TReportTemplate Read(const std::string& fileName);

private:
    TTemplatePage ReadPage(const TTemplateElement& element);
    TTemplateBand ReadBand(const TTemplateElement& element, TBandKind kind);
    void ReadDataBand(const TTemplateElement& element, TTemplateBand& band);
    bool ReadInnerBand(const TTemplateElement& child, TTemplateBand& band);
    TTemplateObject ReadObject(const TTemplateElement& element, TTemplateContent content);
    // What an object of each kind has beyond what all have.
    void ReadContent(TTemplateText& text, const TSource& from, TTemplateObject& object) const;
    static void ReadContent(TTemplateLine& line, const TSource& from, TTemplateObject& object);
    static void ReadContent(TTemplateBox& box, const TSource& from, TTemplateObject& object);
    static void ReadContent(TTemplatePicture& picture, const TSource& from, TTemplateObject& object);
    static void ReadContent(TTemplateGradient& gradient, const TSource& from, TTemplateObject& object);
    void ReadContent(TTemplateChart& chart, const TSource& from, TTemplateObject& object) const;
    [[nodiscard]] const TTemplateElement* StyleOf(const TTemplateElement& element) const;
    void CheckTable(const TTemplateElement& element, const std::string& name) const;

    const TExpressionScope& FScope;
    std::map<QString, TTemplateElement> FStyles;
};

constexpr std::pair<const char*, TBandKind> PageBands[] = {
    {"ReportTitle", TBandKind::ReportTitle}, {"PageHeader", TBandKind::PageHeader},
    {"PageFooter", TBandKind::PageFooter},   {"MasterData", TBandKind::MasterData},
    {"Summary", TBandKind::Summary},
};

template <typename T> TTemplateContent Empty() {
    return T{};
}

using TMakeContent = TTemplateContent (*)();

constexpr std::pair<const char*, TMakeContent> Objects[] = {
    {"Text", &Empty<TTemplateText>},       {"Line", &Empty<TTemplateLine>},         {"Box", &Empty<TTemplateBox>},
    {"Picture", &Empty<TTemplatePicture>}, {"Gradient", &Empty<TTemplateGradient>}, {"Chart", &Empty<TTemplateChart>},
};

template <typename T> const T* FindWord(std::span<const std::pair<const char*, T>> words, const QString& word) {
    const auto found = std::ranges::find_if(words, [&](const auto& row) { return word == QLatin1String(row.first); });
    return found == words.end() ? nullptr : &found->second;
}

/// Twips; points in the file.
double StrokeWidth(TAttributes& attributes) {
    return attributes.Number("StrokeWidth", 0.5, 0, MostPoints) * TwipsPerPoint;
}

[[noreturn]] void RefuseElement(const TTemplateElement& child, const TTemplateElement& parent) {
    FailAt(child.Place, QString("<%1> has no place in <%2>.").arg(child.Name, parent.Name));
}

TReportTemplate TReader::Read(const std::string& fileName) {
    const TTemplateElement root = ReadTemplateXml(fileName);
    if (root.Name != "Report") {
        FailAt(root.Place, "This is no report template: its root is no <Report>.");
    }
    TReportTemplate result;
    result.File = fileName;
    for (const TTemplateElement& child : root.Children) {
        if (child.Name == "Style") {
            TAttributes attributes(child, FScope);
            FStyles[attributes.Text("Name")] = child;
        }
    }
    for (const TTemplateElement& child : root.Children) {
        if (child.Name == "Page") {
            result.Pages.push_back(ReadPage(child));
        } else if (child.Name != "Style") {
            RefuseElement(child, root);
        }
    }
    if (result.Pages.empty()) {
        FailAt(root.Place, "The template has no page.");
    }
    return result;
}

TTemplatePage TReader::ReadPage(const TTemplateElement& element) {
    using enum QPageSize::PageSizeId;
    TAttributes attributes(element, FScope);
    TTemplatePage page;
    page.Name = attributes.Text("Name");
    const auto paper = attributes.Choice<QPageSize::PageSizeId>(
        "Paper", A4, {{"A3", A3}, {"A4", A4}, {"A5", A5}, {"Letter", Letter}, {"Legal", Legal}});
    page.Size = QPageSize(paper).size(QPageSize::Millimeter) * TwipsPerMm;
    if (attributes.Choice<bool>("Orientation", false, {{"Portrait", false}, {"Landscape", true}})) {
        page.Size.transpose();
    }
    page.Margins = {attributes.Length("MarginLeft", 15), attributes.Length("MarginTop", 15),
                    attributes.Length("MarginRight", 15), attributes.Length("MarginBottom", 15)};
    page.OnPreviousPage = attributes.Boolean("OnPreviousPage", false);
    attributes.Finish();
    if (page.Margins.left() + page.Margins.right() > page.Size.width() - 20 * TwipsPerMm ||
        page.Margins.top() + page.Margins.bottom() > page.Size.height() - 20 * TwipsPerMm) {
        FailAt(element.Place, "The margins leave no room on the page.");
    }
    for (const TTemplateElement& child : element.Children) {
        const TBandKind* const kind = FindWord<TBandKind>(PageBands, child.Name);
        if (kind == nullptr) {
            RefuseElement(child, element);
        }
        page.Bands.push_back(ReadBand(child, *kind));
    }
    return page;
}

TTemplateBand TReader::ReadBand(const TTemplateElement& element, TBandKind kind) {
    TAttributes attributes(element, FScope);
    TTemplateBand band;
    band.Kind = kind;
    band.Place = element.Place;
    band.Name = attributes.Text("Name");
    band.Height = attributes.Length("Height", 0);
    band.Visible = attributes.Expression("Visible");
    band.Bookmark = attributes.Expression("Bookmark");
    band.BookmarkLevel = static_cast<int>(attributes.Number("BookmarkLevel", 0, 0, 9));
    band.NewPage = attributes.Expression("NewPage");
    band.PageBreakAfter = attributes.Expression("PageBreakAfter");
    const bool heads = kind == TBandKind::Header || kind == TBandKind::GroupHeader;
    const bool foots = kind == TBandKind::Footer || kind == TBandKind::GroupFooter;
    band.KeepWithNext = attributes.Boolean("KeepWithNext", heads);
    band.KeepWithPrevious = attributes.Boolean("KeepWithPrevious", foots);
    if (heads) {
        band.Repeat = attributes.Boolean("Repeat", false);
        band.RunningHead = attributes.Expression("RunningHead");
    }
    if (kind == TBandKind::PageHeader || kind == TBandKind::PageFooter) {
        band.Pages = attributes.Choice<TOnPages>(
            "Pages", TOnPages::All,
            {{"All", TOnPages::All}, {"First", TOnPages::First}, {"NotFirst", TOnPages::NotFirst}});
    }
    if (kind == TBandKind::GroupHeader) {
        band.On = attributes.Expression("On");
        if (!band.On) {
            FailAt(element.Place, "<GroupHeader> needs the attribute On.");
        }
    }
    if (kind == TBandKind::GroupFooter) {
        band.Group = attributes.Text("Group");
    }
    const bool data = kind == TBandKind::MasterData || kind == TBandKind::DetailData;
    if (data) {
        band.DataSet = attributes.Text("DataSet").toStdString();
        CheckTable(element, band.DataSet);
        band.Filter = attributes.Expression("Filter");
        band.KeepTogether = attributes.Boolean("KeepTogether", false);
        band.Gather = attributes.Boolean("Gather", false);
    }
    attributes.Finish();
    for (const TTemplateElement& child : element.Children) {
        if (const TMakeContent* const make = FindWord<TMakeContent>(Objects, child.Name)) {
            band.Objects.push_back(ReadObject(child, (*make)()));
        } else if (!data || !ReadInnerBand(child, band)) {
            RefuseElement(child, element);
        }
    }
    if (data) {
        ReadDataBand(element, band);
    }
    return band;
}

bool TReader::ReadInnerBand(const TTemplateElement& child, TTemplateBand& band) {
    struct TRow {
        const char* Name;
        TBandKind Kind;
        std::vector<TTemplateBand>& Bands;
    };
    for (const TRow& row : {TRow{"Header", TBandKind::Header, band.Headers},
                            {"Footer", TBandKind::Footer, band.Footers},
                            {"GroupHeader", TBandKind::GroupHeader, band.GroupHeaders},
                            {"GroupFooter", TBandKind::GroupFooter, band.GroupFooters},
                            {"DetailData", TBandKind::DetailData, band.Details}}) {
        if (child.Name == QLatin1String(row.Name)) {
            row.Bands.push_back(ReadBand(child, row.Kind));
            return true;
        }
    }
    return false;
}

/// What its inner bands need of each other.
void TReader::ReadDataBand(const TTemplateElement& element, TTemplateBand& band) {
    for (const TTemplateBand& footer : band.GroupFooters) {
        if (std::ranges::none_of(band.GroupHeaders,
                                 [&](const TTemplateBand& header) { return header.Name == footer.Group; })) {
            FailAt(footer.Place,
                   QString("There is no <GroupHeader Name=\"%1\"> in this <%2>.").arg(footer.Group, element.Name));
        }
    }
}

const TTemplateElement* TReader::StyleOf(const TTemplateElement& element) const {
    for (const auto& [name, value] : element.Attributes) {
        if (name == "Style") {
            const auto style = FStyles.find(value);
            if (style == FStyles.end()) {
                FailAt(element.Place, QString("There is no <Style Name=\"%1\">.").arg(value));
            }
            return &style->second;
        }
    }
    return nullptr;
}

void TReader::CheckTable(const TTemplateElement& element, const std::string& name) const {
    if (FScope.Table(name) == nullptr) {
        FailAt(element.Place, QString("There is no table \"%1\".").arg(QString::fromStdString(name)));
    }
}

TTemplateObject TReader::ReadObject(const TTemplateElement& element, TTemplateContent content) {
    TAttributes attributes(element, FScope, StyleOf(element));
    TTemplateObject object;
    object.Place = element.Place;
    object.Name = attributes.Text("Name");
    std::ignore = attributes.Find("Style");
    const double least = std::holds_alternative<TTemplateLine>(content) ? -2000 : 0;
    object.Rect = {attributes.Length("Left", 0, -2000), attributes.Length("Top", 0, -2000),
                   attributes.Length("Width", 0, least), attributes.Length("Height", 0, least)};
    object.Anchor = attributes.Choice<TAnchor>(
        "Anchor", TAnchor::Top, {{"Top", TAnchor::Top}, {"Bottom", TAnchor::Bottom}, {"Stretch", TAnchor::Stretch}});
    object.Visible = attributes.Expression("Visible");
    const bool picture = std::holds_alternative<TTemplatePicture>(content);
    TSource from{element, attributes};
    from.Align =
        attributes.Choice<TAlign>("Align", picture ? TAlign::Centre : TAlign::Left,
                                  {{"Left", TAlign::Left}, {"Centre", TAlign::Centre}, {"Right", TAlign::Right}});
    from.VAlign =
        attributes.Choice<TVAlign>("VAlign", picture ? TVAlign::Centre : TVAlign::Top,
                                   {{"Top", TVAlign::Top}, {"Centre", TVAlign::Centre}, {"Bottom", TVAlign::Bottom}});
    object.Fill = attributes.Colour("Fill", 0, &object.FillExpression);
    std::visit([&](auto& each) { ReadContent(each, from, object); }, content);
    object.Content = std::move(content);
    attributes.Finish();
    if (!element.Children.empty()) {
        RefuseElement(element.Children.front(), element);
    }
    return object;
}

void TReader::ReadContent(TTemplateText& text, const TSource& from, TTemplateObject& object) const {
    TAttributes& attributes = from.Attributes;
    text.Look.Align = from.Align;
    text.Look.VAlign = from.VAlign;
    text.Look.Size = attributes.Number("Size", 9, 1, MostPoints);
    text.Look.Bold = attributes.Boolean("Bold", false);
    text.Look.Italic = attributes.Boolean("Italic", false);
    text.Look.Colour = attributes.Colour("Colour", 0xFF000000);
    text.Look.LineSpacing = attributes.Number("LineSpacing", 1.35, 0.5, 5);
    text.Wrap = attributes.Boolean("Wrap", text.Look.Align != TAlign::Right);
    object.Collapse = attributes.Boolean("Collapse", false);
    object.Across = attributes.Text("Across").toStdString();
    object.Pitch = attributes.Length("Pitch", 0);
    if (!object.Across.empty()) {
        CheckTable(from.Element, object.Across);
    }
    if (object.Rect.height() == 0) {
        object.Rect.setHeight(text.Look.Size * text.Look.LineSpacing * TwipsPerPoint);
    }
    const QString format = attributes.Text("Format");
    text.Parts = ParseText(from.Element.Text, format, from.Element.Place, FScope);
}

void TReader::ReadContent(TTemplateLine& line, const TSource& from, TTemplateObject&) {
    line.Stroke = from.Attributes.Colour("Stroke", 0xFF000000);
    line.Width = StrokeWidth(from.Attributes);
}

void TReader::ReadContent(TTemplateBox& box, const TSource& from, TTemplateObject&) {
    box.Stroke = from.Attributes.Colour("Stroke", 0);
    box.Width = StrokeWidth(from.Attributes);
}

/// A picture of the template's own comes from the folder of its file.
void TReader::ReadContent(TTemplatePicture& picture, const TSource& from, TTemplateObject&) {
    picture.Align = from.Align;
    picture.VAlign = from.VAlign;
    const QString file = from.Attributes.Text("File");
    if (file.isEmpty()) {
        return;
    }
    const TTemplatePlace& place = from.Element.Place;
    const std::filesystem::path folder = std::filesystem::path(*place.File).parent_path();
    try {
        picture.Image = LoadPicture((folder / QFile::encodeName(file).toStdString()).string());
    } catch (const ELotError& error) {
        FailAt(place, QString::fromUtf8(error.what()));
    }
}

void TReader::ReadContent(TTemplateGradient&, const TSource&, TTemplateObject&) {}

/// A chart has the attributes of a text, for its key.
void TReader::ReadContent(TTemplateChart& chart, const TSource& from, TTemplateObject& object) const {
    TTemplateText key;
    ReadContent(key, from, object);
    chart.Look = key.Look;
    chart.DataSet = from.Attributes.Text("DataSet").toStdString();
    CheckTable(from.Element, chart.DataSet);
    chart.NameField = from.Attributes.Text("NameField", "Name").toStdString();
    chart.ValueField = from.Attributes.Text("ValueField", "Value").toStdString();
    chart.Filter = from.Attributes.Expression("Filter");
    for (const std::string& field : {chart.NameField, chart.ValueField}) {
        std::ignore = MakeExpression(QString::fromStdString(chart.DataSet + "." + field), from.Element.Place, FScope);
    }
}

} // namespace

TReportTemplate ReadTemplate(const std::string& fileName, const TExpressionScope& scope) {
    return TReader(scope).Read(fileName);
}

} // namespace report
