// GridInteractionTest: the order of notifications and writes behind each gesture, and what refuses it.
#include "interaction/GridInteraction.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <initializer_list>
#include <string_view>

#include "interaction/RowActs.h"
#include "tests/SampleSchema.h"

namespace foldertree {
namespace {

using namespace sample;

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Writes down each notification with the state of the row at that moment, and does what the test says meanwhile.
class Events : public GridEvents {
  public:
    explicit Events(TreeGrid& grid) : grid_(grid) {}

    std::vector<std::string> lines;
    std::function<void(bool& cancel)> meanwhile = [](bool&) {};

    void fgd_BeforeEdit(int32_t row, int32_t col, bool& cancel) override {
        Add("before-edit", row, col);
        meanwhile(cancel);
    }
    void fgd_ValidateEdit(int32_t row, int32_t col, bool& cancel) override {
        Add("validate-edit " + grid_.EditText(), row, col);
        meanwhile(cancel);
    }
    void fgd_AfterEdit(int32_t row, int32_t col) override { Add("after-edit", row, col); }
    void fgd_BeforeCollapse(int32_t row, int16_t state, bool& cancel) override {
        lines.push_back("before-collapse " + std::to_string(row) + " to " + std::to_string(state) + ", is " +
                        std::to_string(grid_.NodeState(row)));
        meanwhile(cancel);
    }
    void fgd_DblClick() override { lines.push_back("double-click on " + std::to_string(grid_.CurrentRow())); }

  private:
    void Add(const std::string& what, int32_t row, int32_t col) {
        lines.push_back(what + " " + std::to_string(row) + "," + std::to_string(col) + " [" + grid_.CellText(row, col) +
                        "]");
    }
    TreeGrid& grid_;
};

class GridInteractionTest : public ::testing::Test {
  protected:
    GridInteractionTest() { grid_.SetRowCount(4); }
    /// Row 1 is a node, row 2 lies below it, row 3 is its sibling.
    void MakeNode(int32_t state) {
        grid_.SetIsNode(1, true);
        grid_.SetRowOutlineLevel(2, 1);
        grid_.SetNodeState(1, state);
    }
    void Refuse() {
        events_.meanwhile = [](bool& cancel) { cancel = true; };
    }
    void Meanwhile(std::function<void()> action) {
        events_.meanwhile = [action = std::move(action)](bool&) { action(); };
    }

