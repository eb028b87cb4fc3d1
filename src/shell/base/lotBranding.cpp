// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/base/lotBranding.h"

#include "common/vipErrors.h"
#include "shell/base/lotLook.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QStringConverter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace branding {

namespace {

constexpr qint64 LongestText = 1 << 20;     // bytes
constexpr qint64 LongestPicture = 32 << 20; // bytes

// The path of a file whose name is that but for letter case; empty if there is none. The exact name goes first.
QString FindFile(const QString& folder, const QString& name) {
    if (folder.isEmpty()) {
        return {};
    }
    const QDir dir(folder);
    const QStringList files = dir.entryList(QDir::Files | QDir::Hidden);
    if (files.contains(name)) {
        return dir.filePath(name);
    }
    const auto found = std::find_if(files.begin(), files.end(), [&name](const QString& file) {
        return file.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == files.end() ? QString() : dir.filePath(*found);
}

std::optional<QString> Decoded(QStringDecoder decoder, const QByteArray& bytes) {
    if (!decoder.isValid()) {
        return std::nullopt;
    }
    QString text = decoder(bytes);
    return decoder.hasError() ? std::nullopt : std::optional(std::move(text));
}

QImage LimitedImage(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > LongestPicture) {
        return {};
    }
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (std::max(size.width(), size.height()) > LargestPicture) {
        return {};
    }
    return reader.read();
}

} // namespace

std::optional<QString> Text(const QString& folder, const QString& name) {
    QFile file(FindFile(folder, name));
    if (file.fileName().isEmpty() || !file.open(QIODevice::ReadOnly) || file.size() > LongestText) {
        return std::nullopt;
    }
    const QByteArray bytes = file.readAll();
    // What the file says of itself; failing that UTF-8; failing that, what an office system of the West writes.
    auto text = Decoded(QStringDecoder::decoderForHtml(bytes), bytes);
    if (!text) {
        text = Decoded(QStringDecoder(QStringDecoder::Utf8), bytes);
    }
    if (!text) {
        text = Decoded(QStringDecoder("windows-1252"), bytes);
    }
    return text ? text : QString::fromLatin1(bytes);
}

std::optional<QPixmap> Picture(const QString& folder, const QStringList& names, QSize bound, double ratio) {
    for (const QString& name : names) {
        const QString path = FindFile(folder, name);
        if (path.isEmpty()) {
            continue;
        }
        QImage image = LimitedImage(path);
        if (image.isNull()) {
            return std::nullopt;
        }
        const QSize most = (QSizeF(bound) * ratio).toSize();
        const QSize natural = (QSizeF(image.size()) * ratio).toSize();
        if (natural.width() > most.width() || natural.height() > most.height()) {
            image = image.scaled(most, Qt::KeepAspectRatio, Qt::SmoothTransformation);
            image.setDevicePixelRatio(ratio);
        }
        return QPixmap::fromImage(image);
    }
    return std::nullopt;
}

} // namespace branding

TBrandingText::TBrandingText(QWidget* parent) : QTextBrowser(parent) {
    setFrameShape(QFrame::NoFrame);
    setOpenLinks(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    viewport()->setAutoFillBackground(false);
    document()->setDocumentMargin(0);
    document()->setDefaultStyleSheet(
        QString("a { color: %1; text-decoration: none; } h1, h2 { color: %1; }").arg(look::Accent().name()));
    connect(this, &QTextBrowser::anchorClicked, this, [this](const QUrl& url) {
        static const QStringList Outside{"http", "https", "mailto"};
        if (Outside.contains(url.scheme())) {
            QDesktopServices::openUrl(url);
        } else if (OnLink) {
            OnLink(url.toString());
        }
    });
}

void TBrandingText::SetText(const QString& html, const QString& folder) {
    FFolder = folder;
    setHtml(html);
    Fit();
}

QSize TBrandingText::sizeHint() const {
    return {320, height()};
}

QSize TBrandingText::minimumSizeHint() const {
    return {160, 0};
}

QVariant TBrandingText::loadResource(int type, const QUrl& name) {
    if (type != QTextDocument::ImageResource) {
        return {};
    }
    if (name.scheme() == "icon") {
        try {
            return look::Icon(name.path()).pixmap(QSize(look::IconSize, look::IconSize), devicePixelRatioF());
        } catch (const ELotError&) {
            return {}; // A firm's own text may ask for anything.
        }
    }
    // A bare file name only: no scheme, no way out of the folder.
    const QString file = name.path();
    if (!name.isRelative() || file.contains('/') || file.contains('\\')) {
        return {};
    }
    const QSize any(branding::LargestPicture, branding::LargestPicture);
    const auto picture = branding::Picture(FFolder, {file}, any, 1.0);
    return picture ? QVariant(*picture) : QVariant();
}

void TBrandingText::resizeEvent(QResizeEvent* event) {
    QTextBrowser::resizeEvent(event);
    Fit();
}

void TBrandingText::wheelEvent(QWheelEvent* event) {
    event->ignore(); // Whatever holds the text scrolls.
}

void TBrandingText::Fit() {
    document()->setTextWidth(viewport()->width());
    const int needed = static_cast<int>(std::ceil(document()->size().height()));
    if (needed != height()) {
        setFixedHeight(needed);
    }
}
