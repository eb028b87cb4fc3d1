// SPDX-License-Identifier: GPL-3.0-or-later
//
// A pie of named figures with a key at its side that tells every name, figure and share: slices are often too thin for
// labels of their own. What is small is gathered in one slice, "Other".
#pragma once

#include "reportengine/pages/lotPieSlices.h"

#include <QWidget>
#include <functional>
#include <span>
#include <string>
#include <vector>

class QChart;
class QGridLayout;
class QLabel;
class QPieSeries;

/// The colours of slices, bars and lines, in their order.
[[nodiscard]] QColor ChartColour(std::size_t index);

class TPieChart : public QWidget {
    Q_OBJECT

public:
    explicit TPieChart(QWidget* parent = nullptr);

    QString OtherName = "Other";
    std::function<QString(double)> Format; ///< How the key writes a figure.

    void SetSlices(std::span<const TChartValue> values);

protected:
    void changeEvent(QEvent* event) override;

private:
    void ShowKey(std::span<const TChartValue> slices, double total);

    // Owned by the widget.
    QChart* FChart;
    QPieSeries* FSeries;
    QWidget* FKey;
    QGridLayout* FKeyLayout;
    QLabel* FNothing;
};
