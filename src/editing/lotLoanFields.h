// SPDX-License-Identifier: GPL-3.0-or-later
//
// Which fields of a loan mean anything, by its type: one table for the three forms in which loans are edited, with the
// two places where the forms differ on purpose.
#pragma once

#include "finance/lotLoan.h"

#include <cstdint>

enum class TlotLoanField : std::uint8_t {
    Name,
    LoanType,
    Active,
    BorrowPercentage,
    RepayPercentage,
    VariablePercentage,
    LoanSource,
    Amount,
    Maximum,
    Base,
    Start,
    Period,
    FixedRate,
    VariableRate,
    Fees,
    FeesPercentage,
};

enum class TlotLoanForm : std::uint8_t { Panel, Grid, Frame };

/// Whether the field applies to a loan of these terms in that form; one that doesn't is closed to editing.
[[nodiscard]] bool LoanFieldApplies(TlotLoanField field, const TlotLoanTerms& loan, TlotLoanForm form);

/// How the fee's amount is shown: as money, or as a percentage where it is one.
[[nodiscard]] inline const char* LoanFeesMask(const TlotLoanFees& fees) {
    return fees.Percentage ? "0.000%" : ",0";
}
