// SPDX-License-Identifier: GPL-3.0-or-later
#include "tool/cmdTables.h"

#include "common/vipDate.h"
#include "reporting/lotReportTables.h"
#include "tool/lotJson.h"

#include <ostream>
#include <type_traits>
#include <utility>

namespace {

using nlohmann::ordered_json;

/// A date is text; an empty cell, and the date that stands for none, are null.
ordered_json CellJson(const TlotField& field, const TlotCell& cell) {
    if (const auto* const date = std::get_if<double>(&cell); date != nullptr && field.Kind == TlotFieldKind::Date) {
        std::string text = vip::DateToFile(*date);
        return text.empty() ? ordered_json() : ordered_json(std::move(text));
    }
    return std::visit(
        [](const auto& value) {
            if constexpr (std::is_same_v<std::decay_t<decltype(value)>, std::monostate>) {
                return ordered_json();
            } else {
                return ordered_json(value);
            }
        },
        cell);
}

ordered_json TableJson(const TlotTable& table) {
    ordered_json rows = ordered_json::array();
    for (int i = 0; i < table.RowCount(); ++i) {
        ordered_json row = ordered_json::object();
        for (const TlotField& field : table.Fields()) {
            row[field.Name] = CellJson(field, table.Row(i).Cell(field.Name));
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

} // namespace

CLI::App* TTablesCommand::Register(CLI::App& app) {
    CLI::App* const command = app.add_subcommand("tables", "Print the tables that reports read, as JSON");
    command->add_option("FILE", FFile, "Project file")->required();
    command->add_option("--kind", FKind, "0 for the appraisal and most reports, 1 for the residual")
        ->check(CLI::Range(0, 1))
        ->capture_default_str();
    return command;
}

void TTablesCommand::Run(TToolSession& session) {
    session.Open(FFile);
    session.Data().Recalculate();
    // Not the installation's footer and company: what a script gets depends on its file alone.
    const TlotOptions options;
    TlotReportTables tables;
    tables.BuildReportTables(static_cast<TlotReportKind>(FKind), session.Project(), session.Locale,
                             {FFile, options.Footer, options.Company});
    ordered_json json;
    for (const TlotTable* const table : tables.Tables()) {
        json[table->Name()] = TableJson(*table);
    }
    session.Out << JsonText(json) << '\n';
}
