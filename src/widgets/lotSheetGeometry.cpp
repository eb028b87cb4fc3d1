// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotSheetGeometry.h"

#include "widgets/lotPalette.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPaintDevice>
#include <QPainter>
#include <QPalette>
#include <algorithm>
#include <cmath>

namespace {

constexpr double Padding = 4; // Pixels at 96 to the inch, on both sides of a cell's text.
constexpr double RowPadding = 5;

QString Shown(const TSpreadsheetText& text) {
    return QString::fromStdString(text.Text);
}

} // namespace

TSheetFonts::TSheetFonts(const TSpreadsheetPage& page, const QPaintDevice* device)
    : FPage(page), FDevice(device), FScale(device->logicalDpiX() / 96.0) {}

const QFont& TSheetFonts::Font(const TSpreadsheetStyle& style) const {
    const auto key = std::make_pair(static_cast<int>(style.SizeDelta), style.Bold);
    auto found = FFonts.find(key);
    if (found == FFonts.end()) {
        QFont font(QString::fromStdString(FPage.FontName));
        font.setStyleHint(QFont::SansSerif);
        font.setPointSize(FPage.FontSize + style.SizeDelta);
        font.setBold(style.Bold);
        found = FFonts.emplace(key, QFont(font, FDevice)).first;
    }
    return found->second;
}

double TSheetFonts::RowHeight(int sizeDelta) const {
    auto found = FHeights.find(sizeDelta);
    if (found == FHeights.end()) {
        TSpreadsheetStyle style;
        style.SizeDelta = static_cast<std::int8_t>(sizeDelta);
        const double height = QFontMetricsF(Font(style), FDevice).height() + RowPadding * FScale;
        found = FHeights.emplace(sizeDelta, std::round(height)).first;
    }
    return found->second;
}

TSheetGeometry::TSheetGeometry(const TSpreadsheetPage& page, const TSheetFonts& fonts, double scale) {
    FTops.reserve(static_cast<std::size_t>(page.RowCount()) + 1);
    FTops.push_back(0);
    for (int row = 0; row < page.RowCount(); ++row) {
        FTops.push_back(FTops.back() + fonts.RowHeight(page.RowSizeDelta(row)));
    }
    FLefts.reserve(static_cast<std::size_t>(page.ColumnCount()) + 1);
    FLefts.push_back(0);
    for (int column = 0; column < page.ColumnCount(); ++column) {
        FLefts.push_back(FLefts.back() + std::round(page.ColumnWidth(column) * scale));
    }
}

int TSheetGeometry::RowAt(double y) const {
    const auto row = std::upper_bound(FTops.begin(), FTops.end(), y) - FTops.begin() - 1;
    return std::clamp(static_cast<int>(row), std::min(0, Rows() - 1), Rows() - 1);
}

int TSheetGeometry::ColumnAt(double x) const {
    const auto column = std::upper_bound(FLefts.begin(), FLefts.end(), x) - FLefts.begin() - 1;
    return std::clamp(static_cast<int>(column), std::min(0, Columns() - 1), Columns() - 1);
}

bool TSheetPainter::IsFilled(int row, int column) const {
    return FPage.Cell(row, column).Kind != TSpreadsheetCell::TKind::Empty;
}

bool TSheetPainter::IsCut(int row, int column, double width) const {
    const TSpreadsheetStyle& style = FPage.StyleOf(FPage.Cell(row, column));
    const QFontMetricsF metrics(FFonts.Font(style));
    return metrics.horizontalAdvance(Shown(FPage.Shown(row, column, FLocale))) > width - 2 * Padding * FScale;
}

void TSheetPainter::Ground(QPainter& painter, int row, int column, const QRectF& cell) const {
    if (const std::uint8_t colour = FPage.StyleOf(FPage.Cell(row, column)).Background; colour != 0) {
        painter.fillRect(cell, QColor(SheetColour(colour)));
    }
}

void TSheetPainter::Text(QPainter& painter, int row, int column, const QRectF& cell, const QRectF& room) const {
    const TSpreadsheetCell& what = FPage.Cell(row, column);
    if (what.Kind == TSpreadsheetCell::TKind::Empty) {
        return;
    }
    const TSpreadsheetStyle& style = FPage.StyleOf(what);
    const TSpreadsheetText shown = FPage.Shown(row, column, FLocale);
    const QFont& font = FFonts.Font(style);
    const QFontMetricsF metrics(font, painter.device());
    const double padding = Padding * FScale;
    const bool figure = what.Kind == TSpreadsheetCell::TKind::Number;
    const bool right = style.Alignment == TlotAlignment::Right || (figure && style.Alignment == TlotAlignment::General);
    QRectF place = (right || style.Alignment == TlotAlignment::Centre ? cell : room).adjusted(padding, 0, -padding, 0);
    QString text = Shown(shown);
    if (figure && metrics.horizontalAdvance(text) > place.width() + padding) {
        text = QString(static_cast<int>(std::max(1.0, place.width() / metrics.horizontalAdvance('#'))), '#');
    } else if (right && shown.PadBracket) {
        place.setRight(place.right() - metrics.horizontalAdvance(')'));
    }
    if (!figure && metrics.horizontalAdvance(text) > place.width()) {
        text = metrics.elidedText(text, Qt::ElideRight, place.width());
    }
    painter.setFont(font);
    painter.setPen(shown.Red               ? colour::Missing()
                   : style.FontColour != 0 ? QColor(SheetColour(style.FontColour))
                                           : QGuiApplication::palette().color(QPalette::Text));
    const Qt::Alignment align = right                                      ? Qt::AlignRight
                                : style.Alignment == TlotAlignment::Centre ? Qt::AlignHCenter
                                                                           : Qt::AlignLeft;
    painter.drawText(place, static_cast<int>(align | Qt::AlignVCenter) | Qt::TextSingleLine, text);
}
