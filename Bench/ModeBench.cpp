// ModeBench: what a load costs in each access mode, and how soon a cancel ends it.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
#include <initializer_list>
#include <memory>
#include <string>

#include "Figures.h"
#include "LoadedControl.h"
#include "automation_testing/FaultyObject.h"

namespace foldertree::bench {
namespace {

constexpr int64_t modes = 4;

const char* ModeName(int64_t mode) {
    static const char* const names[] = {"RDO tables", "RDO objects", "Outlook", "CDO"};
    return names[mode];
}

/// Every folder of the mailbox in that mode.
void LoadInMode(benchmark::State& state) {
    const auto mode = static_cast<enuInfoStoreAccessMode>(state.range(1));
    const std::string name = std::string("load, ") + ModeName(mode);
    state.SetLabel(ModeName(mode));
    Measure(
        state, name, [] { return std::unique_ptr<LoadedControl>(); },
        [&](std::unique_ptr<LoadedControl>& loaded) {
            const MailboxShape shape{.folders = static_cast<int32_t>(state.range(0))};
            loaded = std::make_unique<LoadedControl>(shape, 0, mode);
            if (loaded->control->ListCount() < shape.folders) state.SkipWithError("folders are missing");
        });
}

/// What a load asks of a session: uses of members, and steps of enumerations.
void OutsideCallsInMode(benchmark::State& state) {
    const auto mode = static_cast<enuInfoStoreAccessMode>(state.range(1));
    state.SetLabel(ModeName(mode));
    const auto calls = std::make_shared<automation::testing::FaultPlan>();
    const MailboxShape shape{.folders = static_cast<int32_t>(state.range(0))};
    LoadedControl loaded(calls->Wrap(MakeMemorySession(shape)), 0, mode);
    for (auto iteration : state) {
        static_cast<void>(iteration);
        calls->FailCall(0);  // counts from 1 again
        loaded.control->RefreshList();
    }
    state.counters["calls/folder"] = static_cast<double>(calls->Calls()) / shape.folders;
}

/// From a cancel inside a load to the end of that load, the longest of several.
double LongestCancel(LoadedControl& loaded, int64_t yields) {
    constexpr int64_t places = 5;
    double longest = 0;
    for (int64_t place = 1; place <= places; ++place) {
        const int64_t chosen = yields * place / (places + 1);
        std::clock_t cancelled = 0;  // processor time, which other work on the machine does not lengthen
        loaded.platform.yields = 0;
        loaded.platform.onYield = [&] {
            if (loaded.platform.yields != chosen) return;
            loaded.control->CancelLoad();
            cancelled = std::clock();
        };
        loaded.control->RefreshList();
        longest = std::max(longest, static_cast<double>(std::clock() - cancelled) / CLOCKS_PER_SEC);
        loaded.platform.onYield = nullptr;
    }
    return longest;
}

/// At five places of a load of the whole mailbox. The mailbox answers at once, so this is the control's share alone.
/// "flat": with as many folders again side by side in one folder, whose table delivers them all in one call.
void CancelInMode(benchmark::State& state) {
    const auto mode = static_cast<enuInfoStoreAccessMode>(state.range(1));
    const auto folders = static_cast<int32_t>(state.range(0));
    const bool flat = state.range(2) != 0;
    state.SetLabel(std::string(ModeName(mode)) + (flat ? ", flat" : ""));
    double longest = 0;
    for (auto iteration : state) {
        static_cast<void>(iteration);
        LoadedControl loaded({.folders = folders, .deepChildren = flat ? folders : 0}, 0, mode);
        loaded.platform.yields = 0;
        loaded.control->RefreshList();
        longest = std::max(longest, LongestCancel(loaded, loaded.platform.yields));
        state.SetIterationTime(longest);
    }
    state.counters["longest_ms"] = longest * 1000;
}

void EachMode(benchmark::internal::Benchmark* bench, std::initializer_list<int64_t> flat) {
    for (const int64_t folders : {small, large})
        for (int64_t mode = 0; mode < modes; ++mode)
            for (const int64_t shape : flat) bench->Args({folders, mode, shape});
    bench->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);
}

BENCHMARK(LoadInMode)->Apply([](auto* bench) { EachMode(bench, {0}); });
BENCHMARK(OutsideCallsInMode)->Apply([](auto* bench) {
    for (int64_t mode = 0; mode < modes; ++mode) bench->Args({10'000, mode});
    bench->Iterations(1)->Unit(benchmark::kMillisecond);
});
BENCHMARK(CancelInMode)->Apply([](auto* bench) { EachMode(bench, {0, 1}); });

}  // namespace
}  // namespace foldertree::bench
