// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/views/frmCashflowView.h"

#include "app/lotFailures.h"
#include "reporting/lotCashflowSheet.h"
#include "reporting/lotWorkbook.h"
#include "shell/base/lotLook.h"
#include "shell/base/lotViewPanel.h"
#include "widgets/lotSheetPreview.h"
#include "widgets/lotSpreadsheetView.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

TCashflowViewForm::TCashflowViewForm(const TlotDesktop& desktop)
    : FDesktop(desktop),
      FSheet(new TSpreadsheetView(FPage, FDesktop.Locale, this)),
      chkDisplayAccountCodes(new QCheckBox("Display Account Codes", this)),
      chkDisplayTotals(new QCheckBox("Display Totals", this)) {
    setObjectName("CashflowViewForm");
    FSheet->setObjectName("cxBook");
    FSheet->setAccessibleName("Cashflow");
    chkDisplayAccountCodes->setObjectName("chkDisplayAccountCodes");
    chkDisplayTotals->setObjectName("chkDisplayTotals");
    auto* const save = new QPushButton(look::Icon("save"), "Save", this);
    save->setObjectName("btnSave");
    save->setToolTip("Save the sheet as a workbook");
    auto* const print = new QPushButton(look::Icon("print"), "Print", this);
    print->setObjectName("btnPrint");
    print->setToolTip("Preview and print the sheet");

    auto* const panel = new TViewPanel("Cashflow", this);
    for (QWidget* const tool : std::initializer_list<QWidget*>{chkDisplayAccountCodes, chkDisplayTotals, save, print}) {
        panel->Tools().addWidget(tool);
    }
    panel->Body().addWidget(FSheet);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(panel);

    connect(save, &QPushButton::clicked, this, [this] { Guarded([this] { btnSaveClick(); }); });
    connect(print, &QPushButton::clicked, this, [this] { Guarded([this] { btnPrintClick(); }); });
    connect(chkDisplayAccountCodes, &QCheckBox::toggled, this, &TCashflowViewForm::Refresh);
    connect(chkDisplayTotals, &QCheckBox::toggled, this, &TCashflowViewForm::Refresh);
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
        FDesktop.Files.AskSave({"Excel Workbook (*.xls)|*.xls|Excel Workbook (*.xlsx)|*.xlsx|"
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
