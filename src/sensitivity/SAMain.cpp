// SPDX-License-Identifier: GPL-3.0-or-later
#include "sensitivity/SAMain.h"

#include "common/vipErrors.h"

#include <algorithm>
#include <utility>

namespace {

/// Steps of an axis beyond this make no table that anybody reads; a setting out of a file may ask for any number.
constexpr std::int32_t MostSteps = 1000;

/// Brackets a table: what was started and saved in it is put back and finished, in the order of a table's end, however
/// it ends.
class TBracket {
public:
    explicit TBracket(std::vector<TSACalc*> calcs) : FCalcs(std::move(calcs)) {}
    TBracket(const TBracket&) = delete;
    TBracket& operator=(const TBracket&) = delete;
    ~TBracket() {
        // Only after an exception: a second one on the way out has nothing to add to the first.
        try {
            Close();
        } catch (...) { // NOLINT(bugprone-empty-catch)
        }
    }

    void Start() {
        FStarted = true;
        for (TSACalc* const calc : FCalcs) {
            calc->Start();
        }
    }
    void Save(TSACategory& category) {
        category.Save();
        FSaved.push_back(&category);
    }
    void Close() {
        for (TSACategory* const category : std::exchange(FSaved, {})) {
            category->Restore();
        }
        if (std::exchange(FStarted, false)) {
            for (TSACalc* const calc : FCalcs) {
                calc->Finish();
            }
        }
    }

private:
    std::vector<TSACalc*> FCalcs;
    std::vector<TSACategory*> FSaved;
    bool FStarted = false;
};

void CheckSteps(const TSACategory& category) {
    if (category.StepCount > MostSteps) {
        throw ELotError(category.Name + ": more than " + std::to_string(MostSteps) + " steps");
    }
}

} // namespace

void TSAModel::Refresh() {
    FFirstAxis = SelectedCategories.empty() ? nullptr : SelectedCategories[0];
    FSecondAxis = SelectedCategories.size() < 2 ? nullptr : SelectedCategories[1];
    if (SwapXY && FFirstAxis != nullptr && FSecondAxis != nullptr) {
        std::swap(FFirstAxis, FSecondAxis);
    }
    for (TSACategory* const category : {FFirstAxis, FSecondAxis}) {
        if (category != nullptr) {
            category->Prepare();
        }
    }
}

void TSAModel::Calculate(TSAPage& page) {
    page.Cells.clear();
    page.RowLabels.clear();
    page.ColumnLabels.clear();
    if (FFirstAxis != nullptr && FSecondAxis != nullptr) {
        CalculateTwoAxes(page);
    } else if (FFirstAxis != nullptr) {
        CalculateOneAxis(page);
    }
}

void TSAModel::CalculateTwoAxes(TSAPage& page) {
    CheckSteps(*FFirstAxis);
    CheckSteps(*FSecondAxis);
    page.RowTitle = FFirstAxis->Name;
    page.ColumnTitle = FSecondAxis->Name;
    page.RowLabels = Labels(*FFirstAxis);
    page.ColumnLabels = Labels(*FSecondAxis);
    TBracket bracket(SelectedCalcs());
    bracket.Start();
    bracket.Save(*FFirstAxis);
    bracket.Save(*FSecondAxis);
    page.ResultTitle = ResultNames();
    page.RowsStepped = FFirstAxis->Step != 0;
    page.ColumnsStepped = FSecondAxis->Step != 0;
    TSAAxis rows(FFirstAxis);
    TSAAxis columns(FSecondAxis);
    for (rows.Reset(); rows.More(); rows.Next()) {
        std::vector<std::string>& cells = page.Cells.emplace_back();
        for (columns.Reset(); columns.More(); columns.Next()) {
            ComputeCell(columns, rows);
            cells.push_back(JoinedTexts(columns, rows));
        }
    }
    bracket.Close();
}

void TSAModel::CalculateOneAxis(TSAPage& page) {
    CheckSteps(*FFirstAxis);
    TBracket bracket(SelectedCalcs());
    bracket.Save(*FFirstAxis);
    bracket.Start();
    // Set and never cleared here: a page that is used again keeps it.
    page.RowsStepped = page.RowsStepped || FFirstAxis->Step != 0;
    page.ResultTitle.clear();
    page.RowTitle = FFirstAxis->Name;
    page.RowLabels = Labels(*FFirstAxis);
    for (const TSAResult* const result : SelectedResults) {
        page.ColumnLabels.push_back(result->Name);
    }
    const TSAAxis none(nullptr);
    TSAAxis rows(FFirstAxis);
    for (rows.Reset(); rows.More(); rows.Next()) {
        ComputeCell(none, rows);
        std::vector<std::string>& cells = page.Cells.emplace_back();
        for (const TSAResult* const result : SelectedResults) {
            cells.push_back(result->Text(none, rows, Locale));
        }
    }
    bracket.Close();
}

void TSAModel::Scenario(int rowIndex, int columnIndex, const std::function<void()>& command) {
    TBracket bracket(SelectedCalcs());
    bracket.Start();
    TSAAxis rows(FFirstAxis);
    TSAAxis columns(FSecondAxis);
    for (TSACategory* const category : {FFirstAxis, FSecondAxis}) {
        if (category != nullptr) {
            bracket.Save(*category);
        }
    }
    rows.MoveTo(rowIndex);
    columns.MoveTo(columnIndex);
    ComputeCell(columns, rows);
    command();
    bracket.Close();
}

void TSAModel::ComputeCell(const TSAAxis& axis1, const TSAAxis& axis2) {
    for (TSACalc* const calc : SelectedCalcs()) {
        calc->Calculate(axis1, axis2);
    }
    for (TSAResult* const result : SelectedResults) {
        result->Compute(axis1, axis2);
    }
}

std::vector<TSACalc*> TSAModel::SelectedCalcs() const {
    std::vector<TSACalc*> calcs;
    for (const TSAResult* const result : SelectedResults) {
        if (std::ranges::find(calcs, &result->Calc()) == calcs.end()) {
            calcs.push_back(&result->Calc());
        }
    }
    return calcs;
}

std::vector<std::string> TSAModel::Labels(const TSACategory& category) const {
    std::vector<std::string> labels;
    for (int i = 0; i < category.StepCount; ++i) {
        labels.push_back(category.Label(i, Locale));
    }
    return labels;
}

std::string TSAModel::ResultNames() const {
    std::string names;
    for (const TSAResult* const result : SelectedResults) {
        names += (names.empty() ? "" : ", ") + result->Name;
    }
    return names;
}

std::string TSAModel::JoinedTexts(const TSAAxis& axis1, const TSAAxis& axis2) const {
    std::string text;
    for (const TSAResult* const result : SelectedResults) {
        text += (result == SelectedResults.front() ? "" : "\r\n") + result->Text(axis1, axis2, Locale);
    }
    return text;
}
