// ModesByComTest: the same mailbox through each access mode, read from the registered LocalStores.dll by COM. The trees
// differ where the libraries do, and nowhere else.
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "FolderTree.idl.h"
#include "automation/Collection.h"
#include "automation_win32/ComObjectFactory.h"
#include "automation_win32/Crossing.h"
#include "common/GridColumns.h"
#include "win32/com/ControlObject.h"

namespace foldertree {
namespace {

using automation::ObjectRef;

struct Row {
    int level = 0;
    std::string name, itemType;
    bool node = false, bold = false;
    PictureNumber picture = noPicture;

    bool operator==(const Row&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Row& row) {
    return out << row.level << ' ' << row.name << " type=" << row.itemType << " node=" << row.node
               << " bold=" << row.bold << " picture=" << static_cast<int>(row.picture);
}

/// A control and, created by their names, the objects that it reads.
class ModesByCom : public testing::TestWithParam<int> {
  protected:
    ModesByCom() : object_(ControlObject::Create()) {
        automation::ComObjectFactory factory;
        session_ = factory.Create("LocalStores.Session");
        session_->Get("Open", "sample");
        Core().SetRDOSessionRef(session_);
        Core().SetApplication(factory.Create("LocalStores.Application"));
    }
    ~ModesByCom() override { Core().Close(); }

    ctlFolderTree& Core() { return static_cast<ControlObject*>(object_.Get())->Core(); }
    TreeGrid& Grid() { return Core().Grid(); }

    void Load(int mode, int level, bool addressBook = false) {
        Core().SetInfoStoreAccessMode(static_cast<enuInfoStoreAccessMode>(mode));
        Core().SetExtendToLevel(level);
        Core().SetShowAddressBook(addressBook);
        Core().RefreshList();
    }
    std::string Text(int32_t row, int col) { return Grid().CellText(row, col); }
    bool IsKind(int32_t row, std::string_view kind) { return Text(row, colRowKind) == kind; }

    /// The rows of folders by their paths below the store's own name, which the tables extend by the provider's.
    std::map<std::string, Row> Folders() {
        std::map<std::string, Row> folders;
        for (int32_t row = 1; row < Grid().RowCount(); ++row) {
            if (!IsKind(row, rowKind::folder)) continue;
            const CellLook& look = Grid().Look(row, colName);
            folders[PathOf(row)] = {Grid().RowOutlineLevel(row), Text(row, colName), Text(row, colItemType),
                                    Grid().IsNode(row),          look.bold,          look.picture};
        }
        return folders;
    }
    std::string PathOf(int32_t row) {
        std::string path = Text(row, colPath);
        if (const size_t provider = path.find(" (Sample server)"); provider != std::string::npos)
            path.erase(provider, std::string_view(" (Sample server)").size());
        return path;
    }
    int32_t RowOf(std::string_view path) {
        for (int32_t row = 1; row < Grid().RowCount(); ++row)
            if (IsKind(row, rowKind::folder) && PathOf(row) == path) return row;
        ADD_FAILURE() << "no row " << path;
        return 0;
    }
    std::set<std::string> AddressLists() {
        std::set<std::string> lists;
        for (int32_t row = 1; row < Grid().RowCount(); ++row)
            if (IsKind(row, rowKind::adList)) lists.insert(Text(row, colName));
        return lists;
    }

