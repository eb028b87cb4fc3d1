// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/lotProjectWriter.h"

#include "common/vipDate.h"
#include "common/vipText.h"

#include <algorithm>

namespace {

void WriteSpread(TlotElementWriter e, TlotCashflowItem& line) {
    line.Simplify();
    // A line that was dragged before the first month and is not spread, since it has no money, begins at 0 all the
    // same.
    e.Integer("Start", std::max(line.Start, 0));
    e.Integer("Period", std::max(line.Period, 0));
    for (int month = 0; month < line.Portions.Count(); ++month) {
        if (const double weight = line.GetPortion(month); weight != 0) {
            TlotElementWriter value = e.AddChild("Values");
            value.Integer("Index", month);
            value.Number("SpreadValue", weight);
        }
    }
}

void WriteValueArray(TlotElementWriter e, const TlotDoubles& values) {
    e.Integer("Count", values.Count());
    for (const double value : values.Span()) {
        e.AddChild("Value").NumberText(value);
    }
}

void WriteFreeText(TlotElementWriter& parent, const char* name, const std::string& text) {
    if (const std::string_view trimmed = vip::Trim(text); !trimmed.empty()) {
        parent.AddChild(name).CData(trimmed);
    }
}

void WriteUnit(TlotElementWriter e, TlotUnit& unit) {
    e.Text("Name", unit.Name);
    e.Integer("Number", unit.Number);
    e.Text("UnitType", unit.UnitType);
    e.MixedCaseBoolean("IsCapitalised", unit.IsCapitalised);
    e.Enumeration("Dimensions", unit.Dimensions);
    e.Number("BuildArea", unit.BuildArea.Value);
    e.Number("BuildRate", unit.BuildRate.Value);
    e.Number("Yield", unit.Yield.Value);
    e.Enumeration("YPFrequency", unit.YPFrequency);
    e.Text("BuildAccountCode", unit.BuildAccountCode);
    e.Text("SalesAccountCode", unit.SalesAccountCode);
    e.Text("RentAccountCode", unit.RentAccountCode);
    WriteSpread(e.AddChild("Build"), unit.BuildLine);
    WriteSpread(e.AddChild("Sales"), unit.SalesLine);
    WriteSpread(e.AddChild("Rent"), unit.RentLine);
    e.Integer("RentFreePeriod", unit.RentFreePeriod);
    e.Boolean("RentAtERV", unit.RentAtERV);
    e.Number("PreSalesRent", unit.PreSalesRent);
    e.Number("PurchCosts", unit.PurchCosts);
    for (const auto& area : unit.Areas) {
        TlotElementWriter row = e.AddChild("Area");
        row.Text("Description", area->Description);
        row.Number("Zoning", area->Zoning());
        row.Number("Area", area->Area());
        row.Number("Rate", area->Rate());
        row.Number("Value", area->Value());
    }
    e.Boolean("Zoning", unit.Areas.Zoning());
}

void WriteItem(TlotElementWriter e, TlotItem& item) {
    e.Text("Name", item.Name);
    e.Number("Amount", item.Amount.Value);
    e.Boolean("Percentage", item.Percentage);
    e.Text("BaseFormula", item.BaseFormula);
    e.Boolean("Link", item.Link);
    e.Boolean("DisplayRatio", item.DisplayRatio);
    e.Text("AccountCode", item.AccountCode);
    e.Number("CalculatedValue", item.Line.Amount);
    WriteSpread(e.AddChild("Value"), item.Line);
}

void WriteLoan(TlotElementWriter e, const TlotLoan& loan) {
    e.Text("Name", loan.Name);
    e.Enumeration("LoanType", loan.LoanType);
    e.Boolean("Active", loan.Active);
    e.Number("InterestRate", loan.InterestRate.Value);
    e.Number("BorrowPercentage", loan.BorrowPercentage);
    e.Number("RepayPercentage", loan.RepayPercentage);
    e.Boolean("VariablePercentage", loan.VariablePercentage);
    e.Enumeration("LoanSource", loan.LoanSource);
    e.Number("Amount", loan.Amount);
    e.Number("Maximum", loan.Maximum);
    e.Text("Base", loan.Base);
    e.Integer("Start", loan.Start);
    e.Integer("Period", loan.Period);
    e.Boolean("VariableRate", loan.VariableRate);
    WriteValueArray(e.AddChild("InterestRates"), loan.InterestRates);
    WriteValueArray(e.AddChild("Borrow"), loan.BorrowPercentages);
    WriteValueArray(e.AddChild("Repay"), loan.RepayPercentages);
    TlotElementWriter fees = e.AddChild("LoanFees");
    fees.Number("Amount", loan.LoanFees.Amount);
    fees.Boolean("Percentage", loan.LoanFees.Percentage);
}

} // namespace

void TlotProjectWriter::Write(TlotElementWriter e) {
    WriteAttributes(e);
    WriteReportSettings(e);
    WriteShowFlags(e);
    WriteSpread(e.AddChild("SiteValue"), FProject.BaseValues.SiteValue);
    for (const TlotUnitType& type : FProject.UnitTypes.Items) {
        e.AddChild("UnitType").Text("Name", type.Name);
    }
    WriteUnits(e);
    WriteSections(e);
    WriteInflation(e.AddChild("Inflation"));
    WriteFunding(e.AddChild("Funding"));
    WriteEquity(e.AddChild("Equity"));
    WriteFreeText(e, "Notes", FProject.Notes);
    WriteFreeText(e, "AppraisalNotes", FProject.AppraisalNotes);
    WriteFreeText(e, "Address", FProject.Address);
    // For outside readers of the file only.
    e.Number("Profit", FProject.BaseValues.Profit);
    e.Number("ProfitOnCost", FProject.BaseValues.ProfitOnCost);
}

