// SPDX-License-Identifier: GPL-3.0-or-later
//
// Goal Seek: type the profit that is wanted, in any of its measures, and see the site value that leaves it. Each field
// acts when it is left after a change. Solves on the open project; nothing is decided until OK.
#pragma once

#include "app/datProject.h"
#include "app/lotServices.h"
#include "common/vipNumber.h"

#include <QDialog>
#include <functional>
#include <string>

class QComboBox;
class QFormLayout;
class QPushButton;
class TNumberEdit;

class TGoalSeekForm : public QDialog {
    Q_OBJECT

public:
    /// Shows the project as it stands. `target` is the one that is set on the project outside of this dialog.
    TGoalSeekForm(TProjectData& projectData, TlotBusyService& busy, const TNumberLocale& locale,
                  TlotResidualTarget target, QWidget* parent = nullptr);

    /// The target that is to hold from now on.
    [[nodiscard]] TlotResidualTarget Target() const;

private:
    /// Finds the site value for what a field says; what it returns is that value.
    using TSolve = std::function<double(double wanted)>;

    TNumberEdit* AddField(QFormLayout& form, const QString& caption, const char* name, const char* mask,
                          const TSolve& solve);
    [[nodiscard]] TSolve SolveFor(const char* keyword);
    void ShowMeasures();
    void AcceptAll();

    TProjectData& FData;
    TlotBusyService& FBusy;
    TNumberLocale FLocale;

    // Owned by the dialog.
    TNumberEdit* Profit;
    TNumberEdit* SiteValue;
    TNumberEdit* ProfitOnCost;
    TNumberEdit* ProfitOnGDV;
    TNumberEdit* ProfitOnNDV;
    TNumberEdit* RentalYield;
    TNumberEdit* IRR;
    QComboBox* ResidualTarget;
    QPushButton* FOkButton = nullptr;

    bool FFailed = false; ///< The field left last could not be solved for.
};
