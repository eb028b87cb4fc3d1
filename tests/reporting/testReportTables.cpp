// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipDate.h"
#include "common/vipErrors.h"
#include "reporting/lotMoneyFormat.h"
#include "reporting/lotReportTables.h"
#include "support/lotFiles.h"
#include "support/lotTestProject.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

namespace {

using enum TlotFieldKind;
using TTexts = std::vector<std::string>;

std::string CellText(const TlotField& field, const TlotCell& cell) {
    if (const auto* const number = std::get_if<double>(&cell)) {
        return field.Kind == Date ? vip::DateToFile(*number) : vip::NumberToText(*number, PointLocale);
    }
    if (const auto* const text = std::get_if<std::string>(&cell)) {
        return *text;
    }
    if (const auto* const whole = std::get_if<std::int32_t>(&cell)) {
        return std::to_string(*whole);
    }
    return std::holds_alternative<bool>(cell) ? (std::get<bool>(cell) ? "yes" : "no") : "~";
}

/// Each row's cells of those fields, or of all, joined by "|"; an empty cell is "~".
TTexts Rows(const TlotTable& table, const TTexts& names = {}) {
    TTexts rows;
    for (int i = 0; i < table.RowCount(); ++i) {
        std::string row;
        for (const TlotField& field : table.Fields()) {
            if (names.empty() || std::ranges::find(names, field.Name) != names.end()) {
                row += "|" + CellText(field, table.Row(i).Cell(field.Name));
            }
        }
        rows.push_back(row.substr(1));
    }
    return rows;
}

std::string ErrorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const ELotError& error) {
        return error.what();
    }
    return "no error";
}

TEST(Table, CutsTextByLettersNeverInsideOne) {
    TlotTable table("T", {{"Short", Text, 3}, {"Free", Text}, {"Long", LongText}});
    const std::string euros = "\u20AC\u20AC\u20AC\u20AC";
    table.Append().Set("Short", "abcd").Set("Free", euros).Set("Long", euros);
    table.Append().Set("Short", "a\U0001F3E0\u00FC\u00FC");
    table.Append().Set("Short", "\xFF\xFF\u00FCx"); // Bytes that are no letters count one each.
    EXPECT_EQ(Rows(table, {"Short"}), (TTexts{"abc", "a\U0001F3E0\u00FC", "\xFF\xFF\u00FC"}));
    EXPECT_EQ(table.Row(0).Text("free") + table.Row(0).Text("LONG"), euros + euros);
}

TEST(Table, TellsWhatIsWrongWithAFieldAndKnowsEmptyFromZero) {
    TlotTable table("Units", {{"Area", Number}, {"Name", Text, 9}, {"Sold", Boolean}});
    EXPECT_EQ(ErrorOf([&] { table.Set("Area", 1.0); }), "Table Units has no current row");
    EXPECT_TRUE(table.Current().IsEmpty("Area"));
    table.Append().Set("AREA", 0).Set("Name", "");
    EXPECT_EQ(ErrorOf([&] { table.Set("Rent", 1.0); }), "Table Units has no field Rent");
    EXPECT_EQ(ErrorOf([&] { table.Set("Area", "1"); }), "Field Area of table Units holds a number");
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(table.Current().Boolean("area")); }),
              "Field Area of table Units holds a number");
    EXPECT_EQ(Rows(table), TTexts{"0||~"});
    EXPECT_FALSE(table.Current().Boolean("Sold"));
}

