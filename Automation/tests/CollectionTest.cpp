// Collection: the view on any collection.
#include "automation/Collection.h"

#include <gtest/gtest.h>

#include "CollectionText.h"
#include "automation_testing/ScriptedObject.h"

namespace automation {
namespace {

using testing::CallLog;
using testing::ScriptedObject;
using Lines = std::vector<std::string>;

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

}  // namespace
}  // namespace automation
