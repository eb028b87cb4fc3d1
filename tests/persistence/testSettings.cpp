// SPDX-License-Identifier: GPL-3.0-or-later
//
// The settings files: what is read from files in any state, and what stays in them when they are written.
#include "common/vipErrors.h"
#include "persistence/lotIniFile.h"
#include "persistence/lotOptions.h"
#include "persistence/lotUserSettings.h"
#include "support/lotFiles.h"

#include <algorithm>

namespace {

TEST(IniFile, WritingChangesOnlyTheValuesThatWereSet) {
    const TTempFolder folder;
    const std::string top = "\xEF\xBB\xBF; house rules\r\n[defaults]\r\na damaged line\r\n";
    const std::string below = "\r\nUnknown=\x93kept\x94\r\nTargetProfit=99\r\n";
    const std::string file = folder.Write("a.ini", top + "targetPROFIT =  12" + below +
                                                       "\r\n; about others\r\n[Other\r\nKey=Old\r\n; inside\r\n"
                                                       "=nameless\r\n\r\n[Last]\r\nEmpty=\r\n");
    TlotIniFile ini(file);
    EXPECT_EQ(ini.Text("LAST", "empty", "absent"), "");
    EXPECT_EQ(ini.Text("Defaults", "unknown", ""), "\u201Ckept\u201D");
    ini.SetNumber("Defaults", "TargetProfit", 17.5, CommaLocale);
    ini.SetText("Defaults", "Footer", " two\nlines ");
    ini.ReplaceSection("Other", {{"A", "1"}, {"B", "2"}});
    ini.SetBoolean("New", "Flag", true);
    ini.Save();
    EXPECT_EQ(ReadBytes(file),
              top + "targetPROFIT =  17,5" + below +
                  "Footer=\" two lines \"\r\n\r\n; about others\r\n[Other\r\nA=1\r\nB=2\r\n; inside\r\n"
                  "\r\n[Last]\r\nEmpty=\r\n\r\n[New]\r\nFlag=1\r\n");
    EXPECT_EQ(TlotIniFile(file).Text("Defaults", "Footer", ""), " two lines ");
}

TEST(IniFile, ValueOfAnotherKindCostsThatKeyOnly) {
    const std::tuple<const char*, double, int, bool> cases[] = {
        {"7", 7, 7, true},      {" 0 ", 0, 0, false},      {"7,5", 7.5, -9, true},
        {"7.5", 7.5, -9, true}, {"1,234.5", -9, -9, true}, {"seven", -9, -9, true},
        {"", -9, -9, true},     {"False", -9, -9, false},  {"\"8\"", 8, 8, true},
        {"$FF", -9, 255, true}, {"nan", -9, -9, true},     {"99999999999", 99999999999, -9, true},
    };
    const TTempFolder folder;
    for (const auto& [value, number, integer, boolean] : cases) {
        const TlotIniFile ini(folder.Write("a.ini", "[S]\nK=" + std::string(value) + "\nNext=5\n"));
        for (const TNumberLocale& locale : {PointLocale, CommaLocale}) {
            EXPECT_EQ(ini.Number("S", "K", -9, locale), number) << value;
        }
        EXPECT_EQ(ini.Integer("S", "K", -9), integer) << value;
        EXPECT_EQ(ini.Boolean("S", "K", true), boolean) << value;
        EXPECT_EQ(ini.Integer("S", "Next", 0), 5) << value;
    }
}

TEST(IniFile, FileThatCannotBeReadIsNotReplaced) {
    const TTempFolder folder;
    const std::string file = folder.Write("a.ini", std::string(2'000'000, 'x'));
    TlotIniFile ini(file);
    ini.SetText("S", "K", "V");
    EXPECT_THROW(ini.Save(), EFileError);
    EXPECT_EQ(ReadBytes(file).size(), 2'000'000U);
}

/// The options that a text gives, saved again.
std::string Resaved(const std::string& text, const TNumberLocale& locale = PointLocale) {
    const TTempFolder folder;
    TlotOptions options;
    options.Load(folder.Write("Lotmaster.ini", text), "", locale);
    options.Save(folder.File("new.ini"), locale);
    return ReadBytes(folder.File("new.ini"));
}

constexpr const char* DefaultZones = R"([Zoning]
Description1=Zone A|Percentage1=100|Description2=Zone B|Percentage2=50|Description3=Zone C|Percentage3=25
Description4=Zone D|Percentage4=12.5|Description5=Remainder|Percentage5=6.25
)";

