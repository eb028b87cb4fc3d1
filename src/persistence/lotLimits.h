// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a file may ask for. Generous beside any scheme ever appraised, and small enough that a broken or hostile file
// cannot exhaust the machine.
#pragma once

#include <cstddef>

namespace lotLimits {

inline constexpr int Months = 12'000;                       ///< Largest month index, count of a value array, span.
inline constexpr int Objects = 100'000;                     ///< Units, areas, sections, items, loans and types in all.
inline constexpr double Cells = 20'000'000;                 ///< Months of all lines of a calculation together.
inline constexpr int Nesting = 64;                          ///< Depth of elements.
inline constexpr std::size_t FileBytes = 256 * 1024 * 1024; ///< Size of a file.

} // namespace lotLimits
