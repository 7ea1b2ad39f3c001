// GridWindowTest: what mouse and keyboard do to the grid, in which order it is notified, and what survives the end.
#include "win32/GridWindow.h"

#include <limits>

#include "GridWindowFixture.h"

namespace foldertree {
namespace {

using namespace sample;

using Keys = std::initializer_list<WPARAM>;

// ---- The box

TEST_F(GridWindowTest, AClickOnTheBoxAsksThenWritesThenTells) {
    Click(BoxOfRow(3));
    EXPECT_EQ(events_.log, (Log{"before-edit 3,0 cell=", "after-edit 3,0 cell=-1"}));
    EXPECT_EQ(grid_.CurrentRow(), 3);
}

TEST_F(GridWindowTest, AClickOnATickedBoxUnticksIt) {
    TickRow(grid_, 3, "1");
    Click(BoxOfRow(3));
    EXPECT_EQ(events_.log, (Log{"before-edit 3,0 cell=-1", "after-edit 3,0 cell=0"}));
}

TEST_F(GridWindowTest, ARefusedTickChangesNothing) {
    events_.refuse = true;
    Click(BoxOfRow(3));
    EXPECT_EQ(events_.log, (Log{"before-edit 3,0 cell="}));
    EXPECT_EQ(grid_.CellText(3, colSel), "");
}

TEST_F(GridWindowTest, ADoubleClickOnTheBoxIsTwoTicksAndNoNodeToggle) {
    DoubleClick(BoxOfRow(3));
    EXPECT_EQ(events_.log, (Log{"before-edit 3,0 cell=", "after-edit 3,0 cell=-1", "before-edit 3,0 cell=-1",
                                "after-edit 3,0 cell=0"}));
    EXPECT_EQ(grid_.NodeState(3), nodeExpanded);
}

TEST_F(GridWindowTest, AClickBesideTheBoxOnlyMovesTheCursor) {
    const RECT cell = window_->Layout().Cell(PositionOf(3), colSel);
    Click({cell.left + 1, Middle(cell).y});
    EXPECT_EQ(events_.log, Log{});
    EXPECT_EQ(grid_.CurrentRow(), 3);
}

TEST_F(GridWindowTest, AStoreRowsGreyedBoxAsksBeforeItIsTicked) {
    events_.refuse = true;
    Click(BoxOfRow(1));
    EXPECT_EQ(events_.log, (Log{"before-edit 1,0 cell="}));
}

TEST_F(GridWindowTest, APlaceholderHasNoBoxToTick) {
    grid_.SetNodeState(5, nodeExpanded);
    Update();
    Click(BoxOfRow(6));
    Press(VK_SPACE);
    EXPECT_EQ(events_.log, Log{});
}

TEST_F(GridWindowTest, AClickBelowTheLastRowDoesNothing) {
    Click({200, 290});
    EXPECT_EQ(events_.log, Log{});
    EXPECT_EQ(grid_.CurrentRow(), 0);
}

TEST_F(GridWindowTest, AClickOnTheHeaderDoesNothing) {
    DoubleClick({10, 3});
    EXPECT_EQ(events_.log, Log{});
}

// ---- Opening and closing

TEST_F(GridWindowTest, AClickOnTheSignTellsBeforeTheNodeCloses) {
    Click(SignOfRow(3));
    EXPECT_EQ(events_.log, (Log{"before-collapse 3 state=2"}));
    EXPECT_EQ(grid_.NodeState(3), nodeCollapsed);
    Click(SignOfRow(3));
    EXPECT_EQ(events_.log.back(), "before-collapse 3 state=0");
    EXPECT_EQ(grid_.NodeState(3), nodeExpanded);
}

TEST_F(GridWindowTest, ARefusedCollapseLeavesTheNodeAsItIs) {
    events_.refuse = true;
    Click(SignOfRow(3));
    EXPECT_EQ(events_.log, (Log{"before-collapse 3 state=2"}));
    EXPECT_EQ(grid_.NodeState(3), nodeExpanded);
}

TEST_F(GridWindowTest, ADoubleClickOnTheSignTurnsTheNodeTwice) {
    DoubleClick(SignOfRow(3));
    EXPECT_EQ(events_.log, (Log{"before-collapse 3 state=2", "before-collapse 3 state=0"}));
}

TEST_F(GridWindowTest, WhereARowHasNothingToOpenItsSignIsNotThere) {
    Click(SignOfRow(2));
    EXPECT_EQ(events_.log, Log{});
    EXPECT_EQ(grid_.CurrentRow(), 2);
}

TEST_F(GridWindowTest, ADoubleClickOnARowIsOneDoubleClickWithTheCursorOnIt) {
    DoubleClick(NameOfRow(4));
    EXPECT_EQ(events_.log, (Log{"double-click 4"}));
}

TEST_F(GridWindowTest, TheCursorMovesToTheNodeThatClosesOverIt) {
    Click(NameOfRow(4));
    Click(SignOfRow(3));
    EXPECT_EQ(grid_.CurrentRow(), 3);
}

TEST_F(GridWindowTest, RowsThatComeWhileANodeOpensAreShown) {
    events_.onNotification = [this](std::string_view line) {
        if (!line.starts_with("before-collapse")) return;
        grid_.RemoveRow(6);
        grid_.AddRow("", 6);
        FillRow(grid_, 6, 2, "First", rowKind::folder);
        grid_.AddRow("", 7);
        FillRow(grid_, 7, 2, "Second", rowKind::folder);
    };
    Click(SignOfRow(5));
    EXPECT_EQ(grid_.NodeState(5), nodeExpanded);
    EXPECT_EQ(PositionOf(7), 6);
    Click(BoxOfRow(7));
    EXPECT_EQ(grid_.CellText(7, colSel), "-1");
}

TEST_F(GridWindowTest, AGridThatIsEmptiedWhileANodeOpensEndsTheGesture) {
    events_.onNotification = [this](std::string_view) { grid_.SetRowCount(1); };
    Click(SignOfRow(5));
    EXPECT_EQ(grid_.RowCount(), 1);
    EXPECT_EQ(events_.log.size(), 1u);
}

// ---- Keys

TEST_F(GridWindowTest, SpaceTicksTheCursorsRow) {
    grid_.SetCurrentRow(4);
    Press(VK_SPACE);
    EXPECT_EQ(events_.log, (Log{"before-edit 4,0 cell=", "after-edit 4,0 cell=-1"}));
}

TEST_F(GridWindowTest, SpaceThatIsHeldDownTicksOnce) {
    grid_.SetCurrentRow(4);
    Press(VK_SPACE);
    Send(WM_KEYDOWN, VK_SPACE, 1 | 1 << 30);
    EXPECT_EQ(events_.log.size(), 2u);
}

TEST_F(GridWindowTest, PlusOpensAndMinusCloses) {
    grid_.SetCurrentRow(3);
    Type(L'-');
    Type(L'-');
    Type(L'+');
    Type(L'+');
    EXPECT_EQ(events_.log, (Log{"before-collapse 3 state=2", "before-collapse 3 state=0"}));
}

TEST_F(GridWindowTest, ArrowsMoveAmongTheVisibleRows) {
    Press(VK_DOWN);
    EXPECT_EQ(grid_.CurrentRow(), 1);
    Press(VK_END);
    EXPECT_EQ(grid_.CurrentRow(), 7);
    Press(VK_UP);
    EXPECT_EQ(grid_.CurrentRow(), 5) << "the placeholder is hidden";
    Press(VK_HOME);
    EXPECT_EQ(grid_.CurrentRow(), 1);
    Press(VK_UP);
    EXPECT_EQ(grid_.CurrentRow(), 1);
    Press(VK_NEXT);
    EXPECT_EQ(grid_.CurrentRow(), 7);
    EXPECT_EQ(events_.log, Log{});
}

TEST_F(GridWindowTest, LeftClosesANodeThenGoesToItsParent) {
    grid_.SetCurrentRow(4);
    Press(VK_LEFT);
    EXPECT_EQ(grid_.CurrentRow(), 3);
    Press(VK_LEFT);
    EXPECT_EQ(events_.log, (Log{"before-collapse 3 state=2"}));
    Press(VK_LEFT);
    EXPECT_EQ(grid_.CurrentRow(), 1);
}

TEST_F(GridWindowTest, RightOpensANodeThenGoesToItsFirstChild) {
    grid_.SetNodeState(3, nodeCollapsed);
    grid_.SetCurrentRow(3);
    Press(VK_RIGHT);
    EXPECT_EQ(events_.log, (Log{"before-collapse 3 state=0"}));
    EXPECT_EQ(grid_.CurrentRow(), 3);
    Press(VK_RIGHT);
    EXPECT_EQ(grid_.CurrentRow(), 4);
    Press(VK_RIGHT);
    EXPECT_EQ(grid_.CurrentRow(), 4);
}

TEST_F(GridWindowTest, KeysOnAnEmptyTreeDoNothing) {
    grid_.SetRowCount(1);
    for (WPARAM key : Keys{VK_UP, VK_DOWN, VK_HOME, VK_END, VK_LEFT, VK_RIGHT, VK_SPACE, VK_F2, VK_NEXT}) Press(key);
    Type(L'+');
    EXPECT_EQ(events_.log, Log{});
}

TEST_F(GridWindowTest, ADisabledGridTakesNoGesture) {
    grid_.SetEnabled(false);
    Update();
    EXPECT_FALSE(IsWindowEnabled(window_->Handle()));
    grid_.SetCurrentRow(3);
    Click(BoxOfRow(3));
    DoubleClick(NameOfRow(3));
    Press(VK_SPACE);
    Type(L'-');
    EXPECT_EQ(events_.log, Log{});
    grid_.SetEnabled(true);
    Update();
    EXPECT_TRUE(IsWindowEnabled(window_->Handle()));
}

// ---- The number editor

TEST_F(GridWindowTest, AClickOnATickedRowsNumberOpensTheEditorWithItsText) {
    TickRow(grid_, 3, "12");
    Click(NumberOfRow(3));
    EXPECT_EQ(events_.log, (Log{"before-edit 3,1 cell=12"}));
    ASSERT_NE(window_->Editor(), nullptr);
    EXPECT_EQ(window_->Editor()->Text(), "12");
}

TEST_F(GridWindowTest, EnterOffersTheNumberWritesItAndTells) {
    TickRow(grid_, 3, "1");
    Click(NumberOfRow(3));
    TypeInEditor(L"7");
    InEditor(WM_KEYDOWN, VK_RETURN);
    EXPECT_EQ(events_.log, (Log{"before-edit 3,1 cell=1", "validate-edit 3,1 cell=1 text=7", "after-edit 3,1 cell=7"}));
    EXPECT_EQ(window_->Editor(), nullptr);
    EXPECT_EQ(GetFocus(), window_->Handle());
}

TEST_F(GridWindowTest, EscLeavesTheNumberAsItWas) {
    TickRow(grid_, 3, "1");
    Click(NumberOfRow(3));
    TypeInEditor(L"7");
    InEditor(WM_KEYDOWN, VK_ESCAPE);
    EXPECT_EQ(events_.log, (Log{"before-edit 3,1 cell=1"}));
    EXPECT_EQ(grid_.CellText(3, colIndex), "1");
    EXPECT_EQ(window_->Editor(), nullptr);
}

TEST_F(GridWindowTest, LosingTheFocusOffersTheNumber) {
    TickRow(grid_, 3, "1");
    Click(NumberOfRow(3));
    TypeInEditor(L"7");
    SetFocus(host_.Handle());
    EXPECT_EQ(events_.log.back(), "after-edit 3,1 cell=7");
    EXPECT_EQ(events_.log.size(), 3u);
    EXPECT_EQ(window_->Editor(), nullptr);
}

TEST_F(GridWindowTest, AnEditorThatWasLeftAsItWasTellsNothing) {
    TickRow(grid_, 3, "1");
    Click(NumberOfRow(3));
    SetFocus(host_.Handle());
    EXPECT_EQ(window_->Editor(), nullptr);
    Click(NumberOfRow(3));
    InEditor(WM_KEYDOWN, VK_RETURN);
    EXPECT_EQ(window_->Editor(), nullptr);
    EXPECT_EQ(events_.log, (Log{"before-edit 3,1 cell=1", "before-edit 3,1 cell=1"}));
}

TEST_F(GridWindowTest, TypingTheSameNumberAgainIsTold) {
    TickRow(grid_, 3, "1");
    Click(NumberOfRow(3));
    TypeInEditor(L"1");
    InEditor(WM_KEYDOWN, VK_RETURN);
    EXPECT_EQ(events_.log.back(), "after-edit 3,1 cell=1");
}

TEST_F(GridWindowTest, AClickElsewhereEndsTheEditBeforeItActs) {
    TickRow(grid_, 3, "1");
    Click(NumberOfRow(3));
    TypeInEditor(L"7");
    Click(BoxOfRow(2));
    EXPECT_EQ(events_.log, (Log{"before-edit 3,1 cell=1", "validate-edit 3,1 cell=1 text=7", "after-edit 3,1 cell=7",
                                "before-edit 2,0 cell=", "after-edit 2,0 cell=-1"}));
}

TEST_F(GridWindowTest, ARefusedNumberStaysOpenUntilItIsRightOrGivenUp) {
    TickRow(grid_, 3, "1");
    Click(NumberOfRow(3));
    TypeInEditor(L"abc");
    events_.refuse = true;
    InEditor(WM_KEYDOWN, VK_RETURN);
    EXPECT_EQ(events_.log.back(), "validate-edit 3,1 cell=1 text=abc");
    ASSERT_NE(window_->Editor(), nullptr);
    SetFocus(host_.Handle());
    EXPECT_EQ(window_->Editor(), nullptr);
    EXPECT_EQ(grid_.CellText(3, colIndex), "1");
}

TEST_F(GridWindowTest, ARefusedBeforeEditKeepsTheEditorClosed) {
    TickRow(grid_, 3, "1");
    events_.refuse = true;
    Click(NumberOfRow(3));
    EXPECT_EQ(events_.log, (Log{"before-edit 3,1 cell=1"}));
    EXPECT_EQ(window_->Editor(), nullptr);
}

TEST_F(GridWindowTest, AnUntickedRowHasNoNumberToEdit) {
    Click(NumberOfRow(3));
    Press(VK_F2);
    EXPECT_EQ(events_.log, Log{});
    EXPECT_EQ(window_->Editor(), nullptr);
}

TEST_F(GridWindowTest, WithTheNumbersHiddenF2OpensNothing) {
    TickRow(grid_, 3, "1");
    grid_.SetCurrentRow(3);
    grid_.SetColHidden(colIndex, true);
    Update();
    Press(VK_F2);
    EXPECT_EQ(window_->Editor(), nullptr);
    EXPECT_EQ(events_.log, Log{});
}

TEST_F(GridWindowTest, F2OpensTheEditorAndADigitStartsANewNumber) {
    TickRow(grid_, 3, "15");
    grid_.SetCurrentRow(3);
    Press(VK_F2);
    ASSERT_NE(window_->Editor(), nullptr);
    EXPECT_EQ(window_->Editor()->Text(), "15");
    InEditor(WM_KEYDOWN, VK_ESCAPE);
    Type(L'4');
    ASSERT_NE(window_->Editor(), nullptr);
    EXPECT_EQ(window_->Editor()->Text(), "4");
}

TEST_F(GridWindowTest, AnEditStaysWithItsRowWhenRowsComeAboveIt) {
    TickRow(grid_, 3, "1");
    Click(NumberOfRow(3));
    grid_.AddRow("", 2);
    FillRow(grid_, 2, 1, "New", rowKind::folder);
    TypeInEditor(L"7");
    InEditor(WM_KEYDOWN, VK_RETURN);
    EXPECT_EQ(events_.log.back(), "after-edit 4,1 cell=7");
}

TEST_F(GridWindowTest, AnEditWhoseRowGoesAwayIsGivenUp) {
    TickRow(grid_, 3, "1");
    Click(NumberOfRow(3));
    grid_.SetRowCount(1);
    Update();
    EXPECT_EQ(window_->Editor(), nullptr);
    EXPECT_EQ(events_.log, (Log{"before-edit 3,1 cell=1"}));
}

// ---- Place

TEST_F(GridWindowTest, TopRowAndCursorStayOnTheirRowsWhenRowsComeAbove) {
    for (int i = 0; i < 200; ++i) AddFolder(grid_, 1, "Folder");
    grid_.SetCurrentRow(100);
    Press(VK_DOWN);
    const int32_t top = grid_.VisibleRow(window_->Layout().TopPosition());
    ASSERT_GT(top, 50);
    for (int i = 0; i < 10; ++i) {
        grid_.AddRow("", 8);
        FillRow(grid_, 8, 1, "Above", rowKind::folder);
    }
    Update();
    EXPECT_EQ(grid_.CurrentRow(), 111);
    EXPECT_EQ(grid_.VisibleRow(window_->Layout().TopPosition()), top + 10);
    for (int i = 0; i < 4; ++i) grid_.RemoveRow(8);
    Update();
    EXPECT_EQ(grid_.VisibleRow(window_->Layout().TopPosition()), top + 6);
}

TEST_F(GridWindowTest, TheFirstRowsStayInViewWhileRowsAreAppended) {
    for (int i = 0; i < 200; ++i) {
        AddFolder(grid_, 1, "Folder");
        Update();
    }
    EXPECT_EQ(window_->Layout().TopPosition(), 0);
}

TEST_F(GridWindowTest, ATopRowThatANodeClosesOverGivesItsPlaceToTheNode) {
    for (int i = 0; i < 100; ++i) AddFolder(grid_, 2, "Below trash");
    for (int i = 0; i < 100; ++i) AddFolder(grid_, 1, "After trash");
    Press(VK_DOWN);
    Send(WM_VSCROLL, SB_PAGEDOWN, 0);
    Send(WM_VSCROLL, SB_PAGEDOWN, 0);
    ASSERT_GT(window_->Layout().TopPosition(), 10);
    grid_.SetNodeState(7, nodeCollapsed);
    Update();
    EXPECT_EQ(grid_.VisibleRow(window_->Layout().TopPosition()), 7);
}

TEST_F(GridWindowTest, AScrolledTreeThatIsEmptiedStartsAtItsTopAgain) {
    for (int i = 0; i < 200; ++i) AddFolder(grid_, 1, "Folder");
    Press(VK_END);
    grid_.SetRowCount(1);
    Update();
    EXPECT_EQ(window_->Layout().TopPosition(), 0);
    AddFolder(grid_, 0, "Mailbox", rowKind::store);
    Update();
    Click(BoxOfRow(1));
    EXPECT_EQ(grid_.CurrentRow(), 1);
}

TEST_F(GridWindowTest, AScrolledTreeThatIsFilledAnewAtOnceStartsAtItsTopAgain) {
    for (int i = 0; i < 200; ++i) AddFolder(grid_, 1, "Folder");
    Press(VK_END);
    ASSERT_GT(window_->Layout().TopPosition(), 0);
    grid_.SetRowCount(1);
    for (int i = 0; i < 200; ++i) AddFolder(grid_, 0, "Folder");
    Update();
    EXPECT_EQ(window_->Layout().TopPosition(), 0) << "though the window was not refreshed while there was nothing";
}

TEST_F(GridWindowTest, TheWheelScrollsAndStopsAtBothEnds) {
    for (int i = 0; i < 200; ++i) AddFolder(grid_, 1, "Folder");
    Update();
    Send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)), 0);
    EXPECT_EQ(window_->Layout().TopPosition(), 3);
    Send(WM_MOUSEWHEEL, MAKEWPARAM(0, 100 * WHEEL_DELTA), 0);
    EXPECT_EQ(window_->Layout().TopPosition(), 0);
    Send(WM_VSCROLL, SB_BOTTOM, 0);
    EXPECT_EQ(window_->Layout().TopPosition(), grid_.VisibleCount() - window_->Layout().FullRows());
}

