// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/lotProjectState.h"

#include <algorithm>

TlotProjectState::TlotProjectState(TlotProject& project)
    : FProject(project),
      FEquityTerms(project.Equity),
      FEquityResults(project.Equity),
      FBaseFigures(project.BaseValues),
      FCashflowResults(project.Cashflow),
      FFundingResults(project.Funding),
      FProjectResults(project) {
    for (const auto& unit : project.Units) {
        FUnits.push_back({*unit, unit->Snapshot()});
    }
    for (const auto& section : project.Sections) {
        FSections.push_back({*section, section->Total});
        for (const auto& item : section->Items) {
            FItems.push_back({*item, *item, *item, item->Line});
        }
    }
    for (const auto& loan : project.Funding.Loans) {
        FLoans.push_back({*loan, *loan, *loan});
    }
    for (int i = 0; i < project.Groups.Count(); ++i) {
        FGroups.push_back(project.Groups[i].Total);
    }
}

void TlotProjectState::Restore() {
    for (const TUnit& unit : FUnits) {
        unit.Owner.Restore(unit.Kept);
    }
    for (const TItem& item : FItems) {
        static_cast<TlotItemTerms&>(item.Owner) = item.Terms;
        static_cast<TlotItemResults&>(item.Owner) = item.Results;
        item.Owner.Line = item.Line;
    }
    for (const TSection& section : FSections) {
        section.Owner.Total = section.Total;
    }
    for (const TLoan& loan : FLoans) {
        static_cast<TlotLoanTerms&>(loan.Owner) = loan.Terms;
        static_cast<TlotLoanResults&>(loan.Owner) = loan.Results;
    }
    const int groups = std::min(FProject.Groups.Count(), static_cast<int>(FGroups.size()));
    for (int i = 0; i < groups; ++i) {
        FProject.Groups[i].Total = FGroups[static_cast<std::size_t>(i)];
    }
    static_cast<TlotEquityTerms&>(FProject.Equity) = FEquityTerms;
    static_cast<TlotEquityResults&>(FProject.Equity) = FEquityResults;
    static_cast<TlotBaseFigures&>(FProject.BaseValues) = FBaseFigures;
    static_cast<TlotCashflowResults&>(FProject.Cashflow) = FCashflowResults;
    static_cast<TlotFundingResults&>(FProject.Funding) = FFundingResults;
    static_cast<TlotProjectResults&>(FProject) = FProjectResults;
}
