// SPDX-License-Identifier: GPL-3.0-or-later
//
// Makes one printing of a band: fills its texts, breaks them into lines, lets the band grow with them.
#pragma once

#include "common/vipNumber.h"
#include "reportengine/pages/lotPreparedReport.h"
#include "reportengine/pages/lotReportScope.h"
#include "reportengine/pages/lotTextLayout.h"
#include "reportengine/template/lotReportTemplate.h"

namespace report {

class TBandMaker {
public:
    /// `locale` separates figures.
    TBandMaker(const TReportScope& scope, const TNumberLocale& locale) : FScope(scope), FLocale(locale) {}

    /// Throws ELotError that names the place of what can't be computed.
    [[nodiscard]] TPreparedBand Make(const TTemplateBand& band);

private:
    [[nodiscard]] TPreparedItem MakeItem(const TTemplateObject& object, const QRectF& rect);
    /// The items of an object: one, or one for each row of the table that it runs across.
    [[nodiscard]] std::vector<TPreparedItem> MakeItems(const TTemplateObject& object);
    /// Gives the item its text, and the height that this takes.
    void MakeText(const TTemplateText& source, bool collapse, TPreparedItem& item);
    /// What a part says; a figure that stands alone is kept in `text`.
    [[nodiscard]] QString PartText(const TTextPart& part, bool alone, TPreparedText& text) const;
    [[nodiscard]] TPreparedChart MakeChart(const TTemplateChart& source) const;

    const TReportScope& FScope;
    TNumberLocale FLocale;
    TTextMeasure FMeasure;
};

} // namespace report