// ---- Sideways

class WideGrid : public GridWindowTest {
  protected:
    WideGrid() {
        grid_.SetCellText(4, colName, "A customer whose name is far too long for any window that is four hundred wide");
        Update();
    }

    SCROLLINFO Bar() const {
        SCROLLINFO bar{};
        bar.cbSize = sizeof bar;
        bar.fMask = SIF_ALL;
        GetScrollInfo(window_->Handle(), SB_HORZ, &bar);
        return bar;
    }
    int Left() const { return window_->Layout().Left(); }
    int Last() const { return window_->Layout().ContentWidth() - window_->Layout().Client().cx; }
};

TEST_F(GridWindowTest, WithoutAWideNameThereIsNoBarBelow) {
    EXPECT_EQ(GetWindowLongW(window_->Handle(), GWL_STYLE) & WS_HSCROLL, 0);
    Send(WM_MOUSEHWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
    EXPECT_EQ(window_->Layout().Left(), 0);
}

TEST_F(WideGrid, ANameThatIsTooWideBringsABarBelow) {
    EXPECT_NE(GetWindowLongW(window_->Handle(), GWL_STYLE) & WS_HSCROLL, 0);
    EXPECT_EQ(Bar().nMax, window_->Layout().ContentWidth() - 1);
    EXPECT_EQ(static_cast<LONG>(Bar().nPage), window_->Layout().Client().cx);
    Send(WM_HSCROLL, SB_RIGHT, 0);
    EXPECT_GT(Left(), 0);
    EXPECT_EQ(Left(), Last());
    EXPECT_EQ(Bar().nPos, Left());
    Send(WM_HSCROLL, SB_LEFT, 0);
    EXPECT_EQ(Left(), 0);
}

TEST_F(WideGrid, ShiftAndTheWheelScrollSidewaysAndNotDown) {
    for (int i = 0; i < 200; ++i) AddFolder(grid_, 1, "Folder");
    Update();
    Send(WM_MOUSEWHEEL, MAKEWPARAM(MK_SHIFT, static_cast<WORD>(-WHEEL_DELTA)), 0);
    EXPECT_EQ(Left(), 3 * window_->Layout().Metrics().indent);
    EXPECT_EQ(window_->Layout().TopPosition(), 0);
    Send(WM_MOUSEWHEEL, MAKEWPARAM(MK_SHIFT, 10 * WHEEL_DELTA), 0);
    EXPECT_EQ(Left(), 0);
    Send(WM_MOUSEHWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
    EXPECT_EQ(Left(), 3 * window_->Layout().Metrics().indent);
}

TEST_F(WideGrid, ControlWithLeftAndRightScrollsAndLeavesTheOutlineAlone) {
    grid_.SetCurrentRow(3);
    {
        const HeldKeys held{VK_CONTROL};
        Press(VK_RIGHT);
        EXPECT_EQ(Left(), window_->Layout().Metrics().indent);
        Press(VK_LEFT);
        EXPECT_EQ(Left(), 0);
    }
    EXPECT_EQ(events_.log, Log{});
    EXPECT_EQ(grid_.CurrentRow(), 3);
    Press(VK_LEFT);
    EXPECT_EQ(events_.log, (Log{"before-collapse 3 state=2"}));
}

TEST_F(WideGrid, ScrollingDownMovesNothingSideways) {
    for (int i = 0; i < 200; ++i) AddFolder(grid_, 1, "Folder");
    Update();
    Send(WM_HSCROLL, SB_RIGHT, 0);
    const int left = Left();
    Send(WM_VSCROLL, SB_BOTTOM, 0);
    EXPECT_EQ(Left(), left) << "although no wide name is in view";
}

TEST_F(WideGrid, AnEmptiedTreeStartsAtItsLeftEdgeAgain) {
    Send(WM_HSCROLL, SB_RIGHT, 0);
    grid_.SetRowCount(1);
    AddFolder(grid_, 0, "Mailbox", rowKind::store);
    Update();
    EXPECT_EQ(Left(), 0);
    EXPECT_EQ(GetWindowLongW(window_->Handle(), GWL_STYLE) & WS_HSCROLL, 0);
}

TEST_F(WideGrid, ClicksHitWhatWasScrolledUnderThem) {
    Send(WM_HSCROLL, SB_LINERIGHT, 0);
    const POINT sign = SignOfRow(3);
    Click(sign);
    EXPECT_EQ(events_.log, (Log{"before-collapse 3 state=2"}));
}

TEST_F(WideGrid, BoxAndNumberStayInViewWithTheNumberEditor) {
    TickRow(grid_, 3, "1");
    grid_.SetCurrentRow(3);
    const POINT box = BoxOfRow(3);
    Send(WM_HSCROLL, SB_RIGHT, 0);
    EXPECT_EQ(BoxOfRow(3).x, box.x);
    Press(VK_F2);
    ASSERT_NE(window_->Editor(), nullptr);
    EXPECT_EQ(Left(), Last());
    RECT place{};
    GetWindowRect(window_->Editor()->Handle(), &place);
    MapWindowPoints(nullptr, window_->Handle(), reinterpret_cast<POINT*>(&place), 2);
    EXPECT_GE(place.left, 0);
    Send(WM_HSCROLL, SB_LINELEFT, 0);
    EXPECT_EQ(window_->Editor(), nullptr);
    events_.log.clear();
    Click(box);
    EXPECT_EQ(events_.log.size(), 2u);
}

TEST_F(WideGrid, NamesMoveUnderBoxAndNumber) {
    TickRow(grid_, 3, "1");
    Update();
    const RECT fixed{0, 0, window_->Layout().HeaderCell(colIndex).right, window_->Layout().Row(8).top};
    const auto picture = [&] {
        const Pixels all = OnScreen(window_->Handle());
        std::vector<uint32_t> values;
        for (int y = fixed.top; y < fixed.bottom; ++y)
            for (int x = fixed.left; x < fixed.right; ++x) values.push_back(all.At(x, y));
        return values;
    };
    const std::vector<uint32_t> before = picture();
    Send(WM_HSCROLL, SB_PAGERIGHT, 0);
    ASSERT_GT(Left(), 0);
    EXPECT_EQ(picture(), before);
}

TEST_F(GridWindowTest, AMillionRowsScrollAndPaintByTheScreenful) {
    grid_.SetRowCount(1000000);
    for (int32_t row = 8; row < 1000000; ++row) grid_.SetRowOutlineLevel(row, 1);
    Update();
    Press(VK_END);
    EXPECT_EQ(grid_.CurrentRow(), 999999);
    SCROLLINFO bar{};
    bar.cbSize = sizeof bar;
    bar.fMask = SIF_ALL;
    GetScrollInfo(window_->Handle(), SB_VERT, &bar);
    EXPECT_EQ(bar.nMax, grid_.VisibleCount() - 1);
    EXPECT_EQ(bar.nPos, window_->Layout().TopPosition());
    // Repainting may take as long as a screenful takes; looking at every row would take far longer.
    const auto start = std::chrono::steady_clock::now();
    for (int frame = 0; frame < 50; ++frame) {
        TickRow(grid_, 999990, std::to_string(frame));
        Update();
    }
    const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
    RecordProperty("millisecondsPerFrame", std::to_string(taken.count() / 50));
    EXPECT_LT(taken.count() / 50, 60);
    Click(BoxOfRow(999995));
    EXPECT_EQ(events_.log.back(), "after-edit 999995,0 cell=-1");
}

TEST_F(GridWindowTest, ChangesOutOfViewDoNotRepaint) {
    for (int i = 0; i < 200; ++i) AddFolder(grid_, 1, "Folder");
    Update();
    ValidateRect(window_->Handle(), nullptr);
    AddFolder(grid_, 1, "Far below");
    TickRow(grid_, 150, "1");
    window_->Refresh();
    EXPECT_FALSE(GetUpdateRect(window_->Handle(), nullptr, FALSE));
    TickRow(grid_, 3, "1");
    window_->Refresh();
    EXPECT_TRUE(GetUpdateRect(window_->Handle(), nullptr, FALSE));
}

// ---- Input that waited

class BlockedInput : public GridWindowTest {
  protected:
    /// The thread answers nothing for a while, and the user does something meanwhile.
    void Block(const std::function<void()>& user) {
        const DWORD from = GetTickCount();
        Sleep(40);
        user();
        Sleep(40);
        window_->DropInput(from, GetTickCount());
    }
    void Post(UINT message, WPARAM wParam, LPARAM lParam = 1) {
        PostMessageW(window_->Handle(), message, wParam, lParam);
    }
    void PostClick(POINT point) { Post(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y)); }
};

TEST_F(BlockedInput, IsNotPlayedBack) {
    for (int i = 0; i < 200; ++i) AddFolder(grid_, 1, "Folder");
    grid_.SetCurrentRow(3);
    Update();
    const POINT box = BoxOfRow(2);
    Block([&] {
        PostClick(box);
        Post(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(box.x, box.y));
        for (WPARAM key : Keys{VK_SPACE, VK_DOWN, VK_F2, VK_LEFT, VK_SUBTRACT}) Post(WM_KEYDOWN, key);
        Post(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)));
    });
    HostWindow::Pump();
    EXPECT_EQ(events_.log, Log{});
    EXPECT_EQ(grid_.CurrentRow(), 3);
    EXPECT_EQ(window_->Layout().TopPosition(), 0);
}

