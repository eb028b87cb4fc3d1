// SPDX-License-Identifier: GPL-3.0-or-later
#include "common/vipErrors.h"
#include "editing/lotBulkAdjustment.h"
#include "editing/lotDrafts.h"
#include "editing/lotLoanFields.h"
#include "editing/lotShapes.h"
#include "support/lotTestProject.h"

#include <gtest/gtest.h>

namespace {

TEST(LoanFields, ApplyByTypeWithTwoToldExceptions) {
    struct TCase {
        TlotLoanField Field;
        const char* Types; // S, C, L: the types to which it applies, in all forms.
    };
    using enum TlotLoanField;
    for (const TCase& row :
         {TCase{BorrowPercentage, "SL"}, TCase{RepayPercentage, "SL"}, TCase{LoanSource, "S"}, TCase{Base, "L"},
          TCase{Amount, "C"}, TCase{Start, "C"}, TCase{Period, "C"}, TCase{Maximum, "SCL"}, TCase{Name, "SCL"},
          TCase{VariableRate, "SCL"}, TCase{Fees, "SCL"}}) {
        for (const TlotLoanForm form : {TlotLoanForm::Panel, TlotLoanForm::Grid, TlotLoanForm::Frame}) {
            std::string types;
            for (int type = 0; type < 3; ++type) {
                TlotLoanTerms loan;
                loan.LoanType = static_cast<TlotLoanType>(type);
                types += LoanFieldApplies(row.Field, loan, form) ? std::string(1, "SCL"[type]) : "";
            }
            EXPECT_EQ(types, row.Types) << static_cast<int>(row.Field) << static_cast<int>(form);
        }
    }
    TlotLoanTerms loan;
    loan.VariableRate = true;
    EXPECT_FALSE(LoanFieldApplies(FixedRate, loan, TlotLoanForm::Grid));
    EXPECT_TRUE(LoanFieldApplies(FixedRate, loan, TlotLoanForm::Panel));
    EXPECT_TRUE(LoanFieldApplies(FeesPercentage, loan, TlotLoanForm::Grid));
    EXPECT_FALSE(LoanFieldApplies(FeesPercentage, loan, TlotLoanForm::Panel));
    loan.LoanType = TlotLoanType::Cash;
    EXPECT_TRUE(LoanFieldApplies(FeesPercentage, loan, TlotLoanForm::Panel));
    loan.LoanType = static_cast<TlotLoanType>(9);
    EXPECT_FALSE(LoanFieldApplies(Amount, loan, TlotLoanForm::Grid)) << "a type that a file may hold";
}

TEST(Shapes, AreTheirTables) {
    struct TCase {
        TlotShape Shape;
        int Months;
        std::vector<double> Weights;
    };
    using enum TlotShape;
    const std::vector<double> before = {9};
    for (const TCase& row :
         {TCase{SCurve, 5, {1, 2, 3, 2, 1}}, TCase{SCurve, 4, {1, 2, 2, 1}}, TCase{InverseSCurve, 5, {5, 4, 3, 4, 5}},
          TCase{InverseSCurve, 4, {4, 3, 3, 4}}, TCase{Increasing, 3, {1, 2, 3}}, TCase{Decreasing, 3, {3, 2, 1}},
          TCase{Constant, 2, {1, 1}}, TCase{SCurve, 1, {1}}, TCase{Decreasing, 1, {1}},
          TCase{Retention, 5, {23.75, 23.75, 23.75, 23.75, 5}}, TCase{Retention, 2, before}}) {
        std::vector<double> weights = before;
        BuildShape(row.Shape, row.Months, 5, weights);
        EXPECT_EQ(weights, row.Weights) << static_cast<int>(row.Shape) << " over " << row.Months;
    }
    TlotCashflowItem line;
    line.Period = 4;
    line.Amount = 60;
    ApplyShape(line, 2, std::vector<double>{1, 2, 3});
    line.Spread();
    EXPECT_EQ(line.Values, TlotDoubles({0, 0, 10, 20, 30}));
    ApplyShape(line, 1, {});
    line.Spread();
    EXPECT_EQ(line.Values, TlotDoubles({0, 15, 15, 15, 15})) << "without a shape a straight line again";
    for (const auto& [weights, values] : {std::pair(std::vector<double>{1, 2, 3}, TlotDoubles({10, 20, 30})),
                                          std::pair(std::vector<double>{}, TlotDoubles({15, 15, 15, 15}))}) {
        ApplyShape(line, -2, weights);
        line.Spread();
        EXPECT_EQ(line.Values, values) << "a start before the first month is mended to it";
    }
    EXPECT_EQ(Cumulative(std::vector<double>{1, 2, 3}), (std::vector<double>{1, 3, 6}));
}

TEST(BulkAdjustment, DownUndoesUpInTenThousandths) {
    TlotBulkAdjustment percent{.Kind = TlotBulkKind::Percentage, .Value = 10};
    EXPECT_EQ(AdjustedRate(100, percent, true), 110);
    EXPECT_EQ(AdjustedRate(100, percent, false), 90.9091) << "divided, not reduced by ten percent";
    EXPECT_NEAR(AdjustedRate(AdjustedRate(123.4567, percent, true), percent, false), 123.4567, 0.0001001);
    EXPECT_EQ(AdjustedRate(1, {.Value = 0.5}, true), 1.5);
    EXPECT_EQ(AdjustedRate(5, {.Kind = TlotBulkKind::Percentage, .Value = -100}, false), 0);

    TlotProject project{0};
    AddUnit(project, "Residential", 10, 20).BuildRate.Value = 100;
    AddUnit(project, "residential", 10, 20).BuildRate.Value = 100;
    EXPECT_FALSE(Adjust(project, {.Value = 0}, true));
    EXPECT_TRUE(Adjust(project, {.UnitType = "Residential", .Value = 5}, false));
    EXPECT_EQ(project.Units[0].BuildRate.Value + project.Units[1].BuildRate.Value, 195) << "that very type only";
    EXPECT_TRUE(Adjust(project, {.Column = TlotBulkColumn::DisposalRate, .Value = 1}, true));
    EXPECT_EQ(project.Units[1].Areas[0].Value(), 210) << "the row's value follows";
    project.Units[1].Areas.Clear();
    EXPECT_THROW(Adjust(project, {.Column = TlotBulkColumn::DisposalRate, .Value = 1}, true), ERangeError);
}

TEST(Drafts, StoreWhatTheyLoadedAndNothingElse) {
    for (std::uint64_t seed = 1; seed <= 30; ++seed) {
        TRandom random(seed);
        TlotProject project{45'000.0};
        RandomProject(random, project);
        project.Name = "\"Quay\" v1.2";
        project.RentalValues = static_cast<TlotRentalValues>(random.Below(6)); // also numbers that no choice has
        project.LeaseTerm = 99.5;
        project.Inflation.Targets.set(random.Below(5));
        project.Calculate();
        const TlotProjectDraft loaded(project);
        TlotProjectDraft draft = loaded;
        EXPECT_EQ(draft, loaded);
        draft.Terms.Leasehold = true;
        draft.Equity.DiscountRate = 3.25;
        EXPECT_FALSE(draft == loaded);
        draft.Store(project);
        EXPECT_EQ(TlotProjectDraft(project), draft);
        loaded.Store(project);
        EXPECT_EQ(TlotProjectDraft(project), loaded);

        TlotUnit& unit = project.Units[0];
        TlotUnitDraft unitDraft(unit);
        const TlotUnitSnapshot before = unit.Snapshot();
        unitDraft.Unit.Name = "Other";
        unitDraft.Unit.Areas[0].SetRate(1);
        unitDraft.RefreshValuation(project, unit);
        TlotUnit same;
        same.Restore(before);
        EXPECT_TRUE(unit.SameInputs(same)) << "until it is stored";
        unitDraft.Store(unit);
        EXPECT_EQ(unit.Name, "Other");
    }
}

TEST(Drafts, ZonesThatHoldNothingAreDropped) {
    TlotOptions options;
    TlotOptionsDraft draft(options);
    draft.Options.Zoning = {{"Zone A", 100}, {"", 0}, {"Rear", 0}, {"", 12.5}};
    draft.Store(options);
    ASSERT_EQ(options.Zoning.size(), 3U);
    EXPECT_EQ(options.Zoning[1].Name, "Rear") << "a name without a percentage is a zone";
    EXPECT_EQ(options.Zoning[2].Percent, 12.5);
}

TEST(Drafts, AUnitIsValuedInItsOwnPlace) {
    // Two shops at 100 and 300 of a leasehold with 80 of ground rent. The first is raised to 500: it bears 5/8 of it.
    TlotProject project{0};
    TlotUnit& small = AddUnit(project, "Commercial", 100, 1, 10);
    AddUnit(project, "Commercial", 300, 1, 10);
    project.Leasehold = true;
    project.TotalGroundRent = 80;
    project.Calculate();
    project.Calculate();
    EXPECT_EQ(small.GroundRent, 20);
    TlotUnitDraft draft(small);
    draft.Unit.Areas[0].SetArea(500);
    draft.RefreshValuation(project, small);
    EXPECT_EQ(draft.Unit.GroundRent, 50);
    EXPECT_EQ(draft.Unit.GrossSale.Value, 4500);
    EXPECT_EQ(small.GroundRent, 20);
    TlotUnit empty;
    EXPECT_EQ(TlotUnitDraft(empty).Unit.Areas.Count(), 1) << "a row to type in";
    EXPECT_EQ(empty.Areas.Count(), 0);
}

} // namespace
