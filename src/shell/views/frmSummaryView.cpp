// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/views/frmSummaryView.h"

#include "shell/base/lotLook.h"
#include "widgets/lotPieChart.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

TSummaryViewForm::TSummaryViewForm(const TProjectData& projectData, const TNumberLocale& locale)
    : TViewForm("Summary"), FData(projectData), FLocale(locale), FChart(new TPieChart(this)) {
    setObjectName("SummaryViewForm");
    auto* const totals = new QGroupBox("Totals", this);
    auto* const totalsForm = new QFormLayout(totals);
    lblGrossRent = AddFigure(*totalsForm, "Gross Rent:", "lblGrossRent");
    lblResidentialSales = AddFigure(*totalsForm, "Residential Sales:", "lblResidentialSales");
    lblCommercialSales = AddFigure(*totalsForm, "Commercial Sales:", "lblCommercialSales");
    lblTotalCosts = AddFigure(*totalsForm, "Total Costs:", "lblTotalCosts");
    auto* const finance = new QGroupBox("Finance", this);
    auto* const financeForm = new QFormLayout(finance);
    lblTotalInterest = AddFigure(*financeForm, "Total Interest:", "lblTotalInterest");

    FChart->setObjectName("chtCosts");
    FChart->OtherName = "Other";
    FChart->Format = [this](double value) { return Money(value); };

    auto* const figures = new QVBoxLayout;
    figures->setSpacing(look::WideGap);
    figures->addWidget(totals);
    figures->addWidget(finance);
    figures->addStretch();
    auto* const body = new QHBoxLayout;
    body->setSpacing(2 * look::WideGap);
    body->addLayout(figures);
    body->addWidget(FChart, 1);
    Body().addLayout(body, 1);
}

QLabel* TSummaryViewForm::AddFigure(QFormLayout& form, const QString& caption, const char* name) {
    auto* const figure = new QLabel(this);
    figure->setObjectName(name);
    figure->setFont(look::FigureFont());
    figure->setAlignment(Qt::AlignRight);
    figure->setMinimumWidth(figure->fontMetrics().horizontalAdvance("9,999,999,999"));
    figure->setTextInteractionFlags(Qt::TextSelectableByMouse);
    form.setHorizontalSpacing(look::WideGap);
    form.setVerticalSpacing(look::Gap);
    form.addRow(caption, figure);
    return figure;
}

QString TSummaryViewForm::Money(double value) const {
    return QString::fromStdString(vip::FormatMask(",0", value, FLocale));
}

void TSummaryViewForm::Refresh() {
    const TlotProject& project = FData.Project();
    lblGrossRent->setText(Money(project.BaseValues.GrossRent.Amount));
    lblResidentialSales->setText(Money(project.BaseValues.NonCap.Amount));
    lblCommercialSales->setText(Money(project.BaseValues.NetCap.Amount));
    lblTotalCosts->setText(Money(project.TDC));
    lblTotalInterest->setText(Money(project.TotalInterest));

    std::vector<TChartValue> groups;
    const TlotTable& table = FData.ReportTables.GroupData;
    for (int i = 0; i < table.RowCount(); ++i) {
        groups.push_back({QString::fromStdString(table.Row(i).Text("Name")), table.Row(i).Number("Value")});
    }
    FChart->SetSlices(groups);
}
