// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/lotRecentMenu.h"

#include "shell/base/lotAction.h"

#include <QAction>
#include <QFontMetrics>
#include <QMenu>
#include <algorithm>

namespace {

constexpr std::size_t Shown = 10; // The list may be longer; a menu of more entries is hard to use.
constexpr int LongestPath = 420;  // Pixels.

} // namespace

TRecentMenu::TRecentMenu(QMenu& menu, QAction& below, const std::vector<std::string>& names)
    : QObject(&menu), FMenu(menu), FBelow(below), FNames(names) {
    connect(&menu, &QMenu::aboutToShow, this, &TRecentMenu::Rebuild);
}

void TRecentMenu::Rebuild() {
    qDeleteAll(FEntries);
    FEntries.clear();
    for (std::size_t i = 0; i < std::min(FNames.size(), Shown); ++i) {
        const std::string& name = FNames[i];
        const QString path = QString::fromStdString(name);
        QString caption = FMenu.fontMetrics().elidedText(path, Qt::ElideMiddle, LongestPath);
        caption.replace('&', "&&");
        // By value: choosing a file changes the list.
        QAction& entry = MakeAction(*this, {{}, QString("&%1  %2").arg((i + 1) % 10).arg(caption), path, {}, {}},
                                    [this, chosen = name] { OnChoose(chosen); });
        FMenu.insertAction(&FBelow, &entry);
        FEntries.push_back(&entry);
    }
}
