// SPDX-License-Identifier: GPL-3.0-or-later
//
// Walks the data of one template page and prints its bands behind each other, on paper without an end; the paginator
// cuts it into pages.
#pragma once

#include "reportengine/pages/lotBandMaker.h"
#include "reportengine/pages/lotReportScope.h"
#include "reportengine/template/lotReportTemplate.h"

#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace report {

/// Heads that a page begins with when its rows go on from the page before.
using THeads = std::vector<TPreparedBand>;

/// A printed band on its way to a page.
struct TFlowBand {
    TPreparedBand Band;
    bool KeepWithNext = false;
    bool NewPage = false; ///< Before it.
    bool PageBreakAfter = false;
    int KeepId = 0; ///< Bands of one number other than 0 stay together.
    QString Bookmark;
    int BookmarkLevel = 0;
    QString RunningHead;
    std::shared_ptr<const THeads> Heads; ///< Null for none.
};

class TReportRunner {
public:
    TReportRunner(TReportScope& scope, TBandMaker& maker) : FScope(scope), FMaker(maker) {}

    /// All bands but page headers and footers. Leaves each table at its first row. Throws ELotError that names the
    /// place.
    [[nodiscard]] std::vector<TFlowBand> Run(const TTemplatePage& page);

private:
    /// The rows of a data band, found before the first is printed, and where its groups begin and end.
    struct TRows {
        std::vector<int> Indexes;
        std::vector<std::vector<std::string>> Keys; ///< For each row, of each group level.

        [[nodiscard]] bool BeginsGroup(std::size_t row, std::size_t level) const;
        [[nodiscard]] bool EndsGroup(std::size_t row, std::size_t level) const;
        void Gather();
    };

    void RunData(const TTemplateBand& band);
    [[nodiscard]] TRows FindRows(const TTemplateBand& band, TlotTable& table) const;
    void OpenGroups(const TTemplateBand& band, const TRows& rows, std::size_t row);
    void CloseGroups(const TTemplateBand& band, const TRows& rows, std::size_t row, const TlotTable& table);
    void PrintRow(const TTemplateBand& band);
    /// False where the band isn't visible.
    bool Print(const TTemplateBand& band);
    /// Prints a head and, if it repeats, holds it ready for the pages that follow.
    void PrintHead(const TTemplateBand& band);
    void RefreshHeads();

    struct THead {
        std::optional<TPreparedBand> Repeated;
        QString RunningHead;
    };

    TReportScope& FScope;
    TBandMaker& FMaker;
    std::vector<TFlowBand> FFlow;
    std::vector<THead> FHeadStack; // From the outermost in.
    std::shared_ptr<const THeads> FHeads;
    QString FRunningHead;
    int FKeepId = 0;
    int FLastKeepId = 0;
};

} // namespace report
