// SPDX-License-Identifier: GPL-3.0-or-later
//
// The views of the main window: which one is in front, which one is current, and what happens on the way from one to
// the next. The two can differ: a new project brings the units to the front without making them current.
#pragma once

#include "shell/base/lotViewForm.h"

#include <QStackedWidget>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

class TProjectData;

/// What is done when a view is shown. The differences are deliberate: views that only read results make them current
/// first, the sheets of inputs just come to the front, and the costs and funding views leave a pending edit of the view
/// that they replace where it is.
enum class TlotViewRule : std::uint8_t {
    ReadsResults,     ///< Leave, recalculate, rebuild the report tables, refresh, front.
    FrontThenRefresh, ///< Leave, front, refresh.
    RefreshThenFront, ///< Leave, refresh, front.
    WithoutLeave,     ///< Front, refresh.
    FrontOnly,        ///< Leave, front.
};

class TViewHost {
public:
    TViewHost(QStackedWidget& area, TProjectData& data) : FArea(area), FData(data) {}

    /// Makes a view of that kind, filling the area, parked behind the others.
    template <typename TView, typename... TArguments> TView& Add(TArguments&&... arguments) {
        auto view = std::make_unique<TView>(std::forward<TArguments>(arguments)...);
        TView& added = *view;
        FViews.push_back(&added);
        FArea.addWidget(view.release()); // The area owns it now.
        return added;
    }

    void Show(TViewForm& view, TlotViewRule rule);
    /// Brings a view to the front and nothing else.
    void BringToFront(TViewForm& view);
    void SetCurrent(TViewForm& view) noexcept { FCurrent = &view; }

    [[nodiscard]] TViewForm& CurrentView() const { return *FCurrent; }
    [[nodiscard]] TViewForm& FrontView() const;
    [[nodiscard]] const std::vector<TViewForm*>& Views() const noexcept { return FViews; }

    /// The view in front is another one.
    std::function<void(const TViewForm&)> OnFront;

private:
    QStackedWidget& FArea;
    TProjectData& FData;
    std::vector<TViewForm*> FViews; // In the order in which they were made; owned by the area.
    TViewForm* FCurrent = nullptr;
};
