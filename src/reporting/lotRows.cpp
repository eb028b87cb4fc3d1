// SPDX-License-Identifier: GPL-3.0-or-later
#include "reporting/lotRows.h"

void TlotRows::Clear() {
    FItems.clear();
    FLines.clear();
}

TlotWatch<TlotCashflowItem> TlotRows::WatchLine(int row) const {
    const auto index = static_cast<std::size_t>(row);
    return row >= 0 && index < FLines.size() ? FLines[index] : TlotWatch<TlotCashflowItem>();
}
