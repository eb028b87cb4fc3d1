// SPDX-License-Identifier: GPL-3.0-or-later
//
// The attributes of one element in the text forms of project files, and the places that errors name.
#pragma once

#include "common/vipNumber.h"

#include <pugixml.hpp>

#include <cstdint>
#include <string>
#include <string_view>

/// Reads what an element holds. Text in a number never fails: what isn't understood is dropped.
class TlotElement {
public:
    TlotElement(pugi::xml_node node, const TNumberLocale& locale) : FNode(node), FLocale(locale) {}

    [[nodiscard]] pugi::xml_node Node() const noexcept { return FNode; }
    [[nodiscard]] const TNumberLocale& Locale() const noexcept { return FLocale; }
    [[nodiscard]] bool Is(std::string_view name) const; ///< Without regard to case.
    [[nodiscard]] bool Has(const char* name) const { return !FNode.attribute(name).empty(); }

    [[nodiscard]] std::string Text(const char* name) const { return FNode.attribute(name).value(); }
    [[nodiscard]] std::string Text(const char* name, const char* absent) const;
    [[nodiscard]] double Number(const char* name) const;
    [[nodiscard]] double Number(const char* name, double absent) const;
    /// The number cut towards zero, held within 32 bits.
    [[nodiscard]] std::int32_t Integer(const char* name) const;
    [[nodiscard]] std::int32_t Integer(const char* name, std::int32_t absent) const;
    /// An integer for a stored enumeration of 8 bits; what doesn't fit gives 255, which no enumeration knows.
    template <class Enum> [[nodiscard]] Enum Enumeration(const char* name) const {
        return static_cast<Enum>(ByteOf(Integer(name)));
    }
    /// "true" and "false" in any case, or a plain number that isn't 0; anything else is false.
    [[nodiscard]] bool Boolean(const char* name) const;
    [[nodiscard]] bool Boolean(const char* name, bool absent) const;
    /// The same, false where it is absent. Throws EConvertError, naming the place, for anything else.
    [[nodiscard]] bool StrictBoolean(const char* name) const;
    /// An integer of 0 to lotLimits::Months. Throws EFileError, naming the place, for any other.
    [[nodiscard]] int Month(const char* name) const;

    /// The number that is the element's text, trimmed.
    [[nodiscard]] double NumberText() const;
    /// All text of the element, its CDATA sections included.
    [[nodiscard]] std::string Content() const;

    /// Where the element stands, for messages: "Project/Unit 2/Build".
    [[nodiscard]] std::string Place() const;

private:
    [[nodiscard]] static std::uint8_t ByteOf(std::int32_t value) noexcept {
        return value < 0 || value > 255 ? std::uint8_t{255} : static_cast<std::uint8_t>(value);
    }

    pugi::xml_node FNode;
    const TNumberLocale& FLocale;
};

/// Writes attributes in the text forms of project files.
class TlotElementWriter {
public:
    TlotElementWriter(pugi::xml_node node, const TNumberLocale& locale) : FNode(node), FLocale(locale) {}

    [[nodiscard]] TlotElementWriter AddChild(const char* name) { return {FNode.append_child(name), FLocale}; }

    void Text(const char* name, const std::string& value) { FNode.append_attribute(name).set_value(value.c_str()); }
    void Number(const char* name, double value) { Text(name, vip::NumberToText(value, FLocale)); }
    void Integer(const char* name, int value) { FNode.append_attribute(name).set_value(value); }
    template <class Enum> void Enumeration(const char* name, Enum value) { Integer(name, static_cast<int>(value)); }
    void Boolean(const char* name, bool value) { Text(name, value ? "TRUE" : "FALSE"); }
    /// The other form of a boolean, "True" or "False".
    void MixedCaseBoolean(const char* name, bool value) { Text(name, value ? "True" : "False"); }
    void NumberText(double value) { FNode.text().set(vip::NumberToText(value, FLocale).c_str()); }
    void CData(std::string_view text) { FNode.append_child(pugi::node_cdata).set_value(std::string(text).c_str()); }

private:
    pugi::xml_node FNode;
    const TNumberLocale& FLocale;
};
