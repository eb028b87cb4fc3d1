// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the forms of every older file version become.
#include "common/vipDate.h"
#include "support/lotFiles.h"

#include <sstream>

namespace {

/// What the versions tell in different ways, in a line.
std::string Summary(const TlotProject& p) {
    std::ostringstream text;
    text << vip::DateToFile(p.StartDate) << " target " << static_cast<int>(p.ResidualTarget) << '='
         << p.ResidualTargetValue << "; show " << p.ShowProfitOnCost << p.ShowProfitOnGDV << p.ShowProfitOnNDV
         << p.ShowSiteValueOnGDV << p.ShowRentalYield << p.ShowNPV << p.ShowIRR << p.ShowRentalCover
         << p.ShowInterestCover << "; equity " << p.Equity.InterestRate.Value << '/' << p.Equity.DiscountRate << '/'
         << p.Equity.NPVIRRIncludesInterest << "; types";
    for (const auto& type : p.UnitTypes) {
        text << ' ' << type->Name.substr(0, 3);
    }
    text << "; units";
    for (const auto& unit : p.Units) {
        text << ' ' << unit->UnitType.substr(0, 3) << ':' << unit->IsCapitalised;
    }
    text << "; loans";
    for (const auto& loan : p.Funding.Loans) {
        text << ' ' << static_cast<int>(loan->LoanType) << ':' << loan->BorrowPercentage << '/' << loan->RepayPercentage
             << '/' << loan->VariablePercentage << ':' << loan->Amount << '/' << loan->Maximum << ':' << loan->Base
             << ':' << loan->Start << '+' << loan->Period;
    }
    return text.str();
}

TEST(OldVersions, EachOldFormBecomesTodays) {
    const std::pair<std::string, const char*> cases[] = {
        {"none",
         "2005-12-31 target 1=17.5; show 111111111; equity 7.25/8/1; types Com Res Non; units Com:1 Res:0 Non:0; "
         "loans 0:80/80/0:0/0::0+0 1:0/0/0:25000/0::0+0"},
        {"0.8", "2006-04-05 target 0=20; show 111111111; equity 6.75/7.5/1; types Com Res Non; units Com:1; loans "
                "0:62.5/62.5/0:0/0::0+0"},
        {"0.9", "2006-10-01 target 2=16.5; show 100000100; equity 6.5/9/1; types Com Res Non; units Res:0; loans "
                "0:70/70/0:0/0::0+0"},
        {"1", "2007-03-15 target 0=15; show 010000000; equity 7/8.5/1; types Com Res Non; units Com:1 Non:0; loans "
              "1:0/0/0:150000/0::0+0"},
        {"3", "2008-06-01 target 1=18; show 000000000; equity 8/10/0; types Com Res Non; units Res:0; loans "
              "0:80/80/0:0/0::0+0 "
              "1:0/0/0:60000/0::0+0"},
        {"9", "2009-11-01 target 0=0; show 000001100; equity 6.5/9/1; types Com Res Non; units Com:1 Res:0; loans "
              "0:75/75/0:0/900000::0+0 2:40/40/0:0/0:BUILD:0+0 1:0/0/0:200000/0::1+12"},
        {"10", "2011-01-01 target 0=0; show 100000000; equity 6.5/8/0; types Car Aff; units Car:1 Aff:0; loans "
               "0:65.5/65.5/0:0/1.9e+06::0+0"},
        {"11",
         "2012-09-01 target 4=7.5; show 000000000; equity 7/8/1; types Com Res; units com:1; loans 0:70/90/1:0/0::0+0"},
        {"12", "2014-05-01 target 3=12.5; show 000000011; equity 5.5/7/1; types Com Res Non; units Com:1 Res:0; loans "
               "0:100/100/0:0/3e+06::0+0"}};
    for (const auto& [version, expected] : cases) {
        TlotProject project(TestToday);
        ASSERT_TRUE(OpenText(project, ReadBytes(DataFile("version-" + version + ".lot"))));
        EXPECT_EQ(Summary(project), expected) << version;
    }
}

/// A file that holds the old form and the new one of everything.
std::string BothForms(const std::string& version) {
    return FileText(
        R"(TargetProfit="10" ProfitLocked="TRUE" ResidualTargetValue="20" ResidualTarget="2" ShowIRR="TRUE")",
        R"(<Finance InterestRate="5"/><Cashflow DiscountRate="6"/><UnitType Name="Shops"/>
           <Unit UnitType="1" IsCapitalised="TRUE"/>
           <Funding><Loan Percentage="60" Borrowing="40" BorrowPercentage="70" RepayPercentage="75" LoanType="2"
             VariablePercentage="TRUE" Amount="9" Maximum="8" Base="BUILD" Start="3" Period="4"/></Funding>)" +
            std::string(version.empty() ? "" : "<Equity NPVIRRIncludesInterest=\"FALSE\"/>"),
        version);
}

TEST(OldVersions, EachFormEndsAtItsVersion) {
    const std::string oldest = "2023-03-15 target 1=10; show 111111111; equity ";
    const std::string later = "2023-03-15 target 2=20; show 000000100; equity ";
    const std::string byNumber = "; types Com Res Non; units Res:0; loans ";
    // A numeric Percentage is no "TRUE" below version 4, but as any number that isn't 0 it is a true boolean.
    const std::string spread = "0:40/40/0:0/0::0+0";
    const std::string percentage = "2:60/60/0:9/8:BUILD:3+4";
    const std::string byName = "; types Sho; units 1:1; loans ";
    const std::pair<const char*, std::string> cases[] = {
        {"", oldest + "5/6/1" + byNumber + spread},
        {"latest", oldest + "0/0/1" + byNumber + spread},
        {"-1", oldest + "0/0/1" + byNumber + spread},
        {"0.8999", oldest + "0/0/1" + byNumber + spread},
        {"0.9", later + "0/0/1" + byNumber + spread},
        {"1.9999", later + "0/0/1" + byNumber + spread},
        {"2", later + "0/0/0" + byNumber + spread},
        {"3.9999", later + "0/0/0" + byNumber + spread},
        {"4", later + "0/0/0" + byNumber + percentage},
        {"9.9999", later + "0/0/0" + byNumber + percentage},
        {"10", later + "0/0/0" + byName + percentage},
        {"10.9999", later + "0/0/0" + byName + percentage},
        {"11", later + "0/0/0" + byName + "2:70/75/1:9/8:BUILD:3+4"},
        {"13", later + "0/0/0" + byName + "2:70/75/1:9/8:BUILD:3+4"},
        {"13.00004", later + "0/0/0" + byName + "2:70/75/1:9/8:BUILD:3+4"}};
    for (const auto& [version, expected] : cases) {
        TlotProject project(TestToday);
        ASSERT_TRUE(OpenText(project, BothForms(version)));
        EXPECT_EQ(Summary(project), expected) << version;
    }
}

TEST(OldVersions, AnythingBeyondTodaysVersionIsRefused) {
    for (const char* const version : {"13.0001", "13.5", "14", "1e3"}) {
        TlotProject project(TestToday);
        EXPECT_FALSE(OpenText(project, FileText("", "", version))) << version;
    }
}

} // namespace
