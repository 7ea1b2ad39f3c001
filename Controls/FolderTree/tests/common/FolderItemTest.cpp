// FolderItemTest: the record of a folder or an address list, and its three keys.
#include <gtest/gtest.h>

#include <limits>

#include "common/clsFolderTreeItem.h"

namespace foldertree {
namespace {

using automation::Access;
using automation::Error;
using automation::Value;

ItemRef FolderItem(std::string storeID, std::string entryID) {
    const auto item = std::make_shared<clsFolderTreeItem>();
    item->SetStoreID(std::move(storeID));
    item->SetEntryID(std::move(entryID));
    return item;
}

TEST(FolderItem, StartsWithEmptyTextsAndMailType) {
    const clsFolderTreeItem item;
    EXPECT_EQ(item.StoreID() + item.EntryID() + item.EntryIDShort() + item.AddressListID() + item.Name() + item.Path(),
              "");
    EXPECT_FALSE(item.IsAddressList() || item.Incomplete() || item.Selected());
    EXPECT_EQ(item.Index(), 0);
    EXPECT_EQ(item.ItemType(), FTIMailItem);
    EXPECT_EQ(item.FolderRecID(), 0);
}

TEST(FolderItem, AnAddressListHasTheSameThreeKeys) {
    const ItemRef item = FolderItem("AB", "00CD");
    item->SetIsAddressList(true);
    item->SetAddressListID("X1");
    EXPECT_EQ(item->Key(), "LX1");
    EXPECT_EQ(item->KeyShortEntryID(), "LX1");
    EXPECT_EQ(item->KeyAlternate(), "LX1");
}

TEST(FolderItem, AFolderWithoutAStoreHasItsEntryIdentifierAsKey) {
    const ItemRef item = FolderItem("", "00CD");
    EXPECT_EQ(item->Key(), "00CD");
    EXPECT_EQ(item->KeyShortEntryID(), "S|");
    EXPECT_EQ(item->KeyAlternate(), "S|EFCD");
}

TEST(FolderItem, TheKeyNamesStoreAndFolder) {
    const ItemRef item = FolderItem("AB", "CD");
    EXPECT_EQ(item->Key(), "SAB|CD");
    EXPECT_EQ(item->KeyShortEntryID(), "SAB|");
}

TEST(FolderItem, TheAlternateKeySwapsTheFlagsByte) {
    EXPECT_EQ(FolderItem("AB", "00CD")->KeyAlternate(), "SAB|EFCD");
    EXPECT_EQ(FolderItem("AB", "EFCD")->KeyAlternate(), "SAB|00CD");
    EXPECT_EQ(FolderItem("AB", "12CD")->KeyAlternate(), "SAB|EFCD");
    EXPECT_EQ(FolderItem("AB", "efCD")->KeyAlternate(), "SAB|EFCD");
}

TEST(FolderItem, TheAlternateKeyOfAnIdentifierShorterThanItsFlagsByteIsEFAlone) {
    EXPECT_EQ(FolderItem("AB", "")->KeyAlternate(), "SAB|EF");
    EXPECT_EQ(FolderItem("AB", "0")->KeyAlternate(), "SAB|EF");
    EXPECT_EQ(FolderItem("AB", "E")->KeyAlternate(), "SAB|EF");
    EXPECT_EQ(FolderItem("AB", "EF")->KeyAlternate(), "SAB|00");
}

TEST(FolderItem, TheKeysFollowTheFields) {
    const ItemRef item = FolderItem("AB", "CD");
    EXPECT_EQ(item->Key(), "SAB|CD");
    item->SetEntryID("EE");
    EXPECT_EQ(item->Key(), "SAB|EE");
}

TEST(FolderItem, TheShortIdentifierStaysEmptyWhenItIsSet) {
    const ItemRef item = FolderItem("AB", "CD");
    item->SetEntryIDShort("EF01");
    EXPECT_EQ(item->EntryIDShort(), "");
    EXPECT_EQ(item->KeyShortEntryID(), "SAB|");
}

TEST(FolderItem, AHostMayWriteAnyIndex) {
    const ItemRef item = FolderItem("AB", "CD");
    for (const int32_t index : {std::numeric_limits<int32_t>::min(), -1, 0, std::numeric_limits<int32_t>::max()}) {
        item->Put("Index", Value(index));
        EXPECT_EQ(item->Get("Index").ToLong(), index);
    }
}

TEST(FolderItem, AnIndexWrittenAsTextRoundsHalfToEven) {
    const ItemRef item = FolderItem("AB", "CD");
    item->Put("Index", Value("2.5"));
    EXPECT_EQ(item->Index(), 2);
    item->Put("Index", Value("3.5"));
    EXPECT_EQ(item->Index(), 4);
}

TEST(FolderItem, AnIndexBeyond32BitsIsAnOverflow) {
    const ItemRef item = FolderItem("AB", "CD");
    item->SetIndex(7);
    try {
        item->Put("Index", Value("2147483648"));
        FAIL() << "it was taken";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), 6u);
    }
    EXPECT_EQ(item->Index(), 7);
}

