// SPDX-License-Identifier: GPL-3.0-or-later
//
// A unit: one block of accommodation, which costs something to build and brings in a sale, a rent or both. A
// capitalised unit turns the rent of its area schedule into a capital value by a yield; any other unit's schedule gives
// its sale value straight away.
#pragma once

#include "common/lotFields.h"
#include "common/lotLifetime.h"
#include "common/lotOwningList.h"
#include "common/vipSADouble.h"
#include "engine/lotAdjust.h"
#include "engine/lotCashflow.h"
#include "model/lotArea.h"

#include <cstdint>
#include <string>
#include <string_view>

/// The period in which rents are quoted; any other number acts as Annual.
enum class TlotRentalValues : std::uint8_t { Annual = 0, HalfYearly = 1, Quarterly = 2, Monthly = 3 };

/// How rent is paid, for the Years' Purchase; any other number acts as AnnuallyInArrears.
enum class TlotYPFrequency : std::uint8_t { AnnuallyInArrears = 0, QuarterlyInAdvance = 1, MonthlyInAdvance = 2 };

/// Payments of a rental period in a year: 1, 2, 4 or 12.
[[nodiscard]] int RentsAYear(TlotRentalValues rentalValues) noexcept;

/// What a user sets of a unit, but for its areas and the months of its three lines.
struct TlotUnitTerms {
    std::string Name;
    std::int32_t Number = 0; ///< Second sort key; enters no sum.
    std::string UnitType;
    bool IsCapitalised = false;
    TlotDimensions Dimensions = TlotDimensions::SquareFeet;
    TlotSADouble BuildArea;
    TlotSADouble BuildRate; ///< Money per unit of build area.
    TlotSADouble Yield;     ///< Percent.
    TlotYPFrequency YPFrequency = TlotYPFrequency::AnnuallyInArrears;
    std::string BuildAccountCode;
    std::string SalesAccountCode;
    std::string RentAccountCode;
    std::int32_t RentFreePeriod = 0; ///< Months.
    bool RentAtERV = false;          ///< The rent before sale is the ERV.
    double PreSalesRent = 0;         ///< A year's rent before sale where it isn't.
    double PurchCosts = 0;           ///< Percent.

    template <class Visitor> static void VisitFields(Visitor&& visit) {
        using T = TlotUnitTerms;
        visit(TlotFieldInfo{"Name"}, &T::Name);
        visit(TlotFieldInfo{"Number"}, &T::Number);
        visit(TlotFieldInfo{.Name = "UnitType", .Since = 10}, &T::UnitType);
        visit(TlotFieldInfo{.Name = "IsCapitalised", .Since = 10, .Form = TlotFieldForm::MixedCase}, &T::IsCapitalised);
        visit(TlotFieldInfo{"Dimensions"}, &T::Dimensions);
        visit(TlotFieldInfo{"BuildArea"}, &T::BuildArea);
        visit(TlotFieldInfo{"BuildRate"}, &T::BuildRate);
        visit(TlotFieldInfo{"Yield"}, &T::Yield);
        visit(TlotFieldInfo{"YPFrequency"}, &T::YPFrequency);
        visit(TlotFieldInfo{"BuildAccountCode"}, &T::BuildAccountCode);
        visit(TlotFieldInfo{"SalesAccountCode"}, &T::SalesAccountCode);
        visit(TlotFieldInfo{"RentAccountCode"}, &T::RentAccountCode);
        visit(TlotFieldInfo{"RentFreePeriod"}, &T::RentFreePeriod);
        visit(TlotFieldInfo{"RentAtERV"}, &T::RentAtERV);
        visit(TlotFieldInfo{"PreSalesRent"}, &T::PreSalesRent);
        visit(TlotFieldInfo{"PurchCosts"}, &T::PurchCosts);
    }

    friend bool operator==(const TlotUnitTerms&, const TlotUnitTerms&) = default;
};

/// What calculations leave behind in a unit, but for its lines.
struct TlotUnitResults {
    TlotSADouble ERV; ///< Rent of one rental period.
    TlotSADouble GrossSale;
    TlotSADouble NetSale;           ///< Less purchaser's costs.
    double YearsPurchase = 0;       ///< The multiplier used.
    double RentFreeFactor = 0;      ///< The deferment; 0 where there is no rent-free period.
    std::int32_t UnitTypeIndex = 0; ///< -1 where UnitType isn't known.
    double TotalArea = 0;
    double TotalValue = 0;      ///< Sum of the schedule after the sales adjustment.
    double GroundRent = 0;      ///< This unit's share.
    double NetRent = 0;         ///< ERV less GroundRent.
    double PurchCostsValue = 0; ///< GrossSale less NetSale.
};

/// A whole unit as it stands, kept to be put back or to be made again elsewhere.
struct TlotUnitSnapshot {
    TlotUnitTerms Terms;
    TlotUnitResults Results;
    TlotAreaScheduleTerms Areas;
    TlotCashflowItem BuildLine;
    TlotCashflowItem RentLine;
    TlotCashflowItem SalesLine;
};

class TlotUnit : public TlotUnitTerms, public TlotUnitResults {
public:
    TlotUnit();
    TlotUnit(const TlotUnit&) = delete;
    TlotUnit& operator=(const TlotUnit&) = delete;

    TlotLifetime Lifetime;
    TlotAreaSchedule Areas;
    TlotCashflowItem BuildLine;
    TlotCashflowItem RentLine; ///< Its amount is a month's rent.
    TlotCashflowItem SalesLine;

    /// Its lines by their names in files.
    template <class Visitor> static void VisitLines(Visitor&& visit) {
        visit("Build", &TlotUnit::BuildLine);
        visit("Sales", &TlotUnit::SalesLine);
        visit("Rent", &TlotUnit::RentLine);
    }

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

    /// Copies all inputs and calculated figures; of the schedule what Areas.Assign copies, and of each line what its
    /// Assign does.
    void Assign(const TlotUnit& other);

    [[nodiscard]] TlotUnitSnapshot Snapshot() const;
    /// Becomes what the snapshot was taken of, to the bit.
    void Restore(const TlotUnitSnapshot& snapshot);
    /// Whether everything that a user sets is alike: terms, areas and the months of the lines.
    [[nodiscard]] bool SameInputs(const TlotUnit& other) const;
};

/// Units in order. They are deleted by the project's operations, since the last calculation has listed their lines.
class TlotUnitList : public TlotOwningList<TlotUnit> {
public:
    /// The calculation's order: UnitTypeIndex, Number, Name without regard to case. Stable; a sorted list costs no
    /// memory.
    void Sort();
    /// By Number alone. Stable.
    void SortByNumber();

private:
    friend class TlotProject;
    using TlotOwningList::Clear;
    using TlotOwningList::Delete;
};

struct TlotUnitType {
    std::string Name;

    template <class Visitor> static void VisitFields(Visitor&& visit) {
        visit(TlotFieldInfo{"Name"}, &TlotUnitType::Name);
    }
};

/// The types that units may name, in the order in which units are listed.
class TlotUnitTypeList : public TlotOwningList<TlotUnitType> {
public:
    using TlotOwningList::IndexOf;
    /// Index of that name without regard to case, or -1.
    [[nodiscard]] int IndexOf(std::string_view name) const noexcept;
    /// "Commercial", "Residential", "Non-Capitalised".
    void SetDefaults();
};
