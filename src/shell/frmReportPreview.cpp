// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/frmReportPreview.h"

#include "app/lotFailures.h"
#include "common/vipText.h"
#include "shell/lotLook.h"
#include "shell/lotReportPrinter.h"
#include "widgets/lotReportPages.h"
#include "widgets/lotReportThumbnails.h"

#include <QAction>
#include <QComboBox>
#include <QDesktopServices>
#include <QFile>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPrintDialog>
#include <QSpinBox>
#include <QSplitter>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>

namespace {

constexpr double ZoomStep = 0.25;
constexpr int SidePanelWidth = 220;
constexpr int LevelRole = Qt::UserRole; // Of an outline's entry: its number.

} // namespace

TReportPreviewForm::TReportPreviewForm(const TPreviewContext& context, bool sidePanels, QWidget* parent)
    : QDialog(parent),
      FContext(context),
      FToolBar(new QToolBar(this)),
      FSplitter(new QSplitter(this)),
      FPages(new TReportPages(this)) {
    setWindowTitle("Preview");
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    resize(1160, 740);
    FToolBar->setIconSize(QSize(look::IconSize, look::IconSize));
    BuildFileActions();
    if (sidePanels) {
        BuildSidePanels();
    }
    BuildPlaceActions();
    BuildZoomActions();
    BuildFindBar();
    BuildLayout();
    connect(FPages, &TReportPages::PlaceChanged, this, &TReportPreviewForm::ShowPlace);
    connect(FPages, &TReportPages::ZoomChanged, this, &TReportPreviewForm::ShowZoom);
    FPages->SetReport(&FContext.Pages);
    FPages->setFocus();
}

TReportPreviewForm::~TReportPreviewForm() = default;

QAction& TReportPreviewForm::AddAction(const char* name, const char* caption, const char* icon, const QKeySequence& key,
                                       const std::function<void()>& handler) {
    QAction* const action = FToolBar->addAction(look::Icon(icon), caption);
    action->setObjectName(name);
    action->setShortcut(key);
    const QString hint = QString(caption).remove('&');
    action->setToolTip(key.isEmpty() ? hint : QString("%1 (%2)").arg(hint, key.toString(QKeySequence::NativeText)));
    connect(action, &QAction::triggered, this, [handler] { Guarded(handler); });
    return *action;
}

void TReportPreviewForm::BuildFileActions() {
    AddAction("actPrint", "Print", "print", QKeySequence::Print, [this] { Print(); });
    FToolBar->addSeparator();
    AddAction("actPdf", "Save Adobe PDF...", "pdf", QKeySequence::Save,
              [this] { Save("pdf", "Adobe PDF Files (*.pdf)|*.pdf", TlotExportFormat::Pdf); });
    AddAction("actHtml", "Save HTML...", "html", {},
              [this] { Save("html", "HTML Files (*.htm)|*.htm", TlotExportFormat::Html); });
    // The extension of RTF is that of HTML, deliberately: only a name typed without one shows it, and always did.
    AddAction("actRtf", "Save RTF...", "rtf", {},
              [this] { Save("html", "RTF Files (*.rtf)|*.rtf", TlotExportFormat::Rtf); });
    AddAction("actExcel", "Save Excel...", "excel", {},
              [this] { Save("xls", "Excel Files (*.xls)|*.xls", TlotExportFormat::Xls); });
    QAction& design = AddAction("actDesign", "&Design", "design", {}, [this] { Design(); });
    design.setVisible(FContext.Preview.DesignEnabled);
    FToolBar->addSeparator();
}

void TReportPreviewForm::BuildSidePanels() {
    FOutline = new QTreeWidget(FSplitter);
    FOutline->setObjectName("Outline");
    FOutline->setAccessibleName("Outline");
    FOutline->setHeaderHidden(true);
    FOutline->setFrameShape(QFrame::NoFrame);
    FillOutline();
    connect(FOutline, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
        if (item != nullptr) {
            const auto index = static_cast<std::size_t>(item->data(0, LevelRole).toInt());
            const report::TOutlineEntry& entry = FContext.Pages.Outline[index];
            FPages->GoTo(entry.Page, entry.Top);
        }
    });
    FThumbnails = new TReportThumbnails(FSplitter);
    FThumbnails->SetReport(FContext.Pages);
    FThumbnails->OnChoose = [this](int page) { FPages->GoToPage(page); };
    FThumbnails->hide();

    const auto addToggle = [this](const char* name, const char* caption, const char* icon, const char* key,
                                  QWidget* panel) {
        QAction& action = AddAction(name, caption, icon, QKeySequence(key), [] {});
        action.setCheckable(true);
        connect(&action, &QAction::toggled, panel, &QWidget::setVisible);
        return &action;
    };
    QAction* const outline = addToggle("actOutline", "Outline", "outline", "Ctrl+L", FOutline);
    addToggle("actThumbnails", "Thumbnails", "thumbnails", "Ctrl+T", FThumbnails);
    const bool helps = FContext.Pages.Pages.size() > 2 && !FContext.Pages.Outline.empty();
    FOutline->setVisible(helps);
    outline->setChecked(helps);
    FToolBar->addSeparator();
}

