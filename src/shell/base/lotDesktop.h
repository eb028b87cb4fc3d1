// SPDX-License-Identifier: GPL-3.0-or-later
//
// The long-lived objects that the composition makes before the main window, as the screens get them. Not owned; all of
// them outlive the window.
#pragma once

#include "app/datApp.h"
#include "app/datProject.h"
#include "app/datReport.h"
#include "app/lotServices.h"
#include "common/vipNumber.h"

struct TlotDesktop {
    TAppData& App;
    TProjectData& Data;
    TlotDesktopServices Services;
    TReportData& Reports;
    TNumberLocale Locale; ///< Of the user.
};
