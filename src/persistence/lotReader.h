// SPDX-License-Identifier: GPL-3.0-or-later
//
// Reads a project file of any version into a project. A reader lives for one load. A file that is refused, for its
// version or for what stands in it, leaves the project as it was.
#pragma once

#include "common/vipNumber.h"
#include "model/lotProject.h"

#include <pugixml.hpp>

#include <string>
#include <string_view>

class TlotReader {
public:
    /// `editionFlag` marks the hand-held edition. `today` is the date that stands in for an absent start date.
    TlotReader(bool editionFlag, const TNumberLocale& locale, double today);

    /// Reads and parses the file; false if it cannot be read, is no well-formed XML of sound text, or is larger or
    /// nested deeper than lotLimits allow.
    [[nodiscard]] bool LoadFromFile(const std::string& fileName);
    /// The same from memory; `name` stands for the file in messages.
    [[nodiscard]] bool LoadFromMemory(std::string_view content, const std::string& name);

    [[nodiscard]] std::string RootName() const { return FDocument.document_element().name(); }
    [[nodiscard]] bool EditionFlag() const noexcept { return FEditionFlag; }
    /// The document, which the sensitivity settings are read from too.
    [[nodiscard]] const pugi::xml_document& Document() const noexcept { return FDocument; }

    /// Clears the project and fills it from the document. False, with `Message` to be shown as an information, for a
    /// file of a newer version; false with no message where there is no Project element. Throws EFileError naming file
    /// and element for what cannot be read. In all these cases the project is as it was.
    [[nodiscard]] bool Read(TlotProject& project);
    [[nodiscard]] const std::string& Message() const noexcept { return FMessage; }

private:
    bool FEditionFlag = false;
    TNumberLocale FLocale;
    double FToday = 0;
    std::string FFileName;
    pugi::xml_document FDocument;
    std::string FMessage;
};
