// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/lotCashflow.h"

#include "common/vipErrors.h"
#include "common/vipRates.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>

namespace {

using TConstSpan = std::span<const double>;

/// Months that a loan's internal rate of return looks at.
constexpr int IRRMonths = 120;

double SumOf(TConstSpan values) noexcept {
    return std::accumulate(values.begin(), values.end(), 0.0);
}

int FirstNonZero(TConstSpan values) noexcept {
    const auto found = std::ranges::find_if(values, [](double v) { return v != 0; });
    return found == values.end() ? -1 : static_cast<int>(found - values.begin());
}

int LastNonZero(TConstSpan values) noexcept {
    for (std::size_t i = values.size(); i-- > 0;) {
        if (values[i] != 0) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

} // namespace

void TlotCashflowItem::Spread() {
    if (SpreadKind == TlotSpreadKind::Linked && LinkedValues != nullptr) {
        SpreadLinked();
    } else if (Amount == 0) {
        Values.Zero(Portions.Count());
    } else if (!Portions.IsEmpty()) {
        SpreadByPortions();
    } else {
        SpreadLevel();
    }
}

void TlotCashflowItem::SpreadLinked() {
    const int count = LinkedValues->Count();
    Values.Zero(count);
    for (int i = 0; i < count; ++i) {
        Values.Set(i, LinkedValues->GetValue(i) * (Amount / 100));
    }
}

void TlotCashflowItem::SpreadByPortions() {
    const TConstSpan portions = Portions.Tail();
    const double w = SpreadKind == TlotSpreadKind::Repeat ? 1 : SumOf(portions);
    if (w == 0) {
        Values.Zero(Portions.Count());
        return;
    }
    const std::span<double> values = Values.Prepare(Portions.Lead(), Portions.Count());
    const double amount = Amount;
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = portions[i] / w * amount;
    }
}

void TlotCashflowItem::SpreadLevel() {
    Period = std::max(Period, 1);
    Start = std::max(Start, 0);
    const double monthly = SpreadKind == TlotSpreadKind::Repeat ? Amount : Amount / Period;
    std::ranges::fill(Values.Prepare(Start, Start + Period), monthly);
}

void TlotCashflowItem::ClearValues() {
    Values.Clear();
    Portions.Clear();
}

void TlotCashflowItem::ClearAll() {
    ClearValues();
    Amount = 0;
}

void TlotCashflowItem::Add(const TlotCashflowItem& other) {
    Values.Combine(other.Values, std::plus<>());
    Amount += other.Amount;
}

void TlotCashflowItem::Subtract(const TlotCashflowItem& other) {
    Values.Combine(other.Values, std::minus<>());
    Amount -= other.Amount;
}

void TlotCashflowItem::CopyValues(const TlotCashflowItem& other) {
    Values = other.Values;
}

void TlotCashflowItem::Assign(const TlotCashflowItem& other) {
    static_cast<TlotLineTerms&>(*this) = other;
    Amount = other.Amount;
    ReadOnly = other.ReadOnly;
    Colour = other.Colour;
    Values = other.Values;
}

void TlotCashflowItem::SetPortionsFrom(const TlotCashflowItem& line) {
    const TConstSpan source = line.Values.Tail();
    const double sum = SumOf(source);
    if (sum == 0) {
        Portions.Zero(line.Count());
        return;
    }
    const std::span<double> portions = Portions.Prepare(line.Values.Lead(), line.Count());
    for (std::size_t i = 0; i < portions.size(); ++i) {
        portions[i] = source[i] / sum;
    }
}

void TlotCashflowItem::Inflate(double rate) {
    vip::TGrowthFactors growth;
    MultiplyMonths(growth.Months(rate, Count()));
}

void TlotCashflowItem::MultiplyMonths(std::span<const double> factors) {
    const auto lead = static_cast<std::size_t>(Values.Lead());
    const std::span<double> values = Values.Prepare(Values.Lead(), Count());
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = values[i] * factors[lead + i];
    }
}

double TlotCashflowItem::Sum() const {
    return SumOf(Values.Tail());
}

double TlotCashflowItem::NPVAt(double rate) const {
    return vip::PresentValue(rate / 100, vip::MonthsAYear, Values.Span());
}

double TlotCashflowItem::IRR120() const {
    const TConstSpan all = Values.Span();
    const TConstSpan seen = all.first(std::min<std::size_t>(all.size(), IRRMonths));
    double monthly = 0;
    if (SumOf(seen) == 0 || !vip::NearestMonthlyIRR(seen, 4.0, monthly)) {
        return 0;
    }
    const double annual = (std::pow(1 + monthly, vip::MonthsAYear) - 1) * 100;
    return std::isfinite(annual) ? annual : 0;
}

int TlotCashflowItem::FirstPortion() const {
    return FirstNonZero(Portions.Span());
}

int TlotCashflowItem::LastPortion() const {
    return LastNonZero(Portions.Span());
}

int TlotCashflowItem::FirstMonth() const {
    return Portions.IsEmpty() ? Start : std::max(FirstPortion(), 0);
}

int TlotCashflowItem::EndMonth() const {
    return Values.IsEmpty() ? Start + Period : LastNonZero(Values.Span()) + 1;
}

bool TlotCashflowItem::InRange(int month) const {
    if (Portions.IsEmpty()) {
        return month >= Start && month < Start + Period;
    }
    const int first = FirstPortion();
    return first >= 0 && month >= first && month <= LastPortion();
}

void TlotCashflowItem::Simplify() {
    if (Portions.IsEmpty()) {
        return;
    }
    if (Portions.Count() == 1) {
        // Month 0 alone is a straight line whatever its weight. The array stays: a repeated amount takes the weight.
        Start = 0;
        Period = 1;
        return;
    }
    const int first = FirstPortion();
    if (first < 0) {
        Portions.Clear();
        return;
    }
    const int last = LastPortion();
    const TConstSpan span =
        Portions.Span().subspan(static_cast<std::size_t>(first), static_cast<std::size_t>(last - first + 1));
    if (std::ranges::all_of(span, [&](double weight) { return weight == span.front(); })) {
        Start = first;
        Period = last - first + 1;
        Portions.Clear();
    }
}

TlotCashflow::TlotCashflow() {
    Total.Income = true;
    Total.NoTotal = true;
}

void TlotCashflow::Clear() {
    Items.clear();
    Total.ClearAll();
}

void TlotCashflow::Forget(const TlotCashflowItem& line) {
    std::erase(Items, &line);
}

void TlotCashflow::Sum() {
    Total.ClearAll();
    for (const TlotCashflowItem* const line : Items) {
        if (line->Income) {
            Total.Add(*line);
        } else {
            Total.Subtract(*line);
        }
    }
}

int TlotCashflow::LastMonth() const {
    int last = 0;
    for (const TlotCashflowItem* const line : Items) {
        last = std::max(last, line->EndMonth());
    }
    return last;
}

void TlotCashflow::CalculateIRR() {
    IRR = vip::AnnualIRR(Total.Values.Span()) * 100;
}

void TlotCashflow::CalculateNPV(double rate) {
    NPV = vip::DiscountedSum(rate / 100, vip::MonthsAYear, Total.Values.Span());
}
