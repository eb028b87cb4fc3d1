// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/lotStatusPanel.h"

#include "app/datProject.h"
#include "shell/lotLook.h"
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
    AddRow(*grid, 0, 0, "Name:", lblName, "lblName");
    AddRow(*grid, 1, 0, "Net Site Area:", lblNetSiteArea, "lblNetSiteArea");
    AddRow(*grid, 2, 0, "Site Value:", lblSiteValue, "lblSiteValue");
    lblSiteValuePerArea = new QLabel(this);
    lblSiteValuePerAreaCaption = AddRow(*grid, 3, 0, {}, lblSiteValuePerArea, "lblSiteValuePerArea");
    lblSiteValuePerAreaCaption->setObjectName("lblSiteValuePerAreaCaption");
    lblProfit = new QLabel(this);
    AddRow(*grid, 4, 0, "Profit:", lblProfit, "lblProfit");

    const auto ratio = [&](int row, const QString& caption, const char* name) {
        auto* const label = new QLabel(this);
        AddRow(*grid, row, 3, caption, label, name);
        return label;
    };
    lblProfitOnCost = ratio(0, "Profit on Cost:", "lblProfitOnCost");
    lblProfitOnGDV = ratio(1, "Profit on GDV:", "lblProfitOnGDV");
    lblProfitOnNDV = ratio(2, "Profit on NDV:", "lblProfitOnNDV");
    lblSiteOnGDV = ratio(3, "Site Value on GDV:", "lblSiteOnGDV");
    lblRentalYield = ratio(4, "Rental Yield:", "lblRentalYield");
    lblIRR = ratio(5, "IRR:", "lblIRR");
    // Figures stand under each other to their last digit; the name, which may be long, has the room beside them too.
    grid->addWidget(lblName, 0, 1, 1, 2);
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
                             const char* name) {
    auto* const label = new QLabel(caption, this);
    look::SetTextColour(*label, look::Subdued());
    value->setObjectName(name);
    value->setFont(look::FigureFont());
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    value->setMinimumHeight(value->fontMetrics().height() + 6); // Rows that can be clicked and others are alike.
    value->setTextFormat(Qt::PlainText);
    value->setAccessibleName(QString(caption).remove(':'));
    grid.addWidget(label, row, column);
    grid.addWidget(value, row, column + 1);
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
    ShowMoney(*lblRentalYield, project.BaseValues.RentalYield, "0.000%");
    ShowMoney(*lblIRR, project.IRR(), "0.000%");
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
    const TlotBaseValues& values = project.BaseValues;
    ShowMoney(*lblSiteValue, values.SiteValue.Amount, ",0");
    ShowMoney(*lblNetSiteArea, project.NetSiteArea, ",0.00");
    ShowMoney(*lblSiteValuePerArea, project.SiteValuePerArea, ",0.00");
    ShowMoney(*lblProfit, values.Profit, ",0");
    // The one ratio that shows its zero.
    SetText(*lblProfitOnCost, Text(vip::FormatMask("0.000%", values.ProfitOnCost, FLocale)), values.Profit <= 0);
    ShowMoney(*lblProfitOnGDV, values.ProfitOnGDV, "0.000%");
    ShowMoney(*lblProfitOnNDV, values.ProfitOnNDV, "0.000%");
    ShowMoney(*lblSiteOnGDV, values.SiteValueOnGDV, "0.000%");
}
