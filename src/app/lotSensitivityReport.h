// SPDX-License-Identifier: GPL-3.0-or-later
//
// Prints a table of a sensitivity analysis. The page is poured into tables of its own, which its templates read, with
// variables for what stands around it.
#pragma once

#include "app/datReport.h"
#include "reporting/lotTable.h"
#include "sensitivity/SAMain.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

inline constexpr const char* SensitivityCaption = "Sensitivity Analysis";

class TlotSensitivityReport {
public:
    /// `data` must outlive it.
    explicit TlotSensitivityReport(TReportData& data);

    /// Makes the pages with the newer engine: by "LotSensitivity5x5.fr3" where both axes have five steps, otherwise by
    /// "LotSensitivity.fr3". The page is one that the model computed. Throws as TReportData.
    void Make(const TSAPage& page, const TSAModel& model);

private:
    void Fill(const TSAPage& page, const TSAModel& model);
    [[nodiscard]] std::optional<TlotReportValue> Value(std::string_view name, const TSAPage& page,
                                                       const TSAModel& model) const;

    TReportData& FData;
    TlotTable FRows;    ///< RowLabel
    TlotTable FColumns; ///< ColHeader; has a current row only while a template runs across it.
    TlotTable FXItems;  ///< Of the rows: Name, Value, Include
    TlotTable FYItems;  ///< Of the columns.
    std::array<TlotTable*, 4> FTables;
};
