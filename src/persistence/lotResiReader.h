// SPDX-License-Identifier: GPL-3.0-or-later
//
// Imports a residual file (.resi): a simpler description of a scheme by sectors, build types, builds and costs. It
// becomes a new project with the standard sections; such a file is never written.
#pragma once

#include "common/vipNumber.h"
#include "model/lotProject.h"
#include "persistence/lotXml.h"

#include <pugixml.hpp>

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A 128-bit identifier; the zero one stands for a missing one.
using TlotResiId = std::array<std::uint8_t, 16>;

/// From "{xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx}", the brackets optional; nothing for any other text.
[[nodiscard]] std::optional<TlotResiId> ParseResiId(std::string_view text);

struct TlotResiSector {
    TlotResiId Id{};
    std::string Name;
};

struct TlotResiBuildType {
    TlotResiId Id{};
    std::string Name;
};

struct TlotResiCost {
    TlotResiId Id{};
    std::string Name;
    std::string MaskFormat; ///< Begins with "P" for a percentage.
    double Amount = 0;      ///< Percent, or money a unit.
};

struct TlotResiKeyItem {
    TlotResiId Id{};
    std::string Name;
    double Value = 0;
};

struct TlotResiBuild {
    TlotResiId Id{};
    std::string Name;
    std::int32_t Number = 0; ///< Of units.
    double Area = 0;
    double BuildRate = 0;
    double ValueRate = 0;
    int BuildType = -1; ///< Index of its type and its sector, -1 where none has the identifier.
    int Sector = -1;
};

class TlotResiReader {
public:
    explicit TlotResiReader(const TNumberLocale& locale) : FLocale(locale) {}

    /// Throws EFileError for a file that cannot be opened or parsed.
    void LoadFromFile(const std::string& fileName);

    /// Clears the project and imports; false where there is no Project. Throws EFileError, naming the file and what is
    /// wrong with it. Where it doesn't return true the project is as it was.
    [[nodiscard]] bool Read(TlotProject& project, double today);

private:
    void ReadRecords(pugi::xml_node project);
    void ReadScenario(pugi::xml_node scenario);
    void ReadBuild(const TlotElement& e);
    [[nodiscard]] TlotResiId Id(const TlotElement& e, const char* name) const;
    void CheckBuilds() const;
    void Import(TlotProject& project) const;
    void AddUnits(TlotProject& project) const;
    void ApplyCosts(TlotProject& project) const;
    [[nodiscard]] std::int32_t TotalUnits() const;

    TNumberLocale FLocale;
    std::string FFileName;
    pugi::xml_document FDocument;
    std::string FName;
    std::vector<TlotResiSector> FSectors;
    std::vector<TlotResiBuildType> FBuildTypes;
    std::vector<TlotResiCost> FCosts;
    std::vector<TlotResiKeyItem> FKeyItems;
    std::vector<TlotResiBuild> FBuilds;
};
