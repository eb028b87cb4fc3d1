// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipDate.h"
#include "common/vipText.h"
#include "reporting/lotTableFillers.h"

#include <filesystem>

namespace {

/// A row for each line; a line break at the very end adds no empty row.
void AddLines(TlotTable& table, std::string_view text) {
    constexpr std::string_view lineBreak = "\r\n";
    const std::string lines = vip::NormaliseLineBreaks(text);
    for (std::size_t at = 0; at < lines.size();) {
        const std::size_t end = std::min(lines.find(lineBreak, at), lines.size());
        table.Append().Set("Text", lines.substr(at, end - at));
        at = end + lineBreak.size();
    }
}

} // namespace

void FillHeadTables(TlotReportTables& tables, const TlotReportSource& source) {
    tables.SystemData.Append().Set("Footer", source.Context.Footer);
    for (const std::string& line : source.Context.Company) {
        tables.CompanyData.Append().Set("Text", line);
    }
    const TlotProject& project = source.Project;
    tables.ProjectData.Append()
        .Set("Name", project.Name)
        .Set("Recipient", project.Recipient)
        .Set("FileName", std::filesystem::path(source.Context.FileName).filename().string())
        .Set("StartDate", vip::DayMonthYearText(project.StartDate));
    AddLines(tables.AddressData, project.Address);
    tables.AppraisalNotes.Append().Set("Text", project.AppraisalNotes);
}
