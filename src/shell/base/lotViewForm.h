// SPDX-License-Identifier: GPL-3.0-or-later
//
// The base of all views that fill the main window's work area: a heading strip with a caption and tools, the firm's own
// text where there is one, and a body. Views are made once, at start, and live as long as the window; they hold no
// figures of their own beyond an edit in progress.
#pragma once

#include "shell/base/lotAction.h"

#include <QString>
#include <QWidget>
#include <functional>

class QAction;
class QHBoxLayout;
class QPushButton;
class QVBoxLayout;
class TBrandingText;
class TViewPanel;

class TViewForm : public QWidget {
public:
    /// `brandingFolder`: where a firm may have put a "Main.html", which then stands at the view's head; the folder
    /// needn't exist, and is looked at once. Empty: such texts don't show here.
    explicit TViewForm(const QString& caption, const QString& brandingFolder = {}, QWidget* parent = nullptr);

    /// Rebuilds what the view shows from the model.
    virtual void Refresh() {}
    /// Brings pending edits into the model, because another view is about to be shown or the model to be read.
    virtual void Leave() {}
    /// Ends the edit of the field or cell that has the focus, because a command follows. What the view itself holds
    /// back until it is left stays where it is.
    virtual void EndEdit();
    /// Gives up the edit in progress, because its project is about to go. The view is refreshed afterwards.
    virtual void DropEdit();

    /// An edit has changed the project.
    std::function<void()> OnChange;
    /// A link in one of the view's texts has been clicked that leads into the program: "units", "help".
    std::function<void(const QString& target)> OnLink;

    /// The firm's own text stands at the head.
    [[nodiscard]] bool HasFirmText() const noexcept { return FHasFirmText; }

protected:
    [[nodiscard]] QHBoxLayout& Tools() const; ///< Right of the caption.
    [[nodiscard]] QVBoxLayout& Body() const;
    /// A line beside the caption that tells how the view is used; rich text. Empty takes it away.
    void SetHint(const QString& text);

    /// Links of the text become links of the view.
    void FollowLinks(TBrandingText& text);

    /// A command of the view, for its context menus and keys. The edit in progress ends first.
    QAction& AddCommand(const TActionTexts& texts, std::function<void()> handler);
    /// The same as a button among the tools.
    QPushButton& AddTool(const TActionTexts& texts, std::function<void()> handler);

private:
    void AddFirmText(const QString& folder);

    TViewPanel* FPanel; // Owned by this widget.
    bool FHasFirmText = false;
};
