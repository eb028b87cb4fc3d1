// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/dialogs/frmGoalSeek.h"

#include "shell/base/lotGuardedSlot.h"
#include "shell/base/lotLook.h"
#include "widgets/lotNumberEdit.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <array>
#include <string>
#include <string_view>

namespace {

constexpr int FieldWidth = 170;

struct TFieldRow {
    TlotMeasure Measure;
    const char* Name;
    std::string_view Caption; ///< Where it differs from the measure's own.
};

constexpr std::array<TFieldRow, 7> FieldRows = {{{TlotMeasure::Profit, "Profit", "Profit Value"},
                                                 {TlotMeasure::SiteValue, "SiteValue", {}},
                                                 {TlotMeasure::ProfitOnCost, "ProfitOnCost", {}},
                                                 {TlotMeasure::ProfitOnGDV, "ProfitOnGDV", {}},
                                                 {TlotMeasure::ProfitOnNDV, "ProfitOnNDV", {}},
                                                 {TlotMeasure::RentalYield, "RentalYield", {}},
                                                 {TlotMeasure::IRR, "IRR", {}}}};

QLabel* Note(const QString& text, QWidget* parent) {
    auto* const label = new QLabel(text, parent);
    look::SetTextColour(*label, look::Subdued());
    return label;
}

} // namespace

TGoalSeekForm::TGoalSeekForm(TProjectData& projectData, TlotBusyService& busy, const TNumberLocale& locale,
                             TlotResidualTarget target, QWidget* parent)
    : TDialogForm({"GoalSeekForm", "Goal Seek", "Goal Seek"}, TDialogButtons::OkCancel, parent),
      FData(projectData),
      FBusy(busy),
      FLocale(locale),
      ResidualTarget(new QComboBox(this)) {
    Body().addWidget(Note("Press TAB to see changes", this));
    QFormLayout& form = AddForm(Body());
    for (const TFieldRow& row : FieldRows) {
        const std::string_view caption = row.Caption.empty() ? MeasureInfo(row.Measure).FormCaption : row.Caption;
        FFields.push_back({row.Measure, AddField(row.Measure, row.Name)});
        form.addRow(QUtf8StringView(caption).toString() + ':', FFields.back().Edit);
    }

    ResidualTarget->setObjectName("ResidualTarget");
    for (const std::string_view text : ResidualTargetTexts()) {
        ResidualTarget->addItem(QUtf8StringView(text).toString());
    }
    const int index = static_cast<int>(target);
    ResidualTarget->setCurrentIndex(index < ResidualTarget->count() ? index : 0);
    ResidualTarget->setFixedWidth(FieldWidth);
    form.addRow("Residual Target:", ResidualTarget);

    Body().addSpacing(look::Gap);
    Body().addWidget(Note("Press OK keep new Site Value, Cancel to revert", this));
    layout()->setSpacing(look::Gap);
    FixSize();
    ShowMeasures();
    FFields.front().Edit->setFocus();
}

TlotResidualTarget TGoalSeekForm::Target() const {
    return static_cast<TlotResidualTarget>(ResidualTarget->currentIndex());
}

double TGoalSeekForm::SiteValueFor(TlotMeasure measure, double wanted) {
    if (measure != TlotMeasure::SiteValue) {
        return SolveFor(FData.Project(), measure, wanted).SiteValue;
    }
    FData.Project().BaseValues.SiteValue.Amount = wanted;
    FData.Recalculate();
    return wanted;
}

TNumberEdit* TGoalSeekForm::AddField(TlotMeasure measure, const char* name) {
    auto* const field = new TNumberEdit(std::string(MeasureInfo(measure).Mask), FLocale, this);
    field->setObjectName(name);
    field->setFixedWidth(FieldWidth);
    OnSignal(*field, &TNumberEdit::Left, *this, [this, field, measure](bool changed) {
        if (changed) {
            const TlotBusy busy(FBusy);
            // A search that finds nothing answers 0, which then is the site value; what it computed last stays.
            FData.Project().BaseValues.SiteValue.Amount = SiteValueFor(measure, field->Value());
            ShowMeasures();
        }
    });
    return field;
}

void TGoalSeekForm::ShowMeasures() {
    for (const TField& field : FFields) {
        field.Edit->SetValue(MeasureInfo(field.Measure).ScenarioFigure(FData.Project()));
    }
}
