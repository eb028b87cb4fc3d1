// SPDX-License-Identifier: GPL-3.0-or-later
//
// Finished reports as files of other programs, made whole in memory. PDF keeps the pages; the others are one flow of
// real tables, whose columns are the columns of the report, with the page footer once at the end.
#pragma once

#include "app/lotReportEngine.h"
#include "reportengine/pages/lotPreparedReport.h"

#include <QByteArray>
#include <string>

namespace report {

/// Compressed, fonts embedded, text that can be searched, and a bookmark for each entry of the outline. Throws
/// ELotError.
[[nodiscard]] QByteArray PdfBytes(const TPreparedReport& report, const TlotDocumentTexts& texts);
/// One file that holds its pictures and its style sheet.
[[nodiscard]] QByteArray HtmlBytes(const TPreparedReport& report, const TlotDocumentTexts& texts);
[[nodiscard]] QByteArray RtfBytes(const TPreparedReport& report, const TlotDocumentTexts& texts);
/// A workbook of one sheet, numbers as numbers with their formats. Throws ELotError where it has no room.
[[nodiscard]] std::string XlsReportBytes(const TPreparedReport& report, const TlotDocumentTexts& texts);
[[nodiscard]] std::string XlsxReportBytes(const TPreparedReport& report, const TlotDocumentTexts& texts);

} // namespace report
