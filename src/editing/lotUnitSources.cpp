// SPDX-License-Identifier: GPL-3.0-or-later
#include "editing/lotUnitSources.h"

#include <array>
#include <limits>

namespace {

using TSource = TlotCustomDataSource;

std::int32_t Whole(const TlotValue& value) {
    const std::int64_t number = TSource::AsInteger(value);
    constexpr std::int64_t least = std::numeric_limits<std::int32_t>::min();
    constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(number < least ? least : (number > most ? most : number));
}

double Quotient(double value, double divisor) {
    return divisor == 0 ? 0 : value / divisor;
}

void FollowBuild(TlotUnit& unit) {
    unit.BuildLine.Amount = unit.BuildRate.Value * unit.BuildArea.Value;
}

/// The row that stands for the whole disposal, made where there is none.
TlotArea& FirstArea(TlotUnit& unit) {
    return unit.Areas.Count() == 0 ? unit.Areas.Add() : unit.Areas[0];
}

constexpr std::array<TlotColumn<TlotUnit>, 11> UnitColumns = {{
    {"UnitType", [](const TlotUnit& u) -> TlotValue { return u.UnitType; },
     [](TlotUnit& u, const TlotValue& v) { u.UnitType = TSource::AsString(v); }},
    {"Name", [](const TlotUnit& u) -> TlotValue { return u.Name; },
     [](TlotUnit& u, const TlotValue& v) { u.Name = TSource::AsString(v); }},
    {"Number", [](const TlotUnit& u) -> TlotValue { return std::int64_t{u.Number}; },
     [](TlotUnit& u, const TlotValue& v) { u.Number = Whole(v); }, "0"},
    {"BuildArea", [](const TlotUnit& u) -> TlotValue { return u.BuildArea.Value; },
     [](TlotUnit& u, const TlotValue& v) {
         u.BuildArea.Value = TSource::AsDouble(v);
         FollowBuild(u);
     },
     ",0.00"},
    {"BuildRate", [](const TlotUnit& u) -> TlotValue { return u.BuildRate.Value; },
     [](TlotUnit& u, const TlotValue& v) {
         u.BuildRate.Value = TSource::AsDouble(v);
         FollowBuild(u);
     },
     ",0.00"},
    {"BuildCost", [](const TlotUnit& u) -> TlotValue { return u.BuildLine.Amount; },
     [](TlotUnit& u, const TlotValue& v) {
         u.BuildLine.Amount = TSource::AsDouble(v);
         u.BuildRate.Value = Quotient(u.BuildLine.Amount, u.BuildArea.Value);
     },
     ",0"},
    {"DisposalArea", [](const TlotUnit& u) -> TlotValue { return u.Areas.Count() == 0 ? 0.0 : u.Areas[0].Area(); },
     [](TlotUnit& u, const TlotValue& v) {
         TlotArea& area = FirstArea(u);
         area.SetArea(TSource::AsDouble(v));
         area.SetValue(area.Area() * area.Rate());
     },
     ",0.00"},
    {"DisposalRate", [](const TlotUnit& u) -> TlotValue { return u.Areas.Count() == 0 ? 0.0 : u.Areas[0].Rate(); },
     [](TlotUnit& u, const TlotValue& v) {
         TlotArea& area = FirstArea(u);
         area.SetRate(TSource::AsDouble(v));
         area.SetValue(area.Area() * area.Rate());
     },
     ",0.00"},
    {"DisposalValue", [](const TlotUnit& u) -> TlotValue { return u.Areas.Count() == 0 ? 0.0 : u.Areas[0].Value(); },
     [](TlotUnit& u, const TlotValue& v) {
         TlotArea& area = FirstArea(u);
         area.SetValue(TSource::AsDouble(v));
         area.SetRate(Quotient(area.Value(), area.Area()));
     },
     ",0"},
    {"GrossValue", [](const TlotUnit& u) -> TlotValue { return u.GrossSale.Value; }, nullptr, ",0"},
    {"NetValue", [](const TlotUnit& u) -> TlotValue { return u.NetSale.Value; }, nullptr, ",0"},
}};

constexpr std::array<TlotColumn<TlotArea>, 5> AreaColumns = {{
    {"Description", [](const TlotArea& a) -> TlotValue { return a.Description(); },
     [](TlotArea& a, const TlotValue& v) { a.SetDescription(TSource::AsString(v)); }},
    {"Zoning", [](const TlotArea& a) -> TlotValue { return a.Zoning(); },
     [](TlotArea& a, const TlotValue& v) { a.SetZoning(TSource::AsDouble(v)); }, "0.00%;,-0.00%;#"},
    {"Area", [](const TlotArea& a) -> TlotValue { return a.Area(); },
     [](TlotArea& a, const TlotValue& v) { a.SetArea(TSource::AsDouble(v)); }, ",0.00;,-0.00;#"},
    {"Rate", [](const TlotArea& a) -> TlotValue { return a.Rate(); },
     [](TlotArea& a, const TlotValue& v) { a.SetRate(TSource::AsDouble(v)); }, ",0.00;,-0.00;#"},
    {"Value", [](const TlotArea& a) -> TlotValue { return a.Value(); },
     [](TlotArea& a, const TlotValue& v) {
         if (std::holds_alternative<std::monostate>(v)) {
             a.CalcValue(); // An emptied value is worked out again, not set to 0.
         } else {
             a.SetValue(TSource::AsDouble(v));
         }
     },
     ",0;,-0;#"},
}};

} // namespace

TlotUnitDataSource::TlotUnitDataSource(TProjectData& data)
    : TlotListSource(data, UnitColumns, {.ChangeWithRecords = true}) {}

TlotAreaDataSource::TlotAreaDataSource(TProjectData& data, TlotAreaSchedule& areas)
    : TlotListSource(data, AreaColumns, {.ChangeWithRecords = true}), FAreas(areas) {}
