// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a template and the pages made of it have in common: lengths, the look of a text, the kinds of bands.
//
// Lengths are twips: 1/20 of a point, 1440 to the inch, doubles.
#pragma once

#include <QRgb>
#include <cstdint>

namespace report {

inline constexpr double TwipsPerPoint = 20;
inline constexpr double TwipsPerInch = 1440;
inline constexpr double TwipsPerMm = TwipsPerInch / 25.4;

enum class TAlign : std::uint8_t { Left, Centre, Right };
enum class TVAlign : std::uint8_t { Top, Centre, Bottom };

/// How a text looks.
struct TTextLook {
    double Size = 9; ///< Points.
    bool Bold = false;
    bool Italic = false;
    QRgb Colour = 0xFF000000;
    TAlign Align = TAlign::Left;
    TVAlign VAlign = TVAlign::Top;
    double LineSpacing = 1.25; ///< Distance of base lines, in sizes.

    friend bool operator==(const TTextLook&, const TTextLook&) = default;
};

enum class TBandKind : std::uint8_t {
    ReportTitle,
    PageHeader,
    PageFooter,
    MasterData,
    DetailData,
    Header, ///< Column heads above the rows of a data band.
    Footer, ///< Below its rows.
    GroupHeader,
    GroupFooter,
    Summary,
};

} // namespace report
