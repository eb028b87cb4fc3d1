// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/frmMain.h"

#include "app/lotFailures.h"
#include "common/vipText.h"
#include "shell/base/lotLook.h"
#include "shell/dialogs/frmAbout.h"
#include "shell/dialogs/frmEmail.h"
#include "shell/dialogs/frmHelp.h"
#include "shell/dialogs/frmUserSettingsDlg.h"
#include "shell/dialogs/lotGoalSeekCommand.h"
#include "shell/dialogs/lotQuickEdit.h"
#include "shell/lotRecentMenu.h"
#include "shell/lotStatusPanel.h"
#include "shell/views/frmCashflowView.h"
#include "shell/views/frmHomeView.h"
#include "shell/views/frmSummaryView.h"
#include "shell/views/lotNotBuiltView.h"
#include "widgets/lotClickLabel.h"
#include "widgets/lotNavigationColumn.h"

#include <QCloseEvent>
#include <QDesktopServices>
#include <QFile>
#include <QFrame>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QStackedWidget>
#include <QUrl>
#include <QVBoxLayout>
#include <filesystem>
#include <map>
#include <utility>

TMainForm::TMainForm(const TlotDesktop& desktop)
    : FDesktop(desktop),
      FSensitivityFront(*this),
      FController(FDesktop.Data, FDesktop.Reports, FDesktop.Services, FSensitivityFront,
                  [this] { ToolsUserSettings(); }),
      FFiles(FDesktop, Changed, {[this] { ShowOpened(); }, [this] { ShowNew(); }, [this] { UpdateTitle(); }}),
      FActions(std::make_unique<TMainActions>(*this)) {
    setObjectName("MainForm");
    setWindowIcon(look::ProgramIcon());
    resize(1280, 800);
    BuildLayout();
    FStatusTimer.setInterval(1000);
    connect(&FStatusTimer, &QTimer::timeout, FStatusPanel, &TStatusPanel::UpdateStatus);
}

TMainForm::~TMainForm() = default;

void TMainForm::BuildLayout() {
    auto* const centre = new QWidget(this);
    auto* const navigation = new TNavigationColumn(centre);
    FActions->FillNavigation(*navigation);
    FStatusPanel = new TStatusPanel(FDesktop.Data, FDesktop.Locale, centre);
    FViewArea = new QStackedWidget(centre);
    FViewArea->setObjectName("pnlViews");
    FViews = std::make_unique<TViewHost>(*FViewArea, FDesktop.Data);

    const auto rule = [&](QFrame::Shape shape) {
        auto* const line = new QFrame(centre);
        line->setFrameShape(shape);
        line->setFrameShadow(QFrame::Plain);
        line->setFixedSize(shape == QFrame::VLine ? QSize(1, QWIDGETSIZE_MAX) : QSize(QWIDGETSIZE_MAX, 1));
        QPalette colours = line->palette();
        colours.setColor(QPalette::WindowText, look::Rule());
        line->setPalette(colours);
        return line;
    };
    auto* const work = new QVBoxLayout;
    work->setSpacing(0);
    work->addWidget(FStatusPanel);
    work->addWidget(rule(QFrame::HLine));
    work->addWidget(FViewArea, 1);
    auto* const layout = new QHBoxLayout(centre);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(navigation);
    layout->addWidget(rule(QFrame::VLine));
    layout->addLayout(work, 1);
    setCentralWidget(centre);

    const TMainActions::TFileMenu file = FActions->FillMenus(*menuBar());
    FRecentMenu = new TRecentMenu(file.Menu, file.BelowRecentFiles, FFiles.RecentFiles.Names);
    FRecentMenu->OnChoose = [this](const std::string& name) { FFiles.OpenProject(name); };
}

void TMainForm::FormCreate() {
    for (const TlotAction hidden : {TlotAction::FileTestData, TlotAction::ViewFundingAdvGrid,
                                    TlotAction::ViewSensitivity, TlotAction::HelpInformation}) {
        Action(hidden).setVisible(false);
    }
    TAboutForm::ShowSplash(this);
    FFiles.RecentFiles.Load(FDesktop.App.UserSettingsFile);
    FFiles.SetInitialFolder(FDesktop.App.FilesFolder);
    Guarded([this] { NewDefault(FDesktop.Data, FDesktop.App.TemplatesFolder, FDesktop.Services.Clock); });
    UpdateTitle();
    FStatusPanel->UpdateStatus();
    CreateViews();
    WireViewActions();
    WireFileActions();
    WireReportActions();
    WireOtherActions();
    WireStatusPanel();
    FStatusTimer.start();
}

