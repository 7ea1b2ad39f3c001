// CdoTest: the CDO session, and what only its mode does.
#include "modes/ModeTest.h"

namespace foldertree::testing {
namespace {

using automation::Error;
using automation::ObjectRef;
using automation::testing::ScriptedObjectFactory;

class Cdo : public ModeTest {
  protected:
    void LoadCdo(int32_t level = 0) { LoadMode(eISAccess_CDO, level); }
    void RefuseLogon() {
        factory.On("MAPI.Session", [this] {
            ++sessionsMade;
            const auto session = mail.CdoSession();
            if (refuse) session->Fails("Logon", Error(0x80040111, "Logon failed."));
            return session;
        });
    }
    bool refuse = true;
    int sessionsMade = 0;
};

TEST_F(Cdo, WithoutTheLibraryThereIsNoSessionAndTheTreeIsEmpty) {
    factory = ScriptedObjectFactory();
    EXPECT_EQ(control->CDOSession(), nullptr);
    EXPECT_EQ(platform.Trace(), Lines{"Could not instantiate CDO session: [0x80040154] Class not registered"});
    LoadCdo();
    EXPECT_EQ(Grid().RowCount(), 1);
    EXPECT_EQ(platform.TraceCount("GetFolders: Mode: CDO, Cannot refresh, CDO session is not initialized"), 1u);
    EXPECT_EQ(platform.Trace().back(), "GetFolders: Done");
    EXPECT_EQ(platform.ErrorLines(), Lines{});
    ExpectIdle();
}

TEST_F(Cdo, ARefusedLogonLeavesNoSessionAndIsTriedAgain) {
    RefuseLogon();
    EXPECT_EQ(control->CDOSession(), nullptr);
    EXPECT_EQ(platform.Trace(), Lines{"Failed to log on to CDO session: [0x80040111] Logon failed."});
    LoadCdo();
    EXPECT_EQ(Grid().RowCount(), 1);
    EXPECT_EQ(platform.TraceCount("Failed to log on to CDO session: [0x80040111]"), 2u)
        << "once for the default folders, once for the stores";
    refuse = false;
    control->RefreshList();
    EXPECT_EQ(Grid().RowCount(), 11);
}

TEST_F(Cdo, TheSessionIsMadeOnceAndLoggedOnQuietly) {
    const ObjectRef session = control->CDOSession();
    ASSERT_NE(session, nullptr);
    EXPECT_EQ(control->CDOSession(), session);
    EXPECT_EQ(mail.log->Lines(), Lines{"CdoSession.Logon(ShowDialog:=False, NewSession:=False)"});
}

TEST_F(Cdo, ClosingTheControlReleasesTheSession) {
    const std::weak_ptr<automation::Object> session = control->CDOSession();
    control->Close();
    EXPECT_TRUE(session.expired());
    EXPECT_EQ(control->CDOSession(), nullptr);
}

TEST_F(Cdo, AControlThatIsClosedWhileItLogsOnKeepsNoSession) {
    std::weak_ptr<automation::Object> made;
    factory.On("MAPI.Session", [&] {
        const auto session = mail.CdoSession();
        made = session;
        session->Method("Logon", [this](const automation::Invocation&) {
            control->Close();
            return automation::Value();
        });
        return session;
    });
    EXPECT_EQ(control->CDOSession(), nullptr);
    EXPECT_TRUE(made.expired());
}

TEST_F(Cdo, TheTraceNamesTheModeOnce) {
    LoadCdo();
    EXPECT_EQ(platform.Trace(), (Lines{"GetFolders: Refreshing view", "Mode: CDO", "GetFolders: Done"}));
}

TEST_F(Cdo, AFolderWithoutAContainerClassIsAMailFolder) {
    FolderNamed("Zoo").containerClass = std::nullopt;
    LoadCdo();
    EXPECT_EQ(Cell("Zoo", colItemType), "0");
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(Cdo, AFolderOfAnUnknownClassIsListed) {
    FolderNamed("Zoo").containerClass = "IPF.Imap";
    LoadCdo();
    EXPECT_EQ(Cell("Zoo", colItemType), "-1");
    EXPECT_EQ(PictureOf(Grid(), Row("Zoo")), Picture::None);
}

TEST_F(Cdo, AnExpansionEndsAtAFolderWithoutAContainerClass) {
    FolderNamed("Inbox").children = {MailFolder("First", "0041"), MailFolder("Second", "0042"),
                                     MailFolder("Third", "0043")};
    FolderNamed("Second").containerClass = std::nullopt;
    LoadCdo(1);
    Open("Inbox");
    EXPECT_NE(Grid().FindRow("First", 0, colName), -1);
    EXPECT_EQ(Grid().FindRow("Second", 0, colName), -1);
    EXPECT_EQ(Grid().FindRow("Third", 0, colName), -1);
    EXPECT_EQ(Cell("Inbox", colIncomplete), "");
    EXPECT_EQ(platform.ErrorLines(), Lines{"Error in ctlFolderTree.ExpandNode_CDO(?): 0x8004010F] Not found."});
    ExpectIdle();
}

TEST_F(Cdo, OnlyTheStoreWithTheDefaultIdentifierShowsTheHomePicture) {
    mail.stores.push_back({"Public", "C3", false, {}});
    LoadCdo();
    EXPECT_EQ(PictureOf(Grid(), Row("Mailbox")), Picture::Home);
    EXPECT_EQ(PictureOf(Grid(), Row("Archive")), Picture::FolderOpen);
    EXPECT_EQ(PictureOf(Grid(), Row("Public")), Picture::FolderOpen);
}

TEST_F(Cdo, TheHomePictureFollowsTheIdentifierAndTheOrderTheFlag) {
    mail.defaultStoreID = "A1";
    LoadCdo();
    EXPECT_EQ(NamesOf(Grid()).front(), "Mailbox");
    EXPECT_EQ(PictureOf(Grid(), Row("Mailbox")), Picture::FolderOpen);
    EXPECT_EQ(PictureOf(Grid(), Row("Archive")), Picture::Home);
}

TEST_F(Cdo, LevelOneShowsTheTopLevelFoldersWithPlaceholders) {
    LoadCdo(1);
    EXPECT_EQ(Tree(), (Lines{"Mailbox[Store]", "  Inbox[unread][closed]", "    [Dummy]", "  People", "  Diary",
                             "  To do", "Archive[Store]", "  Old mail"}));
}

TEST_F(Cdo, ACountThatIsNotKnownMeansThatThereAreSubfolders) {
    FolderNamed("Zoo").count = 0x7FFFFFFF;
    LoadCdo(2);
    EXPECT_EQ(Cell("Zoo", colIncomplete), "-1");
    Open("Zoo");
    EXPECT_EQ(Cell("Zoo", colIncomplete), "");
    EXPECT_EQ(platform.ErrorLines(), Lines{});
    EXPECT_GT(platform.highestMaximum, 2147483647.0);
}

TEST_F(Cdo, AnExpansionUsesFolderAndStoreIdentifiers) {
    LoadCdo(1);
    mail.log->Clear();
    Open("Inbox");
    EXPECT_EQ(mail.log->Count("CdoSession.GetFolder(\"0001\", \"B2\")"), 1u);
}

TEST_F(Cdo, AFolderWithoutChildrenCostsFiveCallsAndItsField) {
    LoadCdo();
    EXPECT_EQ(mail.log->Count("Folder(Zoo)"), 5u);
    EXPECT_EQ(mail.log->Count("Folder(Projects)"), 5u);
}

}  // namespace
}  // namespace foldertree::testing
