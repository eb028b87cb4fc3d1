// SPDX-License-Identifier: GPL-3.0-or-later
//
// The whole monthly cashflow as one sheet: a row for every line, block by block, a column for every month. Money is
// signed by what it does to the project: costs are negative.
#pragma once

#include "model/lotProject.h"
#include "reporting/lotSpreadsheetPage.h"

#include <string>

struct TlotCashflowSheetOptions {
    bool ShowAccountCodes = false; ///< A column of account codes after the labels.
    bool ShowTotals = false;       ///< A column of totals before the months.
};

/// Writes the sheet afresh, in one batch. The project must be calculated. `fontSize` in points.
void BuildCashflowSheet(TSpreadsheetPage& page, const TlotProject& project, const TlotCashflowSheetOptions& options,
                        const std::string& fontName, int fontSize, const TNumberLocale& locale);
