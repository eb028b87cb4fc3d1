// SPDX-License-Identifier: GPL-3.0-or-later
//
// Numbers as text: the tolerant parser for files and typed cells, the form in which files store numbers, and the one
// formatter of display masks. The separators always come in as a value, never from the process.
#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The two separators of a user's locale.
struct TNumberLocale {
    char32_t Decimal = U'.';
    char32_t Thousand = U',';

    friend bool operator==(const TNumberLocale&, const TNumberLocale&) = default;
};

namespace vip {

/// Reads a number out of any text, under either separator convention; text without digits gives 0, and so does a text
/// in which two decimal separators remain once thousands are joined. Brackets, blanks and currency signs are dropped: a
/// leading "-" makes a negative number, brackets do not.
[[nodiscard]] double StrToNumber(std::string_view text, const TNumberLocale& locale);

/// As `StrToNumber`, for text that a program wrote: writers never group digits, so where exactly one character out of
/// ".", "," and the locale's two separators stands in the text, it is the decimal separator whatever the locale.
[[nodiscard]] double FileNumber(std::string_view text, const TNumberLocale& locale);

/// The shortest plain text of up to 15 significant digits, never an exponent; "0" for a zero of either sign and for
/// what is no number.
[[nodiscard]] std::string NumberToText(double value, const TNumberLocale& locale);

/// The shortest plain text that reads back (StrToNumber, same locale) as the same number to the last bit, never an
/// exponent; "0" as above. For figures that are copied to other programs.
[[nodiscard]] std::string NumberToFullText(double value, const TNumberLocale& locale);

/// `value` by a mask (common/vipMask.h): ",0", "0.000%", "£,0;-£,0", ",0.00;,-0.00;#". Rounds half away from zero on
/// the shortest decimal form of the figure. A figure that rounds to zero shows as a zero does: by the third section if
/// there is one, else by the first, without a sign. A negative figure has "-" in front, unless its own section says
/// otherwise.
[[nodiscard]] std::string FormatMask(std::string_view mask, double value, const TNumberLocale& locale);

/// The mask while the figure is edited: the digits of the first section alone. "0.00" for ",0.00;,-0.00;#".
[[nodiscard]] std::string EditMask(std::string_view mask);

/// The separators of a locale name ("de_DE", "fr-CH.UTF-8", "C"); nothing if the name isn't known.
[[nodiscard]] std::optional<TNumberLocale> FindNumberLocale(std::string_view name);

/// The separators of the first known name among LC_ALL, LC_NUMERIC and LANG as given; the plain ones if there is none.
[[nodiscard]] TNumberLocale EnvironmentNumberLocale();

} // namespace vip
