// SPDX-License-Identifier: GPL-3.0-or-later
//
// The application with its one handler of last resort: an exception that leaves any handler of the message loop is told
// to the user, and the loop goes on.
#pragma once

#include "app/lotServices.h"

#include <QApplication>
#include <functional>

class TLotApplication : public QApplication {
public:
    TLotApplication(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;
};

/// Runs `work`, telling the user through a box where it throws. True if it didn't.
bool Guarded(const std::function<void()>& work);

/// Tells through `messages` in place of a box of the desktop, for as long as it lives.
class TFailureMessages {
public:
    explicit TFailureMessages(TlotMessageService& messages);
    TFailureMessages(const TFailureMessages&) = delete;
    TFailureMessages& operator=(const TFailureMessages&) = delete;
    ~TFailureMessages();

private:
    TlotMessageService* FBefore;
};
