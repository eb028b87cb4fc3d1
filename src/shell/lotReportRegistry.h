// SPDX-License-Identifier: GPL-3.0-or-later
//
// The commands that show a report, with the name by which the controller knows it.
#pragma once

#include "shell/lotMainActions.h"

#include <span>

struct TlotReportEntry {
    TlotAction Action;
    const char* Report;
};

[[nodiscard]] std::span<const TlotReportEntry> ReportRegistry();
