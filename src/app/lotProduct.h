// SPDX-License-Identifier: GPL-3.0-or-later
//
// What documents and messages say of the program that made them.
#pragma once

/// Where the program's installer is to be had.
inline constexpr const char* ProductWebAddress = "https://www.tarvane.example/lotmaster";
