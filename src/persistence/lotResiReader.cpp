// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/lotResiReader.h"

#include "common/vipErrors.h"
#include "common/vipText.h"
#include "model/lotSectionRows.h"
#include "persistence/lotLimits.h"
#include "persistence/lotXmlFile.h"

#include <algorithm>

namespace {

constexpr std::array SiteCosts = {
    TItemRow{"Stamp Duty", 0, true, "SITEVALUE", false},
    TItemRow{"Site Legal Fees", 0, true, "SITEVALUE", false},
    TItemRow{"Site Agency Fees", 0, true, "SITEVALUE", false},
    TItemRow{"Planning Fees", 0, false, "SITEVALUE", true},
};

constexpr std::array ConstructionCosts = {
    TItemRow{"Abnormals", 0, false, "BUILD", true},
    TItemRow{"Infrastructure", 0, false, "BUILD", true},
    TItemRow{"Continguency", 0, true, "SECTION+BUILD", true},
};

constexpr std::array Fees = {TItemRow{"Fees", 0, true, "GROUP+BUILD", true}};

constexpr std::array SalesCosts = {
    TItemRow{"Sales & Marketing", 0, true, "NONCAP", true},
    TItemRow{"Agents Legal Fees", 0, true, "NONCAP", true},
    TItemRow{"Agents Sale Fees", 0, true, "NONCAP", true},
};

constexpr std::array Sections = {
    TSectionRow{"Site Costs", "Site Costs", "SITEVALUE", false, SiteCosts},
    TSectionRow{"Construction Costs", "Construction Costs", "BUILD", false, ConstructionCosts},
    TSectionRow{"Fees", "Construction Costs", "BUILD", false, Fees},
    TSectionRow{"Sales Costs", "Sales Costs", "NONCAP", false, SalesCosts},
};

/// The items that take their amount from a cost of the same name.
constexpr std::array<std::string_view, 3> ItemsFromCosts = {"Abnormals", "Infrastructure", "Fees"};

int HexDigit(char c) noexcept {
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

template <class Record> int IndexOfId(const std::vector<Record>& records, const TlotResiId& id) {
    const auto found = std::ranges::find_if(records, [&](const Record& record) { return record.Id == id; });
    return found == records.end() ? -1 : static_cast<int>(found - records.begin());
}

template <class Record> const Record* FindName(const std::vector<Record>& records, std::string_view name) {
    const auto found =
        std::ranges::find_if(records, [&](const Record& record) { return vip::SameText(record.Name, name); });
    return found == records.end() ? nullptr : &*found;
}

/// The first child element of that name, without regard to case.
pugi::xml_node FindChild(pugi::xml_node parent, std::string_view name) {
    return parent.find_child(
        [&](pugi::xml_node node) { return node.type() == pugi::node_element && vip::SameText(node.name(), name); });
}

} // namespace

std::optional<TlotResiId> ParseResiId(std::string_view text) {
    std::string digits;
    for (const char c : text) {
        if (c != '{' && c != '}') {
            digits.push_back(c);
        }
    }
    constexpr std::size_t length = 36;
    TlotResiId id{};
    std::size_t nibble = 0;
    for (std::size_t i = 0; i < digits.size() && digits.size() == length; ++i) {
        const bool dash = i == 8 || i == 13 || i == 18 || i == 23;
        const int digit = HexDigit(digits[i]);
        if (dash ? digits[i] != '-' : digit < 0) {
            return std::nullopt;
        }
        if (!dash) {
            id[nibble / 2] = static_cast<std::uint8_t>(id[nibble / 2] * 16 + digit);
            ++nibble;
        }
    }
    return digits.size() == length ? std::optional(id) : std::nullopt;
}

void TlotResiReader::LoadFromFile(const std::string& fileName) {
    FFileName = fileName;
    if (!LoadXmlFile(FDocument, fileName)) {
        throw EFileError(fileName + ": Unable to read file.");
    }
}

bool TlotResiReader::Read(TlotProject& project, double today) {
    const pugi::xml_node node = FindChild(FDocument.document_element(), "Project");
    if (node.empty()) {
        return false;
    }
    ReadRecords(node);
    CheckBuilds();
    project.Clear(today);
    Import(project);
    return true;
}

TlotResiId TlotResiReader::Id(const TlotElement& e, const char* name) const {
    const std::string text = e.Text(name);
    if (text.empty()) {
        return {};
    }
    const std::optional<TlotResiId> id = ParseResiId(text);
    if (!id) {
        throw EFileError(FFileName + ": " + e.Place() + ", " + name + ": '" + text + "' is no identifier");
    }
    return *id;
}

void TlotResiReader::ReadRecords(pugi::xml_node project) {
    FName = project.attribute("Name").value();
    // Sectors and build types first, wherever they stand: builds refer to them.
    const auto each = [&](std::string_view name, const auto& read) {
        for (const pugi::xml_node node : project.children()) {
            const TlotElement e(node, FLocale);
            if (node.type() == pugi::node_element && e.Is(name)) {
                read(e);
            }
        }
    };
    each("Sector", [&](const TlotElement& e) { FSectors.push_back({Id(e, "Id"), e.Text("Name")}); });
    each("BuildType", [&](const TlotElement& e) { FBuildTypes.push_back({Id(e, "Id"), e.Text("Name")}); });
    each("Scenario", [&](const TlotElement& e) { ReadScenario(e.Node()); });
}

void TlotResiReader::ReadScenario(pugi::xml_node scenario) {
    for (const pugi::xml_node node : scenario.children()) {
        const TlotElement e(node, FLocale);
        if (node.type() != pugi::node_element) {
            continue;
        }
        if (e.Is("Build")) {
            ReadBuild(e);
        } else if (e.Is("Cost")) {
            FCosts.push_back({Id(e, "Id"), e.Text("Name"), e.Text("MaskFormat"), e.Number("Amount")});
        } else if (e.Is("KeyItem")) {
            FKeyItems.push_back({Id(e, "Id"), e.Text("Name"), e.Number("Value")});
        }
    }
}

void TlotResiReader::ReadBuild(const TlotElement& e) {
    TlotResiBuild build;
    build.Id = Id(e, "Id");
    build.Name = e.Text("Name");
    build.Number = e.Integer("Number");
    build.Area = e.Number("Area");
    build.BuildRate = e.Number("BuildRate");
    build.ValueRate = e.Number("ValueRate");
    build.BuildType = IndexOfId(FBuildTypes, Id(e, "BuildTypeId"));
    build.Sector = IndexOfId(FSectors, Id(e, "SectorId"));
    FBuilds.push_back(std::move(build));
}

void TlotResiReader::CheckBuilds() const {
    double objects = static_cast<double>(FSectors.size());
    for (const TlotResiBuild& build : FBuilds) {
        if (build.Number < 1) {
            continue;
        }
        if (build.BuildType < 0 || build.Sector < 0) {
            throw EFileError(FFileName + ": Build '" + build.Name + "' refers to a " +
                             (build.BuildType < 0 ? "BuildType" : "Sector") + " that is not in the file");
        }
        objects += 2.0 * build.Number;
    }
    if (objects > lotLimits::Objects) {
        throw EFileError(FFileName + ": more than " + std::to_string(lotLimits::Objects) + " objects");
    }
}

std::int32_t TlotResiReader::TotalUnits() const {
    std::int32_t total = 0;
    for (const TlotResiBuild& build : FBuilds) {
        total += std::max(build.Number, 0);
    }
    return total;
}

void TlotResiReader::Import(TlotProject& project) const {
    project.Name = FName;
    for (const TlotResiSector& sector : FSectors) {
        project.UnitTypes.Add().Name = sector.Name;
    }
    AddUnits(project);
    AddSections(project, Sections);
    ApplyCosts(project);
    const TlotResiKeyItem* const profit = FindName(FKeyItems, "ProfitOnGDV");
    project.ResidualTarget = TlotResidualTarget::ProfitOnGDV;
    project.ResidualTargetValue = profit == nullptr ? 0 : profit->Value;
}

void TlotResiReader::AddUnits(TlotProject& project) const {
    for (std::size_t sector = 0; sector < FSectors.size(); ++sector) {
        for (const TlotResiBuild& build : FBuilds) {
            if (build.Sector != static_cast<int>(sector)) {
                continue;
            }
            for (std::int32_t i = 0; i < build.Number; ++i) {
                TlotUnit& unit = project.Units.Add();
                unit.Name = FBuildTypes[static_cast<std::size_t>(build.BuildType)].Name;
                unit.BuildArea.Value = build.Area;
                unit.BuildRate.Value = build.BuildRate;
                unit.UnitType = FSectors[sector].Name;
                TlotArea& area = unit.Areas.Add();
                area.SetRate(build.ValueRate);
                area.SetArea(build.Area);
            }
        }
    }
}

void TlotResiReader::ApplyCosts(TlotProject& project) const {
    TlotProjectItemIterator items = project.NewItemIterator();
    for (items.First(); !items.IsDone(); items.Next()) {
        TlotItem& item = items.CurrentItem();
        const TlotResiCost* const cost = FindName(FCosts, item.Name);
        if (cost == nullptr || std::ranges::find(ItemsFromCosts, item.Name) == ItemsFromCosts.end()) {
            continue;
        }
        if (vip::SameText(std::string_view(cost->MaskFormat).substr(0, 1), "P")) {
            item.Percentage = true;
            item.Amount.Value = cost->Amount;
        } else {
            item.Amount.Value = TotalUnits() * cost->Amount;
        }
    }
}
