// SPDX-License-Identifier: GPL-3.0-or-later
//
// Everything that calculations of a project leave behind and scenarios shift, kept and put back bit for bit. A pass
// reads some of what the pass before it left (a group's total, the rent, the profit), so computing again is not enough
// to undo scenarios.
#pragma once

#include "model/lotProject.h"

#include <vector>

class TlotProjectState {
public:
    /// Keeps the state of the project, which must outlive it and keep its units, items and loans.
    explicit TlotProjectState(TlotProject& project);

    void Restore();

private:
    struct TUnit {
        TlotUnit& Owner;
        TlotUnitSnapshot Kept;
    };
    struct TItem {
        TlotItem& Owner;
        TlotItemTerms Terms;
        TlotItemResults Results;
        TlotCashflowItem Line;
    };
    struct TSection {
        TlotSection& Owner;
        TlotCashflowItem Total;
    };
    struct TLoan {
        TlotLoan& Owner;
        TlotLoanTerms Terms;
        TlotLoanResults Results;
    };

    TlotProject& FProject;
    std::vector<TUnit> FUnits;
    std::vector<TItem> FItems;
    std::vector<TSection> FSections;
    std::vector<TLoan> FLoans;
    std::vector<TlotCashflowItem> FGroups; ///< Their totals, in order.
    TlotEquityTerms FEquityTerms;
    TlotEquityResults FEquityResults;
    TlotBaseFigures FBaseFigures;
    TlotCashflowResults FCashflowResults;
    TlotFundingResults FFundingResults;
    TlotProjectResults FProjectResults;
};
