// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/frmMain.h"

#include "app/lotFailures.h"
#include "app/lotTemplates.h"
#include "shell/base/lotLook.h"
#include "shell/dialogs/frmAbout.h"
#include "shell/dialogs/frmHelp.h"
#include "shell/lotRecentMenu.h"
#include "shell/lotStatusEdits.h"
#include "shell/lotStatusPanel.h"
#include "shell/views/lotNotBuiltView.h"
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
#include <map>
#include <utility>

TMainForm::TMainForm(const TlotDesktop& desktop, const TlotRegistries& registries)
    : FDesktop(desktop),
      FRegistries(registries),
      FSensitivityFront(*this),
      FController(FDesktop.Data, FDesktop.Reports, FDesktop.Services, FSensitivityFront,
                  [this] { RunUserSettings(FDesktop, *this); }),
      FFiles(FDesktop, {.TakeEdits = [this] { TakeEdits(); },
                        .DropEdits = [this] { FViews->DropEdits(); },
                        .ShowOpened = [this] { ShowOpened(); },
                        .ShowNew = [this] { ShowNew(); },
                        .NameChanged = [this] { UpdateTitle(); }}),
      FActions(std::make_unique<TMainActions>(*this)) {
    setObjectName("MainForm");
    setWindowIcon(look::ProgramIcon());
    resize(1280, 800);
    BuildLayout();
    FStatusTimer.setInterval(1000);
    connect(&FStatusTimer, &QTimer::timeout, FStatusPanel, &TStatusPanel::UpdateStatus);
    // What is typed in the view counts for whatever command follows.
    FActions->BeforeEach = [this] { FViews->EndEdit(); };
}

TMainForm::~TMainForm() = default;

void TMainForm::BuildLayout() {
    auto* const centre = new QWidget(this);
    auto* const navigation = new TNavigationColumn(centre);
    FActions->FillNavigation(*navigation);
    FStatusPanel = new TStatusPanel(FDesktop.Data, FDesktop.Locale, centre);
    FStatusEdits = std::make_unique<TStatusEdits>(*FStatusPanel, FDesktop, *this);
    connect(FStatusPanel, &TStatusPanel::AnchorClicked, this, &TMainForm::FollowStatusLink);
    FViewArea = new QStackedWidget(centre);
    FViewArea->setObjectName("pnlViews");
    FViews = std::make_unique<TViewHost>(*FViewArea, FDesktop);

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
    UpdateStatus();
    MakeViews();
    WireViewActions();
    WireFileActions();
    WireReportActions();
    WireDialogActions();
    FStatusTimer.start();
}

void TMainForm::MakeViews() {
    FViews->Make(FRegistries.Views);
    for (TViewForm* const view : FViews->Views()) {
        view->OnLink = [this](const QString& target) { FollowLink(target); };
    }
    TViewForm& home = FViews->View(TlotAction::ViewHome);
    FViews->BringToFront(home);
    FViews->SetCurrent(home);
}

void TMainForm::WireViewActions() {
    for (const TlotViewEntry& entry : FRegistries.Views) {
        FActions->On(entry.Action, [this, action = entry.Action] { FViews->Show(action); });
    }
    // The navigation column marks what is in front, also where a view came there by another way.
    FViews->OnFront = [this](const TViewForm& view) {
        for (const TlotViewEntry& entry : FRegistries.Views) {
            Action(entry.Action).setChecked(&FViews->View(entry.Action) == &view);
        }
    };
    FViews->OnFront(FViews->FrontView());
}

void TMainForm::WireFileActions() {
    FActions->On(TlotAction::FileNew, [this] { FFiles.FileNew(); });
    FActions->On(TlotAction::FileOpen, [this] { FFiles.FileOpen(); });
    FActions->On(TlotAction::FileSave, [this] {
        LeaveView();
        FFiles.Save();
    });
    FActions->On(TlotAction::FileSaveAs, [this] {
        LeaveView();
        FFiles.SaveAs();
    });
    FActions->On(TlotAction::FileTestData, [this] { FFiles.FileTestData(); });
    FActions->On(TlotAction::FileExit, [this] { close(); });
}

