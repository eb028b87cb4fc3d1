// SPDX-License-Identifier: GPL-3.0-or-later
//
// Loading and saving the large example.
#include "benchProject.h"
#include "persistence/lotReader.h"
#include "persistence/lotWriter.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <stdexcept>

namespace {

void Load(benchmark::State& state) {
    const std::string text = ExampleText("large.lot");
    TlotProject project(46'000);
    for (auto step : state) {
        TlotReader reader(false, {}, 46'000);
        if (!reader.LoadFromMemory(text, "large.lot") || !reader.Read(project)) {
            throw std::runtime_error("cannot read large.lot");
        }
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(Load)->Unit(benchmark::kMillisecond);

void Write(benchmark::State& state) {
    const auto project = ExampleProject("large.lot");
    std::size_t bytes = 0;
    for (auto step : state) {
        TlotWriter writer(false, {});
        writer.Write(*project);
        bytes = writer.ToText().size();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}
BENCHMARK(Write)->Unit(benchmark::kMillisecond);

/// With the flush to disk, which depends on the disk more than on us.
void Save(benchmark::State& state) {
    const auto project = ExampleProject("large.lot");
    const std::string name = "bench-save.lot";
    for (auto step : state) {
        TlotWriter writer(false, {});
        writer.Write(*project);
        benchmark::DoNotOptimize(writer.SaveToFile(name));
    }
    std::remove(name.c_str());
}
BENCHMARK(Save)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
