// SPDX-License-Identifier: GPL-3.0-or-later
#include "sensitivity/SACategory.h"

#include "common/vipErrors.h"

#include <algorithm>
#include <utility>

namespace {

/// A real has no more decimals than these; a file may ask for any number of them.
constexpr std::int32_t MostDecimals = 15;

} // namespace

bool TSACategory::Included(int item) const noexcept {
    const auto i = static_cast<std::size_t>(item);
    return item < 0 || i >= FIncluded.size() || FIncluded[i];
}

void TSACategory::SetIncluded(int item, bool included) {
    if (item < 0 || static_cast<std::size_t>(item) >= FIncluded.size()) {
        throw ELotError("Index exceeds category count");
    }
    FIncluded[static_cast<std::size_t>(item)] = included;
}

void TSACategory::ResetIncluded() {
    FIncluded.assign(static_cast<std::size_t>(Count()), true);
}

std::string TSACategory::Label(int index, const TNumberLocale& locale) const {
    const int half = StepCount / 2;
    const double start = StepCount % 2 == 0 ? -Step * half + Step : -Step * half;
    const double delta = index * Step + start;
    std::string mask = "0.000%";
    if (!PercentageStep) {
        mask = Thousands ? ",0" : "0";
        if (Decimals > 0) {
            mask += '.' + std::string(static_cast<std::size_t>(std::min(Decimals, MostDecimals)), '0');
        }
    }
    return (delta > 0 ? "+" : "") + vip::FormatMask(mask, delta, locale);
}

void TSAAxis::Apply() const {
    if (FCategory == nullptr) {
        return;
    }
    const vip::TSAStep step = FCategory->StepAt(FIndex);
    if (FCategory->Whole || FCategory->SecondWhole) {
        FCategory->ApplyAll(step);
        return;
    }
    for (int item = 0; item < FCategory->Count(); ++item) {
        if (FCategory->Included(item)) {
            FCategory->Apply(item, step);
        }
    }
}

void ApplyPlaces(int first, int last, const TSAAxis& columns, const TSAAxis& rows) {
    const TSAAxis* earlier = columns.StandsIn(first, last) ? &columns : nullptr;
    const TSAAxis* later = rows.StandsIn(first, last) && rows.Category() != columns.Category() ? &rows : nullptr;
    if (earlier != nullptr && later != nullptr && later->Category()->Place < earlier->Category()->Place) {
        std::swap(earlier, later);
    }
    for (const TSAAxis* const axis : {earlier, later}) {
        if (axis != nullptr) {
            axis->Apply();
        }
    }
}
