// SPDX-License-Identifier: GPL-3.0-or-later
//
// The main window: a navigation column on the left, the project's key figures across the top, the view in front filling
// the rest, and the menu. It runs the commands and knows whether there are unsaved changes; it holds no appraisal
// logic.
#pragma once

#include "app/lotController.h"
#include "shell/base/lotDesktop.h"
#include "shell/lotFileCommands.h"
#include "shell/lotMainActions.h"
#include "shell/lotViewHost.h"

#include <QMainWindow>
#include <QTimer>
#include <memory>

class QStackedWidget;
class TCashflowViewForm;
class THomeViewForm;
class TNotBuiltView;
class TRecentMenu;
class TStatusPanel;
class TSummaryViewForm;

class TMainForm : public QMainWindow {
    Q_OBJECT

public:
    explicit TMainForm(const TlotDesktop& desktop);
    ~TMainForm() override;

    /// Sets the window up: recent files, the default project, the views, the status timer. Once, before it is used.
    /// What goes wrong in a step is told to the user, and the next step follows.
    void FormCreate();
    /// Opens the file that the command line names, if it does.
    void OpenArgument(const std::vector<std::string>& arguments);

    /// The full cycle after something that may have changed anything: recalculate, rebuild the report tables, refresh
    /// the current view, update the status.
    void RefreshAll();

    [[nodiscard]] QAction& Action(TlotAction action) const { return (*FActions)[action]; }
    [[nodiscard]] TViewHost& Views() const { return *FViews; }
    [[nodiscard]] TFileCommands& Files() { return FFiles; }
    [[nodiscard]] TlotCustomController& Controller() { return FController; }
    [[nodiscard]] bool StatusTimerActive() const { return FStatusTimer.isActive(); }

    bool Changed = false; ///< Since the project was opened, saved or begun.

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void BuildLayout();
    void CreateViews();
    void WireViewActions();
    void WireFileActions();
    void WireReportActions();
    void WireOtherActions();
    void WireStatusPanel();
    void FollowLink(const QString& target);
    void ShowNotBuilt(const QString& screen);
    void ShowOpened();
    void ShowNew();
    void UpdateTitle();
    void EditName();
    void EditSiteValue();
    void EditNetSiteArea();
    void FileEmail();
    void ToolsGoalSeek();
    void ToolsUserSettings();
    void ShowHelp();
    void ShowAbout();

    /// The way to the sensitivity screens.
    class TSensitivityFront final : public TSADialog {
    public:
        explicit TSensitivityFront(TMainForm& form) : FForm(form) {}
        void Execute() override;

    private:
        TMainForm& FForm;
    };

    TlotDesktop FDesktop;
    TSensitivityFront FSensitivityFront;
    TlotController FController;
    TFileCommands FFiles;
    QTimer FStatusTimer;
    std::unique_ptr<TMainActions> FActions;
    std::unique_ptr<TViewHost> FViews;

    // Owned by the window.
    TStatusPanel* FStatusPanel = nullptr;
    QStackedWidget* FViewArea = nullptr;
    TRecentMenu* FRecentMenu = nullptr;

    // Views, owned by the area.
    TViewForm* FCostView = nullptr;
    TViewForm* FUnitView = nullptr;
    TViewForm* FUnitGridView = nullptr;
    TViewForm* FAccountCodesView = nullptr;
    TSummaryViewForm* FSummaryView = nullptr;
    TCashflowViewForm* FCashflowView = nullptr;
    TViewForm* FTimescaleView = nullptr;
    TViewForm* FFundingView = nullptr;
    TViewForm* FFundingGridView = nullptr;
    TViewForm* FFundingAdvGridView = nullptr;
    THomeViewForm* FHomeView = nullptr;
    TNotBuiltView* FNotBuiltView = nullptr;
};
