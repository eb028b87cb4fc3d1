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
    void MakeText(const TTemplateObject& object, TPreparedItem& item);
    [[nodiscard]] QString PartText(const TTemplateObject& object, const TTextPart& part, TPreparedItem& item) const;
    void MakeChart(const TTemplateObject& object, TPreparedItem& item) const;

    const TReportScope& FScope;
    TNumberLocale FLocale;
    TTextMeasure FMeasure;
};

} // namespace report
