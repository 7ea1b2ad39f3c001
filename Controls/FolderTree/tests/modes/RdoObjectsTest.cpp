// RdoObjectsTest: what only the mode of the RDO objects does.
#include "modes/ModeTest.h"

namespace foldertree::testing {
namespace {

class RdoObjects : public ModeTest {
  protected:
    void LoadRdo(int32_t level = 0) { LoadMode(eISAccess_RDO_Objects, level); }
};

TEST_F(RdoObjects, TheTraceNamesTheModeBeforeEachStore) {
    LoadRdo();
    EXPECT_EQ(platform.Trace(), (Lines{"GetFolders: Refreshing view", "GetFolders: GetFolders: Mode: RDO_Obj",
                                       "GetFolders: GetFolders: Mode: RDO_Obj", "GetFolders: Done"}));
}

TEST_F(RdoObjects, ASearchFolderAndAllBelowItAreLeftOut) {
    FolderNamed("Inbox").kind = 2;
    LoadRdo();
    EXPECT_EQ(NamesOf(Grid()), (Lines{"Mailbox", "People", "Diary", "To do", "Archive", "Old mail"}));
}

TEST_F(RdoObjects, AConfigurationFolderHasNoRowInTheWalk) {
    FolderNamed("Zoo").messageClass = "IPM.My.CONFIGURATION";
    LoadRdo();
    EXPECT_EQ(Grid().FindRow("Zoo", 0, colName), -1);
}

TEST_F(RdoObjects, AConfigurationFolderHasARowBelowANodeThatIsOpened) {
    FolderNamed("Alpha").messageClass = "IPM.Configuration";
    LoadRdo(1);
    Open("Projects");
    EXPECT_EQ(Cell("Alpha", colRowKind), "Folder");
    EXPECT_EQ(Cell("Alpha", colItemType), "0");
}

TEST_F(RdoObjects, TheFoldersBelowAConfigurationFolderAreStillShown) {
    FolderNamed("Projects").messageClass = "IPM.Configuration";
    LoadRdo();
    EXPECT_EQ(Grid().FindRow("Projects", 0, colName), -1);
    EXPECT_EQ(Cell("Alpha", colPath), "Mailbox\\Inbox\\Projects\\Alpha");
    EXPECT_EQ(Grid().RowOutlineLevel(Row("Alpha")), 3);
}

TEST_F(RdoObjects, TheMarksOfAConfigurationFolderBeyondTheLimitFallOnTheHeaderRow) {
    FolderNamed("Projects").messageClass = "IPM.Configuration";
    LoadRdo(1);
    EXPECT_EQ(Grid().CellText(0, colIncomplete), "-1");
    EXPECT_EQ(Grid().NodeState(0), nodeCollapsed);
    EXPECT_EQ(Grid().CellText(1, colRowKind), "Dummy");
    EXPECT_EQ(Grid().RowOutlineLevel(1), 1);
    EXPECT_EQ(Grid().NodeState(1), nodeCollapsed);
    EXPECT_EQ(NamesOf(Grid()),
              (Lines{"", "Mailbox", "Inbox", "Zoo", "People", "Diary", "To do", "Archive", "Old mail"}));
}

TEST_F(RdoObjects, LevelOneReadsTheChildrenOfTheTopLevelFoldersAndMarksThoseBelow) {
    LoadRdo(1);
    EXPECT_EQ(Tree(), (Lines{"Mailbox[Store]", "  Inbox", "    Projects[unread][closed]", "      [Dummy]", "    Zoo",
                             "  People", "  Diary", "  To do", "Archive[Store]", "  Old mail"}));
}

TEST_F(RdoObjects, FoldersKeepTheOrderOfTheirCollection) {
    FolderNamed("Inbox").children = {MailFolder("Zebra", "0051"), MailFolder("Ant", "0052")};
    LoadRdo();
    EXPECT_LT(Row("Zebra"), Row("Ant"));
}

TEST_F(RdoObjects, AFolderKindOtherThanOrdinaryIsPassedOverByAnExpansion) {
    FolderNamed("Alpha").kind = 2;
    LoadRdo(1);
    Open("Projects");
    EXPECT_EQ(Grid().FindRow("Alpha", 0, colName), -1);
    EXPECT_EQ(Cell("Projects", colIncomplete), "");
}

TEST_F(RdoObjects, AnExpansionLooksUpStoreAndFolder) {
    LoadRdo(1);
    mail.log->Clear();
    Open("Projects");
    EXPECT_EQ(mail.log->Count("Session.GetStoreFromID(\"B2\")"), 1u);
    EXPECT_EQ(mail.log->Count("Session.GetFolderFromID(\"0011\")"), 1u);
}

TEST_F(RdoObjects, AFolderWithoutChildrenCostsSixCalls) {
    LoadRdo();
    EXPECT_EQ(mail.log->Count("Folder(Zoo)"), 6u);
    EXPECT_EQ(mail.log->Count("Folder(Projects)"), 7u) << "one with children is asked for them";
}

TEST_F(RdoObjects, WithoutASessionTheTreeIsEmptyAndTheErrorsAreTold) {
    Prepare(eISAccess_RDO_Objects);
    control->SetRDOSessionRef(nullptr);
    platform.ClearTrace();
    control->RefreshList();
    EXPECT_EQ(Grid().RowCount(), 1);
    ASSERT_EQ(platform.ErrorLines().size(), 1u);
    EXPECT_TRUE(platform.ErrorLines()[0].starts_with("Error in ctlFolderTree.GetFolders (?): [0x5B] "));
    ExpectIdle();
}

}  // namespace
}  // namespace foldertree::testing
