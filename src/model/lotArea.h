// SPDX-License-Identifier: GPL-3.0-or-later
//
// A unit's schedule of areas. Area, rate and value of a row depend on each other, so a row keeps itself consistent as
// it is edited, unless its schedule is locked while it is being filled. A schedule can be zoned as retail is: a row at
// 100 percent is Zone A, whose rate all zoned rows carry, and a deeper row's percentage takes its value down.
//
// A rate is per whatever unit the row's area is in; nothing converts between units of area.
#pragma once

#include "common/lotFields.h"
#include "common/lotOwningList.h"
#include "common/vipSADouble.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class TlotAreaSchedule;

/// The figures of a row, as they stand.
struct TlotAreaTerms {
    std::string Description;
    double Zoning = 0; ///< Percent of the Zone A rate that applies; 0 means not zoned.
    double Area = 0;
    TSADouble Rate;
    double Value = 0;

    template <class Visitor> static void VisitFields(Visitor&& visit) {
        visit(TlotFieldInfo{"Description"}, &TlotAreaTerms::Description);
        visit(TlotFieldInfo{"Zoning"}, &TlotAreaTerms::Zoning);
        visit(TlotFieldInfo{"Area"}, &TlotAreaTerms::Area);
        visit(TlotFieldInfo{"Rate"}, &TlotAreaTerms::Rate);
        visit(TlotFieldInfo{"Value"}, &TlotAreaTerms::Value);
    }

    friend bool operator==(const TlotAreaTerms&, const TlotAreaTerms&) = default;
};

class TlotArea {
public:
    explicit TlotArea(TlotAreaSchedule& owner) : FOwner(owner) {}

    [[nodiscard]] const std::string& Description() const noexcept { return FTerms.Description; }
    [[nodiscard]] double Zoning() const noexcept { return FTerms.Zoning; }
    [[nodiscard]] double Area() const noexcept { return FTerms.Area; }
    [[nodiscard]] double Rate() const noexcept { return FTerms.Rate.Value; }
    [[nodiscard]] double Value() const noexcept { return FTerms.Value; }
    [[nodiscard]] const TlotAreaTerms& Terms() const noexcept { return FTerms; }

    void SetDescription(std::string description) { FTerms.Description = std::move(description); }
    /// Percent of the Zone A rate that applies; 0 means not zoned.
    void SetZoning(double percent);
    void SetArea(double area);
    void SetRate(double rate);
    /// Stores the value, and from it the rate, which takes no account of the row's percentage: deliberate.
    void SetValue(double value);

    /// Value := Area x Rate, zoned; left as it is where either is 0, so that a lump sum survives.
    void CalcValue();

    /// The rate as a scenario may shift it; setting it here runs no follow-up.
    [[nodiscard]] TSADouble& RateObject() noexcept { return FTerms.Rate; }

    [[nodiscard]] bool IsZoneA() const noexcept { return FTerms.Zoning == 100; }
    [[nodiscard]] bool IsPartZone() const noexcept;

    /// Takes the five figures over with no recalculation.
    void Assign(const TlotAreaTerms& terms) { FTerms = terms; }

private:
    void Propagate();

    TlotAreaSchedule& FOwner;
    TlotAreaTerms FTerms;
};

/// A whole schedule as it stands, empty rows included.
struct TlotAreaScheduleTerms {
    std::vector<TlotAreaTerms> Areas;
    bool Zoning = false;

    friend bool operator==(const TlotAreaScheduleTerms&, const TlotAreaScheduleTerms&) = default;
};

class TlotAreaSchedule {
public:
    TlotAreaSchedule() = default;
    TlotAreaSchedule(const TlotAreaSchedule&) = delete;
    TlotAreaSchedule& operator=(const TlotAreaSchedule&) = delete;

    int Current = -1; ///< Index of the row last added or inserted.

    [[nodiscard]] TlotAreaScheduleTerms Terms() const;
    /// Becomes that schedule, empty rows included, with no recalculation.
    void SetTerms(const TlotAreaScheduleTerms& terms);

    [[nodiscard]] int Count() const noexcept { return FAreas.Count(); }
    [[nodiscard]] TlotArea& operator[](int index) { return FAreas[index]; }
    [[nodiscard]] const TlotArea& operator[](int index) const { return FAreas[index]; }
    [[nodiscard]] auto begin() noexcept { return FAreas.begin(); }
    [[nodiscard]] auto end() noexcept { return FAreas.end(); }
    [[nodiscard]] auto begin() const noexcept { return FAreas.begin(); }
    [[nodiscard]] auto end() const noexcept { return FAreas.end(); }

    TlotArea& Add() { return Insert(Count()); }
    TlotArea& Insert(int index);
    void Delete(int index) { FAreas.Delete(index); }
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
    TlotOwningList<TlotArea> FAreas;
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
