// ApplySelectionTest: a selection is shown in the tree, numbered, and read back from it.
#include "automation/Collection.h"
#include "selection/SelectionView.h"
#include "support/ControlTest.h"

namespace foldertree::testing {
namespace {

using automation::ObjectRef;
using automation::Value;
using automation::testing::ScriptedObject;

class Applying : public ControlTest {
  protected:
    /// Hands over items of the mailbox store by their entry identifiers.
    std::shared_ptr<automation::KeyedCollection> Assign(const std::vector<std::string>& entryIDs) {
        const auto collection = NewCollection();
        for (const std::string& entryID : entryIDs) AddItem(*collection, HostItem("B2", entryID));
        control->SetSelection(collection);
        return collection;
    }
};

TEST_F(Applying, ASavedItemIsTickedAndCompleted) {
    Load();
    const auto collection = NewCollection();
    const ItemRef item = HostItem("B2", "0002", 77);
    AddItem(*collection, item);
    control->SetSelection(collection);
    EXPECT_TRUE(IsTicked(Grid(), Row("People")));
    EXPECT_FALSE(item->Incomplete());
    EXPECT_EQ(item->Name(), "People");
    EXPECT_EQ(item->Path(), "Mailbox\\People");
    EXPECT_EQ(item->ItemType(), FTIContactItem);
    EXPECT_EQ(item->Key(), "SB2|0002");
    EXPECT_EQ(Cell("People", colFolderRecID), "77");
    EXPECT_EQ(Cell("People", colSel), "-1");
}

TEST_F(Applying, ASavedItemIsFoundUnderTheOtherFlagsByte) {
    Load();
    const auto collection = NewCollection();
    const ItemRef item = HostItem("B2", "EF01");
    AddItem(*collection, item);
    control->SetSelection(collection);
    EXPECT_TRUE(IsTicked(Grid(), Row("Inbox")));
    EXPECT_FALSE(item->Incomplete());
    EXPECT_EQ(item->Name(), "Inbox");
    EXPECT_EQ(item->Path(), "Mailbox\\Inbox");
    EXPECT_EQ(item->EntryID(), "0001");
}

TEST_F(Applying, ARowWithoutALongIdentifierIsFoundBeforeTheOtherFlagsByte) {
    mailbox.stores[1].folders[1].hasLongID = false;
    Load();
    ASSERT_EQ(Cell("People", colKey), "SB2|");
    const auto collection = NewCollection();
    AddItem(*collection, HostItem("B2", "EF01"));  // with the other flags byte it is the inbox
    control->SetSelection(collection);
    EXPECT_TRUE(IsTicked(Grid(), Row("People")));
    EXPECT_FALSE(IsTicked(Grid(), Row("Inbox")));
}

TEST_F(Applying, AnItemThatIsCompleteIsNotCompletedAgain) {
    Load();
    const auto collection = NewCollection();
    const ItemRef item = HostItem("B2", "0001", 5);
    AddItem(*collection, item);
    control->SetSelection(collection);
    Grid().SetCellText(Row("Inbox"), colFolderRecID, "7");
    Grid().SetCellText(Row("Inbox"), colPath, "moved");
    control->SetSelection(collection);
    EXPECT_EQ(Cell("Inbox", colFolderRecID), "7");
    EXPECT_EQ(item->Path(), "Mailbox\\Inbox");
}

TEST_F(Applying, KeysAreComparedWithoutRegardToCase) {
    mailbox.stores[1].id = "ABCD";
    Load();
    const auto collection = NewCollection();
    AddItem(*collection, HostItem("abcd", "0001"));
    control->SetSelection(collection);
    EXPECT_TRUE(IsTicked(Grid(), Row("Inbox")));
}

TEST_F(Applying, AnItemWithoutARowStaysIncompleteAndSurvivesReading) {
    Load();
    const auto collection = Assign({"00EE", "0001"});
    const ObjectRef read = control->Selection();
    EXPECT_EQ(read, collection);
    // Both have the number 0, so the row's item goes before the other.
    EXPECT_EQ(KeysOf(read), (Lines{"SB2|0001", "SB2|00EE"}));
    EXPECT_FALSE(ItemsOf(read)[0]->Incomplete());
    EXPECT_TRUE(ItemsOf(read)[1]->Incomplete());
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(Applying, ASelectionAssignedBeforeTheLoadIsShownAfterIt) {
    Assign({"0002", "0011"});
    Load();
    EXPECT_TRUE(IsTicked(Grid(), Row("People")));
    EXPECT_TRUE(IsTicked(Grid(), Row("Projects")));
    EXPECT_FALSE(IsTicked(Grid(), Row("Inbox")));
}

TEST_F(Applying, AfterAnUntickTheItemIsGoneAndTheOthersAreOrdered) {
    Load();
    for (const char* name : {"People", "Inbox", "Zoo"}) Tick(name);
    Untick("Inbox");
    EXPECT_EQ(SelectedKeys(), (Lines{"SB2|0002", "SB2|0012"}));
    EXPECT_EQ(Cell("People", colIndex), "1");
    EXPECT_EQ(Cell("Zoo", colIndex), "2");
}

TEST_F(Applying, SingleSelectUnticksEveryOtherRowFirst) {
    LoadSingleSelect();
    for (const char* name : {"Inbox", "Zoo"}) {
        Grid().SetCellText(Row(name), colSel, "-1");
        control->fgd_AfterEdit(Row(name), colName);  // paints the row and does nothing else
        ASSERT_EQ(BackColor(Grid(), Row(name)), 0x0000FFFFu);
    }
    control->SetSelectedItem(HostItem("B2", "0002"));
    EXPECT_EQ(Cell("Inbox", colSel), "0");
    EXPECT_EQ(Cell("Zoo", colSel), "0");
    EXPECT_EQ(Cell("People", colSel), "-1");
    EXPECT_EQ(BackColor(Grid(), Row("Inbox")), 0x80000005u);
    EXPECT_EQ(BackColor(Grid(), Row("People")), 0x0000FFFFu);
}

TEST_F(Applying, SingleSelectCompletesTheItem) {
    LoadSingleSelect();
    const ItemRef item = HostItem("B2", "0011", 9);
    control->SetSelectedItem(item);
    EXPECT_FALSE(item->Incomplete());
    EXPECT_EQ(item->Path(), "Mailbox\\Inbox\\Projects");
    EXPECT_EQ(Cell("Projects", colFolderRecID), "9");
}

TEST_F(Applying, SingleSelectWithoutAnItemOnlyUnticks) {
    LoadSingleSelect();
    Grid().SetCellText(Row("Inbox"), colSel, "-1");
    control->SetSelection(nullptr);
    EXPECT_FALSE(IsTicked(Grid(), Row("Inbox")));
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(Applying, SingleSelectLooksForTheItemsOwnKeyOnly) {
    LoadSingleSelect();
    const ItemRef item = HostItem("B2", "EF01");
    control->SetSelectedItem(item);
    control->RefreshList();
    EXPECT_FALSE(IsTicked(Grid(), Row("Inbox")));
    EXPECT_TRUE(item->Incomplete());
}

TEST_F(Applying, AMatchInTheHeaderRowCountsAsNone) {
    Load();
    Grid().SetCellText(0, colKey, "SB2|00EE");
    const auto collection = Assign({"00EE"});
    EXPECT_TRUE(ItemsOf(collection)[0]->Incomplete());
    EXPECT_EQ(Grid().CellText(0, colSel), "") << "the header row is not ticked";
}

TEST_F(Applying, ATickedRowWithoutAnItemStaysTicked) {
    Load();
    Grid().SetCellText(Row("Zoo"), colSel, "-1");
    Assign({"0001"});
    EXPECT_TRUE(IsTicked(Grid(), Row("Zoo")));
}

TEST_F(Applying, ATickedRowIsYellowFromItsNameAndBoldAllAlong) {
    Load();
    Assign({"0001"});
    const int32_t row = Row("Inbox");
    for (int col = 2; col < 14; ++col) EXPECT_EQ(BackColor(Grid(), row, col), 0x0000FFFFu) << col;
    EXPECT_NE(BackColor(Grid(), row, colSel), 0x0000FFFFu);
    for (int col = 0; col < 14; ++col) EXPECT_TRUE(IsBold(Grid(), row, col)) << col;
    EXPECT_EQ(BackColor(Grid(), row, colIndex), 0x80000005u);
}

TEST_F(Applying, AnUntickedRowKeepsItsBoldInTheFirstTwoCells) {
    Load();
    Tick("Inbox");
    Untick("Inbox");
    const int32_t row = Row("Inbox");
    EXPECT_TRUE(IsBold(Grid(), row, colSel));
    EXPECT_TRUE(IsBold(Grid(), row, colIndex));
    for (int col = 2; col < 14; ++col) EXPECT_FALSE(IsBold(Grid(), row, col)) << col;
    EXPECT_EQ(BackColor(Grid(), row, colName), 0x80000005u);
    EXPECT_EQ(BackColor(Grid(), row, colIndex), 0x8000000Fu);
    EXPECT_EQ(Cell("Inbox", colIndex), " ");
}

TEST_F(Applying, AnUntickedContactFolderStaysBoldWhileContactsAreHighlighted) {
    control->SetHighlightContactFolders(true);
    Load();
    Tick("People");
    Untick("People");
    EXPECT_TRUE(IsBold(Grid(), Row("People")));
    control->SetHighlightContactFolders(false);
    Tick("People");
    Untick("People");
    EXPECT_FALSE(IsBold(Grid(), Row("People")));
}

TEST_F(Applying, EachHighlightKeepsOnlyItsOwnTypeBold) {
    control->SetHighlightJournalFolders(true);
    Load();
    for (const char* name : {"People", "Diary", "To do"}) {
        Tick(name);
        Untick(name);
    }
    EXPECT_FALSE(IsBold(Grid(), Row("People")));
    EXPECT_TRUE(IsBold(Grid(), Row("Diary")));
    EXPECT_FALSE(IsBold(Grid(), Row("To do")));
}

TEST_F(Applying, SingleSelectPaintsNoIndexCell) {
    LoadSingleSelect();
    Tick("Inbox");
    Untick("Inbox");
    EXPECT_NE(BackColor(Grid(), Row("Inbox"), colIndex), 0x8000000Fu);
    EXPECT_EQ(Cell("Inbox", colIndex), "");
}

TEST_F(Applying, ReadingIsOrderedByTheNumbersInTheTree) {
    Load();
    for (const char* name : {"Inbox", "Projects", "Zoo"}) Tick(name);
    Grid().SetCellText(Row("Inbox"), colIndex, "9");
    EXPECT_EQ(SelectedKeys(), (Lines{"SB2|0011", "SB2|0012", "SB2|0001"}));
}

TEST_F(Applying, AReadReplacesCompletedItemsByNewObjects) {
    Load();
    const auto collection = Assign({"0001"});
    const ItemRef before = ItemsOf(collection)[0];
    const ObjectRef read = control->Selection();
    EXPECT_EQ(read, collection);
    EXPECT_NE(ItemsOf(read)[0], before);
    EXPECT_EQ(ItemsOf(read)[0]->Key(), before->Key());
}

TEST_F(Applying, ASecondReadWithoutAChangeRebuildsNothing) {
    Load();
    Assign({"0001"});
    const ItemRef first = ItemsOf(control->Selection())[0];
    EXPECT_EQ(ItemsOf(control->Selection())[0], first);
}

TEST_F(Applying, AReadInSingleSelectMayEmptyAHostsCollection) {
    Load();
    const auto collection = Assign({"0001"});
    control->SetMultiSelect(false);
    EXPECT_EQ(control->Selection(), collection);
    EXPECT_EQ(collection->Count(), 0);
}

TEST_F(Applying, AnIncompleteItemWhoseRowIsTickedIsTakenOutBeforeItIsPutInAgain) {
    Load();
    const auto collection = Assign({"00EE"});
    ItemsOf(collection)[0]->SetIndex(5);
    // The user's tick of a row that a saved item names but no pass has met yet.
    Grid().SetCellText(Row("Zoo"), colKey, "SB2|00EE");
    Grid().SetCellText(Row("Zoo"), colSel, "-1");
    Grid().SetCellText(Row("Zoo"), colIndex, "1");
    EXPECT_EQ(KeysOf(control->Selection()), Lines{"SB2|00EE"});
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(Applying, ARowWhoseKeyIsTakenIsPassedOverWithAnErrorLine) {
    Load();
    Grid().SetCellText(Row("Zoo"), colKey, "SB2|0001");  // by its cells still "SB2|0012"
    Grid().SetCellText(Row("People"), colEntryID, "0001");
    for (const char* name : {"Inbox", "People", "Diary"}) Grid().SetCellText(Row(name), colSel, "-1");
    control->SetSelection(NewCollection());
    const Lines keys = SelectedKeys();
    EXPECT_EQ(keys, (Lines{"SB2|0003", "SB2|0001"}));
    ASSERT_EQ(platform.ErrorLines().size(), 1u);
    EXPECT_EQ(platform.ErrorLines()[0].substr(0, 53), "Error in ctlFolderTree.RefreshSelection(?): 0x1C9] Th");
}

TEST_F(Applying, ARowWithASenselessNumberWhoseKeyIsTakenLeavesNoItemBehind) {
    Load();
    Tick("Inbox");
    Grid().SetCellText(Row("Zoo"), colKey, Cell("Inbox", colKey));
    Grid().SetCellText(Row("Zoo"), colSel, "-1");
    Grid().SetCellText(Row("Zoo"), colIndex, "99999999999");
    EXPECT_EQ(SelectedKeys(), Lines{"SB2|0001"});
    EXPECT_EQ(platform.ErrorLines().size(), 1u);
}

TEST_F(Applying, AForeignObjectIsTickedAndStaysIncomplete) {
    Load();
    const auto stranger = std::make_shared<ScriptedObject>("Stranger");
    stranger->ReadOnly("Key", Value("SB2|0001"))
        .ReadOnly("KeyShortEntryID", Value(""))
        .ReadOnly("KeyAlternate", Value(""));
    stranger->ReadOnly("Incomplete", Value(true))
        .Property("Index", Value(int32_t{3}))
        .ReadOnly("Selected", Value(true));
    const auto collection = NewCollection();
    automation::Collection(ObjectRef(collection)).Add(Value(stranger), "SB2|0001");
    control->SetSelection(collection);
    EXPECT_TRUE(IsTicked(Grid(), Row("Inbox")));
    EXPECT_EQ(Cell("Inbox", colIndex), "3");
    EXPECT_EQ(BackColor(Grid(), Row("Inbox")), 0x0000FFFFu);
    EXPECT_TRUE(stranger->Held("Incomplete").ToBoolean());
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(Applying, AnErrorWhileApplyingUnlocksTheGrid) {
    Load();
    const auto broken = std::make_shared<ScriptedObject>("Broken");
    broken->Items({Value("no object")});
    control->SetSelection(broken);
    ASSERT_EQ(platform.ErrorLines().size(), 1u);
    EXPECT_EQ(platform.ErrorLines()[0].substr(0, 48), "Error in ctlFolderTree.ApplySelection(?): 0xD] T");
    ExpectIdle();
}

TEST_F(Applying, AssigningNothingIsNoError) {
    Load();
    control->SetSelection(nullptr);
    EXPECT_EQ(control->Selection(), nullptr);
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

/// The passes by themselves.
class Passes : public Applying {
  protected:
    Passes() {
        context.state.multiSelect = true;
        for (const char* entryID : {"01", "02", "03"}) {
            const int32_t row = context.grid.AddRow("");
            context.grid.SetCellText(row, colStoreID, "AB");
            context.grid.SetCellText(row, colEntryID, entryID);
            context.grid.SetCellText(row, colKey, std::string("SAB|") + entryID);
        }
    }
    ItemRef Add(std::string_view entryID, bool selected = true) {
        const ItemRef item = set.CreateSelItem(0, "AB", entryID, "", "");
        item->SetSelected(selected);
        item->SetIndex(50);
        automation::Collection(set.EnsureCollection()).Add(Value(item), item->Key());
        return item;
    }

    FakePlatform platform;
    ControlContext context{platform, factory};
    SelectionSet set{context};
    SelectionView view{context, set};
};

TEST_F(Passes, ReIndexNumbersTheTickedItemsAndKeepsTheOthers) {
    const ItemRef first = Add("01");
    const ItemRef unticked = Add("02", false);
    const ItemRef second = Add("03");
    view.ReIndex();
    EXPECT_EQ(first->Index(), 1);
    EXPECT_EQ(unticked->Index(), 50);
    EXPECT_EQ(second->Index(), 2);
    EXPECT_EQ(context.grid.CellText(1, colIndex), "1");
    EXPECT_EQ(context.grid.CellText(3, colIndex), "2");
}

TEST_F(Passes, ReIndexWithoutACollectionDoesNothingAtAll) {
    context.grid.SetCellText(1, colSel, "-1");
    context.state.multiSelect = false;
    view.ReIndex();
    EXPECT_TRUE(IsTicked(context.grid, 1));
    EXPECT_FALSE(set.dirty);
}

TEST_F(Passes, ApplyingMarksTheSelectionForRebuilding) {
    view.ApplySelection();
    EXPECT_TRUE(set.dirty);
    view.RefreshSelection();
    EXPECT_FALSE(set.dirty);
}

TEST_F(Passes, ANestedPassDoesNotUnlockARunningLoad) {
    context.state.gridBusy = true;
    view.ApplySelection();
    EXPECT_TRUE(context.state.gridBusy);
    context.state.gridBusy = false;
    view.ApplySelection();
    EXPECT_FALSE(context.state.gridBusy);
}

TEST_F(Passes, TheRebuildInsertsBeforeTheFirstNumberThatIsNotLess) {
    for (const int32_t row : {1, 2, 3}) {
        context.grid.SetCellText(row, colSel, "-1");
        context.grid.SetCellText(row, colIndex, "4");
    }
    view.RefreshSelection();
    EXPECT_EQ(KeysOf(set.collection), (Lines{"SAB|03", "SAB|02", "SAB|01"}));
}

TEST_F(Passes, TheRebuildMakesNoCollectionWhenNothingIsTicked) {
    view.RefreshSelection();
    EXPECT_EQ(set.collection, nullptr);
}

TEST_F(Passes, MarkingARowThatDoesNotExistIsAnErrorLine) {
    view.MarkSelection(99);
    EXPECT_EQ(platform.TraceCount("Error in ctlFolderTree.MarkSelection (0): [0x9] "), 1u);
}

TEST_F(Passes, AnErrorWhileReindexingIsTraced) {
    const auto broken = std::make_shared<ScriptedObject>("Broken");
    broken->Items({Value("no object")});
    set.collection = broken;
    view.ReIndex();
    ASSERT_EQ(platform.ErrorLines().size(), 1u);
    EXPECT_EQ(platform.ErrorLines()[0].substr(0, 42), "Error in ctlFolderTree.ReIndex(?): 0xD] Ty");
    set.collection = nullptr;
}

}  // namespace
}  // namespace foldertree::testing
