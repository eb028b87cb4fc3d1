// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/lotSensitivityReport.h"

#include "common/vipText.h"

#include <utility>

namespace {

std::vector<TlotField> ItemFields() {
    return {{"Name", TlotFieldKind::LongText}, {"Value", TlotFieldKind::LongText}, {"Include", TlotFieldKind::Text, 3}};
}

void FillItems(TlotTable& table, const TSACategory* category, const TNumberLocale& locale) {
    table.Clear();
    for (int i = 0; category != nullptr && i < category->Count(); ++i) {
        table.Append()
            .Set("Name", category->ItemName(i))
            .Set("Value", category->ItemValue(i, locale))
            .Set("Include", std::string(category->Included(i) ? "Yes" : "No"));
    }
    table.First();
}

bool HasFiveSteps(const TSACategory* category) {
    return category != nullptr && category->StepCount == 5;
}

} // namespace

TlotSensitivityReport::TlotSensitivityReport(TReportData& data)
    : FData(data),
      FRows("SensitivityRows", {{"RowLabel", TlotFieldKind::LongText}}),
      FColumns("SensitivityColumns", {{"ColHeader", TlotFieldKind::LongText}}),
      FXItems("SensitivityXItems", ItemFields()),
      FYItems("SensitivityYItems", ItemFields()),
      FTables{&FRows, &FColumns, &FXItems, &FYItems} {}

void TlotSensitivityReport::Fill(const TSAPage& page, const TSAModel& model) {
    FRows.Clear();
    for (const std::string& label : page.RowLabels) {
        FRows.Append().Set("RowLabel", label);
    }
    FRows.First();
    FColumns.Clear();
    for (const std::string& label : page.ColumnLabels) {
        FColumns.Append().Set("ColHeader", label);
    }
    while (!FColumns.Eof()) {
        FColumns.Next();
    }
    FillItems(FXItems, model.Rows(), model.Locale);
    FillItems(FYItems, model.Columns(), model.Locale);
}

std::optional<TlotReportValue> TlotSensitivityReport::Value(std::string_view name, const TSAPage& page,
                                                            const TSAModel& model) const {
    const auto is = [&](const char* own) { return vip::SameText(name, own); };
    const auto axis = [](const TSACategory* category) { return category == nullptr ? std::string() : category->Name; };
    if (is("ReportCaption")) {
        return SensitivityCaption;
    }
    if (is("ReportHeader")) {
        return FData.Data().Project().Name;
    }
    if (is("ColHeader")) {
        return FColumns.Eof() ? page.ColumnTitle : FColumns.Current().Text("ColHeader");
    }
    if (is("RowHeader")) {
        return page.RowTitle;
    }
    if (is("RowCaption")) {
        return axis(model.Rows());
    }
    if (is("ColCaption")) {
        return axis(model.Columns());
    }
    if (is("RowLabel")) {
        return FRows.Current().Text("RowLabel");
    }
    if (is("RowCell")) {
        return FRows.Eof() || FColumns.Eof() ? std::string()
                                             : page.Cells.at(static_cast<std::size_t>(FRows.Position()))
                                                   .at(static_cast<std::size_t>(FColumns.Position()));
    }
    if (is("ResultCaption")) {
        return page.ResultTitle;
    }
    for (const auto& [prefix, table] : {std::pair{std::string("XCategory"), &FXItems}, {"YCategory", &FYItems}}) {
        for (const char* const field : {"Name", "Value", "Include"}) {
            if (is((prefix + field).c_str())) {
                return table->Current().Text(field);
            }
        }
    }
    return std::nullopt;
}

void TlotSensitivityReport::Make(const TSAPage& page, const TSAModel& model) {
    Fill(page, model);
    const bool small = HasFiveSteps(model.Rows()) && HasFiveSteps(model.Columns());
    FData.LoadTemplate4(small ? "LotSensitivity5x5.fr3" : "LotSensitivity.fr3", FTables,
                        [&](std::string_view name) { return Value(name, page, model); });
}
