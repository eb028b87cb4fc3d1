// SPDX-License-Identifier: GPL-3.0-or-later
//
// The long-lived objects that the composition makes before the main window, as the screens get them. Not owned; all of
// them outlive the window.
#pragma once

#include "app/datApp.h"
#include "app/datProject.h"
#include "app/datReport.h"
#include "app/lotMailService.h"
#include "app/lotServices.h"
#include "app/lotTemplates.h"
#include "common/vipNumber.h"

struct TlotDesktop {
    TAppData& App;
    TProjectData& Data;
    TlotServices Services;
    TlotQuestionService& Questions;
    TlotFileService& Files;
    TlotTemplateChooser& Templates;
    TReportData& Reports;
    TlotMailService& Mail;
    TNumberLocale Locale; ///< Of the user.
};
