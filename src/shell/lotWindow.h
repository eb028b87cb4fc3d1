// SPDX-License-Identifier: GPL-3.0-or-later
//
// What commands may ask of the main window.
#pragma once

#include "app/lotController.h"
#include "shell/base/lotDesktop.h"
#include "shell/lotMainActions.h"

#include <QString>

class QWidget;

class TlotWindow {
public:
    [[nodiscard]] virtual QWidget& Widget() = 0; ///< The parent of dialogs.

    /// Brings pending edits of the current view into the model, which is about to be read.
    virtual void LeaveView() = 0;
    /// The same, after the edit in progress has ended: for what is no command of the window's own.
    virtual void TakeEdits() = 0;
    /// The full cycle after something that may have changed anything: recalculate, rebuild the report tables, refresh
    /// the current view, update the status.
    virtual void RefreshAll() = 0;
    virtual void RefreshView(TlotAction command) = 0;
    virtual void UpdateStatus() = 0;
    /// Of the status, each second.
    virtual void RunStatusTimer(bool run) = 0;
    /// Says, in the work area, that this version hasn't got the screen.
    virtual void ShowNotBuilt(const QString& screen) = 0;
    virtual void ShowGuide() = 0;

protected:
    ~TlotWindow() = default;
};

/// What a command works with.
struct TlotCommandContext {
    const TlotDesktop& Desktop;
    TlotCustomController& Controller;
    TlotWindow& Window;
};
