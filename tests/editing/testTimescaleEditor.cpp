// SPDX-License-Identifier: GPL-3.0-or-later
//
// The timescale's actions by the rows of its sheet, also in rows whose line or loan is gone. The sanitizers watch.
#include "editing/lotTimescaleEditor.h"
#include "support/lotEditing.h"
#include "support/lotTestProject.h"

#include <functional>

namespace {

/// Rows: 0 flats' sales, 1 architect, 2 a linked item, 3 a loan's rates, 4 the equity's rates, 5 a plain loan row.
class Timescale : public TEditingTest {
protected:
    enum TRow : int { Sales, Architect, Linked, LoanRates, EquityRates, LoanRow, Nothing };

    Timescale() {
        AddUnit(Project(), "Residential", 1, 1200).SalesLine.Period = 12;
        TlotSection& fees = AddSection(Project(), "Fees", "Costs");
        AddItem(fees, "Architect", 1200).Line.Period = 12;
        AddItem(fees, "Linked", 5, "NONCAP").Link = true;
        TlotLoan& loan = Project().Funding.Loans.Add();
        loan.VariableRate = true;
        loan.InterestRate.Value = 7.5;
        Data.Recalculate();
        Register();
    }

    void Register() {
        TlotUnit& unit = Project().Units[0];
        FRows.Clear();
        FRows.SetLine(Sales, unit.SalesLine, unit.Lifetime);
        for (int i = 0; i < 2; ++i) {
            TlotItem& item = Project().Sections[0].Items[i];
            FRows.SetItem(Architect + i, item);
            FRows.SetLine(Architect + i, item.Line, item.Lifetime);
        }
        TlotLoan& loan = Project().Funding.Loans[0];
        FRows.SetLoan(LoanRates, loan);
        FRows.SetRates(LoanRates, loan.InterestRates, loan.Lifetime);
        FRows.SetLoan(LoanRow, loan);
        FRows.SetEquity(EquityRates, Project().Equity, Project().Lifetime);
        FRows.SetRates(EquityRates, Project().Equity.InterestRates, Project().Lifetime);
    }

    /// Cells of one row by months.
    static TlotSheetBlock Block(int row, int first, int last) {
        return {first + TlotTimescaleEditor::FirstColumn, row, last + TlotTimescaleEditor::FirstColumn, row};
    }
    TlotCashflowItem& Line() { return Project().Sections[0].Items[0].Line; }

