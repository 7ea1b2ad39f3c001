// MboxTest: trees of mbox files, made by hand and by Python's mailbox module.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TestFiles.h"
#include "automation/Error.h"
#include "localstores/OpenStores.h"

namespace localstores {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

namespace fs = std::filesystem;

constexpr const char* mail = "From someone@example.com Sat Nov 21 10:00:00 2026\nSubject: Hello\n\nHello\n";

class Mbox : public testing::Test {
  protected:
    void Write(const std::string& name, const std::string& content) {
        const fs::path file = Place(name);
        fs::create_directories(file.parent_path());
        WriteWholeFile(file, content);
    }
    fs::path Place(const std::string& name) { return directory_.Path() / std::u8string(name.begin(), name.end()); }
    std::shared_ptr<Store> Open() { return OpenStores(directory_.Utf8()).front(); }
    std::vector<std::string> Names() {
        const auto store = Open();
        return FullNames(store->IpmRoot(), "/");
    }

    TemporaryDirectory directory_;
};

TEST_F(Mbox, FilesAreFoldersAndSubfoldersStandBesideThem) {
    for (const char* name : {"Inbox", "Work", "Work.sbd/Projects", "Work.sbd/Projects.sbd/Garden house", "Archive"})
        Write(name, mail);
    EXPECT_THAT(Names(), ElementsAre("Archive", "Inbox", "Work", "Work/Projects", "Work/Projects/Garden house"));
    EXPECT_EQ(Open()->ProviderName(), "mbox");
}

TEST_F(Mbox, EmptyFilesAreFolders) {
    Write("Inbox", mail);
    Write("Trash", "");
    EXPECT_THAT(Names(), ElementsAre("Inbox", "Trash"));
}

TEST_F(Mbox, FilesOfMailClientsAreNoFolders) {
    Write("Inbox", mail);
    Write("Inbox.msf", "// <!-- <mdb:mork:z v=\"1.4\"/> -->");
    Write("Drafts.msf", "");
    Write("msgFilterRules.dat", "version=\"9\"\n");
    Write("popstate.dat", "");
    Write("filterlog.html", "");
    Write("letter.txt", "Dear Sir");
    Write("Fro", "Fro");
    Write(".hidden", mail);
    Write(".hidden.sbd/More", mail);
    Write("plain directory/More", mail);
    EXPECT_THAT(Names(), ElementsAre("Inbox"));
}

TEST_F(Mbox, SubfoldersOfNoFileMakeAFolder) {
    Write("Inbox", mail);
    Write("Lost.sbd/Found", mail);
    EXPECT_THAT(Names(), ElementsAre("Inbox", "Lost", "Lost/Found"));
}

TEST_F(Mbox, AnIndexOrSubfoldersProveThatEmptyFilesAreMailboxes) {
    Write("Drafts", "");
    EXPECT_EQ(ErrorNumberOf([&] { Open(); }), automation::errors::mapiNotFound);
    Write("Drafts.msf", "");
    EXPECT_THAT(Names(), ElementsAre("Drafts"));
    fs::remove(Place("Drafts.msf"));
    fs::create_directory(Place("Drafts.sbd"));
    EXPECT_THAT(Names(), ElementsAre("Drafts"));
}

TEST_F(Mbox, DirectoryWithoutMailIsRefused) {
    Write("letter.txt", "Dear Sir");
    EXPECT_THAT(FailureOf([&] { Open(); }), HasSubstr(directory_.Utf8()));
    EXPECT_EQ(ErrorNumberOf([&] { Open(); }), automation::errors::mapiNotFound);
}

TEST_F(Mbox, ClientsNamesOfDefaultFoldersAreKnown) {
    for (const char* name : {"Inbox", "Drafts", "Sent", "Trash", "Junk", "Unsent Messages"}) Write(name, "");
    Write("Inbox.msf", "");
    const std::pair<DefaultFolder, const char*> expected[] = {
        {DefaultFolder::Inbox, "Inbox"},   {DefaultFolder::Drafts, "Drafts"},
        {DefaultFolder::SentMail, "Sent"}, {DefaultFolder::DeletedItems, "Trash"},
        {DefaultFolder::Junk, "Junk"},     {DefaultFolder::Outbox, "Unsent Messages"}};
    const auto store = Open();
    for (const auto& [which, name] : expected) {
        ASSERT_NE(store->Default(which), nullptr) << name;
        EXPECT_EQ(store->Default(which)->name, name);
    }
}

TEST_F(Mbox, NamesAreAnyText) {
    for (const char* name : {"Übersicht", "日本語", "日本語.sbd/子 😀", "Tom & Jerry", "v1.2"}) Write(name, mail);
    EXPECT_THAT(Names(), ElementsAre("Tom & Jerry", "v1.2", "Übersicht", "日本語", "日本語/子 😀"));
}

TEST_F(Mbox, FoldersAreMailFoldersWithIdentifiersThatFindThem) {
    for (const char* name : {"Inbox", "Work.sbd/Projects"}) Write(name, mail);
    const auto store = Open();
    ForEachFolder(store->IpmRoot(), [&](const Folder& folder, int depth) {
        EXPECT_EQ(store->Find(ShortForm(folder.id)), &folder);
        if (depth > 0) {
            EXPECT_EQ(folder.containerClass, "IPF.Note");
        }
    });
}

TEST_F(Mbox, TooManyLevelsAreRefused) {
    Write("Inbox", mail);
    fs::path deep = directory_.Path();
#ifndef _WIN32
    for (int i = 1; i < maxFolderDepth; ++i) deep /= "d.sbd";
    fs::create_directories(deep);
    WriteWholeFile(deep / "d", mail);
    EXPECT_EQ(Names().size(), static_cast<size_t>(maxFolderDepth) + 1);
    fs::create_directories(deep / "d.sbd");
    WriteWholeFile(deep / "d.sbd" / "d", mail);
    EXPECT_THAT(FailureOf([&] { Open(); }), HasSubstr("nested too deeply"));
#endif
}

#ifndef _WIN32
TEST_F(Mbox, NamesThatAreNoTextCanBeShown) {
    Write("Inbox", mail);
    WriteWholeFile(directory_.Path() / "bad \xFF name", mail);
    EXPECT_THAT(Names(), ElementsAre("Inbox", "bad \uFFFD name"));
}

TEST_F(Mbox, LinksThatLeadRoundInCirclesAreNotFollowed) {
    for (const char* name : {"A", "A.sbd/B"}) Write(name, mail);
    fs::create_directory_symlink(".", Place("A.sbd/B.sbd"));
    fs::create_directory_symlink("..", Place("A.sbd/C.sbd"));
    fs::create_directory_symlink(directory_.Path().parent_path(), Place("above.sbd"));
    fs::create_symlink("self", Place("self"));
    EXPECT_THAT(Names(), ElementsAre("A", "A/B"));
}

TEST_F(Mbox, PipesAreNotOpened) {
    Write("Inbox", mail);
    ASSERT_TRUE(OutputOf("mkfifo '" + directory_.Utf8() + "/pipe'"));
    EXPECT_THAT(Names(), ElementsAre("Inbox"));
}

TEST_F(Mbox, WhatCannotBeReadIsNotSeen) {
    for (const char* name : {"Inbox", "Closed", "Work", "Work.sbd/Inside"}) Write(name, mail);
    fs::permissions(Place("Closed"), fs::perms::none);
    fs::permissions(Place("Work.sbd"), fs::perms::none);
    AsNobody([&] { EXPECT_THAT(Names(), ElementsAre("Inbox", "Work")); });
    fs::permissions(Place("Work.sbd"), fs::perms::owner_all);
}

TEST_F(Mbox, FilesThatPythonWroteAreFolders) {
    if (!OutputOf("command -v python3")) GTEST_SKIP() << "python3 is not installed";
    fs::create_directories(Place("Lists.sbd"));
    const std::string script =
        "import mailbox, sys\n"
        "for name in ['Inbox', 'Lists', 'Lists.sbd/Announcements', 'Empty']:\n"
        "    box = mailbox.mbox(sys.argv[1] + '/' + name)\n"
        "    if name != 'Empty': box.add('Subject: one\\n\\nFrom the first line on\\n')\n"
        "    box.flush(); box.close()\n"
        "    print(name.replace('.sbd', ''), len(mailbox.mbox(sys.argv[1] + '/' + name)))\n";
    WriteWholeFile(directory_.Path() / ".make.py", script);
    const auto made = OutputOf("python3 '" + directory_.Utf8() + "/.make.py' '" + directory_.Utf8() + "'");
    ASSERT_TRUE(made);
    EXPECT_THAT(Lines(*made), ElementsAre("Inbox 1", "Lists 1", "Lists/Announcements 1", "Empty 0"));
    EXPECT_THAT(Names(), ElementsAre("Empty", "Inbox", "Lists", "Lists/Announcements"));
}
#endif

}  // namespace
}  // namespace localstores
