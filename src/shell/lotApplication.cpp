// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/lotApplication.h"

#include <clocale>
#include <exception>
#include <iostream>
#include <new>
#include <string>
#include <utility>

namespace {

/// Where failures are told. Null: nothing stands yet, so on standard error.
TlotMessageService*& Teller() {
    static TlotMessageService* teller = nullptr;
    return teller;
}

void Tell(const std::string& text) {
    if (TlotMessageService* const teller = Teller()) {
        teller->Show(TlotMessageKind::Error, text);
    } else {
        std::cerr << "lotmaster: " << text << '\n';
    }
}

} // namespace

bool Guarded(const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const std::bad_alloc&) {
        Tell("There is not enough memory for that.");
    } catch (const std::exception& failure) {
        Tell(failure.what());
    } catch (...) {
        Tell("Something went wrong that has no name.");
    }
    return false;
}

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

TFailureMessages::TFailureMessages(TlotMessageService& messages) : FBefore(std::exchange(Teller(), &messages)) {}

TFailureMessages::~TFailureMessages() {
    Teller() = FBefore;
}
