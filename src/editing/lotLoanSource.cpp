// SPDX-License-Identifier: GPL-3.0-or-later
#include "editing/lotLoanSource.h"

#include "common/vipText.h"
#include "persistence/lotLimits.h"

#include <algorithm>
#include <array>

namespace {

using TSource = TlotCustomDataSource;

constexpr std::array<std::string_view, 3> TypeTexts = {"Standard", "Cash", "Linked"};
constexpr std::array<std::string_view, 2> SourceTexts = {"Project Total", "Above"};

/// The text of a stored number; one that has none shows as nothing.
template <class Enum> TlotValue Shown(std::span<const std::string_view> texts, Enum value) {
    const auto index = static_cast<std::size_t>(value);
    return index < texts.size() ? TlotValue(std::string(texts[index])) : TlotValue();
}

/// The number of a text; a text that is none of them leaves the value as it is.
template <class Enum> void Choose(std::span<const std::string_view> texts, const TlotValue& text, Enum& value) {
    const std::string chosen = TSource::AsString(text);
    const auto found = std::ranges::find_if(texts, [&](std::string_view each) { return vip::SameText(each, chosen); });
    if (found != texts.end()) {
        value = static_cast<Enum>(found - texts.begin());
    }
}

/// Months within what a file may hold.
int Months(std::int64_t value) {
    return static_cast<int>(std::clamp<std::int64_t>(value, -lotLimits::Months, lotLimits::Months));
}

template <double TlotLoanTerms::*Field>
constexpr TlotColumn<TlotLoan> Figure(std::string_view name, std::string_view mask) {
    return {name, [](const TlotLoan& loan) -> TlotValue { return loan.*Field; },
            [](TlotLoan& loan, const TlotValue& value) { loan.*Field = TSource::AsDouble(value); }, mask};
}

template <auto Field> constexpr TlotColumn<TlotLoan> Flag(std::string_view name) {
    return {name, [](const TlotLoan& loan) -> TlotValue { return loan.*Field; },
            [](TlotLoan& loan, const TlotValue& value) { loan.*Field = TSource::AsBoolean(value); }};
}

template <std::string TlotLoanTerms::*Field> constexpr TlotColumn<TlotLoan> Text(std::string_view name) {
    return {name, [](const TlotLoan& loan) -> TlotValue { return loan.*Field; },
            [](TlotLoan& loan, const TlotValue& value) { loan.*Field = TSource::AsString(value); }};
}

constexpr const char* PercentMask = "0.000%";
constexpr const char* MoneyMask = ",0";

constexpr std::array<TlotColumn<TlotLoan>, 16> LoanColumns = {{
    Text<&TlotLoanTerms::Name>("Name"),
    {"LoanType", [](const TlotLoan& loan) { return Shown(TypeTexts, loan.LoanType); },
     [](TlotLoan& loan, const TlotValue& value) { Choose(TypeTexts, value, loan.LoanType); }},
    Flag<&TlotLoanTerms::Active>("Active"),
    Figure<&TlotLoanTerms::BorrowPercentage>("BorrowPercentage", PercentMask),
    Figure<&TlotLoanTerms::RepayPercentage>("RepayPercentage", PercentMask),
    Flag<&TlotLoanTerms::VariablePercentage>("VariablePercentage"),
    {"LoanSource", [](const TlotLoan& loan) { return Shown(SourceTexts, loan.LoanSource); },
     [](TlotLoan& loan, const TlotValue& value) { Choose(SourceTexts, value, loan.LoanSource); }},
    Figure<&TlotLoanTerms::Amount>("Amount", MoneyMask),
    Figure<&TlotLoanTerms::Maximum>("Maximum", MoneyMask),
    Text<&TlotLoanTerms::Base>("Base"),
    {"Start",
     [](const TlotLoan& loan) -> TlotValue { return std::int64_t{loan.Start} + TlotLoanDataSource::FirstMonthShown; },
     [](TlotLoan& loan, const TlotValue& value) {
         loan.Start = Months(TSource::AsInteger(value) - TlotLoanDataSource::FirstMonthShown);
     },
     "0"},
    {"Period", [](const TlotLoan& loan) -> TlotValue { return std::int64_t{loan.Period}; },
     [](TlotLoan& loan, const TlotValue& value) { loan.Period = Months(TSource::AsInteger(value)); }, "0"},
    {"FixedRate", [](const TlotLoan& loan) -> TlotValue { return loan.InterestRate.Value; },
     [](TlotLoan& loan, const TlotValue& value) { loan.InterestRate.Value = TSource::AsDouble(value); }, PercentMask},
    Flag<&TlotLoanTerms::VariableRate>("VariableRate"),
    {"Fees", [](const TlotLoan& loan) -> TlotValue { return loan.LoanFees.Amount; },
     [](TlotLoan& loan, const TlotValue& value) { loan.LoanFees.Amount = TSource::AsDouble(value); }, MoneyMask},
    {"FeesPercentage", [](const TlotLoan& loan) -> TlotValue { return loan.LoanFees.Percentage; },
     [](TlotLoan& loan, const TlotValue& value) { loan.LoanFees.Percentage = TSource::AsBoolean(value); }},
}};

} // namespace

TlotLoanDataSource::TlotLoanDataSource(TProjectData& data)
    : TlotListSource(data, LoanColumns, {.RecalculateAtNextRead = true, .QuietWrites = true}) {}

bool TlotLoanDataSource::Applies(int record, int column) {
    const TlotLoan* const loan = Record(record);
    return loan == nullptr || LoanFieldApplies(static_cast<TlotLoanField>(column), *loan, TlotLoanForm::Grid);
}

std::string TlotLoanDataSource::FeesMask(int record) {
    const TlotLoan* const loan = Record(record);
    return LoanFeesMask(loan == nullptr ? TlotLoanFees() : loan->LoanFees);
}

std::span<const std::string_view> LoanTypeTexts() noexcept {
    return TypeTexts;
}

std::span<const std::string_view> LoanSourceTexts() noexcept {
    return SourceTexts;
}
