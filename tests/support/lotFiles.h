// SPDX-License-Identifier: GPL-3.0-or-later
//
// Project files for tests: their texts, folders of their own that vanish, and the short way in and out of a project.
#pragma once

#include "persistence/lotReader.h"
#include "persistence/lotWriter.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

inline constexpr TNumberLocale PointLocale{U'.', U','};
inline constexpr TNumberLocale CommaLocale{U',', U'.'};

inline constexpr double TestToday = 45'000; // 15 March 2023

inline std::string DataFile(const std::string& name) {
    return std::string(LOTMASTER_TEST_DATA) + "/" + name;
}

inline std::string ReadBytes(const std::string& fileName) {
    std::ifstream file(fileName, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// A folder that goes with what is in it.
class TTempFolder {
public:
    TTempFolder() : FPath((std::filesystem::temp_directory_path() / "lot-test-XXXXXX").string()) {
        EXPECT_NE(::mkdtemp(FPath.data()), nullptr);
    }
    TTempFolder(const TTempFolder&) = delete;
    TTempFolder& operator=(const TTempFolder&) = delete;
    ~TTempFolder() { std::filesystem::remove_all(FPath); }

    [[nodiscard]] std::string File(const std::string& name) const { return FPath + "/" + name; }
    /// A file of that name with that content.
    [[nodiscard]] std::string Write(const std::string& name, std::string_view content) const {
        std::ofstream(File(name), std::ios::binary) << content;
        return File(name);
    }
    /// How many files lie in it, hidden ones among them.
    [[nodiscard]] std::ptrdiff_t Count() const {
        return std::distance(std::filesystem::directory_iterator(FPath), std::filesystem::directory_iterator());
    }

private:
    std::string FPath;
};

/// A file of one Project element with these attributes and children.
inline std::string FileText(const std::string& attributes, const std::string& children = "",
                            const std::string& version = "13") {
    return "<Lotmaster Version='" + version + "'><Project " + attributes + ">" + children + "</Project></Lotmaster>";
}

/// Reads a well-formed text called "scheme.lot"; what the reader throws comes out.
inline bool OpenText(TlotProject& project, const std::string& text, const TNumberLocale& locale = PointLocale) {
    TlotReader reader(false, locale, TestToday);
    EXPECT_TRUE(reader.LoadFromMemory(text, "scheme.lot")) << "not well-formed: " << text.substr(0, 200);
    return reader.Read(project);
}

inline std::string SavedText(TlotProject& project, const TNumberLocale& locale = PointLocale) {
    TlotWriter writer(false, locale);
    writer.Write(project);
    return writer.ToText();
}
