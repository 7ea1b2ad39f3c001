// ControlWindowTest: the control's window with its wait panel, in and out of a host window.
#include "win32/window/ControlWindow.h"

#include <commctrl.h>

#include <map>
#include <set>

#include "WindowFixture.h"
#include "automation_win32/Bstr.h"
#include "common/ShownTexts.h"

namespace foldertree {
namespace {

using namespace sample;

LRESULT CALLBACK CountPaints(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto standard = reinterpret_cast<WNDPROC>(GetPropW(window, L"standard"));
    if (message == WM_PAINT)
        SetPropW(window, L"paints",
                 reinterpret_cast<HANDLE>(reinterpret_cast<INT_PTR>(GetPropW(window, L"paints")) + 1));
    return CallWindowProcW(standard, window, message, wParam, lParam);
}

/// Counts the times that the window is painted from now on.
void WatchPaints(HWND window) {
    SetPropW(
        window, L"standard",
        reinterpret_cast<HANDLE>(SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&CountPaints))));
}
INT_PTR PaintsOf(HWND window) {
    return reinterpret_cast<INT_PTR>(GetPropW(window, L"paints"));
}

class ControlWindowTest : public testing::Test {
  protected:
    ControlWindowTest() {
        SetUpGrid(grid_);
        AddFolder(grid_, 0, "Mailbox", rowKind::store);
        AddFolder(grid_, 1, "Inbox");
        MakeControl();
    }

