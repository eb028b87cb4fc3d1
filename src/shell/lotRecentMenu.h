// SPDX-License-Identifier: GPL-3.0-or-later
//
// The recent files as entries of the File menu.
#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <string>
#include <vector>

class QAction;
class QMenu;

class TRecentMenu : public QObject {
    Q_OBJECT

public:
    /// The entries stand in front of `below`; `names` is read each time the menu opens.
    TRecentMenu(QMenu& menu, QAction& below, const std::vector<std::string>& names);

    std::function<void(const std::string&)> OnChoose;

    /// The entries of the menu as they are now.
    void Rebuild();

private:
    QMenu& FMenu;
    QAction& FBelow;
    const std::vector<std::string>& FNames;
    std::vector<QAction*> FEntries; // Owned by this object.
};
