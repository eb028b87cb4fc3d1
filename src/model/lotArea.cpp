// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/lotArea.h"

#include "common/vipErrors.h"
#include "common/vipText.h"

#include <algorithm>
#include <array>

void TlotArea::SetZoning(double percent) {
    FTerms.Zoning = percent;
    if (FOwner.IsLocked()) {
        return;
    }
    if (FOwner.ZoneA() != this) {
        SetRate(FOwner.ZoneARate());
    }
    CalcValue();
}

void TlotArea::SetArea(double area) {
    FTerms.Area = area;
    if (!FOwner.IsLocked()) {
        CalcValue();
    }
}

void TlotArea::SetRate(double rate) {
    FTerms.Rate.Value = rate;
    if (!FOwner.IsLocked()) {
        CalcValue();
        Propagate();
    }
}

void TlotArea::SetValue(double value) {
    FTerms.Value = value;
    if (FOwner.IsLocked()) {
        return;
    }
    if (FTerms.Area != 0) {
        SetRate(FTerms.Value / FTerms.Area);
    }
    Propagate();
}

void TlotArea::CalcValue() {
    if (FTerms.Area == 0 || FTerms.Rate.Value == 0) {
        return;
    }
    FTerms.Value = FTerms.Area * FTerms.Rate.Value;
    if (FOwner.Zoning() && FTerms.Zoning != 0) {
        FTerms.Value = FTerms.Zoning / 100 * FTerms.Value;
    }
}

bool TlotArea::IsPartZone() const noexcept {
    return FOwner.Zoning() && FTerms.Zoning > 0 && FTerms.Zoning < 100;
}

void TlotArea::Propagate() {
    if (!FOwner.Zoning() || FOwner.ZoneA() != this) {
        return;
    }
    for (const auto& row : FOwner) {
        if (row.get() != this && row->Zoning() != 0) {
            row->SetRate(FTerms.Rate.Value);
            row->CalcValue();
        }
    }
}

TlotAreaScheduleTerms TlotAreaSchedule::Terms() const {
    TlotAreaScheduleTerms terms;
    terms.Areas.reserve(static_cast<std::size_t>(Count()));
    for (const auto& row : FAreas) {
        terms.Areas.push_back(row->Terms());
    }
    terms.Zoning = FZoning;
    return terms;
}

void TlotAreaSchedule::SetTerms(const TlotAreaScheduleTerms& terms) {
    const int count = static_cast<int>(terms.Areas.size());
    // Rows that are there already stay where they lie.
    while (Count() > count) {
        FAreas.Delete(Count() - 1);
    }
    while (Count() < count) {
        FAreas.Add(*this);
    }
    for (int i = 0; i < count; ++i) {
        FAreas[i].Assign(terms.Areas[static_cast<std::size_t>(i)]);
    }
    FZoning = terms.Zoning;
}

TlotArea& TlotAreaSchedule::Insert(int index) {
    Current = std::clamp(index, 0, Count());
    return FAreas.Insert(Current, *this);
}

void TlotAreaSchedule::Clear() {
    FAreas.Clear();
    FZoning = false;
}

void TlotAreaSchedule::Assign(const TlotAreaSchedule& other) {
    Clear();
    for (const auto& row : other) {
        if (!vip::Trim(row->Description()).empty() || row->Area() != 0 || row->Rate() != 0 || row->Value() != 0) {
            Add().Assign(row->Terms());
        }
    }
    FZoning = other.FZoning;
}

void TlotAreaSchedule::Unlock() {
    if (FLockCount < 1) {
        throw ELotError("Too many calls to TlotAreaSchedule.Unlock");
    }
    --FLockCount;
}

void TlotAreaSchedule::SetZoning(bool zoned) {
    FZoning = zoned;
    for (const auto& row : FAreas) {
        row->CalcValue();
    }
}

const TlotArea* TlotAreaSchedule::ZoneA() const noexcept {
    const auto found = std::ranges::find_if(FAreas, [](const auto& row) { return row->IsZoneA(); });
    return found == FAreas.end() ? nullptr : found->get();
}

double TlotAreaSchedule::ZoneARate() const noexcept {
    const TlotArea* const zoneA = ZoneA();
    return zoneA == nullptr ? 0 : zoneA->Rate();
}

double TlotAreaSchedule::ZonedValue() const noexcept {
    double sum = 0;
    for (const auto& row : FAreas) {
        if (row->Zoning() != 0) {
            sum += row->Value();
        }
    }
    return sum;
}

double TlotAreaSchedule::ITZA() const noexcept {
    const double rate = ZoneARate();
    return rate == 0 ? 0 : ZonedValue() / rate;
}

TlotZoning DefaultZoning() {
    TlotZoning zones;
    double percent = 100;
    for (const char* const name : {"Zone A", "Zone B", "Zone C", "Zone D", "Remainder"}) {
        zones.push_back({name, percent});
        percent /= 2;
    }
    return zones;
}

namespace {

std::string_view TextOf(const std::array<std::string_view, 5>& texts, TlotDimensions dimensions) noexcept {
    const auto index = static_cast<std::size_t>(dimensions);
    return index < texts.size() ? texts.at(index) : std::string_view();
}

} // namespace

std::string_view DimensionsShortText(TlotDimensions dimensions) noexcept {
    return TextOf({"sq. ft", "sq. m", "acres", "ha", "units"}, dimensions);
}

std::string_view DimensionsText(TlotDimensions dimensions) noexcept {
    return TextOf({"Square Feet", "Square Metres", "Acres", "Hectares", "Sub-Units"}, dimensions);
}