void TMainForm::CreateViews() {
    FCostView = &FViews->Add<TNotBuiltView>("Costs");
    FUnitView = &FViews->Add<TNotBuiltView>("Units");
    FUnitGridView = &FViews->Add<TNotBuiltView>("Units (Quick Edit)");
    FAccountCodesView = &FViews->Add<TNotBuiltView>("Account Codes");
    FSummaryView = &FViews->Add<TSummaryViewForm>(FDesktop.Data, FDesktop.Locale);
    FCashflowView = &FViews->Add<TCashflowViewForm>(FDesktop);
    FTimescaleView = &FViews->Add<TNotBuiltView>("Timescale");
    FFundingView = &FViews->Add<TNotBuiltView>("Funding");
    FFundingGridView = &FViews->Add<TNotBuiltView>("Funding");
    FFundingAdvGridView = &FViews->Add<TNotBuiltView>("Funding (AdvGrid)");
    FHomeView = &FViews->Add<THomeViewForm>(QString::fromStdString(FDesktop.App.ProgramFolder) + "Branding/Home");
    for (TViewForm* const view :
         {FCostView, FUnitView, FUnitGridView, FTimescaleView, FFundingView, FFundingGridView, FFundingAdvGridView}) {
        view->OnChange = [this] { Changed = true; };
    }
    FHomeView->OnLink = [this](const QString& target) { FollowLink(target); };
    FViews->BringToFront(*FHomeView);
    FViews->SetCurrent(*FHomeView);
}

void TMainForm::WireViewActions() {
    struct TRow {
        TlotAction Action;
        TViewForm* View;
        TlotViewRule Rule;
    };
    const std::vector<TRow> rows{
        {TlotAction::ViewHome, FHomeView, TlotViewRule::FrontOnly},
        {TlotAction::ViewUnits, FUnitView, TlotViewRule::FrontThenRefresh},
        {TlotAction::ViewUnitGrid, FUnitGridView, TlotViewRule::FrontThenRefresh},
        {TlotAction::ViewCosts, FCostView, TlotViewRule::WithoutLeave},
        {TlotAction::ViewFunding, FFundingView, TlotViewRule::WithoutLeave},
        {TlotAction::ViewFundingGrid, FFundingGridView, TlotViewRule::WithoutLeave},
        {TlotAction::ViewFundingAdvGrid, FFundingAdvGridView, TlotViewRule::WithoutLeave},
        {TlotAction::ViewTimescale, FTimescaleView, TlotViewRule::ReadsResults},
        {TlotAction::ViewAccountCodes, FAccountCodesView, TlotViewRule::RefreshThenFront},
        {TlotAction::ViewCashflow, FCashflowView, TlotViewRule::ReadsResults},
        {TlotAction::ViewSummary, FSummaryView, TlotViewRule::ReadsResults},
    };
    for (const TRow& row : rows) {
        FActions->On(row.Action, [this, row] { FViews->Show(*row.View, row.Rule); });
    }
    // The navigation column marks what is in front, also where a view came there by another way.
    FViews->OnFront = [this, rows](const TViewForm& view) {
        for (const TRow& row : rows) {
            Action(row.Action).setChecked(row.View == &view);
        }
    };
    FViews->OnFront(*FHomeView);
}

void TMainForm::WireFileActions() {
    FActions->On(TlotAction::FileNew, [this] { FFiles.FileNew(); });
    FActions->On(TlotAction::FileOpen, [this] { FFiles.FileOpen(); });
    FActions->On(TlotAction::FileSave, [this] {
        FViews->CurrentView().Leave();
        FFiles.Save();
    });
    FActions->On(TlotAction::FileSaveAs, [this] {
        FViews->CurrentView().Leave();
        FFiles.SaveAs();
    });
    FActions->On(TlotAction::FileTestData, [this] { FFiles.FileTestData(); });
    FActions->On(TlotAction::FileExit, [this] { close(); });
}

void TMainForm::WireReportActions() {
    struct TRow {
        TlotAction Action;
        const char* Report;
    };
    for (const TRow& row : {TRow{TlotAction::ReportAppraisal, "Appraisal"},
                            {TlotAction::ReportResidual, "Residual"},
                            {TlotAction::ReportOccDetails, "Occupational Details"},
                            {TlotAction::ReportAddendum, "Addendum"},
                            {TlotAction::ReportFrontPage, "Front Page"},
                            {TlotAction::ReportPicture, "Picture"}}) {
        FActions->On(row.Action, [this, row] {
            FViews->CurrentView().Leave();
            FController.ShowReport(row.Report);
            // The report was made of the project as recalculated; the view behind it shows the same figures.
            FViews->CurrentView().Refresh();
            FStatusPanel->UpdateStatus();
        });
    }
    FActions->On(TlotAction::DebugUseFR2, [this] { FController.UseFR2(); });
    FActions->On(TlotAction::DebugUseFR4, [this] { FController.UseFR4(); });
    for (const TlotAction action : {TlotAction::ViewSensitivity, TlotAction::ViewSensitivity2}) {
        FActions->On(action, [this] { FController.ShowSensitivity(); });
    }
}

