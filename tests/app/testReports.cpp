// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/lotController.h"
#include "app/lotSystem.h"
#include "support/lotFiles.h"
#include "support/lotTestProject.h"

namespace {

/// An engine that writes down what is asked of it.
class TFakeEngine final : public TlotReportEngine {
public:
    std::string Log;
    std::string Objects = "|logo|picture|"; ///< That its templates hold, in lower case.
    bool BadPicture = false;
    std::string Missing; ///< A template that isn't there.

    void Clear() override { Log += "clear|"; }
    void LoadFromFile(const std::string& fileName) override {
        if (fileName.ends_with(Missing) && !Missing.empty()) {
            throw ELotError(fileName + " is missing");
        }
        FFile = fileName;
        Log += "load " + fileName + "|";
    }
    [[nodiscard]] std::string TemplateFile() const override { return FFile; }
    [[nodiscard]] bool FindObject(std::string_view name) const override {
        return Objects.find(name == "Logo" ? "|logo|" : "|picture|") != std::string::npos;
    }
    void SetPicture(std::string_view name, const std::string& fileName, bool resize) override {
        Log += std::string(name) + " " + std::filesystem::path(fileName).filename().string() +
               (resize ? " resized|" : "|");
        if (BadPicture) {
            throw ELotError("no picture");
        }
    }
    void SetGradientColours(std::uint32_t start, std::uint32_t end) override {
        Log += "colours " + std::to_string(start) + " " + std::to_string(end) + "|";
    }
    void Prepare(bool append) override { Log += append ? "append|" : "prepare|"; }
    [[nodiscard]] int PageCount() const override { return 1; }
    void Export(TlotExportFormat /*format*/, const std::string& fileName, const TlotDocumentTexts& texts) override {
        Log += "export " + fileName + " " + texts.Title + "/" + texts.Author + "|";
    }

    std::string Take() { return std::exchange(Log, {}); }

private:
    std::string FFile;
};

class TQuiet final : public TlotMessageService, public TlotBusyService, public TlotReportPreviewer, public TSADialog {
public:
    std::string Log;
    void Show(TlotMessageKind /*kind*/, std::string_view text) override { Log += "told " + std::string(text) + "|"; }
    void Begin() override { Log += "busy|"; }
    void End() override { Log += "idle|"; }
    void Preview2(const TgxFR4Preview& /*preview*/) override { Log += "preview 2|"; }
    void Preview4(const TgxFR4Preview& preview) override {
        Log += "preview 4 " + preview.Title + "/" + preview.Author + (preview.DesignEnabled ? " design|" : "|");
    }
    void Execute() override { Log += "sensitivity|"; }
};

class Reports : public testing::Test {
protected:
    Reports() { Data.BuildTestProject(); }

    std::string Failure(const std::function<void()>& work) {
        try {
            work();
        } catch (const ELotError& error) {
            return error.what();
        }
        return {};
    }

