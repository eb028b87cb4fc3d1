// SPDX-License-Identifier: GPL-3.0-or-later
//
// Shows a sheet as it will be printed, page by page, and prints it or saves it as a PDF file. Works without any printer
// installed: the pages are shown all the same, and can be printed into a file.
#pragma once

#include "common/vipNumber.h"
#include "reporting/lotSpreadsheetPage.h"

#include <QDialog>
#include <QIcon>
#include <functional>
#include <memory>
#include <string>

class QPrinter;
class TPreviewBar;
class TSheetPages;

class TSheetPreview : public QDialog {
    Q_OBJECT

public:
    /// The page must not change meanwhile. `icon` gives an action's icon by its name.
    TSheetPreview(const TSpreadsheetPage& page, const QString& title, const TNumberLocale& locale,
                  const std::function<QIcon(const QString&)>& icon, QWidget* parent = nullptr);
    ~TSheetPreview() override;

    /// Asks for the name of a PDF file; nothing on Cancel. By default a file dialog.
    std::function<QString()> AskPdfName;
    /// Writes all pages as a PDF file, whole or not at all. Throws EFileError.
    void SavePdf(const std::string& fileName) const;

    [[nodiscard]] int PageCount() const;

private:
    void BuildBar();
    void Draw(QPrinter& printer) const;
    void Turn(bool landscape);
    void PageSetUp();
    void Print();

    const TSpreadsheetPage& FPage;
    TNumberLocale FLocale;
    std::unique_ptr<QPrinter> FPrinter;

    // Owned by the dialog.
    TSheetPages* FPages;
    TPreviewBar* FBar;
};
