// SameInAllModesTest: what users and hosts do with a tree comes out the same, whichever mode has read it.
#include <functional>

#include "conformance/ConformanceTest.h"

namespace foldertree::testing {
namespace {

class SameInAllModes : public ConformanceTest {
  protected:
    /// Loads the ordinary folders down to `depth` in each mode and runs `act`. The tree must be `expected` (as the RDO
    /// objects show it), and every row must look the same in all modes.
    void ExpectTreeAfter(int32_t depth, const std::function<void()>& act, const Lines& expected,
                         bool showAddressBook = false) {
        Lines looksOfFirst;
        for (const Setting& setting : ScriptedModes()) {
            SCOPED_TRACE(setting.mode->name);
            StartAnew();
            Use(setting);
            mail = OrdinaryFolders();
            LoadTree({.extendToLevel = depth == 0 ? 0 : LevelToRead(depth), .showAddressBook = showAddressBook});
            act();
            EXPECT_EQ(Tree(), AsShownInThisMode(expected));
            EXPECT_EQ(platform.ErrorLines(), Lines{});
            ExpectIdle();
            if (looksOfFirst.empty()) looksOfFirst = LooksInCommon();
            const Lines looks = LooksInCommon();
            EXPECT_EQ(looks, Lines(looksOfFirst.begin(), looksOfFirst.begin() + static_cast<long>(looks.size())));
            control->SetSelection(nullptr);
        }
        StartAnew();
    }

    Lines AsShownInThisMode(const Lines& expected) const {
        Lines lines;
        for (std::string line : expected) {
            if (!Mode().showsAddressLists && (line.ends_with("[Header]") || line.ends_with("[AdList]"))) continue;
            if (!Mode().nestsAddressLists && line.starts_with("    ") && line.ends_with("[AdList]")) continue;
            if (const size_t store = line.find("[Store]");
                store != std::string::npos && Mode().storeRowKind == "Folder")
                line.erase(store, 7);
            constexpr std::string_view noNumber = "no number";
            if (const size_t number = line.find(noNumber); number != std::string::npos)
                line.replace(number, noNumber.size(), Mode().noNumber);
            lines.push_back(line);
        }
        return lines;
    }

    /// The rows above the address lists without what the table of differences lets a mode write in its own way.
    Lines LooksInCommon() const {
        std::vector<GridRow> rows = Rows();
        std::vector<GridRow> common;
        for (GridRow& row : rows) {
            if (row.cells[colRowKind] == "Header") break;
            if (row.level == 0) {
                row.cells[colRowKind] = "Store";
                row.picture = Picture::FolderOpen;
            }
            for (const int col : {colStoreID, colEntryIDShort, colKey}) row.cells[static_cast<size_t>(col)].clear();
            if (row.cells[colSel] == Mode().unticked) row.cells[colSel].clear();
            if (row.cells[colIndex] == " ") row.cells[colIndex].clear();
            if (row.level > 0 && row.colors[colIndex].back == colors::buttonFace)
                row.colors[colIndex].back = colors::window;
            common.push_back(row);
        }
        common.erase(common.begin());
        return WholeLines(common);
    }

