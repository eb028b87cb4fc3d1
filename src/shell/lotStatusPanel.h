// SPDX-License-Identifier: GPL-3.0-or-later
//
// The panel across the top of the main window: the project's key figures, as the model stands, in two columns, and the
// status line, which says what is missing. Red marks what is missing or negative. Three figures can be clicked to be
// edited.
#pragma once

#include "common/vipNumber.h"
#include "model/lotMeasures.h"

#include <QWidget>
#include <string_view>

class QFormLayout;
class QGridLayout;
class QLabel;
class TClickLabel;
class TProjectData;

class TStatusPanel : public QWidget {
    Q_OBJECT

public:
    TStatusPanel(const TProjectData& projectData, const TNumberLocale& locale, QWidget* parent = nullptr);

    /// Shows the model as it stands; computes nothing.
    void UpdateStatus();

    [[nodiscard]] TClickLabel& NameLabel() const { return *lblName; }
    [[nodiscard]] TClickLabel& SiteValueLabel() const { return *lblSiteValue; }
    [[nodiscard]] TClickLabel& NetSiteAreaLabel() const { return *lblNetSiteArea; }

signals:
    void AnchorClicked(const QString& anchor);

private:
    /// `columns`: that the value reaches over.
    QLabel* AddRow(QGridLayout& grid, int row, int column, const QString& caption, QLabel* value, const char* name,
                   int columns = 1);
    void ShowName(const TlotProject& project);
    void ShowMissing(std::string_view message);
    void ShowNoSiteValue();
    void ShowFigures(const TlotProject& project);
    void ShowMoney(QLabel& label, double value, std::string_view format);
    void ShowMeasure(QLabel& label, TlotMeasure measure);
    void SetText(QLabel& label, const QString& text, bool red);

    const TProjectData& FData;
    TNumberLocale FLocale;

    // All owned by this widget.
    TClickLabel* lblName;
    TClickLabel* lblNetSiteArea;
    TClickLabel* lblSiteValue;
    QLabel* lblSiteValuePerAreaCaption;
    QLabel* lblSiteValuePerArea;
    QLabel* lblProfit;
    QLabel* lblProfitOnCost;
    QLabel* lblProfitOnGDV;
    QLabel* lblProfitOnNDV;
    QLabel* lblSiteOnGDV;
    QLabel* lblRentalYield;
    QLabel* lblIRR;
    QLabel* lblStatus;
};
