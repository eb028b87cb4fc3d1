// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/lotReader.h"

#include "common/vipErrors.h"
#include "common/vipText.h"
#include "persistence/lotLimits.h"
#include "persistence/lotProjectReader.h"

#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace {

/// The newest version that this program understands.
constexpr double NewestVersion = 13;

/// A version is a decimal of four places, always with "."; text that is no number counts as 0, the oldest kind.
double ParseVersion(std::string_view text) {
    const std::optional<double> number = vip::PlainNumber(vip::Trim(text));
    return number ? std::round(*number * 10'000) / 10'000 : 0;
}

/// True for bytes that announce themselves as UTF-16 or UTF-32, in which NUL bytes are part of the letters.
bool IsWideEncoding(std::string_view content) {
    return content.size() >= 2 && (content.starts_with("\xFF\xFE") || content.starts_with("\xFE\xFF") ||
                                   content[0] == '\0' || content[1] == '\0');
}

/// Every text sound UTF-8 and no nesting beyond the bounds; a walk of its own, since the parser checks neither.
bool IsSound(pugi::xml_document& document) {
    struct TCheck : pugi::xml_tree_walker {
        bool for_each(pugi::xml_node& node) override {
            bool sound =
                depth() <= lotLimits::Nesting && vip::IsValidUtf8(node.name()) && vip::IsValidUtf8(node.value());
            for (const pugi::xml_attribute attribute : node.attributes()) {
                sound = sound && vip::IsValidUtf8(attribute.name()) && vip::IsValidUtf8(attribute.value());
            }
            return sound;
        }
    } check;
    return document.traverse(check);
}

int RootCount(const pugi::xml_document& document) {
    int count = 0;
    for (const pugi::xml_node child : document.children()) {
        count += child.type() == pugi::node_element ? 1 : 0;
    }
    return count;
}

} // namespace

TlotReader::TlotReader(bool editionFlag, const TNumberLocale& locale, double today)
    : FEditionFlag(editionFlag), FLocale(locale), FToday(today) {}

bool TlotReader::LoadFromFile(const std::string& fileName) {
    std::error_code error;
    const auto size = std::filesystem::file_size(fileName, error);
    if (error || size > lotLimits::FileBytes) {
        return false;
    }
    std::ifstream file(fileName, std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    return !file.bad() && content.size() == size && LoadFromMemory(content, fileName);
}

bool TlotReader::LoadFromMemory(std::string_view content, const std::string& name) {
    FFileName = name;
    FMessage.clear();
    if (!IsWideEncoding(content) && content.find('\0') != std::string_view::npos) {
        return false;
    }
    const pugi::xml_parse_result result = FDocument.load_buffer(content.data(), content.size());
    return result && RootCount(FDocument) == 1 && IsSound(FDocument);
}

bool TlotReader::Read(TlotProject& project) {
    const pugi::xml_node root = FDocument.document_element();
    const std::string versionText = root.attribute("Version").value();
    const double version = ParseVersion(versionText);
    if (version > NewestVersion) {
        FMessage = "This file was created by a more recent version (" + versionText +
                   ") of Lotmaster.\r\n\r\nPlease contact Tarvane for an upgrade.";
        return false;
    }
    const pugi::xml_node node = root.child("Project");
    if (node.empty()) {
        return false;
    }
    try {
        // Whatever is wrong in the file shows on a project of no account first.
        TlotProject trial(FToday);
        TlotProjectReader(trial, version, FLocale, FToday).Read(node);
        project.Clear(FToday);
        TlotProjectReader(project, version, FLocale, FToday).Read(node);
    } catch (const ELotError& error) {
        throw EFileError(FFileName + ": " + error.what());
    }
    return true;
}
