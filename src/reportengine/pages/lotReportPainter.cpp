// SPDX-License-Identifier: GPL-3.0-or-later
#include "reportengine/pages/lotReportPainter.h"

#include "reportengine/pages/lotReportFonts.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <variant>

namespace report {

namespace {

/// Draws the content of one item.
class TItemPainter {
public:
    TItemPainter(QPainter& painter, const TPreparedReport& report, const TPreparedItem& item)
        : FPainter(painter), FReport(report), FItem(item), FRect(item.Rect) {}

    void operator()(const TPreparedText& text) const;
    void operator()(const TPreparedLine& line) const {
        FPainter.setPen(QPen(QColor::fromRgba(line.Stroke), line.Width, Qt::SolidLine, Qt::FlatCap));
        FPainter.drawLine(FRect.topLeft(), FRect.bottomRight());
    }
    void operator()(const TPreparedBox& box) const;
    void operator()(const TPreparedPicture& picture) const;
    void operator()(const TPreparedGradient&) const { FReport.Gradient.Paint(FPainter, FRect); }
    void operator()(const TPreparedChart& chart) const;

private:
    void PaintGround() const {
        if (qAlpha(FItem.Fill) != 0) {
            FPainter.fillRect(FRect, QColor::fromRgba(FItem.Fill));
        }
    }

    QPainter& FPainter;
    const TPreparedReport& FReport;
    const TPreparedItem& FItem;
    const QRectF& FRect;
};

void TItemPainter::operator()(const TPreparedText& text) const {
    PaintGround();
    const QFont font = TwipFont(text.Look);
    const QFontMetricsF metrics(font);
    FPainter.setFont(font);
    FPainter.setPen(QColor::fromRgba(text.Look.Colour));
    const double step = text.Look.Size * TwipsPerPoint * text.Look.LineSpacing;
    const double height = step * static_cast<double>(text.Lines.size());
    double top = FRect.top();
    if (text.Look.VAlign == TVAlign::Centre) {
        top += (FRect.height() - height) / 2;
    } else if (text.Look.VAlign == TVAlign::Bottom) {
        top += FRect.height() - height;
    }
    // Letters stand in the middle of their line's height.
    double base = top + (step - (metrics.ascent() + metrics.descent())) / 2 + metrics.ascent();
    for (const QString& line : text.Lines) {
        const double spare = text.Look.Align == TAlign::Left ? 0 : FRect.width() - metrics.horizontalAdvance(line);
        const double left = FRect.left() + (text.Look.Align == TAlign::Centre ? spare / 2 : spare);
        FPainter.drawText(QPointF(left, base), line);
        base += step;
    }
}

void TItemPainter::operator()(const TPreparedPicture& picture) const {
    if (picture.Image == nullptr || picture.Image->isNull()) {
        return;
    }
    const QSizeF size = QSizeF(picture.Image->size()).scaled(FRect.size(), Qt::KeepAspectRatio);
    const double spareWidth = FRect.width() - size.width();
    const double spareHeight = FRect.height() - size.height();
    const double left = picture.Align == TAlign::Left    ? 0
                        : picture.Align == TAlign::Right ? spareWidth
                                                         : spareWidth / 2;
    const double top = picture.VAlign == TVAlign::Top      ? 0
                       : picture.VAlign == TVAlign::Bottom ? spareHeight
                                                           : spareHeight / 2;
    FPainter.drawImage(QRectF(FRect.topLeft() + QPointF(left, top), size), *picture.Image);
}

/// A pie on the left and its key, a line a slice, on the right.
void TItemPainter::operator()(const TPreparedChart& chart) const {
    if (!(chart.Total > 0)) {
        return;
    }
    const double size = chart.Look.Size * TwipsPerPoint;
    const double row = size * 1.7;
    const double diameter = std::min(FRect.height(), FRect.width() * 0.4);
    const QRectF pie(FRect.left(), FRect.top() + (FRect.height() - diameter) / 2, diameter, diameter);
    const double middle = FRect.top() + FRect.height() / 2;
    double keyTop = middle - row * static_cast<double>(chart.Slices.size()) / 2;
    const double keyLeft = pie.right() + size * 2;

    FPainter.setRenderHint(QPainter::Antialiasing);
    const QFont font = TwipFont(chart.Look);
    const QFontMetricsF metrics(font);
    double share = 0;
    for (const TChartSlice& slice : chart.Slices) {
        const double part = slice.Value / chart.Total;
        QPainterPath path(pie.center());
        path.arcTo(pie, 90 - share * 360, -part * 360);
        path.closeSubpath();
        FPainter.setPen(chart.Slices.size() > 1 ? QPen(Qt::white, size / 9) : QPen(Qt::NoPen));
        FPainter.setBrush(QColor::fromRgba(slice.Colour));
        FPainter.drawPath(path);
        share += part;

        FPainter.setPen(Qt::NoPen);
        FPainter.drawRect(QRectF(keyLeft, keyTop + (row - size) / 2, size, size));
        FPainter.setFont(font);
        FPainter.setPen(QColor::fromRgba(chart.Look.Colour));
        const double base = keyTop + (row - metrics.ascent() - metrics.descent()) / 2 + metrics.ascent();
        const QString percent = QString::number(part * 100, 'f', 1) + "%";
        const double right = FRect.right();
        const double room = right - keyLeft - size * 6;
        FPainter.drawText(QPointF(keyLeft + size * 1.7, base), metrics.elidedText(slice.Name, Qt::ElideRight, room));
        FPainter.drawText(QPointF(right - metrics.horizontalAdvance(percent), base), percent);
        keyTop += row;
    }
}

void TItemPainter::operator()(const TPreparedBox& box) const {
    PaintGround();
    if (qAlpha(box.Stroke) != 0 && box.Width > 0) {
        FPainter.setPen(QPen(QColor::fromRgba(box.Stroke), box.Width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
        FPainter.setBrush(Qt::NoBrush);
        FPainter.drawRect(FRect);
    }
}

void PaintItem(QPainter& painter, const TPreparedReport& report, const TPreparedItem& item) {
    std::visit(TItemPainter(painter, report, item), item.Content);
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
