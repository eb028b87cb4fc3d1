// SPDX-License-Identifier: GPL-3.0-or-later
//
// How a struct of inputs tells its fields, once, in the order of the project file: its static VisitFields calls a
// visitor with each field's name and place. The reader and the writer of files are such visitors, and whatever else
// walks all fields of a thing: a field that is added is known to all of them.
//
// A place is a pointer to a member, or a function from an object to the field; FieldAt makes a reference of either.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <type_traits>
#include <utility>

/// The text form of a field in the project file, where its type doesn't say it all.
enum class TlotFieldForm : std::uint8_t {
    OfItsType,
    MixedCase, ///< A boolean that is written "True" or "False".
    Strict,    ///< A boolean whose text must be one.
    Date,      ///< Whole days in a real, "yyyy-mm-dd"; today where there is none.
    LoanMonth, ///< Months, which may lie before the project but not beyond the bounds of a file.
};

/// What is told of a field besides its place.
struct TlotFieldInfo {
    const char* Name; ///< Its attribute in the project file.
    double Since =
        0; ///< The version of files that brought it; what older ones say in its stead is the reader's matter.
    TlotFieldForm Form = TlotFieldForm::OfItsType;
    bool Cleared = false; ///< Begins afresh where a project is cleared; the others outlive it.
};

/// In place of a value for a file without the attribute: the field stays as it is.
struct TlotKeepAbsent {};

/// The field of an object at a place.
template <class Object, class Place> [[nodiscard]] decltype(auto) FieldAt(Object& object, Place place) {
    return std::invoke(place, object);
}

/// The kind of what stands at a place.
template <class Object, class Place>
using TlotFieldType = std::remove_cvref_t<decltype(FieldAt(std::declval<Object&>(), std::declval<Place>()))>;
