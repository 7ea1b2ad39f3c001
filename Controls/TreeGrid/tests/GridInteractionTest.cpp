// GridInteractionTest: the order of notifications and writes behind each gesture, and what refuses it.
#include "interaction/GridInteraction.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace foldertree {
namespace {

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

    TreeGrid grid_;
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

}  // namespace
}  // namespace foldertree
