// SPDX-License-Identifier: GPL-3.0-or-later
//
// How the report tables are filled, a group of tables a file. Each function adds to empty tables.
#pragma once

#include "reporting/lotReportTables.h"

/// What the tables are filled from.
struct TlotReportSource {
    TlotReportKind Kind;
    const TlotProject& Project;
    const TNumberLocale& Locale;
    const TlotReportContext& Context;

    [[nodiscard]] std::string Picture(std::string_view mask, double value) const {
        return vip::FormatMask(mask, value, Locale);
    }
    [[nodiscard]] std::string Percent(double value) const { return Picture("0.000%", value); }
    /// The date of a month, which may lie before the first.
    [[nodiscard]] double MonthDate(int month) const;
    /// What the units' build comes to.
    [[nodiscard]] double BuildCost() const { return Project.BaseValues.Build.Amount; }
    [[nodiscard]] double SiteValue() const { return Project.BaseValues.SiteValue.Amount; }
};

/// SystemData, CompanyData, ProjectData, AddressData, AppraisalNotes.
void FillHeadTables(TlotReportTables& tables, const TlotReportSource& source);
/// UnitData, UnitAreaData, UnitMiscData.
void FillUnitTables(TlotReportTables& tables, const TlotReportSource& source);
void FillItemData(TlotTable& table, const TlotReportSource& source);
void FillTimescaleData(TlotTable& table, const TlotReportSource& source);
void FillFinanceData(TlotTable& table, const TlotReportSource& source);
void FillSummaryData(TlotTable& table, const TlotReportSource& source);
void FillDynamicSummaryData(TlotTable& table, const TlotReportSource& source);
void FillTimingData(TlotTable& table, const TlotReportSource& source);
void FillGroupData(TlotTable& table, const TlotReportSource& source);
void FillSectionGroupData(TlotTable& table, const TlotReportSource& source);
void FillChartData(TlotTable& table, const TlotReportSource& source);
