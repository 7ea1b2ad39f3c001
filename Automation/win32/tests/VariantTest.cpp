// Variant: every type, both ways, by value and by reference.
#include "automation_win32/Variant.h"

#include <gtest/gtest.h>

#include <limits>

#include "automation/Error.h"
#include "automation_testing/CallLog.h"
#include "automation_win32/Bstr.h"

namespace automation {
namespace {

using testing::Describe;

Value RoundTrip(const Value& value) {
    return Variant(value).ToValue();
}

uint32_t FailureOf(const VARIANT& variant) {
    try {
        FromVariant(variant);
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

VARIANT Typed(VARTYPE type) {
    VARIANT variant;
    VariantInit(&variant);
    V_VT(&variant) = type;
    return variant;
}

TEST(Variant, PlainValuesComeBackWithTheirTypes) {
    const Value values[] = {Value(),
                            Null(),
                            Missing(),
                            true,
                            false,
                            Value::Byte(200),
                            Value::Integer(-5),
                            -7,
                            Value::LongLong(INT64_MIN),
                            Value::Single(0.5f),
                            0.1,
                            Currency{-12345},
                            Date{45000.25},
                            "text",
                            "",
                            ErrorValue{0x8004010F}};
    for (const Value& value : values)
        EXPECT_EQ(RoundTrip(value).Raw().index(), value.Raw().index()) << value.TypeName();
    EXPECT_EQ(RoundTrip(Value::LongLong(INT64_MIN)).ToText(), "-9223372036854775808");
    EXPECT_EQ(RoundTrip(Currency{-12345}).ToText(), "-1.2345");
    EXPECT_EQ(RoundTrip(Date{45000.25}).ToText(), "2023-03-15 06:00:00");
    EXPECT_EQ(std::get<ErrorValue>(RoundTrip(ErrorValue{0x8004010F}).Raw()).code, 0x8004010Fu);
    EXPECT_EQ(RoundTrip(true).ToLong(), -1);
}

TEST(Variant, BooleansHaveAllBitsSet) {
    EXPECT_EQ(V_BOOL(&Variant(true).Raw()), VARIANT_TRUE);
}

TEST(Variant, AnArgumentThatIsLeftOutIsParamNotFound) {
    Variant missing{Value(Missing())};
    EXPECT_EQ(V_VT(&missing.Raw()), VT_ERROR);
    EXPECT_EQ(V_ERROR(&missing.Raw()), DISP_E_PARAMNOTFOUND);
}

TEST(Variant, TextSurvivesWithNulsAndLoneSurrogates) {
    const std::string texts[] = {std::string("a\0b", 3), "\xED\xA0\xBD", "\xED\xB8\x80x", "日本\xF0\x9F\x98\x80",
                                 std::string(65536, 'x')};
    for (const std::string& text : texts) EXPECT_EQ(RoundTrip(text).ToText(), text);
}

TEST(Variant, ANullBstrIsTheEmptyText) {
    const VARIANT variant = Typed(VT_BSTR);
    EXPECT_TRUE(FromVariant(variant).IsText());
    EXPECT_EQ(FromVariant(variant).ToText(), "");
}

TEST(Variant, UnsignedNumbersTakeTheSmallestTypeThatHoldsThem) {
    VARIANT variant = Typed(VT_UI4);
    V_UI4(&variant) = 0x7FFFFFFF;
    EXPECT_EQ(FromVariant(variant).TypeName(), "Long");
    V_UI4(&variant) = 0x80000000;
    EXPECT_EQ(FromVariant(variant).TypeName(), "LongLong");
    EXPECT_EQ(FromVariant(variant).ToText(), "2147483648");
    V_VT(&variant) = VT_UI8;
    V_UI8(&variant) = std::numeric_limits<uint64_t>::max();
    EXPECT_EQ(FromVariant(variant).ToDouble(), 18446744073709551615.0);
    V_VT(&variant) = VT_UI2;
    V_UI2(&variant) = 65535;
    EXPECT_EQ(FromVariant(variant).ToLong(), 65535);
    V_VT(&variant) = VT_I1;
    V_I1(&variant) = -3;
    EXPECT_EQ(FromVariant(variant).ToLong(), -3);
    V_VT(&variant) = VT_UINT;
    V_UINT(&variant) = 5;
    EXPECT_EQ(FromVariant(variant).ToLong(), 5);
    V_VT(&variant) = VT_INT;
    V_INT(&variant) = -5;
    EXPECT_EQ(FromVariant(variant).ToLong(), -5);
}

TEST(Variant, ADecimalIsADouble) {
    VARIANT variant = Typed(VT_EMPTY);
    ASSERT_EQ(VarDecFromR8(-12.5, &V_DECIMAL(&variant)), S_OK);
    V_VT(&variant) = VT_DECIMAL;
    EXPECT_EQ(FromVariant(variant).ToDouble(), -12.5);
    DECIMAL decimal = V_DECIMAL(&variant);
    VARIANT reference = Typed(VT_BYREF | VT_DECIMAL);
    V_DECIMALREF(&reference) = &decimal;
    EXPECT_EQ(FromVariant(reference).ToDouble(), -12.5);
}

TEST(Variant, ReferencesAreFollowed) {
    LONG number = 42;
    VARIANT reference = Typed(VT_BYREF | VT_I4);
    V_I4REF(&reference) = &number;
    EXPECT_EQ(FromVariant(reference).ToLong(), 42);

    BSTR text = SysAllocString(L"abc");
    V_VT(&reference) = VT_BYREF | VT_BSTR;
    V_BSTRREF(&reference) = &text;
    EXPECT_EQ(FromVariant(reference).ToText(), "abc");
    SysFreeString(text);

    Variant inner{Value("inner")};
    V_VT(&reference) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&reference) = &inner.Raw();
    EXPECT_EQ(FromVariant(reference).ToText(), "inner");

    VARIANT_BOOL yes = VARIANT_TRUE;
    V_VT(&reference) = VT_BYREF | VT_BOOL;
    V_BOOLREF(&reference) = &yes;
    EXPECT_TRUE(FromVariant(reference).ToBoolean());
}

TEST(Variant, AReferenceToNowhereIsAMismatch) {
    VARIANT reference = Typed(VT_BYREF | VT_VARIANT);
    EXPECT_EQ(FailureOf(reference), errors::typeMismatch);
    V_VT(&reference) = VT_BYREF | VT_I4;
    EXPECT_EQ(FailureOf(reference), errors::typeMismatch);
}

TEST(Variant, AReferenceToItselfIsAMismatch) {
    VARIANT ring = Typed(VT_BYREF | VT_VARIANT);
    V_VARIANTREF(&ring) = &ring;
    EXPECT_EQ(FailureOf(ring), errors::typeMismatch);
}

TEST(Variant, TypesThatHostsDoNotSendAreAMismatch) {
    EXPECT_EQ(FailureOf(Typed(VT_RECORD)), errors::typeMismatch);
    EXPECT_EQ(FailureOf(Typed(VT_LPWSTR)), errors::typeMismatch);
    EXPECT_EQ(FailureOf(Typed(VT_FILETIME)), errors::typeMismatch);
}

TEST(Variant, ArraysComeBackWithTheirBounds) {
    const Value rows = Array{-2, {Array{1, {1, "a", Bytes{0, {9}}}}, Missing(), ErrorValue{0x8004010F}}};
    const Value back = RoundTrip(rows);
    EXPECT_EQ(Describe(back), Describe(rows));
    EXPECT_EQ(back.AsArray()->lowerBound, -2);
    EXPECT_EQ(back.AsArray()->items[0].AsArray()->lowerBound, 1);
}

TEST(Variant, BytesComeBackWithTheirBounds) {
    const Value back = RoundTrip(Bytes{3, {0, 255, 7}});
    ASSERT_NE(back.AsBytes(), nullptr);
    EXPECT_EQ(back.AsBytes()->lowerBound, 3);
    EXPECT_EQ(Describe(back), "0x00FF07");
}

TEST(Variant, EmptyArraysAreEmpty) {
    EXPECT_EQ(RoundTrip(Array{}).AsArray()->items.size(), 0u);
    EXPECT_EQ(RoundTrip(Bytes{}).AsBytes()->items.size(), 0u);
    EXPECT_NE(FromVariant(Typed(VT_ARRAY | VT_VARIANT)).AsArray(), nullptr);
    EXPECT_NE(FromVariant(Typed(VT_ARRAY | VT_UI1)).AsBytes(), nullptr);
}

TEST(Variant, ArraysOfPlainTypesAreRead) {
    SAFEARRAY* numbers = SafeArrayCreateVector(VT_I4, 5, 2);
    LONG index = 6, number = -9;
    SafeArrayPutElement(numbers, &index, &number);
    VARIANT variant = Typed(VT_ARRAY | VT_I4);
    V_ARRAY(&variant) = numbers;
    EXPECT_EQ(Describe(FromVariant(variant)), "[0, -9]");
    EXPECT_EQ(FromVariant(variant).AsArray()->lowerBound, 5);

    VARIANT reference = Typed(VT_BYREF | VT_ARRAY | VT_I4);
    V_ARRAYREF(&reference) = &V_ARRAY(&variant);
    EXPECT_EQ(Describe(FromVariant(reference)), "[0, -9]");
    VariantClear(&variant);

    SAFEARRAY* texts = SafeArrayCreateVector(VT_BSTR, 0, 2);
    index = 1;
    BSTR text = SysAllocString(L"two");
    SafeArrayPutElement(texts, &index, text);
    SysFreeString(text);
    V_VT(&variant) = VT_ARRAY | VT_BSTR;
    V_ARRAY(&variant) = texts;
    EXPECT_EQ(Describe(FromVariant(variant)), "[\"\", \"two\"]");
    VariantClear(&variant);
}

TEST(Variant, ArraysThatHoldOtherElementsThanTheVariantSaysAreAMismatch) {
    const auto numberOf = [](VARTYPE said, VARTYPE held) {
        VARIANT variant = Typed(VT_ARRAY | said);
        V_ARRAY(&variant) = SafeArrayCreateVector(held, 0, 3);
        const uint32_t number = FailureOf(variant);
        SafeArrayDestroy(V_ARRAY(&variant));
        return number;
    };
    EXPECT_EQ(numberOf(VT_I8, VT_UI1), errors::typeMismatch) << "the last elements would lie behind the array";
    EXPECT_EQ(numberOf(VT_UI1, VT_VARIANT), errors::typeMismatch);
    EXPECT_EQ(numberOf(VT_BSTR, VT_I8), errors::typeMismatch) << "numbers are no addresses";
    EXPECT_EQ(numberOf(VT_DISPATCH, VT_BSTR), errors::typeMismatch);
}

TEST(Variant, ArraysOfMoreDimensionsAreAMismatch) {
    SAFEARRAYBOUND bounds[] = {{2, 0}, {2, 0}};
    VARIANT variant = Typed(VT_ARRAY | VT_VARIANT);
    V_ARRAY(&variant) = SafeArrayCreate(VT_VARIANT, 2, bounds);
    EXPECT_EQ(FailureOf(variant), errors::typeMismatch);
    VariantClear(&variant);
}

TEST(Bstr, WideTextEndsWhereItEnds) {
    EXPECT_EQ(ToWide("\xC3\xA9"), L"\x00E9");
    EXPECT_EQ(FromWide(L"\x00E9"), "\xC3\xA9");
    EXPECT_EQ(FromBstr(nullptr), "");
}

}  // namespace
}  // namespace automation
