// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/dialogs/frmReport4Preview.h"

#include "reportengine/frxReport.h"

#include <QApplication>

namespace {

/// Shows a window until it is closed. Whoever opened it may be busy; the reader of the report is not.
template <typename TForm>
void ShowModal(const TgxFR4Preview& preview, const TlotServices& services, TlotFileService& files,
               const TNumberLocale& locale) {
    const auto& engine = dynamic_cast<const TfrxReport&>(preview.Report);
    TForm form({engine.Prepared(), preview, services, files, locale}, QApplication::activeWindow());
    const bool busy = QGuiApplication::overrideCursor() != nullptr;
    if (busy) {
        QGuiApplication::changeOverrideCursor(Qt::ArrowCursor);
    }
    form.exec();
    if (busy) {
        QGuiApplication::changeOverrideCursor(Qt::WaitCursor);
    }
}

} // namespace

void TQtReportPreviewer::Preview2(const TgxFR4Preview& preview) {
    ShowModal<TPreviewForm>(preview, FServices, FFiles, FLocale);
}

void TQtReportPreviewer::Preview4(const TgxFR4Preview& preview) {
    ShowModal<TReport4PreviewForm>(preview, FServices, FFiles, FLocale);
}
