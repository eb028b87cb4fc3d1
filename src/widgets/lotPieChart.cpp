// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotPieChart.h"

#include <QChart>
#include <QChartView>
#include <QGraphicsLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPieSeries>
#include <QToolTip>
#include <algorithm>
#include <array>
#include <numeric>

namespace {

constexpr std::size_t MostSlices = 9;
constexpr double SmallestShare = 0.01;
constexpr int Swatch = 12;

constexpr std::array<QRgb, 10> Colours{0x0F5E6B, 0x5AA9A3, 0xE0A458, 0x8FB356, 0xB5651D,
                                       0x7A6C9D, 0xC97B84, 0x4F8FC0, 0xC9B458, 0x6B7F8C};

double Sum(std::span<const TChartValue> values) {
    return std::accumulate(values.begin(), values.end(), 0.0,
                           [](double sum, const TChartValue& value) { return sum + value.Value; });
}

} // namespace

QColor ChartColour(std::size_t index) {
    return QColor(Colours[index % Colours.size()]);
}

std::vector<TChartValue> PieSlices(std::span<const TChartValue> values, const QString& other) {
    std::vector<TChartValue> slices;
    std::ranges::copy_if(values, std::back_inserter(slices), [](const TChartValue& value) { return value.Value > 0; });
    const double total = Sum(slices);
    // The largest keep their slices; all stay in their order.
    std::vector<double> sizes;
    std::ranges::transform(slices, std::back_inserter(sizes), [](const TChartValue& value) { return value.Value; });
    std::ranges::sort(sizes, std::ranges::greater());
    const double tooMany = sizes.size() > MostSlices ? sizes[MostSlices - 1] : 0;
    const auto small = [&](const TChartValue& value) {
        return value.Value < total * SmallestShare || value.Value <= tooMany;
    };
    // One that stands alone says more by its own name.
    if (std::ranges::count_if(slices, small) < 2) {
        return slices;
    }
    TChartValue rest{other, 0};
    for (const TChartValue& value : slices) {
        rest.Value += small(value) ? value.Value : 0;
    }
    std::erase_if(slices, small);
    slices.push_back(rest);
    return slices;
}

TPieChart::TPieChart(QWidget* parent)
    : QWidget(parent),
      FChart(new QChart),
      FSeries(new QPieSeries),
      FKey(new QWidget(this)),
      FKeyLayout(new QGridLayout(FKey)),
      FNothing(new QLabel("There are no figures to show yet.", this)) {
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
    for (std::size_t i = 0; i < slices.size(); ++i) {
        QPieSlice* const slice = FSeries->append(slices[i].Name, slices[i].Value);
        slice->setColor(ChartColour(i));
        slice->setBorderColor(palette().color(QPalette::Base));
        slice->setBorderWidth(2);
        const QString tip = QString("%1: %2").arg(slices[i].Name, Format(slices[i].Value));
        connect(slice, &QPieSlice::hovered, this, [this, slice, tip](bool over) {
            slice->setExploded(over);
            slice->setExplodeDistanceFactor(0.04);
            over ? QToolTip::showText(QCursor::pos(), tip, this) : QToolTip::hideText();
        });
    }
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
        auto* const share = new QLabel(QString("%1%").arg(100 * slices[i].Value / total, 0, 'f', 1), FKey);
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
