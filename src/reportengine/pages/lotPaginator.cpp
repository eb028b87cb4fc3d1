// SPDX-License-Identifier: GPL-3.0-or-later
#include "reportengine/pages/lotPaginator.h"

#include "common/vipErrors.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace report {

namespace {

constexpr std::size_t MostPages = 5000;
constexpr double Slack = 1;            // Twips of rounding.
constexpr std::size_t FewestLines = 2; // Of a text on either side of a cut.
constexpr std::size_t SplitLines = 6;  // A text of as many lines may be cut.
constexpr double LeastOfAText = 20 * TwipsPerMm;

double HeightOf(std::span<const TFlowBand> block) {
    return std::accumulate(block.begin(), block.end(), 0.0,
                           [](double sum, const TFlowBand& flow) { return sum + flow.Band.Height; });
}

bool MayBeCut(const TPreparedBand& band) {
    return std::ranges::any_of(band.Items, [](const TPreparedItem& item) {
        const auto* const text = item.As<TPreparedText>();
        return text != nullptr && text->Lines.size() >= SplitLines;
    });
}

/// What must be free on a page for the band to begin there.
double LeastHeight(const TPreparedBand& band) {
    return MayBeCut(band) ? std::min(band.Height, LeastOfAText) : band.Height;
}

/// Cuts a text; `rest` is a copy of it to begin with.
void CutText(TPreparedItem& item, TPreparedItem& rest, double cut) {
    TPreparedText& text = *item.As<TPreparedText>();
    TPreparedText& below = *rest.As<TPreparedText>();
    const double step = TTextMeasure::LineHeight(text.Look);
    auto lines = static_cast<std::size_t>(std::max(0.0, std::floor((cut - item.Rect.top() + Slack) / step)));
    lines = std::min(lines, text.Lines.size());
    if (text.Lines.size() - lines < FewestLines && text.Lines.size() >= 2 * FewestLines) {
        lines = text.Lines.size() - FewestLines;
    }
    if (lines < FewestLines) {
        lines = 0;
    }
    below.Lines.erase(below.Lines.begin(), below.Lines.begin() + static_cast<std::ptrdiff_t>(lines));
    text.Lines.resize(lines);
    item.Rect.setHeight(step * static_cast<double>(lines));
    rest.Rect = QRectF(rest.Rect.left(), lines == 0 ? std::max(0.0, rest.Rect.top() - cut) : 0, rest.Rect.width(),
                       step * static_cast<double>(below.Lines.size()));
    for (TPreparedText* const part : {&text, &below}) {
        part->Whole = QStringList(part->Lines.begin(), part->Lines.end()).join(u' ');
    }
}

/// The part of an item below the cut, `cut` twips below the band's top; the item keeps what is above. Nothing if all of
/// it stays.
std::optional<TPreparedItem> CutItem(TPreparedItem& item, double cut) {
    if (item.Rect.bottom() <= cut + Slack) {
        return std::nullopt;
    }
    TPreparedItem rest = item;
    if (const auto* const text = item.As<TPreparedText>(); text != nullptr && !text->Lines.empty()) {
        CutText(item, rest, cut);
    } else if (item.Is<TPreparedBox>() && item.Rect.top() < Slack) { // A ground goes on behind the rest.
        item.Rect.setBottom(cut);
        rest.Rect = QRectF(rest.Rect.left(), 0, rest.Rect.width(), rest.Rect.height() - cut);
    } else {
        item.Rect = QRectF();
        rest.Rect.moveTop(std::max(0.0, rest.Rect.top() - cut));
    }
    return rest;
}

} // namespace

void TPaginator::Place(std::vector<TFlowBand> flow) {
    if (flow.empty()) {
        flow.emplace_back(); // A page with nothing on it but its headers and footers.
    }
    for (std::size_t begin = 0; begin < flow.size();) {
        const std::size_t end = BlockEnd(flow, begin);
        PlaceBlock(std::span(flow).subspan(begin, end - begin));
        begin = end;
    }
}

std::size_t TPaginator::BlockEnd(std::span<const TFlowBand> flow, std::size_t begin) {
    std::size_t last = begin;
    while (last + 1 < flow.size()) {
        const TFlowBand& here = flow[last];
        const TFlowBand& next = flow[last + 1];
        const bool tied = here.KeepWithNext || (here.KeepId != 0 && here.KeepId == next.KeepId);
        if (!tied || here.PageBreakAfter || next.NewPage) {
            break;
        }
        ++last;
    }
    return last + 1;
}

