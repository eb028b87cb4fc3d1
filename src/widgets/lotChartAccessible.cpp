// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotChartAccessible.h"

#include "widgets/lotAccessibleParts.h"
#include "widgets/lotSeriesCharts.h"

namespace {

class TChartAccessible final : public QAccessibleWidget {
public:
    explicit TChartAccessible(QWidget& chart) : QAccessibleWidget(&chart, QAccessible::Chart) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        const QString own = QAccessibleWidget::text(kind);
        return own.isEmpty() && kind == QAccessible::Name ? "Chart" : own;
    }
};

} // namespace

void InstallChartAccessible() {
    InstallAccessible<TPieChart, TChartAccessible>();
    InstallAccessible<TSeriesChart, TChartAccessible>();
}

void DescribeChart(QWidget& chart, const QStringList& figures) {
    chart.setAccessibleDescription(figures.isEmpty() ? "There are no figures to show yet." : figures.join("; "));
}
