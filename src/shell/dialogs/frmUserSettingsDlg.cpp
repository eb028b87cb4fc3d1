// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/dialogs/frmUserSettingsDlg.h"

#include "shell/base/lotFieldWidgets.h"
#include "shell/base/lotLook.h"

#include <QFormLayout>
#include <QTabWidget>
#include <QVBoxLayout>

TUserSettingsDlgForm::TUserSettingsDlgForm(TlotUserSettings& settings, QWidget* parent)
    : TDialogForm({"UserSettingsDlgForm", "User Settings", "User settings"}, TDialogButtons::OkCancel, parent),
      FSettings(settings),
      FDraft(settings),
      FFields(*this, {}) {
    auto* const page = new QWidget(this);
    auto* const pageLayout = new QVBoxLayout(page);
    pageLayout->setContentsMargins(look::Margin, look::Margin, look::Margin, look::Margin);
    QFormLayout& form = AddForm(*pageLayout);
    pageLayout->addStretch();
    // The two lists of sizes differ, deliberately: the timescale's cells leave less room.
    TFontEdit& first = FFields.Font(form, "Cashflow:", FDraft.CashflowView, {8, 9, 10, 11});
    FFields.Font(form, "Timescale:", FDraft.TimescaleView, {8, 9, 10});
    auto* const tabs = new QTabWidget(this);
    tabs->addTab(page, "Look && Feel");
    Body().addWidget(tabs);
    first.setFocus();
}

bool TUserSettingsDlgForm::Store() {
    FFields.Store();
    FSettings = FDraft;
    return true;
}
