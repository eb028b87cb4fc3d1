// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/lotWriter.h"

#include "persistence/lotAtomicFile.h"
#include "persistence/lotProjectWriter.h"

#include <utility>

void TlotWriter::Write(TlotProject& project) {
    FDocument.reset();
    pugi::xml_node declaration = FDocument.append_child(pugi::node_declaration);
    declaration.append_attribute("version").set_value("1.0");
    declaration.append_attribute("encoding").set_value("UTF-8");
    TlotElementWriter root(FDocument.append_child("Lotmaster"), FLocale);
    root.Text("Version", "13");
    WriteProject(root.AddChild("Project"), project);
}

std::string TlotWriter::ToText() const {
    struct TText : pugi::xml_writer {
        std::string Content;
        void write(const void* data, std::size_t size) override {
            Content.append(static_cast<const char*>(data), size);
        }
    } text;
    FDocument.save(text, "  ", pugi::format_indent, pugi::encoding_utf8);
    return std::move(text.Content);
}

bool TlotWriter::SaveToFile(const std::string& fileName) const {
    WriteFileAtomically(fileName, ToText());
    return true;
}
