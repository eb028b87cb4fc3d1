// SPDX-License-Identifier: GPL-3.0-or-later
//
// The bar above a preview: leads through the pages, zooms, prints and closes. Each preview puts its own commands among
// these.
#pragma once

#include "common/vipNumber.h"
#include "widgets/lotPreviewPages.h"

#include <QIcon>
#include <QKeySequence>
#include <QToolBar>
#include <functional>

class QAction;
class QComboBox;
class QLabel;
class QSpinBox;

class TPreviewBar : public QToolBar {
    Q_OBJECT

public:
    /// `pages` must outlive the bar. `icon` gives an icon by its name, `locale` separates a zoom that is typed.
    TPreviewBar(TPreviewPages& pages, std::function<QIcon(const QString&)> icon, const TNumberLocale& locale,
                QWidget* parent);

    // From the left to the right, in the order of the calls.

    /// A command; what it throws is told in a box.
    QAction& Add(const char* name, const char* caption, const char* icon, const QKeySequence& key,
                 const std::function<void()>& handler);
    /// Ctrl+P.
    void AddPrint(const char* caption, const std::function<void()>& handler);
    /// First, previous, the page's number, next, last; between separators.
    void AddPlace();
    /// Out, the box of zooms, in.
    void AddZoom();
    /// At the right end.
    void AddClose(const std::function<void()>& handler);

    /// Shows where the pages are now, once they have moved or changed their zoom.
    void ShowPlace();
    void ShowZoom();

private:
    void GoTo(int page);
    void ZoomBoxEntered(const QString& text);

    TPreviewPages& FPages;
    std::function<QIcon(const QString&)> FIcon;
    TNumberLocale FLocale;
    QString FZoomText = "100%"; // As the box shows it.

    // Owned by the bar; null until they are added.
    QSpinBox* edtPage = nullptr;
    QLabel* lblPages = nullptr;
    QComboBox* cmbZoom = nullptr;
};
