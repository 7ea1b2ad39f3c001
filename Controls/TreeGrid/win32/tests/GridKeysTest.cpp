// GridKeysTest: what each key and the other mouse button do, whom they notify, and what is left to the container.
#include <windows.h>
#include <windowsx.h>

#include <thread>

#include "GridWindowFixture.h"
#include "automation_win32/Bstr.h"
#include "win32/Clipboard.h"

namespace foldertree {
namespace {

using namespace sample;

class GridKeysTest : public GridWindowTest {
  protected:
    void PressWith(int modifier, WPARAM key) {
        const HeldKeys held{modifier};
        Press(key);
    }
    void TypeName(std::wstring_view text) {
        for (const wchar_t unit : text) Type(unit);
    }
    /// The keys and their characters as a message loop sees them.
    void PostKey(WPARAM key) {
        PostMessageW(window_->Handle(), WM_KEYDOWN, key, 1);
        PostMessageW(window_->Handle(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
        HostWindow::Pump();
    }
    void AddManyFolders() {
        for (int i = 0; i < 200; ++i) AddFolder(grid_, 1, "Folder");
        Update();
    }
    int Top() const { return window_->Layout().TopPosition(); }
    bool Wants(UINT message, WPARAM key) const {
        return window_->WantsKey({window_->Handle(), message, key, 1, 0, {}});
    }
};

// ---- The outline

TEST_F(GridKeysTest, BackspaceGoesToTheParent) {
    grid_.SetCurrentRow(4);
    Press(VK_BACK);
    EXPECT_EQ(grid_.CurrentRow(), 3);
    Press(VK_BACK);
    EXPECT_EQ(grid_.CurrentRow(), 1);
    Press(VK_BACK);
    EXPECT_EQ(grid_.CurrentRow(), 1);
    EXPECT_EQ(events_.log, Log{});
}

TEST_F(GridKeysTest, SlashClosesABranchAndStarOpensIt) {
    grid_.SetCurrentRow(1);
    PostKey(VK_DIVIDE);
    EXPECT_EQ(events_.log, (Log{"before-collapse 1 state=2", "before-collapse 3 state=2"}));
    EXPECT_EQ(grid_.VisibleCount(), 1);
    events_.log.clear();
    PostKey(VK_MULTIPLY);
    EXPECT_EQ(events_.log,
              (Log{"before-collapse 1 state=0", "before-collapse 3 state=0", "before-collapse 5 state=0"}));
    EXPECT_EQ(grid_.CurrentRow(), 1);
}

TEST_F(GridKeysTest, NodesThatWereNotReadStayClosed) {
    window_.reset();
    window_ = std::make_unique<GridWindow>(
        GridWindowParts{grid_, events_, pictures_, HasBox, L"TestGrid",
                        [](const TreeGrid& grid, int32_t row) { return grid.CellValue(row, colIncomplete) == 0; }},
        keeper_, [] {});
    window_->Create(host_.Handle(), {0, 0, 400, 300});
    grid_.SetCellText(5, colIncomplete, "-1");
    grid_.SetNodeState(3, nodeCollapsed);
    grid_.SetCurrentRow(1);
    Type(L'*');
    EXPECT_EQ(events_.log, (Log{"before-collapse 3 state=0"}));
    EXPECT_EQ(grid_.NodeState(5), nodeCollapsed);
}

// ---- Typing a name

TEST_F(GridKeysTest, TypedLettersFindANameAndTellNobody) {
    TypeName(L"cu");
    EXPECT_EQ(grid_.CurrentRow(), 4);
    EXPECT_EQ(events_.log, Log{});
}

TEST_F(GridKeysTest, OneLetterAgainAndAgainGoesThroughItsRows) {
    for (const int32_t row : {5, 7, 5}) {
        PostKey('T');
        EXPECT_EQ(grid_.CurrentRow(), row);
    }
    EXPECT_EQ(events_.log, Log{});
}

TEST_F(GridKeysTest, ANameThatIsFoundComesIntoView) {
    AddManyFolders();
    AddFolder(grid_, 1, "Zoo");
    Update();
    Type(L'z');
    EXPECT_EQ(grid_.CurrentRow(), 208);
    EXPECT_EQ(Top(), grid_.VisibleCount() - window_->Layout().FullRows());
}

TEST_F(GridKeysTest, SpaceInsideAWordBelongsToItAndTicksLater) {
    grid_.SetCellText(7, colName, "Ca end");
    TypeName(L"ca");
    ASSERT_EQ(grid_.CurrentRow(), 2);
    PostKey(VK_SPACE);
    EXPECT_EQ(grid_.CurrentRow(), 7);
    EXPECT_EQ(events_.log, Log{});
    Sleep(1100);
    PostKey(VK_SPACE);
    EXPECT_EQ(events_.log, (Log{"before-edit 7,0 cell=", "after-edit 7,0 cell=-1"}));
}

TEST_F(GridKeysTest, ACharacterOfTwoMessagesIsOne) {
    grid_.SetCellText(7, colName, "\xF0\x9F\x98\x80 fun");
    TypeName(L"\xD83D\xDE00");
    EXPECT_EQ(grid_.CurrentRow(), 7);
}

TEST_F(GridKeysTest, DigitsFindNamesWhereTheyOpenNoEditor) {
    grid_.SetCellText(7, colName, "2024");
    grid_.SetCurrentRow(3);
    Type(L'2');
    EXPECT_EQ(grid_.CurrentRow(), 7);
    EXPECT_EQ(window_->Editor(), nullptr);
    EXPECT_EQ(events_.log, Log{});
}

// ---- Scrolling

TEST_F(GridKeysTest, ControlScrollsAndLeavesTheCursor) {
    AddManyFolders();
    grid_.SetCurrentRow(3);
    const int page = window_->Layout().FullRows();
    const int last = grid_.VisibleCount() - page;
    PressWith(VK_CONTROL, VK_DOWN);
    EXPECT_EQ(Top(), 1);
    PressWith(VK_CONTROL, VK_UP);
    EXPECT_EQ(Top(), 0);
    PressWith(VK_CONTROL, VK_NEXT);
    EXPECT_EQ(Top(), page);
    PressWith(VK_CONTROL, VK_PRIOR);
    EXPECT_EQ(Top(), 0);
    PressWith(VK_CONTROL, VK_END);
    EXPECT_EQ(Top(), last);
    PressWith(VK_CONTROL, VK_HOME);
    EXPECT_EQ(Top(), 0);
    EXPECT_EQ(grid_.CurrentRow(), 3);
    EXPECT_EQ(events_.log, Log{});
}

// ---- The clipboard

std::wstring Clipboard() {
    if (!OpenClipboard(nullptr)) return L"(cannot be opened)";
    const HANDLE data = GetClipboardData(CF_UNICODETEXT);
    const std::wstring text = data != nullptr ? static_cast<const wchar_t*>(GlobalLock(data)) : L"(nothing)";
    if (data != nullptr) GlobalUnlock(data);
    CloseClipboard();
    return text;
}

TEST_F(GridKeysTest, ControlCCopiesTheNameAndWithShiftThePath) {
    grid_.SetCellText(4, colName, "K\xC3\xBCnden \xF0\x9F\x98\x80");
    grid_.SetCurrentRow(4);
    PressWith(VK_CONTROL, 'C');
    EXPECT_EQ(Clipboard(), L"K\xFCnden \xD83D\xDE00");
    const HeldKeys held{VK_CONTROL, VK_SHIFT};
    Press('C');
    EXPECT_EQ(Clipboard(), L"Mailbox\\Inbox\\K\xFCnden \xD83D\xDE00");
    EXPECT_EQ(events_.log, Log{});
    EXPECT_EQ(grid_.CurrentRow(), 4);
}

TEST_F(GridKeysTest, AClipboardThatAnotherProgramKeepsOpenStaysAsItIs) {
    CopyToClipboard(host_.Handle(), "before");
    grid_.SetCurrentRow(4);
    const HANDLE open = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    const HANDLE close = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    std::thread other([&] {
        const HWND window = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
        OpenClipboard(window);
        SetEvent(open);
        WaitForSingleObject(close, INFINITE);
        CloseClipboard();
        DestroyWindow(window);
    });
    WaitForSingleObject(open, INFINITE);
    EXPECT_FALSE(CopyToClipboard(window_->Handle(), "after"));
    PressWith(VK_CONTROL, 'C');
    SetEvent(close);
    other.join();
    EXPECT_EQ(Clipboard(), L"before");
    EXPECT_EQ(grid_.CurrentRow(), 4);
    CloseHandle(open);
    CloseHandle(close);
}

// ---- The container's menu

class GridMenuTest : public GridKeysTest {
  protected:
    void RightClick(POINT point) {
        Send(WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(point.x, point.y));
        if (window_) Send(WM_RBUTTONUP, 0, MAKELPARAM(point.x, point.y));
    }
    /// The row of the outline at the place of the last request.
    int32_t RequestedRow() const {
        POINT point = place_;
        ScreenToClient(window_->Handle(), &point);
        const auto position = window_->Layout().PositionAt(point.y);
        const SIZE client = window_->Layout().Client();
        const bool inside = point.x >= 0 && point.x < client.cx && point.y < client.cy;
        return inside && position && *position < grid_.VisibleCount() ? grid_.VisibleRow(*position) : 0;
    }

    int requests_ = 0;
    POINT place_{};  ///< of the last one, on the screen
    std::function<void()> onRequest_;
    MessageSpy spy_{host_.Handle(), WM_CONTEXTMENU, [this](WPARAM, LPARAM place) {
                        ++requests_;
                        place_ = {GET_X_LPARAM(place), GET_Y_LPARAM(place)};
                        if (onRequest_) onRequest_();
                    }};
};

TEST_F(GridMenuTest, ARightClickMovesTheCursorAndAsksTheContainerForItsMenuThere) {
    POINT point = BoxOfRow(3);
    RightClick(point);
    EXPECT_EQ(grid_.CurrentRow(), 3);
    EXPECT_EQ(GetFocus(), window_->Handle());
    ASSERT_EQ(requests_, 1);
    ClientToScreen(window_->Handle(), &point);
    EXPECT_EQ(place_.x, point.x);
    EXPECT_EQ(place_.y, point.y);
    EXPECT_EQ(events_.log, Log{}) << "it ticks nothing";
    RightClick(SignOfRow(5));
    EXPECT_EQ(grid_.CurrentRow(), 5);
    EXPECT_EQ(requests_, 2);
    EXPECT_EQ(events_.log, Log{}) << "it opens nothing";
}

TEST_F(GridMenuTest, ARightClickBelowTheRowsLeavesTheCursorAndAsksAllTheSame) {
    grid_.SetCurrentRow(3);
    RightClick({200, 290});
    EXPECT_EQ(grid_.CurrentRow(), 3);
    EXPECT_EQ(requests_, 1);
}

TEST_F(GridMenuTest, ARightClickEndsTheEditOfANumberFirst) {
    TickRow(grid_, 3, "1");
    Click(NumberOfRow(3));
    TypeInEditor(L"7");
    RightClick(NameOfRow(4));
    EXPECT_EQ(events_.log.back(), "after-edit 3,1 cell=7");
    EXPECT_EQ(window_->Editor(), nullptr);
    EXPECT_EQ(grid_.CurrentRow(), 4);
    EXPECT_EQ(requests_, 1);
}

TEST_F(GridMenuTest, TheMenuKeyAsksAtTheCursorsRow) {
    grid_.SetCurrentRow(4);
    PostKey(VK_APPS);
    EXPECT_EQ(requests_, 1);
    EXPECT_EQ(RequestedRow(), 4);
    EXPECT_EQ(events_.log, Log{});
}

TEST_F(GridMenuTest, ShiftAndF10AskAtTheCursorsRowWhichComesIntoView) {
    AddManyFolders();
    grid_.SetCurrentRow(150);
    Update();
    ASSERT_EQ(Top(), 0);
    const HeldKeys held{VK_SHIFT};
    Send(WM_SYSKEYDOWN, VK_F10, 1);
    EXPECT_EQ(requests_, 1);
    EXPECT_EQ(RequestedRow(), 150);
    EXPECT_GT(Top(), 0);
    EXPECT_EQ(events_.log, Log{});
}

TEST_F(GridMenuTest, WithoutACursorTheContainerChoosesThePlace) {
    PostKey(VK_APPS);
    EXPECT_EQ(requests_, 1);
    EXPECT_EQ(place_.x, -1);
    EXPECT_EQ(place_.y, -1);
}

TEST_F(GridMenuTest, ARightClickThatWaitedWhileNobodyAnsweredIsDropped) {
    const POINT point = NameOfRow(3);
    const DWORD from = GetTickCount();
    Sleep(40);
    PostMessageW(window_->Handle(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(point.x, point.y));
    PostMessageW(window_->Handle(), WM_RBUTTONUP, 0, MAKELPARAM(point.x, point.y));
    PostMessageW(window_->Handle(), WM_KEYUP, VK_APPS, static_cast<LPARAM>(0xC0000001));
    Sleep(40);
    window_->DropInput(from, GetTickCount());
    HostWindow::Pump();
    EXPECT_EQ(requests_, 0);
    EXPECT_EQ(grid_.CurrentRow(), 0);
}

TEST_F(GridMenuTest, TheControlMayEndWhenTheContainerIsAsked) {
    grid_.SetCurrentRow(3);
    onRequest_ = [this] { EndEverything(); };
    SendMessageW(window_->Handle(), WM_KEYUP, VK_APPS, static_cast<LPARAM>(0xC0000001));
    EXPECT_EQ(window_, nullptr);
}

TEST_F(GridKeysTest, TheControlMayEndInTheMiddleOfABranch) {
    grid_.SetCurrentRow(1);
    events_.onNotification = [this](std::string_view) { EndEverything(); };
    SendMessageW(window_->Handle(), WM_CHAR, L'/', 1);
    EXPECT_EQ(window_, nullptr);
}

// ---- What is the container's

TEST_F(GridKeysTest, EnterEscAndTabAreLeftToTheContainer) {
    for (const WPARAM key : std::initializer_list<WPARAM>{VK_RETURN, VK_ESCAPE, VK_TAB}) {
        EXPECT_FALSE(Wants(WM_KEYDOWN, key)) << key;
        EXPECT_FALSE(Wants(WM_KEYUP, key)) << key;
    }
    for (const wchar_t character : {L'\r', L'\x1B', L'\t', L'\x03'}) EXPECT_FALSE(Wants(WM_CHAR, character));
}

TEST_F(GridKeysTest, LettersWithAltAreLeftToTheContainer) {
    const HeldKeys held{VK_MENU};
    EXPECT_FALSE(Wants(WM_SYSKEYDOWN, 'C'));
    EXPECT_FALSE(Wants(WM_SYSCHAR, L'c'));
    EXPECT_FALSE(Wants(WM_SYSKEYUP, 'C'));
}

TEST_F(GridKeysTest, KeysWithAMeaningAreTakenBeforeTheContainer) {
    for (const WPARAM key : std::initializer_list<WPARAM>{VK_BACK, VK_MULTIPLY, VK_DIVIDE, VK_SPACE, VK_F2, VK_HOME})
        EXPECT_TRUE(Wants(WM_KEYDOWN, key));
    EXPECT_TRUE(Wants(WM_CHAR, L'c'));
    EXPECT_FALSE(Wants(WM_KEYDOWN, 'C')) << "its character comes";
    const HeldKeys held{VK_CONTROL};
    EXPECT_TRUE(Wants(WM_KEYDOWN, 'C'));
    EXPECT_FALSE(Wants(WM_KEYDOWN, 'V'));
    EXPECT_FALSE(Wants(WM_KEYDOWN, VK_BACK));
}

TEST_F(GridKeysTest, AltGrMakesCharactersAndNoCopies) {
    const HeldKeys held{VK_CONTROL, VK_MENU};
    EXPECT_FALSE(Wants(WM_KEYDOWN, 'C'));
}

TEST_F(GridKeysTest, TheGridIsAStopOfTab) {
    EXPECT_EQ(GetNextDlgTabItem(host_.Handle(), nullptr, FALSE), window_->Handle());
}

}  // namespace
}  // namespace foldertree
