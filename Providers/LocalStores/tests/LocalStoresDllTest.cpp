// LocalStoresDllTest: the DLL as COM sees it, from another module and through IDispatch alone.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <string>

#include "TestFiles.h"
#include "automation/Collection.h"
#include "automation/Error.h"
#include "automation_win32/ComPtr.h"
#include "automation_win32/Crossing.h"

namespace localstores {
namespace {

using automation::ComPtr;
using automation::ObjectRef;
using automation::Value;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr CLSID sessionClass = {0x081d4c38, 0xb346, 0x4303, {0xbb, 0x78, 0xf9, 0x5e, 0xea, 0x5c, 0xcf, 0x3e}};
constexpr CLSID applicationClass = {0x09ea0cb4, 0xc862, 0x435e, {0x86, 0x4f, 0x42, 0x76, 0xac, 0x09, 0x73, 0xb9}};
constexpr CLSID cdoSessionClass = {0x64d4354c, 0x7510, 0x4d71, {0x85, 0x5d, 0x79, 0x17, 0xd2, 0xd0, 0xfd, 0xba}};
constexpr CLSID mapiSessionClass = {0x242d0384, 0x4d98, 0x46e8, {0x97, 0x54, 0x28, 0x88, 0x50, 0x1a, 0x6b, 0x05}};
const std::wstring userClasses = L"Software\\Classes\\";
const std::wstring userProgIdKey = userClasses + L"LocalStores.Session";
const std::wstring userClassKey = userClasses + L"CLSID\\{081D4C38-B346-4303-BB78-F95EEA5CCF3E}";
const std::wstring userMapiSessionKey = userClasses + L"MAPI.Session";
const std::wstring userMapiSessionClassKey = userClasses + L"CLSID\\{242D0384-4D98-46E8-9754-2888501A6B05}";

class LocalStoresDll : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(SUCCEEDED(CoInitialize(nullptr)));
        dll_ = LoadLibraryW(L"LocalStores.dll");
        ASSERT_NE(dll_, nullptr);
    }
    void TearDown() override {
        CoUninitialize();
        if (dll_ != nullptr) FreeLibrary(dll_);
    }

    template <class Function>
    Function Entry(const char* name) {
        const auto entry = GetProcAddress(dll_, name);
        EXPECT_NE(entry, nullptr) << name;
        return reinterpret_cast<Function>(reinterpret_cast<void*>(entry));
    }