void TMainForm::WireReportActions() {
    for (const TlotReportEntry& entry : FRegistries.Reports) {
        FActions->On(entry.Action, [this, report = entry.Report] {
            LeaveView();
            FController.ShowReport(report);
            // The report was made of the project as recalculated; the view behind it shows the same figures.
            FViews->CurrentView().Refresh();
            UpdateStatus();
        });
    }
    FActions->On(TlotAction::DebugUseFR2, [this] { FController.UseFR2(); });
    FActions->On(TlotAction::DebugUseFR4, [this] { FController.UseFR4(); });
}

void TMainForm::WireDialogActions() {
    for (const TlotDialogEntry& entry : FRegistries.Dialogs) {
        FActions->On(entry.Action, [this, &entry] { RunDialog(entry, {FDesktop, FController, *this}); });
    }
}

void TMainForm::TSensitivityFront::Execute() {
    FForm.ShowNotBuilt("Sensitivity");
}

/// The links of the start page, and of the firm's own texts, lead to commands; others do nothing.
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

void TMainForm::FollowStatusLink(const QString& anchor) {
    if (anchor.compare("goalseek", Qt::CaseInsensitive) == 0) {
        Action(TlotAction::ToolsGoalSeek).trigger();
    } else if (anchor.compare("finance", Qt::CaseInsensitive) == 0) {
        Action(TlotAction::ProjectFunding).trigger();
    }
}

void TMainForm::TakeEdits() {
    FViews->EndEdit();
    LeaveView();
}

void TMainForm::RefreshAll() {
    FDesktop.Data.Recalculate();
    FDesktop.Data.BuildReportTables(TlotReportKind::Appraisal);
    FViews->CurrentView().Refresh();
    UpdateStatus();
}

void TMainForm::UpdateStatus() {
    FStatusPanel->UpdateStatus();
}

void TMainForm::ShowOpened() {
    UpdateTitle();
    RefreshAll();
    TViewForm& summary = FViews->View(TlotAction::ViewSummary);
    summary.Refresh();
    FViews->BringToFront(summary);
    FViews->SetCurrent(summary);
}

void TMainForm::ShowNew() {
    UpdateTitle();
    FDesktop.Data.Recalculate();
    for (TViewForm* const view : FViews->Views()) {
        view->Refresh();
    }
    // In front, though not current: the view that was current stays so, deliberately.
    FViews->BringToFront(FViews->View(TlotAction::ViewUnits));
    UpdateStatus();
}

void TMainForm::ShowNotBuilt(const QString& screen) {
    TNotBuiltView* const before = std::exchange(FNotBuiltView, new TNotBuiltView(screen, FViewArea));
    FViewArea->addWidget(FNotBuiltView);
    FViews->BringToFront(*FNotBuiltView);
    delete before;
}

void TMainForm::UpdateTitle() {
    const TlotDocument& document = FDesktop.Data.Document;
    setWindowTitle(document.FileName().empty() ? QString("Lotmaster")
                                               : "Lotmaster - " + QString::fromStdString(document.NameOnly()));
}

void TMainForm::closeEvent(QCloseEvent* event) {
    bool leave = false; // Also where saving fails: the window stays.
    Guarded([&] { leave = FFiles.CheckSave(); });
    event->setAccepted(leave);
    if (leave) {
        Guarded([this] { FFiles.RecentFiles.Save(FDesktop.App.UserSettingsFile); });
    }
}

void TMainForm::ShowHelp(QWidget& over, const QString& topic) {
    // A firm's own help file stands in for the guide that the program carries.
    const QString file = QString::fromStdString(FDesktop.App.ProgramFolder) + "Lotmaster.chm";
    if (QFile::exists(file) && QDesktopServices::openUrl(QUrl::fromLocalFile(file))) {
        return;
    }
    auto* const help = new THelpForm(&over);
    help->setAttribute(Qt::WA_DeleteOnClose);
    help->show();
    if (!topic.isEmpty()) {
        help->ShowTopic(topic);
    }
}
