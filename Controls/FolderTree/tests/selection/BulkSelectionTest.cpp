// BulkSelectionTest: ticking and unticking many rows at once.
#include <algorithm>

#include "modes/ModeTest.h"

namespace foldertree::testing {
namespace {

using automation::testing::ScriptedObject;

/// A tree with every kind of row: stores, folders, a placeholder, the address-list heading and a list.
class BulkSelection : public ModeTest {
  protected:
    BulkSelection() {
        ShowAddressLists();
        mail.addressLists = {AddressList("Global", "G1")};
        control->SetAllowIndexing(true);
        LoadMode(eISAccess_RDO_Objects, 1);
        platform.changed = 0;
    }

    Lines TickedNames() {
        Lines names;
        for (int32_t row = 1; row < Grid().RowCount(); ++row)
            if (IsTicked(Grid(), row)) names.push_back(Grid().CellText(row, colName));
        return names;
    }
    /// The collection as it is, without the rebuilding that reading `Selection` brings.
    std::shared_ptr<automation::KeyedCollection> HandOver(const std::vector<ItemRef>& items) {
        auto collection = NewCollection();
        for (const ItemRef& item : items) AddItem(*collection, item);
        control->SetSelection(collection);
        return collection;
    }
    void SelectSingle(std::string_view name) {
        control->SetMultiSelect(false);
        Tick(name);
        ASSERT_NE(control->SelectedItem(), nullptr);
        platform.changed = 0;
    }
};

TEST_F(BulkSelection, SelectNoneWithoutTicksChangesNothingButMarksTheSelectionForRebuilding) {
    const auto collection = HandOver({});
    control->Selection();
    const Lines tree = Tree();
    // A tick that the control was not told of shows whether the selection is read from the tree again.
    control->SelectNone();
    EXPECT_EQ(Tree(), tree);
    Grid().SetCellText(Row("Zoo"), colSel, "-1");
    EXPECT_EQ(SelectedKeys(), Lines{"SB2|0012"});
    EXPECT_EQ(platform.changed, 0);
}

TEST_F(BulkSelection, SelectNoneUnticksPaintsAndTakesOutItems) {
    Tick("Zoo");
    Tick("People");
    Tick("Global");
    platform.changed = 0;
    control->SelectNone();
    EXPECT_EQ(TickedNames(), Lines{});
    EXPECT_EQ(Cell("Zoo", colSel), "0");
    EXPECT_EQ(Cell("Zoo", colIndex), " ");
    EXPECT_EQ(BackColor(Grid(), Row("Zoo")), colors::window);
    EXPECT_FALSE(IsBold(Grid(), Row("Zoo")));
    EXPECT_EQ(SelectedKeys(), Lines{});
    EXPECT_EQ(platform.changed, 0) << "the event tells what the user did";
}

TEST_F(BulkSelection, SelectNoneKeepsItemsThatMatchNoRow) {
    const auto collection = HandOver({HostItem("B2", "0012"), HostItem("B2", "7777")});
    control->SelectNone();
    EXPECT_EQ(KeysOf(collection), Lines{"SB2|7777"});
}

TEST_F(BulkSelection, SelectNoneInSingleSelectForgetsTheItem) {
    SelectSingle("Zoo");
    control->SelectNone();
    EXPECT_EQ(control->SelectedItem(), nullptr);
    EXPECT_EQ(TickedNames(), Lines{});
    control->RefreshList();
    EXPECT_EQ(TickedNames(), Lines{}) << "nor does it come back";
    control->SetSelectedItem(HostItem("B2", "7777"));
    EXPECT_EQ(control->SelectedItem(), nullptr) << "the row is forgotten too";
}

TEST_F(BulkSelection, SelectAllTicksNoStoreHeadingPlaceholderOrUnpickableRow) {
    Grid().SetCellFormat(CellSetting::BackColor, Row("Diary"), colSel, colors::buttonFace);
    control->SelectAll();
    EXPECT_EQ(TickedNames(), (Lines{"Inbox", "Projects", "Zoo", "People", "To do", "Old mail", "Global"}));
    EXPECT_EQ(Cell("Inbox", colIndex), "1");
    EXPECT_EQ(Cell("Global", colIndex), "7");
    EXPECT_EQ(BackColor(Grid(), Row("Zoo")), colors::ticked);
    EXPECT_EQ(platform.changed, 0);
}

TEST_F(BulkSelection, RowsThatAreNothingToPickAreKnownByTheirKindInAnyLetterCase) {
    for (const char* kind : {"STORE", "store", "Header", "hEADER", "DUMMY", "dummy"}) {
        // Not by their colour: its first cell is that of an ordinary folder.
        Grid().SetCellText(Row("People"), colRowKind, kind);
        control->SelectAll();
        EXPECT_FALSE(IsTicked(Grid(), Row("People"))) << kind;
        control->SelectByType(FTIContactItem, false);
        EXPECT_EQ(TickedNames(), Lines{}) << kind;
        Grid().SetCellText(Row("People"), colSel, "-1");
        control->SelectNone();
        EXPECT_EQ(TickedNames(), Lines{"People"}) << kind << ": its tick is not the selection's";
        Grid().SetCellText(Row("People"), colSel, "");
    }
}

TEST_F(BulkSelection, SelectAllPassesOverTheStoreRowsOfTheMailClientToo) {
    LoadMode(eISAccess_Outlook);
    control->SelectAll();
    EXPECT_FALSE(IsTicked(Grid(), Row("Mailbox")));
    EXPECT_TRUE(IsTicked(Grid(), Row("Inbox")));
}

TEST_F(BulkSelection, SelectAllKeepsThePlaceOfItemsThatAreThere) {
    const auto collection = HandOver({HostItem("B2", "0004"), HostItem("B2", "7777")});
    ItemsOf(collection)[0]->SetSelected(false);
    control->SelectAll();
    const Lines keys = KeysOf(collection);
    ASSERT_EQ(keys.size(), 9u);
    EXPECT_EQ(keys[0], "SB2|0004");
    EXPECT_EQ(keys[1], "SB2|7777");
    EXPECT_TRUE(ItemsOf(collection)[0]->Selected());
    EXPECT_EQ(Cell("To do", colIndex), "1");
}

TEST_F(BulkSelection, SelectAllDoesNothingInSingleSelect) {
    SelectSingle("Zoo");
    control->SelectAll();
    EXPECT_EQ(TickedNames(), Lines{"Zoo"});
    EXPECT_EQ(control->Selection(), nullptr);
    EXPECT_EQ(Cell("People", colIndex), " ");
}

TEST_F(BulkSelection, SelectByTypeLeavesOnlyThatTypePicked) {
    Tick("Zoo");
    Tick("Diary");
    platform.changed = 0;
    control->SelectByType(FTIContactItem, false);
    EXPECT_EQ(TickedNames(), Lines{"People"});
    EXPECT_EQ(Cell("People", colIndex), "1");
    EXPECT_EQ(Cell("Zoo", colIndex), " ");
    EXPECT_EQ(BackColor(Grid(), Row("Zoo")), colors::window);
    EXPECT_EQ(SelectedKeys(), Lines{"SB2|0002"});
    EXPECT_EQ(platform.changed, 0);
}

TEST_F(BulkSelection, SelectByTypeInAdditionNumbersTheNewFoldersAfterThePickThatStays) {
    Tick("Zoo");
    Tick("Diary");
    control->SelectByType(FTIContactItem, true);
    EXPECT_EQ(TickedNames(), (Lines{"Zoo", "People", "Diary"}));
    EXPECT_EQ(Cell("Zoo", colIndex), "1");
    EXPECT_EQ(Cell("Diary", colIndex), "2");
    EXPECT_EQ(Cell("People", colIndex), "3");
}

TEST_F(BulkSelection, SelectByTypeUnticksRowsThatHaveNoItem) {
    const auto collection = HandOver({});
    Grid().SetCellText(Row("Zoo"), colSel, "-1");
    control->SetSelection(collection);
    EXPECT_TRUE(IsTicked(Grid(), Row("Zoo"))) << "handing over a selection unticks nothing";
    control->SelectByType(FTIContactItem, true);
    EXPECT_TRUE(IsTicked(Grid(), Row("Zoo")));
    control->SelectByType(FTIContactItem, false);
    EXPECT_FALSE(IsTicked(Grid(), Row("Zoo")));
    EXPECT_EQ(Cell("Zoo", colIndex), " ");
}

TEST_F(BulkSelection, SelectByTypeKeepsTheTickOfASecondRowOfAnItemThatItCompletes) {
    const auto collection = HandOver({});
    // The host's item has the other form of the identifier, and takes over the row's when it is completed.
    AddItem(*collection, HostItem("B2", "EF12"));
    Grid().SetCellText(Row("People"), colKey, Cell("Zoo", colKey));
    Grid().SetCellText(Row("People"), colSel, "-1");
    control->SelectByType(FTITaskItem, false);
    EXPECT_EQ(KeysOf(collection)[0], Cell("Zoo", colKey));
    EXPECT_TRUE(IsTicked(Grid(), Row("Zoo")));
    EXPECT_TRUE(IsTicked(Grid(), Row("People")));
}

TEST_F(BulkSelection, SelectByTypeTicksTheItemsThatItMakes) {
    const auto collection = HandOver({});
    control->SelectByType(FTITaskItem, false);
    ASSERT_EQ(KeysOf(collection), Lines{"SB2|0004"});
    EXPECT_TRUE(ItemsOf(collection)[0]->Selected());
    EXPECT_EQ(ItemsOf(collection)[0]->Index(), 1);
}

TEST_F(BulkSelection, SelectByTypeKeepsTheNumberOfAnItemThatIsSelected) {
    Tick("Diary");
    Tick("People");
    control->SelectByType(FTIContactItem, true);
    EXPECT_EQ(Cell("Diary", colIndex), "1");
    EXPECT_EQ(Cell("People", colIndex), "2");
}

TEST_F(BulkSelection, SelectByTypeThatFindsNothingNewStillShowsTheSelection) {
    Tick("Zoo");
    Grid().SetCellText(Row("Zoo"), colSel, "0");
    control->SelectByType(FTIAppointmentItem, true);
    EXPECT_EQ(TickedNames(), Lines{"Zoo"});
}

TEST_F(BulkSelection, SelectByTypeTakesOutOnlyTheFirstOfTwoItemsWithOneKey) {
    const ItemRef first = HostItem("B2", "0012");
    const ItemRef second = HostItem("B2", "0012");
    const auto collection = HandOver({first});
    collection->Add(automation::Value(second), "the host's own key", automation::Missing(), automation::Missing());
    control->SelectByType(FTIContactItem, false);
    const std::vector<ItemRef> left = ItemsOf(collection);
    EXPECT_EQ(std::count(left.begin(), left.end(), first), 0);
    EXPECT_EQ(std::count(left.begin(), left.end(), second), 1);
    // The item that stays keeps its row ticked.
    EXPECT_TRUE(IsTicked(Grid(), Row("Zoo")));
}

TEST_F(BulkSelection, AnErrorInSelectByTypeLeavesOutWhatWasTakenOutBefore) {
    const ItemRef people = HostItem("B2", "0002");
    const auto collection = HandOver({HostItem("B2", "0012"), people});
    // The row's item is not recognised, and a new one finds its key taken.
    Grid().SetCellText(Row("People"), colKey, "another key");
    control->SelectByType(FTIContactItem, false);
    EXPECT_EQ(ItemsOf(collection), std::vector{people});
    EXPECT_EQ(platform.ErrorLines().size(), 1u);
}

TEST_F(BulkSelection, SelectByTypeMailPicksAddressListsToo) {
    control->SelectByType(FTIMailItem, false);
    EXPECT_TRUE(IsTicked(Grid(), Row("Global"))) << "a row without an item type counts as 0";
    EXPECT_TRUE(IsTicked(Grid(), Row("Inbox")));
    EXPECT_FALSE(IsTicked(Grid(), Row("People")));
    EXPECT_FALSE(IsTicked(Grid(), Row("Mailbox")));
}

TEST_F(BulkSelection, SelectByTypeNeverPicksAnUnpickableRow) {
    Grid().SetCellFormat(CellSetting::BackColor, Row("People"), colSel, colors::buttonFace);
    control->SelectByType(FTIContactItem, false);
    EXPECT_EQ(TickedNames(), Lines{});
}

TEST_F(BulkSelection, SelectByTypeMakesACollectionWhenThereIsNone) {
    control->SetSelection(nullptr);
    control->SelectByType(FTIContactItem, false);
    EXPECT_EQ(SelectedKeys(), Lines{"SB2|0002"});
}

TEST_F(BulkSelection, AFailingCollectionIsToldInOneLineEach) {
    auto collection = std::make_shared<ScriptedObject>("Collection");
    collection->Fails("Count", automation::Error(0x80004005, "Broken."));
    collection->Fails("Add", automation::Error(0x80004005, "Broken."));
    control->SetSelection(collection);
    platform.ClearTrace();
    control->SelectNone();
    control->SelectByType(FTIContactItem, true);
    const Lines errors = platform.ErrorLines();
    EXPECT_EQ(std::count(errors.begin(), errors.end(), "Error in ctlFolderTree.SelectNone(?): 0x80004005] Broken."), 1);
    EXPECT_EQ(std::count(errors.begin(), errors.end(), "Error in ctlFolderTree.SelectByType(?): 0x80004005] Broken."),
              1);
    control->SelectAll();
    EXPECT_EQ(platform.TraceCount("Error in ctlFolderTree.SelectAll("), 1u);
    control->SetSelection(nullptr);
}

}  // namespace
}  // namespace foldertree::testing
