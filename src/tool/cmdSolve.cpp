// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipText.h"
#include "model/lotMeasures.h"
#include "tool/lotJson.h"
#include "tool/toolCommands.h"

#include <algorithm>
#include <ostream>
#include <vector>

namespace {

/// The measure of that keyword, if it has a search of its own; null otherwise.
const TlotMeasureInfo* Searched(std::string_view keyword) {
    const TlotMeasureInfo* const measure = FindMeasure(keyword);
    return measure == nullptr || measure->Search == TlotMeasureSearch::None ? nullptr : measure;
}

/// "PROFIT, PROFITONCOST, ... or IRR".
std::string SearchedKeywords() {
    std::vector<std::string_view> keywords;
    for (const TlotMeasureInfo& measure : Measures()) {
        if (measure.Search != TlotMeasureSearch::None) {
            keywords.push_back(measure.Keyword);
        }
    }
    std::string text;
    for (const std::string_view keyword : keywords) {
        text += text.empty() ? "" : keyword == keywords.back() ? " or " : ", ";
        text += keyword;
    }
    return text;
}

/// Any other keyword of a formula is searched for too.
std::string CheckMeasure(const std::string& measure) {
    const auto same = [&](std::string_view keyword) { return vip::SameText(keyword, measure); };
    if (Searched(measure) != nullptr || std::ranges::any_of(TlotBaseValues::Keywords(), same)) {
        return {};
    }
    return measure + " is no measure; try " + SearchedKeywords();
}

} // namespace

CLI::App* TSolveCommand::Register(CLI::App& app) {
    CLI::App* const command = app.add_subcommand("solve", "Solve the site value that gives a measure");
    command->add_option("FILE", FFile, "Project file")->required();
    command->add_option("--measure", FMeasure, SearchedKeywords())->required()->check(CheckMeasure);
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
    const TlotMeasureInfo* const measure = Searched(FMeasure);
    const double answer = measure == nullptr ? project.SolveSiteValue(FMeasure, FTarget)
                                             : SolveFor(project, measure->Measure, FTarget).SiteValue;
    if (FJson) {
        nlohmann::ordered_json json;
        json["SiteValue"] = answer;
        json["calc"] = ProjectJson(project);
        session.Out << JsonText(json) << '\n';
    } else {
        session.Out << vip::NumberToText(answer, TNumberLocale{}) << '\n';
    }
}