    HRESULT GetClassObject(REFCLSID clsid, REFIID iid, void** out) {
        return Entry<HRESULT(WINAPI*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(clsid, iid, out);
    }
    HRESULT CanUnloadNow() { return Entry<HRESULT(WINAPI*)()>("DllCanUnloadNow")(); }
    HRESULT InstallForUser(bool install, const wchar_t* words = L"user") {
        return Entry<HRESULT(WINAPI*)(BOOL, const wchar_t*)>("DllInstall")(install, words);
    }

    ObjectRef NewObject(REFCLSID clsid) {
        ComPtr<IClassFactory> factory;
        ComPtr<IDispatch> object;
        EXPECT_EQ(GetClassObject(clsid, IID_PPV_ARGS(factory.GetAddressOf())), S_OK);
        EXPECT_EQ(factory->CreateInstance(nullptr, IID_PPV_ARGS(object.GetAddressOf())), S_OK);
        return automation::FromCom(object.Get());
    }
    ObjectRef NewSession() { return NewObject(sessionClass); }

    static bool KeyExists(const std::wstring& path) {
        HKEY key = nullptr;
        if (RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
        RegCloseKey(key);
        return true;
    }

    HMODULE dll_ = nullptr;
};

std::vector<std::string> NamesIn(const ObjectRef& collection) {
    std::vector<std::string> names;
    const auto walk = automation::Collection(collection).Walk();
    for (Value item; walk->Next(item);) names.push_back(item.RequireObject()->Get("Name").ToText());
    return names;
}

TEST_F(LocalStoresDll, MakesSessionsThatOpenTheSampleMailbox) {
    const ObjectRef session = NewSession();
    session->Get("Open", "sample");
    EXPECT_THAT(NamesIn(session->Get("Stores").RequireObject()),
                ElementsAre("Public Folders", "Mailbox - Alex Example", "Archive \"before 2022\""));
}

TEST_F(LocalStoresDll, NamesOfAllScriptsComeThrough) {
    const ObjectRef session = NewSession();
    session->Get("Open", "sample");
    const ObjectRef inbox = session->Get("GetDefaultFolder", 6).RequireObject();
    const ObjectRef customers = inbox->Get("Folders").RequireObject()->Get("Item", "Customers").RequireObject();
    EXPECT_THAT(NamesIn(customers->Get("Folders").RequireObject()),
                ElementsAre("Müller & Söhne GmbH", "Société Générale d'Été", "ООО «Ромашка»", "株式会社サンプル"));
}

TEST_F(LocalStoresDll, TablesGiveArraysOfRowsWithBytesAndErrors) {
    const ObjectRef session = NewSession();
    const ObjectRef store = session->Get("Open", "sample").RequireObject();
    const ObjectRef table =
        store->Get("IPMRootFolder").RequireObject()->Get("Folders").RequireObject()->Get("MAPITable").RequireObject();
    automation::Array tags;
    for (const int32_t tag : {0x3001001F, 0x66700102, 0x360A000B, 0x12340003}) tags.items.emplace_back(tag);
    table->Put("Columns", tags);
    table->Get("Sort", 0x3001001F, true);
    table->Get("GoToFirst");
    const Value rows = table->Get("GetRows", table->Get("RowCount"));
    ASSERT_NE(rows.AsArray(), nullptr);
    ASSERT_FALSE(rows.AsArray()->items.empty());
    const automation::Array* row = rows.AsArray()->items.front().AsArray();
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->items.at(0).ToText(), "Unread mail");
    EXPECT_EQ(row->items.at(1).TypeName(), "Byte()");
    EXPECT_EQ(row->items.at(2).TypeName(), "Boolean");
    EXPECT_EQ(row->items.at(3).TypeName(), "Error");
}

TEST_F(LocalStoresDll, ShowsTheSampleMailboxInAllThreeModels) {
    const auto stores = ElementsAre("Public Folders", "Mailbox - Alex Example", "Archive \"before 2022\"");
    const ObjectRef application = NewObject(applicationClass);
    const ObjectRef space = application->Get("GetNamespace", "MAPI").RequireObject();
    EXPECT_THAT(NamesIn(space->Get("Folders").RequireObject()), stores);
    for (const CLSID& clsid : {cdoSessionClass, mapiSessionClass}) {
        const ObjectRef cdo = NewObject(clsid);
        const std::array<automation::NamedArgument, 2> quietly{{{"ShowDialog", false}, {"NewSession", false}}};
        cdo->CallNamed("Logon", quietly);
        EXPECT_THAT(NamesIn(cdo->Get("InfoStores").RequireObject()), stores);
        const ObjectRef inbox = cdo->Get("Inbox").RequireObject();
        EXPECT_EQ(inbox->Get("Fields", 0x3613001E).RequireObject()->Get("Value").ToText(), "IPF.Note");
        EXPECT_EQ(ErrorNumberOf([&] { inbox->Get("Fields", 0x66700102); }), automation::errors::mapiNotFound);
    }
}

TEST_F(LocalStoresDll, ModelsOfOneThreadShareTheMailThatWasOpenedFirst) {
    const TemporaryDirectory directory;
    for (const char* part : {"cur", "new", "tmp"}) std::filesystem::create_directory(directory.Path() / part);
    const ObjectRef session = NewSession();
    session->Get("Open", directory.Utf8());
    const ObjectRef space = NewObject(applicationClass)->Get("GetNamespace", "MAPI").RequireObject();
    EXPECT_EQ(space->Get("Folders").RequireObject()->Get("Count").ToLong(), 1);
}

TEST_F(LocalStoresDll, ErrorsComeThroughWithNumberAndText) {
    const ObjectRef session = NewSession();
    EXPECT_EQ(ErrorNumberOf([&] { session->Get("Open", "nowhere.pst"); }), automation::errors::mapiNotFound);
    EXPECT_THAT(FailureOf([&] { session->Get("Open", "nowhere.pst"); }), HasSubstr("nowhere.pst"));
    EXPECT_EQ(ErrorNumberOf([&] { session->Get("Inbox"); }), automation::errors::unknownName);
}

TEST_F(LocalStoresDll, ReadsPstFiles) {
    const auto file = SamplePst();
    if (!file) GTEST_SKIP() << "the sample file dist-list.pst is not beside the repository";
    const ObjectRef store = NewSession()->Get("Open", file->string()).RequireObject();
    EXPECT_EQ(store->Get("Name").ToText(), "Personal Folders");
    EXPECT_EQ(store->Get("IPMRootFolder").RequireObject()->Get("Folders").RequireObject()->Get("Count").ToLong(), 12);
}

TEST_F(LocalStoresDll, CanBeUnloadedWhenAllObjectsAreGone) {
    ObjectRef store = NewSession()->Get("Open", "sample").RequireObject();
    EXPECT_EQ(CanUnloadNow(), S_FALSE);
    store = nullptr;
    EXPECT_EQ(CanUnloadNow(), S_OK);
}

TEST_F(LocalStoresDll, RefusesOtherClassesAndAggregation) {
    ComPtr<IClassFactory> factory;
    EXPECT_EQ(GetClassObject(IID_IUnknown, IID_PPV_ARGS(factory.GetAddressOf())), CLASS_E_CLASSNOTAVAILABLE);
    ASSERT_EQ(GetClassObject(sessionClass, IID_PPV_ARGS(factory.GetAddressOf())), S_OK);
    ComPtr<IUnknown> inner;
    EXPECT_EQ(factory->CreateInstance(factory.Get(), IID_PPV_ARGS(inner.GetAddressOf())), CLASS_E_NOAGGREGATION);
}

TEST_F(LocalStoresDll, RegistersForTheUserAndLeavesNothingBehind) {
    ASSERT_EQ(InstallForUser(true), S_OK);
    EXPECT_TRUE(KeyExists(userProgIdKey));
    EXPECT_TRUE(KeyExists(userClassKey));
    CLSID clsid;
    ComPtr<IDispatch> session;
    ASSERT_EQ(CLSIDFromProgID(L"LocalStores.Session", &clsid), S_OK);
    EXPECT_EQ(clsid, sessionClass);
    EXPECT_EQ(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(session.GetAddressOf())), S_OK);
    session.Reset();
    ASSERT_EQ(InstallForUser(false), S_OK);
    EXPECT_FALSE(KeyExists(userProgIdKey));
    EXPECT_FALSE(KeyExists(userClassKey));
}

TEST_F(LocalStoresDll, TakesTheNameOfTheCdoLibraryOnlyWhenAsked) {
    ASSERT_EQ(InstallForUser(true), S_OK);
    EXPECT_FALSE(KeyExists(userMapiSessionKey));
    EXPECT_FALSE(KeyExists(userMapiSessionClassKey));
    ASSERT_EQ(InstallForUser(true, L" MAPI-Session  user "), S_OK);
    EXPECT_TRUE(KeyExists(userMapiSessionKey));
    CLSID clsid;
    ASSERT_EQ(CLSIDFromProgID(L"MAPI.Session", &clsid), S_OK);
    EXPECT_EQ(clsid, mapiSessionClass);
    ASSERT_EQ(InstallForUser(false), S_OK);
    EXPECT_FALSE(KeyExists(userMapiSessionKey));
    EXPECT_FALSE(KeyExists(userMapiSessionClassKey));
}

}  // namespace
}  // namespace localstores
