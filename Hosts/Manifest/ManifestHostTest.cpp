// ManifestHostTest: a host that knows the control from a manifest and from no registry, in an apartment of one thread
// and in the multithreaded one. To the latter the control is a proxy, for it lives on a thread that the system makes
// for it.
#include <gtest/gtest.h>

#include <windows.h>

#include <ole2.h>
#include <olectl.h>

#include <memory>
#include <string>

#include "FakeContainer.h"
#include "FolderTree.idl.h"
#include "Form.h"
#include "LateBound.h"
#include "automation_win32/ComBase.h"

namespace manifesthost {
namespace {

using automation::ComPtr;
using foldertree::FakeContainer;

constexpr const wchar_t* controlProgId = L"FolderTree.ctlFolderTree";
constexpr const wchar_t* sessionProgId = L"LocalStores.Session";

template <class Interface, class From>
ComPtr<Interface> As(const ComPtr<From>& from) {
    ComPtr<Interface> result;
    EXPECT_EQ(from.As(&result), S_OK);
    return result;
}

/// While it lives, the manifest beside this program holds for the thread that made it.
class Manifest {
  public:
    Manifest() {
        wchar_t program[MAX_PATH];
        GetModuleFileNameW(nullptr, program, MAX_PATH);
        const std::wstring path = std::wstring(program) + L".components";
        ACTCTXW description = {};
        description.cbSize = sizeof description;
        description.lpSource = path.c_str();
        context_ = CreateActCtxW(&description);
        EXPECT_NE(context_, INVALID_HANDLE_VALUE) << "error " << GetLastError();
        EXPECT_TRUE(ActivateActCtx(context_, &cookie_));
    }
    ~Manifest() {
        DeactivateActCtx(0, cookie_);
        ReleaseActCtx(context_);
    }
    Manifest(const Manifest&) = delete;
    Manifest& operator=(const Manifest&) = delete;

  private:
    HANDLE context_;
    ULONG_PTR cookie_ = 0;
};

HRESULT Create(const wchar_t* progId, REFIID iid, void** object) {
    CLSID clsid;
    const HRESULT known = CLSIDFromProgID(progId, &clsid);
    return FAILED(known) ? known : CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, iid, object);
}

bool HasClassesKey(const std::wstring& key) {
    HKEY opened = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) return false;
    RegCloseKey(opened);
    return true;
}

/// Counts the events, and the threads that are no members of the expected apartment.
class EventSink final : public automation::ComBase<IDispatch> {
  public:
    explicit EventSink(APTTYPE apartment) : apartment_(apartment) {}

    LONG changed = 0;
    LONG strayed = 0;

