// SPDX-License-Identifier: GPL-3.0-or-later
#include "tool/cmdReport.h"

#include "app/datApp.h"
#include "app/datReport.h"
#include "app/lotReports.h"
#include "reportengine/frxReport.h"
#include "reportengine/pages/lotReportFonts.h"

#include <filesystem>

CLI::App* TReportCommand::Register(CLI::App& app) {
    CLI::App* const command = app.add_subcommand("report", "Save a printed report");
    command->add_option("FILE", FFile, "Project file")->required();
    command
        ->add_option("NAME", FName,
                     "Appraisal, Residual, \"Occupational Details\", Addendum, \"Front Page\" or Picture")
        ->required();
    command->add_option("OUT", FOut, "Document to write: .pdf, .html, .rtf, .xls or .xlsx")
        ->required()
        ->check([](const std::string& name) {
            return ExportFormatOf(name) ? std::string() : name + " is no .pdf, .html, .rtf, .xls or .xlsx file";
        });
    command->add_option("--template", FTemplate, "Template file to make the report with, in place of its own");
    command->add_option("--syspath", FSystemFolder, "Folder of the firm's settings, in place of the shared one")
        ->check(CLI::ExistingDirectory);
    return command;
}

void TReportCommand::Run(TToolSession& session) {
    const report::TReportGround ground;
    session.Open(FFile);
    // Once as the file is opened and once as the report is asked for: a leasehold's ground rent settles with the
    // second.
    session.Data().Recalculate();
    session.Data().Recalculate();
    std::string missing;
    if (!session.Data().CheckUnits(missing)) {
        throw ELotError(missing);
    }
    const TReportFolders folders = session.UseInstallation(FSystemFolder);
    TfrxReport engine(session.Locale);
    TReportData reports(session.Data(), session.Options(), folders, engine, engine, nullptr);
    if (!FTemplate.empty()) {
        reports.UseTemplate(std::filesystem::absolute(FTemplate).string());
    }
    const TlotReportLibrary library = MakeReports4(reports);
    TlotReport& report = library.Find(FName);
    report.Make();
    session.Messages.Subject = FOut;
    reports.Export4(*ExportFormatOf(FOut), report.Name, FOut);
}
