// SPDX-License-Identifier: GPL-3.0-or-later
//
// Finds words on the pages of a finished report.
#pragma once

#include "reportengine/pages/lotPreparedReport.h"

#include <optional>

namespace report {

/// Where a text stands, by its number in the order in which it is drawn.
struct TTextPlace {
    int Page = 0;
    int Band = 0;
    int Item = 0;

    friend auto operator<=>(const TTextPlace&, const TTextPlace&) = default;
};

/// The first text behind `after` that holds `words`, ignoring case; behind the last one it goes on at the first.
/// Nothing if there is none, or no words.
[[nodiscard]] std::optional<TTextPlace> FindText(const TPreparedReport& report, const QString& words,
                                                 const std::optional<TTextPlace>& after);

/// Where it stands on its page, twips.
[[nodiscard]] QRectF PlaceRect(const TPreparedReport& report, const TTextPlace& place);

} // namespace report
