// AccessibleActsTest: what assistive programs do is what the user's gesture does, notifications and refusals included.
#include "accessible/AccessibleActs.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "AccessibleFixture.h"

namespace foldertree::testing {
namespace {

using namespace sample;
using Log = std::vector<std::string>;

class Notifications : public GridEvents {
  public:
    Log lines;
    std::function<void(bool& cancel)> meanwhile = [](bool&) {};

    void fgd_BeforeEdit(int32_t row, int32_t, bool& cancel) override {
        lines.push_back("before-edit " + std::to_string(row));
        meanwhile(cancel);
    }
    void fgd_ValidateEdit(int32_t row, int32_t, bool& cancel) override {
        lines.push_back("validate-edit " + std::to_string(row));
        meanwhile(cancel);
    }
    void fgd_AfterEdit(int32_t row, int32_t) override { lines.push_back("after-edit " + std::to_string(row)); }
    void fgd_BeforeCollapse(int32_t row, int16_t state, bool& cancel) override {
        lines.push_back("before-collapse " + std::to_string(row) + " " + std::to_string(state));
        meanwhile(cancel);
    }
    void fgd_DblClick() override { lines.push_back("double-click"); }
};

/// A number box in which something has been typed.
class TypedNumber : public NumberBox {
  public:
    std::string text;
    std::string Text() const override { return text; }
    bool Modified() const override { return true; }
    void Type(const std::string& typed) override { text = typed; }
    void SelectAll() override {}
};

class Screen : public GridView {
  public:
    std::vector<int32_t> broughtIntoView;
    std::optional<TypedNumber> box;

    bool Shown() const override { return true; }
    int32_t PageRows() const override { return 3; }
    void BringIntoView(int32_t row) override { broughtIntoView.push_back(row); }
    void Scroll(GridScroll) override {}
    void Copy(const std::string&) override {}
    void OpenNumberBox(int32_t, const std::string& text) override { box.emplace().text = text; }
    NumberBox* OpenedNumberBox() override { return box ? &*box : nullptr; }
    void CloseNumberBox() override { box.reset(); }
};

class AccessibleActsTest : public ::testing::Test, protected SmallTree {
  protected:
    void Refuse() {
        events_.meanwhile = [](bool& cancel) { cancel = true; };
    }
    void Meanwhile(std::function<void()> action) {
        events_.meanwhile = [action = std::move(action)](bool&) { action(); };
    }
    ActResult DoAction(int32_t row) { return acts_.DoAction(tree.IdOf(row)); }

