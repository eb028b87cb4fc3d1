// SPDX-License-Identifier: GPL-3.0-or-later
//
// The reports of the program, each known by a plain word, once for each of the two engines, and the commands that show
// them.
#pragma once

#include "app/datReport.h"
#include "app/lotServices.h"
#include "common/gxCommands.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

class TlotReport {
public:
    explicit TlotReport(std::string name) : Name(std::move(name)) {}
    TlotReport(const TlotReport&) = delete;
    TlotReport& operator=(const TlotReport&) = delete;
    virtual ~TlotReport() = default;

    const std::string Name;

    /// Makes the report of the project, which must be calculated, and opens the preview.
    virtual void Show() = 0;
    /// Makes the report and writes it as PDF.
    virtual void SaveToFile(const std::string& fileName) = 0;
    /// Makes the report: fills the tables, loads the template, prepares the pages.
    virtual void Make() = 0;
};

class TlotReportLibrary {
public:
    void Add(std::unique_ptr<TlotReport> report) { FReports.push_back(std::move(report)); }
    /// The first report of that name, ignoring case. Throws ELotError with the text "Report NAME not found!".
    [[nodiscard]] TlotReport& Find(std::string_view name) const;
    [[nodiscard]] const std::vector<std::unique_ptr<TlotReport>>& Reports() const noexcept { return FReports; }

private:
    std::vector<std::unique_ptr<TlotReport>> FReports;
};

/// "Appraisal", "Residual", "Occupational Details", "Addendum", "Front Page".
[[nodiscard]] TlotReportLibrary MakeReports2(TReportData& data);
/// The same, and "Picture".
[[nodiscard]] TlotReportLibrary MakeReports4(TReportData& data);

/// Registers the six show-commands, bound to that library, which must outlive them. "Picture" is among them whether the
/// library holds it or not.
void RegisterReportCommands(TgxCommandLibrary& commands, const TlotReportLibrary& library, TlotBusyService& busy);
