// SPDX-License-Identifier: GPL-3.0-or-later
//
// What goes into a message: reports as PDF, and the project itself.
#pragma once

#include "app/lotEmail.h"
#include "app/lotServices.h"
#include "shell/base/lotDialog.h"
#include "shell/base/lotFieldBinding.h"

class QListWidget;
class QProgressBar;

class TEmailForm : public TDialogForm {
    Q_OBJECT

public:
    /// What is handed in must outlive it.
    TEmailForm(TlotEmail& email, const TlotServices& services, QWidget* parent = nullptr);

    /// Sends what is ticked; false, the user being told, where nothing is. Throws what sending throws.
    bool Send();

protected:
    /// The dialog stays open until something was sent.
    [[nodiscard]] bool Store() override { return Send(); }

private:
    void BuildLayout();
    void TakeChoice();

    TlotEmail& FEmail;
    TlotServices FServices;
    TEmailChoice FChoice;
    TFieldBinder FFields;

    // Owned by the dialog.
    QListWidget* lstReports;
    QProgressBar* Progress;
};
