// SPDX-License-Identifier: GPL-3.0-or-later
//
// Stories at the main window: commands and clicks in; the project, the files and what the user was told out.
#include "app/lotFailures.h"
#include "model/lotMeasures.h"
#include "shell/frmMain.h"
#include "shell/lotStatusPanel.h"
#include "support/lotDesktopScript.h"
#include "widgets/lotClickLabel.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <tuple>

namespace fs = std::filesystem;

namespace {

class MainWindow : public testing::Test {
protected:
    MainWindow() : FFailures(FScript.User) { Restart(); }

    /// As the program starts: with the recent files of the last time.
    void Restart() {
        FForm.reset();
        FForm = std::make_unique<TMainForm>(FScript.Desktop);
        FForm->FormCreate();
        FForm->show();
    }
    /// The message loop's way into a command.
    void Do(TlotAction action) { FForm->Action(action).trigger(); }
    void Open(const std::string& file) {
        Guarded([&] { FForm->Files().OpenProject(file); });
    }
    /// A project file of our own, in the installation's folder.
    std::string Copy(const std::string& example, const std::string& name) {
        fs::copy_file(ExampleFile(example), FScript.Folder.File(name), fs::copy_options::overwrite_existing);
        return FScript.Folder.File(name);
    }
    [[nodiscard]] QString Label(const char* name) const { return FForm->findChild<QLabel*>(name)->text(); }
    [[nodiscard]] bool Red(const char* name) const {
        const auto* const label = FForm->findChild<QLabel*>(name);
        const QColor colour = label->palette().color(label->foregroundRole());
        return colour.red() > 150 && colour.green() < 100;
    }
    [[nodiscard]] std::string Front() const { return FForm->Views().FrontView().objectName().toStdString(); }
    /// Clicks a figure of the status panel, types into the box that opens over it, and presses a key.
    void EditFigure(const char* name, const QString& text, Qt::Key key = Qt::Key_Return) {
        QTimer::singleShot(0, [&] {
            QWidget* const box = QApplication::activePopupWidget();
            ASSERT_NE(box, nullptr);
            auto* const edit = box->findChild<QLineEdit*>();
            EXPECT_EQ(edit->accessibleName(), FForm->findChild<QLabel*>(name)->accessibleName());
            edit->selectAll();
            QTest::keyClicks(edit, text);
            QTest::keyClick(edit, key);
        });
        QTest::mouseClick(FForm->findChild<QLabel*>(name), Qt::LeftButton);
    }
    [[nodiscard]] bool Close() { return FForm->close(); }

