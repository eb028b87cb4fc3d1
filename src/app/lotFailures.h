// SPDX-License-Identifier: GPL-3.0-or-later
//
// Where failures end that nobody handles: the user is told, and the program goes on.
#pragma once

#include "app/lotServices.h"

#include <cstddef>
#include <functional>

/// Runs `work`, telling the user where it throws. True if it didn't. Every handler of a toolkit's event runs in one: no
/// exception may pass through the toolkit's own code, which does not clean up behind it.
bool Guarded(const std::function<void()>& work);

/// Something has failed that is told later, where no box may open now.
void NoteFailure() noexcept;

/// Knows whether anything has failed since it was made: what Guarded has told, or NoteFailure noted.
class TFailureWatch {
public:
    TFailureWatch() noexcept;

    [[nodiscard]] bool Failed() const noexcept;

private:
    std::size_t FBefore;
};

/// Failures are told through `messages` for as long as this object lives; while there is none, on standard error.
class TFailureMessages {
public:
    explicit TFailureMessages(TlotMessageService& messages);
    TFailureMessages(const TFailureMessages&) = delete;
    TFailureMessages& operator=(const TFailureMessages&) = delete;
    ~TFailureMessages();

private:
    TlotMessageService* FBefore;
};