void TReportPreviewForm::FillOutline() {
    std::vector<QTreeWidgetItem*> open; // The last entry of each level.
    int index = 0;
    for (const report::TOutlineEntry& entry : FContext.Pages.Outline) {
        auto* const item = new QTreeWidgetItem(QStringList(entry.Text));
        item->setData(0, LevelRole, index++);
        item->setToolTip(0, QString("%1, page %2").arg(entry.Text).arg(entry.Page + 1));
        const auto level = std::min(static_cast<std::size_t>(entry.Level), open.size());
        if (level == 0) {
            FOutline->addTopLevelItem(item);
        } else {
            open[level - 1]->addChild(item);
        }
        open.resize(level);
        open.push_back(item);
    }
}

void TReportPreviewForm::BuildPlaceActions() {
    AddAction("actFirst", "First Page", "page-first", {}, [this] { FPages->GoToPage(0); });
    AddAction("actPrevious", "Previous Page", "page-previous", {},
              [this] { FPages->GoToPage(FPages->CurrentPage() - 1); });
    edtPage = new QSpinBox(this);
    edtPage->setObjectName("edtPage");
    edtPage->setButtonSymbols(QAbstractSpinBox::NoButtons);
    edtPage->setAlignment(Qt::AlignRight);
    edtPage->setAccessibleName("Page");
    edtPage->setKeyboardTracking(false);
    connect(edtPage, &QSpinBox::valueChanged, this, [this](int page) { FPages->GoToPage(page - 1); });
    FToolBar->addWidget(edtPage);
    lblPages = new QLabel(this);
    lblPages->setObjectName("lblPages");
    FToolBar->addWidget(lblPages);
    AddAction("actNext", "Next Page", "page-next", {}, [this] { FPages->GoToPage(FPages->CurrentPage() + 1); });
    AddAction("actLast", "Last Page", "page-last", {}, [this] { FPages->GoToPage(FPages->PageCount() - 1); });
    FToolBar->addSeparator();
}

void TReportPreviewForm::BuildZoomActions() {
    AddAction("actZoomOut", "Zoom Out", "zoom-out", QKeySequence::ZoomOut, [this] {
        if (FPages->Zoom() > ZoomStep) {
            FPages->SetZoom(FPages->Zoom() - ZoomStep);
        }
    });
    cmbZoom = new QComboBox(this);
    cmbZoom->setObjectName("cmbZoom");
    cmbZoom->setAccessibleName("Zoom");
    cmbZoom->setEditable(true);
    cmbZoom->setInsertPolicy(QComboBox::NoInsert);
    cmbZoom->setMinimumContentsLength(10);
    cmbZoom->addItems({"200%", "150%", "100%", "75%", "50%", "25%", "Page Width", "Whole Page"});
    cmbZoom->setCurrentText("100%");
    connect(cmbZoom, &QComboBox::textActivated, this, &TReportPreviewForm::ZoomBoxEntered);
    connect(cmbZoom->lineEdit(), &QLineEdit::returnPressed, this, [this] { ZoomBoxEntered(cmbZoom->currentText()); });
    FToolBar->addWidget(cmbZoom);
    AddAction("actZoomIn", "Zoom In", "zoom-in", QKeySequence::ZoomIn,
              [this] { FPages->SetZoom(FPages->Zoom() + ZoomStep); });
    FToolBar->addSeparator();
    AddAction("actFind", "Find", "find", QKeySequence::Find, [this] { ShowFindBar(); });
    AddAction("actFindNext", "Find Next", "find-next", Qt::Key_F3, [this] { FindNext(); });
    auto* const space = new QWidget(this);
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    FToolBar->addWidget(space);
    AddAction("actClose", "&Close", "close", Qt::CTRL | Qt::Key_W, [this] { reject(); });
}

void TReportPreviewForm::BuildFindBar() {
    FFindBar = new QWidget(this);
    FFindBar->setObjectName("FindBar");
    edtFind = new QLineEdit(FFindBar);
    edtFind->setObjectName("edtFind");
    edtFind->setPlaceholderText("Find in the report");
    edtFind->setClearButtonEnabled(true);
    edtFind->setMaximumWidth(320);
    lblFound = new QLabel(FFindBar);
    lblFound->setObjectName("lblFound");
    auto* const layout = new QHBoxLayout(FFindBar);
    layout->setContentsMargins(look::Gap, look::SmallGap, look::Gap, look::SmallGap);
    layout->addWidget(edtFind);
    layout->addWidget(lblFound, 1);
    connect(edtFind, &QLineEdit::returnPressed, this, [this] { Guarded([this] { FindNext(); }); });
    connect(edtFind, &QLineEdit::textEdited, this, [this] {
        FFound.reset();
        lblFound->clear();
    });
    FFindBar->hide();
}

