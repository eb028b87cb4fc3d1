// SPDX-License-Identifier: GPL-3.0-or-later
#include "tool/lotJson.h"

#include "common/vipDate.h"
#include "model/lotMeasures.h"

namespace {

using nlohmann::ordered_json;

ordered_json Array(const TlotDoubles& values) {
    ordered_json array = ordered_json::array();
    for (const double value : values.Span()) {
        array.push_back(value);
    }
    return array;
}

ordered_json Array(const TlotCashflowItem& row) {
    return Array(row.Values);
}

ordered_json Line(const TlotCashflowItem& line) {
    return {{"Amount", line.Amount},           {"Start", line.Start},          {"Period", line.Period},
            {"ReadOnly", line.ReadOnly},       {"Income", line.Income},        {"NoTotal", line.NoTotal},
            {"AccountCode", line.AccountCode}, {"Values", Array(line.Values)}, {"Portions", Array(line.Portions)}};
}

ordered_json Head(const TlotProject& p) {
    return {{"Name", p.Name},
            {"StartDate", vip::DateToFile(p.StartDate)},
            {"SiteValue", p.BaseValues.SiteValue.Amount},
            {"GDV", p.GDV},
            {"NDV", p.NDV},
            {"TDC", p.TDC},
            {"TotalRent", p.TotalRent},
            {"TotalInterest", p.TotalInterest},
            {"TotalFees", p.Funding.TotalFees},
            {"SiteValuePerArea", p.SiteValuePerArea},
            {"ResidualTarget", static_cast<int>(p.ResidualTarget)},
            {"ResidualTargetValue", p.ResidualTargetValue},
            {"CashflowNPV", p.Cashflow.NPV},
            {"CashflowIRR", p.Cashflow.IRR},
            {"NPV", p.NPV()},
            {"IRR", p.IRR()}};
}

ordered_json BaseValues(const TlotProject& project) {
    const TlotBaseValues& b = project.BaseValues;
    ordered_json json = {
        {"SITEVALUE", Line(b.SiteValue)}, {"BUILD", Line(b.Build)},     {"GROSSCAP", Line(b.GrossCap)},
        {"NETCAP", Line(b.NetCap)},       {"NONCAP", Line(b.NonCap)},   {"GROSSRENT", Line(b.GrossRent)},
        {"NETRENT", Line(b.NetRent)},     {"SECTION", Line(b.Section)}, {"GROUP", Line(b.Group)}};
    for (const TlotMeasureInfo& measure : Measures()) {
        if (measure.Search == TlotMeasureSearch::ByKeyword) {
            json[std::string(measure.Keyword)] = measure.Figure(project);
        }
    }
    json["SiteValueOnGDV"] = b.SiteValueOnGDV;
    json["RentalCover"] = b.RentalCover;
    json["InterestCover"] = b.InterestCover;
    return json;
}

ordered_json Areas(const TlotAreaSchedule& areas) {
    ordered_json array = ordered_json::array();
    for (const auto& area : areas) {
        array.push_back({{"Description", area->Description()},
                         {"Zoning", area->Zoning()},
                         {"Area", area->Area()},
                         {"Rate", area->Rate()},
                         {"Value", area->Value()}});
    }
    return array;
}

ordered_json Unit(const TlotUnit& u) {
    return {{"Name", u.Name},
            {"Number", u.Number},
            {"UnitType", u.UnitType},
            {"UnitTypeIndex", u.UnitTypeIndex},
            {"IsCapitalised", u.IsCapitalised},
            {"BuildArea", u.BuildArea.Value},
            {"BuildRate", u.BuildRate.Value},
            {"Yield", u.Yield.Value},
            {"TotalArea", u.TotalArea},
            {"TotalValue", u.TotalValue},
            {"ERV", u.ERV.Value},
            {"GroundRent", u.GroundRent},
            {"NetRent", u.NetRent},
            {"YearsPurchase", u.YearsPurchase},
            {"RentFreeFactor", u.RentFreeFactor},
            {"GrossSale", u.GrossSale.Value},
            {"NetSale", u.NetSale.Value},
            {"PurchCostsValue", u.PurchCostsValue},
            {"ITZA", u.Areas.ITZA()},
            {"Areas", Areas(u.Areas)},
            {"BuildLine", Line(u.BuildLine)},
            {"RentLine", Line(u.RentLine)},
            {"SalesLine", Line(u.SalesLine)}};
}

ordered_json Item(const TlotItem& item) {
    return {{"Name", item.Name},
            {"Amount", item.Amount.Value},
            {"Percentage", item.Percentage},
            {"BaseFormula", item.BaseFormula},
            {"Link", item.Link},
            {"Base", item.Base},
            {"Error", item.Error},
            {"Line", Line(item.Line)}};
}

ordered_json Section(const TlotSection& section) {
    ordered_json items = ordered_json::array();
    for (const auto& item : section.Items) {
        items.push_back(Item(*item));
    }
    return {{"Name", section.Name},
            {"Group", section.Group},
            {"Income", section.Income},
            {"Total", Line(section.Total)},
            {"Items", std::move(items)}};
}

ordered_json Loan(const TlotLoan& loan) {
    return {{"Name", loan.Name},
            {"LoanType", static_cast<int>(loan.LoanType)},
            {"Active", loan.Active},
            {"TotalInterest", loan.TotalInterest},
            {"TotalBorrowed", loan.TotalBorrowed},
            {"MaximumDebt", loan.MaximumDebt},
            {"NPVExcludingInterest", loan.NPVExcludingInterest},
            {"NPVIncludingInterest", loan.NPVIncludingInterest},
            {"IRRExcludingInterest", loan.IRRExcludingInterest},
            {"IRRIncludingInterest", loan.IRRIncludingInterest},
            {"FeeLine", Line(loan.FeeLine)},
            {"CashflowIn", Array(loan.CashflowIn)},
            {"BorrowingSource", Array(loan.BorrowingSource)},
            {"RolledOverDebt", Array(loan.RolledOverDebt)},
            {"CanBorrow", Array(loan.CanBorrow)},
            {"NeedToBorrow", Array(loan.NeedToBorrow)},
            {"Borrowing", Array(loan.Borrowing)},
            {"CanRepay", Array(loan.CanRepay)},
            {"Repayment", Array(loan.Repayment)},
            {"Debt", Array(loan.Debt)},
            {"Interest", Array(loan.Interest)},
            {"ExcessInterest", Array(loan.ExcessInterest)},
            {"Fees", Array(loan.Fees)},
            {"CashflowOut", Array(loan.CashflowOut)},
            {"CashflowExcludingInterest", Array(loan.CashflowExcludingInterest)},
            {"CashflowIncludingInterest", Array(loan.CashflowIncludingInterest)}};
}

ordered_json Equity(const TlotEquity& equity) {
    return {{"InterestRate", equity.InterestRate.Value},
            {"Cashflow", Array(equity.Cashflow)},
            {"Balance", Array(equity.Balance)},
            {"Interest", Array(equity.Interest)},
            {"CashflowIncludingInterest", Array(equity.CashflowIncludingInterest)},
            {"NPV", equity.NPV},
            {"IRR", equity.IRR},
            {"TotalInterest", equity.TotalInterest},
            {"TotalCash", equity.TotalCash}};
}

} // namespace

