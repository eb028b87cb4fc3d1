// SPDX-License-Identifier: GPL-3.0-or-later
//
// The computed project as JSON, for scripts. Names and their order are fixed; numbers read back as the same doubles.
#pragma once

#include "model/lotProject.h"

#include <nlohmann/json.hpp>

[[nodiscard]] nlohmann::ordered_json ProjectJson(const TlotProject& project);

/// As text on one line; text in the project that is no sound UTF-8 is shown with replacement characters.
[[nodiscard]] std::string JsonText(const nlohmann::ordered_json& json);
