// Server: the component under test, FolderTree.ocx beside the test program, without any registration.
#include "com/Server.h"

#include <gtest/gtest.h>

#include "automation_win32/Bstr.h"
#include "automation_win32/Crossing.h"

namespace foldertree::testing {

namespace {

/// COM for the whole program; classes of the DLL under test are made known to this process alone.
class ComEnvironment : public ::testing::Environment {
  public:
    void SetUp() override {
        ASSERT_TRUE(SUCCEEDED(OleInitialize(nullptr)));
        Announce(__uuidof(::ctlFolderTree), cookies_[0]);
        Announce(__uuidof(::clsFolderTreeItem), cookies_[1]);
    }
    void TearDown() override {
        for (const DWORD cookie : cookies_) CoRevokeClassObject(cookie);
        OleUninitialize();
    }

  private:
    static void Announce(const CLSID& clsid, DWORD& cookie) {
        ComPtr<IClassFactory> factory;
        const auto getClassObject = EntryPoint<HRESULT WINAPI(REFCLSID, REFIID, void**)>("DllGetClassObject");
        ASSERT_NE(getClassObject, nullptr) << "FolderTree.ocx must stand beside this program";
        ASSERT_EQ(getClassObject(clsid, IID_PPV_ARGS(factory.GetAddressOf())), S_OK);
        ASSERT_EQ(CoRegisterClassObject(clsid, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie), S_OK);
    }

    DWORD cookies_[2] = {};
};

[[maybe_unused]] ::testing::Environment* const environment = ::testing::AddGlobalTestEnvironment(new ComEnvironment);

template <class Interface>
ComPtr<Interface> Create(const CLSID& clsid) {
    ComPtr<Interface> object;
    EXPECT_EQ(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(object.GetAddressOf())), S_OK);
    return object;
}

}  // namespace

std::wstring ServerPath() {
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring program = path;
    return program.substr(0, program.find_last_of(L'\\') + 1) + L"FolderTree.ocx";
}

HMODULE ServerModule() {
    static const HMODULE module = LoadLibraryW(ServerPath().c_str());
    return module;
}

ComPtr<_ctlFolderTree> NewControl() {
    return Create<_ctlFolderTree>(__uuidof(::ctlFolderTree));
}

ComPtr<_clsFolderTreeItem> NewItem() {
    return Create<_clsFolderTreeItem>(__uuidof(::clsFolderTreeItem));
}

ULONG References(IUnknown* object) {
    object->AddRef();
    return object->Release();
}

std::string Text(BSTR owned) {
    std::string text = automation::FromBstr(owned);
    SysFreeString(owned);
    return text;
}

automation::ObjectRef LateBound(IUnknown* object) {
    return automation::FromCom(object);
}

}  // namespace foldertree::testing
