// SPDX-License-Identifier: GPL-3.0-or-later
//
// Replacing a file as one step: whatever happens on the way, the old content or the new is there, whole.
#pragma once

#include <string>
#include <string_view>

/// True if the file exists and nobody may write to it.
[[nodiscard]] bool IsReadOnlyFile(const std::string& fileName);

/// Writes a new file beside `fileName`, flushes it to disk and renames it over. An existing file keeps its permissions;
/// a link keeps pointing at its target, which is what is replaced. Throws EFileError, naming the file, with the old
/// content untouched.
void WriteFileAtomically(const std::string& fileName, std::string_view content);
