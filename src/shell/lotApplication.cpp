// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/lotApplication.h"

#include "app/lotFailures.h"

#include <clocale>

TLotApplication::TLotApplication(int& argc, char** argv) : QApplication(argc, argv) {
    setApplicationName("Lotmaster");
    setApplicationVersion(LOTMASTER_VERSION);
    setDesktopFileName("lotmaster");
    // The toolkit takes over the user's locale; libraries that write files must not. Ours comes in as a value.
    std::setlocale(LC_NUMERIC, "C");
}

bool TLotApplication::notify(QObject* receiver, QEvent* event) {
    bool result = false;
    Guarded([&] { result = QApplication::notify(receiver, event); });
    return result;
}
