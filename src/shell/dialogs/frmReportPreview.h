// SPDX-License-Identifier: GPL-3.0-or-later
//
// Shows a finished report: to be read, searched, printed, and saved in four formats. What the windows of the two report
// engines have in common.
#pragma once

#include "app/lotReportEngine.h"
#include "app/lotServices.h"
#include "common/vipNumber.h"
#include "reportengine/pages/lotReportSearch.h"

#include <QDialog>
#include <optional>

class QLabel;
class QLineEdit;
class QSplitter;
class QTreeWidget;
class TPreviewBar;
class TReportPages;
class TReportThumbnails;

/// What a preview works on; all of it outlives the window.
struct TPreviewContext {
    const report::TPreparedReport& Pages;
    TgxFR4Preview Preview;
    TlotServices Services;
    TlotFileService& Files;
    TNumberLocale Locale; ///< Of a zoom that is typed.
};

class TReportPreviewForm : public QDialog {
    Q_OBJECT

public:
    ~TReportPreviewForm() override;

    [[nodiscard]] TReportPages& Pages() const { return *FPages; }

protected:
    /// `sidePanels`: with an outline and thumbnails.
    TReportPreviewForm(const TPreviewContext& context, bool sidePanels, QWidget* parent);

    void keyPressEvent(QKeyEvent* event) override;

private:
    void BuildFileActions();
    void BuildPageActions();
    void BuildFindBar();
    void BuildSidePanels();
    void BuildLayout();
    void FillOutline();
    void ShowPlace();
    void Save(const char* extension, const char* filter, TlotExportFormat format);
    void Print();
    void Design();
    void ShowFindBar();
    void FindNext();

    TPreviewContext FContext;
    std::optional<report::TTextPlace> FFound;

    // Owned by the window.
    QSplitter* FSplitter;
    TReportPages* FPages;
    TPreviewBar* FBar;
    QTreeWidget* FOutline = nullptr; // Null without side panels, as the thumbnails.
    TReportThumbnails* FThumbnails = nullptr;
    QWidget* FFindBar = nullptr;
    QLineEdit* edtFind = nullptr;
    QLabel* lblFound = nullptr;
};
