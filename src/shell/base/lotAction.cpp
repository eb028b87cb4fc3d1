// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/base/lotAction.h"

#include "shell/base/lotGuardedSlot.h"
#include "shell/base/lotLook.h"

#include <QAction>
#include <utility>

QString ToolTipOf(const TActionTexts& texts) {
    return texts.Key.isEmpty() ? texts.Hint
                               : QString("%1 (%2)").arg(texts.Hint, texts.Key.toString(QKeySequence::NativeText));
}

QAction& MakeAction(QObject& owner, const TActionTexts& texts, std::function<void()> handler) {
    auto* const action = new QAction(texts.Caption, &owner);
    action->setObjectName(texts.Name);
    action->setShortcut(texts.Key);
    action->setToolTip(ToolTipOf(texts));
    action->setStatusTip(texts.Hint);
    if (!texts.Icon.isEmpty()) {
        action->setIcon(look::Icon(texts.Icon));
    }
    if (handler) {
        OnSignal(*action, &QAction::triggered, *action, std::move(handler));
    }
    return *action;
}
