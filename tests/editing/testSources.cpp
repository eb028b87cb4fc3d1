// SPDX-License-Identifier: GPL-3.0-or-later
//
// The sources of grids: what a column reads and writes, when the project is recalculated, and who is told.
#include "common/vipErrors.h"
#include "editing/lotAccountCodeSources.h"
#include "editing/lotLoanSource.h"
#include "support/lotEditing.h"
#include "support/lotTestProject.h"

#include <memory>

namespace {

class Sources : public TEditingTest {
protected:
    /// Everything that a source tells, in order.
    template <class Source> void Listen(Source& source) {
        source.OnChange = [this] { FTold += "change "; };
        source.OnDataChanged = [this] { FTold += "reload "; };
    }
    std::string Told() { return std::exchange(FTold, {}); }

private:
    std::string FTold;
};

TEST_F(Sources, ChangesAreToldAsEachScreenWantsThem) {
    AddUnit(Project(), "Residential", 1, 100);
    AddItem(AddSection(Project(), "Fees", "Costs"), "Architect", 10);
    Project().Funding.Loans.Add();
    Project().UnitTypes.Add().Name = "Hotel";
    struct TCase {
        std::unique_ptr<TlotEditingSource> Source;
        const char* Write;
        const char* Records; // What each of append, insert and delete tells.
    };
    TlotAreaSchedule areas;
    areas.Add();
    const auto make = [](auto source, const char* write, const char* records) {
        return TCase{std::move(source), write, records};
    };
    std::vector<TCase> cases;
    cases.push_back(make(std::make_unique<TlotSectionDataSource>(Data), "change ", "reload "));
    cases.push_back(make(std::make_unique<TlotItemDataSource>(Data), "change ", "reload "));
    cases.push_back(make(std::make_unique<TlotUnitTypeDataSource>(Data), "change ", "reload "));
    cases.push_back(make(std::make_unique<TlotUnitDataSource>(Data), "change ", "change reload "));
    cases.push_back(make(std::make_unique<TlotAreaDataSource>(Data, areas), "change ", "change reload "));
    cases.push_back(make(std::make_unique<TlotLoanDataSource>(Data), "", "reload "));
    for (const TCase& each : cases) {
        TlotEditingSource& source = *each.Source;
        source.MasterRecord = 0;
        Listen(source);
        const int before = source.GetRecordCount();
        source.SetValue(0, 0, std::string("A \"dotted\" v1.2"));
        EXPECT_EQ(Told(), each.Write);
        EXPECT_TRUE(std::exchange(source.Modified, false));
        EXPECT_EQ(std::get<std::string>(source.GetValue(0, 0)), "A \"dotted\" v1.2");
        const void* const first = source.RecordKey(0);
        source.InsertRecord(0);
        EXPECT_EQ(source.RecordKey(1), first) << "a record is the same one wherever it stands";
        EXPECT_EQ(source.AppendRecord(), before + 1);
        source.DeleteRecord(0);
        source.DeleteRecord(99);
        EXPECT_EQ(Told(), std::string(each.Records) + each.Records + each.Records);
        EXPECT_EQ(source.GetRecordCount(), before + 1);
        EXPECT_EQ(source.GetValue(99, 0), TlotValue());
        EXPECT_THROW(static_cast<void>(source.GetValue(0, 99)), ERangeError);
        source.SetValue(99, 0, 1.0);
        EXPECT_EQ(Told(), "");
    }
}

TEST_F(Sources, ADetailWithoutAMasterHasNoRecords) {
    AddItem(AddSection(Project(), "Fees", "Costs"), "Architect", 10);
    TlotItemDataSource items(Data);
    for (const int master : {-1, 1, 99}) {
        items.MasterRecord = master;
        EXPECT_EQ(items.GetRecordCount(), 0);
        EXPECT_EQ(items.AppendRecord(), -1);
        EXPECT_EQ(items.GetValue(0, 0), TlotValue());
    }
}

TEST_F(Sources, CostsAreRecalculatedWhenNextReadAndNotBefore) {
    AddUnit(Project(), "Residential", 1, 50'000);
    TlotSection& fees = AddSection(Project(), "Fees", "Costs");
    fees.DefaultBase = "NONCAP";
    AddItem(fees, "Agent", 0);
    Data.Recalculate();
    TlotItemDataSource items(Data);
    items.MasterRecord = 0;
    items.SetValue(0, TlotItemDataSource::Amount, 2.0);
    items.SetValue(0, TlotItemDataSource::Percentage, true);
    EXPECT_EQ(fees.Items[0].BaseFormula, "NONCAP") << "an item without a base takes the section's";
    EXPECT_EQ(Project().TDC, 0) << "nobody has read anything yet";
    EXPECT_EQ(std::get<double>(items.GetValue(0, TlotItemDataSource::Value)), 1000);
    EXPECT_EQ(Project().TDC, 1000);
    items.SetValue(0, TlotItemDataSource::Base, std::string(" "));
    items.SetValue(0, TlotItemDataSource::Percentage, false);
    items.SetValue(0, TlotItemDataSource::Percentage, true);
    EXPECT_EQ(fees.Items[0].BaseFormula, "NONCAP") << "blanks are no base";
    struct TCase {
        double Amount;
        bool Percentage;
        const char* Base;
        bool Invalid;
    };
    for (const TCase& row : {TCase{0, false, "", true}, TCase{5, false, "A-B", false}, TCase{5, true, "A-B", true},
                             TCase{5, true, "BUILD+SITEVALUE", false}, TCase{5, true, "BUILD*2", true}}) {
        fees.Items[0].Amount.Value = row.Amount;
        fees.Items[0].Percentage = row.Percentage;
        fees.Items[0].BaseFormula = row.Base;
        EXPECT_EQ(items.IsInvalid(0), row.Invalid) << row.Amount << row.Base;
    }
}

TEST_F(Sources, APassThatThrowsThrowsOnceAndTheEditStays) {
    TlotLoanDataSource loans(Data);
    loans.AppendRecord();
    const int start = static_cast<int>(TlotLoanField::Start);
    const int period = static_cast<int>(TlotLoanField::Period);
    loans.SetValue(0, static_cast<int>(TlotLoanField::LoanType), std::string("cash"));
    loans.SetValue(0, period, std::int64_t{1});
    EXPECT_THROW(loans.Settle(), ERangeError) << "a loan of one month that begins in the first";
    EXPECT_EQ(std::get<std::int64_t>(loans.GetValue(0, period)), 1) << "what is read next doesn't throw again";
    loans.SetValue(0, start, std::int64_t{2});
    EXPECT_NO_THROW(loans.Settle()) << "mended step by step";
    EXPECT_EQ(Project().Funding.Loans[0].Start, 1) << "months count from 1 on screen";
    EXPECT_EQ(std::get<std::int64_t>(loans.GetValue(0, start)), 2);
    loans.SetValue(0, static_cast<int>(TlotLoanField::LoanType), std::string("Loan shark"));
    EXPECT_EQ(Project().Funding.Loans[0].LoanType, TlotLoanType::Cash) << "a text that is no type";
}

TEST_F(Sources, UnitsFollowTheirColumns) {
    using enum TlotUnitDataSource::TColumn;
    TlotUnitDataSource units(Data);
    units.AppendRecord();
    const auto read = [&](int column) { return TlotCustomDataSource::AsDouble(units.GetValue(0, column)); };
    EXPECT_EQ(read(DisposalArea) + read(DisposalRate) + read(DisposalValue), 0) << "no areas yet";
    EXPECT_EQ(Project().Units[0].Areas.Count(), 0) << "reading makes none";
    units.SetValue(0, BuildArea, 100.0);
    units.SetValue(0, BuildRate, 3.0);
    EXPECT_EQ(read(BuildCost), 300);
    units.SetValue(0, BuildCost, 500.0);
    EXPECT_EQ(read(BuildRate), 5);
    units.SetValue(0, DisposalRate, 8.0);
    units.SetValue(0, DisposalArea, 50.0);
    EXPECT_EQ(read(DisposalValue), 400);
    EXPECT_EQ(read(NetValue), 400) << "revalued at once";
    units.SetValue(0, DisposalValue, 600.0);
    EXPECT_EQ(read(DisposalRate), 12);
    units.SetValue(0, BuildArea, TlotValue());
    units.SetValue(0, BuildCost, 70.0);
    EXPECT_EQ(read(BuildRate), 0) << "no area, no rate";
    units.SetValue(0, GrossValue, 1.0);
    EXPECT_EQ(read(GrossValue), 600) << "a column that is never written";
    units.SetValue(0, Number, 1e300);
    EXPECT_EQ(read(Number), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(Project().Units[0].BuildLine.Amount, 70);
}

TEST_F(Sources, AnEmptiedCellOfAreasIsZeroButAValueIsWorkedOutAgain) {
    using enum TlotAreaDataSource::TColumn;
    TlotAreaSchedule areas;
    TlotAreaDataSource source(Data, areas);
    source.AppendRecord();
    source.SetValue(0, Area, 10.0);
    source.SetValue(0, Rate, 7.0);
    source.SetValue(0, Value, TlotValue());
    EXPECT_EQ(areas[0].Value(), 70);
    source.SetValue(0, Description, TlotValue());
    source.SetValue(0, Area, TlotValue());
    EXPECT_EQ(areas[0].Area(), 0);
    EXPECT_EQ(areas[0].Value(), 70) << "a lump sum survives";
}

TEST_F(Sources, AccountCodesAreWrittenAndNamesAreNot) {
    AddUnit(Project(), "Residential", 1, 100).Name = "Flats";
    AddItem(AddSection(Project(), "Fees", "Costs"), "Architect", 10);
    TlotItemAccountCodeDataSource items(Data);
    TlotUnitAccountCodeDataSource units(Data);
    items.MasterRecord = 0;
    items.SetValue(0, 0, std::string("Renamed"));
    items.SetValue(0, 1, std::string("4711"));
    units.SetValue(0, 0, std::string("Renamed"));
    units.SetValue(0, 3, std::string("0815"));
    units.SetValue(0, 3, TlotValue());
    units.SetValue(0, 1, std::string("B.1"));
    EXPECT_EQ(Project().Sections[0].Items[0].Name + Project().Sections[0].Items[0].AccountCode, "Architect4711");
    EXPECT_EQ(Project().Units[0].Name + Project().Units[0].BuildAccountCode + Project().Units[0].RentAccountCode,
              "FlatsB.1");
}

} // namespace
