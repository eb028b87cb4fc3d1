// SPDX-License-Identifier: GPL-3.0-or-later
//
// The front of reports and sensitivity: the main window asks it for a report by its name and never sees a report
// object.
#pragma once

#include "app/datReport.h"
#include "app/lotReports.h"
#include "common/gxCommands.h"

#include <functional>
#include <string>
#include <string_view>

/// Opens the sensitivity front end on the model.
class TSADialog {
public:
    TSADialog() = default;
    TSADialog(const TSADialog&) = delete;
    TSADialog& operator=(const TSADialog&) = delete;
    virtual ~TSADialog() = default;

    virtual void Execute() = 0;
};

class TlotCustomController {
public:
    TlotCustomController() = default;
    TlotCustomController(const TlotCustomController&) = delete;
    TlotCustomController& operator=(const TlotCustomController&) = delete;
    virtual ~TlotCustomController() = default;

    /// Recalculates, checks that there is something to report (telling the user otherwise), and shows the report.
    /// Throws ELotError for a name that is none, and what making the report throws.
    virtual void ShowReport(std::string_view name) = 0;
    /// Makes the report of the current project, as computed, and writes it as PDF. Throws as ShowReport.
    virtual void SaveReport(std::string_view name, const std::string& fileName) = 0;
    /// Recalculates, checks, and opens the sensitivity front end.
    virtual void ShowSensitivity() = 0;
    virtual void UseFR2() = 0; ///< The reports of the older engine.
    virtual void UseFR4() = 0; ///< Those of the newer one.
    virtual void ShowUserSettings() = 0;
};

class TlotController final : public TlotCustomController {
public:
    /// All that is handed in must outlive it. `showUserSettings` opens the dialog and refreshes what depends on it.
    TlotController(TProjectData& data, TReportData& reports, const TlotServices& services, TSADialog& sensitivity,
                   std::function<void()> showUserSettings);

    void ShowReport(std::string_view name) override;
    void SaveReport(std::string_view name, const std::string& fileName) override;
    void ShowSensitivity() override;
    void UseFR2() override { Use(FReports2); }
    void UseFR4() override { Use(FReports4); }
    void ShowUserSettings() override { FShowUserSettings(); }

    [[nodiscard]] const TgxCommandLibrary& Commands() const noexcept { return FCommands; }
    [[nodiscard]] const TlotReportLibrary& Reports() const noexcept { return *FReports; }

private:
    /// Binds the show-commands to that library and makes it the one in use.
    void Use(const TlotReportLibrary& library);

    TProjectData& FData;
    TlotServices FServices;
    TSADialog& FSADialog;
    std::function<void()> FShowUserSettings;
    TlotReportLibrary FReports2;
    TlotReportLibrary FReports4;
    const TlotReportLibrary* FReports = nullptr; // Not owned: one of the two.
    TgxCommandLibrary FCommands;
};
