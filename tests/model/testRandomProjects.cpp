// SPDX-License-Identifier: GPL-3.0-or-later
//
// What must hold of any project whatever its figures.
#include "support/lotRows.h"
#include "support/lotTestProject.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

using TSignedRows = std::vector<std::pair<const TlotCashflowItem*, double>>;

/// `actual` is the sum of the rows with their signs, month by month.
void ExpectSum(const TlotCashflowItem& actual, const TSignedRows& rows) {
    std::vector<double> sum(static_cast<std::size_t>(actual.Count()), 0.0);
    for (const auto& [row, sign] : rows) {
        for (int i = 0; i < actual.Count(); ++i) {
            sum[static_cast<std::size_t>(i)] += sign * row->GetValue(i);
        }
    }
    ExpectMonths(actual, sum);
}

void ForEachProject(const std::function<void(TlotProject&)>& check) {
    for (std::uint64_t seed = 1; seed <= 200 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        TRandom random(seed);
        TlotProject project{0};
        RandomProject(random, project);
        project.Calculate();
        check(project);
    }
}

TEST(RandomProjects, FiguresAddUpFromTheLinesToTheProfit) {
    ForEachProject([](TlotProject& project) {
        TSignedRows lines;
        for (const TlotCashflowItem* const line : project.Cashflow.Items) {
            lines.emplace_back(line, line->Income ? 1 : -1);
            if (line->SpreadKind == TlotSpreadKind::Spread && !line->Values.IsEmpty()) {
                ExpectClose(line->Sum(), line->Portions.IsEmpty() || line->FirstPortion() >= 0 ? line->Amount : 0);
            }
        }
        ExpectSum(project.Cashflow.Total, lines);
        TSignedRows left = {{&project.Cashflow.Total, 1}};
        double profit =
            project.BaseValues.NetCap.Amount + project.BaseValues.NonCap.Amount + project.Equity.Interest.Sum();
        for (const auto& loan : project.Funding.Loans) {
            left.insert(left.end(), {{&loan->Borrowing, 1}, {&loan->Repayment, -1}});
            left.insert(left.end(), {{&loan->ExcessInterest, 1}, {&loan->Fees, 1}});
            profit += loan->Interest.Sum() + loan->FeeLine.Amount;
        }
        ExpectSum(project.Equity.Cashflow, left);
        for (const auto& section : project.Sections) {
            profit += section->Income ? section->Total.Amount : -section->Total.Amount;
        }
        ExpectClose(project.BaseValues.Profit,
                    profit - project.BaseValues.SiteValue.Amount - project.BaseValues.Build.Amount);
        ExpectClose(project.NDV - project.TDC, project.BaseValues.Profit);
    });
}

TEST(RandomProjects, ASecondPassChangesNothing) {
    ForEachProject([](TlotProject& project) {
        const auto figures = [&] {
            std::vector<double> all = {project.TDC, project.NDV, project.Equity.IRR, project.Cashflow.IRR};
            for (const auto& loan : project.Funding.Loans) {
                for (const TlotCashflowItem* const row : {&loan->Debt, &loan->Borrowing, &loan->FeeLine}) {
                    all.insert(all.end(), row->Values.Span().begin(), row->Values.Span().end());
                }
            }
            return all;
        };
        const std::vector<double> first = figures();
        project.Calculate();
        EXPECT_EQ(figures(), first) << "to the last bit";
    });
}

} // namespace
