// SPDX-License-Identifier: GPL-3.0-or-later
#include "editing/lotTimescaleEditor.h"

#include <cmath>
#include <utility>

namespace {

TlotActionResult Refused(std::string_view message = {}) {
    return {false, std::string(message)};
}

/// The magnitude of a figure as a whole number, halves to even.
double WholeMagnitude(double value) {
    return std::fabs(std::nearbyint(value));
}

int Month(int column) {
    return column - TlotTimescaleEditor::FirstColumn;
}

} // namespace

/// Runs `change` on each line of the block that may be edited; it tells whether it did anything.
template <class Change>
TlotActionResult TlotTimescaleEditor::EachLine(const TlotSheetBlock& block, const Change& change) {
    TlotActionResult result;
    for (int row = block.Top; row <= block.Bottom; ++row) {
        if (TlotCashflowItem* const line = FRows.Line(row); line != nullptr && !line->ReadOnly) {
            result.Changed = change(*line) || result.Changed;
        }
    }
    return result;
}

TlotActionResult TlotTimescaleEditor::MayEdit(int row, int column) const {
    if (column < FirstColumn) {
        return Refused();
    }
    if (const TlotCashflowItem* const line = FRows.Line(row)) {
        if (!line->ReadOnly) {
            return {true};
        }
        const TlotItem* const item = FRows.Item(row);
        return Refused(item != nullptr && item->Link ? "You cannot edit this since it is linked."
                                                     : "You cannot edit this since it is read-only.");
    }
    return {FRows.Rates(row) != nullptr};
}

TlotTimescaleEditor::TEdit TlotTimescaleEditor::EndEdit(int row, int column, std::string_view text,
                                                        const TNumberLocale& locale) {
    if (column < FirstColumn) {
        return {};
    }
    const int month = Month(column);
    const double typed = vip::StrToNumber(text, locale);
    if (TlotCashflowItem* const line = FRows.Line(row)) {
        if (WholeMagnitude(line->GetValue(month)) == WholeMagnitude(typed)) {
            return {false, line->Income ? std::fabs(typed) : -std::fabs(typed)};
        }
        line->EnsurePortions();
        line->SetPortion(month, std::fabs(typed));
        return {true};
    }
    if (TlotDoubles* const rates = FRows.Rates(row)) {
        rates->Set(month, typed);
        return {true, typed};
    }
    return {};
}

TlotActionResult TlotTimescaleEditor::ClearCells(const TlotSheetBlock& block) {
    if (block.Left < FirstColumn) {
        return Refused();
    }
    if (block.Bottom > block.Top) {
        return Refused("You can only delete cells in a single row.");
    }
    TlotCashflowItem* const line = FRows.Line(block.Top);
    if (line == nullptr) {
        return Refused();
    }
    if (line->ReadOnly) {
        return Refused("You can not delete this since it is linked.");
    }
    for (int column = block.Left; column <= block.Right; ++column) {
        line->EnsurePortions();
        line->SetPortion(Month(column), 0);
    }
    return {true};
}

TlotActionResult TlotTimescaleEditor::NudgeLeft(const TlotSheetBlock& block) {
    return EachLine(block, [](TlotCashflowItem& line) {
        if (line.AtStart()) {
            return false;
        }
        line.NudgeLeft();
        return true;
    });
}

TlotActionResult TlotTimescaleEditor::NudgeRight(const TlotSheetBlock& block) {
    return EachLine(block, [](TlotCashflowItem& line) {
        line.NudgeRight();
        return true;
    });
}

TlotActionResult TlotTimescaleEditor::AlignLeft(const TlotSheetBlock& block) {
    // A selection that begins in the labels gives month -1, which the next calculation mends.
    return EachLine(block, [&](TlotCashflowItem& line) {
        line.AlignLeft(Month(block.Left));
        return true;
    });
}

TlotActionResult TlotTimescaleEditor::AlignRight(const TlotSheetBlock& block) {
    // A count and not a month, deliberately: a straight line ends in the last column, a shaped one behind it.
    return EachLine(block, [&](TlotCashflowItem& line) {
        line.AlignRight(Month(block.Right) + 1);
        return true;
    });
}

