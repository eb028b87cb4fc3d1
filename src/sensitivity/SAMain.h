// SPDX-License-Identifier: GPL-3.0-or-later
//
// The root of a sensitivity model and the tables that it computes. Every cell is a scenario on the live model: values
// are kept, shifted, computed with and put back. Whatever happens in a table, an exception included, the model is put
// back.
#pragma once

#include "common/gxCommands.h"
#include "common/vipNumber.h"
#include "sensitivity/SACategory.h"
#include "sensitivity/SAResult.h"

#include <functional>
#include <memory>
#include <string>
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
    std::vector<TSACategory*> SelectedCategories; ///< Not owned; the first two take part.
    bool SwapXY = false;
    std::string Description;
    bool ShowAdjustAll = false;
    TgxCommandLibrary* Commands = nullptr; ///< That a cell offers, to be run on its scenario; not owned, may be null.

    /// Texts for the report.
    [[nodiscard]] virtual std::string ReportText1() const { return {}; }
    [[nodiscard]] virtual std::string ReportText2() const { return {}; }

    [[nodiscard]] TSACategory* FirstAxis() const noexcept { return FFirstAxis; }
    [[nodiscard]] TSACategory* SecondAxis() const noexcept { return FSecondAxis; }

    /// Takes the axes from the selection, exchanged with SwapXY, and has the selected categories list their items.
    void Refresh();

    /// Computes the table of the selection: with two axes rows for the first and columns for the second, each cell the
    /// selected results' texts on lines of their own; with one axis rows for it and a column a result. No axis gives an
    /// empty page. Throws ELotError for an axis of more steps than a table can show.
    void Calculate(TSAPage& page);

    /// Puts the model into the scenario of one cell (of one row, with one axis), runs `command` and puts it back.
    void Scenario(int rowIndex, int columnIndex, const std::function<void()>& command);

protected:
    std::vector<std::unique_ptr<TSACalc>> Calcs; ///< Owned; results refer to them.

private:
    void CalculateTwoAxes(TSAPage& page);
    void CalculateOneAxis(TSAPage& page);
    void ComputeCell(const TSAAxis& axis1, const TSAAxis& axis2);
    [[nodiscard]] std::vector<TSACalc*> SelectedCalcs() const;
    [[nodiscard]] std::vector<std::string> Labels(const TSACategory& category) const;
    [[nodiscard]] std::string ResultNames() const;
    [[nodiscard]] std::string JoinedTexts(const TSAAxis& axis1, const TSAAxis& axis2) const;

    TSACategory* FFirstAxis = nullptr;
    TSACategory* FSecondAxis = nullptr;
};
