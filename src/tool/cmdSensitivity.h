// SPDX-License-Identifier: GPL-3.0-or-later
//
// `sensitivity FILE`: a table of results over one or two categories.
#pragma once

#include "sensitivity/SAMain.h"
#include "tool/toolCommands.h"

#include <string>
#include <vector>

class TSensitivityCommand final : public TToolCommand {
public:
    CLI::App* Register(CLI::App& app) override;
    void Run(TToolSession& session) override;

private:
    void Configure(TSAModel& model) const;
    [[nodiscard]] static TSACategory& Category(TSAModel& model, const std::string& name);

    std::string FFile;
    std::vector<std::string> FAxes;
    std::vector<std::string> FResults;
    std::vector<std::string> FSteps;    ///< "CATEGORY=X".
    std::vector<std::string> FPercents; ///< Categories whose step is a percentage.
    std::vector<std::string> FCounts;   ///< "CATEGORY=N".
    bool FSwap = false;
    bool FOld = false;
    bool FJson = false;
    std::string FReport;
};
