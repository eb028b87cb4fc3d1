// SPDX-License-Identifier: GPL-3.0-or-later
#include "editing/lotLoanFields.h"

#include <algorithm>
#include <array>

namespace {

constexpr unsigned Of(TlotLoanType type) {
    return 1U << static_cast<unsigned>(type);
}

struct TRow {
    TlotLoanField Field;
    unsigned Types; ///< The types of loan that it applies to.
};

constexpr unsigned Standard = Of(TlotLoanType::Standard);
constexpr unsigned Cash = Of(TlotLoanType::Cash);
constexpr unsigned Linked = Of(TlotLoanType::Linked);

/// What isn't listed applies always.
constexpr std::array<TRow, 7> Rows = {{
    {TlotLoanField::BorrowPercentage, Standard | Linked},
    {TlotLoanField::RepayPercentage, Standard | Linked},
    {TlotLoanField::LoanSource, Standard},
    {TlotLoanField::Base, Linked},
    {TlotLoanField::Amount, Cash},
    {TlotLoanField::Start, Cash},
    {TlotLoanField::Period, Cash},
}};

} // namespace

bool LoanFieldApplies(TlotLoanField field, const TlotLoanTerms& loan, TlotLoanForm form) {
    // In the grid alone, a fixed rate is closed while the rate varies.
    if (field == TlotLoanField::FixedRate && form == TlotLoanForm::Grid) {
        return !loan.VariableRate;
    }
    // In the panels alone, a fee may be a percentage for a Cash loan only.
    if (field == TlotLoanField::FeesPercentage && form == TlotLoanForm::Panel) {
        return loan.LoanType == TlotLoanType::Cash;
    }
    const auto* const row = std::ranges::find(Rows, field, &TRow::Field);
    const auto type = static_cast<unsigned>(loan.LoanType);
    return row == Rows.end() || (type < 3 && (row->Types & (1U << type)) != 0);
}
