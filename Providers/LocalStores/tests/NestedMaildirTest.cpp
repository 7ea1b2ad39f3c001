// NestedMaildirTest: trees of Maildirs in plain directories, made by hand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "TestFiles.h"
#include "automation/Error.h"
#include "localstores/OpenStores.h"

namespace localstores {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::Not;
using testing::StartsWith;

namespace fs = std::filesystem;

class NestedMaildir : public testing::Test {
  protected:
    /// `name` is UTF-8; "" is the store's own directory.
    void Make(const std::string& name) { MakeMaildir(Place(name)); }
    fs::path Place(const std::string& name) { return directory_.Path() / std::u8string(name.begin(), name.end()); }
    std::shared_ptr<Store> Open() { return OpenStores(directory_.Utf8()).front(); }
    std::vector<std::string> Names() {
        const auto store = Open();
        return FullNames(store->IpmRoot(), "/");
    }

    TemporaryDirectory directory_;
};

TEST_F(NestedMaildir, DirectoriesInDirectoriesAreFolders) {
    for (const char* name : {"INBOX", "Work", "Work/Projects", "Work/Projects/Garden house", "Archive"}) Make(name);
    EXPECT_THAT(Names(), ElementsAre("Archive", "INBOX", "Work", "Work/Projects", "Work/Projects/Garden house"));
}

TEST_F(NestedMaildir, TheDirectoryItselfIsTheInboxWhenItIsAMailbox) {
    for (const char* name : {"", "Drafts"}) Make(name);
    EXPECT_THAT(Names(), ElementsAre("INBOX", "Drafts"));
    EXPECT_EQ(Open()->Default(DefaultFolder::Inbox)->name, "INBOX");
    EXPECT_EQ(Open()->Default(DefaultFolder::Drafts)->name, "Drafts");
}

TEST_F(NestedMaildir, LevelsWithoutAMailboxOfTheirOwnAreFolders) {
    for (const char* name : {"", "Work/Projects/Leaf"}) Make(name);
    EXPECT_THAT(Names(), ElementsAre("INBOX", "Work", "Work/Projects", "Work/Projects/Leaf"));
}

TEST_F(NestedMaildir, DirectoriesWithoutMailboxesAreNoFolders) {
    for (const char* name : {"", "Drafts"}) Make(name);
    fs::create_directories(Place("sieve/tmp"));
    fs::create_directories(Place("Drafts/attachments"));
    WriteWholeFile(Place("notes.txt"), "From here on\n");
    EXPECT_THAT(Names(), ElementsAre("INBOX", "Drafts"));
}

TEST_F(NestedMaildir, HiddenDirectoriesAreNoFolders) {
    for (const char* name : {"", "Drafts", "Drafts/.cache"}) Make(name);
    EXPECT_THAT(Names(), ElementsAre("INBOX", "Drafts"));
}

TEST_F(NestedMaildir, MailboxesWithPointsMakeTheTreeMaildirPlusPlus) {
    for (const char* name : {"", ".Drafts", "Plain"}) Make(name);
    EXPECT_THAT(Names(), ElementsAre("INBOX", "Drafts"));
}

TEST_F(NestedMaildir, DirectoryWithoutMailboxesAtItsTopIsRefused) {
    Make("home/someone/Mail");
    EXPECT_THAT(FailureOf([&] { Open(); }), HasSubstr(directory_.Utf8()));
    EXPECT_EQ(ErrorNumberOf([&] { Open(); }), automation::errors::mapiNotFound);
}

TEST_F(NestedMaildir, PointsInNamesSeparateNothing) {
    for (const char* name : {"INBOX", "v1.2", "v1.2/notes."}) Make(name);
#ifdef _WIN32
    EXPECT_THAT(Names(), ElementsAre("INBOX", "v1.2", "v1.2/notes"));
#else
    EXPECT_THAT(Names(), ElementsAre("INBOX", "v1.2", "v1.2/notes."));
#endif
}

TEST_F(NestedMaildir, NamesAreModifiedUtf7OrPlainText) {
    for (const char* name : {"INBOX", "&ZeVnLIqe-", "Übersicht", "R&D", "Tom & Jerry"}) Make(name);
    EXPECT_THAT(Names(), ElementsAre("日本語", "INBOX", "R&D", "Tom & Jerry", "Übersicht"));
}

TEST_F(NestedMaildir, IdentifiersAreTheSameInEveryRunAndDiffer) {
    for (const char* name : {"INBOX", "A", "A/B", "B"}) Make(name);
    std::set<std::string> ids;
    const auto first = Open();
    ForEachFolder(first->Root(), [&](const Folder& folder, int) { ids.insert(Hex(folder.id)); });
    EXPECT_EQ(ids.size(), 5u);
    const auto second = Open();
    ForEachFolder(second->Root(), [&](const Folder& folder, int) { EXPECT_EQ(ids.count(Hex(folder.id)), 1u); });
}

TEST_F(NestedMaildir, TooManyLevelsAreRefused) {
    Make("INBOX");
    std::string deep = "d";
    for (int i = 1; i < maxFolderDepth; ++i) deep += "/d";
    MakeMaildir(directory_.Path() / deep);
#ifndef _WIN32
    EXPECT_EQ(Names().size(), static_cast<size_t>(maxFolderDepth) + 1);
    MakeMaildir(directory_.Path() / deep / "d");
    EXPECT_THAT(FailureOf([&] { Open(); }), HasSubstr("nested too deeply"));
#endif
}

#ifndef _WIN32
/// Of a directory: what is in it can be got at by name, but not listed.
constexpr fs::perms mayPass = fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;

TEST_F(NestedMaildir, NamesThatAreNoTextCanBeShown) {
    Make("INBOX");
    MakeMaildir(directory_.Path() / "bad \xFF\xC3 name");
    EXPECT_THAT(Names(), ElementsAre("INBOX", "bad \uFFFD\uFFFD name"));
}

TEST_F(NestedMaildir, LinksThatLeadRoundInCirclesAreNotFollowed) {
    for (const char* name : {"", "A", "A/B"}) Make(name);
    fs::create_directory_symlink("..", Place("A/up"));
    fs::create_directory_symlink(directory_.Path(), Place("A/B/top"));
    fs::create_directory_symlink(directory_.Path().parent_path(), Place("above"));
    fs::create_directory_symlink("self", Place("self"));
    EXPECT_THAT(Names(), ElementsAre("INBOX", "A", "A/B"));
}

TEST_F(NestedMaildir, LinksToMailboxesElsewhereAreFolders) {
    const TemporaryDirectory other;
    MakeMaildir(other.Path() / "Sub");
    MakeMaildir(other.Path());
    fs::create_directory_symlink(directory_.Path(), other.Path() / "back");
    Make("INBOX");
    fs::create_directory_symlink(other.Path(), Place("Linked"));
    fs::create_directory_symlink("/usr", Place("Elsewhere"));
    EXPECT_THAT(Names(), ElementsAre("INBOX", "Linked", "Linked/Sub"));
}

TEST_F(NestedMaildir, OfManyLinksEachPlaceIsReadOnce) {
    constexpr int count = 100;
    const TemporaryDirectory other;
    Make("INBOX");
    for (int i = 0; i < count; ++i) {
        const std::string number = std::to_string(1000 + i);
        MakeMaildir(other.Path() / number);
        MakeMaildir(other.Path() / number / "Sub");
        fs::create_directory_symlink(other.Path() / number, Place("First" + number));
        fs::create_directory_symlink(other.Path() / number, Place("Second" + number));
        fs::create_directory_symlink(other.Path() / number / "Sub", Place("Third" + number));
        fs::create_directory_symlink(directory_.Path(), other.Path() / number / "Back");
    }
    const std::vector<std::string> names = Names();
    EXPECT_EQ(names.size(), 1u + 2 * count);
    EXPECT_THAT(names, IsSupersetOf({"First1000", "First1000/Sub", "First1099", "First1099/Sub"}));
    EXPECT_THAT(names, Each(Not(StartsWith("Second"))));
}

TEST_F(NestedMaildir, WhatCannotBeReadIsNotSeen) {
    for (const char* name : {"", "Open", "Closed", "Closed/Inside", "Open/Shut"}) Make(name);
    fs::permissions(Place("Closed"), fs::perms::none);
    fs::permissions(Place("Open/Shut"), mayPass);
    AsNobody([&] { EXPECT_THAT(Names(), ElementsAre("INBOX", "Open", "Open/Shut")); });
    fs::permissions(Place("Closed"), fs::perms::owner_all);
}

TEST_F(NestedMaildir, StoreThatCannotBeReadSaysSo) {
    Make("INBOX");
    fs::permissions(directory_.Path(), mayPass);
    AsNobody([&] { EXPECT_THAT(FailureOf([&] { Open(); }), HasSubstr("cannot be read")); });
    fs::permissions(directory_.Path(), fs::perms::owner_all);
}
#endif

}  // namespace
}  // namespace localstores
