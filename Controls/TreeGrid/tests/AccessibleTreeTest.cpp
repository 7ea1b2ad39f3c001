// AccessibleTreeTest: what assistive programs are told of the grid and its rows when they ask.
#include "accessible/AccessibleTree.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "AccessibleFixture.h"

namespace foldertree::testing {
namespace {

using namespace sample;

class AccessibleTreeTest : public ::testing::Test, protected SmallTree {
  protected:
    std::vector<std::string> ChildNames() {
        std::vector<std::string> names;
        for (int32_t position = 0; position < tree.ChildCount(); ++position)
            names.push_back(tree.RowName(tree.RowAt(position)));
        return names;
    }
    void Tick(int32_t row, std::string_view number) {
        grid.SetCellText(row, colSel, "-1");
        grid.SetCellText(row, colIndex, number);
    }
};

TEST_F(AccessibleTreeTest, TheGridIsNamedByItsContainerElseByItsColumnElseFolders) {
    host.name = "Backup folders";
    EXPECT_EQ(tree.Name(), "Backup folders");
    host.name.clear();
    EXPECT_EQ(tree.Name(), "Folder");
    grid.SetCellText(0, colName, "");
    EXPECT_EQ(tree.Name(), "Folders");
}

TEST_F(AccessibleTreeTest, TheDescriptionIsTheCaptionsOfTheShownColumnsFromTheLeft) {
    EXPECT_EQ(tree.Description(), "Select, No., Folder");
    grid.SetColHidden(colIndex, true);
    EXPECT_EQ(tree.Description(), "Select, Folder");
    grid.SetCellText(0, colSel, "");
    EXPECT_EQ(tree.Description(), "Folder");
}

TEST_F(AccessibleTreeTest, TheGridHasTheFocusWhileItsWindowHasAndIsUnavailableWhileDisabled) {
    EXPECT_EQ(tree.State(), AccessibleState());
    view.focused = true;
    EXPECT_TRUE(tree.State().focused);
    EXPECT_FALSE(tree.State().unavailable);
    grid.SetEnabled(false);
    EXPECT_TRUE(tree.State().unavailable);
    grid.SetEnabled(true);
    host.enabled = false;
    EXPECT_TRUE(tree.State().unavailable);
}

TEST_F(AccessibleTreeTest, TheChildrenAreTheRowsOutsideClosedNodesInTheirOrder) {
    EXPECT_EQ(ChildNames(), (std::vector<std::string>{"Mailbox", "Inbox", "Customers", "Tasks", "Trash"}));
    grid.SetNodeState(tasks, nodeExpanded);
    EXPECT_EQ(ChildNames(), (std::vector<std::string>{"Mailbox", "Inbox", "Customers", "Tasks", "", "Trash"}));
    grid.SetNodeState(mailbox, nodeCollapsed);
    EXPECT_EQ(ChildNames(), (std::vector<std::string>{"Mailbox"}));
    EXPECT_EQ(tree.RowAt(1), 0);
    EXPECT_EQ(tree.RowAt(-1), 0);
}

TEST_F(AccessibleTreeTest, AChildsNumberStaysWithItsRowWhenOthersComeAndGo) {
    const int32_t id = tree.IdOf(trash);
    grid.AddRow("", inbox);
    EXPECT_EQ(tree.RowOf(id), trash + 1);
    EXPECT_EQ(tree.IdOf(trash + 1), id);
    grid.RemoveRow(mailbox);
    grid.RemoveRow(mailbox);
    EXPECT_EQ(tree.RowOf(id), trash - 1);
    EXPECT_EQ(tree.RowName(tree.RowOf(id)), "Trash");
}

TEST_F(AccessibleTreeTest, AChildsNumberIsNeverGivenToAnotherRow) {
    std::set<int32_t> given;
    for (int time = 0; time < 2000; ++time) {
        const int32_t row = AddTestRow(grid, 1, "New");
        const int32_t id = tree.IdOf(row);
        EXPECT_GT(id, 0);
        EXPECT_TRUE(given.insert(id).second) << id;
        grid.RemoveRow(row);
        EXPECT_EQ(tree.RowOf(id), 0);
    }
}

TEST_F(AccessibleTreeTest, NumbersOfATreeThatWasEmptiedAreOver) {
    const int32_t id = tree.IdOf(inbox);
    grid.SetRowCount(1);
    EXPECT_EQ(tree.RowOf(id), 0);
    const int32_t row = AddTestRow(grid, 0, "Another", rowKind::store);
    EXPECT_EQ(tree.RowOf(id), 0);
    EXPECT_NE(tree.IdOf(row), id);
}

TEST_F(AccessibleTreeTest, NumbersThatWereNotGivenOutNameNoRow) {
    tree.IdOf(inbox);
    for (const int32_t id : {0, -1, 2, 1'000'000, INT32_MAX, INT32_MIN}) EXPECT_EQ(tree.RowOf(id), 0) << id;
}

TEST_F(AccessibleTreeTest, ARowThatBecameAFixedOneIsNoChild) {
    const int32_t id = tree.IdOf(mailbox);
    grid.SetFixedRowCount(2);
    EXPECT_EQ(tree.RowOf(id), 0);
}

TEST_F(AccessibleTreeTest, ARowIsToldByItsNameAndItsLevel) {
    EXPECT_EQ(tree.RowName(inbox), "Inbox");
    EXPECT_EQ(tree.RowValue(mailbox), "0");
    EXPECT_EQ(tree.RowValue(customers), "2");
    EXPECT_EQ(tree.RowName(placeholder), "");
}

TEST_F(AccessibleTreeTest, ALongNameIsToldWhole) {
    const std::string name = std::string(65536, 'x') + "end";
    grid.SetCellText(inbox, colName, name);
    EXPECT_EQ(tree.RowName(inbox), name);
}

TEST_F(AccessibleTreeTest, ATickedRowsNumberIsToldWhereNumberingIsOn) {
    Tick(inbox, "3");
    EXPECT_EQ(tree.RowDescription(inbox), "");
    host.numbers = 12;
    EXPECT_EQ(tree.RowDescription(inbox), "No. 3 of 12");
    EXPECT_EQ(tree.RowDescription(trash), "");
    grid.SetCellText(inbox, colIndex, " ");
    EXPECT_EQ(tree.RowDescription(inbox), "");
    grid.SetCellText(inbox, colIndex, " 4 ");
    EXPECT_EQ(tree.RowDescription(inbox), "No. 4 of 12");
    grid.SetCellText(inbox, colSel, "0");
    EXPECT_EQ(tree.RowDescription(inbox), "") << "a number that is left over from a tick";
}

TEST_F(AccessibleTreeTest, TheCursorsRowIsSelectedAndHasTheFocusWhileTheGridHas) {
    EXPECT_EQ(tree.CursorRow(), 0);
    grid.SetCurrentRow(inbox);
    EXPECT_TRUE(tree.RowState(inbox).selected);
    EXPECT_FALSE(tree.RowState(inbox).focused);
    EXPECT_FALSE(tree.RowState(trash).selected);
    view.focused = true;
    EXPECT_TRUE(tree.RowState(inbox).focused);
    EXPECT_FALSE(tree.RowState(trash).focused);
}

TEST_F(AccessibleTreeTest, ACursorInsideAClosedNodeIsTheNodes) {
    grid.SetCurrentRow(customers);
    grid.SetNodeState(inbox, nodeCollapsed);
    EXPECT_EQ(tree.CursorRow(), inbox);
    EXPECT_TRUE(tree.RowState(inbox).selected);
    EXPECT_FALSE(tree.RowState(customers).selected);
}

TEST_F(AccessibleTreeTest, StatesTellOfTicksNodesViewAndControl) {
    AccessibleState expected;
    expected.selectable = true;
    EXPECT_EQ(tree.RowState(customers), expected);
    expected.checked = true;
    Tick(customers, "1");
    EXPECT_EQ(tree.RowState(customers), expected);
    expected.unavailable = true;
    grid.SetEnabled(false);
    EXPECT_EQ(tree.RowState(customers), expected);
    view.lastInView = inbox;
    expected.offscreen = true;
    EXPECT_EQ(tree.RowState(customers), expected);

    EXPECT_TRUE(tree.RowState(mailbox).expanded);
    EXPECT_FALSE(tree.RowState(mailbox).collapsed);
    EXPECT_TRUE(tree.RowState(tasks).collapsed);
    EXPECT_FALSE(tree.RowState(tasks).expanded);
    EXPECT_FALSE(tree.RowState(trash).expanded) << "a node with nothing below it";
}

TEST_F(AccessibleTreeTest, ARowInsideAClosedNodeIsInvisibleAndNotOffscreen) {
    view.lastInView = 0;
    AccessibleState expected;
    expected.selectable = expected.invisible = true;
    EXPECT_EQ(tree.RowState(placeholder), expected);
    EXPECT_EQ(tree.RowAction(placeholder), AccessibleAction::None);
    for (const auto step :
         {AccessibleStep::Next, AccessibleStep::Previous, AccessibleStep::Parent, AccessibleStep::FirstChild})
        EXPECT_EQ(tree.StepFrom(placeholder, step), 0);
}

TEST_F(AccessibleTreeTest, TheActionIsTheTickWhereThereMayBeOneElseTheNode) {
    EXPECT_EQ(tree.RowAction(inbox), AccessibleAction::Check);
    Tick(inbox, "1");
    EXPECT_EQ(tree.RowAction(inbox), AccessibleAction::Uncheck);
    EXPECT_EQ(tree.RowAction(mailbox), AccessibleAction::Collapse);
    grid.SetNodeState(mailbox, nodeCollapsed);
    EXPECT_EQ(tree.RowAction(mailbox), AccessibleAction::Expand);
    grid.SetNodeState(mailbox, nodeExpanded);
    grid.SetNodeState(tasks, nodeExpanded);
    EXPECT_EQ(tree.RowAction(placeholder), AccessibleAction::None);
    grid.SetCellFormat(CellSetting::BackColor, trash, colSel, colors::buttonFace);
    EXPECT_EQ(tree.RowAction(trash), AccessibleAction::None) << "no tick, and nothing below it";
}

TEST_F(AccessibleTreeTest, ActionsHaveTheirWords) {
    EXPECT_EQ(TextOf(AccessibleAction::Check), "Check");
    EXPECT_EQ(TextOf(AccessibleAction::Uncheck), "Uncheck");
    EXPECT_EQ(TextOf(AccessibleAction::Expand), "Expand");
    EXPECT_EQ(TextOf(AccessibleAction::Collapse), "Collapse");
    EXPECT_EQ(TextOf(AccessibleAction::None), "");
}

TEST_F(AccessibleTreeTest, StepsLeadToNeighboursParentAndFirstChild) {
    EXPECT_EQ(tree.StepFrom(customers, AccessibleStep::Next), tasks);
    EXPECT_EQ(tree.StepFrom(tasks, AccessibleStep::Next), trash) << "over what the node hides";
    EXPECT_EQ(tree.StepFrom(trash, AccessibleStep::Next), 0);
    EXPECT_EQ(tree.StepFrom(trash, AccessibleStep::Previous), tasks);
    EXPECT_EQ(tree.StepFrom(mailbox, AccessibleStep::Previous), 0);
    EXPECT_EQ(tree.StepFrom(trash, AccessibleStep::Parent), mailbox);
    EXPECT_EQ(tree.StepFrom(customers, AccessibleStep::Parent), inbox);
    EXPECT_EQ(tree.StepFrom(mailbox, AccessibleStep::Parent), 0);
    EXPECT_EQ(tree.StepFrom(mailbox, AccessibleStep::FirstChild), inbox);
    EXPECT_EQ(tree.StepFrom(tasks, AccessibleStep::FirstChild), 0) << "closed";
    EXPECT_EQ(tree.StepFrom(trash, AccessibleStep::FirstChild), 0);
}

TEST_F(AccessibleTreeTest, PlacesAmongSiblingsCountTheRowsBelowOneParent) {
    const auto place = [this](int32_t row) { return std::pair(tree.PositionInSet(row), tree.SizeOfSet(row)); };
    EXPECT_EQ(place(mailbox), std::pair(1, 1));
    EXPECT_EQ(place(inbox), std::pair(1, 3));
    EXPECT_EQ(place(tasks), std::pair(2, 3));
    EXPECT_EQ(place(trash), std::pair(3, 3));
    EXPECT_EQ(place(customers), std::pair(1, 1));
    grid.RemoveRow(tasks);
    EXPECT_EQ(place(placeholder - 1), std::pair(2, 2)) << "it lies below the inbox now";
    grid.SetRowOutlineLevel(customers, 1);
    EXPECT_EQ(place(inbox), std::pair(1, 3));
}

TEST_F(AccessibleTreeTest, AGridWithoutColumnsForItHasNoNamesTicksOrNumbers) {
    TreeGrid bare{GridSchema{.columns = 1, .keyParts = {}}};
    const RowHasBox none;
    AccessibleTree its(bare, none, view, NoAccessibleHost());
    const int32_t row = bare.AddRow("text");
    EXPECT_EQ(its.Name(), "Folders");
    EXPECT_EQ(its.Description(), "");
    EXPECT_EQ(its.RowName(row), "");
    EXPECT_EQ(its.RowDescription(row), "");
    EXPECT_FALSE(its.RowState(row).checked);
    EXPECT_EQ(its.RowAction(row), AccessibleAction::None);
}

TEST_F(AccessibleTreeTest, TickedRowsAreCountedThroughAllThatHappensToThem) {
    EXPECT_EQ(grid.TickedCount(), 0);
    Tick(inbox, "1");
    Tick(trash, "2");
    grid.SetCellText(trash, colSel, "True");
    EXPECT_EQ(grid.TickedCount(), 2);
    grid.SetCellText(inbox, colSel, "False");
    EXPECT_EQ(grid.TickedCount(), 1);
    grid.RemoveRow(inbox);
    EXPECT_EQ(grid.TickedCount(), 1);
    grid.SetRowCount(3);
    EXPECT_EQ(grid.TickedCount(), 0);
    Tick(2, "1");
    grid.SetRowCount(1);
    EXPECT_EQ(grid.TickedCount(), 0);
}

// ---- Many rows

TEST(AccessibleTreeOfAMillionRows, KeepsNothingUntilAskedAndAnswersFromEverywhere) {
    constexpr int32_t stores = 10;
    constexpr int32_t folders = 100'000;  // below each store, all of them siblings
    TreeGrid grid{sample::schema};
    grid.SetRowCount(1 + stores * folders);
    for (int32_t row = 1; row < grid.RowCount(); ++row) {
        const bool store = (row - 1) % folders == 0;
        grid.SetIsNode(row, true);
        grid.SetRowOutlineLevel(row, store ? 0 : 1);
    }
    const RowHasBox hasBox;
    const FakeView view;
    AccessibleTree tree(grid, hasBox, view, NoAccessibleHost());
    EXPECT_EQ(tree.MemoryUse(), 0u);
    EXPECT_EQ(tree.ChildCount(), stores * folders);

    for (int32_t row = 2; row < grid.RowCount(); row += 7919) {
        const int32_t inStore = (row - 1) % folders;
        if (inStore == 0) continue;
        ASSERT_EQ(tree.StepFrom(row, AccessibleStep::Parent), row - inStore);
        ASSERT_EQ(tree.PositionInSet(row), inStore);
        ASSERT_EQ(tree.SizeOfSet(row), folders - 1);
        ASSERT_EQ(tree.RowOf(tree.IdOf(row)), row);
    }
    EXPECT_LT(tree.MemoryUse(), 64'000u) << "places among siblings take no memory for each row";

    for (int32_t position = 0; position < tree.ChildCount(); ++position) tree.IdOf(tree.RowAt(position));
    EXPECT_LT(tree.MemoryUse(), size_t{stores} * folders * 50);
    grid.SetRowCount(1);
    grid.DeliverChanges();
    EXPECT_LT(tree.MemoryUse(), 64'000u) << "numbers of rows that have gone are forgotten";
}

}  // namespace
}  // namespace foldertree::testing
