// LateBindingTest: the control and its item as script hosts use them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <olectl.h>

#include "automation/KeyedCollection.h"
#include "automation_testing/ScriptedObject.h"
#include "automation_win32/Crossing.h"
#include "automation_win32/Variant.h"
#include "com/Mailbox.h"
#include "com/Server.h"

namespace foldertree::testing {
namespace {

using automation::Error;
using automation::KeyedCollection;
using automation::Missing;
using automation::ObjectRef;
using automation::Value;
using automation::testing::ScriptedObject;
using ::testing::AnyOf;

/// The number of the error that the action throws; 0 when it throws none.
template <class Action>
uint32_t ErrorOf(Action&& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

uint32_t Number(HRESULT result) {
    return static_cast<uint32_t>(result);
}

std::shared_ptr<KeyedCollection> HostCollection(const std::vector<Value>& items) {
    auto collection = std::make_shared<KeyedCollection>();
    for (const Value& item : items) collection->Add(item, Missing(), Missing(), Missing());
    return collection;
}

class LateBinding : public ::testing::Test {
  protected:
    const ComPtr<_ctlFolderTree> control_ = NewControl();
    const ObjectRef tree_ = LateBound(control_.Get());
};

TEST_F(LateBinding, ReadsANewControlsDefaults) {
    EXPECT_EQ(tree_->Get("ListCount").ToLong(), 0);
    EXPECT_EQ(tree_->Get("ExtendToLevel").ToLong(), 1);
    EXPECT_TRUE(tree_->Get("Enabled").ToBoolean());
    EXPECT_TRUE(tree_->Get("MultiSelect").ToBoolean());
    EXPECT_FALSE(tree_->Get("AllowIndexing").ToBoolean());
    EXPECT_FALSE(tree_->Get("ShowAddressBook").ToBoolean());
    EXPECT_EQ(tree_->Get("InfoStoreAccessMode").ToLong(), 0);
    EXPECT_EQ(tree_->Get("BufferedToLevel").ToLong(), 0);
    EXPECT_EQ(tree_->Get("Selection").TypeName(), "Nothing");
    EXPECT_EQ(tree_->Get("SelectedItem").TypeName(), "Nothing");
    EXPECT_EQ(tree_->Get("RDOSessionRef").TypeName(), "Nothing");
    EXPECT_EQ(tree_->Get("Application").TypeName(), "Nothing");
}

TEST_F(LateBinding, KeepsWhatAPropertyIsSetTo) {
    for (const char* name : {"Enabled", "MultiSelect"}) {
        tree_->Put(name, false);
        EXPECT_FALSE(tree_->Get(name).ToBoolean()) << name;
    }
    for (const char* name : {"HighlightContactFolders", "HighlightJournalFolders", "HighlightTaskFolders",
                             "AllowIndexing", "ShowAddressBook"}) {
        tree_->Put(name, true);
        EXPECT_TRUE(tree_->Get(name).ToBoolean()) << name;
    }
    tree_->Put("InfoStoreAccessMode", 2);
    EXPECT_EQ(tree_->Get("InfoStoreAccessMode").ToLong(), 2);
}

TEST_F(LateBinding, TakesAnObjectByReferenceAndByValue) {
    const auto application = std::make_shared<ScriptedObject>("Application");
    tree_->PutRef("Application", application);
    EXPECT_EQ(tree_->Get("Application").ToObject(), application);
    tree_->PutRef("Application", nullptr);
    EXPECT_EQ(tree_->Get("Application").ToObject(), nullptr);

    // By value, as a script does without Set; straight through COM, since an adapter would try the other way, too.
    for (const WORD kind : {WORD{DISPATCH_PROPERTYPUT}, WORD{DISPATCH_PROPERTYPUTREF}}) {
        automation::Variant argument{Value(application)};
        DISPID put = DISPID_PROPERTYPUT;
        DISPPARAMS parameters = {&argument.Raw(), &put, 1, 1};
        EXPECT_EQ(control_->Invoke(1, IID_NULL, 0, kind, &parameters, nullptr, nullptr, nullptr), S_OK);
        EXPECT_EQ(tree_->Get("Application").ToObject(), application);
        tree_->PutRef("Application", nullptr);
    }
}

TEST_F(LateBinding, TakesNothingEmptyAndNullAsNoObject) {
    const auto host = std::make_shared<ScriptedObject>("Host");
    for (const char* name : {"Application", "RDOSessionRef", "Selection", "SelectedItem"}) {
        for (const Value& none : {Value(nullptr), Value(), Value(automation::Null())}) {
            if (std::string_view(name) == "Application") tree_->PutRef(name, host);
            tree_->Put(name, none);
            EXPECT_EQ(tree_->Get(name).TypeName(), "Nothing") << name << " = " << none.TypeName();
        }
    }
}

TEST_F(LateBinding, GivesTheSamePointerBackThatItWasHanded) {
    const auto collection = HostCollection({});
    tree_->PutRef("Selection", collection);
    ComPtr<IDispatch> back;
    EXPECT_EQ(control_->get_Selection(back.GetAddressOf()), S_OK);
    EXPECT_EQ(back.Get(), automation::ToDispatch(collection).Get());
}

/// A font as the system makes it. Where that has no such typeface, it names the one that it took instead.
ComPtr<IFontDisp> SystemFont(std::wstring name) {
    FONTDESC description = {};
    description.cbSizeofstruct = sizeof(description);
    description.lpstrName = name.data();
    description.cySize.int64 = 82500;
    ComPtr<IFontDisp> font;
    EXPECT_EQ(OleCreateFontIndirect(&description, __uuidof(IFontDisp), reinterpret_cast<void**>(font.GetAddressOf())),
              S_OK);
    return font;
}

TEST_F(LateBinding, HasATahomaFontThatCanBeReplaced) {
    const ObjectRef tahoma = LateBound(SystemFont(L"Tahoma").Get());
    EXPECT_EQ(tree_->Get("Font").RequireObject()->Get("Name").ToText(), tahoma->Get("Name").ToText());

    const auto arial = SystemFont(L"Arial");
    tree_->Put("Font", LateBound(arial.Get()));
    ComPtr<IFontDisp> back;
    EXPECT_EQ(control_->get_Font(back.GetAddressOf()), S_OK);
    EXPECT_EQ(back.Get(), arial.Get());
}

TEST_F(LateBinding, MakesItemsFromSavedIdentifiers) {
    const ObjectRef item = tree_->Get("CreateSelItem", 5, "AB", "CD", "EF", "").ToObject();
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->Get("Key").ToText(), "SAB|CD");
    EXPECT_EQ(item->Get("EntryIDShort").ToText(), "");
    EXPECT_TRUE(item->Get("Selected").ToBoolean());
    EXPECT_TRUE(item->Get("Incomplete").ToBoolean());
    EXPECT_EQ(item->Get("FolderRecID").ToLong(), 5);
    EXPECT_EQ(item->Get("KeyAlternate").ToText(), "SAB|EF");

    const ObjectRef list = tree_->Get("CreateSelItem", 5, "AB", "CD", "EF", "X1").ToObject();
    EXPECT_TRUE(list->Get("IsAddressList").ToBoolean());
    EXPECT_EQ(list->Get("Key").ToText(), "LX1");
}

TEST_F(LateBinding, LetsOptionalArgumentsBeLeftOut) {
    EXPECT_EQ(tree_->Get("CreateSelItem").ToObject()->Get("Key").ToText(), "");
    EXPECT_EQ(tree_->Get("CreateSelItem", 7, "AB").ToObject()->Get("FolderRecID").ToLong(), 7);
    EXPECT_EQ(tree_->Get("CreateSelItem", Missing(), "AB", "CD").ToObject()->Get("Key").ToText(), "SAB|CD");
    EXPECT_EQ(ErrorOf([&] { tree_->Get("SelectByType", 0); }), 0u);
}

TEST_F(LateBinding, TakesNamedArguments) {
    const automation::NamedArgument named[] = {{"sAdListID", "X1"}, {"lFolderRecID", 9}};
    const ObjectRef item = tree_->CallNamed("CreateSelItem", named).ToObject();
    EXPECT_EQ(item->Get("Key").ToText(), "LX1");
    EXPECT_EQ(item->Get("FolderRecID").ToLong(), 9);
}

TEST_F(LateBinding, ReportsTheConversionOfAnArgumentAndNothingElse) {
    EXPECT_EQ(ErrorOf([&] { tree_->Put("ExtendToLevel", "deep"); }), Number(DISP_E_TYPEMISMATCH));
    EXPECT_THAT(ErrorOf([&] { tree_->Get("GetMsgItem", "AB"); }),
                AnyOf(Number(DISP_E_BADPARAMCOUNT), Number(DISP_E_PARAMNOTOPTIONAL)));
    EXPECT_EQ(ErrorOf([&] { tree_->Get("NoSuchMember"); }), Number(DISP_E_UNKNOWNNAME));
    EXPECT_EQ(ErrorOf([&] { tree_->Put("ListCount", 1); }), Number(DISP_E_MEMBERNOTFOUND));
    EXPECT_THAT(ErrorOf([&] { tree_->Put("SelectedItem", std::make_shared<ScriptedObject>("Stranger")); }),
                AnyOf(Number(DISP_E_TYPEMISMATCH), Number(E_NOINTERFACE)));

    // A session that fails at every call is the control's own affair.
    const auto session = std::make_shared<ScriptedObject>("Session");
    EXPECT_EQ(ErrorOf([&] { tree_->PutRef("RDOSessionRef", session); }), 0u);
    EXPECT_EQ(ErrorOf([&] { tree_->Get("RefreshList"); }), 0u);
}

// ---- Items

TEST_F(LateBinding, LetsHostsWriteAnItemsIndexToAnyNumber) {
    const ObjectRef item = LateBound(NewItem().Get());
    for (const int32_t number : {7, 0, -1, INT32_MAX, INT32_MIN}) {
        item->Put("Index", number);
        EXPECT_EQ(item->Get("Index").ToLong(), number);
    }
}

TEST_F(LateBinding, RefusesHostsThePrivateSettersOfAnItem) {
    const ObjectRef item = LateBound(NewItem().Get());
    for (const char* name : {"FolderRecID", "Incomplete", "IsAddressList", "Selected", "StoreID", "EntryID",
                             "AddressListID", "EntryIDShort", "Name", "Path", "ItemType"})
        EXPECT_EQ(ErrorOf([&] { item->Put(name, 1); }), Number(DISP_E_MEMBERNOTFOUND)) << name;
}

TEST_F(LateBinding, GivesANewItemEmptyFields) {
    const ObjectRef item = LateBound(NewItem().Get());
    for (const char* name : {"StoreID", "EntryID", "AddressListID", "EntryIDShort", "Name", "Path", "Key"})
        EXPECT_EQ(item->Get(name).ToText(), "") << name;
    EXPECT_EQ(item->Get("ItemType").ToLong(), 0);
    EXPECT_EQ(item->Get("KeyShortEntryID").ToText(), "S|");
}

TEST_F(LateBinding, CompletesItsOwnItemsInsideAHostsCollection) {
    const ObjectRef session = SampleSession();
    const ObjectRef inbox = session->Get("GetDefaultFolder", 6).RequireObject();
    const ObjectRef store = session->Get("Stores").RequireObject()->Get("DefaultStore").RequireObject();
    const ObjectRef item = tree_->Get("CreateSelItem", 3, store->Get("EntryID"), inbox->Get("EntryID")).RequireObject();
    const auto collection = std::make_shared<KeyedCollection>();
    collection->Add(item, item->Get("Key"), Missing(), Missing());

    tree_->PutRef("RDOSessionRef", session);
    tree_->Get("RefreshList");
    EXPECT_TRUE(item->Get("Incomplete").ToBoolean());
    tree_->PutRef("Selection", collection);
    EXPECT_FALSE(item->Get("Incomplete").ToBoolean());
    EXPECT_EQ(item->Get("Name").ToText(), inbox->Get("Name").ToText());
    EXPECT_EQ(item->Get("FolderRecID").ToLong(), 3);
    EXPECT_EQ(tree_->Get("Selection").ToObject(), collection);
    EXPECT_EQ(collection->Count(), 1);
}

TEST_F(LateBinding, GivesTheSingleSelectionBackAsTheSameObject) {
    const ObjectRef session = SampleSession();
    const ObjectRef inbox = session->Get("GetDefaultFolder", 6).RequireObject();
    const ObjectRef store = session->Get("Stores").RequireObject()->Get("DefaultStore").RequireObject();
    tree_->PutRef("RDOSessionRef", session);
    tree_->Get("RefreshList");
    tree_->Put("MultiSelect", false);
    const ObjectRef item = tree_->Get("CreateSelItem", 3, store->Get("EntryID"), inbox->Get("EntryID")).RequireObject();
    tree_->PutRef("SelectedItem", item);
    EXPECT_EQ(tree_->Get("SelectedItem").ToObject(), item);
}

// ---- KillCollection

class KillCollection : public LateBinding {
  protected:
    HRESULT Kill(VARIANT& argument) {
        constexpr DISPID killCollection = 5;
        DISPPARAMS parameters = {&argument, nullptr, 1, 0};
        return control_->Invoke(killCollection, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
    }

    const std::shared_ptr<KeyedCollection> collection_ = HostCollection({1, 2, 3});
    ComPtr<IDispatch> pointer_ = automation::ToDispatch(collection_);
};

TEST_F(KillCollection, EmptiesACollectionThatIsPassedByValueAndLeavesTheCallersReference) {
    VARIANT argument;
    V_VT(&argument) = VT_DISPATCH;
    V_DISPATCH(&argument) = pointer_.Get();
    const ULONG before = References(pointer_.Get());
    EXPECT_EQ(Kill(argument), S_OK);
    EXPECT_EQ(collection_->Count(), 0);
    EXPECT_EQ(V_DISPATCH(&argument), pointer_.Get());
    EXPECT_EQ(References(pointer_.Get()), before);
}

TEST_F(KillCollection, SetsAnObjectVariableToNothing) {
    IDispatch* variable = nullptr;
    variable = ComPtr<IDispatch>(pointer_).Detach();
    VARIANT argument;
    V_VT(&argument) = VT_BYREF | VT_DISPATCH;
    V_DISPATCHREF(&argument) = &variable;
    const ULONG before = References(pointer_.Get());
    EXPECT_EQ(Kill(argument), S_OK);
    EXPECT_EQ(collection_->Count(), 0);
    EXPECT_EQ(variable, nullptr);
    EXPECT_EQ(References(pointer_.Get()), before - 1);
}

TEST_F(KillCollection, SetsAVariantVariableToNothing) {
    VARIANT variable;
    V_VT(&variable) = VT_DISPATCH;
    V_DISPATCH(&variable) = ComPtr<IDispatch>(pointer_).Detach();
    VARIANT argument;
    V_VT(&argument) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&argument) = &variable;
    EXPECT_EQ(Kill(argument), S_OK);
    EXPECT_EQ(collection_->Count(), 0);
    EXPECT_EQ(V_VT(&variable), VT_DISPATCH);
    EXPECT_EQ(V_DISPATCH(&variable), nullptr);
}

TEST_F(KillCollection, SetsAnUnknownVariableToNothing) {
    IUnknown* variable = nullptr;
    variable = ComPtr<IUnknown>(pointer_).Detach();
    VARIANT argument;
    V_VT(&argument) = VT_BYREF | VT_UNKNOWN;
    V_UNKNOWNREF(&argument) = &variable;
    EXPECT_EQ(Kill(argument), S_OK);
    EXPECT_EQ(collection_->Count(), 0);
    EXPECT_EQ(variable, nullptr);
}

TEST_F(KillCollection, DoesNothingForNothingAndEmpty) {
    VARIANT nothing;
    V_VT(&nothing) = VT_DISPATCH;
    V_DISPATCH(&nothing) = nullptr;
    EXPECT_EQ(Kill(nothing), S_OK);

    VARIANT empty;
    VariantInit(&empty);
    EXPECT_EQ(Kill(empty), S_OK);
    EXPECT_EQ(V_VT(&empty), VT_EMPTY);

    VARIANT reference;
    V_VT(&reference) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&reference) = &empty;
    EXPECT_EQ(Kill(reference), S_OK);

    IDispatch* variable = nullptr;
    V_VT(&reference) = VT_BYREF | VT_DISPATCH;
    V_DISPATCHREF(&reference) = &variable;
    EXPECT_EQ(Kill(reference), S_OK);

    EXPECT_EQ(control_->KillCollection(nullptr), S_OK);
}

TEST_F(KillCollection, WorksEarlyBound) {
    VARIANT variable;
    V_VT(&variable) = VT_DISPATCH;
    V_DISPATCH(&variable) = ComPtr<IDispatch>(pointer_).Detach();
    EXPECT_EQ(control_->KillCollection(&variable), S_OK);
    EXPECT_EQ(collection_->Count(), 0);
    EXPECT_EQ(V_DISPATCH(&variable), nullptr);
}

}  // namespace
}  // namespace foldertree::testing
