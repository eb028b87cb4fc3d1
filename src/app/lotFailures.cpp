// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/lotFailures.h"

#include <exception>
#include <iostream>
#include <new>
#include <string>
#include <utility>

namespace {

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

TFailureMessages::TFailureMessages(TlotMessageService& messages) : FBefore(std::exchange(Teller(), &messages)) {}

TFailureMessages::~TFailureMessages() {
    Teller() = FBefore;
}
