// SPDX-License-Identifier: GPL-3.0-or-later
//
// Text helpers over UTF-8. Comparison "without regard to case" means: code point by code point, each folded as
// Unicode's simple case folding does in any country, so that the capital sharp s is the small one, but never "ss".
// Bytes that are no UTF-8 take part as the code points of their values, so any two texts compare. Nothing here
// allocates unless it returns a string.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vip {

/// The text without the blanks and control characters (1 to 32) at both ends.
[[nodiscard]] std::string_view Trim(std::string_view text) noexcept;

/// Negative, 0 or positive as `a` sorts before, with or after `b`, both in lower case, by code point.
[[nodiscard]] int CompareText(std::string_view a, std::string_view b) noexcept;

/// True if the two are one text when case is disregarded: where CompareText gives 0.
[[nodiscard]] bool SameText(std::string_view a, std::string_view b) noexcept;

/// The next code point of `text` from `position`, which is moved past it. A byte that is no UTF-8 stands for itself.
[[nodiscard]] char32_t NextCodePoint(std::string_view text, std::size_t& position) noexcept;

/// The form that all cases of a letter share, mostly its lower case (the final sigma gives the plain one); any other
/// code point as it is.
[[nodiscard]] char32_t LowerCodePoint(char32_t c) noexcept;

/// Adds `c` to `text` in UTF-8.
void AppendCodePoint(std::string& text, char32_t c);

/// True if the bytes are well-formed UTF-8 without NUL, surrogates or overlong forms.
[[nodiscard]] bool IsValidUtf8(std::string_view text) noexcept;

/// Every line break (CR LF, CR, LF) as CR LF, the form in which notes are held.
[[nodiscard]] std::string NormaliseLineBreaks(std::string_view text);

/// A plain number, "." as its separator, an exponent allowed; nothing if any other character stands in the text.
[[nodiscard]] std::optional<double> PlainNumber(std::string_view text) noexcept;

} // namespace vip
