// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/dialogs/lotGoalSeekCommand.h"

#include "model/lotMeasures.h"
#include "shell/dialogs/frmGoalSeek.h"

namespace {

/// For the life of the dialog: the timer stands, and no residual target holds.
class TSeeking {
public:
    TSeeking(TlotProject& project, const TGoalSeekHooks& hooks)
        : Target(project.ResidualTarget),
          SiteValue(project.BaseValues.SiteValue.Amount),
          FProject(project),
          FHooks(hooks) {
        FHooks.StopTimer();
        FProject.ResidualTarget = TlotResidualTarget::NoTarget;
    }
    TSeeking(const TSeeking&) = delete;
    TSeeking& operator=(const TSeeking&) = delete;
    ~TSeeking() {
        if (!FTargetBack) {
            PutTargetBack();
        }
        FHooks.StartTimer();
    }

    void PutTargetBack() {
        FProject.ResidualTarget = Target;
        FTargetBack = true;
    }

    const TlotResidualTarget Target;
    const double SiteValue;

private:
    TlotProject& FProject;
    const TGoalSeekHooks& FHooks;
    bool FTargetBack = false;
};

/// The measure of a target as it stands; nothing for no target.
void KeepTargetValue(TlotProject& project, TlotResidualTarget target) {
    if (const TlotMeasureInfo* const measure = MeasureOf(target)) {
        project.ResidualTargetValue = measure->Figure(project);
    }
}

} // namespace

void RunGoalSeek(TProjectData& data, TlotBusyService& busy, const TNumberLocale& locale, const TGoalSeekHooks& hooks,
                 QWidget* parent) {
    hooks.LeaveView();
    data.Recalculate();
    if (!data.CheckUnitsShow()) {
        return;
    }
    TlotProject& project = data.Project();
    TSeeking seeking(project, hooks);
    TGoalSeekForm form(data, busy, locale, seeking.Target, parent);
    const bool accepted = form.exec() == QDialog::Accepted;
    seeking.PutTargetBack();
    if (accepted) {
        KeepTargetValue(project, form.Target());
        project.ResidualTarget = form.Target();
        hooks.Accepted();
        return;
    }
    if (project.ResidualTarget == TlotResidualTarget::NoTarget) {
        project.BaseValues.SiteValue.Amount = seeking.SiteValue;
    }
    data.Recalculate(); // With a target set, this solves the site value again.
}
