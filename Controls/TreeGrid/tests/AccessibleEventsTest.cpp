// AccessibleEventsTest: what assistive programs are told of by themselves, and how little of it.
#include "accessible/AccessibleEvents.h"

#include <gtest/gtest.h>

#include "AccessibleFixture.h"

namespace foldertree::testing {
namespace {

using namespace sample;
using Kind = AccessibleEvent::Kind;
using Events = std::vector<AccessibleEvent>;

/// Rows are named in the expectations, not numbers.
std::string Shown(const TreeGrid& grid, AccessibleTree& tree, const Events& events) {
    static constexpr std::string_view kinds[] = {"reorder", "selection", "focus", "state", "description"};
    std::string text;
    for (const AccessibleEvent& event : events) {
        if (!text.empty()) text += ", ";
        text += kinds[static_cast<size_t>(event.kind)];
        if (event.child != AccessibleEvent::grid) text += " " + grid.CellText(tree.RowOf(event.child), colName);
    }
    return text;
}

class AccessibleEventsTest : public ::testing::Test, protected SmallTree, private TreeGridObserver {
  protected:
    AccessibleEventsTest() { grid.AddObserver(this); }
    ~AccessibleEventsTest() override { grid.RemoveObserver(this); }

    std::string Frame() {
        grid.DeliverChanges();
        return Shown(grid, tree, events_.Take());
    }
    /// Rows enough to be more than anybody is told of one by one.
    void AddMany(int32_t rows) {
        for (int32_t each = 0; each < rows; ++each) AddTestRow(grid, 1, "Row " + std::to_string(each));
        Frame();
    }
    void Tick(int32_t row) { grid.SetCellText(row, colSel, grid.CellValue(row, colSel) != 0 ? "0" : "-1"); }

    AccessibleEvents events_{grid, tree, view, host};

