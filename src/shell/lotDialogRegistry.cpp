// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/lotDialogRegistry.h"

#include "app/lotEmail.h"
#include "shell/dialogs/frmAbout.h"
#include "shell/dialogs/frmEmail.h"
#include "shell/dialogs/frmUserSettingsDlg.h"
#include "shell/dialogs/lotGoalSeekCommand.h"

#include <vector>

namespace {

using TRun = std::function<bool(const TlotCommandContext&)>;

TRun NotBuilt(const char* screen) {
    return [screen](const TlotCommandContext& context) {
        context.Window.ShowNotBuilt(screen);
        return false;
    };
}

bool Email(const TlotCommandContext& context) {
    const TlotDesktop& desktop = context.Desktop;
    TlotEmail email(desktop.Data, context.Controller, desktop.Services.Mail, desktop.Services.Messages,
                    desktop.App.TemporaryFolder);
    return TEmailForm(email, desktop.Services, &context.Window.Widget()).exec() == QDialog::Accepted;
}

/// Checks and marks by itself, in the order that its timer and its target need.
bool GoalSeek(const TlotCommandContext& context) {
    const TlotDesktop& desktop = context.Desktop;
    TlotWindow& window = context.Window;
    RunGoalSeek(desktop.Data, desktop.Services.Busy, desktop.Locale,
                {[&] { window.LeaveView(); }, [&] { window.RunStatusTimer(false); },
                 [&] { window.RunStatusTimer(true); },
                 [&] {
                     desktop.Data.Document.MarkChanged();
                     window.RefreshAll();
                 }},
                &window.Widget());
    return false;
}

bool UserSettings(const TlotCommandContext& context) {
    context.Controller.ShowUserSettings();
    return false;
}

bool Sensitivity(const TlotCommandContext& context) {
    context.Controller.ShowSensitivity();
    return false;
}

bool Guide(const TlotCommandContext& context) {
    context.Window.ShowGuide();
    return false;
}

bool About(const TlotCommandContext& context) {
    return TAboutForm(&context.Window.Widget()).exec() == QDialog::Accepted;
}

} // namespace

std::span<const TlotDialogEntry> DialogRegistry() {
    using enum TlotAction;
    using TBefore = TlotBeforeDialog;
    using TAfter = TlotAfterDialog;
    static const std::vector<TlotDialogEntry> entries{
        {ProjectGeneral, TBefore::Leave, NotBuilt("Project: General"), TAfter::MarkAndRefreshAll},
        {ProjectResidual, TBefore::Leave, NotBuilt("Project: Residual"), TAfter::MarkAndRefreshAll},
        {ProjectCashflow, TBefore::Leave, NotBuilt("Project: Cashflow"), TAfter::MarkAndRefreshAll},
        {ProjectFunding, TBefore::Leave, NotBuilt("Project: Funding"), TAfter::MarkAndRefreshAll},
        {ProjectInflation, TBefore::Leave, NotBuilt("Project: Inflation"), TAfter::MarkAndRefreshAll},
        {ProjectAddress, TBefore::Leave, NotBuilt("Project: Address"), TAfter::MarkAndRefreshAll},
        {ProjectNotes, TBefore::Leave, NotBuilt("Project: Notes"), TAfter::MarkAndRefreshAll},
        {ProjectReports, TBefore::Leave, NotBuilt("Project: Reports"), TAfter::MarkAndRefreshAll},
        {ProjectAdvanced, TBefore::Leave, NotBuilt("Advanced"), TAfter::Nothing},
        {ToolsOptions, TBefore::Leave, NotBuilt("Options"), TAfter::RefreshAll},
        {ToolsGoalSeek, TBefore::Nothing, GoalSeek, TAfter::Nothing},
        {ToolsUserSettings, TBefore::Nothing, UserSettings, TAfter::Nothing},
        {ViewSensitivity, TBefore::Leave, Sensitivity, TAfter::Nothing},
        {ViewSensitivity2, TBefore::Leave, Sensitivity, TAfter::Nothing},
        {FileEmail, TBefore::LeaveAndCheck, Email, TAfter::Nothing},
        {HelpContents, TBefore::Nothing, Guide, TAfter::Nothing},
        {HelpAbout, TBefore::Nothing, About, TAfter::Nothing},
    };
    return entries;
}

void RunDialog(const TlotDialogEntry& entry, const TlotCommandContext& context) {
    TProjectData& data = context.Desktop.Data;
    if (entry.Before != TlotBeforeDialog::Nothing) {
        context.Window.LeaveView();
    }
    if (entry.Before == TlotBeforeDialog::LeaveAndCheck) {
        data.Recalculate();
        if (!data.CheckUnitsShow()) {
            return;
        }
    }
    if (!entry.Run(context) || entry.After == TlotAfterDialog::Nothing) {
        return;
    }
    // Marked first: what was accepted stays, also where it cannot be computed.
    if (entry.After == TlotAfterDialog::MarkAndRefreshAll) {
        data.Document.MarkChanged();
    }
    context.Window.RefreshAll();
}

void RunUserSettings(const TlotDesktop& desktop, TlotWindow& window) {
    TUserSettingsDlgForm form(desktop.App.UserSettings, &window.Widget());
    if (form.exec() == QDialog::Accepted) {
        desktop.App.SaveUserSettings();
        window.RefreshView(TlotAction::ViewCashflow);
        window.RefreshView(TlotAction::ViewTimescale);
    }
}
