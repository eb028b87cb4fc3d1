// SPDX-License-Identifier: GPL-3.0-or-later
//
// The units, their schedules, and the lines that an appraisal prints under a unit.
#include "reporting/lotMoneyFormat.h"
#include "reporting/lotTableFillers.h"

namespace {

const char* FrequencyText(TlotYPFrequency frequency) noexcept {
    switch (frequency) {
    case TlotYPFrequency::QuarterlyInAdvance: return "Quarterly in Advance";
    case TlotYPFrequency::MonthlyInAdvance: return "Monthly in Advance";
    default: return "Annually in Arrears";
    }
}

/// A factor by its picture, or nothing for 0.
TlotCell FactorText(const TlotReportSource& source, double factor) {
    return factor == 0 ? TlotCell() : TlotCell(source.Picture("0.0000", factor));
}

/// The yield, and for how long the income lasts.
std::string YieldText(const TlotReportSource& source, const TlotUnit& unit) {
    const double term = source.Project.LeaseTerm;
    return source.Percent(unit.Yield.Value) +
           (term > 0 ? " for " + source.Picture("0", term) + " years" : std::string(" in perp."));
}

class TUnitRows {
public:
    TUnitRows(TlotReportTables& tables, const TlotReportSource& source) : FTables(tables), FSource(source) {}

    void Add(std::int32_t id, const TlotUnit& unit) {
        FID = id;
        AddUnit(unit);
        AddAreas(unit);
        if (unit.IsCapitalised) {
            AddCapitalisation(unit);
        } else {
            // Nothing to tell beside the schedule; the one empty row keeps templates that print these lines going.
            static_cast<void>(AppendMisc());
        }
    }

private:
    void AddUnit(const TlotUnit& unit) {
        const char* const mask = unit.Dimensions == TlotDimensions::SubUnits ? "0" : ",0.00";
        const double buildArea = unit.BuildArea.Value;
        FTables.UnitData.Append()
            .Set("UnitID", FID)
            .Set("Name", unit.Name)
            .Set("BuildArea", buildArea)
            .Set("BuildRate", unit.BuildRate.Value)
            .Set("TotalArea", unit.TotalArea)
            .Set("TotalValue", unit.GrossSale.Value)
            .Set("NetValue", unit.NetSale.Value)
            .Set("Group", unit.UnitType)
            .Set("NetAreaStr", FSource.Picture(mask, unit.TotalArea))
            .Set("GrossAreaStr", FSource.Picture(mask, buildArea))
            .Set("UnitStr", std::string(DimensionsShortText(unit.Dimensions)))
            .Set("Zoning", unit.Areas.Zoning())
            .Set("IsCapitalised", unit.IsCapitalised);
        const double efficiency = buildArea == 0 ? 0 : unit.TotalArea / buildArea * 100;
        if (efficiency > 0.1) {
            FTables.UnitData.Set("GrossToNetAreaPerc", efficiency);
        }
    }

    void AddAreas(const TlotUnit& unit) {
        for (const auto& area : unit.Areas) {
            FTables.UnitAreaData.Append()
                .Set("UnitID", FID)
                .Set("Description", area->Description())
                .Set("Zoning", area->Zoning())
                .Set("Area", area->Area())
                .Set("Rate", area->Rate())
                .Set("Value", area->Value())
                .Set("AreaDisplayFormat", NumberFormat(FSource.Project.UnitAreaDecPlaces))
                .Set("Dim", std::string(DimensionsShortText(unit.Dimensions)));
        }
    }

    void AddCapitalisation(const TlotUnit& unit) {
        if (FSource.Project.Leasehold && unit.GroundRent != 0) {
            AppendMisc().Set("Description", "Less Ground Rent").Set("Value", unit.GroundRent);
        }
        AppendMisc()
            .Set("Description", std::string("Capitalised  (") + FrequencyText(unit.YPFrequency) + ")")
            .Set("Text1", YieldText(FSource, unit))
            .Set("Text2", FactorText(FSource, unit.YearsPurchase))
            .Set("Value", unit.GrossSale.Value);
        if (unit.RentFreePeriod > 0) {
            AppendMisc()
                .Set("Description", std::to_string(unit.RentFreePeriod) + " month rent free period")
                .Set("Text2", FactorText(FSource, unit.RentFreeFactor));
        }
        if (unit.PurchCosts != 0) {
            AppendMisc()
                .Set("Description", "Purchasers Costs")
                .Set("Text1", FSource.Percent(unit.PurchCosts))
                .Set("Value", unit.PurchCostsValue);
        }
    }

    TlotTable& AppendMisc() { return FTables.UnitMiscData.Append().Set("UnitID", FID); }

    TlotReportTables& FTables;
    const TlotReportSource& FSource;
    std::int32_t FID = 0;
};

} // namespace

void FillUnitTables(TlotReportTables& tables, const TlotReportSource& source) {
    TUnitRows rows(tables, source);
    const TlotUnitList& units = source.Project.Units;
    for (int i = 0; i < units.Count(); ++i) {
        rows.Add(i, units[i]);
    }
}