    Notifications events_;
    Screen screen_;
    GridInteraction interaction_{grid, events_, screen_, HasTestBox};
    AccessibleActs acts_{grid, tree, interaction_, screen_, host};
};

TEST_F(AccessibleActsTest, CheckAndUncheckAreAClickOnTheBox) {
    EXPECT_EQ(DoAction(inbox), ActResult::Done);
    EXPECT_EQ(grid.CellText(inbox, colSel), "-1");
    EXPECT_EQ(grid.CurrentRow(), inbox);
    EXPECT_EQ(DoAction(inbox), ActResult::Done);
    EXPECT_EQ(grid.CellText(inbox, colSel), "0");
    const Log byActs = std::exchange(events_.lines, {});
    interaction_.Press(inbox, GridPart::Box, false);
    interaction_.Press(inbox, GridPart::Box, false);
    EXPECT_EQ(byActs, events_.lines);
}

TEST_F(AccessibleActsTest, ExpandAndCollapseAreAClickOnTheSign) {
    EXPECT_EQ(DoAction(mailbox), ActResult::Done);
    EXPECT_EQ(grid.NodeState(mailbox), nodeCollapsed);
    EXPECT_EQ(DoAction(mailbox), ActResult::Done);
    EXPECT_EQ(grid.NodeState(mailbox), nodeExpanded);
    EXPECT_EQ(events_.lines, (Log{"before-collapse 1 2", "before-collapse 1 0"}));
}

TEST_F(AccessibleActsTest, ARefusedGestureIsARefusedAct) {
    Refuse();
    EXPECT_EQ(DoAction(inbox), ActResult::Refused);
    EXPECT_EQ(grid.CellText(inbox, colSel), "");
    EXPECT_EQ(DoAction(mailbox), ActResult::Refused);
    EXPECT_EQ(grid.NodeState(mailbox), nodeExpanded);
}

TEST_F(AccessibleActsTest, ADisabledGridRefusesAndTellsNobody) {
    grid.SetEnabled(false);
    EXPECT_EQ(DoAction(inbox), ActResult::Refused);
    EXPECT_EQ(acts_.Select(tree.IdOf(inbox)), ActResult::Refused);
    grid.SetEnabled(true);
    host.enabled = false;
    EXPECT_EQ(DoAction(inbox), ActResult::Refused);
    EXPECT_EQ(acts_.Select(tree.IdOf(inbox)), ActResult::Refused);
    EXPECT_EQ(grid.CurrentRow(), 0);
    EXPECT_TRUE(events_.lines.empty());
}

TEST_F(AccessibleActsTest, ABusyGridRefusesWhateverAClickWouldDo) {
    host.busy = true;
    for (const int32_t row : {mailbox, inbox, trash}) EXPECT_EQ(DoAction(row), ActResult::Busy);
    EXPECT_EQ(grid.CurrentRow(), 0);
    EXPECT_TRUE(events_.lines.empty());
}

TEST_F(AccessibleActsTest, ARowThatHasGoneIsNoRowAlsoWhileBusy) {
    const int32_t id = tree.IdOf(inbox);
    grid.RemoveRow(inbox);
    EXPECT_EQ(acts_.DoAction(id), ActResult::NoRow);
    EXPECT_EQ(acts_.Select(id), ActResult::NoRow);
    host.busy = true;
    EXPECT_EQ(acts_.DoAction(id), ActResult::NoRow);
    EXPECT_EQ(acts_.DoAction(0), ActResult::NoRow);
    EXPECT_TRUE(events_.lines.empty());
}

TEST_F(AccessibleActsTest, ARowInsideAClosedNodeCannotBeActedOn) {
    EXPECT_EQ(DoAction(placeholder), ActResult::Refused);
    EXPECT_EQ(acts_.Select(tree.IdOf(placeholder)), ActResult::Refused);
    EXPECT_EQ(grid.CurrentRow(), 0);
}

TEST_F(AccessibleActsTest, ARowWithNothingToDoDoesNothing) {
    grid.SetNodeState(tasks, nodeExpanded);
    EXPECT_EQ(DoAction(placeholder), ActResult::NoAction);
    EXPECT_EQ(grid.CurrentRow(), 0);
    EXPECT_TRUE(events_.lines.empty());
}

TEST_F(AccessibleActsTest, SelectingMovesTheCursorAndTheViewAndNotifiesNobody) {
    EXPECT_EQ(acts_.Select(tree.IdOf(trash)), ActResult::Done);
    EXPECT_EQ(grid.CurrentRow(), trash);
    EXPECT_EQ(screen_.broughtIntoView, (std::vector<int32_t>{trash}));
    EXPECT_TRUE(events_.lines.empty());
}

TEST_F(AccessibleActsTest, WhatIsBeingTypedIsOfferedFirst) {
    grid.SetCellText(inbox, colSel, "-1");
    interaction_.Number().Open(inbox);
    ASSERT_NE(screen_.OpenedNumberBox(), nullptr);
    screen_.box->text = "7";
    events_.lines.clear();
    EXPECT_EQ(acts_.Select(tree.IdOf(trash)), ActResult::Done);
    EXPECT_EQ(events_.lines, (Log{"validate-edit 2", "after-edit 2"}));
    EXPECT_EQ(grid.CellText(inbox, colIndex), "7");
    EXPECT_EQ(screen_.OpenedNumberBox(), nullptr);
}

TEST_F(AccessibleActsTest, WhatIsOfferedFirstMayTakeTheRowAway) {
    for (const bool selecting : {true, false}) {
        const int32_t row = AddTestRow(grid, 1, "Last");
        const int32_t id = tree.IdOf(row);
        grid.SetCellText(inbox, colSel, "-1");
        events_.meanwhile = [](bool&) {};
        interaction_.Number().Open(inbox);
        Meanwhile([&] {
            if (grid.RowCount() > row) grid.RemoveRow(row);
        });
        EXPECT_EQ(selecting ? acts_.Select(id) : acts_.DoAction(id), ActResult::NoRow);
    }
}

TEST_F(AccessibleActsTest, ALoadThatWhatIsOfferedStartsIsBusyToo) {
    grid.SetCellText(inbox, colSel, "-1");
    interaction_.Number().Open(inbox);
    Meanwhile([&] { host.busy = true; });
    EXPECT_EQ(DoAction(trash), ActResult::Busy);
    EXPECT_EQ(grid.CellText(trash, colSel), "");
}

TEST_F(AccessibleActsTest, TheRowMayGoWhileItIsAskedFor) {
    Meanwhile([&] { grid.SetRowCount(1); });
    EXPECT_EQ(DoAction(inbox), ActResult::Refused);
    EXPECT_EQ(tree.ChildCount(), 0);
}

TEST_F(AccessibleActsTest, ANodeThatIsReadWhileItOpensIsOpened) {
    grid.SetNodeState(mailbox, nodeCollapsed);
    Meanwhile([&] { AddTestRow(grid, 1, "Read just now"); });
    EXPECT_EQ(DoAction(mailbox), ActResult::Done);
    EXPECT_EQ(grid.NodeState(mailbox), nodeExpanded);
}

}  // namespace
}  // namespace foldertree::testing
