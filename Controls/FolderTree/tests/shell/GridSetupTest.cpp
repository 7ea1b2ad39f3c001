// GridSetupTest: the empty grid that a control starts with, and the pictures of folder rows.
#include <gtest/gtest.h>

#include "automation_testing/ScriptedObject.h"
#include "enumeration/FolderRows.h"
#include "shell/GridSetup.h"
#include "support/FakeHost.h"

namespace foldertree {
namespace {

class Setup : public ::testing::Test {
  protected:
    std::vector<int> VisibleColumns() {
        std::vector<int> visible;
        for (int col = 0; col < shell.grid.ColCount(); ++col)
            if (!shell.grid.ColHidden(col)) visible.push_back(col);
        return visible;
    }
    std::vector<std::string> Captions() {
        return {shell.grid.CellText(0, 0), shell.grid.CellText(0, 1), shell.grid.CellText(0, 2)};
    }

    testing::FakeHost host;
    automation::testing::ScriptedObjectFactory factory;
    ControlShell shell{host, factory};
};

TEST_F(Setup, GivesOneHeaderRowAndFourteenColumns) {
    SetupGrid(shell);
    EXPECT_EQ(shell.grid.RowCount(), 1);
    EXPECT_EQ(shell.grid.FixedRowCount(), 1);
    EXPECT_EQ(shell.grid.ColCount(), 14);
    EXPECT_EQ(VisibleColumns(), (std::vector<int>{0, 2}));
}

TEST_F(Setup, ShowsTheIndexColumnOnlyWhenSeveralFoldersMayBeTickedAndNumbered) {
    for (const bool multiSelect : {false, true})
        for (const bool allowIndexing : {false, true}) {
            shell.state.multiSelect = multiSelect;
            shell.state.allowIndexing = allowIndexing;
            SetupGrid(shell);
            const bool both = multiSelect && allowIndexing;
            EXPECT_EQ(VisibleColumns(), (both ? std::vector<int>{0, 1, 2} : std::vector<int>{0, 2}));
        }
}

TEST_F(Setup, MakesTheFirstColumnOneOfCheckBoxes) {
    SetupGrid(shell);
    EXPECT_EQ(shell.grid.ColDataType(colSel), 11);
}

TEST_F(Setup, TheCaptionsChangePlacesWithTheirPlaceholders) {
    SetupGrid(shell);
    EXPECT_EQ(Captions(), (std::vector<std::string>{"<sel>", "<index>", "<name>"}));
    SetupGrid(shell);
    EXPECT_EQ(Captions(), (std::vector<std::string>{"", "", ""}));
    SetupGrid(shell);
    EXPECT_EQ(Captions(), (std::vector<std::string>{"<sel>", "<index>", "<name>"}));
}

TEST_F(Setup, EachCaptionIsToggledByItself) {
    SetupGrid(shell);
    shell.grid.SetCellText(0, colIndex, "");
    SetupGrid(shell);
    EXPECT_EQ(Captions(), (std::vector<std::string>{"", "<index>", ""}));
}

TEST_F(Setup, EmptiesTheTree) {
    SetupGrid(shell);
    shell.grid.AddRow("");
    shell.grid.AddRow("");
    SetupGrid(shell);
    EXPECT_EQ(shell.grid.RowCount(), 1);
}

TEST_F(Setup, ForgetsTheAddressListHeadingWhenTheTreeIsEmptied) {
    SetupGrid(shell);
    shell.grid.AddRow("");
    shell.state.addressListHeadingRow = shell.grid.AddRow("");
    SetupGrid(shell);
    EXPECT_EQ(shell.state.addressListHeadingRow, 0);
}

TEST_F(Setup, TheAddressListHeadingIsFollowedWhenRowsComeOrGoAboveIt) {
    SetupGrid(shell);
    shell.grid.AddRow("");
    shell.state.addressListHeadingRow = shell.grid.AddRow("");
    shell.grid.AddRow("", 1);
    EXPECT_EQ(shell.state.addressListHeadingRow, 3);
    shell.grid.RemoveRow(1);
    shell.grid.RemoveRow(1);
    EXPECT_EQ(shell.state.addressListHeadingRow, 1);
    shell.grid.AddRow("");
    EXPECT_EQ(shell.state.addressListHeadingRow, 1);
    shell.grid.RemoveRow(2);
    EXPECT_EQ(shell.state.addressListHeadingRow, 1) << "what goes below it does not move it";
}

TEST_F(Setup, AFolderRowGetsThePictureOfItsType) {
    EXPECT_EQ(GetIcon(shell, FTIMailItem, "00AA"), picItemType[3].picture);
    EXPECT_EQ(GetIcon(shell, FTIAppointmentItem, "00AA"), picItemType[0].picture);
    EXPECT_EQ(GetIcon(shell, FTIContactItem, "00AA"), picItemType[1].picture);
    EXPECT_EQ(GetIcon(shell, FTITaskItem, "00AA"), picItemType[5].picture);
    EXPECT_EQ(GetIcon(shell, FTIjournalItem, "00AA"), picItemType[2].picture);
    EXPECT_EQ(GetIcon(shell, FTINoteItem, "00AA"), picItemType[4].picture);
    EXPECT_EQ(GetIcon(shell, FTIPostItem, "00AA"), picFolderClosed);
    EXPECT_EQ(GetIcon(shell, FTIDistributionList, "00AA"), picFolderClosed);
    EXPECT_EQ(GetIcon(shell, FTITrashcan, "00AA"), picItemType[6].picture);
    EXPECT_EQ(GetIcon(shell, FTIInbox, "00AA"), picItemType[7].picture);
    EXPECT_EQ(GetIcon(shell, FTIOutbox, "00AA"), picItemType[8].picture);
    EXPECT_EQ(GetIcon(shell, FTISent, "00AA"), picItemType[9].picture);
    EXPECT_EQ(GetIcon(shell, FTIDraft, "00AA"), picItemType[11].picture);
    EXPECT_EQ(GetIcon(shell, FTIHome, "00AA"), picItemType[10].picture);
}

TEST_F(Setup, TheInboxHasItsOwnPictureWhateverItsType) {
    shell.state.defaultFolders.inbox = "0001";
    EXPECT_EQ(GetIcon(shell, FTIMailItem, "0001"), Picture::Inbox);
    EXPECT_EQ(GetIcon(shell, FTIUnknown, "0001"), Picture::Inbox);
    EXPECT_EQ(GetIcon(shell, FTIMailItem, "0002"), Picture::Mail);
}

TEST_F(Setup, EachDefaultFolderHasItsOwnPicture) {
    shell.state.defaultFolders = {"01", "02", "03", "04", "05", "06", "07"};
    EXPECT_EQ(GetIcon(shell, FTIMailItem, "01"), Picture::Inbox);
    EXPECT_EQ(GetIcon(shell, FTIMailItem, "02"), Picture::Draft);
    EXPECT_EQ(GetIcon(shell, FTIMailItem, "03"), Picture::Outbox);
    EXPECT_EQ(GetIcon(shell, FTIMailItem, "04"), Picture::Trash);
    EXPECT_EQ(GetIcon(shell, FTIMailItem, "05"), Picture::Sent);
    EXPECT_EQ(GetIcon(shell, FTIMailItem, "06"), Picture::Note);
    EXPECT_EQ(GetIcon(shell, FTIMailItem, "07"), Picture::Mail);
}

TEST_F(Setup, OfTwoDefaultFoldersWithOneIdentifierTheDraftsWin) {
    shell.state.defaultFolders = {"01", "01", "01", "01", "01", "01", ""};
    EXPECT_EQ(GetIcon(shell, FTIMailItem, "01"), Picture::Draft);
    shell.state.defaultFolders.drafts = "";
    EXPECT_EQ(GetIcon(shell, FTIMailItem, "01"), Picture::Inbox);
    shell.state.defaultFolders.inbox = "";
    EXPECT_EQ(GetIcon(shell, FTIMailItem, "01"), Picture::Outbox);
    shell.state.defaultFolders.outbox = "";
    EXPECT_EQ(GetIcon(shell, FTIMailItem, "01"), Picture::Sent);
    shell.state.defaultFolders.sentItems = "";
    EXPECT_EQ(GetIcon(shell, FTIMailItem, "01"), Picture::Trash);
    shell.state.defaultFolders.deletedItems = "";
    EXPECT_EQ(GetIcon(shell, FTIMailItem, "01"), Picture::Note);
}

TEST_F(Setup, AnEmptyIdentifierIsNoDefaultFolder) {
    EXPECT_EQ(GetIcon(shell, FTIMailItem, ""), Picture::Mail);
}

TEST_F(Setup, AnUnknownTypeHasNoPicture) {
    EXPECT_EQ(GetIcon(shell, FTIUnknown, ""), Picture::None);
    EXPECT_EQ(GetIcon(shell, static_cast<enuFTIItemType>(99), ""), Picture::None);
}

TEST_F(Setup, ThePictureHoldersAreTagged) {
    const std::vector<std::string_view> tags{"calendar", "contact", "journal", "mail", "note", "task",
                                             "trash",    "inbox",   "outbox",  "sent", "home", "draft"};
    for (size_t i = 0; i < tags.size(); ++i) EXPECT_EQ(picItemType[i].tag, tags[i]);
}

TEST_F(Setup, ReadersTakeRowKindsInAnyLetterCase) {
    SetupGrid(shell);
    const int32_t row = shell.grid.AddRow("");
    for (const char* kind : {"Store", "STORE", "store"}) {
        shell.grid.SetCellText(row, colRowKind, kind);
        EXPECT_TRUE(IsRowKind(shell.grid, row, rowKind::store)) << kind;
        EXPECT_FALSE(IsRowKind(shell.grid, row, rowKind::dummy)) << kind;
    }
}

TEST_F(Setup, AStoreRowIsWrittenWithACapital) {
    SetupGrid(shell);
    const int32_t row = AppendStoreRow(shell, rowKind::store, "Mailbox");
    EXPECT_EQ(shell.grid.CellText(row, colRowKind), "Store");
}

TEST_F(Setup, NothingButTheReservedColumnIsUnused) {
    EXPECT_EQ(colReserved, 3);
    EXPECT_EQ(colPath, 12);
    EXPECT_EQ(colKey, 13);
}

}  // namespace
}  // namespace foldertree
