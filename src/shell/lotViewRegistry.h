// SPDX-License-Identifier: GPL-3.0-or-later
//
// The views of the main window: a row for each.
#pragma once

#include "shell/base/lotDesktop.h"
#include "shell/base/lotViewForm.h"
#include "shell/lotMainActions.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>

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

/// Whether OnChange of a view marks the project as changed.
enum class TlotViewMark : bool { Silent, MarksProject };

struct TlotViewEntry {
    TlotAction Action; ///< The command that shows it.
    TlotViewRule Rule;
    TlotViewMark Mark;
    std::function<std::unique_ptr<TViewForm>(const TlotDesktop&)> Make;
};

/// All views, in the order in which they are made.
[[nodiscard]] std::span<const TlotViewEntry> ViewRegistry();
