// ComServer: class objects and registration.
#include "automation_win32/ComServer.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "automation/KeyedCollection.h"
#include "automation_testing/FailingMemory.h"
#include "automation_win32/Crossing.h"
#include "automation_win32/ModuleLock.h"

namespace automation {
namespace {

using Paths = std::vector<std::wstring>;

constexpr CLSID thingClass = {0x5b8f0a53, 0x6a5b, 0x4b3e, {0x9f, 0x0a, 0x1f, 0x6c, 0x7f, 0x4f, 0x2c, 0x55}};
const std::wstring thingKey = L"CLSID\\{5B8F0A53-6A5B-4B3E-9F0A-1F6C7F4F2C55}";
const std::wstring libraryKey = L"TypeLib\\{83C9DF11-86B2-486C-8938-FDBE4FB73824}";
const std::wstring interfaceKey = L"Interface\\{CC6E3BC3-B24E-4A69-8B4B-B1F7A73D03FF}";
const std::wstring eventsKey = L"Interface\\{797961C4-4D9B-4EED-85B0-960B84BAA990}";
const std::wstring thisSystem = sizeof(void*) == 8 ? L"win64" : L"win32";
const std::wstring otherSystem = sizeof(void*) == 8 ? L"win32" : L"win64";

ComServer Server() {
    ServerClass thing;
    thing.clsid = thingClass;
    thing.progId = L"AutomationTest.Thing";
    thing.title = L"Thing of a test";
    thing.make = [] { return ToCom(std::make_shared<KeyedCollection>()); };
    thing.miscStatus = 131473;
    thing.toolbarBitmap = 101;
    return {GetModuleHandleW(nullptr), true, {thing}};
}

/// The values of a key, each with its type and its bytes.
void AddValues(HKEY key, const std::wstring& path, Paths& paths) {
    for (DWORD index = 0;; ++index) {
        wchar_t name[256];
        BYTE bytes[2048];
        DWORD length = 256;
        DWORD type = 0;
        DWORD size = sizeof bytes;
        if (RegEnumValueW(key, index, name, &length, nullptr, &type, bytes, &size) != ERROR_SUCCESS) return;
        std::wstring text = path + L"|" + name + L"=" + std::to_wstring(type) + L":";
        for (DWORD i = 0; i < size; ++i) text += std::to_wstring(bytes[i]) + L" ";
        paths.push_back(text);
    }
}

void AddKeys(HKEY parent, const std::wstring& path, Paths& paths) {
    for (DWORD index = 0;; ++index) {
        wchar_t name[256];
        DWORD length = 256;
        if (RegEnumKeyExW(parent, index, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) return;
        paths.push_back(path + L"\\" + name);
        HKEY key = nullptr;
        if (RegOpenKeyExW(parent, name, 0, KEY_READ, &key) != ERROR_SUCCESS) continue;
        AddValues(key, path + L"\\" + name, paths);
        AddKeys(key, path + L"\\" + name, paths);
        RegCloseKey(key);
    }
}

/// All keys below the user's classes, and their values.
Paths UserKeys() {
    Paths paths;
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Classes", 0, KEY_READ, &key) != ERROR_SUCCESS) return paths;
    AddKeys(key, L"", paths);
    RegCloseKey(key);
    std::sort(paths.begin(), paths.end());
    return paths;
}

std::wstring UserValue(const std::wstring& key, const wchar_t* name = L"") {
    wchar_t buffer[1024];
    DWORD size = sizeof(buffer);
    const std::wstring path = L"Software\\Classes\\" + key;
    if (RegGetValueW(HKEY_CURRENT_USER, path.c_str(), name, RRF_RT_REG_SZ, nullptr, buffer, &size) != ERROR_SUCCESS)
        return L"(missing)";
    return buffer;
}

std::wstring ProgramPath() {
    wchar_t path[MAX_PATH];
    return std::wstring(path, GetModuleFileNameW(nullptr, path, MAX_PATH));
}

TEST(ComServer, AClassObjectMakesObjects) {
    const ComServer server = Server();
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(server.GetClassObject(thingClass, IID_PPV_ARGS(factory.GetAddressOf())), S_OK);
    ComPtr<IDispatch> thing;
    ASSERT_EQ(factory->CreateInstance(nullptr, IID_PPV_ARGS(thing.GetAddressOf())), S_OK);
    EXPECT_EQ(FromCom(thing.Get())->Get("Count").ToLong(), 0);
    void* none = thing.Get();
    EXPECT_EQ(factory->CreateInstance(thing.Get(), IID_IUnknown, &none), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(none, nullptr);
}

TEST(ComServer, AnUnknownClassIsNotAvailable) {
    void* none = nullptr;
    EXPECT_EQ(Server().GetClassObject(IID_IUnknown, IID_IClassFactory, &none), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(Server().GetClassObject(thingClass, IID_IClassFactory, nullptr), E_POINTER);
}

TEST(ComServer, AFailureToMakeAnObjectIsTold) {
    ComServer server = Server();
    server.classes[0].make = []() -> ComPtr<IUnknown> { throw Error(0x80040154, ""); };
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(server.GetClassObject(thingClass, IID_PPV_ARGS(factory.GetAddressOf())), S_OK);
    void* none = nullptr;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, &none), REGDB_E_CLASSNOTREG);
}

TEST(ComServer, ObjectsAndLocksKeepTheModuleLoaded) {
    const ComServer server = Server();
    EXPECT_EQ(server.CanUnloadNow(), S_OK);
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(server.GetClassObject(thingClass, IID_PPV_ARGS(factory.GetAddressOf())), S_OK);
    factory->LockServer(TRUE);
    factory.Reset();
    EXPECT_EQ(server.CanUnloadNow(), S_FALSE);
    server.GetClassObject(thingClass, IID_PPV_ARGS(factory.GetAddressOf()));
    factory->LockServer(FALSE);
    factory.Reset();
    EXPECT_EQ(server.CanUnloadNow(), S_OK);
}

TEST(ComServer, RegistrationForTheUserWritesAllKeys) {
    const ComServer server = Server();
    ASSERT_EQ(server.Install(TRUE, L"USER"), S_OK);
    EXPECT_EQ(UserValue(L"AutomationTest.Thing"), L"Thing of a test");
    EXPECT_EQ(UserValue(L"AutomationTest.Thing\\CLSID"), L"{5B8F0A53-6A5B-4B3E-9F0A-1F6C7F4F2C55}");
    EXPECT_EQ(UserValue(thingKey), L"Thing of a test");
    EXPECT_EQ(UserValue(thingKey + L"\\ProgID"), L"AutomationTest.Thing");
    EXPECT_EQ(UserValue(thingKey + L"\\InprocServer32"), ProgramPath());
    EXPECT_EQ(UserValue(thingKey + L"\\InprocServer32", L"ThreadingModel"), L"Apartment");
    EXPECT_EQ(UserValue(thingKey + L"\\Programmable"), L"");
    EXPECT_EQ(UserValue(thingKey + L"\\TypeLib"), L"{83C9DF11-86B2-486C-8938-FDBE4FB73824}");
    EXPECT_EQ(UserValue(thingKey + L"\\Version"), L"1.2");
    EXPECT_EQ(UserValue(thingKey + L"\\Control"), L"");
    EXPECT_EQ(UserValue(thingKey + L"\\MiscStatus\\1"), L"131473");
    EXPECT_EQ(UserValue(thingKey + L"\\ToolboxBitmap32"), ProgramPath() + L", 101");
    EXPECT_EQ(UserValue(libraryKey + L"\\1.2"), L"Registration test library");
    EXPECT_EQ(UserValue(libraryKey + L"\\1.2\\0\\" + thisSystem), ProgramPath());
    EXPECT_EQ(UserValue(libraryKey + L"\\1.2\\FLAGS"), L"0");
    EXPECT_EQ(UserValue(interfaceKey), L"ITestThing");
    EXPECT_EQ(UserValue(interfaceKey + L"\\ProxyStubClsid32"), L"{00020424-0000-0000-C000-000000000046}");
    EXPECT_EQ(UserValue(interfaceKey + L"\\TypeLib", L"Version"), L"1.2");
    EXPECT_EQ(UserValue(eventsKey + L"\\ProxyStubClsid32"), L"{00020420-0000-0000-C000-000000000046}");
    EXPECT_EQ(server.Install(FALSE, L"user"), S_OK);
}

TEST(ComServer, RemovalLeavesNothingBehind) {
    const ComServer server = Server();
    const Paths before = UserKeys();
    ASSERT_EQ(server.Register(RegistryScope::User), S_OK);
    EXPECT_GT(UserKeys().size(), before.size() + 10);
    ASSERT_EQ(server.Unregister(RegistryScope::User), S_OK);
    EXPECT_EQ(UserKeys(), before);
}

TEST(ComServer, RemovalOfWhatIsNotThereIsNoFailure) {
    EXPECT_EQ(Server().Unregister(RegistryScope::User), S_OK);
}

TEST(ComServer, RemovalLeavesTheLibraryOfTheOtherProcessor) {
    const ComServer server = Server();
    const std::wstring other = L"Software\\Classes\\" + libraryKey + L"\\1.2\\0\\" + otherSystem;
    ASSERT_EQ(server.Register(RegistryScope::User), S_OK);
    ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, other.c_str(), nullptr, REG_SZ, L"other", 6 * sizeof(wchar_t)),
              ERROR_SUCCESS);
    ASSERT_EQ(server.Unregister(RegistryScope::User), S_OK);
    EXPECT_EQ(UserValue(libraryKey + L"\\1.2\\0\\" + otherSystem), L"other");
    EXPECT_EQ(UserValue(libraryKey + L"\\1.2\\0\\" + thisSystem), L"(missing)");
    RegDeleteTreeW(HKEY_CURRENT_USER, (L"Software\\Classes\\" + libraryKey).c_str());
    EXPECT_EQ(server.Unregister(RegistryScope::User), S_OK);  // takes the empty folder too
}

TEST(ComServer, RegistrationForTheMachineIsSeenByTheSystem) {
    const ComServer server = Server();
    ASSERT_EQ(server.Install(TRUE, nullptr), S_OK);
    CLSID found{};
    EXPECT_EQ(CLSIDFromProgID(L"AutomationTest.Thing", &found), S_OK);
    EXPECT_EQ(found, thingClass);
    constexpr GUID library = {0x83c9df11, 0x86b2, 0x486c, {0x89, 0x38, 0xfd, 0xbe, 0x4f, 0xb7, 0x38, 0x24}};
    ComPtr<ITypeLib> types;
    EXPECT_EQ(LoadRegTypeLib(library, 1, 2, LOCALE_NEUTRAL, types.GetAddressOf()), S_OK);
    ASSERT_EQ(server.Install(FALSE, nullptr), S_OK);
    EXPECT_NE(CLSIDFromProgID(L"AutomationTest.Thing", &found), S_OK);
}

TEST(ComServer, ARegistrationThatFailsLeavesNothingBehind) {
    ComServer server = Server();
    server.classes.push_back(server.classes[0]);
    server.classes[1].progId = L"AutomationTest." + std::wstring(300, L'x');  // longer than a key's name may be
    const Paths before = UserKeys();
    EXPECT_TRUE(FAILED(server.Register(RegistryScope::User)));
    EXPECT_EQ(UserKeys(), before);
}

/// A server with one more class, which stands in for somebody else's.
ComServer ServerWithStandIn() {
    ComServer server = Server();
    ServerClass standIn = server.classes[0];
    standIn.clsid.Data1 += 1;
    standIn.progId = L"AutomationTest.Famous";
    standIn.option = L"stand-in";
    server.classes.push_back(standIn);
    return server;
}

const std::wstring famousClassValue = L"AutomationTest.Famous\\CLSID";

TEST(ComServer, AClassWithAnOptionIsRegisteredOnlyWhenItIsNamed) {
    const ComServer server = ServerWithStandIn();
    const Paths before = UserKeys();
    ASSERT_EQ(server.Install(TRUE, L"user"), S_OK);
    EXPECT_EQ(UserValue(famousClassValue), L"(missing)");
    ASSERT_EQ(server.Install(TRUE, L"user other"), S_OK);
    EXPECT_EQ(UserValue(famousClassValue), L"(missing)");
    ASSERT_EQ(server.Install(TRUE, L"user Stand-In"), S_OK);
    EXPECT_EQ(UserValue(famousClassValue), L"{5B8F0A54-6A5B-4B3E-9F0A-1F6C7F4F2C55}");
    ASSERT_EQ(server.Install(FALSE, L"user"), S_OK);
    EXPECT_EQ(UserKeys(), before);
}

void SetUserValue(const std::wstring& key, const wchar_t* name, DWORD type, const void* bytes, size_t size) {
    const std::wstring path = L"Software\\Classes\\" + key;
    ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, path.c_str(), name, type, bytes, static_cast<DWORD>(size)),
              ERROR_SUCCESS);
}

