// SPDX-License-Identifier: GPL-3.0-or-later
//
// The base of all views that fill the main window's work area. Views are made once, at start, and live as long as the
// window; they hold no figures of their own beyond an edit in progress.
#pragma once

#include <QWidget>
#include <functional>

class TViewForm : public QWidget {
public:
    using QWidget::QWidget;

    /// Rebuilds what the view shows from the model.
    virtual void Refresh() {}
    /// Brings pending edits into the model, because another view is about to be shown or the model to be read.
    virtual void Leave() {}

    /// An edit has changed the project.
    std::function<void()> OnChange;
};
