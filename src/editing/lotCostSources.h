// SPDX-License-Identifier: GPL-3.0-or-later
//
// The sources of the grids of cost sections, their items, and unit types.
#pragma once

#include "editing/lotListSource.h"

/// The sections of the project: name, group, default base, income.
class TlotSectionDataSource : public TlotListSource<TlotSection, TlotSectionList> {
public:
    enum TColumn : int { Name, Group, DefaultBase, Income };

    explicit TlotSectionDataSource(TProjectData& data);

protected:
    TlotSectionList* Records() override { return &Project().Sections; }
    void Delete(int record) override { Project().DeleteSection(record); }
};

/// The items of the section that is the master record. The project is recalculated when a cell is next read.
class TlotItemDataSource : public TlotListSource<TlotItem, TlotItemList> {
public:
    enum TColumn : int { Name, Amount, Percentage, Base, Ratio, Value };

    explicit TlotItemDataSource(TProjectData& data);

    /// Writing "%" on gives an item without a base the default one of its section.
    void SetValue(int record, int column, const TlotValue& value) override;
    /// Whether the row is to be shown in red: its base is none, or it has no amount yet.
    [[nodiscard]] bool IsInvalid(int record);

protected:
    TlotItemDataSource(TProjectData& data, std::span<const TlotColumn<TlotItem>> columns, TlotSourceRules rules)
        : TlotListSource(data, columns, rules) {}

    TlotItemList* Records() override;
    void Delete(int record) override;

private:
    [[nodiscard]] TlotSection* Section() const;
};

/// The project's unit types: the name alone.
class TlotUnitTypeDataSource : public TlotListSource<TlotUnitType, TlotUnitTypeList> {
public:
    explicit TlotUnitTypeDataSource(TProjectData& data);

protected:
    TlotUnitTypeList* Records() override { return &Project().UnitTypes; }
    void Delete(int record) override { Project().UnitTypes.Delete(record); }
};
