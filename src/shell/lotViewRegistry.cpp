// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/lotViewRegistry.h"

#include "shell/views/frmCashflowView.h"
#include "shell/views/frmHomeView.h"
#include "shell/views/frmSummaryView.h"
#include "shell/views/lotNotBuiltView.h"

#include <QString>
#include <vector>

namespace {

using TMake = std::function<std::unique_ptr<TViewForm>(const TlotDesktop&)>;

TMake NotBuilt(const char* screen) {
    return [screen](const TlotDesktop&) { return std::make_unique<TNotBuiltView>(screen); };
}

/// Where a firm may have put texts of its own for a view.
QString BrandingFolder(const TlotDesktop& desktop, const char* view) {
    return QString::fromStdString(desktop.App.ProgramFolder) + "Branding/" + view;
}

std::unique_ptr<TViewForm> Summary(const TlotDesktop& desktop) {
    return std::make_unique<TSummaryViewForm>(desktop.Data, desktop.Locale);
}

std::unique_ptr<TViewForm> Cashflow(const TlotDesktop& desktop) {
    return std::make_unique<TCashflowViewForm>(desktop);
}

std::unique_ptr<TViewForm> Home(const TlotDesktop& desktop) {
    return std::make_unique<THomeViewForm>(BrandingFolder(desktop, "Home"));
}

} // namespace

std::span<const TlotViewEntry> ViewRegistry() {
    using enum TlotAction;
    using enum TlotViewRule;
    using enum TlotViewMark;
    static const std::vector<TlotViewEntry> entries{
        {ViewCosts, WithoutLeave, MarksProject, NotBuilt("Costs")},
        {ViewUnits, FrontThenRefresh, MarksProject, NotBuilt("Units")},
        {ViewUnitGrid, FrontThenRefresh, MarksProject, NotBuilt("Units (Quick Edit)")},
        {ViewAccountCodes, RefreshThenFront, Silent, NotBuilt("Account Codes")},
        {ViewSummary, ReadsResults, Silent, Summary},
        {ViewCashflow, ReadsResults, Silent, Cashflow},
        {ViewTimescale, ReadsResults, MarksProject, NotBuilt("Timescale")},
        {ViewFunding, WithoutLeave, MarksProject, NotBuilt("Funding")},
        {ViewFundingGrid, WithoutLeave, MarksProject, NotBuilt("Funding")},
        {ViewFundingAdvGrid, WithoutLeave, MarksProject, NotBuilt("Funding (AdvGrid)")},
        {ViewHome, FrontOnly, Silent, Home},
    };
    return entries;
}