    void Select(const std::vector<std::pair<std::string, std::string>>& folders) {
        const auto collection = NewCollection();
        for (const auto& [store, folder] : folders) AddItem(*collection, ItemOf(store, folder));
        control->SetSelection(collection);
    }
};

TEST_F(SameInAllModes, ATreeDownToTheSecondLevel) {
    ExpectTreeAfter(2, [] {},
                    {"Mailbox[Store]", "  Calendar", "  Inbox", "    Projects[unread][closed]", "      [Dummy]",
                     "    Tasks", "  People", "Archive[Store]", "  Diary"});
}

TEST_F(SameInAllModes, AnExpansion) {
    ExpectTreeAfter(
        2, [this] { Open("Projects"); },
        {"Mailbox[Store]", "  Calendar", "  Inbox", "    Projects", "      Alpha", "      Beta[unread][closed]",
         "        [Dummy]", "    Tasks", "  People", "Archive[Store]", "  Diary"});
}

TEST_F(SameInAllModes, ANodeThatIsOpenedTwiceIsReadOnce) {
    ExpectTreeAfter(
        2,
        [this] {
            Open("Projects");
            mail.log->Clear();
            Shut("Projects");
            Open("Projects");
            EXPECT_EQ(mail.log->Lines(), Lines{});
        },
        {"Mailbox[Store]", "  Calendar", "  Inbox", "    Projects", "      Alpha", "      Beta[unread][closed]",
         "        [Dummy]", "    Tasks", "  People", "Archive[Store]", "  Diary"});
}

TEST_F(SameInAllModes, AnAddressBookBelowTheFolders) {
    ExpectTreeAfter(
        2, [] {},
        {"Mailbox[Store]", "  Calendar", "  Inbox", "    Projects[unread][closed]", "      [Dummy]", "    Tasks",
         "  People", "Archive[Store]", "  Diary", "<address lists>[Header]", "  Global[AdList]", "    Europe[AdList]"},
        true);
}

TEST_F(SameInAllModes, ASelectionOfTheHostAppliedByTheRefresh) {
    ExpectTreeAfter(2,
                    [this] {
                        Select({{"B2", "0012"}, {"B2", "0001"}, {"B2", "0099"}});
                        control->RefreshList();
                        const auto items = ItemsOf(control->Selection());
                        ASSERT_EQ(items.size(), 3u);
                        size_t incomplete = 0;
                        for (const ItemRef& item : items) incomplete += item->Incomplete() ? 1u : 0u;
                        EXPECT_EQ(incomplete, 1u) << "the folder that is not in the tree";
                    },
                    {"Mailbox[Store]", "  Calendar", "  Inbox[0]", "    Projects[unread][closed]", "      [Dummy]",
                     "    Tasks[0]", "  People", "Archive[Store]", "  Diary"});
}

TEST_F(SameInAllModes, ASelectionOfTheHostAppliedByAnExpansion) {
    ExpectTreeAfter(
        2,
        [this] {
            Select({{"B2", "0021"}});
            EXPECT_EQ(Grid().FindRow("Alpha", 0, colName), -1);
            Open("Projects");
        },
        {"Mailbox[Store]", "  Calendar", "  Inbox", "    Projects", "      Alpha[0]", "      Beta[unread][closed]",
         "        [Dummy]", "    Tasks", "  People", "Archive[Store]", "  Diary"});
}

TEST_F(SameInAllModes, TicksAndNumbersOfTheUser) {
    control->SetAllowIndexing(true);
    ExpectTreeAfter(2,
                    [this] {
                        platform.changed = 0;
                        for (const char* name : {"Tasks", "People", "Diary"}) Tick(name);
                        Untick("People");
                        EXPECT_EQ(platform.changed, 4);
                        EXPECT_EQ(control->Selection()->Get("Count").ToLong(), 2);
                    },
                    {"Mailbox[Store]", "  Calendar", "  Inbox", "    Projects[unread][closed]", "      [Dummy]",
                     "    Tasks[1]", "  People", "Archive[Store]", "  Diary[2]"});
}

TEST_F(SameInAllModes, ASingleSelection) {
    ExpectTreeAfter(2,
                    [this] {
                        control->SetMultiSelect(false);
                        Tick("Tasks");
                        Tick("Diary");
                        ASSERT_NE(control->SelectedItem(), nullptr);
                        EXPECT_EQ(control->SelectedItem()->Name(), "Diary");
                    },
                    {"Mailbox[Store]", "  Calendar", "  Inbox", "    Projects[unread][closed]", "      [Dummy]",
                     "    Tasks", "  People", "Archive[Store]", "  Diary[no number]"});
}

TEST_F(SameInAllModes, SelectAll) {
    ExpectTreeAfter(
        0, [this] { control->SelectAll(); },
        {"Mailbox[Store]", "  Calendar[1]", "  Inbox[2]", "    Projects[3]", "      Alpha[4]", "      Beta[5]",
         "        Gamma[6]", "    Tasks[7]", "  People[8]", "Archive[Store]", "  Diary[9]"});
}

TEST_F(SameInAllModes, SelectNone) {
    ExpectTreeAfter(0,
                    [this] {
                        control->SelectAll();
                        control->SelectNone();
                        EXPECT_EQ(control->Selection()->Get("Count").ToLong(), 0);
                    },
                    {"Mailbox[Store]", "  Calendar", "  Inbox", "    Projects", "      Alpha", "      Beta",
                     "        Gamma", "    Tasks", "  People", "Archive[Store]", "  Diary"});
}

TEST_F(SameInAllModes, SelectByType) {
    ExpectTreeAfter(0,
                    [this] {
                        Tick("Tasks");
                        control->SelectByType(FTIContactItem, true);
                    },
                    {"Mailbox[Store]", "  Calendar", "  Inbox", "    Projects", "      Alpha[2]", "      Beta",
                     "        Gamma", "    Tasks[1]", "  People[3]", "Archive[Store]", "  Diary"});
    ExpectTreeAfter(0,
                    [this] {
                        Tick("Tasks");
                        control->SelectByType(FTIContactItem, false);
                    },
                    {"Mailbox[Store]", "  Calendar", "  Inbox", "    Projects", "      Alpha[1]", "      Beta",
                     "        Gamma", "    Tasks", "  People[2]", "Archive[Store]", "  Diary"});
}

TEST_F(SameInAllModes, CollapseToSelection) {
    ExpectTreeAfter(0,
                    [this] {
                        Tick("Alpha");
                        control->CollapseToSelection();
                    },
                    {"Mailbox[Store]", "  Calendar[closed]", "  Inbox", "    Projects", "      Alpha[closed][1]",
                     "      Beta[closed]", "        Gamma[closed]", "    Tasks[closed]", "  People[closed]",
                     "Archive[Store][closed]", "  Diary"});
}

TEST_F(SameInAllModes, CollapseToType) {
    ExpectTreeAfter(
        0, [this] { control->CollapseToType(FTITaskItem); },
        {"Mailbox[Store]", "  Calendar[closed]", "  Inbox", "    Projects", "      Alpha[closed]", "      Beta",
         "        Gamma", "    Tasks[closed]", "  People[closed]", "Archive[Store][closed]", "  Diary"});
}

TEST_F(SameInAllModes, AChangedHighlight) {
    ExpectTreeAfter(0,
                    [this] {
                        control->SetHighlightContactFolders(true);
                        EXPECT_TRUE(IsBold(Grid(), Row("Alpha")));
                        EXPECT_FALSE(IsBold(Grid(), Row("Tasks")));
                        EXPECT_TRUE(IsBold(Grid(), Row("Archive")));
                    },
                    {"Mailbox[Store]", "  Calendar", "  Inbox", "    Projects", "      Alpha", "      Beta",
                     "        Gamma", "    Tasks", "  People", "Archive[Store]", "  Diary"});
}

TEST_F(SameInAllModes, ALevelThatIsChangedInAFullyReadTree) {
    ExpectTreeAfter(
        0,
        [this] {
            control->SetExtendToLevel(0);  // reads everything and remembers that it did
            mail.log->Clear();
            control->SetExtendToLevel(2);
            EXPECT_EQ(mail.log->Lines(), Lines{});
        },
        {"Mailbox[Store]", "  Calendar", "  Inbox", "    Projects[closed]", "      Alpha[closed]", "      Beta[closed]",
         "        Gamma[closed]", "    Tasks[closed]", "  People", "Archive[Store]", "  Diary"});
}

TEST_F(SameInAllModes, ACancelBetweenSiblings) {
    ExpectTreeAfter(0,
                    [this] {
                        platform.onYield = [this](int) {
                            if (platform.paths.back().ends_with("Alpha")) control->CancelLoad();
                        };
                        control->RefreshList();
                        platform.onYield = nullptr;
                        // The reader of the next store is still called where the default store comes first, and stops
                        // by itself.
                        const Lines shown = NamesOf(Grid());
                        EXPECT_EQ(Lines(shown.begin(), shown.begin() + 5),
                                  (Lines{"Mailbox", "Calendar", "Inbox", "Projects", "Alpha"}));
                        EXPECT_EQ(shown.size(), Mode().defaultStoreFirst ? 7u : 5u);
                        control->RefreshList();
                    },
                    {"Mailbox[Store]", "  Calendar", "  Inbox", "    Projects", "      Alpha", "      Beta",
                     "        Gamma", "    Tasks", "  People", "Archive[Store]", "  Diary"});
}

TEST_F(SameInAllModes, ACancelledExpansionCountsAsRead) {
    ExpectTreeAfter(2,
                    [this] {
                        platform.onYield = [this](int) {
                            if (platform.paths.back().ends_with("Alpha")) control->CancelLoad();
                        };
                        Open("Projects");
                        platform.onYield = nullptr;
                    },
                    {"Mailbox[Store]", "  Calendar", "  Inbox", "    Projects", "      Alpha", "    Tasks", "  People",
                     "Archive[Store]", "  Diary"});
}

TEST_F(SameInAllModes, ALookupFindsWhatIsInTheTree) {
    ExpectTreeAfter(2,
                    [this] {
                        // The host names store and folder; only modes that tell the store find it under both.
                        const ItemRef found = control->GetMsgItem("B2", "0012");
                        ASSERT_EQ(found != nullptr, Mode().tellsStore);
                        if (found != nullptr) {
                            EXPECT_EQ(found->Name(), "Tasks");
                            EXPECT_EQ(found->Path(), "Mailbox\\Inbox\\Tasks");
                            EXPECT_EQ(found->ItemType(), FTITaskItem);
                            EXPECT_FALSE(found->Selected());
                            EXPECT_NE(control->GetMsgItem("B2", "0012"), found);
                        }
                        EXPECT_EQ(control->GetMsgItem("B2", "0021"), nullptr) << "it was not read";
                        EXPECT_EQ(control->GetMsgItem("A1", "0012"), nullptr);
                        EXPECT_EQ(control->GetAdListItem("G1", "G11"), nullptr);
                    },
                    {"Mailbox[Store]", "  Calendar", "  Inbox", "    Projects[unread][closed]", "      [Dummy]",
                     "    Tasks", "  People", "Archive[Store]", "  Diary"});
}

TEST_F(SameInAllModes, AnUnreadTreeAfterTheModeBecameUnknown) {
    ExpectTreeAfter(2,
                    [this] {
                        control->SetInfoStoreAccessMode(static_cast<enuInfoStoreAccessMode>(4));
                        control->RefreshList();
                    },
                    {});
}

/// Which stores lead, and which are read at all.
class StoreOrder : public EachSetting {};

TEST_P(StoreOrder, WithTheDefaultStoreAnywhere) {
    for (size_t position = 0; position < mail.stores.size(); ++position) {
        for (size_t i = 0; i < mail.stores.size(); ++i) mail.stores[i].isDefault = i == position;
        SCOPED_TRACE(position);
        StartAnew();
        LoadTree();
        ExpectTree({mail, Mode()});
    }
}

TEST_P(StoreOrder, WithTwoStoresThatCallThemselvesTheDefault) {
    mail.stores[0].isDefault = true;
    LoadTree();
    ExpectTree({mail, Mode()});
}

TEST_P(StoreOrder, WithoutADefaultStore) {
    mail.stores[1].isDefault = false;
    LoadTree();
    Lines names;
    for (const GridRow& row : Rows())
        if (row.level == 0 && row.node) names.push_back(row.cells[colName].substr(0, row.cells[colName].find(" (")));
    EXPECT_EQ(names, (Lines{"Archive", "Mailbox", "Public"}));
    for (const GridRow& row : Rows()) EXPECT_NE(row.picture, Picture::Home);
}

TEST_P(StoreOrder, WithoutAnyStore) {
    mail.stores.clear();
    LoadTree();
    EXPECT_EQ(Tree(), Lines{});
    ExpectIdle();
}

INSTANTIATE_TEST_SUITE_P(Modes, StoreOrder, ::testing::ValuesIn(ScriptedModes()), SettingName);

}  // namespace
}  // namespace foldertree::testing
