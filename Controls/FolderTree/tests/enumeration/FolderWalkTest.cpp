// FolderWalkTest: the rows that a store's hierarchy tables give.
#include <new>
#include <stdexcept>

#include "support/ControlTest.h"

namespace foldertree::testing {
namespace {

using automation::Array;
using automation::Error;
using automation::ErrorValue;
using automation::Invocation;
using automation::Value;
using automation::testing::ScriptedObject;

/// One store named "Box" with the folders of a test.
class Walk : public ControlTest {
  protected:
    void LoadFolders(std::vector<FakeFolder> folders, int32_t level = 0) {
        mailbox.stores = {{"Box", "B2", true, std::move(folders), {}, {}, adjustRoot}};
        Load(level);
    }
    /// The names of the folder rows, without the store's.
    Lines Folders() {
        Lines names = NamesOf(Grid());
        names.erase(names.begin());
        return names;
    }
    bool Traced(std::string_view line) {
        const Lines trace = platform.Trace();
        return std::find(trace.begin(), trace.end(), line) != trace.end();
    }
    void AdjustRootTable(std::function<void(ScriptedObject& table)> adjust) {
        adjustRoot = [adjust = std::move(adjust)](FakeFolder& root) { root.adjustTable = adjust; };
    }

    std::function<void(FakeFolder& root)> adjustRoot;
};

TEST_F(Walk, AFolderRowHasAllItsCells) {
    LoadFolders({Contacts("People", 0x11)});
    const int32_t row = Row("People");
    const Lines expected{"",     "",     "People", "", "Folder",      "",        "2", "B2",
                         "0011", "EF11", "",       "", "Box\\People", "SB2|0011"};
    for (int col = 0; col < 14; ++col) EXPECT_EQ(Grid().CellText(row, col), expected[static_cast<size_t>(col)]) << col;
    EXPECT_EQ(Grid().RowOutlineLevel(row), 1);
    EXPECT_TRUE(Grid().IsNode(row)) << "also without children";
    EXPECT_EQ(Grid().RowHeight(row), 19 * 15);
    EXPECT_EQ(PictureOf(Grid(), row), Picture::Contact);
}

TEST_F(Walk, AnUnsortableTableIsReadUnsorted) {
    AdjustRootTable([](ScriptedObject& table) { table.Fails("Sort", Error(0x80040117, "Too complex.")); });
    LoadFolders({Mail("B", 1), Mail("A", 2)});
    EXPECT_EQ(Folders(), (Lines{"B", "A"}));
    EXPECT_EQ(platform.TraceCount("Failed to sort"), 1u);
    EXPECT_TRUE(Traced("    Failed to sort folder MAPITable by display name: [0x80040117] Too complex."));
    EXPECT_EQ(platform.TraceCount("Getting MAPITable ref"), 2u);
    EXPECT_EQ(platform.TraceCount("Building column array"), 2u);
    EXPECT_EQ(platform.TraceCount("Trying to sort table by DISPLAY_NAME"), 1u);
    EXPECT_EQ(platform.ErrorLines(), Lines{});
    EXPECT_EQ(mailbox.log->Count("Table.Columns"), 2u);
}

TEST_F(Walk, TheTableIsAskedForSixPropertiesSortedByName) {
    LoadFolders({Mail("A", 1)});
    EXPECT_EQ(mailbox.log->Count("Table.Columns = [906035203, 906625035, 907214878, 805371935, 1718616322, 268370178]"),
              1u);
    EXPECT_EQ(mailbox.log->Count("Table.Sort(805371935, False)"), 1u);
}

TEST_F(Walk, ARowWithoutAClassCountsAsMail) {
    LoadFolders({FakeFolder{.name = "Plain",
                            .id = 1,
                            .folderClass = {},
                            .children = {},
                            .openError = {},
                            .adjustRow = {},
                            .adjustTable = {},
                            .rowCount = {}}});
    EXPECT_EQ(Cell("Plain", colItemType), "0");
    EXPECT_TRUE(Traced("        MessageClass: [Error] IPM.Note"));
}

TEST_F(Walk, ARowOfAnUnknownClassLeavesNoRowAndNoFurtherTrace) {
    LoadFolders({Folder("Hidden", 1, "IPF.Note.OutlookHomepage"), Mail("Shown", 2)});
    EXPECT_EQ(Folders(), Lines{"Shown"});
    const Lines trace = platform.Trace();
    const auto first = std::find(trace.begin(), trace.end(), "      Reading row #0");
    ASSERT_NE(first, trace.end());
    EXPECT_EQ(*(first + 1), "      Reading row #1");
}

TEST_F(Walk, AnEmptyClassIsUnknown) {
    LoadFolders({Folder("Hidden", 1, "")});
    EXPECT_EQ(Folders(), Lines{});
}

TEST_F(Walk, ASearchFolderIsSkipped) {
    FakeFolder search = Mail("Unread mail", 1);
    search.type = 2;
    LoadFolders({search});
    EXPECT_EQ(Folders(), Lines{});
    EXPECT_TRUE(Traced("        Skipping folder, type is not fkGeneric"));
    EXPECT_TRUE(Traced("        FolderKind: [Long] 2"));
    EXPECT_EQ(platform.paths, Lines{""}) << "its path is not shown";
}

TEST_F(Walk, ARowsTraceNamesWhatItsCellsHeld) {
    LoadFolders({Tasks("To do", 0x0A, {Mail("Below", 0x0B)})});
    const Lines trace = platform.Trace();
    const auto row = std::find(trace.begin(), trace.end(), "      Reading row #0");
    ASSERT_GE(trace.end() - row, 13);
    EXPECT_EQ(
        Lines(row + 1, row + 12),
        (Lines{"        Level: 1", "        FolderKind: [Long] 1", "        SubFolders: [Boolean] yes",
               "        MessageClass: [String] IPF.Task", "        FolderName: [String] To do", "        ItemType: 3",
               "        EntryID [long]: 000A", "        EntryID [short]: EF0A", "        Browsing child folders",
               "        Extending next level", "    Enumerating folders on level 2 (Box\\To do)"}));
}

TEST_F(Walk, LevelZeroReadsTheWholeHierarchy) {
    LoadFolders({Mail("A", 1, {Mail("B", 2, {Mail("C", 3, {Mail("D", 4)})})})}, 0);
    EXPECT_EQ(Tree(), (Lines{"Box[Store]", "  A", "    B", "      C", "        D"}));
    EXPECT_EQ(Cell("D", colPath), "Box\\A\\B\\C\\D");
}

TEST_F(Walk, LevelOneShowsTheRootsChildrenWithPlaceholders) {
    LoadFolders({Mail("A", 1, {Mail("B", 2)}), Mail("C", 3), Mail("D", 4, {Mail("E", 5)})}, 1);
    EXPECT_EQ(Tree(),
              (Lines{"Box[Store]", "  A[unread][closed]", "    [Dummy]", "  C", "  D[unread][closed]", "    [Dummy]"}));
    EXPECT_EQ(platform.TraceCount("Next level too deep (current limit = 1), inserting 'expand' indicator"), 2u);
    EXPECT_EQ(mailbox.log->Count("GetFolderFromID"), 0u);
}

TEST_F(Walk, APlaceholderHasNothingButItsKind) {
    LoadFolders({Mail("A", 1, {Mail("B", 2)})}, 1);
    const int32_t row = Row("A") + 1;
    for (int col = 0; col < 14; ++col) {
        if (col == colRowKind) continue;
        EXPECT_EQ(Grid().CellText(row, col), "") << col;
    }
    EXPECT_EQ(Grid().CellText(row, colRowKind), "Dummy");
    EXPECT_EQ(Grid().RowOutlineLevel(row), 2);
}

TEST_F(Walk, LevelTwoReadsTwoLevels) {
    LoadFolders({Mail("A", 1, {Mail("B", 2, {Mail("C", 3)})})}, 2);
    EXPECT_EQ(Tree(), (Lines{"Box[Store]", "  A", "    B[unread][closed]", "      [Dummy]"}));
}

TEST_F(Walk, AChildIsOpenedByItsLongIdentifierWithoutFurtherArguments) {
    LoadFolders({Mail("A", 1, {Mail("B", 2)})});
    EXPECT_EQ(mailbox.log->Count("Session.GetFolderFromID(\"0001\")"), 1u);
}

TEST_F(Walk, AChildWithoutALongIdentifierIsOpenedByItsShortOne) {
    FakeFolder folder = Mail("A", 1, {Mail("B", 2)});
    folder.hasLongID = false;
    LoadFolders({folder});
    EXPECT_EQ(mailbox.log->Count("Session.GetFolderFromID(\"EF01\")"), 1u);
    EXPECT_EQ(Folders(), (Lines{"A", "B"}));
    EXPECT_EQ(Cell("A", colEntryID), "");
    EXPECT_EQ(Cell("A", colKey), "SB2|");
}

TEST_F(Walk, AChildThatCannotBeOpenedKeepsItsRowForAnotherTry) {
    FakeFolder bad = Mail("Bad", 1, {Mail("Lost", 2)});
    bad.openError = Error(0x8004011D, "Offline.");
    LoadFolders({bad, Mail("Next", 3, {Mail("Below", 4)})});
    EXPECT_EQ(Tree(), (Lines{"Box[Store]", "  Bad[unread][closed]", "    [Dummy]", "  Next", "    Below"}));
    EXPECT_EQ(platform.ErrorLines(),
              Lines{"Error in ctlFolderTree.GetFolders_Folder_RDOTab (?): [0x8004011D] Offline."});
    EXPECT_EQ(platform.progressValue, 3 + 1) << "the walk returned False, so the store's step stays open";
}

TEST_F(Walk, ATableThatGivesFewerRowsIsAskedAgain) {
    adjustRoot = [](FakeFolder& root) { root.rowsPerCall = 2; };
    LoadFolders({Mail("A", 1), Mail("B", 2), Mail("C", 3), Mail("D", 4), Mail("E", 5)});
    EXPECT_EQ(Folders(), (Lines{"A", "B", "C", "D", "E"}));
    EXPECT_EQ(platform.TraceCount("Getting table rows"), 3u);
    EXPECT_EQ(platform.TraceCount("Reading rows "), 3u);
    EXPECT_TRUE(Traced("    Reading rows 0 - 0"));
    EXPECT_EQ(mailbox.log->Count("Table.GetRows"), 3u);
}

TEST_F(Walk, ATableThatGivesAllItsRowsIsAskedOnce) {
    LoadFolders({Mail("A", 1), Mail("B", 2)});
    EXPECT_EQ(mailbox.log->Count("Table.GetRows"), 1u);
    EXPECT_EQ(mailbox.log->Count("Table.RowCount"), 1u);
}

TEST_F(Walk, ATableWithFewerRowsThanItSaysEndsWithAnEmptyBatch) {
    adjustRoot = [](FakeFolder& root) { root.rowCount = 0x7FFFFFFF; };
    LoadFolders({Mail("A", 1), Mail("B", 2)});
    EXPECT_EQ(Folders(), (Lines{"A", "B"}));
    EXPECT_EQ(platform.TraceCount("Reading rows "), 1u) << "an empty further batch writes nothing";
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(Walk, ATableOfNoRowsSaysSo) {
    LoadFolders({});
    EXPECT_TRUE(Traced("    Reading rows 0 - -1"));
    EXPECT_TRUE(Traced("  Done."));
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(Walk, ANegativeRowCountReadsNothing) {
    adjustRoot = [](FakeFolder& root) { root.rowCount = -5; };
    LoadFolders({Mail("A", 1)});
    EXPECT_EQ(Folders(), Lines{});
    EXPECT_LE(platform.ErrorLines().size(), 1u);
    ExpectIdle();
}

TEST_F(Walk, ArraysMayHaveAnyLowerBound) {
    adjustRoot = [](FakeFolder& root) { root.lowerBound = -5; };
    LoadFolders({Mail("A", 1), Mail("B", 2)});
    EXPECT_EQ(Folders(), (Lines{"A", "B"}));
    EXPECT_TRUE(Traced("    Reading rows -5 - -4"));
    EXPECT_TRUE(Traced("      Reading row #-5"));
}

TEST_F(Walk, AFolderIsNotDescendedIntoInsideItself) {
    FakeFolder inner = Mail("Loop", 1);
    inner.children = {Mail("Deeper", 9)};
    LoadFolders({Mail("Loop", 1, {inner, Mail("Other", 2)})});
    EXPECT_EQ(Folders(), (Lines{"Loop", "Loop", "Other"}));
    EXPECT_EQ(mailbox.log->Count("GetFolderFromID"), 1u);
}

TEST_F(Walk, AVeryDeepHierarchyIsCutAndTheRestCanBeOpened) {
    FakeFolder chain = Mail("deepest", 700);
    for (uint16_t id = 699; id >= 1; --id) {
        FakeFolder parent = Mail("level " + std::to_string(id), id);
        parent.children.push_back(std::move(chain));
        chain = std::move(parent);
    }
    LoadFolders({std::move(chain)});
    const int32_t last = Grid().RowCount() - 1;
    EXPECT_EQ(Grid().CellText(last, colRowKind), "Dummy");
    EXPECT_EQ(Grid().CellText(last - 1, colIncomplete), "-1");
    EXPECT_GE(Grid().RowOutlineLevel(last - 1), 300);
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(Walk, HighlightedTypesAreBoldAndTheOthersGreyInEveryCell) {
    control->SetHighlightContactFolders(true);
    LoadFolders({Contacts("People", 1), Mail("Inbox", 2)});
    for (int col = 0; col < 14; ++col) {
        EXPECT_TRUE(IsBold(Grid(), Row("People"), col)) << col;
        EXPECT_EQ(ForeColor(Grid(), Row("Inbox"), col), 0x80000010u) << col;
        EXPECT_FALSE(IsBold(Grid(), Row("Inbox"), col)) << col;
    }
    EXPECT_NE(ForeColor(Grid(), Row("People")), 0x80000010u);
}

TEST_F(Walk, TheInboxIsFoundByItsLongIdentifier) {
    LoadFolders({Mail("Eingang", 0x01), Mail("Other", 0x02)});
    EXPECT_EQ(PictureOf(Grid(), Row("Eingang")), Picture::Inbox);
    EXPECT_EQ(PictureOf(Grid(), Row("Other")), Picture::Mail);
    EXPECT_EQ(Cell("Eingang", colItemType), "0");
}

TEST_F(Walk, ARaggedRowKeepsTheDefaultsOfItsMissingCells) {
    FakeFolder shortRow = Mail("Gone", 1);
    shortRow.adjustRow = [](std::vector<Value>& cells) { cells.resize(1); };
    FakeFolder empty = Mail("Gone too", 2);
    empty.adjustRow = [](std::vector<Value>& cells) { cells.clear(); };
    FakeFolder longer = Mail("Long", 3);
    longer.adjustRow = [](std::vector<Value>& cells) { cells.resize(20, Value("more")); };
    LoadFolders({shortRow, empty, longer, Mail("Last", 4)});
    EXPECT_EQ(Folders(), (Lines{"", "", "Long", "Last"}));
    EXPECT_LE(platform.ErrorLines().size(), 2u);
}

TEST_F(Walk, CellsOfWrongTypesLoseNothingElse) {
    const std::vector<Value> odd{
        Value(),     Value(automation::Null()),    Value(nullptr), Value("text"), Value(Array{0, {}}),
        Value(-1.5), Value(ErrorValue{0x8004010F})};
    for (size_t cell = 0; cell < 6; ++cell)
        for (const Value& value : odd) {
            FakeFolder bad = Mail("Odd", 1);
            bad.adjustRow = [&](std::vector<Value>& cells) { cells[cell] = value; };
            LoadFolders({Mail("Before", 3), bad, Mail("After", 2)});
            const Lines names = Folders();
            EXPECT_EQ(names.front(), "Before");
            EXPECT_EQ(names.back(), "After") << "cell " << cell << " of type " << value.TypeName();
            EXPECT_LE(platform.ErrorLines().size(), 1u);
            ExpectIdle();
        }
}

TEST_F(Walk, ARowThatIsNoArrayLosesNothingElse) {
    AdjustRootTable([](ScriptedObject& table) {
        const Value rows = table.Get("GetRows", 3);
        Array changed = *rows.AsArray();
        changed.items[1] = Value("no row");
        table.Get("GoToFirst");
        table.Method("GetRows", [changed](const Invocation&) { return Value(changed); });
    });
    LoadFolders({Mail("A", 1), Mail("B", 2), Mail("C", 3)});
    EXPECT_EQ(Folders().front(), "A");
    EXPECT_EQ(Folders().back(), "C");
    EXPECT_LE(platform.ErrorLines().size(), 1u);
}

TEST_F(Walk, RowsThatAreNoArrayAreOneErrorLine) {
    for (const Value& value : {Value("text"), Value(automation::Null()), Value(nullptr), Value(int32_t{7})}) {
        AdjustRootTable(
            [value](ScriptedObject& table) { table.Method("GetRows", [value](const Invocation&) { return value; }); });
        LoadFolders({Mail("A", 1)});
        EXPECT_EQ(Folders(), Lines{}) << value.TypeName();
        ASSERT_EQ(platform.ErrorLines().size(), 1u) << value.TypeName();
        EXPECT_EQ(platform.ErrorLines()[0].substr(0, 48), "Error in ctlFolderTree.GetFolders_Folder_RDOTab ");
        ExpectIdle();
    }
}

TEST_F(Walk, ARowCountThatIsNoNumberIsOneErrorLine) {
    AdjustRootTable([](ScriptedObject& table) { table.ReadOnly("RowCount", Value("many")); });
    LoadFolders({Mail("A", 1)});
    EXPECT_EQ(platform.ErrorLines().size(), 1u);
    ExpectIdle();
}

TEST_F(Walk, NamesOfAnyTextAreKept) {
    const Lines names{std::string(),       std::string(65536, 'n'),         std::string("nul\0inside", 10),
                      "\xED\xA0\x80 lone", "\u0416\u6F22\u05D0 \U0001F4C1", "quote\" back\\slash\ttab"};
    std::vector<FakeFolder> folders;
    for (const std::string& name : names) folders.push_back(Mail(name, static_cast<uint16_t>(folders.size() + 1)));
    LoadFolders(folders);
    EXPECT_EQ(Folders(), names);
    EXPECT_EQ(Grid().CellText(3, colPath), "Box\\" + names[1]);
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(Walk, ALongIdentifierOfAnyLengthBecomesHexadecimal) {
    FakeFolder folder = Mail("A", 1);
    folder.adjustRow = [](std::vector<Value>& cells) {
        cells[4] = Value(automation::Bytes{0, std::vector<uint8_t>(4096, 0xAB)});
        cells[5] = Value(automation::Bytes{});
    };
    LoadFolders({folder});
    EXPECT_EQ(Cell("A", colEntryID).size(), 8192u);
    EXPECT_EQ(Cell("A", colEntryID).substr(0, 4), "ABAB");
    EXPECT_EQ(Cell("A", colEntryIDShort), "");
}

TEST_F(Walk, AStoreIdentifierOutsideAsciiIsKept) {
    mailbox.stores = {{"Box", "\u00C4\u20AC", true, {Mail("A", 1)}, {}, {}, {}}};
    Load();
    EXPECT_EQ(Cell("A", colKey), "S\u00C4\u20AC|0001");
    control->SetSelection(NewCollection());
    Tick("A");
    EXPECT_EQ(SelectedKeys(), Lines{"S\u00C4\u20AC|0001"});
}

TEST_F(Walk, CancelStopsAfterTheRowAndCountsAsReadToItsEnd) {
    platform.onYield = [this](int) {
        if (Grid().RowCount() == 3) control->CancelLoad();
    };
    LoadFolders({Mail("A", 1), Mail("B", 2), Mail("C", 3)});
    EXPECT_EQ(Folders(), Lines{"A"});
    EXPECT_TRUE(Traced("  Done."));
    EXPECT_EQ(platform.progressValue, 1 + 1 + 1) << "the store's step is closed";
}

TEST_F(Walk, EachFolderCostsNoCallOfItsOwn) {
    LoadFolders({Mail("A", 1), Mail("B", 2)});
    const size_t two = mailbox.log->Count();
    mailbox.log->Clear();
    LoadFolders({Mail("A", 1), Mail("B", 2), Mail("C", 3), Mail("D", 4)});
    EXPECT_EQ(mailbox.log->Count(), two) << "a table tells all children at once";
}

TEST_F(Walk, EachFolderWithChildrenCostsEightCalls) {
    LoadFolders({Mail("A", 1), Mail("B", 2, {Mail("C", 3)})}, 1);
    const size_t closed = mailbox.log->Count();
    mailbox.log->Clear();
    LoadFolders({Mail("A", 1), Mail("B", 2, {Mail("C", 3)})}, 0);
    // GetFolderFromID, Folders, MAPITable, Columns, Sort, GoToFirst, RowCount, GetRows
    EXPECT_EQ(mailbox.log->Count(), closed + 8);
}

TEST_F(Walk, ArrayBoundsAtTheEndsOfTheirRangeAreTracedAsTheyAre) {
    adjustRoot = [](FakeFolder& root) { root.lowerBound = 0x7FFFFFFF; };
    LoadFolders({Mail("A", 1), Mail("B", 2)});
    EXPECT_EQ(Folders(), (Lines{"A", "B"}));
    EXPECT_TRUE(Traced("    Reading rows 2147483647 - 2147483648"));
    EXPECT_TRUE(Traced("      Reading row #2147483648"));
}

TEST_F(Walk, AnErrorNamesTheSourceLineOfTheFailingCall) {
    AdjustRootTable([](ScriptedObject& table) { table.Fails("GoToFirst", Error(0x80004005, "No.")); });
    LoadFolders({});
    EXPECT_EQ(platform.TraceCount("Error in ctlFolderTree.GetFolders_Folder_RDOTab ("), 1u);
    EXPECT_EQ(platform.TraceCount("GetFolders_Folder_RDOTab (0)"), 0u) << "the place is known";
    EXPECT_EQ(platform.ErrorLines(), Lines{"Error in ctlFolderTree.GetFolders_Folder_RDOTab (?): [0x80004005] No."});
}

TEST_F(Walk, AnErrorWithoutANumberIsAnUnspecifiedOneWithItsText) {
    AdjustRootTable([](ScriptedObject& table) {
        table.Method("RowCount", [](const Invocation&) -> Value { throw std::runtime_error("Odd."); });
    });
    LoadFolders({});
    EXPECT_EQ(platform.ErrorLines(), Lines{"Error in ctlFolderTree.GetFolders_Folder_RDOTab (?): [0x80004005] Odd."});
}

TEST_F(Walk, RunningOutOfMemoryHasItsOwnNumber) {
    AdjustRootTable([](ScriptedObject& table) {
        table.Method("GetRows", [](const Invocation&) -> Value { throw std::bad_alloc(); });
    });
    LoadFolders({Mail("A", 1)});
    ASSERT_EQ(platform.ErrorLines().size(), 1u);
    EXPECT_EQ(platform.ErrorLines()[0].substr(0, 66),
              "Error in ctlFolderTree.GetFolders_Folder_RDOTab (?): [0x8007000E] ");
    ExpectIdle();
}

TEST_F(Walk, ATableThatIsNothingIsAnObjectError) {
    mailbox.stores = {{"Box",
                       "B2",
                       true,
                       {},
                       {},
                       [](ScriptedObject& store) {
                           auto folders = std::make_shared<ScriptedObject>("Folders");
                           folders->ReadOnly("Count", Value(int32_t{0})).ReadOnly("MAPITable", Value(nullptr));
                           auto root = std::make_shared<ScriptedObject>("Root");
                           root->ReadOnly("Folders", Value(folders));
                           store.ReadOnly("IPMRootFolder", Value(root));
                       },
                       {}}};
    Load();
    ASSERT_EQ(platform.ErrorLines().size(), 1u);
    EXPECT_EQ(platform.ErrorLines()[0].substr(0, 60), "Error in ctlFolderTree.GetFolders_Folder_RDOTab (?): [0x5B] ");
}

}  // namespace
}  // namespace foldertree::testing
