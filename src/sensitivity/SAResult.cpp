// SPDX-License-Identifier: GPL-3.0-or-later
#include "sensitivity/SAResult.h"

#include <algorithm>

std::string TSAResult::Format(double value, const TNumberLocale& locale) const {
    constexpr std::int32_t most = 15;
    std::string mask =
        Decimals >= 1 ? "0." + std::string(static_cast<std::size_t>(std::min(Decimals, most)), '0') : ",0";
    if (Percentage) {
        mask += '%';
    }
    return vip::FormatMask(mask, value, locale);
}
