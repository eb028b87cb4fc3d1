// SPDX-License-Identifier: GPL-3.0-or-later
//
// The long-lived objects below the screens, for tests of what the screens do without a window.
#pragma once

#include "app/datProject.h"
#include "app/lotSystem.h"
#include "support/lotFiles.h"

#include <gtest/gtest.h>

#include <string>

/// Hears what is told.
class TListener final : public TlotMessageService, public TlotBusyService {
public:
    std::string Told;

    void Show(TlotMessageKind /*kind*/, std::string_view text) override { Told += std::string(text) + "|"; }
    void Begin() override {}
    void End() override {}
};

class TEditingTest : public testing::Test {
protected:
    [[nodiscard]] TlotProject& Project() { return Data.Project(); }

    TListener Listener;
    TlotFixedClock Clock{TestToday};
    TlotOptions Options;
    TlotSystem System{TestToday};
    TProjectData Data{System, Options, TlotServices{Listener, Clock, Listener}, PointLocale};
};
