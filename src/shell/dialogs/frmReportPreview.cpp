// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/dialogs/frmReportPreview.h"

#include "app/lotFailures.h"
#include "shell/base/lotLook.h"
#include "shell/dialogs/lotReportPrinter.h"
#include "widgets/lotPreviewBar.h"
#include "widgets/lotReportPages.h"
#include "widgets/lotReportThumbnails.h"
#include "widgets/lotToolTipText.h"

#include <QAction>
#include <QDesktopServices>
#include <QFile>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPrintDialog>
#include <QSplitter>
#include <QToolButton>
#include <QTreeWidget>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>

namespace {

constexpr int SidePanelWidth = 220;
constexpr int LevelRole = Qt::UserRole; // Of an outline's entry: its number.

} // namespace

TReportPreviewForm::TReportPreviewForm(const TPreviewContext& context, bool sidePanels, QWidget* parent)
    : QDialog(parent),
      FContext(context),
      FSplitter(new QSplitter(this)),
      FPages(new TReportPages(this)),
      FBar(new TPreviewBar(*FPages, look::Icon, context.Locale, this)) {
    setWindowTitle("Preview");
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    resize(1160, 740);
    BuildFileActions();
    if (sidePanels) {
        BuildSidePanels();
    }
    BuildPageActions();
    BuildFindBar();
    BuildLayout();
    connect(FPages, &TReportPages::PlaceChanged, this, &TReportPreviewForm::ShowPlace);
    connect(FPages, &TReportPages::ZoomChanged, FBar, &TPreviewBar::ShowZoom);
    FPages->SetReport(&FContext.Pages);
    FPages->setFocus();
}

TReportPreviewForm::~TReportPreviewForm() = default;

void TReportPreviewForm::BuildFileActions() {
    FBar->AddPrint("Print", [this] { Print(); });
    FBar->addSeparator();
    FBar->Add("actPdf", "Save Adobe PDF...", "pdf", QKeySequence::Save,
              [this] { Save("pdf", "Adobe PDF Files (*.pdf)|*.pdf", TlotExportFormat::Pdf); });
    FBar->Add("actHtml", "Save HTML...", "html", {},
              [this] { Save("html", "HTML Files (*.htm)|*.htm", TlotExportFormat::Html); });
    // The extension of RTF is that of HTML, deliberately: only a name typed without one shows it, and always did.
    FBar->Add("actRtf", "Save RTF...", "rtf", {},
              [this] { Save("html", "RTF Files (*.rtf)|*.rtf", TlotExportFormat::Rtf); });
    FBar->Add("actExcel", "Save Excel...", "excel", {},
              [this] { Save("xls", "Excel Files (*.xls)|*.xls", TlotExportFormat::Xls); });
    QAction& design = FBar->Add("actDesign", "&Design", "design", {}, [this] { Design(); });
    design.setVisible(FContext.Preview.DesignEnabled);
}

void TReportPreviewForm::BuildSidePanels() {
    FBar->addSeparator();
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
        QAction& action = FBar->Add(name, caption, icon, QKeySequence(key), [] {});
        action.setCheckable(true);
        connect(&action, &QAction::toggled, panel, &QWidget::setVisible);
        return &action;
    };
    QAction* const outline = addToggle("actOutline", "Outline", "outline", "Ctrl+L", FOutline);
    addToggle("actThumbnails", "Thumbnails", "thumbnails", "Ctrl+T", FThumbnails);
    const bool helps = FContext.Pages.Pages.size() > 2 && !FContext.Pages.Outline.empty();
    FOutline->setVisible(helps);
    outline->setChecked(helps);
}

void TReportPreviewForm::FillOutline() {
    std::vector<QTreeWidgetItem*> open; // The last entry of each level.
    int index = 0;
    for (const report::TOutlineEntry& entry : FContext.Pages.Outline) {
        auto* const item = new QTreeWidgetItem(QStringList(entry.Text));
        item->setData(0, LevelRole, index++);
        item->setToolTip(0, ToolTipText(entry.Text + QString(", page %1").arg(entry.Page + 1)));
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

void TReportPreviewForm::BuildPageActions() {
    FBar->AddPlace();
    FBar->AddZoom();
    FBar->addSeparator();
    FBar->Add("actFind", "Find", "find", QKeySequence::Find, [this] { ShowFindBar(); });
    FBar->Add("actFindNext", "Find Next", "find-next", Qt::Key_F3, [this] { FindNext(); });
    FBar->AddClose([this] { reject(); });
}

void TReportPreviewForm::BuildFindBar() {
    FFindBar = new QWidget(this);
    FFindBar->setObjectName("FindBar");
    edtFind = new QLineEdit(FFindBar);
    edtFind->setObjectName("edtFind");
    edtFind->setPlaceholderText("Find in the report");
    edtFind->setAccessibleName("Find");
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
    layout->addWidget(FBar);
    layout->addWidget(FFindBar);
    layout->addWidget(FSplitter, 1);
}

void TReportPreviewForm::ShowPlace() {
    FBar->ShowPlace();
    if (FThumbnails != nullptr) {
        FThumbnails->SetCurrentPage(FPages->CurrentPage());
    }
}

void TReportPreviewForm::Save(const char* extension, const char* filter, TlotExportFormat format) {
    TlotFileQuestion question;
    question.Filter = filter;
    question.DefaultExtension = extension;
    const std::optional<std::string> file = FContext.Files.AskSave(question);
    if (!file) {
        return;
    }
    // A name typed with the newer extension asks for the newer format, whatever format is chosen in the list.
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
        return; // Enter would press the first button: this dialog has no default one.
    }
    QDialog::keyPressEvent(event);
}
