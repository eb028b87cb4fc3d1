// SPDX-License-Identifier: GPL-3.0-or-later
#include "reportengine/exports/lotReportGrid.h"

#include "reportengine/pages/lotTextLayout.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numeric>
#include <span>
#include <variant>

namespace report {

namespace {

constexpr double SameEdge = 120;    // Twips; nearer edges are one.
constexpr double WideShare = 0.6;   // Of the page's width: a line that long rules the row, a shorter one a figure.
constexpr double RuleDistance = 80; // Twips between a rule and its row.
constexpr double HeadingGap = 5 * TwipsPerMm;
constexpr double Spare = 1.15; // Of a text's width: the fonts of other programs may be wider than ours.

bool IsCell(const TPreparedItem& item) {
    struct TSeen {
        bool operator()(const TPreparedText& text) const { return !text.Lines.empty() && !text.HoldsPageNumber; }
        bool operator()(const TPreparedPicture& picture) const { return picture.Image != nullptr; }
        bool operator()(const TPreparedChart& chart) const { return chart.Total > 0; }
        bool operator()(const TPreparedLine&) const { return false; }
        bool operator()(const TPreparedBox&) const { return false; }
        bool operator()(const TPreparedGradient&) const { return false; }
    };
    return std::visit(TSeen{}, item.Content);
}

bool IsRule(const TPreparedItem& item) {
    return (item.Is<TPreparedLine>() && item.Rect.height() == 0) ||
           (item.Is<TPreparedGradient>() && item.Rect.height() < 5 * TwipsPerMm);
}

/// Whether it is a text that is set to that side.
bool IsText(const TPreparedItem& item, TAlign align) {
    const auto* const text = item.As<TPreparedText>();
    return text != nullptr && text->Look.Align == align;
}

/// Where columns begin, from the items that stand on them.
class TColumns {
public:
    void Add(const TPreparedItem& item) {
        if (!IsText(item, TAlign::Right)) {
            FEdges.push_back(item.Rect.left());
        }
        if (!IsText(item, TAlign::Left)) {
            FEdges.push_back(item.Rect.right());
        }
    }

    void Add(const std::vector<double>& edges) { FEdges.insert(FEdges.end(), edges.begin(), edges.end()); }

    void Finish(double width) {
        FEdges.push_back(0);
        FEdges.push_back(width);
        std::ranges::sort(FEdges);
        std::vector<double> joined;
        for (const double edge : FEdges) {
            if (joined.empty() || edge - joined.back() > SameEdge) {
                joined.push_back(edge);
            }
        }
        if (joined.size() < 2) {
            joined.push_back(joined.front() + width);
        }
        FEdges = std::move(joined);
    }

    [[nodiscard]] TGridCell Place(const TPreparedItem& item) const {
        const int most = static_cast<int>(FEdges.size()) - 2;
        TGridCell cell{&item, 0, 1};
        if (IsText(item, TAlign::Right)) {
            const int last = std::clamp(Nearest(item.Rect.right()) - 1, 0, most);
            cell.Column = std::clamp(From(item.Rect.left()), 0, last);
            cell.Span = last - cell.Column + 1;
        } else {
            cell.Column = std::clamp(Nearest(item.Rect.left()), 0, most);
            const int last = std::clamp(UpTo(item.Rect.right()) - 1, cell.Column, most);
            cell.Span = last - cell.Column + 1;
        }
        return cell;
    }

    [[nodiscard]] double Begin(int column) const { return FEdges[static_cast<std::size_t>(column)]; }

    [[nodiscard]] std::vector<double> Widths() const {
        std::vector<double> widths;
        for (std::size_t i = 1; i < FEdges.size(); ++i) {
            widths.push_back(FEdges[i] - FEdges[i - 1]);
        }
        return widths;
    }

private:
    [[nodiscard]] int Nearest(double x) const {
        const auto nearest = std::ranges::min_element(FEdges, {}, [&](double edge) { return std::abs(edge - x); });
        return static_cast<int>(nearest - FEdges.begin());
    }
    /// The first edge that isn't left of x.
    [[nodiscard]] int From(double x) const {
        return static_cast<int>(std::ranges::lower_bound(FEdges, x - SameEdge) - FEdges.begin());
    }
    /// The last edge that isn't right of x.
    [[nodiscard]] int UpTo(double x) const {
        return static_cast<int>(std::ranges::upper_bound(FEdges, x + SameEdge) - FEdges.begin()) - 1;
    }

