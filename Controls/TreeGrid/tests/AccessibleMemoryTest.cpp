// AccessibleMemoryTest: the accessible tree when memory runs out: a question fails and can be asked again, and numbers
// that were given out stay good.
#include <gtest/gtest.h>

#include <functional>
#include <new>

#include "AccessibleFixture.h"
#include "accessible/AccessibleActs.h"
#include "accessible/AccessibleEvents.h"
#include "automation_testing/FailingMemory.h"

namespace foldertree::testing {
namespace {

using namespace sample;
using automation::testing::FailEachAllocation;
using automation::testing::FailingMemory;
using automation::testing::MemoryPlan;

/// Two whole blocks of siblings behind the small tree.
struct LargeTree : SmallTree {
    LargeTree() {
        grid.SetRowCount(1200);
        for (int32_t row = trash + 1; row < grid.RowCount(); ++row) {
            grid.SetRowOutlineLevel(row, 1);
            grid.SetCellText(row, colName, "A name that does not fit into a string without memory");
        }
        grid.DeliverChanges();
    }
};

/// Runs the action while memory is short, and whether it was refused any.
bool Refuses(const MemoryPlan& plan, const std::function<void()>& action) {
    const FailingMemory memory(plan);
    try {
        action();
        EXPECT_EQ(memory.Refused(), 0) << "the action hides that memory ran out";
    } catch (const std::bad_alloc&) {
    }
    return memory.Refused() > 0;
}

void FailEach(const std::function<void(LargeTree&)>& question, const std::function<void(LargeTree&)>& check) {
    for (const bool andAllAfter : {false, true}) {
        const int64_t failures = FailEachAllocation(andAllAfter, [&](const MemoryPlan& plan) {
            LargeTree tree;
            const int32_t known = tree.tree.IdOf(LargeTree::inbox);
            const bool refused = Refuses(plan, [&] { question(tree); });
            EXPECT_EQ(tree.tree.RowOf(known), LargeTree::inbox);
            EXPECT_EQ(tree.tree.IdOf(LargeTree::inbox), known);
            check(tree);
            return refused && !::testing::Test::HasFailure();
        });
        EXPECT_GT(failures, 0);
    }
}

TEST(AccessibleTreeWithoutMemory, GivesOutNumbersLater) {
    FailEach(
        [](LargeTree& tree) {
            for (int32_t row = 3; row < 60; ++row) tree.tree.IdOf(row);
        },
        [](LargeTree& tree) {
            for (int32_t row = 1; row < 60; ++row) ASSERT_EQ(tree.tree.RowOf(tree.tree.IdOf(row)), row);
        });
}

TEST(AccessibleTreeWithoutMemory, CountsSiblingsLater) {
    FailEach([](LargeTree& tree) { tree.tree.PositionInSet(1100); },
             [](LargeTree& tree) {
                 EXPECT_EQ(tree.tree.PositionInSet(1100), 1100 - 3);
                 EXPECT_EQ(tree.tree.SizeOfSet(1100), 1199 - 3);
             });
}

TEST(AccessibleTreeWithoutMemory, TellsTextsLater) {
    FailEach(
        [](LargeTree& tree) {
            tree.tree.Name();
            tree.tree.Description();
            tree.tree.RowName(800);
        },
        [](LargeTree& tree) { EXPECT_EQ(tree.tree.Description(), "Select, No., Folder"); });
}

TEST(AccessibleTreeWithoutMemory, ForgetsTheNumbersOfRowsThatHaveGone) {
    LargeTree tree;
    for (int32_t row = 1; row < 1000; ++row) tree.tree.IdOf(row);
    const int32_t id = tree.tree.IdOf(LargeTree::inbox);
    const size_t before = tree.tree.MemoryUse();
    {
        const FailingMemory memory({1, true});
        tree.grid.SetRowCount(1);
        tree.grid.DeliverChanges();
    }
    EXPECT_EQ(tree.tree.RowOf(id), 0);
    EXPECT_LT(tree.tree.MemoryUse(), before / 4);
}

TEST(AccessibleTreeWithoutMemory, TellsLaterWhatItCouldNotTell) {
    FailEachAllocation(false, [&](const MemoryPlan& plan) {
        LargeTree tree;
        AccessibleEvents events(tree.grid, tree.tree, tree.view, tree.host);
        for (int32_t row = 10; row < 30; ++row) tree.grid.SetCellText(row, colSel, "-1");
        GridChanges changes;
        for (int32_t row = 10; row < 30; ++row) changes.noted.Add(tree.grid.HandleOf(row), NotedRows::tick);
        events.Note(changes);
        const bool refused = Refuses(plan, [&] { events.Take(); });
        EXPECT_EQ(events.Take().size(), refused ? 20u : 0u);
        return refused && !::testing::Test::HasFailure();
    });
}

TEST(AccessibleTreeWithoutMemory, DropsWhatItCannotTellOnceItKnowsTheCursor) {
    const int64_t failures = FailEachAllocation(true, [&](const MemoryPlan& plan) {
        LargeTree tree;
        AccessibleEvents events(tree.grid, tree.tree, tree.view, tree.host);
        tree.grid.SetCurrentRow(1100);
        GridChanges changes;
        changes.cursor = true;
        events.Note(changes);
        const bool refused = Refuses(plan, [&] { events.Drop(); });
        EXPECT_EQ(events.Pending(), refused);
        return refused && !::testing::Test::HasFailure();
    });
    EXPECT_GT(failures, 0);
}

}  // namespace
}  // namespace foldertree::testing
