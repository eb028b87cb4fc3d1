// SPDX-License-Identifier: GPL-3.0-or-later
//
// TStringHashMap: names without regard to case to values, in 127 buckets. Made for the evaluator's symbols: a look-up
// takes a view of the expression's text and allocates nothing.
#pragma once

#include "common/vipText.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

template <class T> class TStringHashMap {
public:
    static constexpr std::size_t BucketCount = 127;

    /// Stores `value` under `name`, replacing what stood there.
    void Set(std::string_view name, T value) {
        if (T* const present = Find(name)) {
            *present = std::move(value);
        } else {
            FBuckets[Bucket(name)].push_back({std::string(name), std::move(value)});
        }
    }

    /// The value of that name, or null.
    [[nodiscard]] T* Find(std::string_view name) noexcept {
        for (TEntry& entry : FBuckets[Bucket(name)]) {
            if (vip::SameText(entry.Name, name)) {
                return &entry.Value;
            }
        }
        return nullptr;
    }

private:
    struct TEntry {
        std::string Name;
        T Value;
    };

    static std::size_t Bucket(std::string_view name) noexcept {
        std::uint32_t hash = 0;
        for (std::size_t position = 0; position < name.size();) {
            hash = hash * 31 + static_cast<std::uint32_t>(vip::LowerCodePoint(vip::NextCodePoint(name, position)));
        }
        return hash % BucketCount;
    }

    std::array<std::vector<TEntry>, BucketCount> FBuckets;
};