TEST_F(BlockedInput, LeavesWhatComesLaterAlone) {
    const POINT box = BoxOfRow(2);
    Block([&] { PostClick(box); });
    Sleep(20);
    PostClick(box);
    Post(WM_KEYDOWN, VK_SUBTRACT);
    HostWindow::Pump();
    EXPECT_EQ(events_.log, (Log{"before-edit 2,0 cell=", "after-edit 2,0 cell=-1"}));
    grid_.SetCurrentRow(3);
    Post(WM_KEYDOWN, VK_SUBTRACT);
    HostWindow::Pump();
    EXPECT_EQ(events_.log.back(), "before-collapse 3 state=2");
}

TEST_F(BlockedInput, LeavesWhatAProgramSendsAlone) {
    Block([] {});
    Click(BoxOfRow(2));
    EXPECT_EQ(events_.log.size(), 2u);
}

TEST_F(BlockedInput, OfOtherWindowsIsTheirs) {
    const HWND other = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 400, 50, 20, host_.Handle(), nullptr,
                                       nullptr, nullptr);
    Block([&] { PostMessageW(other, WM_CHAR, L'x', 1); });
    HostWindow::Pump();
    EXPECT_EQ(GetWindowTextLengthW(other), 1);
}

// ---- Real input

class RealInput : public GridWindowTest {
  protected:
    static void PressAt(HWND window, POINT point, int clicks) {
        ClientToScreen(window, &point);
        SetCursorPos(point.x, point.y);
        std::vector<INPUT> inputs;
        for (int i = 0; i < clicks; ++i) {
            for (DWORD flag : std::initializer_list<DWORD>{MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP}) {
                INPUT input{};
                input.type = INPUT_MOUSE;
                input.mi.dwFlags = flag;
                inputs.push_back(input);
            }
        }
        SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
    }
    static void PressKey(WORD key) {
        INPUT inputs[2]{};
        for (INPUT& input : inputs) {
            input.type = INPUT_KEYBOARD;
            input.ki.wVk = key;
        }
        inputs[1].ki.dwFlags = KEYEVENTF_KEYUP;
        SendInput(2, inputs, sizeof(INPUT));
    }
    bool Notified(size_t count) {
        return HostWindow::PumpUntil([&] { return events_.log.size() >= count; });
    }
};

