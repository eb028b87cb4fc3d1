// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/lotServices.h"

#include "common/vipDate.h"

#include <ctime>

double TlotSystemClock::Today() const {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return vip::EncodeDate(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
}
