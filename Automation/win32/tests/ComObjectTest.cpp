// ComObject: how foreign COM objects are called.
#include "automation_win32/ComObject.h"

#include <gtest/gtest.h>

#include "ForeignObject.h"
#include "automation/Collection.h"
#include "automation_win32/ComError.h"
#include "automation_win32/ComObjectFactory.h"
#include "automation_win32/Crossing.h"
#include "automation_win32/Variant.h"

namespace automation {
namespace {

using testing::ForeignCall;
using testing::ForeignObject;
using testing::References;

constexpr WORD read = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

template <class Action>
uint32_t FailureOf(Action action) {
    try {
        action();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

class ComObjectTest : public ::testing::Test {
  protected:
    ~ComObjectTest() override { EXPECT_EQ(ForeignObject::live, liveBefore_); }

  private:
    int liveBefore_ = ForeignObject::live;
};

TEST_F(ComObjectTest, MembersAreReadAsMethodOrPropertyWithTheirArgumentsBackwards) {
    const auto foreign = MakeCom<ForeignObject>(std::vector<std::wstring>{L"Sum"}, [](const ForeignCall& call) {
        EXPECT_EQ(call.member, 1);
        EXPECT_EQ(call.flags, read);
        EXPECT_EQ(call.parameters->cNamedArgs, 0u);
        EXPECT_EQ(call.parameters->cArgs, 3u);
        EXPECT_EQ(V_I4(&call.parameters->rgvarg[2]), 7);
        EXPECT_EQ(V_VT(&call.parameters->rgvarg[1]), VT_ERROR);
        EXPECT_EQ(V_ERROR(&call.parameters->rgvarg[1]), DISP_E_PARAMNOTFOUND);
        EXPECT_EQ(V_VT(&call.parameters->rgvarg[0]), VT_BSTR);
        V_VT(call.result) = VT_I4;
        V_I4(call.result) = 99;
        return S_OK;
    });
    EXPECT_EQ(FromCom(foreign.Get())->Get("SUM", 7, Missing(), "x").ToLong(), 99);
}

TEST_F(ComObjectTest, NamedArgumentsStandBeforeTheOthers) {
    const auto foreign = MakeCom<ForeignObject>(std::vector<std::wstring>{L"Logon", L"ShowDialog", L"NewSession"},
                                                [](const ForeignCall& call) {
                                                    EXPECT_EQ(call.parameters->cArgs, 2u);
                                                    EXPECT_EQ(call.parameters->cNamedArgs, 2u);
                                                    EXPECT_EQ(call.parameters->rgdispidNamedArgs[0], 2);
                                                    EXPECT_EQ(call.parameters->rgdispidNamedArgs[1], 3);
                                                    EXPECT_EQ(V_BOOL(&call.parameters->rgvarg[0]), VARIANT_TRUE);
                                                    EXPECT_EQ(V_BOOL(&call.parameters->rgvarg[1]), VARIANT_FALSE);
                                                    return S_OK;
                                                });
    const NamedArgument arguments[] = {{"ShowDialog", true}, {"NewSession", false}};
    FromCom(foreign.Get())->CallNamed("Logon", arguments);
}

TEST_F(ComObjectTest, APropertyIsPutWithItsValueNamed) {
    std::vector<WORD> flags;
    const auto foreign = MakeCom<ForeignObject>(std::vector<std::wstring>{L"Columns"}, [&](const ForeignCall& call) {
        flags.push_back(call.flags);
        EXPECT_EQ(call.parameters->cNamedArgs, 1u);
        EXPECT_EQ(call.parameters->rgdispidNamedArgs[0], DISPID_PROPERTYPUT);
        EXPECT_EQ(V_VT(&call.parameters->rgvarg[0]), VT_ARRAY | VT_VARIANT);
        return S_OK;
    });
    FromCom(foreign.Get())->Put("Columns", Array{0, {1, 2}});
    EXPECT_EQ(flags, (std::vector<WORD>{DISPATCH_PROPERTYPUT}));
}

TEST_F(ComObjectTest, AnObjectThatIsRefusedOneWayIsPutTheOther) {
    std::vector<WORD> flags;
    WORD accepted = DISPATCH_PROPERTYPUTREF;
    const auto foreign = MakeCom<ForeignObject>(std::vector<std::wstring>{L"Font"}, [&](const ForeignCall& call) {
        flags.push_back(call.flags);
        return call.flags == accepted ? S_OK : DISP_E_MEMBERNOTFOUND;
    });
    const ObjectRef object = FromCom(foreign.Get());
    object->Put("Font", nullptr);
    EXPECT_EQ(flags, (std::vector<WORD>{DISPATCH_PROPERTYPUT, DISPATCH_PROPERTYPUTREF}));
    flags.clear();
    accepted = DISPATCH_PROPERTYPUT;
    object->PutRef("Font", nullptr);
    EXPECT_EQ(flags, (std::vector<WORD>{DISPATCH_PROPERTYPUTREF, DISPATCH_PROPERTYPUT}));
    accepted = 0;
    EXPECT_EQ(FailureOf([&] { object->Put("Font", nullptr); }), errors::memberNotFound);
}

TEST_F(ComObjectTest, AValueThatIsRefusedIsNotPutAgain) {
    int calls = 0;
    const auto foreign = MakeCom<ForeignObject>(std::vector<std::wstring>{L"Name"}, [&](const ForeignCall&) {
        ++calls;
        return DISP_E_MEMBERNOTFOUND;
    });
    EXPECT_EQ(FailureOf([&] { FromCom(foreign.Get())->Put("Name", "x"); }), errors::memberNotFound);
    EXPECT_EQ(calls, 1);
}

TEST_F(ComObjectTest, AnExceptionBecomesAnErrorWithItsNumberTextAndLine) {
    const auto foreign = MakeCom<ForeignObject>(std::vector<std::wstring>{L"Open"}, [](const ForeignCall& call) {
        call.info->scode = static_cast<SCODE>(0x8004011D);
        call.info->bstrDescription = SysAllocString(L"Store failed");
        return DISP_E_EXCEPTION;
    });
    const int expected = __LINE__ + 2;
    try {
        FromCom(foreign.Get())->Get("Open");
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), 0x8004011Du);
        EXPECT_EQ(error.Text(), "Store failed");
        EXPECT_EQ(error.Line(), expected);
    }
}

TEST_F(ComObjectTest, AnUnknownNameIsAnErrorAndNoMember) {
    const auto foreign =
        MakeCom<ForeignObject>(std::vector<std::wstring>{L"Name"}, [](const ForeignCall&) { return S_OK; });
    const ObjectRef object = FromCom(foreign.Get());
    EXPECT_EQ(FailureOf([&] { object->Get("Nome"); }), errors::unknownName);
    EXPECT_FALSE(object->HasMember("Nome"));
    EXPECT_TRUE(object->HasMember("nAME"));
}

TEST_F(ComObjectTest, TheDefaultMemberIsNumberZero) {
    const auto foreign = MakeCom<ForeignObject>(std::vector<std::wstring>{}, [](const ForeignCall& call) {
        EXPECT_EQ(call.member, DISPID_VALUE);
        return S_OK;
    });
    FromCom(foreign.Get())->Get("", 1);
}

TEST_F(ComObjectTest, ANameIsAskedForOnce) {
    const auto foreign =
        MakeCom<ForeignObject>(std::vector<std::wstring>{L"Name"}, [](const ForeignCall&) { return S_OK; });
    const ObjectRef object = FromCom(foreign.Get());
    object->Get("Name");
    object->Get("NAME");
    object->Put("Name", 1);
    EXPECT_EQ(foreign->lookups, 1);
}

TEST_F(ComObjectTest, EqualNamesOfObjectsWithoutATypeHaveTheirOwnNumbers) {
    std::vector<DISPID> members;
    const auto handler = [&](const ForeignCall& call) {
        members.push_back(call.member);
        return S_OK;
    };
    const auto folder = MakeCom<ForeignObject>(std::vector<std::wstring>{L"Name", L"EntryID"}, handler);
    const auto list = MakeCom<ForeignObject>(std::vector<std::wstring>{L"EntryID", L"Name"}, handler);
    FromCom(folder.Get())->Get("Name");
    FromCom(list.Get())->Get("Name");
    EXPECT_EQ(members, (std::vector<DISPID>{1, 2}));
}

TEST_F(ComObjectTest, ArgumentsAndResultsAreReleased) {
    const auto argument = MakeCom<ForeignObject>(std::vector<std::wstring>{}, [](const ForeignCall&) { return S_OK; });
    const auto foreign = MakeCom<ForeignObject>(std::vector<std::wstring>{L"Echo"}, [](const ForeignCall& call) {
        return VariantCopy(call.result, &call.parameters->rgvarg[0]);
    });
    const ULONG before = References(argument.Get());
    {
        const ObjectRef object = FromCom(argument.Get());
        EXPECT_EQ(FromCom(foreign.Get())->Get("Echo", object).ToObject(), object);
    }
    EXPECT_EQ(References(argument.Get()), before);
}

TEST_F(ComObjectTest, TheObjectLivesThroughACallThatReleasesIt) {
    ObjectRef held;
    auto foreign = MakeCom<ForeignObject>(std::vector<std::wstring>{L"Leave"}, [&](const ForeignCall& call) {
        held.reset();
        V_VT(call.result) = VT_I4;
        V_I4(call.result) = 3;
        return S_OK;
    });
    held = FromCom(foreign.Get());
    foreign.Reset();
    EXPECT_EQ(held->Get("Leave").ToLong(), 3);
    EXPECT_EQ(held, nullptr);
}

TEST_F(ComObjectTest, AnObjectThatIsNoCollectionOffersNoEnumeration) {
    for (const HRESULT answer : {DISP_E_MEMBERNOTFOUND, DISP_E_UNKNOWNNAME, E_NOTIMPL}) {
        const auto foreign =
            MakeCom<ForeignObject>(std::vector<std::wstring>{}, [&](const ForeignCall&) { return answer; });
        EXPECT_EQ(FromCom(foreign.Get())->NewEnum(), nullptr);
    }
    const auto odd = MakeCom<ForeignObject>(std::vector<std::wstring>{}, [&](const ForeignCall&) { return S_OK; });
    EXPECT_EQ(FromCom(odd.Get())->NewEnum(), nullptr);
}

TEST_F(ComObjectTest, ACollectionThatFailsToEnumerateIsAnError) {
    const auto foreign =
        MakeCom<ForeignObject>(std::vector<std::wstring>{}, [&](const ForeignCall&) { return E_ACCESSDENIED; });
    EXPECT_EQ(FailureOf([&] { FromCom(foreign.Get())->NewEnum(); }), 0x80070005u);
}

TEST_F(ComObjectTest, ADictionaryOfTheSystemIsUsedByName) {
    ComObjectFactory factory;
    const ObjectRef dictionary = factory.Create("Scripting.Dictionary");
    dictionary->Get("Add", "one", 1);
    dictionary->Get("Add", "zwei \xC3\xA4", Array{0, {2, "b"}});
    EXPECT_EQ(dictionary->Get("Count").ToLong(), 2);
    EXPECT_EQ(dictionary->Get("Item", "one").ToLong(), 1);
    EXPECT_EQ(dictionary->Get("", "one").ToLong(), 1);
    EXPECT_EQ(dictionary->Get("Item", "zwei \xC3\xA4").AsArray()->items[1].ToText(), "b");
    EXPECT_TRUE(dictionary->Get("Exists", "one").ToBoolean());
    std::string keys;
    const auto walk = Collection(dictionary).Walk();
    for (Value key; walk->Next(key);) keys += key.ToText() + ";";
    EXPECT_EQ(keys, "one;zwei \xC3\xA4;");
    EXPECT_EQ(FailureOf([&] { dictionary->Get("Add", "one", 1); }), 0x800A01C9u);
}

TEST_F(ComObjectTest, ObjectsInADictionaryOfTheSystemComeBackTheSame) {
    ComObjectFactory factory;
    const ObjectRef dictionary = factory.Create("Scripting.Dictionary");
    const ObjectRef inner = factory.Create("Scripting.Dictionary");
    dictionary->Get("Add", "x", inner);
    EXPECT_EQ(dictionary->Get("Item", "x").ToObject(), inner);
    dictionary->Get("RemoveAll");
}

TEST(ComObjectFactory, AClassThatIsNotRegisteredHasItsError) {
    ComObjectFactory factory;
    EXPECT_EQ(FailureOf([&] { factory.Create("No.Such.Class"); }), 0x80040154u);
}

}  // namespace
}  // namespace automation
