// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/lotStatusPanel.h"

#include "app/datProject.h"
#include "shell/base/lotLook.h"
#include "widgets/lotClickLabel.h"

#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr const char* ClickToEdit = "None specified - click to edit";
constexpr const char* NoSiteValue =
    "No Site Value.  Click above to edit, or use <A href=\"goalseek\">Goal Seek</A> (F5) "
    "to calculate residual.";

QString Text(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString Caption(TlotMeasure measure) {
    return Text(MeasureInfo(measure).FormCaption) + ':';
}

} // namespace

TStatusPanel::TStatusPanel(const TProjectData& projectData, const TNumberLocale& locale, QWidget* parent)
    : QWidget(parent), FData(projectData), FLocale(locale), lblStatus(new QLabel(this)) {
    setObjectName("pnlStatus");
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);

    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(look::WideGap);
    grid->setVerticalSpacing(0);
    lblName = new TClickLabel(this);
    lblNetSiteArea = new TClickLabel(this);
    lblSiteValue = new TClickLabel(this);
    // Figures stand under each other to their last digit; the name, which may be long, has the room beside them too.
    AddRow(*grid, 0, 0, "Name:", lblName, "lblName", 2);
    AddRow(*grid, 1, 0, "Net Site Area:", lblNetSiteArea, "lblNetSiteArea");
    AddRow(*grid, 2, 0, Caption(TlotMeasure::SiteValue), lblSiteValue, "lblSiteValue");
    lblSiteValuePerArea = new QLabel(this);
    lblSiteValuePerAreaCaption = AddRow(*grid, 3, 0, {}, lblSiteValuePerArea, "lblSiteValuePerArea");
    lblSiteValuePerAreaCaption->setObjectName("lblSiteValuePerAreaCaption");
    lblProfit = new QLabel(this);
    AddRow(*grid, 4, 0, Caption(TlotMeasure::Profit), lblProfit, "lblProfit");

    const auto ratio = [&](int row, TlotMeasure measure, const char* name) {
        auto* const label = new QLabel(this);
        AddRow(*grid, row, 3, Caption(measure), label, name);
        return label;
    };
    lblProfitOnCost = ratio(0, TlotMeasure::ProfitOnCost, "lblProfitOnCost");
    lblProfitOnGDV = ratio(1, TlotMeasure::ProfitOnGDV, "lblProfitOnGDV");
    lblProfitOnNDV = ratio(2, TlotMeasure::ProfitOnNDV, "lblProfitOnNDV");
    lblSiteOnGDV = ratio(3, TlotMeasure::SiteValueOnGDV, "lblSiteOnGDV");
    lblRentalYield = ratio(4, TlotMeasure::RentalYield, "lblRentalYield");
    lblIRR = ratio(5, TlotMeasure::IRR, "lblIRR");
    lblName->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    lblName->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    QFont bold = lblName->font();
    bold.setWeight(QFont::DemiBold);
    lblName->setFont(bold);
    grid->setColumnMinimumWidth(1, 130);
    grid->setColumnMinimumWidth(2, 200);
    grid->setColumnMinimumWidth(4, 90);
    grid->setColumnStretch(5, 1);

    lblStatus->setObjectName("lblStatus");
    lblStatus->setTextFormat(Qt::RichText);
    lblStatus->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    lblStatus->setFocusPolicy(Qt::TabFocus);
    lblStatus->setMinimumHeight(lblStatus->fontMetrics().height() + 4);
    connect(lblStatus, &QLabel::linkActivated, this, &TStatusPanel::AnchorClicked);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(look::Margin, look::Gap, look::Margin, look::Gap);
    layout->setSpacing(look::Gap / 2);
    layout->addLayout(grid);
    layout->addWidget(lblStatus);
}

QLabel* TStatusPanel::AddRow(QGridLayout& grid, int row, int column, const QString& caption, QLabel* value,
                             const char* name, int columns) {
    auto* const label = new QLabel(caption, this);
    look::SetTextColour(*label, look::Subdued());
    value->setObjectName(name);
    value->setFont(look::FigureFont());
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    value->setMinimumHeight(value->fontMetrics().height() + 6); // Rows that can be clicked and others are alike.
    value->setTextFormat(Qt::PlainText);
    value->setAccessibleName(QString(caption).remove(':'));
    grid.addWidget(label, row, column);
    grid.addWidget(value, row, column + 1, 1, columns);
    return label;
}

