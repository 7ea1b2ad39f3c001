// SelectionSetTest: the holders of the pick, and the items that hosts and rows make.
#include "selection/SelectionSet.h"

#include "automation/Collection.h"
#include "common/GridSetup.h"
#include "selection/SelectionView.h"
#include "support/ControlTest.h"

namespace foldertree::testing {
namespace {

using automation::ErrorValue;
using automation::ObjectRef;
using automation::Value;
using automation::testing::ScriptedObject;

using Selection = ControlTest;

TEST_F(Selection, IsNothingBeforeAnythingIsAssignedOrTicked) {
    EXPECT_EQ(control->Selection(), nullptr);
    Load();
    EXPECT_EQ(control->Selection(), nullptr);
}

TEST_F(Selection, ATickIsAddedToTheHostsOwnCollection) {
    Load();
    const auto collection = NewCollection();
    control->SetSelection(collection);
    Tick("Inbox");
    EXPECT_EQ(KeysOf(collection), Lines{"SB2|0001"});
    EXPECT_EQ(control->Selection(), collection);
}

TEST_F(Selection, ATickWithoutACollectionMakesOne) {
    Load();
    Tick("Inbox");
    const ObjectRef collection = control->Selection();
    EXPECT_EQ(KeysOf(collection), Lines{"SB2|0001"});
    EXPECT_EQ(control->Selection(), collection);
}

TEST_F(Selection, TheControlsOwnCollectionHasTheErrorsThatHostsKnow) {
    Load();
    Tick("Inbox");
    const ObjectRef collection = control->Selection();
    const auto numberOf = [&](auto&& call) -> uint32_t {
        try {
            call();
            return 0;
        } catch (const automation::Error& error) {
            return error.Number();
        }
    };
    EXPECT_EQ(numberOf([&] { collection->Get("Item", "nobody"); }), 5u);
    EXPECT_EQ(numberOf([&] { collection->Get("Item", 2); }), 9u);
    EXPECT_EQ(numberOf([&] { collection->Get("Add", Value(1.0), "sb2|0001"); }), 457u);
    EXPECT_EQ(collection->Get("Item", "sb2|0001").ToObject(), collection->Get("Item", 1).ToObject());
}

TEST_F(Selection, SelectedItemIsNothingWhileSeveralMayBeTicked) {
    Load();
    control->SetSelectedItem(HostItem("B2", "0001"));
    EXPECT_EQ(control->SelectedItem(), nullptr);
}

TEST_F(Selection, SelectedItemIsReadBackInSingleSelect) {
    LoadSingleSelect();
    const ItemRef item = HostItem("B2", "0001");
    control->SetSelectedItem(item);
    EXPECT_EQ(control->SelectedItem(), item);
}

TEST_F(Selection, AnItemOutsideTheTreeIsReadBackOnlyAfterAnEarlierPick) {
    LoadSingleSelect();
    const ItemRef stranger = HostItem("B2", "00EE");
    control->SetSelectedItem(stranger);
    EXPECT_EQ(control->SelectedItem(), nullptr);
    control->SetSelectedItem(HostItem("B2", "0001"));
    control->SetSelectedItem(stranger);
    EXPECT_EQ(control->SelectedItem(), stranger);
}

TEST_F(Selection, AnItemWithoutAStoreIsNotFoundInTheTree) {
    mailbox.stores[1].id = "";
    LoadSingleSelect();
    ASSERT_EQ(Cell("Inbox", colKey), "S|0001");
    control->SetSelectedItem(HostItem("", "0001"));
    // Found by the key that is put together here; the item's own Key is "0001".
    EXPECT_NE(control->SelectedItem(), nullptr);
    Grid().SetCellText(Row("Inbox"), colKey, "0001");
    control->SetMultiSelect(true);
    control->SetMultiSelect(false);
    control->SetSelectedItem(nullptr);
    control->SetSelectedItem(HostItem("", "0001"));
    EXPECT_EQ(control->SelectedItem(), nullptr);
}

TEST_F(Selection, CreateSelItemMakesAFolderItem) {
    const ItemRef item = control->CreateSelItem(5, "AB", "CD", "EF", "");
    EXPECT_EQ(item->Key(), "SAB|CD");
    EXPECT_EQ(item->EntryIDShort(), "");
    EXPECT_TRUE(item->Selected());
    EXPECT_TRUE(item->Incomplete());
    EXPECT_FALSE(item->IsAddressList());
    EXPECT_EQ(item->FolderRecID(), 5);
    EXPECT_EQ(item->Name() + item->Path(), "");
    EXPECT_EQ(item->Index(), 0);
}

TEST_F(Selection, CreateSelItemMakesAnAddressListItem) {
    const ItemRef item = control->CreateSelItem(5, "AB", "CD", "EF", "X1");
    EXPECT_TRUE(item->IsAddressList());
    EXPECT_EQ(item->Key(), "LX1");
    EXPECT_EQ(item->StoreID() + item->EntryID(), "");
    EXPECT_EQ(item->FolderRecID(), 5);
    EXPECT_TRUE(item->Selected() && item->Incomplete());
}

TEST_F(Selection, CreateSelItemTouchesNeitherCollectionNorTree) {
    Load();
    const auto collection = NewCollection();
    control->SetSelection(collection);
    const Lines tree = Tree();
    HostItem("B2", "0001");
    EXPECT_EQ(collection->Count(), 0);
    EXPECT_EQ(Tree(), tree);
}

TEST_F(Selection, KillCollectionEmptiesItAndTheCallersVariable) {
    const auto collection = NewCollection();
    AddItem(*collection, HostItem("A", "1"));
    AddItem(*collection, HostItem("A", "2"));
    ObjectRef variable = collection;
    control->KillCollection(variable);
    EXPECT_EQ(variable, nullptr);
    EXPECT_EQ(collection->Count(), 0);
}

TEST_F(Selection, KillCollectionOfNothingDoesNothing) {
    ObjectRef variable;
    control->KillCollection(variable);
    EXPECT_EQ(variable, nullptr);
    EXPECT_EQ(platform.Trace(), Lines{});
}

TEST_F(Selection, KillCollectionRemovesFromTheFront) {
    const auto log = std::make_shared<automation::testing::CallLog>();
    const auto collection = std::make_shared<ScriptedObject>("Items", log);
    int32_t count = 2;
    collection->Method("Count", [&count](const automation::Invocation&) { return Value(count); });
    collection->Method("Remove", [&count](const automation::Invocation&) {
        --count;
        return Value();
    });
    ObjectRef variable = collection;
    control->KillCollection(variable);
    EXPECT_EQ(log->Lines(), (Lines{"Items.Count", "Items.Remove(1)", "Items.Count", "Items.Remove(1)", "Items.Count"}));
}

TEST_F(Selection, AHostsCollectionMayBeAnyObjectOfThatShape) {
    const auto collection = std::make_shared<ScriptedObject>("Items");
    collection->Items({Value(HostItem("B2", "0001"))}).WithoutEnumeration();
    control->SetSelection(collection);
    Load();
    EXPECT_TRUE(IsTicked(Grid(), Row("Inbox")));
}

/// The holders by themselves.
class Holders : public ::testing::Test {
  protected:
    ItemRef Add(std::string_view store, std::string_view entry, int32_t index = 0) {
        const ItemRef item = set.CreateSelItem(0, store, entry, "", "");
        item->SetIndex(index);
        if (!set.collection) set.collection = NewCollection();
        automation::Collection(set.collection).Add(Value(item), item->Key());
        return item;
    }

