// SPDX-License-Identifier: GPL-3.0-or-later
//
// Draws prepared pages, on a screen, a printer or a PDF alike.
#pragma once

#include "reportengine/pages/lotPreparedReport.h"

#include <QFont>

class QPainter;

namespace report {

/// The font of a text for a painter in twips: its size in pixels is its size in twips, unhinted, so that widths are the
/// same at every scale.
[[nodiscard]] QFont TwipFont(const TTextLook& look);

/// Draws one page; the painter's origin is the paper's corner, its unit must be one twip (scale it before). The paper
/// itself isn't filled.
void PaintPage(QPainter& painter, const TPreparedReport& report, const TPreparedPage& page);

/// One item alone, as a picture of `scale` pixels to the twip, for formats that have no such thing: charts, gradients.
[[nodiscard]] QImage ItemPicture(const TPreparedReport& report, const TPreparedItem& item, double scale);

} // namespace report
