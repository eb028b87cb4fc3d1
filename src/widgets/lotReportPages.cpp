// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotReportPages.h"

#include "reportengine/pages/lotReportPainter.h"
#include "widgets/lotAccessibleParts.h"
#include "widgets/lotListAccessible.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace {

constexpr double Gap = 16;         // Pixels between pages and around them.
constexpr double MostSteps = 1e9;  // That a scroll bar is given; it counts in int.
constexpr double WheelZoom = 0.25; // By which a notch of the wheel changes the zoom.
constexpr double SmallestZoom = 0.01;
constexpr double ShadowOffset = 2;
constexpr int ShadowAlpha = 90;
constexpr QRgb FoundMark = 0xFFFFE082; // Behind a text that was found: on paper, which is white in any palette.

} // namespace

TReportPages::TReportPages(QWidget* parent) : QAbstractScrollArea(parent) {
    InstallListAccessible();
    setObjectName("ReportPages");
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName("Pages");
    viewport()->setBackgroundRole(QPalette::NoRole);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
}

TReportPages::~TReportPages() {
    DropAccessible(*this);
}

/// To whoever listens, and to assistive programs where the page is another one.
void TReportPages::TellPlace() {
    if (const int page = CurrentPage(); page != FToldPage) {
        FToldPage = page;
        TellCurrentPart(*this);
    }
    emit PlaceChanged();
}

void TReportPages::SetReport(const report::TPreparedReport* report) {
    FReport = report;
    FFound.reset();
    ApplyFit();
    UpdateScrollBars();
    viewport()->update();
    FToldPage = -1;
    TellPartsRebuilt(*this);
    TellPlace();
}

int TReportPages::PageCount() const {
    return FReport == nullptr ? 0 : static_cast<int>(FReport->Pages.size());
}

const report::TPreparedPage& TReportPages::Page(int page) const {
    return FReport->Pages[static_cast<std::size_t>(page)];
}

double TReportPages::PixelsPerTwip() const {
    return FZoom * 96 / report::TwipsPerInch;
}

double TReportPages::TopOf(int page) const {
    double top = Gap;
    for (int i = 0; i < page; ++i) {
        top += std::round(Page(i).Size.height() * PixelsPerTwip()) + Gap;
    }
    return top;
}

double TReportPages::WidestPage() const {
    double widest = 0;
    for (int i = 0; i < PageCount(); ++i) {
        widest = std::max(widest, Page(i).Size.width());
    }
    return widest;
}

QRectF TReportPages::ViewRect(int page) const {
    const QSizeF size = Page(page).Size * PixelsPerTwip();
    const double spare = viewport()->width() - size.width();
    const double left = spare > 2 * Gap ? spare / 2 : Gap - horizontalScrollBar()->value();
    return {std::round(left), std::round(TopOf(page) - ScrollTop()), std::round(size.width()),
            std::round(size.height())};
}

int TReportPages::PageAt(double y) const {
    double bottom = Gap;
    for (int i = 0; i < PageCount(); ++i) {
        bottom += std::round(Page(i).Size.height() * PixelsPerTwip()) + Gap;
        if (y < bottom - Gap / 2) {
            return i;
        }
    }
    return PageCount() - 1;
}

int TReportPages::CurrentPage() const {
    // Scrolled to the top, the first page is current, and at the bottom the last, even if another one fills the middle.
    if (verticalScrollBar()->value() == 0) {
        return std::min(0, PageCount() - 1);
    }
    if (verticalScrollBar()->value() == verticalScrollBar()->maximum()) {
        return PageCount() - 1;
    }
    return PageAt(ScrollTop() + viewport()->height() / 2.0);
}

double TReportPages::ScrollTop() const {
    return verticalScrollBar()->value() * FScrollUnit;
}

void TReportPages::SetScrollTop(double top) {
    verticalScrollBar()->setValue(static_cast<int>(std::clamp(std::round(top / FScrollUnit), 0.0, MostSteps)));
}

void TReportPages::UpdateScrollBars() {
    const double height = WholeHeight();
    FScrollUnit = std::max(1.0, height / MostSteps);
    const double spare = std::max(0.0, height - viewport()->height());
    verticalScrollBar()->setPageStep(std::max(1, static_cast<int>(viewport()->height() / FScrollUnit)));
    verticalScrollBar()->setSingleStep(std::max(1, static_cast<int>(40 / FScrollUnit)));
    verticalScrollBar()->setRange(0, static_cast<int>(spare / FScrollUnit));
    const double width = WidestPage() * PixelsPerTwip() + 2 * Gap;
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setSingleStep(40);
    horizontalScrollBar()->setRange(0, static_cast<int>(std::clamp(width - viewport()->width(), 0.0, MostSteps)));
}

