// PropertiesTest: the control's properties: what each setter does besides storing its value.
#include <string>

#include "support/ControlTest.h"

namespace foldertree::testing {
namespace {

using automation::Value;
using automation::testing::ScriptedObject;

using Properties = ControlTest;

TEST_F(Properties, ANewControlHasItsDefaults) {
    EXPECT_TRUE(control->Enabled());
    EXPECT_FALSE(control->HighlightContactFolders());
    EXPECT_FALSE(control->HighlightJournalFolders());
    EXPECT_FALSE(control->HighlightTaskFolders());
    EXPECT_TRUE(control->MultiSelect());
    EXPECT_FALSE(control->AllowIndexing());
    EXPECT_FALSE(control->ShowAddressBook());
    EXPECT_EQ(control->ExtendToLevel(), 1);
    EXPECT_EQ(control->BufferedToLevel(), 0);
    EXPECT_EQ(control->InfoStoreAccessMode(), eISAccess_RDO_MAPITables);
    EXPECT_EQ(control->RDOSessionRef(), nullptr);
    EXPECT_EQ(control->Application(), nullptr);
    EXPECT_EQ(control->CDOSession(), nullptr);
}

TEST_F(Properties, ListCountOfAFreshControlIsZero) {
    EXPECT_EQ(control->ListCount(), 0);
}

TEST_F(Properties, ListCountCountsEveryRowBelowTheHeader) {
    Load(1);
    EXPECT_EQ(control->ListCount(), 8);  // 2 stores, 5 folders, 1 placeholder
    EXPECT_EQ(control->ListCount(), Grid().RowCount() - 1);
}

TEST_F(Properties, DisablingGreysTheGrid) {
    control->SetEnabled(false);
    EXPECT_EQ(Grid().BackColor(), 0x8000000Fu);
    EXPECT_EQ(Grid().TextColor(), 0x80000010u);
    EXPECT_FALSE(Grid().Enabled());
    EXPECT_EQ(platform.changedProperties, Lines{"Enabled"});
}

TEST_F(Properties, EnablingAgainGivesTheOrdinaryColours) {
    control->SetEnabled(false);
    control->SetEnabled(true);
    EXPECT_EQ(Grid().BackColor(), 0x80000005u);
    EXPECT_EQ(Grid().TextColor(), 0x80000012u);
    EXPECT_TRUE(Grid().Enabled());
    EXPECT_EQ(platform.changedProperties, (Lines{"Enabled", "Enabled"}));
}

TEST_F(Properties, AnEqualValueDoesNothing) {
    Load();
    platform.changedProperties.clear();
    control->SetEnabled(true);
    control->SetHighlightContactFolders(false);
    control->SetHighlightJournalFolders(false);
    control->SetHighlightTaskFolders(false);
    control->SetMultiSelect(true);
    control->SetAllowIndexing(false);
    control->SetShowAddressBook(false);
    control->SetInfoStoreAccessMode(eISAccess_RDO_MAPITables);
    EXPECT_EQ(platform.changedProperties, Lines{});
    EXPECT_GT(control->ListCount(), 0);
}

TEST_F(Properties, EachChangedPropertyIsNamedToTheContainer) {
    control->SetHighlightContactFolders(true);
    control->SetHighlightJournalFolders(true);
    control->SetHighlightTaskFolders(true);
    control->SetMultiSelect(false);
    control->SetShowAddressBook(true);
    control->SetInfoStoreAccessMode(eISAccess_Outlook);
    control->SetExtendToLevel(2);
    EXPECT_EQ(platform.changedProperties,
              (Lines{"HighlightContactFolders", "HighlightJournalFolders", "HighlightTaskFolders", "MultiSelect",
                     "ShowAddressBook", "InfoStoreAccessMode", "ExtendToLevel"}));
}

TEST_F(Properties, AllowIndexingMarksItselfChangedTwice) {
    control->SetAllowIndexing(true);
    EXPECT_EQ(platform.changedProperties, (Lines{"AllowIndexing", "AllowIndexing"}));
}

TEST_F(Properties, SingleSelectHidesTheIndexColumnAlthoughIndexingIsOn) {
    control->SetAllowIndexing(true);
    EXPECT_FALSE(Grid().ColHidden(colIndex));
    control->SetMultiSelect(false);
    EXPECT_TRUE(Grid().ColHidden(colIndex));
    control->SetMultiSelect(true);
    EXPECT_FALSE(Grid().ColHidden(colIndex));
}

TEST_F(Properties, ShowAddressBookSetToItsValueLeavesTheTree) {
    Load();
    const Lines tree = Tree();
    control->SetShowAddressBook(false);
    EXPECT_EQ(Tree(), tree);
}

TEST_F(Properties, ChangingShowAddressBookEmptiesTheTree) {
    Load();
    control->SetShowAddressBook(true);
    EXPECT_EQ(control->ListCount(), 0);
    Load();
    control->SetShowAddressBook(false);
    EXPECT_EQ(control->ListCount(), 0);
}

TEST_F(Properties, ChangingShowAddressBookBlanksTheLocalizedCaptions) {
    control->Localize("No", "Pick", "Folder", "Lists", "Wait", "Stop");
    control->SetShowAddressBook(true);
    for (const int col : {colSel, colIndex, colName}) EXPECT_EQ(Grid().CellText(0, col), "");
}

TEST_F(Properties, ChangingTheModeReadsTheDefaultFoldersOfTheSession) {
    control->SetRDOSessionRef(mailbox.Session());
    mailbox.log->Clear();
    control->SetInfoStoreAccessMode(eISAccess_RDO_Objects);
    // The second folder is not there: what follows it is not asked for.
    EXPECT_EQ(mailbox.log->Lines(),
              (Lines{"Session.GetDefaultFolder(6)", "DefaultFolder.EntryID", "Session.GetDefaultFolder(16)"}));
}

TEST_F(Properties, SettingTheSessionReadsTheDefaultFoldersEachTime) {
    mailbox.defaultFolders = {{6, "0001"}, {16, "0002"}, {4, "0003"}, {3, "0004"}, {5, "0005"}, {12, "0006"}};
    const auto session = mailbox.Session();
    control->SetRDOSessionRef(session);
    control->SetRDOSessionRef(session);
    EXPECT_EQ(control->RDOSessionRef(), session);
    EXPECT_EQ(mailbox.log->Count("GetDefaultFolder"), 12u);
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(Properties, ApplicationIsKeptAsItIs) {
    const auto application = std::make_shared<ScriptedObject>("Application", mailbox.log);
    control->SetApplication(application);
    EXPECT_EQ(control->Application(), application);
    EXPECT_EQ(mailbox.log->Count(), 0u);
    control->SetApplication(nullptr);
    EXPECT_EQ(control->Application(), nullptr);
}

TEST_F(Properties, TheFontIsTheGridsOwn) {
    const auto font = std::make_shared<ScriptedObject>("Font");
    control->SetFont(font);
    EXPECT_EQ(control->Font(), font);
    EXPECT_EQ(Grid().Font(), font);
}

TEST_F(Properties, TheFontOfANewControlIsTahoma) {
    EXPECT_EQ(control->Font()->Get("Name").ToText(), "Tahoma");
}

TEST_F(Properties, ExtendToZeroOfAFullyReadTreeOpensEveryNodeAndReadsNothing) {
    Load();
    control->SetExtendToLevel(0);  // now every level counts as read
    ASSERT_EQ(control->BufferedToLevel(), -1);
    control->SetExtendToLevel(1);
    mailbox.log->Clear();
    control->SetExtendToLevel(0);
    for (int32_t row = 1; row < Grid().RowCount(); ++row) EXPECT_EQ(Grid().NodeState(row), 0) << row;
    EXPECT_EQ(mailbox.log->Count(), 0u);
}

TEST_F(Properties, ExtendToZeroOfAPartlyReadTreeRefreshesAndCountsAllLevelsAsRead) {
    Load(1);
    control->SetExtendToLevel(0);
    EXPECT_EQ(control->BufferedToLevel(), -1);
    EXPECT_EQ(NamesOf(Grid()), (Lines{"Mailbox", "Inbox", "Projects", "Alpha", "Zoo", "People", "Diary", "To do",
                                      "Archive", "Old mail"}));
}

TEST_F(Properties, ExtendToTwoOfAFullyReadTreeClosesLevelTwoAndDeeper) {
    Load();
    control->SetExtendToLevel(0);
    control->SetExtendToLevel(2);
    EXPECT_EQ(Grid().NodeState(Row("Inbox")), 0);
    EXPECT_EQ(Grid().NodeState(Row("Projects")), 2);
    EXPECT_EQ(Grid().NodeState(Row("Zoo")), 2);
    EXPECT_EQ(Grid().NodeState(Row("Alpha")), 2);
    EXPECT_EQ(control->BufferedToLevel(), -1);
}

TEST_F(Properties, ExtendToTwoOfATreeReadToThreeClosesOnlyWhatIsDeeperThanTwo) {
    Load(3);
    ASSERT_EQ(control->BufferedToLevel(), 3);
    mailbox.log->Clear();
    control->SetExtendToLevel(2);
    EXPECT_EQ(Grid().NodeState(Row("Projects")), 0);
    EXPECT_EQ(Grid().NodeState(Row("Alpha")), 2);
    EXPECT_EQ(mailbox.log->Count(), 0u);
}

TEST_F(Properties, ExtendingToADeeperLevelReadsIt) {
    Load(1);
    EXPECT_EQ(control->BufferedToLevel(), 1);
    control->SetExtendToLevel(2);
    EXPECT_EQ(control->BufferedToLevel(), 2);
    EXPECT_EQ(NamesOf(Grid()),
              (Lines{"Mailbox", "Inbox", "Projects", "", "Zoo", "People", "Diary", "To do", "Archive", "Old mail"}));
}

TEST_F(Properties, ALowerLevelOpensNothing) {
    Load(3);
    Grid().SetNodeState(Row("Inbox"), 2);
    control->SetExtendToLevel(2);
    EXPECT_EQ(Grid().NodeState(Row("Inbox")), 2);
}

TEST_F(Properties, ExtendToLevelHasNoTestForAnEqualValue) {
    control->SetExtendToLevel(1);
    control->SetExtendToLevel(1);
    EXPECT_EQ(platform.changedProperties, (Lines{"ExtendToLevel", "ExtendToLevel"}));
}

TEST_F(Properties, ExtendToLevelRunsTheHighlightingPass) {
    Load();
    Grid().SetCellFormat(CellSetting::Bold, Row("Inbox"), colName, 1);
    control->SetExtendToLevel(1);
    EXPECT_FALSE(IsBold(Grid(), Row("Inbox")));
}

TEST_F(Properties, ExtendToLevelLeavesTheControlIdle) {
    Load(1);
    control->SetExtendToLevel(3);
    ExpectIdle();
}

TEST_F(Properties, ExtendToLevelKeepsTheGridBusyMeanwhile) {
    Load();
    int told = 0;
    platform.onPropertyChanged = [&] {
        bool cancel = false;
        control->fgd_BeforeEdit(Row("Inbox"), colName, cancel);
        EXPECT_FALSE(cancel) << "the handlers do nothing";
        ++told;
    };
    control->SetExtendToLevel(0);
    platform.onPropertyChanged = nullptr;
    EXPECT_EQ(told, 1);
    ExpectIdle();
}

TEST_F(Properties, ALevelThatCouldNotBeReadCountsAsReadAllTheSame) {
    control->SetExtendToLevel(2);  // there is no session
    EXPECT_EQ(platform.TraceCount("Error in ctlFolderTree.GetFolders ("), 1u);
    EXPECT_EQ(control->BufferedToLevel(), 2);
}

TEST_F(Properties, LocalizeSetsTheCaptions) {
    control->Localize("No", "Pick", "Folder", "Lists", "One moment", "Stop");
    EXPECT_EQ(Grid().CellText(0, 0), "Pick");
    EXPECT_EQ(Grid().CellText(0, 1), "No");
    EXPECT_EQ(Grid().CellText(0, 2), "Folder");
    EXPECT_EQ(platform.pleaseWait, "One moment");
    EXPECT_EQ(platform.cancel, "Stop");
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(Properties, LocalizeFitsEachCaptionsColumn) {
    struct Columns : TreeGridObserver {
        int changes = 0;
        void GridChanged(const GridChanges& told) noexcept override { changes += told.columns ? 1 : 0; }
    } columns;
    Grid().AddObserver(&columns);
    control->Localize("No", "Pick", "Folder", "Lists", "One moment", "Stop");
    Grid().RemoveObserver(&columns);
    EXPECT_EQ(columns.changes, 1) << "told once of all three";
}

TEST_F(Properties, ReadingAPropertyIsNoChange) {
    control->Enabled();
    control->ExtendToLevel();
    control->Selection();
    EXPECT_EQ(platform.changedProperties, Lines{});
    EXPECT_EQ(platform.changed, 0);
}

}  // namespace
}  // namespace foldertree::testing
