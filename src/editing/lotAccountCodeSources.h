// SPDX-License-Identifier: GPL-3.0-or-later
//
// The sources of the grids of account codes. They write the codes alone: the names beside them are for reading.
#pragma once

#include "editing/lotCostSources.h"
#include "editing/lotUnitSources.h"

/// The master of the cost accounts: the sections, as their own grid has them.
class TlotSectionAccountCodeDataSource final : public TlotSectionDataSource {
public:
    using TlotSectionDataSource::TlotSectionDataSource;
};

/// The items of the section that is the master record: name and code.
class TlotItemAccountCodeDataSource final : public TlotItemDataSource {
public:
    enum TColumn : int { Name, Account };

    explicit TlotItemAccountCodeDataSource(TProjectData& data);

    void SetValue(int record, int column, const TlotValue& value) override {
        TlotListSource::SetValue(record, column, value); // Without the rule of the "%" column, which isn't here.
    }
};

/// The units: name, and the codes of the three lines.
class TlotUnitAccountCodeDataSource final : public TlotListSource<TlotUnit, TlotUnitList> {
public:
    enum TColumn : int { Name, BuildAccount, SalesAccount, RentAccount };

    explicit TlotUnitAccountCodeDataSource(TProjectData& data);

protected:
    TlotUnitList* Records() override { return &Project().Units; }
    void Delete(int record) override { Project().DeleteUnit(record); }
};
