// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipText.h"
#include "tool/lotJson.h"
#include "tool/toolCommands.h"

#include <algorithm>
#include <ostream>

namespace {

constexpr const char* EquityIRR = "IRR";

std::string CheckMeasure(const std::string& measure) {
    const auto same = [&](std::string_view keyword) { return vip::SameText(keyword, measure); };
    if (same(EquityIRR) || std::ranges::any_of(TlotBaseValues::Keywords(), same)) {
        return {};
    }
    return measure + " is no measure; try PROFIT, PROFITONCOST, PROFITONGDV, PROFITONNDV, RENTALYIELD or IRR";
}

} // namespace

CLI::App* TSolveCommand::Register(CLI::App& app) {
    CLI::App* const command = app.add_subcommand("solve", "Solve the site value that gives a measure");
    command->add_option("FILE", FFile, "Project file")->required();
    command->add_option("--measure", FMeasure, "PROFIT, PROFITONCOST, PROFITONGDV, PROFITONNDV, RENTALYIELD or IRR")
        ->required()
        ->check(CheckMeasure);
    command->add_option("--target", FTarget, "What the measure is to be: money, or percent")->required();
    command->add_flag("--json", FJson, "Print the answer and everything computed, as JSON");
    return command;
}

void TSolveCommand::Run(TToolSession& session) {
    session.Open(FFile);
    TlotProject& project = session.Project();
    // The file's own target would be met first, and its search is not wanted here.
    project.ResidualTarget = TlotResidualTarget::NoTarget;
    session.Data().Recalculate();
    const double answer = vip::SameText(FMeasure, EquityIRR) ? project.SolveEquityIRR(FTarget)
                                                             : project.SolveSiteValue(FMeasure, FTarget);
    if (FJson) {
        nlohmann::ordered_json json;
        json["SiteValue"] = answer;
        json["calc"] = ProjectJson(project);
        session.Out << JsonText(json) << '\n';
    } else {
        session.Out << vip::NumberToText(answer, TNumberLocale{}) << '\n';
    }
}