    automation::ComPtr<IUnknown> object_;
    ObjectRef session_;
};

using Paths = std::set<std::string>;

/// What `more` shows beyond `fewer`; every folder that both show must be the same row.
Paths Beyond(const std::map<std::string, Row>& more, const std::map<std::string, Row>& fewer) {
    Paths paths;
    for (const auto& [path, row] : more) {
        const auto found = fewer.find(path);
        if (found == fewer.end())
            paths.insert(path);
        else
            EXPECT_EQ(row, found->second) << path;
    }
    return paths;
}

TEST_F(ModesByCom, ShowTheSameFoldersButForThoseThatOneLibraryTellsApart) {
    Core().SetHighlightContactFolders(true);
    std::map<std::string, Row> folders[4];
    for (int mode = 0; mode < 4; ++mode) {
        Load(mode, 0);
        folders[mode] = Folders();
    }
    ASSERT_GT(folders[0].size(), 50u);

    // The tables leave out folders whose class is no item type, together with what is below them.
    const Paths unclassified{"Mailbox - Alex Example\\Class of no characters",
                             "Mailbox - Alex Example\\Client settings",
                             "Mailbox - Alex Example\\Contacts\\Quick contacts",
                             "Mailbox - Alex Example\\Mail from the old server",
                             "Mailbox - Alex Example\\Mail from the old server\\INBOX",
                             "Mailbox - Alex Example\\Start page",
                             "Public Folders\\Forms in use"};
    EXPECT_EQ(Beyond(folders[0], folders[1]), Paths{});
    EXPECT_EQ(Beyond(folders[1], folders[0]), unclassified);

    // A mail client's stores are folders among folders, without a path of their own.
    EXPECT_EQ(Beyond(folders[2], folders[1]), Paths{""});
    EXPECT_EQ(Beyond(folders[1], folders[2]), Paths{});

    // A CDO session does not tell searches from folders, and has no item type where the class tells none.
    std::map<std::string, Row> classified = folders[3];
    Paths withoutType;
    std::erase_if(classified, [&](const auto& entry) {
        return entry.second.itemType == "-1" && withoutType.insert(entry.first).second;
    });
    EXPECT_EQ(withoutType, unclassified);
    EXPECT_EQ(Beyond(classified, folders[1]),
              (Paths{"Archive \"before 2022\"\\Search by sender", "Mailbox - Alex Example\\For follow-up",
                     "Mailbox - Alex Example\\Unread mail"}));
    EXPECT_EQ(Beyond(folders[1], classified), unclassified);
}

TEST_F(ModesByCom, ShowTheAddressListsThatTheirLibrariesOffer) {
    Load(0, 1, true);
    const Paths nested = AddressLists();
    EXPECT_EQ(nested.size(), 17u);
    Load(1, 1, true);
    EXPECT_EQ(AddressLists(), nested);
    Load(2, 1, true);
    EXPECT_EQ(AddressLists(), Paths{});
    // A CDO session shows no list that only holds other lists.
    Load(3, 1, true);
    Paths flat = AddressLists();
    flat.merge(Paths{"All Address Lists", "Branch offices", "Personal address books", "\u65E5\u672C"});
    EXPECT_EQ(flat, nested);
}

TEST_F(ModesByCom, ReadOneLevelDeeperThroughRdoObjects) {
    for (const auto& [mode, deepest] : {std::pair{0, 1}, {1, 2}, {2, 1}, {3, 1}}) {
        Load(mode, 1);
        int found = 0;
        for (const auto& [path, row] : Folders()) found = std::max(found, row.level);
        EXPECT_EQ(found, deepest) << "mode " << mode;
    }
}

/// Each mode by itself.
TEST_P(ModesByCom, OpensEveryNodeToWhatAReadOfAllLevelsShows) {
    Load(GetParam(), 0);
    const auto whole = Folders();
    Load(GetParam(), 1);
    ASSERT_LT(Folders().size(), whole.size());
    for (int32_t row = 1; row < Grid().RowCount(); ++row)
        if (Text(row, colIncomplete) == "-1") GridInteraction(Grid(), Core()).SetNode(row, true);
    EXPECT_EQ(Beyond(Folders(), whole), Paths{});
    Paths missing = Beyond(whole, Folders());
    // A CDO session's folder without a class ends the expansion that meets it, while the walk takes it for mail.
    const size_t projects = std::erase_if(
        missing, [](const std::string& path) { return path.starts_with("Mailbox - Alex Example\\Projects\\"); });
    EXPECT_EQ(missing, Paths{});
    EXPECT_EQ(projects, GetParam() == eISAccess_CDO ? 5u : 0u);
}

TEST_P(ModesByCom, SelectsCollapsesAndLooksUpTheSameFolders) {
    Load(GetParam(), 0);
    Core().SelectByType(FTIContactItem, false);
    const automation::Collection selected(Core().Selection());
    int32_t contacts = 0;
    for (const auto& [path, row] : Folders()) contacts += row.itemType == "2" && path != "";
    EXPECT_GE(contacts, 4);
    EXPECT_EQ(selected.Count(), contacts);
    for (int32_t position = 1; position <= selected.Count(); ++position) {
        const ObjectRef item = selected.Item(position).ToObject();
        EXPECT_EQ(item->Get("ItemType").ToLong(), 2);
        const ItemRef found = Core().GetMsgItem(item->Get("StoreID").ToText(), item->Get("EntryID").ToText());
        // A mail client's rows have keys without a store, which are not what is looked up.
        ASSERT_EQ(found != nullptr, GetParam() != eISAccess_Outlook) << item->Get("Path").ToText();
        if (found == nullptr) continue;
        EXPECT_EQ(found->Path(), item->Get("Path").ToText());
    }
    const int32_t ticked = RowOf("Mailbox - Alex Example\\Contacts");
    EXPECT_NE(Grid().CellValue(ticked, colSel), 0);

    const int32_t count = Core().ListCount();
    Core().CollapseToSelection();
    EXPECT_EQ(Core().ListCount(), count);
    EXPECT_TRUE(Grid().VisiblePosition(ticked)) << "a ticked row stays in view";
    EXPECT_FALSE(Grid().VisiblePosition(RowOf("Mailbox - Alex Example\\Inbox\\Customers")));

    Core().SelectNone();
    EXPECT_EQ(automation::Collection(Core().Selection()).Count(), 0);
    EXPECT_EQ(Grid().CellValue(ticked, colSel), 0);
}

INSTANTIATE_TEST_SUITE_P(Mode, ModesByCom, testing::Range(0, 4));

}  // namespace
}  // namespace foldertree
