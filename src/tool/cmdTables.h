// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tool/toolCommands.h"

/// `tables FILE`: what the reports read, as JSON.
class TTablesCommand final : public TToolCommand {
public:
    CLI::App* Register(CLI::App& app) override;
    void Run(TToolSession& session) override;

private:
    std::string FFile;
    int FKind = 0;
};
