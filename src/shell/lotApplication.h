// SPDX-License-Identifier: GPL-3.0-or-later
//
// The application, with its handler of last resort: an exception that leaves a handler of the message loop unguarded is
// told to the user, and the loop goes on.
#pragma once

#include <QApplication>

class TLotApplication : public QApplication {
public:
    TLotApplication(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;
};
