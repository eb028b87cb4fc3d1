// SPDX-License-Identifier: GPL-3.0-or-later
//
// Residual files, and the sensitivity settings of project files.
#include "common/vipErrors.h"
#include "persistence/lotResiReader.h"
#include "persistence/lotSAStorage.h"
#include "sensitivity/lotSAModel.h"

#include <gtest/gtest.h>
#include <pugixml.hpp>

namespace {

std::string DataFile(const std::string& name) {
    return std::string(LOTMASTER_TEST_DATA) + "/" + name;
}

/// What the import of a file says that it refuses.
std::string Refusal(const std::string& name, TlotProject& project) {
    try {
        TlotResiReader reader({});
        reader.LoadFromFile(DataFile(name));
        return reader.Read(project, 0) ? "imported" : "no project";
    } catch (const EFileError& error) {
        return std::string(error.what()).substr(DataFile("").size());
    }
}

TEST(ResidualFiles, BecomeAProjectWithTheStandardSections) {
    TlotProject project{0};
    ASSERT_EQ(Refusal("orchard.resi", project), "imported");
    EXPECT_EQ(project.Name, "Orchard Close");
    std::string units;
    for (const auto& unit : project.Units) {
        units +=
            unit->Name + ":" + unit->UnitType + ":" + std::to_string(static_cast<int>(unit->Areas[0].Value())) + " ";
    }
    // Sectors in their order, though the second sector's builds come first and in another scenario.
    EXPECT_EQ(units, "Semi:Market:252000 Semi:Market:252000 Semi:Market:252000 Terrace:Affordable:136500 ");
    EXPECT_EQ(project.UnitTypes.IndexOf("Market"), 3);
    std::string costs;
    for (const auto& section : project.Sections) {
        for (const auto& item : section->Items) {
            if (item->Amount.Value != 0) {
                costs += item->Name + (item->Percentage ? "%" : "=") +
                         std::to_string(static_cast<int>(item->Amount.Value)) + " ";
            }
        }
    }
    // Four units in all: 1,500 each. A cost of an item that isn't filled from costs is left alone.
    EXPECT_EQ(costs, "Abnormals=6000 Infrastructure%3 Fees%8 ");
    EXPECT_EQ(project.ResidualTarget, TlotResidualTarget::ProfitOnGDV);
    EXPECT_EQ(project.ResidualTargetValue, 17.5);
}

TEST(ResidualFiles, ThatAreBrokenLeaveTheProjectAlone) {
    TlotProject project{0};
    project.Name = "Open";
    EXPECT_EQ(Refusal("unresolved.resi", project),
              "unresolved.resi: Build 'Plot 1' refers to a BuildType that is not in the file");
    EXPECT_EQ(Refusal("hostile/bad-id.resi", project),
              "hostile/bad-id.resi: Project/Sector, Id: '{1234}' is no identifier");
    EXPECT_EQ(Refusal("hostile/many-units.resi", project), "hostile/many-units.resi: more than 100000 objects");
    EXPECT_EQ(Refusal("not-there.resi", project), "not-there.resi: Unable to read file.");
    EXPECT_EQ(project.Name, "Open");
}

TEST(SensitivitySettings, TravelByNameAndUnknownOnesAreSkipped) {
    TlotProject project{0};
    TlotSAModelNew saved(project, {});
    TSACategory& site = saved.Categories[saved.Categories.IndexOf("Site Value")];
    site.Step = 12500.5;
    site.StepCount = 7;
    site.Decimals = 1;
    site.Thousands = false;
    saved.Results[1].Decimals = 2;
    pugi::xml_document document;
    const TNumberLocale comma{U',', U'.'};
    TSAWriter::Write(document.append_child("Lotmaster"), saved, comma);
    document.first_child().first_child().prepend_child("Category").append_attribute("Name").set_value("Weather");

    TlotSAModelNew loaded(project, {});
    TSAReader::Read(document.first_child(), loaded, {});
    const TSACategory& read = loaded.Categories[loaded.Categories.IndexOf("Site Value")];
    EXPECT_EQ(read.Step, 12500.5);
    EXPECT_EQ(read.StepCount, 7);
    EXPECT_EQ(read.Decimals, 1);
    EXPECT_FALSE(read.Thousands);
    EXPECT_EQ(loaded.Results[1].Decimals, 2);
    EXPECT_EQ(loaded.Categories[0].Step, 5) << "Build Rate as it was";
}

} // namespace
