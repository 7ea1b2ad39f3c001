// KeyedCollection: order, keys, errors, and items whose end uses the collection.
#include "automation/KeyedCollection.h"

#include <gtest/gtest.h>

#include "CollectionText.h"
#include "automation_testing/ScriptedObject.h"

namespace automation {
namespace {

using testing::ScriptedObject;

/// An object that does something when its last reference goes.
class Leaver : public Object {
  public:
    explicit Leaver(std::function<void()> last) : last_(std::move(last)) {}
    ~Leaver() override { last_(); }
    Value Invoke(const Invocation&) override { throw Error(errors::unknownName, ""); }
    bool HasMember(std::string_view) const override { return false; }

  private:
    std::function<void()> last_;
};

Collection NewCollection(std::string_view letters = "") {
    Collection collection(std::make_shared<KeyedCollection>());
    for (const char letter : letters) collection.Add(std::string(1, letter), std::string("key ") + letter);
    return collection;
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
    const auto keyed = std::make_shared<KeyedCollection>();
    const Collection collection(keyed);
    int32_t countAtTheEnd = -1;
    KeyedCollection* const observed = keyed.get();
    collection.Add(std::make_shared<Leaver>([&] { countAtTheEnd = observed->Count(); }), "k");
    collection.Remove(1);
    EXPECT_EQ(countAtTheEnd, 0);
    EXPECT_EQ(NumberOfFailure([&] { collection.Item("k"); }), errors::invalidCall);
}

TEST(KeyedCollection, KeepsItsOrderThroughManyChanges) {
    const Collection collection = NewCollection();
    constexpr int32_t many = 2000;
    for (int32_t i = 1; i <= many; ++i) collection.Add(i, "k" + std::to_string(i));
    for (int32_t i = 1; i <= many; ++i) ASSERT_EQ(collection.Item("K" + std::to_string(i)).ToLong(), i);
    for (int32_t i = 2; i <= many; i += 2) collection.Ref()->Get("Remove", "k" + std::to_string(i));
    for (int32_t i = 2; i <= many; i += 2)
        collection.Ref()->Get("Add", i, "k" + std::to_string(i), Missing(), "k" + std::to_string(i - 1));
    for (int32_t i = 1; i <= many; ++i) ASSERT_EQ(collection.Item(i).ToLong(), i);
    for (int32_t left = many; left > 0; --left) {
        ASSERT_EQ(collection.Item(1).ToLong(), many - left + 1);
        collection.Remove(1);
    }
    EXPECT_EQ(collection.Count(), 0);
}

TEST(KeyedCollection, AWalksVariableMayEndAnObjectThatRemovesTheNextItem) {
    const Value values[] = {std::string(100, 'n'), 7, Array{0, {1, 2}}, std::make_shared<KeyedCollection>()};
    for (const Value& next : values) {
        const Collection collection = NewCollection();
        collection.Add(next, "next");
        const auto walk = collection.Walk();
        Value item = std::make_shared<Leaver>([&] { collection.Remove(1); });
        ASSERT_TRUE(walk->Next(item));
        EXPECT_EQ(collection.Count(), 0);
        EXPECT_EQ(item.Raw(), next.Raw());
    }
}

TEST(KeyedCollection, AnItemMayUseTheCollectionWhenItIsRefused) {
    const Collection collection = NewCollection("ab");
    int32_t seen = 0;
    Value item = std::make_shared<Leaver>([&] {
        seen = collection.Count();
        collection.Remove(1);
    });
    const auto keyed = std::static_pointer_cast<KeyedCollection>(collection.Ref());
    EXPECT_EQ(NumberOfFailure([&] { keyed->Add(std::move(item), "key a", Missing(), Missing()); }),
              errors::duplicateKey);
    item = Value();
    EXPECT_EQ(seen, 2);
    EXPECT_EQ(Joined(collection), "b");
}

TEST(KeyedCollection, ReleasesItsItemsInTheirOrder) {
    std::string order;
    {
        const Collection collection = NewCollection();
        for (const char letter : {'b', 'c', 'd'})
            collection.Add(std::make_shared<Leaver>([&order, letter] { order += letter; }), "");
        collection.Add(std::make_shared<Leaver>([&order] { order += 'a'; }), "", 1);
    }
    EXPECT_EQ(order, "abcd");
}

}  // namespace
}  // namespace automation
