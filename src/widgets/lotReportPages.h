// SPDX-License-Identifier: GPL-3.0-or-later
//
// The pages of a finished report below each other, to be scrolled and zoomed. Only what is in view is drawn, straight
// from the report, so that any zoom is crisp and none costs memory.
#pragma once

#include "reportengine/pages/lotPreparedReport.h"

#include <QAbstractScrollArea>
#include <cstdint>
#include <optional>

enum class TPageFit : std::uint8_t { None, Width, Whole };

/// A text of the report that was found.
struct TFoundText {
    int Page = 0;
    QRectF Rect; ///< On the page, twips.
};

class TReportPages : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit TReportPages(QWidget* parent = nullptr);

    /// The report must outlive the widget, or another must be set before it goes; null shows none.
    void SetReport(const report::TPreparedReport* report);

    [[nodiscard]] double Zoom() const noexcept { return FZoom; } ///< 1 is the paper's own size at 96 to the inch.
    /// Ends any fit. A zoom of 0 or less is ignored.
    void SetZoom(double zoom);
    /// Kept while the window changes its size.
    void SetFit(TPageFit fit);
    [[nodiscard]] TPageFit Fit() const noexcept { return FFit; }

    [[nodiscard]] int PageCount() const;
    /// The page in the middle of the view, from 0; -1 without pages.
    [[nodiscard]] int CurrentPage() const;
    void GoToPage(int page);
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
    [[nodiscard]] double PixelsPerTwip() const;
    [[nodiscard]] const report::TPreparedPage& Page(int page) const;
    /// Of a page in the whole of pages, in pixels at the present zoom.
    [[nodiscard]] double TopOf(int page) const;
    [[nodiscard]] QRectF ViewRect(int page) const;
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
};
