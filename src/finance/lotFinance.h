// SPDX-License-Identifier: GPL-3.0-or-later
//
// What is left of a simpler finance model, from before loans and the equity account. No calculation reads it and no
// file stores it; a project makes and resets it, and the test project sets it.
#pragma once

#include "engine/lotCashflow.h"

#include <array>

class TlotFinance {
public:
    TlotFinance() {
        for (TlotCashflowItem& row : Rows) {
            row.Income = true;
        }
    }

    std::array<TlotCashflowItem, 4> Rows;
    bool Enabled = true;
    double Rate = 0; ///< Percent a year.
    bool RolledUp = false;

    void Reset() {
        Enabled = true;
        Rate = 0;
        RolledUp = false;
        Rows[0].Amount = 0;
    }
};