    FakePlatform platform;
    automation::testing::ScriptedObjectFactory factory;
    ControlContext context{platform, factory};
    SelectionSet set{context};
};

TEST_F(Holders, AnItemIsRemovedByItsKeyWithoutRegardToCase) {
    Add("AB", "CD");
    EXPECT_TRUE(set.RemoveSelItemByKey("sab|cd"));
    EXPECT_EQ(KeysOf(set.collection), Lines{});
}

TEST_F(Holders, OnlyTheFirstItemWithTheKeyIsRemoved) {
    Add("AB", "CD");
    Add("AB", "CE");
    EXPECT_FALSE(set.RemoveSelItemByKey("SAB|C"));
    EXPECT_TRUE(set.RemoveSelItemByKey("SAB|CE"));
    EXPECT_EQ(KeysOf(set.collection), Lines{"SAB|CD"});
}

TEST_F(Holders, NothingIsRemovedWithoutACollection) {
    EXPECT_FALSE(set.RemoveSelItemByKey("SAB|CD"));
    EXPECT_EQ(platform.Trace(), Lines{});
}

TEST_F(Holders, AnItemIsFoundByItsKey) {
    const ItemRef item = Add("AB", "CD");
    EXPECT_EQ(set.GetSelItemByKey("sab|cd").Own(), item.get());
    EXPECT_FALSE(set.GetSelItemByKey("SAB|CE"));
}

TEST_F(Holders, AFailedLookupIsNothingAndNoError) {
    EXPECT_FALSE(set.GetSelItemByKey("SAB|CD"));
    set.collection = std::make_shared<ScriptedObject>("Broken");
    EXPECT_FALSE(set.GetSelItemByKey("SAB|CD"));
    EXPECT_EQ(platform.Trace(), Lines{});
}

TEST_F(Holders, TheHighestIndexIsTheLargestOfAll) {
    Add("AB", "1", 3);
    Add("AB", "2", 0);
    Add("AB", "3", 7);
    EXPECT_EQ(set.GetHighIndex(), 7);
}

TEST_F(Holders, TheHighestIndexIsNeverBelowZero) {
    EXPECT_EQ(set.GetHighIndex(), 0);
    set.collection = NewCollection();
    EXPECT_EQ(set.GetHighIndex(), 0);
    Add("AB", "1", -5);
    EXPECT_EQ(set.GetHighIndex(), 0);
}

TEST_F(Holders, AnItemMadeFromARowHasTheRowsCells) {
    SetupGrid(context);
    const int32_t row = context.grid.AddRow("-1");
    const std::vector<std::pair<int, const char*>> cells{
        {colIndex, "4"},      {colName, "Inbox"},        {colItemType, "9"},     {colStoreID, "AB"},
        {colEntryID, "00CD"}, {colEntryIDShort, "EFCD"}, {colFolderRecID, "12"}, {colPath, "Box\\Inbox"}};
    for (const auto& [col, text] : cells) context.grid.SetCellText(row, col, text);
    const ItemRef item = set.CreateSelItemFromRow(row);
    EXPECT_EQ(item->Name(), "Inbox");
    EXPECT_EQ(item->Index(), 4);
    EXPECT_EQ(item->Key(), "SAB|00CD");
    EXPECT_EQ(item->EntryIDShort(), "");
    EXPECT_EQ(item->ItemType(), FTIInbox);
    EXPECT_EQ(item->Path(), "Box\\Inbox");
    EXPECT_TRUE(item->Selected());
    EXPECT_FALSE(item->Incomplete() || item->IsAddressList());
    EXPECT_EQ(item->FolderRecID(), 12);
}

TEST_F(Holders, AnItemMadeFromAnAddressListRowIsOne) {
    SetupGrid(context);
    const int32_t row = context.grid.AddRow("");
    context.grid.SetCellText(row, colAddressListID, "X1");
    const ItemRef item = set.CreateSelItemFromRow(row);
    EXPECT_TRUE(item->IsAddressList());
    EXPECT_EQ(item->Key(), "LX1");
    EXPECT_FALSE(item->Selected());
}

TEST_F(Holders, TheBooleanOfATickIsWhetherItsNumberIsNotZero) {
    SetupGrid(context);
    const int32_t row = context.grid.AddRow("");
    for (const auto& [text, ticked] : std::vector<std::pair<const char*, bool>>{
             {"-1", true}, {"0", false}, {"", false}, {" ", false}, {"True", true}, {"False", false}, {"2", true}}) {
        context.grid.SetCellText(row, colSel, text);
        EXPECT_EQ(set.CreateSelItemFromRow(row)->Selected(), ticked) << text;
    }
}

TEST_F(Holders, ANumberTooLargeForAnIndexIsAnErrorLineAndTheItemSoFar) {
    SetupGrid(context);
    const int32_t row = context.grid.AddRow("");
    context.grid.SetCellText(row, colName, "Inbox");
    context.grid.SetCellText(row, colIndex, "9999999999");
    const ItemRef item = set.CreateSelItemFromRow(row);
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->Name(), "Inbox");
    ASSERT_EQ(platform.ErrorLines().size(), 1u);
    EXPECT_EQ(platform.ErrorLines()[0].substr(0, 58), "Error in ctlFolderTree.CreateSelItemFromRow (?): [0x6] Ove");
}

TEST_F(Holders, ARowThatDoesNotExistIsAnErrorLine) {
    set.CreateSelItemFromRow(77);
    EXPECT_EQ(platform.TraceCount("Error in ctlFolderTree.CreateSelItemFromRow (0): [0x9] "), 1u);
}

TEST_F(Holders, AForeignObjectThatCannotBeReadIsAnErrorLine) {
    const auto stranger = std::make_shared<ScriptedObject>("Stranger");
    set.collection = NewCollection();
    automation::Collection(set.collection).Add(Value(stranger), "K");
    EXPECT_EQ(set.GetHighIndex(), 0);
    EXPECT_FALSE(set.RemoveSelItemByKey("K"));
    EXPECT_EQ(platform.ErrorLines(),
              (Lines{"Error in ctlFolderTree.GetHighIndex(?): [0x80020006] Unknown name.",
                     "Error in ctlFolderTree.RemoveSelItemByKey(?): [0x80020006] Unknown name."}));
}

TEST_F(Selection, AHostMayChangeItsCollectionInsideTheEvent) {
    Load();
    const auto collection = NewCollection();
    control->SetSelection(collection);
    Tick("Inbox");
    platform.onChanged = [&] {
        while (collection->Count() > 0) collection->Remove(Value(int32_t{1}));
        AddItem(*collection, HostItem("B2", "0004"));
    };
    Tick("People");
    platform.onChanged = nullptr;
    control->SetSelection(collection);
    EXPECT_TRUE(IsTicked(Grid(), Row("To do")));
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

}  // namespace
}  // namespace foldertree::testing
