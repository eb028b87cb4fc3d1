// SPDX-License-Identifier: GPL-3.0-or-later
//
// How widgets call the hooks that their owners set. A hook runs in the middle of a toolkit's event, through which no
// exception may pass: what it throws is told to the user here, once, and the widget learns that it failed. A hook may
// be replaced, or its widget deleted, while it runs.
#pragma once

#include "app/lotFailures.h"

#include <functional>
#include <utility>

/// Calls the hook, if one is set. False if it threw.
template <typename... TParameters, typename... TArguments>
bool RunHook(const std::function<void(TParameters...)>& hook, TArguments&&... arguments) {
    return !hook || Guarded([held = hook, &arguments...] { held(std::forward<TArguments>(arguments)...); });
}

/// What the hook answers; `otherwise` if none is set or it threw.
template <typename TResult, typename... TParameters, typename... TArguments>
TResult AskHook(const std::function<TResult(TParameters...)>& hook, TResult otherwise, TArguments&&... arguments) {
    if (hook) {
        Guarded([held = hook, &otherwise, &arguments...] { otherwise = held(std::forward<TArguments>(arguments)...); });
    }
    return otherwise;
}
