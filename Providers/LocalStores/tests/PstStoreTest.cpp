// PstStoreTest: a real PST file, compared with what independent programs find in it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TestFiles.h"
#include "localstores/OpenStores.h"

namespace localstores {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::UnorderedElementsAreArray;

class PstStore : public testing::Test {
  protected:
    void SetUp() override {
        const auto file = SamplePst();
        if (!file) GTEST_SKIP() << "the sample file dist-list.pst is not beside the repository";
        path_ = file->string();
        store_ = OpenStores(path_).front();
    }

    std::string Quoted() const { return "'" + path_ + "'"; }

    std::string path_;
    std::shared_ptr<Store> store_;
};

TEST_F(PstStore, HasItsNameProviderAndKind) {
    EXPECT_EQ(store_->Name(), "Personal Folders");
    EXPECT_EQ(store_->ProviderName(), "PST file");
    EXPECT_EQ(store_->Kind(), StoreKind::PstUnicode);
}

TEST_F(PstStore, FoldersOfTheUserStandBelowTheIpmRoot) {
    EXPECT_EQ(store_->IpmRoot().name, "Top of Personal Folders");
    EXPECT_THAT(FullNames(store_->IpmRoot(), "\\"),
                ElementsAre("Deleted Items", "Inbox", "Outbox", "Sent Items", "Calendar", "Contacts", "Journal",
                            "Notes", "Tasks", "Drafts", "RSS Feeds", "Junk E-mail"));
}

TEST_F(PstStore, FoldersHaveTheirContainerClasses) {
    std::vector<std::string> classes;
    for (const auto& folder : store_->IpmRoot().children) classes.push_back(folder->containerClass.value_or("(none)"));
    EXPECT_THAT(classes,
                ElementsAre("(none)", "(none)", "(none)", "(none)", "IPF.Appointment", "IPF.Contact", "IPF.Journal",
                            "IPF.StickyNote", "IPF.Task", "IPF.Note", "IPF.Note.OutlookHomepage", "IPF.Note"));
}

TEST_F(PstStore, SearchFoldersAreKnownAsSuch) {
    std::vector<std::string> names;
    ForEachFolder(store_->Root(), [&](const Folder& folder, int) {
        if (folder.type == FolderType::Search) names.push_back(folder.name);
    });
    EXPECT_THAT(names, ElementsAre("SPAM Search Folder 2", "All Messages", "Reminders", "To-Do Search",
                                   "ItemProcSearch", "Tracked Mail Processing"));
    EXPECT_EQ(store_->Root().type, FolderType::Root);
}

TEST_F(PstStore, IdentifiersAreThoseOfMailClients) {
    EXPECT_EQ(Hex(store_->IpmRoot().id), "00000000A41D63DBC53B8E4AB8071E15E55750CE22800000");
    ForEachFolder(store_->Root(), [&](const Folder& folder, int) {
        EXPECT_EQ(folder.id.size(), 24u);
        EXPECT_EQ(store_->Find(ShortForm(folder.id)), &folder);
    });
}

TEST_F(PstStore, DefaultFoldersAreFound) {
    const std::pair<DefaultFolder, const char*> expected[] = {
        {DefaultFolder::Inbox, "Inbox"},         {DefaultFolder::Drafts, "Drafts"},
        {DefaultFolder::Outbox, "Outbox"},       {DefaultFolder::DeletedItems, "Deleted Items"},
        {DefaultFolder::SentMail, "Sent Items"}, {DefaultFolder::Notes, "Notes"},
        {DefaultFolder::Calendar, "Calendar"},   {DefaultFolder::Contacts, "Contacts"},
        {DefaultFolder::Journal, "Journal"},     {DefaultFolder::Tasks, "Tasks"}};
    for (const auto& [which, name] : expected) {
        ASSERT_NE(store_->Default(which), nullptr) << name;
        EXPECT_EQ(store_->Default(which)->name, name);
    }
}

#ifndef _WIN32
TEST_F(PstStore, UserFoldersAreThoseThatReadpstLists) {
    if (!OutputOf("command -v readpst")) GTEST_SKIP() << "readpst (package pst-utils) is not installed";
    const TemporaryDirectory output;
    const auto printed = OutputOf("readpst -r -o '" + output.Utf8() + "' " + Quoted() + " 2>/dev/null");
    ASSERT_TRUE(printed);
    std::vector<std::string> listed;
    const std::string before = "Processing Folder \"";
    for (const std::string& line : Lines(*printed))
        if (line.starts_with(before)) listed.push_back(line.substr(before.size(), line.size() - before.size() - 1));
    std::vector<std::string> found;
    ForEachFolder(store_->IpmRoot(), [&](const Folder& folder, int depth) {
        if (depth > 0) found.push_back(folder.name);
    });
    EXPECT_FALSE(listed.empty());
    EXPECT_THAT(found, UnorderedElementsAreArray(listed));
}

TEST_F(PstStore, AllFoldersAreThoseThatPffexportExports) {
    if (!OutputOf("command -v pffexport")) GTEST_SKIP() << "pffexport (package pff-tools) is not installed";
    const TemporaryDirectory output;
    ASSERT_TRUE(OutputOf("cd '" + output.Utf8() + "' && pffexport -q -t all " + Quoted() + " >/dev/null 2>&1"));
    // Items are exported as directories too, below the folders and with a number at the end.
    const auto printed = OutputOf("cd '" + output.Utf8() +
                                  "/all.export' && find . -mindepth 1 -type d "
                                  "-not -path '*[0-9][0-9][0-9][0-9][0-9]*' | sed 's,^./,,'");
    ASSERT_TRUE(printed);
    EXPECT_THAT(FullNames(store_->Root(), "/"), UnorderedElementsAreArray(Lines(*printed)));
}
#endif

TEST_F(PstStore, CopyOfAFileHasTheSameIdentifiers) {
    const TemporaryDirectory directory;
    const std::string copy = directory.Utf8() + "/Übung.pst";
    WriteWholeFile(std::u8string(copy.begin(), copy.end()), ReadWholeFile(path_));
    EXPECT_EQ(OpenStores(copy).front()->Id(), store_->Id());
}

}  // namespace
}  // namespace localstores
