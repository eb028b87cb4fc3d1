// SPDX-License-Identifier: GPL-3.0-or-later
//
// What belongs to one user: the fonts of two views, and the files that were open lately. Both live in one file.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct TlotViewFont {
    std::int32_t Size = 8; ///< Points.
    std::string Name = "Arial";

    friend bool operator==(const TlotViewFont&, const TlotViewFont&) = default;
};

struct TlotUserSettings {
    TlotViewFont CashflowView;
    TlotViewFont TimescaleView;

    /// What is missing in the file or makes no sense there gets its default.
    void Load(const std::string& fileName);
    /// Keeps whatever else is in the file. Throws EFileError.
    void Save(const std::string& fileName) const;
};

/// The project files opened or saved lately, the last one first.
class TlotRecentFiles {
public:
    std::vector<std::string> Names; ///< Full paths.

    /// Puts a file at the top, from wherever it was in the list. Only projects enter it (".lot" in any letter case):
    /// others are passed over.
    void Add(std::string fileName);

    /// Every line of the list's section counts, whatever its key; one that names no file doesn't.
    void Load(const std::string& fileName);
    /// Replaces the section, keeping whatever else is in the file. Throws EFileError.
    void Save(const std::string& fileName) const;
};
