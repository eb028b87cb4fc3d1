// SPDX-License-Identifier: GPL-3.0-or-later
#include "reportengine/template/lotTemplateXml.h"

#include "common/vipErrors.h"

#include <QFile>
#include <QXmlStreamReader>
#include <algorithm>
#include <filesystem>

namespace report {

namespace {

constexpr qint64 MostBytes = 4 * 1024 * 1024;
constexpr int MostDepth = 16;
constexpr int MostIncludes = 8;

class TXmlTree {
public:
    TTemplateElement Read(const std::string& fileName, int includes, const TTemplatePlace* asker);

private:
    void ReadChildren(QXmlStreamReader& xml, TTemplateElement& element, int depth, int includes);
    void Include(TTemplateElement& parent, const TTemplateElement& include, int includes);

    qint64 FBytes = 0;
};

TTemplateElement TXmlTree::Read(const std::string& fileName, int includes, const TTemplatePlace* asker) {
    const TTemplatePlace start{std::make_shared<const std::string>(fileName), 1};
    QFile file(QFile::decodeName(fileName.c_str()));
    if (!std::filesystem::is_regular_file(fileName) || !file.open(QIODevice::ReadOnly)) {
        const QString what = "The template cannot be read: " + file.fileName();
        if (asker != nullptr) {
            FailAt(*asker, what);
        }
        throw ELotError(fileName + ": The report template cannot be read.");
    }
    FBytes += file.size();
    if (FBytes > MostBytes) {
        FailAt(start, "The template is too large.");
    }
    QXmlStreamReader xml(&file);
    TTemplateElement root;
    root.Place = start;
    if (xml.readNextStartElement()) {
        root.Name = xml.name().toString();
        root.Place.Line = static_cast<int>(xml.lineNumber());
        for (const QXmlStreamAttribute& attribute : xml.attributes()) {
            root.Attributes.emplace_back(attribute.name().toString(), attribute.value().toString());
        }
        ReadChildren(xml, root, 0, includes);
    }
    while (!xml.atEnd()) {
        xml.readNext(); // What follows the root can still be wrong.
    }
    if (xml.hasError()) {
        FailAt({start.File, static_cast<int>(xml.lineNumber())}, xml.errorString());
    }
    return root;
}

void TXmlTree::ReadChildren(QXmlStreamReader& xml, TTemplateElement& element, int depth, int includes) {
    if (depth > MostDepth) {
        FailAt(element.Place, "Elements are nested too deep.");
    }
    while (!xml.atEnd()) {
        const QXmlStreamReader::TokenType token = xml.readNext();
        if (token == QXmlStreamReader::EndElement || token == QXmlStreamReader::Invalid) {
            break;
        }
        if (token == QXmlStreamReader::Characters) {
            element.Text += xml.text();
        } else if (token == QXmlStreamReader::StartElement) {
            TTemplateElement child;
            child.Name = xml.name().toString();
            child.Place = {element.Place.File, static_cast<int>(xml.lineNumber())};
            for (const QXmlStreamAttribute& attribute : xml.attributes()) {
                child.Attributes.emplace_back(attribute.name().toString(), attribute.value().toString());
            }
            ReadChildren(xml, child, depth + 1, includes);
            if (child.Name == "Include") {
                Include(element, child, includes);
            } else {
                element.Children.push_back(std::move(child));
            }
        }
    }
    element.Text = element.Text.trimmed();
}

void TXmlTree::Include(TTemplateElement& parent, const TTemplateElement& include, int includes) {
    if (include.Attributes.size() != 1 || include.Attributes.front().first != "File") {
        FailAt(include.Place, "<Include> needs the attribute File and no other.");
    }
    if (includes >= MostIncludes) {
        FailAt(include.Place, "Templates include each other too deep.");
    }
    const std::filesystem::path folder = std::filesystem::path(*include.Place.File).parent_path();
    const std::string name = QFile::encodeName(include.Attributes.front().second).toStdString();
    TTemplateElement part = Read((folder / name).lexically_normal().string(), includes + 1, &include.Place);
    std::ranges::move(part.Children, std::back_inserter(parent.Children));
}

} // namespace

void FailAt(const TTemplatePlace& place, const QString& what) {
    throw ELotError(*place.File + ", line " + std::to_string(place.Line) + ": " + what.toStdString());
}

TTemplateElement ReadTemplateXml(const std::string& fileName) {
    return TXmlTree().Read(fileName, 0, nullptr);
}

} // namespace report
