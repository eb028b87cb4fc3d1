// SPDX-License-Identifier: GPL-3.0-or-later
//
// A unit's schedule of areas. Area, rate and value of a row depend on each other, so a row keeps itself consistent as
// it is edited, unless its schedule is locked while it is being filled. A schedule can be zoned as retail is: a row at
// 100 percent is Zone A, whose rate all zoned rows carry, and a deeper row's percentage takes its value down.
//
// A rate is per whatever unit the row's area is in; nothing converts between units of area.
#pragma once

#include "common/vipSADouble.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class TlotAreaSchedule;

class TlotArea {
public:
    explicit TlotArea(TlotAreaSchedule& owner) : FOwner(owner) {}

    std::string Description;

    [[nodiscard]] double Zoning() const noexcept { return FZoning; }
    [[nodiscard]] double Area() const noexcept { return FArea; }
    [[nodiscard]] double Rate() const noexcept { return FRate.Value; }
    [[nodiscard]] double Value() const noexcept { return FValue; }

    /// Percent of the Zone A rate that applies; 0 means not zoned.
    void SetZoning(double percent);
    void SetArea(double area);
    void SetRate(double rate);
    /// Stores the value, and from it the rate, which takes no account of the row's percentage: deliberate.
    void SetValue(double value);

    /// Value := Area x Rate, zoned; left as it is where either is 0, so that a lump sum survives.
    void CalcValue();

    /// The rate as a scenario may shift it; setting it here runs no follow-up.
    [[nodiscard]] TSADouble& RateObject() noexcept { return FRate; }

    [[nodiscard]] bool IsZoneA() const noexcept { return FZoning == 100; }
    [[nodiscard]] bool IsPartZone() const noexcept;

    /// Copies the five figures with no recalculation.
    void Assign(const TlotArea& other);

private:
    void Propagate();

    TlotAreaSchedule& FOwner;
    double FZoning = 0;
    double FArea = 0;
    TSADouble FRate;
    double FValue = 0;
};

class TlotAreaSchedule {
public:
    TlotAreaSchedule() = default;
    TlotAreaSchedule(const TlotAreaSchedule&) = delete;
    TlotAreaSchedule& operator=(const TlotAreaSchedule&) = delete;

    int Current = -1; ///< Index of the row last added or inserted.

    [[nodiscard]] int Count() const noexcept { return static_cast<int>(FAreas.size()); }
    [[nodiscard]] TlotArea& operator[](int index) { return *FAreas.at(static_cast<std::size_t>(index)); }
    [[nodiscard]] const TlotArea& operator[](int index) const { return *FAreas.at(static_cast<std::size_t>(index)); }
    [[nodiscard]] auto begin() noexcept { return FAreas.begin(); }
    [[nodiscard]] auto end() noexcept { return FAreas.end(); }
    [[nodiscard]] auto begin() const noexcept { return FAreas.begin(); }
    [[nodiscard]] auto end() const noexcept { return FAreas.end(); }

    TlotArea& Add() { return Insert(Count()); }
    TlotArea& Insert(int index);
    void Delete(int index);
    /// Empties the rows and clears the zoning flag.
    void Clear();
    /// Copies the rows that hold anything, and the zoning flag.
    void Assign(const TlotAreaSchedule& other);

    void Lock() noexcept { ++FLockCount; }
    /// Throws ELotError where there is no Lock to undo.
    void Unlock();
    [[nodiscard]] bool IsLocked() const noexcept { return FLockCount > 0; }

    [[nodiscard]] bool Zoning() const noexcept { return FZoning; }
    /// Stores the flag and re-values every row.
    void SetZoning(bool zoned);

    /// The first row at 100 percent, or null.
    [[nodiscard]] const TlotArea* ZoneA() const noexcept;
    /// Its rate, or 0.
    [[nodiscard]] double ZoneARate() const noexcept;
    /// Sum of the values of the zoned rows.
    [[nodiscard]] double ZonedValue() const noexcept;
    /// Area in terms of Zone A; 0 without a Zone A rate.
    [[nodiscard]] double ITZA() const noexcept;

private:
    std::vector<std::unique_ptr<TlotArea>> FAreas;
    bool FZoning = false;
    int FLockCount = 0;
};

/// A zone that a user may choose for a row.
struct TlotZone {
    std::string Name;
    double Percent = 0;
};

using TlotZoning = std::vector<TlotZone>;

/// Zone A to the remainder, each at half the percentage of the one before.
[[nodiscard]] TlotZoning DefaultZoning();

/// Units of area, a label only.
enum class TlotDimensions : std::uint8_t { SquareFeet = 0, SquareMetres = 1, Acres = 2, Hectares = 3, SubUnits = 4 };

/// "sq. ft" and the rest; empty out of range.
[[nodiscard]] std::string_view DimensionsShortText(TlotDimensions dimensions) noexcept;
/// "Square Feet" and the rest; empty out of range.
[[nodiscard]] std::string_view DimensionsText(TlotDimensions dimensions) noexcept;
