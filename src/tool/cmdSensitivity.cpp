// SPDX-License-Identifier: GPL-3.0-or-later
#include "tool/cmdSensitivity.h"

#include "app/lotSensitivityReport.h"
#include "common/vipText.h"
#include "reportengine/frxReport.h"
#include "reportengine/pages/lotReportFonts.h"
#include "tool/lotJson.h"
#include "tool/lotTextTable.h"

#include <cmath>
#include <optional>
#include <ostream>
#include <utility>

namespace {

/// "NAME=NUMBER" apart.
std::pair<std::string, double> Assignment(const std::string& text, const char* option) {
    const std::size_t equals = text.rfind('=');
    const std::optional<double> number =
        equals == std::string::npos ? std::nullopt : vip::PlainNumber(std::string_view(text).substr(equals + 1));
    if (!number) {
        throw EToolUsage(std::string(option) + " takes \"CATEGORY=NUMBER\", not " + text);
    }
    return {text.substr(0, equals), *number};
}

nlohmann::ordered_json PageJson(const TSAPage& page) {
    return {{"rowTitle", page.RowTitle},
            {"columnTitle", page.ColumnTitle},
            {"resultTitle", page.ResultTitle},
            {"rowLabels", page.RowLabels},
            {"columnLabels", page.ColumnLabels},
            {"rowsStepped", page.RowsStepped},
            {"columnsStepped", page.ColumnsStepped},
            {"cells", page.Cells}};
}

/// A cell of several results on one line.
std::string OneLine(const std::string& cell) {
    std::string line;
    for (const char c : cell) {
        line += c == '\r' ? " /" : std::string(1, c == '\n' ? ' ' : c);
    }
    return line;
}

std::string PageText(const TSAPage& page) {
    std::string text = page.RowTitle;
    if (!page.ColumnTitle.empty()) {
        text += " down, " + page.ColumnTitle + " across: " + page.ResultTitle;
    }
    TTextTable table(1);
    std::vector<std::string> head = {""};
    head.insert(head.end(), page.ColumnLabels.begin(), page.ColumnLabels.end());
    table.Add(std::move(head));
    for (std::size_t row = 0; row < page.Cells.size(); ++row) {
        std::vector<std::string> cells = {page.RowLabels[row]};
        for (const std::string& cell : page.Cells[row]) {
            cells.push_back(OneLine(cell));
        }
        table.Add(std::move(cells));
    }
    return text + "\n\n" + table.Text(2);
}

} // namespace

CLI::App* TSensitivityCommand::Register(CLI::App& app) {
    CLI::App* const command = app.add_subcommand("sensitivity", "Print a table of results over one or two categories");
    command->add_option("FILE", FFile, "Project file")->required();
    const auto list = [&](const char* option, std::vector<std::string>& values, const char* help) {
        return command->add_option(option, values, help)->expected(1)->take_all();
    };
    list("--axis", FAxes, "Category to vary: rows, and with a second one columns")->required();
    list("--result", FResults, "Result to show; several may be given")->required();
    list("--step", FSteps, "\"CATEGORY=X\": the size of one step");
    list("--percent", FPercents, "Category whose step is a percentage of each value");
    list("--count", FCounts, "\"CATEGORY=N\": how many steps");
    command->add_flag("--swap", FSwap, "Swap X/Y axes");
    command->add_flag("--old", FOld, "The older model of five by five");
    command->add_flag("--json", FJson, "Print the table as JSON");
    command->add_option("--report", FReport, "Save it as a printed report too: .pdf, .html, .rtf, .xls or .xlsx")
        ->check([](const std::string& name) {
            return ExportFormatOf(name) ? std::string() : name + " is no .pdf, .html, .rtf, .xls or .xlsx file";
        });
    return command;
}

TSACategory& TSensitivityCommand::Category(TSAModel& model, const std::string& name) {
    const int index = model.Categories.IndexOf(name);
    if (index < 0) {
        throw EToolUsage("there is no category " + name);
    }
    return model.Categories[index];
}

void TSensitivityCommand::Configure(TSAModel& model) const {
    if (FAxes.size() > 2) {
        throw EToolUsage("--axis can be given twice at most");
    }
    if (FOld && !FCounts.empty()) {
        throw EToolUsage("the older model always has five steps");
    }
    model.SelectedCategories.clear();
    for (const std::string& axis : FAxes) {
        model.SelectedCategories.push_back(&Category(model, axis));
    }
    model.SelectedResults.clear();
    for (const std::string& name : FResults) {
        const int index = model.Results.IndexOf(name);
        if (index < 0) {
            throw EToolUsage("there is no result " + name);
        }
        model.SelectedResults.push_back(&model.Results[index]);
    }
    for (const std::string& name : FPercents) {
        TSACategory& category = Category(model, name);
        if (category.Modes == TSAModes::Amounts) {
            throw EToolUsage(name + " takes amounts only");
        }
        category.PercentageStep = true;
    }
    for (const std::string& text : FSteps) {
        const auto [name, step] = Assignment(text, "--step");
        Category(model, name).Step = step;
    }
    for (const std::string& text : FCounts) {
        const auto [name, count] = Assignment(text, "--count");
        if (count < 1 || count > 1000 || count != std::trunc(count)) {
            throw EToolUsage("--count takes a whole number from 1 to 1000");
        }
        Category(model, name).StepCount = static_cast<std::int32_t>(count);
    }
    model.SwapXY = FSwap;
}

void TSensitivityCommand::Run(TToolSession& session) {
    TSAModel& model = FOld ? static_cast<TSAModel&>(session.Data().SAModelOld()) : session.Data().SAModelNew();
    // Before the file is opened, so that a wrong word is told as such whatever the file is like; and again afterwards,
    // since the file brings settings of its own.
    Configure(model);
    session.Open(FFile);
    Configure(model);
    session.Data().Recalculate();
    if (!session.Data().CheckUnitsShow()) {
        throw EToolRefused();
    }
    model.Refresh();
    TSAPage page;
    model.Calculate(page);
    if (!FReport.empty()) {
        const report::TReportGround ground;
        TfrxReport engine(session.Locale);
        TReportData reports(session.Data(), session.Options(), session.UseInstallation({}), engine, engine, nullptr);
        TlotSensitivityReport(reports).Make(page, model);
        session.Messages.Subject = FReport;
        reports.Export4(*ExportFormatOf(FReport), SensitivityCaption, FReport);
    }
    session.Out << (FJson ? JsonText(PageJson(page)) + "\n" : PageText(page));
}
