// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/base/lotLineIcon.h"

#include "common/vipErrors.h"
#include "shell/base/lotLook.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace {

constexpr double DisabledOpacity = 0.36;

// Paintings are shared through the pixmap cache, by name, size and colour: a menu and a toolbar ask for the same one.
class TLineIconEngine : public QIconEngine {
public:
    TLineIconEngine(QString name, QByteArray drawing) : FName(std::move(name)), FDrawing(std::move(drawing)) {}

    QIconEngine* clone() const override { return new TLineIconEngine(*this); }
    bool isNull() override { return false; }

    // The size is in device pixels here: the icon has multiplied it already.
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        if (size.isEmpty()) {
            return {};
        }
        const QColor colour = Colour(mode, state);
        const QString key = QString("lot-icon/%1/%2x%3/%4")
                                .arg(FName)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(colour.name(QColor::HexArgb) + (mode == QIcon::Disabled ? "-" : "+"));
        QPixmap painted;
        if (!QPixmapCache::find(key, &painted)) {
            painted = Paint(size, colour, mode == QIcon::Disabled ? DisabledOpacity : 1.0);
            QPixmapCache::insert(key, painted);
        }
        return painted;
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        const double ratio = painter->device()->devicePixelRatioF();
        QPixmap painted = pixmap((QSizeF(rect.size()) * ratio).toSize(), mode, state);
        painted.setDevicePixelRatio(ratio);
        painter->drawPixmap(rect.topLeft(), painted);
    }

private:
    static QColor Colour(QIcon::Mode mode, QIcon::State state) {
        const QPalette palette = QGuiApplication::palette();
        if (mode == QIcon::Selected) {
            return palette.color(QPalette::HighlightedText);
        }
        if (mode != QIcon::Disabled && (mode == QIcon::Active || state == QIcon::On)) {
            return look::Accent();
        }
        return palette.color(QPalette::Active, QPalette::ButtonText);
    }

    QPixmap Paint(const QSize& size, const QColor& colour, double opacity) const {
        QSvgRenderer renderer(QByteArray(FDrawing).replace("currentColor", colour.name().toLatin1()));
        const QSizeF drawn = renderer.viewBoxF().size().scaled(size, Qt::KeepAspectRatio);
        QPixmap result(size);
        result.fill(Qt::transparent);
        QPainter painter(&result);
        renderer.render(&painter, QRectF((size.width() - drawn.width()) / 2, (size.height() - drawn.height()) / 2,
                                         drawn.width(), drawn.height()));
        // The picture is made pale as a whole: where lines cross, pale ones would show darker.
        painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        painter.fillRect(result.rect(), QColor::fromRgbF(0, 0, 0, static_cast<float>(opacity)));
        return result;
    }

    QString FName;
    QByteArray FDrawing;
};

} // namespace

QIcon LineIcon(const QString& name) {
    QFile file(":/icons/" + name + ".svg");
    if (!file.open(QIODevice::ReadOnly)) {
        throw ELotError("There is no icon " + name.toStdString() + ".");
    }
    QByteArray drawing = file.readAll();
    if (!QSvgRenderer(drawing).isValid()) {
        throw ELotError("The icon " + name.toStdString() + " is no drawing.");
    }
    return QIcon(new TLineIconEngine(name, std::move(drawing)));
}