void TStatusPanel::SetText(QLabel& label, const QString& text, bool red) {
    if (label.text() != text) {
        label.setText(text);
    }
    if (label.property("red") != red) {
        label.setProperty("red", red);
        look::SetTextColour(label, red ? look::Missing() : palette().color(QPalette::Text));
    }
}

void TStatusPanel::ShowMoney(QLabel& label, double value, std::string_view format) {
    SetText(label, value == 0 ? QString() : Text(vip::FormatMask(format, value, FLocale)), value <= 0);
}

void TStatusPanel::ShowMeasure(QLabel& label, TlotMeasure measure) {
    const TlotMeasureInfo& info = MeasureInfo(measure);
    ShowMoney(label, info.Figure(FData.Project()), info.Mask);
}

void TStatusPanel::UpdateStatus() {
    const TlotProject& project = FData.Project();
    ShowName(project);
    lblSiteValuePerAreaCaption->setText(project.SiteAreaUnits == TlotSiteAreaUnits::Hectares ? "Site Value per Hectare:"
                                                                                             : "Site Value per Acre:");
    const double siteValue = project.BaseValues.SiteValue.Amount;
    std::string message;
    if (!FData.CheckUnits(message)) {
        ShowMissing(message);
    } else if (siteValue == 0) {
        ShowNoSiteValue();
    } else {
        SetText(*lblStatus, {}, false);
    }
    // Where there is a site value its figures stand, whatever the status line says is missing.
    if (siteValue != 0) {
        ShowFigures(project);
    } else {
        SetText(*lblProfitOnCost, {}, false);
    }
    ShowMeasure(*lblRentalYield, TlotMeasure::RentalYield);
    ShowMeasure(*lblIRR, TlotMeasure::IRR);
}

void TStatusPanel::ShowName(const TlotProject& project) {
    SetText(*lblName, project.Name.empty() ? QString(ClickToEdit) : Text(project.Name), project.Name.empty());
}

void TStatusPanel::ShowMissing(std::string_view message) {
    for (QLabel* const label :
         std::initializer_list<QLabel*>{lblNetSiteArea, lblSiteValue, lblSiteValuePerArea, lblProfit, lblProfitOnCost,
                                        lblProfitOnGDV, lblProfitOnNDV, lblSiteOnGDV, lblRentalYield, lblIRR}) {
        SetText(*label, {}, false);
    }
    SetText(*lblStatus, Text(message).toHtmlEscaped(), true);
}

void TStatusPanel::ShowNoSiteValue() {
    SetText(*lblSiteValue, ClickToEdit, true);
    for (QLabel* const label : {lblProfitOnCost, lblProfitOnGDV, lblProfitOnNDV, lblSiteOnGDV}) {
        SetText(*label, {}, false);
    }
    SetText(*lblStatus, NoSiteValue, false);
}

void TStatusPanel::ShowFigures(const TlotProject& project) {
    ShowMeasure(*lblSiteValue, TlotMeasure::SiteValue);
    ShowMoney(*lblNetSiteArea, project.NetSiteArea, ",0.00");
    ShowMoney(*lblSiteValuePerArea, project.SiteValuePerArea, ",0.00");
    ShowMeasure(*lblProfit, TlotMeasure::Profit);
    // The one ratio that shows its zero.
    const TlotMeasureInfo& onCost = MeasureInfo(TlotMeasure::ProfitOnCost);
    SetText(*lblProfitOnCost, Text(vip::FormatMask(onCost.Mask, onCost.Figure(project), FLocale)),
            project.BaseValues.Profit <= 0);
    ShowMeasure(*lblProfitOnGDV, TlotMeasure::ProfitOnGDV);
    ShowMeasure(*lblProfitOnNDV, TlotMeasure::ProfitOnNDV);
    ShowMeasure(*lblSiteOnGDV, TlotMeasure::SiteValueOnGDV);
}
