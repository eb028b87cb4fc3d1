// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotSheetPreview.h"

#include "app/lotFailures.h"
#include "persistence/lotAtomicFile.h"
#include "widgets/lotSheetPrinter.h"

#include <QAction>
#include <QBuffer>
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QPageSetupDialog>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QSpinBox>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>

namespace {

constexpr double ZoomStep = 1.25;
constexpr int Zooms[] = {50, 75, 100, 125, 150, 200, 300};
constexpr int Resolution = 300; // Dots to the inch, of shapes in a PDF file; letters are outlines.

} // namespace

TSheetPreview::TSheetPreview(const TSpreadsheetPage& page, const QString& title, const TNumberLocale& locale,
                             const std::function<QIcon(const QString&)>& icon, QWidget* parent)
    : QDialog(parent),
      FPage(page),
      FLocale(locale),
      FIcon(icon),
      FPrinter(std::make_unique<QPrinter>(QPrinter::ScreenResolution)),
      FPreview(new QPrintPreviewWidget(FPrinter.get(), this)),
      FToolBar(new QToolBar(this)) {
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

    FToolBar->setIconSize(QSize(20, 20));
    BuildToolBar(icon);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(FToolBar);
    layout->addWidget(FPreview, 1);

    connect(FPreview, &QPrintPreviewWidget::paintRequested, this, [this](QPrinter* printer) { Draw(*printer); });
    connect(FPreview, &QPrintPreviewWidget::previewChanged, this, &TSheetPreview::ShowPlace);
    FPreview->fitToWidth();
    FPreview->setFocus();
}

TSheetPreview::~TSheetPreview() = default;

QAction* TSheetPreview::AddAction(const QString& name, const QString& caption, const QKeySequence& key,
                                  const std::function<void()>& handler) {
    auto* const action = FToolBar->addAction(FIcon(name), caption);
    action->setObjectName("act-" + name);
    action->setShortcut(key);
    action->setToolTip(QString("%1 (%2)").arg(caption, key.toString(QKeySequence::NativeText)));
    connect(action, &QAction::triggered, this, [handler] { Guarded(handler); });
    return action;
}

void TSheetPreview::BuildToolBar(const std::function<QIcon(const QString&)>& icon) {
    FIcon = icon;
    AddAction("print", "Print...", QKeySequence::Print, [this] { Print(); });
    AddAction("pdf", "Save as PDF...", QKeySequence::Save, [this] {
        if (const QString name = AskPdfName(); !name.isEmpty()) {
            SavePdf(QFile::encodeName(name).toStdString());
        }
    });
    AddAction("page-setup", "Page Setup...", Qt::CTRL | Qt::SHIFT | Qt::Key_P, [this] { PageSetUp(); });
    FToolBar->addSeparator();
    AddAction("portrait", "Portrait", Qt::CTRL | Qt::Key_T, [this] { Turn(false); });
    AddAction("landscape", "Landscape", Qt::CTRL | Qt::Key_L, [this] { Turn(true); });
    FToolBar->addSeparator();
    AddAction("page-first", "First Page", Qt::CTRL | Qt::Key_Home, [this] { FPreview->setCurrentPage(1); });
    AddAction("page-previous", "Previous Page", Qt::CTRL | Qt::Key_PageUp,
              [this] { FPreview->setCurrentPage(FPreview->currentPage() - 1); });
    edtPage = new QSpinBox(this);
    edtPage->setObjectName("edtPage");
    edtPage->setButtonSymbols(QAbstractSpinBox::NoButtons);
    edtPage->setAlignment(Qt::AlignRight);
    edtPage->setMinimum(1);
    edtPage->setAccessibleName("Page");
    edtPage->setKeyboardTracking(false);
    connect(edtPage, &QSpinBox::valueChanged, this, [this](int page) { FPreview->setCurrentPage(page); });
    FToolBar->addWidget(edtPage);
    lblPages = new QLabel(this);
    lblPages->setObjectName("lblPages");
    FToolBar->addWidget(lblPages);
    AddAction("page-next", "Next Page", Qt::CTRL | Qt::Key_PageDown,
              [this] { FPreview->setCurrentPage(FPreview->currentPage() + 1); });
    AddAction("page-last", "Last Page", Qt::CTRL | Qt::Key_End,
              [this] { FPreview->setCurrentPage(FPreview->pageCount()); });
    FToolBar->addSeparator();
    AddAction("zoom-out", "Zoom Out", QKeySequence::ZoomOut, [this] { FPreview->zoomOut(ZoomStep); });
    cmbZoom = new QComboBox(this);
    cmbZoom->setObjectName("cmbZoom");
    cmbZoom->setAccessibleName("Zoom");
    for (const int zoom : Zooms) {
        cmbZoom->addItem(QString("%1 %").arg(zoom), zoom);
    }
    connect(cmbZoom, &QComboBox::activated, this,
            [this](int index) { FPreview->setZoomFactor(cmbZoom->itemData(index).toInt() / 100.0); });
    cmbZoom->setMinimumContentsLength(6);
    FToolBar->addWidget(cmbZoom);
    AddAction("zoom-in", "Zoom In", QKeySequence::ZoomIn, [this] { FPreview->zoomIn(ZoomStep); });
    AddAction("fit-width", "Fit Width", Qt::CTRL | Qt::Key_1, [this] { FPreview->fitToWidth(); });
    AddAction("fit-page", "Fit Page", Qt::CTRL | Qt::Key_0, [this] { FPreview->fitInView(); });
    FToolBar->addSeparator();
    AddAction("close", "Close", Qt::CTRL | Qt::Key_W, [this] { reject(); });
}

void TSheetPreview::Draw(QPrinter& printer) const {
    const TSheetPrinter pages(FPage, FLocale, printer);
    pages.Print(printer, 0, std::max(1, pages.PageCount()) - 1);
}

int TSheetPreview::PageCount() const {
    return std::max(1, TSheetPrinter(FPage, FLocale, *FPrinter).PageCount());
}

void TSheetPreview::ShowPlace() {
    const QSignalBlocker quiet(edtPage);
    edtPage->setMaximum(std::max(1, FPreview->pageCount()));
    edtPage->setValue(FPreview->currentPage());
    lblPages->setText(QString(" of %1 ").arg(FPreview->pageCount()));
    cmbZoom->setCurrentIndex(-1);
    cmbZoom->setPlaceholderText(QString("%1 %").arg(static_cast<int>(FPreview->zoomFactor() * 100 + 0.5)));
}

void TSheetPreview::Turn(bool landscape) {
    FPrinter->setPageOrientation(landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
    FPreview->updatePreview();
}

void TSheetPreview::PageSetUp() {
    QPageSetupDialog dialog(FPrinter.get(), this);
    if (dialog.exec() == QDialog::Accepted) {
        FPreview->updatePreview();
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
