// SPDX-License-Identifier: GPL-3.0-or-later
//
// The root of a sensitivity model and the tables that it computes. Every cell is a scenario on the live model: values
// are kept, shifted, computed with and put back. The model is put back after an exception too.
#pragma once

#include "common/gxCommands.h"
#include "common/vipNumber.h"
#include "sensitivity/SACategory.h"
#include "sensitivity/SAResult.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// One table of text.
struct TSAPage {
    std::vector<std::vector<std::string>> Cells; ///< By row.
    std::vector<std::string> RowLabels;
    std::vector<std::string> ColumnLabels;
    std::string RowTitle;
    std::string ColumnTitle;
    std::string ResultTitle;
    bool RowsStepped = false;
    bool ColumnsStepped = false;

    [[nodiscard]] int RowCount() const noexcept { return static_cast<int>(RowLabels.size()); }
    [[nodiscard]] int ColumnCount() const noexcept { return static_cast<int>(ColumnLabels.size()); }
};

class TSAModel {
public:
    explicit TSAModel(const TNumberLocale& locale) : Locale(locale) {}
    TSAModel(const TSAModel&) = delete;
    TSAModel& operator=(const TSAModel&) = delete;
    virtual ~TSAModel() = default;

    TNumberLocale Locale; ///< Of every text.
    TSACategoryList Categories;
    TSAResultList Results;
    TSASelectedResults SelectedResults;
    std::vector<TSACategory*> SelectedCategories; ///< Not owned; the first two take part: rows, then columns.
    bool SwapXY = false;
    std::string Description;
    bool ShowAdjustAll = false;
    TgxCommandLibrary* Commands = nullptr; ///< That a cell offers, to be run on its scenario; not owned, may be null.

    /// Texts for the report.
    [[nodiscard]] virtual std::string ReportText1() const { return {}; }
    [[nodiscard]] virtual std::string ReportText2() const { return {}; }

    /// The category of each axis as of the last Refresh, or null. A table of one axis has rows only.
    [[nodiscard]] TSACategory* Rows() const noexcept { return FRows; }
    [[nodiscard]] TSACategory* Columns() const noexcept { return FColumns; }

    /// Takes rows and columns from the selection, exchanged with SwapXY where there are both, and has the two
    /// categories list their items.
    void Refresh();

    /// Computes the table of the selection: with two axes each cell has the selected results' texts on lines of their
    /// own; with rows only there is a column a result. No axis gives an empty page. Throws ELotError for an axis of
    /// more steps than a table can show.
    void Calculate(TSAPage& page);

    /// Puts the model into the scenario of one cell (of one row, with rows only), runs `command` and puts it back.
    void Scenario(int rowIndex, int columnIndex, const std::function<void()>& command);

protected:
    /// Checks that the places of the categories follow the order in which a scenario must apply them, given by name; a
    /// name that the model has no category of is passed over. Throws ELotError for a category that isn't told, or that
    /// doesn't stand after the one told before it, as two at one place don't.
    void CheckOrder(std::span<const std::string_view> told) const;

    TlotOwningList<TSACalc> Calcs; ///< Results refer to them.

private:
    void CalculateTwoAxes(TSAPage& page);
    void CalculateOneAxis(TSAPage& page);
    void ComputeCell(const TSAAxis& columns, const TSAAxis& rows);
    [[nodiscard]] std::vector<TSACalc*> SelectedCalcs() const;
    [[nodiscard]] std::vector<std::string> Labels(const TSACategory& category) const;
    [[nodiscard]] std::string ResultNames() const;
    [[nodiscard]] std::string JoinedTexts(const TSAAxis& columns, const TSAAxis& rows) const;

    TSACategory* FRows = nullptr; ///< Not owned, as the columns.
    TSACategory* FColumns = nullptr;
};
