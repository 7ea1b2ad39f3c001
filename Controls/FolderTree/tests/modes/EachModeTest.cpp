// EachModeTest: what the modes that read object by object have in common.
#include "enumeration/WalkLimits.h"
#include "modes/ModeTest.h"

namespace foldertree::testing {
namespace {

using automation::Error;
using automation::Value;
using automation::testing::ScriptedObject;

const Lines wholeMailbox{"  Inbox", "    Projects", "      Alpha", "    Zoo", "  People", "  Diary", "  To do"};

TEST_P(EachMode, LevelZeroReadsEverything) {
    LoadEach(0);
    Lines expected{"Mailbox[Store]"};
    expected.insert(expected.end(), wholeMailbox.begin(), wholeMailbox.end());
    expected.insert(expected.end(), {"Archive[Store]", "  Old mail"});
    if (GetParam() == eISAccess_Outlook) {
        // There is no default store to put first, and a store's row is of the folders' kind.
        expected = {"Archive", "  Old mail", "Mailbox"};
        expected.insert(expected.end(), wholeMailbox.begin(), wholeMailbox.end());
    }
    EXPECT_EQ(Tree(), expected);
    EXPECT_EQ(platform.ErrorLines(), Lines{});
    ExpectIdle();
}

TEST_P(EachMode, AStoreWithoutFoldersIsOneBoldRow) {
    mail.stores = {{"Empty", "E1", true, {}}};
    LoadEach();
    ASSERT_EQ(NamesOf(Grid()), Lines{"Empty"});
    for (int col = 0; col < Grid().ColCount(); ++col) {
        EXPECT_TRUE(IsBold(Grid(), 1, col));
        EXPECT_EQ(BackColor(Grid(), 1, col), colors::buttonFace);
    }
    EXPECT_EQ(Grid().RowOutlineLevel(1), 0);
    EXPECT_TRUE(Grid().IsNode(1));
    // 1 to begin with, one for the driver's step and one for the reader's.
    EXPECT_EQ(platform.highestMaximum, 3);
    EXPECT_EQ(platform.progressValue, 2);
}

TEST_P(EachMode, CellsOfAStoreRow) {
    LoadEach();
    EXPECT_EQ(Cell("Mailbox", colStoreID), "B2");
    for (const int col : {colSel, colIndex, colIncomplete, colItemType, colEntryID, colEntryIDShort, colPath, colKey})
        EXPECT_EQ(Cell("Mailbox", col), "") << col;
}

TEST_P(EachMode, CellsOfAFolderRow) {
    LoadEach();
    EXPECT_EQ(Cell("Projects", colRowKind), "Folder");
    EXPECT_EQ(Cell("Projects", colSel), "False");
    EXPECT_EQ(Cell("Projects", colIndex), " ");
    EXPECT_EQ(Cell("Projects", colEntryID), "0011");
    EXPECT_EQ(Cell("Projects", colItemType), "0");
    const bool outlook = GetParam() == eISAccess_Outlook;
    EXPECT_EQ(Cell("Projects", colStoreID), outlook ? "" : "B2");
    EXPECT_EQ(Cell("Projects", colKey), outlook ? "0011" : "SB2|0011");
    for (const int col : {colIncomplete, colEntryIDShort, colFolderRecID, colAddressListID})
        EXPECT_EQ(Cell("Projects", col), "") << col;
    EXPECT_EQ(Cell("People", colItemType), "2");
    EXPECT_TRUE(Grid().IsNode(Row("Zoo")));
    EXPECT_EQ(Grid().RowHeight(Row("Zoo")), 19 * 15);
}

TEST_P(EachMode, OnlyTheNumberCellOfAFolderIsButtonFaced) {
    LoadEach();
    const int32_t row = Row("Inbox");
    for (int col = 0; col < Grid().ColCount(); ++col)
        EXPECT_EQ(BackColor(Grid(), row, col), col == colIndex ? colors::buttonFace : colors::window) << col;
}

TEST_P(EachMode, PathsStartWithTheStoreName) {
    LoadEach();
    EXPECT_EQ(Cell("Inbox", colPath), "Mailbox\\Inbox");
    EXPECT_EQ(Cell("Projects", colPath), "Mailbox\\Inbox\\Projects");
    EXPECT_EQ(Cell("Alpha", colPath), "Mailbox\\Inbox\\Projects\\Alpha");
}

TEST_P(EachMode, PicturesFollowTypeAndDefaultFolders) {
    LoadEach();
    EXPECT_EQ(PictureOf(Grid(), Row("Inbox")), Picture::Inbox);
    EXPECT_EQ(PictureOf(Grid(), Row("Projects")), Picture::Mail);
    EXPECT_EQ(PictureOf(Grid(), Row("People")), Picture::Contact);
    EXPECT_EQ(PictureOf(Grid(), Row("Diary")), Picture::Journal);
    EXPECT_EQ(PictureOf(Grid(), Row("To do")), Picture::Task);
}

TEST_P(EachMode, OnlyTheDefaultStoreShowsTheHomePicture) {
    LoadEach();
    EXPECT_EQ(PictureOf(Grid(), Row("Archive")), Picture::FolderOpen);
    EXPECT_EQ(PictureOf(Grid(), Row("Mailbox")), GetParam() == eISAccess_Outlook ? Picture::FolderOpen : Picture::Home);
}

TEST_P(EachMode, WithTwoHighlightsAMatchingFolderIsBoldAndGrey) {
    control->SetHighlightContactFolders(true);
    control->SetHighlightTaskFolders(true);
    LoadEach();
    EXPECT_TRUE(IsBold(Grid(), Row("People")));
    EXPECT_EQ(ForeColor(Grid(), Row("People")), colors::buttonShadow);
    EXPECT_FALSE(IsBold(Grid(), Row("Zoo")));
    EXPECT_EQ(ForeColor(Grid(), Row("Zoo")), colors::buttonShadow);
}

TEST_P(EachMode, AFolderBeyondTheLimitCarriesAClosedPlaceholder) {
    LoadEach(IsRdo() ? 1 : 2);
    const int32_t projects = Row("Projects");
    EXPECT_EQ(Cell("Projects", colIncomplete), "-1");
    EXPECT_EQ(Grid().NodeState(projects), nodeCollapsed);
    EXPECT_EQ(Grid().CellText(projects + 1, colRowKind), "Dummy");
    EXPECT_EQ(Grid().RowOutlineLevel(projects + 1), 3);
    EXPECT_EQ(Grid().NodeState(projects + 1), nodeCollapsed);
    EXPECT_EQ(Cell("Zoo", colIncomplete), "");
    EXPECT_EQ(Grid().CellText(Row("Zoo") + 1, colRowKind), "Folder") << "a folder without children has no placeholder";
}

TEST_P(EachMode, OpeningANodeInTheMiddleInsertsItsChildrenBelowIt) {
    mail.stores = {
        {"Mailbox",
         "B2",
         true,
         {MailFolder("Top", "0001",
                     {MailFolder("Node", "0002",
                                 {MailFolder("A", "0003", {MailFolder("A1", "0004")}), MailFolder("B", "0005"),
                                  MailFolder("C", "0006", {MailFolder("C1", "0007")})}),
                      MailFolder("After", "0008")})}}};
    LoadEach(IsRdo() ? 1 : 2);
    Open("Node");
    const std::string store = GetParam() == eISAccess_Outlook ? "Mailbox" : "Mailbox[Store]";
    EXPECT_EQ(Tree(), (Lines{store, "  Top", "    Node", "      A[unread][closed]", "        [Dummy]", "      B",
                             "      C[unread][closed]", "        [Dummy]", "    After"}));
    EXPECT_EQ(Cell("A", colPath), "Mailbox\\Top\\Node\\A");
    EXPECT_EQ(Cell("A", colSel), "False");
    EXPECT_EQ(Cell("A", colIndex), " ");
    EXPECT_EQ(Cell("A", colKey), GetParam() == eISAccess_Outlook ? "0003" : "SB2|0003");
    EXPECT_EQ(BackColor(Grid(), Row("A"), colIndex), colors::buttonFace);
    EXPECT_EQ(platform.ErrorLines(), Lines{});
    EXPECT_EQ(platform.TraceCount("Done."), 0u) << "only the table mode says so";
    ExpectIdle();
}

TEST_P(EachMode, OpeningTheLastRowAppendsItsChildren) {
    mail.stores = {
        {"Mailbox",
         "B2",
         true,
         {MailFolder("Top", "0001",
                     {MailFolder("Last", "0002",
                                 {MailFolder("A", "0003"), MailFolder("B", "0004", {MailFolder("B1", "0005")})})})}}};
    LoadEach(IsRdo() ? 1 : 2);
    Open("Last");
    const Lines tree = Tree();
    EXPECT_EQ(Lines(tree.begin() + 2, tree.end()),
              (Lines{"    Last", "      A", "      B[unread][closed]", "        [Dummy]"}));
}

TEST_P(EachMode, ANodeIsReadOnce) {
    LoadEach(IsRdo() ? 1 : 2);
    Open("Projects");
    const Lines tree = Tree();
    mail.log->Clear();
    Shut("Projects");
    Open("Projects");
    EXPECT_EQ(Tree(), tree);
    EXPECT_EQ(mail.log->Lines(), Lines{});
}

TEST_P(EachMode, AnExpansionIgnoresTheLevelLimit) {
    LoadEach(IsRdo() ? 1 : 2);
    Open("Projects");
    EXPECT_EQ(Cell("Projects", colIncomplete), "");
    EXPECT_EQ(Grid().RowOutlineLevel(Row("Alpha")), 3);
}

TEST_P(EachMode, AnExpansionShowsTheSelectionInItsNewRows) {
    LoadEach(IsRdo() ? 1 : 2);
    const auto collection = NewCollection();
    AddItem(*collection, HostItem(GetParam() == eISAccess_Outlook ? "" : "B2", "0021"));
    control->SetSelection(collection);
    Open("Projects");
    EXPECT_TRUE(IsTicked(Grid(), Row("Alpha")));
}

TEST_P(EachMode, CancellingAnExpansionCountsAsRead) {
    FolderNamed("Projects").children.push_back(MailFolder("Beta", "0022"));
    LoadEach(IsRdo() ? 1 : 2);
    platform.onYield = [&](int) {
        if (!platform.paths.empty() && platform.paths.back().ends_with("Alpha")) control->CancelLoad();
    };
    Open("Projects");
    EXPECT_EQ(Cell("Projects", colIncomplete), "");
    EXPECT_EQ(Grid().FindRow("Beta", 0, colName), -1);
    EXPECT_EQ(Grid().CellText(Row("Alpha"), colRowKind), "Folder");
    ExpectIdle();
}

TEST_P(EachMode, CancelStopsTheWalkAtTheNextSiblingOfEachLevel) {
    platform.onYield = [&](int) {
        if (!platform.paths.empty() && platform.paths.back().ends_with("Alpha")) control->CancelLoad();
    };
    LoadEach();
    EXPECT_EQ(Grid().FindRow("Zoo", 0, colName), -1);
    EXPECT_EQ(Grid().FindRow("People", 0, colName), -1);
    EXPECT_NE(Grid().FindRow("Alpha", 0, colName), -1);
    ExpectIdle();
}

TEST_P(EachMode, AFailingFolderCostsOnlyItself) {
    FolderNamed("Projects").adjust = [](ScriptedObject& folder) {
        folder.Fails("Name", Error(0x80040305, "Too many open."));
    };
    LoadEach();
    EXPECT_EQ(Grid().FindRow("Alpha", 0, colName), -1);
    EXPECT_NE(Grid().FindRow("Zoo", 0, colName), -1);
    const char* opening = GetParam() == eISAccess_RDO_Objects ? "GetFolders_Folder_RDOObj"
                          : GetParam() == eISAccess_Outlook   ? "GetFolders_Folder_OOM"
                                                              : "GetFolders_Folder_CDO";
    EXPECT_EQ(platform.ErrorLines(),
              Lines{std::string("Error in ctlFolderTree.") + opening + " (?): [0x80040305] Too many open."});
}

TEST_P(EachMode, AFolderWhoseChildrenFailKeepsItsRow) {
    FolderNamed("Projects").adjust = [](ScriptedObject& folder) {
        folder.Fails("Folders", Error(0x80004005, "Offline."));
    };
    LoadEach();
    EXPECT_EQ(Grid().RowOutlineLevel(Row("Projects")), 2);
    EXPECT_NE(Grid().FindRow("Zoo", 0, colName), -1);
    EXPECT_EQ(platform.ErrorLines().size(), 1u);
}

TEST_P(EachMode, NothingInTheMiddleOfACollectionIsPassedOver) {
    FolderNamed("Inbox").adjust = [](ScriptedObject& folder) {
        auto children = std::make_shared<ScriptedObject>("Folders");
        children->Items({Value(nullptr), Value(nullptr)});
        folder.ReadOnly("Folders", Value(children));
    };
    LoadEach();
    EXPECT_NE(Grid().FindRow("People", 0, colName), -1);
    EXPECT_EQ(platform.ErrorLines().size(), 2u);
    EXPECT_NE(platform.ErrorLines()[0].find("[0x5B]"), std::string::npos);
}

TEST_P(EachMode, AnExpansionThatCannotOpenItsFolderCanBeRepeated) {
    LoadEach(IsRdo() ? 1 : 2);
    const Lines before = Tree();
    Grid().SetCellText(Row("Projects"), colEntryID, "0099");
    platform.ClearTrace();
    Open("Projects");
    EXPECT_EQ(Cell("Projects", colIncomplete), "-1");
    const char* opening = GetParam() == eISAccess_RDO_Objects ? "ExpandNode_RDOObj"
                          : GetParam() == eISAccess_Outlook   ? "ExpandNode_OOM"
                                                              : "ExpandNode_CDO";
    EXPECT_EQ(platform.Trace(),
              Lines{std::string("Error in ctlFolderTree.") + opening + "(?): 0x8004010F] Not found."});
    ExpectIdle();
    Grid().SetCellText(Row("Projects"), colEntryID, "0011");
    Shut("Projects");
    EXPECT_EQ(Tree(), before);
    Open("Projects");
    EXPECT_NE(Grid().FindRow("Alpha", 0, colName), -1);
}

TEST_P(EachMode, AnExpansionThatFailsLaterKeepsItsRows) {
    ModeFolder& projects = FolderNamed("Projects");
    projects.children.push_back(MailFolder("Beta", "0022"));
    projects.children.back().adjust = [](ScriptedObject& folder) { folder.Fails("Name", Error(0x80004005, "Gone.")); };
    LoadEach(IsRdo() ? 1 : 2);
    Open("Projects");
    EXPECT_EQ(Cell("Projects", colIncomplete), "");
    EXPECT_EQ(Grid().CellText(Row("Projects") + 1, colName), "Alpha");
    EXPECT_EQ(Grid().CellText(Row("Projects") + 2, colName), "Zoo") << "no empty row is left";
    EXPECT_EQ(platform.ErrorLines().size(), 1u);
    ExpectIdle();
}

TEST_P(EachMode, AFolderBelowItselfIsNotReadAgain) {
    FolderNamed("Alpha").children.push_back(MailFolder("Projects again", "0011", {MailFolder("Deep", "0021")}));
    LoadEach();
    EXPECT_NE(Grid().FindRow("Projects again", 0, colName), -1);
    EXPECT_EQ(Grid().FindRow("Deep", 0, colName), -1);
}

TEST_P(EachMode, FoldersWithoutAnIdentifierAreNotTakenForOneAnother) {
    FolderNamed("Projects").id = "";
    FolderNamed("Alpha").id = "";
    FolderNamed("Alpha").children = {MailFolder("Deep", "")};
    LoadEach();
    EXPECT_EQ(Cell("Deep", colPath), "Mailbox\\Inbox\\Projects\\Alpha\\Deep");
}

TEST_P(EachMode, AFolderBelowItselfCanStillBeOpenedBeyondTheLimit) {
    FolderNamed("Projects").children = {MailFolder("Projects again", "0011", {MailFolder("Deep", "0021")})};
    LoadEach(IsRdo() ? 2 : 3);
    EXPECT_EQ(Cell("Projects again", colIncomplete), "-1");
    Open("Projects again");
    EXPECT_EQ(Cell("Projects again", colIncomplete), "");
}

TEST_P(EachMode, ADeepHierarchyIsReadUpToTheDeepestLevel) {
    const auto nameOf = [](int32_t level) { return "F" + std::to_string(level); };
    constexpr int32_t depth = deepestWalkLevel + 100;
    ModeFolder chain = MailFolder(nameOf(depth), nameOf(depth));
    for (int32_t level = depth - 1; level > 0; --level)
        chain = MailFolder(nameOf(level), nameOf(level), {std::move(chain)});
    mail.stores = {{"Mailbox", "B2", true, {std::move(chain)}}};
    LoadEach();
    EXPECT_EQ(Cell(nameOf(deepestWalkLevel), colIncomplete), "-1");
    EXPECT_EQ(Grid().RowCount(), 1 + 1 + deepestWalkLevel + 1) << "header, store, folders, placeholder";
}

TEST_P(EachMode, TheBarGrowsByTheSubfoldersOfEachFolderAndAdvancesAfterEach) {
    LoadEach();
    // Two steps a store, the driver's and the reader's; the roots have 4 and 1 subfolders, Inbox 2 and Projects 1.
    const double steps = 2 * 2 + 4 + 1 + 2 + 1;
    EXPECT_EQ(platform.highestMaximum, 1 + steps);
    EXPECT_EQ(platform.progressValue, steps);
}

TEST_P(EachMode, EachFolderYieldsAtItsPathAtItsStepAndOnceMore) {
    LoadEach();
    // Once when the panel appears; with each store at the driver's two steps, the reader's two and its count.
    constexpr int started = 1 + 2 * 5;
    EXPECT_EQ(platform.yields, started + 8 * 3 + 2) << "8 folders; 2 of them have a count of their own";
    EXPECT_EQ(platform.paths.size(), 1u + 8u);
}

TEST_P(EachMode, AnExpansionHasAnEmptyBarAndAPanelOfItsOwn) {
    FolderNamed("Projects").children.push_back(MailFolder("Beta", "0022"));
    LoadEach(IsRdo() ? 1 : 2);
    const int shown = platform.panelShown;
    platform.paths.clear();
    std::vector<std::pair<double, double>> bar;
    platform.onYield = [&](int) {
        EXPECT_TRUE(platform.panelVisible);
        bar.emplace_back(platform.progressMaximum, platform.progressValue);
    };
    Open("Projects");
    EXPECT_EQ(platform.panelShown, shown + 1);
    EXPECT_EQ(platform.paths, (Lines{"", "Mailbox\\Inbox\\Projects\\Alpha", "Mailbox\\Inbox\\Projects\\Beta"}));
    // The panel appears over what the last load left; then the count, and per child path, step and one more; the end.
    bar.erase(bar.begin());
    EXPECT_EQ(bar,
              (std::vector<std::pair<double, double>>{{3, 0}, {3, 0}, {3, 1}, {3, 1}, {3, 1}, {3, 2}, {3, 2}, {3, 2}}));
    ExpectIdle();
}

TEST_P(EachMode, AFoldersRowStandsEmptyWhileItsPathComesUp) {
    int emptyRows = -1;
    platform.onYield = [&](int) {
        if (emptyRows >= 0 || platform.paths.empty() || !platform.paths.back().ends_with("Alpha")) return;
        emptyRows = 0;
        for (int32_t row = 1; row < Grid().RowCount(); ++row) emptyRows += Grid().CellText(row, colRowKind).empty();
    };
    LoadEach();
    EXPECT_EQ(emptyRows, 1) << "in a walk";
    LoadEach(IsRdo() ? 1 : 2);
    platform.paths.clear();
    emptyRows = -1;
    Open("Projects");
    EXPECT_EQ(emptyRows, 1) << "in an expansion";
}

TEST_P(EachMode, ATreeEmptiedWhileAFoldersPathComesUpIsToldInOneLineAFolder) {
    platform.onYield = [&](int) {
        if (!platform.paths.empty() && platform.paths.back().ends_with("Zoo") && Grid().RowCount() > 3)
            control->SetShowAddressBook(!control->ShowAddressBook());
    };
    LoadEach();
    EXPECT_EQ(platform.ErrorLines().size(), 1u);
    EXPECT_EQ(NamesOf(Grid())[0], "People") << "what follows is read";
    ExpectIdle();
}

INSTANTIATE_TEST_SUITE_P(Modes, EachMode, ::testing::Values(eISAccess_RDO_Objects, eISAccess_Outlook, eISAccess_CDO),
                         ModeName);

}  // namespace
}  // namespace foldertree::testing