void TReportPreviewForm::BuildLayout() {
    FSplitter->addWidget(FPages);
    FSplitter->setStretchFactor(FSplitter->indexOf(FPages), 1);
    FSplitter->setChildrenCollapsible(false);
    FSplitter->setHandleWidth(1);
    QList<int> sizes;
    for (int i = 0; i < FSplitter->count(); ++i) {
        sizes += FSplitter->widget(i) == FPages ? 4 * SidePanelWidth : SidePanelWidth;
    }
    FSplitter->setSizes(sizes);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(FToolBar);
    layout->addWidget(FFindBar);
    layout->addWidget(FSplitter, 1);
}

void TReportPreviewForm::ShowPlace() {
    const int page = FPages->CurrentPage();
    const QSignalBlocker quiet(edtPage);
    edtPage->setRange(std::min(1, FPages->PageCount()), FPages->PageCount());
    edtPage->setValue(page + 1);
    lblPages->setText(QString(" of %1 ").arg(FPages->PageCount()));
    if (FThumbnails != nullptr) {
        FThumbnails->SetCurrentPage(page);
    }
}

void TReportPreviewForm::ShowZoom() {
    const double percent = FPages->Zoom() * 100;
    const QString text = FPages->Fit() == TPageFit::Width ? QString("Page Width")
                         : FPages->Fit() == TPageFit::Whole
                             ? QString("Whole Page")
                             : QString::fromStdString(vip::FormatMask("0", percent, FContext.Locale)) + "%";
    const QSignalBlocker quiet(cmbZoom);
    FZoomText = text;
    cmbZoom->setCurrentText(text);
}

void TReportPreviewForm::ZoomBoxEntered(const QString& text) {
    if (text == FZoomText) {
        return; // Said twice, or only rounded: the zoom itself may be finer than its text.
    }
    if (text.compare("Whole Page", Qt::CaseInsensitive) == 0) {
        FPages->SetFit(TPageFit::Whole);
    } else if (text.compare("Page Width", Qt::CaseInsensitive) == 0) {
        FPages->SetFit(TPageFit::Width);
    } else if (text.contains('%')) {
        FPages->SetZoom(vip::StrToNumber(QString(text).remove('%').toStdString(), FContext.Locale) / 100);
    }
    ShowZoom(); // Also where the entry was ignored.
}

void TReportPreviewForm::Save(const char* extension, const char* filter, TlotExportFormat format) {
    TlotFileQuestion question;
    question.Filter = filter;
    question.DefaultExtension = extension;
    const std::optional<std::string> file = FContext.Files.AskSave(question);
    if (!file) {
        return;
    }
    // Whoever writes the newer workbook's extension wants one.
    const bool newer = format == TlotExportFormat::Xls && ExportFormatOf(*file) == TlotExportFormat::Xlsx;
    const TlotBusy busy(FContext.Services.Busy);
    const TgxFR4Preview& preview = FContext.Preview;
    preview.Report.Export(newer ? TlotExportFormat::Xlsx : format, *file,
                          {preview.Title, preview.Author, preview.Creator});
}

void TReportPreviewForm::Print() {
    if (FContext.Preview.Report.OnBeforePrint) {
        FContext.Preview.Report.OnBeforePrint();
    }
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(QString::fromStdString(FContext.Preview.Title));
    SetPrinterPage(printer, FContext.Pages, 0);
    QPrintDialog dialog(&printer, this);
    dialog.setMinMax(1, FPages->PageCount());
    if (dialog.exec() == QDialog::Accepted) {
        const TlotBusy busy(FContext.Services.Busy);
        PrintReport(printer, FContext.Pages);
    }
}

void TReportPreviewForm::Design() {
    const QString file = QFile::decodeName(FContext.Preview.Report.TemplateFile().c_str());
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(file))) {
        FContext.Services.Messages.Show(TlotMessageKind::Information,
                                        "No editor opens " + FContext.Preview.Report.TemplateFile());
    }
}

void TReportPreviewForm::ShowFindBar() {
    FFindBar->show();
    edtFind->setFocus();
    edtFind->selectAll();
}

void TReportPreviewForm::FindNext() {
    if (edtFind->text().isEmpty()) {
        ShowFindBar();
        return;
    }
    std::optional<report::TTextPlace> after = FFound;
    if (!after && FPages->CurrentPage() > 0) {
        after = report::TTextPlace{FPages->CurrentPage(), -1, 0};
    }
    const std::optional<report::TTextPlace> found = report::FindText(FContext.Pages, edtFind->text(), after);
    const bool wrapped = found && FFound && *found <= *FFound;
    FFound = found;
    lblFound->setText(!found    ? QString("\"%1\" was not found.").arg(edtFind->text())
                      : wrapped ? QString("Page %1, from the beginning again").arg(found->Page + 1)
                                : QString("Page %1").arg(found->Page + 1));
    FPages->ShowFound(found ? std::optional(TFoundText{found->Page, report::PlaceRect(FContext.Pages, *found)})
                            : std::nullopt);
}

void TReportPreviewForm::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape && FFindBar->isVisible() && focusWidget() == edtFind) {
        FFindBar->hide();
        FPages->setFocus();
        return;
    }
    if (enter) {
        return; // No button here is the default.
    }
    QDialog::keyPressEvent(event);
}
