// SPDX-License-Identifier: GPL-3.0-or-later
//
// The container of binary office files: a file system in a file, here with the one stream that a workbook needs.
#pragma once

#include <string>
#include <string_view>

/// The file that holds `stream` under that name (ASCII, up to 31 letters).
[[nodiscard]] std::string CompoundFile(std::string_view streamName, std::string stream);