    TreeGrid grid_{sample::schema};
    Events events_{grid_};
    GridInteraction interaction_{grid_, events_};
};

TEST_F(GridInteractionTest, ATickIsAskedForThenWrittenThenTold) {
    EXPECT_TRUE(interaction_.ToggleTick(2));
    EXPECT_TRUE(interaction_.ToggleTick(2));
    EXPECT_THAT(events_.lines, ElementsAre("before-edit 2,0 []", "after-edit 2,0 [-1]",  //
                                           "before-edit 2,0 [-1]", "after-edit 2,0 [0]"));
}

TEST_F(GridInteractionTest, AnyTextThatReadsAsANumberCountsAsTicked) {
    for (const auto& [text, after] : std::initializer_list<std::pair<const char*, const char*>>{
             {"True", "0"}, {"1", "0"}, {"False", "-1"}, {"abc", "-1"}, {"0", "-1"}, {" ", "-1"}}) {
        grid_.SetCellText(1, colSel, text);
        interaction_.ToggleTick(1);
        EXPECT_EQ(grid_.CellText(1, colSel), after) << text;
    }
}

TEST_F(GridInteractionTest, ARefusedTickWritesNothing) {
    Refuse();
    EXPECT_FALSE(interaction_.ToggleTick(2));
    EXPECT_THAT(events_.lines, ElementsAre("before-edit 2,0 []"));
    EXPECT_EQ(grid_.CellText(2, colSel), "");
}

TEST_F(GridInteractionTest, ATickWhoseRowIsGoneAfterTheQuestionIsDropped) {
    Meanwhile([&] { grid_.SetRowCount(1); });
    EXPECT_FALSE(interaction_.ToggleTick(2));
    EXPECT_THAT(events_.lines, ElementsAre("before-edit 2,0 []"));
}

TEST_F(GridInteractionTest, ATickStaysWithItsRowWhenRowsComeAboveItDuringTheQuestion) {
    grid_.SetCellText(2, colName, "meant");
    Meanwhile([&] { grid_.AddRow("", 1); });
    EXPECT_TRUE(interaction_.ToggleTick(2));
    EXPECT_THAT(events_.lines, ElementsAre("before-edit 2,0 []", "after-edit 3,0 [-1]"));
    EXPECT_EQ(grid_.CellText(3, colName), "meant");
}

TEST_F(GridInteractionTest, ANumberAndANodeStayWithTheirRowsToo) {
    MakeNode(nodeCollapsed);
    Meanwhile([&] { grid_.AddRow("", 1); });
    EXPECT_TRUE(interaction_.CommitIndex(3, "7"));
    EXPECT_EQ(grid_.CellText(4, colIndex), "7");
    interaction_.SetNode(2, true);
    EXPECT_EQ(grid_.NodeState(3), nodeExpanded);
}

TEST_F(GridInteractionTest, ATreeThatIsFilledAnewDuringTheQuestionHasNotTheRowThatWasMeant) {
    MakeNode(nodeCollapsed);
    Meanwhile([&] {
        grid_.SetRowCount(1);
        grid_.SetRowCount(4);
        MakeNode(nodeCollapsed);
    });
    EXPECT_FALSE(interaction_.ToggleTick(2));
    EXPECT_FALSE(interaction_.CommitIndex(2, "7"));
    interaction_.SetNode(1, true);
    EXPECT_EQ(grid_.NodeState(1), nodeCollapsed);
    EXPECT_EQ(grid_.CellText(2, colSel), "");
    EXPECT_EQ(grid_.CellText(2, colIndex), "");
}

TEST_F(GridInteractionTest, TheNumberEditorOpensUnlessItIsRefused) {
    EXPECT_TRUE(interaction_.MayEditIndex(3));
    Refuse();
    EXPECT_FALSE(interaction_.MayEditIndex(3));
    EXPECT_THAT(events_.lines, ElementsAre("before-edit 3,1 []", "before-edit 3,1 []"));
}

TEST_F(GridInteractionTest, ATypedNumberIsValidatedThenWrittenThenTold) {
    grid_.SetCellText(2, colIndex, "1");
    EXPECT_TRUE(interaction_.CommitIndex(2, "7"));
    EXPECT_THAT(events_.lines, ElementsAre("validate-edit 7 2,1 [1]", "after-edit 2,1 [7]"));
    EXPECT_EQ(grid_.EditText(), "");
}

TEST_F(GridInteractionTest, ARefusedNumberLeavesTheCellAsItWas) {
    grid_.SetCellText(2, colIndex, "1");
    Refuse();
    EXPECT_FALSE(interaction_.CommitIndex(2, "abc"));
    EXPECT_THAT(events_.lines, ElementsAre("validate-edit abc 2,1 [1]"));
    EXPECT_EQ(grid_.CellText(2, colIndex), "1");
}

TEST_F(GridInteractionTest, ANodeIsAskedForThenOpened) {
    MakeNode(nodeCollapsed);
    interaction_.SetNode(1, true);
    EXPECT_EQ(grid_.NodeState(1), nodeExpanded);
    interaction_.SetNode(1, false);
    EXPECT_EQ(grid_.NodeState(1), nodeCollapsed);
    EXPECT_THAT(events_.lines, ElementsAre("before-collapse 1 to 0, is 2", "before-collapse 1 to 2, is 0"));
}

TEST_F(GridInteractionTest, ANodeThatIsOpenIsNotOpenedAgain) {
    MakeNode(nodeExpanded);
    interaction_.SetNode(1, true);
    EXPECT_THAT(events_.lines, IsEmpty());
}

TEST_F(GridInteractionTest, ARowWithNothingBelowItOpensNothing) {
    MakeNode(nodeCollapsed);
    grid_.SetIsNode(2, true);
    interaction_.ToggleNode(2);
    grid_.SetRowOutlineLevel(2, 0);
    interaction_.ToggleNode(1);
    EXPECT_THAT(events_.lines, IsEmpty());
    EXPECT_EQ(grid_.NodeState(1), nodeCollapsed);
}

TEST_F(GridInteractionTest, ARowThatIsNoNodeOpensNothing) {
    grid_.SetRowOutlineLevel(2, 1);
    interaction_.ToggleNode(1);
    EXPECT_THAT(events_.lines, IsEmpty());
}

TEST_F(GridInteractionTest, ARefusedNodeStaysClosed) {
    MakeNode(nodeCollapsed);
    Refuse();
    interaction_.ToggleNode(1);
    EXPECT_THAT(events_.lines, ElementsAre("before-collapse 1 to 0, is 2"));
    EXPECT_EQ(grid_.NodeState(1), nodeCollapsed);
}

TEST_F(GridInteractionTest, ANodeWhoseRowsAreReadOnOpeningOpens) {
    MakeNode(nodeCollapsed);
    Meanwhile([&] {
        grid_.RemoveRow(2);
        for (int child = 0; child < 3; ++child) grid_.SetRowOutlineLevel(grid_.AddRow("", 2), 1);
    });
    interaction_.ToggleNode(1);
    EXPECT_EQ(grid_.NodeState(1), nodeExpanded);
    EXPECT_EQ(grid_.VisibleCount(), 5);
}

TEST_F(GridInteractionTest, ANodeThatIsGoneAfterTheQuestionIsDropped) {
    MakeNode(nodeCollapsed);
    Meanwhile([&] { grid_.SetRowCount(1); });
    interaction_.ToggleNode(1);
    EXPECT_EQ(grid_.RowCount(), 1);
    EXPECT_THAT(events_.lines, ElementsAre("before-collapse 1 to 0, is 2"));
}

TEST_F(GridInteractionTest, ARowThatIsNoNodeAnyMoreAfterTheQuestionKeepsItsState) {
    MakeNode(nodeCollapsed);
    Meanwhile([&] { grid_.SetIsNode(1, false); });
    interaction_.ToggleNode(1);
    EXPECT_EQ(grid_.NodeState(1), nodeCollapsed);
}

TEST_F(GridInteractionTest, ADoubleClickMovesTheCursorAndIsTold) {
    interaction_.DoubleClick(3);
    EXPECT_THAT(events_.lines, ElementsAre("double-click on 3"));
}

TEST_F(GridInteractionTest, GesturesOnTheHeaderOrOnNoRowDoNothing) {
    for (const int32_t row : {-1, 0, 4, 0x7FFFFFFF}) {
        EXPECT_FALSE(interaction_.ToggleTick(row));
        EXPECT_FALSE(interaction_.MayEditIndex(row));
        EXPECT_FALSE(interaction_.CommitIndex(row, "1"));
        interaction_.SetNode(row, true);
        interaction_.ToggleNode(row);
        interaction_.DoubleClick(row);
    }
    EXPECT_THAT(events_.lines, IsEmpty());
    EXPECT_EQ(grid_.CurrentRow(), 0);
}

TEST_F(GridInteractionTest, ADisabledGridTakesNoGesture) {
    MakeNode(nodeCollapsed);
    grid_.SetEnabled(false);
    EXPECT_FALSE(interaction_.ToggleTick(1));
    EXPECT_FALSE(interaction_.MayEditIndex(1));
    EXPECT_FALSE(interaction_.CommitIndex(1, "1"));
    interaction_.SetNode(1, true);
    interaction_.DoubleClick(1);
    EXPECT_THAT(events_.lines, IsEmpty());
    EXPECT_EQ(grid_.NodeState(1), nodeCollapsed);
}

// ---- Gestures

/// Shows nothing, and keeps the number box that it was asked for.
class View : public GridView, public NumberBox {
  public:
    bool shown = true;
    bool open = false;
    bool opens = true;
    std::string text;
    bool modified = false;
    int selections = 0;
    std::vector<int32_t> broughtIntoView;
    std::vector<GridScroll> scrolls;
    std::vector<std::string> copied;