    TTempFolder Folder;
    TQuiet User;
    TlotFixedClock Clock{TestToday};
    TlotServices Services{User, Clock, User};
    TlotOptions Options;
    TlotSystem System{TestToday};
    TProjectData Data{System, Options, Services, PointLocale};
    TFakeEngine Engine2;
    TFakeEngine Engine4;
    TReportData Report{Data, Options, {"/old/", "/new/"}, Engine2, Engine4, &User};
    TlotController Controller{Data, Report, Services, User, [this] { User.Log += "settings|"; }};
};

TEST_F(Reports, TheNewerEngineIsTheDefault) {
    Controller.ShowReport("APPRAISAL");
    EXPECT_EQ(Engine4.Take(), "clear|load /new/AppraisalGrouped.fr3|prepare|colours 16777215 12639424|");
    EXPECT_EQ(User.Log, "busy|preview 4 Lotmaster/Lotmaster Report|idle|");
    Data.Project().AppraisalReportFile = "AppraisalUngrouped";
    Controller.SaveReport("appraisal", "/x.pdf");
    EXPECT_EQ(Engine4.Take(),
              "clear|load /new/AppraisalUngrouped.fr3|prepare|export /x.pdf Appraisal/Lotmaster Report|");
    EXPECT_EQ(Engine2.Take(), "");
}

TEST_F(Reports, TheResidualIsADocumentOfThreeTemplates) {
    Options.Logo = Folder.Write("l.png", "x");
    Data.Project().PictureFileName = "  " + Folder.Write("p.png", "x") + " ";
    Controller.SaveReport("Residual", "/x.pdf");
    EXPECT_EQ(Engine4.Take(),
              "clear|load /new/AppraisalMain.fr3|Logo l.png|Picture p.png|prepare|load /new/ResidualTotals.fr3|"
              "append|load /new/AppraisalSummary.fr3|append|export /x.pdf Residual/Lotmaster Report|");
    EXPECT_EQ(Report.Title, "Residual Valuation");
    for (int i = 0; i < Data.ReportTables.ItemData.RowCount(); ++i) {
        EXPECT_NE(Data.ReportTables.ItemData.Row(i).Text("Name"), "Site Value");
    }
    Controller.SaveReport("Addendum", "/y.pdf");
    EXPECT_EQ(Report.Title, "Residual Valuation") << "others leave the title as it stands";
}

TEST_F(Reports, PicturesThatCannotBeSetArePassedOver) {
    const std::string logo = Folder.Write("l.png", "x");
    for (const std::string& name : {std::string(), std::string("   "), Folder.File("none.png"), Folder.File("")}) {
        Options.Logo = name;
        Controller.SaveReport("Picture", "/x.pdf");
        EXPECT_EQ(Engine4.Take(), "clear|load /new/Picture.fr3|prepare|export /x.pdf Picture/Lotmaster Report|")
            << name;
    }
    Options.Logo = logo;
    Engine4.Objects = "|picture|";
    Controller.SaveReport("Picture", "/x.pdf");
    EXPECT_EQ(Engine4.Take().find("Logo"), std::string::npos);
    Engine4.Objects = "|logo|";
    Engine4.BadPicture = true;
    Controller.SaveReport("Picture", "/x.pdf");
    EXPECT_NE(Engine4.Take().find("prepare|export"), std::string::npos);
}

TEST_F(Reports, TheOlderSetHasItsOwnTemplatesAndNoPicture) {
    Options.Logo = Folder.Write("l.png", "x");
    Data.Project().AppraisalReportFile = "AppraisalUngrouped";
    Controller.UseFR2();
    EXPECT_EQ(Controller.Commands().Names(), (std::vector<std::string>{"Appraisal", "Residual", "Occupational Details",
                                                                       "Addendum", "Front Page", "Picture"}));
    Controller.ShowReport("Appraisal");
    EXPECT_EQ(Engine2.Take(), "clear|load /old/Appraisal.frf|Logo l.png resized|prepare|colours 16777215 12639424|");
    Controller.SaveReport("Occupational Details", "/x.pdf");
    EXPECT_NE(Engine2.Take().find("load /old/OccDetails.frf|"), std::string::npos);
    EXPECT_EQ(Failure([&] { Controller.SaveReport("Picture", "/x.pdf"); }), "Report Picture not found!");
    User.Log.clear();
    EXPECT_EQ(Failure([&] { Controller.ShowReport("Picture"); }), "Report Picture not found!");
    EXPECT_EQ(User.Log, "busy|idle|");
    EXPECT_EQ(Failure([&] { Controller.ShowReport("Forecast"); }), "Command Forecast does not exist");
    Controller.UseFR4();
    Controller.ShowReport("Picture");
    EXPECT_NE(Engine4.Take(), "");
}

TEST_F(Reports, NothingStartsWithoutBuildCostsAndSales) {
    Controller.ShowReport("Appraisal");
    const int rows = Data.ReportTables.UnitData.RowCount();
    DeleteUnits(Data.Project());
    Engine4.Take();
    User.Log.clear();
    Controller.ShowReport("Appraisal");
    Controller.ShowSensitivity();
    EXPECT_EQ(Engine4.Take(), "");
    EXPECT_TRUE(User.Log.starts_with("told ")) << User.Log;
    EXPECT_EQ(Data.ReportTables.UnitData.RowCount(), rows);
    Data.BuildTestProject();
    User.Log.clear();
    Controller.ShowSensitivity();
    Controller.ShowUserSettings();
    EXPECT_EQ(User.Log, "sensitivity|settings|");
}

TEST_F(Reports, AMissingTemplatePassesUpWithTheHourglassGone) {
    Engine4.Missing = "Addendum.fr3";
    EXPECT_EQ(Failure([&] { Controller.ShowReport("Addendum"); }), "/new/Addendum.fr3 is missing");
    EXPECT_EQ(User.Log, "busy|idle|");
}

TEST_F(Reports, VariablesAreAnsweredByNameIgnoringCase) {
    Data.Recalculate();
    TlotProject& project = Data.Project();
    project.HideRatio = true;
    project.RatioBase = "NDV";
    Report.Title = "T";
    const auto value = [&](const char* name) { return Engine4.OnGetValue(name); };
    EXPECT_EQ(value("title"), TlotReportValue(std::string("T")));
    EXPECT_EQ(value("CostGroupPageBreak"), TlotReportValue(project.CostGroupPageBreak));
    EXPECT_EQ(value("gdv"), TlotReportValue(project.GDV));
    EXPECT_EQ(value("TDC"), TlotReportValue(project.TDC));
    EXPECT_EQ(value("RatioBase"), TlotReportValue(project.NDV));
    EXPECT_EQ(value("HideRatio"), TlotReportValue(true));
    EXPECT_EQ(value("Page"), std::nullopt) << "the engine's own";
}

} // namespace
