// ControlObjectTest: the control in a container that lets go of it, or ends it, wherever it hears of something.
#include <gtest/gtest.h>

#include <ole2.h>
#include <olectl.h>

#include <algorithm>
#include <climits>

#include "PlacedControl.h"
#include "automation_testing/FailingMemory.h"
#include "automation_win32/ModuleLock.h"

namespace foldertree {
namespace {

using automation::ComPtr;
using automation::testing::FailEachAllocation;
using automation::testing::FailingMemory;
using automation::testing::MemoryPlan;
using automation::testing::SparedMemory;

class Ole : public testing::Environment {
  public:
    void SetUp() override { ASSERT_TRUE(SUCCEEDED(OleInitialize(nullptr))); }
    void TearDown() override { OleUninitialize(); }
};
[[maybe_unused]] testing::Environment* const ole = testing::AddGlobalTestEnvironment(new Ole);

// ---- What the container hears

TEST(PlacedControl, TellsItsContainerOfTheFocusOnceForEachWay) {
    Placed placed;
    ASSERT_EQ(placed.Verb(OLEIVERB_SHOW), S_OK);
    placed.Calls().clear();
    placed.Click(2, colName);
    EXPECT_EQ(placed.Calls(), (Log{"OnFocus TRUE", "OnUIActivate"}));
    placed.Press(placed.Grid(), VK_F2);
    ASSERT_NE(placed.Editor(), nullptr);
    placed.Press(placed.Editor(), VK_ESCAPE);
    placed.Type(placed.Grid(), L'7');
    ASSERT_NE(placed.Editor(), nullptr);
    placed.Press(placed.Editor(), VK_RETURN);
    EXPECT_EQ(placed.Calls(), (Log{"OnFocus TRUE", "OnUIActivate"})) << "the number editor is a part of the control";
    placed.LeaveFocus();
    EXPECT_EQ(placed.Calls(), (Log{"OnFocus TRUE", "OnUIActivate", "OnFocus FALSE"}));
}

TEST(PlacedControl, AsksItsContainerAboutTheKeysThatItDoesNotTake) {
    Placed placed;
    ASSERT_EQ(placed.Verb(OLEIVERB_UIACTIVATE), S_OK);
    placed.Calls().clear();
    for (const WPARAM key : std::initializer_list<WPARAM>{VK_TAB, VK_RETURN, VK_ESCAPE})
        EXPECT_EQ(placed.Translate(WM_KEYDOWN, key), S_FALSE);
    EXPECT_EQ(placed.Translate(WM_SYSCHAR, L'l'), S_FALSE);
    EXPECT_EQ(placed.Calls(), Log(4, "TranslateAccelerator"));
    placed.Calls().clear();
    EXPECT_EQ(placed.Translate(WM_KEYDOWN, VK_BACK), S_OK);
    EXPECT_EQ(placed.Translate(WM_CHAR, L'c'), S_OK);
    EXPECT_EQ(placed.Calls(), Log{});
    CONTROLINFO info{};
    info.cb = sizeof info;
    ASSERT_EQ(placed.Raw<IOleControl>()->GetControlInfo(&info), S_OK);
    EXPECT_EQ(info.dwFlags, 0u) << "neither Enter nor Esc is eaten";
    EXPECT_EQ(info.cAccel, 0u) << "and there are no mnemonics";
}

TEST(PlacedControl, IsNotActivatedAgainByAFocusThatHidesIt) {
    Placed placed;
    ASSERT_EQ(placed.Verb(OLEIVERB_SHOW), S_OK);
    placed.onCall = [&](std::string_view call) {
        if (call == "OnFocus TRUE") placed.Verb(OLEIVERB_HIDE);
    };
    placed.Click(2, colSel);
    EXPECT_EQ(placed.Window(), nullptr);
    EXPECT_EQ(placed.Calls().back(), "OnInPlaceDeactivate");
}

TEST(PlacedControl, RefusesToBeActivatedWhileItsWindowGoes) {
    Placed placed;
    placed.Verb(OLEIVERB_UIACTIVATE);
    HRESULT again = S_OK;
    placed.onCall = [&](std::string_view call) {
        if (call == "OnFocus FALSE") again = placed.Verb(OLEIVERB_SHOW);
    };
    placed.Verb(OLEIVERB_HIDE);
    EXPECT_EQ(again, OLE_E_NOT_INPLACEACTIVE);
    EXPECT_EQ(placed.Window(), nullptr);
    EXPECT_EQ(placed.Verb(OLEIVERB_SHOW), S_OK);
    EXPECT_NE(placed.Grid(), nullptr);
}

TEST(PlacedControl, CanBeActivatedAgainAfterItWasClosed) {
    Placed placed;
    for (const LONG verb : {OLEIVERB_SHOW, OLEIVERB_INPLACEACTIVATE, OLEIVERB_UIACTIVATE, OLEIVERB_PRIMARY}) {
        ASSERT_EQ(placed.Verb(verb), S_OK);
        EXPECT_NE(placed.Grid(), nullptr);
        placed.Close();
        EXPECT_EQ(placed.Window(), nullptr);
        EXPECT_EQ(placed.Calls().back(), "OnInPlaceDeactivate");
    }
}

TEST(PlacedControl, RefusesAPlaceOfNegativeSizeAndKeepsItsOwn) {
    Placed placed;
    ASSERT_EQ(placed.Verb(OLEIVERB_SHOW), S_OK);
    RECT before = {};
    GetWindowRect(placed.Window(), &before);
    for (const RECT place : {RECT{10, 10, 5, 20}, RECT{10, 10, 20, 5}, RECT{INT_MAX, 0, INT_MIN, 10}})
        EXPECT_EQ(placed.Raw<IOleInPlaceObject>()->SetObjectRects(&place, &place), E_INVALIDARG);
    RECT after = {};
    GetWindowRect(placed.Window(), &after);
    EXPECT_TRUE(EqualRect(&before, &after));
    const RECT nothing = {10, 10, 10, 10};
    EXPECT_EQ(placed.Raw<IOleInPlaceObject>()->SetObjectRects(&nothing, &nothing), S_OK);
}

TEST(PlacedControl, IsSavedOnceWhereItsContainerClosesItInTheMiddleOfThat) {
    Placed placed;
    placed.Enable(false);
    placed.onCall = [&](std::string_view call) {
        if (call == "SaveObject") placed.Raw<IOleObject>()->Close(OLECLOSE_SAVEIFDIRTY);
    };
    EXPECT_EQ(placed.Raw<IOleObject>()->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
    EXPECT_EQ(std::count(placed.Calls().begin(), placed.Calls().end(), "SaveObject"), 1);
}

// ---- The end in any call of the container

/// Everything that makes the control call its container.
void UseControl(Placed& placed) {
    placed.Verb(OLEIVERB_SHOW);
    placed.Click(2, colName);
    placed.PressTab();
    placed.LeaveFocus();
    placed.Type(placed.Grid(), L'7');  // opens the number editor, from another window's focus
    placed.Press(placed.Editor(), VK_RETURN);
    placed.Press(placed.Grid(), VK_F2);
    placed.Type(placed.Editor(), L'3');
    placed.LeaveFocus();
    placed.Click(2, colSel);
    placed.Enable(false);
    placed.Enable(true);
    placed.ShowWaitPanel(true);
    placed.Focus(placed.CancelButton());
    placed.ShowWaitPanel(false);
    placed.Verb(OLEIVERB_HIDE);
    placed.Verb(OLEIVERB_UIACTIVATE);
    placed.Press(placed.Grid(), VK_F2);
}

/// Uses the control once for each call that its container gets, and does something to it in that call. What `ends` it
/// leaves no window, whatever is asked of it afterwards.
void ActInEveryCall(bool ends, const std::function<void(Placed&)>& act) {
    size_t calls = 0;
    {
        Placed placed;
        UseControl(placed);
        placed.CloseHost();
        calls = placed.Calls().size();
        EXPECT_TRUE(placed.Held());
    }
    ASSERT_GT(calls, 20u);
    for (size_t moment = 1; moment <= calls; ++moment) {
        {
            Placed placed;
            size_t seen = 0;
            placed.onCall = [&](std::string_view call) {
                if (++seen != moment) return;
                SCOPED_TRACE(call);
                act(placed);
            };
            UseControl(placed);
            EXPECT_TRUE(!ends || seen < moment || placed.Window() == nullptr) << "call " << moment;
            placed.CloseHost();
            EXPECT_GE(seen, moment);
            HostWindow::Pump();
        }
        EXPECT_TRUE(automation::ModuleIsUnused()) << "something is left of the control that ended in call " << moment;
    }
}

TEST(EndInTheContainersCalls, TheLastReferenceMayGo) {
    ActInEveryCall(true, [](Placed& placed) { placed.Release(); });
}

TEST(EndInTheContainersCalls, TheControlMayBeClosed) {
    ActInEveryCall(false, [](Placed& placed) { placed.Close(); });
}

TEST(EndInTheContainersCalls, TheControlMayBeClosedAndLetGo) {
    ActInEveryCall(true, [](Placed& placed) {
        placed.Close();
        placed.Release();
    });
}

TEST(EndInTheContainersCalls, TheControlMayBeHidden) {
    ActInEveryCall(false, [](Placed& placed) { placed.Verb(OLEIVERB_HIDE); });
}

TEST(EndInTheContainersCalls, TheHostsWindowMayGo) {
    ActInEveryCall(false, [](Placed& placed) { placed.CloseHost(); });
}

TEST(EndInTheContainersCalls, TheSiteMayGo) {
    ActInEveryCall(false, [](Placed& placed) { placed.Raw<IOleObject>()->SetClientSite(nullptr); });
}

// ---- Containers that refuse

TEST(RefusingContainer, MayRefuseAnyOfItsCalls) {
    ActInEveryCall(false, [](Placed& placed) { placed.Refuse(); });
}

TEST(RefusingContainer, MayLeaveRubbishInWhatItRefuses) {
    ActInEveryCall(false, [](Placed& placed) { placed.RefuseWithRubbish(); });
}

TEST(RefusingContainer, MayRefuseAllOfItsCalls) {
    Placed placed;
    placed.onCall = [&](std::string_view) { placed.Refuse(); };
    UseControl(placed);
    EXPECT_EQ(placed.Window(), nullptr);
    placed.Enable(false);
    EXPECT_EQ(placed.Raw<IOleObject>()->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
    EXPECT_EQ(placed.Calls().back(), "SaveObject");
    placed.onCall = nullptr;
    EXPECT_EQ(placed.Verb(OLEIVERB_SHOW), S_OK);
    EXPECT_NE(placed.Grid(), nullptr);
}

// ---- No memory

/// Runs the call with one allocation failing, the first, the second, and so on until it makes no further one. The call
/// returns its HRESULT, and no exception.
void ExpectNoMemoryIsAResult(const std::function<HRESULT()>& call) {
    int told = 0;
    FailEachAllocation(false, [&](const MemoryPlan& plan) {
        const FailingMemory memory(plan);
        const HRESULT result = call();
        const bool refused = memory.Refused() > 0;
        EXPECT_TRUE(refused || result == S_OK) << result;
        told += refused && result == E_OUTOFMEMORY;
        return refused;
    });
    EXPECT_GT(told, 0) << "no allocation failed";
}

/// A sink that hears of everything and keeps nothing.
class Sink final : public automation::ComBase<IDispatch> {
  public:
    int calls = 0;

    STDMETHOD(GetTypeInfoCount)(UINT*) override { return E_NOTIMPL; }
    STDMETHOD(GetTypeInfo)(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHOD(GetIDsOfNames)(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHOD(Invoke)(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        ++calls;
        return S_OK;
    }
};

// Only the first call of a process describes the server, and no other test makes one.
TEST(NoMemory, IsAResultOfTheFirstCallOfTheServer) {
    const auto getClassObject = [] {
        ComPtr<IClassFactory> factory;
        return DllGetClassObject(__uuidof(::ctlFolderTree), IID_IClassFactory,
                                 reinterpret_cast<void**>(factory.GetAddressOf()));
    };
    ExpectNoMemoryIsAResult(getClassObject);
    EXPECT_EQ(getClassObject(), S_OK);
}

TEST(NoMemory, IsAResultOfActivation) {
    Placed placed;
    ExpectNoMemoryIsAResult([&] {
        {
            const SparedMemory spared;
            placed.Verb(OLEIVERB_HIDE);
            EXPECT_EQ(placed.Window(), nullptr);
        }
        return placed.Verb(OLEIVERB_SHOW);
    });
    EXPECT_NE(placed.Grid(), nullptr);
}

TEST(NoMemory, KeepsNoEventBack) {
    Placed placed;
    const auto sink = automation::MakeCom<Sink>();
    ComPtr<IConnectionPoint> events;
    placed.Raw<IConnectionPointContainer>()->FindConnectionPoint(__uuidof(__ctlFolderTree), events.GetAddressOf());
    DWORD cookie = 0;
    ASSERT_EQ(events->Advise(sink.Get(), &cookie), S_OK);
    auto* const control = placed.Raw<IOleControl>();
    control->FreezeEvents(TRUE);
    placed.Object().Platform().RaiseChanged();
    {
        const FailingMemory memory({.first = 1});
        EXPECT_EQ(control->FreezeEvents(FALSE), S_OK);
        EXPECT_EQ(memory.Asked(), 0) << "to tell of an event needs no memory";
    }
    EXPECT_EQ(sink->calls, 1);
    events->Unadvise(cookie);
}

const std::string longText(99, 't');  // longer than a text that needs no memory of its own

/// What the core may ask of the platform in the middle of anything, and while an error already unwinds.
const std::vector<std::pair<const char*, void (*)(WindowsPlatform&)>> platformCalls = {
    {"Yield", [](WindowsPlatform& platform) { platform.Yield(); }},
    {"SetBusyPointer", [](WindowsPlatform& platform) { platform.SetBusyPointer(true); }},
    {"ShowWaitPanel", [](WindowsPlatform& platform) { platform.ShowWaitPanel(true); }},
    {"SetWaitCaptions", [](WindowsPlatform& platform) { platform.SetWaitCaptions(longText, longText); }},
    {"SetProgressText", [](WindowsPlatform& platform) { platform.SetProgressText(longText); }},
    {"SetProgress", [](WindowsPlatform& platform) { platform.SetProgress(2, 1); }},
    {"TwipsPerPixel", [](WindowsPlatform& platform) { platform.TwipsPerPixel(); }},
    {"RaiseChanged", [](WindowsPlatform& platform) { platform.RaiseChanged(); }},
    {"PropertyChanged", [](WindowsPlatform& platform) { platform.PropertyChanged("HighlightContactFolders"); }},
    {"TraceLine", [](WindowsPlatform& platform) { platform.TraceLine(longText); }},
    {"ShowWaitPanel, hidden again", [](WindowsPlatform& platform) { platform.ShowWaitPanel(false); }},
};

TEST(NoMemory, NeverPassesThePlatform) {
    Placed placed;
    ASSERT_EQ(placed.Verb(OLEIVERB_SHOW), S_OK);
    WindowsPlatform& platform = placed.Object().Platform();
    int64_t failures = 0;
    for (const auto& [name, call] : platformCalls) {
        failures += FailEachAllocation(false, [&](const MemoryPlan& plan) {
            // Whatever the call has to show is there to be painted.
            InvalidateRect(placed.Window(), nullptr, TRUE);
            const FailingMemory memory(plan);
            EXPECT_NO_THROW(call(platform)) << name << ", allocation " << plan.first;
            return memory.Refused() > 0;
        });
    }
    EXPECT_GT(failures, 5);
    // Once there is memory again, everything is shown as ever.
    platform.SetProgressText("path");
    platform.ShowWaitPanel(true);
    EXPECT_TRUE(IsWindowVisible(GetParent(placed.CancelButton())));
    platform.ShowWaitPanel(false);
    EXPECT_FALSE(IsWindowVisible(GetParent(placed.CancelButton())));
}

TEST(NoMemory, IsAResultOfAnEnumeratorsCopy) {
    Placed placed;
    ComPtr<IEnumConnectionPoints> points;
    ASSERT_EQ(placed.Raw<IConnectionPointContainer>()->EnumConnectionPoints(points.GetAddressOf()), S_OK);
    ExpectNoMemoryIsAResult([&] {
        ComPtr<IEnumConnectionPoints> copy;
        return points->Clone(copy.GetAddressOf());
    });
}

TEST(NoMemory, LosesATraceLineAndNothingElse) {
    Placed placed;
    const std::string line(1000, 'l');  // a usual one needs no memory
    const int64_t failures = FailEachAllocation(false, [&](const MemoryPlan& plan) {
        const FailingMemory memory(plan);
        placed.Object().Platform().TraceLine(line);
        return memory.Refused() > 0;
    });
    EXPECT_GT(failures, 0);
}

}  // namespace
}  // namespace foldertree