    TlotRows FRows;
    TlotTimescaleEditor FEditor{FRows};
};

TEST_F(Timescale, WhatIsTypedIsAWeightAndNotMoney) {
    EXPECT_TRUE(FEditor.EndEdit(Architect, 1, "(200)", PointLocale).Changed);
    EXPECT_EQ(Line().GetPortion(0), 200);
    EXPECT_EQ(Line().GetPortion(11), 1);
    Data.Recalculate();
    EXPECT_NEAR(Line().GetValue(0), 1200 * 200 / 211.0, 1e-9);
    const auto same = FEditor.EndEdit(Architect, 1, "1,137.4", PointLocale);
    EXPECT_FALSE(same.Changed) << "the same whole number";
    EXPECT_EQ(same.Shown, -1137.4) << "a cost, shown as one";
    EXPECT_EQ(Line().GetPortion(0), 200);
    EXPECT_EQ(FEditor.EndEdit(Sales, 1, "-100.2", PointLocale).Shown, 100.2) << "an income of 100 a month";
    EXPECT_TRUE(FEditor.EndEdit(LoanRates, 4, "-2.5", PointLocale).Changed) << "rates keep their sign, unasked";
    EXPECT_EQ(Project().Funding.Loans[0].InterestRates.Get(3), -2.5);
    EXPECT_FALSE(FEditor.EndEdit(Nothing, 1, "5", PointLocale).Changed);
    EXPECT_FALSE(FEditor.EndEdit(Architect, 0, "5", PointLocale).Changed) << "the label";
}

TEST_F(Timescale, RefusalsSayWhatTheySay) {
    EXPECT_EQ(FEditor.MayEdit(Linked, 1).Message, "You cannot edit this since it is linked.");
    Project().Units[0].SalesLine.ReadOnly = true;
    EXPECT_EQ(FEditor.MayEdit(Sales, 1).Message, "You cannot edit this since it is read-only.");
    EXPECT_TRUE(FEditor.MayEdit(LoanRates, 1).Changed);
    for (const auto& [row, column] : {std::pair(int{Architect}, 0), std::pair(int{LoanRow}, 1), std::pair(99, 1)}) {
        const TlotActionResult result = FEditor.MayEdit(row, column);
        EXPECT_FALSE(result.Changed);
        EXPECT_EQ(result.Message, "");
    }
    EXPECT_EQ(FEditor.ClearCells({1, Sales, 2, Linked}).Message, "You can only delete cells in a single row.");
    EXPECT_EQ(FEditor.ClearCells(Block(Linked, 0, 1)).Message, "You can not delete this since it is linked.");
    EXPECT_EQ(FEditor.ClearCells({0, Sales, 2, Architect}).Message, "");
    EXPECT_EQ(FEditor.Copy(Block(Architect, 12, 12)).Message, "Not in range.");
    EXPECT_FALSE(FEditor.HasCopied());
}

TEST_F(Timescale, ActionsWalkTheBlockAndPassOverWhatIsReadOnly) {
    const TlotSheetBlock all{4, Sales, 6, EquityRates}; // months 3 to 5
    EXPECT_TRUE(FEditor.Spread(all).Changed);
    EXPECT_EQ(Line().Start * 100 + Line().Period, 303);
    EXPECT_EQ(Project().Sections[0].Items[1].Line.Start, 0) << "linked";
    EXPECT_TRUE(FEditor.NudgeRight(all).Changed);
    EXPECT_TRUE(FEditor.NudgeLeft(all).Changed);
    EXPECT_EQ(Line().Start, 3);
    EXPECT_TRUE(FEditor.AlignRight(all).Changed);
    EXPECT_EQ(Line().Start, 3) << "a straight line ends in the last column";
    Line().SetPortion(1, 2);
    EXPECT_TRUE(FEditor.AlignRight(Block(Architect, 3, 5)).Changed);
    EXPECT_EQ(Line().LastPortion(), 6) << "a shaped one ends behind it";
    EXPECT_TRUE(FEditor.AlignLeft(Block(Architect, 0, 5)).Changed);
    EXPECT_EQ(Line().FirstPortion(), 0);
    EXPECT_FALSE(FEditor.NudgeLeft(Block(Architect, 0, 0)).Changed) << "at the start already";
    EXPECT_TRUE(FEditor.Link({1, Architect, 1, Linked}, false).Changed);
    EXPECT_FALSE(Project().Sections[0].Items[1].Link);
    EXPECT_FALSE(FEditor.Link(Block(Sales, 0, 0), true).Changed) << "a unit has no link";
    EXPECT_FALSE(FEditor.Spread({0, Architect, 3, Architect}).Changed);
}

TEST_F(Timescale, CopyAndPasteExchangeTwoMonthsOfOneLine) {
    Line().SetPortion(0, 5);
    Line().SetPortion(1, 0);
    Line().SetPortion(2, 7);
    EXPECT_EQ(FEditor.Copy(Block(Architect, 0, 4)).Message, "");
    EXPECT_EQ(FEditor.Paste(Block(Sales, 0, 0)).Message, "Cannot copy & paste across different rows.");
    EXPECT_EQ(FEditor.Paste(Block(Architect, 1, 1)).Message, "") << "nothing is pending any more";
    static_cast<void>(FEditor.Copy(Block(Architect, 0, 0)));
    EXPECT_EQ(FEditor.Paste(Block(Architect, 3, 3)).Message, "Source or destination is out of range.");
    static_cast<void>(FEditor.Copy(Block(Architect, 0, 0)));
    EXPECT_TRUE(FEditor.Paste(Block(Architect, 2, 2)).Changed);
    EXPECT_EQ(Line().Portions.Span()[0] * 10 + Line().Portions.Span()[2], 75);
}

TEST_F(Timescale, RatesAreResetToTheFixedRate) {
    EXPECT_EQ(FEditor.MenuOf(LoanRow), TlotRowMenu::Rate);
    EXPECT_TRUE(FEditor.MayResetRate(LoanRow));
    EXPECT_FALSE(FEditor.MayResetRate(EquityRates)) << "a fixed rate";
    EXPECT_EQ(FEditor.ResetQuestion(LoanRow, PointLocale), "Reset variable rate to current fixed rate of 7.500%");
    Project().Funding.Loans[0].InterestRates = TlotDoubles({1, 2, 3});
    EXPECT_TRUE(FEditor.ResetVariableRate(LoanRow).Changed);
    EXPECT_EQ(Project().Funding.Loans[0].InterestRates, TlotDoubles({7.5, 7.5, 7.5}));
    EXPECT_EQ(FEditor.MenuOf(Linked), TlotRowMenu::Item);
    EXPECT_EQ(FEditor.MenuOf(Nothing), TlotRowMenu::None);
}

/// A right click, typing and every action in all rows.
std::string PlayOnAllRows(TlotTimescaleEditor& editor) {
    std::string played;
    for (int row = 0; row < 8; ++row) {
        const TlotSheetBlock block{1, row, 2, row};
        played += std::to_string(static_cast<int>(editor.MenuOf(row))) + (editor.MayResetRate(row) ? "r" : "") +
                  (editor.MayEdit(row, 1).Changed ? "e" : "") + " ";
        static_cast<void>(editor.EndEdit(row, 1, "12345", PointLocale));
        static_cast<void>(editor.ResetQuestion(row, PointLocale));
        static_cast<void>(editor.ResetVariableRate(row));
        static_cast<void>(editor.AllocatePortion(row, block, 30));
        for (const auto action :
             {&TlotTimescaleEditor::Paste, &TlotTimescaleEditor::NudgeRight, &TlotTimescaleEditor::Spread,
              &TlotTimescaleEditor::ClearCells, &TlotTimescaleEditor::Copy}) {
            static_cast<void>((editor.*action)(block));
        }
        static_cast<void>(editor.Link(block, false));
    }
    return played;
}

TEST_F(Timescale, StaleRowsYieldNothing) {
    struct TCase {
        std::function<void()> Deletion;
        const char* Left; // What the rows still are: menu, whether a rate may be reset, whether it may be edited.
    };
    const TCase cases[] = {
        {[] {}, "1e 1e 1 2re 2e 2r 0 0 "},
        {[this] { Project().DeleteLoan(0); }, "1e 1e 1 0 2e 0 0 0 "},
        {[this] { Project().DeleteUnit(0); }, "0 1e 1 2re 2e 2r 0 0 "},
        {[this] { Project().DeleteItem(Project().Sections[0], 0); }, "1e 0 1 2re 2e 2r 0 0 "},
        {[this] { Project().DeleteSection(0); }, "1e 0 0 2re 2e 2r 0 0 "},
        {[this] { Data.ClearProject(); }, "0 0 0 0 2e 0 0 0 "},
        {[this] { Data.BuildTestProject(); }, "0 0 0 0 2e 0 0 0 "},
    };
    for (const TCase& each : cases) {
        FRows = {};
        Data.ClearProject();
        AddUnit(Project(), "Residential", 1, 1200).SalesLine.Period = 12;
        TlotSection& fees = AddSection(Project(), "Fees", "Costs");
        AddItem(fees, "Architect", 1200).Line.Period = 12;
        AddItem(fees, "Linked", 5, "NONCAP").Link = true;
        Project().Funding.Loans.Add().VariableRate = true;
        Data.Recalculate();
        Register();
        static_cast<void>(FEditor.Copy(Block(Architect, 0, 0)));
        each.Deletion();
        Project().Funding.Loans.Add().VariableRate = true; // It may come to lie where another one lay.
        EXPECT_EQ(PlayOnAllRows(FEditor), each.Left);
        EXPECT_NO_THROW(Data.Recalculate());
    }
}

TEST_F(Timescale, ACopiedMonthIsForgottenWithItsLine) {
    static_cast<void>(FEditor.Copy(Block(Architect, 0, 0)));
    Project().DeleteItem(Project().Sections[0], 0);
    AddItem(Project().Sections[0], "Another", 1200).Line.Period = 12;
    TlotItem& item = Project().Sections[0].Items[1];
    FRows.SetLine(Architect, item.Line, item.Lifetime);
    EXPECT_EQ(FEditor.Paste(Block(Architect, 1, 1)).Message, "Cannot paste, since item has moved or deleted.");
}

} // namespace
