// GridBench: what the bare grid costs: filling, inserting, finding and changing rows, and its dearest keys.
#include <benchmark/benchmark.h>

#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <string_view>
#include <vector>

#include "Figures.h"
#include "MailboxRows.h"
#include "accessible/AccessibleTree.h"
#include "interaction/GridInteraction.h"
#include "rows/TreeGrid.h"
#include "tests/SampleSchema.h"

namespace foldertree::bench {
namespace {

using namespace sample;

MailboxRows& Rows(int64_t folders) {
    static std::map<int64_t, std::unique_ptr<MailboxRows>> made;
    std::unique_ptr<MailboxRows>& rows = made[folders];
    if (!rows) rows = std::make_unique<MailboxRows>(static_cast<int32_t>(folders));
    return *rows;
}

/// The least that any load must do: each row's own text copied once, each entry identifier hashed and entered once.
struct Floor {
    static constexpr size_t blockSize = size_t{1} << 20;

    explicit Floor(size_t rows) {
        size_t size = 1;
        while (size < rows * 4) size *= 2;
        places.resize(size);
    }
    void Copy(std::string_view text) {
        if (used + text.size() > blockSize) {
            blocks.push_back(std::make_unique_for_overwrite<char[]>(blockSize));
            used = 0;
        }
        std::memcpy(blocks.back().get() + used, text.data(), text.size());
        used += text.size();
    }
    void Enter(std::string_view text) {
        size_t at = std::hash<std::string_view>()(text) & (places.size() - 1);
        while (places[at] != 0) at = (at + 1) & (places.size() - 1);
        places[at] = ++entered;
    }

