// SPDX-License-Identifier: GPL-3.0-or-later
#include "editing/lotCostSources.h"

#include "common/vipText.h"

#include <array>

namespace {

using TSource = TlotCustomDataSource;

constexpr std::array<TlotColumn<TlotSection>, 4> SectionColumns = {{
    {"Name", [](const TlotSection& s) -> TlotValue { return s.Name; },
     [](TlotSection& s, const TlotValue& v) { s.Name = TSource::AsString(v); }},
    {"Group", [](const TlotSection& s) -> TlotValue { return s.Group; },
     [](TlotSection& s, const TlotValue& v) { s.Group = TSource::AsString(v); }},
    {"DefaultBase", [](const TlotSection& s) -> TlotValue { return s.DefaultBase; },
     [](TlotSection& s, const TlotValue& v) { s.DefaultBase = TSource::AsString(v); }},
    {"Income", [](const TlotSection& s) -> TlotValue { return s.Income; },
     [](TlotSection& s, const TlotValue& v) { s.Income = TSource::AsBoolean(v); }},
}};

constexpr std::array<TlotColumn<TlotItem>, 6> ItemColumns = {{
    {"Name", [](const TlotItem& i) -> TlotValue { return i.Name; },
     [](TlotItem& i, const TlotValue& v) { i.Name = TSource::AsString(v); }},
    {"Amount", [](const TlotItem& i) -> TlotValue { return i.Amount.Value; },
     [](TlotItem& i, const TlotValue& v) { i.Amount.Value = TSource::AsDouble(v); }, ",0"},
    {"Percentage", [](const TlotItem& i) -> TlotValue { return i.Percentage; },
     [](TlotItem& i, const TlotValue& v) { i.Percentage = TSource::AsBoolean(v); }},
    {"Base", [](const TlotItem& i) -> TlotValue { return i.BaseFormula; },
     [](TlotItem& i, const TlotValue& v) { i.BaseFormula = TSource::AsString(v); }},
    {"Ratio", [](const TlotItem& i) -> TlotValue { return i.DisplayRatio; },
     [](TlotItem& i, const TlotValue& v) { i.DisplayRatio = TSource::AsBoolean(v); }},
    {"Value", [](const TlotItem& i) -> TlotValue { return i.Line.Amount; }, nullptr, ",0"},
}};

constexpr std::array<TlotColumn<TlotUnitType>, 1> UnitTypeColumns = {{
    {"Name", [](const TlotUnitType& t) -> TlotValue { return t.Name; },
     [](TlotUnitType& t, const TlotValue& v) { t.Name = TSource::AsString(v); }},
}};

} // namespace

TlotSectionDataSource::TlotSectionDataSource(TProjectData& data) : TlotListSource(data, SectionColumns) {}

TlotItemDataSource::TlotItemDataSource(TProjectData& data)
    : TlotListSource(data, ItemColumns, {.RecalculateAtNextRead = true}) {}

TlotSection* TlotItemDataSource::Section() const {
    TlotSectionList& sections = Project().Sections;
    return sections.Holds(MasterRecord) ? &sections[MasterRecord] : nullptr;
}

TlotItemList* TlotItemDataSource::Records() {
    TlotSection* const section = Section();
    return section == nullptr ? nullptr : &section->Items;
}

void TlotItemDataSource::Delete(int record) {
    Project().DeleteItem(*Section(), record);
}

void TlotItemDataSource::SetValue(int record, int column, const TlotValue& value) {
    TlotItem* const item = Record(record);
    if (item != nullptr && column == Percentage && AsBoolean(value) && !item->Percentage &&
        vip::Trim(item->BaseFormula).empty()) {
        item->BaseFormula = Section()->DefaultBase;
    }
    TlotListSource::SetValue(record, column, value);
}

bool TlotItemDataSource::IsInvalid(int record) {
    const TlotItem* const item = Record(record);
    return item != nullptr &&
           (item->Amount.Value == 0 || (item->Percentage && !TlotItem::IsBaseFormula(item->BaseFormula)));
}

TlotUnitTypeDataSource::TlotUnitTypeDataSource(TProjectData& data) : TlotListSource(data, UnitTypeColumns) {}
