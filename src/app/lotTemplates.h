// SPDX-License-Identifier: GPL-3.0-or-later
//
// New projects: from the built-in sections, or from a template, which is a project file "*.ltt" in the templates
// folder. "default.ltt" replaces the built-in sections where they would be used.
#pragma once

#include "app/datProject.h"
#include "app/lotServices.h"

#include <cstdint>
#include <string>
#include <vector>

enum class TlotNewProject : std::uint8_t {
    Default,   ///< The built-in sections, or "default.ltt" over them.
    Template,  ///< A template was loaded.
    Refused,   ///< A template could not be loaded, as the user was told; the project is as it was.
    Cancelled, ///< No template was chosen; the project is as it was.
};

/// The names of the templates in the folder, sorted without regard to case; none if it cannot be listed.
[[nodiscard]] std::vector<std::string> ListTemplates(const std::string& folder);

/// Fills a project, which the caller has cleared: from the one template there is, from the chosen one of several, or
/// as NewDefault. A template's start date gives way to today, and its name is not kept. Throws as LoadProject.
TlotNewProject NewProject(TProjectData& data, const std::string& templatesFolder, const TlotClock& clock,
                          TlotTemplateChooser& chooser);

/// Fills a cleared project with the built-in sections; then, if it is there, with "default.ltt" in their place, begun
/// today. Throws as LoadProject.
void NewDefault(TProjectData& data, const std::string& templatesFolder, const TlotClock& clock);
