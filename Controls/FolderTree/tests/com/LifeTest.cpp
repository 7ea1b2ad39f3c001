// LifeTest: identity, references, and the end of the control at any moment.
#include <gtest/gtest.h>

#include <objsafe.h>
#include <olectl.h>

#include "automation/KeyedCollection.h"
#include "automation_testing/ScriptedObject.h"
#include "automation_win32/Crossing.h"
#include "com/Mailbox.h"
#include "com/Server.h"

namespace foldertree::testing {
namespace {

using automation::KeyedCollection;
using automation::Missing;
using automation::ObjectRef;
using automation::testing::ScriptedObject;

TEST(Life, AnswersForEveryInterfaceWithOneIdentity) {
    const auto control = NewControl();
    const auto identity = As<IUnknown>(control);
    const IID interfaces[] = {IID_IDispatch,
                              __uuidof(_ctlFolderTree),
                              IID_IOleObject,
                              IID_IOleControl,
                              IID_IOleWindow,
                              IID_IOleInPlaceObject,
                              IID_IOleInPlaceActiveObject,
                              IID_IViewObject,
                              IID_IViewObject2,
                              IID_IViewObjectEx,
                              IID_IPersistStorage,
                              IID_IPersistMemory,
                              IID_IRunnableObject,
                              IID_IQuickActivate,
                              IID_IDataObject,
                              IID_ISpecifyPropertyPages,
                              IID_IPerPropertyBrowsing,
                              IID_IPersist,
                              IID_IPersistPropertyBag,
                              IID_IPersistStreamInit,
                              IID_IConnectionPointContainer,
                              IID_IProvideClassInfo,
                              IID_IProvideClassInfo2};
    for (const IID& from : interfaces) {
        ComPtr<IUnknown> part;
        ASSERT_EQ(identity->QueryInterface(from, reinterpret_cast<void**>(part.GetAddressOf())), S_OK);
        EXPECT_EQ(As<IUnknown>(part).Get(), identity.Get());
        for (const IID& to : interfaces) {
            ComPtr<IUnknown> other;
            EXPECT_EQ(part->QueryInterface(to, reinterpret_cast<void**>(other.GetAddressOf())), S_OK);
        }
    }
    EXPECT_EQ(References(control.Get()), 2u);
}

TEST(Life, RefusesInterfacesThatItDoesNotHave) {
    const auto control = NewControl();
    void* object = &object;
    EXPECT_EQ(control->QueryInterface(IID_IStream, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(control->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
    // Not marked safe for scripting or initialising.
    EXPECT_EQ(control->QueryInterface(IID_IObjectSafety, &object), E_NOINTERFACE);
}

TEST(Life, CannotBeAggregated) {
    const auto outer = automation::ToCom(std::make_shared<ScriptedObject>());
    ComPtr<IUnknown> inner;
    EXPECT_EQ(CoCreateInstance(__uuidof(::ctlFolderTree), outer.Get(), CLSCTX_INPROC_SERVER,
                               IID_PPV_ARGS(inner.GetAddressOf())),
              CLASS_E_NOAGGREGATION);
}

TEST(Life, KeepsTheModuleLoadedWhileObjectsLive) {
    const auto canUnload = EntryPoint<HRESULT WINAPI()>("DllCanUnloadNow");
    const auto control = NewControl();
    EXPECT_EQ(canUnload(), S_FALSE);
}

TEST(Life, LetsGoOfTheHostsObjectsWithTheLastReference) {
    const int before = ScriptedObject::LiveCount();
    {
        auto control = NewControl();
        for (const auto put : {&_ctlFolderTree::putref_Application, &_ctlFolderTree::putref_RDOSessionRef}) {
            const auto object = automation::ToDispatch(std::make_shared<ScriptedObject>());
            EXPECT_EQ((control.Get()->*put)(object.Get()), S_OK);
        }
        EXPECT_EQ(ScriptedObject::LiveCount(), before + 2);
        control = nullptr;
        EXPECT_EQ(ScriptedObject::LiveCount(), before);
    }
}

TEST(Life, EmptiesTheHostsSelectionAtItsEnd) {
    const auto collection = std::make_shared<KeyedCollection>();
    auto control = NewControl();
    ComPtr<_clsFolderTreeItem> item;
    control->CreateSelItem(1, nullptr, nullptr, nullptr, nullptr, item.GetAddressOf());
    collection->Add(LateBound(item.Get()), "key", Missing(), Missing());
    control->putref_Selection(automation::ToDispatch(collection).Get());
    EXPECT_EQ(collection->Count(), 1);
    control = nullptr;
    EXPECT_EQ(collection->Count(), 0);
    EXPECT_EQ(References(item.Get()), 1u);
}

TEST(Life, ListensToItsFontAndLetsItGo) {
    FONTDESC description = {};
    description.cbSizeofstruct = sizeof(description);
    wchar_t name[] = L"Arial";
    description.lpstrName = name;
    description.cySize.int64 = 100000;
    ComPtr<IFontDisp> font;
    ASSERT_EQ(OleCreateFontIndirect(&description, __uuidof(IFontDisp), reinterpret_cast<void**>(font.GetAddressOf())),
              S_OK);
    const auto connections = [&] {
        ComPtr<IConnectionPoint> point;
        ComPtr<IEnumConnections> all;
        As<IConnectionPointContainer>(font)->FindConnectionPoint(IID_IPropertyNotifySink, point.GetAddressOf());
        // Without a connection Wine has nothing to enumerate.
        if (FAILED(point->EnumConnections(all.GetAddressOf()))) return 0;
        int count = 0;
        CONNECTDATA data = {};
        for (; all->Next(1, &data, nullptr) == S_OK; ++count) data.pUnk->Release();
        return count;
    };
    auto control = NewControl();
    control->putref_Font(font.Get());
    EXPECT_EQ(connections(), 1);
    control->putref_Font(nullptr);
    EXPECT_EQ(connections(), 0);
    control->putref_Font(font.Get());
    control = nullptr;
    EXPECT_EQ(connections(), 0);
    EXPECT_EQ(References(font.Get()), 1u);
}

TEST(Life, WorksOnAfterItWasClosed) {
    const auto control = NewControl();
    control->put_AllowIndexing(VARIANT_TRUE);
    EXPECT_EQ(As<IOleObject>(control)->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_EQ(As<IOleObject>(control)->Close(OLECLOSE_NOSAVE), S_OK);

    VARIANT_BOOL indexing = VARIANT_FALSE;
    EXPECT_EQ(control->get_AllowIndexing(&indexing), S_OK);
    EXPECT_EQ(indexing, VARIANT_TRUE);
    EXPECT_EQ(control->putref_RDOSessionRef(automation::ToDispatch(SampleSession()).Get()), S_OK);
    EXPECT_EQ(control->RefreshList(), S_OK);
    LONG rows = 0;
    EXPECT_EQ(control->get_ListCount(&rows), S_OK);
    EXPECT_GT(rows, 10);
}

TEST(Life, KeepsTheHostsSelectionWhenItIsClosedAndEmptiesItAtItsEnd) {
    const auto collection = std::make_shared<KeyedCollection>();
    auto control = NewControl();
    ComPtr<_clsFolderTreeItem> item;
    control->CreateSelItem(1, nullptr, nullptr, nullptr, nullptr, item.GetAddressOf());
    collection->Add(LateBound(item.Get()), "key", Missing(), Missing());
    const auto given = automation::ToDispatch(collection);
    control->putref_Selection(given.Get());
    EXPECT_EQ(As<IOleObject>(control)->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_EQ(collection->Count(), 1);
    ComPtr<IDispatch> selection;
    EXPECT_EQ(control->get_Selection(selection.GetAddressOf()), S_OK);
    EXPECT_EQ(selection.Get(), given.Get());
    control = nullptr;
    EXPECT_EQ(collection->Count(), 0);
}

TEST(Life, NamesItsClassWithoutRegistration) {
    const auto object = As<IOleObject>(NewControl());
    const auto name = [&](DWORD form) {
        LPOLESTR text = nullptr;
        EXPECT_EQ(object->GetUserType(form, &text), S_OK);
        const std::wstring copy = text != nullptr ? text : L"";
        CoTaskMemFree(text);
        return copy;
    };
    EXPECT_EQ(name(USERCLASSTYPE_FULL), L"FolderTree control");
    EXPECT_EQ(name(USERCLASSTYPE_SHORT), L"FolderTree");
    EXPECT_EQ(name(USERCLASSTYPE_APPNAME), L"FolderTree");
    LPOLESTR text = nullptr;
    EXPECT_EQ(object->GetUserType(0, &text), E_INVALIDARG);
    EXPECT_EQ(object->GetUserType(4, &text), E_INVALIDARG);
    EXPECT_EQ(object->GetUserType(USERCLASSTYPE_FULL, nullptr), E_POINTER);
}

TEST(Life, KeepsOneComObjectForAnItem) {
    const auto control = NewControl();
    control->put_MultiSelect(VARIANT_FALSE);
    ComPtr<_clsFolderTreeItem> item;
    control->CreateSelItem(1, nullptr, nullptr, nullptr, nullptr, item.GetAddressOf());
    const auto collection = std::make_shared<KeyedCollection>();
    collection->Add(LateBound(item.Get()), Missing(), Missing(), Missing());
    EXPECT_EQ(automation::ToCom(collection->Item(1).ToObject()).Get(), As<IUnknown>(item).Get());
}

// ---- The end in the middle of a load

/// Loads the sample mailbox and does something to the control at one call after the other.
class EndDuringLoad : public ::testing::Test {
  protected:
    /// A control that reads all levels.
    static ComPtr<_ctlFolderTree> NewDeepControl() {
        auto control = NewControl();
        control->put_ExtendToLevel(0);
        return control;
    }

    /// How often the session is used in a load that runs to its end.
    static int CallsOfALoad() {
        static const int calls = [] {
            const auto wire = std::make_shared<Tripwire>();
            const auto control = NewDeepControl();
            control->putref_RDOSessionRef(automation::ToDispatch(SampleSession(wire)).Get());
            wire->calls = 0;
            control->RefreshList();
            LONG rows = 0;
            control->get_ListCount(&rows);
            EXPECT_GT(rows, 60);
            return wire->calls;
        }();
        return calls;
    }

    /// Every early call, then some of all the others.
    static std::vector<int> Moments() {
        std::vector<int> moments;
        for (int n = 1; n <= CallsOfALoad(); n += n < 60 ? 1 : 13) moments.push_back(n);
        return moments;
    }

    /// Refreshes once for each moment. `act` gets the last reference and may drop it. Nothing of the session may be
    /// left over when the load has come back and the reference is gone.
    template <class Act>
    void ForEveryMoment(bool fromMessageLoop, Act&& act) {
        for (const int moment : Moments()) {
            SCOPED_TRACE(moment);
            auto wire = std::make_shared<Tripwire>();
            ComPtr<_ctlFolderTree> owner = NewDeepControl();
            _ctlFolderTree* const control = owner.Get();
            std::weak_ptr<automation::Object> session;
            {
                const auto held = SampleSession(wire);
                session = held;
                control->putref_RDOSessionRef(automation::ToDispatch(held).Get());
            }
            wire->calls = 0;
            wire->actAt = moment;
            bool acted = false;
            wire->action = [&] {
                const auto now = [&] {
                    acted = true;
                    act(owner);
                };
                if (fromMessageLoop)
                    poster_.Post(now);
                else
                    now();
            };
            EXPECT_EQ(control->RefreshList(), S_OK);
            MSG message;
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
            EXPECT_TRUE(acted);
            owner = nullptr;
            EXPECT_TRUE(session.expired());
        }
    }

    Poster poster_;
};

TEST_F(EndDuringLoad, SurvivesTheLastReleaseAtAnyYield) {
    ForEveryMoment(true, [](ComPtr<_ctlFolderTree>& owner) { owner = nullptr; });
}

TEST_F(EndDuringLoad, SurvivesTheLastReleaseInsideAnyOutsideCall) {
    ForEveryMoment(false, [](ComPtr<_ctlFolderTree>& owner) { owner = nullptr; });
}

TEST_F(EndDuringLoad, SurvivesCloseAtAnyYield) {
    ForEveryMoment(true, [](ComPtr<_ctlFolderTree>& owner) { As<IOleObject>(owner)->Close(OLECLOSE_NOSAVE); });
}

TEST_F(EndDuringLoad, MayBeRefreshedAgainFromAnyYield) {
    ForEveryMoment(true, [](ComPtr<_ctlFolderTree>& owner) { EXPECT_EQ(owner->RefreshList(), S_OK); });
}

TEST_F(EndDuringLoad, EndsSoonAfterItsLastReference) {
    auto wire = std::make_shared<Tripwire>();
    ComPtr<_ctlFolderTree> owner = NewDeepControl();
    _ctlFolderTree* const control = owner.Get();
    control->putref_RDOSessionRef(automation::ToDispatch(SampleSession(wire)).Get());
    wire->calls = 0;
    wire->actAt = CallsOfALoad() / 3;
    wire->action = [&] { poster_.Post([&] { owner = nullptr; }); };
    control->RefreshList();
    EXPECT_LT(wire->calls, wire->actAt + 40);
}

TEST_F(EndDuringLoad, EndsALoadSoonAfterItIsClosedAndLoadsAgain) {
    auto wire = std::make_shared<Tripwire>();
    const auto control = NewDeepControl();
    control->putref_RDOSessionRef(automation::ToDispatch(SampleSession(wire)).Get());
    wire->calls = 0;
    wire->actAt = CallsOfALoad() / 3;
    wire->action = [&] { poster_.Post([&] { As<IOleObject>(control)->Close(OLECLOSE_NOSAVE); }); };
    EXPECT_EQ(control->RefreshList(), S_OK);
    EXPECT_LT(wire->calls, wire->actAt + 40);

    EXPECT_EQ(control->RefreshList(), S_OK);
    LONG rows = 0;
    control->get_ListCount(&rows);
    EXPECT_GT(rows, 60);
}

TEST_F(EndDuringLoad, LeavesTheEndOfTheProgramToItsMessageLoop) {
    auto wire = std::make_shared<Tripwire>();
    const auto control = NewDeepControl();
    control->putref_RDOSessionRef(automation::ToDispatch(SampleSession(wire)).Get());
    wire->calls = 0;
    wire->actAt = CallsOfALoad() / 3;
    wire->action = [] { PostQuitMessage(42); };
    EXPECT_EQ(control->RefreshList(), S_OK);
    EXPECT_LT(wire->calls, CallsOfALoad() / 2);

    MSG message = {};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) && message.message != WM_QUIT) DispatchMessageW(&message);
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 42u);
}

TEST_F(EndDuringLoad, IsNotHeldUpByAMessageThatPostsItselfForEver) {
    const auto control = NewDeepControl();
    control->putref_RDOSessionRef(automation::ToDispatch(SampleSession()).Get());
    bool again = true;
    std::function<void()> repeat = [&] {
        if (again) poster_.Post(repeat);
    };
    poster_.Post(repeat);
    EXPECT_EQ(control->RefreshList(), S_OK);
    again = false;
    LONG rows = 0;
    control->get_ListCount(&rows);
    EXPECT_GT(rows, 10);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

}  // namespace
}  // namespace foldertree::testing
