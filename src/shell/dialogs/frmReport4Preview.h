// SPDX-License-Identifier: GPL-3.0-or-later
//
// The preview windows of the two report engines, and who opens them.
#pragma once

#include "app/lotServices.h"
#include "shell/dialogs/frmReportPreview.h"

/// Of the older engine.
class TPreviewForm final : public TReportPreviewForm {
public:
    explicit TPreviewForm(const TPreviewContext& context, QWidget* parent = nullptr)
        : TReportPreviewForm(context, false, parent) {}
};

/// Of the newer engine: with an outline and thumbnails.
class TReport4PreviewForm final : public TReportPreviewForm {
public:
    explicit TReport4PreviewForm(const TPreviewContext& context, QWidget* parent = nullptr)
        : TReportPreviewForm(context, true, parent) {}
};

class TQtReportPreviewer final : public TlotReportPreviewer {
public:
    /// What is handed in must outlive it.
    TQtReportPreviewer(const TlotServices& services, TlotFileService& files, const TNumberLocale& locale)
        : FServices(services), FFiles(files), FLocale(locale) {}

    void Preview2(const TgxFR4Preview& preview) override;
    void Preview4(const TgxFR4Preview& preview) override;

private:
    TlotServices FServices;
    TlotFileService& FFiles;
    TNumberLocale FLocale;
};
