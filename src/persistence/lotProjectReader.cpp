// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/lotProjectReader.h"

#include "common/vipDate.h"
#include "common/vipErrors.h"
#include "common/vipText.h"
#include "persistence/lotLimits.h"

#include <algorithm>

namespace {

bool IsElement(pugi::xml_node node) {
    return node.type() == pugi::node_element;
}

} // namespace

void TlotProjectReader::Read(pugi::xml_node node) {
    const TlotElement project = Element(node);
    ReadAttributes(project);
    ReadUnitTypes(project);
    if (FVersion < 2) {
        FProject.Equity.NPVIRRIncludesInterest = true;
    }
    for (const pugi::xml_node child : node.children()) {
        if (IsElement(child)) {
            ReadChild(Element(child));
        }
    }
    CheckSize();
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
        FProject.StartDate = date == 0 ? FToday : date;
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
    if (FVersion >= 0.9) {
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
    const bool all = FVersion < 0.9;
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
    if (FVersion < 10) {
        return; // A cleared project has the default types, which is what such files mean.
    }
    FProject.UnitTypes.Items.clear();
    for (const pugi::xml_node child : project.Node().children()) {
        if (IsElement(child) && Element(child).Is("UnitType")) {
            CountObject(Element(child));
            FProject.UnitTypes.Items.push_back({Element(child).Text("Name")});
        }
    }
}

void TlotProjectReader::ReadChild(const TlotElement& e) {
    if (e.Is("Finance") && FVersion < 0.9) {
        FProject.Equity.InterestRate.Value = e.Number("InterestRate");
    } else if (e.Is("Cashflow") && FVersion < 0.9) {
        FProject.Equity.DiscountRate = e.Number("DiscountRate");
    } else if (e.Is("Notes")) {
        FProject.Notes = vip::NormaliseLineBreaks(e.Content());
    } else if (e.Is("AppraisalNotes")) {
        FProject.AppraisalNotes = vip::NormaliseLineBreaks(e.Content());
    } else if (e.Is("Address")) {
        FProject.Address = vip::NormaliseLineBreaks(e.Content());
    } else if (e.Is("SiteValue")) {
        ReadSpread(e, FProject.BaseValues.SiteValue);
    } else if (e.Is("Section")) {
        ReadSection(e);
    } else if (e.Is("Funding")) {
        ReadFunding(e);
    } else if (e.Is("Equity")) {
        ReadEquity(e);
    } else if (e.Is("Inflation")) {
        ReadInflation(e);
    } else if (e.Is("Unit")) {
        ReadUnit(e);
    }
}

void TlotProjectReader::ReadUnit(const TlotElement& e) {
    CountObject(e);
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
    if (FVersion >= 10) {
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
        const TlotElement child = Element(node);
        if (child.Is("Build")) {
            ReadSpread(child, unit.BuildLine);
        } else if (child.Is("Sales")) {
            ReadSpread(child, unit.SalesLine);
        } else if (child.Is("Rent")) {
            ReadSpread(child, unit.RentLine);
        } else if (child.Is("Area")) {
            CountObject(child);
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
    CountObject(e);
    TlotSection& section = *FProject.Sections.emplace_back(std::make_unique<TlotSection>());
    section.Name = e.Text("Name");
    section.Group = e.Text("Group");
    section.Income = e.Boolean("Income");
    section.DefaultBase = e.Text("DefaultBase");
    for (const pugi::xml_node child : e.Node().children()) {
        if (IsElement(child) && Element(child).Is("Item")) {
            ReadItem(Element(child), section);
        }
    }
}

void TlotProjectReader::ReadItem(const TlotElement& e, TlotSection& section) {
    CountObject(e);
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
        if (IsElement(child) && Element(child).Is("Value")) {
            ReadSpread(Element(child), item.Line);
        }
    }
}

void TlotProjectReader::ReadInflation(const TlotElement& e) {
    FProject.Inflation.Rate = e.Number("Rate");
    const TlotElement targets = Element(e.Node().child("Targets"));
    const auto set = [&](TlotInflationTarget target, const char* name) {
        FProject.Inflation.Set(target, targets.Boolean(name));
    };
    set(TlotInflationTarget::SiteValue, "SiteValue");
    set(TlotInflationTarget::BuildCosts, "BuildCosts");
    set(TlotInflationTarget::CommercialSales, "CommercialSales");
    set(TlotInflationTarget::ResidentialSales, "ResidentialSales");
    set(TlotInflationTarget::NonCapitalisedSales, "NonCapitalisedSales");
}

void TlotProjectReader::ReadSpread(const TlotElement& e, TlotCashflowItem& line) {
    line.Start = e.Month("Start");
    line.Period = e.Month("Period");
    if (line.Start + line.Period > lotLimits::Months) {
        throw EFileError(e.Place() + ": the line ends beyond " + std::to_string(lotLimits::Months) + " months");
    }
    for (const pugi::xml_node child : e.Node().children()) {
        if (IsElement(child) && Element(child).Is("Values")) {
            line.SetPortion(Element(child).Month("Index"), Element(child).Number("SpreadValue"));
        }
    }
    line.Simplify();
    ++FLines;
    FLongest = std::max({FLongest, line.Start + line.Period, line.Portions.Count()});
}

void TlotProjectReader::CountObject(const TlotElement& e) {
    if (++FObjects > lotLimits::Objects) {
        throw EFileError(e.Place() + ": more than " + std::to_string(lotLimits::Objects) + " objects");
    }
}

void TlotProjectReader::CheckSize() const {
    // Any linked line may come out as long as the longest, and a loan has some eighteen rows of its own.
    constexpr double rowsOfALoan = 18;
    const double rows =
        FLines + 2.0 * static_cast<double>(FProject.Sections.size()) + rowsOfALoan * FProject.Funding.Loans.Count();
    if (rows * FLongest > lotLimits::Cells) {
        throw EFileError("Project: too large, " + std::to_string(FLines) + " lines over " + std::to_string(FLongest) +
                         " months");
    }
}
