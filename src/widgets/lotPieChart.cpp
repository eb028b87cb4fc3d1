// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotPieChart.h"

#include "widgets/lotChartAccessible.h"
#include "widgets/lotToolTipText.h"

#include <QChart>
#include <QChartView>
#include <QGraphicsLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPieSeries>
#include <QToolTip>
#include <algorithm>
#include <numeric>

namespace {

constexpr int Swatch = 12;

double Sum(std::span<const TChartValue> values) {
    return std::accumulate(values.begin(), values.end(), 0.0,
                           [](double sum, const TChartValue& value) { return sum + value.Value; });
}

QString Share(double value, double total) {
    return QString("%1%").arg(100 * value / total, 0, 'f', 1);
}

} // namespace

QColor ChartColour(std::size_t index) {
    return QColor::fromRgb(ChartRgb(index));
}

TPieChart::TPieChart(QWidget* parent)
    : QWidget(parent),
      FChart(new QChart),
      FSeries(new QPieSeries),
      FKey(new QWidget(this)),
      FKeyLayout(new QGridLayout(FKey)),
      FNothing(new QLabel("There are no figures to show yet.", this)) {
    InstallChartAccessible();
    FChart->addSeries(FSeries);
    FChart->legend()->hide();
    FChart->setBackgroundVisible(false);
    FChart->setMargins(QMargins(0, 0, 0, 0));
    FChart->layout()->setContentsMargins(0, 0, 0, 0);
    FSeries->setPieSize(0.94);
    FSeries->setHoleSize(0.48);
    auto* const view = new QChartView(FChart, this);
    view->setRenderHint(QPainter::Antialiasing);
    view->setFrameShape(QFrame::NoFrame);
    view->setMinimumSize(160, 160);
    view->setFocusPolicy(Qt::NoFocus);
    view->setBackgroundBrush(Qt::NoBrush);
    view->viewport()->setAutoFillBackground(false);
    view->setMaximumSize(460, 460);
    view->setObjectName("pie");

    FKeyLayout->setContentsMargins(0, 0, 0, 0);
    FKeyLayout->setHorizontalSpacing(10);
    FKeyLayout->setVerticalSpacing(6);
    FKeyLayout->setColumnStretch(1, 1);
    FNothing->setAlignment(Qt::AlignCenter);
    FNothing->setEnabled(false);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(24);
    layout->addWidget(view, 3);
    layout->addWidget(FKey, 2, Qt::AlignVCenter);
    layout->addWidget(FNothing, 1);
    layout->addStretch();
    Format = [](double value) { return QString::number(value); };
    SetSlices({});
}

void TPieChart::SetSlices(std::span<const TChartValue> values) {
    const std::vector<TChartValue> slices = PieSlices(values, OtherName);
    const double total = Sum(slices);
    FSeries->clear();
    QStringList figures;
    for (std::size_t i = 0; i < slices.size(); ++i) {
        QPieSlice* const slice = FSeries->append(slices[i].Name, slices[i].Value);
        slice->setColor(ChartColour(i));
        slice->setBorderColor(palette().color(QPalette::Base));
        slice->setBorderWidth(2);
        const QString tip = QString("%1: %2").arg(slices[i].Name, Format(slices[i].Value));
        figures << QString("%1 (%2)").arg(tip, Share(slices[i].Value, total));
        connect(slice, &QPieSlice::hovered, this, [this, slice, tip](bool over) {
            slice->setExploded(over);
            slice->setExplodeDistanceFactor(0.04);
            over ? QToolTip::showText(QCursor::pos(), ToolTipText(tip), this) : QToolTip::hideText();
        });
    }
    DescribeChart(*this, figures);
    ShowKey(slices, total);
    FNothing->setVisible(slices.empty());
    FKey->setVisible(!slices.empty());
    findChild<QChartView*>("pie")->setVisible(!slices.empty());
}

void TPieChart::ShowKey(std::span<const TChartValue> slices, double total) {
    while (QLayoutItem* const item = FKeyLayout->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    for (std::size_t i = 0; i < slices.size(); ++i) {
        const int row = static_cast<int>(i);
        auto* const swatch = new QLabel(FKey);
        QPixmap colour(QSize(Swatch, Swatch) * devicePixelRatioF());
        colour.setDevicePixelRatio(devicePixelRatioF());
        colour.fill(ChartColour(i));
        swatch->setPixmap(colour);
        auto* const name = new QLabel(slices[i].Name, FKey);
        name->setTextFormat(Qt::PlainText);
        auto* const value = new QLabel(Format(slices[i].Value), FKey);
        auto* const share = new QLabel(Share(slices[i].Value, total), FKey);
        share->setEnabled(false);
        FKeyLayout->addWidget(swatch, row, 0);
        FKeyLayout->addWidget(name, row, 1);
        FKeyLayout->addWidget(value, row, 2, Qt::AlignRight);
        FKeyLayout->addWidget(share, row, 3, Qt::AlignRight);
    }
}

void TPieChart::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        for (QPieSlice* const slice : FSeries->slices()) {
            slice->setBorderColor(palette().color(QPalette::Base));
        }
    }
}
