// SPDX-License-Identifier: GPL-3.0-or-later
//
// The start page: a logo and three texts, which a firm may replace by its own.
#pragma once

#include "shell/base/lotViewForm.h"

#include <QString>

class QLabel;
class QVBoxLayout;
class TBrandingText;

class THomeViewForm : public TViewForm {
public:
    /// The links of the built-in texts are "units", "costs", "summary", "appraisal", "goalseek", "help" and "about"; a
    /// firm's own texts may use the same. `brandingFolder`: the folder "Branding/Home" beside the program; it needn't
    /// exist. It is looked at once.
    explicit THomeViewForm(const QString& brandingFolder, QWidget* parent = nullptr);

private:
    QWidget* MakePage();
    void LoadLogo();
    void LoadText(TBrandingText& text, const QString& fileName, const QString& builtIn);

    QString FFolder;
    QLabel* FLogo; // All owned by this widget.
    TBrandingText* FWelcome;
    TBrandingText* FMain;
    TBrandingText* FContact;
};
