// ItemCollectionTest: the demo's collection through IDispatch, the way the control uses it.
#include "ItemCollection.h"

#include <gtest/gtest.h>

#include <functional>

namespace demo {
namespace {

ComPtr<IDispatch> NewCollection() {
    return Adopt<IDispatch>(new ItemCollection);
}

int BasicErrorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const AutomationFailure& failure) {
        return HRESULT_CODE(failure.error);
    }
    return 0;
}

std::wstring Contents(IDispatch* collection) {
    std::wstring contents;
    const long count = Get(collection, L"Count").AsLong();
    for (long i = 1; i <= count; ++i) contents += Get(collection, L"Item", {i}).AsText();
    return contents;
}

TEST(ItemCollection, AddsAtTheEndOrBeforeAPosition) {
    const auto collection = NewCollection();
    Call(collection.Get(), L"Add", {L"b", L"kb"});
    Call(collection.Get(), L"Add", {L"c", L"kc", Variant::Missing()});
    Call(collection.Get(), L"Add", {L"a", L"ka", 1});
    EXPECT_EQ(Contents(collection.Get()), L"abc");
}

TEST(ItemCollection, FindsAnItemByKeyWithoutRegardToCase) {
    const auto collection = NewCollection();
    Call(collection.Get(), L"Add", {L"b", L"SAB|CD"});
    EXPECT_EQ(Get(collection.Get(), L"Item", {L"sab|cd"}).AsText(), L"b");
}

TEST(ItemCollection, RefusesAKeyThatIsTaken) {
    const auto collection = NewCollection();
    Call(collection.Get(), L"Add", {L"a", L"key"});
    EXPECT_EQ(BasicErrorOf([&] { Call(collection.Get(), L"Add", {L"b", L"KEY"}); }), 457);
    EXPECT_EQ(Contents(collection.Get()), L"a");
}

TEST(ItemCollection, SaysThatAKeyIsUnknownOrAPositionOutOfRange) {
    const auto collection = NewCollection();
    EXPECT_EQ(BasicErrorOf([&] { Get(collection.Get(), L"Item", {L"none"}); }), 5);
    EXPECT_EQ(BasicErrorOf([&] { Get(collection.Get(), L"Item", {1}); }), 9);
    EXPECT_EQ(BasicErrorOf([&] { Call(collection.Get(), L"Remove", {0}); }), 9);
}

TEST(ItemCollection, RemovesByPosition) {
    const auto collection = NewCollection();
    for (const wchar_t* text : {L"a", L"b", L"c"}) Call(collection.Get(), L"Add", {text, text});
    Call(collection.Get(), L"Remove", {2});
    EXPECT_EQ(Contents(collection.Get()), L"ac");
}

TEST(ItemCollection, EnumeratesItsItemsInOrder) {
    const auto collection = NewCollection();
    for (const wchar_t* text : {L"a", L"b"}) Call(collection.Get(), L"Add", {text});
    DISPPARAMS none = {};
    Variant answer;
    ASSERT_EQ(collection->Invoke(DISPID_NEWENUM, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &answer, nullptr, nullptr),
              S_OK);
    ComPtr<IEnumVARIANT> enumerator;
    ASSERT_EQ(answer.punkVal->QueryInterface(IID_PPV_ARGS(&enumerator)), S_OK);
    Variant items[3];
    ULONG fetched = 0;
    EXPECT_EQ(enumerator->Next(3, items, &fetched), S_FALSE);
    ASSERT_EQ(fetched, 2u);
    EXPECT_EQ(items[0].AsText() + items[1].AsText(), L"ab");
}

}  // namespace
}  // namespace demo
