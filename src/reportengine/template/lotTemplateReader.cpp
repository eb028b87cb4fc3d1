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
#include <utility>

namespace report {

namespace {

constexpr double MostPoints = 200;

class TReader {
public:
    explicit TReader(const TExpressionScope& scope) : FScope(scope) {}

    TReportTemplate Read(const std::string& fileName);

private:
    TTemplatePage ReadPage(const TTemplateElement& element);
    TTemplateBand ReadBand(const TTemplateElement& element, TBandKind kind);
    void ReadDataBand(const TTemplateElement& element, TTemplateBand& band);
    bool ReadInnerBand(const TTemplateElement& child, TTemplateBand& band);
    TTemplateObject ReadObject(const TTemplateElement& element, TItemKind kind);
    void ReadText(const TTemplateElement& element, TAttributes& attributes, TTemplateObject& object);
    static void ReadPicture(const TTemplateElement& element, TAttributes& attributes, TTemplateObject& object);
    void ReadChart(const TTemplateElement& element, TAttributes& attributes, TTemplateObject& object);
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

constexpr std::pair<const char*, TItemKind> Objects[] = {
    {"Text", TItemKind::Text},       {"Line", TItemKind::Line},         {"Box", TItemKind::Box},
    {"Picture", TItemKind::Picture}, {"Gradient", TItemKind::Gradient}, {"Chart", TItemKind::Chart},
};

template <typename T> const T* FindWord(std::span<const std::pair<const char*, T>> words, const QString& word) {
    const auto found = std::ranges::find_if(words, [&](const auto& row) { return word == QLatin1String(row.first); });
    return found == words.end() ? nullptr : &found->second;
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
        if (const TItemKind* const object = FindWord<TItemKind>(Objects, child.Name)) {
            band.Objects.push_back(ReadObject(child, *object));
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

TTemplateObject TReader::ReadObject(const TTemplateElement& element, TItemKind kind) {
    TAttributes attributes(element, FScope, StyleOf(element));
    TTemplateObject object;
    object.Kind = kind;
    object.Place = element.Place;
    object.Name = attributes.Text("Name");
    std::ignore = attributes.Find("Style");
    const double least = kind == TItemKind::Line ? -2000 : 0;
    object.Rect = {attributes.Length("Left", 0, -2000), attributes.Length("Top", 0, -2000),
                   attributes.Length("Width", 0, least), attributes.Length("Height", 0, least)};
    object.Anchor = attributes.Choice<TAnchor>(
        "Anchor", TAnchor::Top, {{"Top", TAnchor::Top}, {"Bottom", TAnchor::Bottom}, {"Stretch", TAnchor::Stretch}});
    object.Visible = attributes.Expression("Visible");
    object.Look.Align =
        attributes.Choice<TAlign>("Align", kind == TItemKind::Picture ? TAlign::Centre : TAlign::Left,
                                  {{"Left", TAlign::Left}, {"Centre", TAlign::Centre}, {"Right", TAlign::Right}});
    object.Look.VAlign =
        attributes.Choice<TVAlign>("VAlign", kind == TItemKind::Picture ? TVAlign::Centre : TVAlign::Top,
                                   {{"Top", TVAlign::Top}, {"Centre", TVAlign::Centre}, {"Bottom", TVAlign::Bottom}});
    object.Fill = attributes.Colour("Fill", 0, &object.FillExpression);
    if (kind == TItemKind::Line || kind == TItemKind::Box) {
        object.Stroke = attributes.Colour("Stroke", kind == TItemKind::Line ? 0xFF000000 : 0);
        object.StrokeWidth = attributes.Number("StrokeWidth", 0.5, 0, MostPoints) * TwipsPerPoint;
    }
    if (kind == TItemKind::Text || kind == TItemKind::Chart) {
        ReadText(element, attributes, object);
    }
    if (kind == TItemKind::Chart) {
        ReadChart(element, attributes, object);
    }
    if (kind == TItemKind::Picture) {
        ReadPicture(element, attributes, object);
    }
    attributes.Finish();
    if (!element.Children.empty()) {
        RefuseElement(element.Children.front(), element);
    }
    return object;
}

void TReader::ReadText(const TTemplateElement& element, TAttributes& attributes, TTemplateObject& object) {
    object.Look.Size = attributes.Number("Size", 9, 1, MostPoints);
    object.Look.Bold = attributes.Boolean("Bold", false);
    object.Look.Italic = attributes.Boolean("Italic", false);
    object.Look.Colour = attributes.Colour("Colour", 0xFF000000);
    object.Look.LineSpacing = attributes.Number("LineSpacing", 1.35, 0.5, 5);
    object.Wrap = attributes.Boolean("Wrap", object.Look.Align != TAlign::Right);
    object.Collapse = attributes.Boolean("Collapse", false);
    object.Across = attributes.Text("Across").toStdString();
    object.Pitch = attributes.Length("Pitch", 0);
    if (!object.Across.empty()) {
        CheckTable(element, object.Across);
    }
    if (object.Rect.height() == 0) {
        object.Rect.setHeight(object.Look.Size * object.Look.LineSpacing * TwipsPerPoint);
    }
    const QString format = attributes.Text("Format");
    object.Parts = ParseText(element.Text, format, element.Place, FScope);
}

/// A picture of the template's own, from the folder of its file.
void TReader::ReadPicture(const TTemplateElement& element, TAttributes& attributes, TTemplateObject& object) {
    const QString file = attributes.Text("File");
    if (file.isEmpty()) {
        return;
    }
    const std::filesystem::path folder = std::filesystem::path(*element.Place.File).parent_path();
    try {
        object.Picture = LoadPicture((folder / QFile::encodeName(file).toStdString()).string());
    } catch (const ELotError& error) {
        FailAt(element.Place, QString::fromUtf8(error.what()));
    }
}

void TReader::ReadChart(const TTemplateElement& element, TAttributes& attributes, TTemplateObject& object) {
    object.DataSet = attributes.Text("DataSet").toStdString();
    CheckTable(element, object.DataSet);
    object.NameField = attributes.Text("NameField", "Name").toStdString();
    object.ValueField = attributes.Text("ValueField", "Value").toStdString();
    object.Filter = attributes.Expression("Filter");
    for (const std::string& field : {object.NameField, object.ValueField}) {
        std::ignore = MakeExpression(QString::fromStdString(object.DataSet + "." + field), element.Place, FScope);
    }
}

} // namespace

TReportTemplate ReadTemplate(const std::string& fileName, const TExpressionScope& scope) {
    return TReader(scope).Read(fileName);
}

} // namespace report
