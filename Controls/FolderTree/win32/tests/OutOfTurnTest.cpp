// OutOfTurnTest: a container that gives places nobody can be in, and that calls the control's interfaces in any order.
#include <gtest/gtest.h>

#include <ole2.h>
#include <olectl.h>

#include <climits>
#include <random>

#include "PlacedControl.h"
#include "automation_win32/ModuleLock.h"

namespace foldertree {
namespace {

using automation::ComPtr;

// ---- Places

TEST(Place, OfNoAreaHidesTheControlUntilItGetsOne) {
    for (const RECT place : {RECT{0, 0, 0, 0}, RECT{10, 10, 10, 200}, RECT{10, 10, 200, 10}}) {
        Placed placed;
        placed.SetPlace(place);
        ASSERT_EQ(placed.Verb(OLEIVERB_UIACTIVATE), S_OK);
        placed.ShowWaitPanel(true);
        placed.ShowWaitPanel(false);
        UpdateWindow(placed.Grid());
        placed.Press(placed.Grid(), VK_DOWN);
        placed.Type(placed.Grid(), L'7');
        const RECT larger = {0, 0, 300, 200};
        EXPECT_EQ(placed.Raw<IOleInPlaceObject>()->SetObjectRects(&larger, &larger), S_OK);
        RECT grid = {};
        GetClientRect(placed.Grid(), &grid);
        EXPECT_GT(grid.right, 200);
        EXPECT_GT(grid.bottom, 150);
        placed.Click(2, colName);
        EXPECT_EQ(GetFocus(), placed.Grid());
    }
}

TEST(Place, OfNegativeSizeOrBeyondAllScreensIsRefused) {
    constexpr int beyond = 0x10000;
    for (const RECT place :
         {RECT{10, 10, 5, 20}, RECT{10, 10, 20, 5}, RECT{INT_MAX, 0, INT_MIN, 10},
          RECT{INT_MIN, INT_MIN, INT_MAX, INT_MAX}, RECT{0, 0, beyond, 10}, RECT{0, -beyond, 10, 0}}) {
        Placed placed;
        placed.SetPlace(place);
        EXPECT_EQ(placed.Verb(OLEIVERB_SHOW), E_INVALIDARG);
        EXPECT_EQ(placed.Window(), nullptr);
        EXPECT_EQ(placed.Calls().back(), "OnInPlaceDeactivate") << "the container hears that it has come to nothing";
        placed.SetPlace({0, 0, 100, 100});
        EXPECT_EQ(placed.Verb(OLEIVERB_SHOW), S_OK);
        EXPECT_EQ(placed.Raw<IOleInPlaceObject>()->SetObjectRects(&place, &place), E_INVALIDARG);
        EXPECT_NE(placed.Grid(), nullptr);
    }
}

TEST(Place, TooNarrowForAnyTextIsPaintedWhileALoadRuns) {
    Placed placed;
    ASSERT_EQ(placed.Verb(OLEIVERB_SHOW), S_OK);
    placed.ShowWaitPanel(true);
    for (const int extent : {1, 3, 5, 8, 12, 15, 18, 22, 26, 30, 35, 40, 50, 60, 80, 120}) {
        const RECT place = {0, 0, extent, extent};
        ASSERT_EQ(placed.Raw<IOleInPlaceObject>()->SetObjectRects(&place, &place), S_OK);
        placed.Object().Platform().SetProgressText("Mailbox - Alex Example\\Inbox\\Customers " +
                                                   std::to_string(extent));
        RedrawWindow(placed.Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
        RECT window = {};
        GetWindowRect(placed.Window(), &window);
        EXPECT_EQ(window.right - window.left, extent);
        EXPECT_FALSE(GetUpdateRect(placed.Window(), nullptr, FALSE)) << "nothing is left to paint";
    }
}

// ---- Any order

/// What a container that has lost its way may call.
class LostContainer {
  public:
    explicit LostContainer(unsigned seed) : random_(seed) {}

    /// One call. Its answer may be anything but a crash.
    void Call() {
        switch (Number(22)) {
            case 0:
                placed_.Verb(verbs[static_cast<size_t>(Number(std::size(verbs)))]);
                break;
            case 1:
                Part<IOleObject>()->SetClientSite(Number(3) == 0 ? nullptr : Site().Get());
                break;
            case 2:
                Part<IOleObject>()->Close(static_cast<DWORD>(Number(4)));
                break;
            case 3:
                Part<IOleInPlaceObject>()->InPlaceDeactivate();
                break;
            case 4:
                Part<IOleInPlaceObject>()->UIDeactivate();
                break;
            case 5: {
                const RECT place = AnyRect();
                const RECT clip = AnyRect();
                Part<IOleInPlaceObject>()->SetObjectRects(Number(8) == 0 ? nullptr : &place, &clip);
                break;
            }
            case 6:
                Part<IOleInPlaceObject>()->ReactivateAndUndo();
                break;
            case 7: {
                MSG message = {placed_.Grid(), WM_KEYDOWN, static_cast<WPARAM>(Number(256)), 1, 0, {0, 0}};
                Part<IOleInPlaceActiveObject>()->TranslateAccelerator(Number(8) == 0 ? nullptr : &message);
                break;
            }
            case 8:
                Part<IOleInPlaceActiveObject>()->OnFrameWindowActivate(Number(2));
                Part<IOleInPlaceActiveObject>()->ResizeBorder(nullptr, nullptr, Number(2));
                break;
            case 9:
                Part<IOleControl>()->FreezeEvents(Number(2));
                break;
            case 10:
                Part<IOleControl>()->OnAmbientPropertyChange(-700 - Number(20));
                break;
            case 11:
                Part<IPersistStreamInit>()->InitNew();
                break;
            case 12:
                Part<IPersistStreamInit>()->Save(stream_.Get(), Number(2));
                break;
            case 13:
                // From wherever the last one has left off.
                Part<IPersistStreamInit>()->Load(stream_.Get());
                stream_->Seek({}, STREAM_SEEK_SET, nullptr);
                break;
            case 14:
                Part<IPersistStorage>()->HandsOffStorage();
                break;
            case 15:
                Part<IPersistStorage>()->SaveCompleted(nullptr);
                break;
            case 16:
                Part<IRunnableObject>()->LockRunning(Number(2), Number(2));
                break;
            case 17:
                Part<IOleObject>()->Unadvise(static_cast<DWORD>(Number(3)));
                break;
            case 18: {
                SIZEL extent = {Number(5000) - 1000, Number(5000) - 1000};
                Part<IOleObject>()->SetExtent(static_cast<DWORD>(1 << Number(4)), &extent);
                break;
            }
            case 19:
                Draw();
                break;
            case 20:
                QuickActivate();
                break;
            default:
                placed_.Enable(Number(2));
                placed_.ShowWaitPanel(Number(2));
                break;
        }
    }

    /// After all that it is a control like any other.
    void ExpectSoundControl() {
        Part<IOleObject>()->SetClientSite(Site().Get());
        placed_.SetPlace({0, 0, 400, 300});
        placed_.ShowWaitPanel(false);
        placed_.Enable(true);
        placed_.Close();
        EXPECT_EQ(placed_.Verb(OLEIVERB_SHOW), S_OK);
        EXPECT_NE(placed_.Grid(), nullptr);
        LONG rows = 0;
        EXPECT_EQ(Part<_ctlFolderTree>()->get_ListCount(&rows), S_OK);
        EXPECT_TRUE(rows == 3 || rows == 0) << "settings that were loaded may have folded or emptied the tree";
        stream_->Seek({}, STREAM_SEEK_SET, nullptr);
        EXPECT_EQ(Part<IPersistStreamInit>()->Save(stream_.Get(), TRUE), S_OK);
        stream_->Seek({}, STREAM_SEEK_SET, nullptr);
        EXPECT_EQ(Part<IPersistStreamInit>()->Load(stream_.Get()), S_OK);
    }

  private:
    static constexpr LONG verbs[] = {OLEIVERB_PRIMARY,
                                     OLEIVERB_SHOW,
                                     OLEIVERB_OPEN,
                                     OLEIVERB_HIDE,
                                     OLEIVERB_UIACTIVATE,
                                     17,
                                     OLEIVERB_INPLACEACTIVATE,
                                     -99,
                                     OLEIVERB_DISCARDUNDOSTATE};

    int Number(size_t limit) { return static_cast<int>(random_() % limit); }

    template <class Interface>
    Interface* Part() const {
        return placed_.Raw<Interface>();
    }
    ComPtr<IOleClientSite> Site() const { return placed_.Site(); }

    RECT AnyRect() {
        const auto side = [this] { return Number(10) == 0 ? INT_MIN + Number(2) * INT_MAX : Number(800) - 200; };
        return {side(), side(), side(), side()};
    }

    void Draw() {
        const HDC dc = CreateCompatibleDC(nullptr);
        const RECT place = AnyRect();
        const RECTL bounds = {place.left, place.top, place.right, place.bottom};
        Part<IViewObject>()->Draw(
            Number(8) == 0 ? static_cast<DWORD>(DVASPECT_ICON) : static_cast<DWORD>(DVASPECT_CONTENT), -1, nullptr,
            nullptr, nullptr, Number(8) == 0 ? nullptr : dc, Number(8) == 0 ? nullptr : &bounds, nullptr, nullptr, 0);
        DeleteDC(dc);
    }

    void QuickActivate() {
        QACONTAINER container = {};
        QACONTROL control = {};
        container.cbSize = Number(4) == 0 ? 4 : sizeof container;
        control.cbSize = sizeof control;
        const ComPtr<IOleClientSite> site = Site();
        container.pClientSite = Number(3) == 0 ? nullptr : site.Get();
        // A sink that is none.
        container.pUnkEventSink = site.Get();
        Part<IQuickActivate>()->QuickActivate(&container, &control);
    }

    static ComPtr<IStream> NewStream() {
        ComPtr<IStream> stream;
        EXPECT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, stream.GetAddressOf()), S_OK);
        return stream;
    }

    std::minstd_rand random_;
    Placed placed_;
    const ComPtr<IStream> stream_ = NewStream();
};

TEST(LostContainer, MayCallTheInterfacesInAnyOrder) {
    constexpr unsigned sequences = 40;
    constexpr int calls = 60;
    for (unsigned seed = 1; seed <= sequences; ++seed) {
        SCOPED_TRACE(seed);
        {
            LostContainer container(seed);
            for (int i = 0; i < calls; ++i) {
                container.Call();
                HostWindow::Pump();
            }
            container.ExpectSoundControl();
        }
        EXPECT_TRUE(automation::ModuleIsUnused()) << "something is left of the control";
    }
}

}  // namespace
}  // namespace foldertree
