// SPDX-License-Identifier: GPL-3.0-or-later
//
// The main window: a navigation column on the left, the project's key figures across the top, the view in front filling
// the rest, and the menu. It puts these together and ties the commands to the rows of the registries; it holds no
// appraisal logic.
#pragma once

#include "app/lotController.h"
#include "shell/base/lotDesktop.h"
#include "shell/base/lotHelp.h"
#include "shell/lotDialogRegistry.h"
#include "shell/lotFileCommands.h"
#include "shell/lotMainActions.h"
#include "shell/lotReportRegistry.h"
#include "shell/lotViewHost.h"
#include "shell/lotViewRegistry.h"
#include "shell/lotWindow.h"

#include <QMainWindow>
#include <QTimer>
#include <memory>
#include <span>

class QStackedWidget;
class TNotBuiltView;
class TRecentMenu;
class TStatusEdits;
class TStatusPanel;

/// What the window's commands lead to. The rows must outlive the window.
struct TlotRegistries {
    std::span<const TlotViewEntry> Views = ViewRegistry();
    std::span<const TlotDialogEntry> Dialogs = DialogRegistry();
    std::span<const TlotReportEntry> Reports = ReportRegistry();
};

class TMainForm : public QMainWindow, public TlotWindow, public TlotHelpGiver {
    Q_OBJECT

public:
    explicit TMainForm(const TlotDesktop& desktop, const TlotRegistries& registries = {});
    ~TMainForm() override;

    /// Sets the window up: recent files, the default project, the views, the status timer. Once, before it is used.
    /// What goes wrong in a step is told to the user, and the next step follows.
    void FormCreate();

    [[nodiscard]] QAction& Action(TlotAction action) const { return (*FActions)[action]; }
    [[nodiscard]] TViewHost& Views() const { return *FViews; }
    [[nodiscard]] TFileCommands& Files() { return FFiles; }
    [[nodiscard]] TlotCustomController& Controller() { return FController; }
    [[nodiscard]] bool StatusTimerActive() const { return FStatusTimer.isActive(); }

    QWidget& Widget() override { return *this; }
    void LeaveView() override { FViews->CurrentView().Leave(); }
    void TakeEdits() override;
    void RefreshAll() override;
    void RefreshView(TlotAction command) override { FViews->View(command).Refresh(); }
    void UpdateStatus() override;
    void RunStatusTimer(bool run) override { run ? FStatusTimer.start() : FStatusTimer.stop(); }
    void ShowNotBuilt(const QString& screen) override;
    void ShowGuide() override { ShowHelp(*this, {}); }
    void ShowHelp(QWidget& over, const QString& topic) override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void BuildLayout();
    void MakeViews();
    void WireViewActions();
    void WireFileActions();
    void WireReportActions();
    void WireDialogActions();
    void FollowLink(const QString& target);
    void FollowStatusLink(const QString& anchor);
    void ShowOpened();
    void ShowNew();
    void UpdateTitle();

    /// The way to the sensitivity screens.
    class TSensitivityFront final : public TSADialog {
    public:
        explicit TSensitivityFront(TMainForm& form) : FForm(form) {}
        void Execute() override;

    private:
        TMainForm& FForm;
    };

    TlotDesktop FDesktop;
    TlotRegistries FRegistries;
    TSensitivityFront FSensitivityFront;
    TlotController FController;
    TFileCommands FFiles;
    QTimer FStatusTimer;
    std::unique_ptr<TMainActions> FActions;
    std::unique_ptr<TViewHost> FViews;
    std::unique_ptr<TStatusEdits> FStatusEdits;

    // Owned by the window.
    TStatusPanel* FStatusPanel = nullptr;
    QStackedWidget* FViewArea = nullptr;
    TRecentMenu* FRecentMenu = nullptr;
    TNotBuiltView* FNotBuiltView = nullptr;
};
