// SPDX-License-Identifier: GPL-3.0-or-later
//
// All that a report reads. A report never reads the model: the computed project is poured into these tables, where
// every phrase of the printed appraisal is composed, and a template only places their fields. docs/report-tables.md
// tells each field's meaning.
//
// `UnitAreaData` and `UnitMiscData` follow `UnitData`: they show the rows of its current unit.
#pragma once

#include "common/vipNumber.h"
#include "model/lotProject.h"
#include "reporting/lotTable.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

enum class TlotReportKind : std::uint8_t {
    Appraisal = 0, ///< And every other report.
    Residual = 1,  ///< The site value is what the report is after, so it is none of its costs.
};

/// What reports show that isn't the project's.
struct TlotReportContext {
    std::string FileName; ///< Of the open project, with its folder; empty for a new one.
    std::string Footer;
    std::vector<std::string> Company; ///< The lines that head a report.
};

class TlotReportTables {
public:
    TlotReportTables();

    TlotTable ProjectData;
    TlotTable UnitData;
    TlotTable UnitAreaData;
    TlotTable UnitMiscData;
    TlotTable ItemData;
    TlotTable SummaryData;
    TlotTable GroupData;
    TlotTable SystemData;
    TlotTable CompanyData;
    TlotTable TimescaleData;
    TlotTable ChartData;
    TlotTable TimingData;
    TlotTable AppraisalNotes;
    TlotTable AddressData;
    TlotTable FinanceData;
    TlotTable DynamicSummaryData;
    TlotTable SectionGroupData;

    /// All of them in the order above.
    [[nodiscard]] std::span<TlotTable* const> Tables() noexcept { return FTables; }
    /// The table of that name without regard to case. Throws ELotError for a name that is none.
    [[nodiscard]] TlotTable& Find(std::string_view name) const;

    /// Empties and refills every table and sends each to its first row. The project must be calculated; formatted
    /// figures take the separators of `locale`.
    void BuildReportTables(TlotReportKind kind, const TlotProject& project, const TNumberLocale& locale,
                           const TlotReportContext& context);

private:
    const std::array<TlotTable*, 17> FTables;
};
