// SPDX-License-Identifier: GPL-3.0-or-later
//
// VBisect: the one bisection of the system. It calls nothing; a loop that owns the model drives it:
// while Status is Running, take Middle, apply it, compute, and tell Step the result. Found means that the value last
// applied is the answer; GaveUp that there is none, for which callers answer 0.
//
// The function is taken to fall as the variable rises. The bounds aren't tested to bracket the target.
#pragma once

#include <cstdint>

enum class TBisectStatus : std::uint8_t { Running = 0, Found = 1, GaveUp = 2 };

class VBisect {
public:
    /// Largest difference from the target, in the units of the function, that counts as found.
    double Tolerance = 0.5;

    /// For measures that are ratios: a negative reading means that the candidate is too low, since a deep negative
    /// site value turns the total cost, and so the ratio, negative.
    bool SignedMode = false;

    /// Begins a search. One step more than the limit is taken: with 50, steps 0 to 50 move the bounds and the next one
    /// gives up. Tolerance and SignedMode are left as they stand.
    void Start(int maximumIterations, double target, double low, double high) noexcept;

    /// The present candidate.
    [[nodiscard]] double Middle() const noexcept { return (FLow + FHigh) / 2; }

    /// What the function is worth at Middle. A value of 0 or below is never found, however near the target; a value
    /// exactly on the target that was refused so moves no bound. Changes nothing once the search has ended.
    void Step(double value) noexcept;

    [[nodiscard]] TBisectStatus Status() const noexcept { return FStatus; }
    [[nodiscard]] bool Running() const noexcept { return FStatus == TBisectStatus::Running; }
    [[nodiscard]] bool Found() const noexcept { return FStatus == TBisectStatus::Found; }
    [[nodiscard]] int Iterations() const noexcept { return FIterations; }

private:
    int FIterations = 0;
    int FMaximumIterations = 0;
    double FTarget = 0;
    double FLow = 0;
    double FHigh = 0;
    TBisectStatus FStatus = TBisectStatus::Running;
};
