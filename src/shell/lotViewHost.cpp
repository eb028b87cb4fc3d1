// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/lotViewHost.h"

#include "common/vipErrors.h"

#include <algorithm>
#include <iterator>

void TViewHost::Make(std::span<const TlotViewEntry> registry) {
    FEntries.assign(registry.begin(), registry.end());
    for (const TlotViewEntry& entry : FEntries) {
        std::unique_ptr<TViewForm> view = entry.Make(FDesktop);
        FViews.push_back(view.get());
        if (entry.Mark == TlotViewMark::MarksProject) {
            view->OnChange = [&document = FDesktop.Data.Document] { document.MarkChanged(); };
        }
        FArea.addWidget(view.release()); // The area owns it now.
    }
}

std::size_t TViewHost::IndexOf(TlotAction command) const {
    const auto found = std::ranges::find(FEntries, command, &TlotViewEntry::Action);
    if (found == FEntries.end()) {
        throw ELotError("The command shows no view.");
    }
    return static_cast<std::size_t>(std::distance(FEntries.begin(), found));
}

TViewForm& TViewHost::View(TlotAction command) const {
    return *FViews[IndexOf(command)];
}

void TViewHost::BringToFront(TViewForm& view) {
    FArea.setCurrentWidget(&view);
    if (OnFront) {
        OnFront(view);
    }
}

TViewForm& TViewHost::FrontView() const {
    return dynamic_cast<TViewForm&>(*FArea.currentWidget());
}

void TViewHost::DropEdits() const {
    for (TViewForm* const view : FViews) {
        view->DropEdit();
    }
}

void TViewHost::Show(TlotAction command) {
    const std::size_t index = IndexOf(command);
    TViewForm& view = *FViews[index];
    const TlotViewRule rule = FEntries[index].Rule;
    if (rule != TlotViewRule::WithoutLeave) {
        FCurrent->Leave();
    }
    switch (rule) {
    case TlotViewRule::ReadsResults:
        FDesktop.Data.Recalculate();
        FDesktop.Data.BuildReportTables(TlotReportKind::Appraisal);
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