    bool Shown() const override { return shown; }
    int32_t PageRows() const override { return 3; }
    void BringIntoView(int32_t row) override { broughtIntoView.push_back(row); }
    void Scroll(GridScroll scroll) override { scrolls.push_back(scroll); }
    void Copy(const std::string& copy) override { copied.push_back(copy); }
    void OpenNumberBox(int32_t, const std::string& number) override {
        open = opens;
        text = number;
        modified = false;
    }
    NumberBox* OpenedNumberBox() override { return open ? this : nullptr; }
    void CloseNumberBox() override { open = false; }

    std::string Text() const override { return text; }
    bool Modified() const override { return modified; }
    void Type(const std::string& typed) override {
        text = typed;
        modified = true;
    }
    void SelectAll() override { ++selections; }
};

/// 1 Mailbox (open), 2 Inbox (open), 3 Customers, 4 Tasks (closed, not read), 5 a placeholder, 6 Trash.
class GestureTest : public GridInteractionTest {
  protected:
    GestureTest() {
        grid_.SetRowCount(7);
        const int16_t levels[] = {0, 0, 1, 2, 1, 2, 1};
        for (int32_t row = 1; row < 7; ++row) {
            grid_.SetRowOutlineLevel(row, levels[row]);
            grid_.SetIsNode(row, row != 5);
        }
        grid_.SetNodeState(4, nodeCollapsed);
        grid_.SetCellText(4, colIncomplete, "-1");
    }
    void Press(GridKey key, bool repeated = false) { gestures_.Press(key, repeated); }
    void Tick(int32_t row, std::string_view number) {
        grid_.SetCellText(row, colSel, "-1");
        grid_.SetCellText(row, colIndex, number);
    }
    void OpenNumber(int32_t row, std::string_view number) {
        Tick(row, number);
        gestures_.Press(row, GridPart::Index, false);
        events_.lines.clear();
    }

    void Name(std::initializer_list<std::string_view> names) {
        int32_t row = 0;
        for (const std::string_view name : names) grid_.SetCellText(++row, colName, name);
    }
    void Type(std::u32string_view text) {
        for (const char32_t character : text) gestures_.Type(character);
    }
    void Wait() { now_ += std::chrono::seconds(2); }

