// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/lotProject.h"

#include "common/vipText.h"

#include <algorithm>

TlotProject::TlotProject(double today)
    : StartDate(today), SiteGroup("Site Costs"), ConstructionGroup("Construction Costs") {
    UnitTypes.SetDefaults();
}

void TlotProject::Clear(double today) {
    Units.Clear();
    Sections.clear();
    Groups.Clear();
    Funding.Clear();
    Equity.ClearResults();
    Finance.Reset();
    Cashflow.Clear();
    // The variables point at lines of the units and sections that are gone.
    Vars.Clear();
    BaseValues.Clear();
    Leasehold = false;
    TotalGroundRent = 0;
    LeaseTerm = 0;
    TDC = 0;
    GDV = 0;
    NDV = 0;
    UnitTypes.SetDefaults();
    Name.clear();
    Notes.clear();
    Address.clear();
    AppraisalNotes.clear();
    PictureFileName.clear();
    SiteGroup = "Site Costs";
    ConstructionGroup = "Construction Costs";
    StartDate = today;
}

double TlotProject::GroupValue(std::string_view name) const {
    const TlotGroup* const group = Groups.Find(name);
    return group == nullptr ? 0 : group->Total.Amount;
}

double TlotProject::RatioBaseValue() const {
    if (vip::SameText(RatioBase, "GDV")) {
        return GDV;
    }
    if (vip::SameText(RatioBase, "NDV")) {
        return NDV;
    }
    return vip::SameText(RatioBase, "TDC") ? TDC : 0;
}

bool TlotProject::FitsHandheld() const {
    return Units.Count() < 2 && std::ranges::all_of(Sections, [](const auto& section) {
               return std::ranges::all_of(section->Items, [](const auto& item) { return item->Percentage; });
           });
}

double TlotProject::NPV() const {
    if (NPVIRRSource == TlotNPVIRRSource::Project) {
        return Cashflow.NPV;
    }
    const TlotLoan* const loan = Funding.FindEquitySourceLoan();
    return loan == nullptr ? Equity.NPV : loan->NPVIncludingInterest;
}

double TlotProject::IRR() const {
    if (NPVIRRSource == TlotNPVIRRSource::Project) {
        return Cashflow.IRR;
    }
    const TlotLoan* const loan = Funding.FindEquitySourceLoan();
    return loan == nullptr ? Equity.IRR : loan->IRRIncludingInterest;
}
