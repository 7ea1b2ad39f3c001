// ItemLookupTest: the items of rows whose identifiers a host holds.
#include "modes/ModeTest.h"

namespace foldertree::testing {
namespace {

using ItemLookup = ModeTest;

TEST_F(ItemLookup, AFolderThatIsNotTickedIsFound) {
    LoadMode(eISAccess_RDO_Objects);
    const ItemRef item = control->GetMsgItem("b2", "0011");
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->Name(), "Projects");
    EXPECT_EQ(item->Path(), "Mailbox\\Inbox\\Projects");
    EXPECT_FALSE(item->Selected());
    EXPECT_EQ(item->Index(), 0);
}

TEST_F(ItemLookup, TheIndexIsTheNumberInTheRow) {
    control->SetAllowIndexing(true);
    LoadMode(eISAccess_RDO_Objects);
    Tick("Zoo");
    Tick("Projects");
    EXPECT_EQ(control->GetMsgItem("B2", "0011")->Index(), 2);
}

TEST_F(ItemLookup, TwoCallsGiveTwoObjectsOfEqualContents) {
    LoadMode(eISAccess_RDO_Objects);
    const ItemRef first = control->GetMsgItem("B2", "0011");
    const ItemRef second = control->GetMsgItem("B2", "0011");
    EXPECT_NE(first, second);
    EXPECT_EQ(first->Key(), second->Key());
    EXPECT_EQ(first->Path(), second->Path());
    EXPECT_EQ(first->ItemType(), second->ItemType());
}

TEST_F(ItemLookup, AFolderThatIsNotReadYetGivesNothing) {
    LoadMode(eISAccess_RDO_Objects, 1);
    EXPECT_EQ(control->GetMsgItem("B2", "0021"), nullptr);
    Open("Projects");
    EXPECT_NE(control->GetMsgItem("B2", "0021"), nullptr);
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(ItemLookup, OnlyTheIdentifierThatTheTreeHasIsFound) {
    LoadMode(eISAccess_RDO_Objects);
    EXPECT_EQ(control->GetMsgItem("B2", "EF11"), nullptr) << "the other flags byte";
    EXPECT_EQ(control->GetMsgItem("B2", ""), nullptr);
    EXPECT_EQ(control->GetMsgItem("", "0011"), nullptr) << "another store, or none";
    EXPECT_EQ(platform.ErrorLines(), Lines{});
}

TEST_F(ItemLookup, FoldersOfTheMailClientAreNotFound) {
    LoadMode(eISAccess_Outlook);
    EXPECT_EQ(control->GetMsgItem("", "0011"), nullptr) << "their rows have keys without a store";
    EXPECT_EQ(control->GetMsgItem("B2", "0011"), nullptr);
}

TEST_F(ItemLookup, NothingIsSelected) {
    LoadMode(eISAccess_RDO_Objects);
    control->GetMsgItem("B2", "0011");
    EXPECT_EQ(SelectedKeys(), Lines{});
    EXPECT_EQ(platform.changed, 0);
}

}  // namespace
}  // namespace foldertree::testing
