// ComFaceMemoryTest: every allocation behind the COM face fails once, and from then on. No crash, nothing left over, no
// flag left standing, and the same call goes through when there is memory again.
#include <gtest/gtest.h>

#include <ole2.h>
#include <olectl.h>

#include <cstdio>
#include <functional>

#include "FolderTree.idl.h"
#include "automation_testing/FailingMemory.h"
#include "automation_win32/Bstr.h"
#include "automation_win32/ComBase.h"
#include "automation_win32/ComError.h"
#include "automation_win32/Crossing.h"
#include "automation_win32/ModuleLock.h"
#include "automation_win32/Variant.h"
#include "common/Members.h"
#include "localstores/RdoSession.h"
#include "win32/com/ControlObject.h"

namespace foldertree {
namespace {

using automation::ComPtr;
using automation::Value;
using automation::Variant;
using automation::testing::FailEachAllocation;
using automation::testing::FailingMemory;
using automation::testing::LiveAllocations;
using automation::testing::MemoryPlan;
using automation::testing::SparedMemory;

class Ole : public testing::Environment {
  public:
    void SetUp() override { ASSERT_TRUE(SUCCEEDED(OleInitialize(nullptr))); }
    void TearDown() override { OleUninitialize(); }
};
[[maybe_unused]] testing::Environment* const ole = testing::AddGlobalTestEnvironment(new Ole);

using Control = ComPtr<IUnknown>;
using Action = std::function<void(const Control&)>;

template <class Interface>
ComPtr<Interface> As(const Control& control) {
    ComPtr<Interface> part;
    EXPECT_EQ(control.As(&part), S_OK);
    return part;
}

ControlObject& Object(const Control& control) {
    return *static_cast<ControlObject*>(control.Get());
}

/// What fails here is told by HRESULTs, which the scenarios pass over: what counts is what is left.
int64_t RunOnce(const MemoryPlan& plan, const Action& prepare, const Action& act) {
    const Control control = ControlObject::Create();
    prepare(control);
    int64_t refused = 0;
    {
        const FailingMemory memory(plan);
        act(control);
        refused = memory.Refused();
    }
    EXPECT_FALSE(Object(control).Core().Refreshing()) << plan.first;
    EXPECT_FALSE(Object(control).Window().Panel().Visible()) << plan.first;
    act(control);
    return refused;
}

void TryWithoutMemory(const char* name, const Action& prepare, const Action& act, int64_t step = 1) {
    RunOnce({}, prepare, act);  // what is kept for good, like the numbers of names, is known from here on
    for (const bool andAllAfter : {false, true}) {
        const int64_t failures = FailEachAllocation(
            andAllAfter,
            [&](const MemoryPlan& plan) {
                const int64_t before = LiveAllocations();
                const int64_t refused = RunOnce(plan, prepare, act);
                EXPECT_EQ(LiveAllocations(), before) << name << ", allocation " << plan.first;
                EXPECT_TRUE(automation::ModuleIsUnused()) << name << ", allocation " << plan.first;
                return refused > 0 && !testing::Test::HasFailure();
            },
            step);
        EXPECT_GT(failures, 0) << name;
        std::printf("%-40s %s %6lld allocations failed\n", name, andAllAfter ? "from then on" : "once        ",
                    static_cast<long long>(failures));
    }
}

const Action nothing = [](const Control&) {};

/// A container's bag that holds on to what it is given.
class Bag final : public automation::ComBase<IPropertyBag> {
  public:
    Bag() {
        for (VARIANT& value : values_) VariantInit(&value);
    }
    ~Bag() override {
        for (VARIANT& value : values_) VariantClear(&value);
    }
    STDMETHOD(Read)(LPCOLESTR name, VARIANT* value, IErrorLog*) override {
        VARIANT* const held = Find(name);
        return held == nullptr || V_VT(held) == VT_EMPTY ? E_INVALIDARG : VariantCopy(value, held);
    }
    STDMETHOD(Write)(LPCOLESTR name, VARIANT* value) override {
        VARIANT* const held = Find(name);
        return held == nullptr ? E_INVALIDARG : VariantCopy(held, value);
    }

