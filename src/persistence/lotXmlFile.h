// SPDX-License-Identifier: GPL-3.0-or-later
//
// Getting a document into memory whole, within bounds that the parser itself does not keep.
#pragma once

#include <pugixml.hpp>

#include <string>
#include <string_view>

/// Reads and parses the file. False if it cannot be read, is no well-formed XML of one root, holds text that is no
/// sound UTF-8, or is beyond the limits of size and nesting.
[[nodiscard]] bool LoadXmlFile(pugi::xml_document& document, const std::string& fileName);

/// The same from memory.
[[nodiscard]] bool LoadXmlMemory(pugi::xml_document& document, std::string_view content);
