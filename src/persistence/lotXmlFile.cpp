// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/lotXmlFile.h"

#include "common/vipText.h"
#include "persistence/lotLimits.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace {

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

bool LoadXmlFile(pugi::xml_document& document, const std::string& fileName) {
    std::error_code error;
    const auto size = std::filesystem::file_size(fileName, error);
    if (error || size > lotLimits::FileBytes) {
        return false;
    }
    std::ifstream file(fileName, std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    return !file.bad() && content.size() == size && LoadXmlMemory(document, content);
}

bool LoadXmlMemory(pugi::xml_document& document, std::string_view content) {
    if (!IsWideEncoding(content) && content.find('\0') != std::string_view::npos) {
        return false;
    }
    const pugi::xml_parse_result result = document.load_buffer(content.data(), content.size());
    return result && RootCount(document) == 1 && IsSound(document);
}
