// ConnectionPointTest: the event `Changed` and the notifications about properties.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ocidl.h>
#include <olectl.h>

#include <functional>

#include "automation_win32/ComBase.h"
#include "automation_win32/Crossing.h"
#include "com/Desktop.h"
#include "com/Mailbox.h"

namespace foldertree::testing {
namespace {

using ::testing::ElementsAre;

/// Counts the events that it is told.
class EventSink final : public automation::ComBase<IDispatch> {
  public:
    int changed = 0;
    std::function<void()> onChanged;
    HRESULT answer = S_OK;

    STDMETHOD(GetTypeInfoCount)(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHOD(GetTypeInfo)(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHOD(GetIDsOfNames)(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
    STDMETHOD(Invoke)(DISPID member, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*, UINT*) override {
        EXPECT_EQ(member, 1);
        EXPECT_EQ(parameters->cArgs, 0u);
        ++changed;
        if (onChanged) onChanged();
        return answer;
    }

  protected:
    void* FindInterface(REFIID iid) override {
        return iid == __uuidof(__ctlFolderTree) ? static_cast<IDispatch*>(this) : nullptr;
    }
};

class PropertySink final : public automation::ComBase<IPropertyNotifySink> {
  public:
    std::vector<DISPID> changed;
    std::function<void()> onChanged;
    std::function<void()> onEnd;

    ~PropertySink() override {
        if (onEnd) onEnd();
    }
    STDMETHOD(OnChanged)(DISPID property) override {
        changed.push_back(property);
        if (onChanged) onChanged();
        return S_OK;
    }
    STDMETHOD(OnRequestEdit)(DISPID) override { return S_OK; }
};

ComPtr<IConnectionPoint> Point(const ComPtr<_ctlFolderTree>& control, REFIID iid) {
    ComPtr<IConnectionPoint> point;
    EXPECT_EQ(As<IConnectionPointContainer>(control)->FindConnectionPoint(iid, point.GetAddressOf()), S_OK);
    return point;
}

TEST(ConnectionPoints, KnowTheirInterfaceAndTheirContainer) {
    const auto control = NewControl();
    const auto container = As<IConnectionPointContainer>(control);
    ComPtr<IEnumConnectionPoints> points;
    ASSERT_EQ(container->EnumConnectionPoints(points.GetAddressOf()), S_OK);
    ComPtr<IConnectionPoint> point;
    std::vector<IID> interfaces;
    while (points->Next(1, point.ReleaseAndGetAddressOf(), nullptr) == S_OK) {
        IID iid = {};
        EXPECT_EQ(point->GetConnectionInterface(&iid), S_OK);
        interfaces.push_back(iid);
        ComPtr<IConnectionPointContainer> back;
        EXPECT_EQ(point->GetConnectionPointContainer(back.GetAddressOf()), S_OK);
        EXPECT_EQ(back.Get(), container.Get());
        EXPECT_EQ(Point(control, iid).Get(), point.Get());
    }
    ASSERT_EQ(interfaces.size(), 2u);
    EXPECT_TRUE(interfaces[0] == __uuidof(__ctlFolderTree));
    EXPECT_TRUE(interfaces[1] == IID_IPropertyNotifySink);
    ComPtr<IConnectionPoint> none;
    EXPECT_EQ(container->FindConnectionPoint(IID_IAdviseSink, none.GetAddressOf()), CONNECT_E_NOCONNECTION);
}

TEST(ConnectionPoints, HoldASinkUntilItDisconnects) {
    const auto control = NewControl();
    const auto sink = automation::MakeCom<EventSink>();
    const auto point = Point(control, __uuidof(__ctlFolderTree));
    DWORD first = 0;
    DWORD second = 0;
    ASSERT_EQ(point->Advise(sink.Get(), &first), S_OK);
    ASSERT_EQ(point->Advise(sink.Get(), &second), S_OK);
    EXPECT_NE(first, 0u);
    EXPECT_NE(first, second);
    EXPECT_EQ(References(sink.Get()), 3u);

    ComPtr<IEnumConnections> connections;
    ASSERT_EQ(point->EnumConnections(connections.GetAddressOf()), S_OK);
    CONNECTDATA data[3] = {};
    ULONG count = 0;
    EXPECT_EQ(connections->Next(3, data, &count), S_FALSE);
    ASSERT_EQ(count, 2u);
    EXPECT_EQ(data[0].dwCookie, first);
    EXPECT_EQ(data[1].dwCookie, second);
    for (ULONG i = 0; i < count; ++i) data[i].pUnk->Release();
    connections = nullptr;

    EXPECT_EQ(point->Unadvise(first), S_OK);
    EXPECT_EQ(point->Unadvise(first), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(point->Unadvise(second), S_OK);
    EXPECT_EQ(References(sink.Get()), 1u);
}

TEST(ConnectionPoints, RefuseASinkOfAnotherKind) {
    const auto control = NewControl();
    const auto events = automation::MakeCom<EventSink>();
    DWORD cookie = 7;
    EXPECT_EQ(Point(control, IID_IPropertyNotifySink)->Advise(events.Get(), &cookie), CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(cookie, 0u);
    EXPECT_EQ(Point(control, IID_IPropertyNotifySink)->Advise(nullptr, &cookie), E_POINTER);
}

TEST(ConnectionPoints, LetGoOfTheirSinksWithTheControlAndNotWhenItIsClosed) {
    auto control = NewControl();
    const auto sink = automation::MakeCom<EventSink>();
    DWORD cookie = 0;
    Point(control, __uuidof(__ctlFolderTree))->Advise(sink.Get(), &cookie);
    As<IOleObject>(control)->Close(OLECLOSE_NOSAVE);
    EXPECT_EQ(References(sink.Get()), 2u);
    control = nullptr;
    EXPECT_EQ(References(sink.Get()), 1u);
}

TEST(PropertyNotifications, NameThePropertyThatChanged) {
    const auto control = NewControl();
    const auto sink = automation::MakeCom<PropertySink>();
    DWORD cookie = 0;
    ASSERT_EQ(Point(control, IID_IPropertyNotifySink)->Advise(sink.Get(), &cookie), S_OK);
    control->put_Enabled(VARIANT_FALSE);
    control->put_Enabled(VARIANT_FALSE);  // an equal value changes nothing
    control->put_HighlightTaskFolders(VARIANT_TRUE);
    control->put_AllowIndexing(VARIANT_TRUE);  // says so twice
    EXPECT_THAT(sink->changed, ElementsAre(-514, 26, 14, 14));
}

TEST(PropertyNotifications, PassOverASinkThatWasDisconnectedMeanwhile) {
    const auto control = NewControl();
    const auto point = Point(control, IID_IPropertyNotifySink);
    const auto first = automation::MakeCom<PropertySink>();
    const auto second = automation::MakeCom<PropertySink>();
    const auto third = automation::MakeCom<PropertySink>();
    DWORD firstCookie = 0;
    DWORD secondCookie = 0;
    DWORD thirdCookie = 0;
    point->Advise(first.Get(), &firstCookie);
    point->Advise(second.Get(), &secondCookie);
    point->Advise(third.Get(), &thirdCookie);
    first->onChanged = [&] {
        EXPECT_EQ(point->Unadvise(firstCookie), S_OK);
        EXPECT_EQ(point->Unadvise(secondCookie), S_OK);
        // As many as before, but others.
        DWORD cookie = 0;
        point->Advise(second.Get(), &cookie);
        point->Advise(first.Get(), &cookie);
    };
    control->put_MultiSelect(VARIANT_FALSE);
    EXPECT_THAT(first->changed, ElementsAre(13));
    EXPECT_THAT(second->changed, ElementsAre());
    EXPECT_THAT(third->changed, ElementsAre(13));
    first->onChanged = nullptr;
    control->put_MultiSelect(VARIANT_TRUE);
    EXPECT_THAT(first->changed, ElementsAre(13, 13));
    EXPECT_THAT(second->changed, ElementsAre(13));
    EXPECT_THAT(third->changed, ElementsAre(13, 13));
}

TEST(PropertyNotifications, LetASinkChangeTheConnectionsWithItsEnd) {
    const auto control = NewControl();
    const auto point = Point(control, IID_IPropertyNotifySink);
    const auto last = automation::MakeCom<PropertySink>();
    DWORD lastCookie = 0;
    {
        const auto leaving = automation::MakeCom<PropertySink>();
        DWORD cookie = 0;
        point->Advise(leaving.Get(), &cookie);
        point->Advise(last.Get(), &lastCookie);
        leaving->onChanged = [point, cookie] { EXPECT_EQ(point->Unadvise(cookie), S_OK); };
        leaving->onEnd = [&] {
            EXPECT_EQ(point->Unadvise(lastCookie), S_OK);
            DWORD fresh = 0;
            for (int i = 0; i < 100; ++i) point->Advise(last.Get(), &fresh);
        };
    }
    control->put_MultiSelect(VARIANT_FALSE);
    EXPECT_THAT(last->changed, ElementsAre());
    control->put_MultiSelect(VARIANT_TRUE);
    EXPECT_EQ(last->changed.size(), 100u);
}

// ---- Changed, by keys into a hosted control

class ChangedEvent : public ::testing::Test {
  protected:
    void SetUp() override {
        if (!Desktop::IsAvailable()) GTEST_SKIP();
        desktop_ = std::make_unique<Desktop>();
        ASSERT_NE(desktop_->Control(), nullptr);
        desktop_->Control()->putref_RDOSessionRef(automation::ToDispatch(SampleSession()).Get());
        desktop_->Control()->RefreshList();
        desktop_->Press(VK_HOME);
        desktop_->Press(VK_DOWN);  // from the store to its first folder
    }

    DWORD Connect(const ComPtr<EventSink>& sink) {
        DWORD cookie = 0;
        EXPECT_EQ(Point(desktop_->Control(), __uuidof(__ctlFolderTree))->Advise(sink.Get(), &cookie), S_OK);
        return cookie;
    }

    void Tick() { desktop_->Press(VK_SPACE); }

    std::unique_ptr<Desktop> desktop_;
};

TEST_F(ChangedEvent, IsRaisedOnceForEachTick) {
    const auto sink = automation::MakeCom<EventSink>();
    Connect(sink);
    Tick();
    EXPECT_EQ(sink->changed, 1);
    Tick();
    EXPECT_EQ(sink->changed, 2);
}

TEST_F(ChangedEvent, FindsTheSelectionAsItIsThen) {
    const auto sink = automation::MakeCom<EventSink>();
    int count = -1;
    sink->onChanged = [&] {
        ComPtr<IDispatch> selection;
        desktop_->Control()->get_Selection(selection.GetAddressOf());
        count = selection == nullptr ? 0 : LateBound(selection.Get())->Get("Count").ToLong();
    };
    Connect(sink);
    Tick();
    EXPECT_EQ(count, 1);
}

TEST_F(ChangedEvent, ReachesTheOthersWhenOneSinkFails) {
    const auto failing = automation::MakeCom<EventSink>();
    failing->answer = E_FAIL;
    const auto other = automation::MakeCom<EventSink>();
    Connect(failing);
    Connect(other);
    Tick();
    EXPECT_EQ(failing->changed, 1);
    EXPECT_EQ(other->changed, 1);
}

TEST_F(ChangedEvent, ReachesEverySinkThatWasConnectedWhenItBegan) {
    const auto first = automation::MakeCom<EventSink>();
    const auto second = automation::MakeCom<EventSink>();
    const auto late = automation::MakeCom<EventSink>();
    const DWORD cookie = Connect(first);
    first->onChanged = [&] {
        Point(desktop_->Control(), __uuidof(__ctlFolderTree))->Unadvise(cookie);
        Connect(late);
    };
    Connect(second);
    Tick();
    EXPECT_EQ(first->changed, 1);
    EXPECT_EQ(second->changed, 1);
    EXPECT_EQ(late->changed, 0);
    Tick();
    EXPECT_EQ(first->changed, 1);
    EXPECT_EQ(late->changed, 1);
}

TEST_F(ChangedEvent, PassesOverASinkThatAnotherDisconnects) {
    const auto first = automation::MakeCom<EventSink>();
    const auto second = automation::MakeCom<EventSink>();
    const auto third = automation::MakeCom<EventSink>();
    Connect(first);
    const DWORD cookie = Connect(second);
    Connect(third);
    first->onChanged = [&] { Point(desktop_->Control(), __uuidof(__ctlFolderTree))->Unadvise(cookie); };
    Tick();
    EXPECT_EQ(first->changed, 1);
    EXPECT_EQ(second->changed, 0);
    EXPECT_EQ(third->changed, 1);
    EXPECT_EQ(References(second.Get()), 1u);
}

TEST_F(ChangedEvent, IsHeldBackWhileEventsAreFrozenAndThenRaisedOnce) {
    const auto sink = automation::MakeCom<EventSink>();
    Connect(sink);
    const auto control = As<IOleControl>(desktop_->Control());
    control->FreezeEvents(TRUE);
    control->FreezeEvents(TRUE);
    Tick();
    Tick();
    control->FreezeEvents(FALSE);
    EXPECT_EQ(sink->changed, 0);
    control->FreezeEvents(FALSE);
    EXPECT_EQ(sink->changed, 1);
    Tick();
    EXPECT_EQ(sink->changed, 2);
    control->FreezeEvents(FALSE);
    EXPECT_EQ(sink->changed, 2);
}

TEST_F(ChangedEvent, MayEndTheControl) {
    const auto sink = automation::MakeCom<EventSink>();
    sink->onChanged = [&] {
        desktop_->ReleaseControl();
        desktop_->DestroyWindow();
    };
    Connect(sink);
    const HWND list = desktop_->List();
    SendMessageW(list, WM_KEYDOWN, VK_SPACE, 1);
    EXPECT_EQ(sink->changed, 1);
    EXPECT_EQ(References(sink.Get()), 1u);
    HandleMessages();
}

}  // namespace
}  // namespace foldertree::testing