void TMainForm::TSensitivityFront::Execute() {
    FForm.ShowNotBuilt("Sensitivity");
}

void TMainForm::WireOtherActions() {
    FActions->On(TlotAction::FileEmail, [this] { FileEmail(); });
    FActions->On(TlotAction::ToolsGoalSeek, [this] { ToolsGoalSeek(); });
    FActions->On(TlotAction::ToolsUserSettings, [this] { FController.ShowUserSettings(); });
    FActions->On(TlotAction::HelpContents, [this] { ShowHelp(); });
    FActions->On(TlotAction::HelpAbout, [this] { ShowAbout(); });

    struct TRow {
        TlotAction Action;
        const char* Screen;
    };
    for (const TRow& row : {TRow{TlotAction::ProjectGeneral, "Project: General"},
                            {TlotAction::ProjectResidual, "Project: Residual"},
                            {TlotAction::ProjectCashflow, "Project: Cashflow"},
                            {TlotAction::ProjectFunding, "Project: Funding"},
                            {TlotAction::ProjectInflation, "Project: Inflation"},
                            {TlotAction::ProjectAddress, "Project: Address"},
                            {TlotAction::ProjectNotes, "Project: Notes"},
                            {TlotAction::ProjectReports, "Project: Reports"},
                            {TlotAction::ProjectAdvanced, "Advanced"},
                            {TlotAction::ToolsOptions, "Options"}}) {
        FActions->On(row.Action, [this, screen = QString(row.Screen)] { ShowNotBuilt(screen); });
    }
}

void TMainForm::WireStatusPanel() {
    const auto edit = [this](const TClickLabel& label, void (TMainForm::*handler)()) {
        connect(&label, &TClickLabel::Clicked, this, [this, handler] { Guarded([&] { (this->*handler)(); }); });
    };
    edit(FStatusPanel->NameLabel(), &TMainForm::EditName);
    edit(FStatusPanel->SiteValueLabel(), &TMainForm::EditSiteValue);
    edit(FStatusPanel->NetSiteAreaLabel(), &TMainForm::EditNetSiteArea);
    connect(FStatusPanel, &TStatusPanel::AnchorClicked, this, [this](const QString& anchor) {
        if (anchor.compare("goalseek", Qt::CaseInsensitive) == 0) {
            Action(TlotAction::ToolsGoalSeek).trigger();
        } else if (anchor.compare("finance", Qt::CaseInsensitive) == 0) {
            Action(TlotAction::ProjectFunding).trigger();
        }
    });
}

/// The links of the start page lead to commands; others do nothing.
void TMainForm::FollowLink(const QString& target) {
    static const std::map<QString, TlotAction> links{
        {"units", TlotAction::ViewUnits},        {"costs", TlotAction::ViewCosts},
        {"summary", TlotAction::ViewSummary},    {"appraisal", TlotAction::ReportAppraisal},
        {"goalseek", TlotAction::ToolsGoalSeek}, {"help", TlotAction::HelpContents},
        {"about", TlotAction::HelpAbout}};
    if (const auto link = links.find(target.toLower()); link != links.end()) {
        Action(link->second).trigger();
    }
}

void TMainForm::OpenArgument(const std::vector<std::string>& arguments) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (vip::SameText(argument, "-syspath") || vip::SameText(argument, "/syspath")) {
            ++i; // The folder that follows is no file to open.
            continue;
        }
        if (argument.empty() || argument.front() == '-') {
            continue;
        }
        if (vip::SameText(std::filesystem::path(argument).extension().string(), ".lot")) {
            // The recent files outlive the folder that the program was started in.
            FFiles.OpenProject(std::filesystem::absolute(argument).lexically_normal().string());
        } else {
            FDesktop.Services.Messages.Show(TlotMessageKind::Information,
                                            "\"" + argument + "\" is not a Lotmaster file.");
        }
        return;
    }
}

void TMainForm::RefreshAll() {
    FDesktop.Data.Recalculate();
    FDesktop.Data.BuildReportTables(TlotReportKind::Appraisal);
    FViews->CurrentView().Refresh();
    FStatusPanel->UpdateStatus();
}

