// SPDX-License-Identifier: GPL-3.0-or-later
#include "finance/lotInterestTerms.h"

void TlotInterestTerms::PrepareRates(int count) {
    if (VariableRate) {
        InterestRates.Reach(count, InterestRate.Value);
    }
}

void TlotInterestTerms::SaveRates() {
    InterestRate.Save();
    StoredInterestRates = InterestRates;
}

void TlotInterestTerms::RestoreRates() {
    InterestRate.Restore();
    InterestRates = StoredInterestRates;
}

void TlotInterestTerms::ApplySensitivity(const vip::TSAStep& step) {
    InterestRate.Apply(step);
    if (VariableRate) {
        InterestRates = StoredInterestRates;
        for (double& rate : InterestRates.Edit()) {
            rate = step.ValueAt(rate);
        }
    }
}
