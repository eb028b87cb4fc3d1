// SPDX-License-Identifier: GPL-3.0-or-later
//
// Small text files that people edit by hand and that older installations wrote: read whole, in whatever encoding they
// are, and handed on as sound UTF-8.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// The bytes of a settings file; empty where there is no such file. Throws EFileError, naming it, where it is there but
/// cannot be read, or is larger than any settings file is.
[[nodiscard]] std::string ReadTextFile(const std::string& fileName);

/// The lines, without their LF; a CR before it stays. The end of the last line makes no line of its own.
[[nodiscard]] std::vector<std::string> SplitLines(std::string_view content);

/// The text in UTF-8, without control characters. Bytes that are no UTF-8 are taken as Windows-1252, which settings
/// were once written in.
[[nodiscard]] std::string SoundText(std::string_view bytes);

/// The lines of a file as sound text; none where it is missing or cannot be read.
[[nodiscard]] std::vector<std::string> ReadTextLines(const std::string& fileName);

/// The length of the mark at the front that tells UTF-8: 3 or 0.
[[nodiscard]] std::size_t ByteOrderMarkSize(std::string_view content) noexcept;
