// SPDX-License-Identifier: GPL-3.0-or-later
//
// TlotDoubles: a growable array of reals by month. Reading past the end gives 0, writing past it lengthens the array;
// a negative month is a range error. Its capacity survives `Clear`, so a warm calculation doesn't allocate.
//
// Most lines of a long scheme begin late, so the array knows of some first months that they are 0 (`Lead`) and sums
// pass over them: adding a zero changes nothing.
#pragma once

#include "common/vipErrors.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

class TlotDoubles {
public:
    TlotDoubles() = default;
    explicit TlotDoubles(std::vector<double> values) : FValues(std::move(values)) {}
    TlotDoubles(const TlotDoubles&) = default;
    TlotDoubles& operator=(const TlotDoubles&) = default;
    TlotDoubles(TlotDoubles&& other) noexcept
        : FValues(std::exchange(other.FValues, {})), FLead(std::exchange(other.FLead, 0)) {}
    TlotDoubles& operator=(TlotDoubles&& other) noexcept {
        FValues = std::exchange(other.FValues, {});
        FLead = std::exchange(other.FLead, 0);
        return *this;
    }
    ~TlotDoubles() = default;

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
        FLead = std::min(FLead, i);
    }

    void Clear() noexcept {
        FValues.clear();
        FLead = 0;
    }

    /// Lengthens with zeros, or cuts, to `count`.
    void Resize(int count) {
        FValues.resize(Index(count));
        FLead = std::min(FLead, FValues.size());
    }

    /// `count` zeros, whatever stood there.
    void Zero(int count) { static_cast<void>(Prepare(count, count)); }

    /// Gives it `count` elements, zeros below `lead`, and hands out the rest, which holds leftovers: the caller writes
    /// every element of it.
    [[nodiscard]] std::span<double> Prepare(int lead, int count) {
        const std::size_t first = Index(lead);
        Resize(count);
        if (FLead < first) {
            std::ranges::fill(std::span(FValues).subspan(FLead, first - FLead), 0.0);
        }
        FLead = first;
        return std::span(FValues).subspan(first);
    }

    /// `count` times `value`.
    void Assign(int count, double value) { std::ranges::fill(Prepare(0, count), value); }

    /// Every element := `value`.
    void Fill(double value) { std::ranges::fill(Edit(), value); }

    /// Lengthens to `count` by repeating the last element (0 for an empty array); never shortens.
    void Extend(int count) {
        if (count > Count()) {
            FValues.resize(Index(count), FValues.empty() ? 0.0 : FValues.back());
        }
    }

    /// Makes a monthly array that a user may leave empty or short reach `count`: empty, it takes `value` throughout,
    /// short, its last element goes on.
    void Reach(int count, double value) {
        if (IsEmpty()) {
            Assign(count, value);
        } else {
            Extend(count);
        }
    }

    void EraseFront() {
        FValues.erase(FValues.begin());
        FLead = FLead > 0 ? FLead - 1 : 0;
    }
    void InsertFront(double value) {
        FValues.insert(FValues.begin(), value);
        FLead = value == 0 ? FLead + 1 : 0;
    }

    /// element := operation(element, other's element) over the months of `other`, lengthening to it. The operation must
    /// leave an element as it is where the other's is 0.
    template <class Operation> void Combine(const TlotDoubles& other, Operation operation) {
        if (FValues.size() < other.FValues.size()) {
            FValues.resize(other.FValues.size());
        }
        FLead = std::min(FLead, other.FLead);
        const double* const from = other.FValues.data();
        double* const to = FValues.data();
        const std::size_t count = other.FValues.size();
        for (std::size_t i = other.FLead; i < count; ++i) {
            to[i] = operation(to[i], from[i]);
        }
    }

    /// Number of first months that are known to be 0; there may be more.
    [[nodiscard]] int Lead() const noexcept { return static_cast<int>(FLead); }

    /// The elements as they lie in memory; valid until the length changes.
    [[nodiscard]] std::span<const double> Span() const noexcept { return FValues; }
    /// The same from Lead on.
    [[nodiscard]] std::span<const double> Tail() const noexcept { return Span().subspan(FLead); }
    /// All elements, to be written.
    [[nodiscard]] std::span<double> Edit() noexcept {
        FLead = 0;
        return FValues;
    }

    friend bool operator==(const TlotDoubles& a, const TlotDoubles& b) { return a.FValues == b.FValues; }

private:
    static std::size_t Index(int month) {
        if (month < 0) {
            throw ERangeError();
        }
        return static_cast<std::size_t>(month);
    }

    std::vector<double> FValues;
    std::size_t FLead = 0; ///< Never beyond the length; every element before it is 0.
};
