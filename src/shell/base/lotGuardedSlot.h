// SPDX-License-Identifier: GPL-3.0-or-later
//
// The toolkit's signals with handlers that may throw.
#pragma once

#include "app/lotFailures.h"

#include <QObject>
#include <type_traits>
#include <utility>

/// Connects, the handler guarded, for as long as both objects live. A handler may do without the signal's arguments.
template <typename TSender, typename TSignal, typename THandler>
void OnSignal(const TSender& sender, TSignal signal, const QObject& context, THandler handler) {
    QObject::connect(&sender, signal, &context, [handler = std::move(handler)](const auto&... arguments) {
        Guarded([&] {
            if constexpr (std::is_invocable_v<const THandler&, decltype(arguments)...>) {
                handler(arguments...);
            } else {
                handler();
            }
        });
    });
}
