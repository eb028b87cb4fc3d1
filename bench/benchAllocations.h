// SPDX-License-Identifier: GPL-3.0-or-later
//
// Counts heap allocations, so that a pass can be shown to make none.
#pragma once

#include <cstddef>

[[nodiscard]] std::size_t AllocationCount() noexcept;
