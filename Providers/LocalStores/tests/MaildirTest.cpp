// MaildirTest: Maildir++ trees made by hand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "TestFiles.h"
#include "localstores/OpenStores.h"

namespace localstores {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::UnorderedElementsAre;

namespace fs = std::filesystem;

class Maildir : public testing::Test {
  protected:
    Maildir() {
        for (const char* part : {"cur", "new", "tmp"}) fs::create_directory(directory_.Path() / part);
    }

    void Make(const std::string& name) {
        fs::create_directory(directory_.Path() / std::u8string(name.begin(), name.end()));
    }
    std::shared_ptr<Store> Open() { return OpenStores(directory_.Utf8()).front(); }
    std::vector<std::string> Names() {
        const auto store = Open();
        return FullNames(store->IpmRoot(), "/");
    }

    TemporaryDirectory directory_;
};

TEST_F(Maildir, RootDirectoryIsTheInbox) {
    EXPECT_THAT(Names(), ElementsAre("INBOX"));
}

TEST_F(Maildir, DirectoriesThatStartWithAPointAreMailboxes) {
    Make(".Sent");
    Make(".Drafts");
    EXPECT_THAT(Names(), ElementsAre("INBOX", "Drafts", "Sent"));
}

TEST_F(Maildir, PointsSeparateLevels) {
    Make(".Work");
    Make(".Work.Projects");
    Make(".Work.Projects.Old");
    EXPECT_THAT(Names(), ElementsAre("INBOX", "Work", "Work/Projects", "Work/Projects/Old"));
}

TEST_F(Maildir, LevelsWithoutADirectoryAreFoldersToo) {
    Make(".Ghost.Only.Leaf");
    EXPECT_THAT(Names(), ElementsAre("INBOX", "Ghost", "Ghost/Only", "Ghost/Only/Leaf"));
}

TEST_F(Maildir, MailboxesBelowTheInboxStandBelowIt) {
    Make(".INBOX.Lists");
    Make(".inbox.More");
    EXPECT_THAT(Names(), ElementsAre("INBOX", "INBOX/Lists", "INBOX/More"));
}

TEST_F(Maildir, InboxIsNotListedTwice) {
    Make(".INBOX");
    EXPECT_THAT(Names(), ElementsAre("INBOX"));
}

TEST_F(Maildir, NamesAreDecoded) {
    Make(".&ZeVnLIqe-.&W1A-");
    Make(".&2D3eAA-");
    Make(".A&-B");
    EXPECT_THAT(Names(), UnorderedElementsAre("INBOX", "日本語", "日本語/子", "😀", "A&B"));
}

TEST_F(Maildir, NamesThatCannotBeDecodedAreShownAsTheyAre) {
    Make(".bad&utf7");
    EXPECT_THAT(Names(), ElementsAre("INBOX", "bad&utf7"));
}

TEST_F(Maildir, TwoSpellingsOfOneNameAreTwoFolders) {
    Make(".&AGE-");
    Make(".a");
    EXPECT_THAT(Names(), ElementsAre("INBOX", "a", "a"));
}

TEST_F(Maildir, FilesAndOtherDirectoriesAreNoMailboxes) {
    WriteWholeFile(directory_.Path() / ".subscriptions", "x");
    Make("not-a-mailbox");
    Make("..DOVECOT-TRASHED");
    EXPECT_THAT(Names(), ElementsAre("INBOX"));
}

TEST_F(Maildir, EmptyLevelsAreKept) {
    Make(".a..b");
    EXPECT_THAT(Names(), ElementsAre("INBOX", "a", "a/", "a//b"));
}

TEST_F(Maildir, FoldersAreForMail) {
    Make(".Work.Projects");
    const auto store = Open();
    ForEachFolder(store->IpmRoot(), [&](const Folder& folder, int) {
        if (&folder == &store->IpmRoot()) return;
        EXPECT_EQ(folder.containerClass, "IPF.Note") << folder.name;
    });
}

TEST_F(Maildir, ConventionalNamesAreDefaultFolders) {
    for (const char* name : {".Drafts", ".Sent", ".Trash", ".Junk"}) Make(name);
    const auto store = Open();
    EXPECT_EQ(store->Default(DefaultFolder::Inbox)->name, "INBOX");
    EXPECT_EQ(store->Default(DefaultFolder::Drafts)->name, "Drafts");
    EXPECT_EQ(store->Default(DefaultFolder::SentMail)->name, "Sent");
    EXPECT_EQ(store->Default(DefaultFolder::DeletedItems)->name, "Trash");
    EXPECT_EQ(store->Default(DefaultFolder::Junk)->name, "Junk");
    EXPECT_EQ(store->Default(DefaultFolder::Notes), nullptr);
}

TEST_F(Maildir, IdentifiersStayWhenMailboxesComeAndGo) {
    Make(".Work");
    const EntryId store = Open()->Id();
    const EntryId work = Open()->IpmRoot().children[1]->id;
    Make(".A");
    Make(".Work.Projects");
    EXPECT_EQ(Open()->Id(), store);
    EXPECT_EQ(Open()->IpmRoot().children[2]->id, work);
    EXPECT_EQ(Hex(work).substr(0, 8), "00000000");
}

TEST_F(Maildir, IdentifiersOfTwoTreesDiffer) {
    const TemporaryDirectory other;
    for (const char* part : {"cur", "new", "tmp"}) fs::create_directory(other.Path() / part);
    EXPECT_NE(OpenStores(other.Utf8()).front()->Id(), Open()->Id());
}

TEST_F(Maildir, PathMayEndInASlash) {
    EXPECT_EQ(OpenStores(directory_.Utf8() + "/").front()->Id(), Open()->Id());
    EXPECT_EQ(OpenStores(directory_.Utf8() + "/").front()->Name(), Open()->Name());
}

#ifndef _WIN32
TEST_F(Maildir, AMailboxOfTheDeepestNameThatFitsIsRead) {
    std::string name;
    for (int i = 0; i < 127; ++i) name += ".x";
    Make(name);
    EXPECT_EQ(Names().size(), 128u);
}

TEST_F(Maildir, BytesThatAreNoTextAreReplaced) {
    fs::create_directory(directory_.Path() / ".caf\xE9");
    EXPECT_THAT(Names(), ElementsAre("INBOX", "caf\uFFFD"));
}

TEST_F(Maildir, LinksToMailboxesAreMailboxes) {
    Make(".Drafts");
    fs::create_directory_symlink(".Drafts", directory_.Path() / ".Link");
    EXPECT_THAT(Names(), ElementsAre("INBOX", "Drafts", "Link"));
}

TEST_F(Maildir, LinkThatLeadsToItselfIsNoMailbox) {
    fs::create_directory_symlink(".Loop", directory_.Path() / ".Loop");
    EXPECT_THAT(Names(), ElementsAre("INBOX"));
}
#endif

}  // namespace
}  // namespace localstores
