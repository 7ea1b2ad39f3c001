// OutlineCollapseTest: folding the tree to what matters.
#include "modes/ModeTest.h"

namespace foldertree::testing {
namespace {

class OutlineCollapse : public ModeTest {
  protected:
    OutlineCollapse() {
        mail.stores = {
            {"Mailbox",
             "B2",
             true,
             {MailFolder("A", "0001",
                         {MailFolder("A1", "0002", {MailFolder("A11", "0003"), MailFolder("A12", "0004")}),
                          MailFolder("A2", "0005", {MailFolder("A21", "0006")})}),
              MailFolder("B", "0007", {TypedFolder("B1", "0008", 3, "IPF.Task"), MailFolder("B2", "0009")})}},
            {"Other", "C3", false, {MailFolder("C", "0010", {MailFolder("C1", "0011")}), MailFolder("End", "0012")}}};
        LoadMode(eISAccess_RDO_Objects);
    }
    void TickOnly(std::string_view name) { Grid().SetCellText(Row(name), colSel, "-1"); }
    void CloseEveryRow() {
        for (int32_t row = 1; row < Grid().RowCount(); ++row) Grid().SetNodeState(row, nodeCollapsed);
    }
    /// The names of the rows that are expanded, leaves too; without the last row, which is never looked at.
    Lines Opened() {
        Lines names;
        for (int32_t row = 1; row < Grid().RowCount() - 1; ++row)
            if (Grid().NodeState(row) == nodeExpanded) names.push_back(Grid().CellText(row, colName));
        return names;
    }
};

TEST_F(OutlineCollapse, AStoreWithoutTickedFoldersEndsCollapsed) {
    control->CollapseToSelection();
    EXPECT_EQ(Grid().NodeState(Row("Mailbox")), nodeCollapsed);
    EXPECT_EQ(Grid().NodeState(Row("Other")), nodeCollapsed);
}

TEST_F(OutlineCollapse, TheAncestorsOfATickedFolderAreExpandedAndAllOtherBranchesCollapsed) {
    TickOnly("A12");
    const Lines wanted{"Mailbox", "A", "A1", "A11"};  // the last one because the row behind it is ticked
    control->CollapseToSelection();
    EXPECT_EQ(Opened(), wanted) << "of an open tree";
    CloseEveryRow();
    control->CollapseToSelection();
    EXPECT_EQ(Opened(), wanted) << "of a closed tree";
}

TEST_F(OutlineCollapse, ARowWithoutDeeperRowsStaysOpenOnlyWhenTheNextRowIsTicked) {
    TickOnly("A12");
    control->CollapseToSelection();
    EXPECT_EQ(Grid().NodeState(Row("A11")), nodeExpanded) << "the row right after it is ticked";
    EXPECT_EQ(Grid().NodeState(Row("A12")), nodeCollapsed) << "its own tick does not count";
}

TEST_F(OutlineCollapse, ATickedRowRightBehindABranchKeepsItOpen) {
    TickOnly("B");
    control->CollapseToSelection();
    EXPECT_EQ(Grid().NodeState(Row("A")), nodeExpanded);
    EXPECT_EQ(Grid().NodeState(Row("A2")), nodeExpanded);
    EXPECT_EQ(Grid().NodeState(Row("A1")), nodeCollapsed);
}

TEST_F(OutlineCollapse, TheLastRowOfTheGridIsNeverLookedAt) {
    TickOnly("End");
    control->CollapseToSelection();
    EXPECT_EQ(Grid().NodeState(Row("Other")), nodeCollapsed);
}

TEST_F(OutlineCollapse, CollapseToTypeLeavesOnlyTheBranchesOfThatTypeOpen) {
    // The task folder is the first one in its branch, so the row before it is the branch itself.
    const Lines wanted{"Mailbox", "B"};
    control->CollapseToType(FTITaskItem);
    EXPECT_EQ(Opened(), wanted) << "of an open tree";
    CloseEveryRow();
    control->CollapseToType(FTITaskItem);
    EXPECT_EQ(Opened(), wanted) << "of a closed tree";
}

TEST_F(OutlineCollapse, TicksSelectionAndRowsStayAsTheyAre) {
    Tick("A12");
    const Lines keys = SelectedKeys();
    const Lines names = NamesOf(Grid());
    platform.changed = 0;
    control->CollapseToSelection();
    control->CollapseToType(FTITaskItem);
    EXPECT_EQ(SelectedKeys(), keys);
    EXPECT_EQ(NamesOf(Grid()), names);
    EXPECT_EQ(platform.changed, 0);
}

TEST_F(OutlineCollapse, AnEmptyTreeIsNoError) {
    Grid().SetRowCount(1);
    control->CollapseToSelection();
    control->CollapseToType(FTIMailItem);
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(OutlineCollapse, ALongListOfFoldersIsFoldedQuickly) {
    Grid().SetRowCount(1);
    constexpr int32_t rows = 100000;
    Grid().SetRowCount(1 + rows);
    for (int32_t row = 2; row <= rows; ++row) Grid().SetRowOutlineLevel(row, 1);
    Grid().SetCellText(rows / 2, colSel, "-1");
    control->CollapseToSelection();
    EXPECT_EQ(Grid().NodeState(1), nodeExpanded);
    EXPECT_EQ(Grid().NodeState(rows / 2), nodeCollapsed);
}

TEST_F(OutlineCollapse, ATreeMayBeAsDeepAsLevelsGo) {
    constexpr int32_t levels = 32000;
    Grid().SetRowCount(1);
    Grid().SetRowCount(2 + levels);
    for (int32_t row = 1; row <= levels; ++row) Grid().SetRowOutlineLevel(row, static_cast<int16_t>(row - 1));
    Grid().SetCellText(levels / 2, colSel, "-1");
    control->CollapseToSelection();
    EXPECT_EQ(Grid().NodeState(1), nodeExpanded);
    EXPECT_EQ(Grid().NodeState(levels / 2 - 1), nodeExpanded);
    EXPECT_EQ(Grid().NodeState(levels / 2), nodeCollapsed);
    control->CollapseToType(FTITaskItem);
    EXPECT_EQ(Grid().NodeState(1), nodeCollapsed);
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

}  // namespace
}  // namespace foldertree::testing
