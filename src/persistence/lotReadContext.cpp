// SPDX-License-Identifier: GPL-3.0-or-later
#include "persistence/lotReadContext.h"

#include "common/vipErrors.h"
#include "persistence/lotLimits.h"

#include <algorithm>

std::int32_t TlotReadContext::LoanMonth(const TlotElement& e, const char* name) const {
    const std::int32_t month = e.Integer(name);
    if (month > lotLimits::Months) {
        throw EFileError(e.Place() + ", " + name + ": " + std::to_string(month) + " is more than " +
                         std::to_string(lotLimits::Months) + " months");
    }
    return month;
}

void TlotReadContext::ReadSpread(const TlotElement& e, TlotCashflowItem& line) {
    line.Start = e.Month("Start");
    line.Period = e.Month("Period");
    if (line.Start + line.Period > lotLimits::Months) {
        throw EFileError(e.Place() + ": the line ends beyond " + std::to_string(lotLimits::Months) + " months");
    }
    for (const pugi::xml_node child : e.Node().children()) {
        if (child.type() == pugi::node_element && Element(child).Is("Values")) {
            line.SetPortion(Element(child).Month("Index"), Element(child).Number("SpreadValue"));
        }
    }
    line.Simplify();
    CountRows(e, 1, std::max(line.Start + line.Period, line.Portions.Count()));
}

void TlotReadContext::CountObject(const TlotElement& e) {
    if (++FObjects > lotLimits::Objects) {
        throw EFileError(e.Place() + ": more than " + std::to_string(lotLimits::Objects) + " objects");
    }
}

void TlotReadContext::CountSection(const TlotElement& e) {
    CountObject(e);
    constexpr int rowsOfASection = 2;
    CountRows(e, rowsOfASection, 0);
}

void TlotReadContext::CountLoan(const TlotElement& e, const TlotLoan& loan) {
    CountObject(e);
    constexpr int rowsOfALoan = 20;
    const int end = std::max(loan.Start, 0) + std::max(loan.Period, 0);
    if (end > lotLimits::Months) {
        throw EFileError(e.Place() + ": the loan ends beyond " + std::to_string(lotLimits::Months) + " months");
    }
    CountRows(
        e, rowsOfALoan,
        std::max({end, loan.InterestRates.Count(), loan.BorrowPercentages.Count(), loan.RepayPercentages.Count()}));
}

void TlotReadContext::CountRows(const TlotElement& e, int rows, int months) {
    FRows += rows;
    FLongest = std::max(FLongest, months);
    if (static_cast<double>(FRows) * FLongest > lotLimits::Cells) {
        throw EFileError(e.Place() + ": too large, " + std::to_string(FRows) + " rows over " +
                         std::to_string(FLongest) + " months");
    }
}
