// SPDX-License-Identifier: GPL-3.0-or-later
//
// The settings of one user: the fonts of the two sheets.
#pragma once

#include "persistence/lotUserSettings.h"
#include "shell/base/lotDialog.h"
#include "shell/base/lotFieldBinding.h"

class TUserSettingsDlgForm : public TDialogForm {
    Q_OBJECT

public:
    /// Edits a copy; OK puts it into `settings`, which outlives the dialog.
    explicit TUserSettingsDlgForm(TlotUserSettings& settings, QWidget* parent = nullptr);

protected:
    [[nodiscard]] bool Store() override;

private:
    TlotUserSettings& FSettings;
    TlotUserSettings FDraft;
    TFieldBinder FFields;
};
