// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/lotProjectReader.h"

#include "common/vipDate.h"
#include "common/vipErrors.h"
#include "common/vipText.h"
#include "persistence/lotFundingReader.h"

#include <algorithm>

namespace {

bool IsElement(pugi::xml_node node) {
    return node.type() == pugi::node_element;
}

} // namespace

void TlotProjectReader::Read(pugi::xml_node node) {
    const TlotElement project = FContext.Element(node);
    ReadAttributes(project);
    ReadUnitTypes(project);
    if (FContext.Version < 2) {
        FProject.Equity.NPVIRRIncludesInterest = true;
    }
    for (const pugi::xml_node child : node.children()) {
        if (IsElement(child)) {
            ReadChild(FContext.Element(child));
        }
    }
}

void TlotProjectReader::ReadAttributes(const TlotElement& e) {
    FProject.Name = e.Text("Name");
    FProject.Recipient = e.Text("Recipient");
    FProject.TotalGroundRent = e.Number("TotalGroundRent");
    ReadStartDate(e);
    FProject.RentalValues = e.Enumeration<TlotRentalValues>("RentalValues");
    FProject.Leasehold = e.Boolean("Leasehold");
    FProject.LeaseTerm = e.Number("LeaseTerm");
    FProject.ConstructionGroup = e.Text("ConstructionGroup");
    FProject.SiteGroup = e.Text("SiteGroup");
    FProject.PictureFileName = e.Text("PictureFileName");
    ReadSiteAndResidual(e);
    FProject.NPVIRRSource = e.Enumeration<TlotNPVIRRSource>("NPVIRRSource");
    FProject.IncludeExtraLoanDetail = e.Boolean("IncludeExtraLoanDetail");
    FProject.Funding.EquitySource = e.Text("EquitySource");
    ReadReportSettings(e);
    ReadShowFlags(e);
}

void TlotProjectReader::ReadStartDate(const TlotElement& e) {
    try {
        const double date = vip::DateFromFile(e.Text("StartDate"));
        FProject.StartDate = date == 0 ? FContext.Today : date;
    } catch (const EConvertError& error) {
        throw EConvertError(e.Place() + ", StartDate: '" + e.Text("StartDate") + "': " + error.what());
    }
}

void TlotProjectReader::ReadSiteAndResidual(const TlotElement& e) {
    TlotCashflowItem& site = FProject.BaseValues.SiteValue;
    site.Amount = e.Number("SiteValue");
    site.AccountCode = e.Text("SiteValueAccountCode");
    FProject.NetSiteArea = e.Number("NetSiteArea");
    FProject.SiteAreaUnits = e.Enumeration<TlotSiteAreaUnits>("SiteAreaUnits");
    if (FContext.Version >= 0.9) {
        FProject.ResidualTargetValue = e.Number("ResidualTargetValue");
        FProject.ResidualTarget = e.Enumeration<TlotResidualTarget>("ResidualTarget");
    } else {
        FProject.ResidualTargetValue = e.Number("TargetProfit");
        FProject.ResidualTarget =
            e.Boolean("ProfitLocked") ? TlotResidualTarget::ProfitOnCost : TlotResidualTarget::NoTarget;
    }
    FProject.MinSiteValue = e.Number("MinSiteValue", FProject.MinSiteValue);
    FProject.MaxSiteValue = e.Number("MaxSiteValue", FProject.MaxSiteValue);
    FProject.CalcNegativeSiteValue = e.Boolean("CalcNegativeSiteValue", FProject.CalcNegativeSiteValue);
}

void TlotProjectReader::ReadReportSettings(const TlotElement& e) {
    FProject.UnitAreaDecPlaces = e.Integer("UnitAreaDecPlaces", 2);
    FProject.PercentageCostDecPlaces = e.Integer("PercentageCostDecPlaces", 3);
    FProject.CostGroupPageBreak = e.Text("CostGroupPageBreak");
    FProject.AppraisalReportFile = e.Text("AppraisalReportFile", "AppraisalGrouped");
    FProject.RatioBase = e.Text("RatioBase", "GDV");
    FProject.HideRatio = e.StrictBoolean("HideRatio");
    FProject.AppraisalTitle = e.Text("AppraisalTitle", "Development Appraisal");
    FProject.ResidualTitle = e.Text("ResidualTitle", "Residual Valuation");
}

