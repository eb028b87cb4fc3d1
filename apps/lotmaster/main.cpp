// SPDX-License-Identifier: GPL-3.0-or-later
//
// The desktop program: makes the long-lived objects in order and hands over to the main window.
#include "app/lotFailures.h"
#include "app/lotSystem.h"
#include "reportengine/frxReport.h"
#include "shell/base/lotLook.h"
#include "shell/dialogs/frmReport4Preview.h"
#include "shell/dialogs/frmSelectTemplate.h"
#include "shell/frmMain.h"
#include "shell/lotApplication.h"
#include "shell/lotQtMail.h"
#include "shell/lotQtServices.h"

#include <QTimer>

int main(int argc, char* argv[]) {
    TLotApplication application(argc, argv);
    TQtMessages messages;
    const TFailureMessages failures(messages);
    int result = 1;
    Guarded([&] {
        look::Apply(application);
        const TlotStart start = ProcessStart(argc, argv);
        TAppData appData(start, messages);
        TlotSystemClock clock;
        TQtBusy busy;
        TlotSystem system(clock.Today());
        TQtQuestions questions;
        TQtFiles files;
        TQtTemplateChooser templates;
        TQtMail mail(appData.TemporaryFolder);
        const TlotDesktopServices services{{messages, clock, busy}, questions, files, templates, mail};
        TProjectData data(system, appData.Options, services, start.Locale);
        TfrxReport report2(start.Locale);
        TfrxReport report4(start.Locale);
        TQtReportPreviewer previewer(services, files, start.Locale);
        TReportData reports(data, appData.Options, {appData.OlderReportFolder, appData.NewerReportFolder}, report2,
                            report4, &previewer);

        TMainForm form({appData, data, services, reports, start.Locale});
        form.FormCreate();
        form.show();
        QTimer::singleShot(0, &form, [&] { Guarded([&] { form.Files().OpenArgument(start.Arguments); }); });
        result = TLotApplication::exec();
    });
    return result;
}
