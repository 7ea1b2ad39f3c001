// EntryIdTest: identifiers, their forms and their text.
#include "localstores/EntryId.h"

#include <gtest/gtest.h>

namespace localstores {
namespace {

const StoreUid uid = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 0xAF};

TEST(EntryId, FolderIdIsFlagsThenStoreThenNumber) {
    EXPECT_EQ(Hex(MakeFolderId(uid, 0x1122334455667788)), "00000000000102030405060708090A0B0C0D0EAF8877665544332211");
    EXPECT_EQ(Hex(MakeShortNumberedFolderId(uid, 0x8082)), "00000000000102030405060708090A0B0C0D0EAF82800000");
}

TEST(EntryId, StoreIdsOfTwoProvidersDiffer) {
    EXPECT_NE(MakeStoreId("one", uid), MakeStoreId("two", uid));
}

TEST(EntryId, ShortFormDiffersInItsFirstByteAlone) {
    const EntryId id = MakeFolderId(uid, 7);
    const std::string text = Hex(id);
    EXPECT_EQ(Hex(ShortForm(id)), "EF" + text.substr(2));
    EXPECT_EQ(LongForm(ShortForm(id)), id);
    EXPECT_EQ(LongForm(id), id);
}

TEST(EntryId, FormsOfNothingAreNothing) {
    EXPECT_TRUE(ShortForm({}).empty());
    EXPECT_TRUE(LongForm({}).empty());
}

TEST(EntryId, HexIsReadInEitherCase) {
    EXPECT_EQ(FromHex("00efAB"), (EntryId{0x00, 0xEF, 0xAB}));
    EXPECT_EQ(FromHex(""), EntryId());
}

TEST(EntryId, TextThatIsNoHexIsRefused) {
    for (const char* text : {"0", "000", "0G", "G0", "0x00", " 00", "00 ", "ÄÄ"}) EXPECT_FALSE(FromHex(text)) << text;
}

// These numbers are part of saved selections: they must never change.
TEST(EntryId, FingerprintsAreTheSameInEveryVersion) {
    EXPECT_EQ(Fingerprint(""), 0xCBF29CE484222325u);
    EXPECT_EQ(Fingerprint("foobar"), 0x85944171F73967E8u);
}

TEST(EntryId, UidOfTextUsesBothHalves) {
    const StoreUid a = UidOfText("a");
    const StoreUid b = UidOfText("b");
    EXPECT_NE(EntryId(a.begin(), a.begin() + 8), EntryId(b.begin(), b.begin() + 8));
    EXPECT_NE(EntryId(a.begin() + 8, a.end()), EntryId(b.begin() + 8, b.end()));
}

}  // namespace
}  // namespace localstores
