// SPDX-License-Identifier: GPL-3.0-or-later
//
// The pages of a finished report below each other, to be scrolled and zoomed. Only what is in view is drawn, straight
// from the report, so that any zoom is crisp and none costs memory.
#pragma once

#include "reportengine/pages/lotPreparedReport.h"
#include "widgets/lotPreviewPages.h"

#include <QAbstractScrollArea>
#include <optional>

/// A text of the report that was found.
struct TFoundText {
    int Page = 0;
    QRectF Rect; ///< On the page, twips.
};

class TReportPages : public QAbstractScrollArea, public TPreviewPages {
    Q_OBJECT

public:
    explicit TReportPages(QWidget* parent = nullptr);
    ~TReportPages() override;

    /// The report must outlive the widget, or another must be set before it goes; null shows none.
    void SetReport(const report::TPreparedReport* report);

    [[nodiscard]] double Zoom() const noexcept override { return FZoom; }
    void SetZoom(double zoom) override;
    void SetFit(TPageFit fit) override;
    [[nodiscard]] TPageFit Fit() const noexcept override { return FFit; }

    [[nodiscard]] int PageCount() const override;
    [[nodiscard]] const report::TPreparedPage& Page(int page) const;
    /// The place of a page in the viewport, out of view maybe.
    [[nodiscard]] QRectF ViewRect(int page) const;
    [[nodiscard]] int CurrentPage() const override;
    void GoToPage(int page) override;
    /// Brings a place of a page to the upper edge of the view.
    void GoTo(int page, double top);
    /// Marks a text and brings it into view; nothing takes the mark away.
    void ShowFound(const std::optional<TFoundText>& found);
    [[nodiscard]] const std::optional<TFoundText>& Found() const noexcept { return FFound; }

signals:
    void PlaceChanged(); ///< Another page is current, or there are others.
    void ZoomChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void TellPlace();
    [[nodiscard]] double PixelsPerTwip() const;
    /// Of a page in the whole of pages, in pixels at the present zoom.
    [[nodiscard]] double TopOf(int page) const;
    [[nodiscard]] double WholeHeight() const { return TopOf(PageCount()); }
    [[nodiscard]] double WidestPage() const;
    [[nodiscard]] int PageAt(double y) const;
    [[nodiscard]] double ScrollTop() const;
    void SetScrollTop(double top);
    void ApplyFit();
    void ChangeZoom(double zoom);
    void UpdateScrollBars();

    const report::TPreparedReport* FReport = nullptr; // Not owned.
    double FZoom = 1;
    TPageFit FFit = TPageFit::None;
    double FScrollUnit = 1; // Pixels to a step of the vertical bar: more than one where a bar could not count them.
    std::optional<TFoundText> FFound;
    int FToldPage = -1; // The last page that was told to be current.
};
