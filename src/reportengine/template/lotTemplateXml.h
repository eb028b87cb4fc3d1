// SPDX-License-Identifier: GPL-3.0-or-later
//
// A template file as a tree of elements that know where they stand, so that whatever is wrong in one is told with its
// file and line. `<Include File="…"/>` takes in the children of another file's root, in its place.
#pragma once

#include <QString>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace report {

/// Where something stands in a template.
struct TTemplatePlace {
    std::shared_ptr<const std::string> File;
    int Line = 0;
};

/// Throws ELotError with the text "FILE, line N: what".
[[noreturn]] void FailAt(const TTemplatePlace& place, const QString& what);

struct TTemplateElement {
    QString Name;
    QString Text; ///< What stands between its tags, without the blanks of its first and last line.
    TTemplatePlace Place;
    std::vector<std::pair<QString, QString>> Attributes;
    std::vector<TTemplateElement> Children;
};

/// The root of the file. Throws ELotError, naming file and line, for a file that can't be read, is too large (4 MB with
/// all that it includes), is no XML, or nests or includes too deep.
[[nodiscard]] TTemplateElement ReadTemplateXml(const std::string& fileName);

} // namespace report
