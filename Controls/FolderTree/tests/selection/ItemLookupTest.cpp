// ItemLookupTest: the items of rows whose identifiers a host holds.
#include "support/ControlTest.h"

namespace foldertree::testing {
namespace {

using Lookup = ControlTest;

TEST_F(Lookup, AFolderThatIsNotTickedIsFound) {
    Load();
    const ItemRef item = control->GetMsgItem("B2", "0011");
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->Path(), "Mailbox\\Inbox\\Projects");
    EXPECT_FALSE(item->Selected());
    EXPECT_EQ(item->Index(), 0);
}

TEST_F(Lookup, TwoCallsGiveTwoObjects) {
    Load();
    const ItemRef first = control->GetMsgItem("B2", "0011");
    const ItemRef second = control->GetMsgItem("b2", "0011");
    ASSERT_NE(second, nullptr);
    EXPECT_NE(first, second);
    EXPECT_EQ(first->Key(), second->Key());
}

TEST_F(Lookup, AFolderThatIsNotReadYetIsNotFound) {
    Load(1);
    EXPECT_EQ(control->GetMsgItem("B2", "0011"), nullptr);
    EXPECT_EQ(control->GetMsgItem("B2", "EF01"), nullptr) << "only the exact key counts";
    EXPECT_EQ(host.ErrorLines(), Lines{});
}

TEST_F(Lookup, AnAddressListIsFoundByBothIdentifiersOnly) {
    Load();
    Grid().SetCellText(Row("Zoo"), colKey, "LX1");
    EXPECT_EQ(control->GetAdListItem("X1", ""), nullptr);
    Grid().SetCellText(Row("Zoo"), colKey, "LX1|E1");
    EXPECT_NE(control->GetAdListItem("X1", "E1"), nullptr);
}

}  // namespace
}  // namespace foldertree::testing
