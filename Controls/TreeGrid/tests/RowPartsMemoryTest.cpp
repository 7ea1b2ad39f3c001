// RowPartsMemoryTest: the parts of the row store when memory runs out: what fails has changed nothing, and taking out
// needs no memory.
#include <gtest/gtest.h>

#include <map>
#include <optional>

#include "automation_testing/FailingMemory.h"
#include "automation_testing/RunsOut.h"
#include "rows/KeyIndex.h"
#include "rows/Outline.h"
#include "rows/TextArena.h"
#include "rows/TextPool.h"

namespace foldertree {
namespace {

using automation::testing::FailEachAllocation;
using automation::testing::FailingMemory;
using automation::testing::MemoryPlan;
using automation::testing::RunsOut;

// TextArena

TEST(TextArenaWithoutMemory, AnAdditionThatFailsChangesNothing) {
    const size_t block = size_t{1} << 20;
    for (const size_t before : {size_t{0}, size_t{100}, block - 50}) {
        for (const size_t length : {size_t{200}, block + 1, 5 * block}) {
            FailEachAllocation(false, [&](const MemoryPlan& plan) {
                TextArena arena;
                const std::string first(before, 'f');
                const std::string second(length, 's');
                const TextArena::Ref kept = arena.Add(first);
                std::optional<TextArena::Ref> added;
                const bool failed = RunsOut(plan, [&] { added = arena.Add(second); });
                if (failed) {
                    EXPECT_EQ(arena.LiveBytes(), before);
                    added = arena.Add(second);
                }
                const TextArena::Ref third = arena.Add("third");
                EXPECT_EQ(arena.View(kept), first);
                EXPECT_EQ(arena.View(*added), second);
                EXPECT_EQ(arena.View(third), "third");
                return failed;
            });
        }
    }
}

// InternTable

TEST(TextPoolWithoutMemory, AnAcquisitionThatFailsChangesNothing) {
    // So many are released that the table is swept when the next one is acquired, and sizes at which it grows.
    for (const int released : {0, 5, 11, 12, 300}) {
        for (const bool andAllAfter : {false, true}) {
            SCOPED_TRACE(std::to_string(released) + " released");
            const auto text = [](int number) {
                return "a text that needs memory of its own " + std::to_string(number);
            };
            const int64_t failures = FailEachAllocation(andAllAfter, [&](const MemoryPlan& plan) {
                TextPool pool;
                std::map<TextPool::Id, std::string> held;
                for (int number = 0; number < 10; ++number) held[pool.Acquire(text(number))] = text(number);
                for (int number = 0; number < released; ++number) pool.Release(pool.Acquire(text(1000 + number)));
                const auto acquire = [&] { held[pool.Acquire(text(10))] = text(10); };
                const bool failed = RunsOut(plan, [&] { pool.Release(pool.Acquire(text(10))); });
                for (int round = 0; round < 2; ++round) {
                    for (const auto& [id, expected] : held) {
                        EXPECT_EQ(pool[id].Text(), expected);
                        EXPECT_EQ(pool.Acquire(expected), id);
                        pool.Release(id);
                    }
                    acquire();
                }
                return failed;
            });
            EXPECT_GT(failures, 0);
        }
    }
}

// KeyIndex

/// Rows with numbers as keys; hashes are the keys' remainders.
struct NumberKeys {
    automation::IdSequence order;
    KeyIndex index{order};
    std::map<RowId, int> keys;

