// OutlookTest: what only the mode of the mail client's object model does.
#include "modes/ModeTest.h"

namespace foldertree::testing {
namespace {

class Outlook : public ModeTest {
  protected:
    void LoadOutlook(int32_t level = 0) { LoadMode(eISAccess_Outlook, level); }
};

TEST_F(Outlook, AStoreRowIsAFolderBoldAndAtLevelZero) {
    LoadOutlook();
    EXPECT_EQ(Cell("Mailbox", colRowKind), "Folder");
    EXPECT_TRUE(IsBold(Grid(), Row("Mailbox")));
    EXPECT_EQ(Grid().RowOutlineLevel(Row("Mailbox")), 0);
}

TEST_F(Outlook, TheTraceNamesTheModeOnce) {
    LoadOutlook();
    EXPECT_EQ(platform.Trace(),
              (Lines{"GetFolders: Refreshing view", "GetFolders: Mode: Outlook", "GetFolders: Done"}));
}

TEST_F(Outlook, LevelOneShowsTheTopLevelFoldersWithPlaceholders) {
    LoadOutlook(1);
    EXPECT_EQ(Tree(), (Lines{"Archive", "  Old mail", "Mailbox", "  Inbox[unread][closed]", "    [Dummy]", "  People",
                             "  Diary", "  To do"}));
}

TEST_F(Outlook, LevelTwoReadsChildrenAndGrandchildrenAndMarksThese) {
    LoadOutlook(2);
    EXPECT_EQ(Tree(), (Lines{"Archive", "  Old mail", "Mailbox", "  Inbox", "    Projects[unread][closed]",
                             "      [Dummy]", "    Zoo", "  People", "  Diary", "  To do"}));
}

TEST_F(Outlook, SearchAndConfigurationFoldersAreListedLikeAnyOther) {
    FolderNamed("Zoo").kind = 2;
    FolderNamed("Projects").messageClass = "IPM.Configuration";
    LoadOutlook();
    EXPECT_EQ(Cell("Zoo", colRowKind), "Folder");
    EXPECT_EQ(Cell("Projects", colItemType), "0");
}

TEST_F(Outlook, CollectionsAreReadByPosition) {
    LoadOutlook();
    EXPECT_EQ(mail.log->Count("_NewEnum"), 0u);
    EXPECT_EQ(mail.log->Count("Stores.Item("), 2u);
}

TEST_F(Outlook, AnExpansionUsesTheEntryIdentifierAlone) {
    LoadOutlook(1);
    mail.log->Clear();
    Open("Inbox");
    EXPECT_EQ(mail.log->Count("Namespace.GetFolderFromID(\"0001\")"), 1u);
}

TEST_F(Outlook, AFolderWithoutACollectionOfFoldersHasNone) {
    FolderNamed("Inbox").hasFolders = false;
    LoadOutlook();
    EXPECT_EQ(Grid().FindRow("Projects", 0, colName), -1);
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(Outlook, ACountThatPromisesTooMuchEndsTheFolderOnly) {
    FolderNamed("Inbox").count = 5;
    LoadOutlook();
    EXPECT_NE(Grid().FindRow("Zoo", 0, colName), -1);
    EXPECT_NE(Grid().FindRow("People", 0, colName), -1);
    ASSERT_EQ(platform.ErrorLines().size(), 1u);
    EXPECT_TRUE(platform.ErrorLines()[0].starts_with("Error in ctlFolderTree.GetFolders_Folder_OOM (?): [0x9] "));
}

TEST_F(Outlook, AFolderWithoutChildrenCostsFourCalls) {
    LoadOutlook();
    EXPECT_EQ(mail.log->Count("Folder(Zoo)"), 4u);
    EXPECT_EQ(mail.log->Count("Folder(Projects)"), 4u);
}

TEST_F(Outlook, WithoutAnApplicationTheTreeIsEmptyAndNoDefaultFolderIsKnown) {
    Prepare(eISAccess_Outlook);
    control->SetApplication(nullptr);
    platform.ClearTrace();
    control->RefreshList();
    EXPECT_EQ(Grid().RowCount(), 1);
    ASSERT_EQ(platform.ErrorLines().size(), 1u) << "only the refresh itself needs one";
    EXPECT_TRUE(platform.ErrorLines()[0].starts_with("Error in ctlFolderTree.GetFolders (?): [0x5B] "));
    ExpectIdle();
}

}  // namespace
}  // namespace foldertree::testing