void TPaginator::PlaceBlock(std::span<TFlowBand> block) {
    const TFlowBand& first = block.front();
    if (FFirstPage) {
        const bool goOn = FPage.OnPreviousPage && !FReport.Pages.empty() && FReport.Pages.back().Size == FPage.Size;
        if (goOn) {
            FFirstPage = false;
            FFresh = false;
        } else {
            StartPage(first, true);
        }
    } else if (FMustBreak || (first.NewPage && !FFresh)) {
        StartPage(first, true);
    }
    FMustBreak = false;
    const TPreparedBand& last = block.back().Band;
    if (HeightOf(block) - last.Height + LeastHeight(last) > Room() + Slack && !FFresh) {
        StartPage(first, false);
    }
    if (HeightOf(block) <= Room() + Slack) {
        for (TFlowBand& flow : block) {
            Append(flow);
        }
    } else {
        // More than a page can hold: band by band, heads still with what they head.
        for (std::size_t i = 0; i < block.size(); ++i) {
            const double needed = block[i].Band.Height +
                                  (block[i].KeepWithNext && i + 1 < block.size() ? LeastHeight(block[i + 1].Band) : 0);
            if (needed > Room() + Slack && !FFresh && !MayBeCut(block[i].Band)) {
                StartPage(block[i], false);
            }
            PlaceBand(block[i]);
        }
    }
    FMustBreak = block.back().PageBreakAfter;
}

void TPaginator::PlaceBand(TFlowBand& flow) {
    while (flow.Band.Height > Room() + Slack) {
        const double height = flow.Band.Height;
        if (!MayBeCut(flow.Band) && FFresh) {
            break; // Nothing to be cut, and no page has more room.
        }
        if (MayBeCut(flow.Band)) {
            PlaceSplit(flow);
        }
        if (flow.Band.Height >= height && FFresh) {
            break;
        }
        StartPage(flow, false);
    }
    Append(flow);
}

/// Prints as much of the band as there is room for; the rest stays in `flow`.
void TPaginator::PlaceSplit(TFlowBand& flow) {
    const double cut = Room();
    TFlowBand part = flow;
    std::vector<TPreparedItem> rest;
    double height = 0;
    for (TPreparedItem& item : part.Band.Items) {
        if (std::optional<TPreparedItem> below = CutItem(item, cut)) {
            height = std::max(height, below->Rect.bottom());
            rest.push_back(std::move(*below));
        }
    }
    std::erase_if(part.Band.Items, [](const TPreparedItem& item) { return item.Rect.isNull(); });
    const bool any = std::ranges::any_of(part.Band.Items, [](const TPreparedItem& item) {
        const auto* const text = item.As<TPreparedText>();
        return text != nullptr && !text->Lines.empty();
    });
    if (!any) {
        return; // Not even two lines: all of it goes to the next page.
    }
    part.Band.Height = cut;
    Append(part);
    flow.Bookmark.clear();
    flow.Band.Items = std::move(rest);
    flow.Band.Height = height;
}

void TPaginator::Append(TFlowBand& flow) {
    if (!flow.Bookmark.isEmpty()) {
        FReport.Outline.push_back(
            {flow.Bookmark, static_cast<int>(FReport.Pages.size()) - 1, FCursor.Top, flow.BookmarkLevel});
    }
    flow.Band.Top = FCursor.Top;
    FCursor.Top += flow.Band.Height;
    FReport.Pages.back().Bands.push_back(std::move(flow.Band));
    FFresh = false;
}

std::vector<TPreparedBand> TPaginator::PageBands(TBandKind kind, bool firstPage) {
    std::vector<TPreparedBand> bands;
    for (const TTemplateBand& band : FPage.Bands) {
        const bool wanted = band.Pages == TOnPages::All || (band.Pages == TOnPages::First) == firstPage;
        if (band.Kind == kind && wanted && FScope.IsTrue(band.Visible, true)) {
            bands.push_back(FMaker.Make(band));
        }
    }
    return bands;
}

void TPaginator::StartPage(const TFlowBand& first, bool partStart) {
    if (FReport.Pages.size() >= MostPages) {
        throw ELotError("The report has more than " + std::to_string(MostPages) + " pages.");
    }
    FScope.RunningHead = first.RunningHead;
    TPreparedPage& page = FReport.Pages.emplace_back();
    page.Size = FPage.Size;
    page.Margins = FPage.Margins;
    page.PartStart = partStart;
    FCursor.Top = FPage.Margins.top();
    FCursor.Bottom = FPage.Size.height() - FPage.Margins.bottom();
    for (TPreparedBand& band : PageBands(TBandKind::PageHeader, FFirstPage)) {
        band.Top = FCursor.Top;
        FCursor.Top += band.Height;
        page.Bands.push_back(std::move(band));
    }
    std::vector<TPreparedBand> footers = PageBands(TBandKind::PageFooter, FFirstPage);
    for (const TPreparedBand& band : footers) {
        FCursor.Bottom -= band.Height;
    }
    double top = FCursor.Bottom;
    for (TPreparedBand& band : footers) {
        band.Top = top;
        top += band.Height;
        page.Bands.push_back(std::move(band));
    }
    if (first.Heads != nullptr) {
        for (TPreparedBand band : *first.Heads) {
            band.Top = FCursor.Top;
            FCursor.Top += band.Height;
            page.Bands.push_back(std::move(band));
        }
    }
    FFirstPage = false;
    FFresh = true;
}

} // namespace report
