// The testing objects themselves: what they record, count and let fail.
#include <gtest/gtest.h>

#include "automation/Collection.h"
#include "automation/KeyedCollection.h"
#include "automation_testing/FaultyObject.h"
#include "automation_testing/ScriptedObject.h"

namespace automation::testing {
namespace {

using Lines = std::vector<std::string>;

template <class Action>
uint32_t NumberOfFailure(Action action) {
    try {
        action();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

TEST(CallLog, LinesReadLikeTheSourceOfAHost) {
    const auto log = std::make_shared<CallLog>();
    const auto object = std::make_shared<ScriptedObject>("Table", log);
    object->Property("Columns", {});
    object->Method("Logon", [](const Invocation&) { return Value(); });
    object->Put("Columns", Array{0, {1, "x"}});
    object->PutRef("Columns", object);
    object->Put("Columns", nullptr);
    const NamedArgument named[] = {{"NewSession", false}};
    object->CallNamed("Logon", named);
    object->Get("Logon", Bytes{0, {0x0A, 0xFF}}, Missing(), 1.5);
    EXPECT_EQ(log->Lines(),
              (Lines{"Table.Columns = [1, \"x\"]", "Set Table.Columns = <Table>", "Table.Columns = Nothing",
                     "Table.Logon(NewSession:=False)", "Table.Logon(0x0AFF, (left out), 1.5)"}));
    EXPECT_EQ(log->Count("Columns"), 3u);
    log->Clear();
    EXPECT_EQ(log->Count(), 0u);
    object->Property("Columns", {});  // no reference to itself is left
}

TEST(ScriptedObject, PropertiesHoldWhatWasWritten) {
    ScriptedObject object;
    object.Property("Name", "a").ReadOnly("Id", 7);
    object.Put("NAME", "b");
    EXPECT_EQ(object.Get("name").ToText(), "b");
    EXPECT_EQ(object.Held("Name").ToText(), "b");
    EXPECT_EQ(NumberOfFailure([&] { object.Put("Id", 8); }), errors::memberNotFound);
    EXPECT_EQ(NumberOfFailure([&] { object.Get("Name", 1); }), errors::badParamCount);
    EXPECT_EQ(NumberOfFailure([&] { object.Get("Other"); }), errors::unknownName);
}

TEST(ScriptedObject, ComputedPropertiesReadAndWriteThroughTheirHandlers) {
    ScriptedObject object;
    int32_t held = 1;
    object.Method("Position", [&](const Invocation&) { return Value(held); });
    object.OnPut("Position", [&](const Value& value) { held = value.ToLong(); });
    object.Put("Position", 5);
    EXPECT_EQ(object.Get("Position").ToLong(), 5);
}

TEST(ScriptedObject, AMemberFailsUntilItIsGivenAgain) {
    const auto log = std::make_shared<CallLog>();
    ScriptedObject object("O", log);
    object.Property("Name", "a").Fails("Name", Error(99, "no"));
    EXPECT_EQ(NumberOfFailure([&] { object.Get("Name"); }), 99u);
    object.Property("Name", "b");
    EXPECT_EQ(object.Get("Name").ToText(), "b");
    EXPECT_EQ(log->Count("O.Name"), 2u);
}

TEST(ScriptedObject, AHandlerMayReplaceItself) {
    ScriptedObject object;
    object.Method("Next", [&object](const Invocation&) {
        object.Property("Next", 2);
        return Value(1);
    });
    EXPECT_EQ(object.Get("Next").ToLong(), 1);
    EXPECT_EQ(object.Get("Next").ToLong(), 2);
}

TEST(ScriptedObject, CollectionsCountTheirItemsFromOne) {
    ScriptedObject object;
    object.Items({"a", "b"});
    EXPECT_EQ(object.Get("Count").ToLong(), 2);
    EXPECT_EQ(object.Get("", 2).ToText(), "b");
    EXPECT_EQ(NumberOfFailure([&] { object.Get("Item", 0); }), errors::subscript);
    EXPECT_EQ(NumberOfFailure([&] { object.Get("Item", 3); }), errors::subscript);
}

TEST(ScriptedObjectFactory, CreatesWhatItWasToldAndFailsForTheRest) {
    const auto log = std::make_shared<CallLog>();
    ScriptedObjectFactory factory(log);
    factory.On("MAPI.Session", [] { return std::make_shared<ScriptedObject>("Session"); });
    EXPECT_EQ(Describe(factory.Create("mapi.session")), "<Session>");
    EXPECT_EQ(NumberOfFailure([&] { factory.Create("X.Y"); }), 0x80040154u);
    EXPECT_EQ(log->Lines(), (Lines{"CreateObject(\"mapi.session\")", "CreateObject(\"X.Y\")"}));
}

ObjectRef StoresOfTwo() {
    const auto store = std::make_shared<ScriptedObject>("Store");
    store->Property("Name", "s");
    const auto stores = std::make_shared<ScriptedObject>("Stores");
    stores->Items({store, store});
    const auto session = std::make_shared<ScriptedObject>("Session");
    session->ReadOnly("Stores", stores);
    return session;
}

int32_t NamesReadFrom(const ObjectRef& session) {
    int32_t names = 0;
    const auto walk = Collection(session->Get("Stores").RequireObject()).Walk();
    for (Value store; walk->Next(store);) names += store.RequireObject()->Get("Name").IsText();
    return names;
}

TEST(FaultyObject, CountsCallsOverAllThatIsReached) {
    const auto plan = std::make_shared<FaultPlan>();
    EXPECT_EQ(NamesReadFrom(plan->Wrap(StoresOfTwo())), 2);
    EXPECT_EQ(plan->Calls(), 7);  // Stores, the enumeration, three steps, two names
    EXPECT_FALSE(plan->HasFailed());
}

TEST(FaultyObject, EveryCallCanBeTheOneThatFails) {
    for (int n = 1; n <= 7; ++n) {
        const auto plan = std::make_shared<FaultPlan>(Error(0x8004011D, "gone"));
        plan->FailCall(n);
        const ObjectRef session = plan->Wrap(StoresOfTwo());
        EXPECT_EQ(NumberOfFailure([&] { NamesReadFrom(session); }), 0x8004011Du) << n;
        EXPECT_TRUE(plan->HasFailed());
        EXPECT_EQ(plan->Calls(), n);
        EXPECT_EQ(NamesReadFrom(session), 2) << "only one call fails";
    }
}

TEST(FaultyObject, ThereIsOneWrapperForAnObject) {
    const auto plan = std::make_shared<FaultPlan>();
    const auto session = plan->Wrap(StoresOfTwo());
    const ObjectRef stores = session->Get("Stores").ToObject();
    EXPECT_EQ(session->Get("Stores").ToObject(), stores);
    EXPECT_EQ(stores->Get("Item", 1).ToObject(), stores->Get("Item", 2).ToObject());
}

TEST(FaultyObject, AnObjectThatWasHandedInComesBackAsItIs) {
    const auto plan = std::make_shared<FaultPlan>();
    const ObjectRef collection = plan->Wrap(std::make_shared<KeyedCollection>());
    const ObjectRef item = std::make_shared<ScriptedObject>("Item");
    Collection(collection).Add(item, "k");
    EXPECT_EQ(Collection(collection).Item("K").ToObject(), item);
}

TEST(FaultyObject, AWrapperThatIsHandedInReachesTheObjectUnwrapped) {
    const auto plan = std::make_shared<FaultPlan>();
    const auto inner = std::make_shared<KeyedCollection>();
    const ObjectRef session = plan->Wrap(StoresOfTwo());
    Collection(plan->Wrap(inner)).Add(session, "k");
    EXPECT_EQ(Describe(inner->Item(1)), "<Session>");
}

TEST(FaultyObject, ObjectsInArraysAreWrappedToo) {
    const auto plan = std::make_shared<FaultPlan>();
    const auto source = std::make_shared<ScriptedObject>("Source");
    source->ReadOnly("All", Array{1, {std::make_shared<ScriptedObject>("Part"), 2}});
    const Value all = plan->Wrap(source)->Get("All");
    ASSERT_NE(all.AsArray(), nullptr);
    EXPECT_EQ(all.AsArray()->lowerBound, 1);
    EXPECT_EQ(Describe(all.AsArray()->items[0]), "<Object>");
    EXPECT_EQ(all.AsArray()->items[1].ToLong(), 2);
}

TEST(FaultyObject, ReleasesWhatItWrapped) {
    const int before = ScriptedObject::LiveCount();
    {
        const auto plan = std::make_shared<FaultPlan>();
        NamesReadFrom(plan->Wrap(StoresOfTwo()));
        EXPECT_EQ(ScriptedObject::LiveCount(), before);
    }
    EXPECT_EQ(ScriptedObject::LiveCount(), before);
}

}  // namespace
}  // namespace automation::testing