    void MakeControl() {
        ControlParts parts{grid_, events_, [this] { OnCancel(); }, HasBox};
        parts.now = [this] { return now_; };
        control_ = std::make_unique<ControlWindow>(std::move(parts), keeper_);
    }
    void Show() {
        control_->Create(host_.Handle(), {10, 10, 410, 310});
        HostWindow::Pump();
    }
    /// The control ends, as a host may let it in the middle of a message.
    void End() {
        control_->Destroy();
        keeper_.WhenFree([this] { control_.reset(); });
    }
    void OnCancel() {
        ++cancels_;
        const auto call = onCancel_;
        if (call) call();
    }
    HWND Panel() const { return control_->Panel().Handle(); }
    HWND CancelButton() const { return FindWindowExW(Panel(), nullptr, L"BUTTON", nullptr); }
    HWND Label() const { return FindWindowExW(Panel(), nullptr, L"STATIC", nullptr); }
    HWND PathText() const { return FindWindowExW(Panel(), Label(), L"STATIC", nullptr); }
    HWND Bar() const { return FindWindowExW(Panel(), nullptr, PROGRESS_CLASSW, nullptr); }
    LRESULT BarPosition() const { return SendMessageW(Bar(), PBM_GETPOS, 0, 0); }
    static std::wstring TextOf(HWND window) {
        wchar_t text[100];
        return {text, static_cast<size_t>(GetWindowTextW(window, text, 100))};
    }
    static RECT PlaceInParent(HWND window) {
        RECT place{};
        GetWindowRect(window, &place);
        MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
    void ExpectCentred() const {
        RECT inner{};
        GetClientRect(control_->Handle(), &inner);
        const RECT panel = PlaceInParent(Panel());
        EXPECT_EQ(panel.left, (inner.right - (panel.right - panel.left)) / 2);
        EXPECT_EQ(panel.top, (inner.bottom - (panel.bottom - panel.top)) / 2);
    }
    MSG KeyMessage(HWND window, WPARAM key) const { return {window, WM_KEYDOWN, key, 1, 0, {0, 0}}; }

    HostWindow host_;
    TreeGrid grid_{sample::schema};
    RecordingEvents events_{grid_};
    TestKeeper keeper_;
    std::function<void()> onCancel_;
    int cancels_ = 0;
    FrameClock::Clock::time_point now_ = FrameClock::Clock::time_point(std::chrono::hours(1));
    std::unique_ptr<ControlWindow> control_;
};

TEST_F(ControlWindowTest, TheGridFillsTheInnerAreaAndThePanelStandsInItsMiddle) {
    Show();
    for (const RECT& place : {RECT{0, 0, 420, 400}, RECT{5, 5, 360, 200}, RECT{0, 0, 100, 60}}) {
        control_->Move(place);
        RECT inner{};
        GetClientRect(control_->Handle(), &inner);
        const RECT grid = PlaceInParent(control_->Grid().Handle());
        EXPECT_TRUE(EqualRect(&grid, &inner));
        ExpectCentred();
    }
}

TEST_F(ControlWindowTest, InAHostThatIsReadFromRightToLeftGridAndPanelAreMirrored) {
    const HWND host = CreateWindowExW(WS_EX_LAYOUTRTL, L"STATIC", L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0,
                                      440, 400, host_.Handle(), nullptr, nullptr, nullptr);
    control_->Create(host, {10, 10, 410, 60});
    EXPECT_TRUE(control_->Grid().Layout().Mirrored());
    EXPECT_NE(GetWindowLongPtrW(Panel(), GWL_EXSTYLE) & WS_EX_LAYOUTRTL, 0);
    RECT window{};
    GetWindowRect(control_->Grid().Handle(), &window);
    POINT client{0, 0};
    ClientToScreen(control_->Grid().Handle(), &client);
    EXPECT_GT(client.x, window.left + 5) << "the scroll bar stands at the left";
    control_->Destroy();
    DestroyWindow(host);
}

/// The control on a screen of that resolution.
class ControlOnAScreen : public ControlWindowTest, public testing::WithParamInterface<int> {};

TEST_P(ControlOnAScreen, FrameRowsAndPanelFollowTheScreenAlsoWhenItChanges) {
    int dpi = 96;
    ControlParts parts{grid_, events_, [] {}, HasBox};
    parts.dpi = [&dpi](HWND) { return dpi; };
    control_ = std::make_unique<ControlWindow>(std::move(parts), keeper_);
    control_->Create(host_.Handle(), {0, 0, 450, 490});
    control_->ShowWaitPanel(true);
    const auto frame = [&] {
        RECT inner{};
        GetClientRect(control_->Handle(), &inner);
        return (450 - inner.right) / 2;
    };
    const int before = control_->Panel().Layout().label.Height();
    EXPECT_EQ(frame(), 1);
    dpi = GetParam();
    SendMessageW(control_->Grid().Handle(), 0x02E3, 0, 0);  // WM_DPICHANGED_AFTERPARENT
    control_->FlushPaint();
    EXPECT_EQ(frame(), dpi / 96);
    EXPECT_EQ(control_->Grid().Layout().Metrics().rowHeight, Scale(19, dpi));
    EXPECT_NEAR(control_->Panel().Layout().label.Height(), Scale(before, dpi), 6);
    ExpectCentred();
    control_->Destroy();
}

INSTANTIATE_TEST_SUITE_P(Resolution, ControlOnAScreen, testing::Values(120, 144, 192, 288));

TEST_F(ControlWindowTest, ThePanelIsHiddenUntilALoadShowsIt) {
    Show();
    EXPECT_FALSE(IsWindowVisible(Panel()));
    control_->ShowWaitPanel(true);
    EXPECT_TRUE(IsWindowVisible(Panel()));
    control_->ShowWaitPanel(false);
    EXPECT_FALSE(IsWindowVisible(Panel()));
}

TEST_F(ControlWindowTest, TheCancelButtonSaysCancelUntilItIsTranslated) {
    Show();
    EXPECT_EQ(TextOf(CancelButton()), L"Cancel");
    control_->SetWaitCaptions("Bitte warten", "\xC3\x84ndern");
    control_->FlushPaint();
    EXPECT_EQ(TextOf(CancelButton()), L"\u00C4ndern");
}

TEST_F(ControlWindowTest, WhatWasSetBeforeThereIsAWindowShowsInIt) {
    control_->SetWaitCaptions("Moment", "Stop");
    control_->ShowWaitPanel(true);
    control_->SetProgressText("Mailbox\\Inbox");
    control_->SetProgress(10, 4);
    Show();
    EXPECT_TRUE(IsWindowVisible(Panel()));
    EXPECT_EQ(TextOf(CancelButton()), L"Stop");
}

TEST_F(ControlWindowTest, AWindowThatIsMadeAnewShowsTheStateAsItIs) {
    Show();
    control_->ShowWaitPanel(true);
    control_->Destroy();
    EXPECT_EQ(control_->Handle(), nullptr);
    EXPECT_EQ(control_->Grid().Handle(), nullptr);
    control_->SetWaitCaptions("Moment", "Stop");
    AddFolder(grid_, 1, "While away");
    Show();
    EXPECT_TRUE(IsWindowVisible(Panel()));
    EXPECT_EQ(TextOf(CancelButton()), L"Stop");
    ExpectCentred();
}

TEST_F(ControlWindowTest, WithoutAWindowEverythingCanBeCalled) {
    control_->ShowWaitPanel(true);
    control_->SetProgress(1, 5);
    control_->SetBusyPointer(true);
    control_->SetUserMode(false);
    control_->FlushPaint();
    control_->FontChanged();
    control_->Move({0, 0, 10, 10});
    MSG message = KeyMessage(nullptr, VK_ESCAPE);
    EXPECT_FALSE(control_->TranslateAccelerator(message));
    control_->Destroy();
}

// ---- Cancel

TEST_F(ControlWindowTest, AClickOnCancelCancelsOnce) {
    Show();
    control_->ShowWaitPanel(true);
    SendMessageW(CancelButton(), BM_CLICK, 0, 0);
    HostWindow::Pump();
    EXPECT_EQ(cancels_, 1);
}

TEST_F(ControlWindowTest, ThePanelSaysThatItIsCancellingWhileTheReadGoesOn) {
    Show();
    for (const bool byKey : {false, true}) {
        control_->ShowWaitPanel(true);
        control_->FlushPaint();
        EXPECT_EQ(TextOf(Label()), L"Please wait\u2026");
        const Pixels before = OnScreen(Label());
        MSG message = KeyMessage(control_->Grid().Handle(), VK_ESCAPE);
        if (byKey)
            EXPECT_TRUE(control_->TranslateAccelerator(message));
        else
            SendMessageW(CancelButton(), BM_CLICK, 0, 0);
        EXPECT_EQ(TextOf(Label()), automation::ToWide(shownTexts::cancelling));
        EXPECT_FALSE(GetUpdateRect(Label(), nullptr, FALSE)) << "it is on the screen already";
        EXPECT_NE(OnScreen(Label()), before);
        control_->ShowWaitPanel(false);
    }
    EXPECT_EQ(cancels_, 2);
}

TEST_F(ControlWindowTest, EscCancelsWhereverTheFocusIsInTheSameHostWindow) {
    Show();
    control_->ShowWaitPanel(true);
    const HWND other = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 400, 50, 20, host_.Handle(), nullptr,
                                       nullptr, nullptr);
    for (HWND window : {control_->Grid().Handle(), CancelButton(), other, host_.Handle()}) {
        MSG message = KeyMessage(window, VK_ESCAPE);
        EXPECT_TRUE(control_->TranslateAccelerator(message));
    }
    EXPECT_EQ(cancels_, 4);
}