TlotActionResult TlotTimescaleEditor::Spread(const TlotSheetBlock& block) {
    if (block.Left < FirstColumn) {
        return Refused();
    }
    return EachLine(block, [&](TlotCashflowItem& line) {
        line.Start = Month(block.Left);
        line.Period = block.Right - block.Left + 1;
        line.ResetToLevel();
        return true;
    });
}

TlotActionResult TlotTimescaleEditor::Link(const TlotSheetBlock& block, bool link) {
    TlotActionResult result;
    for (int row = block.Top; row <= block.Bottom; ++row) {
        if (TlotItem* const item = FRows.Item(row)) {
            item->Link = link;
            result.Changed = true;
        }
    }
    return result;
}

TlotCashflowItem* TlotTimescaleEditor::ShapedLine(int row, const TlotSheetBlock& block) const {
    TlotCashflowItem* const line = FRows.Line(row);
    return line == nullptr || line->ReadOnly || block.Left < FirstColumn ? nullptr : line;
}

TlotActionResult TlotTimescaleEditor::AllocatePortion(int row, const TlotSheetBlock& block, double percent) {
    TlotCashflowItem* const line = ShapedLine(row, block);
    if (line == nullptr) {
        return Refused();
    }
    line->AllocatePortion(Month(block.Left), block.Right - block.Left + 1, percent);
    return {true};
}

TlotInterestTerms* TlotTimescaleEditor::RatesOf(int row) const noexcept {
    if (TlotLoan* const loan = FRows.Loan(row)) {
        return loan;
    }
    return FRows.Equity(row);
}

std::string TlotTimescaleEditor::ResetQuestion(int row, const TNumberLocale& locale) const {
    const TlotInterestTerms* const rates = RatesOf(row);
    return rates == nullptr ? std::string()
                            : "Reset variable rate to current fixed rate of " +
                                  vip::FormatMask("0.000%", rates->InterestRate.Value, locale);
}

TlotActionResult TlotTimescaleEditor::ResetVariableRate(int row) {
    TlotInterestTerms* const rates = RatesOf(row);
    if (rates == nullptr) {
        return Refused();
    }
    rates->InterestRates.Fill(rates->InterestRate.Value);
    return {true};
}

TlotActionResult TlotTimescaleEditor::Copy(const TlotSheetBlock& block) {
    FCopied.reset();
    const TlotCashflowItem* const line = FRows.Line(block.Top);
    if (line == nullptr || line->ReadOnly || block.Left < FirstColumn) {
        return Refused();
    }
    if (!line->InRange(Month(block.Left))) {
        return Refused("Not in range.");
    }
    FCopied = TCellSelection{block.Top, block.Left, FRows.WatchLine(block.Top)};
    return {};
}

TlotActionResult TlotTimescaleEditor::Paste(const TlotSheetBlock& block) {
    const std::optional<TCellSelection> copied = std::exchange(FCopied, std::nullopt);
    if (!copied) {
        return Refused();
    }
    if (block.Top != copied->Row) {
        return Refused("Cannot copy & paste across different rows.");
    }
    TlotCashflowItem* const line = FRows.Line(block.Top);
    if (line == nullptr || line != copied->Line.Get()) {
        return Refused("Cannot paste, since item has moved or deleted.");
    }
    const int from = Month(copied->Column);
    const int to = Month(block.Left);
    if (!line->InRange(from) || to < 0 || !line->InRange(to)) {
        return Refused("Source or destination is out of range.");
    }
    line->EnsurePortions();
    const double weight = line->GetPortion(from);
    line->SetPortion(from, line->GetPortion(to));
    line->SetPortion(to, weight);
    return {true};
}

TlotRowMenu TlotTimescaleEditor::MenuOf(int row) const noexcept {
    if (FRows.Line(row) != nullptr) {
        return TlotRowMenu::Item;
    }
    return RatesOf(row) != nullptr ? TlotRowMenu::Rate : TlotRowMenu::None;
}

bool TlotTimescaleEditor::MayResetRate(int row) const noexcept {
    const TlotInterestTerms* const rates = RatesOf(row);
    return rates != nullptr && rates->VariableRate;
}