TEST_F(RealInput, AFastDoubleClickOnTheBoxTicksTwice) {
    PressAt(window_->Handle(), BoxOfRow(3), 2);
    ASSERT_TRUE(Notified(4));
    EXPECT_EQ(events_.log.back(), "after-edit 3,0 cell=0");
}

TEST_F(RealInput, ADoubleClickOnANameReachesTheGridOnce) {
    PressAt(window_->Handle(), NameOfRow(4), 2);
    ASSERT_TRUE(Notified(1));
    HostWindow::Pump();
    EXPECT_EQ(events_.log, (Log{"double-click 4"}));
}

TEST_F(RealInput, TypingANumberAfterAClickChangesIt) {
    TickRow(grid_, 3, "1");
    PressAt(window_->Handle(), NumberOfRow(3), 1);
    ASSERT_TRUE(Notified(1));
    PressKey('4');
    PressKey(VK_RETURN);
    ASSERT_TRUE(Notified(3));
    EXPECT_EQ(events_.log.back(), "after-edit 3,1 cell=4");
}

TEST_F(RealInput, TheKeyboardOpensAndTicks) {
    SetFocus(window_->Handle());
    for (WORD key : std::initializer_list<WORD>{VK_DOWN, VK_DOWN, VK_DOWN, VK_SUBTRACT, VK_SPACE}) PressKey(key);
    ASSERT_TRUE(Notified(3));
    EXPECT_EQ(events_.log, (Log{"before-collapse 3 state=2", "before-edit 3,0 cell=", "after-edit 3,0 cell=-1"}));
}