TEST(ComServer, ARegistrationThatFailsLeavesTheEarlierOneAsItWas) {
    ComServer server = ServerWithStandIn();
    const Paths clean = UserKeys();
    ASSERT_EQ(server.Install(TRUE, L"user"), S_OK);
    // As another version may have left it: other texts and types, values that we do not write, a key that is missing.
    constexpr wchar_t earlierPath[] = L"%ProgramFiles%\\earlier.ocx";
    SetUserValue(thingKey + L"\\InprocServer32", L"", REG_EXPAND_SZ, earlierPath, sizeof earlierPath);
    SetUserValue(thingKey + L"\\InprocServer32", L"ThreadingModel", REG_BINARY, "", 0);
    SetUserValue(thingKey + L"\\Control", L"note", REG_DWORD, "\1\2\3", 4);
    RegDeleteTreeW(HKEY_CURRENT_USER, (L"Software\\Classes\\" + thingKey + L"\\MiscStatus").c_str());
    constexpr wchar_t owner[] = L"{11111111-2222-3333-4444-555555555555}";
    SetUserValue(famousClassValue, L"", REG_SZ, owner, sizeof owner);
    const Paths before = UserKeys();

    EXPECT_EQ(server.Install(TRUE, L"user stand-in"), HRESULT_FROM_WIN32(ERROR_ALREADY_EXISTS));
    EXPECT_EQ(UserKeys(), before);
    server.classes[1].option.clear();
    server.classes[1].progId = L"AutomationTest." + std::wstring(300, L'x');  // longer than a key's name may be
    EXPECT_TRUE(FAILED(server.Register(RegistryScope::User)));
    EXPECT_EQ(UserKeys(), before);

    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Classes\\AutomationTest.Famous");
    EXPECT_EQ(ServerWithStandIn().Install(FALSE, L"user"), S_OK);
    EXPECT_EQ(UserKeys(), clean);
}

