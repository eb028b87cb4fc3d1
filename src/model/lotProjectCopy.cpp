// SPDX-License-Identifier: GPL-3.0-or-later
//
// A project once more, with its computed state: what is tried on the copy leaves the original alone.
#include "common/vipErrors.h"
#include "model/lotProject.h"

#include <cstddef>
#include <unordered_map>

namespace {

class TProjectCopier {
public:
    TProjectCopier(const TlotProject& from, TlotProject& to) : FFrom(from), FTo(to) {}

    void Run() {
        static_cast<TlotProjectTerms&>(FTo) = FFrom;
        static_cast<TlotProjectResults&>(FTo) = FFrom;
        CopyUnits();
        CopySections();
        CopyFunding();
        CopyParts();
        CopyLists();
    }

private:
    /// Whoever lists the one line lists the other in the copy.
    void CopyLine(const TlotCashflowItem& from, TlotCashflowItem& to) {
        to = from;
        FLines.emplace(&from, &to);
    }

    void CopyUnits() {
        FTo.UnitTypes.Clear();
        for (const auto& type : FFrom.UnitTypes) {
            FTo.UnitTypes.Add(*type);
        }
        for (const auto& unit : FFrom.Units) {
            TlotUnit& copy = FTo.Units.Add();
            copy.Restore(unit->Snapshot());
            TlotUnit::VisitLines(
                [&](const char* /*name*/, auto line) { FLines.emplace(&(*unit.*line), &(copy.*line)); });
        }
    }

    void CopySections() {
        for (const auto& section : FFrom.Sections) {
            TlotSection& copy = FTo.Sections.Add();
            static_cast<TlotSectionTerms&>(copy) = *section;
            CopyLine(section->Total, copy.Total);
            for (const auto& item : section->Items) {
                TlotItem& itemCopy = copy.Items.Add();
                static_cast<TlotItemTerms&>(itemCopy) = *item;
                static_cast<TlotItemResults&>(itemCopy) = *item;
                CopyLine(item->Line, itemCopy.Line);
            }
        }
        for (int i = 0; i < FFrom.Groups.Count(); ++i) {
            FTo.Groups.Add(FFrom.Groups[i].Name).Total = FFrom.Groups[i].Total;
        }
    }

    void CopyFunding() {
        static_cast<TlotFundingResults&>(FTo.Funding) = FFrom.Funding;
        FTo.Funding.EquitySource = FFrom.Funding.EquitySource;
        for (const auto& loan : FFrom.Funding.Loans) {
            TlotLoan& copy = FTo.Funding.Loans.Add();
            static_cast<TlotLoanTerms&>(copy) = *loan;
            static_cast<TlotLoanResults&>(copy) = *loan;
        }
        static_cast<TlotEquityTerms&>(FTo.Equity) = FFrom.Equity;
        static_cast<TlotEquityResults&>(FTo.Equity) = FFrom.Equity;
    }

    void CopyParts() {
        FTo.Finance = FFrom.Finance;
        static_cast<TlotInflationTerms&>(FTo.Inflation) = FFrom.Inflation;
        for (std::size_t i = 0; i < FFrom.Adjust.Fields.size(); ++i) {
            FTo.Adjust.Fields[i]->Value = FFrom.Adjust.Fields[i]->Value;
        }
        static_cast<TlotBaseFigures&>(FTo.BaseValues) = FFrom.BaseValues;
        FTo.BaseValues.Evaluator.DecimalSeparator = FFrom.BaseValues.Evaluator.DecimalSeparator;
        FLines.emplace(&FFrom.BaseValues.SiteValue, &FTo.BaseValues.SiteValue);
        FLines.emplace(&FFrom.BaseValues.Build, &FTo.BaseValues.Build);
        static_cast<TlotCashflowResults&>(FTo.Cashflow) = FFrom.Cashflow;
    }

    /// The lists of the last calculation, which refer to lines.
    void CopyLists() {
        for (const TlotCashflowItem* const line : FFrom.Cashflow.Items) {
            FTo.Cashflow.Items.push_back(&InCopy(line));
        }
        for (const TlotVariable& variable : FFrom.Vars.Items()) {
            FTo.Vars.Add(variable.Name, InCopy(variable.Line));
        }
    }

    [[nodiscard]] TlotCashflowItem& InCopy(const TlotCashflowItem* line) const {
        const auto found = FLines.find(line);
        if (found == FLines.end()) {
            throw EAssertionFailed();
        }
        return *found->second;
    }

    const TlotProject& FFrom;
    TlotProject& FTo;
    std::unordered_map<const TlotCashflowItem*, TlotCashflowItem*> FLines;
};

} // namespace

std::unique_ptr<TlotProject> TlotProject::Copy() const {
    auto copy = std::make_unique<TlotProject>(StartDate);
    TProjectCopier(*this, *copy).Run();
    return copy;
}
