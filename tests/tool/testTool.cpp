// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/lotFiles.h"
#include "tool/lotTool.h"

#include <nlohmann/json.hpp>

#include <sstream>
#include <tuple>
#include <vector>

namespace {

using nlohmann::ordered_json;

struct TRun {
    int Exit = 0;
    std::string Out;
    std::string Err;
};

/// One call, its words parted by blanks.
TRun Lotcalc(const std::string& call) {
    std::istringstream text("lotcalc " + call);
    const std::vector<std::string> words{std::istream_iterator<std::string>(text), {}};
    std::vector<const char*> argv;
    for (const std::string& word : words) {
        argv.push_back(word.c_str());
    }
    std::ostringstream out;
    std::ostringstream err;
    const TToolExit exit = RunTool(static_cast<int>(argv.size()), argv.data(), out, err);
    return {static_cast<int>(exit), out.str(), err.str()};
}

ordered_json Json(const std::string& call) {
    const TRun run = Lotcalc(call + " --json");
    EXPECT_EQ(run.Exit, 0) << run.Err;
    return ordered_json::parse(run.Out, nullptr, false);
}

/// The names in an object in order, those of arrays of months with their lengths: "Name Values[13]".
std::string Shape(const ordered_json& object) {
    std::string text;
    for (const auto& [name, value] : object.items()) {
        const bool months = value.is_array() && (value.empty() || value[0].is_number());
        text += (text.empty() ? "" : " ") + name + (months ? "[" + std::to_string(value.size()) + "]" : "");
    }
    return text;
}

class Tool : public testing::Test {
protected:
    TTempFolder FFolder;
    std::string FOut = FFolder.File("out.lot");
};

TEST_F(Tool, WrongUsageExitsWith2AndHelpWith0) {
    const std::string calc = "calc " + FFolder.Write("scheme.lot", FileText(""));
    const std::string solve = "solve " + FFolder.File("scheme.lot");
    for (const std::string& call :
         {std::string(), std::string("appraise"), std::string("calc"), calc + " more", calc + " --passes 0",
          calc + " --passes many", calc + " --xml", calc + " --locale xx_YY", calc + " --date tomorrow",
          calc + " --date 2023-02-29", std::string("new"), std::string("convert in.lot"), solve + " --target 5",
          solve + " --measure PROFIT", solve + " --measure LUCK --target 5",
          solve + " --measure PROFIT --target much"}) {
        const TRun run = Lotcalc(call);
        EXPECT_EQ(run.Exit, 2) << call;
        EXPECT_TRUE(run.Out.empty() && !run.Err.empty()) << call;
    }
    for (const char* const command : {"calc", "new", "test-project", "convert", "solve"}) {
        const TRun run = Lotcalc(command + std::string(" --help"));
        EXPECT_EQ(run.Exit, 0) << command;
        EXPECT_TRUE(!run.Out.empty() && run.Err.empty()) << command;
    }
}

TEST_F(Tool, RefusedInputExitsWith1AndOneLineNamingTheFile) {
    const std::string damaged = FFolder.Write("damaged.lot", FileText("", "<SiteValue Start=\"-1\"/>"));
    const std::string newer = FFolder.Write("newer.lot", FileText("", "", "14"));
    const std::string oddLoan = FFolder.Write("odd.lot", FileText("", "<Funding><Loan LoanType=\"9\"/></Funding>"));
    const std::string cash =
        FFolder.Write("cash.lot", FileText("", "<Funding><Loan LoanType=\"1\" Period=\"1\" Amount=\"5\"/></Funding>"));
    const std::string other = FFolder.Write("other.lot", "<Other/>");
    const std::string hollow = FFolder.Write("hollow.lot", "<Lotmaster/>");
    const std::string readOnly = FFolder.Write("old.lot", "old");
    std::filesystem::permissions(readOnly, std::filesystem::perms::owner_read);
    const std::string sound = DataFile("version-12.lot");
    const std::string nowhere = FFolder.File("not-there/new.lot");
    const std::tuple<std::string, std::string, const char*> cases[] = {
        {"calc " + nowhere + " --json", nowhere, "File does not exist."},
        {"calc " + DataFile("hostile/binary.lot"), "binary.lot", "Unable to read file."},
        {"calc " + other, other, "That is not a Lotmaster file."},
        {"calc " + hollow, hollow, "Project"},
        {"calc " + newer, newer, "(14) of Lotmaster. Please contact Tarvane"},
        {"calc --json " + oddLoan, oddLoan, "Unknown LoanType"},
        {"calc " + cash, cash, "Range check error"},
        {"solve --measure IRR --target 9 --json " + damaged, damaged, "Project/SiteValue, Start"},
        {"convert " + damaged + " " + FOut, damaged, "Project/SiteValue, Start"},
        {"convert " + oddLoan + " " + FOut, oddLoan, "Unknown LoanType"},
        {"convert " + sound + " " + readOnly, readOnly, "File is read-only."},
        {"convert " + sound + " " + nowhere, nowhere, ""},
        {"new " + nowhere, nowhere, ""},
        {"test-project " + nowhere, nowhere, ""}};
    for (const auto& [call, file, reason] : cases) {
        const TRun run = Lotcalc(call);
        SCOPED_TRACE(run.Err);
        EXPECT_EQ(run.Exit, 1);
        EXPECT_EQ(run.Out, "");
        EXPECT_EQ(run.Err.find('\n'), run.Err.size() - 1);
        EXPECT_NE(run.Err.find(file), std::string::npos);
        EXPECT_NE(run.Err.find(reason), std::string::npos);
        EXPECT_FALSE(std::filesystem::exists(FOut));
    }
    EXPECT_EQ(ReadBytes(readOnly), "old");
}

TEST_F(Tool, JsonHasEveryNameInOrderAndEveryRowAtItsLength) {
    // Built in months 0 to 5, let in 6 and 7, sold in 8 to 12: 13 months in all.
    const std::string file = FFolder.Write("scheme.lot", FileText("SiteValue=\"100\"", R"(<UnitType Name="Office"/>
        <Unit UnitType="Office" IsCapitalised="TRUE" Yield="8" BuildArea="10" BuildRate="9" PreSalesRent="12">
        <Build Period="6"/><Sales Start="8" Period="5"/><Rent Start="6" Period="2"/><Area Area="10" Rate="8"/></Unit>
        <Section Name="Fees" Group="Costs"><Item Name="Architect" Amount="5" Percentage="TRUE" BaseFormula="BUILD"
        Link="TRUE"/></Section>
        <Funding><Loan LoanType="0" BorrowPercentage="50" RepayPercentage="50" InterestRate="6"/>
        <Loan LoanType="1" Amount="20" Start="1" Period="3"/></Funding>)"));
    const ordered_json json = Json("calc " + file);
    const auto line = [](int values, int portions) {
        return "Amount Start Period ReadOnly Income NoTotal AccountCode Values[" + std::to_string(values) +
               "] Portions[" + std::to_string(portions) + "]";
    };
    const std::string loan =
        "Name LoanType Active TotalInterest TotalBorrowed MaximumDebt NPVExcludingInterest NPVIncludingInterest "
        "IRRExcludingInterest IRRIncludingInterest FeeLine ";
    const std::pair<const char*, std::string> cases[] = {
        {"", "project baseValues units groups sections cashflow loans equity vars"},
        {"/project", "Name StartDate SiteValue GDV NDV TDC TotalRent TotalInterest TotalFees SiteValuePerArea "
                     "ResidualTarget ResidualTargetValue CashflowNPV CashflowIRR NPV IRR"},
        {"/baseValues", "SITEVALUE BUILD GROSSCAP NETCAP NONCAP GROSSRENT NETRENT SECTION GROUP PROFIT PROFITONCOST "
                        "PROFITONGDV PROFITONNDV RENTALYIELD SiteValueOnGDV RentalCover InterestCover"},
        {"/baseValues/BUILD", line(6, 0)},
        {"/baseValues/NONCAP", line(0, 0)},
        {"/units/0", "Name Number UnitType UnitTypeIndex IsCapitalised BuildArea BuildRate Yield TotalArea TotalValue "
                     "ERV GroundRent NetRent YearsPurchase RentFreeFactor GrossSale NetSale PurchCostsValue ITZA Areas "
                     "BuildLine RentLine SalesLine"},
        {"/units/0/Areas/0", "Description Zoning Area Rate Value"},
        {"/units/0/RentLine", line(8, 0)},
        {"/groups/0", "Name Total"},
        {"/sections/0", "Name Group Income Total Items"},
        {"/sections/0/Items/0", "Name Amount Percentage BaseFormula Link Base Error Line"},
        {"/sections/0/Items/0/Line", line(6, 6)},
        {"/cashflow", "Count LastMonth Total"},
        {"/cashflow/Total", line(13, 0)},
        {"/loans/0", loan + "CashflowIn[13] BorrowingSource[13] RolledOverDebt[13] CanBorrow[13] NeedToBorrow[13] "
                            "Borrowing[13] CanRepay[13] Repayment[13] Debt[13] Interest[13] ExcessInterest[13] Fees[1] "
                            "CashflowOut[13] CashflowExcludingInterest[0] CashflowIncludingInterest[0]"},
        // The advance falls in month 1 and is repaid in month 3.
        {"/loans/1", loan + "CashflowIn[0] BorrowingSource[0] RolledOverDebt[0] CanBorrow[0] NeedToBorrow[0] "
                            "Borrowing[4] CanRepay[0] Repayment[0] Debt[13] Interest[13] ExcessInterest[0] Fees[0] "
                            "CashflowOut[0] CashflowExcludingInterest[0] CashflowIncludingInterest[0]"},
        {"/equity", "InterestRate Cashflow[13] Balance[13] Interest[13] CashflowIncludingInterest[13] NPV IRR "
                    "TotalInterest TotalCash"}};
    for (const auto& [path, expected] : cases) {
        EXPECT_EQ(Shape(json.at(ordered_json::json_pointer(path))), expected) << path;
    }
    EXPECT_EQ(json["vars"], ordered_json::parse(R"(["SITEVALUE", "BUILD", "Fees.TOTAL", "Fees.Architect"])"));
}

TEST_F(Tool, JsonFiguresReadBackToTheLastBitUnderAnyLocale) {
    const std::string file =
        FFolder.Write("scheme.lot", FileText("Name=\"\u00C5 &quot;x&quot;\" SiteValue=\"1234567.8901234567\" "
                                             "NetSiteArea=\"0.30000000000000004\""));
    const ordered_json project = Json("calc --locale de_DE " + file)["project"];
    EXPECT_EQ(project["Name"], "\u00C5 \"x\"");
    EXPECT_EQ(project["SiteValue"], 1234567.8901234567);
    EXPECT_EQ(project["SiteValuePerArea"], 1234567.8901234567 / 0.30000000000000004);
}

TEST_F(Tool, ConvertedFilesOfEveryVersionComputeAlike) {
    for (const char* const version : {"none", "0.8", "0.9", "1", "3", "9", "10", "11", "12"}) {
        SCOPED_TRACE(version);
        const std::string file = DataFile("version-" + std::string(version) + ".lot");
        ASSERT_EQ(Lotcalc("convert --locale de_DE " + file + " " + FOut).Exit, 0);
        EXPECT_NE(ReadBytes(FOut).find("<Lotmaster Version=\"13\">"), std::string::npos);
        EXPECT_EQ(Json("calc " + FOut), Json("calc " + file));
    }
}

TEST_F(Tool, LocaleSetsTheSeparatorOfWhatIsWritten) {
    const std::string file = FFolder.Write("scheme.lot", FileText("NetSiteArea='2,5'"));
    for (const auto& [name, text] :
         {std::pair("de_DE", "NetSiteArea=\"2,5\""), std::pair("en_GB", "NetSiteArea=\"2.5\"")}) {
        ASSERT_EQ(Lotcalc("convert " + file + " " + FOut + " --locale " + name).Exit, 0);
        EXPECT_NE(ReadBytes(FOut).find(text), std::string::npos) << name;
    }
}

TEST_F(Tool, DateStandsInForToday) {
    const std::string file = FFolder.Write("scheme.lot", FileText(""));
    EXPECT_EQ(Json("calc --date 2024-02-29 " + file)["project"]["StartDate"], "2024-02-29");
    ASSERT_EQ(Lotcalc("new --date 2024-02-29 " + FOut).Exit, 0);
    EXPECT_EQ(Json("calc --date 2030-01-01 " + FOut)["project"]["StartDate"], "2024-02-29");
}

TEST_F(Tool, PassesCarryTheLastGroupIntoTheFirstSection) {
    const std::string file = FFolder.Write("scheme.lot", FileText("", R"(<Section Group="A"><Item Amount="10"
        Percentage="TRUE" BaseFormula="GROUP"/></Section><Section Group="A"><Item Amount="200"/></Section>)"));
    // 10 % of the group: nothing yet in the first pass, then 10 % of 200 and 10 % of 220.
    EXPECT_NEAR(Json("calc " + file)["project"]["TDC"], 200, 1e-9);
    EXPECT_NEAR(Json("calc --passes 3 " + file)["project"]["TDC"], 222, 1e-9);
}

TEST_F(Tool, SolveFindsTheSiteValueWithTheFilesOwnTargetSetAside) {
    // Sold for 1,100,000 in month 12, the site paid for in month 0.
    const std::string file = FFolder.Write(
        "scheme.lot", FileText(R"(SiteValue="7" MaxSiteValue="3000000" ResidualTarget="1" ResidualTargetValue="37.5")",
                               R"(<Unit><Sales Start="12" Period="1"/><Area Area="1" Rate="1100000"/></Unit>)"));
    // Bought for 1,000,000: a profit of 100,000, 10 % on cost, and 10 % in the twelve months between.
    for (const char* const wish :
         {"--measure PROFIT --target 100000", "--measure profitoncost --target 10", "--measure IRR --target 10"}) {
        SCOPED_TRACE(wish);
        const ordered_json json = Json("solve " + file + " " + wish);
        EXPECT_EQ(Shape(json), "SiteValue calc");
        EXPECT_NEAR(json["SiteValue"], 1e6, 1);
        EXPECT_EQ(json["calc"]["project"]["SiteValue"], json["SiteValue"]);
        EXPECT_EQ(json["calc"]["project"]["ResidualTarget"], 0);
        EXPECT_NEAR(json["calc"]["baseValues"]["PROFITONCOST"], 10, 0.001);
    }
    EXPECT_NEAR(std::stod(Lotcalc("solve --measure PROFIT --target 100000 --locale de_DE " + file).Out), 1e6, 1);
    EXPECT_EQ(Json("solve --measure PROFIT --target 5000000 " + file)["SiteValue"], 0);
}

} // namespace