TEST(Table, WalksWhatTheFilterAndTheMasterShow) {
    TlotTable rooms("Rooms", {{"House", Integer}, {"Size", Number}});
    const auto walk = [&] {
        std::string sizes;
        for (rooms.First(); !rooms.Eof(); rooms.Next()) {
            sizes += vip::NumberToText(rooms.Current().Number("Size"), PointLocale) + " ";
        }
        return sizes;
    };
    {
        TlotTable houses("Houses", {{"ID", SmallInteger}});
        rooms.Follow("House", houses, "ID");
        for (const int id : {0, 1, 2}) {
            houses.Append().Set("ID", id);
        }
        for (const auto& [house, size] : {std::pair(2, 10), {0, 20}, {2, 30}, {2, 5}}) {
            rooms.Append().Set("House", house).Set("Size", size);
        }
        TTexts shown;
        for (houses.First(); !houses.Eof(); houses.Next()) {
            EXPECT_EQ(rooms.Eof(), houses.Current().Number("ID") == 1) << "each step shows the first of the details";
            shown.push_back(walk());
        }
        EXPECT_EQ(shown, (TTexts{"20 ", "", "10 30 5 "}));
        EXPECT_EQ(walk(), "") << "a master without a row";
        EXPECT_EQ(ErrorOf([&] { houses.Follow("ID", rooms, "House"); }), "Table Houses cannot follow itself");
        rooms.SetFilter([](const TlotRow& row) { return row.Number("Size") > 7; });
        houses.First();
        EXPECT_EQ(walk(), "20 ");
    }
    EXPECT_EQ(walk(), "10 20 30 ") << "the master is gone";
    rooms.Clear();
    rooms.Append().Set("Size", 1);
    EXPECT_EQ(walk(), "") << "clearing keeps the filter";
    rooms.SetFilter(nullptr);
    EXPECT_EQ(walk(), "1 ");
    rooms.Reset();
    EXPECT_EQ(walk(), "");
}

TEST(MoneyFormat, GroupsThousandsAndRoundsHalfAwayFromZero) {
    const std::tuple<const char*, double, const TNumberLocale&, const char*> cases[] = {
        {"%2.2m", 1234567.005, PointLocale, "1,234,567.01"},
        {"%2.2m", -1234.5, CommaLocale, "-1.234,50"},
        {"%2.0m", -0.4, PointLocale, "0"},
        {"%2.3n", 2.0005, PointLocale, "2.001"},
        {"%2.-1n", 12.5, PointLocale, "13"},
        {"0.%", 7.5, PointLocale, "8%"},
        {"", 1234.5, CommaLocale, "1234,5"},
    };
    for (const auto& [format, value, locale, text] : cases) {
        EXPECT_EQ(FormatFigure(format, value, locale), text) << format;
    }
    for (const char* const format : {"%", "%2m", "%2.xm", "%2.2f", "%a.2n", "%2.m", "0.00"}) {
        EXPECT_THROW(static_cast<void>(FormatMoney(format, 1, PointLocale)), ELotError) << format;
    }
}

/// Two units, costs in every group: GDV 12,500 (a rent of 1,000 at 8 %) + 20,000; TDC 4,000 + 10,000 + 160 + 1,000 +
/// 300; no finance. Purchaser's costs of 25 % leave 10,000 of the 12,500.
class ReportTables : public testing::Test {
protected:
    ReportTables() {
        FProject.StartDate = vip::EncodeDate(2014, 1, 31);
        FShop.Name = "Shop";
        FShop.BuildArea.Value = 1000.5;
        FShop.BuildRate.Value = 10'000 / 1000.5;
        FShop.PurchCosts = 25;
        FShop.BuildLine.Period = 2;
        FShop.SalesLine.Start = 2;
        FFlats.Name = "Flats";
        FFlats.BuildLine.Period = 1;
        FFlats.Dimensions = TlotDimensions::SubUnits;
        FProject.BaseValues.SiteValue.Amount = 4000;
        FProject.NetSiteArea = 2.5;
        FStampDuty.DisplayRatio = true;
        AddItem(FBuild, "#Professional", 1).Line.Period = 1;
        FArchitect.Link = true;
        AddItem(FBuild, "Survey", 0);
        AddItem(FBuild, "Demolition", 500);
        AddItem(AddSection(FProject, "Selling", "Sales Costs"), "Agents", 300);
    }

