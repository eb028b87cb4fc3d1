// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotHookGuard.h"

#include "app/lotFailures.h"

#include <utility>

bool THookGuard::RunStep(const std::function<void()>& work) {
    ++FDepth;
    bool done = true;
    try {
        work();
    } catch (...) {
        Note(std::current_exception());
        done = false;
    }
    --FDepth;
    return done;
}

bool THookGuard::Run(const std::function<void()>& work) {
    const bool done = RunStep(work);
    if (FDepth == 0) {
        Tell();
    }
    return done;
}

bool THookGuard::RunLater(const std::function<void()>& work) {
    const bool done = RunStep(work);
    if (FDepth == 0) {
        TellLater();
    }
    return done;
}

void THookGuard::Note(std::exception_ptr failure) {
    NoteFailure(); // A dialog that is being closed must know before the box comes.
    if (!FFailure) {
        FFailure = std::move(failure);
    }
}

void THookGuard::NoteRead(std::exception_ptr failure) {
    if (std::exchange(FReadTold, true)) {
        return;
    }
    Note(std::move(failure));
    if (FDepth == 0) {
        TellLater();
    }
}

void THookGuard::TellLater() {
    if (!FFailure) {
        return;
    }
    QMetaObject::invokeMethod(
        this,
        [this] {
            // Within a menu or dialog that an operation has opened, the failure waits for the operation's end.
            if (FDepth == 0) {
                Tell();
            }
        },
        Qt::QueuedConnection);
}

void THookGuard::Tell() {
    if (const std::exception_ptr failure = std::exchange(FFailure, nullptr)) {
        FReadTold = true;
        // The box runs the message loop, in which this may go.
        Guarded([&failure] { std::rethrow_exception(failure); });
    }
}
