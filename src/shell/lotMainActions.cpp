// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/lotMainActions.h"

#include "shell/base/lotAction.h"
#include "shell/base/lotGuardedSlot.h"
#include "widgets/lotNavigationColumn.h"

#include <QActionGroup>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <initializer_list>
#include <utility>

namespace {

struct TActionRow {
    TlotAction Action;
    const char* Name;
    const char* Caption;
    const char* Key;
    const char* Icon;
    const char* Hint;
};

constexpr TActionRow Rows[] = {
    {TlotAction::ViewHome, "ViewHome", "Home", "", "home", "Start page"},
    {TlotAction::ViewUnits, "ViewUnits", "Units", "", "units", "Units to be built, sold or let"},
    {TlotAction::ViewUnitGrid, "ViewUnitGrid", "Units (Quick Edit)", "", "unit-grid", "All units in one table"},
    {TlotAction::ViewCosts, "ViewCosts", "Costs", "", "costs", "Development costs by section"},
    {TlotAction::ViewFunding, "ViewFunding", "Funding", "", "funding", "Loans and equity"},
    {TlotAction::ViewFundingGrid, "ViewFundingGrid", "Funding", "", "funding", "Loans in one table"},
    {TlotAction::ViewFundingAdvGrid, "ViewFundingAdvGrid", "Funding (AdvGrid)", "", "funding", "Loans and equity"},
    {TlotAction::ViewTimescale, "ViewTimescale", "Timescale", "", "timescale", "When each thing happens"},
    {TlotAction::ViewAccountCodes, "ViewAccountCodes", "Account Codes", "", "account-codes", "Codes of the accounts"},
    {TlotAction::ViewCashflow, "ViewCashflow", "Cashflow", "", "cashflow", "Every line, month by month"},
    {TlotAction::ViewSummary, "ViewSummary", "Summary", "", "summary", "Totals, and costs by group"},
    {TlotAction::ReportAppraisal, "ReportAppraisal", "Appraisal", "F6", "report-appraisal", "The printed appraisal"},
    {TlotAction::ReportResidual, "ReportResidual", "Residual", "", "report-residual", "The printed residual valuation"},
    {TlotAction::ReportOccDetails, "ReportOccDetails", "Occupational Details", "", "report-occupational",
     "The printed schedule of units"},
    {TlotAction::ReportAddendum, "ReportAddendum", "Addendum", "", "report-addendum", "Notes to the appraisal"},
    {TlotAction::ReportFrontPage, "ReportFrontPage", "Front Page", "", "report-front-page", "The printed front page"},
    {TlotAction::ReportPicture, "ReportPicture", "Picture", "", "report-picture", "The project's picture"},
    {TlotAction::ViewSensitivity, "ViewSensitivity", "Sensitivity (Old)", "", "sensitivity", "Five by five"},
    {TlotAction::ViewSensitivity2, "ViewSensitivity2", "Sensitivity", "", "sensitivity",
     "What becomes of the profit if figures change"},
    {TlotAction::FileNew, "FileNew", "New", "Ctrl+N", "new", "Begin another project"},
    {TlotAction::FileOpen, "FileOpen", "&Open...", "Ctrl+O", "open", "Open a project, template or residual file"},
    {TlotAction::FileSave, "FileSave", "&Save", "Ctrl+S", "save", "Save the project"},
    {TlotAction::FileSaveAs, "FileSaveAs", "Save As...", "", "save-as", "Save under another name, or as a template"},
    {TlotAction::FileEmail, "FileEmail", "Email...", "", "email", "Send the project by e-mail"},
    {TlotAction::FileTestData, "FileTestData", "Test Data", "", "", "The sample project"},
    {TlotAction::FileExit, "FileExit", "E&xit", "", "exit", "Leave the program"},
    {TlotAction::ProjectGeneral, "ProjectGeneral", "&General...", "F4", "general", "Name, dates and site"},
    {TlotAction::ProjectResidual, "ProjectResidual", "&Residual...", "", "residual", "Site value and its target"},
    {TlotAction::ProjectCashflow, "ProjectCashflow", "&Cashflow...", "", "cashflow-settings", "Equity, NPV and IRR"},
    {TlotAction::ProjectFunding, "ProjectFunding", "&Funding...", "", "funding", "Funding settings"},
    {TlotAction::ProjectInflation, "ProjectInflation", "Inflation...", "", "inflation", "Growth in the cashflow"},
    {TlotAction::ProjectAddress, "ProjectAddress", "Address...", "", "address", "Address and picture"},
    {TlotAction::ProjectNotes, "ProjectNotes", "&Notes...", "", "notes", "Notes on the project"},
    {TlotAction::ProjectReports, "ProjectReports", "Reports...", "", "reports-settings", "What reports show"},
    {TlotAction::ProjectAdvanced, "ProjectAdvanced", "Advanced...", "", "advanced", "Cost sections and unit types"},
    {TlotAction::ToolsGoalSeek, "ToolsGoalSeek", "Goal Seek...", "F5", "goal-seek", "Find the site value for a profit"},
    {TlotAction::ToolsUserSettings, "ToolsUserSettings", "User Settings...", "", "user-settings",
     "Fonts of the sheets"},
    {TlotAction::ToolsOptions, "ToolsOptions", "&Options...", "", "options", "Defaults, reports and zoning"},
    {TlotAction::HelpContents, "HelpContents", "Lotmaster Help", "F1", "help", "The user guide"},
    {TlotAction::HelpInformation, "HelpInformation", "Further Information", "", "help", "Further information"},
    {TlotAction::HelpAbout, "HelpAbout", "About", "", "about", "Version and licence"},
    {TlotAction::DebugUseFR2, "DebugUseFR2", "Use FR2", "", "", "The older report engine"},
    {TlotAction::DebugUseFR4, "DebugUseFR4", "Use FR4", "", "", "The newer report engine"},
};

constexpr TlotAction Views[] = {
    TlotAction::ViewHome,           TlotAction::ViewUnits,     TlotAction::ViewUnitGrid,
    TlotAction::ViewCosts,          TlotAction::ViewFunding,   TlotAction::ViewFundingGrid,
    TlotAction::ViewFundingAdvGrid, TlotAction::ViewTimescale, TlotAction::ViewAccountCodes,
    TlotAction::ViewCashflow,       TlotAction::ViewSummary,
};

} // namespace

