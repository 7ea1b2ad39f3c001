// LoadBench: what a load and an expansion cost in the whole control.
#include <benchmark/benchmark.h>

#include <chrono>
#include <memory>

#include "Figures.h"
#include "LoadedControl.h"

namespace foldertree::bench {
namespace {

void LoadAllFolders(benchmark::State& state) {
    TreeGrid::Memory memory;
    double rows = 1;
    double lines = 0;
    Measure(
        state, "load", [] { return std::unique_ptr<LoadedControl>(); },
        [&](std::unique_ptr<LoadedControl>& loaded) {
            loaded = std::make_unique<LoadedControl>(MailboxShape{.folders = static_cast<int32_t>(state.range(0))}, 0);
            memory = loaded->control->Grid().MemoryUse();
            rows = loaded->control->ListCount();
            lines = static_cast<double>(loaded->platform.lines);
        });
    state.counters["B/row"] = static_cast<double>(memory.total - memory.ownText) / rows;
    state.counters["lines/row"] = lines / rows;
}

void ExpandTenThousandChildren(benchmark::State& state) {
    const MailboxShape shape{.folders = static_cast<int32_t>(state.range(0)), .deepChildren = 10'000};
    for (auto iteration : state) {
        static_cast<void>(iteration);
        LoadedControl loaded(shape, 2);
        TreeGrid& grid = loaded.control->Grid();
        const int32_t row = grid.FindRow(DeepFolderPath(), 1, colPath);
        const int32_t before = grid.RowCount();
        const auto start = std::chrono::steady_clock::now();
        GridInteraction(grid, *loaded.control).SetNode(row, true);
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        if (grid.RowCount() != before - 1 + shape.deepChildren) state.SkipWithError("the node was not read");
        state.SetIterationTime(taken.count());
        Remember("expand", state.range(0), taken.count());
    }
    state.counters["best_ms"] = Best("expand", state.range(0)) * 1000;
    ShowGrowth(state, "expand");
}

BENCHMARK(LoadAllFolders)->Arg(small)->Arg(large)->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ExpandTenThousandChildren)
    ->Arg(small)
    ->Arg(large)
    ->Iterations(2)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace foldertree::bench
