// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tool/toolCommands.h"

#include <string>

/// `report FILE NAME OUT`: a printed report, in the format that OUT's extension names.
class TReportCommand final : public TToolCommand {
public:
    CLI::App* Register(CLI::App& app) override;
    void Run(TToolSession& session) override;

private:
    std::string FFile;
    std::string FName;
    std::string FOut;
    std::string FTemplate;
    std::string FSystemFolder;
};
