// SPDX-License-Identifier: GPL-3.0-or-later
//
// The pass, in order. Each stage works on what the stages before it left; nothing here iterates, since interest never
// feeds back into the costs.
#include "common/vipText.h"
#include "model/lotProject.h"

#include <cmath>
#include <limits>

namespace {

double Percent(double part, double whole) noexcept {
    return whole == 0 ? 0 : part / whole * 100;
}

/// Whole months of a cover: x + 0.5 cut towards zero, so that a negative one comes out nearer to zero than rounding
/// would have it. Held within 32 bits.
std::int32_t CoverMonths(double profit, double yearly) noexcept {
    if (yearly == 0) {
        return 0;
    }
    const double quotient = profit / (yearly / 12);
    const double months = std::trunc(quotient + 0.5);
    if (std::isnan(months)) {
        return 0;
    }
    constexpr double least = std::numeric_limits<std::int32_t>::min();
    constexpr double most = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(months < least ? least : (months > most ? most : months));
}

} // namespace

void TlotProject::Calculate() {
    CalculateUnitAreas();
    CalculateUnitSales();
    CalculateFromClearing();
}

void TlotProject::Calculate(TlotPassScope scope) {
    if (scope == TlotPassScope::Full) {
        Calculate();
    } else {
        CalculateFromClearing();
    }
}

void TlotProject::CalculateFromClearing() {
    Groups.Clear();
    Cashflow.Clear();
    CalculateBaseValues();
    CalculateSiteValue();
    CalculateSections();
    CalculateCashflow();
    PublishVariables();
    CalculateFunding();
    CalculateMeasures();
}

void TlotProject::CalculateUnitAreas() {
    for (const auto& unit : Units) {
        unit->CalculateValue(&Adjust);
    }
}

void TlotProject::CalculateUnitSales() {
    for (const auto& unit : Units) {
        CalculateUnitSale(*unit);
    }
}

void TlotProject::CalculateUnitSale(TlotUnit& unit) {
    if (unit.IsCapitalised) {
        // TotalRent is still that of the pass before: the first pass of a leasehold project shares out nothing.
        unit.CalculateGroundRent(Leasehold, TotalGroundRent, TotalRent);
    }
    unit.CalculateSale(Leasehold, RentalValues, LeaseTerm);
}

void TlotProject::CalculateUnit(TlotUnit& unit) {
    unit.CalculateValue(&Adjust);
    CalculateUnitSale(unit);
}

void TlotProject::CalculateBaseValues() {
    ClearBaseLines();
    OrderUnits();
    CalculateBuildLines();
    CalculateRents();
    CalculateSalesLines();
    for (const auto& unit : Units) {
        unit->BuildLine.AccountCode = unit->BuildAccountCode;
        unit->SalesLine.AccountCode = unit->SalesAccountCode;
        unit->RentLine.AccountCode = unit->RentAccountCode;
    }
    GDV = BaseValues.GrossCap.Amount + BaseValues.NonCap.Amount;
    NDV = BaseValues.NetCap.Amount + BaseValues.NonCap.Amount;
}

void TlotProject::ClearBaseLines() {
    // GROUP, SECTION and SITEVALUE aren't touched: the first section may ask for the group of the pass before.
    for (TlotCashflowItem* const line :
         {&BaseValues.GrossCap, &BaseValues.NetCap, &BaseValues.NonCap, &BaseValues.GrossRent, &BaseValues.Build}) {
        line->ClearAll();
    }
}

void TlotProject::OrderUnits() {
    for (const auto& unit : Units) {
        unit->UnitTypeIndex = UnitTypes.IndexOf(unit->UnitType);
    }
    Units.Sort();
}

void TlotProject::CalculateBuildLines() {
    for (const auto& unit : Units) {
        unit->CalculateBuild(&Adjust);
        if (Inflates(TlotInflationTarget::BuildCosts)) {
            Inflation.Inflate(unit->BuildLine);
        }
        BaseValues.Build.Add(unit->BuildLine);
        Cashflow.Items.push_back(&unit->BuildLine);
    }
}

void TlotProject::CalculateRents() {
    TotalRent = 0;
    for (const auto& unit : Units) {
        if (unit->IsCapitalised) {
            TotalRent += unit->ERV.Value;
        }
    }
    BaseValues.GrossRent.Amount = TotalRent;
    BaseValues.NetRent.Amount = Leasehold ? TotalRent - TotalGroundRent : TotalRent;
}

void TlotProject::CalculateSalesLines() {
    for (const auto& unit : Units) {
        if (unit->IsCapitalised) {
            CalculateCapitalisedSales(*unit);
        } else {
            CalculateOtherSales(*unit);
        }
    }
}

