// SPDX-License-Identifier: GPL-3.0-or-later
//
// The Goal Seek command: the dialog, and what becomes of the project with its OK or Cancel.
#pragma once

#include "app/datProject.h"
#include "app/lotServices.h"
#include "common/vipNumber.h"

#include <functional>

class QWidget;

/// What the command asks of the main window.
struct TGoalSeekHooks {
    std::function<void()> LeaveView;
    std::function<void()> StopTimer; ///< Of the status, which would show what the dialog is trying out.
    std::function<void()> StartTimer;
    std::function<void()> Accepted; ///< Mark the project as changed and show everything afresh.
};

/// Runs the command if the project is ready, else says what is missing. Whatever happens, the timer runs again after.
void RunGoalSeek(TProjectData& data, TlotBusyService& busy, const TNumberLocale& locale, const TGoalSeekHooks& hooks,
                 QWidget* parent);