ordered_json ProjectJson(const TlotProject& project) {
    ordered_json json;
    json["project"] = Head(project);
    json["baseValues"] = BaseValues(project);
    ordered_json& units = json["units"] = ordered_json::array();
    for (const auto& unit : project.Units) {
        units.push_back(Unit(*unit));
    }
    ordered_json& groups = json["groups"] = ordered_json::array();
    for (int i = 0; i < project.Groups.Count(); ++i) {
        groups.push_back({{"Name", project.Groups[i].Name}, {"Total", Line(project.Groups[i].Total)}});
    }
    ordered_json& sections = json["sections"] = ordered_json::array();
    for (const auto& section : project.Sections) {
        sections.push_back(Section(*section));
    }
    json["cashflow"] = {{"Count", project.Cashflow.Items.size()},
                        {"LastMonth", project.Cashflow.LastMonth()},
                        {"Total", Line(project.Cashflow.Total)}};
    ordered_json& loans = json["loans"] = ordered_json::array();
    for (const auto& loan : project.Funding.Loans) {
        loans.push_back(Loan(*loan));
    }
    json["equity"] = Equity(project.Equity);
    ordered_json& vars = json["vars"] = ordered_json::array();
    for (const TlotVariable& variable : project.Vars.Items()) {
        vars.push_back(variable.Name);
    }
    return json;
}

std::string JsonText(const ordered_json& json) {
    return json.dump(-1, ' ', false, ordered_json::error_handler_t::replace);
}