    std::vector<std::unique_ptr<char[]>> blocks;
    size_t used = blockSize;
    std::vector<uint64_t> places;
    uint64_t entered = 0;
};

/// Writes the cells and looks of the grid's last row as the folder walk does.
void FillRow(TreeGrid& grid, int32_t row, const MailboxRow& from) {
    grid.SetRowHeight(row, 285);
    grid.SetCellText(row, colRowKind, from.level == 0 ? "Store" : "Folder");
    grid.SetCellText(row, colName, from.name);
    grid.SetCellText(row, colStoreID, from.storeId);
    if (from.level > 0) {
        grid.SetCellText(row, colItemType, "0");
        grid.SetCellText(row, colEntryID, from.entryId);
        grid.SetCellText(row, colEntryIDShort, from.shortEntryId);
        grid.SetCellText(row, colPath, from.path);
        grid.SetCellText(row, colKey, from.key);
    }
    grid.SetRowOutlineLevel(row, from.level);
    grid.SetIsNode(row, true);
    grid.SetCellFormat(CellSetting::Picture, row, colName, 4);
    grid.SetCellFormat(CellSetting::PictureAlignment, row, colName, 1);
}

void Fill(TreeGrid& grid, MailboxRows& rows) {
    for (int32_t index = 0; index < rows.Count(); ++index) {
        const int32_t row = grid.RowCount();
        grid.SetRowCount(row + 1);
        FillRow(grid, row, rows.Row(index));
    }
}

/// A grid that is filled once and used by several benchmarks, which put back what they change.
TreeGrid& FilledGrid(int64_t folders) {
    static std::map<int64_t, std::unique_ptr<TreeGrid>> made;
    std::unique_ptr<TreeGrid>& grid = made[folders];
    if (!grid) {
        grid = std::make_unique<TreeGrid>(sample::schema);
        Fill(*grid, Rows(folders));
    }
    return *grid;
}

std::vector<std::string> SomeKeys(int64_t folders, int32_t count) {
    MailboxRows& rows = Rows(folders);
    std::vector<std::string> keys;
    for (int32_t each = 0; each < count; ++each) {
        // Spread over all stores, in no order.
        const int64_t index = (int64_t{each} * 7919 + 1) * 613 % rows.Count();
        if (std::string key = rows.KeyOf(static_cast<int32_t>(index)); !key.empty()) keys.push_back(std::move(key));
    }
    return keys;
}

void FloorOfALoad(benchmark::State& state) {
    MailboxRows& rows = Rows(state.range(0));
    Measure(
        state, "floor", [] { return std::unique_ptr<Floor>(); },
        [&](std::unique_ptr<Floor>& floor) {
            floor = std::make_unique<Floor>(static_cast<size_t>(rows.Count()));
            for (int32_t index = 0; index < rows.Count(); ++index) {
                const MailboxRow row = rows.Row(index);
                for (const std::string_view text : {row.name, row.path, row.entryId, row.shortEntryId})
                    floor->Copy(text);
                floor->Enter(row.entryId);
            }
        });
}

void FillTheGrid(benchmark::State& state) {
    MailboxRows& rows = Rows(state.range(0));
    TreeGrid::Memory memory;
    Measure(
        state, "fill", [] { return std::make_unique<TreeGrid>(sample::schema); },
        [&](std::unique_ptr<TreeGrid>& grid) {
            Fill(*grid, rows);
            memory = grid->MemoryUse();
        });
    ShowRatio(state, "fill", "floor");
    state.counters["B/row"] = static_cast<double>(memory.total - rows.OwnTextBytes()) / rows.Count();
}

void InsertRowsInTheMiddle(benchmark::State& state) {
    constexpr int32_t inserted = 10'000;
    TreeGrid& grid = FilledGrid(state.range(0));
    MailboxRows& rows = Rows(inserted * 10);  // other identifiers would measure the same
    const int32_t node = grid.RowCount() / 2;
    for (auto iteration : state) {
        static_cast<void>(iteration);
        const auto start = std::chrono::steady_clock::now();
        for (int32_t index = 0; index < inserted; ++index) {
            const int32_t row = grid.AddRow("", node + 1 + index);
            FillRow(grid, row, rows.Row(index + 1));
        }
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(taken.count());
        Remember("insert", state.range(0), taken.count());
        for (int32_t index = 0; index < inserted; ++index) grid.RemoveRow(node + 1);
    }
    state.counters["best_ms"] = Best("insert", state.range(0)) * 1000;
    ShowGrowth(state, "insert");
}

void FindRowsByKey(benchmark::State& state) {
    const TreeGrid& grid = FilledGrid(state.range(0));
    const std::vector<std::string> keys = SomeKeys(state.range(0), 2000);
    Measure(
        state, "find 2000", [] { return int64_t{0}; },
        [&](int64_t& sum) {
            for (const std::string& key : keys) sum += grid.FindRow(key);
            benchmark::DoNotOptimize(sum);
        });
    state.counters["ns/call"] = Best("find 2000", state.range(0)) * 1e9 / static_cast<double>(keys.size());
}

void TickARow(benchmark::State& state) {
    TreeGrid& grid = FilledGrid(state.range(0));
    int32_t row = 1;
    for (auto iteration : state) {
        static_cast<void>(iteration);
        grid.SetCellText(row, colSel, "-1");
        grid.SetCellText(row, colSel, "0");
        row = row % 100 + 1;
    }
    for (row = 1; row <= 100; ++row) grid.SetCellText(row, colSel, "");
}

void PaintARow(benchmark::State& state) {
    TreeGrid& grid = FilledGrid(state.range(0));
    int32_t row = 1;
    for (auto iteration : state) {
        static_cast<void>(iteration);
        grid.SetCellFormat(CellSetting::BackColor, row, colName, row, colKey, 0x0000FFFFu);
        grid.SetCellFormat(CellSetting::BackColor, row, colName, row, colKey, colors::window);
        row = row % 100 + 1;
    }
}

void FindTheFirstOfRowsThatShareOneKey(benchmark::State& state) {
    static std::map<int64_t, std::unique_ptr<TreeGrid>> made;
    std::unique_ptr<TreeGrid>& grid = made[state.range(0)];
    if (!grid) {
        grid = std::make_unique<TreeGrid>(sample::schema);
        for (int64_t row = 1; row <= state.range(0); ++row) {
            grid->SetRowCount(static_cast<int32_t>(row + 1));
            grid->SetCellText(static_cast<int32_t>(row), colKey, "Shared");
        }
    }
    for (auto iteration : state) {
        static_cast<void>(iteration);
        benchmark::DoNotOptimize(grid->FindRow("SHARED"));
    }
}

/// A window paints while a load goes on: 50 visible rows are looked at after each appended row.
void LookAtAScreenWhileALoadAppends(benchmark::State& state) {
    TreeGrid grid{sample::schema};
    Fill(grid, Rows(state.range(0)));
    grid.VisibleCount();
    for (auto iteration : state) {
        static_cast<void>(iteration);
        grid.SetRowCount(grid.RowCount() + 1);
        int32_t sum = grid.VisibleCount();
        for (int32_t position = 0; position < 50; ++position) sum += grid.VisibleRow(position);
        benchmark::DoNotOptimize(sum);
    }
}

void WorkOutAllVisibleRows(benchmark::State& state) {
    TreeGrid& grid = FilledGrid(state.range(0));
    Measure(
        state, "visible",
        [&] {
            grid.SetNodeState(1, nodeCollapsed);
            grid.SetNodeState(1, nodeExpanded);
            return int32_t{0};
        },
        [&](int32_t& count) { count = grid.VisibleCount(); });
}

// ---- Keys

class NoEvents : public GridEvents {
  public:
    void fgd_BeforeEdit(int32_t, int32_t, bool&) override {}
    void fgd_ValidateEdit(int32_t, int32_t, bool&) override {}
    void fgd_AfterEdit(int32_t, int32_t) override {}
    void fgd_BeforeCollapse(int32_t, int16_t, bool&) override {}
    void fgd_DblClick() override {}
};

/// The dearest character: all names begin like the word, and none goes on like it.
void TypeACharacterThatNoNameGoesOnWith(benchmark::State& state) {
    TreeGrid& grid = FilledGrid(state.range(0));
    Measure(
        state, "type",
        [&] {
            TypeAhead typeAhead;
            for (const char32_t letter : std::u32string_view(U"folder ")) typeAhead.Add(grid, letter);
            return typeAhead;
        },
        [&](TypeAhead& typeAhead) {
            if (typeAhead.Add(grid, U'~') != 0) state.SkipWithError("a name goes on with it");
        });
}

/// A tenth of all rows, every hundredth of them a node, with the rows that are then shown.
void CloseAndOpenABranch(benchmark::State& state) {
    TreeGrid& grid = FilledGrid(state.range(0));
    NoEvents events;
    GridInteraction interaction(grid, events);
    grid.SetCurrentRow(1);
    Measure(
        state, "branch", [&] { return grid.VisibleCount(); },
        [&](int32_t& count) {
            interaction.Type(U'/');
            if (grid.VisibleCount() >= count) state.SkipWithError("nothing was closed");
            interaction.Type(U'*');
            if (grid.VisibleCount() != count) state.SkipWithError("not all was opened");
        });
}

/// The row's parent is looked for in all rows above it.
void GoToTheParentOfTheLastStore(benchmark::State& state) {
    TreeGrid& grid = FilledGrid(state.range(0));
    NoEvents events;
    GridInteraction interaction(grid, events);
    int32_t last = grid.RowCount() - 1;
    while (grid.RowOutlineLevel(last) != 0) --last;
    grid.SetCurrentRow(last);
    Measure(
        state, "parent", [] { return 0; }, [&](int&) { interaction.Press(GridKey::Parent, false); });
    grid.SetCurrentRow(1);
}

// ---- What assistive programs cost, and what their absence costs (TickARow)

class SomeView final : public AccessibleView {
  public:
    bool Focused() const override { return true; }
    bool InView(int32_t) const override { return true; }
};

/// Each shown row's number, name, value, description, state and action, as a program that reads everything asks.
void ReadAllRowsAsAScreenReader(benchmark::State& state) {
    TreeGrid& grid = FilledGrid(state.range(0));
    const RowHasBox hasBox;
    const SomeView view;
    size_t memory = 0;
    Measure(
        state, "read all", [] { return size_t{0}; },
        [&](size_t& sum) {
            AccessibleTree tree(grid, hasBox, view, NoAccessibleHost());
            for (int32_t position = 0; position < tree.ChildCount(); ++position) {
                const int32_t row = tree.RowOf(tree.IdOf(tree.RowAt(position)));
                sum += tree.RowName(row).size() + tree.RowValue(row).size() + tree.RowDescription(row).size();
                sum += size_t{tree.RowState(row).checked};
                sum += TextOf(tree.RowAction(row)).size();
            }
            benchmark::DoNotOptimize(sum);
            memory = tree.MemoryUse();
        });
    state.counters["ns/row"] = Best("read all", state.range(0)) * 1e9 / grid.VisibleCount();
    state.counters["B/row"] = static_cast<double>(memory) / grid.VisibleCount();
}

/// Position and size of set of a row that has all others as its siblings.
void FindAPlaceAmongSiblings(benchmark::State& state) {
    TreeGrid grid{sample::schema};
    grid.SetRowCount(static_cast<int32_t>(state.range(0)) + 1);
    const RowHasBox hasBox;
    const SomeView view;
    AccessibleTree tree(grid, hasBox, view, NoAccessibleHost());
    int32_t row = 1;
    for (auto iteration : state) {
        static_cast<void>(iteration);
        benchmark::DoNotOptimize(tree.PositionInSet(row) + tree.SizeOfSet(row));
        row = (row + 7919) % (grid.RowCount() - 1) + 1;
    }
}

constexpr int64_t small = 100'000;
constexpr int64_t large = 1'000'000;

BENCHMARK(FloorOfALoad)->Arg(small)->Arg(large)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(FillTheGrid)->Arg(small)->Arg(large)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(InsertRowsInTheMiddle)->Arg(small)->Arg(large)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(FindRowsByKey)->Arg(small)->Arg(large)->UseManualTime()->Iterations(20)->Unit(benchmark::kMillisecond);
BENCHMARK(TickARow)->Arg(small)->Arg(large);
BENCHMARK(PaintARow)->Arg(small)->Arg(large);
BENCHMARK(ReadAllRowsAsAScreenReader)
    ->Arg(small)
    ->Arg(large)
    ->UseManualTime()
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(FindAPlaceAmongSiblings)->Arg(small)->Arg(large);
BENCHMARK(FindTheFirstOfRowsThatShareOneKey)->Arg(small)->Arg(large);
BENCHMARK(LookAtAScreenWhileALoadAppends)->Arg(small)->Arg(large)->Iterations(20'000);
BENCHMARK(WorkOutAllVisibleRows)->Arg(small)->Arg(large)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(TypeACharacterThatNoNameGoesOnWith)
    ->Arg(small)
    ->Arg(large)
    ->UseManualTime()
    ->Iterations(10)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(CloseAndOpenABranch)->Arg(small)->Arg(large)->UseManualTime()->Iterations(10)->Unit(benchmark::kMillisecond);
BENCHMARK(GoToTheParentOfTheLastStore)
    ->Arg(small)
    ->Arg(large)
    ->UseManualTime()
    ->Iterations(10)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace foldertree::bench
