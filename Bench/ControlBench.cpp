// ControlBench: what a load, a tick, an expansion and the selection cost in the whole control.
#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Figures.h"
#include "MemoryMailbox.h"
#include "automation/Collection.h"
#include "automation/KeyedCollection.h"
#include "ctlFolderTree.h"
#include "shell/QuietHost.h"

namespace foldertree::bench {
namespace {

/// A platform without a screen that counts what the control does.
class CountingHost : public QuietHost, public automation::ObjectFactory {
  public:
    void Yield() override { ++yields; }
    void TraceLine(std::string_view line) override {
        ++lines;
        bytes += line.size();
    }
    automation::ObjectRef Create(std::string_view) override {
        throw automation::VbError(automation::errors::cannotCreate);
    }

    int64_t yields = 0;
    int64_t lines = 0;
    size_t bytes = 0;
};

struct LoadedControl {
    explicit LoadedControl(const MailboxShape& shape, int32_t level) : control(ctlFolderTree::Create(host, host)) {
        control->UserControl_InitProperties();
        control->SetRDOSessionRef(MakeMemorySession(shape));
        control->SetAllowIndexing(true);
        control->SetExtendToLevel(level);  // reads the tree
    }
    ~LoadedControl() { control->Close(); }

    CountingHost host;
    std::shared_ptr<ctlFolderTree> control;
};

/// A control that is loaded once and used by several benchmarks, which put back what they change.
LoadedControl& Loaded(int64_t folders) {
    static std::map<int64_t, std::unique_ptr<LoadedControl>> made;
    std::unique_ptr<LoadedControl>& loaded = made[folders];
    if (!loaded) loaded = std::make_unique<LoadedControl>(MailboxShape{.folders = static_cast<int32_t>(folders)}, 0);
    return *loaded;
}

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
            lines = static_cast<double>(loaded->host.lines);
        });
    state.counters["B/row"] = static_cast<double>(memory.total - memory.ownText) / rows;
    state.counters["lines/row"] = lines / rows;
}

/// Items for rows spread over the whole tree, as a host hands them back: identifiers only. Of each `absentEach` one
/// does not exist; 0 for none.
std::shared_ptr<automation::KeyedCollection> SavedSelection(ctlFolderTree& control, int32_t count, int32_t absentEach) {
    const TreeGrid& grid = control.Grid();
    const auto items = std::make_shared<automation::KeyedCollection>();
    const int32_t step = std::max(1, (grid.RowCount() - 1) / count);
    for (int32_t row = 2; items->Count() < count && row < grid.RowCount(); row += step) {
        std::string entryID = grid.CellText(row, colEntryID);
        if (entryID.empty()) continue;
        if (absentEach > 0 && items->Count() % absentEach == 0) entryID.back() = 'x';
        const ItemRef item = control.CreateSelItem(row, grid.CellText(row, colStoreID), entryID, "", "");
        item->SetIndex(items->Count() + 1);
        automation::Collection(items).Add(item, item->Key());
    }
    return items;
}

void UntickAll(ctlFolderTree& control) {
    control.SelectNone();
    control.SetSelection(nullptr);
}

/// Ticks or unticks one row while a thousand others are ticked.
void ToggleOneOfAThousand(benchmark::State& state, const char* name, bool tick) {
    ctlFolderTree& control = *Loaded(state.range(0)).control;
    control.SetSelection(SavedSelection(control, 1000, 0));
    const int32_t row = control.Grid().RowCount() / 2 + 3;
    GridInteraction user(control.Grid(), control);
    Measure(
        state, name,
        [&] {
            if ((control.Grid().CellValue(row, colSel) != 0) == tick) user.ToggleTick(row);
            return 0;
        },
        [&](int) { user.ToggleTick(row); });
    UntickAll(control);
}

void TickOneOfAThousand(benchmark::State& state) {
    ToggleOneOfAThousand(state, "tick", true);
}
void UntickOneOfAThousand(benchmark::State& state) {
    ToggleOneOfAThousand(state, "untick", false);
}

void ApplyTenThousandItems(benchmark::State& state) {
    ctlFolderTree& control = *Loaded(state.range(0)).control;
    Measure(
        state, "apply", [&] { return SavedSelection(control, 10'000, 2); },
        [&](const auto& items) { control.SetSelection(items); });
    UntickAll(control);
}

void RefreshTenThousandTicked(benchmark::State& state) {
    ctlFolderTree& control = *Loaded(state.range(0)).control;
    control.SetSelection(SavedSelection(control, 10'000, 0));
    Measure(
        state, "refresh",
        [&] {
            control.SetSelection(control.Selection());
            return 0;
        },
        [&](int) { benchmark::DoNotOptimize(control.Selection()); });
    UntickAll(control);
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

constexpr int64_t small = 100'000;
constexpr int64_t large = 1'000'000;

BENCHMARK(LoadAllFolders)->Arg(small)->Arg(large)->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(TickOneOfAThousand)->Arg(small)->Arg(large)->Iterations(20)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(UntickOneOfAThousand)->Arg(small)->Arg(large)->Iterations(20)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ApplyTenThousandItems)->Arg(small)->Arg(large)->Iterations(5)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(RefreshTenThousandTicked)
    ->Arg(small)
    ->Arg(large)
    ->Iterations(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(ExpandTenThousandChildren)
    ->Arg(small)
    ->Arg(large)
    ->Iterations(2)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace foldertree::bench
