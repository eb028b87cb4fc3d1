// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/datProject.h"
#include "common/vipErrors.h"
#include "support/lotFiles.h"

#include <tuple>

namespace {

/// Answers for the outside world, and writes down what it is told.
class TScript final : public TlotMessageService, public TlotBusyService {
public:
    std::string Told; ///< "W: text|" for each message, by the first letter of its kind.
    int Begun = 0;
    int Ended = 0;

    void Show(TlotMessageKind kind, std::string_view text) override {
        Told += "WEIC"[static_cast<int>(kind)] + (": " + std::string(text) + "|");
    }
    void Begin() override { ++Begun; }
    void End() override { ++Ended; }
};

class ProjectData : public testing::Test {
protected:
    explicit ProjectData(bool edition = false)
        : FData(FSystem, FOptions, TlotServices{FScript, FClock, FScript}, PointLocale, edition) {}

    [[nodiscard]] std::string FileOf(const std::string& content) const { return FFolder.Write("scheme.lot", content); }
    /// What a refused load tells; the open project is as it was then, and the cursor idle.
    std::string Refusal(const std::string& file) {
        FData.Project().Name = "Open scheme";
        const std::string before = SavedText(FData.Project());
        FScript.Told.clear();
        FScript.Begun = FScript.Ended = 0;
        try {
            EXPECT_FALSE(FData.LoadProject(file)) << file;
        } catch (const EFileError& error) {
            FScript.Told += "thrown " + std::string(error.what());
        }
        EXPECT_EQ(SavedText(FData.Project()), before);
        EXPECT_EQ(FScript.Begun, 1);
        EXPECT_EQ(FScript.Ended, 1);
        return FScript.Told;
    }
    double& SiteValue() { return FData.Project().BaseValues.SiteValue.Amount; }
    /// GDV 1,250,000: a rent of 100,000 at 8 % in perpetuity. NDV 1,000,000. Build costs 500,000, and 123,456 for the
    /// site.
    void OpenShop(int target, double percent) {
        ASSERT_TRUE(FData.LoadProject(FileOf(FileText("SiteValue='123456'", R"(<Unit IsCapitalised="TRUE" Yield="8"
            PurchCosts="25" BuildArea="1000" BuildRate="500"><Area Area="2000" Rate="50"/></Unit>)"))));
        FData.Project().ResidualTarget = static_cast<TlotResidualTarget>(target);
        FData.Project().ResidualTargetValue = percent;
    }

    TTempFolder FFolder;
    TScript FScript;
    TlotFixedClock FClock{TestToday};
    TlotOptions FOptions;
    TlotSystem FSystem{TestToday};
    TProjectData FData;
};

class HandheldData : public ProjectData {
protected:
    HandheldData() : ProjectData(true) {}
};

constexpr const char* Newer = "I: This file was created by a more recent version (14) of Lotmaster.\r\n\r\n"
                              "Please contact Tarvane for an upgrade.|";

TEST_F(ProjectData, LoadTellsEachFailureInItsWordsAndKindAndTakesTheHandheldFileToo) {
    EXPECT_EQ(Refusal(FFolder.File("not-there.lot")), "E: Unable to read file.|");
    EXPECT_EQ(Refusal(DataFile("hostile/truncated.lot")), "E: Unable to read file.|");
    EXPECT_EQ(Refusal(FileOf("<Lotmasters/>")), "W: That is not a Lotmaster file.|");
    EXPECT_EQ(Refusal(FileOf(FileText("", "", "14"))), Newer);
    EXPECT_EQ(Refusal(FileOf("<Lotmaster/>")), "");
    EXPECT_EQ(Refusal(FileOf("<Lotmaster><PROJECT/></Lotmaster>")), ""); // This name has its case.
    const std::string damaged = FileOf(FileText("Name=\"Other\"", "<SiteValue Start=\"-1\"/>"));
    EXPECT_EQ(Refusal(damaged).rfind("thrown " + damaged + ": Project/SiteValue, Start: ", 0), 0U) << FScript.Told;
    EXPECT_TRUE(FData.LoadProject(FileOf("<sprigwell><Project Name='Pocket'/></sprigwell>")));
    EXPECT_EQ(FData.Project().Name, "Pocket");
}

TEST_F(HandheldData, OpensOnlySmallFilesOfItsOwnWithFourWarnings) {
    const auto file = [this](const char* content, const char* version = "5") {
        return FileOf("<Sprigwell Version=\"" + std::string(version) + "\">" + content + "</Sprigwell>");
    };
    EXPECT_EQ(Refusal(FileOf(FileText(""))), "W: Sprigwell cannot read files created by Lotmaster.|");
    EXPECT_EQ(Refusal(FileOf("<Other/>")), "W: That is not a Sprigwell file.|");
    EXPECT_EQ(Refusal(file("")), "W: Unable to load project.|");
    EXPECT_EQ(Refusal(file("<Project/>", "14")), Newer + std::string("W: Unable to load project.|"));
    EXPECT_EQ(Refusal(file("<Project><Unit/><Unit/></Project>")), "W: That is not a valid Sprigwell file.|");
    EXPECT_EQ(Refusal(file(R"(<Project><Section><Item Amount="5"/></Section></Project>)")),
              "W: That is not a valid Sprigwell file.|");
    ASSERT_TRUE(FData.LoadProject(
        file(R"(<Project Name="Pocket"><Unit/><Section><Item Percentage="TRUE"/></Section></Project>)")));
    EXPECT_EQ(FData.Project().Name, "Pocket");
}

TEST_F(ProjectData, SaveKeepsAnOldFileThatItMayNotOrCannotReplace) {
    const std::string file = FileOf("old");
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    EXPECT_FALSE(FData.SaveProject(file));
    EXPECT_EQ(FScript.Told, "I: File is read-only.|");
    EXPECT_EQ(ReadBytes(file), "old");
    EXPECT_THROW((void)FData.SaveProject(FFolder.File("not-there/scheme.lot")), EFileError);
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    EXPECT_TRUE(FData.SaveProject(file));
    EXPECT_TRUE(FData.LoadProject(file)) << "the new file is whole";
}

TEST_F(ProjectData, DefaultProjectTakesTheOptionsAndATargetOnlyWhereThereIsOne) {
    FOptions.InterestRate = 7.5;
    FOptions.RentalValues = TlotRentalValues::Quarterly;
    FOptions.TargetProfit = 0;
    FData.BuildDefaultProject();
    EXPECT_EQ(FData.Project().Equity.InterestRate.Value, 7.5);
    EXPECT_EQ(FData.Project().RentalValues, TlotRentalValues::Quarterly);
    EXPECT_EQ(FData.Project().ResidualTarget, TlotResidualTarget::NoTarget);
    FOptions.TargetProfit = 12.5;
    FData.ClearProject();
    FData.BuildDefaultProject();
    EXPECT_EQ(FData.Project().ResidualTarget, TlotResidualTarget::ProfitOnCost);
    EXPECT_EQ(FData.Project().ResidualTargetValue, 12.5);
}

TEST_F(ProjectData, DefaultProjectChargesTheUsualRates) {
    FOptions.TargetProfit = FOptions.InterestRate = 0;
    OpenShop(0, 0);
    FData.BuildDefaultProject();
    TlotUnit& houses = FData.Project().Units.Add();
    houses.Areas.Add().SetValue(200'000);
    houses.Areas[0].SetArea(1);
    SiteValue() = 100'000;
    FData.Recalculate();
    // Site costs 6 % of 100,000. Fees 12 % of 500,000, then 3 % of that and of the 500,000. Sales costs 10.5 % of the
    // rent of 100,000, 1 % of 1,000,000 net, 2.5 % of 200,000 not capitalised.
    EXPECT_NEAR(FData.Project().TDC, 100'000 + 500'000 + 6'000 + 60'000 + 16'800 + 10'500 + 10'000 + 5'000, 1e-6);
}

TEST_F(ProjectData, TestProjectComesToItsTotals) {
    FData.Project().Units.Add(); // Of the scheme before.
    FData.BuildTestProject();
    FData.Recalculate();
    const TlotProject& p = FData.Project();
    EXPECT_EQ(p.Name, "Test Project");
    // 30,000 x 120 + 40,000 x 150 + 5 x 65,000.
    EXPECT_NEAR(p.BaseValues.Build.Amount, 9'925'000, 1e-6);
    // No unit is capitalised: 2 x 15,000 x 35, 14,000 x 50 + 8,000 x 25, 2 x 200,000 + 3 x 300,000.
    EXPECT_NEAR(p.GDV, 1'050'000 + 900'000 + 1'300'000, 1e-6);
    // Site: 5.5 % of 8,624,684, and 20,000.
    EXPECT_NEAR(p.GroupValue("Site Costs"), 494'357.62, 1e-6);
    // 15,000 and 2.5 % of the build cost, 3 % on all that; then 11 % of build cost and group: 568,768.75 and
    // 1,154,314.5625.
    EXPECT_NEAR(p.GroupValue("Construction Costs"), 1'723'083.3125, 1e-6);
    EXPECT_NEAR(p.GroupValue("Sales Costs"), 10'000, 1e-6);
    EXPECT_NEAR(p.TDC, 8'624'684 + 9'925'000 + 494'357.62 + 1'723'083.3125 + 10'000, 1e-6);
}

TEST_F(ProjectData, CheckUnitsMissesBuildCostsFirstAndThenSales) {
    const std::pair<const char*, const char*> cases[] = {
        {R"(<Unit/>)", "I: No unit build costs have been specified.|"},
        {R"(<Unit><Area Area="1" Rate="5"/></Unit>)", "I: No unit build costs have been specified.|"},
        {R"(<Unit BuildArea="1" BuildRate="5"/>)", "I: No unit sales have been specified.|"},
        {R"(<Unit BuildArea="1" BuildRate="5"><Area Area="1" Rate="5"/></Unit>)", ""}};
    for (const auto& [unit, told] : cases) {
        FScript.Told.clear();
        ASSERT_TRUE(FData.LoadProject(FileOf(FileText("", unit))));
        FData.Recalculate();
        EXPECT_EQ(FData.CheckUnitsShow(), *told == '\0') << unit;
        EXPECT_EQ(FScript.Told, told) << unit;
    }
}

TEST_F(ProjectData, RecalculateSolvesTheSiteValueForEachTarget) {
    // A profit of 200,000 on costs of 800,000 is 25 % of cost, 16 % of GDV and 20 % of NDV, and the rent of 100,000 is
    // 12.5 % of the costs: each leaves 300,000 for the site, as near as 0.0001 of the measure is in money.
    const std::tuple<int, double, double, double> cases[] = {
        {0, 25, 123'456, 0},     {1, 25, 300'000, 0.7}, {2, 16, 300'000, 1.3}, {3, 20, 300'000, 1.1},
        {4, 12.5, 300'000, 6.5}, {5, 25, 123'456, 0},   {1, 1000, 0, 0}};
    for (const auto& [target, percent, siteValue, tolerance] : cases) {
        OpenShop(target, percent);
        EXPECT_TRUE(FData.Recalculate());
        EXPECT_NEAR(SiteValue(), siteValue, tolerance) << "target " << target;
    }
}

TEST_F(ProjectData, FailedRecalculationLeavesTheSiteValueAndAProjectToMend) {
    OpenShop(1, 25);
    TlotLoan& loan = FData.Project().Funding.Loans.Add();
    loan.LoanType = static_cast<TlotLoanType>(3);
    EXPECT_THROW(FData.Recalculate(), ELotError);
    EXPECT_EQ(SiteValue(), 123'456);
    loan.LoanType = TlotLoanType::Standard;
    FData.Recalculate();
    EXPECT_NEAR(SiteValue(), 300'000, 0.7);
}

TEST_F(ProjectData, SearchThatFailsOnTheWayLeavesTheSiteValue) {
    // Nothing falls in any month until a trial buys the site; a cash loan of that one month cannot repay before it.
    FData.Project().Funding.Loans.Add().LoanType = TlotLoanType::Cash;
    FData.Project().ResidualTarget = TlotResidualTarget::ProfitOnCost;
    EXPECT_THROW(FData.Recalculate(), ERangeError);
    EXPECT_EQ(SiteValue(), 0);
}

} // namespace
