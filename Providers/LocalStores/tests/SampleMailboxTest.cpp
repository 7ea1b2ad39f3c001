// SampleMailboxTest: the sample mailbox has everything that a tree must cope with.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "TestFiles.h"
#include "automation/Text.h"
#include "localstores/OpenStores.h"

namespace localstores {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsSupersetOf;

std::vector<const Folder*> UserFolders() {
    static const StoreList stores = OpenStores("sample");
    std::vector<const Folder*> folders;
    for (const auto& store : stores)
        ForEachFolder(store->IpmRoot(), [&](const Folder& folder, int depth) {
            if (depth > 0) folders.push_back(&folder);
        });
    return folders;
}

TEST(SampleMailbox, HasThreeStoresOfWhichTheSecondIsTheDefault) {
    std::vector<std::string> names;
    std::vector<bool> defaults;
    for (const auto& store : OpenStores("sample")) {
        names.push_back(store->Name());
        defaults.push_back(store->IsDefault());
    }
    EXPECT_THAT(names, ElementsAre("Public Folders", "Mailbox - Alex Example", "Archive \"before 2022\""));
    EXPECT_THAT(defaults, ElementsAre(false, true, false));
}

TEST(SampleMailbox, FirstStoreHoldsPublicFolders) {
    EXPECT_EQ(OpenStores("sample")[0]->Kind(), StoreKind::PublicFolders);
}

TEST(SampleMailbox, OneStoreHasNoProviderName) {
    std::vector<std::string> names;
    for (const auto& store : OpenStores("sample")) names.push_back(store->ProviderName());
    EXPECT_THAT(names, ElementsAre("Sample server", "Sample server", ""));
}

TEST(SampleMailbox, HasAboutEightyFoldersOnSixLevels) {
    const auto folders = UserFolders();
    EXPECT_GE(folders.size(), 70u);
    EXPECT_LE(folders.size(), 90u);
    int deepest = 0;
    for (const auto& store : OpenStores("sample"))
        ForEachFolder(store->IpmRoot(), [&](const Folder&, int depth) { deepest = std::max(deepest, depth); });
    EXPECT_EQ(deepest, 6);
}

TEST(SampleMailbox, HasEveryContainerClass) {
    std::set<std::string> classes;
    for (const Folder* folder : UserFolders())
        if (folder->containerClass) classes.insert(*folder->containerClass);
    EXPECT_THAT(classes, IsSupersetOf({"IPF.Note", "IPF.Contact", "IPF.Appointment", "IPF.Journal", "IPF.StickyNote",
                                       "IPF.Task", "IPF.Imap", "IPF.Configuration", "IPF.Note.OutlookHomepage", ""}));
}

TEST(SampleMailbox, HasFoldersWithoutAClassAndSearchFolders) {
    const auto folders = UserFolders();
    EXPECT_TRUE(std::any_of(folders.begin(), folders.end(), [](const Folder* f) { return !f->containerClass; }));
    EXPECT_TRUE(
        std::any_of(folders.begin(), folders.end(), [](const Folder* f) { return f->type == FolderType::Search; }));
}

TEST(SampleMailbox, NamesUseManyScriptsEmojiQuotesAndBackslashes) {
    std::string all;
    for (const Folder* folder : UserFolders()) all += folder->name;
    for (const char* part : {"ü", "λ", "З", "日", "한", "ไ", "ת", "م", "प", "🎂", "\u200D", "\"", "\\"})
        EXPECT_THAT(all, HasSubstr(part));
}

TEST(SampleMailbox, NamesAreWellFormedUtf8) {
    for (const Folder* folder : UserFolders())
        EXPECT_EQ(automation::FromUtf16(automation::ToUtf16(folder->name)), folder->name);
}

TEST(SampleMailbox, DefaultStoreHasAllDefaultFolders) {
    const auto store = OpenStores("sample")[1];
    const std::pair<DefaultFolder, const char*> expected[] = {
        {DefaultFolder::Inbox, "Inbox"},         {DefaultFolder::Drafts, "Drafts"},
        {DefaultFolder::Outbox, "Outbox"},       {DefaultFolder::DeletedItems, "Deleted Items"},
        {DefaultFolder::SentMail, "Sent Items"}, {DefaultFolder::Notes, "Notes"}};
    for (const auto& [which, name] : expected) {
        ASSERT_NE(store->Default(which), nullptr) << name;
        EXPECT_EQ(store->Default(which)->name, name);
    }
}

TEST(SampleMailbox, StoreWithoutADefaultFolderSaysSo) {
    EXPECT_EQ(OpenStores("sample")[0]->Default(DefaultFolder::Inbox), nullptr);
}

TEST(SampleMailbox, IdentifiersAreTheSameInEveryRun) {
    const auto first = OpenStores("sample");
    const auto second = OpenStores("sample");
    for (size_t i = 0; i < first.size(); ++i) {
        EXPECT_EQ(first[i]->Id(), second[i]->Id());
        std::vector<EntryId> ids;
        ForEachFolder(first[i]->Root(), [&](const Folder& folder, int) { ids.push_back(folder.id); });
        size_t position = 0;
        ForEachFolder(second[i]->Root(), [&](const Folder& folder, int) { EXPECT_EQ(folder.id, ids[position++]); });
    }
}

// Written down once, so that a change that would lose users' saved selections shows.
TEST(SampleMailbox, IdentifiersAreTheSameInEveryVersion) {
    const auto store = OpenStores("sample")[1];
    EXPECT_EQ(Hex(store->Id()), "000000002BB303172181EF25297E5CC5F013240BCEFC616BF016C340B0CD4FE2FF3FF130");
    EXPECT_EQ(Hex(store->Default(DefaultFolder::Inbox)->id),
              "00000000CEFC616BF016C340B0CD4FE2FF3FF130214CBDB5D7A2335A");
}

TEST(SampleMailbox, PublicFoldersCanBeAsManyAsAServerHas) {
    const auto plain = OpenStores("sample")[0];
    const auto store = OpenStores("sample?folders=10250")[0];
    int count = 0;
    int deepest = 0;
    ForEachFolder(store->IpmRoot(), [&](const Folder& folder, int depth) {
        EXPECT_EQ(store->Find(ShortForm(folder.id)), &folder);
        if (!folder.name.starts_with("Folder ")) return;
        ++count;
        deepest = std::max(deepest, depth);
    });
    EXPECT_EQ(count, 10250);
    EXPECT_EQ(deepest, 3);
    EXPECT_EQ(store->IpmRoot().children.size(), plain->IpmRoot().children.size() + 100);
    const Folder& first = *store->IpmRoot().children[plain->IpmRoot().children.size()];
    EXPECT_EQ(first.name, "Folder 1");
    EXPECT_EQ(first.children.size(), 100u);
    EXPECT_EQ(first.children[0]->name, "Folder 101");
    EXPECT_EQ(OpenStores("sample?folders=0")[0]->IpmRoot().children.size(), plain->IpmRoot().children.size());
}

TEST(SampleMailbox, NoTwoFoldersShareAnIdentifier) {
    std::set<std::string> ids;
    for (const Folder* folder : UserFolders()) EXPECT_TRUE(ids.insert(Hex(folder->id)).second) << folder->name;
}

TEST(SampleMailbox, FoldersAreFoundByBothFormsOfTheirIdentifier) {
    const auto store = OpenStores("sample")[1];
    const Folder* inbox = store->Default(DefaultFolder::Inbox);
    EXPECT_EQ(Hex(inbox->id).substr(0, 2), "00");
    EXPECT_EQ(store->Find(inbox->id), inbox);
    EXPECT_EQ(store->Find(ShortForm(inbox->id)), inbox);
    EXPECT_EQ(store->Find({}), nullptr);
    EXPECT_EQ(store->Find({0, 0, 0, 0}), nullptr);
}

}  // namespace
}  // namespace localstores
