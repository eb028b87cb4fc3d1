// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/lotReader.h"

#include "common/vipErrors.h"
#include "common/vipText.h"
#include "persistence/lotProjectReader.h"
#include "persistence/lotXmlFile.h"

#include <cmath>

namespace {

/// The newest version that this program understands.
constexpr double NewestVersion = 13;

/// A version is a decimal of four places, always with "."; text that is no number counts as 0, the oldest kind.
double ParseVersion(std::string_view text) {
    const std::optional<double> number = vip::PlainNumber(vip::Trim(text));
    return number ? std::round(*number * 10'000) / 10'000 : 0;
}

} // namespace

TlotReader::TlotReader(bool editionFlag, const TNumberLocale& locale, double today)
    : FEditionFlag(editionFlag), FLocale(locale), FToday(today) {}

bool TlotReader::LoadFromFile(const std::string& fileName) {
    FFileName = fileName;
    FMessage.clear();
    return LoadXmlFile(FDocument, fileName);
}

bool TlotReader::LoadFromMemory(std::string_view content, const std::string& name) {
    FFileName = name;
    FMessage.clear();
    return LoadXmlMemory(FDocument, content);
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
        // Read into a trial project first: a file that is refused half way must leave the open project as it was.
        TlotProject trial(FToday);
        TlotProjectReader(trial, version, FLocale, FToday).Read(node);
        project.Clear(FToday);
        TlotProjectReader(project, version, FLocale, FToday).Read(node);
    } catch (const ELotError& error) {
        throw EFileError(FFileName + ": " + error.what());
    }
    return true;
}
