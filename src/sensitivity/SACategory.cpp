// SPDX-License-Identifier: GPL-3.0-or-later
#include "sensitivity/SACategory.h"

#include "common/vipErrors.h"
#include "common/vipText.h"

#include <algorithm>

namespace {

/// More decimals than a real has; a setting out of a file may ask for any number.
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

int TSACategoryList::IndexOf(std::string_view name) const noexcept {
    const auto found =
        std::ranges::find_if(FItems, [&](const auto& category) { return vip::SameText(category->Name, name); });
    return found == FItems.end() ? -1 : static_cast<int>(found - FItems.begin());
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