    TlotReportTables& Build(TlotReportKind kind = TlotReportKind::Appraisal) {
        FProject.Calculate();
        return Fill(kind);
    }
    TlotReportTables& Fill(TlotReportKind kind = TlotReportKind::Appraisal) {
        FTables.BuildReportTables(kind, FProject, PointLocale, FContext);
        return FTables;
    }

    TlotProject FProject{0};
    TlotUnit& FFlats = AddUnit(FProject, "Residential", 10, 2000);
    TlotUnit& FShop = AddUnit(FProject, "Commercial", 100, 10, 8);
    TlotItem& FStampDuty = AddItem(AddSection(FProject, "Site", "Site Costs"), "Stamp Duty", 4, "SITEVALUE");
    TlotSection& FBuild = AddSection(FProject, "Works", "Construction Costs");
    TlotItem& FArchitect = AddItem(FBuild, "Architect", 5, "BUILD");
    TlotReportContext FContext{"/home/surveyor/High Street.lot", std::string(130, 'f'), {"Hill & Co", ""}};
    TlotReportTables FTables;
};

TEST_F(ReportTables, HeadTheReport) {
    FProject.Name = "High Street";
    FProject.Address = "1 High Street\n\nTown\r";
    FProject.AppraisalNotes = "Subject to survey";
    Build();
    EXPECT_EQ(Rows(FTables.ProjectData), TTexts{"High Street||High Street.lot|31 Jan 2014"});
    EXPECT_EQ(Rows(FTables.SystemData), TTexts{std::string(120, 'f')});
    EXPECT_EQ(Rows(FTables.CompanyData), (TTexts{"Hill & Co", ""}));
    EXPECT_EQ(Rows(FTables.AddressData), (TTexts{"1 High Street", "", "Town"}));
    EXPECT_EQ(Rows(FTables.AppraisalNotes), TTexts{"Subject to survey"});
    EXPECT_EQ(&FTables.Find("unitareadata"), &FTables.UnitAreaData);
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(FTables.Find("Unit")); }), "There is no report table Unit");
}

TEST_F(ReportTables, TellTheUnitsAndShowTheirAreasUnderThem) {
    FShop.Dimensions = TlotDimensions::SquareMetres;
    FFlats.BuildArea.Value = 1234.4;
    FFlats.Areas[0].SetArea(1.2);
    FProject.UnitAreaDecPlaces = 1;
    FShop.BuildRate.Value = 10;
    Build();
    // The flats' net is 1.2 / 1234.4 = 0.0972 % of gross, too little to tell.
    EXPECT_EQ(Rows(FTables.UnitData),
              (TTexts{"0|Shop|1000.5|10|100|12500|10000|~|Commercial|100.00|1,000.50|sq. m|9.99500249875062|no|yes",
                      "1|Flats|1234.4|0|1.2|2400|2400|~|Residential|1|1234|units|~|no|no"}));
    EXPECT_EQ(Rows(FTables.UnitAreaData), (TTexts{"0||0|100|10|1000|%2.1n|sq. m", "1||0|1.2|2000|2400|%2.1n|units"}));
    EXPECT_EQ(FTables.UnitAreaData.Current().Text("Dim"), "sq. m");
    FTables.UnitData.Next();
    EXPECT_EQ(FTables.UnitAreaData.Current().Text("Dim"), "units");
}

