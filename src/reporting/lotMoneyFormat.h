// SPDX-License-Identifier: GPL-3.0-or-later
//
// The formats of figures in reports, one place for all of them. Two kinds of format text are known:
//
// - pictures ("0.000%", ",0", "0.0000"), which are vip::FormatMask's;
// - money formats "%2.Nm" and number formats "%2.Nn", which are thousand separators and N decimals. Money has one
//   unnamed currency, so the two kinds print alike: no currency sign, a "-" in front of a negative figure. The width in
//   front of the "." fills nothing up: a template aligns.
//
// Both round half away from zero on the shortest decimal form of the figure, and a figure that rounds to zero has no
// sign. N below 0 counts as 0, and above 20 as 20.
#pragma once

#include "common/vipNumber.h"

#include <string>
#include <string_view>

/// The picture that a format stands for: ",0.00" for "%2.2n" and "%2.2m"; a picture is its own. Throws ELotError for a
/// text with a "%" in front that is no money or number format.
[[nodiscard]] std::string PictureOf(std::string_view format);

/// `value` by a money or number format. Throws ELotError for a text that is neither.
[[nodiscard]] std::string FormatMoney(std::string_view format, double value, const TNumberLocale& locale);

/// `value` by either kind of format, as a table's format fields hold them; by none ("") as plain text.
[[nodiscard]] std::string FormatFigure(std::string_view format, double value, const TNumberLocale& locale);

/// "%2.Nn" for N decimals.
[[nodiscard]] std::string NumberFormat(int decimals);
