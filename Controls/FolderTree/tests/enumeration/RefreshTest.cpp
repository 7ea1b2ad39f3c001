// RefreshTest: the tree is emptied and read anew: which stores, in which order, and how a user stops it.
#include "support/ControlTest.h"

namespace foldertree::testing {
namespace {

using automation::Error;
using automation::Value;
using automation::testing::ScriptedObject;

class Refresh : public ControlTest {
  protected:
    /// Presses Cancel at the first yield at which a row of that name is there.
    void CancelAtRow(std::string_view name) {
        platform.onYield = [this, wanted = std::string(name)](int) {
            for (const std::string& row : NamesOf(Grid())) {
                if (row != wanted) continue;
                platform.onYield = nullptr;
                control->cmdCancel_Click();
                return;
            }
        };
    }
    static FakeStore Store(std::string name, std::string id, bool isDefault, std::vector<FakeFolder> folders) {
        return {std::move(name), std::move(id), isDefault, std::move(folders), {}, {}, {}};
    }
};

TEST_F(Refresh, TheDefaultStoreComesFirstAndTheOthersInTheirOrder) {
    mailbox.stores = {Store("First", "01", false, {Mail("A", 1)}), Store("Second", "02", true, {Mail("B", 2)}),
                      Store("Third", "03", false, {Mail("C", 3)})};
    Load();
    EXPECT_EQ(NamesOf(Grid()), (Lines{"Second", "B", "First", "A", "Third", "C"}));
}

TEST_F(Refresh, WithoutADefaultStoreAllComeInTheirOrder) {
    mailbox.stores = {Store("First", "01", false, {}), Store("Second", "02", false, {})};
    Load();
    EXPECT_EQ(NamesOf(Grid()), (Lines{"First", "Second"}));
}

TEST_F(Refresh, OfSeveralDefaultStoresOnlyTheFirstIsRead) {
    mailbox.stores = {Store("First", "01", true, {}), Store("Second", "02", true, {}), Store("Third", "03", false, {})};
    Load();
    EXPECT_EQ(NamesOf(Grid()), (Lines{"First", "Third"}));
}

TEST_F(Refresh, CdoModeWithoutASessionLeavesTheTreeEmptyAndSaysSo) {
    const auto collection = NewCollection();
    control->SetSelection(collection);
    control->Selection();  // now the selection counts as read
    control->SetInfoStoreAccessMode(eISAccess_CDO);
    platform.ClearTrace();
    control->RefreshList();
    EXPECT_EQ(control->ListCount(), 0);
    // Tried for the default folders and again for the stores.
    const std::string noLibrary = "Could not instantiate CDO session: [0x80040154] Class not registered";
    EXPECT_EQ(platform.Trace(),
              (Lines{"GetFolders: Refreshing view", noLibrary, noLibrary,
                     "GetFolders: Mode: CDO, Cannot refresh, CDO session is not initialized", "GetFolders: Done"}));
    EXPECT_EQ(platform.panelShown, 1);
    ExpectIdle();
}

TEST_F(Refresh, TheSelectionIsAppliedEvenWhenNothingCouldBeRead) {
    const auto collection = std::make_shared<ScriptedObject>("Items", mailbox.log);
    collection->Items({});
    control->SetSelection(collection);
    control->SetInfoStoreAccessMode(eISAccess_CDO);
    mailbox.log->Clear();
    control->RefreshList();
    EXPECT_GT(mailbox.log->Count("Items."), 0u) << "ApplySelection did not look at the collection";
}

TEST_F(Refresh, AnUnknownModeGivesAnEmptyTreeAndThenTheAddressLists) {
    control->SetShowAddressBook(true);
    Load();
    ASSERT_GT(control->ListCount(), 1);
    control->SetInfoStoreAccessMode(static_cast<enuInfoStoreAccessMode>(4));
    platform.ClearTrace();
    control->RefreshList();
    EXPECT_EQ(platform.Trace(),
              (Lines{"GetFolders: Refreshing view", "GetFolders: Adding address book(s)", "GetFolders: Done"}));
    EXPECT_EQ(Tree(), Lines{"<address lists>[Header]"});
    ExpectIdle();
}

TEST_F(Refresh, NegativeAndHugeModesAreUnknownToo) {
    for (const int32_t mode : {-1, 5, 0x7FFFFFFF}) {
        control->SetInfoStoreAccessMode(eISAccess_RDO_MAPITables);
        Load();
        ASSERT_GT(control->ListCount(), 0);
        control->SetInfoStoreAccessMode(static_cast<enuInfoStoreAccessMode>(mode));
        control->RefreshList();
        EXPECT_EQ(control->ListCount(), 0);
    }
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(Refresh, CancelInTheDefaultStoreStillCallsTheReaderOfTheNextStoreAndNoAddressLists) {
    mailbox.stores = {Store("First", "01", false, {Mail("A", 1), Mail("AA", 4)}),
                      Store("Second", "02", true, {Mail("B", 2), Mail("BB", 5)}),
                      Store("Third", "03", false, {Mail("C", 3)})};
    control->SetShowAddressBook(true);
    CancelAtRow("B");
    Load();
    EXPECT_EQ(NamesOf(Grid()), (Lines{"Second", "B", "First", "A"})) << "the next reader stops after its first row";
    EXPECT_EQ(platform.TraceCount("Mode: RDO_MAPITables"), 2u);
    EXPECT_EQ(platform.TraceCount("Adding address book"), 0u);
    EXPECT_EQ(platform.TraceCount("GetFolders: Done"), 1u);
    ExpectIdle();
}

TEST_F(Refresh, CancelBeforeTheFirstStoreStillReadsOne) {
    mailbox.stores = {Store("First", "01", false, {}), Store("Second", "02", false, {}),
                      Store("Third", "03", false, {})};
    platform.onYield = [this](int) { control->CancelLoad(); };
    Load();
    EXPECT_EQ(NamesOf(Grid()), Lines{"First"});
}

TEST_F(Refresh, CancelEndsTheSearchForTheDefaultStore) {
    mailbox.stores = {Store("First", "01", false, {}), Store("Second", "02", true, {}),
                      Store("Third", "03", false, {})};
    platform.onYield = [this](int) { control->CancelLoad(); };
    Load();
    EXPECT_EQ(NamesOf(Grid()), Lines{"First"});
}

TEST_F(Refresh, TheSelectionIsAppliedToACancelledTree) {
    const auto collection = NewCollection();
    AddItem(*collection, HostItem("B2", "0001"));
    control->SetSelection(collection);
    CancelAtRow("Inbox");
    Load();
    EXPECT_TRUE(IsTicked(Grid(), Row("Inbox")));
    EXPECT_FALSE(ItemsOf(collection)[0]->Incomplete());
}

TEST_F(Refresh, ACancelledRefreshDoesNotStopTheNextOne) {
    CancelAtRow("Inbox");
    Load();
    const int32_t cancelled = control->ListCount();
    control->RefreshList();
    EXPECT_GT(control->ListCount(), cancelled);
    EXPECT_EQ(control->ListCount(), 10);
}

TEST_F(Refresh, CancelYieldsOnce) {
    control->cmdCancel_Click();
    EXPECT_EQ(platform.yields, 1);
    EXPECT_EQ(platform.Trace(), Lines{});
}

TEST_F(Refresh, TheBufferedLevelBecomesTheExtendedOne) {
    Load(2);
    EXPECT_EQ(control->BufferedToLevel(), 2);
}

TEST_F(Refresh, ABufferedLevelOfAllLevelsStays) {
    Load(0);
    control->SetExtendToLevel(0);
    ASSERT_EQ(control->BufferedToLevel(), -1);
    control->RefreshList();
    EXPECT_EQ(control->BufferedToLevel(), -1);
    control->SetExtendToLevel(2);
    control->RefreshList();
    EXPECT_EQ(control->BufferedToLevel(), -1);
}

TEST_F(Refresh, ThePanelStandsAndThePointerIsBusyAtEveryYield) {
    int shown = 0;
    platform.onYield = [&](int) { shown += platform.panelVisible && platform.busyPointer && control->Refreshing(); };
    Load();
    EXPECT_GT(shown, 10);
    EXPECT_EQ(shown, platform.yields);
    ExpectIdle();
}

TEST_F(Refresh, ThePanelStartsWithoutAPath) {
    platform.onYield = [this](int yield) {
        if (yield == 1) {
            EXPECT_EQ(platform.paths, Lines{""});
        }
    };
    Load();
    EXPECT_EQ(platform.paths.size(), 9u);
    EXPECT_EQ(platform.paths[1], "Mailbox\\Inbox");
}

TEST_F(Refresh, TheTreeIsEmptyAfterTheFirstYield) {
    Load();
    std::vector<int32_t> counts;
    platform.onYield = [&](int) { counts.push_back(Grid().RowCount()); };
    control->RefreshList();
    ASSERT_GT(counts.size(), 2u);
    EXPECT_EQ(counts[0], 11) << "the old tree stands until the panel is drawn";
    EXPECT_EQ(counts[1], 1);
}

TEST_F(Refresh, ARefreshInsideARefreshIsTurnedAway) {
    bool nested = false;
    platform.onYield = [&](int) {
        if (nested) return;
        nested = true;
        control->RefreshList();
    };
    Load();
    EXPECT_TRUE(nested);
    EXPECT_EQ(platform.TraceCount("GetFolders: Refreshing view"), 1u);
    EXPECT_EQ(control->ListCount(), 10);
}

TEST_F(Refresh, TheBarHasAStepForEachStoreTwiceAndForEachFolderOfItsRoot) {
    mailbox.stores = {Store("First", "01", true, {Mail("A", 1), Mail("B", 2)})};
    Load();
    EXPECT_EQ(platform.highestMaximum, 1 + 1 + 1 + 2);
    EXPECT_EQ(platform.progressValue, 2 + 1 + 1);
}

TEST_F(Refresh, TheBarEndsOneStepShorterWithAddressLists) {
    mailbox.stores = {Store("First", "01", true, {Mail("A", 1)})};
    control->SetShowAddressBook(true);
    Load();
    EXPECT_EQ(platform.highestMaximum, 1 + 1 + 1 + 1 + 1);
    EXPECT_EQ(platform.progressValue, 1 + 1 + 1);
}

TEST_F(Refresh, RowsOfDeeperLevelsAdvanceTheBarAllTheSame) {
    mailbox.stores = {Store("First", "01", true, {Mail("A", 1, {Mail("B", 2), Mail("C", 3), Mail("D", 4)})})};
    Load();
    EXPECT_EQ(platform.highestMaximum, 1 + 1 + 1 + 1);
    EXPECT_EQ(platform.progressValue, 4 + 1 + 1);
}

TEST_F(Refresh, TheDefaultFoldersAreReadAgainOnlyWhileTheInboxIsUnknown) {
    Load();
    EXPECT_EQ(platform.TraceCount("GetFolderIDs"), 0u);
    mailbox.defaultFolders.clear();
    control = ctlFolderTree::Create(platform, factory);
    control->UserControl_InitProperties();
    Load();
    EXPECT_EQ(platform.TraceCount("Error in ctlFolderTree.GetFolderIDs("), 1u);
    EXPECT_EQ(control->ListCount(), 10) << "the refresh goes on";
}

TEST_F(Refresh, WithoutASessionTwoErrorsAreTracedAndNothingStaysUp) {
    control->RefreshList();
    const Lines trace = platform.Trace();
    ASSERT_EQ(trace.size(), 4u);
    EXPECT_EQ(trace[0], "GetFolders: Refreshing view");
    EXPECT_EQ(trace[1].substr(0, 46), "Error in ctlFolderTree.GetFolderIDs(?): 0x5B] ");
    EXPECT_EQ(trace[2].substr(0, 46), "Error in ctlFolderTree.GetFolders (?): [0x5B] ");
    EXPECT_EQ(trace[3], "GetFolders: Done");
    EXPECT_EQ(control->BufferedToLevel(), 0) << "the level is not taken over after an error";
    ExpectIdle();
}

TEST_F(Refresh, OneBadStoreDoesNotStopTheOthers) {
    mailbox.stores = {Store("First", "01", true, {}), Store("Bad", "02", false, {}), Store("Third", "03", false, {})};
    mailbox.stores[1].adjust = [](ScriptedObject& store) {
        store.Fails("IPMRootFolder", Error(0x8004011D, "Offline."));
    };
    Load();
    EXPECT_EQ(NamesOf(Grid()), (Lines{"First", "Bad", "Third"}));
    EXPECT_EQ(platform.ErrorLines(),
              Lines{"Error in ctlFolderTree.GetFolders_Store_RDOTab (?): [0x8004011D] Offline."});
}

TEST_F(Refresh, AStoreThatDoesNotTellItsDefaultFlagEndsTheRefreshAtTheAddressLists) {
    mailbox.stores[0].adjust = [](ScriptedObject& store) { store.Fails("Default", Error(0x80004005, "No.")); };
    control->SetShowAddressBook(true);
    Load();
    EXPECT_EQ(platform.ErrorLines(), Lines{"Error in ctlFolderTree.GetFolders (?): [0x80004005] No."});
    EXPECT_EQ(platform.TraceCount("Adding address book"), 0u);
    EXPECT_EQ(platform.Trace().back(), "GetFolders: Done");
    ExpectIdle();
}

TEST_F(Refresh, StoresWithoutAnEnumerationAreWalkedByPosition) {
    const auto session = mailbox.Session();
    const auto stores = std::dynamic_pointer_cast<ScriptedObject>(session->Get("Stores").ToObject());
    stores->WithoutEnumeration();
    session->ReadOnly("Stores", Value(stores));
    control->SetRDOSessionRef(session);
    control->RefreshList();
    EXPECT_EQ(control->ListCount(), 8);
    session->ReadOnly("Stores", Value());
}

TEST_F(Refresh, EverythingOutsideIsReleasedAfterwards) {
    Load();
    const int live = ScriptedObject::LiveCount();
    control->RefreshList();
    EXPECT_EQ(ScriptedObject::LiveCount(), live);
    EXPECT_EQ(live, liveBefore + 2) << "the session and the grid's font are all that is held";
}

}  // namespace
}  // namespace foldertree::testing
