// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/lotUnit.h"

#include "common/vipBisect.h"
#include "common/vipFormulae.h"
#include "common/vipText.h"
#include "engine/lotLineColours.h"

#include <tuple>

namespace {

/// Purchaser's costs of this percentage mean a net value of 0. It is held in extended precision, in which -0.01 differs
/// from any stored figure, so the test below is never true; old appraisals rest on that, so it stays.
constexpr long double NoNetValue = -0.01L;

double Factor(double percent) noexcept {
    return percent / 100 + 1;
}

} // namespace

int RentsAYear(TlotRentalValues rentalValues) noexcept {
    switch (rentalValues) {
    case TlotRentalValues::Annual: return 1;
    case TlotRentalValues::HalfYearly: return 2;
    case TlotRentalValues::Quarterly: return 4;
    case TlotRentalValues::Monthly: return 12;
    }
    return 1;
}

TlotUnit::TlotUnit() {
    BuildLine.Colour = LineColours::Build.Index;
    BuildLine.BarColour = LineColours::Build.Rgb;
    RentLine.Colour = LineColours::Rent.Index;
    RentLine.BarColour = LineColours::Rent.Rgb;
    RentLine.Income = true;
    SalesLine.Colour = LineColours::Sales.Index;
    SalesLine.BarColour = LineColours::Sales.Rgb;
    SalesLine.Income = true;
}

void TlotUnit::CalculateValue(const TlotAdjust* adjust) {
    TotalValue = 0;
    TotalArea = 0;
    for (const auto& area : Areas) {
        if (area->Area() != 0) {
            area->CalcValue();
            TotalValue += area->Value();
            TotalArea += area->Area();
        }
    }
    TotalValue = Factor(adjust == nullptr ? 0 : adjust->Sales.Value) * TotalValue;
    ERV.Value = IsCapitalised ? TotalValue : 0;
}

void TlotUnit::CalculateGroundRent(bool leasehold, double totalGroundRent, double totalRent) {
    GroundRent = leasehold && totalRent != 0 ? ERV.Value / totalRent * totalGroundRent : 0;
    NetRent = ERV.Value - GroundRent;
}

void TlotUnit::CalculateSale(bool leasehold, TlotRentalValues rentalValues, double leaseTerm) {
    if (!IsCapitalised) {
        GrossSale.Value = TotalValue;
        NetSale.Value = GrossSale.Value;
        return;
    }
    GrossSale.Value = CapitalValue(leasehold, rentalValues, NetRent, leaseTerm);
    RentFreeFactor = 0;
    if (RentFreePeriod >= 1) {
        RentFreeFactor = vip::PV(Yield.Value / 100, RentFreePeriod / 12.0);
        GrossSale.Value = GrossSale.Value * RentFreeFactor;
    }
    NetSale.Value = static_cast<long double>(PurchCosts) == NoNetValue ? 0 : Net(GrossSale.Value);
    PurchCostsValue = GrossSale.Value - NetSale.Value;
}

double TlotUnit::CapitalValue(bool leasehold, TlotRentalValues rentalValues, double netRent, double leaseTerm) {
    const double annualRent = netRent * RentsAYear(rentalValues);
    const double i = Yield.Value / 100;
    const bool term = leasehold && leaseTerm > 0;
    switch (YPFrequency) {
    case TlotYPFrequency::QuarterlyInAdvance:
        YearsPurchase =
            term ? vip::YPQuarterlyAdvance(false, i, leaseTerm) : vip::YPQuarterlyAdvancePerpetuity(false, i);
        break;
    case TlotYPFrequency::MonthlyInAdvance:
        YearsPurchase = term ? vip::YPAdvance(false, 12, i, leaseTerm) : vip::YPAdvancePerpetuity(false, 12, i);
        break;
    default: YearsPurchase = term ? vip::YPArrears(i, leaseTerm) : vip::YPPerpetuity(i); break;
    }
    return annualRent * YearsPurchase;
}

void TlotUnit::CalculateBuild(const TlotAdjust* adjust) {
    BuildLine.Amount = BuildArea.Value * BuildRate.Value * Factor(adjust == nullptr ? 0 : adjust->BuildCost.Value);
    BuildLine.Spread();
}

double TlotUnit::MonthlyRent() const {
    return (RentAtERV ? ERV.Value : PreSalesRent) / 12;
}

double TlotUnit::SolveRate(bool leasehold, TlotRentalValues rentalValues, double target, double leaseTerm) {
    if (!IsCapitalised) {
        return 0;
    }
    const double saved = Yield.Value;
    VBisect solver;
    solver.Start(50, target, 0, 200);
    while (solver.Running()) {
        Yield.Value = solver.Middle();
        CalculateSale(leasehold, rentalValues, leaseTerm);
        solver.Step(GrossSale.Value);
    }
    const double answer = solver.Found() ? Yield.Value : 0;
    Yield.Value = saved;
    CalculateSale(leasehold, rentalValues, leaseTerm);
    return answer;
}

double TlotUnit::GrossUp(double value) const {
    return value * Factor(PurchCosts);
}

double TlotUnit::Net(double value) const {
    const double divisor = Factor(PurchCosts);
    return divisor == 0 ? 0 : value / divisor;
}

void TlotUnit::Assign(const TlotUnit& other) {
    static_cast<TlotUnitTerms&>(*this) = other;
    static_cast<TlotUnitResults&>(*this) = other;
    Areas.Assign(other.Areas);
    VisitLines([&](const char* /*name*/, auto line) { (this->*line).Assign(other.*line); });
}

TlotUnitSnapshot TlotUnit::Snapshot() const {
    return {*this, *this, Areas.Terms(), BuildLine, RentLine, SalesLine};
}

void TlotUnit::Restore(const TlotUnitSnapshot& snapshot) {
    static_cast<TlotUnitTerms&>(*this) = snapshot.Terms;
    static_cast<TlotUnitResults&>(*this) = snapshot.Results;
    Areas.SetTerms(snapshot.Areas);
    BuildLine = snapshot.BuildLine;
    RentLine = snapshot.RentLine;
    SalesLine = snapshot.SalesLine;
}

bool TlotUnit::SameInputs(const TlotUnit& other) const {
    bool same = static_cast<const TlotUnitTerms&>(*this) == other && Areas.Terms() == other.Areas.Terms();
    VisitLines([&](const char* /*name*/, auto line) {
        same = same && static_cast<const TlotLineTerms&>(this->*line) == other.*line;
    });
    return same;
}

void TlotUnitList::Sort() {
    SortBy([](const TlotUnit& a, const TlotUnit& b) {
        const auto left = std::tie(a.UnitTypeIndex, a.Number);
        const auto right = std::tie(b.UnitTypeIndex, b.Number);
        return left != right ? left < right : vip::CompareText(a.Name, b.Name) < 0;
    });
}

void TlotUnitList::SortByNumber() {
    SortBy([](const TlotUnit& a, const TlotUnit& b) { return a.Number < b.Number; });
}

int TlotUnitTypeList::IndexOf(std::string_view name) const noexcept {
    return FindIf([&](const TlotUnitType& type) { return vip::SameText(type.Name, name); });
}

void TlotUnitTypeList::SetDefaults() {
    Clear();
    for (const char* const name : {"Commercial", "Residential", "Non-Capitalised"}) {
        Add().Name = name;
    }
}
