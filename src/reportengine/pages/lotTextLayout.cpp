// SPDX-License-Identifier: GPL-3.0-or-later
#include "reportengine/pages/lotTextLayout.h"

#include "reportengine/pages/lotReportPainter.h"

#include <QTextLayout>
#include <algorithm>
#include <cmath>

namespace report {

namespace {

constexpr double SmallestSize = 0.7; // Of the size asked for: below that nobody reads it.
constexpr double Slack = 0.5;        // Rounding of a width that was measured to fit.

} // namespace

const TTextMeasure::TFace& TTextMeasure::Face(const TTextLook& look) {
    const std::tuple key{look.Size, look.Bold, look.Italic};
    auto found = FFaces.find(key);
    if (found == FFaces.end()) {
        const QFont font = TwipFont(look);
        found = FFaces.emplace(key, TFace{font, QFontMetricsF(font)}).first;
    }
    return found->second;
}

double TTextMeasure::Width(const QString& line, const TTextLook& look) {
    return Face(look).Metrics.horizontalAdvance(line);
}

std::vector<QString> TTextMeasure::Break(const QString& text, const TTextLook& look, double width) {
    std::vector<QString> lines;
    if (text.isEmpty()) {
        return lines;
    }
    const TFace& face = Face(look);
    for (QStringView paragraph : QStringView(text).split(u'\n')) {
        if (paragraph.endsWith(u'\r')) {
            paragraph.chop(1);
        }
        const QString whole = paragraph.toString();
        if (face.Metrics.horizontalAdvance(whole) <= width + Slack) {
            lines.push_back(whole);
            continue;
        }
        QTextLayout layout(whole, face.Font);
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        layout.setTextOption(option);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(std::max(1.0, width));
            QString piece = whole.mid(line.textStart(), line.textLength());
            while (piece.endsWith(u' ')) {
                piece.chop(1);
            }
            lines.push_back(piece);
        }
        layout.endLayout();
    }
    return lines;
}

void TTextMeasure::FitLine(TPreparedText& text, double width) {
    QString line = text.Whole;
    line.replace(u'\r', QString()).replace(u'\n', u' ');
    text.Lines.clear();
    if (line.isEmpty()) {
        return;
    }
    const double wanted = Width(line, text.Look);
    if (wanted > width + Slack && width > 0) {
        // Steps of a tenth of a point, so that few sizes of a font come into use.
        const double fitting = std::floor(text.Look.Size * width / wanted * 10) / 10;
        text.Look.Size = std::max(fitting, std::ceil(text.Look.Size * SmallestSize * 10) / 10);
        if (const TFace& face = Face(text.Look); face.Metrics.horizontalAdvance(line) > width + Slack) {
            line = face.Metrics.elidedText(line, Qt::ElideRight, width);
            text.Elided = true;
        }
    }
    text.Lines.push_back(line);
}

} // namespace report
