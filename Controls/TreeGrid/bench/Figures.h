// Figures: the best time of each benchmark of this run, so that another one can say how it compares.
#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdint>
#include <string>

namespace foldertree::bench {

/// Runs the benchmark's iterations. `prepare()` makes what an iteration works on and is not measured, nor is its end;
/// `work(prepared)` is measured. Remembers the best time under the name and the state's first argument and shows it as
/// "best_ms".
template <class Prepare, class Work>
void Measure(benchmark::State& state, const std::string& name, Prepare&& prepare, Work&& work);

/// Remembers a time, if it is the best one yet.
void Remember(const std::string& name, int64_t size, double seconds);
/// The best time in seconds; 0 when the benchmark was not run.
double Best(const std::string& name, int64_t size);

/// Counter "growth": this size's best time over that of a tenth of the size.
void ShowGrowth(benchmark::State& state, const std::string& name);
/// Counter "of_floor": the best time over that of another benchmark at the same size.
void ShowRatio(benchmark::State& state, const std::string& name, const std::string& floor);

template <class Prepare, class Work>
void Measure(benchmark::State& state, const std::string& name, Prepare&& prepare, Work&& work) {
    for (auto iteration : state) {
        static_cast<void>(iteration);
        auto prepared = prepare();
        const auto start = std::chrono::steady_clock::now();
        work(prepared);
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(taken.count());
        Remember(name, state.range(0), taken.count());
    }
    state.counters["best_ms"] = Best(name, state.range(0)) * 1000;
    ShowGrowth(state, name);
}

}  // namespace foldertree::bench
