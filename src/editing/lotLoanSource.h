// SPDX-License-Identifier: GPL-3.0-or-later
//
// The source of the grid of loans. The project is recalculated when a cell is next read; nobody is told of a write.
#pragma once

#include "editing/lotListSource.h"
#include "editing/lotLoanFields.h"

class TlotLoanDataSource final : public TlotListSource<TlotLoan, TlotLoanList> {
public:
    /// The columns are the fields of TlotLoanField, in that order.
    explicit TlotLoanDataSource(TProjectData& data);

    /// Whether the cell applies to its loan; true in the row for a new one.
    [[nodiscard]] bool Applies(int record, int column);
    /// The mask of the fee's cell in that row.
    [[nodiscard]] std::string FeesMask(int record);

    /// The months that the grid shows count from 1, and so does what is typed.
    static constexpr int FirstMonthShown = 1;

protected:
    TlotLoanList* Records() override { return &Project().Funding.Loans; }
    void Delete(int record) override { Project().DeleteLoan(record); }
};

/// "Standard", "Cash" and "Linked": the texts of TlotLoanType by its numbers.
[[nodiscard]] std::span<const std::string_view> LoanTypeTexts() noexcept;
/// "Project Total" and "Above": those of TlotLoanSource.
[[nodiscard]] std::span<const std::string_view> LoanSourceTexts() noexcept;
