// SPDX-License-Identifier: GPL-3.0-or-later
//
// All commands of the main window: their captions, keys, icons and hints, and where they stand in the menus and in the
// navigation column. What they do is wired by the window.
#pragma once

#include <QAction>
#include <cstdint>
#include <functional>
#include <map>

class QMenu;
class QMenuBar;
class TNavigationColumn;

enum class TlotAction : std::uint8_t {
    ViewHome,
    ViewUnits,
    ViewUnitGrid,
    ViewCosts,
    ViewFunding,
    ViewFundingGrid,
    ViewFundingAdvGrid,
    ViewTimescale,
    ViewAccountCodes,
    ViewCashflow,
    ViewSummary,
    ReportAppraisal,
    ReportResidual,
    ReportOccDetails,
    ReportAddendum,
    ReportFrontPage,
    ReportPicture,
    ViewSensitivity,
    ViewSensitivity2,
    FileNew,
    FileOpen,
    FileSave,
    FileSaveAs,
    FileEmail,
    FileTestData,
    FileExit,
    ProjectGeneral,
    ProjectResidual,
    ProjectCashflow,
    ProjectFunding,
    ProjectInflation,
    ProjectAddress,
    ProjectNotes,
    ProjectReports,
    ProjectAdvanced,
    ToolsGoalSeek,
    ToolsUserSettings,
    ToolsOptions,
    HelpContents,
    HelpInformation,
    HelpAbout,
    DebugUseFR2,
    DebugUseFR4,
};

class TMainActions {
public:
    /// The actions belong to `owner`, under the names of the enumeration.
    explicit TMainActions(QObject& owner);

    TMainActions(const TMainActions&) = delete;
    TMainActions& operator=(const TMainActions&) = delete;

    [[nodiscard]] QAction& operator[](TlotAction action) const { return *FActions.at(action); }
    /// What the command does; guarded, as what stands before it.
    void On(TlotAction action, std::function<void()> handler) const;

    /// Runs before any command does anything.
    std::function<void()> BeforeEach;

    /// Returns the File menu and, in it, the action in front of which recent files stand.
    struct TFileMenu {
        QMenu& Menu;
        QAction& BelowRecentFiles;
    };
    TFileMenu FillMenus(QMenuBar& bar) const;
    void FillNavigation(TNavigationColumn& column) const;

private:
    std::map<TlotAction, QAction*> FActions; // Owned by the owner.
};
