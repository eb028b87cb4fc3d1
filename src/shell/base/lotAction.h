// SPDX-License-Identifier: GPL-3.0-or-later
//
// The one way in which commands of the window, of views and of dialogs are made.
#pragma once

#include <QKeySequence>
#include <QString>
#include <functional>

class QAction;
class QObject;

struct TActionTexts {
    QString Name; ///< Of the object.
    QString Caption;
    QString Hint = {};     ///< Shown under the mouse, with the key behind it.
    QKeySequence Key = {}; ///< None where empty, as the icon.
    QString Icon = {};     ///< As look::Icon takes it.
};

/// "Hint (Key)".
[[nodiscard]] QString ToolTipOf(const TActionTexts& texts);

/// Belongs to `owner`. The handler, which may be set later by OnSignal, runs guarded. Throws ELotError for an icon that
/// isn't there.
QAction& MakeAction(QObject& owner, const TActionTexts& texts, std::function<void()> handler = {});
