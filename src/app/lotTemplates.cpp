// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/lotTemplates.h"

#include "app/lotFolders.h"
#include "common/vipText.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <system_error>

namespace fs = std::filesystem;

namespace {

constexpr std::string_view Extension = ".ltt";

std::string WithoutExtension(const std::string& name) {
    return name.substr(0, name.size() - Extension.size());
}

bool LoadTemplate(TProjectData& data, const std::string& fileName, const TlotClock& clock) {
    if (!data.LoadProject(fileName)) {
        return false;
    }
    data.Project().StartDate = clock.Today();
    return true;
}

} // namespace

std::vector<std::string> ListTemplates(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code unknown;
        const fs::path path = entry->path();
        if (vip::SameText(path.extension().string(), Extension) && entry->is_regular_file(unknown)) {
            names.push_back(path.filename().string());
        }
    }
    std::ranges::sort(names, [](const std::string& a, const std::string& b) {
        const int order = vip::CompareText(WithoutExtension(a), WithoutExtension(b));
        return order != 0 ? order < 0 : a < b;
    });
    return names;
}

TlotNewProject NewProject(TProjectData& data, const std::string& templatesFolder, const TlotClock& clock,
                          TlotTemplateChooser& chooser) {
    const std::vector<std::string> files = ListTemplates(templatesFolder);
    if (files.empty()) {
        NewDefault(data, templatesFolder, clock);
        return TlotNewProject::Default;
    }
    std::size_t chosen = 0;
    if (files.size() > 1) {
        std::vector<std::string> names;
        std::ranges::transform(files, std::back_inserter(names), WithoutExtension);
        const std::optional<std::size_t> choice = chooser.Choose(names);
        if (!choice) {
            return TlotNewProject::Cancelled;
        }
        chosen = *choice;
    }
    return LoadTemplate(data, WithSlash(templatesFolder) + files.at(chosen), clock) ? TlotNewProject::Template
                                                                                    : TlotNewProject::Refused;
}

void NewDefault(TProjectData& data, const std::string& templatesFolder, const TlotClock& clock) {
    data.BuildDefaultProject();
    // Looked for by listing first, since its letter case is free; a folder may also be closed to listing only.
    std::string name = "default.ltt";
    for (const std::string& file : ListTemplates(templatesFolder)) {
        if (vip::SameText(file, name)) {
            name = file;
            break;
        }
    }
    std::error_code error;
    if (const std::string file = WithSlash(templatesFolder) + name; fs::exists(file, error)) {
        LoadTemplate(data, file, clock);
    }
}