  private:
    VARIANT* Find(LPCOLESTR name) {
        const SparedMemory container;
        for (const MemberInfo& info : AllMembers())
            if (automation::ToWide(info.name) == name) return &values_[static_cast<size_t>(info.member)];
        return nullptr;
    }
    VARIANT values_[32];
};

void ChangeSettings(const Control& control) {
    const auto tree = As<_ctlFolderTree>(control);
    tree->put_Enabled(VARIANT_FALSE);
    tree->put_HighlightTaskFolders(VARIANT_TRUE);
    tree->put_AllowIndexing(VARIANT_TRUE);
    tree->put_ExtendToLevel(1);
    tree->put_InfoStoreAccessMode(::eISAccess_CDO);
}

/// Every property, read and put back, by its name.
void UseEveryProperty(const Control& control) {
    const auto tree = As<IDispatch>(control);
    for (const MemberInfo& info : AllMembers()) {
        if (info.kind == MemberKind::method || info.kind == MemberKind::methodOnVariable) continue;
        std::wstring name;
        {
            const SparedMemory host;
            name = automation::ToWide(info.name);
        }
        LPOLESTR names[] = {name.data()};
        DISPID number = 0;
        if (FAILED(tree->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &number))) continue;
        VARIANT value;
        VariantInit(&value);
        DISPPARAMS none = {};
        tree->Invoke(number, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &value, nullptr, nullptr);
        DISPID put = DISPID_PROPERTYPUT;
        DISPPARAMS one = {&value, &put, 1, 1};
        if (info.kind != MemberKind::readOnly && V_VT(&value) != VT_EMPTY)
            tree->Invoke(number, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &one, nullptr, nullptr, nullptr);
        VariantClear(&value);
    }
}

void UseItems(const Control& control) {
    const auto tree = As<_ctlFolderTree>(control);
    BSTR text = SysAllocString(L"00000000000000000000000000000000000000000000000000000000");
    ComPtr<_clsFolderTreeItem> item;
    tree->CreateSelItem(1, text, text, text, nullptr, item.GetAddressOf());
    ComPtr<_clsFolderTreeItem> found;
    tree->GetMsgItem(text, text, found.GetAddressOf());
    tree->putref_SelectedItem(item.Get());
    tree->putref_SelectedItem(nullptr);
    if (item) {
        BSTR key = nullptr;
        item->get_Key(&key);
        SysFreeString(key);
    }
    tree->Localize(text, text, text, text, text, text);
    SysFreeString(text);
}

/// Hears of everything and keeps nothing.
class PropertySink final : public automation::ComBase<IPropertyNotifySink> {
  public:
    STDMETHOD(OnChanged)(DISPID) override { return S_OK; }
    STDMETHOD(OnRequestEdit)(DISPID) override { return S_OK; }
};

void UseConnections(const Control& control) {
    ComPtr<PropertySink> sink;
    {
        const SparedMemory host;
        sink = automation::MakeCom<PropertySink>();
    }
    const auto container = As<IConnectionPointContainer>(control);
    ComPtr<IConnectionPoint> point;
    container->FindConnectionPoint(IID_IPropertyNotifySink, point.GetAddressOf());
    DWORD cookie = 0;
    const bool connected = SUCCEEDED(point->Advise(sink.Get(), &cookie));
    VARIANT_BOOL multiSelect = VARIANT_FALSE;
    const auto tree = As<_ctlFolderTree>(control);
    tree->get_MultiSelect(&multiSelect);
    tree->put_MultiSelect(multiSelect == VARIANT_FALSE ? VARIANT_TRUE : VARIANT_FALSE);
    ComPtr<IEnumConnections> connections;
    if (SUCCEEDED(point->EnumConnections(connections.GetAddressOf()))) {
        ComPtr<IEnumConnections> copy;
        connections->Clone(copy.GetAddressOf());
    }
    ComPtr<IEnumConnectionPoints> points;
    container->EnumConnectionPoints(points.GetAddressOf());
    if (connected) {
        EXPECT_EQ(point->Unadvise(cookie), S_OK);
    }
}

TEST(ComFaceWithoutMemory, AControlIsMadeWhollyOrNotAtAll) {
    TryWithoutMemory("create and release", nothing, [](const Control&) {
        automation::ComBoundary([] {
            const Control another = ControlObject::Create();
            return S_OK;
        });
    });
}

TEST(ComFaceWithoutMemory, ABagIsWrittenAndReadAsFarAsThereIsMemory) {
    TryWithoutMemory("save into a bag", ChangeSettings, [](const Control& control) {
        ComPtr<Bag> bag;
        {
            const SparedMemory container;
            bag = automation::MakeCom<Bag>();
        }
        As<IPersistPropertyBag>(control)->Save(bag.Get(), TRUE, FALSE);
    });
    const auto bag = automation::MakeCom<Bag>();
    {
        const Control control = ControlObject::Create();
        ChangeSettings(control);
        ASSERT_EQ(As<IPersistPropertyBag>(control)->Save(bag.Get(), TRUE, FALSE), S_OK);
    }
    // The bag is an object of this module too, and stays through all runs: it must not count as one left over.
    automation::UnlockModule();
    TryWithoutMemory("load from a bag", nothing,
                     [&](const Control& control) { As<IPersistPropertyBag>(control)->Load(bag.Get(), nullptr); });
    automation::LockModule();
}

TEST(ComFaceWithoutMemory, AStreamIsWrittenAndReadWhollyOrNotAtAll) {
    TryWithoutMemory("save into a stream", ChangeSettings, [](const Control& control) {
        ULARGE_INTEGER size = {};
        As<IPersistStreamInit>(control)->GetSizeMax(&size);
    });
    ComPtr<IStream> stream;
    ASSERT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, stream.GetAddressOf()), S_OK);
    {
        const Control control = ControlObject::Create();
        ChangeSettings(control);
        ASSERT_EQ(As<IPersistStreamInit>(control)->Save(stream.Get(), TRUE), S_OK);
    }
    TryWithoutMemory("load from a stream", nothing, [&](const Control& control) {
        stream->Seek({}, STREAM_SEEK_SET, nullptr);
        As<IPersistStreamInit>(control)->Load(stream.Get());
    });
}