TEST_F(ReportTables, ComposeEveryLineOfACapitalisation) {
    FShop.PurchCosts = 0;
    EXPECT_EQ(Rows(Build().UnitMiscData),
              (TTexts{"0|Capitalised  (Annually in Arrears)|8.000% in perp.|12.5000|12500", "1|~|~|~|~"}));
    FProject.TotalGroundRent = 200;
    EXPECT_EQ(Rows(Build().UnitMiscData, {"Description"})[0], "Capitalised  (Annually in Arrears)") << "freehold";

    // For 10.6 years of 800 at 25 %: YP (1 - 1.25^-10.6) / 0.25 = 3.624324, less two years' deferment 0.64.
    FProject.Leasehold = true;
    FProject.LeaseTerm = 10.6;
    FShop.Yield.Value = 25;
    FShop.RentFreePeriod = 24;
    FShop.PurchCosts = 5.75;
    const TTexts rows = Rows(Build().UnitMiscData, {"Description", "Text1", "Text2"});
    EXPECT_EQ(rows, (TTexts{"Less Ground Rent|~|~", "Capitalised  (Annually in Arrears)|25.000% for 11 years|3.6243",
                            "24 month rent free period|~|0.6400", "Purchasers Costs|5.750%|~", "~|~|~"}));
    EXPECT_EQ(FTables.UnitMiscData.Row(0).Number("Value"), 200);
    EXPECT_NEAR(FTables.UnitMiscData.Row(1).Number("Value"), 800 * 3.624324 * 0.64, 0.01);
    EXPECT_EQ(FTables.UnitMiscData.Row(3).Number("Value"), FShop.PurchCostsValue);

    FShop.Yield.Value = 0;
    FShop.YPFrequency = TlotYPFrequency::QuarterlyInAdvance;
    EXPECT_EQ(Rows(Build().UnitMiscData, {"Description", "Text1", "Text2"})[1],
              "Capitalised  (Quarterly in Advance)|0.000% for 11 years|~");
    FShop.YPFrequency = TlotYPFrequency::MonthlyInAdvance;
    EXPECT_EQ(Rows(Build().UnitMiscData, {"Description"})[1], "Capitalised  (Monthly in Advance)");
}

TEST_F(ReportTables, ListTheCostsInTheOrderOfTheSections) {
    FProject.PercentageCostDecPlaces = 2;
    FProject.SiteAreaUnits = TlotSiteAreaUnits::Hectares;
    FProject.RatioBase = "NDV"; // 30,000
    FShop.BuildArea.Value = 1250;
    FShop.BuildRate.Value = 8;
    AddItem(AddSection(FProject, "More", "Site Costs"), "Odd", 2, "WHAT");
    // Name, group, section, amount, its text, base, value, unit, error, ratio, format, shown, group's number, heading.
    const TTexts items = {
        "Site Value|Site Costs|Site Costs|1600|1,600.00|2.5|4000|ha|~|13.3333333333333|%2.2n|yes|~|~",
        "Stamp Duty|Site Costs|Site|4|4.00% of|4000|160|~|no|0.533333333333333|%2.0m|yes|~|~",
        "Shop|Construction Costs|Build Costs|8|8.00|1250|10000|sq. ft|~|33.3333333333333|%2.0n|yes|~|~",
        "Flats|Construction Costs|Build Costs|0|0.00|0|0|units|~|0|%2.0n|yes|~|~",
        "Architect|Construction Costs|Works|5|5.00% of|10000|500|~|no|1.66666666666667|%2.0m|no|~|~",
        "Professional|Construction Costs|Works|~|~|~|~|~|~|~|~|~|~|yes",
        "Demolition|Construction Costs|Works|500|~|~|500|~|no|1.66666666666667|~|no|~|~",
        "Agents|Sales Costs|Selling|300|~|~|300|~|no|1|~|no|~|~",
        "Odd|Site Costs|More|2|2.00% of|0|0|~|yes|0|%2.0m|no|~|~",
    };
    EXPECT_EQ(Rows(Build().ItemData), items);
    EXPECT_EQ(Rows(Build(TlotReportKind::Residual).ItemData), TTexts(items.begin() + 1, items.end()));

    FProject.HideRatio = true;
    FProject.PercentageCostDecPlaces = 0;
    const TTexts hidden = Rows(Build().ItemData, {"Amount", "Ratio", "DisplayRatio"});
    EXPECT_EQ(hidden[1], "4% of|0.533333333333333|no");
    EXPECT_EQ(hidden[5], "~|~|~") << "a heading stays bare";
    FProject.RatioBase = "";
    EXPECT_EQ(Build().ItemData.Row(0).Number("Ratio"), 0);
}

