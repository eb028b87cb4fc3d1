// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/lotUserSettings.h"
#include "reporting/lotWorkbook.h"
#include "tool/toolCommands.h"

CLI::App* TCashflowCommand::Register(CLI::App& app) {
    CLI::App* const command = app.add_subcommand("cashflow", "Save the monthly cashflow as a sheet");
    command->add_option("FILE", FFile, "Project file")->required();
    command->add_option("OUT", FOut, "Sheet to write: .xls, .xlsx or .csv")
        ->required()
        ->check([](const std::string& name) {
            return IsWorkbookName(name) ? std::string() : name + " is no .xls, .xlsx or .csv file";
        });
    command->add_flag("--accounts", FOptions.ShowAccountCodes, "With a column of account codes");
    command->add_flag("--totals", FOptions.ShowTotals, "With a column of totals");
    return command;
}

void TCashflowCommand::Run(TToolSession& session) {
    session.Open(FFile);
    session.Data().Recalculate();
    const TlotViewFont font; // The user's own choice is for the screen.
    TSpreadsheetPage page;
    BuildCashflowSheet(page, session.Project(), FOptions, font.Name, font.Size, session.Locale);
    session.Messages.Subject = FOut;
    SaveWorkbook(page, FOut, session.Locale);
}
