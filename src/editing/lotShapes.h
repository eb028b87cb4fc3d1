// SPDX-License-Identifier: GPL-3.0-or-later
//
// The predetermined shapes that a line's money may take over a period, as weights by month.
#pragma once

#include "engine/lotCashflow.h"

#include <cstdint>
#include <span>
#include <vector>

/// Named by the curve of what has been paid so far.
enum class TlotShape : std::uint8_t { SCurve, InverseSCurve, Increasing, Decreasing, Constant, Retention };

/// Makes `weights` the shape over `months`; `retention`, in percent, is the last month's share of a Retention. A
/// Retention of fewer than three months leaves the weights as they were.
void BuildShape(TlotShape shape, int months, double retention, std::vector<double>& weights);

/// The running sum of weights, as many.
[[nodiscard]] std::vector<double> Cumulative(std::span<const double> weights);

/// Lays the weights over the line from `start` on, in place of whatever shape it had; from the first month where
/// `start` lies before it. Its Period stays: the weights rule while they are there. Without weights it is a straight
/// line from `start`.
void ApplyShape(TlotCashflowItem& line, int start, std::span<const double> weights);
