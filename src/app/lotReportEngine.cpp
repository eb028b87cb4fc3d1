// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/lotReportEngine.h"

#include "common/vipText.h"

#include <filesystem>
#include <utility>

std::optional<TlotExportFormat> ExportFormatOf(std::string_view fileName) {
    const std::string extension = std::filesystem::path(fileName).extension().string();
    for (const auto& [text, format] :
         {std::pair{".pdf", TlotExportFormat::Pdf}, std::pair{".html", TlotExportFormat::Html},
          std::pair{".htm", TlotExportFormat::Html}, std::pair{".rtf", TlotExportFormat::Rtf},
          std::pair{".xls", TlotExportFormat::Xls}, std::pair{".xlsx", TlotExportFormat::Xlsx}}) {
        if (vip::SameText(extension, text)) {
            return format;
        }
    }
    return std::nullopt;
}
