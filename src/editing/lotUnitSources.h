// SPDX-License-Identifier: GPL-3.0-or-later
//
// The sources of the grids of units and of one unit's areas.
#pragma once

#include "editing/lotListSource.h"

/// The project's units, edited in place. A unit is revalued after each write to it.
class TlotUnitDataSource : public TlotListSource<TlotUnit, TlotUnitList> {
public:
    enum TColumn : int {
        UnitType,
        Name,
        Number,
        BuildArea,
        BuildRate,
        BuildCost,
        DisposalArea,
        DisposalRate,
        DisposalValue,
        GrossValue,
        NetValue,
    };

    explicit TlotUnitDataSource(TProjectData& data);

protected:
    TlotUnitList* Records() override { return &Project().Units; }
    void Delete(int record) override { Project().DeleteUnit(record); }
    void AfterSet(TlotUnit& unit, int /*column*/) override { Project().CalculateUnit(unit); }
};

/// The areas of one unit: of the working copy of a dialog. Every write runs the row's own arithmetic.
class TlotAreaDataSource : public TlotListSource<TlotArea, TlotAreaSchedule> {
public:
    enum TColumn : int { Description, Zoning, Area, Rate, Value };

    /// `areas` must outlive the source.
    TlotAreaDataSource(TProjectData& data, TlotAreaSchedule& areas);

protected:
    TlotAreaSchedule* Records() override { return &FAreas; }
    void Delete(int record) override { FAreas.Delete(record); }

private:
    TlotAreaSchedule& FAreas;
};