TEST(ComServer, ARegistrationForWhichThereIsNoMemoryChangesNothing) {
    const ComServer server = Server();
    const Paths clean = UserKeys();
    ASSERT_EQ(server.Register(RegistryScope::User), S_OK);
    constexpr wchar_t earlier[] = L"Title of an earlier version";
    SetUserValue(thingKey, L"", REG_SZ, earlier, sizeof earlier);
    const Paths before = UserKeys();

    for (const bool andAllAfter : {false, true}) {
        SetUserValue(thingKey, L"", REG_SZ, earlier, sizeof earlier);
        const int64_t failures = testing::FailEachAllocation(andAllAfter, [&](const testing::MemoryPlan& plan) {
            HRESULT result = S_OK;
            int64_t refused = 0;
            {
                const testing::FailingMemory memory(plan);
                result = server.Register(RegistryScope::User);
                refused = memory.Refused();
            }
            if (refused == 0) return false;
            EXPECT_EQ(result, E_OUTOFMEMORY) << plan.first;
            EXPECT_EQ(UserKeys(), before) << plan.first;
            return !HasFailure();
        });
        EXPECT_GT(failures, 100);
    }
    EXPECT_EQ(UserValue(thingKey), L"Thing of a test");
    EXPECT_EQ(server.Unregister(RegistryScope::User), S_OK);
    EXPECT_EQ(UserKeys(), clean);
}

TEST(ComServer, AStandInNeitherTakesNorRemovesTheNameOfAnInstalledClass) {
    const ComServer server = ServerWithStandIn();
    const Paths before = UserKeys();
    const std::wstring key = L"Software\\Classes\\" + famousClassValue;
    constexpr wchar_t owner[] = L"{11111111-2222-3333-4444-555555555555}";
    ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), nullptr, REG_SZ, owner, sizeof owner), ERROR_SUCCESS);
    EXPECT_EQ(server.Install(TRUE, L"user stand-in"), HRESULT_FROM_WIN32(ERROR_ALREADY_EXISTS));
    EXPECT_EQ(server.Install(FALSE, L"user"), S_OK);
    EXPECT_EQ(UserValue(famousClassValue), owner);
    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Classes\\AutomationTest.Famous");
    EXPECT_EQ(UserKeys(), before);
}

}  // namespace
}  // namespace automation
