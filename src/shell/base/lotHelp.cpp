// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/base/lotHelp.h"

#include <QWidget>

bool OpenHelp(QWidget& over, const QString& topic) {
    for (QWidget* above = over.parentWidget(); above != nullptr; above = above->parentWidget()) {
        if (auto* const giver = dynamic_cast<TlotHelpGiver*>(above)) {
            giver->ShowHelp(over, topic);
            return true;
        }
    }
    return false;
}
