// GridSetupTest: the empty grid that a control starts with, and the pictures of folder rows.
#include <gtest/gtest.h>

#include "automation_testing/ScriptedObject.h"
#include "common/GridSetup.h"
#include "enumeration/FolderRows.h"
#include "support/FakePlatform.h"

namespace foldertree {
namespace {

class Setup : public ::testing::Test {
  protected:
    std::vector<int> VisibleColumns() {
        std::vector<int> visible;
        for (int col = 0; col < context.grid.ColCount(); ++col)
            if (!context.grid.ColHidden(col)) visible.push_back(col);
        return visible;
    }
    std::vector<std::string> Captions() {
        return {context.grid.CellText(0, 0), context.grid.CellText(0, 1), context.grid.CellText(0, 2)};
    }

    testing::FakePlatform platform;
    automation::testing::ScriptedObjectFactory factory;
    ControlContext context{platform, factory};
};

TEST_F(Setup, GivesOneHeaderRowAndFourteenColumns) {
    SetupGrid(context);
    EXPECT_EQ(context.grid.RowCount(), 1);
    EXPECT_EQ(context.grid.FixedRowCount(), 1);
    EXPECT_EQ(context.grid.ColCount(), 14);
    EXPECT_EQ(VisibleColumns(), (std::vector<int>{0, 2}));
}

TEST_F(Setup, ShowsTheIndexColumnOnlyWhenSeveralFoldersMayBeTickedAndNumbered) {
    for (const bool multiSelect : {false, true})
        for (const bool allowIndexing : {false, true}) {
            context.state.multiSelect = multiSelect;
            context.state.allowIndexing = allowIndexing;
            SetupGrid(context);
            const bool both = multiSelect && allowIndexing;
            EXPECT_EQ(VisibleColumns(), (both ? std::vector<int>{0, 1, 2} : std::vector<int>{0, 2}));
        }
}

TEST_F(Setup, MakesTheFirstColumnOneOfCheckBoxes) {
    SetupGrid(context);
    EXPECT_EQ(context.grid.ColDataType(colSel), 11);
}

TEST_F(Setup, TheCaptionsChangePlacesWithTheirPlaceholders) {
    SetupGrid(context);
    EXPECT_EQ(Captions(), (std::vector<std::string>{"<sel>", "<index>", "<name>"}));
    SetupGrid(context);
    EXPECT_EQ(Captions(), (std::vector<std::string>{"", "", ""}));
    SetupGrid(context);
    EXPECT_EQ(Captions(), (std::vector<std::string>{"<sel>", "<index>", "<name>"}));
}

TEST_F(Setup, EachCaptionIsToggledByItself) {
    SetupGrid(context);
    context.grid.SetCellText(0, colIndex, "");
    SetupGrid(context);
    EXPECT_EQ(Captions(), (std::vector<std::string>{"", "<index>", ""}));
}

TEST_F(Setup, EmptiesTheTree) {
    SetupGrid(context);
    context.grid.AddRow("");
    context.grid.AddRow("");
    SetupGrid(context);
    EXPECT_EQ(context.grid.RowCount(), 1);
}

TEST_F(Setup, ForgetsTheAddressListHeadingWhenTheTreeIsEmptied) {
    SetupGrid(context);
    context.grid.AddRow("");
    context.state.addressListHeading = context.grid.HandleOf(context.grid.AddRow(""));
    SetupGrid(context);
    EXPECT_EQ(context.grid.RowOf(context.state.addressListHeading), std::nullopt);
}

TEST_F(Setup, TheAddressListHeadingIsFollowedWhenRowsComeOrGoAboveIt) {
    SetupGrid(context);
    context.grid.AddRow("");
    context.state.addressListHeading = context.grid.HandleOf(context.grid.AddRow(""));
    context.grid.AddRow("", 1);
    EXPECT_EQ(context.grid.RowOf(context.state.addressListHeading), 3);
    context.grid.RemoveRow(1);
    context.grid.RemoveRow(1);
    EXPECT_EQ(context.grid.RowOf(context.state.addressListHeading), 1);
    context.grid.AddRow("");
    EXPECT_EQ(context.grid.RowOf(context.state.addressListHeading), 1);
    context.grid.RemoveRow(2);
    EXPECT_EQ(context.grid.RowOf(context.state.addressListHeading), 1) << "what goes below it does not move it";
}

TEST_F(Setup, AFolderRowGetsThePictureOfItsType) {
    EXPECT_EQ(GetIcon(context, FTIMailItem, "00AA"), picItemType[3].picture);
    EXPECT_EQ(GetIcon(context, FTIAppointmentItem, "00AA"), picItemType[0].picture);
    EXPECT_EQ(GetIcon(context, FTIContactItem, "00AA"), picItemType[1].picture);
    EXPECT_EQ(GetIcon(context, FTITaskItem, "00AA"), picItemType[5].picture);
    EXPECT_EQ(GetIcon(context, FTIjournalItem, "00AA"), picItemType[2].picture);
    EXPECT_EQ(GetIcon(context, FTINoteItem, "00AA"), picItemType[4].picture);
    EXPECT_EQ(GetIcon(context, FTIPostItem, "00AA"), picFolderClosed);
    EXPECT_EQ(GetIcon(context, FTIDistributionList, "00AA"), picFolderClosed);
    EXPECT_EQ(GetIcon(context, FTITrashcan, "00AA"), picItemType[6].picture);
    EXPECT_EQ(GetIcon(context, FTIInbox, "00AA"), picItemType[7].picture);
    EXPECT_EQ(GetIcon(context, FTIOutbox, "00AA"), picItemType[8].picture);
    EXPECT_EQ(GetIcon(context, FTISent, "00AA"), picItemType[9].picture);
    EXPECT_EQ(GetIcon(context, FTIDraft, "00AA"), picItemType[11].picture);
    EXPECT_EQ(GetIcon(context, FTIHome, "00AA"), picItemType[10].picture);
}

TEST_F(Setup, TheInboxHasItsOwnPictureWhateverItsType) {
    context.state.defaultFolders.inbox = "0001";
    EXPECT_EQ(GetIcon(context, FTIMailItem, "0001"), Picture::Inbox);
    EXPECT_EQ(GetIcon(context, FTIUnknown, "0001"), Picture::Inbox);
    EXPECT_EQ(GetIcon(context, FTIMailItem, "0002"), Picture::Mail);
}

TEST_F(Setup, EachDefaultFolderHasItsOwnPicture) {
    context.state.defaultFolders = {"01", "02", "03", "04", "05", "06", "07"};
    EXPECT_EQ(GetIcon(context, FTIMailItem, "01"), Picture::Inbox);
    EXPECT_EQ(GetIcon(context, FTIMailItem, "02"), Picture::Draft);
    EXPECT_EQ(GetIcon(context, FTIMailItem, "03"), Picture::Outbox);
    EXPECT_EQ(GetIcon(context, FTIMailItem, "04"), Picture::Trash);
    EXPECT_EQ(GetIcon(context, FTIMailItem, "05"), Picture::Sent);
    EXPECT_EQ(GetIcon(context, FTIMailItem, "06"), Picture::Note);
    EXPECT_EQ(GetIcon(context, FTIMailItem, "07"), Picture::Mail);
}

TEST_F(Setup, OfTwoDefaultFoldersWithOneIdentifierTheDraftsWin) {
    context.state.defaultFolders = {"01", "01", "01", "01", "01", "01", ""};
    EXPECT_EQ(GetIcon(context, FTIMailItem, "01"), Picture::Draft);
    context.state.defaultFolders.drafts = "";
    EXPECT_EQ(GetIcon(context, FTIMailItem, "01"), Picture::Inbox);
    context.state.defaultFolders.inbox = "";
    EXPECT_EQ(GetIcon(context, FTIMailItem, "01"), Picture::Outbox);
    context.state.defaultFolders.outbox = "";
    EXPECT_EQ(GetIcon(context, FTIMailItem, "01"), Picture::Sent);
    context.state.defaultFolders.sentItems = "";
    EXPECT_EQ(GetIcon(context, FTIMailItem, "01"), Picture::Trash);
    context.state.defaultFolders.deletedItems = "";
    EXPECT_EQ(GetIcon(context, FTIMailItem, "01"), Picture::Note);
}

TEST_F(Setup, AnEmptyIdentifierIsNoDefaultFolder) {
    EXPECT_EQ(GetIcon(context, FTIMailItem, ""), Picture::Mail);
}

TEST_F(Setup, AnUnknownTypeHasNoPicture) {
    EXPECT_EQ(GetIcon(context, FTIUnknown, ""), Picture::None);
    EXPECT_EQ(GetIcon(context, static_cast<enuFTIItemType>(99), ""), Picture::None);
}

TEST_F(Setup, ThePictureHoldersAreTagged) {
    const std::vector<std::string_view> tags{"calendar", "contact", "journal", "mail", "note", "task",
                                             "trash",    "inbox",   "outbox",  "sent", "home", "draft"};
    for (size_t i = 0; i < tags.size(); ++i) EXPECT_EQ(picItemType[i].tag, tags[i]);
}

TEST_F(Setup, ReadersTakeRowKindsInAnyLetterCase) {
    SetupGrid(context);
    const int32_t row = context.grid.AddRow("");
    for (const char* kind : {"Store", "STORE", "store"}) {
        context.grid.SetCellText(row, colRowKind, kind);
        EXPECT_TRUE(IsRowKind(context.grid, row, rowKind::store)) << kind;
        EXPECT_FALSE(IsRowKind(context.grid, row, rowKind::dummy)) << kind;
    }
}

TEST_F(Setup, AStoreRowIsWrittenWithACapital) {
    SetupGrid(context);
    const int32_t row = AppendStoreRow(context, rowKind::store, "Mailbox");
    EXPECT_EQ(context.grid.CellText(row, colRowKind), "Store");
}

TEST_F(Setup, NothingButTheReservedColumnIsUnused) {
    EXPECT_EQ(colReserved, 3);
    EXPECT_EQ(colPath, 12);
    EXPECT_EQ(colKey, 13);
}

}  // namespace
}  // namespace foldertree