  private:
    void GridChanged(const GridChanges& changes) noexcept override { events_.Note(changes); }
};

TEST_F(AccessibleEventsTest, NothingHappensWithoutAChange) {
    EXPECT_FALSE(events_.Pending());
    EXPECT_EQ(Frame(), "");
}

TEST_F(AccessibleEventsTest, ACursorThatMovesIsTheSelectionAndTheFocusOnlyOfAFocusedGrid) {
    grid.SetCurrentRow(inbox);
    EXPECT_EQ(Frame(), "selection Inbox");
    view.focused = true;
    grid.SetCurrentRow(trash);
    EXPECT_EQ(Frame(), "selection Trash, focus Trash");
    EXPECT_EQ(Frame(), "");
}

TEST_F(AccessibleEventsTest, ACursorThatComesBackBeforeTheFrameHasNotMoved) {
    grid.SetCurrentRow(inbox);
    Frame();
    grid.SetCurrentRow(trash);
    grid.DeliverChanges();
    grid.SetCurrentRow(inbox);
    EXPECT_EQ(Frame(), "");
}

TEST_F(AccessibleEventsTest, TheFocusThatComesIsTheCursorsRows) {
    view.focused = true;
    events_.FocusCame();
    EXPECT_EQ(Frame(), "") << "there is no cursor";
    grid.SetCurrentRow(inbox);
    Frame();
    events_.FocusCame();
    EXPECT_TRUE(events_.Pending());
    EXPECT_EQ(Frame(), "focus Inbox");
    events_.FocusCame();
    view.focused = false;
    EXPECT_EQ(Frame(), "") << "it left again before the frame";
}

TEST_F(AccessibleEventsTest, ATickIsAStateAndItsNumberADescription) {
    Tick(inbox);
    EXPECT_EQ(Frame(), "state Inbox");
    grid.SetCellText(inbox, colIndex, "1");
    EXPECT_EQ(Frame(), "description Inbox");
    Tick(inbox);
    grid.SetCellText(inbox, colIndex, " ");
    Tick(trash);
    EXPECT_EQ(Frame(), "state Inbox, description Inbox, state Trash");
}

TEST_F(AccessibleEventsTest, ATextThatReadsAsBeforeChangesNothing) {
    Tick(inbox);
    grid.SetCellText(inbox, colIndex, "1");
    Frame();
    grid.SetCellText(inbox, colSel, "True");
    grid.SetCellText(inbox, colIndex, "1 ");
    grid.SetCellText(trash, colSel, "False");
    grid.SetCellText(trash, colIndex, " ");
    EXPECT_EQ(Frame(), "");
}

TEST_F(AccessibleEventsTest, NamesAndLooksAreNotTold) {
    grid.SetCellText(inbox, colName, "Another");
    grid.SetCellFormat(CellSetting::BackColor, inbox, 0, trash, 3, 0xFFFF);
    EXPECT_EQ(Frame(), "");
}

TEST_F(AccessibleEventsTest, ANodeThatOpensIsOneStateWhateverComesIntoSight) {
    AddMany(100);
    grid.SetNodeState(mailbox, nodeCollapsed);
    EXPECT_EQ(Frame(), "state Mailbox");
    grid.SetNodeState(mailbox, nodeExpanded);
    EXPECT_EQ(Frame(), "state Mailbox");
}

TEST_F(AccessibleEventsTest, ACursorThatANodeSwallowsGoesToTheNode) {
    view.focused = true;
    grid.SetCurrentRow(customers);
    Frame();
    grid.SetNodeState(inbox, nodeCollapsed);
    EXPECT_EQ(Frame(), "selection Inbox, focus Inbox, state Inbox");
}

TEST_F(AccessibleEventsTest, UpTo32RowsAreToldOneByOneAndMoreAtOnce) {
    AddMany(200);
    const int32_t first = trash + 1;
    for (int32_t row = first; row < first + 32; ++row) Tick(row);
    grid.DeliverChanges();
    EXPECT_EQ(events_.Take().size(), 32u);
    for (int32_t row = first; row < first + 33; ++row) Tick(row);
    EXPECT_EQ(Frame(), "reorder");
    for (int32_t row = first; row < first + 33; ++row) {
        Tick(row);
        grid.DeliverChanges();
    }
    EXPECT_EQ(Frame(), "reorder") << "however many times changes are delivered before the frame";
    Tick(first);
    EXPECT_EQ(Frame(), "state Row 0") << "the next frame starts anew";
}

TEST_F(AccessibleEventsTest, ARowThatChangesManyTimesIsOneRow) {
    for (int time = 0; time < 101; ++time) {
        Tick(inbox);
        grid.DeliverChanges();
    }
    EXPECT_EQ(Frame(), "state Inbox");
}

TEST_F(AccessibleEventsTest, AHundredThousandTicksAtOnceAreOneEvent) {
    grid.SetRowCount(100'001);
    Frame();
    for (int32_t row = 1; row < grid.RowCount(); ++row) {
        grid.SetCellText(row, colSel, "-1");
        grid.SetCellText(row, colIndex, std::to_string(row));
    }
    EXPECT_EQ(Frame(), "reorder");
}

TEST_F(AccessibleEventsTest, RowsThatComeOrGoAreOneReorder) {
    for (int time = 0; time < 50; ++time) AddTestRow(grid, 1, "New");
    EXPECT_EQ(Frame(), "reorder");
    grid.RemoveRow(trash);
    EXPECT_EQ(Frame(), "reorder");
    grid.SetRowOutlineLevel(inbox, 2);
    EXPECT_EQ(Frame(), "reorder") << "a row elsewhere in the outline came and went, as its parents see it";
}

TEST_F(AccessibleEventsTest, TheFocusIsToldAgainWhereItsRowMoved) {
    view.focused = true;
    grid.SetCurrentRow(tasks);
    Frame();
    AddTestRow(grid, 1, "Below");
    EXPECT_EQ(Frame(), "reorder");
    grid.AddRow("", inbox);
    EXPECT_EQ(Frame(), "reorder, focus Tasks");
    view.focused = false;
    grid.RemoveRow(inbox);
    EXPECT_EQ(Frame(), "reorder");
}

TEST_F(AccessibleEventsTest, ACursorWhoseRowGoesIsToldWhereItStandsNow) {
    view.focused = true;
    grid.SetCurrentRow(customers);
    Frame();
    grid.RemoveRow(customers);
    EXPECT_EQ(Frame(), "reorder, selection Inbox, focus Inbox");
    grid.SetRowCount(1);
    EXPECT_EQ(Frame(), "reorder");
}

TEST_F(AccessibleEventsTest, RowsThatHaveGoneOrAreHiddenAreNotTold) {
    Tick(customers);
    Tick(trash);
    grid.RemoveRow(trash);
    grid.SetNodeState(inbox, nodeCollapsed);
    EXPECT_EQ(Frame(), "reorder, state Inbox");
}

TEST_F(AccessibleEventsTest, WhileALoadRunsNothingIsToldAndAfterItAllAtOnce) {
    view.focused = true;
    grid.SetCurrentRow(inbox);
    Frame();
    host.busy = true;
    for (int time = 0; time < 100; ++time) {
        AddTestRow(grid, 1, "Read");
        grid.SetCellText(grid.RowCount() - 1, colSel, "-1");
        grid.SetCurrentRow(trash);
        events_.FocusCame();
        EXPECT_EQ(Frame(), "");
    }
    EXPECT_TRUE(events_.Pending());
    host.busy = false;
    EXPECT_EQ(Frame(), "reorder, selection Trash, focus Trash");
    EXPECT_FALSE(events_.Pending());
}

TEST_F(AccessibleEventsTest, WhatNobodyCouldHearIsDropped) {
    AddTestRow(grid, 1, "New");
    grid.SetCurrentRow(trash);
    Tick(inbox);
    grid.DeliverChanges();
    events_.Drop();
    EXPECT_FALSE(events_.Pending());
    EXPECT_EQ(Frame(), "");
    grid.SetCurrentRow(inbox);
    EXPECT_EQ(Frame(), "selection Inbox");
}

}  // namespace
}  // namespace foldertree::testing
