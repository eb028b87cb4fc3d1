// SPDX-License-Identifier: GPL-3.0-or-later
//
// A firm may put texts and a logo of its own beside the program; they take the place of the built-in ones. The files
// are other people's work, often written on other systems: letter case doesn't count, text is read in the encoding that
// it names, sizes are bounded, and a text may show pictures from its own folder and from nowhere else.
#pragma once

#include <QPixmap>
#include <QString>
#include <QTextBrowser>
#include <functional>
#include <optional>

namespace branding {

inline constexpr int LargestPicture = 16'384; ///< Pixels a side; a larger picture counts as none.

/// The text of an HTML file of the folder; nothing if it isn't there, can't be read or is longer than a page can be.
[[nodiscard]] std::optional<QString> Text(const QString& folder, const QString& name);

/// The picture of the first of the names that exists in the folder, no larger than `bound` (logical pixels, painted for
/// `ratio` device pixels each) and never enlarged. Nothing if none exists or that one is no picture; later names don't
/// count then.
[[nodiscard]] std::optional<QPixmap> Picture(const QString& folder, const QStringList& names, QSize bound,
                                             double ratio);

} // namespace branding

/// Shows a text in full, without a frame and without scroll bars: it is as high as its text at its width. It follows no
/// link and fetches nothing by itself.
class TBrandingText : public QTextBrowser {
public:
    explicit TBrandingText(QWidget* parent = nullptr);

    /// Pictures are taken from `folder` (empty: from nowhere), and under "icon:" and a name from the program's icons.
    void SetText(const QString& html, const QString& folder = {});

    /// A link has been clicked. Addresses of the web and of mail go to the desktop's own programs and don't come here.
    std::function<void(const QString& target)> OnLink;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    QVariant loadResource(int type, const QUrl& name) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void Fit();

    QString FFolder;
};