TMainActions::TMainActions(QObject& owner) {
    for (const TActionRow& row : Rows) {
        FActions.emplace(row.Action,
                         &MakeAction(owner, {row.Name, row.Caption, row.Hint, QKeySequence(row.Key), row.Icon}));
    }
    FActions.at(TlotAction::FileExit)->setMenuRole(QAction::QuitRole);
    FActions.at(TlotAction::HelpAbout)->setMenuRole(QAction::AboutRole);

    auto* const group = new QActionGroup(&owner);
    group->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    for (const TlotAction view : Views) {
        FActions.at(view)->setCheckable(true);
        group->addAction(FActions.at(view));
    }
    auto* const engines = new QActionGroup(&owner);
    for (const TlotAction engine : {TlotAction::DebugUseFR2, TlotAction::DebugUseFR4}) {
        FActions.at(engine)->setCheckable(true);
        engines->addAction(FActions.at(engine));
    }
    FActions.at(TlotAction::DebugUseFR4)->setChecked(true);
}

void TMainActions::On(TlotAction action, std::function<void()> handler) const {
    const QAction& object = *FActions.at(action);
    OnSignal(object, &QAction::triggered, object, [this, handler = std::move(handler)] {
        if (BeforeEach) {
            BeforeEach();
        }
        handler();
    });
}

TMainActions::TFileMenu TMainActions::FillMenus(QMenuBar& bar) const {
    const auto add = [&](QMenu& menu, std::initializer_list<TlotAction> actions) {
        for (const TlotAction action : actions) {
            menu.addAction(FActions.at(action));
        }
    };
    using enum TlotAction;
    QMenu& file = *bar.addMenu("&File");
    add(file, {FileNew, FileOpen, FileSave, FileSaveAs, FileEmail});
    file.addSeparator();
    QAction& below = *file.addSeparator();
    add(file, {FileTestData, FileExit});

    add(*bar.addMenu("&Project"), {ProjectGeneral, ProjectResidual, ProjectCashflow, ProjectInflation, ProjectAddress,
                                   ProjectNotes, ProjectReports, ProjectAdvanced});
    add(*bar.addMenu("&Tools"), {ToolsGoalSeek, ToolsUserSettings, ToolsOptions});
    add(*bar.addMenu("&Report"),
        {ReportAppraisal, ReportResidual, ReportOccDetails, ReportAddendum, ReportFrontPage, ReportPicture});
    QMenu& debug = *bar.addMenu("Debug");
    debug.setObjectName("mnuDebug");
    add(debug, {DebugUseFR2, DebugUseFR4});
    debug.menuAction()->setVisible(false);
    add(*bar.addMenu("&Help"), {HelpContents, HelpInformation, HelpAbout});
    return {file, below};
}

void TMainActions::FillNavigation(TNavigationColumn& column) const {
    using enum TlotAction;
    column.AddGroup("View");
    for (const TlotAction view : Views) {
        column.AddEntry(*FActions.at(view));
    }
    column.AddGroup("Report");
    column.AddEntry(*FActions.at(ReportAppraisal));
    column.AddEntry(*FActions.at(ReportResidual));
    column.AddGroup("Analysis");
    column.AddEntry(*FActions.at(ViewSensitivity));
    column.AddEntry(*FActions.at(ViewSensitivity2));
}
