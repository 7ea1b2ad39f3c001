// ExpansionTest: a folder's children are read when its node is opened for the first time.
#include "support/ControlTest.h"

namespace foldertree::testing {
namespace {

using automation::Error;
using automation::Value;
using automation::testing::ScriptedObject;

class Expansion : public ControlTest {
  protected:
    /// "Box" with A { B { C }, D } and Z, read to level 1.
    Expansion() { mailbox.stores = {{"Box", "B2", true, Folders(), {}, {}, {}}}; }
    static std::vector<FakeFolder> Folders() {
        return {Mail("A", 0x0A, {Mail("B", 0x0B, {Mail("C", 0x0C)}), Contacts("D", 0x0D)}), Mail("Z", 0x1A)};
    }
    FakeFolder& A() { return mailbox.stores[0].folders[0]; }
    const Lines closedTree{"Box[Store]", "  A[unread][closed]", "    [Dummy]", "  Z"};
    const Lines openTree{"Box[Store]", "  A", "    B[unread][closed]", "      [Dummy]", "    D", "  Z"};
};

TEST_F(Expansion, OpeningAnUnreadNodeReplacesThePlaceholderByTheChildren) {
    Load(1);
    EXPECT_EQ(Tree(), closedTree);
    Open("A");
    EXPECT_EQ(Tree(), openTree);
    ExpectIdle();
}

TEST_F(Expansion, AChildRowHasAllItsCells) {
    Load(1);
    Open("A");
    const Lines expected{"", "", "D", "", "Folder", "", "2", "B2", "000D", "EF0D", "", "", "Box\\A\\D", "SB2|000D"};
    for (int col = 0; col < 14; ++col) EXPECT_EQ(Cell("D", col), expected[static_cast<size_t>(col)]) << col;
    EXPECT_EQ(Grid().RowOutlineLevel(Row("D")), 2);
    EXPECT_EQ(PictureOf(Grid(), Row("D")), Picture::Contact);
    EXPECT_EQ(Grid().RowHeight(Row("D")), 19 * 15);
    EXPECT_TRUE(Grid().IsNode(Row("D")));
}

TEST_F(Expansion, ANodeOpenedClosedAndOpenedAgainGetsItsChildrenOnce) {
    Load(1);
    GridInteraction user(Grid(), *control);
    user.SetNode(Row("A"), true);
    user.SetNode(Row("A"), false);
    mailbox.log->Clear();
    user.SetNode(Row("A"), true);
    EXPECT_EQ(Tree(), openTree);
    EXPECT_EQ(mailbox.log->Count(), 0u);
}

TEST_F(Expansion, ANodeWhoseMarkIsZeroIsNotRead) {
    Load(1);
    for (const char* mark : {"", "0", "abc"}) {
        Grid().SetCellText(Row("A"), colIncomplete, mark);
        Open("A");
        EXPECT_EQ(Grid().NodeState(Row("A")), nodeExpanded) << "the node was asked to open";
        Grid().SetNodeState(Row("A"), nodeCollapsed);
    }
    EXPECT_EQ(platform.TraceCount("Getting folder reference"), 0u);
}

TEST_F(Expansion, ANodeThatIsBeingClosedIsNotRead) {
    Load(1);
    bool cancel = false;
    control->fgd_BeforeCollapse(Row("A"), 2, cancel);
    EXPECT_FALSE(cancel);
    EXPECT_EQ(Tree(), closedTree);
}

TEST_F(Expansion, NothingIsReadWhileARefreshRuns) {
    Load(1);
    int tries = 0;
    platform.onYield = [&](int) {
        if (tries > 0 || Grid().RowCount() < 4) return;
        ++tries;
        bool cancel = false;
        control->fgd_BeforeCollapse(Row("A"), 0, cancel);
    };
    control->RefreshList();
    EXPECT_EQ(tries, 1);
    EXPECT_EQ(platform.TraceCount("Getting folder reference"), 0u);
    EXPECT_EQ(Tree(), closedTree);
}

TEST_F(Expansion, AFolderOfLeavesGetsNoPlaceholders) {
    Load(1);
    Open("A");
    Open("B");
    EXPECT_EQ(Tree(), (Lines{"Box[Store]", "  A", "    B", "      C", "    D", "  Z"}));
    EXPECT_EQ(platform.TraceCount("inserting 'expand' indicator"), 2u) << "one for A in the refresh, one for B";
}

TEST_F(Expansion, TheFolderIsOpenedByItsLongIdentifierAndStore) {
    Load(1);
    mailbox.log->Clear();
    Open("A");
    EXPECT_EQ(mailbox.log->Lines()[0], "Session.GetFolderFromID(\"000A\", \"B2\")");
}

TEST_F(Expansion, AFolderWithoutALongIdentifierIsOpenedByItsShortOne) {
    A().hasLongID = false;
    Load(1);
    mailbox.log->Clear();
    Open("A");
    EXPECT_EQ(mailbox.log->Lines()[0], "Session.GetFolderFromID(\"EF0A\", \"B2\")");
    EXPECT_EQ(Tree(), openTree);
}

TEST_F(Expansion, TheTraceTellsTheNodesCells) {
    Load(1);
    Grid().SetCellText(Row("A"), colFolderRecID, "7");
    platform.ClearTrace();
    Open("A");
    const Lines trace = platform.Trace();
    ASSERT_GE(trace.size(), 14u);
    EXPECT_EQ(Lines(trace.begin(), trace.begin() + 15),
              (Lines{"Enumerating folders on level 1", "  Row number: 2", "  Rows total: 5", "  Root folder name: A",
                     "  EntryID: 000A", "  Short EntryID: EF0A", "  StoreID: B2", "  RecID: 7", "  Path: Box\\A",
                     "  Item type: 0", "  Row type: Folder", "  Getting folder reference",
                     "  Removing 'expand' indicator", "  Insertion row is 2", "  Getting MAPITable ref"}));
    EXPECT_EQ(trace.back(), "Done.");
}

TEST_F(Expansion, TheRowsAreTracedWithoutIndentAtTheChildrensLevel) {
    Load(1);
    platform.ClearTrace();
    Open("A");
    const Lines trace = platform.Trace();
    const auto row = std::find(trace.begin(), trace.end(), "    Reading row #0");
    ASSERT_GE(trace.end() - row, 10);
    EXPECT_EQ(Lines(row + 1, row + 10),
              (Lines{"      Level: 2", "      FolderKind: [Long] 1", "      SubFolders: [Boolean] yes",
                     "      MessageClass: [String] IPF.Note", "      FolderName: [String] B", "      ItemType: 0",
                     "      EntryID [long]: 000B", "      EntryID [short]: EF0B",
                     "      Child folders present, inserting 'expand' indicator"}));
}

TEST_F(Expansion, OnlyAPlaceholderIsRemoved) {
    Load(1);
    Grid().RemoveRow(Row("A") + 1);
    bool cancel = false;
    control->fgd_BeforeCollapse(Row("A"), 0, cancel);
    EXPECT_EQ(NamesOf(Grid()), (Lines{"Box", "A", "B", "", "D", "Z"}));
}

TEST_F(Expansion, APlaceholderIsKnownInAnyLetterCase) {
    Load(1);
    Grid().SetCellText(Row("A") + 1, colRowKind, "DUMMY");
    Open("A");
    EXPECT_EQ(Tree(), openTree);
}

TEST_F(Expansion, TheSelectionIsShownInTheNewRows) {
    const auto collection = NewCollection();
    AddItem(*collection, HostItem("B2", "000D"));
    control->SetSelection(collection);
    Load(1);
    EXPECT_TRUE(ItemsOf(collection)[0]->Incomplete());
    Open("A");
    EXPECT_TRUE(IsTicked(Grid(), Row("D")));
    EXPECT_FALSE(ItemsOf(collection)[0]->Incomplete());
}

TEST_F(Expansion, TheNewRowsAreHighlighted) {
    control->SetHighlightContactFolders(true);
    Load(1);
    Open("A");
    EXPECT_TRUE(IsBold(Grid(), Row("D")));
    EXPECT_EQ(ForeColor(Grid(), Row("B")), 0x80000010u);
}

TEST_F(Expansion, UnknownClassesAndSearchFoldersAreLeftOut) {
    A().children.push_back(Folder("Hidden", 0x21, "IPF.Imap"));
    A().children.push_back(Mail("Search", 0x22));
    A().children.back().type = 2;
    Load(1);
    Open("A");
    EXPECT_EQ(Tree(), openTree);
    EXPECT_EQ(platform.TraceCount("      Skipping folder, type is not fkGeneric"), 1u);
}

TEST_F(Expansion, AnUnsortableTableIsReadUnsorted) {
    A().adjustTable = [](ScriptedObject& table) { table.Fails("Sort", Error(0x80040102, "No support.")); };
    Load(1);
    Open("A");
    EXPECT_EQ(Tree(), openTree);
    EXPECT_EQ(platform.TraceCount("ctlFolderTree:   Failed to sort folder MAPITable by display name: [0x80040102] No"),
              1u);
}

TEST_F(Expansion, ATableThatGivesFewerRowsIsAskedAgain) {
    A().rowsPerCall = 1;
    Load(1);
    Open("A");
    EXPECT_EQ(Tree(), openTree);
}

TEST_F(Expansion, AFolderThatCannotBeOpenedCanBeTriedAgain) {
    A().openError = Error(0x8004011D, "Offline.");
    Load(1);
    platform.ClearTrace();
    Open("A");
    EXPECT_EQ(platform.ErrorLines(), Lines{"Error in ctlFolderTree.ExpandNode (?): [0x8004011D] Offline."});
    EXPECT_EQ(platform.Trace().back(), "Done.");
    EXPECT_EQ(NamesOf(Grid()), (Lines{"Box", "A", "", "Z"}));
    EXPECT_EQ(Cell("A", colIncomplete), "-1");
    EXPECT_EQ(Grid().CellText(Row("A") + 1, colRowKind), "Dummy");
    ExpectIdle();

    A().openError.reset();
    control->SetRDOSessionRef(mailbox.Session());
    bool cancel = false;
    control->fgd_BeforeCollapse(Row("A"), 0, cancel);
    EXPECT_EQ(NamesOf(Grid()), (Lines{"Box", "A", "B", "", "D", "Z"}));
}

TEST_F(Expansion, AfterAnErrorBehindTheFirstChildTheRowsStayAndCountAsRead) {
    A().rowsPerCall = 1;
    A().adjustTable = [](ScriptedObject& table) {
        const Value first = table.Get("GetRows", 1);
        const auto calls = std::make_shared<int>(0);
        table.Method("GetRows", [first, calls](const automation::Invocation&) {
            if (++*calls > 1) throw Error(0x80040115, "Network.");
            return first;
        });
    };
    const auto collection = NewCollection();
    AddItem(*collection, HostItem("B2", "000B"));
    control->SetSelection(collection);
    Load(1);
    platform.ClearTrace();
    Open("A");
    EXPECT_EQ(NamesOf(Grid()), (Lines{"Box", "A", "B", "", "Z"}));
    EXPECT_EQ(Cell("A", colIncomplete), "");
    EXPECT_TRUE(IsTicked(Grid(), Row("B"))) << "the selection has been applied";
    EXPECT_EQ(platform.ErrorLines(), Lines{"Error in ctlFolderTree.ExpandNode (?): [0x80040115] Network."});
    EXPECT_EQ(platform.Trace().back(), "Done.");
}

TEST_F(Expansion, ACancelledExpansionCountsAsRead) {
    Load(1);
    platform.onYield = [this](int) {
        for (const std::string& name : NamesOf(Grid()))
            if (name == "B") control->CancelLoad();
    };
    Open("A");
    EXPECT_EQ(NamesOf(Grid()), (Lines{"Box", "A", "B", "", "Z"}));
    EXPECT_EQ(Cell("A", colIncomplete), "");
    EXPECT_EQ(platform.ErrorLines(), Lines{});
    ExpectIdle();
}

TEST_F(Expansion, AnOldCancelDoesNotStopIt) {
    Load(1);
    control->cmdCancel_Click();
    Open("A");
    EXPECT_EQ(Tree(), openTree);
}

TEST_F(Expansion, ARefreshInsideAnExpansionIsTurnedAway) {
    Load(1);
    platform.ClearTrace();
    platform.onYield = [this](int) { control->RefreshList(); };
    Open("A");
    EXPECT_EQ(platform.TraceCount("Refreshing view"), 0u);
    EXPECT_EQ(Tree(), openTree);
}

TEST_F(Expansion, ThePanelStandsMeanwhileAndTheBarAdvancesPerChild) {
    Load(1);
    const int shown = platform.panelShown;
    int yields = 0;
    platform.onYield = [&](int) {
        ++yields;
        EXPECT_TRUE(platform.panelVisible && platform.busyPointer);
    };
    Open("A");
    EXPECT_EQ(platform.panelShown, shown + 1);
    EXPECT_EQ(platform.progressValue, 2);
    EXPECT_EQ(yields, 1 + 2 + 2) << "the start, a path and a step for each child";
}

TEST_F(Expansion, OtherModesThanTheirOwnDoNothing) {
    Load(1);
    control->SetInfoStoreAccessMode(static_cast<enuInfoStoreAccessMode>(9));
    bool cancel = false;
    control->fgd_BeforeCollapse(Row("A"), 0, cancel);
    EXPECT_EQ(Tree(), closedTree);
}

TEST_F(Expansion, CostsEightCallsWhateverTheNumberOfChildren) {
    for (uint16_t id = 0x100; id < 0x120; ++id) A().children.push_back(Mail("more", id));
    Load(1);
    mailbox.log->Clear();
    Open("A");
    EXPECT_EQ(mailbox.log->Count(), 8u);
}

TEST_F(Expansion, EverythingOutsideIsReleasedAfterwards) {
    Load(1);
    const int live = ScriptedObject::LiveCount();
    Open("A");
    EXPECT_EQ(ScriptedObject::LiveCount(), live);
}

TEST_F(Expansion, ARowThatDoesNotExistIsAnErrorLine) {
    Load(1);
    bool cancel = false;
    control->fgd_BeforeCollapse(999, 0, cancel);
    EXPECT_EQ(platform.ErrorLines().size(), 1u);
    ExpectIdle();
}

TEST_F(Expansion, WritingANodesStateReadsNothing) {
    Load(1);
    platform.ClearTrace();
    Grid().SetNodeState(Row("A"), 0);
    EXPECT_EQ(platform.Trace(), Lines{});
    EXPECT_EQ(Cell("A", colIncomplete), "-1");
}

TEST_F(Expansion, AChildTooDeepForAPlaceholderOfItsOwnIsOneErrorLine) {
    Load(1);
    Grid().SetRowOutlineLevel(Row("A"), 32766);
    bool cancel = false;
    control->fgd_BeforeCollapse(Row("A"), 0, cancel);
    ASSERT_EQ(platform.ErrorLines().size(), 1u);
    EXPECT_EQ(platform.ErrorLines()[0].substr(0, 47), "Error in ctlFolderTree.ExpandNode (?): [0x6] Ov");
    EXPECT_EQ(control->ListCount(), 4) << "the child is there, its placeholder is not";
    ExpectIdle();
}

TEST_F(Expansion, ARowThatMakesNoSenseCostsNoOtherRow) {
    A().adjustTable = [](ScriptedObject& table) {
        automation::Array rows = *table.Get("GetRows", 2).AsArray();
        rows.items.emplace(rows.items.begin() + 1, "no row");
        table.ReadOnly("RowCount", Value(int32_t{3}));
        table.Method("GetRows", [rows](const automation::Invocation&) { return Value(rows); });
    };
    Load(1);
    platform.ClearTrace();
    Open("A");
    EXPECT_EQ(NamesOf(Grid()), (Lines{"Box", "A", "B", "", "D", "Z"}));
    EXPECT_EQ(Cell("A", colIncomplete), "");
    EXPECT_EQ(platform.ErrorLines().size(), 1u);
    ExpectIdle();
}

}  // namespace
}  // namespace foldertree::testing
