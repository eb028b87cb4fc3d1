// SPDX-License-Identifier: GPL-3.0-or-later
//
// The command line as a function, so that it can be run on any streams.
#pragma once

#include <iosfwd>

enum class TToolExit : int { Success = 0, Refused = 1, WrongUsage = 2 };

/// Runs one call. Results go to `out`, messages to `err`. Success, Refused where the input is refused or a calculation
/// ends in an error (one line on `err`), WrongUsage.
[[nodiscard]] TToolExit RunTool(int argc, const char* const* argv, std::ostream& out, std::ostream& err);