/// Keys stand behind one another here, with "|" for the ends of their lines.
std::string Unfolded(std::string text) {
    std::ranges::replace(text, '|', '\n');
    return text;
}

TEST(Options, FirstStartSavesEveryKeyWithItsDefault) {
    const std::string defaults = Unfolded(R"([Defaults]
PurchasersCosts=5.75|TargetProfit=15|InterestRate=6|RentalValues=0|YPFrequency=0|Dimensions=0
|[Appraisal]|Logo=|Footer=This appraisal does not constitute a formal valuation
|[Options]|Designer=0||[Display]|ColourBanding=1
|[Reports]|GradientStartColour=16777215|GradientEndColour=12639424|SensitivityReportColour=12639424
|)" + std::string(DefaultZones));
    EXPECT_EQ(Resaved(""), defaults);
    EXPECT_EQ(Resaved("[Defaults]\nRentalValues=4\nYPFrequency=-1\nDimensions=x\n"), defaults);
    const std::string others = Unfolded(R"([Defaults]
PurchasersCosts=5,5|TargetProfit=0|InterestRate=7,25|RentalValues=3|YPFrequency=2|Dimensions=4
|[Appraisal]|Logo=/l.png|Footer=||[Options]|Designer=1||[Display]|ColourBanding=0
|[Reports]|GradientStartColour=1|GradientEndColour=-2|SensitivityReportColour=3
|[Zoning]|Description1=Front|Percentage1=62,5|)");
    EXPECT_EQ(Resaved(others, CommaLocale), others);
}

TEST(Options, ZoningCountsItsDescriptions) {
    const std::pair<const char*, const char*> cases[] = {
        {"[Zoning]|Description1=Front", "[Zoning]|Description1=Front|Percentage1=0|"},
        // Two keys, so the first two numbers are read.
        {"[Zoning]|Description1=Front|DESCRIPTION9=Far|Percentage1=33,3 %",
         "[Zoning]|Description1=Front|Percentage1=33.3|Description2=|Percentage2=0|"},
        {"[Zoning]|Percentage1=3|Description without a sign", DefaultZones},
    };
    for (const auto& [text, saved] : cases) {
        const std::string whole = Resaved(Unfolded(text));
        EXPECT_EQ(whole.substr(whole.find("[Zoning]")), Unfolded(saved)) << text;
    }
}

TEST(UserSettings, RecentFilesAreReadInTheirOrderWhateverTheKeys) {
    const TTempFolder folder;
    const std::string file = folder.Write("User.ini", "[CashflowView]\nFontSize=0\nFontName=Courier\n\n"
                                                      "[recent file list]\nFile9=/a.lot\nzz = /b=c.lot\n=/d.lot\n"
                                                      "File9=/e.lot\nnothing\nFile1=\n; File2=/gone.lot\n");
    TlotRecentFiles files;
    files.Load(file);
    EXPECT_EQ(files.Names, (std::vector<std::string>{"/a.lot", "/b=c.lot", "/d.lot", "/e.lot"}));
    files.Add(files.Names[2]);
    files.Add("/new.LOT");
    files.Add("/template.ltt");
    files.Save(file);
    TlotUserSettings settings;
    settings.Load(file);
    EXPECT_EQ(settings.CashflowView, (TlotViewFont{8, "Courier"}));
    EXPECT_EQ(settings.TimescaleView, (TlotViewFont{8, "Arial"}));
    EXPECT_EQ(ReadBytes(file), "[CashflowView]\nFontSize=0\nFontName=Courier\n\n[recent file list]\nFile1=/new.LOT\n"
                               "File2=/d.lot\nFile3=/a.lot\nFile4=/b=c.lot\nFile5=/e.lot\n; File2=/gone.lot\n");
}

} // namespace
