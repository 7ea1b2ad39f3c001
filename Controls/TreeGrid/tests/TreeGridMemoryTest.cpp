// TreeGridMemoryTest: each operation of the grid when memory runs out at each of its allocations: it fails as a whole,
// or works; the content is compared with the plain grid's.
#include <gtest/gtest.h>

#include <functional>
#include <new>

#include "PlainGrid.h"
#include "automation_testing/FailingMemory.h"

namespace foldertree::testing {
namespace {

using namespace sample;

using automation::testing::FailEachAllocation;
using automation::testing::FailingMemory;
using automation::testing::MemoryPlan;

/// Longer than a text that needs no memory of its own.
std::string Long(const std::string& text) {
    return text + std::string(40, '.') + text;
}

/// A grid and the plain one, changed alike.
struct Pair {
    TreeGrid grid{sample::schema};
    PlainGrid plain;

    void Write(int32_t row, int col, const std::string& text) {
        grid.SetCellText(row, col, text);
        plain.Row(row).cells[static_cast<size_t>(col)] = text;
    }
    void Format(CellSetting setting, int32_t row1, int32_t row2, uint32_t value) {
        grid.SetCellFormat(setting, row1, 0, row2, 13, value);
        plain.SetFormat(setting, row1, 0, row2, 13, value);
    }
    void SetRowCount(int32_t count) {
        grid.SetRowCount(count);
        plain.SetRowCount(count);
    }
    /// Rows of all kinds: keys made of their parts, in ASCII and beyond; keys that several rows share; own keys; none.
    void Fill(int32_t rows) {
        SetRowCount(1 + rows);
        for (int32_t row = 1; row <= rows; ++row) {
            const std::string number = std::to_string(row);
            const std::string store = row % 7 == 3 ? "\xC3\x84" : "STORE" + std::to_string(row % 2);
            Write(row, colName, Long("name " + number));
            Write(row, colRowKind, Long(row % 5 == 0 ? "other" : "kind"));
            Write(row, colStoreID, Long(store));
            Write(row, colEntryID, row % 6 == 0 ? "twice" : Long(number));
            if (row % 4 != 1) Write(row, colKey, "S" + Long(store) + "|" + plain.Row(row).cells[colEntryID]);
            if (row % 8 == 1) Write(row, colKey, Long("\xC3\x9C" + std::to_string(row % 16)));
            Format(CellSetting::ForeColor, row, row, static_cast<uint32_t>(row % 9));
            const auto level = static_cast<int16_t>(row % 3);
            grid.SetRowOutlineLevel(row, level);
            plain.Row(row).level = level;
        }
        grid.SetCurrentRow(rows / 2);
        plain.currentRow = rows / 2;
    }
};

struct Operation {
    const char* name;
    std::function<void(TreeGrid&)> act;
    std::function<void(PlainGrid&)> effect;
};

Operation Writing(const char* name, int32_t row, int col, const std::string& text) {
    return {name, [=](TreeGrid& grid) { grid.SetCellText(row, col, text); },
            [=](PlainGrid& plain) { plain.Row(row).cells[static_cast<size_t>(col)] = text; }};
}

Operation Formatting(const char* name, int32_t row1, int32_t row2, uint32_t value) {
    return {name, [=](TreeGrid& grid) { grid.SetCellFormat(CellSetting::BackColor, row1, 2, row2, 5, value); },
            [=](PlainGrid& plain) { plain.SetFormat(CellSetting::BackColor, row1, 2, row2, 5, value); }};
}

Operation Counting(const char* name, int32_t count) {
    return {name, [=](TreeGrid& grid) { grid.SetRowCount(count); },
            [=](PlainGrid& plain) { plain.SetRowCount(count); }};
}

constexpr int32_t someRows = 45;

const std::vector<Operation>& Operations() {
    static const std::vector<Operation> operations = {
        Writing("an own text", 5, colName, Long("new")),
        Writing("an own text that ends", 5, colName, ""),
        Writing("a shared text that is there", 5, colRowKind, Long("other")),
        Writing("a new shared text", 6, colRowKind, Long("a third")),
        Writing("a tick", 7, colSel, "-1"),
        Writing("a number", 7, colIndex, Long("12")),
        Writing("a store behind a made key", 8, colStoreID, Long("moved")),
        Writing("an entry behind a made key", 8, colEntryID, Long("moved")),
        Writing("an entry behind a key of its own", 9, colEntryID, Long("moved")),
        Writing("a key of its own", 5, colKey, Long("key")),
        Writing("another key for a made one", 8, colKey, Long("key")),
        Writing("a made key", 5, colKey, "S" + Long("STORE1") + "|" + Long("5")),
        Writing("a key that another row has", 5, colKey, "S" + Long("STORE0") + "|" + Long("8")),
        Writing("a key that several rows have", 5, colKey, "s" + Long("store0") + "|twice"),
        Writing("a key beyond ASCII that others have", 5, colKey, Long("\xC3\xBC" + std::string("1"))),
        Writing("a key away from others", 12, colKey, Long("alone")),
        Writing("a key in other letters", 8, colKey, "s" + Long("store0") + "|" + Long("8")),
        Writing("no key", 12, colKey, ""),
        Formatting("one look", 4, 4, 77),
        Formatting("many looks", 2, 40, 77),
        Formatting("looks that are there", 2, 40, 0),
        {"a height", [](TreeGrid& grid) { grid.SetRowHeight(3, 99); },
         [](PlainGrid& plain) { plain.Row(3).height = 99; }},
        {"a row at the end", [](TreeGrid& grid) { grid.AddRow(Long("text")); },
         [](PlainGrid& plain) { plain.InsertRow(plain.Count(), Long("text")); }},
        {"a row in the middle", [](TreeGrid& grid) { grid.AddRow(Long("text"), 10); },
         [](PlainGrid& plain) { plain.InsertRow(10, Long("text")); }},
        Counting("some more rows", someRows + 10),
        Counting("many more rows", someRows + 1100),
        Counting("fewer rows", 10),
        Counting("no rows", 1),
        {"a row less", [](TreeGrid& grid) { grid.RemoveRow(12); }, [](PlainGrid& plain) { plain.RemoveRow(12); }},
        {"the cursor's row less", [](TreeGrid& grid) { grid.RemoveRow(someRows / 2); },
         [](PlainGrid& plain) { plain.RemoveRow(someRows / 2); }},
        {"a level", [](TreeGrid& grid) { grid.SetRowOutlineLevel(8, 7); },
         [](PlainGrid& plain) { plain.Row(8).level = 7; }},
        {"a closed node",
         [](TreeGrid& grid) {
             grid.SetIsNode(6, true);
             grid.SetNodeState(6, nodeCollapsed);
         },
         [](PlainGrid& plain) {
             plain.Row(6).isNode = true;
             plain.Row(6).nodeState = nodeCollapsed;
         }},
        {"the cursor", [](TreeGrid& grid) { grid.SetCurrentRow(4); }, [](PlainGrid& plain) { plain.currentRow = 4; }},
        {"a look at the outline", [](TreeGrid& grid) { grid.VisibleCount(); }, [](PlainGrid&) {}},
        {"a search by key", [](TreeGrid& grid) { grid.FindRow("s" + Long("store0") + "|" + Long("8")); },
         [](PlainGrid&) {}},
        {"a search by name", [](TreeGrid& grid) { grid.FindRow(Long("NAME 9"), 3, colName); }, [](PlainGrid&) {}},
    };
    return operations;
}

/// Whether the action threw std::bad_alloc, and how many allocations were refused.
struct Outcome {
    bool failed = false;
    int64_t refused = 0;
};
template <class Action>
Outcome Try(const MemoryPlan& plan, Action&& action) {
    Outcome outcome;
    const FailingMemory memory(plan);
    try {
        action();
    } catch (const std::bad_alloc&) {
        outcome.failed = true;
    }
    outcome.refused = memory.Refused();
    return outcome;
}

/// A grid of that many rows, the operation without memory, the comparison; then again with memory.
Outcome TryOnce(const Operation& operation, int32_t rows, const MemoryPlan& plan) {
    Pair pair;
    pair.Fill(rows);
    const RowHandle third = pair.grid.HandleOf(3);
    const int64_t thirdId = pair.plain.Row(3).id;
    const Outcome outcome = Try(plan, [&] { operation.act(pair.grid); });
    EXPECT_LE(outcome.failed, outcome.refused > 0);
    if (outcome.failed) {
        CompareGrids(pair.grid, pair.plain);
        operation.act(pair.grid);
    }
    operation.effect(pair.plain);
    CompareGrids(pair.grid, pair.plain);
    EXPECT_EQ(pair.grid.RowOf(third), pair.plain.RowWithId(thirdId));
    return outcome;
}

TEST(TreeGridWithoutMemory, EveryOperationHappensWhollyOrNotAtAll) {
    int64_t failures = 0;
    for (const Operation& operation : Operations()) {
        for (const bool andAllAfter : {false, true}) {
            SCOPED_TRACE(operation.name);
            failures += FailEachAllocation(andAllAfter, [&](const MemoryPlan& plan) {
                return TryOnce(operation, someRows, plan).refused > 0 && !::testing::Test::HasFailure();
            });
            if (::testing::Test::HasFailure()) return;
        }
    }
    std::printf("%lld allocations failed\n", static_cast<long long>(failures));
    EXPECT_GT(failures, 100);
}

// The chunks, blocks and tables grow at these sizes or near them.
TEST(TreeGridWithoutMemory, OperationsWhereTablesGrowHappenWhollyOrNotAtAll) {
    const Operation row = {"a row in the middle", [](TreeGrid& grid) { grid.AddRow(Long("text"), 10); },
                           [](PlainGrid& plain) { plain.InsertRow(10, Long("text")); }};
    const Operation key = Writing("a key of its own", 5, colKey, Long("key"));
    for (int32_t rows : {47, 48, 63, 64, 95, 96, 255, 256, 1022, 1023}) {
        for (const Operation* operation : {&row, &key}) {
            SCOPED_TRACE(std::string(operation->name) + ", " + std::to_string(rows) + " rows");
            FailEachAllocation(true, [&](const MemoryPlan& plan) {
                return TryOnce(*operation, rows, plan).refused > 0 && !::testing::Test::HasFailure();
            });
            if (::testing::Test::HasFailure()) return;
        }
    }
}

TEST(TreeGridWithoutMemory, ARowWhoseNewKeyIsSharedAndCannotBeEnteredIsFoundByItsOldKey) {
    for (const Operation& operation : Operations()) {
        const std::string_view name = operation.name;
        if (name != "a key that another row has" && name != "a key that several rows have") continue;
        SCOPED_TRACE(operation.name);
        const int64_t failures = FailEachAllocation(false, [&](const MemoryPlan& plan) {
            return TryOnce(operation, someRows, plan).failed && !::testing::Test::HasFailure();
        });
        EXPECT_GT(failures, 1);
    }
}

TEST(TreeGridWithoutMemory, RowsAreRemovedAndTheTreeIsEmptied) {
    for (const char* name : {"fewer rows", "no rows", "a row less", "the cursor's row less"}) {
        for (const Operation& operation : Operations()) {
            if (std::string_view(operation.name) != name) continue;
            EXPECT_FALSE(TryOnce(operation, someRows, {1, true}).failed) << name;
        }
    }
}

/// So much text was overwritten that one text more or a row less makes the grid copy what is left.
void WasteText(Pair& pair) {
    constexpr int32_t rows = 300;
    pair.Fill(rows);
    for (int32_t row = 1; row <= rows; ++row)
        pair.Write(row, colPath, std::string(500, static_cast<char>('a' + row % 26)));
    const std::string large(200'000, 'x');
    // About a mebibyte more than lives is when the texts are copied; what is written last keeps them from it.
    const size_t live = pair.grid.MemoryUse().ownText;
    for (size_t dead = 0; dead + large.size() < live + (size_t{1} << 20) + 100'000; dead += large.size()) {
        pair.grid.SetCellText(1, colName, large);
        pair.grid.SetCellText(1, colName, pair.plain.Row(1).cells[colName]);
    }
    pair.Write(2, colName, std::string(400'000, 'y'));
}

const Operation textsAreCopied[] = {
    Writing("a text less", 2, colName, "short"),
    {"the row less", [](TreeGrid& grid) { grid.RemoveRow(2); }, [](PlainGrid& plain) { plain.RemoveRow(2); }},
};

TEST(TreeGridWithoutMemory, ACompactionThatFailsLeavesEveryRowItsTexts) {
    for (const Operation& operation : textsAreCopied) {
        SCOPED_TRACE(operation.name);
        size_t before = 0;
        size_t after = 0;
        for (const bool andAllAfter : {false, true}) {
            const int64_t failures = FailEachAllocation(andAllAfter, [&](const MemoryPlan& plan) {
                Pair pair;
                WasteText(pair);
                before = pair.grid.MemoryUse().total;
                const Outcome outcome = Try(plan, [&] { operation.act(pair.grid); });
                EXPECT_FALSE(outcome.failed);
                operation.effect(pair.plain);
                CompareGrids(pair.grid, pair.plain);
                after = pair.grid.MemoryUse().total;
                return outcome.refused > 0 && !::testing::Test::HasFailure();
            });
            EXPECT_GT(failures, 3);
            EXPECT_LT(after + (size_t{1} << 19), before) << "with memory, what is dead was left out";
        }
    }
}

}  // namespace
}  // namespace foldertree::testing
