// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/lotStatusEdits.h"

#include "shell/base/lotGuardedSlot.h"
#include "shell/dialogs/lotQuickEdit.h"
#include "shell/lotStatusPanel.h"
#include "widgets/lotClickLabel.h"

TStatusEdits::TStatusEdits(TStatusPanel& panel, const TlotDesktop& desktop, TlotWindow& window)
    : FPanel(panel), FDesktop(desktop), FWindow(window) {
    const auto edit = [this](const TClickLabel& label, void (TStatusEdits::*handler)()) {
        OnSignal(label, &TClickLabel::Clicked, FPanel, [this, handler] {
            FWindow.TakeEdits();
            (this->*handler)();
        });
    };
    edit(panel.NameLabel(), &TStatusEdits::EditName);
    edit(panel.SiteValueLabel(), &TStatusEdits::EditSiteValue);
    edit(panel.NetSiteAreaLabel(), &TStatusEdits::EditNetSiteArea);
}

void TStatusEdits::EditName() {
    TcdTextEdit edit(FPanel.NameLabel());
    edit.Value = QString::fromStdString(FDesktop.Data.Project().Name);
    if (edit.Execute()) {
        FDesktop.Data.Project().Name = edit.Value.toStdString();
        FWindow.UpdateStatus();
    }
}

void TStatusEdits::EditSiteValue() {
    if (!FDesktop.Data.CheckUnitsShow()) {
        return;
    }
    TlotProject& project = FDesktop.Data.Project();
    TcdValueEdit edit(FPanel.SiteValueLabel(), FDesktop.Locale);
    edit.Value = project.BaseValues.SiteValue.Amount;
    if (edit.Execute()) {
        project.BaseValues.SiteValue.Amount = edit.Value;
        project.ResidualTarget = TlotResidualTarget::NoTarget;
        FWindow.RefreshAll();
    }
}

void TStatusEdits::EditNetSiteArea() {
    if (!FDesktop.Data.CheckUnitsShow()) {
        return;
    }
    TcdValueEdit edit(FPanel.NetSiteAreaLabel(), FDesktop.Locale);
    edit.Value = FDesktop.Data.Project().NetSiteArea;
    edit.Format = ",0.00";
    if (edit.Execute()) {
        FDesktop.Data.Project().NetSiteArea = edit.Value;
        FWindow.RefreshAll();
    }
}
