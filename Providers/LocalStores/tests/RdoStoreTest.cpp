// RdoStoreTest: a store's members.
#include <gmock/gmock.h>

#include "RdoTest.h"
#include "TestFiles.h"
#include "automation/Error.h"

namespace localstores {
namespace {

using automation::ObjectRef;
using automation::Value;
using testing::ElementsAre;
namespace errors = automation::errors;

class RdoStore : public RdoTest {};

TEST_F(RdoStore, HasTheMembersOfAnRdoStore) {
    for (const char* member : {"Name", "EntryID", "Default", "StoreKind", "RootFolder", "IPMRootFolder",
                               "GetDefaultFolder", "GetFolderFromID", "Fields", "Session"})
        EXPECT_TRUE(store_->HasMember(member)) << member;
}

TEST_F(RdoStore, MembersHaveTheirTypes) {
    EXPECT_EQ(store_->Get("Name").TypeName(), "String");
    EXPECT_EQ(store_->Get("EntryID").TypeName(), "String");
    EXPECT_EQ(store_->Get("Default").TypeName(), "Boolean");
    EXPECT_EQ(store_->Get("StoreKind").TypeName(), "Long");
    EXPECT_TRUE(store_->Get("IPMRootFolder").IsObject());
}

TEST_F(RdoStore, KindsAreNumbered) {
    const ObjectRef stores = Object(session_, "Stores");
    std::vector<int> kinds;
    for (int i = 1; i <= 3; ++i) kinds.push_back(stores->Get("Item", i).RequireObject()->Get("StoreKind").ToLong());
    EXPECT_THAT(kinds, ElementsAre(5, 3, 2));
}

TEST_F(RdoStore, IpmRootShowsWhatUsersSeeAndTheRootMore) {
    EXPECT_THAT(NamesIn(Object(Object(store_, "RootFolder"), "Folders")),
                ElementsAre("Top of Information Store", "Finder"));
    EXPECT_EQ(Text(Object(store_, "IPMRootFolder"), "Name"), "Top of Information Store");
}

TEST_F(RdoStore, NameCannotBeWritten) {
    EXPECT_EQ(ErrorNumberOf([&] { store_->Put("Name", "x"); }), 0x80070005u);
    EXPECT_EQ(ErrorNumberOf([&] { store_->Put("EntryID", "x"); }), errors::memberNotFound);
}

TEST_F(RdoStore, DefaultFlagMovesAndNeverVanishes) {
    const ObjectRef first = Object(session_, "Stores")->Get("Item", 1).RequireObject();
    first->Put("Default", true);
    EXPECT_TRUE(first->Get("Default").ToBoolean());
    EXPECT_FALSE(store_->Get("Default").ToBoolean());
    first->Put("Default", false);
    EXPECT_TRUE(first->Get("Default").ToBoolean());
}

TEST_F(RdoStore, FieldsAreReadByTag) {
    EXPECT_EQ(store_->Get("Fields", 0x3001001F).ToText(), "Mailbox - Alex Example");
    EXPECT_EQ(store_->Get("Fields", 0x3001001E).ToText(), "Mailbox - Alex Example");
    EXPECT_EQ(store_->Get("Fields", 0x3006001E).ToText(), "Sample server");
    EXPECT_TRUE(store_->Get("Fields", 0x3400000B).ToBoolean());
    EXPECT_EQ(store_->Get("Fields", 0x0FFF0102).TypeName(), "Byte()");
    EXPECT_EQ(store_->Get("Fields", 0x0FFE0003).ToLong(), 1);
    EXPECT_EQ(Text(session_->Get("GetFolderFromID", store_->Get("Fields", 0x35E30102)).RequireObject(), "Name"),
              "Deleted Items");
}

TEST_F(RdoStore, FieldsAreReadByTheNameOfATag) {
    const char* name = "http://schemas.microsoft.com/mapi/proptag/0x3001001F";
    EXPECT_EQ(store_->Get("Fields", name).ToText(), "Mailbox - Alex Example");
    EXPECT_EQ(ErrorNumberOf([&] { store_->Get("Fields", "Name"); }), errors::invalidArgument);
    EXPECT_EQ(ErrorNumberOf([&] { store_->Get("Fields", "0x"); }), errors::invalidArgument);
}

TEST_F(RdoStore, FieldThatIsNotThereIsEmpty) {
    EXPECT_TRUE(store_->Get("Fields", 0x3613001E).IsEmpty());
    EXPECT_TRUE(store_->Get("Fields", 0).IsEmpty());
}

TEST_F(RdoStore, EmptyProviderNameIsAnEmptyText) {
    const ObjectRef archive = Object(session_, "Stores")->Get("Item", 3).RequireObject();
    EXPECT_EQ(archive->Get("Fields", 0x3006001E).TypeName(), "String");
    EXPECT_EQ(archive->Get("Fields", 0x3006001E).ToText(), "");
}

TEST_F(RdoStore, FindsItsOwnFolders) {
    const ObjectRef archive = Object(session_, "Stores")->Get("Item", 3).RequireObject();
    EXPECT_EQ(Text(archive->Get("GetDefaultFolder", 6).RequireObject(), "Name"), "Inbox");
    EXPECT_EQ(ErrorNumberOf([&] { archive->Get("GetDefaultFolder", 4); }), errors::mapiNotFound);
    const std::string inbox = Text(Inbox(), "EntryID");
    EXPECT_EQ(Text(store_->Get("GetFolderFromID", inbox).RequireObject(), "Name"), "Inbox");
    EXPECT_EQ(ErrorNumberOf([&] { archive->Get("GetFolderFromID", inbox); }), errors::mapiNotFound);
}

}  // namespace
}  // namespace localstores