void TlotProject::CalculateOtherSales(TlotUnit& unit) {
    unit.NetRent = unit.TotalValue;
    TlotCashflowItem& line = unit.SalesLine;
    line.Amount = unit.NetSale.Value;
    Cashflow.Items.push_back(&line);
    line.Spread();
    if ((Inflates(TlotInflationTarget::ResidentialSales) && unit.UnitType == "Residential") ||
        (Inflates(TlotInflationTarget::NonCapitalisedSales) && unit.UnitType == "Non-Capitalised")) {
        Inflation.Inflate(line);
    }
    line.ReadOnly = false;
    BaseValues.NonCap.Add(line);
}

void TlotProject::CalculateCapitalisedSales(TlotUnit& unit) {
    const double monthlyRent = unit.MonthlyRent();
    unit.RentLine.Amount = monthlyRent;
    if (monthlyRent != 0) {
        unit.RentLine.SpreadKind = TlotSpreadKind::Repeat;
        Cashflow.Items.push_back(&unit.RentLine);
    }
    unit.RentLine.Spread();
    unit.SalesLine.Amount = unit.NetSale.Value;
    Cashflow.Items.push_back(&unit.SalesLine);
    unit.SalesLine.Spread();
    if (Inflates(TlotInflationTarget::CommercialSales)) {
        Inflation.Inflate(unit.SalesLine);
    }
    BaseValues.GrossCap.Amount += unit.GrossSale.Value;
    BaseValues.NetCap.Add(unit.SalesLine);
}

void TlotProject::CalculateSiteValue() {
    TlotCashflowItem& site = BaseValues.SiteValue;
    site.Spread();
    if (Inflates(TlotInflationTarget::SiteValue)) {
        Inflation.Inflate(site);
    }
    Cashflow.Items.push_back(&site);
    SiteValuePerArea = NetSiteArea == 0 ? 0 : site.Amount / NetSiteArea;
    TDC = site.Amount + BaseValues.Build.Amount;
}

void TlotProject::CalculateSections() {
    for (const auto& section : Sections) {
        section->Calculate(BaseValues);
        for (const auto& item : section->Items) {
            // Sub-headings are listed too, though they are in no total.
            item->Line.Income = section->Income;
            Cashflow.Items.push_back(&item->Line);
        }
        AddSectionToGroup(*section);
        (section->Income ? NDV : TDC) += section->Total.Amount;
    }
}

void TlotProject::AddSectionToGroup(const TlotSection& section) {
    TlotGroup* group = Groups.Find(section.Group);
    if (group == nullptr) {
        group = &Groups.Add(section.Group);
    }
    group->Total.Add(section.Total);
    BaseValues.Group.CopyValues(group->Total);
    BaseValues.Group.Amount = group->Total.Amount;
}

void TlotProject::CalculateCashflow() {
    // Before finance: interest isn't in this line.
    Cashflow.Sum();
    Cashflow.CalculateIRR();
    Cashflow.CalculateNPV(Equity.DiscountRate);
}

void TlotProject::PublishVariables() {
    Vars.Clear();
    Vars.Add("SITEVALUE", BaseValues.SiteValue);
    Vars.Add("BUILD", BaseValues.Build);
    for (const auto& section : Sections) {
        Vars.Add(section->Name, "TOTAL", section->Total);
        for (const auto& item : section->Items) {
            if (const std::string_view name = vip::Trim(item->Name); !name.empty()) {
                Vars.Add(section->Name, name, item->Line);
            }
        }
    }
}

void TlotProject::CalculateFunding() {
    Funding.FundingCalculate(Cashflow.Total, Vars, &Adjust);
    TotalInterest = Funding.TotalInterest;
    if (TlotLoan* const source = Funding.FindEquitySourceLoan()) {
        Equity.ClearResults();
        source->ComputeCashflows();
        source->ComputeNPV(Equity.DiscountRate);
    } else {
        Funding.FundingSum(Cashflow.Total, Equity.Cashflow);
        Equity.Calculate(&Adjust);
        TotalInterest += Equity.TotalInterest;
    }
    TDC += TotalInterest;
    TDC += Funding.TotalFees;
}

void TlotProject::CalculateMeasures() {
    TlotBaseValues& b = BaseValues;
    b.Profit = NDV - TDC;
    b.ProfitOnCost = Percent(b.Profit, TDC);
    b.ProfitOnGDV = Percent(b.Profit, GDV);
    b.ProfitOnNDV = Percent(b.Profit, NDV);
    b.SiteValueOnGDV = Percent(b.SiteValue.Amount, GDV);
    // NDV - Profit equals TDC but for rounding; figures printed so far rest on this form.
    b.RentalYield = Percent(b.GrossRent.Amount, NDV - b.Profit);
    b.RentalCover = CoverMonths(b.Profit, b.GrossRent.Amount);
    b.InterestCover = CoverMonths(b.Profit, TotalInterest);
}
