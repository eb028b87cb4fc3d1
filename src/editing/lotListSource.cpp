// SPDX-License-Identifier: GPL-3.0-or-later
#include "editing/lotListSource.h"

#include <utility>

void TlotEditingSource::Settle() {
    if (std::exchange(FDirty, false)) {
        FData.Recalculate();
    }
}

void TlotEditingSource::Written() {
    Modified = true;
    FDirty = FDirty || FRules.RecalculateAtNextRead;
    Changed(FRules.QuietWrites);
}

void TlotEditingSource::RecordsChanged() {
    Modified = true;
    if (FRules.ChangeWithRecords) {
        Changed();
    }
    DataChanged();
}
