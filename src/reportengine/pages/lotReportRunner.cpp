// SPDX-License-Identifier: GPL-3.0-or-later
#include "reportengine/pages/lotReportRunner.h"

#include "common/vipErrors.h"

#include <algorithm>
#include <map>
#include <utility>

namespace report {

namespace {

constexpr std::size_t MostBands = 200'000; // More than any project can fill; a template that asks for more is at fault.

} // namespace

bool TReportRunner::TRows::BeginsGroup(std::size_t row, std::size_t level) const {
    return row == 0 || !std::equal(Keys[row].begin(), Keys[row].begin() + static_cast<std::ptrdiff_t>(level) + 1,
                                   Keys[row - 1].begin());
}

bool TReportRunner::TRows::EndsGroup(std::size_t row, std::size_t level) const {
    return row + 1 == Indexes.size() || BeginsGroup(row + 1, level);
}

std::vector<TFlowBand> TReportRunner::Run(const TTemplatePage& page) {
    FFlow.clear();
    FHeadStack.clear();
    RefreshHeads();
    const auto printAll = [&](TBandKind kind) {
        for (const TTemplateBand& band : page.Bands) {
            if (band.Kind == kind) {
                Print(band);
            }
        }
    };
    printAll(TBandKind::ReportTitle);
    for (const TTemplateBand& band : page.Bands) {
        if (band.Kind == TBandKind::MasterData) {
            RunData(band);
        }
    }
    printAll(TBandKind::Summary);
    return std::move(FFlow);
}

TReportRunner::TRows TReportRunner::FindRows(const TTemplateBand& band, TlotTable& table) const {
    TRows rows;
    for (table.First(); !table.Eof(); table.Next()) {
        if (!FScope.IsTrue(band.Filter, true)) {
            continue;
        }
        rows.Indexes.push_back(table.Position());
        std::vector<std::string>& keys = rows.Keys.emplace_back();
        for (const TTemplateBand& header : band.GroupHeaders) {
            keys.push_back(FScope.Evaluate(*header.On).AsText());
        }
    }
    if (band.Gather) {
        rows.Gather();
    }
    return rows;
}

/// Puts rows of equal keys behind each other, level by level, in the order of their first rows.
void TReportRunner::TRows::Gather() {
    std::map<std::vector<std::string>, std::size_t> ranks; // Of each group, by the keys down to it.
    std::vector<std::pair<std::vector<std::size_t>, std::size_t>> order;
    for (std::size_t row = 0; row < Keys.size(); ++row) {
        std::vector<std::size_t> path;
        std::vector<std::string> keys;
        for (const std::string& key : Keys[row]) {
            keys.push_back(key);
            path.push_back(ranks.emplace(keys, ranks.size()).first->second);
        }
        order.emplace_back(std::move(path), row);
    }
    std::ranges::sort(order); // The row number makes it stable.
    TRows gathered;
    for (const auto& [path, row] : order) {
        gathered.Indexes.push_back(Indexes[row]);
        gathered.Keys.push_back(std::move(Keys[row]));
    }
    *this = std::move(gathered);
}

void TReportRunner::RunData(const TTemplateBand& band) {
    TlotTable& table = *FScope.FindTable(band.DataSet);
    const TRows rows = FindRows(band, table);
    if (rows.Indexes.empty()) {
        table.First();
        return;
    }
    const std::size_t outerHeads = FHeadStack.size();
    const int outerRow = FScope.Row;
    FScope.PushRows(table, rows.Indexes);
    table.First();
    for (std::size_t row = 0; row < rows.Indexes.size(); ++row) {
        if (table.Position() > rows.Indexes[row]) {
            table.First(); // Gathered rows may stand further up.
        }
        while (table.Position() != rows.Indexes[row]) {
            table.Next(); // Past what the filter leaves out.
        }
        FScope.Row = static_cast<int>(row) + 1;
        if (row == 0) {
            for (const TTemplateBand& header : band.Headers) {
                PrintHead(header);
            }
        }
        OpenGroups(band, rows, row);
        PrintRow(band);
        CloseGroups(band, rows, row, table);
        if (row + 1 == rows.Indexes.size()) {
            for (const TTemplateBand& footer : band.Footers) {
                Print(footer);
            }
        }
    }
    FScope.PopRows();
    FScope.Row = outerRow;
    FHeadStack.resize(outerHeads);
    RefreshHeads();
    table.First();
}

void TReportRunner::OpenGroups(const TTemplateBand& band, const TRows& rows, std::size_t row) {
    for (std::size_t level = 0; level < band.GroupHeaders.size(); ++level) {
        if (rows.BeginsGroup(row, level)) {
            PrintHead(band.GroupHeaders[level]);
        }
    }
}

void TReportRunner::CloseGroups(const TTemplateBand& band, const TRows& rows, std::size_t row, const TlotTable& table) {
    for (std::size_t level = band.GroupHeaders.size(); level-- > 0;) {
        if (!rows.EndsGroup(row, level)) {
            continue;
        }
        std::size_t first = row;
        while (!rows.BeginsGroup(first, level)) {
            --first;
        }
        const auto begin = rows.Indexes.begin();
        FScope.PushRows(table, std::vector<int>(begin + static_cast<std::ptrdiff_t>(first),
                                                begin + static_cast<std::ptrdiff_t>(row) + 1));
        for (const TTemplateBand& footer : band.GroupFooters) {
            if (footer.Group == band.GroupHeaders[level].Name) {
                Print(footer);
            }
        }
        FScope.PopRows();
        FHeadStack.pop_back();
        RefreshHeads();
    }
}

void TReportRunner::PrintRow(const TTemplateBand& band) {
    const int outerKeep = FKeepId;
    if (band.KeepTogether && FKeepId == 0) {
        FKeepId = ++FLastKeepId;
    }
    Print(band);
    for (const TTemplateBand& detail : band.Details) {
        RunData(detail);
    }
    FKeepId = outerKeep;
}

bool TReportRunner::Print(const TTemplateBand& band) {
    if (!FScope.IsTrue(band.Visible, true)) {
        return false;
    }
    if (FFlow.size() >= MostBands) {
        FailAt(band.Place, "The report grows without end.");
    }
    if (band.KeepWithPrevious && !FFlow.empty()) {
        FFlow.back().KeepWithNext = true;
    }
    TFlowBand flow;
    flow.Band = FMaker.Make(band);
    flow.KeepWithNext = band.KeepWithNext;
    flow.NewPage = FScope.IsTrue(band.NewPage, false);
    flow.PageBreakAfter = FScope.IsTrue(band.PageBreakAfter, false);
    flow.KeepId = FKeepId;
    flow.Bookmark = FScope.Text(band.Bookmark);
    flow.BookmarkLevel = band.BookmarkLevel;
    flow.RunningHead = FRunningHead;
    flow.Heads = FHeads;
    FFlow.push_back(std::move(flow));
    return true;
}

void TReportRunner::PrintHead(const TTemplateBand& band) {
    THead head;
    head.RunningHead = FScope.Text(band.RunningHead);
    if (!head.RunningHead.isEmpty()) {
        FRunningHead = head.RunningHead; // Before printing: if the head begins a page, the page header shows it.
    }
    const bool printed = Print(band);
    if (printed && band.Repeat) {
        FScope.Continued = true;
        head.Repeated = FMaker.Make(band);
        head.Repeated->Repeated = true;
        FScope.Continued = false;
    }
    FHeadStack.push_back(std::move(head));
    RefreshHeads();
}

void TReportRunner::RefreshHeads() {
    THeads heads;
    FRunningHead.clear();
    for (const THead& head : FHeadStack) {
        if (head.Repeated) {
            heads.push_back(*head.Repeated);
        }
        if (!head.RunningHead.isEmpty()) {
            FRunningHead = head.RunningHead;
        }
    }
    FHeads = heads.empty() ? nullptr : std::make_shared<const THeads>(std::move(heads));
}

} // namespace report