    View view_;
    TypeAhead::Clock::time_point now_{};
    GridInteraction gestures_{grid_,
                              events_,
                              view_,
                              [](const TreeGrid&, int32_t row) { return row != 5; },
                              [](const TreeGrid& grid, int32_t row) { return grid.CellValue(row, colIncomplete) == 0; },
                              [this] { return now_; }};
};

TEST_F(GestureTest, ArrowsMoveAmongTheShownRowsAndBringThemIntoView) {
    Press(GridKey::Down);
    EXPECT_EQ(grid_.CurrentRow(), 1);
    grid_.SetCurrentRow(4);
    Press(GridKey::Down);
    EXPECT_EQ(grid_.CurrentRow(), 6) << "the placeholder is hidden";
    Press(GridKey::Down);
    EXPECT_EQ(grid_.CurrentRow(), 6);
    Press(GridKey::Up);
    EXPECT_EQ(grid_.CurrentRow(), 4);
    EXPECT_THAT(view_.broughtIntoView, ElementsAre(1, 6, 6, 4));
    EXPECT_THAT(events_.lines, IsEmpty());
}

TEST_F(GestureTest, PagesAndEndsMoveByWhatIsInView) {
    Press(GridKey::PageDown);
    EXPECT_EQ(grid_.CurrentRow(), 1) << "from nowhere to the first row";
    Press(GridKey::PageDown);
    EXPECT_EQ(grid_.CurrentRow(), 4);
    Press(GridKey::PageDown);
    EXPECT_EQ(grid_.CurrentRow(), 6);
    Press(GridKey::PageUp);
    EXPECT_EQ(grid_.CurrentRow(), 2);
    Press(GridKey::Home);
    EXPECT_EQ(grid_.CurrentRow(), 1);
    Press(GridKey::End);
    EXPECT_EQ(grid_.CurrentRow(), 6);
}

TEST_F(GestureTest, EndFromNowhereGoesToTheLastRow) {
    Press(GridKey::End);
    EXPECT_EQ(grid_.CurrentRow(), 6);
}

TEST_F(GestureTest, LeftClosesThenStepsOutAndRightOpensThenStepsIn) {
    grid_.SetCurrentRow(3);
    Press(GridKey::Left);
    EXPECT_EQ(grid_.CurrentRow(), 2);
    Press(GridKey::Left);
    EXPECT_EQ(grid_.NodeState(2), nodeCollapsed);
    Press(GridKey::Left);
    EXPECT_EQ(grid_.CurrentRow(), 1);
    grid_.SetCurrentRow(2);
    Press(GridKey::Right);
    EXPECT_EQ(grid_.NodeState(2), nodeExpanded);
    Press(GridKey::Right);
    EXPECT_EQ(grid_.CurrentRow(), 3);
    Press(GridKey::Right);
    EXPECT_EQ(grid_.CurrentRow(), 3) << "nothing below it";
    EXPECT_THAT(events_.lines, ElementsAre("before-collapse 2 to 2, is 0", "before-collapse 2 to 0, is 2"));
}

TEST_F(GestureTest, ACursorInsideAClosedNodeActsOnTheNodeThatIsSeen) {
    grid_.SetCurrentRow(3);
    grid_.SetNodeState(2, nodeCollapsed);
    Press(GridKey::Tick);
    EXPECT_THAT(events_.lines, ElementsAre("before-edit 2,0 []", "after-edit 2,0 [-1]"));
    Press(GridKey::Down);
    EXPECT_EQ(grid_.CurrentRow(), 4);
}

TEST_F(GestureTest, ACursorThatAClosingNodeHidesGoesToTheNode) {
    grid_.SetCurrentRow(3);
    gestures_.Press(1, GridPart::Row, false);
    grid_.SetCurrentRow(3);
    gestures_.Type(U'-');
    EXPECT_EQ(grid_.CurrentRow(), 3) << "a leaf has nothing to close";
    gestures_.Press(2, GridPart::Glyph, false);
    EXPECT_EQ(grid_.CurrentRow(), 2);
    EXPECT_EQ(grid_.NodeState(2), nodeCollapsed);
}

TEST_F(GestureTest, PlusOpensAndMinusCloses) {
    grid_.SetCurrentRow(2);
    for (const char32_t sign : {U'-', U'-', U'+', U'+', U'*'}) gestures_.Type(sign);
    EXPECT_THAT(events_.lines, ElementsAre("before-collapse 2 to 2, is 0", "before-collapse 2 to 0, is 2"));
}

TEST_F(GestureTest, TheTickKeyThatIsHeldDownTicksOnce) {
    grid_.SetCurrentRow(3);
    Press(GridKey::Tick);
    Press(GridKey::Tick, true);
    EXPECT_THAT(events_.lines, ElementsAre("before-edit 3,0 []", "after-edit 3,0 [-1]"));
}

TEST_F(GestureTest, ARowWithoutABoxIsNotTicked) {
    grid_.SetNodeState(4, nodeExpanded);
    gestures_.Press(5, GridPart::Box, false);
    Press(GridKey::Tick);
    EXPECT_EQ(grid_.CurrentRow(), 5);
    EXPECT_THAT(events_.lines, IsEmpty());
    EXPECT_EQ(gestures_.Box(5), BoxKind::None);
    EXPECT_EQ(gestures_.Box(6), BoxKind::Plain);
    grid_.SetCellFormat(CellSetting::BackColor, 6, colSel, colors::buttonFace);
    EXPECT_EQ(gestures_.Box(6), BoxKind::Greyed);
}

TEST_F(GestureTest, ASecondPressIsATickATurnOrADoubleClickByItsPlace) {
    gestures_.Press(3, GridPart::Box, true);
    gestures_.Press(4, GridPart::Glyph, true);
    gestures_.Press(3, GridPart::Glyph, true);
    gestures_.Press(6, GridPart::Index, true);
    EXPECT_THAT(events_.lines, ElementsAre("before-edit 3,0 []", "after-edit 3,0 [-1]", "before-collapse 4 to 0, is 2",
                                           "double-click on 3", "double-click on 6"));
}

TEST_F(GestureTest, APressBesideEverythingMovesTheCursorOnly) {
    gestures_.Press(3, GridPart::Row, false);
    gestures_.Press(0, GridPart::Box, false);
    gestures_.Press(7, GridPart::Box, false);
    EXPECT_EQ(grid_.CurrentRow(), 3);
    EXPECT_THAT(events_.lines, IsEmpty());
}

TEST_F(GestureTest, OnlyATickedRowsNumberInAShownColumnOpens) {
    gestures_.Press(3, GridPart::Index, false);
    EXPECT_THAT(events_.lines, IsEmpty());
    Tick(3, "12");
    grid_.SetColHidden(colIndex, true);
    Press(GridKey::Edit);
    EXPECT_FALSE(view_.open);
    grid_.SetColHidden(colIndex, false);
    Press(GridKey::Edit);
    EXPECT_TRUE(view_.open);
    EXPECT_EQ(view_.text, "12");
    EXPECT_THAT(events_.lines, ElementsAre("before-edit 3,1 [12]"));
}

TEST_F(GestureTest, ADigitStartsANewNumber) {
    Tick(3, "12");
    grid_.SetCurrentRow(3);
    gestures_.Type(U'4');
    EXPECT_EQ(view_.text, "4");
    gestures_.Number().Accept();
    EXPECT_FALSE(view_.open);
    EXPECT_EQ(grid_.CellText(3, colIndex), "4");
}

TEST_F(GestureTest, AViewThatIsGoneAfterTheQuestionOpensNoBox) {
    Tick(3, "12");
    Meanwhile([&] { view_.shown = false; });
    gestures_.Press(3, GridPart::Index, false);
    EXPECT_FALSE(view_.open);
}

TEST_F(GestureTest, ANumberThatWasLeftAsItWasIsNotOffered) {
    OpenNumber(3, "1");
    gestures_.Number().Accept();
    EXPECT_FALSE(view_.open);
    EXPECT_THAT(events_.lines, IsEmpty());
}

TEST_F(GestureTest, ARefusedNumberStaysOpenWhenAcceptedAndClosesWhenSomethingElseHappens) {
    OpenNumber(3, "1");
    view_.Type("abc");
    Refuse();
    gestures_.Number().Accept();
    EXPECT_TRUE(view_.open);
    EXPECT_EQ(view_.selections, 1);
    gestures_.Number().Finish();
    EXPECT_FALSE(view_.open);
    EXPECT_EQ(grid_.CellText(3, colIndex), "1");
    EXPECT_THAT(events_.lines, ElementsAre("validate-edit abc 3,1 [1]", "validate-edit abc 3,1 [1]"));
}

TEST_F(GestureTest, ANumberThatIsGivenUpIsNotOffered) {
    OpenNumber(3, "1");
    view_.Type("7");
    gestures_.Number().GiveUp();
    EXPECT_FALSE(view_.open);
    EXPECT_THAT(events_.lines, IsEmpty());
}

TEST_F(GestureTest, WhatTakesTheFocusWhileANumberIsOfferedOffersItNotAgain) {
    OpenNumber(3, "1");
    view_.Type("7");
    Meanwhile([&] {
        gestures_.Number().Finish();
        gestures_.Number().GiveUp();
    });
    gestures_.Number().Accept();
    EXPECT_THAT(events_.lines, ElementsAre("validate-edit 7 3,1 [1]", "after-edit 3,1 [7]"));
    EXPECT_FALSE(view_.open);
}

TEST_F(GestureTest, ANumberStaysWithItsRowAndClosesWithoutIt) {
    OpenNumber(3, "1");
    grid_.AddRow("", 2);
    gestures_.Number().CloseWhereLost();
    view_.Type("7");
    gestures_.Number().Accept();
    EXPECT_EQ(grid_.CellText(4, colIndex), "7");
    OpenNumber(4, "7");
    grid_.RemoveRow(4);
    gestures_.Number().CloseWhereLost();
    EXPECT_FALSE(view_.open);
}

TEST_F(GestureTest, ANumberWhoseRowIsHiddenOrWhoseGridIsDisabledCloses) {
    OpenNumber(3, "1");
    grid_.SetNodeState(2, nodeCollapsed);
    gestures_.Number().CloseWhereLost();
    EXPECT_FALSE(view_.open);
    OpenNumber(6, "1");
    grid_.SetEnabled(false);
    gestures_.Number().CloseWhereLost();
    EXPECT_FALSE(view_.open);
    EXPECT_THAT(events_.lines, IsEmpty());
}

TEST_F(GestureTest, OnAnEmptyOrDisabledGridGesturesDoNothing) {
    const auto all = [&] {
        for (const GridKey key : {GridKey::Up, GridKey::Down, GridKey::PageUp, GridKey::PageDown, GridKey::Home,
                                  GridKey::End, GridKey::Left, GridKey::Right, GridKey::Tick, GridKey::Edit})
            Press(key);
        for (const char32_t character : {U'+', U'-', U'7'}) gestures_.Type(character);
        gestures_.Press(1, GridPart::Box, false);
    };
    grid_.SetEnabled(false);
    all();
    EXPECT_EQ(grid_.CurrentRow(), 0);
    grid_.SetEnabled(true);
    grid_.SetRowCount(1);
    all();
    EXPECT_EQ(grid_.CurrentRow(), 0);
    EXPECT_THAT(events_.lines, IsEmpty());
}

TEST(RowActs, ATickIsFlippedWithoutAQuestion) {
    TreeGrid grid{sample::schema};
    grid.SetRowCount(2);
    FlipTick(grid, 1);
    EXPECT_EQ(grid.CellText(1, colSel), "-1");
    FlipTick(grid, 1);
    EXPECT_EQ(grid.CellText(1, colSel), "0");
}

TEST(RowActs, AGridWithoutBoxesOrNumbersTakesNeither) {
    TreeGrid grid(GridSchema{.columns = 1, .outline = 0, .keyParts = {}});
    grid.SetRowCount(3);
    Events events(grid);
    View view;
    GridInteraction gestures(grid, events, view);
    gestures.Press(1, GridPart::Box, false);
    gestures.Press(1, GridPart::Index, false);
    gestures.Press(GridKey::Tick, false);
    gestures.Press(GridKey::Edit, false);
    EXPECT_FALSE(gestures.ToggleTick(1));
    EXPECT_FALSE(gestures.MayEditIndex(1));
    EXPECT_FALSE(gestures.CommitIndex(1, "1"));
    EXPECT_EQ(gestures.Box(1), BoxKind::None);
    EXPECT_EQ(grid.CurrentRow(), 1);
    EXPECT_THAT(events.lines, IsEmpty());
}

TEST(RowActs, ALeafTurnsAsWell) {
    TreeGrid grid{sample::schema};
    grid.SetRowCount(2);
    Events events(grid);
    EXPECT_TRUE(TurnNode(grid, events, 1, OtherNodeState(grid, 1)));
    EXPECT_EQ(grid.NodeState(1), nodeCollapsed);
    events.meanwhile = [](bool& cancel) { cancel = true; };
    EXPECT_FALSE(TurnNode(grid, events, 1, OtherNodeState(grid, 1)));
    EXPECT_EQ(grid.NodeState(1), nodeCollapsed);
}

// ---- Keys of the outline

TEST_F(GestureTest, BackspaceGoesToTheParentAndTellsNobody) {
    grid_.SetCurrentRow(3);
    Press(GridKey::Parent);
    EXPECT_EQ(grid_.CurrentRow(), 2);
    EXPECT_EQ(grid_.NodeState(2), nodeExpanded) << "Left would close it next";
    Press(GridKey::Parent);
    Press(GridKey::Parent);
    EXPECT_EQ(grid_.CurrentRow(), 1) << "which has no parent";
    EXPECT_THAT(view_.broughtIntoView, ElementsAre(2, 1));
    EXPECT_THAT(events_.lines, IsEmpty());
}

TEST_F(GestureTest, StarOpensAllNodesOfTheBranchThatWereReadFromTheTop) {
    grid_.SetNodeState(1, nodeCollapsed);
    grid_.SetNodeState(2, nodeCollapsed);
    grid_.SetCurrentRow(1);
    Type(U"*");
    EXPECT_THAT(events_.lines, ElementsAre("before-collapse 1 to 0, is 2", "before-collapse 2 to 0, is 2"));
    EXPECT_EQ(grid_.NodeState(4), nodeCollapsed) << "opening it would read";
    EXPECT_EQ(grid_.CurrentRow(), 1);
    Type(U"*");
    EXPECT_EQ(events_.lines.size(), 2u) << "nothing is left to open";
}

TEST_F(GestureTest, StarOnANodeThatWasNotReadReadsNothing) {
    grid_.SetCurrentRow(4);
    Type(U"*");
    EXPECT_THAT(events_.lines, IsEmpty());
    EXPECT_EQ(grid_.NodeState(4), nodeCollapsed);
}

TEST_F(GestureTest, StarAndSlashLeaveOtherBranchesAlone) {
    grid_.SetNodeState(2, nodeCollapsed);
    grid_.SetCurrentRow(6);
    Type(U"*/");
    grid_.SetCurrentRow(4);
    Type(U"/");
    EXPECT_THAT(events_.lines, IsEmpty());
    EXPECT_EQ(grid_.NodeState(1), nodeExpanded);
}

TEST_F(GestureTest, SlashClosesTheBranchWithAllItsNodes) {
    grid_.SetCurrentRow(1);
    Type(U"/");
    EXPECT_THAT(events_.lines, ElementsAre("before-collapse 1 to 2, is 0", "before-collapse 2 to 2, is 0"));
    EXPECT_EQ(grid_.VisibleCount(), 1);
    EXPECT_EQ(grid_.CurrentRow(), 1);
    Type(U"+");
    EXPECT_EQ(grid_.VisibleCount(), 4) << "one level";
}

TEST_F(GestureTest, ANodeThatIsRefusedStaysAndTheRestOfTheBranchTurns) {
    grid_.SetCurrentRow(1);
    events_.meanwhile = [this](bool& cancel) { cancel = events_.lines.size() == 1; };
    Type(U"/");
    EXPECT_EQ(grid_.NodeState(1), nodeExpanded);
    EXPECT_EQ(grid_.NodeState(2), nodeCollapsed);
}

TEST_F(GestureTest, ABranchGoesOnWhereRowsComeOrGoWhileItTurns) {
    grid_.SetNodeState(2, nodeCollapsed);
    grid_.SetNodeState(1, nodeCollapsed);
    grid_.SetCurrentRow(1);
    bool inserted = false;
    Meanwhile([&] {
        if (!std::exchange(inserted, true)) grid_.AddRow("", 1);
    });
    Type(U"*");
    EXPECT_THAT(events_.lines, ElementsAre("before-collapse 1 to 0, is 2", "before-collapse 3 to 0, is 2"));
    EXPECT_EQ(grid_.NodeState(3), nodeExpanded);
}

TEST_F(GestureTest, ABranchEndsWhenItsTreeIsEmptiedOrItsGridSwitchedOff) {
    grid_.SetCurrentRow(1);
    Meanwhile([&] { grid_.SetEnabled(false); });
    Type(U"/");
    EXPECT_THAT(events_.lines, ElementsAre("before-collapse 1 to 2, is 0"));
    grid_.SetEnabled(true);
    grid_.SetNodeState(1, nodeExpanded);
    Meanwhile([&] { grid_.SetRowCount(1); });
    Type(U"/");
    EXPECT_EQ(grid_.RowCount(), 1);
    EXPECT_EQ(events_.lines.size(), 2u);
}

TEST_F(GestureTest, ABranchThirtyThousandLevelsDeepOpensAndCloses) {
    grid_.SetRowCount(1);
    grid_.SetRowCount(30001);
    for (int32_t row = 1; row <= 30000; ++row) {
        grid_.SetIsNode(row, true);
        grid_.SetRowOutlineLevel(row, static_cast<int16_t>(row));
    }
    grid_.SetCurrentRow(1);
    Type(U"/");
    EXPECT_EQ(grid_.VisibleCount(), 1);
    EXPECT_EQ(events_.lines.size(), 29999u) << "the last row has nothing below it";
    Type(U"*");
    EXPECT_EQ(grid_.VisibleCount(), 30000);
}

TEST_F(GestureTest, ScrollingLeavesTheCursorAndTellsNobody) {
    grid_.SetCurrentRow(3);
    for (const GridKey key : {GridKey::ScrollUp, GridKey::ScrollDown, GridKey::ScrollPageUp, GridKey::ScrollPageDown,
                              GridKey::ScrollTop, GridKey::ScrollBottom, GridKey::ScrollLeft, GridKey::ScrollRight})
        Press(key);
    EXPECT_THAT(view_.scrolls, ElementsAre(GridScroll::Up, GridScroll::Down, GridScroll::PageUp, GridScroll::PageDown,
                                           GridScroll::Top, GridScroll::Bottom, GridScroll::Left, GridScroll::Right));
    EXPECT_EQ(grid_.CurrentRow(), 3);
    EXPECT_THAT(view_.broughtIntoView, IsEmpty());
    EXPECT_THAT(events_.lines, IsEmpty());
}

// ---- Copies

TEST_F(GestureTest, TheNameAndThePathAreCopiedAndNobodyIsTold) {
    Name({"Mailbox", "Inbox", "Customers"});
    grid_.SetCurrentRow(3);
    Press(GridKey::CopyName);
    Press(GridKey::CopyPath);
    EXPECT_THAT(view_.copied, ElementsAre("Customers", "Mailbox\\Inbox\\Customers"));
    EXPECT_THAT(events_.lines, IsEmpty());
}

TEST_F(GestureTest, APathTextOfTheRowOrOfARowAboveItIsWherePathsBegin) {
    Name({"Mailbox", "Inbox", "Customers"});
    grid_.SetCellText(2, colPath, "Mailbox of Alex\\Inbox");
    grid_.SetCurrentRow(3);
    Press(GridKey::CopyPath);
    Press(GridKey::Parent);
    Press(GridKey::CopyPath);
    Press(GridKey::Parent);
    Press(GridKey::CopyPath);
    EXPECT_THAT(view_.copied, ElementsAre("Mailbox of Alex\\Inbox\\Customers", "Mailbox of Alex\\Inbox", "Mailbox"));
}

TEST_F(GestureTest, WithoutACursorNothingIsCopied) {
    Press(GridKey::CopyName);
    Press(GridKey::CopyPath);
    Press(GridKey::Parent);
    EXPECT_THAT(view_.copied, IsEmpty());
    EXPECT_EQ(grid_.CurrentRow(), 0);
}

// ---- Typing a name

TEST_F(GestureTest, LettersMoveTheCursorToANameAndTellNobody) {
    Name({"Mailbox", "Inbox", "Customers", "Tasks", "", "Trash"});
    Type(U"tr");
    EXPECT_EQ(grid_.CurrentRow(), 6);
    EXPECT_THAT(view_.broughtIntoView, ElementsAre(4, 6));
    EXPECT_THAT(events_.lines, IsEmpty());
}

TEST_F(GestureTest, DigitsThatOpenNoEditorAreTheBeginningOfAName) {
    Name({"Mailbox", "Inbox", "2024", "Tasks", "", "2025"});
    grid_.SetCurrentRow(1);
    Type(U"2025");
    EXPECT_EQ(grid_.CurrentRow(), 6);
    EXPECT_THAT(events_.lines, IsEmpty()) << "an unticked row has no number";
    Wait();
    Tick(6, "1");
    grid_.SetColHidden(colIndex, true);
    Type(U"2");
    EXPECT_EQ(grid_.CurrentRow(), 3) << "numbers are hidden";
    EXPECT_THAT(events_.lines, IsEmpty());
}

TEST_F(GestureTest, ADigitWhoseEditorIsRefusedIsTheBeginningOfAName) {
    Name({"Mailbox", "Inbox", "2024"});
    Tick(2, "1");
    grid_.SetCurrentRow(2);
    Refuse();
    Type(U"2");
    EXPECT_THAT(events_.lines, ElementsAre("before-edit 2,1 [1]"));
    EXPECT_EQ(grid_.CurrentRow(), 3);
}

TEST_F(GestureTest, ADigitOnATickedRowOpensTheEditorUnlessAWordIsBegun) {
    Name({"Mailbox", "Inbox", "Q3", "Q4"});
    Tick(3, "1");
    Type(U"q");
    ASSERT_EQ(grid_.CurrentRow(), 3);
    Type(U"4");
    EXPECT_FALSE(view_.open);
    EXPECT_EQ(grid_.CurrentRow(), 4);
    grid_.SetCurrentRow(3);
    Wait();
    Type(U"4");
    EXPECT_TRUE(view_.open);
    EXPECT_EQ(view_.text, "4");
    EXPECT_EQ(grid_.CurrentRow(), 3);
}

TEST_F(GestureTest, ASpaceInsideAWordBelongsToItAndTicksNothing) {
    Name({"Mailbox", "In", "In box"});
    Type(U"in");
    ASSERT_EQ(grid_.CurrentRow(), 2);
    Press(GridKey::Tick);
    Type(U" ");
    EXPECT_EQ(grid_.CurrentRow(), 3);
    EXPECT_THAT(events_.lines, IsEmpty());
    Wait();
    Press(GridKey::Tick);
    Type(U" ");
    EXPECT_THAT(events_.lines, ElementsAre("before-edit 3,0 []", "after-edit 3,0 [-1]"));
    EXPECT_EQ(grid_.CurrentRow(), 3) << "the character of a Space that ticked begins no word";
}

TEST_F(GestureTest, OtherKeysAndClicksEndTheWord) {
    Name({"Mailbox", "Inbox", "Notes", "Tasks", "", "Nothing"});
    const auto typeAfter = [&](const std::function<void()>& something) {
        grid_.SetCurrentRow(1);
        Type(U"i");
        something();
        Type(U"n");
        return grid_.CurrentRow();
    };
    EXPECT_EQ(typeAfter([] {}), 2) << "the word is in";
    Wait();
    EXPECT_EQ(typeAfter([&] { Press(GridKey::Down); }), 6);
    EXPECT_EQ(typeAfter([&] { Press(GridKey::ScrollDown); }), 3);
    EXPECT_EQ(typeAfter([&] { Press(GridKey::CopyName); }), 3);
    EXPECT_EQ(typeAfter([&] { Type(U"+"); }), 3);
    EXPECT_EQ(typeAfter([&] { gestures_.Press(4, GridPart::Row, false); }), 6);
}

TEST_F(GestureTest, CharactersThatWriteNothingMeanNothing) {
    Name({"Mailbox", "Inbox"});
    grid_.SetCurrentRow(1);
    for (const char32_t character : {U'\0', U'\x03', U'\b', U'\t', U'\r', U'\x1B', U'\x7F', U'\u0085'})
        gestures_.Type(character);
    Type(U"i");
    EXPECT_EQ(grid_.CurrentRow(), 2) << "none of them began a word";
}

TEST_F(GestureTest, ADisabledGridTakesNoKeyAndNoCharacter) {
    Name({"Mailbox", "Inbox"});
    grid_.SetCurrentRow(1);
    grid_.SetEnabled(false);
    for (const GridKey key : {GridKey::Parent, GridKey::ScrollDown, GridKey::CopyName, GridKey::Tick}) Press(key);
    Type(U"i*/");
    EXPECT_EQ(grid_.CurrentRow(), 1);
    EXPECT_THAT(view_.copied, IsEmpty());
    EXPECT_THAT(view_.scrolls, IsEmpty());
    EXPECT_THAT(events_.lines, IsEmpty());
}

TEST_F(GestureTest, ADigitWhoseQuestionSwitchesTheGridOffMovesNothing) {
    Name({"Mailbox", "Inbox", "2024"});
    Tick(2, "1");
    grid_.SetCurrentRow(2);
    Meanwhile([&] { grid_.SetEnabled(false); });
    Type(U"2");
    EXPECT_EQ(grid_.CurrentRow(), 2);
}

}  // namespace
}  // namespace foldertree