TEST_F(ControlWindowTest, EscIsNotOursWithoutThePanelOrInAnotherWindow) {
    Show();
    MSG message = KeyMessage(control_->Grid().Handle(), VK_ESCAPE);
    EXPECT_FALSE(control_->TranslateAccelerator(message));
    control_->ShowWaitPanel(true);
    const HWND stranger =
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    message = KeyMessage(stranger, VK_ESCAPE);
    EXPECT_FALSE(control_->TranslateAccelerator(message));
    DestroyWindow(stranger);
    EXPECT_EQ(cancels_, 0);
}

TEST_F(ControlWindowTest, TheFocusReturnsToTheGridWhenThePanelGoesWithIt) {
    Show();
    control_->ShowWaitPanel(true);
    SetFocus(CancelButton());
    control_->ShowWaitPanel(false);
    EXPECT_EQ(GetFocus(), control_->Grid().Handle());
}

TEST_F(ControlWindowTest, TheControlMayEndInsideCancel) {
    Show();
    control_->ShowWaitPanel(true);
    onCancel_ = [this] { End(); };
    SendMessageW(CancelButton(), BM_CLICK, 0, 0);
    HostWindow::Pump();
    EXPECT_EQ(cancels_, 1);
    EXPECT_EQ(control_, nullptr);
}

TEST_F(ControlWindowTest, TheControlMayEndInsideCancelByEsc) {
    Show();
    control_->ShowWaitPanel(true);
    onCancel_ = [this] { End(); };
    MSG message = KeyMessage(control_->Grid().Handle(), VK_ESCAPE);
    {
        const Held held(keeper_);
        EXPECT_TRUE(control_->TranslateAccelerator(message));
    }
    EXPECT_EQ(control_, nullptr);
}

// ---- Frames

TEST_F(ControlWindowTest, AMillionProgressStepsArePaintedAtMostSixtyTimesASecond) {
    Show();
    control_->ShowWaitPanel(true);
    WatchPaints(PathText());
    const auto start = std::chrono::steady_clock::now();
    for (int step = 1; step <= 1000000; ++step) {
        control_->SetProgressText("Mailbox\\Folder");
        control_->SetProgress(1000000, step);
    }
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    const INT_PTR frames = PaintsOf(PathText());
    RecordProperty("seconds", std::to_string(taken.count()));
    EXPECT_GE(frames, 1);
    EXPECT_LE(static_cast<double>(frames), taken.count() * 63 + 2);
}

TEST_F(ControlWindowTest, TheLastStepOfManyReachesTheScreen) {
    Show();
    control_->ShowWaitPanel(true);
    for (int step = 1; step <= 1000; ++step) {
        control_->SetProgressText("Mailbox\\Folder " + std::to_string(step));
        control_->SetProgress(1000, step);
    }
    now_ += std::chrono::milliseconds(500);
    EXPECT_TRUE(HostWindow::PumpUntil([this] { return BarPosition() == 100; }));
    EXPECT_EQ(TextOf(PathText()), L"Mailbox\\Folder 1000");
}

TEST_F(ControlWindowTest, TheBarShowsFullBeyondItsMaximumAndEmptyForNonsense) {
    Show();
    control_->ShowWaitPanel(true);
    const auto positionFor = [&](double maximum, double value) {
        now_ += std::chrono::milliseconds(500);
        control_->SetProgress(maximum, value);
        control_->FlushPaint();
        return BarPosition();
    };
    EXPECT_EQ(positionFor(10, 11), 100);
    EXPECT_EQ(positionFor(10, 4), 40);
    EXPECT_EQ(positionFor(1e12, 9.99e11), 99);
    EXPECT_EQ(positionFor(0, 5), 0);
    EXPECT_EQ(positionFor(-3, -5), 0);
}

TEST_F(ControlWindowTest, ChangesOfTheGridAreShownByThemselves) {
    Show();
    WatchPaints(control_->Grid().Handle());
    for (int i = 0; i < 1000; ++i) AddFolder(grid_, 1, "Folder");
    EXPECT_EQ(PaintsOf(control_->Grid().Handle()), 0) << "not before the grid's change is complete";
    grid_.DeliverChanges();
    EXPECT_TRUE(HostWindow::PumpUntil([&] {
        SCROLLINFO bar{};
        bar.cbSize = sizeof bar;
        bar.fMask = SIF_RANGE;
        GetScrollInfo(control_->Grid().Handle(), SB_VERT, &bar);
        return bar.nMax == grid_.VisibleCount() - 1 && PaintsOf(control_->Grid().Handle()) > 0;
    }));
    EXPECT_LE(PaintsOf(control_->Grid().Handle()), 3);
}

TEST_F(ControlWindowTest, AWaitPanelThatComesUpShowsNothingOfTheLastLoad) {
    Show();
    const auto panelOfALoad = [&] {
        now_ += std::chrono::seconds(1);
        control_->ShowWaitPanel(true);
        const Pixels pixels = OnScreen(Panel());
        control_->SetProgressText("Mailbox\\Inbox");
        control_->SetProgress(10, 9);
        control_->FlushPaint();
        EXPECT_NE(OnScreen(Panel()), pixels);
        control_->ShowWaitPanel(false);
        return pixels;
    };
    const Pixels first = panelOfALoad();
    EXPECT_EQ(panelOfALoad(), first);
}

