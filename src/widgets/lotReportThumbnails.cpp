// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotReportThumbnails.h"

#include "reportengine/pages/lotReportPainter.h"
#include "widgets/lotHook.h"

#include <QPainter>
#include <QStyledItemDelegate>

namespace {

constexpr int PictureHeight = 150; // Pixels.
constexpr int Edge = 8;

class TThumbnailDelegate final : public QStyledItemDelegate {
public:
    explicit TThumbnailDelegate(TReportThumbnails& list) : QStyledItemDelegate(&list), FList(list) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QPixmap& picture = FList.Picture(index.row());
        const bool current = option.state.testFlag(QStyle::State_Selected);
        const QSizeF size = picture.deviceIndependentSize();
        const QRectF paper(option.rect.left() + (option.rect.width() - size.width()) / 2, option.rect.top() + Edge,
                           size.width(), size.height());
        painter->save();
        painter->drawPixmap(paper.topLeft(), picture);
        painter->setPen(QPen(option.palette.color(current ? QPalette::Highlight : QPalette::Mid), current ? 2 : 1));
        painter->drawRect(paper);
        painter->setPen(option.palette.color(QPalette::Text));
        const QRectF number(option.rect.left(), paper.bottom() + 2, option.rect.width(), option.fontMetrics.height());
        painter->drawText(number, Qt::AlignCenter, QString::number(index.row() + 1));
        painter->restore();
    }

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const override {
        return {PictureHeight, PictureHeight + 2 * Edge + option.fontMetrics.height()};
    }

private:
    TReportThumbnails& FList;
};

} // namespace

TReportThumbnails::TReportThumbnails(QWidget* parent) : QListWidget(parent) {
    setObjectName("Thumbnails");
    setAccessibleName("Thumbnails");
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setUniformItemSizes(true);
    setItemDelegate(new TThumbnailDelegate(*this));
    connect(this, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0) {
            RunHook(OnChoose, row);
        }
    });
}

void TReportThumbnails::SetReport(const report::TPreparedReport& report) {
    FReport = &report;
    FPictures.clear();
    const QSignalBlocker quiet(this);
    clear();
    for (std::size_t i = 0; i < report.Pages.size(); ++i) {
        addItem(QString::number(i + 1));
    }
}

void TReportThumbnails::SetCurrentPage(int page) {
    const QSignalBlocker quiet(this);
    setCurrentRow(page);
    if (QListWidgetItem* const current = item(page)) {
        scrollToItem(current);
    }
}

const QPixmap& TReportThumbnails::Picture(int page) {
    auto found = FPictures.find(page);
    if (found == FPictures.end()) {
        const report::TPreparedPage& source = FReport->Pages[static_cast<std::size_t>(page)];
        const double scale = PictureHeight / std::max(source.Size.height(), source.Size.width());
        QPixmap picture((source.Size * scale * devicePixelRatioF()).toSize());
        picture.setDevicePixelRatio(devicePixelRatioF());
        picture.fill(Qt::white);
        QPainter painter(&picture);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
        painter.scale(scale, scale);
        report::PaintPage(painter, *FReport, source);
        painter.end();
        found = FPictures.emplace(page, std::move(picture)).first;
    }
    return found->second;
}
