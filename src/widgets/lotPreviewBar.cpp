// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotPreviewBar.h"

#include "app/lotFailures.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSpinBox>
#include <algorithm>
#include <utility>

namespace {

constexpr double ZoomStep = 0.25;
constexpr double LargestZoom = 1e6; // That can be typed: beyond it places on a page overflow.
constexpr int IconPixels = 20;

} // namespace

TPreviewBar::TPreviewBar(TPreviewPages& pages, std::function<QIcon(const QString&)> icon, const TNumberLocale& locale,
                         QWidget* parent)
    : QToolBar(parent), FPages(pages), FIcon(std::move(icon)), FLocale(locale) {
    setIconSize(QSize(IconPixels, IconPixels));
}

QAction& TPreviewBar::Add(const char* name, const char* caption, const char* icon, const QKeySequence& key,
                          const std::function<void()>& handler) {
    QAction* const action = addAction(FIcon(icon), caption);
    action->setObjectName(name);
    action->setShortcut(key);
    const QString hint = QString(caption).remove('&');
    action->setToolTip(key.isEmpty() ? hint : QString("%1 (%2)").arg(hint, key.toString(QKeySequence::NativeText)));
    connect(action, &QAction::triggered, this, [handler] { Guarded(handler); });
    return *action;
}

void TPreviewBar::AddPrint(const char* caption, const std::function<void()>& handler) {
    Add("actPrint", caption, "print", QKeySequence::Print, handler);
}

void TPreviewBar::AddPlace() {
    addSeparator();
    Add("actFirst", "First Page", "page-first", Qt::CTRL | Qt::Key_Home, [this] { GoTo(0); });
    Add("actPrevious", "Previous Page", "page-previous", Qt::CTRL | Qt::Key_PageUp,
        [this] { GoTo(FPages.CurrentPage() - 1); });
    edtPage = new QSpinBox(this);
    edtPage->setObjectName("edtPage");
    edtPage->setButtonSymbols(QAbstractSpinBox::NoButtons);
    edtPage->setAlignment(Qt::AlignRight);
    edtPage->setAccessibleName("Page");
    edtPage->setKeyboardTracking(false);
    connect(edtPage, &QSpinBox::valueChanged, this, [this](int page) { Guarded([this, page] { GoTo(page - 1); }); });
    addWidget(edtPage);
    lblPages = new QLabel(this);
    lblPages->setObjectName("lblPages");
    addWidget(lblPages);
    Add("actNext", "Next Page", "page-next", Qt::CTRL | Qt::Key_PageDown, [this] { GoTo(FPages.CurrentPage() + 1); });
    Add("actLast", "Last Page", "page-last", Qt::CTRL | Qt::Key_End, [this] { GoTo(FPages.PageCount() - 1); });
    addSeparator();
}

void TPreviewBar::AddZoom() {
    Add("actZoomOut", "Zoom Out", "zoom-out", QKeySequence::ZoomOut, [this] {
        if (FPages.Zoom() > ZoomStep) {
            FPages.SetZoom(FPages.Zoom() - ZoomStep);
        }
        ShowZoom();
    });
    cmbZoom = new QComboBox(this);
    cmbZoom->setObjectName("cmbZoom");
    cmbZoom->setAccessibleName("Zoom");
    cmbZoom->setEditable(true);
    cmbZoom->setInsertPolicy(QComboBox::NoInsert);
    cmbZoom->setMinimumContentsLength(10);
    cmbZoom->addItems({"200%", "150%", "100%", "75%", "50%", "25%", "Page Width", "Whole Page"});
    cmbZoom->setCurrentText(FZoomText);
    const auto entered = [this](const QString& text) { Guarded([this, &text] { ZoomBoxEntered(text); }); };
    connect(cmbZoom, &QComboBox::textActivated, this, entered);
    connect(cmbZoom->lineEdit(), &QLineEdit::returnPressed, this, [this, entered] { entered(cmbZoom->currentText()); });
    addWidget(cmbZoom);
    Add("actZoomIn", "Zoom In", "zoom-in", QKeySequence::ZoomIn, [this] {
        FPages.SetZoom(FPages.Zoom() + ZoomStep);
        ShowZoom();
    });
}

void TPreviewBar::AddClose(const std::function<void()>& handler) {
    auto* const space = new QWidget(this);
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    addWidget(space);
    Add("actClose", "&Close", "close", Qt::CTRL | Qt::Key_W, handler);
}

void TPreviewBar::GoTo(int page) {
    FPages.GoToPage(page);
    ShowPlace(); // Not every view tells of a move that it was asked for.
}

void TPreviewBar::ShowPlace() {
    const int count = FPages.PageCount();
    const QSignalBlocker quiet(edtPage);
    edtPage->setRange(std::min(1, count), count);
    edtPage->setValue(FPages.CurrentPage() + 1);
    lblPages->setText(QString(" of %1 ").arg(count));
}

void TPreviewBar::ShowZoom() {
    const QSignalBlocker quiet(cmbZoom);
    switch (FPages.Fit()) {
    case TPageFit::Width: FZoomText = "Page Width"; break;
    case TPageFit::Whole: FZoomText = "Whole Page"; break;
    case TPageFit::None:
        FZoomText = QString::fromStdString(vip::FormatMask("0", FPages.Zoom() * 100, FLocale)) + "%";
        break;
    }
    cmbZoom->setCurrentText(FZoomText);
}

void TPreviewBar::ZoomBoxEntered(const QString& text) {
    if (text == FZoomText) {
        return; // Said twice, or only rounded: the zoom itself may be finer than its text.
    }
    if (text.compare("Whole Page", Qt::CaseInsensitive) == 0) {
        FPages.SetFit(TPageFit::Whole);
    } else if (text.compare("Page Width", Qt::CaseInsensitive) == 0) {
        FPages.SetFit(TPageFit::Width);
    } else if (text.contains('%')) {
        const double zoom = vip::StrToNumber(QString(text).remove('%').toStdString(), FLocale) / 100;
        FPages.SetZoom(std::min(zoom, LargestZoom));
    }
    ShowZoom(); // Also where the entry was ignored.
}
