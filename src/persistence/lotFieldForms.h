// SPDX-License-Identifier: GPL-3.0-or-later
//
// The two walks over the fields of an object (common/lotFields.h): each attribute is read by the one and written by the
// other, in the text form of its type.
#pragma once

#include "common/lotFields.h"
#include "common/vipDate.h"
#include "common/vipErrors.h"
#include "common/vipSADouble.h"
#include "persistence/lotReadContext.h"
#include "persistence/lotXml.h"

#include <cstdint>
#include <string>
#include <type_traits>

/// Takes each field from an element. A field that came with a later version than the file's stays as it is; one that is
/// absent takes the value told for that, or else what its type reads out of an empty text.
template <class Object> class TlotFieldReader {
public:
    TlotFieldReader(const TlotReadContext& context, const TlotElement& element, Object& object)
        : FContext(context), FElement(element), FObject(object) {}

    template <class Place> void operator()(const TlotFieldInfo& field, Place place) const {
        // A file may say that it is older than the first version: what has always been there is read all the same.
        if (field.Since == 0 || FContext.Version >= field.Since) {
            Read(field, FieldAt(FObject, place));
        }
    }
    template <class Place, class Absent>
    void operator()(const TlotFieldInfo& field, Place place, const Absent& absent) const {
        if (FElement.Has(field.Name)) {
            (*this)(field, place);
        } else if constexpr (!std::is_same_v<Absent, TlotKeepAbsent>) {
            FieldAt(FObject, place) = absent;
        }
    }

private:
    void Read(const TlotFieldInfo& field, std::string& text) const { text = FElement.Text(field.Name); }
    void Read(const TlotFieldInfo& field, double& number) const {
        number = field.Form == TlotFieldForm::Date ? Date(field) : FElement.Number(field.Name);
    }
    void Read(const TlotFieldInfo& field, TSADouble& number) const { number.Value = FElement.Number(field.Name); }
    void Read(const TlotFieldInfo& field, std::int32_t& number) const {
        number = field.Form == TlotFieldForm::LoanMonth ? FContext.LoanMonth(FElement, field.Name)
                                                        : FElement.Integer(field.Name);
    }
    void Read(const TlotFieldInfo& field, bool& flag) const {
        flag = field.Form == TlotFieldForm::Strict ? FElement.StrictBoolean(field.Name) : FElement.Boolean(field.Name);
    }
    template <class Enum>
    requires std::is_enum_v<Enum>
    void Read(const TlotFieldInfo& field, Enum& value) const { value = FElement.Enumeration<Enum>(field.Name); }

    [[nodiscard]] double Date(const TlotFieldInfo& field) const {
        const std::string text = FElement.Text(field.Name);
        try {
            const double date = vip::DateFromFile(text);
            return date == 0 ? FContext.Today : date;
        } catch (const EConvertError& error) {
            throw EConvertError(FElement.Place() + ", " + field.Name + ": '" + text + "': " + error.what());
        }
    }

    const TlotReadContext& FContext;
    const TlotElement& FElement;
    Object& FObject;
};

/// Puts each field into an element.
template <class Object> class TlotFieldWriter {
public:
    TlotFieldWriter(TlotElementWriter& element, const Object& object) : FElement(element), FObject(object) {}

    template <class Place, class... Absent>
    void operator()(const TlotFieldInfo& field, Place place, const Absent&... /*absent*/) const {
        Write(field, FieldAt(FObject, place));
    }

private:
    void Write(const TlotFieldInfo& field, const std::string& text) const { FElement.Text(field.Name, text); }
    void Write(const TlotFieldInfo& field, const double& number) const {
        if (field.Form == TlotFieldForm::Date) {
            FElement.Text(field.Name, vip::DateToFile(number));
        } else {
            FElement.Number(field.Name, number);
        }
    }
    void Write(const TlotFieldInfo& field, const TSADouble& number) const { FElement.Number(field.Name, number.Value); }
    void Write(const TlotFieldInfo& field, const std::int32_t& number) const { FElement.Integer(field.Name, number); }
    void Write(const TlotFieldInfo& field, const bool& flag) const {
        if (field.Form == TlotFieldForm::MixedCase) {
            FElement.MixedCaseBoolean(field.Name, flag);
        } else {
            FElement.Boolean(field.Name, flag);
        }
    }
    template <class Enum>
    requires std::is_enum_v<Enum>
    void Write(const TlotFieldInfo& field, const Enum& value) const { FElement.Enumeration(field.Name, value); }

    TlotElementWriter& FElement;
    const Object& FObject;
};

/// Reads all fields of the object out of the element's attributes.
template <class Object> void ReadFields(const TlotReadContext& context, const TlotElement& element, Object& object) {
    Object::VisitFields(TlotFieldReader<Object>(context, element, object));
}

/// Writes all fields of the object as attributes of the element.
template <class Object> void WriteFields(TlotElementWriter& element, const Object& object) {
    Object::VisitFields(TlotFieldWriter<Object>(element, object));
}