// ---- Ends

class GridWindowEnds : public GridWindowTest {
  protected:
    void EndDuring(std::string_view notification) {
        events_.onNotification = [this, notification = std::string(notification)](std::string_view line) {
            if (line.starts_with(notification)) EndEverything();
        };
    }
};

TEST_F(GridWindowEnds, InsideBeforeEdit) {
    EndDuring("before-edit");
    Click(BoxOfRow(3));
    EXPECT_EQ(window_, nullptr);
}

TEST_F(GridWindowEnds, InsideAfterEditOfATick) {
    EndDuring("after-edit");
    Click(BoxOfRow(3));
    EXPECT_EQ(window_, nullptr);
}

TEST_F(GridWindowEnds, InsideATickByKeyboard) {
    grid_.SetCurrentRow(3);
    EndDuring("after-edit");
    SendMessageW(window_->Handle(), WM_KEYDOWN, VK_SPACE, 1);
    EXPECT_EQ(window_, nullptr);
}

TEST_F(GridWindowEnds, InsideBeforeCollapse) {
    EndDuring("before-collapse");
    Click(SignOfRow(3));
    EXPECT_EQ(window_, nullptr);
}

TEST_F(GridWindowEnds, InsideADoubleClick) {
    EndDuring("double-click");
    DoubleClick(NameOfRow(3));
    EXPECT_EQ(window_, nullptr);
}

