// SPDX-License-Identifier: GPL-3.0-or-later
#include "sensitivity/SAMain.h"

#include "common/vipErrors.h"

#include <algorithm>
#include <utility>

namespace {

/// A longer axis makes a table that nobody reads and that may fill the memory; a file may ask for any number of steps.
constexpr std::int32_t MostSteps = 1000;

/// Brackets a table: when it ends, also by an exception, each category saved in it is restored and then each
/// calculation started in it is finished.
class TBracket {
public:
    explicit TBracket(std::vector<TSACalc*> calcs) : FCalcs(std::move(calcs)) {}
    TBracket(const TBracket&) = delete;
    TBracket& operator=(const TBracket&) = delete;
    ~TBracket() {
        // There is something left to close only where an exception is on its way to whoever reports it; a second one,
        // from putting back, would end the program.
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
    FRows = SelectedCategories.empty() ? nullptr : SelectedCategories[0];
    FColumns = SelectedCategories.size() < 2 ? nullptr : SelectedCategories[1];
    if (SwapXY && FRows != nullptr && FColumns != nullptr) {
        std::swap(FRows, FColumns);
    }
    for (TSACategory* const category : {FRows, FColumns}) {
        if (category != nullptr) {
            category->Prepare();
        }
    }
}

void TSAModel::CheckOrder(std::span<const std::string_view> told) const {
    const TSACategory* before = nullptr;
    int checked = 0;
    for (const std::string_view name : told) {
        const int index = Categories.IndexOf(name);
        if (index < 0) {
            continue;
        }
        const TSACategory& category = Categories[index];
        if (before != nullptr && category.Place <= before->Place) {
            throw ELotError(category.Name + " must be applied after " + before->Name);
        }
        before = &category;
        ++checked;
    }
    if (checked != Categories.Count()) {
        throw ELotError("A category has no place in the order of application");
    }
}

void TSAModel::Calculate(TSAPage& page) {
    page.Cells.clear();
    page.RowLabels.clear();
    page.ColumnLabels.clear();
    if (FRows != nullptr && FColumns != nullptr) {
        CalculateTwoAxes(page);
    } else if (FRows != nullptr) {
        CalculateOneAxis(page);
    }
}

void TSAModel::CalculateTwoAxes(TSAPage& page) {
    CheckSteps(*FRows);
    CheckSteps(*FColumns);
    page.RowTitle = FRows->Name;
    page.ColumnTitle = FColumns->Name;
    page.RowLabels = Labels(*FRows);
    page.ColumnLabels = Labels(*FColumns);
    TBracket bracket(SelectedCalcs());
    bracket.Start();
    bracket.Save(*FRows);
    bracket.Save(*FColumns);
    page.ResultTitle = ResultNames();
    page.RowsStepped = FRows->Step != 0;
    page.ColumnsStepped = FColumns->Step != 0;
    TSAAxis rows(FRows);
    TSAAxis columns(FColumns);
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
    CheckSteps(*FRows);
    TBracket bracket(SelectedCalcs());
    bracket.Save(*FRows);
    bracket.Start();
    // Not cleared for a step of 0: a page that is computed again keeps the flag of its earlier tables.
    page.RowsStepped = page.RowsStepped || FRows->Step != 0;
    page.ResultTitle.clear();
    page.RowTitle = FRows->Name;
    page.RowLabels = Labels(*FRows);
    for (const TSAResult* const result : SelectedResults) {
        page.ColumnLabels.push_back(result->Name);
    }
    const TSAAxis none(nullptr);
    TSAAxis rows(FRows);
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
    TSAAxis rows(FRows);
    TSAAxis columns(FColumns);
    for (TSACategory* const category : {FRows, FColumns}) {
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

void TSAModel::ComputeCell(const TSAAxis& columns, const TSAAxis& rows) {
    for (TSACalc* const calc : SelectedCalcs()) {
        calc->Calculate(columns, rows);
    }
    for (TSAResult* const result : SelectedResults) {
        result->Compute(columns, rows);
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

std::string TSAModel::JoinedTexts(const TSAAxis& columns, const TSAAxis& rows) const {
    std::string text;
    for (const TSAResult* const result : SelectedResults) {
        text += (result == SelectedResults.front() ? "" : "\r\n") + result->Text(columns, rows, Locale);
    }
    return text;
}