void TMainForm::ShowOpened() {
    UpdateTitle();
    RefreshAll();
    FSummaryView->Refresh();
    FViews->BringToFront(*FSummaryView);
    FViews->SetCurrent(*FSummaryView);
}

void TMainForm::ShowNew() {
    UpdateTitle();
    FDesktop.Data.Recalculate();
    for (TViewForm* const view : FViews->Views()) {
        view->Refresh();
    }
    // In front, though not current: the view that was current stays so, deliberately.
    FViews->BringToFront(*FUnitView);
    FStatusPanel->UpdateStatus();
}

void TMainForm::ShowNotBuilt(const QString& screen) {
    FViews->CurrentView().Leave();
    TNotBuiltView* const before = std::exchange(FNotBuiltView, new TNotBuiltView(screen, FViewArea));
    FViewArea->addWidget(FNotBuiltView);
    FViews->BringToFront(*FNotBuiltView);
    delete before;
}

void TMainForm::UpdateTitle() {
    const std::string& name = FDesktop.Data.FileName;
    setWindowTitle(name.empty() ? QString("Lotmaster") : "Lotmaster - " + QString::fromStdString(FileNameOnly(name)));
}

// None of the three edits in the status panel marks the project as changed, deliberately.

void TMainForm::EditName() {
    TcdTextEdit edit(FStatusPanel->NameLabel());
    edit.Value = QString::fromStdString(FDesktop.Data.Project().Name);
    if (edit.Execute()) {
        FDesktop.Data.Project().Name = edit.Value.toStdString();
        FStatusPanel->UpdateStatus();
    }
}

void TMainForm::EditSiteValue() {
    if (!FDesktop.Data.CheckUnitsShow()) {
        return;
    }
    TlotProject& project = FDesktop.Data.Project();
    TcdValueEdit edit(FStatusPanel->SiteValueLabel(), FDesktop.Locale);
    edit.Value = project.BaseValues.SiteValue.Amount;
    if (edit.Execute()) {
        project.BaseValues.SiteValue.Amount = edit.Value;
        project.ResidualTarget = TlotResidualTarget::NoTarget;
        RefreshAll();
    }
}

void TMainForm::EditNetSiteArea() {
    if (!FDesktop.Data.CheckUnitsShow()) {
        return;
    }
    TcdValueEdit edit(FStatusPanel->NetSiteAreaLabel(), FDesktop.Locale);
    edit.Value = FDesktop.Data.Project().NetSiteArea;
    edit.Format = ",0.00";
    if (edit.Execute()) {
        FDesktop.Data.Project().NetSiteArea = edit.Value;
        RefreshAll();
    }
}

void TMainForm::closeEvent(QCloseEvent* event) {
    bool leave = false; // Also where saving fails: the window stays.
    Guarded([&] { leave = FFiles.CheckSave(); });
    event->setAccepted(leave);
    if (leave) {
        Guarded([this] { FFiles.RecentFiles.Save(FDesktop.App.UserSettingsFile); });
    }
}

void TMainForm::ShowHelp() {
    // A firm's own help file stands in for the guide that the program carries.
    const QString file = QString::fromStdString(FDesktop.App.ProgramFolder) + "Lotmaster.chm";
    if (QFile::exists(file) && QDesktopServices::openUrl(QUrl::fromLocalFile(file))) {
        return;
    }
    auto* const help = new THelpForm(this);
    help->setAttribute(Qt::WA_DeleteOnClose);
    help->show();
}

void TMainForm::FileEmail() {
    FViews->CurrentView().Leave();
    FDesktop.Data.Recalculate();
    if (FDesktop.Data.CheckUnitsShow()) {
        TlotEmail email(FDesktop.Data, FController, FDesktop.Mail, FDesktop.Services.Messages,
                        FDesktop.App.TemporaryFolder);
        TEmailForm(email, FDesktop.Services, this).exec();
    }
}

void TMainForm::ToolsGoalSeek() {
    RunGoalSeek(FDesktop.Data, FDesktop.Services.Busy, FDesktop.Locale,
                {[this] { FViews->CurrentView().Leave(); }, [this] { FStatusTimer.stop(); },
                 [this] { FStatusTimer.start(); },
                 [this] {
                     Changed = true;
                     RefreshAll();
                 }},
                this);
}

void TMainForm::ToolsUserSettings() {
    TUserSettingsDlgForm form(FDesktop.App.UserSettings, this);
    if (form.exec() == QDialog::Accepted) {
        form.Store(FDesktop.App.UserSettings);
        FDesktop.App.SaveUserSettings();
        FCashflowView->Refresh();
        FTimescaleView->Refresh();
    }
}

void TMainForm::ShowAbout() {
    TAboutForm(this).exec();
}
