// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotSheetPreview.h"

#include "app/lotFailures.h"
#include "persistence/lotAtomicFile.h"
#include "widgets/lotPreviewBar.h"
#include "widgets/lotPreviewPages.h"
#include "widgets/lotSheetPrinter.h"

#include <QBuffer>
#include <QFile>
#include <QFileDialog>
#include <QPageSetupDialog>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QVBoxLayout>
#include <algorithm>

namespace {

constexpr int Resolution = 300; // Dots to the inch, of shapes in a PDF file; letters are outlines.

} // namespace

/// The toolkit's preview, whose pages count from 1.
class TSheetPages final : public QPrintPreviewWidget, public TPreviewPages {
public:
    using QPrintPreviewWidget::QPrintPreviewWidget;

    [[nodiscard]] int PageCount() const override { return pageCount(); }
    [[nodiscard]] int CurrentPage() const override { return std::min(currentPage(), pageCount()) - 1; }
    void GoToPage(int page) override { setCurrentPage(std::clamp(page + 1, 1, std::max(1, pageCount()))); }

    [[nodiscard]] double Zoom() const override { return zoomFactor(); }
    void SetZoom(double zoom) override {
        if (zoom > 0) {
            setZoomFactor(zoom);
        }
    }
    [[nodiscard]] TPageFit Fit() const override {
        switch (zoomMode()) {
        case FitToWidth: return TPageFit::Width;
        case FitInView: return TPageFit::Whole;
        case CustomZoom: break;
        }
        return TPageFit::None;
    }
    void SetFit(TPageFit fit) override {
        switch (fit) {
        case TPageFit::None: setZoomMode(CustomZoom); break;
        case TPageFit::Width: fitToWidth(); break;
        case TPageFit::Whole: fitInView(); break;
        }
    }
};

TSheetPreview::TSheetPreview(const TSpreadsheetPage& page, const QString& title, const TNumberLocale& locale,
                             const std::function<QIcon(const QString&)>& icon, QWidget* parent)
    : QDialog(parent),
      FPage(page),
      FLocale(locale),
      FPrinter(std::make_unique<QPrinter>(QPrinter::ScreenResolution)),
      FPages(new TSheetPages(FPrinter.get(), this)),
      FBar(new TPreviewBar(*FPages, icon, locale, this)) {
    setObjectName("SheetPreview");
    setWindowTitle("Print Preview - " + title);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    resize(1100, 720);
    FPrinter->setDocName(title);
    FPrinter->setPageSize(QPageSize(QPageSize::A4));
    FPrinter->setPageOrientation(QPageLayout::Landscape);
    FPrinter->setPageMargins(QMarginsF(12, 12, 12, 10), QPageLayout::Millimeter);
    AskPdfName = [this] {
        QFileDialog dialog(this, "Save as PDF", {}, "PDF Files (*.pdf)");
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setDefaultSuffix("pdf");
        return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
    };

    BuildBar();
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(FBar);
    layout->addWidget(FPages, 1);

    connect(FPages, &QPrintPreviewWidget::paintRequested, this,
            [this](QPrinter* printer) { Guarded([&] { Draw(*printer); }); });
    connect(FPages, &QPrintPreviewWidget::previewChanged, FBar, [this] {
        FBar->ShowPlace();
        FBar->ShowZoom();
        FPages->setAccessibleDescription(QString("Page %1 of %2").arg(FPages->currentPage()).arg(FPages->pageCount()));
    });
    FPages->setAccessibleName("Pages");
    FPages->fitToWidth();
    FPages->setFocus();
}

TSheetPreview::~TSheetPreview() = default;

void TSheetPreview::BuildBar() {
    FBar->AddPrint("Print...", [this] { Print(); });
    FBar->Add("actPdf", "Save as PDF...", "pdf", QKeySequence::Save, [this] {
        if (const QString name = AskPdfName(); !name.isEmpty()) {
            SavePdf(QFile::encodeName(name).toStdString());
        }
    });
    FBar->Add("actPageSetup", "Page Setup...", "page-setup", Qt::CTRL | Qt::SHIFT | Qt::Key_P, [this] { PageSetUp(); });
    FBar->addSeparator();
    FBar->Add("actPortrait", "Portrait", "portrait", Qt::CTRL | Qt::Key_T, [this] { Turn(false); });
    FBar->Add("actLandscape", "Landscape", "landscape", Qt::CTRL | Qt::Key_L, [this] { Turn(true); });
    FBar->AddPlace();
    FBar->AddZoom();
    FBar->Add("actFitWidth", "Page Width", "fit-width", Qt::CTRL | Qt::Key_1,
              [this] { FPages->SetFit(TPageFit::Width); });
    FBar->Add("actFitPage", "Whole Page", "fit-page", Qt::CTRL | Qt::Key_0,
              [this] { FPages->SetFit(TPageFit::Whole); });
    FBar->AddClose([this] { reject(); });
}

void TSheetPreview::Draw(QPrinter& printer) const {
    const TSheetPrinter pages(FPage, FLocale, printer);
    pages.Print(printer, 0, std::max(1, pages.PageCount()) - 1);
}

int TSheetPreview::PageCount() const {
    return std::max(1, TSheetPrinter(FPage, FLocale, *FPrinter).PageCount());
}

void TSheetPreview::Turn(bool landscape) {
    FPrinter->setPageOrientation(landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
    FPages->updatePreview();
}

void TSheetPreview::PageSetUp() {
    QPageSetupDialog dialog(FPrinter.get(), this);
    if (dialog.exec() == QDialog::Accepted) {
        FPages->updatePreview();
    }
}

void TSheetPreview::Print() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(FPrinter->pageLayout());
    printer.setDocName(FPrinter->docName());
    QPrintDialog dialog(&printer, this);
    dialog.setMinMax(1, PageCount());
    if (dialog.exec() != QDialog::Accepted) {
        return;
    }
    const TSheetPrinter pages(FPage, FLocale, printer);
    const bool range = printer.printRange() == QPrinter::PageRange;
    const int last = std::max(1, pages.PageCount()) - 1;
    pages.Print(printer, range ? std::clamp(printer.fromPage() - 1, 0, last) : 0,
                range ? std::clamp(printer.toPage() - 1, 0, last) : last);
}

void TSheetPreview::SavePdf(const std::string& fileName) const {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setResolution(Resolution);
        writer.setPageLayout(FPrinter->pageLayout());
        writer.setTitle(QString::fromStdString(FPage.Title));
        writer.setCreator("Lotmaster");
        const TSheetPrinter pages(FPage, FLocale, writer);
        pages.Print(writer, 0, std::max(1, pages.PageCount()) - 1);
    }
    WriteFileAtomically(fileName, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}