void TlotProjectReader::ReadShowFlags(const TlotElement& e) {
    const bool all = FContext.Version < 0.9;
    FProject.ShowProfitOnCost = all || e.Boolean("ShowProfitOnCost");
    FProject.ShowProfitOnGDV = all || e.Boolean("ShowProfitOnGDV");
    FProject.ShowProfitOnNDV = all || e.Boolean("ShowProfitOnNDV");
    FProject.ShowSiteValueOnGDV = all || e.Boolean("ShowSiteValueOnGDV");
    FProject.ShowRentalYield = all || e.Boolean("ShowRentalYield");
    FProject.ShowNPV = all || e.Boolean("ShowNPV");
    FProject.ShowIRR = all || e.Boolean("ShowIRR");
    FProject.ShowRentalCover = all || e.Boolean("ShowRentalCover");
    FProject.ShowInterestCover = all || e.Boolean("ShowInterestCover");
}

void TlotProjectReader::ReadUnitTypes(const TlotElement& project) {
    if (FContext.Version < 10) {
        return; // A cleared project has the default types, which is what such files mean.
    }
    FProject.UnitTypes.Items.clear();
    for (const pugi::xml_node child : project.Node().children()) {
        if (IsElement(child) && FContext.Element(child).Is("UnitType")) {
            FContext.CountObject(FContext.Element(child));
            FProject.UnitTypes.Items.push_back({FContext.Element(child).Text("Name")});
        }
    }
}

void TlotProjectReader::ReadChild(const TlotElement& e) {
    if (e.Is("Finance") && FContext.Version < 0.9) {
        FProject.Equity.InterestRate.Value = e.Number("InterestRate");
    } else if (e.Is("Cashflow") && FContext.Version < 0.9) {
        FProject.Equity.DiscountRate = e.Number("DiscountRate");
    } else if (e.Is("Notes")) {
        FProject.Notes = vip::NormaliseLineBreaks(e.Content());
    } else if (e.Is("AppraisalNotes")) {
        FProject.AppraisalNotes = vip::NormaliseLineBreaks(e.Content());
    } else if (e.Is("Address")) {
        FProject.Address = vip::NormaliseLineBreaks(e.Content());
    } else if (e.Is("SiteValue")) {
        FContext.ReadSpread(e, FProject.BaseValues.SiteValue);
    } else if (e.Is("Section")) {
        ReadSection(e);
    } else if (e.Is("Funding")) {
        TlotFundingReader(FContext).ReadFunding(e, FProject.Funding);
    } else if (e.Is("Equity")) {
        TlotFundingReader(FContext).ReadEquity(e, FProject.Equity);
    } else if (e.Is("Inflation")) {
        ReadInflation(e);
    } else if (e.Is("Unit")) {
        ReadUnit(e);
    }
}

void TlotProjectReader::ReadUnit(const TlotElement& e) {
    FContext.CountObject(e);
    TlotUnit& unit = FProject.Units.Add();
    unit.Name = e.Text("Name");
    unit.Number = e.Integer("Number");
    ReadUnitType(e, unit);
    unit.Dimensions = e.Enumeration<TlotDimensions>("Dimensions");
    unit.BuildArea.Value = e.Number("BuildArea");
    unit.BuildRate.Value = e.Number("BuildRate");
    unit.Yield.Value = e.Number("Yield");
    unit.YPFrequency = e.Enumeration<TlotYPFrequency>("YPFrequency");
    unit.BuildAccountCode = e.Text("BuildAccountCode");
    unit.SalesAccountCode = e.Text("SalesAccountCode");
    unit.RentAccountCode = e.Text("RentAccountCode");
    unit.RentFreePeriod = e.Integer("RentFreePeriod");
    unit.RentAtERV = e.Boolean("RentAtERV");
    unit.PreSalesRent = e.Number("PreSalesRent");
    unit.PurchCosts = e.Number("PurchCosts");
    ReadUnitChildren(e, unit);
    unit.Areas.SetZoning(e.Boolean("Zoning"));
}

