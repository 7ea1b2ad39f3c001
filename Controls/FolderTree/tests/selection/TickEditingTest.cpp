// TickEditingTest: what ticks, typed numbers and double clicks of the user do.
#include "selection/TickEditing.h"

#include "support/ControlTest.h"

namespace foldertree::testing {
namespace {

using automation::Value;
using automation::testing::ScriptedObject;

class Editing : public ControlTest {
  protected:
    void LoadIndexed() {
        control->SetAllowIndexing(true);
        Load();
    }
    bool MayEdit(std::string_view name, int col) {
        bool cancel = false;
        control->fgd_BeforeEdit(Row(name), col, cancel);
        return !cancel;
    }
    bool Accepts(std::string_view name, std::string_view text, int col = colIndex) {
        Grid().SetEditText(text);
        bool cancel = false;
        control->fgd_ValidateEdit(Row(name), col, cancel);
        return !cancel;
    }
    void DoubleClick(std::string_view name) {
        Grid().SetCurrentRow(Row(name));
        control->fgd_DblClick();
    }
    std::vector<int> Indexes() {
        std::vector<int> indexes;
        for (const ItemRef& item : ItemsOf(control->Selection())) indexes.push_back(item->Index());
        return indexes;
    }
};

TEST_F(Editing, InSingleSelectASecondTickUnticksTheFirst) {
    LoadSingleSelect();
    Tick("Inbox");
    Tick("People");
    EXPECT_EQ(Cell("Inbox", colSel), "0");
    EXPECT_EQ(BackColor(Grid(), Row("Inbox")), 0x80000005u);
    EXPECT_FALSE(IsBold(Grid(), Row("Inbox")));
    ASSERT_NE(control->SelectedItem(), nullptr);
    EXPECT_EQ(control->SelectedItem()->Key(), "SB2|0002");
    EXPECT_EQ(control->SelectedItem()->Path(), "Mailbox\\People");
}

TEST_F(Editing, InSingleSelectAnUntickLeavesNoSelectedItem) {
    LoadSingleSelect();
    Tick("Inbox");
    Untick("Inbox");
    EXPECT_EQ(control->SelectedItem(), nullptr);
    EXPECT_FALSE(IsTicked(Grid(), Row("Inbox")));
    EXPECT_EQ(platform.changed, 2);
}

TEST_F(Editing, InSingleSelectNoCollectionIsMade) {
    LoadSingleSelect();
    Tick("Inbox");
    EXPECT_EQ(control->Selection(), nullptr);
}

TEST_F(Editing, ATickForgetsTheSelectedRow) {
    LoadSingleSelect();
    control->SetSelectedItem(HostItem("B2", "0001"));
    control->SetMultiSelect(true);
    Tick("People");
    control->SetMultiSelect(false);
    EXPECT_EQ(control->SelectedItem(), nullptr);
}

TEST_F(Editing, ANewTickIsAppendedWithTheNextNumber) {
    Load();
    for (const char* name : {"People", "Zoo", "Inbox"}) Tick(name);
    EXPECT_EQ(Cell("People", colIndex), "1");
    EXPECT_EQ(Cell("Zoo", colIndex), "2");
    EXPECT_EQ(Cell("Inbox", colIndex), "3");
    EXPECT_EQ(SelectedKeys(), (Lines{"SB2|0002", "SB2|0012", "SB2|0001"}));
    EXPECT_TRUE(ItemsOf(control->Selection())[0]->Selected());
}

TEST_F(Editing, ATickBehindTheLargestNumberThereIsEndsInAnErrorLine) {
    Load();
    Tick("People");
    ItemsOf(control->Selection())[0]->SetIndex(2147483647);
    platform.ClearTrace();
    Tick("Zoo");
    EXPECT_EQ(platform.TraceCount("Error in ctlFolderTree.fgd_AfterEdit("), 1u);
    EXPECT_EQ(platform.TraceCount("0x6] "), 1u);
    EXPECT_EQ(SelectedKeys().size(), 2u) << "both ticks stand";
    ExpectIdle();
}

TEST_F(Editing, AKnownItemKeepsItsNumber) {
    Load();
    for (const char* name : {"People", "Zoo"}) Tick(name);
    Grid().SetCellText(Row("People"), colSel, "");  // the item is still in the collection
    Tick("People");
    EXPECT_EQ(Cell("People", colIndex), "1");
    EXPECT_EQ(Cell("Zoo", colIndex), "2");
    EXPECT_EQ(SelectedKeys(), (Lines{"SB2|0002", "SB2|0012"}));
}

TEST_F(Editing, AnUntickWritesOneBlankIntoTheNumber) {
    Load();
    Tick("Inbox");
    Untick("Inbox");
    EXPECT_EQ(Cell("Inbox", colIndex), " ");
    EXPECT_EQ(SelectedKeys(), Lines{});
}

TEST_F(Editing, AnUntickRenumbersTheRest) {
    Load();
    for (const char* name : {"People", "Zoo", "Inbox"}) Tick(name);
    Untick("People");
    EXPECT_EQ(Cell("Zoo", colIndex), "1");
    EXPECT_EQ(Cell("Inbox", colIndex), "2");
}

TEST_F(Editing, ATickedRowIsPainted) {
    Load();
    Tick("Inbox");
    EXPECT_EQ(BackColor(Grid(), Row("Inbox")), 0x0000FFFFu);
    EXPECT_TRUE(IsBold(Grid(), Row("Inbox"), colSel));
}

TEST_F(Editing, OnlyPositiveNumbersAreAccepted) {
    LoadIndexed();
    Tick("Inbox");
    for (const char* refused : {"0", "-2", "abc", "", "0.0", "-1e3", "1,5", "&H10", "1 2", "0x10"})
        EXPECT_FALSE(Accepts("Inbox", refused)) << refused;
    for (const char* accepted : {"2.5", "1", "0.001", "+3", " 4 ", "1e2", ".5", "2."})
        EXPECT_TRUE(Accepts("Inbox", accepted)) << accepted;
}

TEST_F(Editing, NoNumberIsAcceptedWithoutIndexing) {
    Load();
    Tick("Inbox");
    EXPECT_FALSE(Accepts("Inbox", "2"));
    control->SetAllowIndexing(true);
    EXPECT_TRUE(Accepts("Inbox", "2"));
    control->SetMultiSelect(false);
    EXPECT_FALSE(Accepts("Inbox", "2"));
}

TEST_F(Editing, OtherColumnsAreNotValidated) {
    Load();
    EXPECT_TRUE(Accepts("Inbox", "abc", colSel));
    EXPECT_TRUE(Accepts("Inbox", "abc", colName));
}

TEST_F(Editing, TypingIsRefusedBeforeTheEditorOpensWithoutIndexing) {
    Load();
    Tick("Inbox");
    EXPECT_FALSE(MayEdit("Inbox", colIndex));
    control->SetAllowIndexing(true);
    EXPECT_TRUE(MayEdit("Inbox", colIndex));
    control->SetMultiSelect(false);
    EXPECT_FALSE(MayEdit("Inbox", colIndex));
}

TEST_F(Editing, TheNumberOfAnUntickedRowMayNotBeEdited) {
    LoadIndexed();
    Tick("Inbox");
    Untick("Inbox");
    EXPECT_FALSE(MayEdit("Inbox", colIndex));
}

TEST_F(Editing, AStoresBoxMayNotBeTicked) {
    Load();
    EXPECT_FALSE(MayEdit("Mailbox", colSel));
    EXPECT_TRUE(MayEdit("Inbox", colSel));
}

TEST_F(Editing, OtherColumnsMayNotBeEdited) {
    LoadIndexed();
    for (int col = 2; col < 14; ++col) EXPECT_FALSE(MayEdit("Inbox", col)) << col;
}

TEST_F(Editing, ATickRaisesChangedOnceAndWritesSixLines) {
    Load();
    platform.ClearTrace();
    Tick("Projects");
    EXPECT_EQ(platform.changed, 1);
    EXPECT_EQ(platform.Trace(), (Lines{"Selection changed on", "  Mailbox\\Inbox\\Projects", " SID = B2", " EID = 0011",
                                       " EIDShort = EF11", " AID = "}));
    platform.ClearTrace();
    Untick("Projects");
    EXPECT_EQ(platform.changed, 2);
    EXPECT_EQ(platform.Trace().size(), 6u);
}

TEST_F(Editing, AnAcceptedNumberRaisesChangedOnceAndWritesNothing) {
    LoadIndexed();
    for (const char* name : {"People", "Zoo"}) Tick(name);
    platform.ClearTrace();
    platform.changed = 0;
    Type("Zoo", "1");
    EXPECT_EQ(platform.changed, 1);
    EXPECT_EQ(platform.Trace(), Lines{});
}

TEST_F(Editing, TheLinesOfATickFollowTheEventAndReadTheRowThen) {
    Load();
    platform.ClearTrace();
    platform.onChanged = [this] {
        EXPECT_EQ(platform.Trace(), Lines{});
        Grid().SetCellText(Row("Inbox"), colPath, "changed meanwhile");
    };
    Tick("Inbox");
    EXPECT_EQ(platform.Trace()[1], "  changed meanwhile");
}

TEST_F(Editing, ATypedNumberMovesAnItemDownToThatPosition) {
    LoadIndexed();
    for (const char* name : {"Inbox", "Projects", "Zoo", "People"}) Tick(name);
    Type("Inbox", "3");
    EXPECT_EQ(SelectedKeys(), (Lines{"SB2|0011", "SB2|0012", "SB2|0001", "SB2|0002"}));
    EXPECT_EQ(Cell("Inbox", colIndex), "3");
    EXPECT_EQ(Indexes(), (std::vector<int>{1, 2, 3, 4}));
}

TEST_F(Editing, ATypedNumberMovesAnItemUpOnePlaceLaterThanTyped) {
    LoadIndexed();
    for (const char* name : {"Inbox", "Projects", "Zoo", "People"}) Tick(name);
    Type("People", "2");
    EXPECT_EQ(SelectedKeys(), (Lines{"SB2|0001", "SB2|0011", "SB2|0002", "SB2|0012"}));
    EXPECT_EQ(Cell("People", colIndex), "3");
}

TEST_F(Editing, ATypedFractionCountsAsTheRoundedNumber) {
    LoadIndexed();
    for (const char* name : {"Inbox", "Projects", "Zoo"}) Tick(name);
    Type("Inbox", "2.5");  // rounds to 2: after the item numbered 2
    EXPECT_EQ(SelectedKeys(), (Lines{"SB2|0011", "SB2|0001", "SB2|0012"}));
}

TEST_F(Editing, ANumberBeyondAllGoesToTheEnd) {
    LoadIndexed();
    for (const char* name : {"Inbox", "Projects"}) Tick(name);
    Type("Inbox", "99");
    EXPECT_EQ(SelectedKeys(), (Lines{"SB2|0011", "SB2|0001"}));
    EXPECT_EQ(Cell("Inbox", colIndex), "2");
}

TEST_F(Editing, ANumberBeyond32BitsIsAnErrorLineAndLosesNothing) {
    LoadIndexed();
    Tick("Inbox");
    platform.changed = 0;
    platform.ClearTrace();
    Type("Inbox", "9999999999");
    EXPECT_EQ(platform.TraceCount("Error in ctlFolderTree.CreateSelItemFromRow ("), 1u);
    EXPECT_EQ(platform.TraceCount("[0x6] "), 1u);
    EXPECT_EQ(SelectedKeys(), Lines{"SB2|0001"}) << "the tick is not lost";
    ExpectIdle();
}

TEST_F(Editing, ATypedNumberWithoutIndexingDoesNothing) {
    Load();
    Tick("Inbox");
    platform.changed = 0;
    Type("Inbox", "5");
    EXPECT_EQ(platform.changed, 0);
}

TEST_F(Editing, AnEditOfAnotherColumnOnlyRepaints) {
    Load();
    Grid().SetCellText(Row("Inbox"), colSel, "-1");
    control->fgd_AfterEdit(Row("Inbox"), colName);
    EXPECT_EQ(BackColor(Grid(), Row("Inbox")), 0x0000FFFFu);
    EXPECT_EQ(platform.changed, 0);
    EXPECT_EQ(platform.TraceCount("Selection changed on"), 0u);
}

TEST_F(Editing, ADoubleClickOnALeafTicksIt) {
    Load();
    DoubleClick("Alpha");
    EXPECT_TRUE(IsTicked(Grid(), Row("Alpha")));
    EXPECT_EQ(platform.changed, 1);
    DoubleClick("Alpha");
    EXPECT_EQ(Cell("Alpha", colSel), "0");
    EXPECT_EQ(platform.changed, 2);
}

TEST_F(Editing, ADoubleClickOnANodeWithChildrenOnlyTogglesIt) {
    Load();
    DoubleClick("Inbox");
    EXPECT_EQ(Grid().NodeState(Row("Inbox")), 2);
    EXPECT_FALSE(IsTicked(Grid(), Row("Inbox")));
    DoubleClick("Inbox");
    EXPECT_EQ(Grid().NodeState(Row("Inbox")), 0);
    EXPECT_EQ(platform.changed, 0);
}

TEST_F(Editing, ADoubleClickOnTheLastRowNeverTicks) {
    Load();
    ASSERT_EQ(Row("Old mail"), Grid().RowCount() - 1);
    DoubleClick("Old mail");
    EXPECT_FALSE(IsTicked(Grid(), Row("Old mail")));
    EXPECT_EQ(Grid().NodeState(Row("Old mail")), 2);
    EXPECT_EQ(platform.changed, 0);
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(Editing, ADoubleClickTicksARowWhoseBoxMayNotBeEdited) {
    mailbox.stores[1].folders.clear();
    Load();
    ASSERT_FALSE(MayEdit("Mailbox", colSel));
    DoubleClick("Mailbox");
    EXPECT_TRUE(IsTicked(Grid(), Row("Mailbox")));
}

TEST_F(Editing, ADoubleClickOnTheHeaderDoesNothing) {
    Load();
    Grid().SetCurrentRow(0);
    const Lines tree = Tree();
    control->fgd_DblClick();
    EXPECT_EQ(Tree(), tree);
    EXPECT_EQ(platform.changed, 0);
}

TEST_F(Editing, ADoubleClickOnAnUnreadNodeReadsItsChildren) {
    Load(1);
    DoubleClick("Inbox");
    EXPECT_EQ(Cell("Inbox", colIncomplete), "");
    EXPECT_EQ(Grid().NodeState(Row("Inbox")), 0);
    EXPECT_NE(Row("Projects"), 0);
}

TEST_F(Editing, NothingReactsWhileALoadRuns) {
    Load();
    int reactions = 0;
    platform.onYield = [&](int) {
        if (Grid().RowCount() < 4) return;
        platform.onYield = nullptr;
        const Lines before = Tree();
        EXPECT_TRUE(MayEdit("Inbox", colName)) << "an edit is allowed";
        EXPECT_TRUE(Accepts("Inbox", "abc"));
        Grid().SetCellText(Row("Inbox"), colSel, "-1");
        control->fgd_AfterEdit(Row("Inbox"), colSel);
        EXPECT_NE(BackColor(Grid(), Row("Inbox")), 0x0000FFFFu);
        DoubleClick("Inbox");
        EXPECT_EQ(Grid().NodeState(Row("Inbox")), 0);
        ++reactions;
    };
    control->RefreshList();
    EXPECT_EQ(reactions, 1);
    EXPECT_EQ(platform.changed, 0);
}

TEST_F(Editing, AnErrorBeforeTheEventStopsTheHandlerAndKeepsTheTick) {
    Load();
    const auto broken = std::make_shared<ScriptedObject>("Broken");
    broken->Items({});
    broken->Fails("Add", automation::Error(0x80004005, "Full."));
    control->SetSelection(broken);
    platform.ClearTrace();
    Tick("Inbox");
    EXPECT_EQ(platform.Trace(), Lines{"Error in ctlFolderTree.fgd_AfterEdit(?): 0x80004005] Full."});
    EXPECT_EQ(Cell("Inbox", colSel), "-1");
    EXPECT_EQ(platform.changed, 0);
}

TEST_F(Editing, AnotherRowThanThoseOfTheTreeIsAnErrorLine) {
    Load();
    platform.ClearTrace();
    bool cancel = false;
    control->fgd_BeforeEdit(999, colSel, cancel);
    EXPECT_EQ(platform.TraceCount("Error in ctlFolderTree.fgd_BeforeEdit (0): [0x9] "), 1u);
    control->fgd_AfterEdit(999, colSel);
    EXPECT_EQ(platform.changed, 0);
}

TEST_F(Editing, TheControlMayBeClosedInsideTheEvent) {
    Load();
    platform.onChanged = [this] {
        control->Close();
        platform.closed = true;
    };
    Tick("Inbox");
    EXPECT_EQ(platform.callsAfterClose, 0);
    EXPECT_EQ(platform.TraceCount("Selection changed on"), 0u);
}

TEST_F(Editing, TheControlMayBeDroppedInsideTheEvent) {
    Load();
    platform.onChanged = [this] {
        control->Close();
        control.reset();
        platform.closed = true;
    };
    ctlFolderTree& raw = *control;
    const int32_t row = Row("Inbox");
    Grid().SetCellText(row, colSel, "-1");
    raw.fgd_AfterEdit(row, colSel);
    EXPECT_EQ(platform.callsAfterClose, 0);
    EXPECT_EQ(control, nullptr);
}

}  // namespace
}  // namespace foldertree::testing
