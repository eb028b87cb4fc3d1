// SPDX-License-Identifier: GPL-3.0-or-later
#include "reportengine/pages/lotReportSearch.h"

namespace report {

namespace {

bool Holds(const TPreparedItem& item, const QString& words) {
    const auto* const text = item.As<TPreparedText>();
    if (text == nullptr) {
        return false;
    }
    QString joined;
    for (const QString& line : text->Lines) {
        joined += (joined.isEmpty() ? "" : " ") + line;
    }
    // What was cut off for want of room is still looked for.
    return joined.contains(words, Qt::CaseInsensitive) ||
           (text->Elided && text->Whole.contains(words, Qt::CaseInsensitive));
}

} // namespace

std::optional<TTextPlace> FindText(const TPreparedReport& report, const QString& words,
                                   const std::optional<TTextPlace>& after) {
    if (words.isEmpty()) {
        return std::nullopt;
    }
    std::optional<TTextPlace> first;
    for (std::size_t page = 0; page < report.Pages.size(); ++page) {
        const std::vector<TPreparedBand>& bands = report.Pages[page].Bands;
        for (std::size_t band = 0; band < bands.size(); ++band) {
            for (std::size_t item = 0; item < bands[band].Items.size(); ++item) {
                if (!Holds(bands[band].Items[item], words)) {
                    continue;
                }
                const TTextPlace place{static_cast<int>(page), static_cast<int>(band), static_cast<int>(item)};
                if (!after || place > *after) {
                    return place;
                }
                first = first ? first : place;
            }
        }
    }
    return first;
}

QRectF PlaceRect(const TPreparedReport& report, const TTextPlace& place) {
    const TPreparedPage& page = report.Pages.at(static_cast<std::size_t>(place.Page));
    const TPreparedBand& band = page.Bands.at(static_cast<std::size_t>(place.Band));
    const TPreparedItem& item = band.Items.at(static_cast<std::size_t>(place.Item));
    return item.Rect.translated(page.Margins.left(), band.Top);
}

} // namespace report
