// SPDX-License-Identifier: GPL-3.0-or-later
//
// Small charts of figures in order: bars, such as the months of a distribution, and lines.
#pragma once

#include "widgets/lotPieChart.h"

#include <QWidget>
#include <functional>
#include <span>
#include <vector>

class QAbstractSeries;
class QChart;
class QChartView;

struct TChartLine {
    QString Name;
    std::vector<double> Values; ///< One for each category.
};

/// What bars and lines share: the chart, its axes, and how a figure is told.
class TSeriesChart : public QWidget {
    Q_OBJECT

public:
    std::function<QString(double)> Format; ///< How a figure is written in a tool tip.

protected:
    explicit TSeriesChart(QWidget* parent);

    void Clear();
    /// Draws these series over the categories; figures reach from `lowest` to `highest`.
    void Show(const std::vector<QAbstractSeries*>& series, std::span<const QString> categories, double lowest,
              double highest);
    void ShowTip(bool over, const QString& name, double value);

private:
    QChart* FChart; // Owned by the view, which the widget owns.
    QChartView* FView;
};

class TBarChart final : public TSeriesChart {
    Q_OBJECT

public:
    explicit TBarChart(QWidget* parent = nullptr) : TSeriesChart(parent) {}

    void SetBars(std::span<const TChartValue> bars);
};

class TLineChart final : public TSeriesChart {
    Q_OBJECT

public:
    explicit TLineChart(QWidget* parent = nullptr) : TSeriesChart(parent) {}

    void SetLines(std::span<const QString> categories, std::span<const TChartLine> lines);
};
