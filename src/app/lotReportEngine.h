// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the program asks of a report engine, and of whoever shows a finished report. The engine itself draws pages and
// so stands on the toolkit; this floor only tells it which template to load, what the template may ask for, and where
// the pages go.
#pragma once

#include "reporting/lotTable.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// What a variable of a report stands for.
using TlotReportValue = std::variant<std::string, double, bool>;

/// What an exported document says of itself.
struct TlotDocumentTexts {
    std::string Title;
    std::string Author;
    std::string Creator;
};

enum class TlotExportFormat : std::uint8_t { Pdf, Html, Rtf, Xls, Xlsx };

/// The format that a file's extension names, in any letter case; nothing for another one. ".htm" is HTML too.
[[nodiscard]] std::optional<TlotExportFormat> ExportFormatOf(std::string_view fileName);

class TlotReportEngine {
public:
    TlotReportEngine() = default;
    TlotReportEngine(const TlotReportEngine&) = delete;
    TlotReportEngine& operator=(const TlotReportEngine&) = delete;
    virtual ~TlotReportEngine() = default;

    /// The tables that templates may name; not owned. They must be filled when a report is prepared.
    std::vector<TlotTable*> DataSets;
    /// Answers a variable by its name; nothing where the name isn't known, and the engine goes on to its own.
    std::function<std::optional<TlotReportValue>(std::string_view name)> OnGetValue;
    /// Before pages are shown, printed or exported.
    std::function<void()> OnBeforePrint;

    /// Drops the template and the prepared pages.
    virtual void Clear() = 0;
    /// Replaces the template; prepared pages stay. Throws ELotError that names the file and the place of what is wrong
    /// in it; the template before stays then.
    virtual void LoadFromFile(const std::string& fileName) = 0;
    /// The file of the template, empty without one.
    [[nodiscard]] virtual std::string TemplateFile() const = 0;

    /// Whether the template holds an object of that name, ignoring case.
    [[nodiscard]] virtual bool FindObject(std::string_view name) const = 0;
    /// Loads a picture into every picture object of that name. `resize` gives the object the picture's own size, as far
    /// as the page allows. Throws ELotError for a file that is no picture.
    virtual void SetPicture(std::string_view name, const std::string& fileName, bool resize) = 0;
    /// The two colours (0xRRGGBB) of every gradient object, also on pages that are prepared already.
    virtual void SetGradientColours(std::uint32_t start, std::uint32_t end) = 0;

    /// Makes pages from the template and the tables as they stand; `append` keeps the pages there are and goes on
    /// behind them. Throws ELotError that names the template and the place, and leaves the prepared pages as they were.
    virtual void Prepare(bool append) = 0;
    [[nodiscard]] virtual int PageCount() const = 0;

    /// Writes the prepared pages whole or not at all. Throws ELotError without pages, EFileError where it can't write.
    virtual void Export(TlotExportFormat format, const std::string& fileName, const TlotDocumentTexts& texts) = 0;
};

/// A finished report of the newer engine on its way to the preview.
struct TgxFR4Preview {
    TlotReportEngine& Report;
    bool DesignEnabled = false;
    // For PDF and RTF exports.
    std::string Title;
    std::string Author;
    std::string Creator;
};

/// Shows finished reports to somebody, until they close the window.
class TlotReportPreviewer {
public:
    TlotReportPreviewer() = default;
    TlotReportPreviewer(const TlotReportPreviewer&) = delete;
    TlotReportPreviewer& operator=(const TlotReportPreviewer&) = delete;
    virtual ~TlotReportPreviewer() = default;

    virtual void Preview2(const TgxFR4Preview& preview) = 0; ///< In the window of the older engine.
    virtual void Preview4(const TgxFR4Preview& preview) = 0;
};
