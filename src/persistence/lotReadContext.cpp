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

void TlotReadContext::SeeMonth(int month) noexcept {
    FLongest = std::max(FLongest, month);
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
    ++FLines;
    FLongest = std::max({FLongest, line.Start + line.Period, line.Portions.Count()});
}

void TlotReadContext::CountObject(const TlotElement& e) {
    if (++FObjects > lotLimits::Objects) {
        throw EFileError(e.Place() + ": more than " + std::to_string(lotLimits::Objects) + " objects");
    }
}

void TlotReadContext::CheckSize(const TlotProject& project) const {
    // Any linked line may come out as long as the longest, and a loan has some eighteen rows of its own.
    constexpr double rowsOfALoan = 18;
    const double rows =
        FLines + 2.0 * static_cast<double>(project.Sections.size()) + rowsOfALoan * project.Funding.Loans.Count();
    if (rows * FLongest > lotLimits::Cells) {
        throw EFileError("Project: too large, " + std::to_string(FLines) + " lines over " + std::to_string(FLongest) +
                         " months");
    }
}
