// KeyedCollection when memory runs out: an operation that fails has changed nothing, and works when there is memory
// again.
#include <gtest/gtest.h>

#include <optional>
#include <vector>

#include "CollectionText.h"
#include "automation/KeyedCollection.h"
#include "automation_testing/FailingMemory.h"
#include "automation_testing/RunsOut.h"

namespace automation {
namespace {

using testing::FailEachAllocation;
using testing::MemoryPlan;
using testing::RunsOut;

struct Entry {
    std::string key;
    std::string item;
    bool operator==(const Entry&) const = default;
};
using Entries = std::vector<Entry>;

constexpr size_t longText = 64;  ///< longer than a text that needs no memory of its own

/// Keys of all kinds: long ones with and without letters beyond ASCII, a short one, none.
std::string KeyOf(size_t number) {
    const std::string tail = std::to_string(number);
    switch (number % 4) {
        case 0:
            return std::string(longText, 'k') + tail;
        case 1:
            return "ÄÖ" + std::string(longText, 'k') + tail;
        case 2:
            return "s" + tail;
        default:
            return {};
    }
}

Entries SomeEntries(size_t count) {
    Entries entries;
    for (size_t number = 0; number < count; ++number)
        entries.push_back({KeyOf(number), std::string(longText, 'i') + std::to_string(number)});
    return entries;
}

Value KeyValue(const std::string& key) {
    return key.empty() ? Value(Missing()) : Value(key);
}

std::shared_ptr<KeyedCollection> Filled(const Entries& entries) {
    const auto collection = std::make_shared<KeyedCollection>();
    for (const Entry& entry : entries) collection->Add(entry.item, KeyValue(entry.key), Missing(), Missing());
    return collection;
}

/// Compares the order by position and by walk, and every key; a key of `absent` must be unknown.
void ExpectEntries(const std::shared_ptr<KeyedCollection>& collection, const Entries& expected,
                   const std::string& absent) {
    ASSERT_EQ(collection->Count(), static_cast<int32_t>(expected.size()));
    const auto walk = collection->NewEnum();
    for (size_t place = 0; place < expected.size(); ++place) {
        const Entry& entry = expected[place];
        EXPECT_EQ(collection->Item(static_cast<int32_t>(place) + 1).ToText(), entry.item);
        if (!entry.key.empty()) {
            EXPECT_EQ(collection->Item(entry.key).ToText(), entry.item);
        }
        Value item;
        ASSERT_TRUE(walk->Next(item));
        EXPECT_EQ(item.ToText(), entry.item);
    }
    if (!absent.empty()) {
        EXPECT_EQ(NumberOfFailure([&] { collection->Item(absent); }), errors::invalidCall) << absent;
    }
}

/// One operation, what it makes of the entries, and a key that is unknown before or after it.
struct Operation {
    const char* name;
    std::function<void(KeyedCollection&)> act;
    std::function<void(Entries&)> effect;
    std::string absentBefore;
    std::string absentAfter;
};

/// Fails every allocation of the operation on a collection of that size; returns how many there were.
int64_t TryWithoutMemory(const Operation& operation, size_t size, bool andAllAfter) {
    return FailEachAllocation(andAllAfter, [&](const MemoryPlan& plan) {
        Entries entries = SomeEntries(size);
        const auto collection = Filled(entries);
        const bool failed = RunsOut(plan, [&] { operation.act(*collection); });
        if (failed) {
            ExpectEntries(collection, entries, operation.absentBefore);
            operation.act(*collection);
        }
        operation.effect(entries);
        ExpectEntries(collection, entries, operation.absentAfter);
        return failed;
    });
}

void ExpectAllOrNothing(const Operation& operation, size_t leastSize) {
    int64_t failures = 0;
    // Some of these sizes are those at which the collection's index grows.
    for (size_t size = leastSize; size < 32; ++size) {
        for (const bool andAllAfter : {false, true}) {
            SCOPED_TRACE(std::string(operation.name) + ", " + std::to_string(size) + " items");
            failures += TryWithoutMemory(operation, size, andAllAfter);
            if (::testing::Test::HasFailure()) return;
        }
    }
    std::printf("%s: %lld allocations failed\n", operation.name, static_cast<long long>(failures));
}

std::string NewKey(bool ascii) {
    return ascii ? std::string(longText, 'n') : "ß" + std::string(longText, 'n');
}

Operation Addition(const char* name, const std::string& key, std::optional<size_t> place) {
    const std::string item(longText, 'x');
    return {name,
            [=](KeyedCollection& collection) {
                collection.Add(item, KeyValue(key), place ? Value(static_cast<int32_t>(*place) + 1) : Value(Missing()),
                               Missing());
            },
            [=](Entries& entries) {
                const size_t at = place.value_or(entries.size());
                entries.insert(entries.begin() + static_cast<ptrdiff_t>(at), Entry{key, item});
            },
            key,
            {}};
}

TEST(KeyedCollectionWithoutMemory, AnAdditionAtTheEndHappensWhollyOrNotAtAll) {
    ExpectAllOrNothing(Addition("Add", NewKey(true), std::nullopt), 0);
    ExpectAllOrNothing(Addition("Add with a key in another script", NewKey(false), std::nullopt), 0);
    ExpectAllOrNothing(Addition("Add without a key", {}, std::nullopt), 0);
}

TEST(KeyedCollectionWithoutMemory, AnAdditionBeforeAPositionHappensWhollyOrNotAtAll) {
    ExpectAllOrNothing(Addition("Add before the first", NewKey(true), 0), 1);
    ExpectAllOrNothing(Addition("Add in the middle", NewKey(false), 2), 5);
}

TEST(KeyedCollectionWithoutMemory, AnAdditionAfterAKeyHappensWhollyOrNotAtAll) {
    Operation operation = Addition("Add after a key", NewKey(true), 2);
    operation.act = [](KeyedCollection& collection) {
        collection.Add(std::string(longText, 'x'), NewKey(true), Missing(), KeyOf(1));
    };
    ExpectAllOrNothing(operation, 2);
}

TEST(KeyedCollectionWithoutMemory, ARemovalHappensWhollyOrNotAtAll) {
    for (size_t place = 0; place < 4; ++place) {
        const std::string key = KeyOf(place);
        Operation operation{"Remove by position",
                            [=](KeyedCollection& collection) { collection.Remove(static_cast<int32_t>(place) + 1); },
                            [=](Entries& entries) { entries.erase(entries.begin() + static_cast<ptrdiff_t>(place)); },
                            {},
                            key};
        ExpectAllOrNothing(operation, place + 1);
        if (key.empty()) continue;
        operation.name = "Remove by key";
        operation.act = [key](KeyedCollection& collection) { collection.Remove(key); };
        ExpectAllOrNothing(operation, place + 1);
    }
}

TEST(KeyedCollectionWithoutMemory, AWalkThatFailsGoesOnWhereItStood) {
    const Entries entries = SomeEntries(3);
    for (const bool andAllAfter : {false, true}) {
        const int64_t failures = FailEachAllocation(andAllAfter, [&](const MemoryPlan& plan) {
            const auto walk = Filled(entries)->NewEnum();
            Value item;
            EXPECT_TRUE(walk->Next(item));
            const bool failed = RunsOut(plan, [&] { walk->Next(item); });
            EXPECT_EQ(item.ToText(), entries[failed ? 0 : 1].item);
            EXPECT_TRUE(walk->Next(item));
            EXPECT_EQ(item.ToText(), entries[failed ? 1 : 2].item);
            return failed;
        });
        EXPECT_GT(failures, 0);
    }
}

}  // namespace
}  // namespace automation
