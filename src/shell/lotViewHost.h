// SPDX-License-Identifier: GPL-3.0-or-later
//
// The views of the main window: which one is in front, which one is current, and what happens on the way from one to
// the next. The two can differ: a new project brings the units to the front without making them current.
#pragma once

#include "shell/lotViewRegistry.h"

#include <QStackedWidget>
#include <functional>
#include <span>
#include <vector>

class TViewHost {
public:
    TViewHost(QStackedWidget& area, const TlotDesktop& desktop) : FArea(area), FDesktop(desktop) {}

    /// Makes the views of the registry in its order, each filling the area. Once, before anything below.
    void Make(std::span<const TlotViewEntry> registry);

    /// The view that the command shows; throws ELotError for a command that shows none.
    [[nodiscard]] TViewForm& View(TlotAction command) const;
    /// What the command does.
    void Show(TlotAction command);
    /// Brings a view to the front and nothing else.
    void BringToFront(TViewForm& view);
    void SetCurrent(TViewForm& view) noexcept { FCurrent = &view; }

    [[nodiscard]] TViewForm& CurrentView() const { return *FCurrent; }
    [[nodiscard]] TViewForm& FrontView() const;
    /// In the order in which they were made.
    [[nodiscard]] const std::vector<TViewForm*>& Views() const noexcept { return FViews; }

    /// The edit in progress ends, or is given up, wherever it is.
    void EndEdit() const { FrontView().EndEdit(); }
    void DropEdits() const;

    /// The view in front is another one.
    std::function<void(const TViewForm&)> OnFront;

private:
    [[nodiscard]] std::size_t IndexOf(TlotAction command) const;

    QStackedWidget& FArea;
    TlotDesktop FDesktop;
    std::vector<TlotViewEntry> FEntries;
    std::vector<TViewForm*> FViews; // One an entry; owned by the area.
    TViewForm* FCurrent = nullptr;
};
