// SPDX-License-Identifier: GPL-3.0-or-later
//
// A controller for tests that makes no reports.
#pragma once

#include "app/lotController.h"
#include "common/vipErrors.h"

#include <fstream>
#include <string>
#include <string_view>

/// Writes down the reports that are asked for, and makes a file of each.
class TFakeController final : public TlotCustomController {
public:
    std::string Saved;
    std::string Broken; ///< The report that fails.

    void ShowReport(std::string_view /*name*/) override {}
    void SaveReport(std::string_view name, const std::string& fileName) override {
        if (name == Broken) {
            throw ELotError("broken");
        }
        Saved += std::string(name) + "|";
        std::ofstream(fileName) << name;
    }
    void ShowSensitivity() override {}
    void UseFR2() override {}
    void UseFR4() override {}
    void ShowUserSettings() override {}
};
