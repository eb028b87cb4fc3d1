// SPDX-License-Identifier: GPL-3.0-or-later
//
// How a dialog reaches the user guide without knowing the main window.
#pragma once

#include <QString>

class QWidget;

/// A window that shows the guide.
class TlotHelpGiver {
public:
    /// Opens the guide at the heading `topic`, at its beginning where that is empty. The guide's window belongs to
    /// `over`, so that it can be read while a modal dialog waits.
    virtual void ShowHelp(QWidget& over, const QString& topic) = 0;

protected:
    ~TlotHelpGiver() = default;
};

/// Asks the nearest window above `over` that shows the guide; false where there is none.
bool OpenHelp(QWidget& over, const QString& topic);
