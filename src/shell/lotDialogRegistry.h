// SPDX-License-Identifier: GPL-3.0-or-later
//
// The commands that open a dialog: a row for each, with what stands before and after it.
#pragma once

#include "shell/lotWindow.h"

#include <cstdint>
#include <functional>
#include <span>

enum class TlotBeforeDialog : std::uint8_t {
    Nothing,
    Leave,         ///< The current view is left, since the model is read.
    LeaveAndCheck, ///< That, then the project is made current, and must have what a calculation needs.
};

/// What follows OK.
enum class TlotAfterDialog : std::uint8_t {
    Nothing,
    RefreshAll,
    MarkAndRefreshAll, ///< The project is changed.
};

struct TlotDialogEntry {
    TlotAction Action;
    TlotBeforeDialog Before;
    std::function<bool(const TlotCommandContext&)> Run; ///< True if it ended with OK.
    TlotAfterDialog After;
};

[[nodiscard]] std::span<const TlotDialogEntry> DialogRegistry();

/// What the command does.
void RunDialog(const TlotDialogEntry& entry, const TlotCommandContext& context);

/// The dialog of the user's settings, and what follows from it. Not a row: the controller opens it.
void RunUserSettings(const TlotDesktop& desktop, TlotWindow& window);
