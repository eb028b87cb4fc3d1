// SPDX-License-Identifier: GPL-3.0-or-later
//
// The display masks of figures, taken apart; `vip::FormatMask` shows a figure by one.
//
// A mask is up to three sections with ";" between them: for what is above zero, below it, and zero. A section is "0",
// with as many "0" behind a "." as decimals, between literal texts; a "," beside the literal in front asks for
// thousands: "£,0", ",-0.00", "(0.00%)". "#" is a section that shows nothing, as an empty one is where there are
// several; any other without "0" shows its literal alone. A mask of one section always shows the figure.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

/// The texts are parts of the mask and live as long as it does.
struct TMaskSection {
    std::string_view Before;
    std::string_view After;
    bool Digits = true; ///< The figure shows; else the text before it alone.
    bool Grouped = false;
    int Places = 0; ///< Decimals.
};

struct TMask {
    std::array<TMaskSection, 3> Sections; ///< Above zero, below zero, zero.
    std::size_t Count = 1;                ///< Of the sections given, 1 to 3.

    /// The section of a figure of that sign; where it has none of its own, the first.
    [[nodiscard]] const TMaskSection& Negative() const noexcept { return Sections.at(Count > 1 ? 1 : 0); }
    [[nodiscard]] const TMaskSection& Zero() const noexcept { return Sections.at(Count > 2 ? 2 : 0); }

    /// A "%" beside the digits of the first section: the figures are percent figures.
    [[nodiscard]] bool IsPercentage() const noexcept;
};

namespace vip {

/// Never fails; sections beyond the third are passed over.
[[nodiscard]] TMask ReadMask(std::string_view mask) noexcept;

} // namespace vip
