// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/base/lotViewForm.h"

#include "app/lotFailures.h"
#include "shell/base/lotBranding.h"
#include "shell/base/lotEditInProgress.h"
#include "shell/base/lotGuardedSlot.h"
#include "shell/base/lotLook.h"
#include "shell/base/lotViewPanel.h"

#include <QAction>
#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace {

constexpr int HighestFirmText = 180; // Pixels; a longer text scrolls, so that the view below keeps its room.

/// As high as its text, up to that.
class TFirmTextArea final : public QScrollArea {
public:
    TFirmTextArea(TBrandingText& text, QWidget* parent) : QScrollArea(parent) {
        setObjectName("areaFirmText");
        setFrameShape(QFrame::NoFrame);
        setWidgetResizable(true);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setWidget(&text);
        viewport()->setBackgroundRole(QPalette::Base);
        text.installEventFilter(this);
        Fit();
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == widget() && event->type() == QEvent::Resize) {
            Fit();
        }
        return QScrollArea::eventFilter(watched, event);
    }

private:
    void Fit() { setFixedHeight(std::clamp(widget()->height(), 1, HighestFirmText)); }
};

} // namespace

TViewForm::TViewForm(const QString& caption, const QString& brandingFolder, QWidget* parent)
    : QWidget(parent), FPanel(new TViewPanel(caption, this)) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(FPanel);
    AddFirmText(brandingFolder);
}

void TViewForm::AddFirmText(const QString& folder) {
    const auto html = branding::Text(folder, "Main.html");
    if (!html) {
        return;
    }
    auto* const text = new TBrandingText(this);
    text->setObjectName("txtFirmMain");
    FollowLinks(*text);
    text->SetText(*html, folder);
    FPanel->Body().addWidget(new TFirmTextArea(*text, FPanel));
    FHasFirmText = true;
}

void TViewForm::FollowLinks(TBrandingText& text) {
    text.OnLink = [this](const QString& target) {
        if (OnLink) {
            Guarded([&] { OnLink(target); });
        }
    };
}

void TViewForm::EndEdit() {
    EndEditIn(*this);
}

void TViewForm::DropEdit() {
    DropEditIn(*this);
}

QHBoxLayout& TViewForm::Tools() const {
    return FPanel->Tools();
}

QVBoxLayout& TViewForm::Body() const {
    return FPanel->Body();
}

void TViewForm::SetHint(const QString& text) {
    FPanel->SetHint(text);
}

QAction& TViewForm::AddCommand(const TActionTexts& texts, std::function<void()> handler) {
    QAction& action = MakeAction(*this, texts, [this, handler = std::move(handler)] {
        EndEdit();
        handler();
    });
    action.setShortcutContext(Qt::WidgetWithChildrenShortcut);
    addAction(&action);
    return action;
}

QPushButton& TViewForm::AddTool(const TActionTexts& texts, std::function<void()> handler) {
    auto* const button = new QPushButton(texts.Caption, this);
    button->setObjectName(texts.Name);
    button->setToolTip(ToolTipOf(texts));
    button->setShortcut(texts.Key);
    if (!texts.Icon.isEmpty()) {
        button->setIcon(look::Icon(texts.Icon));
    }
    OnSignal(*button, &QPushButton::clicked, *this, [this, handler = std::move(handler)] {
        EndEdit();
        handler();
    });
    Tools().addWidget(button);
    return *button;
}
