// SPDX-License-Identifier: GPL-3.0-or-later
//
// Writes a project as a file of the present version. A writer lives for one save: Write builds the document, others may
// add to it, SaveToFile puts it on disk in one step.
#pragma once

#include "common/vipNumber.h"
#include "model/lotProject.h"

#include <pugixml.hpp>

#include <string>

class TlotWriter {
public:
    /// Numbers take the separators of `locale`.
    TlotWriter(bool editionFlag, const TNumberLocale& locale) : FEditionFlag(editionFlag), FLocale(locale) {}

    /// Builds the document. Lines are simplified on the way, which changes how a plain shape is held and not what it
    /// says.
    void Write(TlotProject& project);

    [[nodiscard]] pugi::xml_document& Document() noexcept { return FDocument; }
    [[nodiscard]] bool EditionFlag() const noexcept { return FEditionFlag; }

    /// The document as text.
    [[nodiscard]] std::string ToText() const;

    /// True whenever it ends. Throws EFileError, with an old file untouched, where the new one cannot be written.
    [[nodiscard]] bool SaveToFile(const std::string& fileName) const;

private:
    bool FEditionFlag = false;
    TNumberLocale FLocale;
    pugi::xml_document FDocument;
};
