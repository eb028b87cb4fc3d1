// SPDX-License-Identifier: GPL-3.0-or-later
#include "reportengine/template/lotPicture.h"

#include "common/vipErrors.h"

#include <QFile>
#include <QImageReader>

namespace report {

namespace {

constexpr int MostPixels = 2400; // A4 at 300 to the inch is 2480 wide.

} // namespace

std::shared_ptr<const QImage> LoadPicture(const std::string& fileName) {
    QImageReader reader(QFile::decodeName(fileName.c_str()));
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    QImage picture = reader.read();
    if (picture.isNull()) {
        throw ELotError(fileName + ": " + reader.errorString().toStdString());
    }
    if (picture.width() > MostPixels || picture.height() > MostPixels) {
        const double perMetre = picture.dotsPerMeterX();
        const double smaller = static_cast<double>(MostPixels) / std::max(picture.width(), picture.height());
        picture = picture.scaled(MostPixels, MostPixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        picture.setDotsPerMeterX(static_cast<int>(perMetre * smaller));
        picture.setDotsPerMeterY(static_cast<int>(perMetre * smaller));
    }
    return std::make_shared<const QImage>(std::move(picture));
}

} // namespace report
