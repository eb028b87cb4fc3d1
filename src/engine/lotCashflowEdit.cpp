// SPDX-License-Identifier: GPL-3.0-or-later
//
// The timescale's editing of one line. None of it recalculates: the caller does, and the calculation mends what a
// straight line cannot have.
#include "engine/lotCashflow.h"

#include <algorithm>

void TlotCashflowItem::EnsurePortions() {
    if (!Portions.IsEmpty() || Period < 1) {
        return;
    }
    const int first = std::max(Start, 0);
    std::ranges::fill(Portions.Prepare(first, std::max(Start + Period, first)), 1.0);
}

void TlotCashflowItem::ResetToLevel() {
    Portions.Clear();
    const int first = std::max(Start, 0);
    const int end = std::max(Start + Period, first);
    std::ranges::fill(Values.Prepare(first, end), Amount / std::max(Period, 1));
}

void TlotCashflowItem::NormaliseSpan() {
    if (Portions.IsEmpty()) {
        return;
    }
    if (const int first = FirstPortion(); first >= 0) {
        Start = first;
        Period = LastPortion() - first + 1;
    }
    ResetToLevel();
}

void TlotCashflowItem::AllocatePortion(int month, int count, double percent) {
    if (percent == 0 || count >= Period) {
        return;
    }
    NormaliseSpan();
    EnsurePortions();
    const double divisor = count * (100 / percent - 1);
    if (divisor == 0) {
        throw EEvaluatorError("Floating point division by zero");
    }
    const double weight = (Period - count) / divisor;
    for (int i = month; i < month + count; ++i) {
        if (i >= Portions.Count()) {
            throw ERangeError();
        }
        Portions.Set(i, weight);
    }
}

void TlotCashflowItem::NudgeLeft() {
    if (!Portions.IsEmpty()) {
        Portions.EraseFront();
    } else if (Start >= 1) {
        --Start;
    }
}

void TlotCashflowItem::NudgeRight() {
    if (Portions.IsEmpty()) {
        ++Start;
    } else {
        Portions.InsertFront(0);
    }
}

void TlotCashflowItem::AlignLeft(int month) {
    if (Portions.IsEmpty()) {
        Start = month;
        return;
    }
    while (FirstPortion() > std::max(month, 0)) {
        NudgeLeft();
    }
    while (FirstPortion() >= 0 && FirstPortion() < month) {
        NudgeRight();
    }
}

void TlotCashflowItem::AlignRight(int end) {
    if (Portions.IsEmpty()) {
        Start = std::max(end - Period, 0);
        return;
    }
    while (LastPortion() > std::max(end, 0)) {
        NudgeLeft();
    }
    while (LastPortion() >= 0 && LastPortion() < end) {
        NudgeRight();
    }
}

bool TlotCashflowItem::AtStart() const {
    return Portions.IsEmpty() ? Start == 0 : Portions.Get(0) != 0;
}