TEST_F(GridWindowEnds, BeforeTheEditorOpens) {
    TickRow(grid_, 3, "1");
    Update();
    EndDuring("before-edit");
    Click(NumberOfRow(3));
    EXPECT_EQ(window_, nullptr);
}

TEST_F(GridWindowEnds, InsideValidateEdit) {
    TickRow(grid_, 3, "1");
    Click(NumberOfRow(3));
    TypeInEditor(L"7");
    EndDuring("validate-edit");
    InEditor(WM_KEYDOWN, VK_RETURN);
    EXPECT_EQ(window_, nullptr);
}

TEST_F(GridWindowEnds, InsideAfterEditOfANumber) {
    TickRow(grid_, 3, "1");
    Click(NumberOfRow(3));
    TypeInEditor(L"7");
    EndDuring("after-edit");
    InEditor(WM_KEYDOWN, VK_RETURN);
    EXPECT_EQ(window_, nullptr);
}

TEST_F(GridWindowEnds, InsideAfterEditWhenTheFocusIsLost) {
    TickRow(grid_, 3, "1");
    Click(NumberOfRow(3));
    TypeInEditor(L"7");
    EndDuring("after-edit");
    SetFocus(host_.Handle());
    EXPECT_EQ(window_, nullptr);
}

TEST_F(GridWindowEnds, InsideTheEditThatAClickEnds) {
    TickRow(grid_, 3, "1");
    Click(NumberOfRow(3));
    TypeInEditor(L"7");
    EndDuring("after-edit");
    SendMessageW(window_->Handle(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(BoxOfRow(2).x, BoxOfRow(2).y));
    EXPECT_EQ(window_, nullptr);
    EXPECT_EQ(events_.log.back(), "after-edit 3,1 cell=7") << "the click goes no further";
}

TEST_F(GridWindowEnds, WhenTheFocusComes) {
    SetFocus(host_.Handle());
    window_->SetFocusHandler([this] { EndEverything(); });
    const POINT point = BoxOfRow(3);
    SendMessageW(window_->Handle(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y));
    EXPECT_EQ(window_, nullptr);
    EXPECT_EQ(events_.log, Log{});
}

TEST_F(GridWindowEnds, WithTheParentWindowWhileTheEditorIsOpen) {
    TickRow(grid_, 3, "1");
    Click(NumberOfRow(3));
    host_.Close();
    EXPECT_EQ(window_->Handle(), nullptr);
    EXPECT_EQ(window_->Editor(), nullptr);
    grid_.SetCurrentRow(2);
    AddFolder(grid_, 1, "Later");
    window_->Refresh();
}

// ---- The pointer

class PointedGrid : public GridWindowTest {
  protected:
    void PointAt(POINT point) { Send(WM_MOUSEMOVE, 0, MAKELPARAM(point.x, point.y)); }
    void Rest() { Send(WM_MOUSEHOVER, 0, 0); }
    uint32_t GroundOf(int32_t row) {
        const Rect cell = window_->Layout().Cell(PositionOf(row), colName);
        return OnScreen(window_->Handle()).At(cell.right - 5, (cell.top + cell.bottom) / 2);
    }
    void LongName() {
        grid_.SetCellText(3, colName, std::string(600, 'x') + " 64 kB of it would do as well");
        grid_.DeliverChanges();
        Update();
    }
};

TEST_F(PointedGrid, TheRowUnderThePointerIsToldFromTheCursorsRow) {
    SetFocus(window_->Handle());
    const uint32_t plain = GroundOf(3);
    grid_.SetCurrentRow(3);
    grid_.DeliverChanges();
    Update();
    const uint32_t cursor = GroundOf(3);
    PointAt(NameOfRow(5));
    EXPECT_NE(GroundOf(5), plain);
    EXPECT_NE(GroundOf(5), cursor);
    PointAt(NameOfRow(3));
    EXPECT_EQ(GroundOf(3), cursor);
    EXPECT_EQ(GroundOf(5), plain);
    PointAt(NameOfRow(5));
    Send(WM_MOUSELEAVE, 0, 0);
    EXPECT_EQ(GroundOf(5), plain);
    EXPECT_EQ(events_.log, Log{}) << "the pointer alone does nothing";
    EXPECT_EQ(grid_.CurrentRow(), 3);
}

TEST_F(PointedGrid, ANameThatIsCutHasATipUntilTheUserDoesSomething) {
    LongName();
    PointAt(NameOfRow(5));
    Rest();
    EXPECT_FALSE(window_->ShowsTip()) << "a short name needs none";
    constexpr UINT ends[] = {WM_KEYDOWN, WM_MOUSEWHEEL, WM_LBUTTONDOWN, WM_MOUSELEAVE};
    for (const UINT message : ends) {
        PointAt({200, NameOfRow(3).y});
        Rest();
        EXPECT_TRUE(window_->ShowsTip());
        Send(message, 0, 0);
        EXPECT_FALSE(window_->ShowsTip()) << std::hex << message;
    }
    PointAt({200, NameOfRow(3).y});
    Rest();
    PointAt({200, NameOfRow(5).y});
    EXPECT_FALSE(window_->ShowsTip());
}

TEST_F(PointedGrid, ARowThatGoesUnderThePointerLeavesNothing) {
    LongName();
    PointAt({200, NameOfRow(3).y});
    grid_.SetRowCount(1);
    grid_.DeliverChanges();
    Rest();
    EXPECT_FALSE(window_->ShowsTip());
    PointAt({200, 100});
    window_->DestroyHandle();
}

// ---- A number that is refused

class RefusedNumber : public GridWindowTest {
  protected:
    RefusedNumber() {
        GridWindowParts parts{grid_, events_, pictures_, HasBox, L"TestGrid"};
        parts.numberRule = "Type a number greater than 0.";
        window_ = std::make_unique<GridWindow>(std::move(parts), keeper_, [this] { ++stale_; });
        window_->Create(host_.Handle(), {0, 0, 400, 300});
        TickRow(grid_, 3, "1");
        grid_.SetCurrentRow(3);
        Update();
        Press(VK_F2);
        if (window_->Editor() == nullptr) return;
        TypeInEditor(L"no");
        events_.refuse = true;
        InEditor(WM_KEYDOWN, VK_RETURN);
    }
};

TEST_F(RefusedNumber, StaysAndItsRuleIsTold) {
    ASSERT_NE(window_->Editor(), nullptr);
    EXPECT_EQ(window_->Editor()->Text(), "no");
    EXPECT_TRUE(window_->TellsRefusal());
    EXPECT_EQ(grid_.CellText(3, colIndex), "1");
    EXPECT_EQ(GetFocus(), window_->Editor()->Handle());
}

TEST_F(RefusedNumber, IsToldUntilTheUserTypesOrGivesUp) {
    ASSERT_NE(window_->Editor(), nullptr);
    TypeInEditor(L"2");
    EXPECT_FALSE(window_->TellsRefusal());
    InEditor(WM_KEYDOWN, VK_RETURN);
    EXPECT_TRUE(window_->TellsRefusal());
    InEditor(WM_KEYDOWN, VK_ESCAPE);
    EXPECT_FALSE(window_->TellsRefusal());
    EXPECT_EQ(window_->Editor(), nullptr);
}

TEST_F(RefusedNumber, ItsTipGoesWithTheWindow) {
    ASSERT_TRUE(window_->TellsRefusal());
    host_.Close();
    EXPECT_FALSE(window_->TellsRefusal());
    EXPECT_EQ(window_->Editor(), nullptr);
}

// ---- Screens of all kinds

class GridOnAScreen : public GridWindowTest {
  protected:
    /// A grid for a screen whose resolution the test decides.
    void MakeWindow(HWND parent, int width, int height) {
        GridWindowParts parts{grid_, events_, pictures_, HasBox, L"TestGrid"};
        parts.dpi = [this](HWND) { return dpi_; };
        window_ = std::make_unique<GridWindow>(std::move(parts), keeper_, [this] { ++stale_; });
        window_->Create(parent, {0, 0, width, height});
        Update();
    }
    const GridMetrics& Metrics() const { return window_->Layout().Metrics(); }

    int dpi_ = 96;
};

TEST_F(GridOnAScreen, AWindowThatComesToAnotherScreenIsLaidOutForIt) {
    MakeWindow(host_.Handle(), 400, 300);
    const GridMetrics before = Metrics();
    for (const int dpi : {120, 144, 192, 288, 96}) {
        dpi_ = dpi;
        constexpr UINT dpiChanged = 0x02E3;
        Send(dpiChanged, 0, 0);
        EXPECT_EQ(Metrics().rowHeight, Scale(before.rowHeight, dpi));
        EXPECT_EQ(Metrics().boxSize, Scale(before.boxSize, dpi));
        EXPECT_NEAR(window_->Layout().HeaderCell(sample::colSel).Width(),
                    Scale(GridLayout(before, {}, 50, 0, 0).HeaderCell(sample::colSel).Width(), dpi), Scale(14, dpi));
    }
    dpi_ = 144;
    MoveWindow(window_->Handle(), 0, 0, 380, 280, TRUE);  // in a program that is not told
    Update();
    EXPECT_EQ(Metrics().rowHeight, Scale(before.rowHeight, 144));
}

TEST_F(GridOnAScreen, ClicksHitWhatIsSeenAtEveryResolution) {
    for (const int dpi : {120, 192, 288}) {
        dpi_ = dpi;
        MakeWindow(host_.Handle(), 450, 490);
        events_.log.clear();
        Click(BoxOfRow(3));
        EXPECT_EQ(events_.log.size(), 2u) << dpi;
    }
}

TEST_F(GridOnAScreen, NoSizeAndNoResolutionIsTooMuch) {
    for (const int dpi : {0, -7, 96, 10000, std::numeric_limits<int>::max()}) {
        dpi_ = dpi;
        MakeWindow(host_.Handle(), 0, 0);
        for (const int length : {1, 40, 32767, 0}) {
            MoveWindow(window_->Handle(), 0, 0, length, length, TRUE);
            Update();
            RedrawWindow(window_->Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
            Press(VK_END);
            Click({length / 2, length / 2});
            EXPECT_NE(window_->Handle(), nullptr);
        }
    }
}

TEST_F(GridOnAScreen, InAHostThatIsReadFromRightToLeftItIsMirrored) {
    const HWND host = CreateWindowExW(WS_EX_LAYOUTRTL, L"STATIC", L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0,
                                      400, 300, host_.Handle(), nullptr, nullptr, nullptr);
    MakeWindow(host, 400, 120);
    EXPECT_TRUE(window_->Layout().Mirrored());
    EXPECT_GT(window_->Layout().Cell(0, sample::colSel).left, window_->Layout().Cell(0, sample::colName).left);
    Click(BoxOfRow(3));
    EXPECT_EQ(events_.log.size(), 2u);
    const Pixels pixels = OnScreen(window_->Handle());
    const Rect name = window_->Layout().NameText(window_->Layout().Cell(PositionOf(2), sample::colName), 1, true);
    EXPECT_GT(pixels.Drawn({name.right - 40, name.top, name.right, name.bottom - 1}), 20);
    AddFolder(grid_, 2, std::string(200, 'x'));
    grid_.DeliverChanges();
    Press(VK_END);
    ASSERT_GT(window_->Layout().MostLeft(), 0);
    Send(WM_HSCROLL, SB_LINELEFT, 0);
    EXPECT_EQ(window_->Layout().Left(), Metrics().indent) << "the rest of the names is at the left";
    SCROLLINFO bar{};
    bar.cbSize = sizeof bar;
    bar.fMask = SIF_POS;
    GetScrollInfo(window_->Handle(), SB_HORZ, &bar);
    EXPECT_EQ(bar.nPos, window_->Layout().MostLeft() - Metrics().indent);
    Send(WM_HSCROLL, SB_RIGHT, 0);
    EXPECT_EQ(window_->Layout().Left(), 0);
    window_.reset();
    DestroyWindow(host);
}

}  // namespace
}  // namespace foldertree
