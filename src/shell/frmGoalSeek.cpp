// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/frmGoalSeek.h"

#include "app/lotFailures.h"
#include "shell/lotLook.h"
#include "widgets/lotNumberEdit.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int FieldWidth = 170;

QLabel* Note(const QString& text, QWidget* parent) {
    auto* const label = new QLabel(text, parent);
    look::SetTextColour(*label, look::Subdued());
    return label;
}

} // namespace

TGoalSeekForm::TGoalSeekForm(TProjectData& projectData, TlotBusyService& busy, const TNumberLocale& locale,
                             TlotResidualTarget target, QWidget* parent)
    : QDialog(parent), FData(projectData), FBusy(busy), FLocale(locale), ResidualTarget(new QComboBox(this)) {
    setObjectName("GoalSeekForm");
    setWindowTitle("Goal Seek");
    auto* const form = new QFormLayout;
    form->setLabelAlignment(Qt::AlignLeft);
    form->setHorizontalSpacing(look::WideGap);
    form->setVerticalSpacing(look::Gap);
    Profit = AddField(*form, "Profit Value:", "Profit", ",0", SolveFor("PROFIT"));
    SiteValue = AddField(*form, "Site Value:", "SiteValue", ",0", [this](double wanted) {
        FData.Project().BaseValues.SiteValue.Amount = wanted;
        FData.Recalculate();
        return wanted;
    });
    ProfitOnCost = AddField(*form, "Profit on Cost:", "ProfitOnCost", "0.000%", SolveFor("PROFITONCOST"));
    ProfitOnGDV = AddField(*form, "Profit on GDV:", "ProfitOnGDV", "0.000%", SolveFor("PROFITONGDV"));
    ProfitOnNDV = AddField(*form, "Profit on NDV:", "ProfitOnNDV", "0.000%", SolveFor("PROFITONNDV"));
    RentalYield = AddField(*form, "Rental Yield:", "RentalYield", "0.000%", SolveFor("RENTALYIELD"));
    IRR = AddField(*form, "IRR:", "IRR", "0.000%",
                   [this](double wanted) { return FData.Project().SolveEquityIRR(wanted); });

    ResidualTarget->setObjectName("ResidualTarget");
    ResidualTarget->addItems({"(No Target)", "Profit On Cost", "Profit On GDV", "Profit On NDV", "Rental Yield"});
    const int index = static_cast<int>(target);
    ResidualTarget->setCurrentIndex(index < ResidualTarget->count() ? index : 0);
    ResidualTarget->setFixedWidth(FieldWidth);
    form->addRow("Residual Target:", ResidualTarget);

    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    FOkButton = buttons->button(QDialogButtonBox::Ok);
    FOkButton->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &TGoalSeekForm::AcceptAll);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(look::Margin, look::Margin, look::Margin, look::Margin);
    layout->setSpacing(look::Gap);
    layout->addWidget(Note("Press TAB to see changes", this));
    layout->addLayout(form);
    layout->addSpacing(look::Gap);
    layout->addWidget(Note("Press OK keep new Site Value, Cancel to revert", this));
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    ShowMeasures();
    Profit->setFocus();
}

TlotResidualTarget TGoalSeekForm::Target() const {
    return static_cast<TlotResidualTarget>(ResidualTarget->currentIndex());
}

TGoalSeekForm::TSolve TGoalSeekForm::SolveFor(const char* keyword) {
    return [this, keyword](double wanted) { return FData.Project().SolveSiteValue(keyword, wanted); };
}

TNumberEdit* TGoalSeekForm::AddField(QFormLayout& form, const QString& caption, const char* name, const char* mask,
                                     const TSolve& solve) {
    auto* const field = new TNumberEdit(mask, FLocale, this);
    field->setObjectName(name);
    field->setFixedWidth(FieldWidth);
    form.addRow(caption, field);
    connect(field, &TNumberEdit::Left, this, [this, field, solve](bool changed) {
        if (changed) {
            FFailed = !Guarded([&] {
                const TlotBusy busy(FBusy);
                // A search that finds nothing answers 0, which then is the site value; what it computed last stays.
                FData.Project().BaseValues.SiteValue.Amount = solve(field->Value());
                ShowMeasures();
            });
        }
    });
    return field;
}

void TGoalSeekForm::ShowMeasures() {
    const TlotProject& project = FData.Project();
    const TlotBaseValues& values = project.BaseValues;
    SiteValue->SetValue(values.SiteValue.Amount);
    Profit->SetValue(values.Profit);
    ProfitOnCost->SetValue(values.ProfitOnCost);
    ProfitOnGDV->SetValue(values.ProfitOnGDV);
    ProfitOnNDV->SetValue(values.ProfitOnNDV);
    RentalYield->SetValue(values.RentalYield);
    IRR->SetValue(project.Equity.IRR);
}

void TGoalSeekForm::AcceptAll() {
    FFailed = false;
    FOkButton->setFocus(); // So that the field being edited acts first.
    if (!FFailed) {
        accept();
    }
}
