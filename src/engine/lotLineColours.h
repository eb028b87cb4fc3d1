// SPDX-License-Identifier: GPL-3.0-or-later
//
// The colours by which the kinds of lines are told apart, in sheets and timescales alike.
#pragma once

#include <cstdint>

struct TlotLineColour {
    std::uint8_t Index; ///< In a sheet's palette: TlotCashflowItem::Colour.
    std::uint32_t Rgb;  ///< 0xRRGGBB: TlotCashflowItem::BarColour, and what the palette shows.
};

namespace LineColours {
inline constexpr TlotLineColour Build{39, 0xFFCC99};
inline constexpr TlotLineColour Rent{23, 0xA6CAF0};
inline constexpr TlotLineColour Sales{34, 0xC0DCC0};
inline constexpr TlotLineColour Costs{19, 0xCCFFFF}; ///< Items, and the site value.
} // namespace LineColours
