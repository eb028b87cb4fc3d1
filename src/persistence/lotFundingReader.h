// SPDX-License-Identifier: GPL-3.0-or-later
//
// The walk of loans and the equity, whose forms changed most between file versions.
#pragma once

#include "model/lotProject.h"
#include "persistence/lotReadContext.h"

class TlotFundingReader {
public:
    explicit TlotFundingReader(TlotReadContext& context) : FContext(context) {}

    void ReadFunding(const TlotElement& e, TlotFunding& funding);
    void ReadEquity(const TlotElement& e, TlotEquity& equity);

private:
    void ReadLoan(const TlotElement& e, TlotFunding& funding);
    void ReadOldShare(const TlotElement& e, TlotLoan& loan) const;
    void ReadLoanChild(const TlotElement& e, TlotLoan& loan);

    TlotReadContext& FContext;
};
