// SPDX-License-Identifier: GPL-3.0-or-later
#include "tool/lotTool.h"

#include "common/vipDate.h"
#include "tool/cmdReport.h"
#include "tool/cmdSensitivity.h"
#include "tool/cmdTables.h"
#include "tool/toolCommands.h"

#include <new>
#include <optional>
#include <ostream>

namespace {

constexpr const char* Footer =
    "Exit codes: 0 success, 1 refused input or a calculation that ends in an error, 2 wrong usage.";

std::string CheckLocale(const std::string& name) {
    return vip::FindNumberLocale(name) ? std::string() : name + " is no known locale";
}

std::string CheckDate(const std::string& text) {
    try {
        return vip::DateFromFile(text) != 0 ? std::string() : text + " is no date of the form YYYY-MM-DD";
    } catch (const EConvertError&) {
        return text + ": there is no such date";
    }
}

/// Runs the command, telling what ends it.
TToolExit RunCommand(TToolCommand& command, TToolSession& session) {
    try {
        command.Run(session);
        session.Out.flush();
        if (!session.Out) {
            throw ELotError("cannot write to standard output");
        }
        return TToolExit::Success;
    } catch (const EToolRefused&) {
        return TToolExit::Refused;
    } catch (const EToolUsage& error) {
        session.Messages.Subject.clear();
        session.Messages.Fail(error.what());
        return TToolExit::WrongUsage;
    } catch (const std::bad_alloc&) {
        session.Messages.Fail("not enough memory");
    } catch (const std::exception& error) {
        session.Messages.Fail(error.what());
    }
    return TToolExit::Refused;
}

} // namespace

TToolExit RunTool(int argc, const char* const* argv, std::ostream& out, std::ostream& err) {
    CLI::App app{"lotcalc: property development appraisals without a window", "lotcalc"};
    app.footer(Footer);
    app.require_subcommand(1);
    std::string locale;
    std::string date;
    app.add_option("--locale", locale, "Whose number separators to write with, such as en_GB or de_DE")
        ->check(CheckLocale);
    app.add_option("--date", date, "Stands in for today, as YYYY-MM-DD")->check(CheckDate);
    app.set_version_flag("--version", LOTMASTER_VERSION);

    const auto commands = AllToolCommands();
    std::vector<CLI::App*> parsers;
    for (const auto& command : commands) {
        parsers.push_back(command->Register(app));
        parsers.back()->fallthrough();
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error, out, err) == 0 ? TToolExit::Success : TToolExit::WrongUsage;
    }
    const TNumberLocale separators =
        locale.empty() ? vip::EnvironmentNumberLocale() : vip::FindNumberLocale(locale).value_or(TNumberLocale{});
    const double today = date.empty() ? TlotSystemClock().Today() : vip::DateFromFile(date);
    TToolSession session(out, err, separators, today);
    for (std::size_t i = 0; i < commands.size(); ++i) {
        if (parsers[i]->parsed()) {
            return RunCommand(*commands[i], session);
        }
    }
    return TToolExit::WrongUsage;
}

std::vector<std::unique_ptr<TToolCommand>> AllToolCommands() {
    std::vector<std::unique_ptr<TToolCommand>> commands;
    commands.push_back(std::make_unique<TCalcCommand>());
    commands.push_back(std::make_unique<TNewCommand>());
    commands.push_back(std::make_unique<TTestProjectCommand>());
    commands.push_back(std::make_unique<TConvertCommand>());
    commands.push_back(std::make_unique<TReportCommand>());
    commands.push_back(std::make_unique<TCashflowCommand>());
    commands.push_back(std::make_unique<TSolveCommand>());
    commands.push_back(std::make_unique<TSensitivityCommand>());
    commands.push_back(std::make_unique<TTablesCommand>());
    return commands;
}
