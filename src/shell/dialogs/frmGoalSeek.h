// SPDX-License-Identifier: GPL-3.0-or-later
//
// Goal Seek: type the profit that is wanted, in any of its measures, and see the site value that leaves it. Each field
// acts when it is left after a change. Solves on the open project; nothing is decided until OK.
#pragma once

#include "app/datProject.h"
#include "app/lotServices.h"
#include "common/vipNumber.h"
#include "model/lotMeasures.h"
#include "shell/base/lotDialog.h"

#include <vector>

class QComboBox;
class TNumberEdit;

class TGoalSeekForm : public TDialogForm {
    Q_OBJECT

public:
    /// Shows the project as it stands. `target` is the one that is set on the project outside of this dialog.
    TGoalSeekForm(TProjectData& projectData, TlotBusyService& busy, const TNumberLocale& locale,
                  TlotResidualTarget target, QWidget* parent = nullptr);

    /// The target that is to hold from now on.
    [[nodiscard]] TlotResidualTarget Target() const;

private:
    struct TField {
        TlotMeasure Measure;
        TNumberEdit* Edit; ///< Owned by the dialog.
    };

    TNumberEdit* AddField(TlotMeasure measure, const char* name);
    /// Finds the site value that leaves what a field says, and leaves the project as the search does.
    double SiteValueFor(TlotMeasure measure, double wanted);
    void ShowMeasures();

    TProjectData& FData;
    TlotBusyService& FBusy;
    TNumberLocale FLocale;

    std::vector<TField> FFields; ///< From the top down.
    QComboBox* ResidualTarget;   ///< Owned by the dialog.
};
