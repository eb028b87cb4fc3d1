// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/lotController.h"

#include <utility>

TlotController::TlotController(TProjectData& data, TReportData& reports, const TlotServices& services,
                               TSADialog& sensitivity, std::function<void()> showUserSettings)
    : FData(data),
      FServices(services),
      FSADialog(sensitivity),
      FShowUserSettings(std::move(showUserSettings)),
      FReports2(MakeReports2(reports)),
      FReports4(MakeReports4(reports)) {
    Use(FReports4);
    FData.SAModelNew().Commands = &FCommands;
}

void TlotController::Use(const TlotReportLibrary& library) {
    FCommands.Clear();
    RegisterReportCommands(FCommands, library, FServices.Busy);
    FReports = &library;
}

void TlotController::ShowReport(std::string_view name) {
    FData.Recalculate();
    if (FData.CheckUnitsShow()) {
        FCommands.Execute(name);
    }
}

void TlotController::SaveReport(std::string_view name, const std::string& fileName) {
    FReports->Find(name).SaveToFile(fileName);
}

void TlotController::ShowSensitivity() {
    FData.Recalculate();
    if (FData.CheckUnitsShow()) {
        FSADialog.Execute();
    }
}