void TReportPages::ApplyFit() {
    if (FFit == TPageFit::None || PageCount() == 0) {
        return;
    }
    const double perPixel = report::TwipsPerInch / 96;
    // The bar's room is kept free whether it shows or not: else the fit and the bar would chase each other.
    const double bar = verticalScrollBar()->isVisible() ? 0 : verticalScrollBar()->sizeHint().width();
    double zoom = (viewport()->width() - 2 * Gap - bar) * perPixel / WidestPage();
    if (FFit == TPageFit::Whole) {
        const double height = Page(std::max(0, CurrentPage())).Size.height();
        zoom = std::min(zoom, (viewport()->height() - 2 * Gap) * perPixel / height);
    }
    ChangeZoom(std::max(SmallestZoom, zoom));
}

void TReportPages::ChangeZoom(double zoom) {
    if (zoom == FZoom) {
        return;
    }
    // What stands at the upper edge stays there.
    const int page = std::max(0, PageAt(ScrollTop()));
    const double within = PageCount() == 0 ? 0 : (ScrollTop() - TopOf(page)) / FZoom;
    FZoom = zoom;
    UpdateScrollBars();
    if (PageCount() > 0) {
        SetScrollTop(TopOf(page) + within * FZoom);
    }
    viewport()->update();
    emit ZoomChanged();
    TellPlace();
}

void TReportPages::SetZoom(double zoom) {
    if (!(zoom > 0)) {
        return;
    }
    FFit = TPageFit::None;
    ChangeZoom(zoom);
}

void TReportPages::SetFit(TPageFit fit) {
    FFit = fit;
    ApplyFit();
    emit ZoomChanged();
}

void TReportPages::GoToPage(int page) {
    if (PageCount() > 0) {
        SetScrollTop(TopOf(std::clamp(page, 0, PageCount() - 1)) - Gap);
    }
}

void TReportPages::GoTo(int page, double top) {
    if (PageCount() > 0) {
        SetScrollTop(TopOf(std::clamp(page, 0, PageCount() - 1)) + top * PixelsPerTwip() - Gap);
    }
}

void TReportPages::ShowFound(const std::optional<TFoundText>& found) {
    FFound = found;
    if (found && found->Page < PageCount()) {
        const QRectF page = ViewRect(found->Page);
        const double top = page.top() + found->Rect.top() * PixelsPerTwip();
        const double left = page.left() + found->Rect.left() * PixelsPerTwip();
        if (top < Gap || top + found->Rect.height() * PixelsPerTwip() > viewport()->height() - Gap) {
            SetScrollTop(ScrollTop() + top - viewport()->height() / 3.0);
        }
        if (left < 0 || left > viewport()->width() - 5 * Gap) {
            horizontalScrollBar()->setValue(horizontalScrollBar()->value() + static_cast<int>(left - 5 * Gap));
        }
    }
    viewport()->update();
}

void TReportPages::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.fillRect(event->rect(), palette().color(QPalette::Window).darker(112));
    QColor shadow = palette().color(QPalette::Shadow);
    shadow.setAlpha(ShadowAlpha);
    for (int i = std::max(0, PageAt(ScrollTop())); i < PageCount(); ++i) {
        const QRectF rect = ViewRect(i);
        if (rect.top() > viewport()->height()) {
            break;
        }
        painter.fillRect(rect.translated(ShadowOffset, ShadowOffset).adjusted(0, 0, 1, 1), shadow);
        painter.fillRect(rect, Qt::white);
        painter.save();
        painter.setClipRect(rect.intersected(event->rect()));
        painter.setRenderHints(QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
        painter.translate(rect.topLeft());
        painter.scale(PixelsPerTwip(), PixelsPerTwip());
        if (FFound && FFound->Page == i) {
            painter.fillRect(FFound->Rect.adjusted(-30, 0, 30, 0), QColor::fromRgb(FoundMark));
        }
        report::PaintPage(painter, *FReport, Page(i));
        painter.restore();
    }
}

void TReportPages::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    ApplyFit();
    UpdateScrollBars();
    TellPlace();
}

void TReportPages::scrollContentsBy(int /*dx*/, int /*dy*/) {
    viewport()->update();
    TellPlace();
}

void TReportPages::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    const double steps = event->angleDelta().y() / 120.0;
    SetZoom(std::max(WheelZoom, FZoom + steps * WheelZoom));
    event->accept();
}

void TReportPages::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_PageUp: GoToPage(CurrentPage() - 1); break;
    case Qt::Key_PageDown: GoToPage(CurrentPage() + 1); break;
    case Qt::Key_Home: GoToPage(0); break;
    case Qt::Key_End: GoToPage(PageCount() - 1); break;
    default: QAbstractScrollArea::keyPressEvent(event); break;
    }
}
