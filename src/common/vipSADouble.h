// SPDX-License-Identifier: GPL-3.0-or-later
//
// TSADouble: a real that a sensitivity scenario may shift. The model reads the current value; the stored one is what
// the user left, kept while a table is computed.
#pragma once

namespace vip {

/// One step of an axis around its base: where it stands and how far a step goes.
struct TSAStep {
    int Index = 0;
    int Count = 1;
    bool Percentage = false; ///< Size is a percentage of the base, otherwise an amount.
    double Size = 0;

    /// The value of this step. The axis is centred on the base; an even count has one more step above than below.
    [[nodiscard]] double ValueAt(double base) const noexcept {
        const double step = Percentage ? Size / 100 * base : Size;
        const int half = (Count - 1) / 2;
        return (base - half * step) + Index * step;
    }
};

} // namespace vip

struct TSADouble {
    double Value = 0;
    double Stored = 0;

    void Save() noexcept { Stored = Value; }
    void Restore() noexcept { Value = Stored; }
    /// Takes the scenario's value, from the stored one.
    void Apply(const vip::TSAStep& step) noexcept { Value = step.ValueAt(Stored); }

    /// By the current value: the stored one means something only while a table is computed.
    friend bool operator==(const TSADouble& a, const TSADouble& b) noexcept { return a.Value == b.Value; }
};

/// The same value under the name that loans, equity and units know it by.
using TlotSADouble = TSADouble;
