// SPDX-License-Identifier: GPL-3.0-or-later
#include "tool/lotAppraisalText.h"
#include "tool/lotJson.h"
#include "tool/toolCommands.h"

#include <ostream>

CLI::App* TCalcCommand::Register(CLI::App& app) {
    CLI::App* const command = app.add_subcommand("calc", "Compute a project and print its appraisal");
    command->add_option("FILE", FFile, "Project file (.lot or .ltt)")->required();
    command->add_flag("--json", FJson, "Print everything computed, as JSON");
    command->add_option("--passes", FPasses, "How often to recalculate (figures that a base formula carries over show)")
        ->check(CLI::Range(1, 10'000))
        ->capture_default_str();
    return command;
}

void TCalcCommand::Run(TToolSession& session) {
    session.Open(FFile);
    for (int pass = 0; pass < FPasses; ++pass) {
        session.Data().Recalculate();
    }
    session.Out << (FJson ? JsonText(ProjectJson(session.Project())) + "\n"
                          : AppraisalText(session.Project(), session.Locale));
}
