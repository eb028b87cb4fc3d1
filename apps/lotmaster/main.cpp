// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/lotLook.h"
#include "shell/lotViewPanel.h"

#include <QApplication>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    look::Apply(application);
    TViewPanel panel("Lotmaster");
    panel.show();
    return QApplication::exec();
}