TEST_F(ReportTables, DateEveryTimedLine) {
    FFlats.SalesLine.Start = 1;
    FFlats.SalesLine.Portions = TlotDoubles({0, 2, 0, 1});
    Build();
    EXPECT_EQ(Rows(FTables.TimescaleData),
              (TTexts{"Construction|Shop|2014-01-31|2014-02-28|Normal|~|10000|~",
                      "Construction|Flats|2014-01-31|2014-01-31|Normal|~|0|~",
                      "Sales|Shop|2014-03-31|2014-03-31|Normal|~|10000|~",
                      "Sales|Flats|2014-02-28|2014-04-30|Manual|~|20000|~",
                      "Site Costs|Site Value|2014-01-31|2014-01-31|Normal|~|4000|~",
                      "Site Costs|Stamp Duty|2014-01-31|2014-01-31|Normal|4|160|no",
                      "Construction Costs|Architect|2014-01-31|2014-02-28|Linked to BUILD|5|500|no",
                      "Construction Costs|#Professional|2014-01-31|2014-01-31|Normal|~|1|no",
                      "Construction Costs|Demolition|2014-01-31|2014-01-31|Normal|~|500|no",
                      "Sales Costs|Agents|2014-01-31|2014-01-31|Normal|~|300|no"}));
    EXPECT_EQ(Rows(FTables.TimingData),
              TTexts{"2014-01-31|2014-01-31|2014-01-31|2014-02-28|2014-02-28|2014-04-30|2014-04-30"});
    FProject.Clear(vip::EncodeDate(2014, 3, 31));
    FProject.BaseValues.SiteValue.Period = 0;
    EXPECT_EQ(Rows(Build().TimingData), TTexts{"2014-03-31|2014-03-31|~|~|~|~|2014-02-28"}) << "nothing in time";
}

TEST_F(ReportTables, TellTheLoansTheirFeesAndTheEquity) {
    TlotLoan& standard = FProject.Funding.Loans.Add();
    standard.Name = "Bank";
    standard.BorrowPercentage = 60;
    standard.InterestRate.Value = 6.5;
    standard.LoanFees = {.Amount = 1.5, .Percentage = true};
    TlotLoan& cash = FProject.Funding.Loans.Add();
    cash.LoanType = TlotLoanType::Cash;
    cash.Amount = 12'345.6;
    cash.Start = 1;
    cash.VariableRate = true;
    cash.LoanFees.Amount = 1000;
    TlotLoan& linked = FProject.Funding.Loans.Add();
    linked.LoanType = TlotLoanType::Linked;
    linked.BorrowPercentage = 25;
    linked.Base = "BUILD+Works.TOTAL";
    FShop.BuildLine.Period = 3; // To the length of the project, 3 months.
    Build();
    EXPECT_EQ(Rows(FTables.FinanceData, {"Name", "LoanType", "InterestRate", "Term"}),
              (TTexts{"Bank|60.000% of project|6.500%|3 mths", "Funding Fees|Percentage of facility|1.500%|~",
                      "|12,346|Variable Rate|2 mths", "Funding Fees|Fixed|1,000|~",
                      "|25.000% of BUILD+Works.TOTAL|0.000%|3 mths", "Equity|~|0.000%|~"}));
    EXPECT_EQ(FTables.FinanceData.Row(0).Number("TotalInterest"), standard.TotalInterest);
    EXPECT_EQ(FTables.FinanceData.Row(1).Number("TotalInterest"), standard.FeeLine.Amount);
    EXPECT_EQ(FTables.SummaryData.Current().Number("Debt"),
              standard.TotalBorrowed + cash.TotalBorrowed + linked.TotalBorrowed);
    cash.Period = 2;
    EXPECT_EQ(Build().FinanceData.Row(2).Text("Term"), "2 mths");
}