TEST_F(ControlWindowTest, ThePanelIsMadeOfTheSystemsOwnControls) {
    Show();
    std::vector<std::wstring> classes;
    for (HWND part = GetWindow(Panel(), GW_CHILD); part != nullptr; part = GetWindow(part, GW_HWNDNEXT)) {
        wchar_t name[50];
        classes.emplace_back(name, static_cast<size_t>(GetClassNameW(part, name, 50)));
    }
    EXPECT_EQ(classes, (std::vector<std::wstring>{L"Static", L"Static", L"msctls_progress32", L"Button"}));
}

TEST_F(ControlWindowTest, ThePathIsCutInItsMiddleAndSeenBeforeItIsTold) {
    Show();
    control_->ShowWaitPanel(true);
    const auto pathInk = [&](const std::string& path) {
        control_->SetProgressText(path);
        control_->FlushPaint();
        const Pixels pixels = OnScreen(PathText());
        return pixels.Drawn({0, 0, pixels.width, pixels.height});
    };
    EXPECT_EQ(pathInk(""), 0);
    EXPECT_GT(pathInk("Mailbox\\Inbox"), 20);
    EXPECT_GT(pathInk("Mailbox\\" + std::string(200, 'x') + "\\Inbox"), 100);
    EXPECT_EQ(TextOf(PathText()), L"") << "the second telling waits";
}

std::map<std::pair<DWORD, HWND>, int> heard;

void CALLBACK Hear(HWINEVENTHOOK, DWORD event, HWND window, LONG, LONG, DWORD, DWORD) {
    ++heard[{event, window}];
}

TEST_F(ControlWindowTest, ProgressIsToldTwiceASecondAtMostHoweverFastItIs) {
    heard.clear();
    Show();
    control_->ShowWaitPanel(true);
    HostWindow::Pump();
    const HWINEVENTHOOK hook = SetWinEventHook(EVENT_OBJECT_NAMECHANGE, EVENT_OBJECT_VALUECHANGE, nullptr, Hear,
                                               GetCurrentProcessId(), 0, WINEVENT_OUTOFCONTEXT);
    constexpr int seconds = 10;
    for (int step = 1; step <= 100 * seconds; ++step) {
        now_ += std::chrono::milliseconds(10);
        control_->SetProgressText("Mailbox\\Folder " + std::to_string(step));
        control_->SetProgress(100 * seconds, step);
        control_->FlushPaint();
    }
    HostWindow::Pump();
    UnhookWinEvent(hook);
    EXPECT_EQ((heard[{EVENT_OBJECT_VALUECHANGE, Panel()}]), 2 * seconds);
    for (const auto& [what, times] : heard) EXPECT_LE(times, 2 * seconds) << std::hex << what.first;
}

// ---- Input during a load

class LoadingControl : public ControlWindowTest {
  protected:
    LoadingControl() {
        Show();
        control_->ShowWaitPanel(true);
    }
    /// A read keeps the thread for that long; `user` acts in the middle of it.
    void Read(DWORD milliseconds, const std::function<void()>& user) {
        Sleep(milliseconds / 2);
        user();
        Sleep(milliseconds / 2);
    }
    void TickInbox() const {
        const HWND grid = control_->Grid().Handle();
        const GridLayout& layout = control_->Grid().Layout();
        const POINT box = Middle(layout.Box(layout.Cell(1, colSel)));
        PostMessageW(grid, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(box.x, box.y));
    }
    size_t Notifications() const { return events_.log.size(); }
};

TEST_F(LoadingControl, AClickOnTheTreeThatWaitedForAReadIsDroppedAtTheNextYield) {
    Read(300, [&] { TickInbox(); });
    control_->PumpMessages();
    EXPECT_EQ(Notifications(), 0u);
    TickInbox();
    control_->PumpMessages();
    EXPECT_EQ(Notifications(), 2u) << "a click that is answered at once counts";
}

TEST_F(LoadingControl, AClickThatWaitedForTheLastReadIsDroppedAfterTheLoad) {
    Read(300, [&] { TickInbox(); });
    control_->ShowWaitPanel(false);
    HostWindow::Pump();
    EXPECT_EQ(Notifications(), 0u);
}

TEST_F(LoadingControl, KeysThatWaitedForAReadAreDroppedWithTheirCharacters) {
    grid_.SetCurrentRow(1);
    grid_.SetIsNode(1, true);
    Read(300, [&] {
        for (const int key : {VK_SPACE, VK_DOWN, VK_SUBTRACT})
            PostMessageW(control_->Grid().Handle(), WM_KEYDOWN, static_cast<WPARAM>(key), 1);
    });
    control_->PumpMessages();
    HostWindow::Pump();
    EXPECT_EQ(Notifications(), 0u);
    EXPECT_EQ(grid_.CurrentRow(), 1);
}

TEST_F(LoadingControl, AClickBetweenShortReadsCounts) {
    for (int read = 0; read < 10; ++read) {
        Read(20, [&] {
            if (read == 5) TickInbox();
        });
        control_->PumpMessages();
    }
    EXPECT_EQ(Notifications(), 2u);
}

