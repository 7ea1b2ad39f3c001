// Value: its types and the conversions between them.
#include "automation/Value.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <vector>

#include "automation/KeyedCollection.h"
#include "automation_testing/FailingMemory.h"

namespace automation {
namespace {

uint32_t NumberOfFailure(const std::function<void()>& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

TEST(Value, EveryTypeHasItsName) {
    EXPECT_EQ(Value().TypeName(), "Empty");
    EXPECT_EQ(Value(Null()).TypeName(), "Null");
    EXPECT_EQ(Value(Missing()).TypeName(), "Error");
    EXPECT_EQ(Value(ErrorValue{5}).TypeName(), "Error");
    EXPECT_EQ(Value(true).TypeName(), "Boolean");
    EXPECT_EQ(Value::Byte(1).TypeName(), "Byte");
    EXPECT_EQ(Value::Integer(1).TypeName(), "Integer");
    EXPECT_EQ(Value(1).TypeName(), "Long");
    EXPECT_EQ(Value::LongLong(1).TypeName(), "LongLong");
    EXPECT_EQ(Value::Single(1).TypeName(), "Single");
    EXPECT_EQ(Value(1.0).TypeName(), "Double");
    EXPECT_EQ(Value(Currency{1}).TypeName(), "Currency");
    EXPECT_EQ(Value(Date{1}).TypeName(), "Date");
    EXPECT_EQ(Value("").TypeName(), "String");
    EXPECT_EQ(Value(nullptr).TypeName(), "Nothing");
    EXPECT_EQ(Value(std::make_shared<KeyedCollection>()).TypeName(), "Object");
    EXPECT_EQ(Value(Array{}).TypeName(), "Variant()");
    EXPECT_EQ(Value(Bytes{}).TypeName(), "Byte()");
}

TEST(Value, TextBecomesABooleanByWordOrByNumber) {
    EXPECT_TRUE(Value("True").ToBoolean());
    EXPECT_TRUE(Value("tRUE").ToBoolean());
    EXPECT_FALSE(Value("False").ToBoolean());
    EXPECT_TRUE(Value("-1").ToBoolean());
    EXPECT_TRUE(Value(" 0.1 ").ToBoolean());
    EXPECT_FALSE(Value("0").ToBoolean());
    EXPECT_EQ(NumberOfFailure([] { Value("yes").ToBoolean(); }), errors::typeMismatch);
    EXPECT_EQ(NumberOfFailure([] { Value("").ToBoolean(); }), errors::typeMismatch);
}

TEST(Value, NumbersBecomeLongsByRoundingHalvesToEven) {
    EXPECT_EQ(Value().ToLong(), 0);
    EXPECT_EQ(Value(true).ToLong(), -1);
    EXPECT_EQ(Value("True").ToLong(), -1);
    EXPECT_EQ(Value(2.5).ToLong(), 2);
    EXPECT_EQ(Value("3.5").ToLong(), 4);
    EXPECT_EQ(Value::Byte(200).ToLong(), 200);
    EXPECT_EQ(Value::Integer(-3).ToLong(), -3);
    EXPECT_EQ(Value(Currency{25000}).ToLong(), 2);
    EXPECT_EQ(Value(Date{1.5}).ToLong(), 2);
    EXPECT_EQ(Value::LongLong(int64_t{1} << 31 | 0).ToDouble(), 2147483648.0);
}

TEST(Value, WhatDoesNotFitALongIsAnOverflow) {
    EXPECT_EQ(NumberOfFailure([] { Value::LongLong(int64_t{1} << 31).ToLong(); }), errors::overflow);
    EXPECT_EQ(NumberOfFailure([] { Value("1e10").ToLong(); }), errors::overflow);
    EXPECT_EQ(NumberOfFailure([] { Value("1e999").ToDouble(); }), errors::overflow);
}

TEST(Value, WhatIsNoPlainValueConvertsToNone) {
    const Value values[] = {Null(), Missing(), ErrorValue{0x8004010F}, nullptr, Array{}, Bytes{}};
    for (const Value& value : values) {
        EXPECT_EQ(NumberOfFailure([&] { value.ToBoolean(); }), errors::typeMismatch) << value.TypeName();
        EXPECT_EQ(NumberOfFailure([&] { value.ToLong(); }), errors::typeMismatch) << value.TypeName();
        EXPECT_EQ(NumberOfFailure([&] { value.ToDouble(); }), errors::typeMismatch) << value.TypeName();
        EXPECT_EQ(NumberOfFailure([&] { value.ToText(); }), errors::typeMismatch) << value.TypeName();
    }
}

TEST(Value, PlainValuesAreWrittenTheSameInEveryCountry) {
    EXPECT_EQ(Value().ToText(), "");
    EXPECT_EQ(Value(true).ToText(), "True");
    EXPECT_EQ(Value(false).ToText(), "False");
    EXPECT_EQ(Value(-12).ToText(), "-12");
    EXPECT_EQ(Value::Byte(255).ToText(), "255");
    EXPECT_EQ(Value::LongLong(INT64_MIN).ToText(), "-9223372036854775808");
    EXPECT_EQ(Value(1.5).ToText(), "1.5");
    EXPECT_EQ(Value::Single(0.1f).ToText(), "0.1");
    EXPECT_EQ(Value(Currency{123400}).ToText(), "12.34");
    EXPECT_EQ(Value(Currency{-1}).ToText(), "-0.0001");
    EXPECT_EQ(Value(Currency{INT64_MIN}).ToText(), "-922337203685477.5808");
    EXPECT_EQ(Value(std::string("a\0b", 3)).ToText(), std::string("a\0b", 3));
}

TEST(Value, DatesAreWrittenYearFirst) {
    EXPECT_EQ(Value(Date{0}).ToText(), "1899-12-30");
    EXPECT_EQ(Value(Date{45000.75}).ToText(), "2023-03-15 18:00:00");
    EXPECT_EQ(Value(Date{-1.25}).ToText(), "1899-12-29 06:00:00");
    EXPECT_EQ(Value(Date{0.9999999}).ToText(), "1899-12-31");
    EXPECT_EQ(NumberOfFailure([] { Value(Date{1e10}).ToText(); }), errors::overflow);
}

TEST(Value, AnObjectIsGivenOrNothing) {
    const ObjectRef object = std::make_shared<KeyedCollection>();
    EXPECT_EQ(Value(object).ToObject(), object);
    EXPECT_EQ(Value(nullptr).ToObject(), nullptr);
    EXPECT_EQ(Value().ToObject(), nullptr);
    EXPECT_EQ(Value(Missing()).ToObject(), nullptr);
    EXPECT_EQ(NumberOfFailure([] { Value(1).ToObject(); }), errors::typeMismatch);
    EXPECT_EQ(NumberOfFailure([] { Value(Null()).ToObject(); }), errors::typeMismatch);
}

TEST(Value, ARequiredObjectIsNotNothing) {
    EXPECT_EQ(NumberOfFailure([] { Value(nullptr).RequireObject(); }), errors::objectNotSet);
    EXPECT_EQ(NumberOfFailure([] { Value().RequireObject(); }), errors::objectNotSet);
    EXPECT_EQ(NumberOfFailure([] { Value("x").RequireObject(); }), errors::typeMismatch);
}

TEST(Value, ArraysKeepTheirBoundsAndAreSharedByCopies) {
    const Value array = Array{-1, {1, "two"}};
    const Value copy = array;
    ASSERT_NE(copy.AsArray(), nullptr);
    EXPECT_EQ(copy.AsArray(), array.AsArray());
    EXPECT_EQ(copy.AsArray()->UpperBound(), 0);
    EXPECT_EQ(Value(Bytes{0, {1, 2}}).AsBytes()->items.size(), 2u);
    EXPECT_EQ(Value(1).AsArray(), nullptr);
    EXPECT_EQ(Array{}.UpperBound(), -1);
}

TEST(Value, TheUpperBoundOfAnArrayIsRightAtTheEndsOfTheNumbers) {
    EXPECT_EQ((Array{INT32_MIN, {}}.UpperBound()), int64_t{INT32_MIN} - 1);
    EXPECT_EQ((Array{INT32_MAX, {1, 2}}.UpperBound()), int64_t{INT32_MAX} + 1);
    EXPECT_EQ((Array{INT32_MAX, {1}}.UpperBound()), INT32_MAX);
}

TEST(Value, ACopyForWhichThereIsNoMemoryIsNotMade) {
    const Value original = std::string(100, 't');
    const Array array{0, {original, original}};
    Value assigned = 7;
    int failures = 0;
    for (const std::function<void()>& copy : std::vector<std::function<void()>>{
             [&] { const Value made = original; },
             [&] { assigned = original; },
             [&] { const Value made = Array(array); },
         }) {
        failures += static_cast<int>(testing::FailEachAllocation(false, [&](const testing::MemoryPlan& plan) {
            const testing::FailingMemory memory(plan);
            try {
                copy();
            } catch (const std::bad_alloc&) {
            }
            return memory.Refused() > 0;
        }));
        EXPECT_EQ(original.ToText(), std::string(100, 't'));
    }
    EXPECT_EQ(assigned.ToText(), original.ToText());
    EXPECT_GE(failures, 5);
}

TEST(Value, WhatAnAssignmentReplacesEndsWhenTheNewValueIsThere) {
    struct Last : Object {
        explicit Last(std::function<void()> action) : action_(std::move(action)) {}
        ~Last() override { action_(); }
        Value Invoke(const Invocation&) override { return {}; }
        bool HasMember(std::string_view) const override { return false; }
        std::function<void()> action_;
    };
    const Value others[] = {7, "text", Array{}, std::make_shared<KeyedCollection>(), Value()};
    for (const Value& other : others) {
        Value value;
        Value seen = "not called";
        value = std::make_shared<Last>([&] { seen = value; });
        value = other;
        EXPECT_EQ(seen.Raw(), other.Raw()) << other.TypeName();
    }
}

}  // namespace
}  // namespace automation
