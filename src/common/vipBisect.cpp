// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipBisect.h"

#include <cmath>

void VBisect::Start(int maximumIterations, double target, double low, double high) noexcept {
    FMaximumIterations = maximumIterations;
    FTarget = target;
    FLow = low;
    FHigh = high;
    FStatus = TBisectStatus::Running;
    FIterations = 0;
}

void VBisect::Step(double value) noexcept {
    if (FStatus != TBisectStatus::Running) {
        return;
    }
    if (FIterations > FMaximumIterations) {
        FStatus = TBisectStatus::GaveUp;
        return;
    }
    if (std::fabs(value - FTarget) <= Tolerance && value > 0) {
        FStatus = TBisectStatus::Found;
        return;
    }
    if ((SignedMode && value < 0) || value > FTarget) {
        FLow = Middle();
    } else if (value < FTarget) {
        FHigh = Middle();
    }
    ++FIterations;
}
