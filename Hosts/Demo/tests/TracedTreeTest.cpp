// TracedTreeTest: the rows that follow from what the control writes.
#include "TracedTree.h"

#include <gtest/gtest.h>

namespace demo {
namespace {

class TracedTreeTest : public testing::Test {
  protected:
    void Write(std::wstring_view text) { tree_.Read(L"ctlFolderTree: " + std::wstring(text)); }

    void BeginStore(const std::wstring& name, const std::wstring& id) {
        Write(L"  Enumerating folders on level 1 (" + name + L")");
        Write(L"Current StoreID is " + id);
    }

    void Folder(int level, const std::wstring& name, const std::wstring& id) {
        const std::wstring indent(static_cast<size_t>(level) * 2 + 6, L' ');
        Write(indent + L"Level: " + std::to_wstring(level));
        Write(indent + L"FolderName: [String] " + name);
        Write(indent + L"ItemType: 2");
        Write(indent + L"EntryID [long]: " + id);
        Write(indent + L"EntryID [short]: EF");
    }

    /// A store with the folders A, which has children that are not read, and B.
    void Refresh() {
        Write(L"GetFolders: Refreshing view");
        BeginStore(L"Mail (old)", L"51");
        Folder(1, L"A", L"0A");
        Write(L"        Next level too deep (current limit = 1), inserting 'expand' indicator");
        Folder(1, L"B", L"0B");
    }

    std::wstring Names() const {
        std::wstring names;
        for (const TracedRow& row : tree_.Rows()) names += row.placeholder ? L"(...)" : L"(" + row.name + L")";
        return names;
    }

    TracedTree tree_;
};

TEST_F(TracedTreeTest, ListsStoresFoldersAndPlaceholdersInGridOrder) {
    Refresh();
    EXPECT_EQ(Names(), L"(Mail (old))(A)(...)(B)");
    EXPECT_EQ(tree_.Rows()[1].key, L"S51|0A");
    EXPECT_EQ(tree_.Rows()[1].itemType, 2);
    EXPECT_TRUE(tree_.Rows()[1].unread);
    EXPECT_FALSE(tree_.Rows()[3].unread);
}

TEST_F(TracedTreeTest, BeginsAnewAtEachRefresh) {
    Refresh();
    Refresh();
    EXPECT_EQ(tree_.Rows().size(), 4u);
}

TEST_F(TracedTreeTest, PutsTheChildrenOfAnOpenedNodeInThePlaceOfItsPlaceholder) {
    Refresh();
    Write(L"Enumerating folders on level 1");
    Write(L"  Row number: 2");
    Write(L"  StoreID: 51");
    Write(L"  Removing 'expand' indicator");
    Folder(2, L"A1", L"A1");
    Write(L"      Child folders present, inserting 'expand' indicator");
    Folder(2, L"A2", L"A2");
    EXPECT_EQ(Names(), L"(Mail (old))(A)(A1)(...)(A2)(B)");
    EXPECT_FALSE(tree_.Rows()[1].unread);
    EXPECT_TRUE(tree_.Rows()[2].unread);
}

TEST_F(TracedTreeTest, DoesNotListAFolderThatTheWalkSkips) {
    Write(L"GetFolders: Refreshing view");
    BeginStore(L"Mail", L"51");
    Write(L"      Level: 1");
    Write(L"      FolderName: [String] Search");
    Write(L"      Skipping folder, type is not fkGeneric");
    EXPECT_EQ(Names(), L"(Mail)");
}

TEST_F(TracedTreeTest, DoesNotTakeADeeperFolderForAStore) {
    Write(L"GetFolders: Refreshing view");
    BeginStore(L"Mail", L"51");
    Folder(1, L"A", L"0A");
    Write(L"    Enumerating folders on level 2 (Mail\\A)");
    Folder(2, L"A1", L"A1");
    EXPECT_EQ(Names(), L"(Mail)(A)(A1)");
}

TEST_F(TracedTreeTest, IgnoresWhatIsNotTheControls) {
    tree_.Read(L"Other: Level: 1");
    tree_.Read(L"FolderName: [String] X");
    tree_.Read(L"");
    Write(L"  Row number: 99");
    Write(L"  Removing 'expand' indicator");
    Write(L"Next level too deep");
    EXPECT_TRUE(tree_.Rows().empty());
}

TEST_F(TracedTreeTest, PrintsLevelsTicksAndUnreadNodes) {
    Refresh();
    EXPECT_EQ(tree_.AsText({L"S51|0B"}), "[ ] Mail (old)\n[ ]   A +\n[x]   B\n");
}

TEST_F(TracedTreeTest, PrintsEachFolderOnALineOfItsOwn) {
    Write(L"GetFolders: Refreshing view");
    BeginStore(L"Mail", L"51");
    Folder(1, L"C:\\two\nlines", L"0A");
    EXPECT_EQ(tree_.AsText({}), "[ ] Mail\n[ ]   C:\\two lines\n");
}

}  // namespace
}  // namespace demo
