// SelectionBench: what ticking, showing a selection, bulk selection and folding cost in the whole control.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <string>

#include "Figures.h"
#include "LoadedControl.h"
#include "automation/Collection.h"
#include "automation/KeyedCollection.h"

namespace foldertree::bench {
namespace {

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

/// One of the operations over all rows. `prepare` puts the control into the state that the operation changes; nothing
/// of it is measured.
template <class Prepare, class Work>
void WholeTree(benchmark::State& state, const char* name, Prepare&& prepare, Work&& work) {
    ctlFolderTree& control = *Loaded(state.range(0)).control;
    Measure(
        state, name,
        [&] {
            prepare(control);
            return 0;
        },
        [&](int) { work(control); });
    UntickAll(control);
    control.SetExtendToLevel(0);
}

void SelectAllRows(benchmark::State& state) {
    WholeTree(state, "SelectAll", UntickAll, [](ctlFolderTree& control) { control.SelectAll(); });
}

void SelectNoRow(benchmark::State& state) {
    WholeTree(
        state, "SelectNone", [](ctlFolderTree& control) { control.SelectAll(); },
        [](ctlFolderTree& control) { control.SelectNone(); });
}

void SelectMailFolders(benchmark::State& state) {
    WholeTree(state, "SelectByType", UntickAll,
              [](ctlFolderTree& control) { control.SelectByType(FTIMailItem, false); });
}

void CollapseAroundAThousandTicked(benchmark::State& state) {
    WholeTree(
        state, "CollapseToSelection",
        [](ctlFolderTree& control) { control.SetSelection(SavedSelection(control, 1000, 0)); },
        [](ctlFolderTree& control) { control.CollapseToSelection(); });
}

void CollapseAroundMailFolders(benchmark::State& state) {
    WholeTree(
        state, "CollapseToType", [](ctlFolderTree& control) { control.SetExtendToLevel(1); },
        [](ctlFolderTree& control) { control.CollapseToType(FTIMailItem); });
}

void FoldToLevelOne(benchmark::State& state) {
    WholeTree(
        state, "ExtendToLevel 1", [](ctlFolderTree& control) { control.SetExtendToLevel(0); },
        [](ctlFolderTree& control) { control.SetExtendToLevel(1); });
}

void UnfoldAllLevels(benchmark::State& state) {
    WholeTree(
        state, "ExtendToLevel 0", [](ctlFolderTree& control) { control.SetExtendToLevel(1); },
        [](ctlFolderTree& control) { control.SetExtendToLevel(0); });
}

void Times(benchmark::internal::Benchmark* benchmark, int iterations) {
    benchmark->Arg(small)->Arg(large)->Iterations(iterations)->UseManualTime()->Unit(benchmark::kMillisecond);
}
void TwentyTimes(benchmark::internal::Benchmark* benchmark) {
    Times(benchmark, 20);
}
void FiveTimes(benchmark::internal::Benchmark* benchmark) {
    Times(benchmark, 5);
}

BENCHMARK(TickOneOfAThousand)->Apply(TwentyTimes);
BENCHMARK(UntickOneOfAThousand)->Apply(TwentyTimes);
BENCHMARK(ApplyTenThousandItems)->Apply(FiveTimes);
BENCHMARK(RefreshTenThousandTicked)->Apply(FiveTimes);
BENCHMARK(SelectAllRows)->Apply(FiveTimes);
BENCHMARK(SelectNoRow)->Apply(FiveTimes);
BENCHMARK(SelectMailFolders)->Apply(FiveTimes);
BENCHMARK(CollapseAroundAThousandTicked)->Apply(FiveTimes);
BENCHMARK(CollapseAroundMailFolders)->Apply(FiveTimes);
BENCHMARK(FoldToLevelOne)->Apply(FiveTimes);
BENCHMARK(UnfoldAllLevels)->Apply(FiveTimes);

}  // namespace
}  // namespace foldertree::bench
