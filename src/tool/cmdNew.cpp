// SPDX-License-Identifier: GPL-3.0-or-later
#include "tool/toolCommands.h"

CLI::App* TNewCommand::Register(CLI::App& app) {
    CLI::App* const command = app.add_subcommand("new", "Write a new project with the built-in sections");
    command->add_option("OUT", FOut, "Project file to write")->required();
    return command;
}

void TNewCommand::Run(TToolSession& session) {
    session.Data().ClearProject();
    session.Data().BuildDefaultProject();
    session.Data().Recalculate();
    session.Save(FOut);
}

CLI::App* TTestProjectCommand::Register(CLI::App& app) {
    CLI::App* const command = app.add_subcommand("test-project", "Write the built-in sample project");
    command->add_option("OUT", FOut, "Project file to write")->required();
    return command;
}

void TTestProjectCommand::Run(TToolSession& session) {
    session.Data().BuildTestProject();
    session.Data().Recalculate();
    session.Save(FOut);
}