TEST(FolderItem, EveryMemberCanBeReadByName) {
    const ItemRef item = FolderItem("AB", "00CD");
    item->SetName("Inbox");
    item->SetPath("Box\\Inbox");
    item->SetItemType(FTIInbox);
    item->SetFolderRecID(5);
    item->SetSelected(true);
    EXPECT_FALSE(item->Get("Incomplete").ToBoolean());
    EXPECT_FALSE(item->Get("IsAddressList").ToBoolean());
    EXPECT_EQ(item->Get("key").ToText(), "SAB|00CD");
    EXPECT_TRUE(item->Get("Selected").ToBoolean());
    EXPECT_EQ(item->Get("StoreID").ToText(), "AB");
    EXPECT_EQ(item->Get("EntryID").ToText(), "00CD");
    EXPECT_EQ(item->Get("AddressListID").ToText(), "");
    EXPECT_EQ(item->Get("EntryIDShort").ToText(), "");
    EXPECT_EQ(item->Get("Name").ToText(), "Inbox");
    EXPECT_EQ(item->Get("Path").ToText(), "Box\\Inbox");
    EXPECT_EQ(item->Get("ItemType").ToLong(), 9);
    EXPECT_EQ(item->Get("KeyShortEntryID").ToText(), "SAB|");
    EXPECT_EQ(item->Get("KeyAlternate").ToText(), "SAB|EFCD");
    EXPECT_EQ(item->Get("FolderRecID").ToLong(), 5);
}

TEST(FolderItem, AHostMayWriteNothingButTheIndex) {
    const ItemRef item = FolderItem("AB", "CD");
    for (const char* member : {"Incomplete", "IsAddressList", "Key", "Selected", "StoreID", "EntryID", "AddressListID",
                               "EntryIDShort", "Name", "Path", "ItemType", "FolderRecID"})
        EXPECT_THROW(item->Put(member, Value("1")), Error) << member;
    EXPECT_EQ(item->Key(), "SAB|CD");
}

TEST(FolderItem, TheEnumerationsHaveTheNumbersThatHostsStore) {
    EXPECT_EQ(FTIUnknown, -1);
    EXPECT_EQ(FTIMailItem, 0);
    EXPECT_EQ(FTIAppointmentItem, 1);
    EXPECT_EQ(FTIContactItem, 2);
    EXPECT_EQ(FTITaskItem, 3);
    EXPECT_EQ(FTIjournalItem, 4);
    EXPECT_EQ(FTINoteItem, 5);
    EXPECT_EQ(FTIPostItem, 6);
    EXPECT_EQ(FTIDistributionList, 7);
    EXPECT_EQ(FTITrashcan, 8);
    EXPECT_EQ(FTIInbox, 9);
    EXPECT_EQ(FTIOutbox, 10);
    EXPECT_EQ(FTISent, 11);
    EXPECT_EQ(FTIDraft, 12);
    EXPECT_EQ(FTIHome, 13);
    EXPECT_EQ(eISAccess_RDO_MAPITables, 0);
    EXPECT_EQ(eISAccess_RDO_Objects, 1);
    EXPECT_EQ(eISAccess_Outlook, 2);
    EXPECT_EQ(eISAccess_CDO, 3);
}

TEST(FolderItem, KnowsItsKeyInAnyLetterCase) {
    clsFolderTreeItem item;
    item.SetStoreID("0A");
    item.SetEntryID("EF01");
    EXPECT_TRUE(item.HasKey("S0A|EF01"));
    EXPECT_TRUE(item.HasKey("s0a|ef01"));
    for (const char* other : {"", "S0A|EF02", "S0AXEF01", "X0A|EF01", "S0A|EF0", "S0A|EF011", "S0B|EF01"})
        EXPECT_FALSE(item.HasKey(other)) << other;
}

TEST(FolderItem, AnAddressListDoesNotHaveTheKeyOfAFolder) {
    clsFolderTreeItem item;
    item.SetStoreID("0A");
    item.SetEntryID("EF01");
    item.SetAddressListID("77");
    item.SetIsAddressList(true);
    EXPECT_TRUE(item.HasKey("l77"));
    EXPECT_FALSE(item.HasKey("S0A|EF01"));
}

}  // namespace
}  // namespace foldertree