    STDMETHOD(GetTypeInfoCount)(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHOD(GetTypeInfo)(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHOD(GetIDsOfNames)(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
    STDMETHOD(Invoke)(DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        APTTYPE type = APTTYPE_CURRENT;
        APTTYPEQUALIFIER qualifier = APTTYPEQUALIFIER_NONE;
        if (FAILED(CoGetApartmentType(&type, &qualifier)) || type != apartment_) InterlockedIncrement(&strayed);
        if (member == 1) InterlockedIncrement(&changed);
        return S_OK;
    }

  private:
    void* FindInterface(REFIID iid) override {
        return iid == __uuidof(__ctlFolderTree) ? static_cast<IDispatch*>(this) : nullptr;
    }

    const APTTYPE apartment_;
};

class ManifestHost : public ::testing::TestWithParam<COINIT> {
  protected:
    void SetUp() override {
        ASSERT_EQ(IsMultithreaded() ? CoInitializeEx(nullptr, COINIT_MULTITHREADED) : OleInitialize(nullptr), S_OK);
    }
    void TearDown() override {
        if (IsMultithreaded())
            CoUninitialize();
        else
            OleUninitialize();
    }

    static bool IsMultithreaded() { return GetParam() == COINIT_MULTITHREADED; }

    static ComPtr<_ctlFolderTree> NewControl() {
        ComPtr<_ctlFolderTree> control;
        EXPECT_EQ(Create(controlProgId, __uuidof(_ctlFolderTree), reinterpret_cast<void**>(control.GetAddressOf())),
                  S_OK);
        return control;
    }

    static ComPtr<IDispatch> NewSession(const wchar_t* mailbox) {
        ComPtr<IDispatch> session;
        EXPECT_EQ(Create(sessionProgId, IID_IDispatch, reinterpret_cast<void**>(session.GetAddressOf())), S_OK);
        demo::Call(session.Get(), L"Open", {mailbox});
        return session;
    }

    static LONG Rows(const ComPtr<_ctlFolderTree>& control) {
        LONG rows = -1;
        EXPECT_EQ(control->get_ListCount(&rows), S_OK);
        return rows;
    }

    const Manifest manifest_;
};

/// A control in a window of a container, which is the host's own.
class PlacedControl {
  public:
    PlacedControl(ComPtr<_ctlFolderTree> control, bool multithreaded) : control_(std::move(control)) {
        if (multithreaded)
            formOnItsThread_ = std::make_unique<FormOnItsThread>();
        else
            form_ = std::make_unique<manifesthost::Form>();
        container_ = automation::MakeCom<FakeContainer>(Form().Window());
        const auto object = As<IOleObject>(control_);
        EXPECT_EQ(object->SetClientSite(container_.Get()), S_OK);
        const RECT place = {0, 0, 400, 300};
        EXPECT_EQ(object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, container_.Get(), 0, Form().Window(), &place),
                  S_OK);
    }
    ~PlacedControl() {
        const auto object = As<IOleObject>(control_);
        EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
        EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
    }
    PlacedControl(const PlacedControl&) = delete;
    PlacedControl& operator=(const PlacedControl&) = delete;

    const manifesthost::Form& Form() const { return form_ != nullptr ? *form_ : formOnItsThread_->Get(); }
    HWND Grid() const { return FindBelow(Form().Window(), L"ctlFolderTree.Grid"); }

  private:
    ComPtr<_ctlFolderTree> control_;
    std::unique_ptr<manifesthost::Form> form_;
    std::unique_ptr<FormOnItsThread> formOnItsThread_;
    ComPtr<FakeContainer> container_;
};

// Without this, the other tests would show nothing.
TEST(Registry, KnowsNothingOfTheControl) {
    ASSERT_EQ(OleInitialize(nullptr), S_OK);
    CLSID clsid;
    EXPECT_EQ(CLSIDFromProgID(controlProgId, &clsid), CO_E_CLASSSTRING);
    EXPECT_EQ(CLSIDFromProgID(sessionProgId, &clsid), CO_E_CLASSSTRING);
    ComPtr<IUnknown> control;
    EXPECT_EQ(CoCreateInstance(__uuidof(ctlFolderTree), nullptr, CLSCTX_ALL, IID_PPV_ARGS(control.GetAddressOf())),
              REGDB_E_CLASSNOTREG);
    EXPECT_FALSE(HasClassesKey(controlProgId));
    EXPECT_FALSE(HasClassesKey(L"CLSID\\{AE52A325-A957-48C9-B185-FA526DB6AB5E}"));
    EXPECT_FALSE(HasClassesKey(L"TypeLib\\{FFDE1FC5-4FAF-499F-9A82-A0E4FB171DF0}"));
    EXPECT_FALSE(HasClassesKey(L"Interface\\{E1986129-FE3C-4AA6-AF33-C75BD4DAE1F4}"));
    OleUninitialize();
}

TEST_P(ManifestHost, CreatesTheControlByItsProgIdAndLoads) {
    const auto control = NewControl();
    ASSERT_NE(control, nullptr);
    EXPECT_EQ(Rows(control), 0);
    ASSERT_EQ(control->putref_RDOSessionRef(NewSession(L"sample").Get()), S_OK);
    EXPECT_EQ(control->put_ExtendToLevel(0), S_OK);
    EXPECT_EQ(control->RefreshList(), S_OK);
    EXPECT_GT(Rows(control), 60);
    EXPECT_EQ(demo::Get(As<IDispatch>(control).Get(), L"ListCount").AsLong(), Rows(control)) << "late bound as well";
}

TEST_P(ManifestHost, ShowsTheControlAndHearsOfAUserWhoTicks) {
    const auto control = NewControl();
    ASSERT_NE(control, nullptr);
    PlacedControl placed(control, IsMultithreaded());
    ASSERT_NE(placed.Grid(), nullptr);
    const bool onThisThread = GetWindowThreadProcessId(placed.Grid(), nullptr) == GetCurrentThreadId();
    EXPECT_EQ(onThisThread, !IsMultithreaded());

    const auto sink = automation::MakeCom<EventSink>(IsMultithreaded() ? APTTYPE_MTA : APTTYPE_MAINSTA);
    ComPtr<IConnectionPoint> events;
    ASSERT_EQ(
        As<IConnectionPointContainer>(control)->FindConnectionPoint(__uuidof(__ctlFolderTree), events.GetAddressOf()),
        S_OK);
    DWORD cookie = 0;
    ASSERT_EQ(events->Advise(sink.Get(), &cookie), S_OK);
    ASSERT_EQ(control->putref_RDOSessionRef(NewSession(L"sample").Get()), S_OK);
    ASSERT_EQ(control->RefreshList(), S_OK);
    EXPECT_EQ(sink->changed, 0);
    for (const WPARAM key : std::initializer_list<WPARAM>{VK_HOME, VK_DOWN, VK_SPACE}) Press(placed.Grid(), key);
    EXPECT_TRUE(WaitUntil([&] { return sink->changed == 1; }));
    EXPECT_EQ(sink->strayed, 0);
    const auto selected = [&] {
        ComPtr<IDispatch> selection;
        EXPECT_EQ(control->get_Selection(selection.GetAddressOf()), S_OK);
        return demo::Get(selection.Get(), L"Count").AsLong();
    };
    EXPECT_EQ(selected(), 1);
    EXPECT_EQ(events->Unadvise(cookie), S_OK);
    Press(placed.Grid(), VK_SPACE);
    EXPECT_TRUE(WaitUntil([&] { return selected() == 0; }));
    EXPECT_EQ(sink->changed, 1);
}

TEST_P(ManifestHost, SavesAndRestoresSettingsAndChoice) {
    const auto session = NewSession(L"sample");
    ComPtr<IStream> stream;
    ASSERT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, stream.GetAddressOf()), S_OK);
    BSTR store = nullptr;
    BSTR folder = nullptr;
    BSTR name = nullptr;
    {
        const auto control = NewControl();
        ASSERT_NE(control, nullptr);
        control->put_MultiSelect(VARIANT_FALSE);
        control->put_ExtendToLevel(2);
        ASSERT_EQ(control->putref_RDOSessionRef(session.Get()), S_OK);
        ASSERT_EQ(control->RefreshList(), S_OK);
        const PlacedControl placed(control, IsMultithreaded());
        for (const WPARAM key : std::initializer_list<WPARAM>{VK_HOME, VK_DOWN, VK_SPACE}) Press(placed.Grid(), key);
        ComPtr<_clsFolderTreeItem> item;
        ASSERT_TRUE(WaitUntil([&] {
            EXPECT_EQ(control->get_SelectedItem(item.ReleaseAndGetAddressOf()), S_OK);
            return item != nullptr;
        }));
        EXPECT_EQ(item->get_StoreID(&store), S_OK);
        EXPECT_EQ(item->get_EntryID(&folder), S_OK);
        EXPECT_EQ(item->get_Name(&name), S_OK);
        ASSERT_EQ(As<IPersistStreamInit>(control)->Save(stream.Get(), TRUE), S_OK);
    }
    ASSERT_EQ(stream->Seek({}, STREAM_SEEK_SET, nullptr), S_OK);
    const auto control = NewControl();
    ASSERT_NE(control, nullptr);
    ASSERT_EQ(As<IPersistStreamInit>(control)->Load(stream.Get()), S_OK);
    LONG level = 0;
    EXPECT_EQ(control->get_ExtendToLevel(&level), S_OK);
    EXPECT_EQ(level, 2);
    ComPtr<_clsFolderTreeItem> saved;
    BSTR nothing = nullptr;
    ASSERT_EQ(control->CreateSelItem(7, store, folder, nothing, nothing, saved.GetAddressOf()), S_OK);
    ASSERT_EQ(control->putref_RDOSessionRef(session.Get()), S_OK);
    ASSERT_EQ(control->RefreshList(), S_OK);
    ASSERT_EQ(control->putref_SelectedItem(saved.Get()), S_OK);
    ComPtr<_clsFolderTreeItem> restored;
    ASSERT_EQ(control->get_SelectedItem(restored.GetAddressOf()), S_OK);
    ASSERT_NE(restored, nullptr);
    BSTR restoredName = nullptr;
    EXPECT_EQ(restored->get_Name(&restoredName), S_OK);
    EXPECT_GT(SysStringLen(name), 0u);
    EXPECT_STREQ(restoredName, name);
    for (BSTR text : {store, folder, name, restoredName}) SysFreeString(text);
}

TEST_P(ManifestHost, MayCloseTheFormDuringARefresh) {
    const auto control = NewControl();
    ASSERT_NE(control, nullptr);
    const PlacedControl placed(control, IsMultithreaded());
    EXPECT_EQ(control->put_ExtendToLevel(0), S_OK);
    ASSERT_EQ(control->putref_RDOSessionRef(NewSession(L"sample?delay=20&rows=3").Get()), S_OK);
    placed.Form().CloseIn(100);
    EXPECT_EQ(control->RefreshList(), S_OK);
    EXPECT_FALSE(IsWindow(placed.Form().Window()));
    EXPECT_EQ(placed.Grid(), nullptr);
    EXPECT_LT(Rows(control), 60) << "that ended the load";
}

INSTANTIATE_TEST_SUITE_P(Apartments, ManifestHost, ::testing::Values(COINIT_APARTMENTTHREADED, COINIT_MULTITHREADED),
                         [](const auto& test) {
                             return test.param == COINIT_MULTITHREADED ? "Multithreaded" : "OfOneThread";
                         });

}  // namespace
}  // namespace manifesthost