TEST(ComFaceWithoutMemory, LateBoundCallsAreAnswered) {
    TryWithoutMemory("every property by name", nothing, UseEveryProperty);
    TryWithoutMemory("items and captions", nothing, UseItems);
}

TEST(ComFaceWithoutMemory, ConnectionsComeAndGo) {
    TryWithoutMemory("connections", nothing, UseConnections);
}

/// Reads the sample mailbox. Its session is in the same program, so its allocations fail as well.
void GiveSession(const Control& control) {
    const automation::ObjectRef session = localstores::MakeRdoSession();
    session->Get("Open", "sample");
    const auto tree = As<_ctlFolderTree>(control);
    tree->put_ExtendToLevel(1);
    tree->putref_RDOSessionRef(automation::ToDispatch(session).Get());
}

void GiveSessionAndLoad(const Control& control) {
    GiveSession(control);
    As<_ctlFolderTree>(control)->RefreshList();
    ASSERT_GT(Object(control).Core().ListCount(), 3);
}

constexpr int64_t sample = 101;  // these scenarios ask for memory thousands of times

TEST(ComFaceWithoutMemory, ALoadEndsWithoutAPanelOrAFlag) {
    TryWithoutMemory(
        "load", GiveSession, [](const Control& control) { As<_ctlFolderTree>(control)->RefreshList(); }, sample);
}

TEST(ComFaceWithoutMemory, TicksAreMadeAndTakenBack) {
    TryWithoutMemory(
        "tick all, read, untick", GiveSessionAndLoad,
        [](const Control& control) {
            const auto tree = As<_ctlFolderTree>(control);
            tree->SelectAll();
            ComPtr<IDispatch> selection;
            tree->get_Selection(selection.GetAddressOf());
            tree->SelectNone();
            tree->CollapseToSelection();
        },
        sample);
}

}  // namespace
}  // namespace foldertree
