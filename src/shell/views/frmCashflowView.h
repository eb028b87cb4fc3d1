// SPDX-License-Identifier: GPL-3.0-or-later
//
// The whole monthly cashflow as a read-only sheet, which can be saved as a workbook and printed.
#pragma once

#include "reporting/lotSpreadsheetPage.h"
#include "shell/base/lotDesktop.h"
#include "shell/base/lotViewForm.h"

class QCheckBox;
class TSpreadsheetView;

class TCashflowViewForm : public TViewForm {
    Q_OBJECT

public:
    explicit TCashflowViewForm(const TlotDesktop& desktop);
    ~TCashflowViewForm() override;

    void Refresh() override;

    [[nodiscard]] const TSpreadsheetPage& Page() const noexcept { return FPage; }
    [[nodiscard]] TSpreadsheetView& Sheet() const noexcept { return *FSheet; }

private:
    void btnSaveClick();
    void btnPrintClick();

    TlotDesktop FDesktop;
    TSpreadsheetPage FPage;
    TSpreadsheetView* FSheet; // These belong to the widget.
    QCheckBox* chkDisplayAccountCodes;
    QCheckBox* chkDisplayTotals;
};
