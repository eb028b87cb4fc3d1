// SPDX-License-Identifier: GPL-3.0-or-later
//
// TlotDoubles: a growable array of reals by month. Reading past the end gives 0, writing past it lengthens the array;
// a negative month is a range error. Its capacity survives `Clear`, so a warm calculation doesn't allocate.
#pragma once

#include "common/vipErrors.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

class TlotDoubles {
public:
    TlotDoubles() = default;
    explicit TlotDoubles(std::vector<double> values) : FValues(std::move(values)) {}

    [[nodiscard]] int Count() const noexcept { return static_cast<int>(FValues.size()); }
    [[nodiscard]] bool IsEmpty() const noexcept { return FValues.empty(); }

    /// The element of that month, 0 past the end. Throws ERangeError below 0.
    [[nodiscard]] double Get(int month) const {
        const std::size_t i = Index(month);
        return i < FValues.size() ? FValues[i] : 0;
    }

    /// Stores the element, lengthening with zeros up to it. Throws ERangeError below 0.
    void Set(int month, double value) {
        const std::size_t i = Index(month);
        if (i >= FValues.size()) {
            FValues.resize(i + 1);
        }
        FValues[i] = value;
    }

    void Clear() noexcept { FValues.clear(); }

    /// Lengthens with zeros, or cuts, to `count`.
    void Resize(int count) { FValues.resize(Index(count)); }

    /// `count` zeros, whatever stood there.
    void Zero(int count) { FValues.assign(Index(count), 0.0); }

    /// `count` times `value`.
    void Assign(int count, double value) { FValues.assign(Index(count), value); }

    /// Every element := `value`.
    void Fill(double value) { std::ranges::fill(FValues, value); }

    /// Lengthens to `count` by repeating the last element (0 for an empty array); never shortens.
    void Extend(int count) {
        if (count > Count()) {
            FValues.resize(Index(count), FValues.empty() ? 0.0 : FValues.back());
        }
    }

    void EraseFront() { FValues.erase(FValues.begin()); }
    void InsertFront(double value) { FValues.insert(FValues.begin(), value); }

    /// The elements as they lie in memory; valid until the length changes.
    [[nodiscard]] std::span<double> Span() noexcept { return FValues; }
    [[nodiscard]] std::span<const double> Span() const noexcept { return FValues; }

    friend bool operator==(const TlotDoubles&, const TlotDoubles&) = default;

private:
    static std::size_t Index(int month) {
        if (month < 0) {
            throw ERangeError();
        }
        return static_cast<std::size_t>(month);
    }

    std::vector<double> FValues;
};
