// Object: error lines, member names, tabled members.
#include "automation/Object.h"

#include <gtest/gtest.h>

#include "automation/TabledObject.h"
#include "automation_testing/ScriptedObject.h"

namespace automation {
namespace {

using testing::ScriptedObject;

class Lamp : public TabledObject<Lamp> {
  public:
    static constexpr bool hasDefaultMember = true;
    static std::span<const MemberEntry<Lamp>> Members() {
        static constexpr MemberEntry<Lamp> members[] = {
            {"Watts", [](Lamp& self, const Arguments&) -> Value { return self.watts_; },
             [](Lamp& self, const Value& value) { self.watts_ = value.ToLong(); }},
            {"Mix",
             [](Lamp&, const Arguments& a) -> Value {
                 std::string text;
                 for (size_t i = 0; i < 3; ++i) text += a.Has(i) ? a[i].ToText() : "-";
                 return text;
             },
             nullptr, 3, "Red Green Blue"},
            {"Key", nullptr, [](Lamp&, const Value&) {}},
        };
        return members;
    }

  private:
    int32_t watts_ = 40;
};

uint32_t FailureOf(Object& object, const Invocation& call) {
    try {
        object.Invoke(call);
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

TEST(Object, AnErrorNamesTheLineOfTheCall) {
    ScriptedObject object;
    object.Fails("Name", Error(1234, "No name"));
    const int expected = __LINE__ + 2;
    try {
        object.Get("Name");
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Line(), expected);
        EXPECT_EQ(error.Number(), 1234u);
        EXPECT_EQ(error.Text(), "No name");
    }
}

TEST(Object, AnErrorNamesTheOutermostCall) {
    ScriptedObject inner, outer;
    inner.Fails("Name", Error(1234, ""));
    outer.Method("Read", [&](const Invocation&) { return inner.Get("Name"); });
    const int expected = __LINE__ + 2;
    try {
        outer.Get("Read");
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Line(), expected);
    }
}

TEST(Object, AnErrorOfNoCallHasNoLine) {
    EXPECT_EQ(VbError(errors::overflow).Line(), 0);
}

TEST(Object, NothingHasNoMembers) {
    try {
        Deref(nullptr);
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), errors::objectNotSet);
        EXPECT_EQ(error.Text(), "Object variable or With block variable not set");
    }
}

TEST(Object, MemberNamesCompareWithoutCaseInAsciiOnly) {
    EXPECT_TRUE(SameMember("GetRows", "GETrOWS"));
    EXPECT_FALSE(SameMember("GetRows", "GetRow"));
    EXPECT_FALSE(SameMember("Ä", "ä"));
    EXPECT_FALSE(SameMember("[", "{"));
}

TEST(Object, VbErrorsCarryTheUsualTexts) {
    EXPECT_EQ(VbError(5).Text(), "Invalid procedure call or argument");
    EXPECT_EQ(VbError(6).Text(), "Overflow");
    EXPECT_EQ(VbError(9).Text(), "Subscript out of range");
    EXPECT_EQ(VbError(13).Text(), "Type mismatch");
    EXPECT_EQ(VbError(429).Text(), "ActiveX component can't create object");
    EXPECT_EQ(VbError(438).Text(), "Object doesn't support this property or method");
    EXPECT_EQ(VbError(457).Text(), "This key is already associated with an element of this collection");
    EXPECT_EQ(VbError(1000).Text(), "Application-defined or object-defined error");
}

TEST(TabledObject, MembersAreReadAndWrittenByNameWithoutCase) {
    Lamp lamp;
    lamp.Put("WATTS", "60");
    EXPECT_EQ(lamp.Get("watts").ToLong(), 60);
    EXPECT_TRUE(lamp.HasMember("wAtts"));
    EXPECT_FALSE(lamp.HasMember("Volts"));
}

TEST(TabledObject, TheDefaultMemberIsTheFirstWhereThereIsOne) {
    Lamp lamp;
    EXPECT_TRUE(lamp.HasMember(""));
    EXPECT_EQ(lamp.Get("").ToLong(), 40);
}

TEST(TabledObject, RefusedUsesHaveTheirErrors) {
    Lamp lamp;
    const Value one[] = {1};
    const Value four[] = {1, 2, 3, 4};
    EXPECT_EQ(FailureOf(lamp, {"Volts", Access::Call, {}, {}}), errors::unknownName);
    EXPECT_EQ(FailureOf(lamp, {"Mix", Access::Put, one, {}}), errors::memberNotFound);
    EXPECT_EQ(FailureOf(lamp, {"Key", Access::Call, {}, {}}), errors::memberNotFound);
    EXPECT_EQ(FailureOf(lamp, {"Watts", Access::Call, one, {}}), errors::badParamCount);
    EXPECT_EQ(FailureOf(lamp, {"Mix", Access::Call, four, {}}), errors::badParamCount);
    EXPECT_EQ(FailureOf(lamp, {"Watts", Access::Put, {}, {}}), errors::memberNotFound);
}

TEST(TabledObject, ArgumentsArePlacedByTheirNames) {
    Lamp lamp;
    const NamedArgument blueAndRed[] = {{"blue", "b"}, {"RED", "r"}};
    EXPECT_EQ(lamp.CallNamed("Mix", blueAndRed).ToText(), "r-b");
    const Value first[] = {"1"};
    const NamedArgument green[] = {{"Green", "2"}};
    EXPECT_EQ(lamp.Invoke({"Mix", Access::Call, first, green}).ToText(), "12-");
}

TEST(TabledObject, NamesThatAreUnknownOrGivenTwiceAreRefused) {
    Lamp lamp;
    const Value first[] = {"1"};
    const NamedArgument red[] = {{"Red", "r"}};
    const NamedArgument pink[] = {{"Pink", "p"}};
    EXPECT_EQ(FailureOf(lamp, {"Mix", Access::Call, first, red}), errors::badParamCount);
    EXPECT_EQ(FailureOf(lamp, {"Mix", Access::Call, {}, pink}), errors::unknownName);
    EXPECT_EQ(FailureOf(lamp, {"Watts", Access::Call, {}, red}), errors::unknownName);
}

}  // namespace
}  // namespace automation