    static uint32_t Hash(int key) { return static_cast<uint32_t>(key % 3); }
    auto Has(int key) const {
        return [this, key](RowId row) { return keys.at(row) == key; };
    }
    void Append(int key) {
        const auto row = static_cast<RowId>(order.Count());
        order.Insert(order.Count(), row);
        keys[row] = key;
        index.Insert(Hash(key), row, Has(key));
    }
    /// The rows that the index has under a key, in their order.
    std::vector<RowId> RowsWith(int key) const {
        std::vector<RowId> found;
        for (std::optional<RowId> row = index.First(Hash(key), Has(key)); row;) {
            found.push_back(*row);
            const int32_t next = order.PositionOf(*row) + 1;
            if (next == order.Count()) break;
            row = index.First(Hash(key), Has(key), order.At(next));
        }
        return found;
    }
    void ExpectEveryRowUnderItsKey() const {
        std::map<int, std::vector<RowId>> expected;
        for (int32_t number = 0; number < order.Count(); ++number)
            expected[keys.at(order.At(number))].push_back(order.At(number));
        for (int key = 0; key < 20; ++key) EXPECT_EQ(RowsWith(key), expected[key]) << "key " << key;
    }
};

void Fill(NumberKeys& rows, int count) {
    for (int row = 0; row < count; ++row) rows.Append(row % 5 == 4 ? 4 : row % 14);
}

TEST(KeyIndexWithoutMemory, ARowWhoseEntryFailsIsNotInAndTheOthersStay) {
    int64_t failures = 0;
    for (int count = 0; count < 60; ++count) {
        for (const int key : {4, 7, 19}) {
            for (const bool andAllAfter : {false, true}) {
                failures += FailEachAllocation(andAllAfter, [&](const MemoryPlan& plan) {
                    NumberKeys rows;
                    Fill(rows, count);
                    const auto fresh = static_cast<RowId>(count);
                    const int32_t place = count / 2;
                    rows.order.Insert(place, fresh);
                    const auto enter = [&] { rows.index.Insert(NumberKeys::Hash(key), fresh, rows.Has(key)); };
                    rows.keys[fresh] = -1;  // a key that nobody looks for
                    const bool failed = RunsOut(plan, enter);
                    if (failed) {
                        rows.ExpectEveryRowUnderItsKey();
                        enter();
                    }
                    rows.keys[fresh] = key;
                    rows.ExpectEveryRowUnderItsKey();
                    return failed;
                });
            }
        }
    }
    EXPECT_GT(failures, 300);
}

TEST(KeyIndexWithoutMemory, ARowWhoseChangeOfKeyFailsKeepsItsOldKey) {
    int64_t failures = 0;
    for (int count = 1; count < 60; ++count) {
        const auto row = static_cast<RowId>(count / 2);
        for (const int key : {4, 7, 10, 19}) {
            failures += FailEachAllocation(true, [&](const MemoryPlan& plan) {
                NumberKeys rows;
                Fill(rows, count);
                const int old = rows.keys[row];
                if (old == key) return false;
                const auto change = [&] {
                    rows.index.Change(NumberKeys::Hash(old), NumberKeys::Hash(key), row, rows.Has(key));
                };
                const bool failed = RunsOut(plan, change);
                if (failed) {
                    rows.ExpectEveryRowUnderItsKey();
                    change();
                }
                rows.keys[row] = key;
                rows.ExpectEveryRowUnderItsKey();
                return failed;
            });
        }
    }
    EXPECT_GT(failures, 100);
}

TEST(KeyIndexWithoutMemory, RowsAreTakenOutWithoutMemory) {
    NumberKeys rows;
    Fill(rows, 200);
    const FailingMemory memory({1, true});
    for (int32_t number = 0; number < 200; ++number) {
        const RowId row = rows.order.At(number);
        rows.index.Remove(NumberKeys::Hash(rows.keys[row]), row);
    }
    EXPECT_EQ(memory.Asked(), 0);
}

// Outline

class EveryOtherRowHidden final : public OutlineRows {
  public:
    int32_t First() const override { return 1; }
    int32_t Count() const override { return 1000; }
    Row At(int32_t row) const override { return {row % 2, row % 2 == 0}; }
};

TEST(OutlineWithoutMemory, ALookThatFailsCanBeRepeated) {
    const EveryOtherRowHidden rows;
    for (const bool andAllAfter : {false, true}) {
        const int64_t failures = FailEachAllocation(andAllAfter, [&](const MemoryPlan& plan) {
            Outline outline(rows);
            const bool failed = RunsOut(plan, [&] { outline.VisibleCount(); });
            EXPECT_EQ(outline.VisibleCount(), 500);
            for (int32_t position = 1; position < 500; ++position)
                EXPECT_EQ(outline.VisibleRow(position), position * 2);
            return failed;
        });
        EXPECT_GT(failures, 5);
    }
}

TEST(OutlineWithoutMemory, AChangeIsToldWithoutMemory) {
    const EveryOtherRowHidden rows;
    Outline outline(rows);
    outline.VisibleCount();
    const FailingMemory memory({1, true});
    for (int32_t row = 1000; row >= 0; --row) outline.Invalidate(row);
    EXPECT_EQ(memory.Asked(), 0);
}

}  // namespace
}  // namespace foldertree
