// SPDX-License-Identifier: GPL-3.0-or-later
//
// The costs and other incomes: the site, the units' build, and the items of the sections.
#include "reporting/lotMoneyFormat.h"
#include "reporting/lotTableFillers.h"

#include <algorithm>

namespace {

constexpr int AmountLength = 80; ///< Of the field: more decimals than that are cut off anyway.

class TItemRows {
public:
    TItemRows(TlotTable& table, const TlotReportSource& source)
        : FTable(table), FSource(source), FProject(source.Project), FRatioBase(source.Project.RatioBaseValue()) {}

    void AddSite() {
        Append(FProject.SiteGroup, FProject.SiteGroup, "Site Value")
            .Set("Amount", FormatMoney("%2.2m", FProject.SiteValuePerArea, FSource.Locale))
            .Set("AmountValue", FProject.SiteValuePerArea)
            .Set("Base", FProject.NetSiteArea)
            .Set("BaseDisplayFormat", "%2.2n")
            .Set("Unit", FProject.SiteAreaUnits == TlotSiteAreaUnits::Hectares ? "ha" : "acres");
        SetValue(FSource.SiteValue(), true);
    }

    void AddBuild(const TlotUnit& unit) {
        Append(FProject.ConstructionGroup, "Build Costs", unit.Name)
            .Set("Amount", FormatMoney("%2.2m", unit.BuildRate.Value, FSource.Locale))
            .Set("AmountValue", unit.BuildRate.Value)
            .Set("Base", unit.BuildArea.Value)
            .Set("BaseDisplayFormat", NumberFormat(FProject.UnitAreaDecPlaces))
            .Set("Unit", std::string(DimensionsShortText(unit.Dimensions)));
        SetValue(unit.BuildLine.Amount, true);
    }

    void AddItem(const TlotSection& section, const TlotItem& item) {
        if (item.Amount.Value == 0) {
            return;
        }
        if (item.IsSubHeading()) {
            Append(section.Group, section.Name, item.Name.substr(1)).Set("SubHeading", true);
            return;
        }
        Append(section.Group, section.Name, item.Name);
        if (item.Percentage) {
            const int decimals = std::clamp(FProject.PercentageCostDecPlaces, 0, AmountLength);
            const std::string mask = "0." + std::string(static_cast<std::size_t>(decimals), '0') + "%";
            FTable.Set("Amount", FSource.Picture(mask, item.Amount.Value) + " of")
                .Set("Base", item.Base)
                .Set("BaseDisplayFormat", "%2.0m");
        }
        FTable.Set("AmountValue", item.Amount.Value).Set("Error", item.Error);
        SetValue(item.Line.Amount, item.DisplayRatio);
    }

private:
    TlotTable& Append(const std::string& group, const std::string& section, const std::string& name) {
        return FTable.Append().Set("Group", group).Set("Section", section).Set("Name", name);
    }

    void SetValue(double value, bool displayRatio) {
        FTable.Set("Value", value)
            .Set("DisplayRatio", displayRatio && !FProject.HideRatio)
            .Set("Ratio", FRatioBase == 0 ? 0.0 : value / FRatioBase * 100);
    }

    TlotTable& FTable;
    const TlotReportSource& FSource;
    const TlotProject& FProject;
    double FRatioBase;
};

} // namespace

void FillItemData(TlotTable& table, const TlotReportSource& source) {
    TItemRows rows(table, source);
    const TlotProject& project = source.Project;
    bool siteDone = source.Kind == TlotReportKind::Residual;
    bool buildDone = false;
    for (const auto& section : project.Sections) {
        if (!siteDone && section->Group == project.SiteGroup) {
            rows.AddSite();
            siteDone = true;
        }
        if (!buildDone && section->Group == project.ConstructionGroup) {
            for (const auto& unit : project.Units) {
                rows.AddBuild(*unit);
            }
            buildDone = true;
        }
        for (const auto& item : section->Items) {
            rows.AddItem(*section, *item);
        }
    }
}
