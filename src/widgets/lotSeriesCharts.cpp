// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotSeriesCharts.h"

#include "widgets/lotChartAccessible.h"
#include "widgets/lotHook.h"
#include "widgets/lotToolTipText.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QGraphicsLayout>
#include <QLineSeries>
#include <QToolTip>
#include <QVBoxLayout>
#include <QValueAxis>
#include <algorithm>

namespace {

constexpr double BarWidth = 0.7;
constexpr int Ticks = 5;

QStringList Names(std::span<const QString> categories) {
    // A category axis shows a name once only; months of the same name are told apart by blanks.
    QStringList names;
    for (const QString& category : categories) {
        QString name = category;
        while (names.contains(name)) {
            name += ' ';
        }
        names << name;
    }
    return names;
}

} // namespace

TSeriesChart::TSeriesChart(QWidget* parent) : QWidget(parent), FChart(new QChart), FView(new QChartView(FChart, this)) {
    InstallChartAccessible();
    DescribeChart(*this, {});
    Format = [](double value) { return QString::number(value); };
    FChart->setBackgroundVisible(false);
    FChart->setMargins(QMargins(0, 0, 0, 0));
    FChart->layout()->setContentsMargins(0, 0, 0, 0);
    FChart->legend()->setAlignment(Qt::AlignBottom);
    FView->setRenderHint(QPainter::Antialiasing);
    FView->setFrameShape(QFrame::NoFrame);
    FView->setBackgroundBrush(Qt::NoBrush);
    FView->viewport()->setAutoFillBackground(false);
    FView->setMinimumSize(160, 100);
    FView->setFocusPolicy(Qt::NoFocus);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(FView);
}

void TSeriesChart::Clear() {
    DescribeChart(*this, {});
    FChart->removeAllSeries();
    for (QAbstractAxis* const axis : FChart->axes()) {
        FChart->removeAxis(axis);
        delete axis;
    }
}

void TSeriesChart::Show(const std::vector<QAbstractSeries*>& series, std::span<const QString> categories, double lowest,
                        double highest) {
    auto* const across = new QBarCategoryAxis(FChart);
    across->append(Names(categories));
    across->setGridLineVisible(false);
    auto* const up = new QValueAxis(FChart);
    up->setRange(std::min(0.0, lowest), highest > lowest || highest > 0 ? std::max(0.0, highest) : 1);
    up->setTickCount(Ticks);
    up->setLabelFormat("%.0f");
    up->applyNiceNumbers();
    const QColor text = palette().color(QPalette::WindowText);
    for (QAbstractAxis* const axis : std::initializer_list<QAbstractAxis*>{across, up}) {
        axis->setLabelsFont(font());
        axis->setLabelsColor(text);
        axis->setLinePenColor(palette().color(QPalette::Mid));
        axis->setGridLineColor(palette().color(QPalette::Midlight));
    }
    FChart->addAxis(across, Qt::AlignBottom);
    FChart->addAxis(up, Qt::AlignLeft);
    for (QAbstractSeries* const one : series) {
        FChart->addSeries(one);
        one->attachAxis(across);
        one->attachAxis(up);
    }
    FChart->legend()->setVisible(series.size() > 1);
    FChart->legend()->setLabelColor(text);
}

void TSeriesChart::ShowTip(bool over, const QString& name, double value) {
    if (over) {
        QToolTip::showText(QCursor::pos(), ToolTipText(name + ": " + AskHook(Format, QString(), value)), this);
    } else {
        QToolTip::hideText();
    }
}

void TBarChart::SetBars(std::span<const TChartValue> bars) {
    Clear();
    if (bars.empty()) {
        return;
    }
    auto* const set = new QBarSet({});
    std::vector<QString> names;
    QStringList figures;
    double lowest = 0;
    double highest = 0;
    for (const TChartValue& bar : bars) {
        set->append(bar.Value);
        names.push_back(bar.Name);
        figures << QString("%1: %2").arg(bar.Name, Format(bar.Value));
        lowest = std::min(lowest, bar.Value);
        highest = std::max(highest, bar.Value);
    }
    set->setColor(ChartColour(0));
    set->setBorderColor(ChartColour(0));
    auto* const series = new QBarSeries;
    series->setBarWidth(BarWidth);
    series->append(set);
    connect(set, &QBarSet::hovered, this, [this, names, set](bool over, int index) {
        ShowTip(over, names.at(static_cast<std::size_t>(index)), set->at(index));
    });
    DescribeChart(*this, figures);
    Show({series}, names, lowest, highest);
}

void TLineChart::SetLines(std::span<const QString> categories, std::span<const TChartLine> lines) {
    Clear();
    if (lines.empty() || categories.empty()) {
        return;
    }
    std::vector<QAbstractSeries*> series;
    QStringList figures;
    double lowest = 0;
    double highest = 0;
    for (const TChartLine& line : lines) {
        auto* const drawn = new QLineSeries;
        drawn->setName(line.Name);
        drawn->setPen(QPen(ChartColour(series.size()), 2));
        for (std::size_t i = 0; i < line.Values.size(); ++i) {
            drawn->append(static_cast<qreal>(i), line.Values[i]);
            figures << QString("%1, %2: %3")
                           .arg(line.Name, i < categories.size() ? categories[i] : QString(), Format(line.Values[i]));
            lowest = std::min(lowest, line.Values[i]);
            highest = std::max(highest, line.Values[i]);
        }
        connect(drawn, &QLineSeries::hovered, this,
                [this, name = line.Name](const QPointF& point, bool over) { ShowTip(over, name, point.y()); });
        series.push_back(drawn);
    }
    DescribeChart(*this, figures);
    Show(series, categories, lowest, highest);
}
