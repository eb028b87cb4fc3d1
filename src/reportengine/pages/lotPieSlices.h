// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a pie shows of a list of named figures, on screen and in print alike.
#pragma once

#include <QRgb>
#include <QString>
#include <span>
#include <vector>

struct TChartValue {
    QString Name;
    double Value = 0;
};

/// The slices of a pie: the figures above 0 in their order, those too small or too many for a slice of their own
/// gathered in a last one of the name `other`.
[[nodiscard]] std::vector<TChartValue> PieSlices(std::span<const TChartValue> values, const QString& other);

/// The colours of slices, bars and lines, in their order; opaque.
[[nodiscard]] QRgb ChartRgb(std::size_t index);