TEST_F(LoadingControl, EscAndCancelThatWaitedForAReadCancel) {
    Read(300, [&] { PostMessageW(control_->Grid().Handle(), WM_KEYDOWN, VK_ESCAPE, 1); });
    control_->PumpMessages();
    EXPECT_EQ(cancels_, 1);
    Read(300, [&] {
        PostMessageW(CancelButton(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
        PostMessageW(CancelButton(), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    });
    control_->PumpMessages();
    EXPECT_EQ(cancels_, 2);
}

TEST_F(LoadingControl, AnEscThatCameTooLateToCancelDoesNotReachTheHostsDialog) {
    MSG late = KeyMessage(control_->Grid().Handle(), VK_ESCAPE);
    Read(300, [&] { late.time = GetTickCount(); });
    control_->ShowWaitPanel(false);
    EXPECT_TRUE(control_->TranslateAccelerator(late));
    EXPECT_EQ(cancels_, 0);
    Sleep(20);
    MSG later = KeyMessage(control_->Grid().Handle(), VK_ESCAPE);
    later.time = GetTickCount();
    EXPECT_FALSE(control_->TranslateAccelerator(later));
    MSG elsewhere = KeyMessage(host_.Handle(), VK_ESCAPE);
    elsewhere.time = late.time;
    EXPECT_FALSE(control_->TranslateAccelerator(elsewhere));
}

TEST_F(LoadingControl, InputForOtherWindowsIsLeftToThem) {
    const HWND other = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 400, 50, 20, host_.Handle(), nullptr,
                                       nullptr, nullptr);
    Read(300, [&] { PostMessageW(other, WM_CHAR, L'x', 1); });
    control_->PumpMessages();
    EXPECT_EQ(GetWindowTextLengthW(other), 1);
}

// ---- Modes

TEST_F(ControlWindowTest, InAFormDesignerTheControlIsPaintedAndTakesNoInput) {
    control_->SetUserMode(false);
    Show();
    EXPECT_FALSE(IsWindowEnabled(control_->Handle()));
    EXPECT_TRUE(IsWindowVisible(control_->Grid().Handle()));
    MSG message = KeyMessage(control_->Grid().Handle(), VK_SPACE);
    EXPECT_FALSE(control_->TranslateAccelerator(message));
    EXPECT_EQ(events_.log.size(), 0u);
    control_->SetUserMode(true);
    EXPECT_TRUE(IsWindowEnabled(control_->Handle()));
}

TEST_F(ControlWindowTest, KeysOfTheGridGoBeforeTheHostsDialog) {
    Show();
    grid_.SetCurrentRow(2);
    MSG message = KeyMessage(control_->Grid().Handle(), VK_SPACE);
    EXPECT_TRUE(control_->TranslateAccelerator(message));
    EXPECT_EQ(events_.log.size(), 2u);
    message = KeyMessage(control_->Grid().Handle(), VK_TAB);
    EXPECT_FALSE(control_->TranslateAccelerator(message));
    message = KeyMessage(host_.Handle(), VK_SPACE);
    EXPECT_FALSE(control_->TranslateAccelerator(message));
}

TEST_F(ControlWindowTest, EnterAndEscInTheEditorAreNotTheDialogs) {
    TickRow(grid_, 2, "1");
    Show();
    grid_.SetCurrentRow(2);
    MSG message = KeyMessage(control_->Grid().Handle(), VK_F2);
    ASSERT_TRUE(control_->TranslateAccelerator(message));
    ASSERT_NE(control_->Grid().Editor(), nullptr);
    SendMessageW(control_->Grid().Editor()->Handle(), WM_CHAR, L'4', 1);
    message = KeyMessage(control_->Grid().Editor()->Handle(), VK_RETURN);
    EXPECT_TRUE(control_->TranslateAccelerator(message));
    EXPECT_EQ(control_->Grid().Editor(), nullptr);
    EXPECT_EQ(events_.log.back(), "after-edit 2,1 cell=4");
}

// ---- In a host that is a dialog

class ControlInADialog : public ControlWindowTest {
  protected:
    ControlInADialog() {
        first_ = AddButton(L"&Load", 7);
        Show();
        last_ = AddButton(L"&Save", 8);
        SetFocus(first_);
    }
    HWND AddButton(const wchar_t* caption, int id) const {
        return CreateWindowExW(0, L"BUTTON", caption, WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 420, 80, 24,
                               host_.Handle(), reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    }
    HWND Grid() const { return control_->Grid().Handle(); }

    void PostKey(UINT message, WPARAM key, LPARAM bits = 1) {
        PostMessageW(GetFocus(), message, key, bits);
        MSG waiting;
        while (PeekMessageW(&waiting, nullptr, 0, 0, PM_REMOVE)) {
            if (control_->TranslateAccelerator(waiting) || IsDialogMessageW(host_.Handle(), &waiting)) continue;
            TranslateMessage(&waiting);
            DispatchMessageW(&waiting);
        }
    }
    void Tab() { PostKey(WM_KEYDOWN, VK_TAB); }
    void TabBack() {
        const HeldKeys held{VK_SHIFT};
        Tab();
    }

    HWND first_ = nullptr;
    HWND last_ = nullptr;
    std::vector<int> commands_;
    MessageSpy spy_{host_.Handle(), WM_COMMAND, [this](WPARAM command, LPARAM) {
                        if (HIWORD(command) == BN_CLICKED) commands_.push_back(LOWORD(command));
                    }};
};

TEST_F(ControlInADialog, TabComesInAndGoesOutAndTheCursorStaysOnItsRow) {
    Tab();
    EXPECT_EQ(GetFocus(), Grid());
    PostKey(WM_KEYDOWN, VK_DOWN);
    PostKey(WM_KEYDOWN, VK_DOWN);
    Tab();
    EXPECT_EQ(GetFocus(), last_);
    TabBack();
    EXPECT_EQ(GetFocus(), Grid());
    EXPECT_EQ(grid_.CurrentRow(), 2);
    PostKey(WM_KEYDOWN, VK_SPACE);
    EXPECT_EQ(events_.log, (std::vector<std::string>{"before-edit 2,0 cell=", "after-edit 2,0 cell=-1"}));
    TabBack();
    EXPECT_EQ(GetFocus(), first_);
}

TEST_F(ControlInADialog, AControlThatIsSwitchedOffIsPassedOver) {
    grid_.SetEnabled(false);
    control_->FlushPaint();
    Tab();
    EXPECT_EQ(GetFocus(), last_);
}

TEST_F(ControlInADialog, TabGoesToTheCancelButtonWhileThePanelIsUp) {
    control_->ShowWaitPanel(true);
    std::set<HWND> stops;
    for (int i = 0; i < 4; ++i) {
        Tab();
        stops.insert(GetFocus());
    }
    EXPECT_EQ(stops, (std::set<HWND>{Grid(), CancelButton(), last_, first_}));
}

TEST_F(ControlInADialog, EnterAndEscAreTheDialogs) {
    SetFocus(Grid());
    PostKey(WM_KEYDOWN, VK_RETURN);
    PostKey(WM_KEYDOWN, VK_ESCAPE);
    EXPECT_EQ(commands_, (std::vector<int>{IDOK, IDCANCEL}));
    EXPECT_EQ(events_.log, std::vector<std::string>{});
}

TEST_F(ControlInADialog, ALetterWithAltPressesTheDialogsButtonAndWithoutAltFindsAName) {
    SetFocus(Grid());
    grid_.SetCurrentRow(1);
    constexpr LPARAM altIsDown = 1 << 29;
    {
        const HeldKeys held{VK_MENU};
        PostKey(WM_SYSKEYDOWN, 'L', 1 | altIsDown);
    }
    EXPECT_EQ(commands_, std::vector<int>{7});
    SetFocus(Grid());
    PostKey(WM_KEYDOWN, 'I');
    EXPECT_EQ(commands_.size(), 1u);
    EXPECT_EQ(grid_.CurrentRow(), 2);
}

TEST_F(ControlWindowTest, TheContainerHearsOfAMenuAsOfTheControlsWindow) {
    Show();
    grid_.SetCurrentRow(2);
    std::vector<WPARAM> windows;
    const MessageSpy spy(host_.Handle(), WM_CONTEXTMENU, [&](WPARAM window, LPARAM) { windows.push_back(window); });
    SendMessageW(control_->Grid().Handle(), WM_KEYUP, VK_APPS, static_cast<LPARAM>(0xC0000001));
    EXPECT_EQ(windows, std::vector<WPARAM>{reinterpret_cast<WPARAM>(control_->Handle())});
}

// ---- The focus

TEST_F(ControlWindowTest, TheFocusOfTheControlGoesToTheGridAndIsTold) {
    std::vector<bool> told;
    Show();
    SetFocus(host_.Handle());
    control_->SetFocusHandler([&](bool gained) { told.push_back(gained); });
    SetFocus(control_->Handle());
    EXPECT_EQ(GetFocus(), control_->Grid().Handle());
    SetFocus(host_.Handle());
    EXPECT_EQ(told, (std::vector<bool>{true, false}));
}

TEST_F(ControlWindowTest, TheFocusThatMovesInsideTheControlIsNotTold) {
    TickRow(grid_, 2, "1");
    Show();
    SetFocus(control_->Grid().Handle());
    std::vector<bool> told;
    control_->SetFocusHandler([&](bool gained) { told.push_back(gained); });
    grid_.SetCurrentRow(2);
    const auto inGrid = [&](WPARAM key) { SendMessageW(control_->Grid().Handle(), WM_KEYDOWN, key, 1); };
    const auto inEditor = [&](WPARAM key) {
        ASSERT_NE(control_->Grid().Editor(), nullptr);
        SendMessageW(control_->Grid().Editor()->Handle(), WM_KEYDOWN, key, 1);
    };
    inGrid(VK_F2);
    ASSERT_NE(control_->Grid().Editor(), nullptr);
    EXPECT_EQ(GetFocus(), control_->Grid().Editor()->Handle());
    inEditor(VK_ESCAPE);
    inGrid(VK_F2);
    inEditor(VK_RETURN);
    EXPECT_EQ(GetFocus(), control_->Grid().Handle());
    control_->ShowWaitPanel(true);
    SetFocus(CancelButton());
    control_->ShowWaitPanel(false);
    EXPECT_EQ(GetFocus(), control_->Grid().Handle());
    EXPECT_EQ(told, std::vector<bool>{});
}

TEST_F(ControlWindowTest, TheFocusThatLeavesTheNumberEditorIsToldOnceAfterItsNumber) {
    TickRow(grid_, 2, "1");
    Show();
    SetFocus(control_->Grid().Handle());
    grid_.SetCurrentRow(2);
    SendMessageW(control_->Grid().Handle(), WM_KEYDOWN, VK_F2, 1);
    ASSERT_NE(control_->Grid().Editor(), nullptr);
    SendMessageW(control_->Grid().Editor()->Handle(), WM_CHAR, L'4', 1);
    control_->SetFocusHandler([&](bool gained) { events_.log.push_back(gained ? "focus" : "no focus"); });
    SetFocus(host_.Handle());
    EXPECT_EQ(events_.log, (std::vector<std::string>{"before-edit 2,1 cell=1", "validate-edit 2,1 cell=1 text=4",
                                                     "after-edit 2,1 cell=4", "no focus"}));
}

TEST_F(ControlWindowTest, TheFocusThatComesToTheCancelButtonIsTold) {
    Show();
    control_->ShowWaitPanel(true);
    SetFocus(host_.Handle());
    std::vector<bool> told;
    control_->SetFocusHandler([&](bool gained) { told.push_back(gained); });
    SetFocus(CancelButton());
    SetFocus(host_.Handle());
    EXPECT_EQ(told, (std::vector<bool>{true, false}));
}

TEST_F(ControlWindowTest, AGridThatIsSwitchedOffGivesTheFocusAndAnOpenEditUp) {
    TickRow(grid_, 2, "1");
    Show();
    SetFocus(control_->Grid().Handle());
    grid_.SetCurrentRow(2);
    SendMessageW(control_->Grid().Handle(), WM_KEYDOWN, VK_F2, 1);
    ASSERT_NE(control_->Grid().Editor(), nullptr);
    std::vector<bool> told;
    control_->SetFocusHandler([&](bool gained) { told.push_back(gained); });
    grid_.SetEnabled(false);
    control_->FlushPaint();
    EXPECT_EQ(control_->Grid().Editor(), nullptr);
    EXPECT_FALSE(IsWindowEnabled(control_->Grid().Handle()));
    EXPECT_EQ(told, std::vector<bool>{false});
}

TEST_F(ControlWindowTest, TheFocusOfAWindowThatGoesIsToldAsLost) {
    std::vector<bool> told;
    control_->SetFocusHandler([&](bool gained) { told.push_back(gained); });
    Show();
    SetFocus(control_->Grid().Handle());
    control_->Destroy();
    EXPECT_EQ(told, (std::vector<bool>{true, false}));
    Show();
    SetFocus(control_->Grid().Handle());
    host_.Close();
    EXPECT_EQ(told, (std::vector<bool>{true, false, true, false}));
}

TEST_F(ControlWindowTest, TheHourglassStandsEverywhereButOnCancel) {
    Show();
    control_->ShowWaitPanel(true);
    control_->SetBusyPointer(true);
    const auto pointerOver = [&](HWND window) {
        SendMessageW(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        return GetCursor();
    };
    const HCURSOR wait = LoadCursorW(nullptr, IDC_WAIT);
    const HCURSOR arrow = LoadCursorW(nullptr, IDC_ARROW);
    EXPECT_EQ(pointerOver(control_->Grid().Handle()), wait);
    EXPECT_EQ(pointerOver(Panel()), wait);
    EXPECT_EQ(pointerOver(CancelButton()), arrow);
    control_->SetBusyPointer(false);
    EXPECT_EQ(pointerOver(control_->Grid().Handle()), arrow);
}

// ---- Ends

TEST_F(ControlWindowTest, AHostWindowThatGoesAwayIsTold) {
    int gone = 0;
    Show();
    control_->SetGoneHandler([&] { ++gone; });
    host_.Close();
    EXPECT_EQ(gone, 1);
    EXPECT_EQ(control_->Handle(), nullptr);
    EXPECT_EQ(Panel(), nullptr);
    control_->ShowWaitPanel(true);
    control_->FlushPaint();
}

TEST_F(ControlWindowTest, TheControlMayEndWhenItsHostWindowGoesAway) {
    Show();
    control_->SetGoneHandler([this] { End(); });
    host_.Close();
    EXPECT_EQ(control_, nullptr);
}

TEST_F(ControlWindowTest, DestroyingItOneselfIsNotToldAsGone) {
    int gone = 0;
    Show();
    control_->SetGoneHandler([&] { ++gone; });
    control_->Destroy();
    control_.reset();
    EXPECT_EQ(gone, 0);
}

TEST_F(ControlWindowTest, TheControlMayEndInsideANotification) {
    Show();
    events_.onNotification = [this](std::string_view) { End(); };
    grid_.SetCurrentRow(2);
    SendMessageW(control_->Grid().Handle(), WM_KEYDOWN, VK_SPACE, 1);
    HostWindow::Pump();
    EXPECT_EQ(control_, nullptr);
}

TEST_F(ControlWindowTest, AnOpenEditIsNotOfferedByAControlThatEnds) {
    TickRow(grid_, 2, "1");
    Show();
    grid_.SetCurrentRow(2);
    SendMessageW(control_->Grid().Handle(), WM_KEYDOWN, VK_F2, 1);
    ASSERT_NE(control_->Grid().Editor(), nullptr);
    SendMessageW(control_->Grid().Editor()->Handle(), WM_CHAR, L'4', 1);
    control_.reset();
    EXPECT_EQ(events_.log.size(), 1u) << "before-edit only";
}

TEST_F(ControlWindowTest, ATimerThatRunsOutlivesNeitherWindowNorControl) {
    Show();
    AddFolder(grid_, 1, "Late");
    control_.reset();
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(60);
    EXPECT_TRUE(HostWindow::PumpUntil([end] { return std::chrono::steady_clock::now() > end; }));
    EXPECT_EQ(GetWindow(host_.Handle(), GW_CHILD), nullptr);
}

// ---- Drawing

TEST_F(ControlWindowTest, ItDrawsItselfWithoutAWindow) {
    TickRow(grid_, 2, "1");
    const Pixels pixels = Drawing(300, 200, [&](HDC dc) { control_->Draw(dc, {0, 0, 300, 200}); });
    EXPECT_EQ(pixels.At(0, 100), SystemPixel(COLOR_BTNSHADOW)) << "the border";
    EXPECT_EQ(pixels.At(150, 190), SystemPixel(COLOR_WINDOW)) << "the empty rest";
    EXPECT_NE(std::find(pixels.values.begin(), pixels.values.end(), 0xFFFF00u), pixels.values.end())
        << "the ticked row";
}

TEST_F(ControlWindowTest, ItDrawsIntoAnyPlaceAndUnits) {
    const Pixels whole = Drawing(300, 200, [&](HDC dc) { control_->Draw(dc, {0, 0, 300, 200}); });
    const Pixels moved = Drawing(400, 300, [&](HDC dc) { control_->Draw(dc, {50, 60, 350, 260}); });
    EXPECT_EQ(moved.At(50, 160), whole.At(0, 100));
    EXPECT_EQ(moved.At(200, 250), whole.At(150, 190));
    EXPECT_EQ(moved.At(10, 10), 0u);
    const Pixels doubled = Drawing(300, 200, [&](HDC dc) {
        SetMapMode(dc, MM_ANISOTROPIC);
        SetWindowExtEx(dc, 3000, 2000, nullptr);
        SetViewportExtEx(dc, 300, 200, nullptr);
        control_->Draw(dc, {0, 0, 3000, 2000});
    });
    EXPECT_EQ(doubled, whole);
    Drawing(10, 10, [&](HDC dc) { control_->Draw(dc, {0, 0, 1, 1}); });
}

TEST_F(ControlWindowTest, APictureTooLargeForABitmapIsDrawnAllTheSame) {
    const Pixels pixels = Drawing(300, 200, [&](HDC dc) {
        control_->Draw(dc, {10, 20, 1000000, 1000000});
        EXPECT_EQ(GetMapMode(dc), MM_TEXT);
        POINT origin{1, 1};
        GetViewportOrgEx(dc, &origin);
        EXPECT_EQ(origin.x, 0);
    });
    EXPECT_EQ(pixels.At(10, 100), SystemPixel(COLOR_BTNSHADOW)) << "the border";
    EXPECT_EQ(pixels.At(150, 190), SystemPixel(COLOR_WINDOW)) << "the empty rest";
    EXPECT_EQ(pixels.At(5, 100), 0u);
}

/// The heights between which the ticked row is seen, at a place where it has no text.
std::pair<int, int> TickedRow(const Pixels& pixels, int x, int height) {
    std::pair<int, int> range{-1, -1};
    for (int y = 0; y < height; ++y) {
        if (pixels.At(x, y) != 0xFFFF00u) continue;
        if (range.first < 0) range.first = y;
        range.second = y;
    }
    return range;
}

TEST_F(ControlWindowTest, ItIsAsLargeOnAFineDeviceAsOnTheScreen) {
    TickRow(grid_, 2, "1");
    const Pixels screen = Drawing(300, 200, [&](HDC dc) { control_->Draw(dc, {0, 0, 300, 200}); });
    const Pixels fine = Drawing(1200, 800, [&](HDC dc) {
        EXPECT_EQ(control_->Draw(dc, {0, 0, 1200, 800}, {{1200, 800}, 384}, nullptr), S_OK);
    });
    const auto [top, bottom] = TickedRow(screen, 280, 200);
    const auto [fineTop, fineBottom] = TickedRow(fine, 1120, 800);
    ASSERT_GT(top, 0);
    EXPECT_NEAR(fineTop, 4 * top, 6);
    EXPECT_NEAR(fineBottom, 4 * bottom, 6);
}

TEST_F(ControlWindowTest, APictureOfSeveralTilesHasNoSeams) {
    TickRow(grid_, 2, "1");
    const PictureScale scale{{5000, 900}, 600};
    const RECT bounds{0, 0, 5000, 900};
    const Pixels whole = Drawing(5000, 900, [&](HDC dc) { control_->Draw(dc, bounds, scale, nullptr); });
    const Pixels part = Drawing(1200, 700, [&](HDC dc) {
        SetViewportOrgEx(dc, -3500, -150, nullptr);
        control_->Draw(dc, bounds, scale, nullptr);
    });
    int different = 0;
    for (int y = 0; y < 700; ++y)
        for (int x = 0; x < 1200; ++x) different += part.At(x, y) != whole.At(3500 + x, 150 + y);
    EXPECT_EQ(different, 0);
}

TEST_F(ControlWindowTest, APictureThatCannotBeDrawnIsAFailure) {
    const HDC gone = CreateCompatibleDC(nullptr);
    DeleteDC(gone);
    EXPECT_EQ(control_->Draw(gone, {0, 0, 100, 100}), E_FAIL);
    Drawing(100, 100, [&](HDC dc) {
        EXPECT_EQ(control_->Draw(dc, {10, 10, 10, 50}), E_INVALIDARG);
        int asked = 0;
        const auto stop = [&] { return ++asked < 2; };
        EXPECT_EQ(control_->Draw(dc, {0, 0, 100, 100}, {{100, 100}, 96}, stop), S_OK);
        EXPECT_EQ(control_->Draw(dc, {0, 0, 100, 100}, {{100, 100}, 96}, stop), E_ABORT);
    });
}

}  // namespace
}  // namespace foldertree
