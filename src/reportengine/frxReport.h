// SPDX-License-Identifier: GPL-3.0-or-later
//
// The report engine: a template, the tables and variables that it reads, and the pages that were made of it.
#pragma once

#include "app/lotReportEngine.h"
#include "common/vipNumber.h"
#include "reportengine/pages/lotPaginator.h"
#include "reportengine/template/lotReportTemplate.h"

#include <string>
#include <string_view>

class TfrxReport final : public TlotReportEngine {
public:
    /// `locale` separates figures. An application object must be there before a report is prepared.
    explicit TfrxReport(const TNumberLocale& locale) : FLocale(locale), FScope(*this) {}

    void Clear() override;
    void LoadFromFile(const std::string& fileName) override;
    [[nodiscard]] std::string TemplateFile() const override { return FTemplate.File; }
    [[nodiscard]] bool FindObject(std::string_view name) const override;
    void SetPicture(std::string_view name, const std::string& fileName, bool resize) override;
    void SetGradientColours(std::uint32_t start, std::uint32_t end) override;
    void Prepare(bool append) override;
    [[nodiscard]] int PageCount() const override { return static_cast<int>(FPrepared.Pages.size()); }
    void Export(TlotExportFormat format, const std::string& fileName, const TlotDocumentTexts& texts) override;

    /// The pages, as they are shown and exported. Changed by Prepare, Clear and SetGradientColours alone.
    [[nodiscard]] const report::TPreparedReport& Prepared() const noexcept { return FPrepared; }

private:
    /// Puts the numbers of pages into the texts that wait for them.
    void NumberPages();

    TNumberLocale FLocale;
    report::TReportScope FScope;
    report::TReportTemplate FTemplate;
    report::TPreparedReport FRaw; // With marks in place of page numbers.
    report::TPageCursor FCursor;
    report::TPreparedReport FPrepared;
};
