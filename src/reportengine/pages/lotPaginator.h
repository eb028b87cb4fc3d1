// SPDX-License-Identifier: GPL-3.0-or-later
//
// Cuts printed bands into pages. Bands that belong together stay on one page as far as a page can hold them; a text
// that is longer than the room left goes on on the next page.
#pragma once

#include "reportengine/pages/lotReportRunner.h"

#include <span>

namespace report {

/// Where a document ended, so that another template can go on there.
struct TPageCursor {
    double Top = 0;    ///< Where the next band goes.
    double Bottom = 0; ///< Where the room ends.
};

class TPaginator {
public:
    /// Pages are added to `report`, which must outlive this. Page headers and footers are made by `maker`.
    TPaginator(TPreparedReport& report, TPageCursor& cursor, const TTemplatePage& page, TReportScope& scope,
               TBandMaker& maker)
        : FReport(report), FCursor(cursor), FPage(page), FScope(scope), FMaker(maker) {}

    void Place(std::vector<TFlowBand> flow);

private:
    void StartPage(const TFlowBand& first, bool partStart);
    [[nodiscard]] std::vector<TPreparedBand> PageBands(TBandKind kind, bool firstPage);
    /// The end of the block that begins there: what must stay on one page with it.
    [[nodiscard]] static std::size_t BlockEnd(std::span<const TFlowBand> flow, std::size_t begin);
    void PlaceBlock(std::span<TFlowBand> block);
    void PlaceBand(TFlowBand& flow);
    void PlaceSplit(TFlowBand& flow);
    void Append(TFlowBand& flow);
    [[nodiscard]] double Room() const { return FCursor.Bottom - FCursor.Top; }

    TPreparedReport& FReport;
    TPageCursor& FCursor;
    const TTemplatePage& FPage;
    TReportScope& FScope;
    TBandMaker& FMaker;
    bool FFresh = false;     // Nothing on the page yet but heads.
    bool FFirstPage = true;  // None begun yet.
    bool FMustBreak = false; // Before whatever comes next.
};

} // namespace report
