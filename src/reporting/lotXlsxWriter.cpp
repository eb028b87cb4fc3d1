// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipErrors.h"
#include "reporting/lotWorkbook.h"

#include <xlsxwriter.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr std::uint8_t BuiltInAccounting = 37; // "#,##0_);(#,##0)"; the next one has the negatives in red.

/// A folder for the library to work in; it writes files only.
class TWorkFolder {
public:
    TWorkFolder() : FPath((fs::temp_directory_path() / "lotmaster-XXXXXX").string()) {
        if (::mkdtemp(FPath.data()) == nullptr) {
            throw EFileError(FPath + ": The temporary folder cannot be written to.");
        }
    }
    TWorkFolder(const TWorkFolder&) = delete;
    TWorkFolder& operator=(const TWorkFolder&) = delete;
    ~TWorkFolder() {
        std::error_code ignored;
        fs::remove_all(FPath, ignored);
    }

    [[nodiscard]] const std::string& Path() const noexcept { return FPath; }
    [[nodiscard]] std::string File() const { return FPath + "/sheet.xlsx"; }

private:
    std::string FPath;
};

struct TDiscard {
    // Not closed yet when something failed: closing frees it, and what it writes goes with the folder.
    void operator()(lxw_workbook* workbook) const { workbook_close(workbook); }
};
using TWorkbook = std::unique_ptr<lxw_workbook, TDiscard>;

void Check(lxw_error error) {
    if (error != LXW_NO_ERROR) {
        throw ELotError(std::string("The workbook cannot be written: ") + lxw_strerror(error));
    }
}

lxw_format* AddFormat(lxw_workbook& workbook, const TSpreadsheetPage& page, const TSpreadsheetStyle& style) {
    lxw_format* const format = workbook_add_format(&workbook);
    format_set_font_name(format, page.FontName.c_str());
    format_set_font_size(format, page.FontSize + style.SizeDelta);
    if (style.Format == AccountingFormat || style.Format == AccountingRedFormat) {
        format_set_num_format_index(format,
                                    style.Format == AccountingFormat ? BuiltInAccounting : BuiltInAccounting + 1);
    } else if (!style.Format.empty()) {
        format_set_num_format(format, WorkbookFormat(style.Format).c_str());
    }
    if (style.Bold) {
        format_set_bold(format);
    }
    switch (style.Alignment) {
    case TlotAlignment::Left: format_set_align(format, LXW_ALIGN_LEFT); break;
    case TlotAlignment::Centre: format_set_align(format, LXW_ALIGN_CENTER); break;
    case TlotAlignment::Right: format_set_align(format, LXW_ALIGN_RIGHT); break;
    case TlotAlignment::General: break;
    }
    if (style.Background != 0) {
        format_set_pattern(format, LXW_PATTERN_SOLID);
        format_set_fg_color(format, SheetColour(style.Background));
    }
    if (style.FontColour != 0) {
        format_set_font_color(format, SheetColour(style.FontColour));
    }
    return format;
}

void WriteCells(lxw_worksheet& sheet, const TSpreadsheetPage& page, const std::vector<lxw_format*>& formats) {
    for (int row = 0; row < page.RowCount(); ++row) {
        for (int column = 0; column < page.ColumnCount(); ++column) {
            const TSpreadsheetCell& cell = page.Cell(row, column);
            const auto r = static_cast<lxw_row_t>(row);
            const auto c = static_cast<lxw_col_t>(column);
            lxw_format* const format = formats[cell.Style];
            switch (cell.Kind) {
            case TSpreadsheetCell::TKind::Number:
                Check(worksheet_write_number(&sheet, r, c, WorkbookNumber(page.StyleOf(cell).Format, cell.Number),
                                             format));
                break;
            case TSpreadsheetCell::TKind::Text:
                Check(worksheet_write_string(&sheet, r, c, page.TextOf(cell).c_str(), format));
                break;
            case TSpreadsheetCell::TKind::Empty:
                if (cell.Style != 0) {
                    Check(worksheet_write_blank(&sheet, r, c, format));
                }
                break;
            }
        }
    }
}

void SetUpSheet(lxw_worksheet& sheet, const TSpreadsheetPage& page, lxw_format* plain) {
    for (int column = 0; column < page.ColumnCount(); ++column) {
        const auto c = static_cast<lxw_col_t>(column);
        Check(worksheet_set_column(&sheet, c, c, WorkbookWidth(page.ColumnWidth(column)), plain));
    }
    worksheet_set_default_row(&sheet, WorkbookRowHeight(page, 0), LXW_FALSE);
    for (int row = 0; row < page.RowCount(); ++row) {
        if (const int delta = page.RowSizeDelta(row); delta > 0) {
            Check(worksheet_set_row(&sheet, static_cast<lxw_row_t>(row), WorkbookRowHeight(page, delta), nullptr));
        }
    }
    const auto rows = static_cast<lxw_row_t>(page.FrozenRows);
    const auto columns = static_cast<lxw_col_t>(page.FrozenColumns);
    worksheet_freeze_panes(&sheet, rows, columns);
    if (page.FitsPageWidth) {
        worksheet_fit_to_pages(&sheet, 1, 0);
    } else {
        worksheet_set_landscape(&sheet);
    }
    worksheet_set_paper(&sheet, 9); // A4
    if (rows > 0) {
        Check(worksheet_repeat_rows(&sheet, 0, rows - 1));
    }
    if (columns > 0) {
        Check(worksheet_repeat_columns(&sheet, 0, static_cast<lxw_col_t>(columns - 1)));
    }
    Check(worksheet_set_footer(&sheet, "&L&A&RPage &P of &N"));
}

} // namespace

std::string XlsxBytes(const TSpreadsheetPage& page) {
    if (page.ColumnCount() > LXW_COL_MAX || page.RowCount() > LXW_ROW_MAX) {
        throw ELotError("An .xlsx workbook has at most 16,384 columns and 1,048,576 rows.");
    }
    const TWorkFolder folder;
    std::string temporary = folder.Path();
    lxw_workbook_options options{};
    options.tmpdir = temporary.data();
    TWorkbook workbook(workbook_new_opt(folder.File().c_str(), &options));
    if (!workbook) {
        throw ELotError("There is not enough memory for the workbook.");
    }
    lxw_doc_properties properties{};
    std::string title = page.Title;
    properties.title = title.data();
    properties.created = 946'684'800; // Always the same, so that the same sheet gives the same file.
    Check(workbook_set_properties(workbook.get(), &properties));
    lxw_worksheet* const sheet =
        workbook_add_worksheet(workbook.get(), page.Title.empty() ? nullptr : page.Title.c_str());
    if (sheet == nullptr) {
        throw ELotError("\"" + page.Title + "\" cannot be the name of a sheet.");
    }
    std::vector<lxw_format*> formats;
    for (const TSpreadsheetStyle& style : page.Styles()) {
        formats.push_back(AddFormat(*workbook, page, style));
    }
    SetUpSheet(*sheet, page, formats.front());
    WriteCells(*sheet, page, formats);
    Check(workbook_close(workbook.release()));

    std::ifstream file(folder.File(), std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (!file || bytes.empty()) {
        throw EFileError(folder.File() + ": The temporary file cannot be read.");
    }
    return bytes;
}
