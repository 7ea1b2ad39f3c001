// HighlightingTest: contact, journal and task folders stand out when the host asks for it.
#include "selection/Highlighting.h"

#include "common/GridSetup.h"
#include "support/ControlTest.h"

namespace foldertree::testing {
namespace {

using Highlights = ControlTest;

TEST_F(Highlights, AnEmptyTreeStaysAsItIs) {
    control->SetHighlightTaskFolders(true);
    EXPECT_EQ(control->ListCount(), 0);
    EXPECT_FALSE(IsBold(Grid(), 0));
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(Highlights, TaskFoldersTurnBoldAndBackAgain) {
    Load();
    control->SetHighlightTaskFolders(true);
    for (int col = 0; col < 14; ++col) EXPECT_TRUE(IsBold(Grid(), Row("To do"), col)) << col;
    EXPECT_FALSE(IsBold(Grid(), Row("Inbox")));
    EXPECT_TRUE(IsBold(Grid(), Row("Mailbox")));
    control->SetHighlightTaskFolders(false);
    for (int col = 0; col < 14; ++col) EXPECT_FALSE(IsBold(Grid(), Row("To do"), col)) << col;
    EXPECT_TRUE(IsBold(Grid(), Row("Mailbox")));
}

TEST_F(Highlights, TheThreeFlagsActIndependently) {
    Load();
    const auto bold = [this] {
        return std::vector<bool>{IsBold(Grid(), Row("People")), IsBold(Grid(), Row("Diary")),
                                 IsBold(Grid(), Row("To do"))};
    };
    control->SetHighlightContactFolders(true);
    EXPECT_EQ(bold(), (std::vector<bool>{true, false, false}));
    control->SetHighlightJournalFolders(true);
    EXPECT_EQ(bold(), (std::vector<bool>{true, true, false}));
    control->SetHighlightTaskFolders(true);
    control->SetHighlightContactFolders(false);
    EXPECT_EQ(bold(), (std::vector<bool>{false, true, true}));
}

/// The pass over one row of each item type.
class Pass : public ::testing::Test {
  protected:
    Pass() {
        SetupGrid(context);
        for (int type = -1; type <= 13; ++type) {
            const int32_t row = context.grid.AddRow("");
            context.grid.SetCellText(row, colItemType, std::to_string(type));
            context.grid.SetCellFormat(CellSetting::Bold, row, 0, row, 13, 1);
        }
    }
    int32_t RowOfType(int type) { return type + 2; }

    FakePlatform platform;
    automation::testing::ScriptedObjectFactory factory;
    ControlContext context{platform, factory};
};

TEST_F(Pass, NoOtherTypeIsEverBold) {
    context.state.highlightContactFolders = context.state.highlightJournalFolders = context.state.highlightTaskFolders =
        true;
    PerformHighlighting(context);
    for (int type = -1; type <= 13; ++type)
        EXPECT_EQ(IsBold(context.grid, RowOfType(type)), type == 2 || type == 3 || type == 4) << type;
}

TEST_F(Pass, ARowOfButtonFaceColourKeepsItsBold) {
    context.grid.SetCellFormat(CellSetting::BackColor, RowOfType(0), 0, colors::buttonFace);
    context.grid.SetCellFormat(CellSetting::BackColor, RowOfType(1), 1, colors::buttonFace);
    PerformHighlighting(context);
    EXPECT_TRUE(IsBold(context.grid, RowOfType(0)));
    EXPECT_FALSE(IsBold(context.grid, RowOfType(1))) << "only the first cell counts";
}

TEST_F(Pass, TheForeColourIsNeitherSetNorCleared) {
    context.grid.SetCellFormat(CellSetting::ForeColor, RowOfType(0), colName, colors::buttonShadow);
    context.state.highlightContactFolders = true;
    PerformHighlighting(context);
    EXPECT_EQ(ForeColor(context.grid, RowOfType(0)), 0x80000010u);
    EXPECT_EQ(ForeColor(context.grid, RowOfType(1)), 0x80000012u);
}

TEST_F(Highlights, AFolderGreyedByAWalkStaysGreyUntilTheNextRefresh) {
    control->SetHighlightTaskFolders(true);
    Load();
    EXPECT_EQ(ForeColor(Grid(), Row("Inbox")), 0x80000010u);
    EXPECT_NE(ForeColor(Grid(), Row("To do")), 0x80000010u);
    control->SetHighlightTaskFolders(false);
    EXPECT_EQ(ForeColor(Grid(), Row("Inbox")), 0x80000010u);
    control->RefreshList();
    EXPECT_NE(ForeColor(Grid(), Row("Inbox")), 0x80000010u);
}

TEST_F(Highlights, WithTwoFlagsAMatchingFolderIsBothBoldAndGrey) {
    control->SetHighlightTaskFolders(true);
    control->SetHighlightContactFolders(true);
    Load();
    EXPECT_TRUE(IsBold(Grid(), Row("People")));
    EXPECT_EQ(ForeColor(Grid(), Row("People")), 0x80000010u);
    EXPECT_FALSE(IsBold(Grid(), Row("Diary")));
}

TEST_F(Highlights, ATickedRowLosesItsBoldInThePassAndKeepsItsYellow) {
    Load();
    Tick("Inbox");
    control->SetHighlightTaskFolders(true);
    EXPECT_FALSE(IsBold(Grid(), Row("Inbox")));
    EXPECT_EQ(BackColor(Grid(), Row("Inbox")), 0x0000FFFFu);
    control->SetSelection(control->Selection());
    EXPECT_TRUE(IsBold(Grid(), Row("Inbox")));
}

}  // namespace
}  // namespace foldertree::testing
