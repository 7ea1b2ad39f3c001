// Collection and KeyedCollection: the view on any collection, and our own kind.
#include "automation/Collection.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>

#include "automation/KeyedCollection.h"
#include "automation_testing/ScriptedObject.h"

namespace automation {
namespace {

using testing::CallLog;
using testing::ScriptedObject;
using Lines = std::vector<std::string>;

uint32_t NumberOfFailure(const std::function<void()>& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

std::string Joined(const Collection& collection) {
    std::string text;
    const auto walk = collection.Walk();
    for (Value item; walk->Next(item);) text += item.ToText();
    return text;
}

Collection NewCollection(std::string_view letters = "") {
    Collection collection(std::make_shared<KeyedCollection>());
    for (const char letter : letters) collection.Add(std::string(1, letter), std::string("key ") + letter);
    return collection;
}

TEST(Collection, CallsTheMembersByTheirUsualNames) {
    const auto log = std::make_shared<CallLog>();
    const auto object = std::make_shared<ScriptedObject>("C", log);
    object->Items({"x", "y"});
    object->Method("Add", [](const Invocation&) { return Value(); });
    object->Method("Remove", [](const Invocation&) { return Value(); });
    const Collection collection(object);
    EXPECT_EQ(collection.Count(), 2);
    EXPECT_EQ(collection.Item(2).ToText(), "y");
    collection.Add("z", "K");
    collection.Add("z", "K", 1);
    collection.Add("z", "");
    collection.Remove(1);
    EXPECT_EQ(log->Lines(), (Lines{"C.Count", "C.Item(2)", "C.Add(\"z\", \"K\", (left out))", "C.Add(\"z\", \"K\", 1)",
                                   "C.Add(\"z\", (left out), (left out))", "C.Remove(1)"}));
}

TEST(Collection, WalksByTheEnumerationWhereThereIsOne) {
    const auto log = std::make_shared<CallLog>();
    const auto object = std::make_shared<ScriptedObject>("C", log);
    object->Items({"x", "y"});
    EXPECT_EQ(Joined(Collection(object)), "xy");
    EXPECT_EQ(log->Lines(), (Lines{"C._NewEnum", "C.Next", "C.Next", "C.Next"}));
}

TEST(Collection, WalksByPositionWhereThereIsNoEnumerationAndCountsOnce) {
    const auto log = std::make_shared<CallLog>();
    const auto object = std::make_shared<ScriptedObject>("C", log);
    object->Items({"x", "y"}).WithoutEnumeration();
    EXPECT_EQ(Joined(Collection(object)), "xy");
    EXPECT_EQ(log->Lines(), (Lines{"C.Count", "C.Item(1)", "C.Item(2)"}));
}

TEST(Collection, WalksByPositionUpToAGivenCountWhenAsked) {
    const auto log = std::make_shared<CallLog>();
    const auto object = std::make_shared<ScriptedObject>("C", log);
    object->Items({"x", "y", "z"});
    const auto walk = Collection(object).WalkByPosition(2);
    std::string text;
    for (Value item; walk->Next(item);) text += item.ToText();
    EXPECT_EQ(text, "xy");
    EXPECT_EQ(log->Lines(), (Lines{"C.Item(1)", "C.Item(2)"}));
    const auto tooFar = Collection(object).WalkByPosition(4);
    Value item;
    while (item.IsEmpty() || item.ToText() != "z") ASSERT_TRUE(tooFar->Next(item));
    EXPECT_EQ(NumberOfFailure([&] { tooFar->Next(item); }), errors::subscript);
}

TEST(Collection, OfNothingFailsAsAnObjectVariableThatIsNotSet) {
    const Collection nothing(nullptr);
    EXPECT_EQ(NumberOfFailure([&] { nothing.Count(); }), errors::objectNotSet);
    EXPECT_EQ(NumberOfFailure([&] { nothing.Walk(); }), errors::objectNotSet);
    EXPECT_EQ(NumberOfFailure([&] { nothing.Add(1, "k"); }), errors::objectNotSet);
}

TEST(Collection, ReleasesItsObjectWithTheViewAndTheWalk) {
    const int before = ScriptedObject::LiveCount();
    {
        const auto object = std::make_shared<ScriptedObject>();
        object->Items({1});
        const auto walk = Collection(object).Walk();
        EXPECT_EQ(ScriptedObject::LiveCount(), before + 2);
    }
    EXPECT_EQ(ScriptedObject::LiveCount(), before);
}

TEST(KeyedCollection, KeepsTheOrderOfAdding) {
    const Collection collection = NewCollection("abc");
    EXPECT_EQ(collection.Count(), 3);
    EXPECT_EQ(Joined(collection), "abc");
    EXPECT_EQ(collection.Item(1).ToText(), "a");
    EXPECT_EQ(collection.Item(3).ToText(), "c");
}

TEST(KeyedCollection, AddsBeforeAPosition) {
    const Collection collection = NewCollection("abc");
    collection.Add("1", "k1", 1);
    collection.Add("2", "k2", 4);
    EXPECT_EQ(Joined(collection), "1ab2c");
    EXPECT_EQ(collection.Item("K2").ToText(), "2");
}

TEST(KeyedCollection, AddsBeforeAndAfterAKey) {
    const Collection collection = NewCollection("abc");
    collection.Ref()->Get("Add", "1", Missing(), "KEY B");
    collection.Ref()->Get("Add", "2", Missing(), Missing(), "key c");
    collection.Ref()->Get("Add", "3", Missing(), Missing(), 1);
    EXPECT_EQ(Joined(collection), "a31bc2");
}

TEST(KeyedCollection, TakesArgumentsByName) {
    const Collection collection = NewCollection("ab");
    const NamedArgument arguments[] = {{"Before", 2}, {"Item", "x"}};
    collection.Ref()->CallNamed("Add", arguments);
    EXPECT_EQ(Joined(collection), "axb");
}

TEST(KeyedCollection, FindsKeysWithoutRegardToCase) {
    const Collection collection = NewCollection();
    collection.Add("x", "ÄÖ|Я");
    EXPECT_EQ(collection.Item("äö|я").ToText(), "x");
}

TEST(KeyedCollection, ItsItemsAreItsDefaultMember) {
    EXPECT_EQ(NewCollection("ab").Ref()->Get("", 2).ToText(), "b");
    EXPECT_EQ(NewCollection("ab").Ref()->Get("", "KEY A").ToText(), "a");
}

TEST(KeyedCollection, RefusesAKeyThatItHas) {
    const Collection collection = NewCollection("ab");
    EXPECT_EQ(NumberOfFailure([&] { collection.Add("x", "KEY A"); }), errors::duplicateKey);
    EXPECT_EQ(Joined(collection), "ab");
}

TEST(KeyedCollection, RefusesAKeyThatItHasNot) {
    const Collection collection = NewCollection("ab");
    EXPECT_EQ(NumberOfFailure([&] { collection.Item("a"); }), errors::invalidCall);
    EXPECT_EQ(NumberOfFailure([&] { collection.Item(""); }), errors::invalidCall);
    EXPECT_EQ(NumberOfFailure([&] { collection.Ref()->Get("Remove", "a"); }), errors::invalidCall);
}

TEST(KeyedCollection, RefusesPositionsOutOfRange) {
    const Collection collection = NewCollection("ab");
    for (const int32_t position : {0, -1, 3, INT32_MAX, INT32_MIN}) {
        EXPECT_EQ(NumberOfFailure([&] { collection.Item(position); }), errors::subscript) << position;
        EXPECT_EQ(NumberOfFailure([&] { collection.Remove(position); }), errors::subscript) << position;
        EXPECT_EQ(NumberOfFailure([&] { collection.Add("x", "", position); }), errors::subscript) << position;
    }
    EXPECT_EQ(Joined(collection), "ab");
}

TEST(KeyedCollection, RefusesAnIndexOfAnotherType) {
    const Collection collection = NewCollection("ab");
    const Value indices[] = {Value(), nullptr, Null(), Array{}, Missing()};
    for (const Value& index : indices)
        EXPECT_EQ(NumberOfFailure([&] { collection.Ref()->Get("Item", index); }), errors::typeMismatch)
            << index.TypeName();
    EXPECT_EQ(NumberOfFailure([&] { collection.Ref()->Get("Add", "x", 5); }), errors::typeMismatch);
}

TEST(KeyedCollection, RefusesBeforeTogetherWithAfter) {
    const Collection collection = NewCollection("ab");
    EXPECT_EQ(NumberOfFailure([&] { collection.Ref()->Get("Add", "x", "k", 1, 1); }), errors::invalidCall);
}

TEST(KeyedCollection, RefusesAnAddWithoutAnItem) {
    EXPECT_EQ(NumberOfFailure([&] { NewCollection().Ref()->Get("Add"); }), errors::badParamCount);
}

TEST(KeyedCollection, ARemovedKeyCanBeAddedAgain) {
    const Collection collection = NewCollection("abc");
    collection.Remove(2);
    EXPECT_EQ(Joined(collection), "ac");
    collection.Add("B", "key b");
    collection.Ref()->Get("Remove", "KEY A");
    EXPECT_EQ(Joined(collection), "cB");
}

TEST(KeyedCollection, AFailedAddLeavesNoKeyBehind) {
    const Collection collection = NewCollection("a");
    EXPECT_EQ(NumberOfFailure([&] { collection.Add("x", "new", 9); }), errors::subscript);
    collection.Add("y", "new");
    EXPECT_EQ(collection.Item("new").ToText(), "y");
}

TEST(KeyedCollection, AWalkGoesOnAtItsPositionWhenTheCollectionChanges) {
    const Collection collection = NewCollection("abcd");
    const auto walk = collection.Walk();
    Value item;
    ASSERT_TRUE(walk->Next(item));
    collection.Remove(1);
    ASSERT_TRUE(walk->Next(item));
    EXPECT_EQ(item.ToText(), "c");
    collection.Remove(1);
    EXPECT_FALSE(walk->Next(item));
    collection.Add("e", "");
    ASSERT_TRUE(walk->Next(item));
    EXPECT_EQ(item.ToText(), "e");
}

TEST(KeyedCollection, AWalkOutlivesTheLastOtherReference) {
    auto walk = NewCollection("ab").Walk();
    Value item;
    ASSERT_TRUE(walk->Next(item));
    EXPECT_EQ(item.ToText(), "a");
}

TEST(KeyedCollection, ReleasesWhatIsRemoved) {
    const int before = ScriptedObject::LiveCount();
    const Collection collection = NewCollection();
    collection.Add(std::make_shared<ScriptedObject>(), "o");
    EXPECT_EQ(ScriptedObject::LiveCount(), before + 1);
    collection.Remove(1);
    EXPECT_EQ(ScriptedObject::LiveCount(), before);
}

TEST(KeyedCollection, AnItemMayUseTheCollectionWhileItIsRemoved) {
    struct Leaver : ScriptedObject {
        explicit Leaver(std::function<void()> last) : last_(std::move(last)) {}
        ~Leaver() override { last_(); }
        std::function<void()> last_;
    };
    const auto keyed = std::make_shared<KeyedCollection>();
    const Collection collection(keyed);
    int32_t countAtTheEnd = -1;
    KeyedCollection* const observed = keyed.get();
    collection.Add(std::make_shared<Leaver>([&] { countAtTheEnd = observed->Count(); }), "k");
    collection.Remove(1);
    EXPECT_EQ(countAtTheEnd, 0);
    EXPECT_EQ(NumberOfFailure([&] { collection.Item("k"); }), errors::invalidCall);
}

TEST(KeyedCollection, ManyItemsAreFilledReadAndEmptiedFromTheFrontQuickly) {
    const auto start = std::chrono::steady_clock::now();
    const Collection collection = NewCollection();
    constexpr int32_t many = 20000;
    for (int32_t i = 1; i <= many; ++i) collection.Add(i, "k" + std::to_string(i));
    for (int32_t i = 1; i <= many; ++i) ASSERT_EQ(collection.Item("K" + std::to_string(i)).ToLong(), i);
    while (collection.Count() > 0) collection.Remove(1);
    // Takes well below a second; a search through the keys or a copy of the items per step would take minutes with the
    // sanitizers on, and the limit leaves room for a machine that is busy with other things.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

}  // namespace
}  // namespace automation
