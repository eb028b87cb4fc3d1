// SPDX-License-Identifier: GPL-3.0-or-later
//
// A unit: one block of accommodation, which costs something to build and brings in a sale, a rent or both. A
// capitalised unit turns the rent of its area schedule into a capital value by a yield; any other unit's schedule gives
// its sale value straight away.
#pragma once

#include "common/vipSADouble.h"
#include "engine/lotAdjust.h"
#include "engine/lotCashflow.h"
#include "model/lotArea.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// The period in which rents are quoted; any other number acts as Annual.
enum class TlotRentalValues : std::uint8_t { Annual = 0, HalfYearly = 1, Quarterly = 2, Monthly = 3 };

/// How rent is paid, for the Years' Purchase; any other number acts as AnnuallyInArrears.
enum class TlotYPFrequency : std::uint8_t { AnnuallyInArrears = 0, QuarterlyInAdvance = 1, MonthlyInAdvance = 2 };

/// Payments of a rental period in a year: 1, 2, 4 or 12.
[[nodiscard]] int RentsAYear(TlotRentalValues rentalValues) noexcept;

class TlotUnit {
public:
    TlotUnit();
    TlotUnit(const TlotUnit&) = delete;
    TlotUnit& operator=(const TlotUnit&) = delete;

    TlotAreaSchedule Areas;
    TlotCashflowItem BuildLine;
    TlotCashflowItem RentLine; ///< Its amount is a month's rent.
    TlotCashflowItem SalesLine;
    TlotSADouble BuildRate; ///< Money per unit of build area.
    TlotSADouble BuildArea;
    TlotSADouble ERV;          ///< Calculated: rent of one rental period.
    TlotSADouble Yield;        ///< Percent.
    TlotSADouble GrossSale;    ///< Calculated.
    TlotSADouble NetSale;      ///< Calculated: less purchaser's costs.
    double YearsPurchase = 0;  ///< Calculated.
    double RentFreeFactor = 0; ///< Calculated: the deferment; 0 where there is no rent-free period.
    std::string Name;
    std::int32_t Number = 0; ///< Second sort key; enters no sum.
    std::string UnitType;
    std::int32_t UnitTypeIndex = 0; ///< Calculated: -1 where UnitType isn't known.
    TlotDimensions Dimensions = TlotDimensions::SquareFeet;
    double TotalArea = 0;  ///< Calculated.
    double TotalValue = 0; ///< Calculated: sum of the schedule after the sales adjustment.
    bool IsCapitalised = false;
    std::string BuildAccountCode;
    std::string SalesAccountCode;
    std::string RentAccountCode;
    std::int32_t RentFreePeriod = 0; ///< Months.
    bool RentAtERV = false;          ///< The rent before sale is the ERV.
    double PreSalesRent = 0;         ///< A year's rent before sale where it isn't.
    double GroundRent = 0;           ///< Calculated: this unit's share.
    double NetRent = 0;              ///< Calculated: ERV less GroundRent.
    TlotYPFrequency YPFrequency = TlotYPFrequency::AnnuallyInArrears;
    double PurchCosts = 0;      ///< Percent.
    double PurchCostsValue = 0; ///< Calculated: GrossSale less NetSale.

    /// Totals from the schedule; `adjust` may be null, here and below.
    void CalculateValue(const TlotAdjust* adjust);
    /// Its share of the ground rent by ERV; `totalRent` is the project's as the calculation before left it.
    void CalculateGroundRent(bool leasehold, double totalGroundRent, double totalRent);
    void CalculateSale(bool leasehold, TlotRentalValues rentalValues, double leaseTerm);
    void CalculateBuild(const TlotAdjust* adjust);

    /// The gross value of a rent of one rental period; sets YearsPurchase. `leaseTerm` in years.
    double CapitalValue(bool leasehold, TlotRentalValues rentalValues, double netRent, double leaseTerm);
    /// A twelfth of the rent before sale, whatever the rental period.
    [[nodiscard]] double MonthlyRent() const;
    /// The yield (percent, 0 to 200) that gives the gross value `target`, or 0; the unit is left as it was, calculated.
    double SolveRate(bool leasehold, TlotRentalValues rentalValues, double target, double leaseTerm);
    /// With purchaser's costs on top.
    [[nodiscard]] double GrossUp(double value) const;
    /// With purchaser's costs taken off; 0 where they are -100 percent.
    [[nodiscard]] double Net(double value) const;

    /// Copies all inputs and calculated figures.
    void Assign(const TlotUnit& other);
};

class TlotUnitList {
public:
    [[nodiscard]] int Count() const noexcept { return static_cast<int>(FUnits.size()); }
    [[nodiscard]] TlotUnit& operator[](int index) { return *FUnits.at(static_cast<std::size_t>(index)); }
    [[nodiscard]] const TlotUnit& operator[](int index) const { return *FUnits.at(static_cast<std::size_t>(index)); }
    [[nodiscard]] auto begin() noexcept { return FUnits.begin(); }
    [[nodiscard]] auto end() noexcept { return FUnits.end(); }
    [[nodiscard]] auto begin() const noexcept { return FUnits.begin(); }
    [[nodiscard]] auto end() const noexcept { return FUnits.end(); }

    TlotUnit& Add() { return Insert(Count()); }
    TlotUnit& Insert(int index);
    void Delete(int index) { FUnits.erase(FUnits.begin() + index); }
    [[nodiscard]] int IndexOf(const TlotUnit& unit) const noexcept;
    void Clear() noexcept { FUnits.clear(); }

    /// The calculation's order: UnitTypeIndex, Number, Name without regard to case. Stable; a sorted list costs no
    /// memory.
    void Sort();
    /// By Number alone. Stable.
    void SortByNumber();

private:
    std::vector<std::unique_ptr<TlotUnit>> FUnits;
};

struct TlotUnitType {
    std::string Name;
};

/// The types that units may name, in the order in which units are listed.
class TlotUnitTypeList {
public:
    std::vector<TlotUnitType> Items;

    /// Index of that name without regard to case, or -1.
    [[nodiscard]] int IndexOf(std::string_view name) const noexcept;
    /// "Commercial", "Residential", "Non-Capitalised".
    void SetDefaults();
};