TEST_F(ReportTables, SummariseTheMeasures) {
    FProject.Notes = std::string(300, 'n');
    FProject.Calculate();
    FProject.BaseValues.RentalCover = 29;
    FProject.BaseValues.InterestCover = -5;
    const TlotRow row = Fill().SummaryData.Current();
    EXPECT_EQ(Rows(FTables.SummaryData, {"Profit", "TDC", "SV", "GDV", "NDV"}), TTexts{"14540|15460|4000|~|30000"});
    EXPECT_EQ(Rows(FTables.SummaryData, {"SiteValue", "SiteCosts", "ConstructionCosts", "SalesCosts", "SaleValue",
                                         "Debt", "DebtPerc", "EquityPerc", "TotalInterest"}),
              TTexts{"4000|160|11000|300|30000|0|0|100|0"});
    EXPECT_EQ(row.Number("RY"), FProject.BaseValues.RentalYield);
    EXPECT_EQ(row.Text("Notes"), FProject.Notes);
    EXPECT_EQ(row.Text("RentalCover") + ", " + row.Text("InterestCover"), "2 years 5 months, 0 years -5 months");
    EXPECT_EQ(FTables.DynamicSummaryData.RowCount(), 0);

    FProject.NPVIRRSource = TlotNPVIRRSource::Project;
    FProject.ShowNPV = FProject.ShowIRR = FProject.ShowSiteValueOnGDV = FProject.ShowRentalYield = true;
    FProject.ShowProfitOnCost = FProject.ShowProfitOnGDV = FProject.ShowProfitOnNDV = true;
    FProject.ShowRentalCover = FProject.ShowInterestCover = true;
    FProject.Cashflow.NPV = -1234.5;
    FProject.Cashflow.IRR = 12.3456;
    EXPECT_EQ(Rows(Fill().DynamicSummaryData),
              (TTexts{"Profit On Cost|94.049%", "Profit On GDV|44.738%", "Profit On NDV|48.467%",
                      "Site Value on GDV|12.308%", "Rental Yield|6.468%", "NPV|-1,235", "IRR|12.346%",
                      "Rental Cover|2 years 5 months", "Interest Cover|0 years -5 months"}));
    EXPECT_EQ(FTables.SummaryData.Current().Number("IRR"), 12.3456);
    FProject.BaseValues.Profit = 0;
    EXPECT_EQ(Fill().DynamicSummaryData.RowCount(), 0);
}

TEST_F(ReportTables, AddUpTheGroupsForTotalsAndChart) {
    FProject.Calculate();
    FProject.TotalInterest = 70;
    Fill();
    EXPECT_EQ(Rows(FTables.GroupData),
              (TTexts{"Site Value|4000", "Construction Costs|11000", "Sales Costs|300", "Profit|14540", "Finance|70"}));
    EXPECT_EQ(Rows(FTables.ChartData), (TTexts{"Site Value|4000", "Construction Costs|1000", "Sales Costs|300",
                                               "Build Costs|10000", "Profit|14540", "Finance|70"}));
    EXPECT_EQ(Rows(FTables.SectionGroupData), TTexts{"~|Total Construction Costs|11000"});
    FBuild.Group = FProject.ConstructionGroup = "Works";
    Build();
    EXPECT_EQ(Rows(FTables.GroupData, {"Name"})[1], "Construction Costs");
    EXPECT_EQ(Rows(FTables.ChartData, {"Name"})[1], "Works");
    EXPECT_EQ(Rows(FTables.SectionGroupData, {"Name"}), TTexts{"Total Works"});

    FProject.TDC = 0;
    Fill();
    for (TlotTable* const table :
         {&FTables.SummaryData, &FTables.GroupData, &FTables.SectionGroupData, &FTables.ChartData}) {
        EXPECT_EQ(table->RowCount(), 0) << table->Name() << " of a project without costs";
    }
}

} // namespace