    std::vector<double> FEdges;
};

/// The rows of one band, from the top down.
struct TDraftRow {
    double Top = 0;
    double Bottom = 0;
    TGridRow Row;
};

bool Overlaps(const TGridCell& one, const TGridCell& other) {
    return one.Column < other.Column + other.Span && other.Column < one.Column + one.Span;
}

bool Overlaps(const TGridRow& row, const TGridCell& cell) {
    return std::ranges::any_of(row.Cells, [&](const TGridCell& other) { return Overlaps(other, cell); });
}

/// Of the widest line of a text, with something to spare; 0 for what is none.
double TextWidth(const TPreparedItem& item, TTextMeasure& measure) {
    const auto* const text = item.As<TPreparedText>();
    if (text == nullptr) {
        return 0;
    }
    double width = 0;
    for (const QString& line : text->Whole.split(u'\n')) {
        width = std::max(width, measure.Width(line, text->Look));
    }
    return width * Spare;
}

/// Gives cells the free room beside them. A figure that is wider than its columns takes one on its left, a text what is
/// left on its right.
void Widen(TGridRow& row, const std::vector<double>& widths, TTextMeasure& measure) {
    const auto room = [&](int column, int span) {
        return std::accumulate(widths.begin() + column, widths.begin() + column + span, 0.0);
    };
    const int columns = static_cast<int>(widths.size());
    int before = 0; // The columns that the cells on the left need.
    for (TGridCell& cell : row.Cells) {
        const double width = TextWidth(*cell.Item, measure);
        if (IsText(*cell.Item, TAlign::Right)) {
            while (cell.Column > before && room(cell.Column, cell.Span) < width) {
                --cell.Column;
                ++cell.Span;
            }
        }
        before = cell.Column + cell.Span;
        if (IsText(*cell.Item, TAlign::Left)) {
            // A text that wraps needs no more than the width that it was given.
            const double needed = std::min(width, cell.Item->Rect.width());
            while (before < columns && room(cell.Column, before - cell.Column) < needed) {
                ++before;
            }
        }
    }
    for (std::size_t i = 0; i < row.Cells.size(); ++i) {
        TGridCell& cell = row.Cells[i];
        const int next = i + 1 == row.Cells.size() ? columns : row.Cells[i + 1].Column;
        if (IsText(*cell.Item, TAlign::Left)) {
            cell.Span = next - cell.Column;
        }
    }
}

/// Whether two ranges of height share more than half of the smaller one.
bool SameHeight(double top1, double bottom1, double top2, double bottom2) {
    const double shared = std::min(bottom1, bottom2) - std::max(top1, top2);
    return shared > std::min(bottom1 - top1, bottom2 - top2) / 2;
}

/// Where columns must begin as well, so that items which stand beside each other in the band each have room.
std::vector<double> MissingEdges(const TPreparedBand& band, const TColumns& columns, TTextMeasure& measure) {
    std::vector<double> edges;
    const auto beside = [](const QRectF& left, const QRectF& right) {
        return left.right() <= right.left() + SameEdge / 2 &&
               SameHeight(left.top(), left.bottom(), right.top(), right.bottom());
    };
    for (const TPreparedItem& left : band.Items) {
        if (!IsCell(left)) {
            continue;
        }
        const double width =
            IsText(left, TAlign::Left) ? std::min(TextWidth(left, measure), left.Rect.width()) : left.Rect.width();
        for (const TPreparedItem& right : band.Items) {
            if (IsCell(right) && beside(left.Rect, right.Rect)) {
                const TGridCell cell = columns.Place(right);
                if (Overlaps(columns.Place(left), cell) ||
                    columns.Begin(cell.Column) + SameEdge / 2 < left.Rect.left() + width) {
                    edges.push_back(right.Rect.left());
                }
            }
        }
    }
    return edges;
}

std::vector<TDraftRow> RowsOf(const TPreparedBand& band, const TColumns& columns) {
    std::vector<const TPreparedItem*> items;
    for (const TPreparedItem& item : band.Items) {
        if (IsCell(item)) {
            items.push_back(&item);
        }
    }
    std::ranges::stable_sort(items, {}, [](const TPreparedItem* item) { return item->Rect.top(); });
    std::vector<TDraftRow> rows;
    for (const TPreparedItem* const item : items) {
        const TGridCell cell = columns.Place(*item);
        const double top = item->Rect.top();
        const double bottom = item->Rect.bottom();
        auto home = std::ranges::find_if(rows, [&](const TDraftRow& row) {
            return SameHeight(row.Top, row.Bottom, top, bottom) && !Overlaps(row.Row, cell);
        });
        if (home == rows.end()) {
            rows.push_back({top, bottom, {}});
            home = rows.end() - 1;
            home->Row.Band = band.Kind;
        }
        home->Bottom = std::max(home->Bottom, bottom);
        home->Row.Cells.push_back(cell);
    }
    std::ranges::stable_sort(rows, {}, &TDraftRow::Top);
    return rows;
}

/// Lines and grounds of the band, given to the rows that they belong to.
void Decorate(const TPreparedBand& band, double width, std::span<TDraftRow> rows) {
    for (const TPreparedItem& item : band.Items) {
        if (item.Rect.width() < width * WideShare || rows.empty()) {
            continue;
        }
        for (TDraftRow& row : rows) {
            const double middle = (row.Top + row.Bottom) / 2;
            if (IsRule(item)) {
                row.Row.RuleAbove = row.Row.RuleAbove || std::abs(item.Rect.top() - row.Top) < RuleDistance;
                row.Row.RuleBelow = row.Row.RuleBelow || std::abs(item.Rect.top() - row.Bottom) < RuleDistance;
            } else if (item.Rect.top() <= middle && middle <= item.Rect.bottom()) {
                row.Row.Gradient = row.Row.Gradient || item.Is<TPreparedGradient>();
                if (item.Is<TPreparedBox>()) {
                    row.Row.Fill = item.Fill;
                }
            }
        }
    }
}

bool BelongsToFlow(const TPreparedReport& report, std::size_t page, const TPreparedBand& band) {
    if (band.Repeated) {
        return false;
    }
    if (band.Kind == TBandKind::PageHeader) {
        return page == 0;
    }
    return band.Kind != TBandKind::PageFooter || page + 1 == report.Pages.size();
}

/// The bands of a page in the order in which they are read: the page footer last.
std::vector<const TPreparedBand*> FlowBands(const TPreparedReport& report, std::size_t page) {
    std::vector<const TPreparedBand*> bands;
    for (const TPreparedBand& band : report.Pages[page].Bands) {
        if (BelongsToFlow(report, page, band)) {
            bands.push_back(&band);
        }
    }
    std::ranges::stable_sort(bands, {}, [](const TPreparedBand* band) { return band->Top; });
    return bands;
}

TColumns FindColumns(const TPreparedReport& report, double width, TTextMeasure& measure) {
    std::vector<const TPreparedBand*> bands;
    for (std::size_t page = 0; page < report.Pages.size(); ++page) {
        std::ranges::copy(FlowBands(report, page), std::back_inserter(bands));
    }
    TColumns columns;
    for (const TPreparedBand* const band : bands) {
        for (const TPreparedItem& item : band->Items) {
            if (IsCell(item)) {
                columns.Add(item);
            }
        }
    }
    columns.Finish(width);
    std::vector<double> missing;
    for (const TPreparedBand* const band : bands) {
        std::ranges::copy(MissingEdges(*band, columns, measure), std::back_inserter(missing));
    }
    columns.Add(missing);
    columns.Finish(width);
    return columns;
}

} // namespace

TReportGrid BuildReportGrid(const TPreparedReport& report) {
    double width = TwipsPerMm; // Of the widest page's room.
    for (const TPreparedPage& each : report.Pages) {
        width = std::max(width, each.Size.width() - each.Margins.left() - each.Margins.right());
    }
    TTextMeasure measure;
    const TColumns columns = FindColumns(report, width, measure);
    TReportGrid grid;
    grid.Columns = columns.Widths();
    for (std::size_t page = 0; page < report.Pages.size(); ++page) {
        bool partStart = page > 0 && report.Pages[page].PartStart;
        const std::vector<const TPreparedBand*> bands = FlowBands(report, page);
        bool top = true;
        double bottom = bands.empty() ? 0 : bands.front()->Top; // Of what was read last.
        for (const TPreparedBand* const band : bands) {
            std::vector<TDraftRow> rows = RowsOf(*band, columns);
            Decorate(*band, width, rows);
            for (TDraftRow& row : rows) {
                row.Row.Height = row.Bottom - row.Top;
                // A heading at the top of a page has the margin above it; here it needs a gap instead.
                const double least = top && page > 0 && band->Kind == TBandKind::Header ? HeadingGap : 0;
                row.Row.GapAbove = std::clamp(band->Top + row.Top - bottom, least, 15 * TwipsPerMm);
                row.Row.PartStart = partStart;
                top = false;
                partStart = false;
                bottom = std::max(bottom, band->Top + row.Bottom);
                std::ranges::sort(row.Row.Cells, {}, &TGridCell::Column);
                Widen(row.Row, grid.Columns, measure);
                grid.Rows.push_back(std::move(row.Row));
            }
        }
    }
    return grid;
}

} // namespace report
