// SPDX-License-Identifier: GPL-3.0-or-later
//
// The two walks over a table of keys: a settings struct lists its keys once, as calls of a visitor with section, key
// and field, and is read by the one and written by the other.
#pragma once

#include "persistence/lotIniFile.h"

#include <concepts>
#include <cstdint>
#include <string>
#include <type_traits>

/// Takes each field from the file, or leaves it as it is where the file has nothing fit for it.
class TlotKeyReader {
public:
    TlotKeyReader(const TlotIniFile& file, const TNumberLocale& locale) : FFile(file), FLocale(locale) {}

    void operator()(const char* section, const char* key, std::string& field) const {
        field = FFile.Text(section, key, field);
    }
    void operator()(const char* section, const char* key, double& field) const {
        field = FFile.Number(section, key, field, FLocale);
    }
    void operator()(const char* section, const char* key, std::int32_t& field) const {
        field = FFile.Integer(section, key, field);
    }
    void operator()(const char* section, const char* key, bool& field) const {
        field = FFile.Boolean(section, key, field);
    }
    /// An enumeration by its number, from 0 to `last`.
    template <class Enum>
    requires std::is_enum_v<Enum>
    void operator()(const char* section, const char* key, Enum& field, Enum last) const {
        const std::int32_t number = FFile.Integer(section, key, -1);
        if (number >= 0 && number <= static_cast<std::int32_t>(last)) {
            field = static_cast<Enum>(number);
        }
    }

private:
    const TlotIniFile& FFile;
    const TNumberLocale& FLocale;
};

/// Puts each field into the file.
class TlotKeyWriter {
public:
    TlotKeyWriter(TlotIniFile& file, const TNumberLocale& locale) : FFile(file), FLocale(locale) {}

    void operator()(const char* section, const char* key, const std::string& field) const {
        FFile.SetText(section, key, field);
    }
    void operator()(const char* section, const char* key, double field) const {
        FFile.SetNumber(section, key, field, FLocale);
    }
    void operator()(const char* section, const char* key, std::int32_t field) const {
        FFile.SetInteger(section, key, field);
    }
    void operator()(const char* section, const char* key, std::same_as<bool> auto field) const {
        FFile.SetBoolean(section, key, field);
    }
    template <class Enum>
    requires std::is_enum_v<Enum>
    void operator()(const char* section, const char* key, Enum field, Enum) const {
        FFile.SetInteger(section, key, static_cast<std::int32_t>(field));
    }

private:
    TlotIniFile& FFile;
    const TNumberLocale& FLocale;
};