    TDesktopScript FScript;
    TFailureMessages FFailures;
    std::unique_ptr<TMainForm> FForm;
};

TEST_F(MainWindow, StartsWithADefaultProjectAndNothingComputed) {
    EXPECT_EQ(FForm->windowTitle(), "Lotmaster");
    EXPECT_EQ(Front(), "HomeViewForm");
    EXPECT_EQ(FScript.Project().Sections.Count(), 5);
    EXPECT_EQ(Label("lblStatus"), "No unit build costs have been specified.");
    EXPECT_TRUE(Red("lblStatus"));
    EXPECT_EQ(Label("lblName"), "None specified - click to edit");
    EXPECT_TRUE(FForm->StatusTimerActive());
    EXPECT_FALSE(FScript.Data.Document.Changed());
}

TEST_F(MainWindow, OpenShowsTheSummaryAndTheFigures) {
    const std::string file = Copy("mixed-use.lot", "Quarter.LOT");
    FScript.User.FileNames = {file};
    Do(TlotAction::FileOpen);
    EXPECT_EQ(FScript.User.TakeTold(), "");
    EXPECT_EQ(FForm->windowTitle(), "Lotmaster - Quarter.LOT");
    EXPECT_EQ(Front(), "SummaryViewForm");
    EXPECT_EQ(Label("lblName"), "Station Quarter");
    EXPECT_EQ(Label("lblSiteValue"), "6,750,000");
    EXPECT_EQ(Label("lblProfit"), "4,033,154");
    EXPECT_EQ(Label("lblProfitOnCost"), "10.229%");
    EXPECT_EQ(Label("lblIRR"), "21.565%");
    EXPECT_EQ(Label("lblSiteValuePerAreaCaption"), "Site Value per Acre:");
    EXPECT_EQ(Label("lblStatus"), "");
    EXPECT_EQ(FForm->Files().RecentFiles.Names, std::vector<std::string>{file});
    EXPECT_EQ(FScript.User.LastFileQuestion.Folder, FScript.App.FilesFolder);
}

TEST_F(MainWindow, StatusPanelShowsTheMeasuresUnderTheirNames) {
    Open(Copy("mixed-use.lot", "a.lot"));
    FScript.Project().NPVIRRSource = TlotNPVIRRSource::Project;
    auto& panel = *FForm->findChild<TStatusPanel*>();
    panel.UpdateStatus();
    EXPECT_NE(FScript.Project().IRR(), FScript.Project().Equity.IRR);
    const std::tuple<const char*, const char*, TlotMeasure> told[] = {
        {"lblSiteValue", "Site Value", TlotMeasure::SiteValue},
        {"lblProfit", "Profit", TlotMeasure::Profit},
        {"lblProfitOnCost", "Profit on Cost", TlotMeasure::ProfitOnCost},
        {"lblProfitOnGDV", "Profit on GDV", TlotMeasure::ProfitOnGDV},
        {"lblProfitOnNDV", "Profit on NDV", TlotMeasure::ProfitOnNDV},
        {"lblSiteOnGDV", "Site Value on GDV", TlotMeasure::SiteValueOnGDV},
        {"lblRentalYield", "Rental Yield", TlotMeasure::RentalYield},
        {"lblIRR", "IRR", TlotMeasure::IRR}};
    for (const auto& [name, caption, measure] : told) {
        const TlotMeasureInfo& info = MeasureInfo(measure);
        const std::string figure = vip::FormatMask(info.Mask, info.Figure(FScript.Project()), PointLocale);
        EXPECT_EQ(Label(name).toStdString(), figure) << name;
        EXPECT_EQ(FForm->findChild<QLabel*>(name)->accessibleName().toStdString(), caption);
    }
}

TEST_F(MainWindow, ALongNameHasTheRoomBesideTheFigures) {
    FScript.Project().Name = "Orchard Road & St. Mary's \"Old\" Yard, Phase II.b";
    FForm->UpdateStatus();
    FForm->resize(1280, 800);
    const auto* const name = FForm->findChild<QLabel*>("lblName");
    QCoreApplication::processEvents();
    EXPECT_GT(name->width(), FForm->findChild<QLabel*>("lblSiteValue")->width() + 150);
    FForm->grab();
    EXPECT_EQ(name->toolTip(), "") << "nothing of it is cut";
}

TEST_F(MainWindow, FiguresClickedAndTypedGoIntoTheModelUnmarked) {
    Open(Copy("housing.lot", "a.lot"));
    EXPECT_NE(FScript.Project().ResidualTarget, TlotResidualTarget::NoTarget);
    EditFigure("lblSiteValue", "1,250,000");
    EXPECT_EQ(FScript.SiteValue(), 1'250'000);
    EXPECT_EQ(FScript.Project().ResidualTarget, TlotResidualTarget::NoTarget);
    EXPECT_EQ(Label("lblSiteValue"), "1,250,000");
    EditFigure("lblNetSiteArea", "12.5");
    EXPECT_EQ(FScript.Project().NetSiteArea, 12.5);
    EXPECT_EQ(Label("lblSiteValuePerArea"), "100,000.00");
    EditFigure("lblName", "Orchard");
    EXPECT_EQ(FScript.Project().Name, "Orchard");
    EditFigure("lblName", "Not this", Qt::Key_Escape);
    EXPECT_EQ(Label("lblName"), "Orchard");
    EditFigure("lblSiteValue", "-5");
    EXPECT_TRUE(Red("lblSiteValue"));
    EXPECT_FALSE(FScript.Data.Document.Changed());
}

TEST_F(MainWindow, FiguresThatNeedAProjectSayWhatIsMissing) {
    QTest::mouseClick(FForm->findChild<QLabel*>("lblSiteValue"), Qt::LeftButton);
    QTest::keyClick(FForm->findChild<QLabel*>("lblNetSiteArea"), Qt::Key_Return);
    EXPECT_EQ(FScript.User.TakeTold(),
              "I: No unit build costs have been specified.|I: No unit build costs have been specified.|");
    Open(Copy("housing.lot", "a.lot"));
    EditFigure("lblSiteValue", "0");
    EXPECT_EQ(Label("lblSiteValue"), "None specified - click to edit");
    EXPECT_EQ(Label("lblProfitOnCost"), "");
    EXPECT_TRUE(Label("lblStatus").startsWith("No Site Value.  Click above to edit, or use <A href=\"goalseek\">"));
}

TEST_F(MainWindow, CancelAtTheSavePromptLosesNothing) {
    const std::string file = Copy("housing.lot", "a.lot");
    const std::string other = Copy("mixed-use.lot", "b.lot");
    Open(file);
    EditFigure("lblSiteValue", "1000000");
    FScript.Data.Document.MarkChanged();
    const std::string before = SavedText(FScript.Project());
    FScript.User.Answers = {TlotAnswer::Cancel, TlotAnswer::Cancel, TlotAnswer::Cancel};
    Do(TlotAction::FileNew);
    Open(other);
    EXPECT_FALSE(Close());
    const std::string question = "?: Do you want to save the changes you made to \"a.lot\"?|";
    EXPECT_EQ(FScript.User.TakeTold(), question + question + question);
    EXPECT_TRUE(SavedText(FScript.Project()) == before);
    EXPECT_EQ(FForm->windowTitle(), "Lotmaster - a.lot");
    EXPECT_TRUE(FScript.Data.Document.Changed());

    FScript.User.Answers = {TlotAnswer::Yes};
    Open(other);
    EXPECT_EQ(FScript.Project().Name, "Station Quarter");
    EXPECT_FALSE(FScript.Data.Document.Changed());
    Open(file);
    EXPECT_EQ(FScript.SiteValue(), 1'000'000);
}

TEST_F(MainWindow, SavePromptOfAnUntitledProjectAsksForAName) {
    FScript.Data.Document.MarkChanged();
    FScript.User.Answers = {TlotAnswer::Yes, TlotAnswer::Yes};
    FScript.User.FileNames = {std::nullopt, FScript.Folder.File("new.lot")};
    Do(TlotAction::FileNew);
    EXPECT_TRUE(FScript.Data.Document.Changed()) << "Yes without a name saves nothing and so stops.";
    EXPECT_EQ(FScript.User.LastFileQuestion.Name, "");
    EXPECT_TRUE(Close());
    EXPECT_EQ(FScript.User.TakeTold(),
              "?: Do you want to save the changes you made?|?: Do you want to save the changes "
              "you made?|");
    EXPECT_TRUE(fs::exists(FScript.Folder.File("new.lot")));
    Restart();
    EXPECT_EQ(FForm->Files().RecentFiles.Names, std::vector<std::string>{FScript.Folder.File("new.lot")});
}

TEST_F(MainWindow, SaveAsProposesAProjectInTheDataFolder) {
    struct TCase {
        const char* FileName;
        const char* Proposed; ///< In the data folder, unless a whole path.
    };
    const std::string data = FScript.App.FilesFolder;
    for (const TCase& row : {TCase{"", ""},
                             {"/firm/Residential.ltt", "Residential.lot"},
                             {"/firm/no extension", "no extension.lot"},
                             {"/firm/two.dots.ltt", "two.lot"},
                             {"/firm/Scheme.LOT", "/firm/Scheme.LOT"}}) {
        FScript.Data.Document.SetFile(row.FileName);
        FScript.User.FileNames = {std::nullopt};
        Do(TlotAction::FileSaveAs);
        const std::string wanted(row.Proposed);
        EXPECT_EQ(FScript.User.LastFileQuestion.Name, wanted.empty() || wanted.front() == '/' ? wanted : data + wanted);
    }
    EXPECT_EQ(FScript.User.LastFileQuestion.Filter, "Lotmaster Files (*.lot)|*.lot|Lotmaster Templates (*.ltt)|*.ltt");

    FScript.User.FileNames = {FScript.Folder.File("House.ltt")};
    FScript.Data.Document.MarkChanged();
    Do(TlotAction::FileSaveAs);
    EXPECT_EQ(FForm->windowTitle(), "Lotmaster - House.ltt");
    EXPECT_FALSE(FScript.Data.Document.Changed());
    EXPECT_TRUE(FForm->Files().RecentFiles.Names.empty()) << "Templates are no recent files.";
}

TEST_F(MainWindow, FilesThatCannotBeOpenedLeaveTheProject) {
    Open(Copy("housing.lot", "good.lot"));
    FScript.Data.Document.MarkChanged();
    const std::string before = SavedText(FScript.Project());
    struct TCase {
        std::string File;
        std::string Told;
    };
    for (const TCase& row : {TCase{FScript.Folder.File("gone.lot"), "I: File does not exist.|"},
                             {FScript.Folder.Write("half.lot", "<Lotmaster><Proj"), "E: Unable to read file.|"},
                             {FScript.Folder.Write("other.lot", "<Recipe/>"), "W: That is not a Lotmaster file.|"},
                             {FScript.Folder.Write("hostile.lot", FileText("HideRatio='perhaps'")), "E: "},
                             {FScript.Folder.Write("IMPORT.RESI", ReadBytes(ExampleFile("orchard-close.resi"))),
                              "W: That is not a Lotmaster file.|"}}) {
        FScript.User.Answers = {TlotAnswer::No};
        Open(row.File);
        const std::string told = FScript.User.TakeTold();
        EXPECT_NE(told.find(row.Told), std::string::npos) << told;
        EXPECT_TRUE(SavedText(FScript.Project()) == before) << row.File;
        EXPECT_EQ(FForm->windowTitle(), "Lotmaster - good.lot");
        FScript.User.Answers.clear();
        FScript.Data.Document.MarkChanged();
    }
    EXPECT_EQ(FForm->Files().RecentFiles.Names.size(), 1U);
}

TEST_F(MainWindow, ImportMarksTheProjectAndKeepsTheFileName) {
    Open(Copy("housing.lot", "a.lot"));
    FScript.User.FileNames = {ExampleFile("orchard-close.resi")};
    Do(TlotAction::FileOpen);
    EXPECT_TRUE(FScript.Data.Document.Changed());
    EXPECT_EQ(FForm->windowTitle(), "Lotmaster - a.lot");
    EXPECT_EQ(Front(), "SummaryViewForm");
}

TEST_F(MainWindow, SaveThatFailsKeepsTheWindowAndTheFile) {
    const std::string file = Copy("housing.lot", "a.lot");
    Open(file);
    const std::string before = ReadBytes(file);
    EditFigure("lblName", "Changed");
    FScript.Data.Document.MarkChanged();
    fs::permissions(file, fs::perms::owner_read);
    FScript.User.Answers = {TlotAnswer::Yes};
    EXPECT_FALSE(Close());
    EXPECT_EQ(FScript.User.TakeTold(),
              "?: Do you want to save the changes you made to \"a.lot\"?|I: File is read-only.|");
    EXPECT_TRUE(ReadBytes(file) == before);
    EXPECT_TRUE(FScript.Data.Document.Changed());

    // A folder that has gone: the failure is thrown, told at the top, and nothing is taken for saved.
    FScript.User.FileNames = {FScript.Folder.File("gone/b.lot")};
    Do(TlotAction::FileSaveAs);
    EXPECT_NE(FScript.User.TakeTold().find("gone/b.lot"), std::string::npos);
    EXPECT_TRUE(FScript.Data.Document.Changed());
    EXPECT_EQ(FForm->windowTitle(), "Lotmaster - a.lot");
}

TEST_F(MainWindow, NewTakesATemplateAndForgetsTheFile) {
    const std::string folder = FScript.App.TemplatesFolder;
    Open(Copy("mixed-use.lot", "a.lot"));
    Do(TlotAction::FileNew);
    EXPECT_EQ(FForm->windowTitle(), "Lotmaster");
    EXPECT_EQ(FScript.Project().Units.Count(), 0);
    EXPECT_EQ(FScript.Project().Sections.Count(), 5) << "no template: the built-in sections";

    fs::copy_file(ExampleFile("housing.lot"), folder + "Housing.ltt");
    Do(TlotAction::FileNew);
    EXPECT_GT(FScript.Project().Units.Count(), 0);
    EXPECT_EQ(FScript.Project().StartDate, TestToday);
    EXPECT_EQ(FScript.Data.FileName(), "");

    fs::copy_file(ExampleFile("mixed-use.lot"), folder + "Mixed.ltt");
    FScript.User.Template = 1;
    Do(TlotAction::FileNew);
    EXPECT_EQ(FScript.User.Offered, "Housing|Mixed|");
    EXPECT_EQ(FScript.Project().Name, "Station Quarter");

    Open(FScript.Folder.File("a.lot"));
    FScript.User.Template.reset();
    Do(TlotAction::FileNew);
    EXPECT_EQ(FScript.Project().Sections.Count(), 0) << "Cancel leaves a cleared project.";
    EXPECT_EQ(FScript.Data.FileName(), "");

    // A damaged template must not leave a cleared project under the old file's name.
    Open(FScript.Folder.File("a.lot"));
    std::ofstream(folder + "Mixed.ltt") << FileText("HideRatio='perhaps'");
    FScript.User.Template = 1;
    Do(TlotAction::FileNew);
    EXPECT_EQ(FScript.User.TakeTold().substr(0, 3), "E: ");
    EXPECT_EQ(FScript.Data.FileName(), "");
    EXPECT_EQ(FForm->windowTitle(), "Lotmaster");
}

TEST_F(MainWindow, CommandLineNamesAFile) {
    const std::string file = Copy("mixed-use.lot", "a.lot");
    struct TCase {
        std::vector<std::string> Arguments;
        std::string Told;
        bool Opened;
    };
    for (const TCase& row : {TCase{{}, "", false},
                             {{"scheme.txt"}, "I: \"scheme.txt\" is not a Lotmaster file.|", false},
                             {{"/gone/scheme.LOT"}, "I: File does not exist.|", false},
                             {{"-syspath", "/some/folder"}, "", false},
                             {{"-x", "-syspath", "/some/folder", file, "scheme.txt"}, "", true}}) {
        Restart();
        FForm->Files().OpenArgument(row.Arguments);
        EXPECT_EQ(FScript.User.TakeTold(), row.Told);
        EXPECT_EQ(FScript.Data.FileName() == file, row.Opened);
    }
}

TEST_F(MainWindow, ViewsThatReadResultsComputeFirst) {
    Open(Copy("mixed-use.lot", "a.lot"));
    FScript.SiteValue() = 1'000'000;
    const double profit = FScript.Project().BaseValues.Profit;
    Do(TlotAction::ViewCosts);
    Do(TlotAction::ViewUnits);
    Do(TlotAction::ViewHome);
    EXPECT_EQ(FScript.Project().BaseValues.Profit, profit);
    Do(TlotAction::ViewCashflow);
    EXPECT_GT(FScript.Project().BaseValues.Profit, profit);
    EXPECT_EQ(Front(), "CashflowViewForm");
    EXPECT_TRUE(FForm->Action(TlotAction::ViewCashflow).isChecked());
    EXPECT_FALSE(FForm->Action(TlotAction::ViewHome).isChecked());
}

TEST_F(MainWindow, StatusFollowsTheModelWithinASecond) {
    Open(Copy("mixed-use.lot", "a.lot"));
    FScript.Project().Name = "Renamed";
    QTest::qWait(1100);
    EXPECT_EQ(Label("lblName"), "Renamed");
}

TEST_F(MainWindow, MenusHoldTheCommandsWithTheirKeys) {
    struct TCase {
        TlotAction Action;
        const char* Key;
    };
    for (const TCase& row : {TCase{TlotAction::FileNew, "Ctrl+N"},
                             {TlotAction::FileOpen, "Ctrl+O"},
                             {TlotAction::FileSave, "Ctrl+S"},
                             {TlotAction::ProjectGeneral, "F4"},
                             {TlotAction::ToolsGoalSeek, "F5"},
                             {TlotAction::ReportAppraisal, "F6"},
                             {TlotAction::HelpContents, "F1"}}) {
        EXPECT_EQ(FForm->Action(row.Action).shortcut().toString().toStdString(), row.Key);
    }
    std::string menus;
    for (const QAction* const menu : FForm->menuBar()->actions()) {
        if (menu->isVisible()) {
            menus += menu->text().remove('&').toStdString() + ":";
            for (const QAction* const entry : menu->menu()->actions()) {
                menus += entry->isVisible() && !entry->isSeparator() ? " " + entry->text().toStdString() + ";" : "";
            }
            menus += "\n";
        }
    }
    EXPECT_EQ(menus,
              "File: New; &Open...; &Save; Save As...; Email...; E&xit;\n"
              "Project: &General...; &Residual...; &Cashflow...; Inflation...; Address...; &Notes...; Reports...; "
              "Advanced...;\n"
              "Tools: Goal Seek...; User Settings...; &Options...;\n"
              "Report: Appraisal; Residual; Occupational Details; Addendum; Front Page; Picture;\n"
              "Help: Lotmaster Help; About;\n");
}

} // namespace
