// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/lotArea.h"

#include "common/vipErrors.h"
#include "common/vipText.h"

#include <algorithm>
#include <array>

void TlotArea::SetZoning(double percent) {
    FZoning = percent;
    if (FOwner.IsLocked()) {
        return;
    }
    if (FOwner.ZoneA() != this) {
        SetRate(FOwner.ZoneARate());
    }
    CalcValue();
}

void TlotArea::SetArea(double area) {
    FArea = area;
    if (!FOwner.IsLocked()) {
        CalcValue();
    }
}

void TlotArea::SetRate(double rate) {
    FRate.Value = rate;
    if (!FOwner.IsLocked()) {
        CalcValue();
        Propagate();
    }
}

void TlotArea::SetValue(double value) {
    FValue = value;
    if (FOwner.IsLocked()) {
        return;
    }
    if (FArea != 0) {
        SetRate(FValue / FArea);
    }
    Propagate();
}

void TlotArea::CalcValue() {
    if (FArea == 0 || FRate.Value == 0) {
        return;
    }
    FValue = FArea * FRate.Value;
    if (FOwner.Zoning() && FZoning != 0) {
        FValue = FZoning / 100 * FValue;
    }
}

bool TlotArea::IsPartZone() const noexcept {
    return FOwner.Zoning() && FZoning > 0 && FZoning < 100;
}

void TlotArea::Assign(const TlotArea& other) {
    Description = other.Description;
    FZoning = other.FZoning;
    FArea = other.FArea;
    FRate.Value = other.FRate.Value;
    FValue = other.FValue;
}

void TlotArea::Propagate() {
    if (!FOwner.Zoning() || FOwner.ZoneA() != this) {
        return;
    }
    for (const auto& row : FOwner) {
        if (row.get() != this && row->Zoning() != 0) {
            row->SetRate(FRate.Value);
            row->CalcValue();
        }
    }
}

TlotArea& TlotAreaSchedule::Insert(int index) {
    const auto at = FAreas.begin() + std::clamp(index, 0, Count());
    Current = static_cast<int>(at - FAreas.begin());
    return **FAreas.insert(at, std::make_unique<TlotArea>(*this));
}

void TlotAreaSchedule::Delete(int index) {
    FAreas.erase(FAreas.begin() + index);
}

void TlotAreaSchedule::Clear() {
    FAreas.clear();
    FZoning = false;
}

void TlotAreaSchedule::Assign(const TlotAreaSchedule& other) {
    Clear();
    for (const auto& row : other) {
        if (!vip::Trim(row->Description).empty() || row->Area() != 0 || row->Rate() != 0 || row->Value() != 0) {
            Add().Assign(*row);
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
