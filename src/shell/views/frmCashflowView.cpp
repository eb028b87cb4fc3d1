// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/views/frmCashflowView.h"

#include "reporting/lotCashflowSheet.h"
#include "reporting/lotWorkbook.h"
#include "shell/base/lotGuardedSlot.h"
#include "shell/base/lotLook.h"
#include "widgets/lotSheetPreview.h"
#include "widgets/lotSpreadsheetView.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

TCashflowViewForm::TCashflowViewForm(const TlotDesktop& desktop)
    : TViewForm("Cashflow"),
      FDesktop(desktop),
      FSheet(new TSpreadsheetView(FPage, FDesktop.Locale, this)),
      chkDisplayAccountCodes(new QCheckBox("Display Account Codes", this)),
      chkDisplayTotals(new QCheckBox("Display Totals", this)) {
    setObjectName("CashflowViewForm");
    FSheet->setObjectName("cxBook");
    FSheet->setAccessibleName("Cashflow");
    chkDisplayAccountCodes->setObjectName("chkDisplayAccountCodes");
    chkDisplayTotals->setObjectName("chkDisplayTotals");
    for (QCheckBox* const box : {chkDisplayAccountCodes, chkDisplayTotals}) {
        Tools().addWidget(box);
        OnSignal(*box, &QCheckBox::toggled, *this, [this] { Refresh(); });
    }
    AddTool({"btnSave", "Save", "Save the sheet as a workbook", {}, "save"}, [this] { btnSaveClick(); });
    AddTool({"btnPrint", "Print", "Preview and print the sheet", {}, "print"}, [this] { btnPrintClick(); });
    Body().addWidget(FSheet);
}

TCashflowViewForm::~TCashflowViewForm() {
    delete FSheet; // Before its page, which the toolkit would not do.
}

void TCashflowViewForm::Refresh() {
    const TlotViewFont& font = FDesktop.App.UserSettings.CashflowView;
    BuildCashflowSheet(
        FPage, FDesktop.Data.Project(),
        {.ShowAccountCodes = chkDisplayAccountCodes->isChecked(), .ShowTotals = chkDisplayTotals->isChecked()},
        font.Name, font.Size, FDesktop.Locale);
}

void TCashflowViewForm::btnSaveClick() {
    const std::optional<std::string> name =
        FDesktop.Services.Files.AskSave({"Excel Workbook (*.xls)|*.xls|Excel Workbook (*.xlsx)|*.xlsx|"
                                         "Comma-Separated Values (*.csv)|*.csv",
                                         FDesktop.App.FilesFolder,
                                         {},
                                         "xls"});
    if (name) {
        const TlotBusy busy(FDesktop.Services.Busy);
        SaveWorkbook(FPage, *name, FDesktop.Locale);
    }
}

void TCashflowViewForm::btnPrintClick() {
    TSheetPreview preview(FPage, "Cashflow", FDesktop.Locale, look::Icon, this);
    preview.exec();
}