void TlotProjectReader::ReadUnitType(const TlotElement& e, TlotUnit& unit) const {
    if (FContext.Version >= 10) {
        unit.UnitType = e.Text("UnitType");
        unit.IsCapitalised = e.Boolean("IsCapitalised");
        return;
    }
    const int type = e.Integer("UnitType");
    unit.UnitType = type == 0 ? "Commercial" : (type == 1 ? "Residential" : "Non-Capitalised");
    unit.IsCapitalised = type == 0;
}

void TlotProjectReader::ReadUnitChildren(const TlotElement& e, TlotUnit& unit) {
    // Locked, so that the stored figures of a row stand whatever order they come in.
    unit.Areas.Lock();
    for (const pugi::xml_node node : e.Node().children()) {
        if (!IsElement(node)) {
            continue;
        }
        const TlotElement child = FContext.Element(node);
        if (child.Is("Build")) {
            FContext.ReadSpread(child, unit.BuildLine);
        } else if (child.Is("Sales")) {
            FContext.ReadSpread(child, unit.SalesLine);
        } else if (child.Is("Rent")) {
            FContext.ReadSpread(child, unit.RentLine);
        } else if (child.Is("Area")) {
            FContext.CountObject(child);
            TlotArea& area = unit.Areas.Add();
            area.Description = child.Text("Description");
            area.SetZoning(child.Number("Zoning"));
            area.SetArea(child.Number("Area"));
            area.SetRate(child.Number("Rate"));
            area.SetValue(child.Number("Value"));
        }
    }
    unit.Areas.Unlock();
}

void TlotProjectReader::ReadSection(const TlotElement& e) {
    FContext.CountSection(e);
    TlotSection& section = *FProject.Sections.emplace_back(std::make_unique<TlotSection>());
    section.Name = e.Text("Name");
    section.Group = e.Text("Group");
    section.Income = e.Boolean("Income");
    section.DefaultBase = e.Text("DefaultBase");
    for (const pugi::xml_node child : e.Node().children()) {
        if (IsElement(child) && FContext.Element(child).Is("Item")) {
            ReadItem(FContext.Element(child), section);
        }
    }
}

void TlotProjectReader::ReadItem(const TlotElement& e, TlotSection& section) {
    FContext.CountObject(e);
    TlotItem& item = section.AddItem();
    item.Name = e.Text("Name");
    item.Amount.Value = e.Number("Amount");
    item.Percentage = e.Boolean("Percentage");
    item.BaseFormula = e.Text("BaseFormula");
    item.Link = e.Boolean("Link");
    // An older name of the same switch.
    item.DisplayRatio = e.Boolean("DisplayRatio", e.Boolean("PercentageOfGDV", true));
    item.AccountCode = e.Text("AccountCode");
    for (const pugi::xml_node child : e.Node().children()) {
        if (IsElement(child) && FContext.Element(child).Is("Value")) {
            FContext.ReadSpread(FContext.Element(child), item.Line);
        }
    }
}

void TlotProjectReader::ReadInflation(const TlotElement& e) {
    FProject.Inflation.Rate = e.Number("Rate");
    const TlotElement targets = FContext.Element(e.Node().child("Targets"));
    const auto set = [&](TlotInflationTarget target, const char* name) {
        FProject.Inflation.Set(target, targets.Boolean(name));
    };
    set(TlotInflationTarget::SiteValue, "SiteValue");
    set(TlotInflationTarget::BuildCosts, "BuildCosts");
    set(TlotInflationTarget::CommercialSales, "CommercialSales");
    set(TlotInflationTarget::ResidentialSales, "ResidentialSales");
    set(TlotInflationTarget::NonCapitalisedSales, "NonCapitalisedSales");
}
