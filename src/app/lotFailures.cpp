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

/// Of failures since the program began.
std::size_t& Count() noexcept {
    static std::size_t count = 0;
    return count;
}

void Tell(const std::string& text) {
    NoteFailure();
    if (TlotMessageService* const teller = Teller()) {
        teller->Show(TlotMessageKind::Error, text);
    } else {
        std::cerr << "lotmaster: " << text << '\n';
    }
}

} // namespace

void NoteFailure() noexcept {
    ++Count();
}

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

TFailureWatch::TFailureWatch() noexcept : FBefore(Count()) {}

bool TFailureWatch::Failed() const noexcept {
    return Count() != FBefore;
}

TFailureMessages::TFailureMessages(TlotMessageService& messages) : FBefore(std::exchange(Teller(), &messages)) {}

TFailureMessages::~TFailureMessages() {
    Teller() = FBefore;
}
