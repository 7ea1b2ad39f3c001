// StoreRowsTest: the row of a message store.
#include "support/ControlTest.h"

namespace foldertree::testing {
namespace {

using automation::Error;
using automation::Value;
using automation::testing::ScriptedObject;

class StoreRows : public ControlTest {
  protected:
    FakeStore& Store() { return mailbox.stores[1]; }
};

TEST_F(StoreRows, TheProviderFollowsTheNameInParentheses) {
    Store().provider = "Exchange";
    Load();
    EXPECT_EQ(NamesOf(Grid())[0], "Mailbox (Exchange)");
}

TEST_F(StoreRows, AnEmptyProviderLeavesTheBareName) {
    Store().provider = "";
    Load();
    EXPECT_EQ(NamesOf(Grid())[0], "Mailbox");
}

TEST_F(StoreRows, PathsStartWithTheNameWithoutTheProvider) {
    Store().provider = "Exchange";
    Load();
    EXPECT_EQ(Cell("Inbox", colPath), "Mailbox\\Inbox");
    EXPECT_EQ(Cell("Projects", colPath), "Mailbox\\Inbox\\Projects");
}

TEST_F(StoreRows, WithoutTheUtilityClassTheNameIsPlainAndNothingIsTraced) {
    factory.On("NOXMAPI.NOXMAPIUtils",
               []() -> automation::ObjectRef { throw Error(0x80040154, "Class not registered"); });
    Load();
    EXPECT_EQ(NamesOf(Grid())[0], "Mailbox");
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(StoreRows, AUtilityThatFailsOrGivesNoTextLeavesThePlainName) {
    const auto utilities = std::make_shared<ScriptedObject>("Utilities");
    factory.On("NOXMAPI.NOXMAPIUtils", [utilities] { return utilities; });
    for (const Value& value : {Value(), Value(automation::Null()), Value(automation::ErrorValue{0x8004010F}),
                               Value(automation::Array{0, {}}), Value(nullptr)}) {
        utilities->Method("GetProperty", [value](const automation::Invocation&) { return value; });
        Load();
        EXPECT_EQ(NamesOf(Grid())[0], "Mailbox") << value.TypeName();
    }
    utilities->Fails("GetProperty", Error(0x8004010F, "Not found."));
    Load();
    EXPECT_EQ(NamesOf(Grid())[0], "Mailbox");
    EXPECT_EQ(platform.ErrorLines(), Lines{});
    factory.On("NOXMAPI.NOXMAPIUtils", [] { return nullptr; });
}

TEST_F(StoreRows, TheDefaultStoreHasTheHomePictureAndTheOthersAnOpenFolder) {
    Load();
    EXPECT_EQ(PictureOf(Grid(), Row("Mailbox")), Picture::Home);
    EXPECT_EQ(PictureOf(Grid(), Row("Archive")), picFolderOpen);
    EXPECT_EQ(Grid().CellFormat(CellSetting::PictureAlignment, Row("Mailbox"), colName), 1u);
}

TEST_F(StoreRows, TheRowIsABoldGreyBand) {
    Load();
    const int32_t row = Row("Archive");
    for (int col = 0; col < 14; ++col) {
        EXPECT_EQ(BackColor(Grid(), row, col), 0x8000000Fu) << col;
        EXPECT_TRUE(IsBold(Grid(), row, col)) << col;
    }
    EXPECT_EQ(Grid().RowHeight(row), 19 * 15);
    EXPECT_EQ(Grid().RowOutlineLevel(row), 0);
    EXPECT_TRUE(Grid().IsNode(row));
}

TEST_F(StoreRows, TheRowKnowsItsKindAndItsStore) {
    Load();
    EXPECT_EQ(Cell("Mailbox", colRowKind), "Store");
    EXPECT_EQ(Cell("Mailbox", colStoreID), "B2");
    for (const int col : {colSel, colIndex, colIncomplete, colEntryID, colEntryIDShort, colKey, colReserved})
        EXPECT_EQ(Cell("Mailbox", col), "") << col;
}

TEST_F(StoreRows, ARowThatAnErrorStrandsAlreadyLooksLikeAStore) {
    Store().adjust = [](ScriptedObject& store) { store.Fails("EntryID", Error(0x80004005, "No.")); };
    Load();
    const int32_t row = Row("Mailbox");
    EXPECT_EQ(Grid().CellText(row, colRowKind), "Store");
    EXPECT_EQ(Grid().RowOutlineLevel(row), 0);
    EXPECT_EQ(BackColor(Grid(), row, colSel), 0x8000000Fu);
    EXPECT_EQ(NamesOf(Grid()), (Lines{"Mailbox", "Archive", "Old mail"}));
    EXPECT_EQ(platform.ErrorLines(), Lines{"Error in ctlFolderTree.GetFolders_Store_RDOTab (?): [0x80004005] No."});
}

TEST_F(StoreRows, AFailedWalkLeavesTheStoresStepOpen) {
    mailbox.stores = {{"Only", "01", true, {Mail("A", 1)}, {}, {}, [](FakeFolder& root) {
                           root.adjustTable = [](ScriptedObject& table) {
                               table.Fails("GetRows", Error(0x80004005, "No."));
                           };
                       }}};
    Load();
    EXPECT_EQ(platform.highestMaximum, 1 + 1 + 1 + 1);
    EXPECT_EQ(platform.progressValue, 1) << "only the driver's own step is closed";
    EXPECT_EQ(platform.ErrorLines(), Lines{"Error in ctlFolderTree.GetFolders_Folder_RDOTab (?): [0x80004005] No."});
}

TEST_F(StoreRows, AChildCountOfAllBitsDoesNotHurtTheBar) {
    mailbox.stores.erase(mailbox.stores.begin());
    const auto session = mailbox.Session();
    mailbox.stores[0].adjust = [](ScriptedObject& store) {
        const auto root = store.Get("IPMRootFolder").ToObject();
        auto folders = std::make_shared<ScriptedObject>("Folders");
        folders->ReadOnly("Count", Value(int32_t{0x7FFFFFFF}));
        folders->Method("MAPITable", [root](const automation::Invocation&) {
            return root->Get("Folders").ToObject()->Get("MAPITable");
        });
        auto counted = std::make_shared<ScriptedObject>("Root");
        counted->ReadOnly("Folders", Value(folders));
        store.ReadOnly("IPMRootFolder", Value(counted));
    };
    Load();
    EXPECT_EQ(platform.highestMaximum, 1.0 + 1 + 1 + 0x7FFFFFFF);
    EXPECT_NE(Row("Inbox"), 0);
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(StoreRows, AStoreThatIsNoObjectIsAnErrorLine) {
    const auto session = mailbox.Session();
    auto stores = std::make_shared<ScriptedObject>("Stores");
    stores->Items({Value("text")});
    session->ReadOnly("Stores", Value(stores));
    control->SetRDOSessionRef(session);
    control->RefreshList();
    EXPECT_EQ(platform.TraceCount("Error in ctlFolderTree.GetFolders ("), 1u);
    ExpectIdle();
}

}  // namespace
}  // namespace foldertree::testing
