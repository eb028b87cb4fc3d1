// SPDX-License-Identifier: GPL-3.0-or-later
#include "reporting/lotReportTables.h"

#include "common/vipDate.h"
#include "common/vipErrors.h"
#include "common/vipText.h"
#include "reporting/lotTableFillers.h"

#include <algorithm>

namespace {

using TFields = std::vector<TlotField>;
using enum TlotFieldKind;

void AddNumbers(TFields& fields, std::initializer_list<const char*> names) {
    for (const char* const name : names) {
        fields.push_back({name, Number});
    }
}

TFields UnitFields() {
    TFields fields{{"UnitID", SmallInteger}, {"Name", Text, 32}};
    AddNumbers(fields, {"BuildArea", "BuildRate", "TotalArea", "TotalValue", "NetValue"});
    fields.insert(fields.end(), {{"UnitType", Integer},
                                 {"Group", Text, 32},
                                 {"NetAreaStr", Text, 32},
                                 {"GrossAreaStr", Text, 32},
                                 {"UnitStr", Text, 16},
                                 {"GrossToNetAreaPerc", Number},
                                 {"Zoning", Boolean},
                                 {"IsCapitalised", Boolean}});
    return fields;
}

TFields UnitAreaFields() {
    TFields fields{{"UnitID", Integer}, {"Description", Text, 30}};
    AddNumbers(fields, {"Zoning", "Area", "Rate", "Value"});
    fields.insert(fields.end(), {{"AreaDisplayFormat", Text}, {"Dim", Text}});
    return fields;
}

TFields ItemFields() {
    return {{"Name", Text, 80},   {"Group", Text},        {"Section", Text},           {"AmountValue", Number},
            {"Amount", Text, 80}, {"Base", Number},       {"Value", Number},           {"Unit", Text, 8},
            {"Error", Boolean},   {"Ratio", Number},      {"BaseDisplayFormat", Text}, {"DisplayRatio", Boolean},
            {"GroupID", Integer}, {"SubHeading", Boolean}};
}

TFields SummaryFields() {
    TFields fields;
    AddNumbers(fields, {"Profit", "ProfitOnCost", "ProfitOnGDV", "ProfitOnNDV", "SiteValueOnGDV", "IRR", "TDC", "SV",
                        "RY", "GDV", "NDV", "NPV"});
    fields.insert(fields.end(), {{"RentalCover", Text, 50}, {"InterestCover", Text, 50}, {"Notes", LongText}});
    AddNumbers(fields, {"SiteValue", "SiteCosts", "ConstructionCosts", "SalesCosts", "SaleValue", "Debt", "Equity",
                        "DebtPerc", "EquityPerc", "TotalInterest"});
    return fields;
}

TFields TimescaleFields() {
    return {{"Group", Text, 32},  {"Name", Text, 32},     {"StartDate", Date}, {"EndDate", Date},
            {"Spread", Text, 50}, {"Percentage", Number}, {"Value", Number},   {"Error", Boolean}};
}

TFields TimingFields() {
    return {{"StartDate", Date},      {"SitePurchaseDate", Date}, {"BuildStartDate", Date}, {"BuildEndDate", Date},
            {"SalesStartDate", Date}, {"SalesEndDate", Date},     {"CompletionDate", Date}};
}

TFields FinanceFields() {
    return {{"Name", Text, 32},
            {"LoanType", Text, 50},
            {"InterestRate", Text, 50},
            {"TotalInterest", Number},
            {"Term", Text}};
}

} // namespace

double TlotReportSource::MonthDate(int month) const {
    return vip::IncMonth(Project.StartDate, month);
}

TlotReportTables::TlotReportTables()
    : ProjectData("ProjectData",
                  {{"Name", Text, 80}, {"Recipient", Text, 80}, {"FileName", Text, 32}, {"StartDate", Text, 32}}),
      UnitData("UnitData", UnitFields()),
      UnitAreaData("UnitAreaData", UnitAreaFields()),
      UnitMiscData("UnitMiscData", {{"UnitID", Integer},
                                    {"Description", Text, 50},
                                    {"Text1", Text, 32},
                                    {"Text2", Text, 32},
                                    {"Value", Number}}),
      ItemData("ItemData", ItemFields()),
      SummaryData("SummaryData", SummaryFields()),
      GroupData("GroupData", {{"Name", Text, 32}, {"Value", Number}}),
      SystemData("SystemData", {{"Footer", Text, 120}}),
      CompanyData("CompanyData", {{"Text", Text, 64}}),
      TimescaleData("TimescaleData", TimescaleFields()),
      ChartData("ChartData", {{"Name", Text, 32}, {"Value", Number}}),
      TimingData("TimingData", TimingFields()),
      AppraisalNotes("AppraisalNotes", {{"Text", LongText}}),
      AddressData("AddressData", {{"Text", Text, 80}}),
      FinanceData("FinanceData", FinanceFields()),
      DynamicSummaryData("DynamicSummaryData", {{"Description", Text, 50}, {"Value", Text, 50}}),
      SectionGroupData("SectionGroupData", {{"GroupID", Integer}, {"Name", Text, 32}, {"Value", Number}}),
      FTables{&ProjectData,    &UnitData,    &UnitAreaData, &UnitMiscData,       &ItemData,        &SummaryData,
              &GroupData,      &SystemData,  &CompanyData,  &TimescaleData,      &ChartData,       &TimingData,
              &AppraisalNotes, &AddressData, &FinanceData,  &DynamicSummaryData, &SectionGroupData} {
    UnitAreaData.Follow("UnitID", UnitData, "UnitID");
    UnitMiscData.Follow("UnitID", UnitData, "UnitID");
}

TlotTable& TlotReportTables::Find(std::string_view name) const {
    const auto found =
        std::ranges::find_if(FTables, [&](const TlotTable* table) { return vip::SameText(table->Name(), name); });
    if (found == FTables.end()) {
        throw ELotError("There is no report table " + std::string(name));
    }
    return **found;
}

void TlotReportTables::BuildReportTables(TlotReportKind kind, const TlotProject& project, const TNumberLocale& locale,
                                         const TlotReportContext& context) {
    for (TlotTable* const table : FTables) {
        table->Clear();
    }
    const TlotReportSource source{kind, project, locale, context};
    FillHeadTables(*this, source);
    FillUnitTables(*this, source);
    FillItemData(ItemData, source);
    FillTimescaleData(TimescaleData, source);
    FillFinanceData(FinanceData, source);
    FillSummaryData(SummaryData, source);
    FillDynamicSummaryData(DynamicSummaryData, source);
    FillTimingData(TimingData, source);
    FillGroupData(GroupData, source);
    FillSectionGroupData(SectionGroupData, source);
    FillChartData(ChartData, source);
    for (TlotTable* const table : FTables) {
        table->First();
    }
}
