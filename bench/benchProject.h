// SPDX-License-Identifier: GPL-3.0-or-later
//
// Schemes to measure on.
#pragma once

#include "model/lotProject.h"

#include <memory>
#include <string>

/// The text of a shipped example. Throws std::runtime_error if it isn't there.
[[nodiscard]] std::string ExampleText(const std::string& name);

/// A shipped example, read and computed once.
[[nodiscard]] std::unique_ptr<TlotProject> ExampleProject(const std::string& name);

/// A made-up scheme of about `lines` lines, each over all of `months` months: units, and costs of which every tenth
/// follows the shape of its base.
[[nodiscard]] std::unique_ptr<TlotProject> MadeProject(int lines, int months);
