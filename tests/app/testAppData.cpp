// SPDX-License-Identifier: GPL-3.0-or-later
//
// Where an installation keeps its things, its first start, and what a new project is made from.
#include "app/datApp.h"
#include "app/lotTemplates.h"
#include "support/lotFiles.h"

#include <algorithm>

namespace fs = std::filesystem;

namespace {

/// Answers for the outside world: writes down what it is told, and chooses a template as it was told to.
class TOutside final : public TlotMessageService, public TlotBusyService, public TlotTemplateChooser {
public:
    std::string Told;    ///< "W: text|" for each message, by the first letter of its kind.
    std::string Offered; ///< "name|" for each template.
    std::optional<std::size_t> Choice;

    void Show(TlotMessageKind kind, std::string_view text) override {
        Told += "WEIC"[static_cast<int>(kind)] + (": " + std::string(text) + "|");
    }
    void Begin() override {}
    void End() override {}
    std::optional<std::size_t> Choose(std::span<const std::string> names) override {
        for (const std::string& name : names) {
            Offered += name + "|";
        }
        return Choice;
    }
};

class AppData : public testing::Test {
protected:
    AppData() {
        for (const char* const name : {"bin", "var", "home", "tmp", "home/.config"}) {
            fs::create_directory(FFolder.File(name));
        }
        FEnvironment = {FFolder.File("home"), "", "", FFolder.File("tmp"), "", FFolder.File("var")};
    }

    [[nodiscard]] TlotStart Start() const {
        return {FFolder.File("bin"), false, FindWellKnownFolders(FEnvironment, "Tarvane/Lotmaster"), {}, PointLocale};
    }
    void Put(const std::string& name, const std::string& content) { static_cast<void>(FFolder.Write(name, content)); }

