// SPDX-License-Identifier: GPL-3.0-or-later
//
// The totals of the project, and its costs by group as a pie.
#pragma once

#include "app/datProject.h"
#include "common/vipNumber.h"
#include "shell/base/lotViewForm.h"

class QFormLayout;
class QLabel;
class TPieChart;

class TSummaryViewForm : public TViewForm {
    Q_OBJECT

public:
    TSummaryViewForm(const TProjectData& projectData, const TNumberLocale& locale);

    /// From the model and the report tables as they stand.
    void Refresh() override;

private:
    QLabel* AddFigure(QFormLayout& form, const QString& caption, const char* name);
    [[nodiscard]] QString Money(double value) const;

    const TProjectData& FData;
    TNumberLocale FLocale;

    // Owned by the view.
    QLabel* lblGrossRent;
    QLabel* lblResidentialSales;
    QLabel* lblCommercialSales;
    QLabel* lblTotalCosts;
    QLabel* lblTotalInterest;
    TPieChart* FChart;
};
