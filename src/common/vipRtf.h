// SPDX-License-Identifier: GPL-3.0-or-later
//
// A reader of small rich texts (.rtf), such as the description of a variable: its paragraphs, and what is bold in them.
// Fonts, sizes, colours and pictures are passed over, the cells of a table are parted by tabs. The files are a firm's
// own and may hold anything: reading is bounded, never throws on what stands in them, and gives what it understood.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// A piece of a paragraph in UTF-8. A line break in a paragraph is "\n", a tab "\t".
struct TRtfRun {
    std::string Text;
    bool Bold = false;

    friend bool operator==(const TRtfRun&, const TRtfRun&) = default;
};

/// Neighbours differ in their look; an empty paragraph has no runs.
using TRtfParagraph = std::vector<TRtfRun>;

namespace vip {

inline constexpr std::size_t MostRtfBytes = std::size_t{256} * 1024; ///< What follows is not read.
inline constexpr int MostRtfLevels = 64;                             ///< Groups nested deeper are passed over.

/// The paragraphs of `rtf`; none if it does not begin as such a text does.
[[nodiscard]] std::vector<TRtfParagraph> ReadRtf(std::string_view rtf);

} // namespace vip
