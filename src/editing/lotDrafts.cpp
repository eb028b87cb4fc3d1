// SPDX-License-Identifier: GPL-3.0-or-later
#include "editing/lotDrafts.h"

#include <vector>

TlotProjectDraft::TlotProjectDraft(const TlotProject& project)
    : Terms(project),
      SiteValue(project.BaseValues.SiteValue.Amount),
      EquitySource(project.Funding.EquitySource),
      Equity(project.Equity),
      Inflation(project.Inflation) {}

void TlotProjectDraft::Store(TlotProject& project) const {
    static_cast<TlotProjectTerms&>(project) = Terms;
    project.BaseValues.SiteValue.Amount = SiteValue;
    project.Funding.EquitySource = EquitySource;
    static_cast<TlotEquityTerms&>(project.Equity) = Equity;
    static_cast<TlotInflationTerms&>(project.Inflation) = Inflation;
}

void TlotOptionsDraft::Store(TlotOptions& options) const {
    options = Options;
    std::erase_if(options.Zoning, [](const TlotZone& zone) { return zone.Name.empty() && zone.Percent == 0; });
}

TlotUnitDraft::TlotUnitDraft(TlotUnit& unit) {
    unit.BuildLine.Simplify();
    unit.SalesLine.Simplify();
    Unit.Assign(unit);
    if (Unit.Areas.Count() == 0) {
        Unit.Areas.Add();
    }
}

void TlotUnitDraft::RefreshValuation(const TlotProject& project, const TlotUnit& original) {
    if (!Unit.IsCapitalised) {
        return;
    }
    const double others = project.TotalRent - original.ERV.Value;
    Unit.CalculateValue(&project.Adjust);
    Unit.CalculateGroundRent(project.Leasehold, project.TotalGroundRent, others + Unit.ERV.Value);
    Unit.CalculateSale(project.Leasehold, project.RentalValues, project.LeaseTerm);
}
