// SPDX-License-Identifier: GPL-3.0-or-later
//
// Charts for assistive programs: each is a chart whose description tells its figures.
#pragma once

#include <QStringList>

class QWidget;

void InstallChartAccessible();

/// `figures`: "name: value" each; without any, that there is nothing to show.
void DescribeChart(QWidget& chart, const QStringList& figures);
