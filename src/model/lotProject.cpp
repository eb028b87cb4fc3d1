// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/lotProject.h"

#include "common/vipText.h"

#include <algorithm>
#include <vector>

namespace {

/// Sets what begins afresh with another project to what a new one has.
class TClear {
public:
    TClear(TlotProjectTerms& terms, double today) : FTerms(terms) { FFresh.StartDate = today; }

    template <class Place, class... Absent>
    void operator()(const TlotFieldInfo& field, Place place, const Absent&... /*absent*/) const {
        if (field.Cleared) {
            FieldAt(FTerms, place) = FieldAt(FFresh, place);
        }
    }
    void operator()(const char* /*name*/, std::string TlotProjectTerms::*text) const { (FTerms.*text).clear(); }

private:
    TlotProjectTerms& FTerms;
    TlotProjectTerms FFresh;
};

} // namespace

TlotProject::TlotProject(double today) {
    StartDate = today;
    UnitTypes.SetDefaults();
}

void TlotProject::Clear(double today) {
    Units.Clear();
    Sections.Clear();
    Groups.Clear();
    Funding.Clear();
    Equity.ClearResults();
    Finance.Reset();
    Cashflow.Clear();
    // The variables point at lines of the units and sections that are gone.
    Vars.Clear();
    BaseValues.Clear();
    TDC = 0;
    GDV = 0;
    NDV = 0;
    UnitTypes.SetDefaults();
    const TClear clear(*this, today);
    TlotProjectTerms::VisitFields(clear);
    VisitTexts(clear);
}

void TlotProject::DeleteUnit(int index) {
    const TlotUnit& unit = Units[index];
    TlotUnit::VisitLines([&](const char* /*name*/, auto line) { Forget(unit.*line); });
    Units.Delete(index);
}

void TlotProject::DeleteSection(int index) {
    const TlotSection& section = Sections[index];
    Forget(section.Total);
    for (const auto& item : section.Items) {
        Forget(item->Line);
    }
    Sections.Delete(index);
}

void TlotProject::DeleteItem(TlotSection& section, int index) {
    Forget(section.Items[index].Line);
    section.Items.Delete(index);
}

void TlotProject::DeleteLoan(int index) {
    Funding.Loans.Delete(index);
}

void TlotProject::Forget(const TlotCashflowItem& line) {
    Cashflow.Forget(line);
    Vars.Forget(line);
    for (const auto& loan : Funding.Loans) {
        std::erase(loan->Source.Lines, &line);
    }
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
