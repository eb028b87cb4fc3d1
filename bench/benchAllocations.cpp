// SPDX-License-Identifier: GPL-3.0-or-later
#include "benchAllocations.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t Allocations = 0;

} // namespace

std::size_t AllocationCount() noexcept {
    return Allocations;
}

void* operator new(std::size_t size) {
    ++Allocations;
    if (void* const memory = std::malloc(size == 0 ? 1 : size)) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
