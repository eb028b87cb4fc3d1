// SPDX-License-Identifier: GPL-3.0-or-later
//
// What goes into a message: reports as PDF, and the project itself.
#pragma once

#include "app/lotEmail.h"
#include "app/lotServices.h"

#include <QDialog>

class QCheckBox;
class QListWidget;
class QProgressBar;
class QPushButton;

class TEmailForm : public QDialog {
    Q_OBJECT

public:
    /// What is handed in must outlive it.
    TEmailForm(TlotEmail& email, const TlotServices& services, QWidget* parent = nullptr);

    /// Sends what is ticked and closes; stays open where nothing is. Throws what sending throws.
    void Send();

private:
    void BuildLayout();
    [[nodiscard]] TEmailChoice Choice() const;

    TlotEmail& FEmail;
    TlotServices FServices;

    // Owned by the dialog.
    QCheckBox* chkProject;
    QListWidget* lstReports;
    QProgressBar* Progress;
    QPushButton* btnSend;
    QPushButton* btnCancel;
};
