// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/lotHookGuard.h"

#include "app/lotFailures.h"

#include <QCoreApplication>
#include <QPointer>
#include <utility>

namespace {

void TellNow(const std::exception_ptr& failure) {
    Guarded([&failure] { std::rethrow_exception(failure); });
}

} // namespace

bool THookGuard::RunStep(const std::function<void()>& work, TTell when) {
    const QPointer<THookGuard> self(this);
    ++FDepth;
    std::exception_ptr failure;
    try {
        work();
    } catch (...) {
        failure = std::current_exception();
    }
    if (self.isNull()) {
        // Nobody is left to tell it in its turn.
        if (failure) {
            QMetaObject::invokeMethod(
                qApp, [failure] { TellNow(failure); }, Qt::QueuedConnection);
        }
        return !failure;
    }
    if (failure) {
        Note(failure);
    }
    if (--FDepth == 0) {
        when == TTell::Now ? Tell() : TellLater();
    }
    return !failure;
}

bool THookGuard::Run(const std::function<void()>& work) {
    return RunStep(work, TTell::Now);
}

bool THookGuard::RunLater(const std::function<void()>& work) {
    return RunStep(work, TTell::Later);
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
        TellNow(failure);
    }
}
