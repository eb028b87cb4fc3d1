// SPDX-License-Identifier: GPL-3.0-or-later
//
// The three figures of the status panel that are edited in place.
#pragma once

#include "shell/lotWindow.h"

class TStatusPanel;

/// None of the three edits marks the project as changed, deliberately.
class TStatusEdits {
public:
    /// Wires the panel. All that is handed in must outlive the panel.
    TStatusEdits(TStatusPanel& panel, const TlotDesktop& desktop, TlotWindow& window);
    TStatusEdits(const TStatusEdits&) = delete;
    TStatusEdits& operator=(const TStatusEdits&) = delete;

private:
    void EditName();
    void EditSiteValue();
    void EditNetSiteArea();

    TStatusPanel& FPanel;
    TlotDesktop FDesktop;
    TlotWindow& FWindow;
};
