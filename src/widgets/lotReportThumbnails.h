// SPDX-License-Identifier: GPL-3.0-or-later
//
// The pages of a finished report as small pictures, each made when it first comes into view.
#pragma once

#include "reportengine/pages/lotPreparedReport.h"

#include <QListWidget>
#include <functional>
#include <map>

class TReportThumbnails : public QListWidget {
    Q_OBJECT

public:
    explicit TReportThumbnails(QWidget* parent = nullptr);

    /// The report must outlive the widget.
    void SetReport(const report::TPreparedReport& report);
    void SetCurrentPage(int page);

    std::function<void(int page)> OnChoose; ///< By click or key, from 0.

    /// The picture of a page, as it is drawn.
    [[nodiscard]] const QPixmap& Picture(int page);

private:
    const report::TPreparedReport* FReport = nullptr; // Not owned.
    std::map<int, QPixmap> FPictures;
};
