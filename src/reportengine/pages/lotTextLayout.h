// SPDX-License-Identifier: GPL-3.0-or-later
//
// Breaks report texts into lines. Lengths are twips.
#pragma once

#include "reportengine/pages/lotPreparedReport.h"

#include <QFont>
#include <QFontMetricsF>
#include <map>
#include <tuple>

namespace report {

class TTextMeasure {
public:
    [[nodiscard]] double Width(const QString& line, const TTextLook& look);
    [[nodiscard]] static double LineHeight(const TTextLook& look) {
        return look.Size * look.LineSpacing * TwipsPerPoint;
    }

    /// Breaks the text between words (within one that is too long) into lines of that width; each "\n" ends a line. No
    /// text gives no line.
    [[nodiscard]] std::vector<QString> Break(const QString& text, const TTextLook& look, double width);

    /// Makes one line of the whole text: at its look's size where it fits into the width, otherwise as much smaller as
    /// can still be read, in the end with an ellipsis.
    void FitLine(TPreparedText& text, double width);

private:
    struct TFace {
        QFont Font;
        QFontMetricsF Metrics;
    };
    [[nodiscard]] const TFace& Face(const TTextLook& look);

    std::map<std::tuple<double, bool, bool>, TFace> FFaces;
};

} // namespace report
