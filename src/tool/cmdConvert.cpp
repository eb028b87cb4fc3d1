// SPDX-License-Identifier: GPL-3.0-or-later
#include "tool/toolCommands.h"

CLI::App* TConvertCommand::Register(CLI::App& app) {
    CLI::App* const command =
        app.add_subcommand("convert", "Open a project file of any version and save it as today's");
    command->add_option("IN", FIn, "Project file to read")->required();
    command->add_option("OUT", FOut, "Project file to write")->required();
    return command;
}

void TConvertCommand::Run(TToolSession& session) {
    session.Open(FIn);
    session.Data().Recalculate();
    session.Save(FOut);
}
