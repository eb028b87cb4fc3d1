// SPDX-License-Identifier: GPL-3.0-or-later
//
// The pages that a preview shows, as its bar leads through them.
#pragma once

#include <cstdint>

enum class TPageFit : std::uint8_t { None, Width, Whole };

class TPreviewPages {
public:
    TPreviewPages() = default;
    TPreviewPages(const TPreviewPages&) = delete;
    TPreviewPages& operator=(const TPreviewPages&) = delete;
    virtual ~TPreviewPages() = default;

    [[nodiscard]] virtual int PageCount() const = 0;
    /// The page in the middle of the view, from 0; -1 without pages.
    [[nodiscard]] virtual int CurrentPage() const = 0;
    /// One that isn't there leads to the nearest.
    virtual void GoToPage(int page) = 0;

    [[nodiscard]] virtual double Zoom() const = 0; ///< 1 is the paper's own size at 96 to the inch.
    /// Ends any fit. A zoom of 0 or less is ignored.
    virtual void SetZoom(double zoom) = 0;
    [[nodiscard]] virtual TPageFit Fit() const = 0;
    /// Kept while the window changes its size.
    virtual void SetFit(TPageFit fit) = 0;
};
