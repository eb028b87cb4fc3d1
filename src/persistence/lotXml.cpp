// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/lotXml.h"

#include "common/vipErrors.h"
#include "common/vipText.h"
#include "persistence/lotLimits.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace {

std::optional<bool> ReadBoolean(std::string_view text) {
    if (vip::SameText(text, "true")) {
        return true;
    }
    if (vip::SameText(text, "false")) {
        return false;
    }
    const std::optional<double> number = vip::PlainNumber(vip::Trim(text));
    return number ? std::optional(*number != 0) : std::nullopt;
}

} // namespace

bool TlotElement::Is(std::string_view name) const {
    return vip::SameText(FNode.name(), name);
}

std::string TlotElement::Text(const char* name, const char* absent) const {
    return FNode.attribute(name).as_string(absent);
}

double TlotElement::Number(const char* name) const {
    return vip::FileNumber(FNode.attribute(name).value(), FLocale);
}

double TlotElement::Number(const char* name, double absent) const {
    return Has(name) ? Number(name) : absent;
}

std::int32_t TlotElement::Integer(const char* name) const {
    const double whole = std::trunc(Number(name));
    constexpr double least = std::numeric_limits<std::int32_t>::min();
    constexpr double most = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::clamp(whole, least, most));
}

std::int32_t TlotElement::Integer(const char* name, std::int32_t absent) const {
    return Has(name) ? Integer(name) : absent;
}

bool TlotElement::Boolean(const char* name) const {
    return ReadBoolean(FNode.attribute(name).value()).value_or(false);
}

bool TlotElement::Boolean(const char* name, bool absent) const {
    return Has(name) ? Boolean(name) : absent;
}

bool TlotElement::StrictBoolean(const char* name) const {
    if (!Has(name)) {
        return false;
    }
    const std::optional<bool> value = ReadBoolean(FNode.attribute(name).value());
    if (!value) {
        throw EConvertError(Place() + ", " + name + ": '" + Text(name) + "' is not a valid boolean value");
    }
    return *value;
}

int TlotElement::Month(const char* name) const {
    const std::int32_t value = Integer(name);
    if (value < 0 || value > lotLimits::Months) {
        throw EFileError(Place() + ", " + name + ": " + std::to_string(value) + " is not within 0 to " +
                         std::to_string(lotLimits::Months) + " months");
    }
    return value;
}

double TlotElement::NumberText() const {
    return vip::FileNumber(vip::Trim(Content()), FLocale);
}

std::string TlotElement::Content() const {
    std::string text;
    for (const pugi::xml_node child : FNode.children()) {
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) {
            text += child.value();
        }
    }
    return text;
}

std::string TlotElement::Place() const {
    std::string place;
    for (pugi::xml_node node = FNode; node && node.parent().parent(); node = node.parent()) {
        int number = 1;
        bool alone = node.next_sibling(node.name()).empty();
        for (auto before = node.previous_sibling(node.name()); before; before = before.previous_sibling(node.name())) {
            ++number;
            alone = false;
        }
        const std::string step = alone ? node.name() : node.name() + (" " + std::to_string(number));
        place = place.empty() ? step : step + "/" + place;
    }
    return place;
}
