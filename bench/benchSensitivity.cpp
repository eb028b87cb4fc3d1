// SPDX-License-Identifier: GPL-3.0-or-later
//
// Tables on the large example: what a person waits for.
#include "benchProject.h"
#include "sensitivity/lotSAModel.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

TSACategory& Choose(TSAModel& model, const std::string& name, double step, int count) {
    TSACategory& category = model.Categories[model.Categories.IndexOf(name)];
    category.Step = step;
    category.StepCount = count;
    model.SelectedCategories.push_back(&category);
    return category;
}

void RunTable(benchmark::State& state, const std::string& rows, double rowStep, int count) {
    const auto project = ExampleProject("large.lot");
    TlotSAModelNew model(*project, {});
    model.SelectedCategories.clear();
    Choose(model, rows, rowStep, count);
    Choose(model, "Build Rate", 10, count);
    for (auto step : state) {
        TSAPage page;
        model.Refresh();
        model.Calculate(page);
        benchmark::DoNotOptimize(page.Cells.data());
    }
}

void Table5x5(benchmark::State& state) {
    RunTable(state, "Yield", 0.1, 5);
}
BENCHMARK(Table5x5)->Unit(benchmark::kMillisecond);

/// Each cell solves its site value.
void Table11x11WithSolves(benchmark::State& state) {
    RunTable(state, "Profit On Cost", 0.5, 11);
}
BENCHMARK(Table11x11WithSolves)->Unit(benchmark::kMillisecond);

} // namespace
