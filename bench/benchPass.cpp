// SPDX-License-Identifier: GPL-3.0-or-later
//
// The pass and the residual search. The reference writes and sums the same rows once: what any calculation of this
// model must do at the least on this machine, so that ratios to it mean the same everywhere.
#include "benchAllocations.h"
#include "benchProject.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <vector>

namespace {

/// Months of all lines of the cashflow.
double Cells(const TlotProject& project) {
    double cells = 0;
    for (const TlotCashflowItem* const line : project.Cashflow.Items) {
        cells += line->Count();
    }
    return cells;
}

class TReferenceKernel {
public:
    explicit TReferenceKernel(const TlotProject& project) {
        for (const TlotCashflowItem* const line : project.Cashflow.Items) {
            FRows.emplace_back(static_cast<std::size_t>(line->Count()));
        }
        FTotal.resize(static_cast<std::size_t>(project.Cashflow.Total.Count()));
    }

    void Run() {
        std::fill(FTotal.begin(), FTotal.end(), 0.0);
        double amount = 1;
        for (std::vector<double>& row : FRows) {
            amount += 1;
            for (double& month : row) {
                month = amount;
            }
            benchmark::DoNotOptimize(row.data());
            benchmark::ClobberMemory();
            for (std::size_t i = 0; i < row.size(); ++i) {
                FTotal[i] += row[i];
            }
        }
        benchmark::DoNotOptimize(FTotal.data());
    }

private:
    std::vector<std::vector<double>> FRows;
    std::vector<double> FTotal;
};

void SetPassCounters(benchmark::State& state, const TlotProject& project, std::size_t allocations) {
    state.counters["lines"] = static_cast<double>(project.Cashflow.Items.size());
    state.counters["months"] = project.Cashflow.Total.Count();
    state.counters["allocations"] = static_cast<double>(allocations);
    state.counters["per_cell"] =
        benchmark::Counter(Cells(project), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void Reference(benchmark::State& state) {
    const auto project = ExampleProject("large.lot");
    TReferenceKernel kernel(*project);
    for (auto step : state) {
        kernel.Run();
    }
    SetPassCounters(state, *project, 0);
}
BENCHMARK(Reference)->Unit(benchmark::kMicrosecond);

void Calculate(benchmark::State& state) {
    const auto project = ExampleProject("large.lot");
    project->Calculate();
    const std::size_t before = AllocationCount();
    project->Calculate();
    const std::size_t allocations = AllocationCount() - before;
    for (auto step : state) {
        project->Calculate();
    }
    SetPassCounters(state, *project, allocations);
}
BENCHMARK(Calculate)->Unit(benchmark::kMicrosecond);

void ResidualOneStage(benchmark::State& state) {
    const auto project = ExampleProject("large.lot");
    for (auto step : state) {
        benchmark::DoNotOptimize(project->SolveSiteValue("PROFITONCOST", 20));
    }
}
BENCHMARK(ResidualOneStage)->Unit(benchmark::kMillisecond);

/// A profit that only a negative site value gives: the first stage runs to its limit, the second finds.
void ResidualBothStages(benchmark::State& state) {
    const auto project = ExampleProject("large.lot");
    project->CalcNegativeSiteValue = true;
    double answer = 0;
    for (auto step : state) {
        answer = project->SolveSiteValue("PROFITONCOST", 200);
    }
    state.counters["answer"] = answer;
}
BENCHMARK(ResidualBothStages)->Unit(benchmark::kMillisecond);

void CostPerCell(benchmark::State& state) {
    const auto project = MadeProject(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    for (auto step : state) {
        project->Calculate();
    }
    SetPassCounters(state, *project, 0);
}
BENCHMARK(CostPerCell)
    ->Unit(benchmark::kMicrosecond)
    ->ArgsProduct({{10, 30, 100, 300, 1000, 3000}, {120}})
    ->ArgsProduct({{300}, {12, 24, 60, 120, 360, 600}});

} // namespace
