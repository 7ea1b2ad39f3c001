// RegistrationTest: what the component writes into the registry, and that it takes all of it out again.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

#include <sddl.h>

#include <map>

#include "automation_win32/Bstr.h"
#include "com/Server.h"

namespace foldertree::testing {
namespace {

using automation::FromWide;
using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Key;
using ::testing::Pair;

using Keys = std::map<std::string, std::string>;  // path of a key or value, and its text

std::string TextOf(HKEY key, const wchar_t* name) {
    wchar_t text[1024] = {};
    DWORD size = sizeof(text) - sizeof(wchar_t);
    return RegGetValueW(key, nullptr, name, RRF_RT_REG_SZ, nullptr, text, &size) == ERROR_SUCCESS ? FromWide(text) : "";
}

void Collect(HKEY key, const std::string& path, Keys& keys) {
    wchar_t name[512];
    for (DWORD i = 0;; ++i) {
        DWORD length = 512;
        if (RegEnumValueW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
        if (length > 0) keys[path + "@" + FromWide(name)] = TextOf(key, name);
    }
    for (DWORD i = 0;; ++i) {
        DWORD length = 512;
        if (RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
        HKEY child = nullptr;
        ASSERT_EQ(RegOpenKeyExW(key, name, 0, KEY_READ, &child), ERROR_SUCCESS);
        const std::string childPath = path + "\\" + FromWide(name);
        keys[childPath] = TextOf(child, nullptr);
        Collect(child, childPath, keys);
        RegCloseKey(child);
    }
}

/// A key that everybody may read and nobody may write, until its end.
class ReadOnlyKey {
  public:
    ReadOnlyKey(HKEY parent, const wchar_t* path) {
        EXPECT_EQ(RegCreateKeyExW(parent, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_, nullptr), ERROR_SUCCESS);
        Allow(L"D:P(A;;KR;;;WD)");
    }
    ~ReadOnlyKey() {
        Allow(L"D:P(A;;KA;;;WD)");
        RegCloseKey(key_);
    }
    ReadOnlyKey(const ReadOnlyKey&) = delete;
    ReadOnlyKey& operator=(const ReadOnlyKey&) = delete;

  private:
    void Allow(const wchar_t* rights) const {
        PSECURITY_DESCRIPTOR descriptor = nullptr;
        EXPECT_TRUE(
            ConvertStringSecurityDescriptorToSecurityDescriptorW(rights, SDDL_REVISION_1, &descriptor, nullptr));
        EXPECT_EQ(RegSetKeySecurity(key_, DACL_SECURITY_INFORMATION, descriptor), ERROR_SUCCESS);
        LocalFree(descriptor);
    }

    HKEY key_ = nullptr;
};

/// The component's two places in the registry, replaced for this process by empty keys.
class Registration : public ::testing::Test {
  protected:
    void SetUp() override {
        machine_ = Replace(HKEY_LOCAL_MACHINE, machinePath_);
        // The user's key last: the places lie below it.
        user_ = Replace(HKEY_CURRENT_USER, userPath_);
    }
    void TearDown() override {
        RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
        RegCloseKey(machine_);
        RegCloseKey(user_);
        RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\FolderTree tests");
    }

    static HKEY Replace(HKEY predefined, const wchar_t* path) {
        RegDeleteTreeW(HKEY_CURRENT_USER, path);
        HKEY key = nullptr;
        EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        EXPECT_EQ(RegOverridePredefKey(predefined, key), ERROR_SUCCESS);
        return key;
    }

    static Keys KeysIn(HKEY key) {
        Keys keys;
        Collect(key, "", keys);
        // The way there is not ours to remove.
        keys.erase("\\Software");
        keys.erase("\\Software\\Classes");
        for (const char* shared : {"CLSID", "TypeLib", "Interface"})
            keys.erase(std::string("\\Software\\Classes\\") + shared);
        return keys;
    }

    static void ExpectRegistered(const Keys& keys) {
        const std::string classes = "\\Software\\Classes\\";
        const std::string control = classes + "CLSID\\{AE52A325-A957-48C9-B185-FA526DB6AB5E}";
        const std::string item = classes + "CLSID\\{8EFDAF05-1B43-4AD8-A8C0-8D5391955CCE}";
        const std::string library = classes + "TypeLib\\{FFDE1FC5-4FAF-499F-9A82-A0E4FB171DF0}";
        EXPECT_THAT(keys, Contains(Pair(classes + "FolderTree.ctlFolderTree\\CLSID",
                                        "{AE52A325-A957-48C9-B185-FA526DB6AB5E}")));
        EXPECT_THAT(keys, Contains(Pair(classes + "FolderTree.clsFolderTreeItem\\CLSID",
                                        "{8EFDAF05-1B43-4AD8-A8C0-8D5391955CCE}")));
        for (const std::string& clsid : {control, item}) {
            EXPECT_THAT(keys, Contains(Pair(clsid + "\\InprocServer32", HasSubstr("FolderTree.ocx"))));
            EXPECT_THAT(keys, Contains(Pair(clsid + "\\InprocServer32@ThreadingModel", "Apartment")));
            EXPECT_THAT(keys, Contains(Pair(clsid + "\\TypeLib", "{FFDE1FC5-4FAF-499F-9A82-A0E4FB171DF0}")));
            EXPECT_THAT(keys, Contains(Key(clsid + "\\Programmable")));
        }
        EXPECT_THAT(keys, Contains(Pair(control + "\\ProgID", "FolderTree.ctlFolderTree")));
        EXPECT_THAT(keys, Contains(Key(control + "\\Control")));
        EXPECT_THAT(keys, Contains(Pair(control + "\\MiscStatus\\1", "131473")));
        EXPECT_THAT(keys, Contains(Pair(control + "\\Verb\\0", "&Edit,0,2")));
        EXPECT_THAT(keys, Contains(Pair(control + "\\Verb\\1", "&Properties\u2026,0,2")));
        EXPECT_THAT(
            keys, Contains(Pair(classes + "FolderTree.SettingsPage\\CLSID", "{C9D3D0EE-DA71-4923-9780-18094729C603}")));
        EXPECT_THAT(keys, Contains(Pair(control + "\\ToolboxBitmap32", HasSubstr("FolderTree.ocx, "))));
        const std::string system = sizeof(void*) == 8 ? "win64" : "win32";
        EXPECT_THAT(keys, Contains(Pair(library + "\\1.0\\0\\" + system, HasSubstr("FolderTree.ocx"))));
        for (const auto& [path, text] : keys) EXPECT_THAT(path, ::testing::Not(HasSubstr("Implemented Categories")));
    }

    static constexpr const wchar_t* machinePath_ = L"Software\\FolderTree tests\\machine";
    static constexpr const wchar_t* userPath_ = L"Software\\FolderTree tests\\user";
    HKEY machine_ = nullptr;
    HKEY user_ = nullptr;
};

TEST_F(Registration, PerMachineWritesForAllUsersAndLeavesNothingBehind) {
    ASSERT_EQ(EntryPoint<HRESULT WINAPI()>("DllRegisterServer")(), S_OK);
    ExpectRegistered(KeysIn(machine_));
    EXPECT_THAT(KeysIn(user_), IsEmpty());

    ASSERT_EQ(EntryPoint<HRESULT WINAPI()>("DllUnregisterServer")(), S_OK);
    EXPECT_THAT(KeysIn(machine_), IsEmpty());
}

TEST_F(Registration, PerUserWritesForTheUserAloneAndLeavesNothingBehind) {
    const auto install = EntryPoint<HRESULT WINAPI(BOOL, LPCWSTR)>("DllInstall");
    ASSERT_EQ(install(TRUE, L"user"), S_OK);
    ExpectRegistered(KeysIn(user_));
    EXPECT_THAT(KeysIn(machine_), IsEmpty());

    ASSERT_EQ(install(FALSE, L"user"), S_OK);
    EXPECT_THAT(KeysIn(user_), IsEmpty());
}

TEST_F(Registration, MayBeRepeatedAndRemovedTwice) {
    const auto registerServer = EntryPoint<HRESULT WINAPI()>("DllRegisterServer");
    const auto unregisterServer = EntryPoint<HRESULT WINAPI()>("DllUnregisterServer");
    EXPECT_EQ(registerServer(), S_OK);
    const Keys once = KeysIn(machine_);
    EXPECT_EQ(registerServer(), S_OK);
    EXPECT_EQ(KeysIn(machine_), once);
    EXPECT_EQ(unregisterServer(), S_OK);
    EXPECT_EQ(unregisterServer(), S_OK);
    EXPECT_THAT(KeysIn(machine_), IsEmpty());
}

TEST_F(Registration, WithoutTheRightToWriteFailsAndChangesNothing) {
    const auto registerServer = EntryPoint<HRESULT WINAPI()>("DllRegisterServer");
    const ReadOnlyKey classes(machine_, L"Software\\Classes");
    EXPECT_EQ(registerServer(), E_ACCESSDENIED);
    EXPECT_THAT(KeysIn(machine_), IsEmpty());
}

TEST_F(Registration, ThatMayNotWriteTheLastOfItsKeysLeavesAllAsItWas) {
    const auto registerServer = EntryPoint<HRESULT WINAPI()>("DllRegisterServer");
    const wchar_t* const bitmap = L"Software\\Classes\\CLSID\\{AE52A325-A957-48C9-B185-FA526DB6AB5E}\\ToolboxBitmap32";
    for (const bool registeredBefore : {false, true}) {
        if (registeredBefore) {
            ASSERT_EQ(registerServer(), S_OK);
        }
        const ReadOnlyKey locked(machine_, bitmap);
        const Keys before = KeysIn(machine_);
        EXPECT_EQ(registerServer(), E_ACCESSDENIED);
        EXPECT_EQ(KeysIn(machine_), before);
    }
}

}  // namespace
}  // namespace foldertree::testing
