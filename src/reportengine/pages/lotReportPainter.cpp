// SPDX-License-Identifier: GPL-3.0-or-later
#include "reportengine/pages/lotReportPainter.h"

#include "reportengine/pages/lotReportFonts.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace report {

namespace {

void PaintText(QPainter& painter, const TPreparedItem& item) {
    if (qAlpha(item.Fill) != 0) {
        painter.fillRect(item.Rect, QColor::fromRgba(item.Fill));
    }
    const QFont font = TwipFont(item.Look);
    const QFontMetricsF metrics(font);
    painter.setFont(font);
    painter.setPen(QColor::fromRgba(item.Look.Colour));
    const double size = item.Look.Size * TwipsPerPoint;
    const double step = size * item.Look.LineSpacing;
    const double height = step * static_cast<double>(item.Lines.size());
    double top = item.Rect.top();
    if (item.Look.VAlign == TVAlign::Centre) {
        top += (item.Rect.height() - height) / 2;
    } else if (item.Look.VAlign == TVAlign::Bottom) {
        top += item.Rect.height() - height;
    }
    // Letters stand in the middle of their line's height.
    double base = top + (step - (metrics.ascent() + metrics.descent())) / 2 + metrics.ascent();
    for (const QString& line : item.Lines) {
        const double spare = item.Look.Align == TAlign::Left ? 0 : item.Rect.width() - metrics.horizontalAdvance(line);
        const double left = item.Rect.left() + (item.Look.Align == TAlign::Centre ? spare / 2 : spare);
        painter.drawText(QPointF(left, base), line);
        base += step;
    }
}

void PaintPicture(QPainter& painter, const TPreparedItem& item) {
    if (item.Picture == nullptr || item.Picture->isNull()) {
        return;
    }
    const QSizeF size = QSizeF(item.Picture->size()).scaled(item.Rect.size(), Qt::KeepAspectRatio);
    const double spareWidth = item.Rect.width() - size.width();
    const double spareHeight = item.Rect.height() - size.height();
    const double left = item.Look.Align == TAlign::Left    ? 0
                        : item.Look.Align == TAlign::Right ? spareWidth
                                                           : spareWidth / 2;
    const double top = item.Look.VAlign == TVAlign::Top      ? 0
                       : item.Look.VAlign == TVAlign::Bottom ? spareHeight
                                                             : spareHeight / 2;
    painter.drawImage(QRectF(item.Rect.topLeft() + QPointF(left, top), size), *item.Picture);
}

/// A pie on the left and its key, a line a slice, on the right.
void PaintChart(QPainter& painter, const TPreparedItem& item) {
    const TPreparedChart& chart = *item.Chart;
    const double size = chart.Look.Size * TwipsPerPoint;
    const double row = size * 1.7;
    const double diameter = std::min(item.Rect.height(), item.Rect.width() * 0.4);
    const QRectF pie(item.Rect.left(), item.Rect.top() + (item.Rect.height() - diameter) / 2, diameter, diameter);
    const double middle = item.Rect.top() + item.Rect.height() / 2;
    double keyTop = middle - row * static_cast<double>(chart.Slices.size()) / 2;
    const double keyLeft = pie.right() + size * 2;

    painter.setRenderHint(QPainter::Antialiasing);
    const QFont font = TwipFont(chart.Look);
    const QFontMetricsF metrics(font);
    double share = 0;
    for (const TChartSlice& slice : chart.Slices) {
        const double part = slice.Value / chart.Total;
        QPainterPath path(pie.center());
        path.arcTo(pie, 90 - share * 360, -part * 360);
        path.closeSubpath();
        painter.setPen(chart.Slices.size() > 1 ? QPen(Qt::white, size / 9) : QPen(Qt::NoPen));
        painter.setBrush(QColor::fromRgba(slice.Colour));
        painter.drawPath(path);
        share += part;

        painter.setPen(Qt::NoPen);
        painter.drawRect(QRectF(keyLeft, keyTop + (row - size) / 2, size, size));
        painter.setFont(font);
        painter.setPen(QColor::fromRgba(chart.Look.Colour));
        const double base = keyTop + (row - metrics.ascent() - metrics.descent()) / 2 + metrics.ascent();
        const QString percent = QString::number(part * 100, 'f', 1) + "%";
        const double right = item.Rect.right();
        const double room = right - keyLeft - size * 6;
        painter.drawText(QPointF(keyLeft + size * 1.7, base), metrics.elidedText(slice.Name, Qt::ElideRight, room));
        painter.drawText(QPointF(right - metrics.horizontalAdvance(percent), base), percent);
        keyTop += row;
    }
}

void PaintBox(QPainter& painter, const TPreparedItem& item) {
    if (qAlpha(item.Fill) != 0) {
        painter.fillRect(item.Rect, QColor::fromRgba(item.Fill));
    }
    if (qAlpha(item.Stroke) != 0 && item.StrokeWidth > 0) {
        painter.setPen(
            QPen(QColor::fromRgba(item.Stroke), item.StrokeWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(item.Rect);
    }
}

void PaintItem(QPainter& painter, const TPreparedReport& report, const TPreparedItem& item) {
    switch (item.Kind) {
    case TItemKind::Text: PaintText(painter, item); break;
    case TItemKind::Line:
        painter.setPen(QPen(QColor::fromRgba(item.Stroke), item.StrokeWidth, Qt::SolidLine, Qt::FlatCap));
        painter.drawLine(item.Rect.topLeft(), item.Rect.bottomRight());
        break;
    case TItemKind::Box: PaintBox(painter, item); break;
    case TItemKind::Picture: PaintPicture(painter, item); break;
    case TItemKind::Gradient: report.Gradient.Paint(painter, item.Rect); break;
    case TItemKind::Chart:
        if (item.Chart != nullptr && item.Chart->Total > 0) {
            PaintChart(painter, item);
        }
        break;
    }
}

} // namespace

QFont TwipFont(const TTextLook& look) {
    QFont font(ReportFontFamily());
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(look.Size * TwipsPerPoint))));
    font.setWeight(look.Bold ? QFont::DemiBold : QFont::Normal);
    font.setItalic(look.Italic);
    font.setHintingPreference(QFont::PreferNoHinting);
    // The least spacing there is: it shows nowhere, but keeps "fi" two letters, which a search in a PDF needs.
    font.setLetterSpacing(QFont::AbsoluteSpacing, 1.0 / 64);
    font.setKerning(false); // Figures keep their columns, and each letter's width is its own at every size.
    return font;
}

void PaintPage(QPainter& painter, const TPreparedReport& report, const TPreparedPage& page) {
    for (const TPreparedBand& band : page.Bands) {
        painter.save();
        painter.translate(page.Margins.left(), band.Top);
        for (const TPreparedItem& item : band.Items) {
            PaintItem(painter, report, item);
        }
        painter.restore();
    }
}

QImage ItemPicture(const TPreparedReport& report, const TPreparedItem& item, double scale) {
    const QSize size = (item.Rect.size() * scale).toSize().expandedTo(QSize(1, 1));
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    painter.scale(scale, scale);
    painter.translate(-item.Rect.topLeft());
    PaintItem(painter, report, item);
    return image;
}

} // namespace report