void TlotProjectWriter::WriteAttributes(TlotElementWriter& e) const {
    e.Text("Name", FProject.Name);
    e.Text("Recipient", FProject.Recipient);
    e.Text("StartDate", vip::DateToFile(FProject.StartDate));
    e.Enumeration("RentalValues", FProject.RentalValues);
    e.Number("TotalGroundRent", FProject.TotalGroundRent);
    e.Boolean("Leasehold", FProject.Leasehold);
    e.Number("LeaseTerm", FProject.LeaseTerm);
    e.Text("ConstructionGroup", FProject.ConstructionGroup);
    e.Text("SiteGroup", FProject.SiteGroup);
    e.Text("PictureFileName", FProject.PictureFileName);
    e.Number("SiteValue", FProject.BaseValues.SiteValue.Amount);
    e.Text("SiteValueAccountCode", FProject.BaseValues.SiteValue.AccountCode);
    e.Number("NetSiteArea", FProject.NetSiteArea);
    e.Enumeration("SiteAreaUnits", FProject.SiteAreaUnits);
    e.Number("ResidualTargetValue", FProject.ResidualTargetValue);
    e.Enumeration("ResidualTarget", FProject.ResidualTarget);
    e.Number("MinSiteValue", FProject.MinSiteValue);
    e.Number("MaxSiteValue", FProject.MaxSiteValue);
    e.Boolean("CalcNegativeSiteValue", FProject.CalcNegativeSiteValue);
    e.Enumeration("NPVIRRSource", FProject.NPVIRRSource);
    e.Boolean("IncludeExtraLoanDetail", FProject.IncludeExtraLoanDetail);
    e.Text("EquitySource", FProject.Funding.EquitySource);
}

void TlotProjectWriter::WriteReportSettings(TlotElementWriter& e) const {
    e.Integer("UnitAreaDecPlaces", FProject.UnitAreaDecPlaces);
    e.Integer("PercentageCostDecPlaces", FProject.PercentageCostDecPlaces);
    e.Text("CostGroupPageBreak", FProject.CostGroupPageBreak);
    e.Text("AppraisalReportFile", FProject.AppraisalReportFile);
    e.Text("RatioBase", FProject.RatioBase);
    e.Boolean("HideRatio", FProject.HideRatio);
    e.Text("AppraisalTitle", FProject.AppraisalTitle);
    e.Text("ResidualTitle", FProject.ResidualTitle);
}

void TlotProjectWriter::WriteShowFlags(TlotElementWriter& e) const {
    e.Boolean("ShowProfitOnCost", FProject.ShowProfitOnCost);
    e.Boolean("ShowProfitOnGDV", FProject.ShowProfitOnGDV);
    e.Boolean("ShowProfitOnNDV", FProject.ShowProfitOnNDV);
    e.Boolean("ShowSiteValueOnGDV", FProject.ShowSiteValueOnGDV);
    e.Boolean("ShowRentalYield", FProject.ShowRentalYield);
    e.Boolean("ShowNPV", FProject.ShowNPV);
    e.Boolean("ShowIRR", FProject.ShowIRR);
    e.Boolean("ShowRentalCover", FProject.ShowRentalCover);
    e.Boolean("ShowInterestCover", FProject.ShowInterestCover);
}

void TlotProjectWriter::WriteUnits(TlotElementWriter& e) {
    for (const auto& unit : FProject.Units) {
        WriteUnit(e.AddChild("Unit"), *unit);
    }
}

void TlotProjectWriter::WriteSections(TlotElementWriter& e) {
    for (const auto& section : FProject.Sections) {
        TlotElementWriter child = e.AddChild("Section");
        child.Text("Name", section->Name);
        child.Text("Group", section->Group);
        child.Boolean("Income", section->Income);
        child.Text("DefaultBase", section->DefaultBase);
        for (const auto& item : section->Items) {
            WriteItem(child.AddChild("Item"), *item);
        }
    }
}

void TlotProjectWriter::WriteInflation(TlotElementWriter e) const {
    const TlotInflation& inflation = FProject.Inflation;
    e.Number("Rate", inflation.Rate);
    TlotElementWriter targets = e.AddChild("Targets");
    targets.Boolean("SiteValue", inflation.Has(TlotInflationTarget::SiteValue));
    targets.Boolean("BuildCosts", inflation.Has(TlotInflationTarget::BuildCosts));
    targets.Boolean("CommercialSales", inflation.Has(TlotInflationTarget::CommercialSales));
    targets.Boolean("ResidentialSales", inflation.Has(TlotInflationTarget::ResidentialSales));
    targets.Boolean("NonCapitalisedSales", inflation.Has(TlotInflationTarget::NonCapitalisedSales));
}

void TlotProjectWriter::WriteFunding(TlotElementWriter e) const {
    for (const auto& loan : FProject.Funding.Loans) {
        WriteLoan(e.AddChild("Loan"), *loan);
    }
}

void TlotProjectWriter::WriteEquity(TlotElementWriter e) const {
    const TlotEquity& equity = FProject.Equity;
    e.Number("DiscountRate", equity.DiscountRate);
    e.Number("InterestRate", equity.InterestRate.Value);
    e.Number("CreditInterestRate", equity.CreditInterestRate);
    e.Boolean("VariableRate", equity.VariableRate);
    e.Boolean("NPVIRRIncludesInterest", equity.NPVIRRIncludesInterest);
    WriteValueArray(e.AddChild("InterestRates"), equity.InterestRates);
}
