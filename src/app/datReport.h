// SPDX-License-Identifier: GPL-3.0-or-later
//
// The data module of reports: holds the two report engines, loads templates into them, answers the few variables that a
// template may ask for, sets pictures and colours, and sends finished reports to the preview or to a PDF.
#pragma once

#include "app/datApp.h"
#include "app/datProject.h"
#include "app/lotReportEngine.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

/// What the exports say of themselves, but for the title of a report saved by its name.
[[nodiscard]] TlotDocumentTexts ReportDocumentTexts();

/// Where the templates and the firm's settings come from; the folders end in "/".
struct TReportFolders {
    std::string Older;
    std::string Newer;
};

class TReportData {
public:
    /// All that is handed in must outlive it; `previewer` may be null where nobody looks. The engines get the tables
    /// and the callbacks; one object may stand for both.
    TReportData(TProjectData& data, const TlotOptions& options, TReportFolders folders, TlotReportEngine& older,
                TlotReportEngine& newer, TlotReportPreviewer* previewer);

    std::string Title; ///< Of the report; set before it is made.

    [[nodiscard]] TProjectData& Data() noexcept { return FData; }

    // File names are relative to the engine's folder, or whole. Each loads, sets the pictures and prepares. They throw
    // what the engine throws.
    void LoadTemplate4(const std::string& fileName);
    void LoadComposite4(std::span<const std::string> fileNames);
    void LoadTemplate2(const std::string& fileName);
    /// As LoadTemplate4, over other tables and variables than the project's; those of `getValue` come first.
    void LoadTemplate4(const std::string& fileName, std::span<TlotTable* const> tables,
                       const std::function<std::optional<TlotReportValue>(std::string_view)>& getValue);
    /// From now on that template (a whole name) stands in for whatever the newer engine is asked to load.
    void UseTemplate(std::string fileName) { FTrialTemplate = std::move(fileName); }

    void Preview2();
    void Preview4();
    void ExportPDF2(const std::string& title, const std::string& fileName);
    void ExportPDF4(const std::string& title, const std::string& fileName);
    /// The prepared report of the newer engine in any format.
    void Export4(TlotExportFormat format, const std::string& title, const std::string& fileName);

    /// The value of a report variable, ignoring case; nothing for a name that is none.
    [[nodiscard]] std::optional<TlotReportValue> frxReportGetValue(std::string_view name) const;

private:
    void Connect(TlotReportEngine& engine);
    void frxReportBeforePrint(TlotReportEngine& engine) const;
    [[nodiscard]] TgxFR4Preview MakePreview(TlotReportEngine& engine) const;

    TProjectData& FData;
    const TlotOptions& FOptions;
    TReportFolders FFolders;
    TlotReportEngine& FReport2;
    TlotReportEngine& FReport4;
    TlotReportPreviewer* FPreviewer; // Not owned.
    std::string FTrialTemplate;
};