    TTempFolder FFolder;
    TlotEnvironment FEnvironment;
    TOutside FOutside;
};

TEST_F(AppData, FoldersFollowTheEnvironmentAndAreMade) {
    Put("home/.config/user-dirs.dirs", "# list\nXDG_DOCUMENTS_DIR=\"$HOME/My \\\"Papers\\\"\"\n");
    const std::string root = FFolder.File("");
    const TAppData data(Start(), FOutside);
    EXPECT_EQ(data.NewerReportFolder, root + "bin/Reports4/");
    EXPECT_EQ(data.OptionsFile, root + "var/Tarvane/Lotmaster/Lotmaster.ini");
    EXPECT_EQ(data.UserSettingsFile, root + "home/.config/Tarvane/Lotmaster/User.ini");
    EXPECT_EQ(data.TemplatesFolder, root + "home/My \"Papers\"/Lotmaster/Templates/");
    EXPECT_EQ(data.TemporaryFolder, root + "tmp/Quillbrook/");
    for (const std::string& made : {data.SystemFolder, data.UserFolder, data.TemplatesFolder, data.TemporaryFolder}) {
        EXPECT_TRUE(fs::is_directory(made)) << made;
    }
    EXPECT_EQ(FOutside.Told, "");

    FEnvironment.SharedData = root + "missing";
    EXPECT_EQ(Start().Folders.CommonAppData, root + "home/.local/share/");
    FEnvironment.DataHome = root + "data";
    FEnvironment.ConfigHome = "relative";
    EXPECT_EQ(Start().Folders.CommonAppData, root + "data/");
    EXPECT_EQ(Start().Folders.UserAppData, root + "home/.config/");
}

TEST_F(AppData, WithoutWellKnownFoldersEverythingLiesBesideTheProgram) {
    FEnvironment.Home = FEnvironment.SharedData = "";
    FEnvironment.Temporary = FFolder.Write("file", "");
    const std::string bin = FFolder.File("bin/");
    const TAppData data(Start(), FOutside);
    EXPECT_EQ(data.CompanyFile, bin + "Application Data/Company.txt");
    EXPECT_EQ(data.UserSettingsFile, bin + "Application Data/User.ini");
    EXPECT_EQ(data.TemplatesFolder, bin + "Files/Templates/");
    EXPECT_EQ(FOutside.Told, "E: Cannot create temp folder " + FFolder.File("file/Quillbrook/") + "|");
    // The folder in the common place is another's: the user's own one serves.
    FEnvironment.RuntimeFolder = FFolder.File("tmp");
    EXPECT_EQ(TAppData(Start(), FOutside).TemporaryFolder, FFolder.File("tmp/Quillbrook/"));
}

TEST_F(AppData, SystemPathOfTheCommandLineMustExist) {
    const std::string there = FFolder.File("tmp");
    const std::string missing = FFolder.File("no such");
    const auto message = [](const std::string& path) {
        return "W: System Path \"" + path +
               "\" does not exist - reverting to default.\r\n\r\nPlease contact your System Administrator.|";
    };
    const std::string usual = FFolder.File("var/Tarvane/Lotmaster/");
    const std::tuple<std::vector<std::string>, std::string, std::string> cases[] = {
        {{"a.lot", "-syspath", there}, there + "/", ""},
        {{"/SysPath", there + "/"}, there + "/", ""},
        {{"-syspath", missing}, usual, message(missing)},
        {{"-syspath"}, usual, message("")},
        {{"syspath", there}, usual, ""},
    };
    for (const auto& [arguments, folder, told] : cases) {
        TlotStart start = Start();
        start.Arguments = arguments;
        FOutside.Told.clear();
        EXPECT_EQ(TAppData(start, FOutside).SystemFolder, folder);
        EXPECT_EQ(FOutside.Told, told);
    }
}

TEST_F(AppData, FirstStartCopiesWhatLiesBesideTheProgramAndNeverReplaces) {
    Put("bin/Lotmaster.ini", "[Defaults]\nTargetProfit=20\n");
    Put("bin/Company.txt", "");
    TlotStart start = Start();
    start.NetworkDrive = true;
    EXPECT_EQ(TAppData(start, FOutside).SystemFolder, FFolder.File("bin/"));
    EXPECT_FALSE(fs::exists(FFolder.File("var/Tarvane")));

    fs::create_directories(FFolder.File("var/Tarvane/Lotmaster"));
    Put("var/Tarvane/Lotmaster/Company.txt", "\xEF\xBB\xBFHart & Lea\r\n\r\nLeeds\r\n");
    for (const double profit : {20.0, 12.5}) {
        TAppData data(Start(), FOutside);
        EXPECT_EQ(data.Options.TargetProfit, profit);
        EXPECT_EQ(data.Options.Company, (std::vector<std::string>{"Hart & Lea", "", "Leeds"}));
        data.Options.TargetProfit = 12.5;
        data.SaveOptions();
    }
}

struct TTemplateCase {
    std::vector<const char*> Files;
    std::optional<std::size_t> Choice;
    TlotNewProject Result;
    const char* Name; ///< Of the project: that of its template.
    const char* Offered;
};

TEST(Templates, NewProjectComesFromTheTemplatesThereAre) {
    const TTemplateCase cases[] = {
        {{"a.txt"}, {}, TlotNewProject::Default, "", ""},
        {{"Shops.LTT", "a.lot"}, {}, TlotNewProject::Template, "Shops.LTT", ""},
        {{"default.ltt"}, {}, TlotNewProject::Template, "default.ltt", ""},
        {{"shops.ltt", "default.ltt", "Flats.ltt"}, 1, TlotNewProject::Template, "Flats.ltt", "default|Flats|shops|"},
        {{"shops.ltt", "default.ltt"}, {}, TlotNewProject::Cancelled, "", "default|shops|"},
    };
    TlotFixedClock clock(TestToday);
    for (const TTemplateCase& row : cases) {
        const TTempFolder folder;
        for (const std::string name : row.Files) {
            static_cast<void>(folder.Write(name, FileText("Name=\"" + name + "\" StartDate=\"2001-01-01\"")));
        }
        TOutside outside;
        outside.Choice = row.Choice;
        TlotSystem system(TestToday);
        const TlotOptions options;
        TProjectData data(system, options, {outside, clock, outside}, PointLocale);
        EXPECT_EQ(NewProject(data, folder.File(""), clock, outside), row.Result);
        EXPECT_EQ(data.Project().Name, row.Name);
        EXPECT_EQ(data.Project().Sections.Count(), row.Result == TlotNewProject::Default ? 5 : 0) << row.Name;
        EXPECT_EQ(data.Project().StartDate, TestToday) << row.Name;
        EXPECT_EQ(outside.Offered, row.Offered);

        // A default template, and no other, goes over the built-in sections.
        data.ClearProject();
        NewDefault(data, folder.File(""), clock);
        const bool own = std::ranges::count(row.Files, std::string_view("default.ltt")) != 0;
        EXPECT_EQ(data.Project().Name, own ? "default.ltt" : "");
        EXPECT_EQ(data.Project().Sections.Count(), own ? 0 : 5);
        EXPECT_EQ(data.Project().StartDate, TestToday);
    }
}

} // namespace
