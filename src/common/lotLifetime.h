// SPDX-License-Identifier: GPL-3.0-or-later
//
// For whoever keeps a reference to an object that others may delete: the object holds a TlotLifetime, and a TlotWatch
// on it yields the object for as long as it lives, and nothing afterwards, also where another object has come to lie at
// the same address.
#pragma once

#include <memory>

/// A member of the object that may be watched. It is of the object alone: copies and assignments pass it over.
class TlotLifetime {
public:
    TlotLifetime() = default;
    TlotLifetime(const TlotLifetime&) noexcept {}
    TlotLifetime& operator=(const TlotLifetime&) noexcept { return *this; }
    ~TlotLifetime() = default;

    /// Made when it is first asked for: most objects are never watched.
    [[nodiscard]] std::weak_ptr<const void> Watch() const {
        if (FToken == nullptr) {
            FToken = std::make_shared<char>();
        }
        return FToken;
    }

private:
    mutable std::shared_ptr<const void> FToken;
};

/// A reference to a T that forgets itself when the owner of the lifetime dies.
template <class T> class TlotWatch {
public:
    TlotWatch() = default;
    /// `target` is the object with that lifetime, or a part of it.
    TlotWatch(T& target, const TlotLifetime& owner) : FTarget(&target), FAlive(owner.Watch()) {}

    /// Null where there was nothing, or where it is gone.
    [[nodiscard]] T* Get() const noexcept { return FAlive.expired() ? nullptr : FTarget; }
    void Forget() noexcept {
        FTarget = nullptr;
        FAlive.reset();
    }

private:
    T* FTarget = nullptr;
    std::weak_ptr<const void> FAlive;
};
