// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/lotViewHost.h"

#include "app/datProject.h"

void TViewHost::BringToFront(TViewForm& view) {
    FArea.setCurrentWidget(&view);
    if (OnFront) {
        OnFront(view);
    }
}

TViewForm& TViewHost::FrontView() const {
    return dynamic_cast<TViewForm&>(*FArea.currentWidget());
}

void TViewHost::Show(TViewForm& view, TlotViewRule rule) {
    if (rule != TlotViewRule::WithoutLeave) {
        FCurrent->Leave();
    }
    switch (rule) {
    case TlotViewRule::ReadsResults:
        FData.Recalculate();
        FData.BuildReportTables(TlotReportKind::Appraisal);
        view.Refresh();
        BringToFront(view);
        break;
    case TlotViewRule::RefreshThenFront:
        view.Refresh();
        BringToFront(view);
        break;
    case TlotViewRule::FrontThenRefresh:
    case TlotViewRule::WithoutLeave:
        BringToFront(view);
        view.Refresh();
        break;
    case TlotViewRule::FrontOnly: BringToFront(view); break;
    }
    FCurrent = &view;
}
